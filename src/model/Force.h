#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

namespace kelo {

class CSectionRes;

// Section forces of one element position for one case: PL, PM, PN, ML, MM, MN (kN, kNm).
class CForce : public CObject {
public:
    CForce() = default;
    // Forces are kept per element; the list key is the element number.
    int KeyNo() const { return ElementNo; }
    KELO_FIELD(int, ElementNo, 0)
    KELO_FIELD(int, LoadCombNo, 0)
    KELO_FIELD(int, LimitState, 0)
    KELO_FIELD(int, Code, 0)
    KELO_FIELD(int, Type, 0)
    KELO_FIELD(int, LongTermCombNo, 0)
    KELO_FIELD(int, RefLineNo, 0)
    KELO_FIELD(double, XoverL, 0.0)
    KELO_FIELD(double, StationNo, 0.0)
    KELO_ARRAY_FIELD(double, Forces, 6)
    KELO_FIELD(CSectionRes*, SectionResPtr, nullptr)
};

} // namespace kelo
