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

void CDisplace::Transform(const double axes[3][3]) {
    const double u[3] = {Ux, Uy, Uz};
    const double r[3] = {Rotx, Roty, Rotz};
    double tu[3] = {0.0, 0.0, 0.0};
    double tr[3] = {0.0, 0.0, 0.0};
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) {
            tu[i] += axes[i][j] * u[j];
            tr[i] += axes[i][j] * r[j];
        }
    for (int i = 0; i < 3; ++i) {
        Set(i, tu[i]);
        Set(i + 3, tr[i]);
    }
}

} // namespace kelo
