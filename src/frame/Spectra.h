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
    // The three values of WINDVRTX, kept for the vortex shedding check as given.
    KELO_ARRAY_FIELD(double, VortexValues, 3)
};

// A response spectrum for earthquake analysis: up to 20 points (frequency in Hz, value) for the
// horizontal and the vertical direction. ValueKind says what the table holds: 0 none (the code
// spectrum of Type 1 from its parameters), 1 accelerations, 2 pseudo velocities, 3
// displacements. DampingRule 0, 1 or 2 scales the table from its own Damping (%) to that of a
// load.
class CEarthquakeSpectra : public CObject {
public:
    static constexpr int kMaxPoints = 20;

    CEarthquakeSpectra() = default;
    int KeyNo() const { return No; }
    // Point `point` (1 to 20) of the horizontal (type 1) or the vertical (type 2) table. Answers
    // 1, or 0 for a point or type outside the tables.
    int SetPoint(int type, int point, double freq, double value);
    int GetPoint(int type, int point, double* freq, double* value) const;

    KELO_FIELD(int, No, 1)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, Type, 1)
    KELO_FIELD(double, Normalization, 1.0)
    KELO_FIELD(int, ValueKind, 1)
    KELO_FIELD(int, DampingRule, 0)
    KELO_FIELD(double, Damping, 5.0)
    KELO_ARRAY_FIELD(double, HorFreq, 20)
    KELO_ARRAY_FIELD(double, HorValue, 20)
    KELO_ARRAY_FIELD(double, VerFreq, 20)
    KELO_ARRAY_FIELD(double, VerValue, 20)
};

} // namespace kelo
