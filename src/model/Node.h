#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

namespace kelo {

// A node of the frame. Fix holds one code per freedom (X, Y, Z, rotation X, Y, Z): 0 free,
// 1 fixed, -n slave of the same freedom of master node n.
class CNode : public CObject {
public:
    CNode() = default;
    CNode(int no, double x, double y, double z) : No(no), X(x), Y(y), Z(z) {}

    int KeyNo() const { return No; }

    KELO_FIELD(int, No, 0)
    KELO_FIELD(double, X, 0.0)
    KELO_FIELD(double, Y, 0.0)
    KELO_FIELD(double, Z, 0.0)
    KELO_ARRAY_FIELD(int, Fix, 6)
    // 1: active, in the analysis; any other value leaves the node out of the equations.
    KELO_FIELD(int, State, 1)
    KELO_FIELD(int, Visible, 1)
    KELO_FIELD(int, RefLineNo, 0)
    KELO_FIELD(int, RefLineConnect, 0)
    KELO_FIELD(double, StationNo, 0.0)
    KELO_ARRAY_FIELD(double, RefLineOffset, 3)
    KELO_FIELD(double, DeltaM, 0.0)
    KELO_FIELD(double, DeltaN, 0.0)
    // Sort key of displacement results: element number plus one tenth of the end.
    KELO_FIELD(double, SortDisplace, 0.0)
};

} // namespace kelo
