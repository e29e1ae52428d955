#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

namespace kelo {

// The dynamic part of a load case: the modes to combine, and the earthquake or wind excitation.
class CDynLoad : public CObject {
public:
    KELO_FIELD(int, FirstMode, 1)
    KELO_FIELD(int, LastMode, 1)
    KELO_FIELD(double, GroundAcc, 0.0)
    KELO_FIELD(double, ScaleX, 1.0)
    KELO_FIELD(double, ScaleY, 1.0)
    KELO_FIELD(double, ScaleZ, 1.0)
    KELO_FIELD(int, EarthquakeSpectraNo, 0)
    KELO_FIELD(double, Damping, 0.0)
    // Wind: reference speed (m/s at 10 m), direction (degrees), terrain category or roughness
    // length, spectrum number and ground level (m).
    KELO_FIELD(double, WindSpeed, 0.0)
    KELO_FIELD(double, WindDirection, 0.0)
    KELO_FIELD(double, Roughness, 0.0)
    KELO_FIELD(int, WindSpectraNo, 0)
    KELO_FIELD(double, GroundLevel, 0.0)
};

} // namespace kelo
