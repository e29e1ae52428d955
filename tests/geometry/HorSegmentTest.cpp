#include "geometry/HorSegment.h"
#include "CurveWalk.h"
#include "geometry/ClotoidePoint.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace kelo;
using curvewalk::Pose;
using curvewalk::Walk;

namespace {
constexpr double kPi = std::numbers::pi;

// A spiral from radius r0 to r1 (0 = infinite, positive bending left) of parameter a, starting at
// `start`; its length is the difference of a²/|R| at the two ends.
struct Spiral {
    double r0, r1, a;
    double K0() const { return r0 == 0.0 ? 0.0 : 1.0 / r0; }
    double K1() const { return r1 == 0.0 ? 0.0 : 1.0 / r1; }
    double Length() const {
        const double ls = r0 == 0.0 ? 0.0 : a * a / std::fabs(r0);
        const double le = r1 == 0.0 ? 0.0 : a * a / std::fabs(r1);
        return std::fabs(le - ls);
    }
};

const Spiral kSpirals[] = {{0, 200, 100},     {0, -200, 100},    {200, 0, 100},
                           {-200, 0, 100},    {400, 200, 100},   {200, 400, 100},
                           {-400, -200, 100}, {-200, -400, 100}, {0, 450, 150}};
} // namespace

TEST(Clotoide, SeriesMatchesIntegratedTangentAngle) {
    const double a = 120.0;
    for (double l : {20.0, 50.0, 80.0}) {
        // Curvature l/A² grows linearly from 0: the angle is l²/(2A²). The series stop at three
        // terms; the first term left out, l¹³/(599040·A¹²) in X, is 1.0e-6 m at l = 80.
        const Pose p = Walk({0, 0, 0}, 0.0, l / (a * a), l, l);
        EXPECT_NEAR(ClotoideX(l, a), p.x, 2e-6) << l;
        EXPECT_NEAR(ClotoideY(l, a), p.y, 2e-6) << l;
        EXPECT_NEAR(ClotoideAngle(l, a), p.theta, 1e-12) << l;
    }
}

TEST(HorSegment, FreeClothoidFollowsTheSpiralBetweenItsEndPoints) {
    const double theta0 = 0.7;
    for (const Spiral& sp : kSpirals) {
        const double len = sp.Length();
        const Pose start{500.0, 300.0, theta0};
        const Pose end = Walk(start, sp.K0(), sp.K1(), len, len);
        CHorSegment seg(1, nullptr, 3, 1000.0, start.x, start.y, 1000.0 + len, end.x, end.y, sp.r0,
                        sp.r1, sp.a);
        ASSERT_EQ(seg.CalculateAndValidate(), 1) << sp.r0 << " " << sp.r1;
        EXPECT_NEAR(seg.GetStartUnitX(), std::cos(theta0), 1e-7);
        EXPECT_NEAR(seg.GetStartUnitY(), std::sin(theta0), 1e-7);
        // The end tangent is the x part of the start tangent, in both components.
        EXPECT_EQ(seg.GetEndUnitY(), seg.GetEndUnitX());
        for (double f : {0.25, 0.5, 0.75}) {
            const Pose p = Walk(start, sp.K0(), sp.K1(), len, f * len);
            double xy[2], dir[2];
            ASSERT_EQ(seg.CalcXYCoord(1000.0 + f * len, xy), 1);
            ASSERT_EQ(seg.CalcXYDirVector(1000.0 + f * len, dir), 1);
            EXPECT_NEAR(xy[0], p.x, 1e-5) << sp.r0 << " " << sp.r1 << " " << f;
            EXPECT_NEAR(xy[1], p.y, 1e-5) << sp.r0 << " " << sp.r1 << " " << f;
            EXPECT_NEAR(dir[0], std::cos(p.theta), 1e-7);
            EXPECT_NEAR(dir[1], std::sin(p.theta), 1e-7);
        }
    }
}

TEST(HorSegment, ChainedClothoidEndsWhereTheSpiralEnds) {
    const double theta0 = 2.5;
    for (const Spiral& sp : kSpirals) {
        const double len = sp.Length();
        const Pose start{-40.0, 75.0, theta0};
        const Pose end = Walk(start, sp.K0(), sp.K1(), len, len);
        CHorSegment seg(2, nullptr, 13, 10.0, start.x, start.y, 10.0 + len, 0, 0, sp.r0, sp.r1,
                        sp.a);
        seg.SetStartUnitX(std::cos(theta0));
        seg.SetStartUnitY(std::sin(theta0));
        ASSERT_EQ(seg.CalculateAndValidate(), 1);
        EXPECT_NEAR(seg.GetEndX(), end.x, 1e-6) << sp.r0 << " " << sp.r1;
        EXPECT_NEAR(seg.GetEndY(), end.y, 1e-6) << sp.r0 << " " << sp.r1;
        EXPECT_NEAR(seg.GetEndUnitX(), std::cos(end.theta), 1e-9);
        EXPECT_NEAR(seg.GetEndUnitY(), std::sin(end.theta), 1e-9);
        const Pose mid = Walk(start, sp.K0(), sp.K1(), len, len / 3.0);
        double xy[2];
        ASSERT_EQ(seg.CalcXYCoord(10.0 + len / 3.0, xy), 1);
        EXPECT_NEAR(xy[0], mid.x, 1e-5);
        EXPECT_NEAR(xy[1], mid.y, 1e-5);
    }

    // A chained spiral takes any radius below 1 m as the infinite one.
    CHorSegment exact(1, nullptr, 13, 0.0, 0.0, 0.0, 50.0, 0, 0, 0.0, 200.0, 100.0);
    CHorSegment small(1, nullptr, 13, 0.0, 0.0, 0.0, 50.0, 0, 0, 0.5, 200.0, 100.0);
    for (CHorSegment* s : {&exact, &small}) {
        s->SetStartUnitX(1.0);
        ASSERT_EQ(s->CalculateAndValidate(), 1);
    }
    EXPECT_DOUBLE_EQ(small.GetEndX(), exact.GetEndX());
    EXPECT_DOUBLE_EQ(small.GetEndY(), exact.GetEndY());

    CHorSegment turning(1, nullptr, 13, 0.0, 0.0, 0.0, 50.0, 0, 0, -0.5, 200.0, 100.0);
    turning.SetStartUnitX(1.0);
    EXPECT_EQ(turning.CalculateAndValidate(), 0);
    EXPECT_EQ(turning.GetValidateMessage(),
              "Error: Clotoide; change of sign on radiuses not allowed.\r\n");
}

TEST(HorSegment, ClothoidDataChecksAndEndStation) {
    // A = 100 from infinite to R = 200 is 50 m of spiral; 51 m of station is 2 % off.
    const Pose end = Walk({0, 0, 0}, 0.0, 1.0 / 200.0, 50.0, 50.0);
    CHorSegment off(1, nullptr, 3, 0.0, 0.0, 0.0, 51.0, end.x, end.y, 0.0, 200.0, 100.0);
    EXPECT_EQ(off.CalculateAndValidate(), 0);
    EXPECT_EQ(off.GetValidateMessage(), "Warning: Inconsistence in clotoide data.\r\n");
    // A failed segment is retried by each query; the messages pile up.
    off.CalculateAndValidate();
    EXPECT_EQ(off.GetValidateMessage(), "Warning: Inconsistence in clotoide data.\r\n"
                                        "Warning: Inconsistence in clotoide data.\r\n");

    CHorSegment longChord(1, nullptr, 3, 0.0, 0.0, 0.0, 50.0, 50.5, 0.0, 0.0, 200.0, 100.0);
    EXPECT_EQ(longChord.CalculateAndValidate(), 0);
    EXPECT_EQ(longChord.GetValidateMessage(), "Error: Clotoide station length VS coordinates.\r\n");
    CHorSegment backwards(1, nullptr, 3, 50.0, 0.0, 0.0, 50.0, 1.0, 0.0, 0.0, 200.0, 100.0);
    EXPECT_EQ(backwards.CalculateAndValidate(), 0);
    EXPECT_EQ(backwards.GetValidateMessage(), "Error: Zero or negative segment length.\r\n");

    // Stations 1000 to 1050: the end station is asked at 0.99999 of its value, 10 mm short.
    const Pose start{0.0, 0.0, 0.0};
    CHorSegment seg(1, nullptr, 3, 1000.0, 0.0, 0.0, 1050.0, end.x, end.y, 0.0, 200.0, 100.0);
    ASSERT_EQ(seg.CalculateAndValidate(), 1);
    const Pose inside = Walk(start, 0.0, 1.0 / 200.0, 50.0, 1050.0 * 0.99999 - 1000.0);
    double xy[2];
    ASSERT_EQ(seg.CalcXYCoord(1050.0, xy), 1);
    EXPECT_NEAR(xy[0], inside.x, 1e-6);
    EXPECT_NEAR(xy[1], inside.y, 1e-6);
    EXPECT_GT(std::hypot(xy[0] - end.x, xy[1] - end.y), 0.009);
    EXPECT_EQ(seg.CalcXYCoord(1050.001, xy), 0);
    EXPECT_EQ(xy[0], 0.0);
    EXPECT_EQ(xy[1], 0.0);
}

TEST(HorSegment, StraightsAndArcs) {
    CHorSegment point(1, nullptr, 1, 0.0, 5.0, 5.0, 10.0, 5.0, 5.0, 0, 0, 0);
    EXPECT_EQ(point.CalculateAndValidate(), 0);
    EXPECT_EQ(point.GetValidateMessage(), "Error: Zero segment length.\r\n");
    EXPECT_EQ(point.GetStartUnitX(), 0.0);

    // 105.1 m of straight over 100 m of station: 5.1 % off, a warning only.
    CHorSegment stretched(1, nullptr, 1, 0.0, 0.0, 0.0, 100.0, 0.0, 105.1, 0, 0, 0);
    EXPECT_EQ(stretched.CalculateAndValidate(), 1);
    EXPECT_EQ(stretched.GetValidateMessage(),
              "Warning: Inconsistence in coordinate and station data.\r\n");
    double xy[2];
    ASSERT_EQ(stretched.CalcXYCoord(50.0, xy), 1);
    // Stations, not the end point, measure the distance along the straight.
    EXPECT_NEAR(xy[1], 50.0, 1e-12);

    // A half circle of R = 10 bending left from (0, 0) to (20, 0): it sets out heading -Y.
    CHorSegment half(1, nullptr, 2, 0.0, 0.0, 0.0, 10.0 * kPi, 20.0, 0.0, 10.0, 0, 0);
    ASSERT_EQ(half.CalculateAndValidate(), 1);
    EXPECT_EQ(half.GetValidateMessage(), "");
    EXPECT_NEAR(half.GetStartUnitX(), 0.0, 1e-7);
    EXPECT_NEAR(half.GetStartUnitY(), -1.0, 1e-12);
    EXPECT_NEAR(half.GetEndUnitY(), 1.0, 1e-12);
    ASSERT_EQ(half.CalcXYCoord(5.0 * kPi, xy), 1);
    EXPECT_NEAR(xy[0], 10.0, 1e-5);
    EXPECT_NEAR(xy[1], -10.0, 1e-5);
    double dir[2];
    ASSERT_EQ(half.CalcXYDirVector(5.0 * kPi, dir), 1);
    EXPECT_NEAR(dir[0], 1.0, 1e-7);

    CHorSegment tooShort(1, nullptr, 2, 0.0, 0.0, 0.0, 40.0, 20.0, 0.0, 9.99, 0, 0);
    EXPECT_EQ(tooShort.CalculateAndValidate(), 0);
    EXPECT_EQ(tooShort.GetValidateMessage(), "Error: Circle does not make sence.\r\n");
    EXPECT_EQ(tooShort.GetEndUnitX(), 0.0);

    // A right-hand arc of R = 300 turning 0.2 rad from heading θ = 1: the centre lies to the
    // right, at start + 300·(sin θ, −cos θ).
    const double th = 1.0, r = 300.0, turn = 0.2;
    const double cx = 50.0 + r * std::sin(th), cy = 60.0 - r * std::cos(th);
    auto at = [&](double a) {
        return Pose{cx - r * std::sin(th - a), cy + r * std::cos(th - a), th - a};
    };
    const Pose e = at(turn);
    CHorSegment right(1, nullptr, 2, 100.0, 50.0, 60.0, 100.0 + r * turn, e.x, e.y, -r, 0, 0);
    ASSERT_EQ(right.CalculateAndValidate(), 1);
    EXPECT_NEAR(right.GetStartUnitX(), std::cos(th), 1e-9);
    EXPECT_NEAR(right.GetEndUnitY(), std::sin(th - turn), 1e-9);
    const Pose m = at(0.13);
    ASSERT_EQ(right.CalcXYCoord(100.0 + r * 0.13, xy), 1);
    EXPECT_NEAR(xy[0], m.x, 1e-7);
    EXPECT_NEAR(xy[1], m.y, 1e-7);
    ASSERT_EQ(right.CalcXYDirVector(100.0 + r * 0.13, dir), 1);
    EXPECT_NEAR(dir[1], std::sin(m.theta), 1e-9);
}
