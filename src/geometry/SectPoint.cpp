#include "geometry/SectPoint.h"

namespace kelo {

CSectPoint::CSectPoint(double no, int type, double x, double y)
    : No(no), Type(static_cast<short>(type)), X(x), Y(y), DeltaX(x), DeltaY(y) {
    if (type == -1) R = x;
}

} // namespace kelo
