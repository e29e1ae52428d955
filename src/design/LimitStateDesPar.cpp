#include "design/LimitStateDesPar.h"

namespace kelo {

CLimitStateDesPar::CLimitStateDesPar(int no, const std::string& name, const LimitStateValues& start)
    : GammaULS(start.GammaULS), GammaPLS(start.GammaPLS), GammaSLS(start.GammaSLS),
      EpslimULS(start.Epslim), EpslimPLS(start.Epslim), EpslimSLS(start.Epslim), No(no),
      Name(name) {}

double CLimitStateDesPar::GammaOf(int ls) const {
    switch (ls) {
    case 1:
        return GammaULS;
    case 2:
        return GammaPLS;
    case 3:
        return GammaSLS;
    default:
        return -1.0;
    }
}

double CLimitStateDesPar::*CLimitStateDesPar::EpslimOf(int ls) {
    using C = CLimitStateDesPar;
    static constexpr double C::*limits[] = {&C::EpslimULS, &C::EpslimPLS, &C::EpslimSLS};
    return ls >= 1 && ls <= 3 ? limits[ls - 1] : nullptr;
}

double CLimitStateDesPar::GetEpslim(int ls) const {
    const auto limit = EpslimOf(ls);
    return limit ? this->*limit : -1.0;
}

void CLimitStateDesPar::SetEpslim(int ls, double v) {
    if (const auto limit = EpslimOf(ls)) this->*limit = v;
}

} // namespace kelo
