#include "geometry/PolyLine.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kelo {

namespace {
// Point numbers are reals written with a few decimals; within this they are the same number.
constexpr double kSameNumber = 1e-5;
// A bow is drawn with this many chords.
constexpr int kBowChords = 18;

using PointList = CPolyLine::PointList;

void CopyList(const PointList& from, PointList& to) {
    to.clear();
    to.reserve(from.size());
    for (const auto& p : from) to.push_back(std::make_unique<CSectPoint>(*p));
}

CSectPoint* InsertByNumber(PointList& list, std::unique_ptr<CSectPoint> point) {
    if (!point) return nullptr;
    const double no = point->GetNo();
    auto it = std::find_if(list.begin(), list.end(),
                           [no](const std::unique_ptr<CSectPoint>& p) { return p->GetNo() > no; });
    return list.insert(it, std::move(point))->get();
}
} // namespace

CPolyLine::CPolyLine(const CPolyLine& other)
    : CObject(other), No(other.No), Type(other.Type), Closed(other.Closed), Color(other.Color) {
    CopyList(other.SectPointList, SectPointList);
    CopyList(other.ConvSectPointList, ConvSectPointList);
}

CPolyLine& CPolyLine::operator=(const CPolyLine& other) {
    if (this == &other) return *this;
    No = other.No;
    Type = other.Type;
    Closed = other.Closed;
    Color = other.Color;
    CopyList(other.SectPointList, SectPointList);
    CopyList(other.ConvSectPointList, ConvSectPointList);
    return *this;
}

CSectPoint* CPolyLine::AddSectPoint(std::unique_ptr<CSectPoint> point) {
    if (!point) return nullptr;
    SectPointList.push_back(std::move(point));
    return SectPointList.back().get();
}

CSectPoint* CPolyLine::AddSectPointHead(std::unique_ptr<CSectPoint> point) {
    if (!point) return nullptr;
    return SectPointList.insert(SectPointList.begin(), std::move(point))->get();
}

CSectPoint* CPolyLine::InsertSectPoint(std::unique_ptr<CSectPoint> point) {
    return InsertByNumber(SectPointList, std::move(point));
}

CSectPoint* CPolyLine::InsertConvSectPoint(std::unique_ptr<CSectPoint> point) {
    return InsertByNumber(ConvSectPointList, std::move(point));
}

CSectPoint* CPolyLine::GetSectPointPtr(double no) const {
    for (const auto& p : SectPointList)
        if (std::fabs(p->GetNo() - no) < kSameNumber) return p.get();
    return nullptr;
}

void CPolyLine::RemoveAll() {
    SectPointList.clear();
    ConvSectPointList.clear();
}

void CPolyLine::RemoveSectPointAt(std::size_t pos) {
    if (pos < SectPointList.size())
        SectPointList.erase(SectPointList.begin() + static_cast<std::ptrdiff_t>(pos));
}

int CPolyLine::BowCentre(const CSectPoint& p, double r, const CSectPoint& q, double& cx, double& cy,
                         double& sweep) {
    const double dx = q.GetX() - p.GetX(), dy = q.GetY() - p.GetY();
    const double d = std::hypot(dx, dy);
    if (d <= 0.0 || r == 0.0) return 0;
    const double psi = std::atan2(dy, dx);
    // Base angle of the isosceles triangle P, Q, centre; the bow sweeps π - 2γ about the centre,
    // the sign of the radius choosing the side.
    const double gamma = std::acos(std::clamp(d / (2.0 * r), -1.0, 1.0));
    sweep = (std::numbers::pi - (gamma + std::numbers::pi / 2.0)) * 2.0;
    cx = p.GetX() + r * std::cos(psi + gamma);
    cy = p.GetY() + r * std::sin(psi + gamma);
    return 1;
}

void CPolyLine::AppendBowPoints(const CSectPoint& p, const CSectPoint& radius, const CSectPoint& q,
                                PointList& out, int temporaryFlag) {
    const double r = radius.GetR();
    double cx = 0.0, cy = 0.0, sweep = 0.0;
    if (!BowCentre(p, r, q, cx, cy, sweep)) return;
    const double step = sweep / kBowChords;
    const double sigma = std::atan2(p.GetY() - cy, p.GetX() - cx);
    for (int i = 1; i < kBowChords; ++i) {
        auto pt = std::make_unique<CSectPoint>(radius.GetNo(), 0,
                                               cx + std::fabs(r) * std::cos(sigma + i * step),
                                               cy + std::fabs(r) * std::sin(sigma + i * step));
        pt->SetPLine(radius.GetPLine());
        pt->SetTemporaryFlag(temporaryFlag);
        out.push_back(std::move(pt));
    }
}

void CPolyLine::CalcRadPtCoord(PointList& list) {
    const std::size_t n = list.size();
    if (n < 3) return;
    for (std::size_t i = 0; i < n; ++i) {
        CSectPoint& rp = *list[i];
        if (!rp.IsRadius() || rp.GetR() == 0.0) continue;
        const CSectPoint& p = *list[(i + n - 1) % n];
        const CSectPoint& q = *list[(i + 1) % n];
        const double dx = q.GetX() - p.GetX(), dy = q.GetY() - p.GetY();
        const double c = std::hypot(dx, dy) / 2.0;
        const double theta = std::atan2(dy, dx);
        // Half the sweep, turned to the side the radius bulges to; the middle of the arc lies at
        // a quarter of the sweep off the chord, at the distance 2R·sin(sweep/4) from P.
        const double beta = -std::asin(std::clamp(c / rp.GetR(), -1.0, 1.0));
        const double h = c / std::cos(beta / 2.0);
        rp.SetX(p.GetX() + h * std::cos(theta + beta / 2.0));
        rp.SetY(p.GetY() + h * std::sin(theta + beta / 2.0));
    }
}

void CPolyLine::CalcBulgeValues(PointList& list, bool ring) {
    const std::size_t n = list.size();
    for (std::size_t i = 0; i < n; ++i) {
        CSectPoint& p = *list[i];
        p.SetBulge(0.0);
        if (p.IsRadius() || n < 3) continue;
        if (!ring && i + 2 >= n) continue;
        const CSectPoint& r = *list[(i + 1) % n];
        const CSectPoint& q = *list[(i + 2) % n];
        if (!r.IsRadius() || q.IsRadius()) continue;
        double cx = 0.0, cy = 0.0, sweep = 0.0;
        if (BowCentre(p, r.GetR(), q, cx, cy, sweep)) p.SetBulge(std::tan(sweep / 4.0));
    }
}

void CPolyLine::MakeConvSectPointList() {
    ConvSectPointList.clear();
    const std::size_t n = SectPointList.size();
    std::size_t first = 0;
    while (first < n && SectPointList[first]->IsRadius()) ++first;
    if (first == n) return;
    // Walk order: from the first ordinary point; a ring goes on round to the points before it.
    std::vector<const CSectPoint*> seq;
    for (std::size_t i = first; i < n; ++i) seq.push_back(SectPointList[i].get());
    if (Closed)
        for (std::size_t i = 0; i < first; ++i) seq.push_back(SectPointList[i].get());

    ConvSectPointList.push_back(std::make_unique<CSectPoint>(*seq[0]));
    std::size_t i = 1;
    while (i < seq.size()) {
        const CSectPoint* pt = seq[i];
        if (!pt->IsRadius()) {
            ConvSectPointList.push_back(std::make_unique<CSectPoint>(*pt));
            ++i;
            continue;
        }
        const bool last = i + 1 == seq.size();
        const CSectPoint* q = last ? (Closed ? seq[0] : nullptr) : seq[i + 1];
        if (!q) break;
        if (q->IsRadius()) {
            while (i < seq.size() && seq[i]->IsRadius()) ++i;
            continue;
        }
        AppendBowPoints(*seq[i - 1], *pt, *q, ConvSectPointList, 1);
        if (!last) ConvSectPointList.push_back(std::make_unique<CSectPoint>(*q));
        i += 2;
    }
}

} // namespace kelo
