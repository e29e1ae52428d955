#include "geometry/KeySection.h"
#include "geometry/RefLine.h"
#include "geometry/RoadProfile.h"
#include "platform/Sinks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

using namespace kelo;

namespace {

constexpr double kPi = std::numbers::pi;

// A point of a definition type with its offsets and references g[0], g[1], ...
std::unique_ptr<CSectPoint> Pt(double no, int type, double dx, double dy,
                               std::initializer_list<double> g = {}, int polyLine = 0) {
    auto p = std::make_unique<CSectPoint>(type, polyLine, no, dx, dy);
    int i = 0;
    for (double v : g) p->SetGeomData(i++, v);
    return p;
}

// The road at the section: crown 0 at the origin, falling 2.5 % to the right edge 2.1 at
// (4.0, -0.1) and to the left edge -2.1 at (-4.0, -0.1).
CRoadProfile Road() {
    CRoadProfile road(1, 0.0);
    road.AddRoadPoint(-2.1, -4.0, -0.1);
    road.AddRoadPoint(0.0, 0.0, 0.0);
    road.AddRoadPoint(2.1, 4.0, -0.1);
    return road;
}

struct Capture : MessageSink {
    std::vector<std::string> texts;
    int Show(MsgKind, const std::string& text) override {
        texts.push_back(text);
        return 1;
    }
};

} // namespace

TEST(SectPoint, EachDefinitionTypeResolvesToHandValues) {
    const CRoadProfile road = Road();
    CKeySection s(1, "Deck", 0.0);
    s.SetRoadProfile(&road);
    // Helper points on polyline 1: the origin, (4, 0) and (1, 2) for the skew axes, (3, 4).
    auto help = std::make_unique<CPolyLine>(1, 0, 0);
    help->AddSectPoint(Pt(1, 0, 0.0, 0.0, {}, 1));
    help->AddSectPoint(Pt(2, 0, 4.0, 0.0, {}, 1));
    help->AddSectPoint(Pt(3, 0, 1.0, 2.0, {}, 1));
    help->AddSectPoint(Pt(4, 0, 3.0, 4.0, {}, 1));
    help->AddSectPoint(Pt(5, 0, 1.0, 1.0, {}, 1));
    s.AddPolyLine(std::move(help));

    s.AddSectPoint(Pt(1, 0, 1.5, -2.0));
    // From road point 2.1, offset (-0.5, -0.3).
    s.AddSectPoint(Pt(2, 2, -0.5, -0.3, {2.1}));
    // Plumb 2.0 right of the crown onto the surface from 0 to 2.1, which is there at -0.05;
    // 0.25 below it.
    s.AddSectPoint(Pt(3, 1, 2.0, -0.25, {0.0, 0.0, 2.1}));
    // 2.0 along the surface from the crown and 0.25 square below it.
    s.AddSectPoint(Pt(4, 3, 2.0, -0.25, {0.0, 0.0, 2.1}));
    // Half way between points 1 and 2, moved by (0.1, 0.1).
    s.AddSectPoint(Pt(5, 6, 0.1, 0.1, {0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 2.0}));
    // From point 1 by (0.2, -0.4); the road point g[0] must be there.
    s.AddSectPoint(Pt(6, 7, 0.2, -0.4, {0.0, 0.0, 0.0, 0.0, 1.0}));
    // Plumb from 0.5 right of point 1 onto the surface, 0.2 below.
    s.AddSectPoint(Pt(7, 8, 0.5, -0.2, {0.0, 0.0, 2.1, 0.0, 1.0}));
    // Skew axes from P1 = the origin: line 1 along X, line 2 along (1, 2). dX = 1 square to the
    // right of line 2, dY = 0.5 square to the left of line 1: the parallels x − y/2 = √5/2 and
    // y = 0.5 cross at x = √5/2 + 0.25.
    s.AddSectPoint(Pt(8, 4, 1.0, 0.5, {1, 1, 1, 1, 1, 2, 1, 1, 1, 3}));
    // Rotated axes along the line from the origin to (3, 4), from P1 = (1, 1): 2 along it, 1
    // square to its left.
    s.AddSectPoint(Pt(9, 5, 2.0, 1.0, {1, 5, 1, 1, 1, 4}));
    // With no second line given (g[2] = 0) a plain offset from P1.
    s.AddSectPoint(Pt(10, 5, 2.0, 1.0, {1, 5, 0, 1, 1, 4}));
    // A radius point keeps its radius from DeltaX.
    s.AddSectPoint(Pt(11, -1, 3.5, 0.0));
    s.AddSectPoint(Pt(12, 0, 1.5, -2.0));
    // A type beyond 8 defines nothing and stops nothing.
    s.AddSectPoint(Pt(13, 9, 7.0, 7.0));

    ASSERT_EQ(s.CalcSectPointCoord(), 1);
    auto at = [&s](double no) { return s.GetSectPointPtr(no); };
    EXPECT_DOUBLE_EQ(at(1)->GetX(), 1.5);
    EXPECT_DOUBLE_EQ(at(1)->GetY(), -2.0);
    EXPECT_NEAR(at(2)->GetX(), 3.5, 1e-14);
    EXPECT_NEAR(at(2)->GetY(), -0.4, 1e-14);
    EXPECT_NEAR(at(3)->GetX(), 2.0, 1e-14);
    EXPECT_NEAR(at(3)->GetY(), -0.3, 1e-14);
    const double len = std::hypot(4.0, 0.1), ux = 4.0 / len, uy = -0.1 / len;
    EXPECT_NEAR(at(4)->GetX(), 2.0 * ux - 0.25 * -uy, 1e-14);
    EXPECT_NEAR(at(4)->GetY(), 2.0 * uy - 0.25 * ux, 1e-14);
    EXPECT_NEAR(at(5)->GetX(), 2.6, 1e-14);
    EXPECT_NEAR(at(5)->GetY(), -1.1, 1e-14);
    EXPECT_NEAR(at(6)->GetX(), 1.7, 1e-14);
    EXPECT_NEAR(at(6)->GetY(), -2.4, 1e-14);
    EXPECT_NEAR(at(7)->GetX(), 2.0, 1e-14);
    EXPECT_NEAR(at(7)->GetY(), -0.25, 1e-14);
    EXPECT_NEAR(at(8)->GetX(), std::sqrt(5.0) / 2 + 0.25, 1e-14);
    EXPECT_NEAR(at(8)->GetY(), 0.5, 1e-14);
    EXPECT_NEAR(at(9)->GetX(), 1.0 + 2.0 * 0.6 - 1.0 * 0.8, 1e-14);
    EXPECT_NEAR(at(9)->GetY(), 1.0 + 2.0 * 0.8 + 1.0 * 0.6, 1e-14);
    EXPECT_NEAR(at(10)->GetX(), 3.0, 1e-14);
    EXPECT_NEAR(at(10)->GetY(), 2.0, 1e-14);
    EXPECT_EQ(at(11)->GetR(), 3.5);
    EXPECT_EQ(at(13)->GetX(), 7.0);
    for (const auto& p : s.GetSectPointList()) EXPECT_EQ(p->GetCalculatedFlag(), 1);

    // Without a road surface the road-tied points can't be placed, and the first of them stops
    // the outline there.
    CKeySection bare(s);
    bare.SetRoadProfile(nullptr);
    EXPECT_EQ(bare.CalcSectPointCoord(), 0);
    EXPECT_EQ(bare.GetSectPointPtr(1)->GetCalculatedFlag(), 1);
    EXPECT_EQ(bare.GetSectPointPtr(2)->GetCalculatedFlag(), 0);
    EXPECT_EQ(bare.GetSectPointPtr(5)->GetCalculatedFlag(), 0);
    // Nor with a road point that isn't there.
    CKeySection missing(2, "Missing", 0.0);
    missing.SetRoadProfile(&road);
    missing.AddSectPoint(Pt(1, 1, 2.0, 0.0, {0.0, 0.0, 2.2}));
    EXPECT_EQ(missing.CalcSectPointCoord(), 0);
}

TEST(SectPoint, RoadOfTheLineAtTheStation) {
    // A line with one road profile: every station has its surface.
    CRefLine line(1, "Road");
    auto profile = std::make_unique<CRoadProfile>(1, 0.0);
    profile->AddRoadPoint(0.0, 0.0, 0.0);
    profile->AddRoadPoint(2.1, 4.0, -0.1);
    line.AddRoadProfile(std::move(profile));
    CKeySection s(1, "Deck", 50.0);
    s.AddSectPoint(Pt(1, 2, 0.0, -1.0, {2.1}));
    EXPECT_EQ(s.CalcSectPointCoord(), 0);
    SectionEnv env;
    env.RefLine = &line;
    ASSERT_EQ(s.CalcSectPointCoord(&env), 1);
    EXPECT_NEAR(s.GetSectPointPtr(1)->GetY(), -1.1, 1e-14);
    CRoadProfile found;
    ASSERT_EQ(s.FindDepRoadProfile(&line, &found), 1);
    EXPECT_EQ(found.GetStationNo(), 50.0);
}

TEST(SectPoint, CircularDefinitionsFail) {
    const CRoadProfile road = Road();
    // Points 1 and 2 each from the other.
    CKeySection ring(1, "Ring", 0.0);
    ring.SetRoadProfile(&road);
    ring.AddSectPoint(Pt(1, 7, 1.0, 0.0, {0, 0, 0, 0, 2}));
    ring.AddSectPoint(Pt(2, 7, 0.0, 1.0, {0, 0, 0, 0, 1}));
    EXPECT_EQ(ring.CalcSectPointCoord(), 0);
    EXPECT_EQ(ring.CalculateSectionCoord(ring.GetSectPointPtr(1), nullptr), 0);
    // A point handed in as its own start is circular at once.
    CSectPoint* one = ring.GetSectPointPtr(1);
    EXPECT_EQ(ring.CalculateSectionCoord(one, one), 0);
    // 1 from 2, 2 from 3, 3 from 2: the circle doesn't pass through the start and still ends.
    CKeySection tail(2, "Tail", 0.0);
    tail.SetRoadProfile(&road);
    tail.AddSectPoint(Pt(1, 7, 1.0, 0.0, {0, 0, 0, 0, 2}));
    tail.AddSectPoint(Pt(2, 7, 1.0, 0.0, {0, 0, 0, 0, 3}));
    tail.AddSectPoint(Pt(3, 7, 1.0, 0.0, {0, 0, 0, 0, 2}));
    EXPECT_EQ(tail.CalcSectPointCoord(), 0);
    for (const auto& p : tail.GetSectPointList()) EXPECT_EQ(p->GetCalculatedFlag(), 0);
    // A chain that ends on an absolute point resolves.
    CKeySection chain(3, "Chain", 0.0);
    chain.SetRoadProfile(&road);
    chain.AddSectPoint(Pt(1, 7, 1.0, 0.0, {0, 0, 0, 0, 2}));
    chain.AddSectPoint(Pt(2, 7, 1.0, 0.0, {0, 0, 0, 0, 3}));
    chain.AddSectPoint(Pt(3, 0, 1.0, 0.0));
    ASSERT_EQ(chain.CalcSectPointCoord(), 1);
    EXPECT_NEAR(chain.GetSectPointPtr(1)->GetX(), 3.0, 1e-14);
    // A reference to a point that isn't there.
    CKeySection dangling(4, "Dangling", 0.0);
    dangling.SetRoadProfile(&road);
    dangling.AddSectPoint(Pt(1, 7, 1.0, 0.0, {0, 0, 0, 2, 1}));
    EXPECT_EQ(dangling.CalcSectPointCoord(), 0);
}

TEST(SectPoint, LinesMeetAndAnglesAreBroughtIntoOneTurn) {
    double x = 0.0, y = 0.0;
    const CSectPoint o(0.0, 0.0), e(4.0, 0.0), up(2.0, -1.0), top(2.0, 5.0);
    ASSERT_EQ(CKeySection::CalculateIntersectPoint(o, e, up, top, x, y), 1);
    EXPECT_NEAR(x, 2.0, 1e-14);
    EXPECT_NEAR(y, 0.0, 1e-14);
    // Parallel lines have no point in common.
    EXPECT_EQ(CKeySection::CalculateIntersectPoint(o, e, up, CSectPoint(6.0, -1.0), x, y), 0);
    // A line of no length runs along X through its point.
    const CSectPoint p(1.0, 2.0), q(5.0, 0.0), r(5.0, 9.0);
    ASSERT_EQ(CKeySection::CalculateIntersectPoint(p, p, q, r, x, y), 1);
    EXPECT_NEAR(x, 5.0, 1e-14);
    EXPECT_NEAR(y, 2.0, 1e-14);
    // Differences of up to 1e-5 count as none: a nearly vertical line is vertical.
    ASSERT_EQ(CKeySection::CalculateIntersectPoint(o, e, CSectPoint(3.0, 1.0),
                                                   CSectPoint(3.000005, 2.0), x, y),
              1);
    EXPECT_EQ(x, 3.0);

    ASSERT_EQ(CKeySection::CalculateNormalPoint(CSectPoint(2.0, 3.0), CSectPoint(0.0, 0.0),
                                                CSectPoint(4.0, 4.0), x, y),
              1);
    EXPECT_NEAR(x, 2.5, 1e-14);
    EXPECT_NEAR(y, 2.5, 1e-14);
    EXPECT_EQ(CKeySection::CalculateNormalPoint(o, e, e, x, y), 0);

    EXPECT_NEAR(CKeySection::NormalizeAngle(-kPi / 2), 1.5 * kPi, 1e-14);
    EXPECT_NEAR(CKeySection::NormalizeAngle(2.5 * kPi), 0.5 * kPi, 1e-14);
    EXPECT_EQ(CKeySection::NormalizeAngle(5e-6), 5e-6);
    EXPECT_EQ(CKeySection::NormalizeAngle(-5e-6), -5e-6);
    EXPECT_NEAR(CKeySection::NormalizeAngle(-2 * kPi), 2 * kPi, 1e-14);
}

TEST(SectPoint, BowsCentresAndBulges) {
    // A square 2 × 2 whose right side is a half circle of r = 1 (chord = 2r), drawn
    // counter-clockwise: points 1 (−1, −1), 2 (1, −1), bow 3, 4 (1, 1), 5 (−1, 1), 6 (−1, −1).
    CKeySection s(1, "Bow", 0.0);
    s.AddSectPoint(Pt(1, 0, -1.0, -1.0));
    s.AddSectPoint(Pt(2, 0, 1.0, -1.0));
    s.AddSectPoint(Pt(3, -1, 1.0, 0.0));
    s.AddSectPoint(Pt(4, 0, 1.0, 1.0));
    s.AddSectPoint(Pt(5, 0, -1.0, 1.0));
    s.AddSectPoint(Pt(6, 0, -1.0, -1.0));
    ASSERT_EQ(s.CalcSectPointCoord(), 1);
    s.MakeConvSectPointList();
    const CSectPointList& conv = s.GetConvSectPointList();
    ASSERT_EQ(conv.GetCount(), 5u + 17u);
    for (std::size_t i = 2; i < 19; ++i) {
        EXPECT_NEAR(std::hypot(conv.At(i)->GetX() - 1.0, conv.At(i)->GetY()), 1.0, 1e-13);
        EXPECT_GT(conv.At(i)->GetX(), 1.0);
    }
    // The middle chord point is the far end of the half circle.
    EXPECT_NEAR(conv.At(10)->GetX(), 2.0, 1e-13);
    EXPECT_NEAR(conv.At(10)->GetY(), 0.0, 1e-13);
    EXPECT_NEAR(s.GetSectPointPtr(3)->GetX(), 2.0, 1e-13);
    // Area: the square and the half circle's inscribed 18-gon half.
    ASSERT_EQ(s.CalcSectionProp(0), 1);
    EXPECT_NEAR(s.GetSectionArea(), 4.0 + 9.0 * std::sin(kPi / 18), 1e-13);

    double r = 0, cx = 9, cy = 9, x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    EXPECT_EQ(s.CalculateBow(s.GetSectPointPtr(3), r, cx, cy, x1, y1, x2, y2), 0);
    EXPECT_EQ(r, 1.0);
    EXPECT_NEAR(cx, 1.0, 1e-14);
    EXPECT_NEAR(cy, 0.0, 1e-14);
    EXPECT_EQ(x1, 1.0);
    EXPECT_EQ(y1, -1.0);
    EXPECT_EQ(y2, 1.0);
    // A bow of negative radius bulges the other way and lists its ends reversed.
    s.GetSectPointPtr(3)->SetR(-1.0);
    s.CalculateBow(s.GetSectPointPtr(3), r, cx, cy, x1, y1, x2, y2);
    EXPECT_NEAR(cx, 1.0, 1e-14);
    EXPECT_EQ(y1, 1.0);
    EXPECT_EQ(y2, -1.0);
    // Half a turn: bulge tan(π/4) = 1, negative clockwise; a quarter bow: tan(π/8).
    ASSERT_EQ(s.CalcBulgeValues(), 1);
    EXPECT_NEAR(s.GetSectPointPtr(2)->GetBulge(), -1.0, 1e-13);
    s.GetSectPointPtr(3)->SetR(std::sqrt(2.0));
    s.CalcBulgeValues();
    EXPECT_NEAR(s.GetSectPointPtr(2)->GetBulge(), std::tan(kPi / 8), 1e-13);
    EXPECT_EQ(s.GetSectPointPtr(4)->GetBulge(), 0.0);

    int reversed = -1;
    EXPECT_EQ(s.GetRadiusPointBetween(2, 4, reversed), s.GetSectPointPtr(3));
    EXPECT_EQ(reversed, 0);
    EXPECT_EQ(s.GetRadiusPointBetween(4, 2, reversed), s.GetSectPointPtr(3));
    EXPECT_EQ(reversed, 1);
    EXPECT_EQ(s.GetRadiusPointBetween(1, 2, reversed), nullptr);

    // A bow's end missing: no bow is drawn; a run of radius points is no bow either.
    CKeySection open(2, "Open", 0.0);
    open.AddSectPoint(Pt(1, -1, 1.0, 0.0));
    open.AddSectPoint(Pt(2, 0, 0.0, 0.0));
    open.AddSectPoint(Pt(3, -1, 1.0, 0.0));
    open.AddSectPoint(Pt(4, -1, 1.0, 0.0));
    open.AddSectPoint(Pt(5, 0, 2.0, 0.0));
    open.AddSectPoint(Pt(6, -1, 1.0, 0.0));
    open.MakeConvSectPointList();
    ASSERT_EQ(open.GetConvSectPointList().GetCount(), 2u);
    EXPECT_EQ(open.GetConvSectPointList().At(1)->GetNo(), 5.0);
    EXPECT_EQ(open.CalculateBow(open.GetSectPointPtr(6), r, cx, cy, x1, y1, x2, y2), 0);
}

TEST(SectPoint, OffsetsVaryWithDistanceToTheNextSection) {
    // Key sections at stations 100 and 140 of line 1; point 1 goes from (1.0, -0.5) to
    // (3.0, -1.5). By the default linear law the middle (s = 20) is half way and the quarter
    // point (s = 10) a quarter of the way.
    CKeySection a(1, "A", 100.0), b(2, "B", 140.0);
    a.SetRefLineNo(1);
    b.SetRefLineNo(1);
    a.AddSectPoint(Pt(1, 0, 1.0, -0.5));
    b.AddSectPoint(Pt(1, 0, 3.0, -1.5));
    a.AddSectPoint(Pt(2, -1, 2.0, 0.0));
    b.AddSectPoint(Pt(2, -1, 4.0, 0.0));
    auto la = std::make_unique<CPolyLine>(7, 0, 0);
    la->AddSectPoint(Pt(1, 0, 0.0, 10.0, {}, 7));
    a.AddPolyLine(std::move(la));
    auto lb = std::make_unique<CPolyLine>(7, 0, 0);
    lb->AddSectPoint(Pt(5, 0, 0.0, 14.0, {}, 7));
    b.AddPolyLine(std::move(lb));
    a.CalcParaFactors(&b);
    const CSectPoint& p = *a.GetSectPointPtr(1);
    EXPECT_NEAR(p.GetCfactor(1), 0.05, 1e-15);
    EXPECT_NEAR(p.GetDeltaX(20.0), 2.0, 1e-14);
    EXPECT_NEAR(p.GetDeltaX(10.0), 1.5, 1e-14);
    EXPECT_NEAR(p.GetDeltaY(20.0), -1.0, 1e-14);
    EXPECT_NEAR(p.GetDeltaY(10.0), -0.75, 1e-14);
    EXPECT_NEAR(p.GetDeltaX(40.0), 3.0, 1e-14);
    // A radius grows the same way; polyline points pair by position within the same polyline.
    EXPECT_NEAR(a.GetSectPointPtr(2)->GetDeltaR(20.0), 3.0, 1e-14);
    EXPECT_NEAR(a.GetPolyLinePtr(7)->GetSectPointAt(0)->GetDeltaY(10.0), 11.0, 1e-14);
    // Within a millimetre of the section: the base value, whatever the law.
    EXPECT_EQ(p.GetDeltaX(0.0005), 1.0);
    // The last section pairs with itself: nothing varies.
    b.CalcParaFactors(&b);
    EXPECT_EQ(b.GetSectPointPtr(1)->GetDeltaX(20.0), 3.0);
    // On line 0 sections are not along a line and the factors stay.
    CKeySection lib(3, "Lib", 0.0);
    lib.AddSectPoint(Pt(1, 0, 1.0, 1.0));
    lib.GetSectPointPtr(1)->SetFactors(1, 0.0, 0.0, 0.5);
    lib.CalcParaFactors(&b);
    EXPECT_EQ(lib.GetSectPointPtr(1)->GetCfactor(1), 0.5);

    // A cubic haunch rising by Δ = 2 over L = 40 with level ends: Δ·(3(s/L)² − 2(s/L)³), so
    // b = 3Δ/L², a = −2Δ/L³. Middle: Δ/2; quarter point: Δ·(3/16 − 2/64) = 0.3125.
    CSectPoint h(1.0, 0, 1.0, -0.5);
    const double cubic[3] = {-4.0 / 64000.0, 6.0 / 1600.0, 0.0};
    h.SetParaData(1, 2, cubic);
    EXPECT_EQ(h.GetParaType(1), 2);
    EXPECT_NEAR(h.GetDeltaX(20.0), 2.0, 1e-14);
    EXPECT_NEAR(h.GetDeltaX(10.0), 1.3125, 1e-14);
    EXPECT_NEAR(h.GetDeltaX(40.0), 3.0, 1e-14);
    // Linear law variation is left alone by a cubic point.
    h.CalcParaFactors(&*b.GetSectPointPtr(1), 40.0);
    EXPECT_NEAR(h.GetDeltaX(20.0), 2.0, 1e-14);

    // The power law: X = a·(s/b)^c + d, a parabola for c = 2: middle d + a/4, quarter d + a/16.
    // Y = a·(s/b)·e^c + d, linear in s: with c = 0 a straight change of a over b.
    const double power[3] = {2.0, 40.0, 2.0};
    const double straight[3] = {-1.0, 40.0, 0.0};
    h.SetParaData(1, 3, power);
    h.SetParaData(2, 3, straight);
    EXPECT_NEAR(h.GetDeltaX(20.0), 1.5, 1e-14);
    EXPECT_NEAR(h.GetDeltaX(10.0), 1.125, 1e-14);
    EXPECT_NEAR(h.GetDeltaY(20.0), -1.0, 1e-14);
    EXPECT_NEAR(h.GetDeltaY(10.0), -0.75, 1e-14);
    // With e^c the Y law scales: c = ln 2 doubles the change.
    const double doubled[3] = {-1.0, 40.0, std::log(2.0)};
    h.SetParaData(2, 3, doubled);
    EXPECT_NEAR(h.GetDeltaY(20.0), -1.5, 1e-14);

    // Law 1 takes only c; law 0 clears; law -1 isn't available and says so.
    const double data[3] = {7.0, 8.0, 0.25};
    h.SetParaData(1, 1, data);
    EXPECT_EQ(h.GetAfactor(1), 0.0);
    EXPECT_EQ(h.GetBfactor(1), 0.0);
    EXPECT_NEAR(h.GetDeltaX(4.0), 2.0, 1e-15);
    h.SetParaData(1, 0, data);
    EXPECT_EQ(h.GetCfactor(1), 0.0);
    EXPECT_EQ(h.GetDeltaX(4.0), 1.0);
    h.SetParaData(3, 2, data);
    EXPECT_EQ(h.GetParaType(3), 1);
    Capture sink;
    h.SetParaType(1, -1);
    EXPECT_EQ(h.GetDeltaX(4.0, &sink), 1.0);
    ASSERT_EQ(sink.texts.size(), 1u);
    EXPECT_EQ(sink.texts[0], "ParaType = -1 er ikke implementert (mangler peker til CKeySection)");
    h.SetParaType(1, 4);
    EXPECT_EQ(h.GetDeltaX(4.0), 1.0);

    // Factors set through the section: the X record on axis 1, the Y record on axis 2.
    ASSERT_EQ(a.SetSectPointVar(1, 2, 0.0, 0.0, -0.1), 1);
    EXPECT_NEAR(a.GetSectPointPtr(1)->GetDeltaY(10.0), -1.5, 1e-14);
    EXPECT_EQ(a.SetSectPointVar(9, 1, 0.0, 0.0, 1.0), 0);
    EXPECT_EQ(a.SetSectPointVar(1, 3, 0.0, 0.0, 1.0), 0);
}

TEST(SectPoint, GeneratedOutlinesKeepFaceConnectionsAndModesStopEarly) {
    // A design rectangle regenerated keeps the face connection set on its point 2.
    CKeySection s(1, "Rect", 0.0);
    s.SetType(11);
    s.SetSpecParam(0, 1000);
    s.SetSpecParam(1, 500);
    ASSERT_EQ(s.CalcSectPoints(), 1);
    ASSERT_EQ(s.GetSectPointList().GetCount(), 5u);
    s.GetSectPointPtr(2)->SetFaceConnection(3);
    s.SetSpecParam(0, 1200);
    ASSERT_EQ(s.UpdateKeySection(3), 1);
    EXPECT_EQ(s.GetSectPointPtr(2)->GetFaceConnection(), 3);
    EXPECT_NEAR(s.GetSectPointPtr(2)->GetX(), 0.6, 1e-15);
    // Mode 3 made the points only: nothing integrated yet.
    EXPECT_EQ(s.GetSectionArea(), 0.0);
    EXPECT_EQ(s.GetConvSectPointList().GetCount(), 0u);
    ASSERT_EQ(s.UpdateKeySection(0), 1);
    EXPECT_NEAR(s.GetSectionArea(), 0.6, 1e-14);
    // The area element of a solid carries the section's material.
    s.SetMatParNo(4);
    ASSERT_EQ(s.UpdateKeySection(0), 1);
    EXPECT_EQ(s.GetAreaElemPtr(0)->GetMatParNo(), 4);
    EXPECT_EQ(s.GetAreaElemList().GetCount(), 1u);

    // A user's outline is not regenerated; mode 3 leaves its points unresolved.
    const CRoadProfile road = Road();
    CKeySection g(2, "General", 0.0);
    g.SetRoadProfile(&road);
    g.AddSectPoint(Pt(1, 2, 0.0, -1.0, {2.1}));
    ASSERT_EQ(g.UpdateKeySection(3), 1);
    EXPECT_EQ(g.GetSectPointPtr(1)->GetCalculatedFlag(), 0);
    EXPECT_EQ(g.GetSectPointList().GetCount(), 1u);
}

TEST(SectPoint, NeighboursAndCoincidentPoints) {
    // 1 (0, 0), 2 (2, 0), bow 3, 4 (2, 2), 5 = 4, 6 (0, 2), 7 = 1.
    CKeySection s(1, "Ring", 0.0);
    s.AddSectPoint(Pt(1, 0, 0.0, 0.0));
    s.AddSectPoint(Pt(2, 0, 2.0, 0.0));
    s.AddSectPoint(Pt(3, -1, 1.5, 0.0));
    s.AddSectPoint(Pt(4, 0, 2.0, 2.0));
    s.AddSectPoint(Pt(5, 0, 2.0, 2.0));
    s.AddSectPoint(Pt(6, 0, 0.0, 2.0));
    s.AddSectPoint(Pt(7, 0, 0.0, 0.0));
    ASSERT_EQ(s.CalcSectPointCoord(), 1);
    auto at = [&s](double no) { return s.GetSectPointPtr(no); };
    EXPECT_EQ(s.GetNextNonRadiusSectPoint(at(2)), at(4));
    EXPECT_EQ(s.GetNextNonOverlappingSectPoint(at(4)), at(6));
    EXPECT_EQ(s.GetNextNonOverlappingSectPoint(at(2)), at(3));
    EXPECT_EQ(s.GetNextSurfaceSectPoint(at(4)), at(6));
    EXPECT_EQ(s.GetNextSurfaceSectPoint(at(7)), at(2));
    EXPECT_EQ(s.GetPrevSurfaceSectPoint(at(4)), at(2));
    EXPECT_EQ(s.GetPrevSurfaceSectPoint(at(1)), at(6));
    EXPECT_EQ(s.CheckPoint(at(4), 1), 1);
    EXPECT_EQ(s.CheckPoint(at(4), 2), 0);
    EXPECT_EQ(s.CheckPoint(at(6), 1), 0);
    EXPECT_EQ(s.CheckPoint(at(3), 0), 0);
    EXPECT_EQ(s.NumberOfPoints(at(7)), 2);
    EXPECT_EQ(s.NumberOfPoints(at(4)), 1);
    EXPECT_EQ(s.GetFirstFreeSectPointNo(), 8);
    EXPECT_EQ(s.DeleteSectPoint(5), 1);
    EXPECT_EQ(s.DeleteSectPoint(5), 0);
    EXPECT_EQ(s.GetFirstFreeSectPointNo(), 5);
    EXPECT_EQ(s.GetSectPointPtr(0, 6.0), at(6));
    EXPECT_EQ(s.GetSectPointPtr(1, 6.0), nullptr);

    // A copy is deep and its points are its own.
    CKeySection copy(s);
    copy.GetSectPointPtr(6)->SetX(9.0);
    EXPECT_EQ(at(6)->GetX(), 0.0);
}
