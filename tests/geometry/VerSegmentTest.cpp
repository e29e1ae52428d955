#include "geometry/VerSegment.h"
#include "geometry/RefLine.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

using namespace kelo;

namespace {

// The circle of radius r tangent to the grade g1 into the corner (s0, z0) and to the grade g2 out
// of it: a crest (centre below) when the grade falls, a sag otherwise. Each grade offset by r
// normal to itself is z = z0 + g·(s − s0) ∓ r·√(1 + g²); the centre is where the two meet.
struct Rounding {
    double cs, cz, r;
    bool crest;
    Rounding(double s0, double z0, double g1, double g2, double radius) : r(radius) {
        crest = g2 < g1;
        const double sign = crest ? -1.0 : 1.0;
        const double n1 = std::sqrt(1.0 + g1 * g1), n2 = std::sqrt(1.0 + g2 * g2);
        cs = s0 + sign * r * (n2 - n1) / (g1 - g2);
        cz = z0 + g1 * (cs - s0) + sign * r * n1;
    }
    double Z(double s) const {
        const double h = std::sqrt(r * r - (s - cs) * (s - cs));
        return crest ? cz + h : cz - h;
    }
    double Slope(double s) const {
        const double h = std::sqrt(r * r - (s - cs) * (s - cs));
        return crest ? -(s - cs) / h : (s - cs) / h;
    }
};

// Corners (0, 100), (200, 104), (400, 100), (600, 102): +2 %, -2 %, +1 %; a crest rounding of
// R = 5000 at 200 and a sag rounding of R = 4000 at 400.
void AddPolygon(CRefLine& line, int type) {
    line.AddVerSegment(std::make_unique<CVerSegment>(1, &line, type, 0, 100, 200, 104, 5000));
    line.AddVerSegment(std::make_unique<CVerSegment>(2, &line, type, 200, 104, 400, 100, 4000));
    line.AddVerSegment(std::make_unique<CVerSegment>(3, &line, type, 400, 100, 600, 102, 0));
}

double LineZ(CRefLine& line, double s) {
    double c[3] = {0, 0, 0};
    EXPECT_EQ(line.CalcCoordByStation(s, c), 1) << s;
    return c[2];
}

} // namespace

TEST(VerSegment, ArcsAgreeWithTheirCircle) {
    // A sag of R = 3000 from -3 % at (500, 50) to +1 %: centre above, on the left normal.
    const double r = 3000.0, ts = std::atan(-0.03), te = std::atan(0.01);
    const double cs = 500.0 - r * std::sin(ts), cz = 50.0 + r * std::cos(ts);
    const double es = cs + r * std::sin(te), ez = cz - r * std::cos(te);
    CVerSegment sag(1, nullptr, 2, 500.0, 50.0, es, ez, r);
    ASSERT_EQ(sag.CalculateAndValidate(), 1);
    EXPECT_NEAR(sag.GetStartTangent(), std::sin(ts), 1e-9);
    EXPECT_NEAR(sag.GetEndTangent(), std::sin(te), 1e-9);
    for (double s : {500.0, 530.0, 590.0, es}) {
        EXPECT_NEAR(sag.CalcZCoordByStation(s), cz - std::sqrt(r * r - (s - cs) * (s - cs)), 1e-9);
        // The slope of an arc is the turn (s − s0)/R added to atan of the start tangent's sine:
        // on grades of a few per cent within 3e-5 of the circle's own slope.
        EXPECT_NEAR(sag.CalcZDirVector(s), (s - cs) / std::sqrt(r * r - (s - cs) * (s - cs)), 3e-5);
    }
    EXPECT_EQ(sag.CalcZCoordByStation(499.0), 0.0);
    EXPECT_EQ(sag.CalcZDirVector(es + 1.0), 0.0);

    // The same circle walked as a crest of R = -3000 from its end back: start and end swap roles.
    CVerSegment crest(2, nullptr, 2, 0.0, 10.0, 80.0, 10.0, -200.0);
    ASSERT_EQ(crest.CalculateAndValidate(), 1);
    // Chord 80 on R 200: the half angle is asin(0.2), rising then falling.
    EXPECT_NEAR(crest.GetStartTangent(), 0.2, 1e-12);
    EXPECT_NEAR(crest.GetEndTangent(), -0.2, 1e-12);
    EXPECT_NEAR(crest.CalcZCoordByStation(40.0), 10.0 + 200.0 - std::sqrt(200.0 * 200.0 - 1600.0),
                1e-9);

    CVerSegment wide(3, nullptr, 2, 0.0, 0.0, 100.0, 0.0, 49.0);
    EXPECT_EQ(wide.CalculateAndValidate(), 0);
    EXPECT_EQ(wide.GetValidateMessage(),
              "Error: Zero segment length or end point not within range of 2*radius.\r\n");
    CVerSegment flat(4, nullptr, 1, 10.0, 0.0, 10.0, 1.0, 300.0);
    EXPECT_EQ(flat.GetRadius(), 0.0);
    EXPECT_EQ(flat.CalculateAndValidate(), 0);
    EXPECT_EQ(flat.GetValidateMessage(), "Error: Zero segment length.\r\n");
    CVerSegment leg(5, nullptr, 5, 0.0, 0.0, 10.0, 1.0, 300.0);
    leg.SetType(1);
    EXPECT_EQ(leg.GetRadius(), 0.0);
}

TEST(VerSegment, TangentPolygonRoundingsFollowTheTangentCircles) {
    CRefLine line(1, "Road");
    AddPolygon(line, 5);
    const Rounding top(200, 104, 0.02, -0.02, 5000), bottom(400, 100, -0.02, 0.01, 4000);

    // Tangent length R·tan(Δ/2) from each corner along the grade.
    EXPECT_EQ(LineZ(line, 50.0), 101.0);
    const CVerSegment* leg1 = line.GetVerSegmentPtr(1);
    const CVerSegment* leg2 = line.GetVerSegmentPtr(2);
    const double tTop = 5000.0 * std::tan((std::atan(0.02) - std::atan(-0.02)) / 2.0);
    const double tBottom = 4000.0 * std::tan((std::atan(0.01) - std::atan(-0.02)) / 2.0);
    EXPECT_NEAR(leg1->GetEndTangentPointStation(), 200.0 - tTop * std::cos(std::atan(0.02)), 1e-9);
    EXPECT_NEAR(leg2->GetStartTangentPointStation(), 200.0 + tTop * std::cos(std::atan(0.02)),
                1e-9);
    EXPECT_NEAR(leg2->GetEndTangentPointStation(), 400.0 - tBottom * std::cos(std::atan(0.02)),
                1e-9);
    EXPECT_LT(leg1->GetEndRoundingRadius(), 0.0);
    EXPECT_GT(leg2->GetEndRoundingRadius(), 0.0);

    // The rounding is drawn through its tangent point and a crown set off from the corner by E
    // at the angle δ/2 from the plumb line, not along the bisector; that lifts the crown by
    // E·(1 − cos(δ/2)), 0.2 mm at the crest (E = 1.0 m, δ = 0.04), and the arc with it.
    const double tol = 3e-4;
    for (double s : {120.0, 150.0, 199.0}) EXPECT_NEAR(LineZ(line, s), top.Z(s), tol) << s;
    for (double s : {201.0, 250.0, 290.0}) EXPECT_NEAR(LineZ(line, s), top.Z(s), tol) << s;
    EXPECT_NEAR(LineZ(line, 320.0), 101.6, 1e-12);
    for (double s : {350.0, 399.0, 401.0, 450.0}) EXPECT_NEAR(LineZ(line, s), bottom.Z(s), tol);
    // Where the rounding meets the grade it meets it exactly.
    const double tp = leg1->GetEndTangentPointStation() + 1e-3;
    EXPECT_NEAR(LineZ(line, tp), 100.0 + 0.02 * tp, 1e-8);
    EXPECT_NEAR(LineZ(line, 500.0), 101.0, 1e-12);
    EXPECT_NEAR(leg1->CalcZDirVector(150.0), top.Slope(150.0), 1e-4);
    EXPECT_NEAR(line.GetVerSegmentPtr(3)->CalcZDirVector(450.0), bottom.Slope(450.0), 1e-4);

    // At the sag the crown lies 7 mm before the corner: the leg after the corner holds stations
    // from its crown on, but its elevation starts at its corner, so between them Z is 0.
    const CVerSegment* leg3 = line.GetVerSegmentPtr(3);
    EXPECT_LT(leg3->GetStartCrownStation(), 399.995);
    EXPECT_EQ(leg3->IsStationOnSegment(399.997), 1);
    EXPECT_EQ(leg3->CalcZCoordByStation(399.997), 0.0);
    EXPECT_EQ(LineZ(line, 399.997), 0.0);
}

TEST(VerSegment, PolygonNeedsThreeLegsAndLinjePaaleggForcesIt) {
    CRefLine two(1, "Two legs");
    two.AddVerSegment(std::make_unique<CVerSegment>(1, &two, 5, 0, 100, 200, 104, 5000));
    two.AddVerSegment(std::make_unique<CVerSegment>(2, &two, 5, 200, 104, 400, 100, 4000));
    for (CVerSegment* s : two.GetVerSegmentList()) s->CalculateAndValidate();
    EXPECT_NEAR(LineZ(two, 199.0), 103.98, 1e-12);
    EXPECT_NEAR(LineZ(two, 201.0), 103.98, 1e-12);

    // Grades given as straights, with radii set afterwards: the line's rule turns them into legs.
    CRefLine forced(2, "Forced");
    AddPolygon(forced, 1);
    for (CVerSegment* s : forced.GetVerSegmentList()) s->CalculateAndValidate();
    forced.GetVerSegmentPtr(1)->SetRadius(5000.0);
    forced.GetVerSegmentPtr(2)->SetRadius(4000.0);
    EXPECT_NEAR(LineZ(forced, 150.0), 103.0, 1e-12);
    forced.SetLinjePaalegg(1);
    const Rounding top(200, 104, 0.02, -0.02, 5000);
    EXPECT_NEAR(LineZ(forced, 150.0), top.Z(150.0), 3e-4);
    for (const CVerSegment* s : forced.GetVerSegmentList()) EXPECT_EQ(s->GetType(), 5);
}
