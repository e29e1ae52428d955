#include "frame/Spectra.h"

namespace kelo {

void CWindSpectra::SetDefaultSpectra() {
    Type = 1;
    Name = "NS3491-4 (Default)";
    TurbIntensity = {};
    LengthScales = {};
    HorCoherence = 9.0;
    VerCoherence = 6.0;
    AeroInclude = 1;
    IntermedRes = 1;
}

int CEarthquakeSpectra::SetPoint(int type, int point, double freq, double value) {
    if (point < 1 || point > kMaxPoints) return 0;
    if (type == 1) {
        SetHorFreq(point - 1, freq);
        SetHorValue(point - 1, value);
        return 1;
    }
    if (type == 2) {
        SetVerFreq(point - 1, freq);
        SetVerValue(point - 1, value);
        return 1;
    }
    return 0;
}

int CEarthquakeSpectra::GetPoint(int type, int point, double* freq, double* value) const {
    if (point < 1 || point > kMaxPoints || (type != 1 && type != 2)) return 0;
    *freq = type == 1 ? GetHorFreq(point - 1) : GetVerFreq(point - 1);
    *value = type == 1 ? GetHorValue(point - 1) : GetVerValue(point - 1);
    return 1;
}

} // namespace kelo
