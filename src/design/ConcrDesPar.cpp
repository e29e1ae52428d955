#include "design/ConcrDesPar.h"

#include <cmath>

namespace kelo {

CConcrDesPar::CConcrDesPar(int no, const std::string& name)
    : No(no), Name(name), GammaULS(1.4), GammaPLS(1.2), GammaSLS(1.0), Epslim{0.035, 0.035, 0.035},
      Acc(0.85), Act(0.85) {}

double CConcrDesPar::GetGamma(int ls, int flag) const {
    switch (ls) {
    case 1:
        return flag ? 1.2 * GammaULS / 1.5 : GammaULS;
    case 2:
        return GammaPLS;
    case 3:
        return GammaSLS;
    default:
        return -1.0;
    }
}

double CConcrDesPar::GetEpslim(int ls) const { return ls >= 1 && ls <= 3 ? Epslim[ls - 1] : -1.0; }

void CConcrDesPar::SetEpslim(int ls, double v) {
    if (ls >= 1 && ls <= 3) Epslim[ls - 1] = v;
}

double CConcrDesPar::GetParam(int field) const {
    switch (field) {
    case 1:
        return GammaULS;
    case 2:
        return GammaPLS;
    case 3:
        return GammaSLS;
    case 4:
    case 5:
    case 6:
        return Epslim[field - 4];
    case 7:
        return Acc;
    case 8:
        return Act;
    default:
        return -1.0;
    }
}

int CConcrDesPar::SetParam(int field, double v) {
    switch (field) {
    case 1:
        GammaULS = v;
        break;
    case 2:
        GammaPLS = v;
        break;
    case 3:
        GammaSLS = v;
        break;
    case 4:
    case 5:
    case 6:
        Epslim[field - 4] = v;
        break;
    case 7:
        Acc = v;
        break;
    case 8:
        Act = v;
        break;
    default:
        return 0;
    }
    return 1;
}

int CConcrDesPar::CompareParam(const CConcrDesPar* other, int mode) const {
    if (mode != 1) return 0;
    if (!other) return 1;
    for (int i = 1; i <= kFieldCount; ++i)
        if (std::fabs(GetParam(i) - other->GetParam(i)) >= 1e-5) return 1;
    return 0;
}

} // namespace kelo
