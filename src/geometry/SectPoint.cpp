#include "geometry/SectPoint.h"

#include "platform/Sinks.h"

#include <algorithm>
#include <cmath>

namespace kelo {

namespace {
// Within a millimetre of its section a point has its base offsets whatever its law.
constexpr double kAtSection = 0.001;
} // namespace

CSectPoint::CSectPoint(double no, int type, double x, double y)
    : No(no), Type(static_cast<short>(type)), X(x), Y(y), DeltaX(x), DeltaY(y) {
    if (type == -1) R = x;
}

CSectPoint::CSectPoint(double x, double y) : X(x), Y(y), DeltaX(x), DeltaY(y) {}

CSectPoint::CSectPoint(int type, int polyLine, double no, double x, double y)
    : CSectPoint(no, type, x, y) {
    PLine = polyLine;
}

void CSectPoint::SetGeomData(const double* data) {
    if (data) std::copy(data, data + kGeomData, GeomData.begin());
}

int CSectPoint::GetParaType(int axis) const {
    return axis == 1 || axis == 2 ? ParaType[static_cast<std::size_t>(axis - 1)] : 1;
}

void CSectPoint::SetParaType(int axis, int type) {
    if (axis == 1 || axis == 2) ParaType[static_cast<std::size_t>(axis - 1)] = type;
}

void CSectPoint::SetFactors(int axis, double a, double b, double c) {
    if (axis != 1 && axis != 2) return;
    const std::size_t i = static_cast<std::size_t>(axis - 1);
    Afactor[i] = a;
    Bfactor[i] = b;
    Cfactor[i] = c;
}

double CSectPoint::Delta(int axis, double s, MessageSink* sink) const {
    const std::size_t i = static_cast<std::size_t>(axis - 1);
    const double d = axis == 1 ? DeltaX : DeltaY;
    const int law = ParaType[i];
    if (std::fabs(s) < kAtSection || law < -1 || law > 3) return d;
    const double a = Afactor[i], b = Bfactor[i], c = Cfactor[i];
    switch (law) {
    case -1:
        if (sink)
            sink->Show(MsgKind::Error,
                       "ParaType = -1 er ikke implementert (mangler peker til CKeySection)");
        return d;
    case 0:
        return d;
    case 1:
        return d + c * s;
    case 2:
        return ((a * s + b) * s + c) * s + d;
    default:
        // A power law over a reference length b; without that length there is no law to apply.
        if (b == 0.0) return d;
        if (axis == 1) return a * std::pow(s / b, c) + d;
        return a * (s / b) * std::exp(c) + d;
    }
}

double CSectPoint::GetDeltaX(double s, MessageSink* sink) const { return Delta(1, s, sink); }

double CSectPoint::GetDeltaY(double s, MessageSink* sink) const { return Delta(2, s, sink); }

void CSectPoint::SetParaData(int axis, int type, const double* data) {
    if (axis != 1 && axis != 2) return;
    const std::size_t i = static_cast<std::size_t>(axis - 1);
    ParaType[i] = type;
    switch (type) {
    case 0:
        Afactor[i] = Bfactor[i] = Cfactor[i] = 0.0;
        break;
    case 1:
        Afactor[i] = Bfactor[i] = 0.0;
        Cfactor[i] = data ? data[2] : 0.0;
        break;
    case 2:
    case 3:
        if (!data) break;
        Afactor[i] = data[0];
        Bfactor[i] = data[1];
        Cfactor[i] = data[2];
        break;
    default:
        break;
    }
}

void CSectPoint::CalcParaFactors(const CSectPoint* next, double dist) {
    for (int axis = 1; axis <= 2; ++axis) {
        const std::size_t i = static_cast<std::size_t>(axis - 1);
        if (ParaType[i] != 1) continue;
        const double base = axis == 1 ? DeltaX : DeltaY;
        if (next && dist != 0.0) {
            const double target = axis == 1 ? next->GetDeltaX(0.0) : next->GetDeltaY(0.0);
            Cfactor[i] = (target - base) / dist;
        } else {
            Cfactor[i] = 0.0;
        }
    }
}

} // namespace kelo
