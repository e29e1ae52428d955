#include "design/BarDesPar.h"

namespace kelo {

CBarDesPar::CBarDesPar(int no, const std::string& name, const SteelValues& start)
    : CLimitStateDesPar(
          no, name, {.GammaULS = 1.25, .GammaPLS = 1.1, .GammaSLS = 1.0, .Epslim = start.Epslim}),
      BondCoeff(start.BondCoeff), Kt(start.Kt), WkMax(start.WkMax), Cover(start.Cover) {}

const CParamTable<CBarDesPar, CBarDesPar::kFieldCount>& CBarDesPar::Params() {
    using C = CBarDesPar;
    static constexpr CParamTable<C, kFieldCount> table(
        &C::GammaULS, &C::GammaPLS, &C::GammaSLS, &C::K1, &C::BondCoeff, &C::Kt, &C::WkMax,
        &C::SrmMax, &C::Cover, &C::ScaleWk, &C::EpslimULS, &C::EpslimPLS, &C::EpslimSLS);
    return table;
}

} // namespace kelo
