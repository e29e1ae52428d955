#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

#include <array>

namespace kelo {

class CElement;
class CStructure;
class CTendon;
class CTendonGeom;

// Where a tendon's path pieces lie on one element. Each direction (L and N) has two slots,
// A and B, since a piece boundary may lie inside the element. A slot holds its piece and the
// relative spans: from and to on the piece, from and to on the element.
class CTenElemGeom : public CObject {
public:
    struct Slot {
        const CTendonGeom* Piece = nullptr;
        double PieceFrom = 0.0, ElemFrom = 0.0, PieceTo = 0.0, ElemTo = 0.0;
    };

    CTenElemGeom() = default;
    CTenElemGeom(int elementNo, CElement* element) : ElementNo(elementNo), Element(element) {}
    int KeyNo() const { return ElementNo; }

    KELO_FIELD(int, ElementNo, 0)
    KELO_FIELD(CElement*, Element, nullptr)
    // Where the element starts along the path (m of piece length for pieces by elements, the
    // station for pieces by stations or axes): the loss calculation walks the elements in this
    // order.
    KELO_FIELD(double, PathPos, 0.0)

public:
    // dir 2 N, 1 L. 1 stored, else 0.
    int SetElemGeom(int dir, const CTendonGeom* piece, double pieceFrom, double elemFrom,
                    double pieceTo, double elemTo);
    // slot 0 A, 1 B. 1 if the slot holds a piece.
    int GetElemGeom(int dir, int slot, const CTendonGeom** piece, double* pieceFrom,
                    double* elemFrom, double* pieceTo, double* elemTo) const;
    // Offsets (value, slope, curvature) of both directions at ξ on the element. 1 if the N
    // direction was found.
    int CalcOffset(double xi, double* const lValues, double* const nValues) const;
    // Position of the tendon at ξ: coord[0..2] global point, coord[3..5] the vector oL·(local y),
    // coord[6..8] the vector oN·(local z); l and n the offset triples of the path (value, slope,
    // curvature) with the values replaced by the offsets from the element axis used (m). x, when
    // given, gets the station on the element's line (types 2 to 5) or the distance from node 1.
    // Types 2, 3 and 5 measure from the section on the element's line at the point (with no
    // section there the offsets are taken from the axis); type 4 from the line itself, so it
    // fails (0) without a line. 1, or 0 on failure.
    int CalcTendonCoord(const CTendon* tendon, CStructure* structure, double xi,
                        double* const coord, double* const l, double* const n, int relativeType,
                        double* x) const;

private:
    std::array<Slot, 2> SlotN{}, SlotL{};
};

} // namespace kelo
