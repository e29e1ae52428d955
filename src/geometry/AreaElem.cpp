#include "geometry/AreaElem.h"

#include "geometry/KeySection.h"

#include <cmath>

namespace kelo {

namespace {
// Simpson's weights on eight parts of an edge.
constexpr double kWeights[9] = {1, 4, 2, 4, 2, 4, 2, 4, 1};
// Edges that rise less than this over an eighth add nothing to ∮ … dy.
constexpr double kFlat = 1e-7;
// A centre closer than this to an axis (m) lies on it.
constexpr double kOnAxis = 0.0001;
// Products of inertia below this (m⁴) are rounding noise of a symmetric part.
constexpr double kProductNoise = 1e-8;

// Calls f(x, y, w) at the nine Simpson stations of every edge, w being weight·dy, so that
// Σ w·g(x, y)/3 is ∮ g dy along the outline.
template <class F> void ForEachStation(const CPolyLine::PointList& pts, bool ring, F f) {
    const std::size_t n = pts.size();
    const std::size_t edges = ring ? n : n - 1;
    for (std::size_t i = 0; i < edges; ++i) {
        const CSectPoint& a = *pts[i];
        const CSectPoint& b = *pts[(i + 1) % n];
        const double dx = (b.GetX() - a.GetX()) / 8.0, dy = (b.GetY() - a.GetY()) / 8.0;
        if (std::fabs(dy) < kFlat) continue;
        for (int k = 0; k <= 8; ++k) f(a.GetX() + k * dx, a.GetY() + k * dy, kWeights[k] * dy);
    }
}
} // namespace

OutlineIntegrals OutlineIntegrals::Of(const CPolyLine::PointList& points, bool ring) {
    OutlineIntegrals r;
    if (points.size() < 2) return r;
    // Green's theorem: A = ∮x dy, ∫y dA = ∮xy dy, ∫x dA = ∮x²/2 dy.
    ForEachStation(points, ring, [&r](double x, double y, double w) {
        r.A += w * x / 3.0;
        r.Sy += w * x * y / 3.0;
        r.Sx += w * x * x / 6.0;
    });
    if (r.A > 0.0) {
        r.Cx = r.Sx / r.A;
        r.Cy = r.Sy / r.A;
    }
    // About the centre: ∫y² dA = ∮xy² dy, ∫x² dA = ∮x³/3 dy, ∫xy dA = ∮x²y/2 dy.
    ForEachStation(points, ring, [&r](double x, double y, double w) {
        const double u = x - r.Cx, v = y - r.Cy;
        r.Ixx += w * u * v * v / 3.0;
        r.Iyy += w * u * u * u / 9.0;
        r.Ixy += w * v * u * u / 6.0;
    });
    return r;
}

int CAreaElem::CalcPoly(const CKeySection* section) {
    if (section) {
        for (const auto& p : PolyLine.GetSectPointList()) {
            const CSectPoint* src = section->GetSectPointPtr(p->GetPLine(), p->GetNo());
            if (!src) continue;
            p->SetX(src->GetX());
            p->SetY(src->GetY());
            p->SetR(src->GetR());
        }
    }
    PolyLine.SetClosed(1);
    PolyLine.MakeConvSectPointList();
    return PolyLine.GetConvSectPointCount() >= 3 ? 1 : 0;
}

int CAreaElem::CalcProp() {
    A = Cx = Cy = Ix = Iy = Ixy = 0.0;
    const CPolyLine::PointList& pts = PolyLine.GetConvSectPointList();
    if (pts.size() < 3) return 0;
    const OutlineIntegrals in = OutlineIntegrals::Of(pts, true);
    const double sign = IsVoid ? -1.0 : 1.0;
    A = sign * in.A;
    Cx = std::fabs(in.Cx) < kOnAxis ? 0.0 : in.Cx;
    Cy = std::fabs(in.Cy) < kOnAxis ? 0.0 : in.Cy;
    Ix = sign * in.Ixx;
    Iy = sign * in.Iyy;
    Ixy = std::fabs(in.Ixy) < kProductNoise ? 0.0 : sign * in.Ixy;
    return 1;
}

int CAreaElem::Update(const CKeySection* section) {
    return CalcPoly(section) && CalcProp() ? 1 : 0;
}

} // namespace kelo
