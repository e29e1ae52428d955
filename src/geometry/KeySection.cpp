#include "geometry/KeySection.h"

#include "design/ConcrMatPar.h"
#include "design/SteelMatPar.h"
#include "geometry/RefLine.h"
#include "geometry/RoadProfile.h"
#include "model/Structure.h"
#include "platform/Sinks.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <utility>
#include <vector>

namespace kelo {

namespace {

constexpr double kPi = std::numbers::pi;
// Coordinates, differences and numbers within this are the same.
constexpr double kTol = 1e-5;
// Length of the helper lines drawn plumb or square from a point; any length would do.
constexpr double kHelpLength = 1000.0;
// Products of inertia below this (m⁴) are rounding noise of a symmetric section.
constexpr double kProductNoise = 1e-8;
// A point being resolved; coming back to it closes a circle of definitions.
constexpr int kResolving = 2;

bool Coincide(const CSectPoint& a, const CSectPoint& b) {
    return std::fabs(a.GetX() - b.GetX()) < kTol && std::fabs(a.GetY() - b.GetY()) < kTol;
}

bool RoadTied(int type) { return type == 1 || type == 2 || type == 3 || type == 7 || type == 8; }

// The torsion stiffness of a solid rectangle of sides s ≤ l by the usual fit of the series
// solution, within about 3 % of it for every ratio of the sides.
double RectTorsion(double s, double l) {
    if (l <= 0.0) return 0.0;
    return s * s * s * l * (0.33 - 0.19 * s / l);
}

void Cross(const double* a, const double* b, double* c) {
    c[0] = a[1] * b[2] - a[2] * b[1];
    c[1] = a[2] * b[0] - a[0] * b[2];
    c[2] = a[0] * b[1] - a[1] * b[0];
}

double Norm(const double* a) { return std::sqrt(a[0] * a[0] + a[1] * a[1] + a[2] * a[2]); }

} // namespace

// ---------------------------------------------------------------------------------------------
// The project

SectionEnv SectionEnv::OfProject(CStructure* structure, int refLineNo) {
    SectionEnv env;
    if (!structure) return env;
    env.RefLine = structure->GetRefLinePtr(refLineNo);
    env.Lines = structure->GetRefLineList();
    env.Sink = &structure->GetMessageSink();
    env.YoungsModulus = [structure](int matType, int matParNo, int) -> double {
        if (matType == 2) {
            const CSteelMatPar* steel = structure->GetSteelMatParPtr(matParNo);
            return steel ? steel->GetYoungsModulus() : 0.0;
        }
        const CConcrMatPar* concrete = structure->GetConcrMatParPtr(matParNo);
        return concrete ? concrete->GetYoungsModulus() : 0.0;
    };
    return env;
}

CKeySection::CKeySection(int no, std::string name, double stationNo)
    : No(no), Name(std::move(name)), StationNo(stationNo) {}

void CKeySection::SetParam(const double* values) {
    if (values) std::copy(values, values + kSpecParams, SpecParam.begin());
}

double CKeySection::PointScale() const {
    const bool picture = (Type >= 1 && Type <= 5) || (Type >= 20 && Type <= 22);
    return picture ? 0.001 : 1.0;
}

// ---------------------------------------------------------------------------------------------
// Generated outlines

bool CKeySection::HasStdProfile(int type) {
    return (type >= 1 && type <= 5) || type == 11 || type == 12 || (type >= 20 && type <= 22);
}

int CKeySection::CalcSectPoints() {
    if (Type == 14) {
        MakeConvSectPointList();
        return 1;
    }
    const bool generated = (Type >= 1 && Type <= 5) || Type == 11 || Type == 12 ||
                           (Type >= 20 && Type <= 22) || Type >= 1000;
    if (!generated) return 1;
    if (!HasStdProfile(Type)) return 0;

    // Face connections are set by hand on the first points of an outline and outlive its
    // regeneration.
    std::map<int, int> faces;
    for (const auto& p : SectPointList) {
        const double no = p->GetNo();
        const long whole = std::lround(no);
        if (std::fabs(no - static_cast<double>(whole)) < kTol && whole >= 0 && whole < 40)
            faces.emplace(static_cast<int>(whole), p->GetFaceConnection());
    }
    RefreshStdProfile();
    for (const auto& [no, face] : faces)
        if (CSectPoint* p = SectPointList.Find(no)) p->SetFaceConnection(face);
    return 1;
}

void CKeySection::RefreshStdProfile() {
    if (!HasStdProfile(Type)) return;
    SectPointList.RemoveAll();
    ConvSectPointList.RemoveAll();
    PolyLineList.RemoveAll();

    double no = 0.0;
    auto point = [&](double x, double y) {
        SectPointList.Add(std::make_unique<CSectPoint>(0, 0, ++no, x, y));
    };
    auto radius = [&](double r) {
        SectPointList.Add(std::make_unique<CSectPoint>(-1, 0, ++no, r, 0.0));
    };
    // A circle from its lowest point in quarter bows, counter-clockwise (a solid) or clockwise
    // (a void), back to the lowest point.
    auto circle = [&](double r, bool ccw) {
        const double s = ccw ? 1.0 : -1.0;
        point(0.0, -r);
        radius(s * r);
        point(s * r, 0.0);
        radius(s * r);
        point(0.0, r);
        radius(s * r);
        point(-s * r, 0.0);
        radius(s * r);
        point(0.0, -r);
    };
    auto rectangle = [&](double x0, double y0, double x1, double y1, bool ccw) {
        point(x0, y0);
        if (ccw) {
            point(x1, y0);
            point(x1, y1);
            point(x0, y1);
        } else {
            point(x0, y1);
            point(x1, y1);
            point(x1, y0);
        }
        point(x0, y0);
    };
    // A hollow outline: the outer ring, over a seam round the void and back over the seam.
    auto pipe = [&](double r, double ri) {
        circle(r, true);
        if (ri <= kTol) return;
        circle(ri, false);
        point(0.0, -r);
    };

    std::array<double, 8> p{};
    for (std::size_t i = 0; i < p.size(); ++i) p[i] = SpecParam[i];
    switch (Type) {
    case 1:
    case 20:
    case 21:
    case 22: {
        const double ends[3][4] = {
            {-100.0, -100.0, 100.0, 100.0}, {-100.0, 100.0, 100.0, -100.0}, {0, -200.0, 0, 200.0}};
        for (int k = 0; k < 3; ++k) {
            auto line = std::make_unique<CPolyLine>(k + 1, 4, 0);
            line->AddSectPoint(std::make_unique<CSectPoint>(0, k + 1, 1.0, ends[k][0], ends[k][1]));
            line->AddSectPoint(std::make_unique<CSectPoint>(0, k + 1, 2.0, ends[k][2], ends[k][3]));
            PolyLineList.Add(std::move(line));
        }
        break;
    }
    case 2:
        pipe(p[0] * 500.0, p[1] * 500.0);
        break;
    case 3: {
        const double b = p[0] * 1000.0, h = p[1] * 1000.0;
        rectangle(-b / 2, -h / 2, b / 2, h / 2, true);
        break;
    }
    case 4: {
        const double b = p[0] * 1000.0, h = p[1] * 1000.0;
        const double w = p[2] * 1000.0, f = p[3] * 1000.0;
        rectangle(-b / 2, -h / 2, b / 2, h / 2, true);
        if (w > kTol && f > kTol && 2 * w < b && 2 * f < h) {
            rectangle(-b / 2 + w, -h / 2 + f, b / 2 - w, h / 2 - f, false);
            point(-b / 2, -h / 2);
        }
        break;
    }
    case 5: {
        // Height h, flange thickness f, web width w, flange width t; flange on top.
        const double h = p[0] * 1000.0, f = p[1] * 1000.0;
        const double w = p[2] * 1000.0, t = p[3] * 1000.0;
        const double aw = (h - f) * w, af = t * f;
        const double e = aw + af > 0.0 ? (aw * (h - f) / 2 + af * (h - f / 2)) / (aw + af) : 0.0;
        const double yb = -e, yt = h - e, yf = yt - f;
        point(-w / 2, yb);
        point(w / 2, yb);
        point(w / 2, yf);
        point(t / 2, yf);
        point(t / 2, yt);
        point(-t / 2, yt);
        point(-t / 2, yf);
        point(-w / 2, yf);
        point(-w / 2, yb);
        break;
    }
    case 11: {
        // Width, height, then the walls: left, right, bottom, top (mm).
        const double b = p[0] / 1000.0, h = p[1] / 1000.0;
        const double t1 = p[2] / 1000.0, t2 = p[3] / 1000.0;
        const double t3 = p[4] / 1000.0, t4 = p[5] / 1000.0;
        rectangle(-b / 2, -h / 2, b / 2, h / 2, true);
        const bool box = t1 > kTol && t2 > kTol && t3 > kTol && t4 > kTol;
        if (box && t1 + t2 < b && t3 + t4 < h) {
            rectangle(-b / 2 + t1, -h / 2 + t3, b / 2 - t2, h / 2 - t4, false);
            point(-b / 2, -h / 2);
        }
        break;
    }
    case 12: {
        // Outer radius and wall thickness (mm); no wall: a solid circle.
        const double r = p[0] / 1000.0, t = p[1] / 1000.0;
        pipe(r, t > 0.0 ? r - t : 0.0);
        break;
    }
    default:
        break;
    }
}

// ---------------------------------------------------------------------------------------------
// Resolving points

double CKeySection::NormalizeAngle(double x) {
    if (std::fabs(x) <= kTol) return x;
    const double turn = 2.0 * kPi;
    if (x > 0.0) return x - turn * std::floor(x / turn);
    return x - turn * std::ceil(x / turn - 1.0);
}

int CKeySection::CalculateIntersectPoint(const CSectPoint& a, const CSectPoint& b,
                                         const CSectPoint& c, const CSectPoint& d, double& x,
                                         double& y) {
    auto direction = [](const CSectPoint& from, const CSectPoint& to, double& dx, double& dy) {
        dx = to.GetX() - from.GetX();
        dy = to.GetY() - from.GetY();
        if (std::fabs(dx) <= kTol) dx = 0.0;
        if (std::fabs(dy) <= kTol) dy = 0.0;
        if (dx == 0.0 && dy == 0.0) dx = 1.0;
    };
    double dx1 = 0.0, dy1 = 0.0, dx2 = 0.0, dy2 = 0.0;
    direction(a, b, dx1, dy1);
    direction(c, d, dx2, dy2);
    const double det = dx1 * dy2 - dy1 * dx2;
    // Parallel within the precision of the directions: no single point in common.
    if (std::fabs(det) <= 1e-12 * std::hypot(dx1, dy1) * std::hypot(dx2, dy2)) return 0;
    const double t = ((c.GetX() - a.GetX()) * dy2 - (c.GetY() - a.GetY()) * dx2) / det;
    x = a.GetX() + t * dx1;
    y = a.GetY() + t * dy1;
    return 1;
}

int CKeySection::CalculateNormalPoint(const CSectPoint& p, const CSectPoint& a, const CSectPoint& b,
                                      double& x, double& y) {
    const double dx = b.GetX() - a.GetX(), dy = b.GetY() - a.GetY();
    const double l2 = dx * dx + dy * dy;
    if (std::sqrt(l2) <= kTol) return 0;
    const double t = ((p.GetX() - a.GetX()) * dx + (p.GetY() - a.GetY()) * dy) / l2;
    x = a.GetX() + t * dx;
    y = a.GetY() + t * dy;
    return 1;
}

CSectPoint* CKeySection::GetSectPointPtr(int polyLine, double no) const {
    if (polyLine == 0) return SectPointList.Find(no);
    const CPolyLine* line = PolyLineList.Get(polyLine);
    return line ? line->GetSectPointPtr(no) : nullptr;
}

int CKeySection::CalculateSectionCoord(CSectPoint* point, CSectPoint* start,
                                       const CRoadProfile* road) {
    return Resolve(point, start, road ? road : RoadProfile);
}

int CKeySection::ResolveRef(int polyLineRef, double noRef, CSectPoint* start,
                            const CRoadProfile* road, CSectPoint*& out) {
    CSectPoint* p = GetSectPointPtr(polyLineRef, noRef);
    if (!p || !Resolve(p, start, road)) return 0;
    out = p;
    return 1;
}

int CKeySection::Resolve(CSectPoint* point, CSectPoint* start, const CRoadProfile* road) {
    if (!point) return 0;
    if (point->GetCalculatedFlag() == 1) return 1;
    if (start && start == point) return 0;
    // A point met again on its own chain of references is defined through itself.
    if (point->GetCalculatedFlag() == kResolving) return 0;
    if (!start) start = point;

    const int type = point->GetType();
    double g[CSectPoint::kGeomData];
    for (int i = 0; i < CSectPoint::kGeomData; ++i) g[i] = point->GetGeomData(i);
    auto pl = [](double v) { return static_cast<int>(v); };

    const CSectPoint* r0 = nullptr;
    const CSectPoint* r1 = nullptr;
    const CSectPoint* r2 = nullptr;
    double a = 0.0;
    if (RoadTied(type)) {
        if (!road) return 0;
        r0 = road->GetRoadPoint(g[0]);
        if (!r0) return 0;
        if (type == 1 || type == 3 || type == 8) {
            r1 = road->GetRoadPoint(g[1]);
            r2 = road->GetRoadPoint(g[2]);
            if (!r1 || !r2) return 0;
            const double dx = r2->GetX() - r1->GetX(), dy = r2->GetY() - r1->GetY();
            if (std::fabs(dx) >= kTol || std::fabs(dy) >= kTol) a = std::atan2(dy, dx);
        }
    }
    if (type < -1 || type > 8) {
        point->SetCalculatedFlag(1);
        return 1;
    }

    point->SetCalculatedFlag(kResolving);
    const double dX = point->GetDeltaX(0.0), dY = point->GetDeltaY(0.0);
    double x = 0.0, y = 0.0;
    int ok = 1;
    switch (type) {
    case -1:
        x = dX;
        y = dY;
        point->SetR(point->GetDeltaR(0.0));
        break;
    case 0:
        x = dX;
        y = dY;
        break;
    case 1: {
        const CSectPoint t1(r0->GetX() + dX, r0->GetY());
        const CSectPoint t2(t1.GetX(), t1.GetY() + kHelpLength);
        ok = CalculateIntersectPoint(t1, t2, *r1, *r2, x, y);
        y += dY;
        break;
    }
    case 2:
        x = r0->GetX() + dX;
        y = r0->GetY() + dY;
        break;
    case 3: {
        const CSectPoint t1(r0->GetX() + dX * std::cos(a), r0->GetY() + dX * std::sin(a));
        double fx = 0.0, fy = 0.0;
        ok = CalculateNormalPoint(t1, *r1, *r2, fx, fy);
        x = fx - std::sin(a) * dY;
        y = fy + std::cos(a) * dY;
        break;
    }
    case 4:
    case 5:
        ok = ResolveSkew(point, start, road);
        if (ok) {
            x = point->GetX();
            y = point->GetY();
        }
        break;
    case 6: {
        CSectPoint* p = nullptr;
        CSectPoint* q = nullptr;
        ok = ResolveRef(pl(g[3]), g[4], start, road, p) &&
             ResolveRef(pl(g[5]), g[6], start, road, q);
        if (ok) {
            x = (p->GetX() + q->GetX()) / 2.0 + dX;
            y = (p->GetY() + q->GetY()) / 2.0 + dY;
        }
        break;
    }
    case 7: {
        CSectPoint* p = nullptr;
        ok = ResolveRef(pl(g[3]), g[4], start, road, p);
        if (ok) {
            x = p->GetX() + dX;
            y = p->GetY() + dY;
        }
        break;
    }
    case 8: {
        CSectPoint* p = nullptr;
        ok = ResolveRef(pl(g[3]), g[4], start, road, p);
        if (ok) {
            const CSectPoint t1(p->GetX() + dX, p->GetY());
            const CSectPoint t2(t1.GetX(), t1.GetY() + kHelpLength);
            ok = CalculateIntersectPoint(t1, t2, *r1, *r2, x, y);
            y += dY;
        }
        break;
    }
    default:
        break;
    }
    if (!ok) {
        point->SetCalculatedFlag(0);
        return 0;
    }
    point->SetX(x);
    point->SetY(y);
    point->SetCalculatedFlag(1);
    return 1;
}

int CKeySection::ResolveSkew(CSectPoint* point, CSectPoint* start, const CRoadProfile* road) {
    const double dX = point->GetDeltaX(0.0), dY = point->GetDeltaY(0.0);
    auto g = [point](int i) { return point->GetGeomData(i); };
    auto pl = [](double v) { return static_cast<int>(v); };
    CSectPoint* p1 = nullptr;
    if (!ResolveRef(pl(g(0)), g(1), start, road, p1)) return 0;
    if (std::fabs(g(2)) < kTol) {
        point->SetX(p1->GetX() + dX);
        point->SetY(p1->GetY() + dY);
        return 1;
    }
    CSectPoint* p2 = nullptr;
    CSectPoint* p3 = nullptr;
    if (!ResolveRef(pl(g(2)), g(3), start, road, p2)) return 0;
    if (!ResolveRef(pl(g(4)), g(5), start, road, p3)) return 0;
    const double dx1 = p3->GetX() - p2->GetX(), dy1 = p3->GetY() - p2->GetY();
    double dx2 = 0.0, dy2 = 0.0;
    if (point->GetType() == 4) {
        CSectPoint* p4 = nullptr;
        CSectPoint* p5 = nullptr;
        if (!ResolveRef(pl(g(6)), g(7), start, road, p4)) return 0;
        if (!ResolveRef(pl(g(8)), g(9), start, road, p5)) return 0;
        dx2 = p5->GetX() - p4->GetX();
        dy2 = p5->GetY() - p4->GetY();
    } else {
        // Rotated axes: the second line stands square on the first at P2.
        const double phi = NormalizeAngle(std::atan2(dy1, dx1));
        dx2 = kHelpLength * std::cos(phi + kPi / 2.0);
        dy2 = kHelpLength * std::sin(phi + kPi / 2.0);
    }
    const double l1 = std::hypot(dx1, dy1), l2 = std::hypot(dx2, dy2);
    if (l1 <= kTol || l2 <= kTol) return 0;
    // dX is measured square to line 2, to its right; dY square to line 1, to its left. The point
    // lies where the parallels to the two lines at those distances from P1 cross.
    const double n2x = dy2 / l2, n2y = -dx2 / l2;
    const double n1x = -dy1 / l1, n1y = dx1 / l1;
    const CSectPoint a1(p1->GetX() + dX * n2x, p1->GetY() + dX * n2y);
    const CSectPoint b1(a1.GetX() + dx2, a1.GetY() + dy2);
    const CSectPoint a2(p1->GetX() + dY * n1x, p1->GetY() + dY * n1y);
    const CSectPoint b2(a2.GetX() + dx1, a2.GetY() + dy1);
    double x = 0.0, y = 0.0;
    if (!CalculateIntersectPoint(a1, b1, a2, b2, x, y)) return 0;
    point->SetX(x);
    point->SetY(y);
    return 1;
}

int CKeySection::ResolveList(PointList& list, const CRoadProfile* road) {
    for (const auto& p : list)
        if (!Resolve(p.get(), nullptr, road)) return 0;
    CPolyLine::CalcRadPtCoord(list);
    return 1;
}

int CKeySection::CalcSectPointCoord(const SectionEnv* env) {
    const CRoadProfile* road = RoadProfile;
    CRoadProfile own;
    if (!road && env && env->RefLine && FindDepRoadProfile(env->RefLine, &own)) road = &own;

    // The outer points are cleared with the polylines too, so that a polyline point that refers
    // to one never reads coordinates of an earlier state of the section.
    for (CPolyLine* line : PolyLineList)
        for (const auto& p : line->GetSectPointList()) p->SetCalculatedFlag(0);
    for (const auto& p : SectPointList) p->SetCalculatedFlag(0);
    for (CPolyLine* line : PolyLineList) {
        for (std::size_t i = 0; i < line->GetSectPointCount(); ++i)
            if (!Resolve(line->GetSectPointAt(i), nullptr, road)) return 0;
        line->CalcRadPtCoord();
    }
    for (const auto& p : SectPointList) p->SetCalculatedFlag(0);
    return ResolveList(SectPointList.GetItems(), road);
}

int CKeySection::FindDepRoadProfile(const CRefLine* line, CRoadProfile* out) const {
    if (!line || !out) return 0;
    return line->GetRoadProfileAt(StationNo, out);
}

// ---------------------------------------------------------------------------------------------
// Bows

void CKeySection::ConvertBows(int, PointList* out) const {
    if (!out) return;
    out->clear();
    const PointList& in = SectPointList.GetItems();
    const std::size_t n = in.size();
    std::size_t i = 0;
    while (i < n && in[i]->IsRadius()) ++i;
    if (i == n) return;
    out->push_back(std::make_unique<CSectPoint>(*in[i]));
    ++i;
    while (i < n) {
        const CSectPoint& pt = *in[i];
        if (!pt.IsRadius()) {
            out->push_back(std::make_unique<CSectPoint>(pt));
            ++i;
            continue;
        }
        if (i + 1 == n) break;
        if (in[i + 1]->IsRadius()) {
            while (i < n && in[i]->IsRadius()) ++i;
            continue;
        }
        CPolyLine::AppendBowPoints(*in[i - 1], pt, *in[i + 1], *out, 1);
        out->push_back(std::make_unique<CSectPoint>(*in[i + 1]));
        i += 2;
    }
}

void CKeySection::MakeConvSectPointList() {
    ConvertBows(0, &ConvSectPointList.GetItems());
    for (CPolyLine* line : PolyLineList) line->MakeConvSectPointList();
}

int CKeySection::CalcBulgeValues() {
    CPolyLine::CalcBulgeValues(SectPointList.GetItems(), false);
    for (CPolyLine* line : PolyLineList) line->CalcBulgeValues();
    return 1;
}

int CKeySection::OuterIndexOf(const CSectPoint* point) const {
    if (!point) return -1;
    const int pos = SectPointList.IndexOf(point);
    if (pos >= 0) return pos;
    return SectPointList.IndexOf(SectPointList.Find(point->GetNo()));
}

int CKeySection::CalculateBow(const CSectPoint* point, double& r, double& cx, double& cy,
                              double& x1, double& y1, double& x2, double& y2) const {
    const int pos = OuterIndexOf(point);
    if (pos <= 0 || static_cast<std::size_t>(pos) + 1 >= SectPointList.GetCount()) return 0;
    const CSectPoint& p = *SectPointList.At(static_cast<std::size_t>(pos) - 1);
    const CSectPoint& q = *SectPointList.At(static_cast<std::size_t>(pos) + 1);
    const double radius = SectPointList.At(static_cast<std::size_t>(pos))->GetR();
    double sweep = 0.0;
    r = radius;
    CPolyLine::BowCentre(p, radius, q, cx, cy, sweep);
    const CSectPoint& first = radius >= 0.0 ? p : q;
    const CSectPoint& last = radius >= 0.0 ? q : p;
    x1 = first.GetX();
    y1 = first.GetY();
    x2 = last.GetX();
    y2 = last.GetY();
    return 0;
}

CSectPoint* CKeySection::GetRadiusPointBetween(double no1, double no2, int& reversed) const {
    const int pos = SectPointList.IndexOf(SectPointList.Find(no1));
    const std::size_t n = SectPointList.GetCount();
    if (pos < 0 || n < 3) return nullptr;
    const std::size_t i = static_cast<std::size_t>(pos);
    auto is = [no2](const CSectPoint* p) { return std::fabs(p->GetNo() - no2) < kTol; };
    CSectPoint* next = SectPointList.At((i + 1) % n);
    if (next->IsRadius() && is(SectPointList.At((i + 2) % n))) {
        reversed = 0;
        return next;
    }
    CSectPoint* prev = SectPointList.At((i + n - 1) % n);
    if (prev->IsRadius() && is(SectPointList.At((i + n - 2) % n))) {
        reversed = 1;
        return prev;
    }
    return nullptr;
}

// ---------------------------------------------------------------------------------------------
// Variation along the line

void CKeySection::CalcParaFactors(const CKeySection* next) {
    if (RefLineNo == 0) return;
    const double dist = next ? next->StationNo - StationNo : 0.0;
    for (CPolyLine* line : PolyLineList) {
        const CPolyLine* other = next ? next->GetPolyLinePtr(line->GetNo()) : nullptr;
        for (std::size_t i = 0; i < line->GetSectPointCount(); ++i) {
            const CSectPoint* np =
                other && i < other->GetSectPointCount() ? other->GetSectPointAt(i) : nullptr;
            line->GetSectPointAt(i)->CalcParaFactors(np, dist);
        }
    }
    for (std::size_t i = 0; i < SectPointList.GetCount(); ++i) {
        const CSectPoint* np = next ? next->SectPointList.At(i) : nullptr;
        SectPointList.At(i)->CalcParaFactors(np, dist);
    }
}

int CKeySection::SetSectPointVar(double no, int type, double a, double b, double c) {
    CSectPoint* p = SectPointList.Find(no);
    if (!p || (type != 1 && type != 2)) return 0;
    p->SetFactors(type, a, b, c);
    return 1;
}

// ---------------------------------------------------------------------------------------------
// Bringing the section up to date

int CKeySection::CalcGlobCoord(const double* origin, const double* xAxis, const double* yAxis,
                               double* upAxis) {
    if (!origin || !xAxis || !yAxis) return 0;
    double up[3];
    Cross(xAxis, yAxis, up);
    const double ly = Norm(yAxis), lu = Norm(up);
    if (ly <= 0.0 || lu <= 0.0) return 0;
    const double across[3] = {yAxis[0] / ly, yAxis[1] / ly, yAxis[2] / ly};
    for (double& v : up) v /= lu;
    if (upAxis) std::copy(up, up + 3, upAxis);

    // Where the line meets the section, in section coordinates (m).
    double toCoG[2] = {0.0, 0.0};
    double lx = 0.0, ly0 = 0.0;
    if (CalcDistRefLineToCoG(toCoG)) {
        lx = CoGX - toCoG[0];
        ly0 = CoGY - toCoG[1];
    }
    const double scale = PointScale();
    auto place = [&](CSectPoint& p) {
        const double u = p.GetX() * scale - lx, v = p.GetY() * scale - ly0;
        p.SetGlobal(origin[0] + u * across[0] + v * up[0], origin[1] + u * across[1] + v * up[1],
                    origin[2] + u * across[2] + v * up[2]);
    };
    for (const auto& p : SectPointList) place(*p);
    for (const auto& p : ConvSectPointList) place(*p);
    for (CPolyLine* line : PolyLineList) {
        for (const auto& p : line->GetSectPointList()) place(*p);
        for (const auto& p : line->GetConvSectPointList()) place(*p);
    }
    return 1;
}

void CKeySection::MakeSolidAreaElem(int withMaterial) {
    auto elem = std::make_unique<CAreaElem>(0, 1, 0, withMaterial ? MatParNo : 0,
                                            withMaterial ? DesParNo : 0);
    for (const auto& p : SectPointList)
        if (!p->IsRadius()) elem->AddSectPoint(std::make_unique<CSectPoint>(*p));
    AreaElemList.Add(std::move(elem));
}

int CKeySection::UpdateSectionElem() {
    int ok = 1;
    for (CAreaElem* elem : AreaElemList)
        if (!elem->Update(this)) ok = 0;
    for (CLineElem* elem : LineElemList)
        if (!elem->Update(this)) ok = 0;
    return ok;
}

int CKeySection::PlaceOnLine(const SectionEnv& env) {
    if (!env.RefLine || env.RefLine->GetNo() <= 0) return 1;
    double origin[3], xAxis[3], yAxis[3];
    if (!env.RefLine->CalcCoordAndDirByStation(StationNo, origin, xAxis, yAxis, env.Lines,
                                               env.Sink))
        return 0;
    return CalcGlobCoord(origin, xAxis, yAxis, nullptr);
}

int CKeySection::UpdateKeySection(int mode, const SectionEnv* env) {
    if (!CalcSectPoints()) return 0;
    if (mode == 3) return 1;
    if (!CalcSectPointCoord(env)) return 0;
    CalcBulgeValues();
    MakeConvSectPointList();
    if (Type == 11 || Type == 12 || Type == 13)
        MakeSolidAreaElem(1);
    else if (Type >= 2 && Type <= 5)
        MakeSolidAreaElem(0);
    if (!UpdateSectionElem()) return 0;
    // The properties come before the placing in space: the line meets the section at its centre
    // of gravity unless it is connected otherwise.
    CalcSectionProp(0, env);
    return env ? PlaceOnLine(*env) : 1;
}

// Reinforcement, tendon groups and the design areas (sub, shear and torsion areas) are not held by
// a section here, so their flags have nothing to update.
int CKeySection::Update(int geometry, int, int, int, const SectionEnv* env) {
    if (!env || !env->RefLine) return 0;
    if (!geometry) return 1;
    if (!CalcSectPoints() || !CalcSectPointCoord(env)) return 0;
    MakeConvSectPointList();
    if (!UpdateSectionElem()) return 0;
    CalcSectionProp(0, env);
    return PlaceOnLine(*env);
}

// ---------------------------------------------------------------------------------------------
// Finders

int CKeySection::DeleteSectPoint(double no) {
    const int pos = SectPointList.IndexOf(SectPointList.Find(no));
    if (pos < 0) return 0;
    SectPointList.RemoveAt(static_cast<std::size_t>(pos));
    return 1;
}

int CKeySection::GetFirstFreeSectPointNo() const {
    for (int i = 1;; ++i)
        if (!SectPointList.Find(i)) return i;
}

CSectPoint* CKeySection::GetNextNonRadiusSectPoint(const CSectPoint* point) const {
    const int pos = OuterIndexOf(point);
    const std::size_t n = SectPointList.GetCount();
    if (pos < 0) return nullptr;
    for (std::size_t k = 1; k < n; ++k) {
        CSectPoint* q = SectPointList.At((static_cast<std::size_t>(pos) + k) % n);
        if (!q->IsRadius()) return q;
    }
    return nullptr;
}

CSectPoint* CKeySection::GetNextNonOverlappingSectPoint(const CSectPoint* point) const {
    const int pos = OuterIndexOf(point);
    const std::size_t n = SectPointList.GetCount();
    if (pos < 0) return nullptr;
    const CSectPoint& p = *SectPointList.At(static_cast<std::size_t>(pos));
    for (std::size_t k = 1; k < n; ++k) {
        CSectPoint* q = SectPointList.At((static_cast<std::size_t>(pos) + k) % n);
        if (!Coincide(p, *q)) return q;
    }
    return nullptr;
}

CSectPoint* CKeySection::GetNextSurfaceSectPoint(const CSectPoint* point) const {
    const int pos = OuterIndexOf(point);
    const std::size_t n = SectPointList.GetCount();
    if (pos < 0) return nullptr;
    const CSectPoint& p = *SectPointList.At(static_cast<std::size_t>(pos));
    for (std::size_t k = 1; k < n; ++k) {
        CSectPoint* q = SectPointList.At((static_cast<std::size_t>(pos) + k) % n);
        if (!q->IsRadius() && !Coincide(p, *q)) return q;
    }
    return nullptr;
}

CSectPoint* CKeySection::GetPrevSurfaceSectPoint(const CSectPoint* point) const {
    const int pos = OuterIndexOf(point);
    const std::size_t n = SectPointList.GetCount();
    if (pos < 0) return nullptr;
    const CSectPoint& p = *SectPointList.At(static_cast<std::size_t>(pos));
    for (std::size_t k = 1; k < n; ++k) {
        CSectPoint* q = SectPointList.At((static_cast<std::size_t>(pos) + n - k) % n);
        if (!q->IsRadius() && !Coincide(p, *q)) return q;
    }
    return nullptr;
}

int CKeySection::CheckPoint(const CSectPoint* point, int n) const {
    if (!point || point->IsRadius()) return 0;
    int count = 0;
    for (const auto& q : SectPointList)
        if (!q->IsRadius() && Coincide(*point, *q)) ++count;
    // The point itself, or the outer point it was copied from, is one of them.
    return count - 1 >= n ? 1 : 0;
}

int CKeySection::NumberOfPoints(const CSectPoint* point) const {
    const CSectPoint* first = SectPointList.At(0);
    return point && first && Coincide(*point, *first) ? 2 : 1;
}

// ---------------------------------------------------------------------------------------------
// Properties

int CKeySection::CalcSectionProp(int mode, const SectionEnv* env) {
    SectionArea = MomInertL = MomInertN = MomInertM = 0.0;
    std::array<double, 8> p{};
    const double unit = Type >= 11 && Type <= 14 ? 0.001 : 1.0;
    for (std::size_t i = 0; i < p.size(); ++i) p[i] = SpecParam[i] * unit;

    // The closed forms hold about the middle of the outline, which is the centre of gravity.
    auto centred = [this]() {
        CoGX = CoGY = 0.0;
        MomInertLN = 0.0;
    };
    int result = 1;
    switch (Type) {
    case 1:
        SectionArea = p[0];
        MomInertL = p[1];
        MomInertM = p[2];
        MomInertN = p[3];
        EffectivThicness = -1.0;
        centred();
        break;
    case 2: {
        const double d = p[0], di = p[1];
        SectionArea = kPi / 4.0 * (d * d - di * di);
        MomInertL = MomInertN = kPi / 64.0 * (std::pow(d, 4) - std::pow(di, 4));
        MomInertM = 2.0 * MomInertL;
        // Half of the inner perimeter is counted, as for a void that dries from one end.
        EffectivThicness = 2.0 * SectionArea / (kPi * d + kPi / 2.0 * di);
        centred();
        break;
    }
    case 3: {
        const double b = p[0], h = p[1];
        SectionArea = b * h;
        MomInertL = b * h * h * h / 12.0;
        MomInertN = b * b * b * h / 12.0;
        MomInertM = RectTorsion(std::min(b, h), std::max(b, h));
        EffectivThicness = 2.0 * SectionArea / (2.0 * (b + h));
        centred();
        break;
    }
    case 4: {
        const double b = p[0], h = p[1], w = p[2], f = p[3];
        const double bi = b - 2.0 * w, hi = h - 2.0 * f;
        SectionArea = b * h - bi * hi;
        MomInertL = (b * h * h * h - bi * hi * hi * hi) / 12.0;
        MomInertN = (b * b * b * h - bi * bi * bi * hi) / 12.0;
        // Bredt: 4·Am²/Σ(l/t) over the centre line of the walls.
        const double am = (b - w) * (h - f);
        const double lt = (b - w) / f + (h - f) / w;
        MomInertM = lt > 0.0 ? 2.0 * am * am / lt : 0.0;
        EffectivThicness = 2.0 * SectionArea / (2.0 * (b + h) + (bi + hi));
        centred();
        break;
    }
    case 5: {
        const double h = p[0], f = p[1], w = p[2], t = p[3];
        const double aw = (h - f) * w, af = t * f;
        SectionArea = aw + af;
        // Web and flange about their own centres, and apart by h/2.
        MomInertL = std::pow(h - f, 3) * w / 12.0 + f * f * f * t / 12.0 +
                    (SectionArea > 0.0 ? (h / 2) * (h / 2) * aw * af / SectionArea : 0.0);
        MomInertM = 0.33 * w * w * w * h + 0.33 * f * f * f * t;
        MomInertN = (aw * w * w + af * t * t) / 12.0;
        EffectivThicness = 2.0 * SectionArea / (2.0 * (t + h));
        centred();
        break;
    }
    case 20:
    case 21:
        SectionArea = 0.0;
        MomInertL = p[0];
        MomInertM = p[1];
        MomInertN = p[2];
        EffectivThicness = -1.0;
        centred();
        break;
    case 12: {
        const double r = p[0], ri = p[1] > 0.0 ? r - p[1] : 0.0;
        SectionArea = kPi * r * r - kPi * ri * ri;
        MomInertL = MomInertN = kPi * std::pow(r, 4) / 4.0 - kPi * std::pow(ri, 4) / 4.0;
        MomInertM = 2.0 * MomInertL;
        EffectivThicness = 2.0 * SectionArea / (2.0 * kPi * r + kPi * ri);
        centred();
        break;
    }
    case 11:
    case 13:
    case 14:
        result = LineElemList.IsEmpty() ? CalcSectionPropBySectPoint(mode)
                                        : CalcSectionPropByElem(mode, env);
        break;
    case 100:
        CalcSectionPropByElem(mode, env);
        CalcOuterSectionArea();
        return 1;
    default:
        // 2500 to 2999 carry no properties of their own. The thin-walled steel sections (1000 to
        // 1005) and the library profiles (10000 and up) take theirs from their generators and
        // the profile table, which a section does not hold here.
        if (Type >= 2500 && Type <= 2999) return 1;
        return 0;
    }
    CalcOuterSectionArea();
    return result;
}

int CKeySection::CalcSectionPropBySectPoint(int mode) {
    // A design rectangle: width, height and the walls left, right, bottom, top (mm).
    const double width = SpecParam[0] / 1000.0, height = SpecParam[1] / 1000.0;
    const double t1 = SpecParam[2] / 1000.0, t2 = SpecParam[3] / 1000.0;
    const double t3 = SpecParam[4] / 1000.0, t4 = SpecParam[5] / 1000.0;
    if (mode == 3) return 1;
    if (ConvSectPointList.GetCount() <= 2) return 0;

    const OutlineIntegrals in = OutlineIntegrals::Of(ConvSectPointList.GetItems(), false);
    SectionArea = in.A;
    CoGX = in.Cx;
    CoGY = in.Cy;
    if (mode == 4) return 1;
    MomInertL = in.Ixx;
    MomInertN = in.Iyy;
    MomInertLN = std::fabs(in.Ixy) <= kProductNoise ? 0.0 : in.Ixy;

    if (mode == 0 || mode == 1) {
        if (Type == 11) {
            if (t1 > kTol && t2 > kTol && t3 > kTol && t4 > kTol) {
                // Bredt over the centre line of the walls.
                const double a = height - (t3 + t4) / 2.0, b = width - (t1 + t2) / 2.0;
                MomInertM = 4.0 * (a * b) * (a * b) / (a / t1 + a / t2 + b / t3 + b / t4);
            } else {
                MomInertM = RectTorsion(std::min(width, height), std::max(width, height));
            }
        } else if (Type == 12) {
            MomInertM = 2.0 * MomInertL;
        } else if (Type == 13 || Type == 14) {
            // A general outline without a torsion area: its polar moment.
            MomInertM = MomInertL + MomInertN;
        }
    }
    const double u = CalcU();
    EffectivThicness = u > 0.0 ? 2.0 * SectionArea / u : -1.0;
    CalcOuterSectionArea();
    return 1;
}

int CKeySection::CalcSectionPropByElem(int mode, const SectionEnv* env) {
    if (!env || !env->YoungsModulus) return 0;
    SectionArea = CoGX = CoGY = 0.0;
    MomInertL = MomInertN = MomInertLN = 0.0;

    struct Part {
        double a, cx, cy, ix, iy, ixy;
    };
    std::vector<Part> parts;
    double sumEA = 0.0, sumEAx = 0.0, sumEAy = 0.0, sumA = 0.0;
    auto add = [&](const Part& part, int matParNo, int desParNo) {
        const double e = env->YoungsModulus(MatType, matParNo, desParNo);
        sumEA += e * part.a;
        sumEAx += e * part.a * part.cx;
        sumEAy += e * part.a * part.cy;
        sumA += part.a;
        parts.push_back(part);
    };
    for (const CAreaElem* el : AreaElemList)
        add({el->GetA(), el->GetCx(), el->GetCy(), el->GetIx(), el->GetIy(), el->GetIxy()},
            el->GetMatParNo(), el->GetDesParNo());
    for (const CLineElem* el : LineElemList)
        add({el->GetA(), el->GetCx(), el->GetCy(), el->GetIx(), el->GetIy(), el->GetIxy()},
            el->GetMatParNo(), el->GetDesParNo());
    SectionArea = sumA;
    // The centre is that of the stiffness, so that an axial force through it bends nothing.
    if (sumEA > 0.0) {
        CoGX = sumEAx / sumEA;
        CoGY = sumEAy / sumEA;
    }
    if (mode == 4) return 1;
    for (const Part& part : parts) {
        const double dx = part.cx - CoGX, dy = part.cy - CoGY;
        MomInertL += part.a * dy * dy + part.ix;
        MomInertN += part.a * dx * dx + part.iy;
        MomInertLN += part.a * dx * dy + part.ixy;
    }
    if (std::fabs(MomInertLN) <= kProductNoise) MomInertLN = 0.0;

    // Torsion: open panels by t³·l/3, one closed cell by Bredt, 4Ω²/Σ(l/t). Panel k runs between
    // the points 2k + 1 and 2k + 2 of polyline 1; Ω adds up the triangles the closed panels make
    // with the origin, which therefore lies inside the cell.
    double j = 0.0, omega = 0.0, sumLt = 0.0;
    int k = 0;
    for (const CLineElem* el : LineElemList) {
        const CSectPoint* p1 = GetSectPointPtr(1, 2.0 * k + 1.0);
        const CSectPoint* p2 = GetSectPointPtr(1, 2.0 * k + 2.0);
        ++k;
        const double t = el->GetThickness();
        if (!p1 || !p2 || t <= 0.0) continue;
        const double l = std::hypot(p2->GetX() - p1->GetX(), p2->GetY() - p1->GetY());
        if (el->GetClosed()) {
            omega += std::fabs(p1->GetX() * p2->GetY() - p2->GetX() * p1->GetY()) * 0.5;
            sumLt += l / t;
        } else {
            j += t * t * t * l / 3.0;
        }
    }
    if (sumLt > 0.0) j += 4.0 * omega * omega / sumLt;
    MomInertM = j;
    return 1;
}

void CKeySection::CalcOuterSectionArea() {
    switch (Type) {
    case 1:
        OuterSectionArea = SpecParam[0];
        break;
    case 2:
        OuterSectionArea = kPi * SpecParam[0] * SpecParam[0] / 4.0;
        break;
    case 3:
    case 4:
    case 5:
        OuterSectionArea = SpecParam[0] * SpecParam[1];
        break;
    case 20:
    case 21:
        OuterSectionArea = 0.0;
        break;
    default:
        OuterSectionArea = SectionArea;
        break;
    }
}

int CKeySection::CalcDistRefLineToCoG(double* const out) const {
    if (!out) return 0;
    auto fromPoint = [&](double dx, double dy) {
        const CSectPoint* p = SectPointList.Find(ConnectSectPointNo);
        if (!p) return 0;
        const double s = PointScale();
        out[0] = -(p->GetX() * s - CoGX) + dx;
        out[1] = -(p->GetY() * s - CoGY) + dy;
        return 1;
    };
    switch (ConnectType) {
    case 0:
        out[0] = CoGX + DeltaX;
        out[1] = CoGY + DeltaY;
        return 1;
    case 1:
        out[0] = -0.0;
        out[1] = -0.0;
        return 1;
    case 2:
        out[0] = DeltaX;
        out[1] = DeltaY;
        return 1;
    case 3:
        return fromPoint(0.0, 0.0);
    case 4:
        return fromPoint(DeltaX, DeltaY);
    default:
        return 0;
    }
}

double CKeySection::CalcU() const {
    if (Type != 11 && Type != 12 && Type != 13) return -1.0;
    const PointList& list = ConvSectPointList.GetItems();
    const std::size_t n = list.size();
    if (n == 0) return 0.0;
    // The outline runs round the outer edge, over a seam to a void and round it: a point where
    // the ring closes ends the ring, the seam is not counted, and a void dries over half its
    // perimeter.
    double u = 0.0, weight = 1.0;
    std::size_t i = 0;
    while (i + 1 < n) {
        const CSectPoint& a = *list[i];
        const CSectPoint& b = *list[i + 1];
        u += weight * std::hypot(b.GetX() - a.GetX(), b.GetY() - a.GetY());
        ++i;
        if (i + 1 < n && CheckPoint(list[i].get(), NumberOfPoints(list[i].get()))) {
            ++i;
            weight = weight == 1.0 ? 0.5 : 1.0;
        }
    }
    return u;
}

double CKeySection::GetEfficientThickness(int which) const {
    const double* p = SpecParam.data();
    if (Type == 11) {
        if (SectPointList.GetCount() < 6) {
            switch (which) {
            case 0:
                return std::min(p[0], p[1]);
            case 1:
            case 2:
                return p[1];
            case 3:
            case 4:
                return p[0];
            default:
                return -1.0;
            }
        }
        switch (which) {
        case 0:
            return *std::min_element(p, p + 6);
        case 1:
            return p[4];
        case 2:
            return p[5];
        case 3:
            return p[2];
        case 4:
            return p[3];
        default:
            return -1.0;
        }
    }
    if (Type == 12) {
        if (p[1] > 0.0) return p[1];
        if (p[1] == 0.0) return 2.0 * p[0];
        return -1.0;
    }
    return 0.0;
}

double CKeySection::GetCreepFactor(const CConcrMatPar* concrete, int concrCode, double t, double t0,
                                   double h0, double fck, double rh) const {
    if (!concrete) return 0.0;
    if (h0 <= kTol) h0 = EffectivThicness * 1000.0;
    if (rh <= kTol) rh = GetRH();
    const double dt = t - t0;
    auto ageFactor = [dt](double betaH) {
        return dt > 0.0 ? std::pow(dt / (betaH + dt), 0.3) : 0.0;
    };

    if (concrCode == 105) {
        const double fcm = concrete->GetFcm() / 1000.0;
        if (fcm <= 0.0 || h0 <= 0.0) return -99.0;
        const double a1 = std::pow(35.0 / fcm, 0.7), a2 = std::pow(35.0 / fcm, 0.2),
                     a3 = std::pow(35.0 / fcm, 0.5);
        // Cement classes 1, 2, 3 are the slow, normal and rapid cements S, N, R.
        const int alpha = std::clamp(concrete->GetCementClass() - 2, -1, 1);
        const double t0adj =
            std::max(t0 * std::pow(9.0 / (2.0 + std::pow(t0, 1.2)) + 1.0, alpha), 0.5);
        const double dry = (1.0 - rh / 100.0) / (0.1 * std::cbrt(h0));
        const double phiRH = fcm <= 35.0 ? 1.0 + dry : (1.0 + dry * a1) * a2;
        const double betaFcm = 16.8 / std::sqrt(fcm);
        const double betaT0 = 1.0 / (0.1 + std::pow(t0adj, 0.2));
        const double wet = 1.5 * (1.0 + std::pow(0.012 * rh, 18.0)) * h0;
        const double betaH =
            fcm <= 35.0 ? std::min(wet + 250.0, 1500.0) : std::min(wet + 250.0 * a3, 1500.0 * a3);
        return phiRH * betaFcm * betaT0 * ageFactor(betaH);
    }
    if (concrCode >= 101 && concrCode <= 104) {
        if (fck <= kTol) {
            fck = Fcck / 1000.0;
            if (fck <= 0.0) fck = concrete->GetFcck() / 1000.0;
        }
        if (h0 <= 0.0 || fck <= 0.0) return -99.0;
        const double phiRH = 1.0 + (1.0 - rh / 100.0) / (0.08 * std::pow(h0, 0.3333));
        const double betaFc = 8.3 / (std::sqrt(fck) + 3.0);
        const double betaT0 = 2.4 / (0.1 + std::pow(t0, 0.18));
        const double betaH =
            std::min(1.5 * (1.0 + 0.00012 * std::pow(rh / 50.0, 18.0)) * h0 + 250.0, 1500.0);
        return phiRH * betaFc * betaT0 * ageFactor(betaH);
    }
    return -99.0;
}

double CKeySection::GetCreepFactor(CStructure* structure, double t, double t0, double h0,
                                   double fck, double rh) const {
    if (!structure) return 0.0;
    const CConcrMatPar* concrete = structure->GetConcrMatParPtr(MatParNo > 0 ? MatParNo : 1);
    if (!concrete) return 0.0;
    return GetCreepFactor(concrete, structure->GetConcrCode(), t, t0, h0, fck, rh);
}

// ---------------------------------------------------------------------------------------------
// Tendon groups and tendons

CObList<CPrestGroup>* CKeySection::GetPrestGroupList() {
    for (CPrestGroup* g : PrestGroupList) g->SetKeySectionPtr(this);
    return &PrestGroupList;
}

CPrestGroup* CKeySection::AddPrestGroup(std::unique_ptr<CPrestGroup> group) {
    if (!group) return nullptr;
    group->SetKeySectionPtr(this);
    group->SetWorkSectionPtr(nullptr);
    return PrestGroupList.Add(std::move(group));
}

int CKeySection::TendonCoordByFaceOffset(int relativeType, double oL, double oN, double& l,
                                         double& n, double relPointNo) const {
    const double scale = PointScale();
    if (relativeType == 5) {
        const CSectPoint* p = SectPointList.Find(relPointNo);
        if (!p) return 0;
        l = p->GetX() * scale + oL - CoGX;
        n = p->GetY() * scale + oN - CoGY;
        return 1;
    }
    if (relativeType != 2 && relativeType != 3) {
        l = oL;
        n = oN;
        return 1;
    }
    const int mark = relativeType == 2 ? 1 : 2;
    const double x = CoGX + oL;
    // Points within this of x (m) are hit exactly.
    constexpr double kHit = 1e-5;
    const CSectPoint* prev = nullptr;
    for (const auto& item : SectPointList) {
        const CSectPoint* p = item.get();
        if (p->IsRadius() || p->GetFaceConnection() != mark) continue;
        const double px = p->GetX() * scale, py = p->GetY() * scale;
        double face = 0.0;
        bool found = false;
        if (std::fabs(px - x) <= kHit) {
            face = py;
            found = true;
        } else if (prev) {
            const double qx = prev->GetX() * scale, qy = prev->GetY() * scale;
            if ((qx - x) * (px - x) < 0.0) {
                face = qy + (py - qy) * (x - qx) / (px - qx);
                found = true;
            }
        }
        if (found) {
            l = oL;
            n = face + oN - CoGY;
            return 1;
        }
        prev = p;
    }
    return 0;
}

} // namespace kelo
