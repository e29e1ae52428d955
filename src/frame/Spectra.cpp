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

} // namespace kelo
