#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

namespace kelo {

class CKeySection;

// A panel of a thin-walled section: a plate of thickness t along the straight line between two
// section points. Its properties are those of the plate's centre line, thin-walled: A = t·l about
// the middle of the line, Ix = t·l·Δy²/12, Iy = t·l·Δx²/12, Ixy = t·l·Δx·Δy/12, the plate's own
// t³ terms left out. A panel marked closed is a wall of a closed cell and carries torsion by
// shear flow round the cell; an open one by its own St. Venant stiffness t³·l/3.
class CLineElem : public CObject {
public:
    CLineElem() = default;
    // Points are given by polyline (0: the section's own outline) and number.
    CLineElem(int no, int pLine, double pointNo1, double pointNo2, double thickness, int closed)
        : No(no), PLine(pLine), PointNo1(pointNo1), PointNo2(pointNo2), Thickness(thickness),
          Closed(closed) {}

    int KeyNo() const { return No; }

    // Takes the end coordinates from the section's points; without a section, or for a point the
    // section hasn't, the stored ends stay. Answers 0 when an end point is missing.
    int CalcPoly(const CKeySection* section = nullptr);
    // Answers 0 for a panel of no length or no thickness, with zero results.
    int CalcProp();
    int Update(const CKeySection* section = nullptr);

    void SetEnds(double x1, double y1, double x2, double y2) {
        X1 = x1;
        Y1 = y1;
        X2 = x2;
        Y2 = y2;
    }

    KELO_FIELD(int, No, 0)
    KELO_FIELD(int, Type, 0)
    KELO_FIELD(int, PLine, 0)
    KELO_FIELD(double, PointNo1, 0.0)
    KELO_FIELD(double, PointNo2, 0.0)
    KELO_FIELD(double, Thickness, 0.0)
    KELO_FIELD(int, Closed, 0)
    KELO_FIELD(int, MatParNo, 0)
    KELO_FIELD(int, DesParNo, 0)
    KELO_FIELD(double, X1, 0.0)
    KELO_FIELD(double, Y1, 0.0)
    KELO_FIELD(double, X2, 0.0)
    KELO_FIELD(double, Y2, 0.0)
    KELO_FIELD(double, Length, 0.0)
    KELO_FIELD(double, A, 0.0)
    KELO_FIELD(double, Cx, 0.0)
    KELO_FIELD(double, Cy, 0.0)
    KELO_FIELD(double, Ix, 0.0)
    KELO_FIELD(double, Iy, 0.0)
    KELO_FIELD(double, Ixy, 0.0)
};

} // namespace kelo
