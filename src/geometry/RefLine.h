#pragma once

#include "geometry/Axis.h"
#include "geometry/Coord.h"
#include "geometry/HorSegment.h"
#include "geometry/KeySection.h"
#include "geometry/RoadProfile.h"
#include "geometry/StationList.h"
#include "geometry/VerSegment.h"
#include "platform/ObList.h"
#include "platform/Object.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace kelo {

class MessageSink;

// A reference line: the spatial curve that girders, columns and tendons are measured along. It
// maps a station (m) to a point in global axes (X, Y in plan, Z up, m) and to a direction, and
// owns what is attached along it: axes, key sections, road profiles.
//
// A line is defined either by alignment segments (plan, elevation, either or both) or by a
// polygon of coordinates; a line holding both kinds answers no points. Plan angles run
// counter-clockwise from +X in radians; a positive plan radius bends left.
//
// Queries answer 1 for success and 0 for failure and fill zeros where they find nothing; a
// station off the line is an ordinary outcome, not an error.
class CRefLine : public CObject {
public:
    // Turns a global point (3 values) into the 2 coordinates of a drawing's view.
    using ViewProjection = std::function<void(const double* global, double* view)>;
    // Builds the section of this line at a station and answers in dydz the offset of its centre
    // of gravity from the line in section axes (dy to the right, dz up, m). Returns 1, or 0 when
    // no section can be made there.
    using SectionCoG = std::function<int(double station, double* dydz)>;

    static constexpr int kColumnValues = 5;

    CRefLine();
    CRefLine(int no, std::string name, int type = 1);
    // Deep copies of all lists.
    CRefLine(const CRefLine& other);
    CRefLine& operator=(const CRefLine& other);
    ~CRefLine() override = default;

    int KeyNo() const { return No; }

    // --- Stations to points ---
    int CalcCoordByStation(double station, double* const coord);
    // Unit direction of increasing station.
    int CalcDirByStation(double station, double* const dir);
    // The frame of a section at the station: xAxis looks back along the line, yAxis is the
    // right-hand plan normal of the direction of travel. On a column, yAxis is the local x axis of
    // the line the column stands on, found in `lines`; without `lines` it is (0, 1, 0), and when
    // that line is missing the sink is told "Error: Unable to calculate column normal vector!".
    int CalcCoordAndDirByStation(double station, double* const coord, double* const xAxis,
                                 double* const yAxis, const CObList<CRefLine>* lines = nullptr,
                                 MessageSink* sink = nullptr);
    int FindRefLineDirVector(double station, double* const dir);
    // Plan angle of the line at the station from the points 0.1 m on (or back, at the end of the
    // line), to orient drawn axis labels; 0 when the station is off the line. The frameless form
    // takes the first term of the arc tangent from the X of the second point, as it always has.
    double FindRefLineDirection(double station);
    double FindRefLineDirection(double station, const ViewProjection& toView);

    // Vector from the line to the centre of gravity of the section at the station, in global
    // axes. Zeros and 1 ahead of the first key section and on lines measured other than along the
    // plan; -1 when the section or the direction can't be had, or for an unknown line type.
    int CalcRefLineToCoGByStation(double station, double* const offset,
                                  const SectionCoG& sectionCoG);

    // --- Sections along the line ---
    // The section at a station, interpolated between the key section `from` (by default the last
    // one at or before the station that is not temporary) and the one after it: the points by
    // the laws of their offsets, the dimensions of a standard section and the offset from the
    // line linearly. Brought up to date by UpdateKeySection(updateMode): 0 in full, 2 without
    // tendon groups, 3 only the points of a generated type, 4 geometry and properties for a
    // query. On line 0, which is no geometric line, the key section at the station is copied. Null
    // ahead of the first key section, for a missing section on line 0, and when the two key
    // sections have different numbers of outer points (the sink is told). env gives the project's
    // materials and message sink; the line itself is always this one. The caller owns the result.
    std::unique_ptr<CKeySection> CreateSectionAt(double station, CKeySection* from, int updateMode,
                                                 const SectionEnv* env = nullptr);
    std::unique_ptr<CKeySection> CreateKeySection(double station, int updateMode,
                                                  const SectionEnv* env = nullptr) {
        return CreateSectionAt(station, nullptr, updateMode, env);
    }
    // Puts temporary sections (TemporaryFlag 1) every 5 m or so between the key sections: with
    // both null between all neighbours, else from `from` (null: the first key section) to `to`
    // (null: the end of the line). Answers 1, or 0 when `from` is not a section of this line.
    int CreateTempSections(CKeySection* from, CKeySection* to, const SectionEnv* env = nullptr);
    // With null all temporary sections go; with a section the temporary ones next to it, back
    // and forth up to the first key section each way.
    void DeleteTempSections(const CKeySection* section);
    // The offset from the line to the centre of gravity of the section at a station, as
    // CalcRefLineToCoGByStation asks for it, from the sections of this line.
    SectionCoG SectionCoGOf(const SectionEnv* env = nullptr);

    // --- Keeping the geometry up to date ---
    // Carries each chained segment's start over from the segment before and calculates it.
    int RecalcChainedHorSegments();
    // Works out the corner roundings of the vertical tangent polygon. Returns 1.
    int VerifyVerticalCurve(int unused);
    // Called by a segment of this line whose stations were changed in place, or that was left
    // uncalculated.
    void HorSegmentsChanged() const {
        m_horOrderKnown = false;
        m_horAllCalculated = false;
    }

    // Road profile at a station, interpolated between the neighbours; ahead of the first profile
    // the first pair is extrapolated, past the last one that one is copied.
    int GetRoadProfileAt(double station, CRoadProfile* out) const;

    // --- Lists: an entry of an equal key replaces the old one in its place ---
    CAxis* AddAxis(std::unique_ptr<CAxis> axis);
    CHorSegment* AddHorSegment(std::unique_ptr<CHorSegment> segment);
    CVerSegment* AddVerSegment(std::unique_ptr<CVerSegment> segment);
    CCoord* AddCoord(std::unique_ptr<CCoord> coord);
    CRoadProfile* AddRoadProfile(std::unique_ptr<CRoadProfile> profile);
    CKeySection* AddKeySection(std::unique_ptr<CKeySection> section);
    // Each answers 1 when something was deleted. A road profile is found within 1e-5 m.
    int DeleteAxis(int no);
    int DeleteHorSegment(int no);
    int DeleteVerSegment(int no);
    int DeleteCoord(int no);
    int DeleteRoadProfile(double station);
    int DeleteKeySection(const CKeySection* section);

    CAxis* GetAxisPtr(int no) const { return AxisList.Get(no); }
    // The first axis within 1e-5 m of the station.
    CAxis* GetAxisPtrFromStNo(double station) const;
    int GetFirstFreeAxisNo() const { return AxisList.GetFirstFreeNo(); }
    CHorSegment* GetHorSegmentPtr(int no) const { return HorSegmentList.Get(no); }
    CVerSegment* GetVerSegmentPtr(int no) const { return VerSegmentList.Get(no); }
    CCoord* GetCoordPtr(int no) const { return CoordList.Get(no); }

    // The key section at the station, read to three decimals as the commands write it.
    CKeySection* GetKeySectionPtr(double station) const;
    // The section that governs a station: the last one at or before it.
    CKeySection* GetKeySectionFor(double station) const;
    int GetKeySectionIndex(const CKeySection* section) const;
    double GetNextAvailStationNo() const;
    int IsStationNoFree(double station) const;

    double GetStationStart() const;
    double GetStationEnd();
    // Derives the stations of the following vertices of the coordinate polygon.
    void FillCoordListStations();
    int AnyGeometry() const;

    // Copies the alignment of another line into this empty one, shifted by (dx, dy) in plan and,
    // with mirror set, reflected by swapping X and Y. The command texts of the copied segments
    // are appended to horText and verText. Returns 1, or 0 for a line numbered below 1 or one
    // that has geometry already.
    int CopyGeometry(const CRefLine* source, double stationFrom, double stationTo, double dx,
                     double dy, std::string* horText, std::string* verText, int mirror);

    // Builds this column line from its column values, standing on the line RefLineFromColumn
    // found in `lines`: two vertices, foot and top, and axes at both when there are none. The line
    // takes stations along its vertical projection, so that its stations are elevations. Returns
    // 1, or 0 when the parent line, its axis or its point at the station is missing.
    int CreateColumnGeometry(const CObList<CRefLine>& lines);

    // --- Fields ---
    int GetNo() const { return No; }
    void SetNo(int no) { No = no; }
    const std::string& GetName() const { return Name; }
    void SetName(const std::string& name) { Name = name; }
    int GetType() const { return Type; }
    void SetType(int v) { Type = v; }
    int GetRoadModel() const { return RoadModel; }
    void SetRoadModel(int v) { RoadModel = v; }
    const std::string& GetLumoName() const { return LumoName; }
    // Kept to the 23 characters of the outside system's fixed field.
    void SetLumoName(const std::string& v);
    int GetFeatureCode() const { return FeatureCode; }
    void SetFeatureCode(int v) { FeatureCode = v; }
    int GetGroupNo() const { return GroupNo; }
    void SetGroupNo(int v) { GroupNo = v; }
    const std::string& GetPathToRoadGeom() const { return PathToRoadGeom; }
    // Kept to 255 characters.
    void SetPathToRoadGeom(const std::string& v);
    int GetLinjePaalegg() const { return LinjePaalegg; }
    void SetLinjePaalegg(int v) { LinjePaalegg = v; }
    int GetColumn() const { return Column; }
    void SetColumn(int v) { Column = v; }
    int GetRefLineFromColumn() const { return RefLineFromColumn; }
    void SetRefLineFromColumn(int v) { RefLineFromColumn = v; }
    double GetColumnAtStationNo() const { return ColumnAtStationNo; }
    void SetColumnAtStationNo(double v) { ColumnAtStationNo = v; }
    int GetColumnType() const { return ColumnType; }
    void SetColumnType(int v) { ColumnType = v; }
    // Listing text of the column type, "(UnKnown!)" for a value outside 1 to 4.
    std::string GetColumnTypeText() const;
    // Location (station or axis number), offset (m, to the right), angle (degrees), top, bottom.
    void SetColumnValues(const double* values);
    void GetColumnValues(double* const values) const;
    double GetColumnValue(int i) const { return ColumnValues[i]; }
    double GetColumnRotation() const { return ColumnRotation; }
    void SetColumnRotation(double v) { ColumnRotation = v; }
    double GetColumnRotationCalcType() const { return ColumnRotationCalcType; }
    void SetColumnRotationCalcType(double v) { ColumnRotationCalcType = v; }
    int GetConnect() const { return Connect; }
    void SetConnect(int v) { Connect = v; }
    int GetConnectRefLineNo() const { return ConnectRefLineNo; }
    void SetConnectRefLineNo(int v) { ConnectRefLineNo = v; }
    int GetConnectType() const { return ConnectType; }
    void SetConnectType(int v) { ConnectType = v; }
    int GetLimitPlot() const { return LimitPlot; }
    void SetLimitPlot(int v) { LimitPlot = v; }
    double GetStationMinPlot() const { return StationMinPlot; }
    void SetStationMinPlot(double v) { StationMinPlot = v; }
    double GetStationMaxPlot() const { return StationMaxPlot; }
    void SetStationMaxPlot(double v) { StationMaxPlot = v; }

    const CObList<CAxis>& GetAxisList() const { return AxisList; }
    const CStationList<CKeySection>& GetKeySectionList() const { return KeySectionList; }
    CObList<CKeySection>& GetProfileStdList() { return ProfileStdList; }
    CObList<CKeySection>& GetProfileGenList() { return ProfileGenList; }
    const CObList<CHorSegment>& GetHorSegmentList() const { return HorSegmentList; }
    const CObList<CVerSegment>& GetVerSegmentList() const { return VerSegmentList; }
    const CObList<CCoord>& GetCoordList() const { return CoordList; }
    const CStationList<CRoadProfile>& GetRoadProfileList() const { return RoadProfileList; }

private:
    // The horizontal segment that serves a station: of those that hold it, the last in the list.
    CHorSegment* FindHorSegment(double station) const;
    CVerSegment* FindVerSegment(double station) const;
    // Calculates the first horizontal segment not yet calculated, as each query does.
    void CalcFirstUncalculated();
    // Length of the polygon leg from a to b, measured as the line's type says.
    double CoordLegLength(const CCoord& a, const CCoord& b) const;
    int CalcPolygonCoord(double station, double* const coord) const;
    int CalcPolygonDir(double station, double* const dir) const;
    void AdoptLists();

    int No = 0;
    std::string Name;
    int Type = 1;
    int RoadModel = 0;
    std::string LumoName = "Not in use";
    int FeatureCode = 0;
    int GroupNo = 0;
    std::string PathToRoadGeom;
    int LinjePaalegg = 0;
    int Column = 0;
    int RefLineFromColumn = 0;
    double ColumnAtStationNo = 0.0;
    int ColumnType = 0;
    double ColumnValues[kColumnValues] = {};
    double ColumnRotation = 0.0;
    double ColumnRotationCalcType = 0.0;
    int Connect = 0;
    int ConnectRefLineNo = 0;
    int ConnectType = 0;
    int LimitPlot = 0;
    double StationMinPlot = 0.0;
    double StationMaxPlot = 0.0;

    CObList<CAxis> AxisList;
    CStationList<CKeySection> KeySectionList;
    CObList<CKeySection> ProfileStdList;
    CObList<CKeySection> ProfileGenList;
    CObList<CHorSegment> HorSegmentList;
    CObList<CVerSegment> VerSegmentList;
    CObList<CCoord> CoordList;
    CStationList<CRoadProfile> RoadProfileList;

    // Whether the horizontal segments' start stations rise along the list, so that the segment of
    // a station can be found by bisection; worked out again after any change to the list.
    mutable bool m_horOrderKnown = false;
    mutable bool m_horStartsRise = false;
    // Whether every horizontal segment has been calculated, so that a query need not look for
    // one that hasn't.
    mutable bool m_horAllCalculated = false;
};

} // namespace kelo
