#include "frame/Element.h"

#include "geometry/KeySection.h"
#include "geometry/RefLine.h"
#include "model/Node.h"
#include "model/Structure.h"
#include "platform/Text.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace kelo {

// Copies numbers and owned lists; pointer caches are copied as they stand and are refreshed by
// the owner's pointer update.
CElement::CElement(const CElement& other)
    : CObject(other), No(other.No), Type(other.Type), LocAxisCode(other.LocAxisCode),
      NDirCode(other.NDirCode), NodeNo1(other.NodeNo1), NodeNo2(other.NodeNo2),
      NodeNo3(other.NodeNo3), NodeNo1Ptr(other.NodeNo1Ptr), NodeNo2Ptr(other.NodeNo2Ptr),
      NodeNo3Ptr(other.NodeNo3Ptr), SectionNo(other.SectionNo), SectionPtr(other.SectionPtr),
      Joint1(other.Joint1), Joint2(other.Joint2), Alpha(other.Alpha), Visible(other.Visible),
      Length(other.Length), BL(other.BL), Birth(other.Birth), PartCreep(other.PartCreep),
      WindArea(other.WindArea), BucklingData(other.BucklingData),
      BucklingLengthLdir(other.BucklingLengthLdir), BucklingLengthNdir(other.BucklingLengthNdir),
      LatBucklingLengthLdir(other.LatBucklingLengthLdir),
      LatBucklingLengthNdir(other.LatBucklingLengthNdir), TorsionAD(other.TorsionAD),
      MemberPtr(other.MemberPtr), TransMatrix(other.TransMatrix),
      DesignSectionList(other.DesignSectionList), AxialList(other.AxialList),
      MassList(other.MassList) {}

void CElement::UpdateSectionList(const std::vector<double>& positions) {
    // Positions closer than this along the element (x/l) are one design section.
    constexpr double kSamePosition = 1e-6;
    std::vector<std::unique_ptr<CDesignSection>> sections;
    for (const CDesignSection* held : DesignSectionList)
        sections.push_back(std::make_unique<CDesignSection>(*held));
    for (const double x : positions) {
        const bool held = std::any_of(sections.begin(), sections.end(), [x](const auto& d) {
            return std::fabs(d->GetXoverL() - x) < kSamePosition;
        });
        if (held) continue;
        const int node = x < kSamePosition ? NodeNo1 : x > 1.0 - kSamePosition ? NodeNo2 : 0;
        auto section = std::make_unique<CDesignSection>(x, 0, node);
        if (NodeNo1Ptr && NodeNo2Ptr) {
            section->SetX(NodeNo1Ptr->GetX() + x * (NodeNo2Ptr->GetX() - NodeNo1Ptr->GetX()));
            section->SetY(NodeNo1Ptr->GetY() + x * (NodeNo2Ptr->GetY() - NodeNo1Ptr->GetY()));
            section->SetZ(NodeNo1Ptr->GetZ() + x * (NodeNo2Ptr->GetZ() - NodeNo1Ptr->GetZ()));
        }
        sections.push_back(std::move(section));
    }
    std::stable_sort(sections.begin(), sections.end(),
                     [](const auto& a, const auto& b) { return a->GetXoverL() < b->GetXoverL(); });
    DesignSectionList.RemoveAll();
    for (auto& section : sections) DesignSectionList.Add(std::move(section));
}

void CElement::AddWindArea(const double* values) {
    for (int i = 0; i < 9; ++i) SetWindArea(i, GetWindArea(i) + values[i]);
}

double CElement::CalcAxialForce() const {
    double sum = 0.0;
    for (const CAxial* a : AxialList) sum += a->GetAxialValue();
    SectParamCache[6] = sum;
    return sum;
}

double CElement::CalcMLMoment() const {
    double sum = 0.0;
    for (const CAxial* a : AxialList) sum += a->GetMLValue();
    return sum;
}

double CElement::CalcMNMoment() const {
    double sum = 0.0;
    for (const CAxial* a : AxialList) sum += a->GetMNValue();
    return sum;
}

} // namespace kelo

// ==== Analysis side: local axes, stiffness, end releases and the cached state of a run.

namespace kelo {

namespace {

using Row3 = std::array<double, 3>;

// The section values of an element are worked out by CElement::CalcElementSectParam, from the
// element's own section or from the sections along its reference line. Until an element type
// offers that look-up it has no section values.
template <class Elem> int LookUpSectParam(Elem& element, CStructure* structure, double* v) {
    if constexpr (requires {
                      element.CalcElementSectParam(structure, v, v + 1, v + 2, v + 3, v + 4, v + 5,
                                                   v + 6, v + 7, v + 8, v + 9);
                  }) {
        return element.CalcElementSectParam(structure, v, v + 1, v + 2, v + 3, v + 4, v + 5, v + 6,
                                            v + 7, v + 8, v + 9);
    } else {
        return 0;
    }
}

// A section made on a reference line at a station, owned by the caller, by the line's
// CreateKeySection with the update mode of a query (geometry and properties); null where the
// line makes none.
template <class Line> std::unique_ptr<CKeySection> MakeSectionOnLine(Line& line, double station) {
    // Geometry and properties only: the section is read and thrown away.
    constexpr int kQueryMode = 4;
    if constexpr (requires { line.CreateKeySection(station, kQueryMode); }) {
        auto made = line.CreateKeySection(station, kQueryMode);
        return std::unique_ptr<CKeySection>(std::move(made));
    } else {
        return nullptr;
    }
}

Row3 Cross(const Row3& a, const Row3& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double Dot(const Row3& a, const Row3& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

// Local axes from the angle Alpha (degrees). beta is measured from the vertical plane through
// the element; an element within 0.001 rad of the vertical takes its L and N axes in plan.
void AxesByAngle(const Row3& d, double length, double alpha, Row3 rows[3]) {
    const double l = d[0] / length, m = d[1] / length, n = d[2] / length;
    const double beta = (90.0 - alpha) * 3.14159265359 / 180.0;
    const double sb = std::sin(beta), cb = std::cos(beta);
    const double t = std::acos(std::min(1.0, std::fabs(d[2]) / length));
    if (std::atan(t) < 0.001) {
        rows[0] = {sb, -n * cb, 0.0};
        rows[1] = {0.0, 0.0, n};
        rows[2] = {-cb, -n * sb, 0.0};
        return;
    }
    const double D = std::sqrt(1.0 - n * n);
    // The absolute value folds an Alpha beyond 0 to 180 degrees back into that range.
    const double A = std::fabs(sb * D);
    const double B = cb * D;
    const double D2 = D * D;
    rows[0] = {(m * A - l * n * B) / D2, -(l * A + m * n * B) / D2, B};
    rows[1] = {l, m, n};
    rows[2] = {-(l * n * A + m * B) / D2, (l * B - m * n * A) / D2, A};
}

// Local axes through a point P on the N side of the element: N is the part of node 1 to P
// normal to the element, L = M x N. 0 when that part has no length.
int AxesByPoint(const Row3& d, double length, const Row3& node1, const Row3& p, Row3 rows[3]) {
    const Row3 q = {p[0] - node1[0], p[1] - node1[1], p[2] - node1[2]};
    const double a = Dot(d, d), b = Dot(d, q);
    const Row3 h = {a * q[0] - b * d[0], a * q[1] - b * d[1], a * q[2] - b * d[2]};
    const double hn = std::sqrt(Dot(h, h));
    if (!(hn > 0.0)) return 0;
    rows[1] = {d[0] / length, d[1] / length, d[2] / length};
    rows[2] = {h[0] / hn, h[1] / hn, h[2] / hn};
    rows[0] = Cross(rows[1], rows[2]);
    return 1;
}

void ClearMatrix(double K[12][12]) {
    for (int i = 0; i < 12; ++i) std::fill(K[i], K[i] + 12, 0.0);
}

} // namespace

void CElement::SetSectionPtr(CKeySection* section) {
    SectionPtr = section;
    if (!section) return;
    switch (section->GetType()) {
    case 20:
        Type = 2;
        break;
    case 21:
        Type = 3;
        break;
    case 22:
        Type = 4;
        break;
    default:
        break;
    }
}

void CElement::CalcElementLength() {
    if (!NodeNo1Ptr || !NodeNo2Ptr) return;
    const double dx = NodeNo2Ptr->GetX() - NodeNo1Ptr->GetX();
    const double dy = NodeNo2Ptr->GetY() - NodeNo1Ptr->GetY();
    const double dz = NodeNo2Ptr->GetZ() - NodeNo1Ptr->GetZ();
    Length = std::sqrt(dx * dx + dy * dy + dz * dz);
}

int CElement::CalcElementProp(CStructure* structure) {
    if (!NodeNo1Ptr || !NodeNo2Ptr) return 0;
    CalcElementLength();
    return MakeTransMatrix(structure);
}

int CElement::MakeTransMatrix(CStructure* structure) {
    if (!NodeNo1Ptr || !NodeNo2Ptr) return 0;
    const Row3 node1 = {NodeNo1Ptr->GetX(), NodeNo1Ptr->GetY(), NodeNo1Ptr->GetZ()};
    const Row3 d = {NodeNo2Ptr->GetX() - node1[0], NodeNo2Ptr->GetY() - node1[1],
                    NodeNo2Ptr->GetZ() - node1[2]};
    Length = std::sqrt(Dot(d, d));
    if (!(Length > 0.0)) return 0;

    Row3 rows[3] = {};
    switch (LocAxisCode) {
    case 2:
    case 4:
        AxesByAngle(d, Length, Alpha, rows);
        break;
    case 1:
    case 3:
    case 5: {
        // A point far out in the direction of NDirCode; with code 1 it replaces one coordinate of
        // node 3, so that node 3 fixes the other two.
        constexpr double kFar = 1e6;
        Row3 p = {0.0, 0.0, 0.0};
        if (LocAxisCode == 1) {
            if (!NodeNo3Ptr) return 0;
            p = {NodeNo3Ptr->GetX(), NodeNo3Ptr->GetY(), NodeNo3Ptr->GetZ()};
        }
        if (LocAxisCode == 1 || LocAxisCode == 3) {
            if (NDirCode >= 1 && NDirCode <= 6)
                p[static_cast<std::size_t>((NDirCode - 1) % 3)] = NDirCode <= 3 ? kFar : -kFar;
        }
        if (LocAxisCode == 5) {
            // A column's N side lies ahead along the line it stands on, at the column's station.
            if (NodeNo3Ptr || !structure) return 0;
            CRefLine* column = structure->GetRefLinePtr(NodeNo1Ptr->GetRefLineNo());
            if (!column || column->GetColumn() != 1) return 0;
            CRefLine* parent = structure->GetRefLinePtr(column->GetRefLineFromColumn());
            if (!parent) return 0;
            const double station = column->GetColumnAtStationNo();
            double c1[3] = {}, c2[3] = {};
            if (parent->CalcCoordByStation(station, c1) &&
                parent->CalcCoordByStation(station + 0.1, c2)) {
                const Row3 t = {c2[0] - c1[0], c2[1] - c1[1], c2[2] - c1[2]};
                const double s = Dot(t, t);
                if (s > 0.0)
                    for (std::size_t i = 0; i < 3; ++i) p[i] = c1[i] + kFar * t[i] / s;
            }
        }
        if (!AxesByPoint(d, Length, node1, p, rows)) return 0;
        break;
    }
    default:
        return 0;
    }
    // Round-off of the axis construction is cleared, so that an axis along a global direction
    // has exact zeros; the rows are not normalised again.
    constexpr double kZero = 1e-5;
    for (std::size_t r = 0; r < 3; ++r)
        for (std::size_t c = 0; c < 3; ++c)
            TransMatrix[r][c] = std::fabs(rows[r][c]) <= kZero ? 0.0 : rows[r][c];
    return 1;
}

int CElement::ReadSectParam(CStructure* structure, double* values) {
    if (UpdateFlag) {
        std::copy(SectParamCache.begin(), SectParamCache.end(), values);
        return 1;
    }
    std::fill(values, values + kSectParams, 0.0);
    if (!LookUpSectParam(*this, structure, values)) return 0;
    values[6] = CalcAxialForce();
    return 1;
}

void CElement::ApplyEndReleases(double K[12][12], double F[12]) const {
    const double joints[2] = {Joint1, Joint2};
    for (int end = 0; end < 2; ++end) {
        // A joint code is a six-digit decimal number, its first digit for translation along L and
        // its last for rotation about N; a digit 1 frees that freedom.
        double code = joints[end];
        double divisor = 100000.0;
        for (int i = 6 * end; i < 6 * end + 6; ++i, divisor /= 10.0) {
            if (!(divisor <= code)) continue;
            code -= divisor;
            const double p = K[i][i];
            // A freedom without stiffness has nothing to condense.
            if (p == 0.0) continue;
            double row[12], f[12];
            for (int a = 0; a < 12; ++a) {
                row[a] = K[i][a];
                f[a] = K[a][i] / p;
            }
            for (int a = 0; a < 12; ++a)
                for (int b = 0; b < 12; ++b) K[a][b] -= f[a] * row[b];
            if (F) {
                const double fi = F[i];
                for (int a = 0; a < 12; ++a) F[a] -= f[a] * fi;
            }
        }
    }
}

int CElement::MakeStiffMatrix(CStructure* structure, double K[12][12], double F[12], int anType,
                              int geomFlag) {
    ClearMatrix(K);
    if (Type < 0 || Type > 4) return 0;
    double v[kSectParams];
    if (!ReadSectParam(structure, v)) return 0;
    const double area = v[0], IL = v[1], IM = v[2], IN = v[3], N = v[6];
    double E = v[4] * 1000.0;
    const double nu = v[5];

    double k[12][12];
    ClearMatrix(k);
    if (Type >= 2) {
        // A spring acts between node 1 and the ground: node 2 takes no stiffness from it.
        if (Type == 2) {
            k[0][0] = IL;
            k[1][1] = IM;
            k[2][2] = IN;
        } else if (Type == 3) {
            k[3][3] = IL;
            k[4][4] = IM;
            k[5][5] = IN;
        } else if (SectionPtr) {
            // The 6 by 6 spring matrix stands row by row from the eighth section parameter on.
            const double* P = SectionPtr->GetParamArray();
            for (int i = 0; i < 6; ++i)
                for (int j = i; j < 6; ++j) k[i][j] = k[j][i] = P[7 + 6 * i + j];
        }
    } else {
        const double L = Length;
        if (!(L > 0.0)) return 0;
        // Age-adjusted modulus of a creep step.
        if (anType == 3) E = E / (0.85 * PartCreep + 1.0);
        const double G = E / ((1.0 + nu) * 2.0);
        // Bending without shear deformation.
        k[1][1] = E * area / L;
        k[4][4] = G * IM / L;
        k[2][2] = 12.0 * E * IL / (L * L * L);
        k[0][0] = 12.0 * E * IN / (L * L * L);
        k[3][3] = 4.0 * E * IL / L;
        k[5][5] = 4.0 * E * IN / L;
        k[2][3] = 6.0 * E * IL / (L * L);
        k[0][5] = -6.0 * E * IN / (L * L);
        k[3][9] = 2.0 * E * IL / L;
        k[5][11] = 2.0 * E * IN / L;
        if (geomFlag == 1) {
            // Geometric stiffness of the axial force N, tension positive (cubic shape functions).
            k[2][2] += 1.2 * N / L;
            k[0][0] += 1.2 * N / L;
            k[3][3] += 2.0 * N * L / 15.0;
            k[5][5] += 2.0 * N * L / 15.0;
            k[2][3] += N / 10.0;
            k[0][5] -= N / 10.0;
            k[3][9] -= N * L / 30.0;
            k[5][11] -= N * L / 30.0;
        }
        for (int i = 0; i < 6; ++i) k[i + 6][i + 6] = k[i][i];
        for (const int i : {0, 1, 2, 4}) k[i][i + 6] = -k[i][i];
        k[2][9] = k[2][3];
        k[3][8] = -k[2][3];
        k[8][9] = -k[2][3];
        k[0][11] = k[0][5];
        k[5][6] = -k[0][5];
        k[6][11] = -k[0][5];
        for (int i = 0; i < 12; ++i)
            for (int j = i + 1; j < 12; ++j) k[j][i] = k[i][j];
        if (std::fabs(Joint1 + Joint2) > 1e-15) ApplyEndReleases(k, F);
    }

    // K = T^t k T with T four copies of TransMatrix on the diagonal, block by block.
    for (int bi = 0; bi < 4; ++bi)
        for (int bj = 0; bj < 4; ++bj)
            for (int p = 0; p < 3; ++p)
                for (int q = 0; q < 3; ++q) {
                    double sum = 0.0;
                    for (int r = 0; r < 3; ++r)
                        for (int c = 0; c < 3; ++c)
                            sum += TransMatrix[static_cast<std::size_t>(r)]
                                              [static_cast<std::size_t>(p)] *
                                   k[3 * bi + r][3 * bj + c] *
                                   TransMatrix[static_cast<std::size_t>(c)]
                                              [static_cast<std::size_t>(q)];
                    K[3 * bi + p][3 * bj + q] = sum;
                }
    return 1;
}

int CElement::Update(CStructure* structure, int anType, int geomFlag, std::string* errMsg) {
    UpdateFlag = 0;
    if (!CalcElementProp(structure)) {
        if (errMsg)
            *errMsg = Format("Element update error: Unable to calc. local axis or node(s) non "
                             "exsisting, element no. %i\r\n",
                             No);
        return 0;
    }
    double K[12][12];
    LoadCache.fill(0.0);
    if (!MakeStiffMatrix(structure, K, LoadCache.data(), anType, geomFlag)) {
        if (errMsg)
            *errMsg = Format(
                "Element update error: Unable to calc. stiff. matrix., Element no. %i\r\n", No);
        return 0;
    }
    for (std::size_t i = 0; i < 12; ++i) std::copy(K[i], K[i] + 12, StiffCache[i].begin());
    double v[kSectParams];
    if (!ReadSectParam(structure, v)) {
        if (errMsg)
            *errMsg = Format(
                "Element update error: Unable to calc. section param., Element no. %i\r\n", No);
        return 0;
    }
    std::copy(v, v + kSectParams, SectParamCache.begin());
    UpdateFlag = 1;
    return 1;
}

void CElement::SetSectParamCache(const double* values) {
    std::copy(values, values + kSectParams, SectParamCache.begin());
    UpdateFlag = 1;
}

double CElement::GetSectParamCache(int i) const {
    return i >= 0 && i < kSectParams ? SectParamCache[static_cast<std::size_t>(i)] : 0.0;
}

double CElement::GetStiffCache(int i, int j) const {
    if (i < 0 || i >= 12 || j < 0 || j >= 12) return 0.0;
    return StiffCache[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
}

double CElement::GetLoadCache(int i) const {
    return i >= 0 && i < 12 ? LoadCache[static_cast<std::size_t>(i)] : 0.0;
}

std::unique_ptr<CKeySection> CElement::SectionOnRefLine(CStructure* structure,
                                                        double xOverL) const {
    if (!structure || !NodeNo1Ptr || NodeNo1Ptr->GetRefLineNo() == 0) return nullptr;
    CRefLine* line = structure->GetRefLinePtr(NodeNo1Ptr->GetRefLineNo());
    if (!line) return nullptr;
    const double s1 = NodeNo1Ptr->GetStationNo();
    const double s2 = NodeNo2Ptr ? NodeNo2Ptr->GetStationNo() : s1;
    return MakeSectionOnLine(*line, s1 + (s2 - s1) * xOverL);
}

double CElement::FindSectionArea(CStructure* structure, double xOverL) {
    if (UpdateFlag) return SectParamCache[0];
    if (SectionPtr) return SectionPtr->GetAc();
    if (auto section = SectionOnRefLine(structure, xOverL)) return section->GetAc();
    return -1.0;
}

double CElement::FindYoungsModulus(CStructure* structure) {
    if (UpdateFlag) return SectParamCache[4];
    if (SectionPtr) return SectionPtr->GetYoungsModulus();
    if (auto section = SectionOnRefLine(structure, 0.0)) return section->GetYoungsModulus();
    return 0.0;
}

double CElement::FindPoisson(CStructure* structure) {
    if (UpdateFlag) return SectParamCache[5];
    if (SectionPtr) return SectionPtr->GetPoisson();
    if (auto section = SectionOnRefLine(structure, 0.0)) return section->GetPoisson();
    return 0.0;
}

// ==== Element loads: restraint forces of a load, its section contribution, masses and wind.

namespace {

// Simpson's rule over ten intervals: exact for loads whose restraint integrand is at most cubic
// (uniform loads, point kernels), close for trapezoidal ones.
constexpr double kSimpson[11] = {1.0, 4.0, 2.0, 4.0, 2.0, 4.0, 2.0, 4.0, 2.0, 4.0, 1.0};

// Restraint forces of a force (q0 along L, q1 along M, q2 along N) at a from node 1 of a fixed
// beam of length L, added to F.
void AddPointForceEnds(double q0, double q1, double q2, double a, double L, double F[12]) {
    const double b = L - a;
    const double L2 = L * L, L3 = L2 * L;
    const double c1 = (L2 - a * a + a * b) / L3;
    const double c2 = (L2 - b * b + a * b) / L3;
    F[0] += -b * c1 * q0;
    F[1] += -(b / L) * q1;
    F[2] += -b * c1 * q2;
    F[3] += -a * b * b / L2 * q2;
    F[5] += a * b * b / L2 * q0;
    F[6] += -a * c2 * q0;
    F[7] += -(a / L) * q1;
    F[8] += -a * c2 * q2;
    F[9] += a * a * b / L2 * q2;
    F[11] += -a * a * b / L2 * q0;
}

// Restraint forces of a moment (about L, M, N) at a from node 1, added to F.
void AddPointMomentEnds(double m0, double m1, double m2, double a, double L, double F[12]) {
    const double b = L - a;
    const double L2 = L * L;
    const double h = -(a * a + b * b - L2) / L2;
    const double g1 = (a * a + 2.0 * b * b - L2) / L2;
    const double g2 = (2.0 * a * a + b * b - L2) / L2;
    F[0] += -3.0 * m2 * h / L;
    F[2] += 3.0 * m0 * h / L;
    F[3] += -m0 * g1;
    F[4] += -m1 * b / L;
    F[5] += -m2 * g1;
    F[6] += 3.0 * m2 * h / L;
    F[8] += -3.0 * m0 * h / L;
    F[9] += -m0 * g2;
    F[10] += -m1 * a / L;
    F[11] += -m2 * g2;
}

// Terrain categories 0 to 5 of the logarithmic wind profile: terrain factor, roughness length
// (m) and the height (m) below which the profile stays constant.
struct Terrain {
    double kT, z0, zmin;
};
constexpr Terrain kTerrain[6] = {{0.16, 0.003, 2.0}, {0.17, 0.01, 2.0}, {0.19, 0.05, 4.0},
                                 {0.22, 0.3, 8.0},   {0.24, 1.0, 16.0}, {0.17, 0.017, 1.0}};

} // namespace

void CElement::CalcWindArea(double W[10]) const {
    for (int i = 0; i < 10; ++i) W[i] = GetWindArea(i);
}

double CElement::CalcWindSpeed(double xOverL, CLoad* load) const {
    if (!load || !NodeNo1Ptr || !NodeNo2Ptr) return 0.0;
    const double z1 = NodeNo1Ptr->GetZ(), z2 = NodeNo2Ptr->GetZ();
    const double z = z1 + (z2 - z1) * xOverL;
    const double s = load->GetLoadValues(0);
    const double p3 = load->GetLoadValues(2), p4 = load->GetLoadValues(3);
    if (load->GetType() == 10) {
        // Power law over the height above p3, relative to 10 m.
        double r = (z - p3) / 10.0;
        if (r < 0.1) r = 0.0;
        const double exponent = p4 > 0.0001 ? p4 : 0.213;
        return s * std::pow(r, exponent);
    }
    const int category = static_cast<int>(p3);
    if (category < 0 || category > 5) return 0.0;
    const Terrain& t = kTerrain[category];
    const double h = z - p4;
    double c = 0.0, I = 0.0;
    if (h >= 0.0 && h <= t.zmin) {
        c = t.kT * std::log(t.zmin / t.z0);
        I = t.kT / c;
    } else if (h > t.zmin) {
        c = t.kT * std::log(h / t.z0);
        I = t.kT / c;
        if (category == 5) I *= 1.19;
    }
    // Type 60 gives the mean speed, 61 the gust speed with a peak factor on the turbulence.
    return load->GetType() == 61 ? c * s * std::sqrt(7.0 * I + 1.0) : c * s;
}

int CElement::PointLoad(const double d[6], double a, double F[12], double x, int flag) {
    std::fill(F, F + 12, 0.0);
    const double L = Length;
    a = std::min(a, L);
    if (x > 0.0) {
        // A section at node 2 is taken just inside the element.
        if (std::fabs(x - L) < 0.001) x = L - 0.001;
        if (x >= a && flag != 1) {
            F[0] = -d[0];
            F[1] = -d[1];
            F[2] = -d[2];
            F[3] = (x - a) * d[2] - d[3];
            F[4] = -d[4];
            F[5] = -d[0] * (x - a) - d[5];
        }
        return 1;
    }
    if (!(L > 0.0)) return 0;
    AddPointForceEnds(d[0], d[1], d[2], a, L, F);
    AddPointMomentEnds(d[3], d[4], d[5], a, L, F);
    return 0;
}

int CElement::TendonLoads(const double (*rows)[6], int count, int noOfTendons, double F[12],
                          double x, int flag) {
    std::fill(F, F + 12, 0.0);
    if (!rows || count < 2) return 1;
    const double s = Length / (count - 1);
    const double nT = noOfTendons;
    // The force P of the tendon in the direction of the stretch, with its moment about the
    // element axis at the lever (y along L, z along N).
    auto addForce = [&](double P, double a1, double a2, double y, double z, double at) {
        double d[6];
        d[0] = std::cos(a2) * P * std::sin(a1);
        d[1] = std::cos(a2) * P * std::cos(a1);
        d[2] = std::cos(a1) * P * std::sin(a2);
        d[3] = -d[1] * z;
        d[4] = d[0] * z - d[2] * y;
        d[5] = d[1] * y;
        double f[12];
        PointLoad(d, at, f, x, flag);
        for (int i = 0; i < 12; ++i) F[i] += f[i];
    };
    for (int i = 0; i + 1 < count; ++i) {
        const double P0 = nT * rows[i][1], P1 = nT * rows[i + 1][1];
        const double y0 = rows[i][2], z0 = rows[i][3], y1 = rows[i + 1][2], z1 = rows[i + 1][3];
        const double a1 = std::atan((y1 - y0) / s), a2 = std::atan((z1 - z0) / s);
        // The anchor force at the start of the stretch, the force leaving it at its end, and the
        // change of force along the stretch at its middle.
        addForce(P0, a1, a2, y0, z0, i * s);
        addForce(-P1, a1, a2, y1, z1, (i + 1) * s);
        addForce(P1 - P0, a1, a2, 0.5 * (y0 + y1), 0.5 * (z0 + z1), (i + 0.5) * s);
    }
    return 1;
}

int CElement::FixType(CStructure* structure, int type, double A, double B, double C, double D,
                      const double* vec, double F[12], double x) {
    std::fill(F, F + 12, 0.0);
    const double L = Length;
    const double zero[6] = {};
    const double* d = vec ? vec : zero;
    const bool ends = x <= 0.0;
    switch (type) {
    case 3: {
        // Uniform load over the whole length; C and D are the eccentricities (along L and N) of
        // its axial part, which makes moments.
        if (ends) {
            const double h = L / 2.0, g = L * L / 12.0;
            F[0] = -d[0] * h - d[1] * C;
            F[1] = -d[1] * h;
            F[2] = -d[2] * h - d[1] * D;
            F[3] = -d[2] * g;
            F[4] = (d[2] * C - d[0] * D) * h;
            F[5] = d[0] * g;
            F[6] = -d[0] * h + d[1] * C;
            F[7] = -d[1] * h;
            F[8] = -d[2] * h + d[1] * D;
            F[9] = d[2] * g;
            F[10] = F[4];
            F[11] = -d[0] * g;
        } else {
            F[0] = -x * d[0];
            F[1] = -x * d[1];
            F[2] = -x * d[2];
            F[3] = x * x * d[2] / 2.0;
            F[4] = x * (d[2] * C - d[0] * D);
            F[5] = -x * x * d[0] / 2.0 - x * d[1] * C;
        }
        return 1;
    }
    case 4: {
        // A force at C from node 1; beyond the element it acts at node 2.
        C = std::min(C, L);
        if (ends) {
            if (!(L > 0.0)) return 0;
            AddPointForceEnds(d[0], d[1], d[2], C, L, F);
        } else if (x >= C) {
            F[0] = -d[0];
            F[1] = -d[1];
            F[2] = -d[2];
            F[3] = (x - C) * d[2];
            F[5] = -d[0] * (x - C);
        }
        return 1;
    }
    case 5: {
        C = std::min(C, L);
        if (ends) {
            if (!(L > 0.0)) return 0;
            AddPointMomentEnds(d[0], d[1], d[2], C, L, F);
        } else if (x >= C) {
            F[3] = -d[0];
            F[4] = -d[1];
            F[5] = -d[2];
        }
        return 1;
    }
    case 6: {
        // Torque A per metre at node 1, growing by B to node 2.
        if (ends) {
            F[4] = -A * L / 2.0 - B * (L / 20.0) * 3.0;
            F[10] = -A * L / 2.0 - B * (L / 20.0) * 7.0;
        } else {
            F[4] = -A * x - 0.5 * B * x * x / L;
        }
        return 1;
    }
    case 2:
    case 12: {
        // An imposed strain or curvature held by the fixed ends: an axial force A and the
        // moments B about L and C about N, constant along the element.
        if (ends) {
            F[1] = A;
            F[7] = -A;
            F[3] = B;
            F[9] = -B;
            F[5] = C;
            F[11] = -C;
        }
        return 1;
    }
    case 7:
    case 11: {
        // A straight tendon of force A (times the factor B) from eccentricity C at node 1 to
        // C + D at node 2, along N.
        const double e1 = C, e2 = C + D;
        const double t = std::atan((e2 - e1) / L);
        if (B > 0.001) A = A * B;
        if (ends) {
            F[1] = -A * std::cos(t);
            F[2] = -A * std::sin(t);
            F[3] = A * std::cos(t) * e1;
            F[7] = -F[1];
            F[8] = -F[2];
            F[9] = -A * std::cos(t) * e2;
        } else if (type == 11) {
            F[1] = -A * std::cos(t);
            F[2] = -A * std::sin(t);
            F[3] = A * std::cos(t) * ((e2 - e1) * x / L + e1);
        }
        return 1;
    }
    case 1:
    case 8: {
        // A load from C after node 1 to D before node 2, d[0..2] at its start growing by
        // d[3..5] to its end.
        const double Lq = L - C - D;
        if (ends) {
            if (!(L > 0.0)) return 0;
            const double h = Lq / 10.0;
            for (int k = 0; k <= 10; ++k) {
                const double a = C + k * h;
                const double w = h * kSimpson[k] / 3.0;
                AddPointForceEnds((d[0] + k * d[3] / 10.0) * w, (d[1] + k * d[4] / 10.0) * w,
                                  (d[2] + k * d[5] / 10.0) * w, a, L, F);
            }
            return 1;
        }
        if (x < C || !(Lq > 0.0)) return 1;
        // Resultants of the loaded part before the section, and their levers from it.
        double u = x - C, e = 0.0;
        if (!(Lq > u)) {
            u = Lq;
            e = x - C - Lq;
        }
        const double r = u / Lq;
        const double R0 = (0.5 * r * d[3] + d[0]) * u;
        const double R1 = (0.5 * r * d[4] + d[1]) * u;
        const double R2 = (0.5 * r * d[5] + d[2]) * u;
        double e0 = 0.0, e2 = 0.0;
        if (std::fabs(R0) >= 1e-5) e0 = (d[0] * u * u / 2.0 + d[3] * r * u * u / 6.0) / R0 + e;
        if (std::fabs(R2) >= 1e-5) e2 = (d[2] * u * u / 2.0 + d[5] * r * u * u / 6.0) / R2 + e;
        F[0] = -R0;
        F[1] = -R1;
        F[2] = -R2;
        F[3] = R2 * e2;
        F[5] = -R0 * e0;
        return 1;
    }
    case 9: {
        // The intensity d integrated as point loads between D from node 1 and B from node 2.
        double h = (L - D - B) / 10.0;
        if (!ends) {
            if (x <= D + 0.001) return 1;
            if (x <= L - B + 0.001) h = (x - D - 0.001) / 10.0;
        }
        double f[12];
        for (int k = 0; k <= 10; ++k) {
            PointLoad(d, D + k * h, f, x, 0);
            const double w = h * kSimpson[k] / 3.0;
            for (int i = 0; i < 12; ++i) F[i] += w * f[i];
        }
        return 1;
    }
    case 15: {
        // A tendon through the element: A its number, C the flag that keeps it out of the
        // section forces (1); D and B, the stages between which it acts, play no part: the
        // tendon's forces are those of one state whatever the stage. Its geometry and losses are
        // worked out when they are not up to date; an element that the tendon does not pass gets
        // no load.
        CTendon* tendon = structure ? structure->GetTendonPtr(static_cast<int>(A)) : nullptr;
        if (!tendon) return 0;
        const int flag = static_cast<int>(C);
        if (!tendon->IsUpdate() && !tendon->Update(structure)) return 0;
        double rows[CTendon::kPointsPerElement][6] = {};
        int count = 0;
        if (!tendon->GetTenElementData(No, &count, rows)) return 1;
        return TendonLoads(rows, std::min(count, CTendon::kPointsPerElement),
                           tendon->GetNoOfTendons(), F, x, flag);
    }
    default:
        return 0;
    }
}

int CElement::FixedEndForces(CStructure* structure, CLoad* load, double F[12], double xOverL,
                             int mode, int anType) {
    std::fill(F, F + 12, 0.0);
    if (!load) return 0;
    double W[10];
    CalcWindArea(W);
    const int type = load->GetType();
    const double L = Length;
    const double x = xOverL * L + 0.0001;
    int result = 1;
    if (anType == 3) {
        // A creep step loads the element only by the creep of the sustained forces of its
        // creep combination; every other load is in the results the step starts from.
        if (type != 50 || load->GetElementNo() != No) return 1;
        if (!structure || !structure->GetCreepCombPtr(static_cast<int>(load->GetLoadValues(0))))
            return 0;
        if (DesignSectionList.IsEmpty()) return 0;
        // The creep deformation of the step comes from the stored section forces of the
        // combination, which the element does not read: the step fails rather than run
        // without its load.
        return 0;
    }
    int dir = load->GetDirection();
    double p1 = load->GetLoadValues(0), p2 = load->GetLoadValues(1);
    double p3 = load->GetLoadValues(2), p4 = load->GetLoadValues(3);
    switch (type) {
    case 1: {
        // Unit weight times the section area, varying linearly between the ends.
        const double a0 = FindSectionArea(structure, 0.0);
        const double a1 = FindSectionArea(structure, 1.0);
        if (a0 < 0.0 || a1 < 0.0) return 0;
        p4 = (a1 - a0) * p1;
        p1 = a0 * p1;
        p2 = p3 = 0.0;
        break;
    }
    case 2: {
        // Temperature (degrees) held by the fixed ends: p1 uniform, p2 and p3 gradients (per m
        // of depth) about N and L, p4 the expansion coefficient in 1e-5 per degree.
        const double t = p4 < 1e-5 ? 1e-5 : p4 * 1e-5;
        double v[kSectParams] = {};
        ReadSectParam(structure, v);
        const double E = v[4] * 1000.0;
        p1 = p1 * t * E * v[0];
        p2 = p2 * t * E * v[3];
        p4 = -p3 * t * E * v[1];
        p3 = 0.0;
        dir = 5;
        break;
    }
    case 12: {
        // An imposed strain in per mille.
        double v[kSectParams] = {};
        ReadSectParam(structure, v);
        p1 = p1 / 1000.0 * v[4] * 1000.0 * v[0];
        p2 = p3 = p4 = 0.0;
        dir = 5;
        break;
    }
    case 7:
    case 11:
    case 15:
        dir = 5;
        break;
    case 8:
        std::swap(p3, p4);
        break;
    default:
        break;
    }

    if (type == 10 || type == 60 || type == 61) {
        // Wind at the angle p2 (degrees, from X in plan) with the pressure of the speed at each
        // end, taken by the drag, lift and moment areas of the N and L directions.
        const double th = p2 * 3.141592 / 180.0;
        constexpr double kAirDensity = 0.00125;
        double pL[2], pN[2], torque[2];
        for (int end = 0; end < 2; ++end) {
            const double v = CalcWindSpeed(end, load);
            const double sign = v < 0.0 ? -1.0 : 1.0;
            const double q = 0.5 * kAirDensity * v * v;
            const double wx = sign * q * std::cos(th), wy = sign * q * std::sin(th);
            const double a = TransMatrix[0][0] * wx + TransMatrix[0][1] * wy;
            const double b = TransMatrix[2][0] * wx + TransMatrix[2][1] * wy;
            pL[end] = a * W[0] + std::fabs(b) * W[6];
            pN[end] = std::fabs(a) * W[1] + b * W[5];
            torque[end] = a * W[3] + b * W[8];
        }
        const double d[6] = {pL[0], 0.0, pN[0], pL[1] - pL[0], 0.0, pN[1] - pN[0]};
        double f[12];
        result = FixType(structure, 8, p1, p4, 0.0, 0.0, d, f, x);
        for (int i = 0; i < 12; ++i) F[i] += f[i];
        result = std::min(
            result, FixType(structure, 6, torque[0], torque[1] - torque[0], 0.0, 0.0, d, f, x));
        for (int i = 0; i < 12; ++i) F[i] += f[i];
    } else if (type != 50) {
        // The load's intensity p1 and its increase p4 in local axes.
        double d[6] = {};
        if (dir >= 4 && dir <= 6) {
            d[dir - 4] = p1;
            d[dir - 1] = p4;
        } else if (dir >= 1 && dir <= 3) {
            for (std::size_t i = 0; i < 3; ++i) {
                d[i] = TransMatrix[i][static_cast<std::size_t>(dir - 1)] * p1;
                d[i + 3] = TransMatrix[i][static_cast<std::size_t>(dir - 1)] * p4;
            }
        }
        result = FixType(structure, type, p1, p4, p2, p3, d, F, x);
    }

    if (mode != 3) {
        if (Joint1 + Joint2 > 0.0) {
            double K[12][12];
            if (!MakeStiffMatrix(structure, K, F, anType, 0)) return 0;
        }
        if (mode != 1) {
            double local[12];
            std::copy(F, F + 12, local);
            for (int block = 0; block < 4; ++block)
                for (std::size_t c = 0; c < 3; ++c) {
                    double sum = 0.0;
                    for (std::size_t r = 0; r < 3; ++r)
                        sum += TransMatrix[r][c] * local[3 * block + static_cast<int>(r)];
                    F[3 * block + static_cast<int>(c)] = sum;
                }
        }
    }
    return result;
}

int CElement::FixedEndMass(CStructure* structure, CMass* mass, double m[12], int /*mode*/,
                           int /*anType*/) {
    std::fill(m, m + 12, 0.0);
    if (!mass) return 0;
    const int dir = mass->GetDirection();
    const double w = mass->GetMassValues(0);
    const double L = Length;
    // Direction 0 puts the mass on all three translations, 1 to 3 on X, Y or Z only.
    auto put = [&](int base, double value) {
        if (dir == 0)
            for (int i = 0; i < 3; ++i) m[base + i] = value;
        else if (dir >= 1 && dir <= 3)
            m[base + dir - 1] = value;
    };
    switch (mass->GetType()) {
    case 1: {
        // Mass per m3 of the section.
        const double area = FindSectionArea(structure, 0.0);
        if (area < 0.0) return 0;
        put(0, 0.5 * w * L * area);
        put(6, 0.5 * w * L * area);
        return 1;
    }
    case 2:
        return 1;
    case 3:
        put(0, 0.5 * w * L);
        put(6, 0.5 * w * L);
        return 1;
    case 4:
    case 5: {
        // A lumped mass (type 4) or mass moment of inertia (type 5) at a from node 1, shared
        // by the lever rule.
        if (!(L > 0.0)) return 0;
        const double a = std::min(mass->GetMassValues(1), L);
        if (mass->GetType() == 4) {
            put(0, (L - a) * w / L);
            put(6, a * w / L);
        } else if (dir >= 1 && dir <= 3) {
            m[3 + dir - 1] = (L - a) * w / L;
            m[9 + dir - 1] = a * w / L;
        }
        return 1;
    }
    default:
        return 0;
    }
}

} // namespace kelo
