#include "model/Displace.h"

namespace kelo {

double CDisplace::Get(int i) const {
    switch (i) {
    case 0:
        return Ux;
    case 1:
        return Uy;
    case 2:
        return Uz;
    case 3:
        return Rotx;
    case 4:
        return Roty;
    case 5:
        return Rotz;
    default:
        return 0.0;
    }
}

void CDisplace::Set(int i, double v) {
    switch (i) {
    case 0:
        Ux = v;
        break;
    case 1:
        Uy = v;
        break;
    case 2:
        Uz = v;
        break;
    case 3:
        Rotx = v;
        break;
    case 4:
        Roty = v;
        break;
    case 5:
        Rotz = v;
        break;
    default:
        break;
    }
}

} // namespace kelo
