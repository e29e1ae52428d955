#include "geometry/VerSegment.h"

#include "geometry/RefLine.h"
#include "platform/Text.h"

#include <algorithm>
#include <cmath>

namespace kelo {

namespace {
// Segments shorter than this (m of station) answer no elevations; radii below it no arc.
constexpr double kMinLength = 0.0001;
// A rounding radius at or below this size is a sharp corner.
constexpr double kSharpCorner = 1e-5;
} // namespace

CVerSegment::CVerSegment(int no, CRefLine* refLine, int type, double startStation, double startZ,
                         double endStation, double endZ, double radius)
    : VerSegNo(no), RefLinePtr(refLine), RefLineNo(refLine ? refLine->GetNo() : 0), Type(type),
      StartStation(startStation), StartZ(startZ), Radius(type == 1 ? 0.0 : radius),
      EndStation(endStation), EndZ(endZ) {
    ResetStartCorner();
    ResetEndCorner();
}

void CVerSegment::SetType(int v) {
    Type = v;
    if (v == 1) Radius = 0.0;
}

void CVerSegment::SetStartStation(double v) {
    StartStation = v;
    ResetStartCorner();
}

void CVerSegment::SetStartZ(double v) {
    StartZ = v;
    ResetStartCorner();
}

void CVerSegment::SetEndStation(double v) {
    EndStation = v;
    ResetEndCorner();
}

void CVerSegment::SetEndZ(double v) {
    EndZ = v;
    ResetEndCorner();
}

void CVerSegment::ResetStartCorner() {
    StartTpStation = StartCrownStation = StartStation;
    StartTpZ = StartCrownZ = StartZ;
    StartRoundR = 0.0;
}

void CVerSegment::ResetEndCorner() {
    EndTpStation = EndCrownStation = EndStation;
    EndTpZ = EndCrownZ = EndZ;
    EndRoundR = 0.0;
}

int CVerSegment::CalculateAndValidate() {
    const double ds = EndStation - StartStation;
    const double dz = EndZ - StartZ;
    if (Type == 1 || Type == 5) {
        if (ds <= 0.0) {
            StartTangent = EndTangent = 0.0;
            SegmCalc = 0;
            ValidateMessage += "Error: Zero segment length.\r\n";
            return 0;
        }
        StartTangent = EndTangent = dz / ds;
        SegmCalc = 1;
    } else if (Type == 2) {
        const double chord = std::sqrt(ds * ds + dz * dz);
        if (chord <= 0.0 || std::fabs(2.0 * Radius) < chord) {
            StartTangent = EndTangent = 0.0;
            SegmCalc = 0;
            ValidateMessage +=
                "Error: Zero segment length or end point not within range of 2*radius.\r\n";
            return 0;
        }
        const double absR = std::fabs(Radius);
        const double rise = absR - std::sqrt(std::max(0.0, Radius * Radius - chord * chord / 4.0));
        const double halfAngle = std::acos(std::clamp((absR - rise) / absR, -1.0, 1.0));
        const double chordAngle = std::asin(std::clamp(dz / chord, -1.0, 1.0));
        if (Radius >= 0.0) {
            StartTangent = std::sin(chordAngle - halfAngle);
            EndTangent = std::sin(chordAngle + halfAngle);
        } else {
            StartTangent = std::sin(chordAngle + halfAngle);
            EndTangent = std::sin(chordAngle - halfAngle);
        }
        SegmCalc = 1;
    }
    return SegmCalc;
}

bool CVerSegment::RoundingValue(double s, bool slope, bool radiusTest, double* value) const {
    const bool onStart = StartStation <= s && s < StartTpStation &&
                         (!radiusTest || std::fabs(StartRoundR) > kSharpCorner);
    const bool onEnd = !onStart && EndStation >= s && EndTpStation < s &&
                       (!radiusTest || std::fabs(EndRoundR) > kSharpCorner);
    if (!onStart && !onEnd) return false;
    // The rounding is the half arc between the crown and the tangent point.
    CVerSegment arc = onStart ? CVerSegment(1, nullptr, 2, StartCrownStation, StartCrownZ,
                                            StartTpStation, StartTpZ, StartRoundR)
                              : CVerSegment(1, nullptr, 2, EndTpStation, EndTpZ, EndCrownStation,
                                            EndCrownZ, EndRoundR);
    arc.CalculateAndValidate();
    *value = slope ? arc.CalcZDirVector(s) : arc.CalcZCoordByStation(s);
    return true;
}

double CVerSegment::CalcZCoordByStation(double s) const {
    if (!(StartStation <= s && s <= EndStation) || EndStation - StartStation <= kMinLength)
        return 0.0;
    switch (Type) {
    case 1:
        return StartZ + (s - StartStation) * StartTangent;
    case 2: {
        if (std::fabs(Radius) <= kMinLength) return 0.0;
        const double a = std::clamp(StartTangent, -1.0, 1.0);
        // Centre of the circle: a radius away from the start point, normal to its tangent.
        const double zc = StartZ + std::cos(std::asin(a)) * Radius;
        const double sc = StartStation - a * Radius;
        const double u = (s - sc) / std::fabs(Radius);
        return zc - Radius * std::sqrt(std::max(0.0, 1.0 - u * u));
    }
    case 5: {
        double z = 0.0;
        if (RoundingValue(s, false, true, &z)) return z;
        return StartZ + (s - StartStation) * StartTangent;
    }
    default:
        return 0.0;
    }
}

double CVerSegment::CalcZDirVector(double s) const {
    if (!(StartStation <= s && s <= EndStation) || EndStation - StartStation <= kMinLength)
        return 0.0;
    switch (Type) {
    case 1:
        return StartTangent;
    case 2:
        if (std::fabs(Radius) <= kMinLength) return 0.0;
        // The arc's turn (s - start)/R is added to atan of the start tangent, although that one
        // is a sine: this is the slope the line has always given on an arc.
        return std::tan((s - StartStation) / Radius + std::atan(StartTangent));
    case 5: {
        double slope = 0.0;
        if (RoundingValue(s, true, false, &slope)) return slope;
        return StartTangent;
    }
    default:
        return 0.0;
    }
}

int CVerSegment::CalculateTangentPoints(const CVerSegment* prev, const CVerSegment* next) {
    if (Type != 5) return 1;
    StartCrownStation = StartStation;
    EndCrownStation = EndStation;
    const double g = std::atan((EndZ - StartZ) / (EndStation - StartStation));
    if (prev) {
        // Turn of the grade at the start corner; positive for a crest.
        const double delta =
            std::atan((StartZ - prev->StartZ) / (StartStation - prev->StartStation)) - g;
        const double r = prev->Radius;
        const double t = std::fabs(std::tan(delta / 2.0) * r);
        const double e = std::sqrt(r * r + t * t) - r;
        StartTpStation = StartStation + std::cos(g) * t;
        StartTpZ = StartZ + std::sin(g) * t;
        StartCrownStation = StartStation + std::sin(delta / 2.0) * e;
        StartCrownZ =
            delta >= 0.0 ? StartZ - std::cos(delta / 2.0) * e : StartZ + std::cos(delta / 2.0) * e;
        StartRoundR = delta > 0.0 ? -r : r;
    }
    if (next) {
        const double h = std::atan((next->EndZ - EndZ) / (next->EndStation - EndStation));
        const double delta = g - h;
        const double t = std::fabs(std::tan(delta / 2.0) * Radius);
        const double e = std::sqrt(Radius * Radius + t * t) - Radius;
        EndTpStation = EndStation - std::cos(g) * t;
        EndTpZ = EndZ - std::sin(g) * t;
        EndCrownStation = EndStation + std::sin(delta / 2.0) * e;
        EndCrownZ =
            delta >= 0.0 ? EndZ - std::cos(delta / 2.0) * e : EndZ + std::cos(delta / 2.0) * e;
        EndRoundR = delta > 0.0 ? -Radius : Radius;
    }
    return 1;
}

int CVerSegment::IsStationOnSegment(double s) const {
    if (Type == 5) return StartCrownStation <= s && s <= EndCrownStation ? 1 : 0;
    return StartStation <= s && s <= EndStation ? 1 : 0;
}

int CVerSegment::ListVerSegData(std::string* text, int withHeader) const {
    if (!text) return 0;
    if (withHeader)
        *text += Format("%5s%5s%12s%12s%12s%12s%12s\r\n", "No.", "Type", "Start-St.", "Start-Z",
                        "End-St.", "End-Z", "Radius");
    *text += Format("%5i%5i%12.3f%12.3f%12.3f%12.3f%12.3f", VerSegNo, Type, StartStation, StartZ,
                    EndStation, EndZ, Radius);
    *text += "\r\n";
    *text += Format("%9.3f%9.3f", StartTangent, EndTangent);
    *text += "\r\n";
    return 1;
}

std::string CVerSegment::ConvertToASCII() const {
    return Format("RFLVERT, %d, %d, %d, %.3lf, %.3lf, %.3lf, %.3lf, %.3lf\r\n", RefLineNo, VerSegNo,
                  Type, StartStation, StartZ, EndStation, EndZ, Radius);
}

} // namespace kelo
