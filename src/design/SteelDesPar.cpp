#include "design/SteelDesPar.h"

#include <cmath>

namespace kelo {

double CSteelDesPar::GetGamma(int index) const {
    return index >= 1 && index <= kValueCount ? Gamma[index - 1] : -1.0;
}

void CSteelDesPar::SetGamma(int index, double v) {
    if (index >= 1 && index <= kValueCount) Gamma[index - 1] = v;
}

double CSteelDesPar::GetEpslim(int ls) const { return ls >= 1 && ls <= 4 ? Gamma[3 + ls] : -1.0; }

void CSteelDesPar::SetEpslim(int ls, double v) {
    if (ls >= 1 && ls <= 4) Gamma[3 + ls] = v;
}

int CSteelDesPar::CompareParam(const CSteelDesPar* other, int /*mode*/) const {
    if (!other) return 1;
    for (int i = 0; i < kValueCount; ++i)
        if (std::fabs(Gamma[i] - other->Gamma[i]) >= 1e-5) return 1;
    return 0;
}

} // namespace kelo
