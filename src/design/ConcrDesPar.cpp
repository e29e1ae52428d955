#include "design/ConcrDesPar.h"

namespace kelo {

const CParamTable<CConcrDesPar, CConcrDesPar::kFieldCount>& CConcrDesPar::Params() {
    using C = CConcrDesPar;
    static constexpr CParamTable<C, kFieldCount> table(&C::GammaULS, &C::GammaPLS, &C::GammaSLS,
                                                       &C::EpslimULS, &C::EpslimPLS, &C::EpslimSLS,
                                                       &C::Acc, &C::Act);
    return table;
}

int CConcrDesPar::CompareParam(const CConcrDesPar* other, int mode) const {
    return mode == 1 ? Params().Compare(*this, other) : 0;
}

} // namespace kelo
