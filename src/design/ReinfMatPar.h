#pragma once

#include "design/BarMatPar.h"

#include <string>

namespace kelo {

// Reinforcing steel; see CBarMatPar for the parameters. The modulus is 2e8 kN/m² and the strain
// limit 0.01; the strength is 500 MPa unless given.
class CReinfMatPar : public CBarMatPar {
public:
    CReinfMatPar() : CReinfMatPar(0, "", 500.0) {}
    // fsk in MPa; the ultimate strength equals the yield strength.
    CReinfMatPar(int no, const std::string& name, double fsk)
        : CReinfMatPar(no, name, fsk, kDefaultClass, kDefaultCurve, fsk) {}
    // fsk and ft in MPa.
    CReinfMatPar(int no, const std::string& name, double fsk, int cls, int curve, double ft)
        : CBarMatPar(no, name, {.Esk = 2e8, .Epssu = 0.01}, fsk, cls, curve, ft) {}
    CReinfMatPar(const CReinfMatPar&) = default;
    CReinfMatPar& operator=(const CReinfMatPar&) = default;

    // 1 if any parameter differs by 1e-5 or more; number and name are not parameters.
    int CompareParam(const CReinfMatPar* other, int /*mode*/) const { return DiffersFrom(other); }
};

} // namespace kelo
