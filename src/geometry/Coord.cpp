#include "geometry/Coord.h"

#include "geometry/RefLine.h"
#include "platform/Text.h"

namespace kelo {

CCoord::CCoord(int no, CRefLine* refLine, int type, double x, double y, double z, double stationNo)
    : CoordNo(no), RefLinePtr(refLine), RefLineNo(refLine ? refLine->GetNo() : 0), Type(type),
      StationNo(stationNo), X(x), Y(y), Z(z) {}

CCoord::CCoord(const CCoord& other)
    : CObject(other), CoordNo(other.CoordNo), RefLineNo(other.RefLineNo), Type(other.Type),
      StationNo(other.StationNo), X(other.X), Y(other.Y), Z(other.Z) {}

// The owner is kept: the vertex stays on the line that holds it.
// cppcheck-suppress operatorEqVarError
CCoord& CCoord::operator=(const CCoord& other) {
    CoordNo = other.CoordNo;
    RefLineNo = other.RefLineNo;
    Type = other.Type;
    StationNo = other.StationNo;
    X = other.X;
    Y = other.Y;
    Z = other.Z;
    return *this;
}

std::string CCoord::ConvertToASCII() const {
    return Format("RFLCOORD, %d, %d, %d, %.3lf, %.3lf, %.3lf, %.3lf\r\n", RefLineNo, CoordNo, Type,
                  X, Y, Z, StationNo);
}

} // namespace kelo
