#include "design/BarType.h"

#include "platform/Text.h"

#include <cmath>

namespace kelo {

double CBarType::GetValue() const {
    switch (Type) {
    case 1:
        return BundleCount;
    case 2:
        return Spacing;
    case 3:
        return Area;
    default:
        return 0.0;
    }
}

std::string CBarType::GetDescription() const {
    if (Diameter <= 0.0 && Area <= 0.0) return "-";
    const std::string bar = Format("%.0fd%.0f", BarsPrBundle, Diameter);
    switch (Type) {
    case 1:
        return Format("%d x %s", BundleCount, bar.c_str());
    case 2:
        return Format("%s c/c %.0f", bar.c_str(), Spacing);
    case 3:
        return Format("%.0f mm2/m", Area);
    default:
        return bar;
    }
}

bool CBarType::HasSameData(const CBarType* other) const {
    if (!other) return false;
    const double tol = 1e-5;
    return Type == other->Type && BundleCount == other->BundleCount &&
           std::fabs(BarsPrBundle - other->BarsPrBundle) < tol &&
           std::fabs(Spacing - other->Spacing) < tol && std::fabs(Area - other->Area) < tol &&
           std::fabs(Diameter - other->Diameter) < tol;
}

} // namespace kelo
