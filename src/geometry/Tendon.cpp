#include "geometry/Tendon.h"

#include "frame/Element.h"
#include "geometry/KeySection.h"
#include "geometry/RefLine.h"
#include "model/Node.h"
#include "model/Structure.h"
#include "platform/Text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <set>
#include <utility>
#include <vector>

namespace kelo {

namespace {

// Relative positions, stations (m) and percentages closer than this are one.
constexpr double kTol = 1e-5;
// Prestressing steel when the tendon names no material set: E and fpk in MPa.
constexpr double kDefaultE = 195000.0;
constexpr double kDefaultF = 1670.0;

// ξ of the i-th of the evenly spaced points of an element.
double Xi(std::size_t i) { return static_cast<double>(i) / (CTendon::kPointsPerElement - 1); }

// Whether the path has an N piece on the element: the tendon is where its N path is.
bool HasNPath(const CTenElemGeom& g) {
    return g.GetElemGeom(2, 0, nullptr, nullptr, nullptr, nullptr, nullptr) ||
           g.GetElemGeom(2, 1, nullptr, nullptr, nullptr, nullptr, nullptr);
}

enum class Chain { Ok, Ring, Missing };

// Whether the chain of connections from t ends, comes back on itself, or names a tendon that
// is not there.
Chain ConnectionChain(const CTendon& t, CStructure* s) {
    std::set<int> seen{t.GetNo()};
    const CTendon* c = &t;
    while (c->GetConnectTendon() != 0) {
        if (!seen.insert(c->GetConnectTendon()).second) return Chain::Ring;
        c = s ? s->GetTendonPtr(c->GetConnectTendon()) : nullptr;
        if (!c) return Chain::Missing;
    }
    return Chain::Ok;
}

} // namespace

// One point of the walk along the tendon. x and alpha run from the first end, x2 and alpha2 from
// the second; forces in kN.
struct CTendon::WalkPoint {
    int Index = 0, ElementNo = 0, Step = 0;
    double Xi = 0.0;
    std::array<double, 3> L{}, N{}, Coord{};
    double X = 0.0, Alpha = 0.0, X2 = 0.0, Alpha2 = 0.0, Dx = 0.0, Dalpha = 0.0;
    double P1 = 0.0, P2 = 0.0, PFriction = 0.0, P = 0.0;
    double SlipLoss = 0.0, ShrinkageLoss = 0.0, CreepLoss = 0.0, RelaxLoss = 0.0;
    double Factor = 0.0;
    // The end whose curve governs (0 none jacked), and whether the point lies in the slip zone
    // of either end.
    int Governing = 0, SlipZone1 = 0, SlipZone2 = 0;
};

CTendon::CTendon(const CTendon& other) { *this = other; }

CTendon& CTendon::operator=(const CTendon& other) {
    if (this == &other) return *this;
    No = other.No;
    Name = other.Name;
    Type = other.Type;
    External = other.External;
    GeomType = other.GeomType;
    RefLineNo = other.RefLineNo;
    RelativeType = other.RelativeType;
    RelPointNo = other.RelPointNo;
    MatParNo = other.MatParNo;
    DesParNo = other.DesParNo;
    Area = other.Area;
    DuctDiameter = other.DuctDiameter;
    GroutStrength = other.GroutStrength;
    NoOfTendons = other.NoOfTendons;
    SpaceLDir = other.SpaceLDir;
    SpaceNDir = other.SpaceNDir;
    ConnectTendon = other.ConnectTendon;
    LOffset = other.LOffset;
    NOffset = other.NOffset;
    Stress1 = other.Stress1;
    Stress2 = other.Stress2;
    StressCode = other.StressCode;
    GroupNo = other.GroupNo;
    Elongation1 = other.Elongation1;
    Elongation2 = other.Elongation2;
    TotalLength = other.TotalLength;
    TotalAngle = other.TotalAngle;
    Mu = other.Mu;
    Wobble = other.Wobble;
    Slip1 = other.Slip1;
    Slip2 = other.Slip2;
    Shrinkage = other.Shrinkage;
    Creep = other.Creep;
    RelaxLow = other.RelaxLow;
    RelaxHigh = other.RelaxHigh;
    RelaxLoss = other.RelaxLoss;
    // Pieces are copied and owned by the copy; the element geometry points at pieces and
    // elements of the original, so the copy makes it again when it is brought up to date.
    GeomL = other.GeomL;
    GeomN = other.GeomN;
    for (CTendonGeom* g : GeomL) g->SetOwner(this);
    for (CTendonGeom* g : GeomN) g->SetOwner(this);
    ElemGeom.RemoveAll();
    SourceGeomL.RemoveAll();
    SourceGeomN.RemoveAll();
    ElemRes = other.ElemRes;
    ClearResIndex();
    Updated = 0;
    return *this;
}

CTendon::~CTendon() = default;

// ---------------------------------------------------------------------------------------------
// Data

void CTendon::SetLossParam(double mu, double k, double slip, double shrinkage, double creep,
                           double relaxLow, double relaxHigh, double relaxLoss) {
    Mu = mu;
    Wobble = k;
    Slip1 = Slip2 = slip;
    Shrinkage = shrinkage;
    Creep = creep;
    RelaxLow = relaxLow;
    RelaxHigh = relaxHigh;
    RelaxLoss = relaxLoss;
    Updated = 0;
}

void CTendon::GetLossParam(double* mu, double* k, double* slip, double* shrinkage, double* creep,
                           double* relaxLow, double* relaxHigh, double* relaxLoss) const {
    for (auto [out, value] : {std::pair{mu, Mu},
                              {k, Wobble},
                              {slip, Slip1},
                              {shrinkage, Shrinkage},
                              {creep, Creep},
                              {relaxLow, RelaxLow},
                              {relaxHigh, RelaxHigh},
                              {relaxLoss, RelaxLoss}})
        if (out) *out = value;
}

void CTendon::SetStressParam(double stress1, double stress2, int stressCode) {
    Stress1 = stress1;
    Stress2 = stress2;
    StressCode = stressCode;
    Updated = 0;
}

void CTendon::GetStressParam(double* stress1, double* stress2, int* stressCode) const {
    if (stress1) *stress1 = Stress1;
    if (stress2) *stress2 = Stress2;
    if (stressCode) *stressCode = StressCode;
}

void CTendon::DeleteStressData() {
    Stress1 = Stress2 = 0.0;
    Updated = 0;
}

CTendonGeom* CTendon::AddTendonGeomL(std::unique_ptr<CTendonGeom> piece) {
    if (!piece) return nullptr;
    piece->SetOwner(this);
    piece->SetDir(1);
    Updated = 0;
    return GeomL.Add(std::move(piece));
}

CTendonGeom* CTendon::AddTendonGeomN(std::unique_ptr<CTendonGeom> piece) {
    if (!piece) return nullptr;
    piece->SetOwner(this);
    piece->SetDir(2);
    Updated = 0;
    return GeomN.Add(std::move(piece));
}

void CTendon::DeleteAllGeom() {
    ElemGeom.RemoveAll();
    GeomL.RemoveAll();
    GeomN.RemoveAll();
    SourceGeomL.RemoveAll();
    SourceGeomN.RemoveAll();
    DeleteTenElementData();
    Updated = 0;
}

int CTendon::GetTendonNGeom(double* from, double* to) const {
    if (from) *from = 0.0;
    if (to) *to = 0.0;
    if (GeomN.IsEmpty()) return 0;
    const CTendonGeom* first = GeomN.At(0);
    const CTendonGeom* last = GeomN.At(GeomN.GetCount() - 1);
    if (GeomType == 0) {
        if (from) *from = first->GetStartElement();
        if (to) *to = last->GetEndElement();
    } else {
        if (from) *from = first->GetStartStation();
        if (to) *to = last->GetEndStation();
    }
    return 1;
}

void CTendon::ClearResIndex() const {
    ResIndex.clear();
    ResIndexValid = false;
}

CTendonElemRes* CTendon::GetTendonElemResPtr(int element) const {
    auto find = [&]() -> CTendonElemRes* {
        auto it = ResIndex.find(element);
        if (it == ResIndex.end() || it->second >= ElemRes.GetCount()) return nullptr;
        CTendonElemRes* r = ElemRes.At(it->second);
        return r->GetElementNo() == element ? r : nullptr;
    };
    if (ResIndexValid && ResIndex.size() == ElemRes.GetCount())
        if (CTendonElemRes* r = find()) return r;
    // The list was changed from outside, or is new: index it again.
    ResIndex.clear();
    for (std::size_t i = 0; i < ElemRes.GetCount(); ++i)
        ResIndex.emplace(ElemRes.At(i)->GetElementNo(), i);
    ResIndexValid = true;
    return find();
}

void CTendon::DeleteTenElementData() {
    ElemRes.RemoveAll();
    ClearResIndex();
}

int CTendon::GetTenElementData(int element, int* count, double (*const rows)[6]) const {
    if (count) *count = 0;
    const CTendonElemRes* res = GetTendonElemResPtr(element);
    if (!res || res->GetSecResList()->IsEmpty()) return 0;
    int n = 0;
    for (const CTendonDesSecRes* r : *res->GetSecResList()) {
        if (n >= kPointsPerElement) break;
        if (rows) {
            rows[n][0] = r->GetXoverL();
            rows[n][1] = r->GetP();
            rows[n][2] = r->GetL(0);
            rows[n][3] = r->GetN(0);
            rows[n][4] = 0.0;
            rows[n][5] = 0.0;
        }
        ++n;
    }
    if (count) *count = n;
    return 1;
}

int CTendon::Update(CStructure* structure, int listLevel, int /*flag*/) {
    UpdateText.clear();
    Updated = 0;
    if (!GenerateTendonGeom(structure, &UpdateText)) return 0;
    if (!CalcTendonLossesByVector(&UpdateText, structure, listLevel)) return 0;
    Updated = 1;
    return 1;
}

int CTendon::IsUpdate(int /*listLevel*/, int /*flag*/) const { return Updated; }

double CTendon::CalcTendonLength() const {
    if (!ElemRes.IsEmpty()) return TotalLength;
    double sum = 0.0;
    for (const CTendonGeom* g : GeomN)
        if (g->GetLength() > 0.0) sum += g->GetLength();
    return sum;
}

double CTendon::CalcCurvature(double x1, double x2, double x3, double y1, double y2, double y3) {
    if (!(x1 < x2 && x2 < x3)) return -99.0;
    const double pi = std::numbers::pi;
    const double b = y3 - y1, a = x3 - x1;
    const double phi = std::atan(b / a);
    const double c = std::sqrt(a * a + b * b);
    const double c1 = std::sqrt((x2 - x1) * (x2 - x1) + (y2 - y1) * (y2 - y1));
    // The height of the middle point over the chord is taken from y2 itself, not from y2 - y1:
    // the form the curvature checks of the listings were made with.
    const double h = y2 - b * (x2 - x1) / a;
    const double e1 = c1 + std::sin(phi) * h;
    const double g = std::cos(phi) * h;
    const double theta = (pi - (pi - std::asin(g / e1) - std::asin(g / (c - e1)))) / 2.0;
    const double f = std::sin(theta) * c / 2.0;
    return 1.0 / ((c * c + 4.0 * f * f) / (8.0 * f));
}

void CTendon::GetRelInfo(CStructure* structure, double* addL, double* addN) const {
    double sumL = 0.0, sumN = 0.0;
    std::set<int> seen{No};
    const CTendon* t = this;
    while (t && t->ConnectTendon != 0) {
        sumL += t->LOffset / 1000.0;
        sumN += t->NOffset / 1000.0;
        // A ring of connections stops at the tendon where it closes.
        if (!seen.insert(t->ConnectTendon).second) break;
        t = structure ? structure->GetTendonPtr(t->ConnectTendon) : nullptr;
    }
    if (addL) *addL = sumL;
    if (addN) *addN = sumN;
}

const CTendon* CTendon::GetPathSource(CStructure* structure) const {
    std::set<int> seen{No};
    const CTendon* t = this;
    while (t->GeomN.IsEmpty() && t->ConnectTendon != 0) {
        if (!seen.insert(t->ConnectTendon).second || !structure) return nullptr;
        t = structure->GetTendonPtr(t->ConnectTendon);
        if (!t) return nullptr;
    }
    return t;
}

// ---------------------------------------------------------------------------------------------
// Path on the elements

int CTendon::GenerateTendonGeom(CStructure* structure, std::string* errors) {
    ElemGeom.RemoveAll();
    SourceGeomL.RemoveAll();
    SourceGeomN.RemoveAll();
    DeleteTenElementData();
    Updated = 0;
    if (!structure) return 0;
    const std::string head = Format("ERROR: \r\n") + Format("Tendon no.:  %i\r\n", No);
    auto fail = [&](const std::string& text) {
        ElemGeom.RemoveAll();
        SourceGeomL.RemoveAll();
        SourceGeomN.RemoveAll();
        if (errors) *errors += head + text;
        return 0;
    };
    auto elementText = [](int no) { return Format("Element no.: %i\r\n", no); };
    auto lineText = [](int line, double from, double to) {
        return Format("RefLine no.: %i  From station: %9.3f  To station: %9.3f\r\n", line, from,
                      to);
    };

    switch (ConnectionChain(*this, structure)) {
    case Chain::Ring:
        return fail("Tendon is connected to itself through a ring of tendons!\r\n\r\n");
    case Chain::Missing:
        return fail(Format("Connected tendon no. %i not found!\r\n\r\n", ConnectTendon));
    default:
        break;
    }
    const CTendon* source = GetPathSource(structure);
    if (!source) return fail("Connected tendon not found!\r\n\r\n");
    if (source != this) {
        // The pieces of the tendon this one follows, which keep their owner for their lengths.
        SourceGeomL = source->GeomL;
        SourceGeomN = source->GeomN;
    }
    const COwnedList<CTendonGeom>& listN = source == this ? GeomN : SourceGeomN;
    const COwnedList<CTendonGeom>& listL = source == this ? GeomL : SourceGeomL;
    const int geomType = source->GetGeomType();
    const int lineNo = source->GetRefLineNo();

    auto getOrMake = [&](int elementNo, double pathPos) {
        CTenElemGeom* g = ElemGeom.Get(elementNo);
        if (!g) {
            g = ElemGeom.Emplace(elementNo, structure->GetElementPtr(elementNo));
            g->SetPathPos(pathPos);
        }
        return g;
    };
    auto isBeam = [](const CElement* e) { return e->GetType() == 0 || e->GetType() == 1; };

    // The elements on the tendon's line, with the stations of their ends.
    struct OnLine {
        CElement* Element;
        double S1, S2;
    };
    std::vector<OnLine> onLine;
    CRefLine* line = nullptr;
    if (geomType != 0) {
        line = structure->GetRefLinePtr(lineNo);
        if (!line) {
            double from = 0.0, to = 0.0;
            if (!listN.IsEmpty()) {
                from = listN.At(0)->GetStartStation();
                to = listN.At(listN.GetCount() - 1)->GetEndStation();
            }
            return fail(lineText(lineNo, from, to) + "Reference line not found!\r\n\r\n");
        }
        for (CElement* e : *structure->GetElementList()) {
            if (e->GetNo() < 1) continue;
            int no = 0;
            double s1 = 0.0, s2 = 0.0;
            if (!e->FindReflineConnection(structure, &no, &s1, &s2, nullptr) || no != lineNo)
                continue;
            onLine.push_back({e, s1, s2});
        }
    }

    for (const int dir : {2, 1}) {
        const COwnedList<CTendonGeom>& pieces = dir == 2 ? listN : listL;
        double pathStart = 0.0;
        for (CTendonGeom* piece : pieces) {
            piece->CalcLength(structure);
            if (geomType == 0) {
                int first = 0, last = 0, step = 1;
                piece->GetElements(&first, &last, &step);
                step = std::max(1, step);
                const double length = piece->GetLength();
                if (!(length > kTol))
                    return fail(elementText(first) +
                                "No elements found for the tendon piece!\r\n\r\n");
                double run = 0.0;
                for (int no = first; no <= last; no += step) {
                    CElement* e = structure->GetElementPtr(no);
                    const double le = CTendonGeom::ElementLength(*structure, no);
                    if (!e || le <= 0.0) continue;
                    if (!isBeam(e)) return fail(elementText(no) + "Element is not a beam!\r\n\r\n");
                    const double from = run / length;
                    run += le;
                    getOrMake(no, pathStart + from * length)
                        ->SetElemGeom(dir, piece, from, 0.0, run / length, 1.0);
                }
                pathStart += length;
                continue;
            }
            double p0 = piece->GetStartStation(), p1 = piece->GetEndStation();
            if (geomType == 2) {
                const CAxis* a = line->GetAxisPtr(static_cast<int>(std::lround(p0)));
                const CAxis* b = line->GetAxisPtr(static_cast<int>(std::lround(p1)));
                if (!a || !b) return fail(lineText(lineNo, p0, p1) + "Axis not found!\r\n\r\n");
                p0 = a->GetStationNo();
                p1 = b->GetStationNo();
            }
            if (!(p1 - p0 > kTol))
                return fail(lineText(lineNo, p0, p1) + "Tendon piece has no length!\r\n\r\n");
            for (const OnLine& o : onLine) {
                const double lo = std::max(std::min(o.S1, o.S2), p0);
                const double hi = std::min(std::max(o.S1, o.S2), p1);
                if (hi - lo <= kTol) continue;
                const int no = o.Element->GetNo();
                if (!isBeam(o.Element))
                    return fail(elementText(no) + "Element is not a beam!\r\n\r\n");
                if (o.S1 > o.S2)
                    return fail(elementText(no) + lineText(lineNo, o.S1, o.S2) +
                                "Element is defined in opposite direction of reference line!\r\n"
                                "\r\n");
                const double span = o.S2 - o.S1;
                getOrMake(no, o.S1)->SetElemGeom(dir, piece, (lo - p0) / (p1 - p0),
                                                 (lo - o.S1) / span, (hi - p0) / (p1 - p0),
                                                 (hi - o.S1) / span);
            }
        }
    }
    ElemGeom.SortBy([](const CTenElemGeom& a, const CTenElemGeom& b) {
        return a.GetPathPos() < b.GetPathPos();
    });
    return 1;
}

// ---------------------------------------------------------------------------------------------
// Losses and forces

double CTendon::CalcRelaxLoss(double stressPercent) const {
    if (RelaxLoss <= kTol || stressPercent <= RelaxLow || std::fabs(RelaxHigh - RelaxLow) <= kTol)
        return 0.0;
    return (stressPercent - RelaxLow) * RelaxLoss / (RelaxHigh - RelaxLow);
}

int CTendon::CalcTendonLossesByVector(std::string* text, CStructure* structure, int listLevel) {
    DeleteTenElementData();
    Elongation1 = Elongation2 = TotalLength = TotalAngle = 0.0;
    if (!structure) return 0;
    const std::string head = Format("ERROR: \r\n") + Format("Tendon no.:  %i\r\n", No);
    auto fail = [&](const std::string& reason) {
        DeleteTenElementData();
        if (text) *text += head + reason;
        return 0;
    };
    if (Area <= 0.0) return fail("Tendon area is zero!\r\n\r\n");

    // Material (MPa)
    double E = kDefaultE, f = kDefaultF;
    if (const CPrestMatPar* m = structure->GetPrestMatParPtr(MatParNo)) {
        E = m->GetEsk() / 1000.0;
        f = m->GetFsk() / 1000.0;
    }
    const double AE = Area * E;
    // Jacking forces (kN) from stresses in percent of f.
    const bool jack1 = Stress1 > 0.0, jack2 = Stress2 > 0.0;
    const double F1 = jack1 ? Area * f * Stress1 / 100000.0 : 0.0;
    const double F2 = jack2 ? Area * f * Stress2 / 100000.0 : 0.0;

    // The walk: 11 points on each element along the path, its length and the angle its
    // tangent turns through.
    std::vector<WalkPoint> pts;
    double tPrev[3] = {0.0, 0.0, 0.0}, pPrev[3] = {0.0, 0.0, 0.0};
    bool first = true;
    double x = 0.0, alpha = 0.0;
    constexpr std::size_t kCount = kPointsPerElement;
    for (const CTenElemGeom* g : ElemGeom) {
        if (!HasNPath(*g)) continue;
        const int elementNo = g->GetElementNo();
        const CElement* e = structure->GetElementPtr(elementNo);
        std::array<std::array<double, 9>, kCount> c{};
        std::array<std::array<double, 3>, kCount> l{}, n{};
        for (std::size_t i = 0; i < kCount; ++i) {
            if (!e || !g->CalcTendonCoord(this, structure, Xi(i), c[i].data(), l[i].data(),
                                          n[i].data(), RelativeType, nullptr))
                return fail(Format("Element no.: %i\r\n", elementNo) +
                            "Tendon position not found!\r\n\r\n");
        }
        // The element's axes, as CalcTendonCoord left them: rows L, M, N.
        double axes[3][3];
        for (int r = 0; r < 3; ++r)
            for (int k = 0; k < 3; ++k) axes[r][k] = e->GetTransMatrix(r, k);
        const CNode* n1 = structure->GetNodePtr(e->GetNodeNo1());
        const CNode* n2 = structure->GetNodePtr(e->GetNodeNo2());
        const double node1[3] = {n1->GetX(), n1->GetY(), n1->GetZ()};
        const double node2[3] = {n2->GetX(), n2->GetY(), n2->GetZ()};
        const double h = e->GetLength() / (kCount - 1);
        // The tangent at a point: the element axis turned by the slopes of the path pieces, and
        // by the change along the element of what the reference of the offsets adds (a face, the
        // line), taken by differences of second order over the points, which are exact for a
        // reference that varies linearly or as a parabola.
        std::array<std::array<double, 3>, kCount> base{};
        std::array<double, kCount> slopeL{}, slopeN{};
        for (std::size_t i = 0; i < kCount; ++i) {
            double lv[3], nv[3];
            g->CalcOffset(Xi(i), lv, nv);
            slopeL[i] = lv[1];
            slopeN[i] = nv[1];
            for (std::size_t k = 0; k < 3; ++k)
                base[i][k] = c[i][k] - node1[k] - Xi(i) * (node2[k] - node1[k]) -
                             lv[0] * axes[0][k] - nv[0] * axes[2][k];
        }
        for (std::size_t i = 0; i < kCount; ++i) {
            double t[3];
            for (std::size_t k = 0; k < 3; ++k) {
                double d = 0.0;
                if (h > 0.0) {
                    if (i == 0)
                        d = (-3.0 * base[0][k] + 4.0 * base[1][k] - base[2][k]) / (2.0 * h);
                    else if (i == kCount - 1)
                        d = (3.0 * base[i][k] - 4.0 * base[i - 1][k] + base[i - 2][k]) / (2.0 * h);
                    else
                        d = (base[i + 1][k] - base[i - 1][k]) / (2.0 * h);
                }
                t[k] = axes[1][k] + slopeL[i] * axes[0][k] + slopeN[i] * axes[2][k] + d;
            }
            const double tl = std::sqrt(t[0] * t[0] + t[1] * t[1] + t[2] * t[2]);
            if (tl > 0.0)
                for (double& v : t) v /= tl;
            WalkPoint p;
            p.Index = static_cast<int>(pts.size()) + 1;
            p.ElementNo = elementNo;
            p.Step = static_cast<int>(i);
            p.Xi = Xi(i);
            for (std::size_t k = 0; k < 3; ++k) {
                p.L[k] = l[i][k];
                p.N[k] = n[i][k];
                p.Coord[k] = c[i][k];
            }
            if (!first) {
                const double dx[3] = {c[i][0] - pPrev[0], c[i][1] - pPrev[1], c[i][2] - pPrev[2]};
                p.Dx = std::sqrt(dx[0] * dx[0] + dx[1] * dx[1] + dx[2] * dx[2]);
                const double cosine =
                    std::clamp(t[0] * tPrev[0] + t[1] * tPrev[1] + t[2] * tPrev[2], -1.0, 1.0);
                p.Dalpha = std::fabs(std::acos(cosine));
            }
            x += p.Dx;
            alpha += p.Dalpha;
            p.X = x;
            p.Alpha = alpha;
            p.Factor =
                p.Dx > kTol ? std::exp(-(Wobble * p.Dx + Mu * std::fabs(p.Dalpha))) / p.Dx : 0.0;
            pts.push_back(p);
            for (std::size_t k = 0; k < 3; ++k) {
                pPrev[k] = c[i][k];
                tPrev[k] = t[k];
            }
            first = false;
        }
    }
    if (pts.empty()) return fail("No tendon path on the elements!\r\n\r\n");
    TotalLength = x;
    TotalAngle = alpha;

    // Distances from the second end, forces after friction from each jacked end.
    for (WalkPoint& p : pts) {
        p.X2 = TotalLength - p.X;
        p.Alpha2 = TotalAngle - p.Alpha;
        p.P1 = jack1 ? F1 * std::exp(-(Wobble * p.X + Mu * p.Alpha)) : 0.0;
        p.P2 = jack2 ? F2 * std::exp(-(Wobble * p.X2 + Mu * p.Alpha2)) : 0.0;
        p.P = std::max(p.P1, p.P2);
        p.Governing = jack1 || jack2 ? (p.P1 >= p.P2 ? 1 : 2) : 0;
        p.PFriction = p.P;
    }

    // Elongations (mm): strain (per mille) times step length (m), the strain the mean of the
    // step's ends. With both ends jacked the end stressed second adds only where its curve
    // stands above the first one's.
    auto strain = [AE](double P) { return P / AE * 1.0e6; };
    double e1 = 0.0, e2 = 0.0;
    for (std::size_t i = 1; i < pts.size(); ++i) {
        const WalkPoint& a = pts[i - 1];
        const WalkPoint& b = pts[i];
        const double dx = b.Dx;
        auto mean = [&](auto value) { return 0.5 * (value(a) + value(b)) * dx; };
        const auto p1 = [&](const WalkPoint& p) { return strain(p.P1); };
        const auto p2 = [&](const WalkPoint& p) { return strain(p.P2); };
        const auto over2 = [&](const WalkPoint& p) { return strain(std::max(0.0, p.P2 - p.P1)); };
        const auto over1 = [&](const WalkPoint& p) { return strain(std::max(0.0, p.P1 - p.P2)); };
        if (jack1 && !jack2) {
            e1 += mean(p1);
        } else if (jack2 && !jack1) {
            e2 += mean(p2);
        } else if (jack1 && jack2) {
            if (StressCode == 2) {
                e2 += mean(p2);
                e1 += mean(over1);
            } else {
                e1 += mean(p1);
                e2 += mean(over2);
            }
        }
    }
    Elongation1 = e1;
    Elongation2 = e2;

    // Anchor slip.
    if (Type == 1) {
        // The force builds up linearly over the transmission length from each end.
        if (Slip1 > 0.0)
            for (WalkPoint& p : pts)
                if (p.X < Slip1) {
                    const double loss = (Slip1 - p.X) / Slip1 * F1;
                    p.SlipLoss += loss;
                    p.P -= loss;
                    p.SlipZone1 = 1;
                }
        if (Slip2 > 0.0 && jack2)
            for (auto it = pts.rbegin(); it != pts.rend(); ++it)
                if (it->X2 < Slip2) {
                    const double loss = (Slip2 - it->X2) / Slip2 * F2;
                    it->SlipLoss += loss;
                    it->P -= loss;
                    it->SlipZone2 = 1;
                }
    } else if (Type == 0) {
        if (Slip1 > 0.0 && jack1) AnchorSlip(pts, F1, Slip1, E, 1);
        if (Slip2 > 0.0 && jack2) AnchorSlip(pts, F2, Slip2, E, 2);
    }

    // Time losses from the force after slip.
    for (WalkPoint& p : pts) {
        const double p0 = p.P;
        if (Shrinkage != 0.0) p.ShrinkageLoss = -Shrinkage * E * Area * 1e-6;
        if (Creep != 0.0) p.CreepLoss = -Creep * E * Area * 1e-6;
        if (RelaxLoss != 0.0) {
            const double ratio = p0 * 1000.0 / (Area * f) * 100.0;
            p.RelaxLoss = CalcRelaxLoss(ratio) * p0 / 100.0;
        }
        p.P = p0 - p.ShrinkageLoss - p.CreepLoss - p.RelaxLoss;
    }

    // Element results.
    CTendonElemRes* res = nullptr;
    for (const WalkPoint& p : pts) {
        if (!res || res->GetElementNo() != p.ElementNo)
            res = ElemRes.Add(std::make_unique<CTendonElemRes>(p.ElementNo));
        CTendonDesSecRes* r = res->GetSecResList()->Add(std::make_unique<CTendonDesSecRes>(
            p.Xi, p.P, p.L[0], p.L[1], p.L[2], p.N[0], p.N[1], p.N[2]));
        r->SetCoord(p.Coord[0], p.Coord[1], p.Coord[2]);
    }
    ClearResIndex();

    // Listing.
    if (text && listLevel > 0) ListLosses(text, pts, listLevel);
    return 1;
}

// Anchor slip of a tendon of Type 0 at one end: the force near the anchor falls back along the
// mirror image of the friction curve until the work of the force lost equals the slip times EA.
void CTendon::AnchorSlip(std::vector<WalkPoint>& pts, double F, double slipMm, double E,
                         int end) const {
    const double k = Wobble, mu = Mu;
    auto X = [end](const WalkPoint& p) { return end == 1 ? p.X : p.X2; };
    auto A = [end](const WalkPoint& p) { return end == 1 ? p.Alpha : p.Alpha2; };
    // Slip (mm to m) times EA (MPa·mm² = N, /1000 to kN): the work to be lost, kNm.
    const double W = slipMm / 1000.0 * E * Area * 0.001;
    double xp = 0.0, ap = 0.0, aMinus = 0.0, aPlus = 0.0;
    double rMin = W, xs = 0.0, as = 0.0;
    bool found = false;
    const std::size_t count = pts.size();
    for (std::size_t j = 0; j < count; ++j) {
        const WalkPoint& p = pts[end == 1 ? j : count - 1 - j];
        const double x = X(p), a = A(p);
        const double dx = x - xp;
        if (dx > 0.0) {
            aMinus += dx / 2.0 * (std::exp(-(k * x + mu * a)) + std::exp(-(k * xp + mu * ap)));
            aPlus += dx / 2.0 * (std::exp(k * x + mu * a) + std::exp(k * xp + mu * ap));
        }
        const double R = W - (aMinus - std::exp(-2.0 * (k * x + mu * a)) * aPlus) * F;
        xs = x;
        as = a;
        if (R < 0.0) {
            found = true;
            break;
        }
        rMin = std::min(rMin, R);
        xp = x;
        ap = a;
    }
    // A slip that reaches past the far end: what is left of the work, spread over the length,
    // comes off every point.
    const double rest = !found && xs > 0.0 ? rMin / xs : 0.0;
    for (WalkPoint& p : pts) {
        const double x = X(p), a = A(p);
        if (x > xs + kTol) continue;
        const double loss = (1.0 - std::exp(-2.0 * (k * (xs - x) + mu * (as - a)))) * F + rest;
        p.SlipLoss += loss;
        p.P -= loss;
        (end == 1 ? p.SlipZone1 : p.SlipZone2) = 1;
    }
}

void CTendon::ListLosses(std::string* text, const std::vector<WalkPoint>& pts,
                         int listLevel) const {
    std::string& t = *text;
    if (listLevel >= 2) {
        t += Format("\r\nTendon no.: %i  %s  -  friction\r\n", No, Name.c_str());
        t += "  No.    x/L  x1 [m]  a1 [rad]   P1 [kN]    x2 [m]  a2 [rad]    dx [m]   P2 [kN]"
             "    Factor\r\n";
        for (const WalkPoint& p : pts)
            t += Format("%5i %6.3f %9.3f %9.3f %9.1f %9.3f %9.3f %9.3f %9.1f %9.6f \r\n", p.Index,
                        p.Xi, p.X, p.Alpha, p.P1, p.X2, p.Alpha2, p.Dx, p.P2, p.Factor);
        t += Format("\r\nTendon no.: %i  %s  -  losses [kN]\r\n", No, Name.c_str());
        t += "  No.    x/L     x [m]       Slip   Friction  Shrinkage      Creep Relaxation"
             "      Force\r\n";
        for (const WalkPoint& p : pts)
            t += Format("%5i%7.3f %10.3f %10.3f %10.1f %10.3f %10.3f %10.3f %10.2f\r\n", p.Index,
                        p.Xi, p.X, p.SlipLoss, p.PFriction, p.ShrinkageLoss, p.CreepLoss,
                        p.RelaxLoss, p.P);
    }
    t += Format("\r\nTendon no.: %i  %s  -  force on the elements\r\n", No, Name.c_str());
    t += "  No. Elem. Point End S1  S2    P [kN]    x/L  L [m]  N [m]\r\n";
    for (const WalkPoint& p : pts) {
        t += Format("%5i %5i %5i %3i %3i %3i %9.3f %6.3f", p.Index, p.ElementNo, p.Step,
                    p.Governing, p.SlipZone1, p.SlipZone2, p.P, p.Xi);
        t += Format(" %6.3f %6.3f\r\n", p.L[0], p.N[0]);
    }
    t += "\r\n";
    t += Format("%s%9.3f\r\n", "Total length [m]          : ", TotalLength);
    t += Format("%s%9.3f [mm]\r\n", "Elongation at end 1       : ", Elongation1);
    t += Format("%s%9.3f [mm]\r\n", "Elongation at end 2       : ", Elongation2);
}

int CTendon::CalcStrainByElement(int element, double xi, CStructure* structure,
                                 double* strain) const {
    if (strain) *strain = 0.0;
    const CTendon* source = GetPathSource(structure);
    if (!source || source->GetGeomType() != 0 || Area <= 0.0) return 0;
    const CTendonElemRes* res = GetTendonElemResPtr(element);
    if (!res) return 0;
    if (strain) *strain = StrainOf(res->CalcTendonForce(xi), structure);
    return 1;
}

int CTendon::CalcStrainByStation(double station, CStructure* structure, double* strain) const {
    if (strain) *strain = 0.0;
    if (ElemRes.IsEmpty() || !structure || Area <= 0.0) return 0;
    const CTendon* source = GetPathSource(structure);
    if (!source || source->GetGeomType() == 0) return 0;
    for (const CTendonElemRes* res : ElemRes) {
        const CElement* e = structure->GetElementPtr(res->GetElementNo());
        int lineNo = 0;
        double s1 = 0.0, s2 = 0.0;
        if (!e || !e->FindReflineConnection(structure, &lineNo, &s1, &s2, nullptr)) continue;
        if (lineNo != source->GetRefLineNo()) continue;
        if (std::fabs(s2 - s1) < kTol) return 0;
        double xi = 0.0;
        if (s1 > s2) {
            if (station < s2 || station > s1) continue;
            xi = (station - s2) / (s1 - s2);
        } else {
            if (station < s1 || station > s2) continue;
            xi = (station - s1) / (s2 - s1);
        }
        if (strain) *strain = StrainOf(res->CalcTendonForce(xi), structure);
        return 1;
    }
    return 0;
}

double CTendon::StrainOf(double force, CStructure* structure) const {
    double E = kDefaultE;
    if (const CPrestMatPar* m = structure ? structure->GetPrestMatParPtr(MatParNo) : nullptr)
        E = m->GetEsk() / 1000.0;
    // kN over mm²·MPa (N) is a thousandth of the strain; per mille is a further thousand.
    return force / (Area * E) * 1.0e6;
}

// ---------------------------------------------------------------------------------------------
// Section tendon groups

int CTendon::GenerateSectionPrest(CStructure* structure, CKeySection* section, int groupNo,
                                  int flag, std::string* text) {
    if (!structure || !section || section->GetRefLineNo() <= 0) return 0;
    if (ElemGeom.IsEmpty() && !GenerateTendonGeom(structure, text)) return 0;
    const int lineNo = section->GetRefLineNo();
    const double station = section->GetStationNo();
    const CTenElemGeom* at = nullptr;
    double xi = 0.0;
    for (const CTenElemGeom* g : ElemGeom) {
        if (!HasNPath(*g)) continue;
        const CElement* e = structure->GetElementPtr(g->GetElementNo());
        int no = 0;
        double s1 = 0.0, s2 = 0.0;
        if (!e || !e->FindReflineConnection(structure, &no, &s1, &s2, nullptr) || no != lineNo)
            continue;
        if (std::fabs(s2 - s1) < kTol || station < std::min(s1, s2) - kTol ||
            station > std::max(s1, s2) + kTol)
            continue;
        at = g;
        xi = std::clamp((station - s1) / (s2 - s1), 0.0, 1.0);
        break;
    }
    if (!at) return 0;
    double coord[9], l[3], n[3];
    if (!at->CalcTendonCoord(this, structure, xi, coord, l, n, RelativeType, nullptr)) return 0;

    double strain = 0.0;
    const CTendon* source = GetPathSource(structure);
    if (source && source->GetGeomType() == 0)
        CalcStrainByElement(at->GetElementNo(), xi, structure, &strain);
    else
        CalcStrainByStation(station, structure, &strain);

    CObList<CPrestGroup>* groups = section->GetPrestGroupList();
    auto group =
        std::make_unique<CPrestGroup>(groupNo > 0 ? groupNo : groups->GetFirstFreeNo(), Name);
    group->SetPrestType(Type);
    group->SetNumOfCables(NoOfTendons);
    group->SetDuctDiam(DuctDiameter);
    group->SetPrestMatParNo(MatParNo);
    group->SetPrestDesParNo(DesParNo);
    group->SetPrestArea(Area);
    group->SetTendonNo(No);
    group->SetInclination(0, std::atan(l[1]));
    group->SetInclination(1, std::atan(n[1]));
    if (flag == 1) group->SetEpssi(strain / 1000.0);
    // The bundle in a row centred on the path.
    const int count = std::max(1, NoOfTendons);
    for (int j = 0; j < count; ++j) {
        const double off = j - 0.5 * (count - 1);
        auto cable = std::make_unique<CPrest>(j + 1, Format("T: %i.%i", No, j + 1),
                                              section->GetCoGX() + l[0] + off * SpaceLDir / 1000.0,
                                              section->GetCoGY() + n[0] + off * SpaceNDir / 1000.0);
        cable->SetDuctDiameter(DuctDiameter);
        group->AddPrest(std::move(cable));
    }
    group->CalculateAs();
    group->CalculateCoG();
    section->AddPrestGroup(std::move(group));
    if (text) *text += Format("Ten.: %i  %5.3f [o/oo] \r\n", No, strain);
    return 1;
}

} // namespace kelo
