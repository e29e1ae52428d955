#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

namespace kelo {

// A frame section as the section command gives it: its number (also its station on reference
// line 0, where its key section stands), its type, Young's modulus (MPa), Poisson's ratio and four
// dimensions whose meaning the type fixes (for type 1 the stiffness values, for the spring types
// 20 and 21 the spring stiffnesses). The section's own geometry and properties are built from it.
class CFrameSectInput : public CObject {
public:
    CFrameSectInput() = default;
    CFrameSectInput(int no, int type, double youngsModulus, double poisson, const double* dims)
        : No(no), Type(type), YoungsModulus(youngsModulus),
          Poisson(poisson), Dimension{dims[0], dims[1], dims[2], dims[3]} {}

    int KeyNo() const { return No; }
    // Translation spring (20), rotation spring (21) and spring matrix (22): elements without
    // length, whose design section stands at their first node.
    bool IsSpring() const { return Type >= 20 && Type <= 22; }

    KELO_FIELD(int, No, 0)
    KELO_FIELD(int, Type, 1)
    KELO_FIELD(double, YoungsModulus, 30000.0)
    KELO_FIELD(double, Poisson, 0.3)
    KELO_ARRAY_FIELD(double, Dimension, 4)
};

} // namespace kelo
