#include "design/ReinfMatPar.h"

#include <cmath>

namespace kelo {

CReinfMatPar::CReinfMatPar(int no, const std::string& name, double fsk)
    : No(no), Name(name), Fsk(fsk * 1000.0), Ft(fsk * 1000.0) {}

CReinfMatPar::CReinfMatPar(int no, const std::string& name, double fsk, int cls, int curve,
                           double ft)
    : No(no), Name(name), Fsk(fsk * 1000.0), Class(cls), Curve(curve), Ft(ft * 1000.0) {}

int CReinfMatPar::CompareParam(const CReinfMatPar* other, int /*mode*/) const {
    if (!other) return 1;
    const double tol = 1e-5;
    if (std::fabs(Fsk - other->Fsk) >= tol || std::fabs(Esk - other->Esk) >= tol ||
        std::fabs(Epssu - other->Epssu) >= tol || std::fabs(Ft - other->Ft) >= tol)
        return 1;
    return Class != other->Class || Curve != other->Curve ? 1 : 0;
}

} // namespace kelo
