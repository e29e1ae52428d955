#include "geometry/ClotoidePoint.h"

#include <cmath>
#include <numbers>

namespace kelo {

namespace {
// Radii at or below this size are the straight end of the spiral.
constexpr double kInfiniteRadius = 1e-5;
// Below this a length (m) or station difference gives no usable spiral.
constexpr double kTiny = 1e-9;
} // namespace

double ClotoideX(double l, double a) {
    const double a4 = std::pow(a, 4);
    return l - std::pow(l, 5) / (40.0 * a4) + std::pow(l, 9) / (3456.0 * a4 * a4);
}

double ClotoideY(double l, double a) {
    const double a2 = a * a;
    const double a6 = a2 * a2 * a2;
    return std::pow(l, 3) / (6.0 * a2) - std::pow(l, 7) / (336.0 * a6) +
           std::pow(l, 11) / (42240.0 * a6 * a2 * a2);
}

double ClotoideAngle(double l, double a) { return l * l / (2.0 * a * a); }

int FindOnePtOnClotoide(double s, const double stations[2], const double radii[2], double a,
                        const double x[2], const double y[2], double* xRes, double* yRes,
                        double* dirGon) {
    *xRes = 0.0;
    *yRes = 0.0;
    *dirGon = 0.0;
    const bool inf0 = std::fabs(radii[0]) <= kInfiniteRadius;
    const bool inf1 = std::fabs(radii[1]) <= kInfiniteRadius;
    if (!(a > 0.0) || (inf0 && inf1)) return 0;
    const double ls = inf0 ? 0.0 : a * a / std::fabs(radii[0]);
    const double le = inf1 ? 0.0 : a * a / std::fabs(radii[1]);
    const double ds = stations[1] - stations[0];
    if (std::fabs(le - ls) < kTiny || std::fabs(ds) < kTiny) return 0;

    // Side of bending, +1 left: undo the negation of a finite pair (see the header).
    const double given = inf0 ? radii[1] : radii[0];
    double left = given > 0.0 ? 1.0 : -1.0;
    if (!inf0 && !inf1) left = -left;
    // Travelling towards smaller l runs the local spiral backwards, which turns it the other way;
    // the local y is mirrored so that the travelled curve bends to the wanted side.
    const double travel = le > ls ? 1.0 : -1.0;
    const double m = left * travel;

    const double l = ls + (s - stations[0]) / ds * (le - ls);
    const double psx = ClotoideX(ls, a), psy = m * ClotoideY(ls, a);
    const double pex = ClotoideX(le, a), pey = m * ClotoideY(le, a);
    const double lcx = pex - psx, lcy = pey - psy;
    const double gcx = x[1] - x[0], gcy = y[1] - y[0];
    const double lc = std::hypot(lcx, lcy), gc = std::hypot(gcx, gcy);
    if (lc < kTiny || gc < kTiny) return 0;

    const double rot = std::atan2(gcy, gcx) - std::atan2(lcy, lcx);
    const double scale = gc / lc;
    const double qx = ClotoideX(l, a) - psx, qy = m * ClotoideY(l, a) - psy;
    const double c = std::cos(rot), sn = std::sin(rot);
    *xRes = x[0] + scale * (c * qx - sn * qy);
    *yRes = y[0] + scale * (sn * qx + c * qy);

    double angle = m * ClotoideAngle(l, a) + rot;
    if (travel < 0.0) angle += std::numbers::pi;
    const double twoPi = 2.0 * std::numbers::pi;
    angle -= twoPi * std::floor(angle / twoPi);
    *dirGon = angle * 400.0 / twoPi;
    return 1;
}

} // namespace kelo
