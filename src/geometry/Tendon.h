#pragma once

#include "geometry/TenElemGeom.h"
#include "geometry/TendonElemRes.h"
#include "geometry/TendonGeom.h"
#include "platform/Field.h"
#include "platform/ObList.h"
#include "platform/Object.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace kelo {

class CStructure;
class CKeySection;

// A prestressing tendon of a frame model. Its path is given in pieces in two planes, as offsets
// from the beam elements or from a reference line: N (the local z of the elements, vertical in
// the section) and L (the local y, horizontal in the section). GenerateTendonGeom lays the
// pieces onto the elements; CalcTendonLossesByVector finds the force along the tendon after
// friction, anchor slip and the time losses.
//
// Units: Area in mm² (one tendon of the bundle), DuctDiameter in mm, GroutStrength in MPa,
// SpaceLDir/SpaceNDir and LOffset/NOffset in mm, Stress1/Stress2 in percent of the
// characteristic strength; the piece values of the path are in metres.
class CTendon : public CObject {
public:
    // Points of the loss walk on each element, evenly spaced from node 1 to node 2.
    static constexpr int kPointsPerElement = 11;

    CTendon() = default;
    CTendon(int no, std::string name) : No(no), Name(std::move(name)) {}
    CTendon(const CTendon& other);
    CTendon& operator=(const CTendon& other);
    ~CTendon() override;
    int KeyNo() const { return No; }

    KELO_FIELD(int, No, 0)
    KELO_FIELD(std::string, Name, "")
    // 0: post-tensioned, slip given in mm, slip zone by the friction curve; 1: pretensioned,
    // the slip value is the transmission length in m, over which the force builds up linearly
    // from the end.
    KELO_FIELD(int, Type, 0)
    KELO_FIELD(int, External, 0)
    // 0: pieces by elements; 1: by stations on RefLineNo; 2: by axes of RefLineNo.
    KELO_FIELD(int, GeomType, 0)
    KELO_FIELD(int, RefLineNo, 0)
    // Reference of the offsets: 1 element axis; 2 upper face; 3 lower face; 4 reference line;
    // 5 both offsets face based.
    KELO_FIELD(int, RelativeType, 1)
    KELO_FIELD(int, RelPointNo, -1)
    KELO_FIELD(int, MatParNo, 1)
    KELO_FIELD(int, DesParNo, 1)
    KELO_FIELD(double, Area, 0.0)
    KELO_FIELD(double, DuctDiameter, 0.0)
    KELO_FIELD(double, GroutStrength, 0.0)
    KELO_FIELD(int, NoOfTendons, 1)
    KELO_FIELD(double, SpaceLDir, 0.0)
    KELO_FIELD(double, SpaceNDir, 0.0)
    KELO_FIELD(int, ConnectTendon, 0)
    KELO_FIELD(double, LOffset, 0.0)
    KELO_FIELD(double, NOffset, 0.0)
    KELO_FIELD(double, Stress1, 0.0)
    KELO_FIELD(double, Stress2, 0.0)
    KELO_FIELD(int, StressCode, 1)
    // Tendon group number of the tendon in section design (0: none).
    KELO_FIELD(int, GroupNo, 0)
    // Elongations at the two ends in mm, and the developed length in m, from the last loss run.
    KELO_FIELD(double, Elongation1, 0.0)
    KELO_FIELD(double, Elongation2, 0.0)
    KELO_FIELD(double, TotalLength, 0.0)
    KELO_FIELD(double, TotalAngle, 0.0)

public:
    // ---- loss parameters, in the order mu, k, slip, shrinkage (per mille), creep (per mille),
    // relaxation lower limit (%), upper limit (%), relaxation loss at the upper limit (%). The
    // slip is stored for both ends: mm of anchor set for Type 0, the transmission length in m for
    // Type 1.
    void SetLossParam(double mu, double k, double slip, double shrinkage, double creep,
                      double relaxLow, double relaxHigh, double relaxLoss);
    void GetLossParam(double* mu, double* k, double* slip, double* shrinkage, double* creep,
                      double* relaxLow, double* relaxHigh, double* relaxLoss) const;
    double GetMu() const { return Mu; }
    double GetK() const { return Wobble; }
    double GetSlip1() const { return Slip1; }
    double GetSlip2() const { return Slip2; }
    void SetSlip2(double v) {
        Slip2 = v;
        Updated = 0;
    }
    void SetStressParam(double stress1, double stress2, int stressCode);
    void GetStressParam(double* stress1, double* stress2, int* stressCode) const;
    // Jacking stresses to 0: a tendon that is not stressed.
    void DeleteStressData();

    // ---- path pieces. Pieces keep the order in which they were given.
    COwnedList<CTendonGeom>* GetTendonGeomListL() { return &GeomL; }
    COwnedList<CTendonGeom>* GetTendonGeomListN() { return &GeomN; }
    const COwnedList<CTendonGeom>* GetTendonGeomListL() const { return &GeomL; }
    const COwnedList<CTendonGeom>* GetTendonGeomListN() const { return &GeomN; }
    // The N list (the one the path is mainly given in); the structure is not needed to read it.
    COwnedList<CTendonGeom>* GetTendonGeomList(CStructure*) { return &GeomN; }
    CTendonGeom* AddTendonGeomL(std::unique_ptr<CTendonGeom> piece);
    CTendonGeom* AddTendonGeomN(std::unique_ptr<CTendonGeom> piece);
    // Removes pieces, element geometry and element results.
    void DeleteAllGeom();
    // The span of the N pieces: stations (GeomType 1, 2) or elements (0) of the first and last.
    int GetTendonNGeom(double* from, double* to) const;

    // ---- element geometry, by element number
    CObList<CTenElemGeom>* GetTenElemGeomList() { return &ElemGeom; }
    const CObList<CTenElemGeom>* GetTenElemGeomList() const { return &ElemGeom; }
    CTenElemGeom* GetTenElemGeomPtr(int element) const { return ElemGeom.Get(element); }
    // Lays the pieces onto the elements. 1, or 0 with the reason appended to errors.
    int GenerateTendonGeom(CStructure* structure, std::string* errors);

    // ---- element results of the loss run, in the order of the walk
    COwnedList<CTendonElemRes>* GetTendonElemResList() { return &ElemRes; }
    const COwnedList<CTendonElemRes>* GetTendonElemResList() const { return &ElemRes; }
    CTendonElemRes* GetTendonElemResPtr(int element) const;
    void DeleteTenElementData();
    // Rows of (x/L, force kN per tendon, y offset m, z offset m, 0, 0) of the element's points
    // into rows (at most 11); count gets their number. 1 if the element has data, else 0.
    int GetTenElementData(int element, int* count, double (*const rows)[6]) const;

    // ---- state: a tendon is up to date from a successful Update until its data change. The
    // tendon's own setters of path, loss and stress data (AddTendonGeomL/N, DeleteAllGeom,
    // SetLossParam, SetSlip2, SetStressParam, DeleteStressData) clear the state; the plain field
    // setters do not, so a command that changes fields, or a change of the model that the path
    // depends on (elements, nodes, lines, sections), calls SetUpdated(0).
    // GenerateTendonGeom then CalcTendonLossesByVector: 1, or 0 if either fails, with the texts
    // of the failure (and the listing tables when listLevel asks for them) in GetUpdateText. The
    // flag plays no part; the stage limits of a tendon load are not kept apart.
    int Update(CStructure* structure, int listLevel = 0, int flag = 0);
    int IsUpdate(int listLevel = 0, int flag = 0) const;
    void SetUpdated(int v) { Updated = v; }
    const std::string& GetUpdateText() const { return UpdateText; }

    // Length of the path (m): along the spatial path of the last loss run, or before any run the
    // sum of the N pieces' developed lengths.
    double CalcTendonLength() const;
    // Curvature 1/r of the arc through three points; -99 unless x1 < x2 < x3.
    static double CalcCurvature(double x1, double x2, double x3, double y1, double y2, double y3);

    // ---- losses and forces
    // Walks the tendon over the elements of its N path, 11 points an element, adding up the
    // length of the chords and the angle the tangent of the spatial path turns through; then the
    // force (kN, one tendon) after friction from the jacked ends, anchor slip, shrinkage, creep
    // and relaxation, the elongations (mm), and the element results. E and fpk (MPa) from the
    // prestressing set MatParNo (kN/m² there), 195000 and 1670 without one. text gets the
    // listing tables when listLevel asks for them (0 none, 1 the forces on the elements and the
    // totals, 2 also friction and losses point by point). 1, or 0 with the reason in text.
    int CalcTendonLossesByVector(std::string* text, CStructure* structure, int listLevel);
    double CalcRelaxLoss(double stressPercent) const;
    // Strain in per mille at a station of the tendon's line (GeomType 1, 2), or at x/L of an
    // element (GeomType 0). 1 found, 0 not (strain 0).
    int CalcStrainByStation(double station, CStructure* structure, double* strain) const;
    int CalcStrainByElement(int element, double xi, CStructure* structure, double* strain) const;

    // The section's tendon group from this tendon: one point per tendon of the bundle, named
    // "T: %i.%i", at the offsets of the path at the section, the bundle laid out in a row
    // centred on the path, SpaceLDir across and SpaceNDir up from one tendon to the next. The
    // group takes number groupNo (0: the section's first free number) and is added to the
    // section; text gets "Ten.: %i  %5.3f [o/oo] " with the tendon's strain there. flag 1 also
    // makes that strain the group's initial strain Epssi. 1, or 0 when the section is on no
    // line, the tendon does not pass it, or its position can't be had.
    int GenerateSectionPrest(CStructure* structure, CKeySection* section, int groupNo, int flag,
                             std::string* text);

    // Offsets added by the tendons this one is connected to, in metres (recursive, with a
    // guard against a ring of connections).
    void GetRelInfo(CStructure* structure, double* addL, double* addN) const;
    // The tendon whose pieces make this one's path: this one when it has N pieces or no
    // connection, else the first one up the chain of connections with N pieces (or the last of
    // the chain). Null for a ring of connections or a connection to a missing tendon.
    const CTendon* GetPathSource(CStructure* structure) const;

private:
    struct WalkPoint;
    void ClearResIndex() const;
    void AnchorSlip(std::vector<WalkPoint>& pts, double F, double slipMm, double E, int end) const;
    void ListLosses(std::string* text, const std::vector<WalkPoint>& pts, int listLevel) const;
    // Strain (per mille) of one tendon under a force (kN).
    double StrainOf(double force, CStructure* structure) const;
    std::string UpdateText;
    // Copies of the pieces of the path source, for a connected tendon without pieces of its own;
    // the element geometry points at them.
    COwnedList<CTendonGeom> SourceGeomL, SourceGeomN;
    // Position in ElemRes by element number, made again when the list has changed.
    mutable std::unordered_map<int, std::size_t> ResIndex;
    mutable bool ResIndexValid = false;

    double Mu = 0.0, Wobble = 0.0, Slip1 = 0.0, Slip2 = 0.0, Shrinkage = 0.0, Creep = 0.0,
           RelaxLow = 0.0, RelaxHigh = 0.0, RelaxLoss = 0.0;
    int Updated = 0;
    COwnedList<CTendonGeom> GeomL, GeomN;
    CObList<CTenElemGeom> ElemGeom;
    COwnedList<CTendonElemRes> ElemRes;
};

} // namespace kelo
