#include "geometry/TendonGeom.h"

#include "frame/Element.h"
#include "geometry/RefLine.h"
#include "geometry/Tendon.h"
#include "model/Node.h"
#include "model/Structure.h"

#include <algorithm>
#include <cmath>

namespace kelo {

namespace {

// Length marking a piece whose length could not be found.
constexpr double kNoLength = -99.0;

// y = aξ³ + bξ² + cξ + d over a part of the piece of length len.
struct Cubic {
    double a = 0.0, b = 0.0, c = 0.0, d = 0.0;
    double Y(double xi) const { return ((a * xi + b) * xi + c) * xi + d; }
    double Dxi(double xi) const { return (3.0 * a * xi + 2.0 * b) * xi + c; }
    double D2xi(double xi) const { return 6.0 * a * xi + 2.0 * b; }
};

// The cubic that starts level-or-sloped and ends level (slope0 per metre at the start) and the
// one that starts level and ends at slope1 per metre, over a length len.
Cubic StartSlopeLevelEnd(double y0, double y1, double slope0, double len) {
    const double delta = y1 - y0, t = slope0 * len;
    return {-2.0 * delta + t, 3.0 * delta - 2.0 * t, t, y0};
}
Cubic LevelStartEndSlope(double y0, double y1, double slope1, double len) {
    const double delta = y1 - y0, t = slope1 * len;
    return {-2.0 * delta + t, 3.0 * delta - t, 0.0, y0};
}

} // namespace

double CTendonGeom::ElementLength(const CStructure& s, int no) {
    const CElement* e = s.GetElementPtr(no);
    if (!e) return 0.0;
    const CNode* n1 = s.GetNodePtr(e->GetNodeNo1());
    const CNode* n2 = s.GetNodePtr(e->GetNodeNo2());
    if (!n1 || !n2) return 0.0;
    return std::hypot(n2->GetX() - n1->GetX(), n2->GetY() - n1->GetY(), n2->GetZ() - n1->GetZ());
}

void CTendonGeom::CalcTenGeom(double xi, double* y, double* slope, double* curvature) const {
    const double y0 = StartValue, y1 = EndValue, delta = y1 - y0;
    Cubic k;
    // ξ and the length of the part of the piece that the cubic k runs over.
    double t = xi, len = Length;
    // A straight part of types 8 and 9: y at ξ and the slope per metre.
    bool straight = false;
    double straightY = 0.0, straightSlope = 0.0;

    switch (Type) {
    case 1:
        k = {-delta / 2.0, 0.0, 1.5 * delta, y0};
        break;
    case 2:
        k = {-2.0 * delta, 3.0 * delta, 0.0, y0};
        break;
    case 3:
        k = {-delta / 2.0, 1.5 * delta, 0.0, y0};
        break;
    case 4:
        k = {0.0, 0.0, delta, y0};
        break;
    case 5:
        // Two parabolas meeting at ξ = 1 - P; with P = 1 the joint is at the start and the second
        // one alone is used.
        if (xi <= 1.0 - P && 1.0 - P > 0.0)
            k = {0.0, delta / (1.0 - P), 0.0, y0};
        else
            k = {0.0, -delta / P, 2.0 * delta / P, ((P - 1.0) * y1 + y0) / P};
        break;
    case 6:
        k = StartSlopeLevelEnd(y0, y1, P, Length);
        break;
    case 7:
        k = LevelStartEndSlope(y0, y1, P, Length);
        break;
    case 8:
    case 9: {
        // A straight part of length S at the angle P (radians) at the start (8) or the end (9), and
        // a cubic over the rest that meets it with the straight part's slope tan P, so that the
        // path has no kink at the joint.
        const double run = Length > 0.0 ? std::min(S * std::cos(P), Length) : 0.0;
        const double rise = run * std::tan(P);
        const double slopeP = std::tan(P);
        const double rest = Length - run;
        const double xiS = Length > 0.0 ? run / Length : 1.0;
        if (Type == 8) {
            if (xi <= xiS || rest <= 1e-9) {
                straight = true;
                straightY = y0 + xi * Length * slopeP;
                straightSlope = slopeP;
            } else {
                k = StartSlopeLevelEnd(y0 + rise, y1, slopeP, rest);
                t = (xi - xiS) / (1.0 - xiS);
                len = rest;
            }
        } else {
            if (xi >= 1.0 - xiS || rest <= 1e-9) {
                straight = true;
                straightY = y1 - (1.0 - xi) * Length * slopeP;
                straightSlope = slopeP;
            } else {
                k = LevelStartEndSlope(y0, y1 - rise, slopeP, rest);
                t = xi / (1.0 - xiS);
                len = rest;
            }
        }
        break;
    }
    default:
        break;
    }

    if (straight) {
        if (y) *y = straightY;
        if (slope) *slope = straightSlope;
        if (curvature) *curvature = 0.0;
        return;
    }
    const double s = len > 0.0 ? k.Dxi(t) / len : 0.0;
    if (y) *y = k.Y(t);
    if (slope) *slope = s;
    // The denominator is 1 + slope², not its 3/2 power: for the flat slopes of tendons the
    // difference is negligible, and the loads made from it are calibrated on this form.
    if (curvature)
        *curvature = len > 0.0 ? std::fabs(k.D2xi(t) / (len * len)) / (s * s + 1.0) : 0.0;
}

void CTendonGeom::CalcTenGeom(double xi1, double xi2, double* y1, double* y2, double* d1,
                              double* d2) const {
    const double a0 = StartValue, delta = EndValue - StartValue;
    auto eval = [&](double xi, double* y, double* d) {
        Cubic k;
        switch (Type) {
        case 1:
            k = {-delta / 2.0, 0.0, 1.5 * delta, a0};
            break;
        case 2:
            k = {-2.0 * delta, 3.0 * delta, 0.0, a0};
            break;
        case 3:
            k = {-delta / 2.0, 1.5 * delta, 0.0, a0};
            break;
        case 4:
            k = {0.0, 0.0, delta, a0};
            break;
        case 5:
            if (xi <= 1.0 - P && 1.0 - P > 0.0)
                k = {0.0, delta / (1.0 - P), 0.0, a0};
            else
                k = {0.0, -delta / P, 2.0 * delta / P, ((P - 1.0) * EndValue + a0) / P};
            break;
        default:
            break;
        }
        if (y) *y = k.Y(xi);
        if (d) *d = k.Dxi(xi);
    };
    eval(xi1, y1, d1);
    eval(xi2, y2, d2);
}

void CTendonGeom::CalcLength(CStructure* structure) {
    if (!Owner) {
        Length = kNoLength;
        return;
    }
    switch (Owner->GetGeomType()) {
    case 0: {
        Length = 0.0;
        if (!structure || StartElement <= 0 || EndElement <= 0) return;
        const int step = std::max(1, ElementStep);
        for (int no = StartElement; no <= EndElement; no += step)
            Length += ElementLength(*structure, no);
        return;
    }
    case 1:
        Length = std::fabs(EndStation - StartStation) > 0.0 ? EndStation - StartStation : kNoLength;
        return;
    case 2: {
        Length = kNoLength;
        const CRefLine* line =
            structure ? structure->GetRefLinePtr(Owner->GetRefLineNo()) : nullptr;
        if (!line) return;
        const CAxis* a = line->GetAxisPtr(static_cast<int>(std::lround(StartStation)));
        const CAxis* b = line->GetAxisPtr(static_cast<int>(std::lround(EndStation)));
        if (a && b) Length = b->GetStationNo() - a->GetStationNo();
        return;
    }
    default:
        Length = kNoLength;
        return;
    }
}

void CTendonGeom::GetElements(int* start, int* end, int* step) const {
    if (start) *start = StartElement;
    if (end) *end = EndElement;
    if (step) *step = ElementStep;
}

void CTendonGeom::SetElements(int start, int end, int step) {
    StartElement = start;
    EndElement = end;
    ElementStep = step;
}

void CTendonGeom::GetStations(double* start, double* end) const {
    if (start) *start = StartStation;
    if (end) *end = EndStation;
}

void CTendonGeom::SetStations(double start, double end) {
    StartStation = start;
    EndStation = end;
}

void CTendonGeom::GetValues(double* start, double* end, double* p, double* s) const {
    if (start) *start = StartValue;
    if (end) *end = EndValue;
    if (p) *p = P;
    if (s) *s = S;
}

void CTendonGeom::SetValues(double start, double end, double p, double s) {
    StartValue = start;
    EndValue = end;
    P = p;
    S = s;
}

} // namespace kelo
