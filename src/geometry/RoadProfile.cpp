#include "geometry/RoadProfile.h"

#include "geometry/RefLine.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace kelo {

namespace {
// Widths, slopes and steps at or below this size count as not given.
constexpr double kSmall = 1e-5;
bool IsSmall(double v) { return std::fabs(v) <= kSmall; }
// Colour of the road surface polyline in drawings.
constexpr int kRoadColor = 9;
} // namespace

CRoadProfile::CRoadProfile() : PolyLine(0, 0, 0) { PolyLine.SetColor(kRoadColor); }

CRoadProfile::CRoadProfile(int no, double station) : No(no), StationNo(station), PolyLine(0, 0, 0) {
    PolyLine.SetColor(kRoadColor);
}

CRoadProfile::CRoadProfile(const CRoadProfile& other) : CObject(other) { *this = other; }

CRoadProfile& CRoadProfile::operator=(const CRoadProfile& other) {
    if (this == &other) return *this;
    No = other.No;
    StationNo = other.StationNo;
    std::copy(other.ProfLeft, other.ProfLeft + kValues, ProfLeft);
    std::copy(other.ProfLeft, other.ProfLeft + kValues, ProfRight);
    PolyLine = other.PolyLine;
    std::copy(other.Origin, other.Origin + 3, Origin);
    for (int r = 0; r < 3; ++r)
        std::copy(other.TransMatrix[r], other.TransMatrix[r] + 3, TransMatrix[r]);
    return *this;
}

void CRoadProfile::SetProfLeft(const double* values) {
    std::copy(values, values + kValues, ProfLeft);
}

void CRoadProfile::SetProfRight(const double* values) {
    std::copy(values, values + kValues, ProfRight);
}

void CRoadProfile::GetProfLeft(double* const values) const {
    std::copy(ProfLeft, ProfLeft + kValues, values);
}

void CRoadProfile::GetProfRight(double* const values) const {
    std::copy(ProfRight, ProfRight + kValues, values);
}

void CRoadProfile::Empty() { PolyLine.RemoveAll(); }

int CRoadProfile::GenerateRoadPoints() {
    PolyLine.RemoveAll();
    PolyLine.AddSectPoint(std::make_unique<CSectPoint>(0.0, 0, 0.0, 0.0));
    // The inner zone of both sides hangs on the right side's first width.
    const bool inner = !IsSmall(ProfRight[0]);
    for (const double side : {1.0, -1.0}) {
        const double* v = side > 0.0 ? ProfRight : ProfLeft;
        double x = 0.0, y = 0.0;
        // Right side points go to the tail, left side points to the head, so that the list runs
        // from the left edge to the right edge.
        auto add = [&](double no, double px, double py) {
            auto pt = std::make_unique<CSectPoint>(side * no, 0, side * px, py);
            if (side > 0.0)
                PolyLine.AddSectPoint(std::move(pt));
            else
                PolyLine.AddSectPointHead(std::move(pt));
        };
        // A width w at slope p moves outwards and down by p·w on the right, up on the left.
        auto stretch = [&](double no, double w, double p) {
            x += w;
            y -= side * p * w;
            add(no, x, y);
        };
        if (inner) {
            x = v[0];
            add(0.1, x, y);
            stretch(0.2, v[1], v[2]);
            stretch(0.3, v[3], v[6]);
        }
        const int lanes = static_cast<int>(v[4]);
        const double x0 = x, y0 = y;
        for (int k = 1; k <= lanes; ++k) {
            x = x0 + k * v[5];
            y = y0 - side * k * v[5] * v[6];
            add(1.0 + 0.1 * k, x, y);
        }
        stretch(2.1, v[7], v[8]);
        const double steps[3] = {2.2, 2.3, 2.4};
        for (int i = 0; i < 3; ++i) {
            const double dx = v[9 + 2 * i], dy = v[10 + 2 * i];
            if (IsSmall(dx) && IsSmall(dy)) continue;
            x += dx;
            y += dy;
            add(steps[i], x, y);
        }
        x += v[15];
        y += v[16];
        add(3.1, x, y);
        if (!IsSmall(v[17])) stretch(3.2, v[17], v[18]);
    }
    PolyLine.MakeConvSectPointList();
    return 1;
}

int CRoadProfile::CalcProfValuesFromRoadPoints(const std::vector<CSectPoint>& points) {
    PolyLine.RemoveAll();
    std::fill(ProfLeft, ProfLeft + kValues, 0.0);
    std::fill(ProfRight, ProfRight + kValues, 0.0);
    for (const CSectPoint& p : points) PolyLine.AddSectPoint(std::make_unique<CSectPoint>(p));

    for (const double side : {1.0, -1.0}) {
        double* v = side > 0.0 ? ProfRight : ProfLeft;
        double rx = 0.0, ry = 0.0;
        double dx = 0.0, dy = 0.0;
        // Moves the reference to point no when it exists, leaving the outward step in dx, dy.
        auto step = [&](double no) {
            const CSectPoint* p = PolyLine.GetSectPointPtr(side * no);
            if (!p) return false;
            dx = side * (p->GetX() - rx);
            dy = p->GetY() - ry;
            rx = p->GetX();
            ry = p->GetY();
            return true;
        };
        // Slope of the last step in the sign convention of the side; a vertical step has none.
        auto slope = [&]() { return IsSmall(dx) ? 0.0 : -side * dy / dx; };
        if (step(0.1)) v[0] = dx;
        if (step(0.2)) {
            v[1] = dx;
            v[2] = slope();
        }
        if (step(0.3)) {
            v[3] = dx;
            v[6] = slope();
        }
        for (int k = 1; k <= 19; ++k) {
            if (!PolyLine.GetSectPointPtr(side * (1.0 + 0.1 * k))) {
                v[4] = k - 1;
                break;
            }
        }
        const int lanes = static_cast<int>(v[4]);
        if (lanes > 0 && step(1.0 + 0.1 * lanes)) {
            v[5] = dx / lanes;
            v[6] = slope();
        }
        if (step(2.1)) {
            v[7] = dx;
            v[8] = slope();
        }
        const double pairs[4] = {2.2, 2.3, 2.4, 3.1};
        for (int i = 0; i < 4; ++i) {
            if (step(pairs[i])) {
                v[9 + 2 * i] = dx;
                v[10 + 2 * i] = dy;
            }
        }
        if (step(3.2)) {
            v[17] = dx;
            v[18] = slope();
        }
    }
    return GenerateRoadPoints() ? 1 : 0;
}

int CRoadProfile::Update(CRefLine* line, const CObList<CRefLine>* lines) {
    Empty();
    GenerateRoadPoints();
    if (!line) return 1;
    double origin[3], xAxis[3], yAxis[3];
    if (!line->CalcCoordAndDirByStation(StationNo, origin, xAxis, yAxis, lines)) return 0;
    return CalcGlobCoord(origin, xAxis, yAxis);
}

int CRoadProfile::CalcGlobCoord(const double* origin, const double* xAxis, const double* yAxis) {
    if (!origin || !xAxis || !yAxis) return 0;
    const double up[3] = {xAxis[1] * yAxis[2] - xAxis[2] * yAxis[1],
                          xAxis[2] * yAxis[0] - xAxis[0] * yAxis[2],
                          xAxis[0] * yAxis[1] - xAxis[1] * yAxis[0]};
    const double lAcross =
        std::sqrt(yAxis[0] * yAxis[0] + yAxis[1] * yAxis[1] + yAxis[2] * yAxis[2]);
    const double lUp = std::sqrt(up[0] * up[0] + up[1] * up[1] + up[2] * up[2]);
    const double lAlong =
        std::sqrt(xAxis[0] * xAxis[0] + xAxis[1] * xAxis[1] + xAxis[2] * xAxis[2]);
    if (lAcross <= 0.0 || lUp <= 0.0 || lAlong <= 0.0) return 0;
    for (int i = 0; i < 3; ++i) {
        Origin[i] = origin[i];
        TransMatrix[0][i] = yAxis[i] / lAcross;
        TransMatrix[1][i] = up[i] / lUp;
        TransMatrix[2][i] = -xAxis[i] / lAlong;
    }
    auto place = [this](CSectPoint& p) {
        double g[3];
        for (int i = 0; i < 3; ++i)
            g[i] = Origin[i] + p.GetX() * TransMatrix[0][i] + p.GetY() * TransMatrix[1][i];
        p.SetGlobal(g[0], g[1], g[2]);
    };
    for (const auto& p : PolyLine.GetSectPointList()) place(*p);
    for (const auto& p : PolyLine.GetConvSectPointList()) place(*p);
    return 1;
}

void CRoadProfile::AddRoadPoint(double no, double x, double y) {
    PolyLine.InsertSectPoint(std::make_unique<CSectPoint>(no, 0, x, y));
    PolyLine.InsertConvSectPoint(std::make_unique<CSectPoint>(no, 0, x, y));
}

int CRoadProfile::CalcProfileAt(double s, const CRoadProfile* a, const CRoadProfile* b) {
    Empty();
    StationNo = s;
    if (!a && !b) return 0;
    if (!a || !b) {
        *this = a ? *a : *b;
        return 1;
    }
    const double t = (s - a->StationNo) / (b->StationNo - a->StationNo);
    for (int i = 0; i < kValues; ++i) {
        ProfLeft[i] = a->ProfLeft[i] + (b->ProfLeft[i] - a->ProfLeft[i]) * t;
        ProfRight[i] = a->ProfRight[i] + (b->ProfRight[i] - a->ProfRight[i]) * t;
    }
    return GenerateRoadPoints();
}

} // namespace kelo
