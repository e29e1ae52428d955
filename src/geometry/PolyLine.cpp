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

using PointList = std::vector<std::unique_ptr<CSectPoint>>;

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

void CPolyLine::AddBow(const CSectPoint& p, const CSectPoint& radius, const CSectPoint& q) {
    const double dx = q.GetX() - p.GetX(), dy = q.GetY() - p.GetY();
    const double d = std::hypot(dx, dy);
    const double r = radius.GetR();
    if (d <= 0.0 || r == 0.0) return;
    const double psi = std::atan2(dy, dx);
    // Base angle of the isosceles triangle P, Q, centre; the bow sweeps π - 2γ about the centre,
    // the sign of the radius choosing the side.
    const double gamma = std::acos(std::clamp(d / (2.0 * r), -1.0, 1.0));
    const double sweep = (std::numbers::pi - (gamma + std::numbers::pi / 2.0)) * 2.0;
    const double cx = p.GetX() + r * std::cos(psi + gamma);
    const double cy = p.GetY() + r * std::sin(psi + gamma);
    const double step = sweep / kBowChords;
    const double sigma = std::atan2(p.GetY() - cy, p.GetX() - cx);
    for (int i = 1; i < kBowChords; ++i) {
        auto pt = std::make_unique<CSectPoint>(radius.GetNo(), 0,
                                               cx + std::fabs(r) * std::cos(sigma + i * step),
                                               cy + std::fabs(r) * std::sin(sigma + i * step));
        pt->SetTemporaryFlag(1);
        ConvSectPointList.push_back(std::move(pt));
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
        AddBow(*seq[i - 1], *pt, *q);
        if (!last) ConvSectPointList.push_back(std::make_unique<CSectPoint>(*q));
        i += 2;
    }
}

} // namespace kelo
