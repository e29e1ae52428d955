#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

namespace kelo {

// A result of one mode in a dynamic load case. ResType 1 is the amplitude by which the mode's
// shape is scaled to give the load case's displacements.
class CModeRes : public CObject {
public:
    CModeRes() = default;
    CModeRes(int eigenModeNo, int resType, double amplitude)
        : EigenModeNo(eigenModeNo), ResType(resType), DisplaceAmplitude(amplitude) {}

    KELO_FIELD(int, EigenModeNo, 0)
    KELO_FIELD(int, ResType, 1)
    KELO_FIELD(double, DisplaceAmplitude, 0.0)
};

} // namespace kelo
