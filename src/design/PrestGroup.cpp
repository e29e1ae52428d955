#include "design/PrestGroup.h"

namespace kelo {

void CPrestGroup::CalculateAs() { As = PrestArea * static_cast<double>(PrestList.GetCount()); }

void CPrestGroup::CalculateCoG() {
    double x = 0.0, y = 0.0;
    for (const CPrest* p : PrestList) {
        x += p->GetX();
        y += p->GetY();
    }
    const double n = static_cast<double>(PrestList.GetCount());
    SetCoG(0, n > 0.0 ? x / n : 0.0);
    SetCoG(1, n > 0.0 ? y / n : 0.0);
}

} // namespace kelo
