#include "geometry/TendonGeom.h"
#include "geometry/KeySection.h"
#include "geometry/TenElemGeom.h"
#include "geometry/Tendon.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

using namespace kelo;

namespace {

// A piece of a given curve type, start and end value, third value P and straight length S over
// a length of lp metres.
CTendonGeom Piece(int type, double y0, double y1, double p, double lp, double s = 0.0) {
    CTendonGeom g(type, 2);
    g.SetValues(y0, y1, p, s);
    g.SetLength(lp);
    return g;
}

struct Point {
    double y, slope, curvature;
};
Point At(const CTendonGeom& g, double xi) {
    Point r{};
    g.CalcTenGeom(xi, &r.y, &r.slope, &r.curvature);
    return r;
}

} // namespace

TEST(TendonGeom, CurvesByTypeAgainstTheirPolynomials) {
    // Two parabolas with the joint in the middle, rising 1 m over 10 m: y = 2ξ² up to ξ = 0.5,
    // mirrored after it; slope dy/dx = 4ξ/10; curvature 4/100 over 1 + slope².
    const CTendonGeom par = Piece(5, 0.0, 1.0, 0.5, 10.0);
    Point p = At(par, 0.25);
    EXPECT_NEAR(p.y, 0.125, 1e-12);
    EXPECT_NEAR(p.slope, 0.1, 1e-12);
    EXPECT_NEAR(p.curvature, 0.04 / 1.01, 1e-12);
    p = At(par, 0.75);
    EXPECT_NEAR(p.y, 0.875, 1e-12);
    EXPECT_NEAR(p.slope, 0.1, 1e-12);
    EXPECT_NEAR(At(par, 1.0).slope, 0.0, 1e-12);
    EXPECT_NEAR(At(par, 1.0).y, 1.0, 1e-12);
    // P = 1 puts the joint at the start: the second parabola alone, y = -ξ² + 2ξ.
    EXPECT_NEAR(At(Piece(5, 0.0, 1.0, 1.0, 10.0), 0.5).y, 0.75, 1e-12);
    EXPECT_NEAR(At(Piece(5, 0.0, 1.0, 1.0, 10.0), 0.0).slope, 0.2, 1e-12);

    // S-curve from 1 to 3 over 4 m: middle value 2 and slope 1.5·2/4; level ends.
    EXPECT_NEAR(At(Piece(2, 1.0, 3.0, 0.0, 4.0), 0.5).y, 2.0, 1e-12);
    EXPECT_NEAR(At(Piece(2, 1.0, 3.0, 0.0, 4.0), 0.5).slope, 0.75, 1e-12);
    EXPECT_NEAR(At(Piece(2, 1.0, 3.0, 0.0, 4.0), 0.0).slope, 0.0, 1e-12);
    // Type 1 level at the end, type 3 level at the start, type 4 straight.
    EXPECT_NEAR(At(Piece(1, 0.0, 2.0, 0.0, 4.0), 1.0).slope, 0.0, 1e-12);
    EXPECT_NEAR(At(Piece(1, 0.0, 2.0, 0.0, 4.0), 0.0).slope, 3.0 / 4.0, 1e-12);
    EXPECT_NEAR(At(Piece(3, 0.0, 2.0, 0.0, 4.0), 1.0).slope, 3.0 / 4.0, 1e-12);
    EXPECT_NEAR(At(Piece(4, 0.0, 2.0, 0.0, 4.0), 0.3).y, 0.6, 1e-12);
    // Given end slopes: type 6 leaves with P, type 7 arrives with P, both reach y1.
    EXPECT_NEAR(At(Piece(6, 0.0, 1.0, 0.05, 20.0), 0.0).slope, 0.05, 1e-12);
    EXPECT_NEAR(At(Piece(6, 0.0, 1.0, 0.05, 20.0), 1.0).slope, 0.0, 1e-12);
    EXPECT_NEAR(At(Piece(7, 0.0, 1.0, 0.05, 20.0), 1.0).slope, 0.05, 1e-12);
    EXPECT_NEAR(At(Piece(7, 0.0, 1.0, 0.05, 20.0), 1.0).y, 1.0, 1e-12);
    // An unknown type gives nothing.
    p = At(Piece(12, 3.0, 1.0, 0.0, 4.0), 0.5);
    EXPECT_EQ(p.y, 0.0);
    EXPECT_EQ(p.curvature, 0.0);

    // The two-point form: y and dy/dξ of the parabolas, none for a type above 5.
    double y1, y2, d1, d2;
    par.CalcTenGeom(0.25, 0.75, &y1, &y2, &d1, &d2);
    EXPECT_NEAR(y1, 0.125, 1e-12);
    EXPECT_NEAR(y2, 0.875, 1e-12);
    EXPECT_NEAR(d1, 1.0, 1e-12);
    EXPECT_NEAR(d2, 1.0, 1e-12);
    Piece(6, 0.0, 1.0, 0.05, 20.0).CalcTenGeom(0.25, 0.75, &y1, &y2, &d1, &d2);
    EXPECT_EQ(y1 + y2 + d1 + d2, 0.0);
}

TEST(TendonGeom, StraightPartOfTypes8And9JoinsTheCubicWithoutAKink) {
    // 20 m piece from 0 to -1 m, straight part 4 m at 0.1 rad.
    const double lp = 20.0, s = 4.0, a = 0.1;
    const double run = s * std::cos(a), rise = s * std::sin(a);
    const CTendonGeom t8 = Piece(8, 0.0, -1.0, a, lp, s);
    const double joint8 = run / lp;
    const Point before = At(t8, joint8 - 1e-9), after = At(t8, joint8 + 1e-9);
    EXPECT_NEAR(before.y, rise, 1e-7);
    EXPECT_NEAR(after.y, rise, 1e-7);
    EXPECT_NEAR(before.slope, std::tan(a), 1e-7);
    EXPECT_NEAR(after.slope, std::tan(a), 1e-7);
    EXPECT_EQ(before.curvature, 0.0);
    EXPECT_NEAR(At(t8, 1.0).y, -1.0, 1e-12);
    EXPECT_NEAR(At(t8, 1.0).slope, 0.0, 1e-12);

    // Type 9: level start, the straight part at the end rising to y1.
    const CTendonGeom t9 = Piece(9, -1.0, 0.0, a, lp, s);
    const double joint9 = 1.0 - run / lp;
    const Point b9 = At(t9, joint9 - 1e-9), a9 = At(t9, joint9 + 1e-9);
    EXPECT_NEAR(b9.y, -rise, 1e-7);
    EXPECT_NEAR(a9.y, -rise, 1e-7);
    EXPECT_NEAR(b9.slope, std::tan(a), 1e-7);
    EXPECT_NEAR(a9.slope, std::tan(a), 1e-7);
    EXPECT_NEAR(At(t9, 0.0).slope, 0.0, 1e-12);
    EXPECT_NEAR(At(t9, 1.0).y, 0.0, 1e-12);
}

TEST(TendonGeom, CurvatureOfThreePoints) {
    EXPECT_EQ(CTendon::CalcCurvature(0.0, 2.0, 1.0, 0.0, 0.1, 0.0), -99.0);
    EXPECT_EQ(CTendon::CalcCurvature(0.0, 0.0, 1.0, 0.0, 0.1, 0.0), -99.0);
    // Points on a circle through (0, 0), (1, 0.1), (2, 0): r = (1 + 0.1²)/(2·0.1). The turn is
    // found from the two half-chords, which is exact to about 3e-5 at this rise.
    EXPECT_NEAR(CTendon::CalcCurvature(0.0, 1.0, 2.0, 0.0, 0.1, 0.0), 0.2 / 1.01, 1e-4);
    // Three points on a line have no curvature.
    EXPECT_NEAR(CTendon::CalcCurvature(0.0, 1.0, 2.0, 0.0, 0.0, 0.0), 0.0, 1e-12);
}

TEST(TenElemGeom, SlotsAndOffsetsOfPiecesMeetingInsideAnElement) {
    // Straight pieces: 1 m to 2 m over the first 40 % of the element, then 2 m to 0 m.
    const CTendonGeom first = Piece(4, 1.0, 2.0, 0.0, 4.0);
    const CTendonGeom second = Piece(4, 2.0, 0.0, 0.0, 6.0);
    CTenElemGeom g(7, nullptr);
    // The first piece ends inside the element at its 40 %: it starts at the element's start and
    // takes slot A; the second ends at the element's end and takes slot B.
    EXPECT_EQ(g.SetElemGeom(2, &first, 0.5, 0.0, 1.0, 0.4), 1);
    EXPECT_EQ(g.SetElemGeom(2, &second, 0.0, 0.4, 0.5, 1.0), 1);
    const CTendonGeom* piece = nullptr;
    double pf, ef, pt, et;
    EXPECT_EQ(g.GetElemGeom(2, 0, &piece, &pf, &ef, &pt, &et), 1);
    EXPECT_EQ(piece, &first);
    EXPECT_EQ(g.GetElemGeom(2, 1, &piece, &pf, &ef, &pt, &et), 1);
    EXPECT_EQ(piece, &second);
    EXPECT_EQ(g.GetElemGeom(1, 0, &piece, &pf, &ef, &pt, &et), 0);
    // ξ 0.2 on the element is 0.75 on the first piece: 1.75; ξ 0.7 is 0.25 on the second: 1.5.
    double l[3], n[3];
    EXPECT_EQ(g.CalcOffset(0.2, l, n), 1);
    EXPECT_NEAR(n[0], 1.75, 1e-12);
    EXPECT_NEAR(n[1], 0.25, 1e-12);
    EXPECT_EQ(l[0], 0.0);
    EXPECT_EQ(g.CalcOffset(0.7, l, n), 1);
    EXPECT_NEAR(n[0], 1.5, 1e-12);
    EXPECT_NEAR(n[1], -1.0 / 3.0, 1e-12);

    // Pieces lying inside the element fill A while it is empty, then B; a piece neither from the
    // start, nor to the end, nor inside is not stored.
    CTenElemGeom inner(8, nullptr);
    EXPECT_EQ(inner.SetElemGeom(1, &first, 0.0, 0.2, 1.0, 0.4), 1);
    EXPECT_EQ(inner.SetElemGeom(1, &second, 0.0, 0.5, 1.0, 0.8), 1);
    EXPECT_EQ(inner.GetElemGeom(1, 1, &piece, &pf, &ef, &pt, &et), 1);
    EXPECT_EQ(piece, &second);
    EXPECT_EQ(inner.SetElemGeom(1, &first, 0.0, 0.5, 1.0, 1.2), 0);
    // No N piece on it: CalcOffset answers 0.
    EXPECT_EQ(inner.CalcOffset(0.3, l, n), 0);
    EXPECT_NEAR(l[0], 1.5, 1e-12);
}

TEST(KeySection, TendonOffsetsFromTheFacesAndFromAPoint) {
    // A trapezoid: the upper face from (-1, 0) to (1, 0.2), the lower face (-0.5, -2) to (0.5, -2),
    // centre of gravity put at (0, -1).
    CKeySection s(1, "", 0.0);
    auto add = [&](double no, double x, double y, int face) {
        auto p = std::make_unique<CSectPoint>(no, 0, x, y);
        p->SetX(x);
        p->SetY(y);
        p->SetFaceConnection(face);
        s.AddSectPoint(std::move(p));
    };
    add(1, -1.0, 0.0, 1);
    add(2, 1.0, 0.2, 1);
    add(3, 0.5, -2.0, 2);
    add(4, -0.5, -2.0, 2);
    s.SetCoGX(0.0);
    s.SetCoGY(-1.0);
    double l = 0.0, n = 0.0;
    // 0.15 below the upper face at x = 0.5: face 0.15, so 1.15 - 0.15 above the centre.
    ASSERT_EQ(s.TendonCoordByFaceOffset(2, 0.5, -0.15, l, n), 1);
    EXPECT_NEAR(l, 0.5, 1e-12);
    EXPECT_NEAR(n, 1.0, 1e-12);
    // 0.1 above the lower face at the point -0.5 (an exact hit).
    ASSERT_EQ(s.TendonCoordByFaceOffset(3, -0.5, 0.1, l, n), 1);
    EXPECT_NEAR(n, -0.9, 1e-12);
    // Beyond the lower face's ends: not found.
    EXPECT_EQ(s.TendonCoordByFaceOffset(3, 0.8, 0.1, l, n), 0);
    // From point 3, both offsets.
    ASSERT_EQ(s.TendonCoordByFaceOffset(5, -0.2, 0.3, l, n, 3.0), 1);
    EXPECT_NEAR(l, 0.3, 1e-12);
    EXPECT_NEAR(n, -0.7, 1e-12);
    EXPECT_EQ(s.TendonCoordByFaceOffset(5, -0.2, 0.3, l, n, 9.0), 0);

    // A copy of the section has its own copies of the tendon groups, pointing at the copy.
    s.AddPrestGroup(std::make_unique<CPrestGroup>(1, "T"));
    CKeySection copy = s;
    EXPECT_NE(copy.GetPrestGroupList()->Get(1), s.GetPrestGroupList()->Get(1));
    EXPECT_EQ(copy.GetPrestGroupList()->Get(1)->GetKeySectionPtr(), &copy);
}
