#pragma once

#include "design/BarDesPar.h"

#include <string>

namespace kelo {

// Design parameters of reinforcing steel; see CBarDesPar for the parameters.
class CReinfDesPar : public CBarDesPar {
public:
    CReinfDesPar() : CReinfDesPar(0, "") {}
    CReinfDesPar(int no, const std::string& name) : CBarDesPar(no, name, kStart) {}
    CReinfDesPar(const CReinfDesPar&) = default;
    CReinfDesPar& operator=(const CReinfDesPar&) = default;

    // 1 if any parameter differs by 1e-5 or more; number and name are not parameters.
    int CompareParam(const CReinfDesPar* other, int /*mode*/) const { return DiffersFrom(other); }

private:
    static constexpr SteelValues kStart{
        .BondCoeff = 0.75, .Kt = 1.5, .WkMax = 0.3, .Cover = 55.0, .Epslim = 0.005};
};

} // namespace kelo
