#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

#include <string>

namespace kelo {

// A design run's setup: which sections, which combinations, and which checks.
class CDesignSetup : public CObject {
public:
    CDesignSetup() = default;
    CDesignSetup(int no, std::string name) : No(no), Name(std::move(name)) {}
    int KeyNo() const { return No; }
    KELO_FIELD(int, No, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, Type, 0)
    KELO_FIELD(int, CombCode, 2)
    KELO_FIELD(int, Slender, 0)
    KELO_FIELD(int, Shear, 0)
    KELO_FIELD(int, Torsion, 0)
    KELO_FIELD(int, Crack, 0)
};

// A capacity chart of one section at a station.
class CChart : public CObject {
public:
    CChart() = default;
    int KeyNo() const { return No; }
    KELO_FIELD(int, No, 0)
    KELO_FIELD(int, Type, 1)
    KELO_FIELD(int, RefLineNo, 0)
    KELO_FIELD(double, StationNo, 0.0)
    KELO_FIELD(int, LimitState, 1)
};

} // namespace kelo
