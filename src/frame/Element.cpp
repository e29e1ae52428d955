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

} // namespace kelo
