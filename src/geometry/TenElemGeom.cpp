#include "geometry/TenElemGeom.h"

#include "frame/Element.h"
#include "geometry/KeySection.h"
#include "geometry/RefLine.h"
#include "geometry/Tendon.h"
#include "geometry/TendonGeom.h"
#include "model/Node.h"
#include "model/Structure.h"

#include <cmath>
#include <memory>

namespace kelo {

namespace {

// Relative positions closer than this are one.
constexpr double kTol = 1e-5;

// The triple (value, slope, curvature) of one direction at ξ on the element from the slots.
bool OffsetOf(const std::array<CTenElemGeom::Slot, 2>& slots, double xi, double* v) {
    for (const CTenElemGeom::Slot& slot : slots) {
        if (!slot.Piece) continue;
        if (xi < slot.ElemFrom - kTol || xi > slot.ElemTo + kTol) continue;
        const double span = slot.ElemTo - slot.ElemFrom;
        const double xiPiece =
            std::fabs(span) < kTol
                ? slot.PieceFrom
                : slot.PieceFrom + (xi - slot.ElemFrom) / span * (slot.PieceTo - slot.PieceFrom);
        slot.Piece->CalcTenGeom(xiPiece, &v[0], &v[1], &v[2]);
        return true;
    }
    return false;
}

} // namespace

int CTenElemGeom::SetElemGeom(int dir, const CTendonGeom* piece, double pieceFrom, double elemFrom,
                              double pieceTo, double elemTo) {
    if (dir != 1 && dir != 2) return 0;
    std::array<Slot, 2>& slots = dir == 2 ? SlotN : SlotL;
    const Slot value{piece, pieceFrom, elemFrom, pieceTo, elemTo};
    // A piece from the element's start takes slot A and one to its end slot B; a piece inside
    // the element takes A while A is free.
    if (std::fabs(elemFrom) <= kTol) {
        slots[0] = value;
    } else if (std::fabs(elemTo - 1.0) <= kTol) {
        slots[1] = value;
    } else if (elemFrom > kTol && elemTo < 1.0) {
        slots[slots[0].Piece ? 1 : 0] = value;
    } else {
        return 0;
    }
    return 1;
}

int CTenElemGeom::GetElemGeom(int dir, int slot, const CTendonGeom** piece, double* pieceFrom,
                              double* elemFrom, double* pieceTo, double* elemTo) const {
    if ((dir != 1 && dir != 2) || (slot != 0 && slot != 1)) return 0;
    const Slot& s = (dir == 2 ? SlotN : SlotL)[static_cast<std::size_t>(slot)];
    if (piece) *piece = s.Piece;
    if (pieceFrom) *pieceFrom = s.PieceFrom;
    if (elemFrom) *elemFrom = s.ElemFrom;
    if (pieceTo) *pieceTo = s.PieceTo;
    if (elemTo) *elemTo = s.ElemTo;
    return s.Piece ? 1 : 0;
}

int CTenElemGeom::CalcOffset(double xi, double* const lValues, double* const nValues) const {
    for (int i = 0; i < 3; ++i) lValues[i] = nValues[i] = 0.0;
    if (ElementNo == 0 && !Element) return 0;
    if (xi < kTol) xi = kTol;
    OffsetOf(SlotL, xi, lValues);
    return OffsetOf(SlotN, xi, nValues) ? 1 : 0;
}

int CTenElemGeom::CalcTendonCoord(const CTendon* tendon, CStructure* structure, double xi,
                                  double* const coord, double* const l, double* const n,
                                  int relativeType, double* x) const {
    if (!structure) return 0;
    CElement* e = structure->GetElementPtr(ElementNo);
    if (!e) return 0;
    CNode* n1 = structure->GetNodePtr(e->GetNodeNo1());
    CNode* n2 = structure->GetNodePtr(e->GetNodeNo2());
    if (!n1 || !n2) return 0;
    // The axes are made from the node pointers, which may not have been cached yet.
    if (e->GetNodeNo1Ptr() != n1) e->SetNodeNo1Ptr(n1);
    if (e->GetNodeNo2Ptr() != n2) e->SetNodeNo2Ptr(n2);
    if (e->GetNodeNo3() > 0 && !e->GetNodeNo3Ptr())
        e->SetNodeNo3Ptr(structure->GetNodePtr(e->GetNodeNo3()));
    if (!e->MakeTransMatrix(structure)) return 0;

    const double node1[3] = {n1->GetX(), n1->GetY(), n1->GetZ()};
    const double node2[3] = {n2->GetX(), n2->GetY(), n2->GetZ()};
    double point[3], ly[3], nz[3];
    for (int i = 0; i < 3; ++i) {
        point[i] = node1[i] + xi * (node2[i] - node1[i]);
        ly[i] = e->GetTransMatrix(0, i);
        nz[i] = e->GetTransMatrix(2, i);
    }

    double lv[3], nv[3];
    if (!CalcOffset(xi, lv, nv)) return 0;
    double addL = 0.0, addN = 0.0;
    if (tendon) tendon->GetRelInfo(structure, &addL, &addN);
    double oL = lv[0] + addL, oN = nv[0] + addN;
    double station = xi * std::sqrt((node2[0] - node1[0]) * (node2[0] - node1[0]) +
                                    (node2[1] - node1[1]) * (node2[1] - node1[1]) +
                                    (node2[2] - node1[2]) * (node2[2] - node1[2]));

    CRefLine* line = nullptr;
    std::unique_ptr<CKeySection> section;
    if (relativeType >= 2 && relativeType <= 5) {
        int lineNo = 0;
        double s1 = 0.0, s2 = 0.0;
        if (e->FindReflineConnection(structure, &lineNo, &s1, &s2, nullptr) && lineNo > 0)
            line = structure->GetRefLinePtr(lineNo);
        if (line) {
            station = s1 + (s2 - s1) * xi;
            if (relativeType != 4) {
                const SectionEnv env = SectionEnv::OfProject(structure, lineNo);
                section = line->CreateSectionAt(station, nullptr, 4, &env);
            }
        }
    }
    if (x) *x = station;

    double vL[3], vN[3];
    if (relativeType == 4) {
        // Offsets from the line: oL across in plan, to the right of travel, and oN up.
        if (!line) return 0;
        double p[3] = {0.0, 0.0, 0.0}, d[3] = {0.0, 0.0, 0.0};
        if (!line->CalcCoordByStation(station, p) || !line->CalcDirByStation(station, d)) return 0;
        const double plan = std::hypot(d[0], d[1]);
        if (plan <= 0.0) return 0;
        const double c = d[0] / plan, s = d[1] / plan;
        const double v[2] = {p[0] - point[0] + oL * s, p[1] - point[1] - oL * c};
        const double len = std::hypot(v[0], v[1]);
        const double vertical = p[2] + oN - point[2];
        oL = v[0] * s - v[1] * c < 0.0 ? -len : len;
        oN = vertical;
        vL[0] = v[0];
        vL[1] = v[1];
        vL[2] = 0.0;
        vN[0] = vN[1] = 0.0;
        vN[2] = vertical;
    } else {
        if (section) {
            double el = 0.0, en = 0.0;
            const double pointNo = tendon ? tendon->GetRelPointNo() : -1.0;
            if (!section->TendonCoordByFaceOffset(relativeType, oL, oN, el, en, pointNo)) return 0;
            oL = el;
            oN = en;
        }
        for (int i = 0; i < 3; ++i) {
            vL[i] = oL * ly[i];
            vN[i] = oN * nz[i];
        }
    }
    for (int i = 0; i < 3; ++i) {
        coord[i] = point[i] + vL[i] + vN[i];
        coord[3 + i] = vL[i];
        coord[6 + i] = vN[i];
    }
    l[0] = oL;
    l[1] = lv[1];
    l[2] = lv[2];
    n[0] = oN;
    n[1] = nv[1];
    n[2] = nv[2];
    return 1;
}

} // namespace kelo
