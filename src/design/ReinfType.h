#pragma once

#include "design/BarType.h"

namespace kelo {

// A reinforcement type of the project; see CBarType for its fields. Groups step through types in
// the order of their type lists.
class CReinfType : public CBarType {
public:
    CReinfType() = default;
    CReinfType(int no, int type, double diameter, double barsPrBundle, int bundleCount,
               double spacing, double area)
        : CBarType(no, type, diameter, barsPrBundle, bundleCount, spacing, area) {}
    CReinfType(const CReinfType&) = default;
    CReinfType& operator=(const CReinfType&) = default;

    // True when every field but the number is the same (to 1e-5).
    bool IsAllDataEqual(const CReinfType* other) const { return HasSameData(other); }

    // The empty types of number 0 come one for each kind; they are told apart in the list by
    // their kind and stand before every numbered type.
    int KeyNo() const { return GetNo() != 0 ? GetNo() : -GetType(); }
};

} // namespace kelo
