#pragma once

#include "design/BarDesPar.h"

#include <string>

namespace kelo {

// Design parameters of prestressing steel; see CBarDesPar for the parameters.
class CPrestDesPar : public CBarDesPar {
public:
    CPrestDesPar() : CPrestDesPar(0, "") {}
    CPrestDesPar(int no, const std::string& name) : CBarDesPar(no, name, kStart) {}
    CPrestDesPar(const CPrestDesPar&) = default;
    CPrestDesPar& operator=(const CPrestDesPar&) = default;

    // 1 if any parameter differs by 1e-5 or more; number and name are not parameters.
    int CompareParam(const CPrestDesPar* other, int /*mode*/) const { return DiffersFrom(other); }

private:
    static constexpr SteelValues kStart{
        .BondCoeff = 1.15, .Kt = 2.0, .WkMax = 0.2, .Cover = 65.0, .Epslim = 0.01};
};

} // namespace kelo
