#include "design/PrestDesPar.h"

#include <cmath>

namespace kelo {

double CPrestDesPar::GetGamma(int ls, int /*flag*/) const {
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

double CPrestDesPar::GetEpslim(int ls) const { return ls >= 1 && ls <= 3 ? Epslim[ls - 1] : -1.0; }

void CPrestDesPar::SetEpslim(int ls, double v) {
    if (ls >= 1 && ls <= 3) Epslim[ls - 1] = v;
}

double CPrestDesPar::GetParam(int field) const {
    switch (field) {
    case 1:
        return GammaULS;
    case 2:
        return GammaPLS;
    case 3:
        return GammaSLS;
    case 4:
        return K1;
    case 5:
        return BondCoeff;
    case 6:
        return Kt;
    case 7:
        return WkMax;
    case 8:
        return SrmMax;
    case 9:
        return Cover;
    case 10:
        return ScaleWk;
    case 11:
    case 12:
    case 13:
        return Epslim[field - 11];
    default:
        return -1.0;
    }
}

int CPrestDesPar::SetParam(int field, double v) {
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
        K1 = v;
        break;
    case 5:
        BondCoeff = v;
        break;
    case 6:
        Kt = v;
        break;
    case 7:
        WkMax = v;
        break;
    case 8:
        SrmMax = v;
        break;
    case 9:
        Cover = v;
        break;
    case 10:
        ScaleWk = static_cast<int>(v);
        break;
    case 11:
    case 12:
    case 13:
        Epslim[field - 11] = v;
        break;
    default:
        return 0;
    }
    return 1;
}

int CPrestDesPar::CompareParam(const CPrestDesPar* other, int /*mode*/) const {
    if (!other) return 1;
    for (int i = 1; i <= kFieldCount; ++i)
        if (std::fabs(GetParam(i) - other->GetParam(i)) >= 1e-5) return 1;
    return 0;
}

} // namespace kelo
