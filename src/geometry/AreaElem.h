#pragma once

#include "geometry/PolyLine.h"
#include "platform/Field.h"
#include "platform/Object.h"

#include <memory>

namespace kelo {

class CKeySection;

// Area integrals of a polygon by Green's theorem, each edge integrated by Simpson's rule on
// eight parts, which is exact for the straight edges of a polygon. A, ∫x dA and ∫y dA are about
// the section origin; Ixx = ∫y² dA, Iyy = ∫x² dA and Ixy = ∫xy dA about the centre (Cx, Cy).
// A counter-clockwise outline has a positive area; with an area of 0 or less the centre is left
// at the origin.
struct OutlineIntegrals {
    double A = 0.0;
    double Sx = 0.0, Sy = 0.0;
    double Cx = 0.0, Cy = 0.0;
    double Ixx = 0.0, Iyy = 0.0, Ixy = 0.0;

    // Edges from each point to the next; with ring set also from the last point to the first.
    static OutlineIntegrals Of(const CPolyLine::PointList& points, bool ring);
};

// A closed polygon part of a section: the solid or a void (a hole, counted negative) of one
// material. Its outline is a ring of points that refer by polyline and number to the points of
// the section (polyline 0: the section's own outline), so that it follows them when the section
// is resolved again. Results in the units of the points (m, m², m⁴).
class CAreaElem : public CObject {
public:
    CAreaElem() : PolyLine(0, 0, 1) {}
    CAreaElem(int no, int type, int isVoid, int matParNo, int desParNo)
        : No(no), Type(type), IsVoid(isVoid), MatParNo(matParNo), DesParNo(desParNo),
          PolyLine(no, 0, 1) {}

    int KeyNo() const { return No; }

    // Takes the coordinates of its points from the section's points of the same polyline and
    // number (those it can't find keep theirs) and turns bows into chords. Answers 0 for an
    // outline of fewer than three points.
    int CalcPoly(const CKeySection* section = nullptr);
    // Area, centre and moments of the converted ring. A void stores -A, -Ix, -Iy, -Ixy.
    int CalcProp();
    // CalcPoly, then CalcProp.
    int Update(const CKeySection* section = nullptr);

    CSectPoint* AddSectPoint(std::unique_ptr<CSectPoint> point) {
        return PolyLine.AddSectPoint(std::move(point));
    }
    const CPolyLine& GetPolyLine() const { return PolyLine; }
    CPolyLine& GetPolyLine() { return PolyLine; }

    KELO_FIELD(int, No, 0)
    KELO_FIELD(int, Type, 1)
    KELO_FIELD(int, IsVoid, 0)
    KELO_FIELD(int, MatParNo, 0)
    KELO_FIELD(int, DesParNo, 0)
    KELO_FIELD(double, A, 0.0)
    KELO_FIELD(double, Cx, 0.0)
    KELO_FIELD(double, Cy, 0.0)
    KELO_FIELD(double, Ix, 0.0)
    KELO_FIELD(double, Iy, 0.0)
    KELO_FIELD(double, Ixy, 0.0)

private:
    CPolyLine PolyLine;
};

} // namespace kelo
