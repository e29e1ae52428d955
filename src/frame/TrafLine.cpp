#include "frame/TrafLine.h"

namespace kelo {

double CTrafLine::GetAccumLength() const {
    if (TrafLineElemList.IsEmpty()) return 0.0;
    const CTrafLineElem* last = TrafLineElemList.At(TrafLineElemList.GetCount() - 1);
    return last->GetTrafLineElemAccum() + last->GetTrafLineElemLength();
}

int CTrafLine::GetAccumPosNo() const {
    if (TrafLineElemList.IsEmpty()) return 0;
    const CTrafLineElem* last = TrafLineElemList.At(TrafLineElemList.GetCount() - 1);
    return last->GetTrafLineElemAccPosNo() + last->GetTrafLineElemPosNo();
}

void CTrafTrack::SetTrafTrackValues(const double* values) {
    for (int i = 0; i < 8; ++i) SetTrafTrackValue(i, values[i]);
    if (TrafType >= 2 && TrafType <= 4) {
        TrafTrackAdist = values[0];
        TrafTrackBdist = values[1];
        Q = values[2];
    } else {
        TrafTrackAdist = 0.0;
        TrafTrackBdist = 0.0;
        Q = values[0];
    }
}

void CTrafTrack::GetTrafTrackValues(double* values) const {
    for (int i = 0; i < 8; ++i) values[i] = GetTrafTrackValue(i);
}

} // namespace kelo
