#pragma once

#include "design/BarType.h"

namespace kelo {

// A stirrup type of the project; see CBarType for its fields. Stirrup sets step through types in
// the order of their type lists.
class CShearReinfType : public CBarType {
public:
    CShearReinfType() = default;
    CShearReinfType(int no, int type, double diameter, double barsPrBundle, int bundleCount,
                    double spacing, double area)
        : CBarType(no, type, diameter, barsPrBundle, bundleCount, spacing, area) {}
    CShearReinfType(const CShearReinfType&) = default;
    CShearReinfType& operator=(const CShearReinfType&) = default;

    // True when every field but the number is the same (to 1e-5).
    bool IsAllDataEqual(const CShearReinfType* other) const { return HasSameData(other); }

    // Stirrup types are keyed by their number alone: the one empty type has number 0.
    int KeyNo() const { return GetNo(); }
};

} // namespace kelo
