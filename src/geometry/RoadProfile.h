#pragma once

#include "geometry/PolyLine.h"
#include "geometry/SectPoint.h"
#include "platform/ObList.h"
#include "platform/Object.h"

#include <vector>

namespace kelo {

class CRefLine;

// The road surface across a bridge at one station, in section axes: from the centre point out to
// both edges through a fixed sequence of zones, twenty values a side:
//
//   0  width to the first point (0 on the right disables the inner zone on both sides)   ±0.1
//   1  width of the next stretch, 2 its slope                                             ±0.2
//   3  width of the next stretch, at the lane slope                                       ±0.3
//   4  number of lanes (integer part), 5 lane width, 6 lane slope                 ±(1 + 0.1·k)
//   7  width to the outer point, 8 its slope                                              ±2.1
//   9..14  three steps (ΔX, ΔY), each made when not zero                          ±2.2 .. ±2.4
//   15, 16  step (ΔX, ΔY) to the edge point, always made                                  ±3.1
//   17  width of the end stub, 18 its slope                                               ±3.2
//   19  not used
//
// X grows outwards, Y is height. A positive slope lowers the surface going outwards on the right
// and raises it going outwards on the left, so that one plane has the same value on both sides.
// The road points (numbered as above, negative on the left) run from left edge to right edge.
class CRoadProfile : public CObject {
public:
    static constexpr int kValues = 20;

    CRoadProfile();
    CRoadProfile(int no, double station);
    // A copy takes number, station, the left values and the road points of the source, and its
    // right values from the source's left values too. Road points stay right as long as they are
    // not generated again.
    CRoadProfile(const CRoadProfile& other);
    CRoadProfile& operator=(const CRoadProfile& other);
    ~CRoadProfile() override = default;

    int KeyNo() const { return No; }

    void SetProfLeft(const double* values);
    void SetProfRight(const double* values);
    void GetProfLeft(double* const values) const;
    void GetProfRight(double* const values) const;
    double GetProfLeftValue(int i) const { return ProfLeft[i]; }
    double GetProfRightValue(int i) const { return ProfRight[i]; }

    // Road point of that number, null when there is none.
    CSectPoint* GetRoadPoint(double no) const { return PolyLine.GetSectPointPtr(no); }
    CSectPoint* GetSectPointPtr(double no) const { return PolyLine.GetSectPointPtr(no); }
    const CPolyLine& GetPolyLine() const { return PolyLine; }

    // Removes the road points.
    void Empty();
    // Makes the road points from the forty values. Returns 1.
    int GenerateRoadPoints();
    // The inverse: the values from road points that came from outside, then the points made
    // again from them. Returns 1, or 0 when no points were made.
    int CalcProfValuesFromRoadPoints(const std::vector<CSectPoint>& points);
    // Adds a point to the point list and a copy to the converted list, after the points of its
    // number.
    void AddRoadPoint(double no, double x, double y);
    // Makes the road points anew and, with the line the profile stands on, places them in space at
    // the profile's station. `lines` serves a column line, whose frame comes from the line it
    // stands on. Answers 1, or 0 when the line gives no frame at the station (the road points
    // are made all the same).
    int Update(CRefLine* line = nullptr, const CObList<CRefLine>* lines = nullptr);
    // Global coordinates (m) of every road point, the profile standing at origin with its X along
    // yAxis (to the right of travel) and its Y along xAxis × yAxis (up), xAxis looking back along
    // the line as a section's frame does. The rows of the transformation are kept: section X,
    // section Y, and the direction of travel. Answers 0 for axes of no length.
    int CalcGlobCoord(const double* origin, const double* xAxis, const double* yAxis);
    // Row r (0 section X, 1 section Y, 2 direction of travel), column c (global X, Y, Z) of the
    // transformation from the last CalcGlobCoord; the origin likewise.
    double GetTransMatrix(int row, int col) const { return TransMatrix[row][col]; }
    double GetOrigin(int i) const { return Origin[i]; }

    // This profile at station s from the profiles a and b, value by value, linear in the station
    // and not clamped, so that it extrapolates. With one of them null it is a copy of the other.
    // Returns 1, or 0 with neither given.
    int CalcProfileAt(double s, const CRoadProfile* a, const CRoadProfile* b);

    int GetNo() const { return No; }
    void SetNo(int v) { No = v; }
    double GetStationNo() const { return StationNo; }
    void SetStationNo(double v) { StationNo = v; }

private:
    int No = 0;
    double StationNo = 0.0;
    double ProfLeft[kValues] = {};
    double ProfRight[kValues] = {};
    CPolyLine PolyLine;
    double Origin[3] = {};
    double TransMatrix[3][3] = {};
};

} // namespace kelo
