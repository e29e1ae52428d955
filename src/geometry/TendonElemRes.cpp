#include "geometry/TendonElemRes.h"

#include <cmath>

namespace kelo {

double CTendonElemRes::CalcTendonForce(double xi) const {
    if (SecRes.IsEmpty()) return 0.0;
    // a: the last point at or before ξ when the walk stops; b: the first point at or after ξ.
    const CTendonDesSecRes* a = nullptr;
    const CTendonDesSecRes* b = nullptr;
    for (const CTendonDesSecRes* r : SecRes) {
        if (r->GetXoverL() <= xi) a = r;
        if (!b && r->GetXoverL() >= xi) b = r;
        if (a && b) break;
    }
    constexpr double kTol = 1e-5;
    if (a && b) {
        const double d1 = xi - a->GetXoverL(), d2 = b->GetXoverL() - xi;
        // Within the tolerance of either point the force of a is taken, and between them the
        // line runs from a's force by the distance to b: the form the element loads and the
        // listings were calibrated on, kept as it is.
        if (std::fabs(d1) < kTol || std::fabs(d2) < kTol) return a->GetP();
        return a->GetP() +
               (b->GetXoverL() - xi) * (b->GetP() - a->GetP()) / (b->GetXoverL() - a->GetXoverL());
    }
    // Outside the points: the first force if ξ is within 1 mm per metre of it, else the last one
    // if ξ is not beyond it by as much.
    constexpr double kNear = 0.001;
    if (xi + kNear >= SecRes.At(0)->GetXoverL()) return SecRes.At(0)->GetP();
    if (xi - kNear <= SecRes.At(SecRes.GetCount() - 1)->GetXoverL())
        return SecRes.At(SecRes.GetCount() - 1)->GetP();
    return 0.0;
}

} // namespace kelo
