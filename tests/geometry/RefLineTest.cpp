#include "geometry/RefLine.h"
#include "CurveWalk.h"
#include "platform/Sinks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

using namespace kelo;
using curvewalk::Pose;
using curvewalk::Walk;

namespace {

// The road: in plan a straight of 100 m heading (0.8, 0.6), a clothoid A = 100 from the straight
// into R = 250 left (40 m), 60 m of that arc, the clothoid back out (40 m) and a straight of
// 100 m; the total turn is 0.08 + 0.24 + 0.08 = 0.4 rad. In elevation a grade of +2 % to station
// 120, a crest of R = 4000 down to -1 %, and that grade to station 340.
constexpr double kR = 250.0, kA = 100.0, kRv = 4000.0;
const double kTheta0 = std::atan2(0.6, 0.8);

struct Plan {
    Pose p0{1000.0, 500.0, kTheta0}, p100, p140, p200, p240;
    Plan() {
        p100 = Walk(p0, 0, 0, 100, 100);
        p140 = Walk(p100, 0, 1 / kR, 40, 40);
        p200 = Walk(p140, 1 / kR, 1 / kR, 60, 60);
        p240 = Walk(p200, 1 / kR, 0, 40, 40);
    }
    Pose At(double s) const {
        if (s <= 100) return Walk(p0, 0, 0, 100, s);
        if (s <= 140) return Walk(p100, 0, 1 / kR, 40, s - 100);
        if (s <= 200) return Walk(p140, 1 / kR, 1 / kR, 60, s - 140);
        if (s <= 240) return Walk(p200, 1 / kR, 0, 40, s - 200);
        return Walk(p240, 0, 0, 100, s - 240);
    }
};

// The crest is the circle of radius 4000 tangent to the +2 % grade at station 120, centre below.
struct Profile {
    double ts = std::atan(0.02), te = std::atan(-0.01);
    double cs = 120.0 + kRv * std::sin(ts), cz = 12.4 - kRv * std::cos(ts);
    double es = cs - kRv * std::sin(te), ez = cz + kRv * std::cos(te);
    double Z(double s) const {
        if (s <= 120) return 10.0 + 0.02 * s;
        if (s <= es) return cz + std::sqrt(kRv * kRv - (s - cs) * (s - cs));
        return ez - 0.01 * (s - es);
    }
    double Slope(double s) const {
        if (s <= 120) return 0.02;
        if (s <= es) return -(s - cs) / std::sqrt(kRv * kRv - (s - cs) * (s - cs));
        return -0.01;
    }
};

void MakeRoad(CRefLine& line) {
    const Plan plan;
    line.AddHorSegment(std::make_unique<CHorSegment>(1, &line, 1, 0.0, 1000.0, 500.0, 100.0, 1080.0,
                                                     560.0, 0.0, 0.0, 0.0));
    line.AddHorSegment(
        std::make_unique<CHorSegment>(2, &line, 13, 0, 0, 0, 140.0, 0, 0, 0.0, kR, kA));
    line.AddHorSegment(
        std::make_unique<CHorSegment>(3, &line, 12, 0, 0, 0, 200.0, 0, 0, kR, 0.0, 0.0));
    line.AddHorSegment(
        std::make_unique<CHorSegment>(4, &line, 13, 0, 0, 0, 240.0, 0, 0, kR, 0.0, kA));
    line.AddHorSegment(
        std::make_unique<CHorSegment>(5, &line, 11, 0, 0, 0, 340.0, 0, 0, 0.0, 0.0, 0.0));
    ASSERT_EQ(line.RecalcChainedHorSegments(), 1);
    const Profile v;
    line.AddVerSegment(std::make_unique<CVerSegment>(1, &line, 1, 0.0, 10.0, 120.0, 12.4, 0.0));
    line.AddVerSegment(std::make_unique<CVerSegment>(2, &line, 2, 120.0, 12.4, v.es, v.ez, -kRv));
    line.AddVerSegment(std::make_unique<CVerSegment>(3, &line, 1, v.es, v.ez, 340.0,
                                                     v.ez - 0.01 * (340.0 - v.es), 0.0));
    for (CVerSegment* s : line.GetVerSegmentList()) ASSERT_EQ(s->CalculateAndValidate(), 1);
}

class RecordingSink : public MessageSink {
public:
    int Show(MsgKind, const std::string& text) override {
        texts.push_back(text);
        return 1;
    }
    std::vector<std::string> texts;
};

void ExpectVec(const double* got, double x, double y, double z, double tol) {
    EXPECT_NEAR(got[0], x, tol);
    EXPECT_NEAR(got[1], y, tol);
    EXPECT_NEAR(got[2], z, tol);
}

} // namespace

TEST(RefLine, RoadAlignmentAtJointsAndMidSegments) {
    CRefLine line(1, "Road");
    MakeRoad(line);
    const Plan plan;
    const Profile v;

    // Geometric closure of the chain: the last straight ends where the curvature walk ends.
    const Pose end = plan.At(340.0);
    const CHorSegment* last = line.GetHorSegmentPtr(5);
    EXPECT_NEAR(last->GetEndX(), end.x, 1e-5);
    EXPECT_NEAR(last->GetEndY(), end.y, 1e-5);
    EXPECT_NEAR(end.theta, kTheta0 + 0.4, 1e-12);
    EXPECT_NEAR(last->GetEndUnitX(), std::cos(kTheta0 + 0.4), 1e-9);
    EXPECT_NEAR(last->GetEndUnitY(), std::sin(kTheta0 + 0.4), 1e-9);

    // Points to 1e-5 m, the tolerance of the geometry. On the vertical arc the slope is the line's
    // own form, the turn (s − s0)/R added to atan of the start tangent's sine, which on a 2 %
    // grade is within 3e-6 of the circle's slope.
    for (double s : {0.0, 50.0, 100.0, 120.0, 140.0, 170.0, 200.0, 220.0, 240.0, 290.0, 340.0}) {
        SCOPED_TRACE(s);
        const Pose p = plan.At(s);
        double c[3], d[3];
        ASSERT_EQ(line.CalcCoordByStation(s, c), 1);
        ExpectVec(c, p.x, p.y, v.Z(s), 1e-5);
        ASSERT_EQ(line.CalcDirByStation(s, d), 1);
        const double n = std::sqrt(1.0 + v.Slope(s) * v.Slope(s));
        ExpectVec(d, std::cos(p.theta) / n, std::sin(p.theta) / n, v.Slope(s) / n, 1e-5);
    }

    // The section frame looks back along the line, with y to the right of travel in plan.
    double c[3], xa[3], ya[3];
    ASSERT_EQ(line.CalcCoordAndDirByStation(170.0, c, xa, ya), 1);
    const Pose p = plan.At(170.0);
    const double n = std::sqrt(1.0 + v.Slope(170.0) * v.Slope(170.0));
    ExpectVec(xa, -std::cos(p.theta) / n, -std::sin(p.theta) / n, -v.Slope(170.0) / n, 1e-5);
    ExpectVec(ya, std::sin(p.theta), -std::cos(p.theta), 0.0, 1e-9);

    EXPECT_DOUBLE_EQ(line.GetStationStart(), 0.0);
    EXPECT_DOUBLE_EQ(line.GetStationEnd(), 340.0);
    for (double off : {-0.001, 340.001}) {
        double q[3] = {7, 7, 7};
        EXPECT_EQ(line.CalcCoordByStation(off, q), 0);
        ExpectVec(q, 0, 0, 0, 0);
        EXPECT_EQ(line.CalcDirByStation(off, q), 0);
    }
}

TEST(RefLine, AxesAndAColumnStandingOnTheRoad) {
    CObList<CRefLine> lines;
    CRefLine* road = lines.Emplace(1, "Road");
    MakeRoad(*road);
    road->AddAxis(std::make_unique<CAxis>(1, "A1", 0.0));
    road->AddAxis(std::make_unique<CAxis>(2, "A2", 170.0));
    road->AddAxis(std::make_unique<CAxis>(4, "A4", 340.0));
    road->AddAxis(std::make_unique<CAxis>(2, "Pier 2", 170.0));
    EXPECT_EQ(road->GetAxisList().GetCount(), 3u);
    EXPECT_EQ(road->GetAxisPtr(2)->GetName(), "Pier 2");
    EXPECT_EQ(road->GetFirstFreeAxisNo(), 3);
    EXPECT_EQ(road->GetAxisPtrFromStNo(170.000009), road->GetAxisPtr(2));
    EXPECT_EQ(road->GetAxisPtrFromStNo(170.00002), nullptr);

    // Column by axis 2 with automatic top, 3 m to the right of the road, slid along it by
    // tan(10°)·3, foot at elevation -5.
    CRefLine* col = lines.Emplace(2, "Pier 2");
    col->SetRefLineFromColumn(1);
    col->SetColumnType(2);
    const double values[5] = {2.0, 3.0, 10.0, 99.0, -5.0};
    col->SetColumnValues(values);
    ASSERT_EQ(col->CreateColumnGeometry(lines), 1);
    const Pose p = Plan().At(170.0);
    const double top = Profile().Z(170.0);
    const double t = std::tan(10.0 * std::numbers::pi / 180.0) * 3.0;
    const double fx = p.x + 3.0 * std::sin(p.theta) + t * std::cos(p.theta);
    const double fy = p.y - 3.0 * std::cos(p.theta) + t * std::sin(p.theta);
    EXPECT_EQ(col->GetColumn(), 1);
    EXPECT_DOUBLE_EQ(col->GetColumnAtStationNo(), 170.0);
    double c[3];
    ASSERT_EQ(col->CalcCoordByStation(-5.0, c), 1);
    ExpectVec(c, fx, fy, -5.0, 1e-5);
    ASSERT_EQ(col->CalcCoordByStation(top, c), 1);
    ExpectVec(c, fx, fy, top, 1e-5);
    ASSERT_EQ(col->CalcCoordByStation(0.0, c), 1);
    EXPECT_NEAR(c[2], 0.0, 1e-12);
    EXPECT_NEAR(col->GetStationEnd(), top, 1e-9);
    EXPECT_EQ(col->GetAxisPtr(1)->GetName(), " Col. Elev.: -5.00");
    EXPECT_NEAR(col->GetAxisPtr(2)->GetStationNo(), top, 1e-12);

    // The column's section: x looks down the column, y is the road's local x axis at the foot.
    double roadC[3], roadX[3], roadY[3], xa[3], ya[3];
    ASSERT_EQ(road->CalcCoordAndDirByStation(170.0, roadC, roadX, roadY), 1);
    RecordingSink sink;
    ASSERT_EQ(col->CalcCoordAndDirByStation(1.0, c, xa, ya, &lines, &sink), 1);
    ExpectVec(xa, 0.0, 0.0, -1.0, 1e-12);
    ExpectVec(ya, roadX[0], roadX[1], roadX[2], 1e-12);
    EXPECT_TRUE(sink.texts.empty());
    ASSERT_EQ(col->CalcCoordAndDirByStation(1.0, c, xa, ya), 1);
    ExpectVec(ya, 0.0, 1.0, 0.0, 0.0);
    col->SetRefLineFromColumn(9);
    ASSERT_EQ(col->CalcCoordAndDirByStation(1.0, c, xa, ya, &lines, &sink), 1);
    ExpectVec(ya, 0.0, 1.0, 0.0, 0.0);
    ASSERT_EQ(sink.texts.size(), 1u);
    EXPECT_EQ(sink.texts[0], "Error: Unable to calculate column normal vector!");
    EXPECT_EQ(col->CreateColumnGeometry(lines), 0);

    // By station with the top given; an axis that isn't there builds nothing.
    CRefLine* col3 = lines.Emplace(3, "Pier 3");
    col3->SetRefLineFromColumn(1);
    col3->SetColumnType(3);
    const double byStation[5] = {50.0, 0.0, 0.0, 20.0, 2.0};
    col3->SetColumnValues(byStation);
    ASSERT_EQ(col3->CreateColumnGeometry(lines), 1);
    ASSERT_EQ(col3->CalcCoordByStation(20.0, c), 1);
    ExpectVec(c, 1040.0, 530.0, 20.0, 1e-9);
    col3->SetColumnType(4);
    EXPECT_EQ(col3->CreateColumnGeometry(lines), 0);
}

TEST(RefLine, LaterSegmentServesAJointAndSearchFollowsStationChanges) {
    auto straight = [](CRefLine& l, int no, double s0, double x0, double y0, double s1, double x1,
                       double y1) {
        l.AddHorSegment(std::make_unique<CHorSegment>(no, &l, 1, s0, x0, y0, s1, x1, y1, 0, 0, 0));
    };
    CRefLine kink(1, "Kink");
    straight(kink, 1, 0, 0, 0, 100, 100, 0);
    straight(kink, 2, 100, 100, 0, 200, 100, 100);
    ASSERT_EQ(kink.RecalcChainedHorSegments(), 1);
    double d[3];
    ASSERT_EQ(kink.CalcDirByStation(100.0, d), 1);
    ExpectVec(d, 0.0, 1.0, 0.0, 1e-12);

    // A segment marked uncalculated is calculated again by the next query.
    kink.GetHorSegmentPtr(2)->SetStartUnitX(0.0);
    kink.GetHorSegmentPtr(2)->SetStartUnitY(0.0);
    kink.GetHorSegmentPtr(2)->SetSegmCalc(0);
    ASSERT_EQ(kink.CalcDirByStation(150.0, d), 1);
    ExpectVec(d, 0.0, 1.0, 0.0, 1e-12);
    // One that fails is tried on every query, and its messages pile up.
    kink.GetHorSegmentPtr(2)->SetEndX(100.0);
    kink.GetHorSegmentPtr(2)->SetEndY(0.0);
    kink.GetHorSegmentPtr(2)->SetSegmCalc(0);
    kink.CalcDirByStation(50.0, d);
    kink.CalcDirByStation(50.0, d);
    EXPECT_EQ(kink.GetHorSegmentPtr(2)->GetValidateMessage(),
              "Error: Zero segment length.\r\nError: Zero segment length.\r\n");

    // Numbers out of station order: the later segment in the list wins at the joint.
    CRefLine swapped(2, "Swapped");
    straight(swapped, 1, 100, 100, 0, 200, 100, 100);
    straight(swapped, 2, 0, 0, 0, 100, 100, 0);
    swapped.RecalcChainedHorSegments();
    for (CHorSegment* s : swapped.GetHorSegmentList()) s->CalculateAndValidate();
    ASSERT_EQ(swapped.CalcDirByStation(100.0, d), 1);
    ExpectVec(d, 1.0, 0.0, 0.0, 1e-12);
    ASSERT_EQ(swapped.CalcDirByStation(150.0, d), 1);
    ExpectVec(d, 0.0, 1.0, 0.0, 1e-12);

    // Stations changed in place on a segment of the line are seen by the next query.
    CRefLine moved(3, "Moved");
    straight(moved, 1, 0, 0, 0, 100, 100, 0);
    straight(moved, 2, 100, 100, 0, 200, 100, 100);
    straight(moved, 3, 200, 100, 100, 300, 0, 100);
    moved.RecalcChainedHorSegments();
    for (CHorSegment* s : moved.GetHorSegmentList()) s->CalculateAndValidate();
    double c[3];
    ASSERT_EQ(moved.CalcCoordByStation(150.0, c), 1);
    moved.GetHorSegmentPtr(2)->SetStartStation(300.0);
    moved.GetHorSegmentPtr(2)->SetEndStation(400.0);
    moved.GetHorSegmentPtr(3)->SetStartStation(100.0);
    moved.GetHorSegmentPtr(3)->SetEndStation(200.0);
    ASSERT_EQ(moved.CalcCoordByStation(150.0, c), 1);
    ExpectVec(c, 50.0, 100.0, 0.0, 1e-12);
    ASSERT_EQ(moved.CalcCoordByStation(350.0, c), 1);
    ExpectVec(c, 100.0, 50.0, 0.0, 1e-12);

    // A chained first segment can't chain to anything: type 13 becomes a free clothoid.
    CRefLine first(4, "First");
    first.AddHorSegment(
        std::make_unique<CHorSegment>(1, &first, 13, 0, 0, 0, 50, 49.9, 2.08, 0, 200, 100));
    first.RecalcChainedHorSegments();
    EXPECT_EQ(first.GetHorSegmentPtr(1)->GetType(), 3);
}

TEST(RefLine, CoordinatePolygonRunsAndExclusiveDefinitions) {
    // Line type 3: stations along the length in space. Two runs; the second restarts at 50.
    CRefLine line(5, "Polygon", 3);
    line.AddCoord(std::make_unique<CCoord>(1, &line, 1, 0, 0, 0, 10.0));
    line.AddCoord(std::make_unique<CCoord>(2, &line, 2, 3, 4, 0, 0.0));
    line.AddCoord(std::make_unique<CCoord>(3, &line, 2, 3, 4, 12, 0.0));
    line.AddCoord(std::make_unique<CCoord>(4, &line, 1, 100, 0, 0, 50.0));
    line.AddCoord(std::make_unique<CCoord>(5, &line, 2, 100, 10, 0, 0.0));
    double c[3], d[3];
    ASSERT_EQ(line.CalcCoordByStation(12.0, c), 1);
    ExpectVec(c, 1.2, 1.6, 0.0, 1e-12);
    ASSERT_EQ(line.CalcCoordByStation(20.0, c), 1);
    ExpectVec(c, 3.0, 4.0, 5.0, 1e-12);
    ASSERT_EQ(line.CalcCoordByStation(55.0, c), 1);
    ExpectVec(c, 100.0, 5.0, 0.0, 1e-12);
    EXPECT_EQ(line.CalcCoordByStation(40.0, c), 0);
    EXPECT_EQ(line.CalcCoordByStation(5.0, c), 0);
    // At the vertex 15 the first leg still holds the station.
    ASSERT_EQ(line.CalcDirByStation(15.0, d), 1);
    ExpectVec(d, 0.6, 0.8, 0.0, 1e-12);
    ASSERT_EQ(line.CalcDirByStation(27.000009, d), 1);
    ExpectVec(d, 0.0, 0.0, 1.0, 1e-12);

    EXPECT_DOUBLE_EQ(line.GetStationStart(), 10.0);
    EXPECT_DOUBLE_EQ(line.GetStationEnd(), 60.0);
    EXPECT_DOUBLE_EQ(line.GetCoordPtr(3)->GetStationNo(), 27.0);
    EXPECT_DOUBLE_EQ(line.GetCoordPtr(4)->GetStationNo(), 50.0);

    // Line type 2 measures the legs by their rise only.
    CRefLine rise(6, "Rise", 2);
    rise.AddCoord(std::make_unique<CCoord>(1, &rise, 1, 0, 0, 10, 10.0));
    rise.AddCoord(std::make_unique<CCoord>(2, &rise, 2, 30, 40, 16, 0.0));
    ASSERT_EQ(rise.CalcCoordByStation(13.0, c), 1);
    ExpectVec(c, 15.0, 20.0, 13.0, 1e-12);

    // Segments and coordinates together define nothing.
    line.AddHorSegment(std::make_unique<CHorSegment>(1, &line, 1, 0, 0, 0, 100, 100, 0, 0, 0, 0));
    c[0] = c[1] = c[2] = 9.0;
    EXPECT_EQ(line.CalcCoordByStation(12.0, c), 0);
    ExpectVec(c, 0, 0, 0, 0);
    EXPECT_EQ(line.CalcDirByStation(12.0, d), 0);

    // Elevation only: X and Y are left as the caller had them.
    CRefLine high(7, "Elevation");
    high.AddVerSegment(std::make_unique<CVerSegment>(1, &high, 1, 0.0, 10.0, 100.0, 12.0, 5.0));
    EXPECT_EQ(high.GetVerSegmentPtr(1)->GetRadius(), 0.0);
    high.GetVerSegmentPtr(1)->CalculateAndValidate();
    c[0] = 7.0;
    c[1] = 8.0;
    ASSERT_EQ(high.CalcCoordByStation(50.0, c), 1);
    ExpectVec(c, 7.0, 8.0, 11.0, 1e-12);
    EXPECT_EQ(high.CalcCoordByStation(150.0, c), 0);
    EXPECT_EQ(c[2], 0.0);

    CRefLine empty(8, "Empty");
    EXPECT_EQ(empty.AnyGeometry(), 0);
    EXPECT_EQ(empty.CalcCoordByStation(0.0, c), 0);
}

TEST(RefLine, OffsetToTheCentreOfGravity) {
    CRefLine line(1, "Road");
    line.AddHorSegment(
        std::make_unique<CHorSegment>(1, &line, 1, 0, 100, 50, 100, 180, 110, 0, 0, 0));
    line.RecalcChainedHorSegments();
    line.AddKeySection(std::make_unique<CKeySection>(1, "Deck", 10.0));
    // The section's centre of gravity 2 m to the right and 1 m below the line: to the right of a
    // line heading (0.8, 0.6) is (0.6, -0.8).
    int made = 0;
    auto cog = [&made](double, double* d) {
        ++made;
        d[0] = 2.0;
        d[1] = -1.0;
        return 1;
    };
    double off[3] = {9, 9, 9};
    EXPECT_EQ(line.CalcRefLineToCoGByStation(5.0, off, cog), 1);
    ExpectVec(off, 0, 0, 0, 0);
    EXPECT_EQ(made, 0);
    ASSERT_EQ(line.CalcRefLineToCoGByStation(50.0, off, cog), 1);
    ExpectVec(off, 1.2, -1.6, -1.0, 1e-12);
    EXPECT_EQ(line.CalcRefLineToCoGByStation(150.0, off, cog), -1);
    EXPECT_EQ(line.CalcRefLineToCoGByStation(50.0, off, [](double, double*) { return 0; }), -1);
    line.SetType(3);
    EXPECT_EQ(line.CalcRefLineToCoGByStation(50.0, off, cog), 1);
    ExpectVec(off, 0, 0, 0, 0);
    line.SetType(7);
    EXPECT_EQ(line.CalcRefLineToCoGByStation(50.0, off, cog), -1);
}

TEST(RefLine, KeySectionsByStation) {
    CRefLine line(1, "Road");
    EXPECT_DOUBLE_EQ(line.GetNextAvailStationNo(), 1.0);
    line.AddKeySection(std::make_unique<CKeySection>(2, "B", 20.7));
    line.AddKeySection(std::make_unique<CKeySection>(1, "A", 10.0));
    line.AddKeySection(std::make_unique<CKeySection>(3, "B2", 20.7));
    ASSERT_EQ(line.GetKeySectionList().GetCount(), 2u);
    EXPECT_EQ(line.GetKeySectionList().At(1)->GetName(), "B2");
    EXPECT_DOUBLE_EQ(line.GetNextAvailStationNo(), 21.0);
    // Stations are read to three decimals.
    EXPECT_EQ(line.GetKeySectionPtr(10.0004)->GetName(), "A");
    EXPECT_EQ(line.GetKeySectionPtr(10.0006), nullptr);
    EXPECT_EQ(line.GetKeySectionFor(15.0)->GetName(), "A");
    EXPECT_EQ(line.GetKeySectionFor(9.0), nullptr);
    EXPECT_EQ(line.GetKeySectionIndex(line.GetKeySectionFor(30.0)), 1);
    EXPECT_EQ(line.IsStationNoFree(20.7), 0);
    EXPECT_EQ(line.IsStationNoFree(20.70001), 1);
    // The line of sections that belong to no line finds only exact stations.
    CRefLine none(0, "Cross sections");
    none.AddKeySection(std::make_unique<CKeySection>(1, "X", 10.0));
    EXPECT_EQ(none.GetKeySectionFor(15.0), nullptr);
    EXPECT_NE(none.GetKeySectionFor(10.0), nullptr);
    EXPECT_EQ(line.DeleteKeySection(line.GetKeySectionPtr(10.0)), 1);
    EXPECT_EQ(line.GetKeySectionList().GetCount(), 1u);
}

TEST(RefLine, CopyGeometryShiftsMirrorsAndLeavesOutOnlyWhenBothEndsAreOut) {
    CRefLine road(1, "Road");
    MakeRoad(road);

    CRefLine shifted(2, "Mirror");
    std::string hor, ver;
    ASSERT_EQ(shifted.CopyGeometry(&road, -1.0, 0.0, 10.0, -20.0, &hor, &ver, 1), 1);
    EXPECT_EQ(shifted.GetHorSegmentList().GetCount(), 5u);
    EXPECT_EQ(shifted.GetVerSegmentList().GetCount(), 3u);
    EXPECT_EQ(hor.substr(0, 18), "RFLHORI, 2, 1, 1, ");
    EXPECT_EQ(ver.substr(0, 18), "RFLVERT, 2, 1, 1, ");
    // Reflecting in X = Y swaps the coordinates of every point: the chain recalculated from the
    // mirrored first straight must bend right and land on the mirror image.
    for (double s : {50.0, 120.0, 170.0, 220.0, 340.0}) {
        SCOPED_TRACE(s);
        double a[3], b[3];
        ASSERT_EQ(road.CalcCoordByStation(s, a), 1);
        ASSERT_EQ(shifted.CalcCoordByStation(s, b), 1);
        ExpectVec(b, a[1] - 20.0, a[0] + 10.0, a[2], 1e-5);
    }
    EXPECT_EQ(shifted.CopyGeometry(&road, -1.0, 0.0, 0, 0, nullptr, nullptr, 0), 0);
    CRefLine zero(0, "Zero");
    EXPECT_EQ(zero.CopyGeometry(&road, -1.0, 0.0, 0, 0, nullptr, nullptr, 0), 0);

    // A range from 120 to 130 leaves nothing out: no segment starts after 130 and ends before 120.
    CRefLine part(3, "Part");
    ASSERT_EQ(part.CopyGeometry(&road, 120.0, 130.0, 0, 0, nullptr, nullptr, 0), 1);
    EXPECT_EQ(part.GetHorSegmentList().GetCount(), 5u);
    // From 300 to -0.5 every segment but the last starts after -0.5 and ends before 300. The
    // last is copied first, so it loses its chaining and stands alone where it stood.
    CRefLine tail(4, "Tail");
    hor.clear();
    ASSERT_EQ(tail.CopyGeometry(&road, 300.0, -0.5, 0, 0, &hor, nullptr, 0), 1);
    ASSERT_EQ(tail.GetHorSegmentList().GetCount(), 1u);
    EXPECT_EQ(tail.GetHorSegmentPtr(5)->GetType(), 1);
    EXPECT_EQ(hor.substr(0, 18), "RFLHORI, 4, 5, 1, ");
    double a[3], b[3];
    road.CalcCoordByStation(290.0, a);
    ASSERT_EQ(tail.CalcCoordByStation(290.0, b), 1);
    ExpectVec(b, a[0], a[1], a[2], 1e-9);

    // A copied line is independent of its source.
    CRefLine copy(road);
    road.GetHorSegmentPtr(1)->SetStartX(0.0);
    EXPECT_DOUBLE_EQ(copy.GetHorSegmentPtr(1)->GetStartX(), 1000.0);
    EXPECT_EQ(copy.GetHorSegmentPtr(1)->GetRefLinePtr(), &copy);
}

TEST(RefLine, DirectionOfDrawnLabels) {
    CRefLine road(1, "Road");
    MakeRoad(road);
    const Plan plan;
    auto plan2d = [](const double* g, double* v) {
        v[0] = g[0];
        v[1] = g[1];
    };
    // Chord of 0.1 m on the straight and, at the end of the line, the chord back from it.
    EXPECT_NEAR(road.FindRefLineDirection(50.0, plan2d), kTheta0, 1e-9);
    EXPECT_NEAR(road.FindRefLineDirection(340.0, plan2d), kTheta0 + 0.4, 1e-9);
    EXPECT_EQ(road.FindRefLineDirection(400.0, plan2d), 0.0);
    // The frameless form takes the X of the second point for its first term: with P = (1040, 530)
    // and Q = P + 0.1·(0.8, 0.6) that is atan2(1040.08 − 530, 0.08).
    EXPECT_NEAR(road.FindRefLineDirection(50.0), std::atan2(510.08, 0.08), 1e-9);
    const Pose e = plan.At(340.0), m = plan.At(339.9);
    EXPECT_NEAR(road.FindRefLineDirection(340.0), std::atan2(e.y - m.x, e.x - m.x), 1e-7);
}

TEST(RefLine, BisectionFindsWhatAWalkOfTheWholeListFinds) {
    // A winding line of 61 chained segments, and the same calculated segments numbered from the
    // far end, so that its start stations fall along the list and it is searched by walking.
    CRefLine line(1, "Winding");
    line.AddHorSegment(std::make_unique<CHorSegment>(1, &line, 1, 0, 0, 0, 60, 60, 0, 0, 0, 0));
    double st = 60.0;
    for (int no = 2; no <= 61; ++no) {
        const int kind = no % 4;
        const double sense = (no / 4) % 2 ? 1.0 : -1.0;
        const int type = kind == 1 ? 11 : (kind == 3 ? 12 : 13);
        const double len = kind == 1 ? 60.0 : (kind == 3 ? 80.0 : 40.0);
        const double r0 = (kind == 3 || kind == 0) ? sense * 400.0 : 0.0;
        const double r1 = kind == 2 ? sense * 400.0 : 0.0;
        line.AddHorSegment(std::make_unique<CHorSegment>(no, &line, type, st, 0, 0, st + len, 0, 0,
                                                         r0, r1, 126.49110640673517));
        st += len;
    }
    ASSERT_EQ(line.RecalcChainedHorSegments(), 1);
    CRefLine walked(2, "Walked");
    for (const CHorSegment* s : line.GetHorSegmentList()) {
        auto copy = std::make_unique<CHorSegment>(*s);
        copy->SetHorSegNo(62 - s->GetHorSegNo());
        walked.AddHorSegment(std::move(copy));
    }
    // Joints are left out: there the later segment in the list serves, and the renumbered list
    // has the earlier one later.
    std::vector<double> stations;
    for (int i = 0; i < 300; ++i) stations.push_back(st * ((i * 7919) % 1000 + 0.5) / 1000.0);
    stations.push_back(st + 0.001);
    stations.push_back(-0.001);
    for (double s : stations) {
        SCOPED_TRACE(s);
        double a[3], b[3];
        const int ra = line.CalcCoordByStation(s, a);
        ASSERT_EQ(walked.CalcCoordByStation(s, b), ra);
        ExpectVec(a, b[0], b[1], b[2], 0.0);
        line.CalcDirByStation(s, a);
        walked.CalcDirByStation(s, b);
        ExpectVec(a, b[0], b[1], b[2], 0.0);
    }
}
