#include "../geometry/CurveWalk.h"
#include "KeloRun.h"
#include "geometry/RefLine.h"
#include "model/Structure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

using namespace kelo;
using namespace kelo::e2e;

namespace {

constexpr double kPi = std::numbers::pi;

// The alignment of examples/road_alignment.inp, worked out here without the program's clothoid
// series: the plan is a curve whose curvature runs 0, rising linearly to 1/300 over the 75 m of
// the entry clothoid, 1/300 on the 150 m arc, falling linearly to 0 over the exit clothoid, 0 on
// the last straight. Straights and the arc are in closed form; the clothoids are walked by
// integrating (cos θ, sin θ) of their tangent angle numerically (CurveWalk.h).
struct Plan {
    static constexpr double kR = 300.0, kSpiral = 75.0;
    curvewalk::Pose p0{500.0, 1000.0, kPi / 6.0}, p100{}, p175{}, p325{}, p400{};

    Plan() {
        p100 = Straight(p0, 100.0);
        p175 = curvewalk::Walk(p100, 0.0, 1.0 / kR, kSpiral, kSpiral);
        p325 = Arc(p175, 150.0);
        p400 = curvewalk::Walk(p325, 1.0 / kR, 0.0, kSpiral, kSpiral);
    }
    static curvewalk::Pose Straight(const curvewalk::Pose& p, double d) {
        return {p.x + d * std::cos(p.theta), p.y + d * std::sin(p.theta), p.theta};
    }
    // Left-turning arc of radius kR: the centre lies kR to the left of the start.
    static curvewalk::Pose Arc(const curvewalk::Pose& p, double d) {
        const double t = p.theta + d / kR;
        return {p.x + kR * (std::sin(t) - std::sin(p.theta)),
                p.y - kR * (std::cos(t) - std::cos(p.theta)), t};
    }
    curvewalk::Pose At(double s) const {
        if (s <= 100.0) return Straight(p0, s);
        if (s <= 175.0) return curvewalk::Walk(p100, 0.0, 1.0 / kR, kSpiral, s - 100.0);
        if (s <= 325.0) return Arc(p175, s - 175.0);
        if (s <= 400.0) return curvewalk::Walk(p325, 1.0 / kR, 0.0, kSpiral, s - 325.0);
        return Straight(p400, s - 400.0);
    }
};

// The elevation: grade +2.5 % from 45.000 at station 0 to station 150; a crest circle of radius
// 5000 m tangent to it there, whose centre lies below: z = zc + sqrt(R² − (s − sc)²), with the
// tangent point at the grade's angle θ1 = atan(0.025) giving sc = 150 + R·sin θ1 and
// zc = 48.75 − R·cos θ1; the circle leaves at the angle θ2 = atan(−0.015) of the second grade,
// at station sc − R·sin θ2, and that grade runs to station 500.
struct Elevation {
    static constexpr double kR = 5000.0, kG1 = 0.025, kG2 = -0.015;
    double sc, zc, s2, z2;
    Elevation() {
        const double t1 = std::atan(kG1), t2 = std::atan(kG2);
        sc = 150.0 + kR * std::sin(t1);
        zc = 48.75 - kR * std::cos(t1);
        s2 = sc - kR * std::sin(t2);
        z2 = zc + kR * std::cos(t2);
    }
    double Z(double s) const {
        if (s <= 150.0) return 45.0 + kG1 * s;
        if (s <= s2) return zc + std::sqrt(kR * kR - (s - sc) * (s - sc));
        return z2 + kG2 * (s - s2);
    }
    // True slope dz/ds of the profile.
    double Slope(double s) const {
        if (s <= 150.0) return kG1;
        if (s <= s2) return -(s - sc) / std::sqrt(kR * kR - (s - sc) * (s - sc));
        return kG2;
    }
};

// The clothoid series of the program is cut after three terms; for l/A up to 0.5 the first term
// left out is below 4e-8 m, and the Simpson walk is exact to 1e-10 m. Coordinates, which carry
// the cut-off of both clothoids, are held to 1e-6 m, directions to 1e-8 rad, and elevations,
// which need no series, to 1e-6 m.
constexpr double kCoordTol = 1e-6;
constexpr double kAngleTol = 1e-8;
constexpr double kZTol = 1e-6;

double PlanAngleDiff(double a, double b) {
    double d = std::fmod(a - b, 2.0 * kPi);
    if (d > kPi) d -= 2.0 * kPi;
    if (d < -kPi) d += 2.0 * kPi;
    return d;
}

struct ReadExample {
    ReadExample() : s(2) {
        s.CreateDefaultContents(2, 0);
        result = s.ReadCommandFile(SourcePath("examples/road_alignment.inp"), &log, 0);
    }
    CStructure s;
    std::string log;
    int result = -9;
};

} // namespace

TEST(RoadAlignmentExample, KeloReadsItWithoutMessages) {
    const RunResult r = RunKelo(SourcePath("examples/road_alignment.inp"), "road_alignment.inp");
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "");
}

TEST(RoadAlignmentExample, PlanAndElevationAtJointsAndMidSegmentsMatchHandValues) {
    ReadExample ex;
    ASSERT_EQ(ex.result, 0);
    EXPECT_EQ(ex.log, "");
    CRefLine* road = ex.s.GetRefLinePtr(1);
    ASSERT_NE(road, nullptr);
    EXPECT_EQ(road->GetName(), "Main road");
    ASSERT_EQ(road->GetHorSegmentList().GetCount(), 5u);
    ASSERT_EQ(road->GetVerSegmentList().GetCount(), 3u);
    for (const CHorSegment* seg : road->GetHorSegmentList())
        EXPECT_EQ(seg->GetSegmCalc(), 1) << seg->GetHorSegNo() << seg->GetValidateMessage();

    const Plan plan;
    const Elevation elev;
    // Joints of the plan and the middle of each plan segment; the joints of the elevation and the
    // middle of its three segments.
    const double stations[] = {0.0,     50.0,
                               100.0,   137.5,
                               175.0,   250.0,
                               325.0,   362.5,
                               400.0,   450.0,
                               500.0,   75.0,
                               150.0,   (150.0 + elev.s2) / 2,
                               elev.s2, (elev.s2 + 500.0) / 2};
    for (const double st : stations) {
        const curvewalk::Pose p = plan.At(st);
        double c[3] = {0, 0, 0}, d[3] = {0, 0, 0};
        ASSERT_EQ(road->CalcCoordByStation(st, c), 1) << st;
        ASSERT_EQ(road->CalcDirByStation(st, d), 1) << st;
        EXPECT_NEAR(c[0], p.x, kCoordTol) << "station " << st;
        EXPECT_NEAR(c[1], p.y, kCoordTol) << "station " << st;
        EXPECT_NEAR(c[2], elev.Z(st), kZTol) << "station " << st;
        EXPECT_NEAR(PlanAngleDiff(std::atan2(d[1], d[0]), p.theta), 0.0, kAngleTol)
            << "station " << st;
        EXPECT_NEAR(d[0] * d[0] + d[1] * d[1] + d[2] * d[2], 1.0, 1e-12);
        // On the grades the slope is exact. On the crest, which serves its own start station,
        // the line takes the station for the arc length of the circle and the sine of the start
        // angle for its tangent; this flat curve (angles below 0.025) makes both good to 1e-5.
        const double slope = d[2] / std::hypot(d[0], d[1]);
        const bool onArc = st >= 150.0 && st <= elev.s2;
        EXPECT_NEAR(slope, elev.Slope(st), onArc ? 1e-5 : 1e-12) << "station " << st;
    }
    // The whole plan turns by the two clothoids' 75/(2·300) and the arc's 150/300 rad.
    EXPECT_NEAR(plan.p400.theta - plan.p0.theta, 0.75, 1e-12);
}

TEST(RoadAlignmentExample, AxesColumnsAndRoadSurface) {
    ReadExample ex;
    ASSERT_EQ(ex.result, 0);
    CRefLine* road = ex.s.GetRefLinePtr(1);
    ASSERT_NE(road, nullptr);
    ASSERT_EQ(road->GetAxisList().GetCount(), 3u);
    ASSERT_NE(road->GetAxisPtr(2), nullptr);
    EXPECT_EQ(road->GetAxisPtr(2)->GetName(), "Pier");
    EXPECT_DOUBLE_EQ(road->GetAxisPtr(2)->GetStationNo(), 250.0);
    EXPECT_DOUBLE_EQ(road->GetAxisPtr(3)->GetStationNo(), 380.0);

    // The columns stand 3 m left (-3) and right (+3) of the road at the pier, station 250, where
    // the road runs at the arc's angle θ; right of travel is (sin θ, −cos θ). They reach from
    // level 30 up to the road.
    const curvewalk::Pose pier = Plan().At(250.0);
    const double top = Elevation().Z(250.0);
    const struct {
        int line;
        double offset;
    } columns[] = {{2, -3.0}, {3, 3.0}};
    for (const auto& col : columns) {
        CRefLine* line = ex.s.GetRefLinePtr(col.line);
        ASSERT_NE(line, nullptr);
        EXPECT_EQ(line->GetColumn(), 1);
        EXPECT_EQ(line->GetType(), 2);
        EXPECT_DOUBLE_EQ(line->GetColumnAtStationNo(), 250.0);
        const double x = pier.x + col.offset * std::sin(pier.theta);
        const double y = pier.y - col.offset * std::cos(pier.theta);
        for (const double z : {30.0, (30.0 + top) / 2.0, top}) {
            double c[3] = {0, 0, 0}, d[3] = {0, 0, 0};
            ASSERT_EQ(line->CalcCoordByStation(z, c), 1) << col.line << " at " << z;
            ASSERT_EQ(line->CalcDirByStation(z, d), 1);
            EXPECT_NEAR(c[0], x, kCoordTol) << col.line;
            EXPECT_NEAR(c[1], y, kCoordTol) << col.line;
            EXPECT_NEAR(c[2], z, kZTol) << col.line;
            EXPECT_NEAR(d[2], 1.0, 1e-12);
        }
        ASSERT_NE(line->GetAxisPtr(2), nullptr);
        EXPECT_NEAR(line->GetAxisPtr(2)->GetStationNo(), top, kZTol);
        EXPECT_EQ(line->GetAxisPtr(1)->GetName(), " Col. Elev.: 30.00");
        // A column's sections look along the road: their y axis is the road's x axis, which looks
        // back along the road, at the column's foot.
        double c[3], xAxis[3], yAxis[3];
        ASSERT_EQ(line->CalcCoordAndDirByStation(40.0, c, xAxis, yAxis, ex.s.GetRefLineList()), 1);
        EXPECT_NEAR(PlanAngleDiff(std::atan2(yAxis[1], yAxis[0]), pier.theta + kPi), 0.0,
                    kAngleTol);
    }

    // Road points of the superelevated surface at the pier: 4 % rising to the right. Right side:
    // lane edge 1.1 at (3.5, 3.5·0.04), shoulder 2.1 at (4.5, 4.5·0.04), kerb top 3.1 0.15 above,
    // footway edge 3.2 2.0 further out; the left side falls by the same amounts.
    ASSERT_EQ(road->GetRoadProfileList().GetCount(), 1u);
    const CRoadProfile* prof = road->GetRoadProfileList().At(0);
    EXPECT_DOUBLE_EQ(prof->GetStationNo(), 250.0);
    const struct {
        double no, x, y;
    } points[] = {{0.0, 0.0, 0.0},     {1.1, 3.5, 0.14},    {2.1, 4.5, 0.18},
                  {3.1, 4.5, 0.33},    {3.2, 6.5, 0.33},    {-1.1, -3.5, -0.14},
                  {-2.1, -4.5, -0.18}, {-3.1, -4.5, -0.03}, {-3.2, -6.5, -0.03}};
    for (const auto& pt : points) {
        const CSectPoint* p = prof->GetRoadPoint(pt.no);
        ASSERT_NE(p, nullptr) << pt.no;
        EXPECT_NEAR(p->GetX(), pt.x, 1e-12) << pt.no;
        EXPECT_NEAR(p->GetY(), pt.y, 1e-12) << pt.no;
    }
    // One lane a side: no second lane point, and no inner zone.
    EXPECT_EQ(prof->GetRoadPoint(1.2), nullptr);
    EXPECT_EQ(prof->GetRoadPoint(0.1), nullptr);
}
