#include "design/SectDesPar.h"

namespace kelo {

double CSectDesPar::GetGammaN() const {
    switch (SafClass) {
    case 2:
        return 1.1;
    case 3:
        return 1.2;
    default:
        return 1.0;
    }
}

const CParamTable<CSectDesPar, CSectDesPar::kFieldCount>& CSectDesPar::Params() {
    using C = CSectDesPar;
    static constexpr CParamTable<C, kFieldCount> table(
        &C::MatType, &C::LeX, &C::LeY, &C::Le3, &C::Le4, &C::CoFX, &C::CoFY, &C::EccFX, &C::EccFY,
        &C::CustTolX, &C::CustTolY, &C::LambdaNmin, &C::LambdaNmax, &C::Ka, &C::CreepFactor,
        &C::Beta, &C::Kit, &C::SrmMax, &C::SafClass, &C::Fyw, &C::Theta, &C::Rmx, &C::Rmy,
        &C::Imperf, &C::SecClass, &C::ProdType, &C::BucklCurveX, &C::BucklCurveY, &C::LatBucklCurve,
        &C::LatMomX, &C::LatMomY);
    return table;
}

} // namespace kelo
