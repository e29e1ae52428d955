#pragma once

#include "design/PrestGroup.h"
#include "geometry/AreaElem.h"
#include "geometry/LineElem.h"
#include "geometry/PolyLine.h"
#include "geometry/SectPoint.h"
#include "geometry/SectPointList.h"
#include "platform/Field.h"
#include "platform/ObList.h"
#include "platform/Object.h"

#include <array>
#include <functional>
#include <memory>
#include <string>

namespace kelo {

class CConcrMatPar;
class CRefLine;
class CRoadProfile;
class CStructure;
class MessageSink;

// What a section reads from its project, handed in by the caller rather than found through a
// back pointer: the line it stands on (road surface, position in space), all lines (the frame of
// a column), and the stiffness of a material set (the weights of a composite section).
struct SectionEnv {
    CRefLine* RefLine = nullptr;
    const CObList<CRefLine>* Lines = nullptr;
    // Young's modulus of the material matParNo of kind matType (1 concrete, 2 steel) under design
    // set desParNo; 0 when there is none. Any unit will do: only ratios are used.
    std::function<double(int matType, int matParNo, int desParNo)> YoungsModulus;
    MessageSink* Sink = nullptr;

    // The environment of a section on the line refLineNo of a project.
    static SectionEnv OfProject(CStructure* structure, int refLineNo);
};

// The cross-section of a member at one station of a reference line.
//
// Section axes: X across, positive to the right in the view along the line, Y up. The outline is
// the outer point list, an ordered list that closes by repeating its first point; a hollow
// section goes round its outer edge counter-clockwise, over a seam to a void, round the void
// clockwise and back over the seam, each void from an outer point of its own so that the drying
// perimeter can tell the rings apart. Polylines hold further lines (centre lines of plates,
// drawings). Points of user-drawn and design sections are in metres; the pictures of frame
// members and springs (types 1 to 5, 20 to 22) are made in millimetres.
//
// Types: 1 stiffness only, 2 to 5 frame members (circle, rectangle, box, T) given by dimensions
// in metres, 11 and 12 design rectangle and circle given in millimetres, 13 general solid, 14
// general panel, 15 miscellaneous, 20 to 22 springs, 100 area and line elements, 1000 to 1005
// thin-walled steel, 10000 and up library profiles.
class CKeySection : public CObject {
public:
    static constexpr int kSpecParams = 100;
    using PointList = CPolyLine::PointList;

    CKeySection() = default;
    CKeySection(int no, std::string name, double stationNo);
    CKeySection(const CKeySection&) = default;
    CKeySection& operator=(const CKeySection&) = default;
    ~CKeySection() override = default;

    int KeyNo() const { return No; }

    // ---- The outline
    // Makes the points of a section of a generated type anew (types 1 to 5, 11, 12, 20 to 22),
    // keeping FaceConnection of points 0 to 39; type 14 only makes its converted lists. Other
    // types are left alone. Answers 1, or 0 for a type whose generator is not available here
    // (1000 to 9999 and library profiles), which is then left as it was.
    int CalcSectPoints();
    // Makes the points of a standard outline from the dimensions, anew. Frame members (types 2 to
    // 5, dimensions in m) are drawn in mm about their centre of gravity; the design rectangle and
    // circle (11, 12, dimensions in mm) in m about their middle, a box or pipe as one outline
    // with its void; types 1 and 20 to 22 as the stiffness symbol, three crossing lines. A type
    // without a generator here is left alone.
    void RefreshStdProfile();
    // Resolves every point of every polyline, then of the outer list, and places radius points
    // on their bows. A point that can't be resolved stops it with 0. Road-tied points take the
    // section's own road profile, or that of env's line at the section's station.
    int CalcSectPointCoord(const SectionEnv* env = nullptr);
    // Resolves one point, first the points it refers to. start is the point the chain began at;
    // coming back to it is a circular definition and answers 0. road: the road surface for
    // road-tied points; without it the section's own.
    int CalculateSectionCoord(CSectPoint* point, CSectPoint* start,
                              const CRoadProfile* road = nullptr);
    // Intersection of the lines a-b and c-d; differences of 1e-5 or less count as 0, and a line
    // of no length runs along X. 0 for parallel lines.
    static int CalculateIntersectPoint(const CSectPoint& a, const CSectPoint& b,
                                       const CSectPoint& c, const CSectPoint& d, double& x,
                                       double& y);
    // Foot of the perpendicular from p on the line a-b; 0 for a line of no length.
    static int CalculateNormalPoint(const CSectPoint& p, const CSectPoint& a, const CSectPoint& b,
                                    double& x, double& y);
    // An angle brought into [0, 2π]; angles within 1e-5 of 0 stay as they are.
    static double NormalizeAngle(double x);

    // Converted lists: the outer list into the section's converted list, and each polyline's own.
    void MakeConvSectPointList();
    // A plain polygon of the outer list in out, each bow as 18 chords. The mode plays no part.
    void ConvertBows(int mode, PointList* out) const;
    // Bulges of the bows for drawing, on the outer list and all polylines. Answers 1.
    int CalcBulgeValues();
    // Radius, centre and ends of the bow of a radius point of the outer list, the ends in the
    // counter-clockwise order of the arc about its centre. Outputs are left as they were when a
    // neighbour is missing. Always answers 0; the outputs are the result.
    int CalculateBow(const CSectPoint* point, double& r, double& cx, double& cy, double& x1,
                     double& y1, double& x2, double& y2) const;
    // The radius point between the outer points no1 and no2 in ring order, reversed 1 when it
    // stands between them going backwards; null when there is none.
    CSectPoint* GetRadiusPointBetween(double no1, double no2, int& reversed) const;

    // Factors of linear variation (law 1) of every point towards the point in the same place of
    // next, over the distance between the stations. Nothing for a section on line 0.
    void CalcParaFactors(const CKeySection* next);
    // Sets the factors of the X (type 1) or Y (type 2) law of the outer point no; 0 when there is
    // no such point or axis.
    int SetSectPointVar(double no, int type, double a, double b, double c);

    // The road profile at this section's station on line.
    int FindDepRoadProfile(const CRefLine* line, CRoadProfile* out) const;
    // Global coordinates of every point, the section standing at origin with X along yAxis and Y
    // along xAxis × yAxis (xAxis looks back along the line, yAxis to the right of travel), and
    // the line passing through the section where its connection puts it. upAxis, when given,
    // receives the section's Y direction. Answers 0 for axes of no length.
    int CalcGlobCoord(const double* origin, const double* xAxis, const double* yAxis,
                      double* upAxis);

    // Brings the section up to date. Mode 3 only makes the points of a generated type. The other
    // modes resolve the points, make the area element of a solid, update the elements, place the
    // section in space when env gives a line above 0, and calculate the properties.
    int UpdateKeySection(int mode, const SectionEnv* env = nullptr);
    // The same in parts: geometry (points, elements, global coordinates, properties) and areas.
    // Needs env with a line; 0 without.
    int Update(int geometry, int areas, int unusedFlag, int reinforcement, const SectionEnv* env);
    // Hands the elements this section and updates them; 0 if one fails.
    int UpdateSectionElem();

    // Whether a non-radius point lies within 1e-5 of at least n other points of the outer list.
    int CheckPoint(const CSectPoint* point, int n) const;
    // 2 for a point at the first point of the outer list, where a ring closes, else 1.
    int NumberOfPoints(const CSectPoint* point) const;

    // ---- Properties (m, m², m⁴)
    // By type: closed forms for the frame members and springs, the outline or the elements for
    // the others. Answers 1, or 0 for a type without properties here.
    int CalcSectionProp(int mode, const SectionEnv* env = nullptr);
    // From the converted outline. mode 3: only read the dimensions; 4: area and centre only; 0
    // and 1: all with torsion; others: all but torsion.
    int CalcSectionPropBySectPoint(int mode);
    // From the area and line elements, the centre weighted by stiffness. Needs env's moduli.
    int CalcSectionPropByElem(int mode, const SectionEnv* env);
    void CalcOuterSectionArea();
    // Vector (m, section axes) from the reference line to the centre of gravity, by ConnectType.
    int CalcDistRefLineToCoG(double* const out) const;
    // Perimeter exposed to drying: outer edges in full, edges of voids at half. -1 for types
    // other than 11, 12, 13.
    double CalcU() const;
    // Wall thickness from the dimensions: 0 the smallest, 1 to 4 one wall; -1 when not known.
    double GetEfficientThickness(int which) const;
    // Creep number φ(t, t0) of the section's concrete (ages in days, h0 in mm, fck in MPa, RH in
    // %). h0 and rh of 1e-5 or less are taken from the section. -99 for a code without a creep
    // formula or without a notional size.
    double GetCreepFactor(const CConcrMatPar* concrete, int concrCode, double t, double t0,
                          double h0, double fck, double rh) const;
    // The same with the section's concrete (its material number, else 1) and the code of the
    // project. 0 without either.
    double GetCreepFactor(CStructure* structure, double t, double t0, double h0, double fck,
                          double rh) const;

    // ---- The lists
    CSectPoint* AddSectPoint(std::unique_ptr<CSectPoint> point) {
        return SectPointList.Add(std::move(point));
    }
    CSectPoint* InsertSectPoint(std::unique_ptr<CSectPoint> point) {
        return SectPointList.InsertByNumber(std::move(point));
    }
    // Removes the first outer point of that number; 1 when one was removed.
    int DeleteSectPoint(double no);
    void EmptySectPointList() { SectPointList.RemoveAll(); }
    // The outer point of that number.
    CSectPoint* GetSectPointPtr(double no) const { return SectPointList.Find(no); }
    // The point of that number on polyline polyLine, or of the outer list for polyline 0.
    CSectPoint* GetSectPointPtr(int polyLine, double no) const;
    const CSectPointList& GetSectPointList() const { return SectPointList; }
    const CSectPointList& GetConvSectPointList() const { return ConvSectPointList; }
    // Lowest whole number from 1 that no outer point has.
    int GetFirstFreeSectPointNo() const;
    // Neighbours of an outer point in ring order: the next or previous ordinary point at another
    // place (a surface point); the next point at another place; the next ordinary point.
    CSectPoint* GetNextSurfaceSectPoint(const CSectPoint* point) const;
    CSectPoint* GetPrevSurfaceSectPoint(const CSectPoint* point) const;
    CSectPoint* GetNextNonOverlappingSectPoint(const CSectPoint* point) const;
    CSectPoint* GetNextNonRadiusSectPoint(const CSectPoint* point) const;

    CPolyLine* AddPolyLine(std::unique_ptr<CPolyLine> line) {
        return PolyLineList.Add(std::move(line));
    }
    int DeletePolyLine(int no) { return PolyLineList.Delete(no); }
    void EmptyPolyLineList() { PolyLineList.RemoveAll(); }
    CPolyLine* GetPolyLinePtr(int no) const { return PolyLineList.Get(no); }
    const CObList<CPolyLine>& GetPolyLineList() const { return PolyLineList; }

    CAreaElem* AddAreaElem(std::unique_ptr<CAreaElem> elem) {
        return AreaElemList.Add(std::move(elem));
    }
    int DeleteAreaElem(int no) { return AreaElemList.Delete(no); }
    void EmptyAreaElemList() { AreaElemList.RemoveAll(); }
    CAreaElem* GetAreaElemPtr(int no) const { return AreaElemList.Get(no); }
    const CObList<CAreaElem>& GetAreaElemList() const { return AreaElemList; }

    CLineElem* AddLineElem(std::unique_ptr<CLineElem> elem) {
        return LineElemList.Add(std::move(elem));
    }
    int DeleteLineElem(int no) { return LineElemList.Delete(no); }
    void EmptyLineElemList() { LineElemList.RemoveAll(); }
    CLineElem* GetLineElemPtr(int no) const { return LineElemList.Get(no); }
    const CObList<CLineElem>& GetLineElemList() const { return LineElemList; }

    // ---- Tendon groups. The section owns them; a copy of the section has copies of its groups,
    // whose back-pointer is set to the section holding them whenever the list is handed out.
    CObList<CPrestGroup>* GetPrestGroupList();
    const CObList<CPrestGroup>* GetPrestGroupList() const { return &PrestGroupList; }
    CPrestGroup* AddPrestGroup(std::unique_ptr<CPrestGroup> group);
    CPrestGroup* GetPrestGroupPtr(int no) const { return PrestGroupList.Get(no); }
    int DeletePrestGroup(int no) { return PrestGroupList.Delete(no); }
    void EmptyPrestGroupList() { PrestGroupList.RemoveAll(); }

    // ---- Tendons
    // Offsets (m) from the centre of gravity, in section axes, of a tendon given by the offsets
    // oL (across) and oN (up) from a reference: relative type 2 from the upper face (the outer
    // points marked with FaceConnection 1), 3 from the lower face (mark 2), both at the section
    // X of CoGX + oL, the face height interpolated between the marked points around it; 5 from
    // the outer point relPointNo; any other type from the centre of gravity itself. 1, or 0 when
    // the face does not reach across that X or the point is missing.
    int TendonCoordByFaceOffset(int relativeType, double oL, double oN, double& l, double& n,
                                double relPointNo = -1.0) const;

    // ---- The dimensions of a generated section, counted from 0
    void SetParam(const double* values);
    const double* GetParamArray() const { return SpecParam.data(); }
    double GetSpecParam(int i) const {
        return i >= 0 && i < kSpecParams ? SpecParam[static_cast<std::size_t>(i)] : 0.0;
    }
    void SetSpecParam(int i, double v) {
        if (i >= 0 && i < kSpecParams) SpecParam[static_cast<std::size_t>(i)] = v;
    }

    // The road surface of an interpolated section, not owned.
    const CRoadProfile* GetRoadProfile() const { return RoadProfile; }
    void SetRoadProfile(const CRoadProfile* v) { RoadProfile = v; }

    double GetAc() const { return SectionArea; }
    // Relative humidity of the surroundings (%), for creep and shrinkage.
    double GetRH() const { return RelHumidity; }
    void SetRH(double v) { RelHumidity = v; }

    KELO_FIELD(int, No, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(std::string, Info, "")
    KELO_FIELD(double, StationNo, 0.0)
    KELO_FIELD(int, RefLineNo, 0)
    KELO_FIELD(int, AxisNo, 0)
    KELO_FIELD(double, RelAxisDist, 0.0)
    KELO_FIELD(int, OriginalType, 0)
    KELO_FIELD(int, Type, 13)
    KELO_FIELD(int, MatType, 1)
    KELO_FIELD(int, MatParNo, 0)
    KELO_FIELD(int, DesParNo, 0)
    KELO_FIELD(int, SectDesParNo, 0)
    KELO_FIELD(int, TemporaryFlag, 0)
    KELO_FIELD(int, ColorCode, 0)
    KELO_FIELD(double, ParamA, 0.0)
    KELO_FIELD(double, ParamIL, 0.0)
    KELO_FIELD(double, ParamIM, 0.0)
    KELO_FIELD(double, ParamIN, 0.0)
    // Offset of the section from the line (m), and how the line meets the section: 0 at the
    // origin shifted by the offset, 1 at the centre of gravity, 2 at the offset from the centre,
    // 3 at the point ConnectSectPointNo, 4 at that point shifted by the offset.
    KELO_FIELD(double, DeltaX, 0.0)
    KELO_FIELD(double, DeltaY, 0.0)
    KELO_FIELD(int, ConnectType, 1)
    KELO_FIELD(int, ConnectSectPointNo, -1)
    // Young's modulus (MPa) and Poisson's ratio of a section given by its values.
    KELO_FIELD(double, YoungsModulus, 0.0)
    KELO_FIELD(double, Poisson, 0.0)
    // Cylinder strength of the section's own concrete (kN/m²); 0 to take the material's.
    KELO_FIELD(double, Fcck, 0.0)
    KELO_FIELD(double, SectionArea, 0.0)
    // About the horizontal axis through the centre (∫y² dA), the vertical one (∫x² dA), the
    // St. Venant torsion stiffness, and the product ∫xy dA.
    KELO_FIELD(double, MomInertL, 0.0)
    KELO_FIELD(double, MomInertN, 0.0)
    KELO_FIELD(double, MomInertM, 0.0)
    KELO_FIELD(double, MomInertLN, 0.0)
    KELO_FIELD(double, CoGX, 0.0)
    KELO_FIELD(double, CoGY, 0.0)
    KELO_FIELD(double, CoSX, 0.0)
    KELO_FIELD(double, CoSY, 0.0)
    KELO_FIELD(double, WarpingStiffness, 0.0)
    // Notional size 2A/u (m), -1 where it has no meaning.
    KELO_FIELD(double, EffectivThicness, 0.0)
    KELO_FIELD(double, OuterSectionArea, 0.0)
    KELO_FIELD(int, LastKeySection, 0)

private:
    int Resolve(CSectPoint* point, CSectPoint* start, const CRoadProfile* road);
    int ResolveRef(int polyLineRef, double noRef, CSectPoint* start, const CRoadProfile* road,
                   CSectPoint*& out);
    int ResolveSkew(CSectPoint* point, CSectPoint* start, const CRoadProfile* road);
    int ResolveList(PointList& list, const CRoadProfile* road);
    static bool HasStdProfile(int type);
    void MakeSolidAreaElem(int withMaterial);
    int PlaceOnLine(const SectionEnv& env);
    int OuterIndexOf(const CSectPoint* point) const;
    // Section coordinates per metre: the pictures of frame members and springs are in mm.
    double PointScale() const;

    std::array<double, kSpecParams> SpecParam{};
    double RelHumidity = 70.0;
    CSectPointList SectPointList;
    CSectPointList ConvSectPointList;
    CObList<CPolyLine> PolyLineList;
    CObList<CAreaElem> AreaElemList;
    CObList<CLineElem> LineElemList;
    CObList<CPrestGroup> PrestGroupList;
    const CRoadProfile* RoadProfile = nullptr;
};

} // namespace kelo
