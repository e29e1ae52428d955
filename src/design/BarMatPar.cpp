#include "design/BarMatPar.h"

#include <cmath>

namespace kelo {

CBarMatPar::CBarMatPar(int no, const std::string& name, const SteelValues& steel, double fsk,
                       int cls, int curve, double ft)
    : No(no), Name(name), Fsk(fsk * 1000.0), Esk(steel.Esk), Epssu(steel.Epssu), Class(cls),
      Curve(curve), Ft(ft * 1000.0) {}

int CBarMatPar::DiffersFrom(const CBarMatPar* other) const {
    if (!other) return 1;
    const double tol = 1e-5;
    if (std::fabs(Fsk - other->Fsk) >= tol || std::fabs(Esk - other->Esk) >= tol ||
        std::fabs(Epssu - other->Epssu) >= tol || std::fabs(Ft - other->Ft) >= tol)
        return 1;
    return Class != other->Class || Curve != other->Curve ? 1 : 0;
}

} // namespace kelo
