#include "geometry/HorSegment.h"

#include "geometry/ClotoidePoint.h"
#include "geometry/RefLine.h"
#include "platform/Text.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kelo {

namespace {
constexpr double kPi = std::numbers::pi;
constexpr double kTwoPi = 2.0 * std::numbers::pi;
// Segments shorter than this (m of station) answer no points.
constexpr double kMinLength = 0.0001;
// Radii at or below this size are the straight end of a free clothoid.
constexpr double kInfiniteRadius = 1e-5;

// acos of a cosine that rounding may have pushed a hair past ±1.
double SafeAcos(double c) { return std::acos(std::clamp(c, -1.0, 1.0)); }

// Plan angle in [0, 2π) of a unit vector.
double DirAngle(double ux, double uy) { return uy >= 0.0 ? SafeAcos(ux) : kTwoPi - SafeAcos(ux); }

// On a chained clothoid a radius below 1 m in size is the infinite radius of the spiral's start.
bool IsZeroRadius(double r) { return std::trunc(std::fabs(r)) == 0.0; }
} // namespace

CHorSegment::CHorSegment(int no, CRefLine* refLine, int type, double startStation, double startX,
                         double startY, double endStation, double endX, double endY, double startR,
                         double endR, double klotoideParam)
    : HorSegNo(no), RefLinePtr(refLine), RefLineNo(refLine ? refLine->GetNo() : 0), Type(type),
      StartStation(startStation), StartX(startX), StartY(startY), StartR(startR),
      EndStation(endStation), EndX(endX), EndY(endY), EndR(endR), KlotoideParam(klotoideParam) {}

CHorSegment::CHorSegment(const CHorSegment& other) : CObject(other) {
    *this = other;
    RefLinePtr = nullptr;
}

// The owner is kept: the segment stays on the line that holds it, which hears of the change.
// cppcheck-suppress operatorEqVarError
CHorSegment& CHorSegment::operator=(const CHorSegment& other) {
    if (this == &other) return *this;
    HorSegNo = other.HorSegNo;
    RefLineNo = other.RefLineNo;
    Type = other.Type;
    StartStation = other.StartStation;
    StartX = other.StartX;
    StartY = other.StartY;
    StartR = other.StartR;
    EndStation = other.EndStation;
    EndX = other.EndX;
    EndY = other.EndY;
    EndR = other.EndR;
    KlotoideParam = other.KlotoideParam;
    SegmCalc = other.SegmCalc;
    StartUnitX = other.StartUnitX;
    StartUnitY = other.StartUnitY;
    EndUnitX = other.EndUnitX;
    EndUnitY = other.EndUnitY;
    ValidateMessage = other.ValidateMessage;
    StationsChanged();
    return *this;
}

void CHorSegment::SetStartStation(double v) {
    StartStation = v;
    StationsChanged();
}

void CHorSegment::SetEndStation(double v) {
    EndStation = v;
    StationsChanged();
}

void CHorSegment::StationsChanged() {
    if (RefLinePtr) RefLinePtr->HorSegmentsChanged();
}

void CHorSegment::ClearUnits() { StartUnitX = StartUnitY = EndUnitX = EndUnitY = 0.0; }

void CHorSegment::SetSegmCalc(int v) {
    SegmCalc = v;
    if (v != 1) StationsChanged();
}

int CHorSegment::CalculateAndValidate() {
    switch (Type) {
    case 1:
        CalcStraight();
        break;
    case 2:
        CalcArc();
        break;
    case 3:
        CalcClotoide();
        break;
    case 11:
        CalcChainedStraight();
        break;
    case 12:
        CalcChainedArc();
        break;
    case 13:
        CalcChainedClotoide();
        break;
    default:
        break;
    }
    if (SegmCalc != 1) StationsChanged();
    return SegmCalc;
}

void CHorSegment::CalcStraight() {
    const double dx = EndX - StartX, dy = EndY - StartY;
    const double len = std::hypot(dx, dy);
    if (len <= 0.0) {
        ClearUnits();
        SegmCalc = 0;
        ValidateMessage += "Error: Zero segment length.\r\n";
        return;
    }
    StartUnitX = EndUnitX = dx / len;
    StartUnitY = EndUnitY = dy / len;
    SegmCalc = 1;
    // Stations and coordinates are given independently; a mismatch above 5 % is worth a word.
    const double q = std::fabs(len / (EndStation - StartStation));
    if (q > 1.05 || q < 0.95)
        ValidateMessage += "Warning: Inconsistence in coordinate and station data.\r\n";
}

void CHorSegment::CalcArc() {
    const double dx = EndX - StartX, dy = EndY - StartY;
    const double chord = std::hypot(dx, dy);
    if (chord <= 0.0 || std::fabs(2.0 * StartR) < chord) {
        ClearUnits();
        SegmCalc = 0;
        ValidateMessage += "Error: Circle does not make sence.\r\n";
        return;
    }
    const double absR = std::fabs(StartR);
    const double rise = absR - std::sqrt(std::max(0.0, StartR * StartR - chord * chord / 4.0));
    const double halfAngle = SafeAcos((absR - rise) / absR);
    const double theta = dy >= 0.0 ? SafeAcos(dx / chord) : kTwoPi - SafeAcos(dx / chord);
    const double start = StartR > 0.0 ? theta - halfAngle : theta + halfAngle;
    const double end = StartR > 0.0 ? theta + halfAngle : theta - halfAngle;
    StartUnitX = std::cos(start);
    StartUnitY = std::sin(start);
    EndUnitX = std::cos(end);
    EndUnitY = std::sin(end);
    SegmCalc = 1;
    const double q = std::fabs(2.0 * halfAngle * StartR / (EndStation - StartStation));
    if (q > 1.05 || q < 0.95)
        ValidateMessage += "Warning: Inconsistence in coordinate and station data.\r\n";
}

void CHorSegment::CalcChainedStraight() {
    // The start tangent comes from the previous segment; anything far from unit length means
    // that segment was never calculated, and nothing is worked out from it.
    const double n = StartUnitX * StartUnitX + StartUnitY * StartUnitY;
    if (n > 0.999 && n < 1.001) {
        EndUnitX = StartUnitX;
        EndUnitY = StartUnitY;
        EndX = StartX + (EndStation - StartStation) * EndUnitX;
        EndY = StartY + (EndStation - StartStation) * EndUnitY;
    }
    SegmCalc = 1;
}

void CHorSegment::CalcChainedArc() {
    const double n = StartUnitX * StartUnitX + StartUnitY * StartUnitY;
    // A radius of zero would give an infinite turn; such an arc answers no points either.
    if (n > 0.999 && n < 1.001 && std::fabs(StartR) > kMinLength) {
        const double phi1 = (EndStation - StartStation) / StartR + DirAngle(StartUnitX, StartUnitY);
        EndUnitX = std::cos(phi1);
        EndUnitY = std::sin(phi1);
        double xy[2];
        if (CalcXYCoord(EndStation, xy)) {
            EndX = xy[0];
            EndY = xy[1];
        }
    }
    SegmCalc = 1;
}

void CHorSegment::CalcClotoide() {
    SegmCalc = 1;
    const double len = EndStation - StartStation;
    if (len <= 0.0) {
        SegmCalc = 0;
        ValidateMessage += "Error: Zero or negative segment length.\r\n";
        return;
    }
    if (StartR * EndR < 0.0) {
        SegmCalc = 0;
        ValidateMessage += "Error: Clotoide; change of sign on radiuses not allowed.\r\n";
        return;
    }
    if (std::hypot(EndX - StartX, EndY - StartY) > len) {
        SegmCalc = 0;
        ValidateMessage += "Error: Clotoide station length VS coordinates.\r\n";
        return;
    }
    const double a2 = KlotoideParam * KlotoideParam;
    const double ls = std::fabs(StartR) > kInfiniteRadius ? a2 / std::fabs(StartR) : 0.0;
    const double le = std::fabs(EndR) > kInfiniteRadius ? a2 / std::fabs(EndR) : 0.0;
    // The station length must be the spiral length between the two radii within 1 %.
    const double q = len / std::fabs(ls - le);
    if (q > 1.01 || q < 0.99) {
        SegmCalc = 0;
        ValidateMessage += "Warning: Inconsistence in clotoide data.\r\n";
        return;
    }
    double dir[2];
    CalcClotoideDirVector(StartStation, dir);
    StartUnitX = dir[0];
    StartUnitY = dir[1];
    // The end tangent is taken at the start again and its x part put in both components; a
    // chained segment after a free clothoid starts from these values.
    CalcClotoideDirVector(StartStation, dir);
    EndUnitX = dir[0];
    EndUnitY = dir[0];
    SegmCalc = 1;
}

void CHorSegment::CalcChainedClotoide() {
    SegmCalc = 1;
    const double len = EndStation - StartStation;
    if (len <= 0.0) {
        SegmCalc = 0;
        ValidateMessage += "Error: Zero or negative segment length.\r\n";
        return;
    }
    if (StartR * EndR < 0.0) {
        SegmCalc = 0;
        ValidateMessage += "Error: Clotoide; change of sign on radiuses not allowed.\r\n";
        return;
    }
    const double ux = StartUnitX, uy = StartUnitY;
    const double phi = DirAngle(ux, uy);
    const bool zeroStart = IsZeroRadius(StartR), zeroEnd = IsZeroRadius(EndR);
    bool done = true;
    double phiE = 0.0;
    if (zeroStart && !zeroEnd) {
        // The spiral leaves the straight: local (x, y) from the point of infinite radius.
        const double x = CalcClotoideXCartesian(len), y = CalcClotoideYCartesian(len);
        const double tau = CalcClotoideAccumAngle(len);
        if (EndR < 0.0) {
            EndX = StartX + ux * x + uy * y;
            EndY = StartY + uy * x - ux * y;
            phiE = phi - tau;
        } else {
            EndX = StartX + ux * x - uy * y;
            EndY = StartY + uy * x + ux * y;
            phiE = phi + tau;
        }
    } else if (zeroEnd && !zeroStart) {
        // The spiral runs out into a straight: it is walked backwards from l = L to l = 0.
        const double x = CalcClotoideXCartesian(len), y = CalcClotoideYCartesian(len);
        const double psi = kPi / 2.0 - CalcClotoideAccumAngle(len);
        if (StartR > 0.0) {
            const double a = phi - psi;
            EndX = StartX + y * std::cos(a) - x * std::sin(a);
            EndY = StartY + y * std::sin(a) + x * std::cos(a);
            phiE = phi - psi + kPi / 2.0;
        } else {
            const double a = phi + psi;
            EndX = StartX + y * std::cos(a) + x * std::sin(a);
            EndY = StartY + y * std::sin(a) - x * std::cos(a);
            phiE = phi + psi - kPi / 2.0;
        }
    } else if (!zeroStart && !zeroEnd) {
        // A spiral between two finite radii: the stretch of the series from ls to le.
        const double a2 = KlotoideParam * KlotoideParam;
        const double ls = a2 / std::fabs(StartR), le = a2 / std::fabs(EndR);
        const double y = std::fabs(CalcClotoideYCartesian(le) - CalcClotoideYCartesian(ls));
        const double x = std::fabs(CalcClotoideXCartesian(le) - CalcClotoideXCartesian(ls));
        const double ts = CalcClotoideAccumAngle(ls), te = CalcClotoideAccumAngle(le);
        const double rs = std::fabs(StartR), re = std::fabs(EndR);
        if (StartR < 0.0 && re < rs) {
            const double a = phi + ts;
            EndX = StartX + x * std::cos(a) + y * std::sin(a);
            EndY = StartY + x * std::sin(a) - y * std::cos(a);
            phiE = phi - te + ts;
        } else if (StartR < 0.0 && rs < re) {
            const double a = phi + kPi / 2.0 - ts;
            EndX = StartX + y * std::cos(a) + x * std::sin(a);
            EndY = StartY + y * std::sin(a) - x * std::cos(a);
            phiE = phi + te - ts;
        } else if (StartR > 0.0 && re < rs) {
            const double a = phi - ts;
            EndX = StartX + x * std::cos(a) - y * std::sin(a);
            EndY = StartY + x * std::sin(a) + y * std::cos(a);
            phiE = phi + te - ts;
        } else if (StartR > 0.0 && re > rs) {
            const double a = phi - kPi / 2.0 + ts;
            EndX = StartX + y * std::cos(a) - x * std::sin(a);
            EndY = StartY + y * std::sin(a) + x * std::cos(a);
            phiE = phi - te + ts;
        } else {
            done = false;
        }
    } else {
        done = false;
    }
    if (done) {
        EndUnitX = std::cos(phiE);
        EndUnitY = std::sin(phiE);
    }
    SegmCalc = 1;
}

int CHorSegment::CalcXYCoord(double station, double* const xy) {
    xy[0] = xy[1] = 0.0;
    if (!(StartStation <= station && station <= EndStation) ||
        EndStation - StartStation < kMinLength)
        return 0;
    const double d = station - StartStation;
    switch (Type) {
    case 1:
    case 11:
        // The stations, not the end coordinates, give the distance along the straight.
        xy[0] = StartX + d * StartUnitX;
        xy[1] = StartY + d * StartUnitY;
        return 1;
    case 2:
    case 12: {
        if (std::fabs(StartR) <= kMinLength) return 0;
        const double cx = StartX - StartUnitY * StartR;
        const double cy = StartY + StartUnitX * StartR;
        // Angle of the vector from the start point to the centre, turned by the arc travelled.
        const double x0 =
            StartUnitX >= 0.0 ? SafeAcos(-StartUnitY) : kTwoPi - SafeAcos(-StartUnitY);
        const double x = x0 + d / StartR;
        xy[0] = cx - StartR * std::cos(x);
        xy[1] = cy - StartR * std::sin(x);
        return 1;
    }
    case 3:
    case 13:
        return CalcClotoideXYByTessel(station, xy);
    default:
        return 0;
    }
}

int CHorSegment::CalcXYDirVector(double station, double* const dir) {
    dir[0] = dir[1] = 0.0;
    if (!(StartStation <= station && station <= EndStation) ||
        EndStation - StartStation < kMinLength)
        return 0;
    switch (Type) {
    case 1:
    case 11:
        dir[0] = StartUnitX;
        dir[1] = StartUnitY;
        return 1;
    case 2:
    case 12: {
        if (std::fabs(StartR) <= kMinLength) return 0;
        const double angle = (station - StartStation) / StartR + DirAngle(StartUnitX, StartUnitY);
        dir[0] = std::cos(angle);
        dir[1] = std::sin(angle);
        return 1;
    }
    case 3:
    case 13:
        return CalcClotoideDirVector(station, dir);
    default:
        return 0;
    }
}

double CHorSegment::CalcClotoideXCartesian(double l) const { return ClotoideX(l, KlotoideParam); }

double CHorSegment::CalcClotoideYCartesian(double l) const { return ClotoideY(l, KlotoideParam); }

double CHorSegment::CalcClotoideAccumAngle(double l) const {
    return ClotoideAngle(l, KlotoideParam);
}

namespace {
// The point routine's arguments for a segment; it takes a finite pair of radii negated.
struct ClotoideArgs {
    double stations[2];
    double radii[2];
    double x[2];
    double y[2];
};
} // namespace

int CHorSegment::CalcClotoideXYByTessel(double station, double* const xy) const {
    ClotoideArgs args{{StartStation, EndStation}, {StartR, EndR}, {StartX, EndX}, {StartY, EndY}};
    if (StartR * EndR > 1e-5) {
        args.radii[0] = -StartR;
        args.radii[1] = -EndR;
    }
    // The end station itself is asked a hair inside: the factor scales the station value.
    const double s = station == EndStation ? EndStation * 0.99999 : station;
    double gon = 0.0;
    return FindOnePtOnClotoide(s, args.stations, args.radii, KlotoideParam, args.x, args.y, &xy[0],
                               &xy[1], &gon);
}

int CHorSegment::CalcClotoideDirVector(double station, double* const dir) const {
    ClotoideArgs args{{StartStation, EndStation}, {StartR, EndR}, {StartX, EndX}, {StartY, EndY}};
    if (StartR * EndR > 1e-5) {
        args.radii[0] = -StartR;
        args.radii[1] = -EndR;
    }
    const double s = station == EndStation ? EndStation * 0.99999 : station;
    double x = 0.0, y = 0.0, gon = 0.0;
    dir[0] = dir[1] = 0.0;
    if (!FindOnePtOnClotoide(s, args.stations, args.radii, KlotoideParam, args.x, args.y, &x, &y,
                             &gon))
        return 0;
    const double angle = gon / 400.0 * kTwoPi;
    dir[0] = std::cos(angle);
    dir[1] = std::sin(angle);
    return 1;
}

int CHorSegment::ListHorSegData(std::string* text, int withHeader) const {
    if (!text) return 0;
    if (withHeader)
        *text += Format("%5s %5s %12s %12s %12s %9s \r\n%12s%12s %12s %12s %9s %10s\r\n", "No.",
                        "Type", "Start-St.", "Start-X", "Start-Y", "Start-R", "", "End-St.",
                        "End-X", "End-Y", "End-R", "Clot. par");
    *text +=
        Format("%5i %5i %12.3f %12.3f %12.3f %9.3f \r\n%12s%12.3f %12.3f %12.3f %9.3f %10.3f\r\n",
               HorSegNo, Type, StartStation, StartX, StartY, StartR, "", EndStation, EndX, EndY,
               EndR, KlotoideParam);
    return 1;
}

std::string CHorSegment::ConvertToASCII() const {
    return Format("RFLHORI, %d, %d, %d, %.3lf, %.3lf, %.3lf, %.3lf, %.3lf, %.3lf, %.3lf, %.3lf, "
                  "%.3lf\r\n",
                  RefLineNo, HorSegNo, Type, StartStation, StartX, StartY, EndStation, EndX, EndY,
                  StartR, EndR, KlotoideParam);
}

} // namespace kelo
