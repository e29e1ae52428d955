#include "geometry/LineElem.h"

#include "geometry/KeySection.h"

#include <cmath>

namespace kelo {

int CLineElem::CalcPoly(const CKeySection* section) {
    if (!section) return 1;
    const CSectPoint* p1 = section->GetSectPointPtr(PLine, PointNo1);
    const CSectPoint* p2 = section->GetSectPointPtr(PLine, PointNo2);
    if (!p1 || !p2) return 0;
    SetEnds(p1->GetX(), p1->GetY(), p2->GetX(), p2->GetY());
    return 1;
}

int CLineElem::CalcProp() {
    const double dx = X2 - X1, dy = Y2 - Y1;
    Length = std::hypot(dx, dy);
    A = Cx = Cy = Ix = Iy = Ixy = 0.0;
    if (Length <= 0.0 || Thickness <= 0.0) return 0;
    A = Thickness * Length;
    Cx = (X1 + X2) / 2.0;
    Cy = (Y1 + Y2) / 2.0;
    Ix = A * dy * dy / 12.0;
    Iy = A * dx * dx / 12.0;
    Ixy = A * dx * dy / 12.0;
    return 1;
}

int CLineElem::Update(const CKeySection* section) {
    return CalcPoly(section) && CalcProp() ? 1 : 0;
}

} // namespace kelo
