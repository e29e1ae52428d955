#pragma once

#include <cmath>

// Reference geometry for the alignment tests, worked out without the clothoid series: a plan
// curve whose curvature varies linearly with arc length has the tangent angle
// θ(u) = θ0 + k0·u + (k1 − k0)·u²/(2L) in closed form, and its points follow from integrating
// (cos θ, sin θ) numerically (Simpson's rule, fine enough to be exact to 1e-10 m here).
namespace curvewalk {

struct Pose {
    double x, y, theta;
};

inline double Angle(const Pose& p, double k0, double k1, double len, double u) {
    return p.theta + k0 * u + (k1 - k0) * u * u / (2.0 * len);
}

// Pose after walking `sigma` metres along a piece of length `len` whose curvature runs from k0 to
// k1 (1/m, positive turning left), starting at `p`.
inline Pose Walk(const Pose& p, double k0, double k1, double len, double sigma, int n = 4000) {
    if (sigma == 0.0) return p;
    const double h = sigma / n;
    double sx = 0.0, sy = 0.0;
    for (int i = 0; i <= n; ++i) {
        const double w = (i == 0 || i == n) ? 1.0 : (i % 2 ? 4.0 : 2.0);
        const double t = Angle(p, k0, k1, len, i * h);
        sx += w * std::cos(t);
        sy += w * std::sin(t);
    }
    return {p.x + sx * h / 3.0, p.y + sy * h / 3.0, Angle(p, k0, k1, len, sigma)};
}

} // namespace curvewalk
