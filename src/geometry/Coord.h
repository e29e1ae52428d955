#pragma once

#include "platform/Object.h"

#include <string>

namespace kelo {

class CRefLine;

// A vertex of a reference line given by a polygon of coordinates (m). Type 1 starts a run and
// carries a given station; type 2 follows the previous vertex and its station is derived from the
// distance to it, measured as the line's type says.
class CCoord : public CObject {
public:
    CCoord() = default;
    CCoord(int no, CRefLine* refLine, int type, double x, double y, double z, double stationNo);
    // A copy belongs to no line until it is added to one.
    CCoord(const CCoord& other);
    // Takes the other vertex's values; this one stays on the line that holds it.
    CCoord& operator=(const CCoord& other);

    int KeyNo() const { return CoordNo; }
    // A vertex has nothing to work out. Returns 1.
    int CalculateAndValidate() { return 1; }
    // The command line that makes this vertex again.
    std::string ConvertToASCII() const;

    int GetCoordNo() const { return CoordNo; }
    void SetCoordNo(int v) { CoordNo = v; }
    CRefLine* GetRefLinePtr() const { return RefLinePtr; }
    void SetRefLinePtr(CRefLine* v) { RefLinePtr = v; }
    int GetRefLineNo() const { return RefLineNo; }
    void SetRefLineNo(int v) { RefLineNo = v; }
    int GetType() const { return Type; }
    void SetType(int v) { Type = v; }
    double GetStationNo() const { return StationNo; }
    void SetStationNo(double v) { StationNo = v; }
    double GetX() const { return X; }
    void SetX(double v) { X = v; }
    double GetY() const { return Y; }
    void SetY(double v) { Y = v; }
    double GetZ() const { return Z; }
    void SetZ(double v) { Z = v; }

private:
    int CoordNo = 0;
    CRefLine* RefLinePtr = nullptr;
    int RefLineNo = 0;
    int Type = 0;
    double StationNo = 0.0, X = 0.0, Y = 0.0, Z = 0.0;
};

} // namespace kelo
