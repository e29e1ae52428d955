#pragma once

#include "design/BarMatPar.h"

#include <string>

namespace kelo {

// Prestressing steel; see CBarMatPar for the parameters. The modulus is 1.95e8 kN/m², that of
// strand (the default set of BS 5400 projects takes 2e8), and the strain limit 0.02; the strength
// is 1670 MPa unless given.
class CPrestMatPar : public CBarMatPar {
public:
    CPrestMatPar() : CPrestMatPar(0, "", 1670.0) {}
    // fsk in MPa; the ultimate strength equals the yield strength.
    CPrestMatPar(int no, const std::string& name, double fsk)
        : CPrestMatPar(no, name, fsk, kDefaultClass, kDefaultCurve, fsk) {}
    // fsk and ft in MPa.
    CPrestMatPar(int no, const std::string& name, double fsk, int cls, int curve, double ft)
        : CBarMatPar(no, name, {.Esk = 1.95e8, .Epssu = 0.02}, fsk, cls, curve, ft) {}
    CPrestMatPar(const CPrestMatPar&) = default;
    CPrestMatPar& operator=(const CPrestMatPar&) = default;

    // 1 if any parameter differs by 1e-5 or more; number and name are not parameters.
    int CompareParam(const CPrestMatPar* other, int /*mode*/) const { return DiffersFrom(other); }
};

} // namespace kelo
