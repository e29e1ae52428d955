#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

#include <string>

namespace kelo {

// Parameters of the stochastic wind: spectrum type, coherence, turbulence and length scales
// (user overrides count when above 1e-5).
class CWindSpectra : public CObject {
public:
    CWindSpectra() = default;
    int KeyNo() const { return No; }
    // Type 1 with the default name, no overrides, coherence 9 and 6, aerodynamics and
    // intermediate results on.
    void SetDefaultSpectra();

    KELO_FIELD(int, No, 1)
    KELO_FIELD(int, Type, 1)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, AeroInclude, 1)
    KELO_FIELD(int, IntermedRes, 1)
    KELO_FIELD(double, HorCoherence, 9.0)
    KELO_FIELD(double, VerCoherence, 6.0)
    KELO_FIELD(double, RefHeight, 10.0)
    KELO_ARRAY_FIELD(double, TurbIntensity, 3)
    KELO_ARRAY_FIELD(double, LengthScales, 3)
};

// A response spectrum for earthquake analysis: up to 20 points (frequency, value) for the
// horizontal and the vertical direction.
class CEarthquakeSpectra : public CObject {
public:
    CEarthquakeSpectra() = default;
    int KeyNo() const { return No; }
    KELO_FIELD(int, No, 1)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, Type, 1)
    KELO_FIELD(int, Normalization, 1)
    KELO_FIELD(int, ValueKind, 5)
    KELO_FIELD(int, DampingRule, 0)
    KELO_ARRAY_FIELD(double, HorFreq, 20)
    KELO_ARRAY_FIELD(double, HorValue, 20)
    KELO_ARRAY_FIELD(double, VerFreq, 20)
    KELO_ARRAY_FIELD(double, VerValue, 20)
};

} // namespace kelo
