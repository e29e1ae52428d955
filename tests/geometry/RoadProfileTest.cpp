#include "geometry/RoadProfile.h"
#include "geometry/PolyLine.h"
#include "geometry/RefLine.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

using namespace kelo;

namespace {

struct Pt {
    double no, x, y;
};

std::vector<Pt> Points(const CRoadProfile& p) {
    std::vector<Pt> out;
    const CPolyLine& line = p.GetPolyLine();
    for (std::size_t i = 0; i < line.GetSectPointCount(); ++i) {
        const CSectPoint* s = line.GetSectPointAt(i);
        out.push_back({s->GetNo(), s->GetX(), s->GetY()});
    }
    return out;
}

void ExpectPoints(const CRoadProfile& p, const std::vector<Pt>& want) {
    const std::vector<Pt> got = Points(p);
    ASSERT_EQ(got.size(), want.size());
    for (std::size_t i = 0; i < want.size(); ++i) {
        SCOPED_TRACE(want[i].no);
        EXPECT_NEAR(got[i].no, want[i].no, 1e-9);
        EXPECT_NEAR(got[i].x, want[i].x, 1e-12);
        EXPECT_NEAR(got[i].y, want[i].y, 1e-12);
    }
}

// Right: inner verge, two lanes of 3.5 m at 3 %, an outer verge, a kerb step, edge and stub.
// Left: a wider inner zone, one lane of 3 m, and nothing beyond the outer point.
const double kRight[20] = {0.5, 1.0, 0.02, 0.5, 2, 3.5, 0.03,  0.25, 0.04, 0.1,
                           0.2, 0,   0,    0,   0, 0.3, -0.05, 0.5,  0.1,  0};
const double kLeft[20] = {0.7, 1.0, -0.025, 0, 1, 3.0, 0.025, 0.5, 0, 0,
                          0,   0,   0,      0, 0, 0,   0,     0,   0, 0};

} // namespace

TEST(RoadProfile, ZonesFromCentreToBothEdges) {
    CRoadProfile p(1, 100.0);
    p.SetProfRight(kRight);
    p.SetProfLeft(kLeft);
    ASSERT_EQ(p.GenerateRoadPoints(), 1);
    // Worked by hand: each width moves out, each slope·width moves down on the right and up on
    // the left; lanes count from the point 0.3.
    ExpectPoints(p, {{-3.1, -5.2, 0.05},
                     {-2.1, -5.2, 0.05},
                     {-1.1, -4.7, 0.05},
                     {-0.3, -1.7, -0.025},
                     {-0.2, -1.7, -0.025},
                     {-0.1, -0.7, 0.0},
                     {0.0, 0.0, 0.0},
                     {0.1, 0.5, 0.0},
                     {0.2, 1.5, -0.02},
                     {0.3, 2.0, -0.035},
                     {1.1, 5.5, -0.14},
                     {1.2, 9.0, -0.245},
                     {2.1, 9.25, -0.255},
                     {2.2, 9.35, -0.055},
                     {3.1, 9.65, -0.105},
                     {3.2, 10.15, -0.155}});
    EXPECT_EQ(p.GetPolyLine().GetConvSectPointCount(), 16u);
    EXPECT_NEAR(p.GetRoadPoint(1.2)->GetX(), 9.0, 1e-12);
    EXPECT_EQ(p.GetRoadPoint(2.3), nullptr);

    // The points read back give the values again.
    std::vector<CSectPoint> outside;
    for (std::size_t i = 0; i < p.GetPolyLine().GetSectPointCount(); ++i)
        outside.push_back(*p.GetPolyLine().GetSectPointAt(i));
    CRoadProfile back(2, 100.0);
    ASSERT_EQ(back.CalcProfValuesFromRoadPoints(outside), 1);
    for (int i = 0; i < 20; ++i) {
        EXPECT_NEAR(back.GetProfRightValue(i), kRight[i], 1e-12) << i;
        EXPECT_NEAR(back.GetProfLeftValue(i), kLeft[i], 1e-12) << i;
    }

    // Nothing given: the outer and edge points are always made, all at the centre.
    CRoadProfile zero;
    zero.GenerateRoadPoints();
    ExpectPoints(zero, {{-3.1, 0, 0}, {-2.1, 0, 0}, {0, 0, 0}, {2.1, 0, 0}, {3.1, 0, 0}});
    // The inner zone of both sides hangs on the right side's first width.
    double left[20] = {2.0};
    CRoadProfile noInner;
    noInner.SetProfLeft(left);
    noInner.GenerateRoadPoints();
    EXPECT_EQ(noInner.GetRoadPoint(-0.1), nullptr);
    EXPECT_EQ(Points(noInner).size(), 5u);

    // A point of a number already there goes in after it.
    p.AddRoadPoint(2.1, 50.0, 50.0);
    const std::vector<Pt> pts = Points(p);
    EXPECT_EQ(pts[12].x, 9.25);
    EXPECT_EQ(pts[13].x, 50.0);
    EXPECT_EQ(p.GetRoadPoint(2.1)->GetX(), 9.25);
    EXPECT_EQ(p.GetPolyLine().GetConvSectPointAt(13)->GetX(), 50.0);
}

TEST(RoadProfile, InterpolationCopiesAndTheLinesList) {
    // From 1 lane and an outer width of 2 at station 100 to 3 lanes and 4 at station 200.
    double a[20] = {}, b[20] = {};
    a[4] = 1;
    a[5] = 3.0;
    a[7] = 2.0;
    b[4] = 3;
    b[5] = 3.0;
    b[7] = 4.0;
    auto pa = std::make_unique<CRoadProfile>(1, 100.0);
    auto pb = std::make_unique<CRoadProfile>(2, 200.0);
    pa->SetProfRight(a);
    pb->SetProfRight(b);
    pb->SetProfLeft(a);
    pa->GenerateRoadPoints();
    pb->GenerateRoadPoints();

    CRoadProfile at;
    ASSERT_EQ(at.CalcProfileAt(150.0, pa.get(), pb.get()), 1);
    EXPECT_EQ(at.GetStationNo(), 150.0);
    EXPECT_NEAR(at.GetRoadPoint(1.2)->GetX(), 6.0, 1e-12);
    EXPECT_NEAR(at.GetRoadPoint(2.1)->GetX(), 9.0, 1e-12);
    // 1.98 lanes are one lane.
    ASSERT_EQ(at.CalcProfileAt(149.0, pa.get(), pb.get()), 1);
    EXPECT_EQ(at.GetRoadPoint(1.2), nullptr);
    EXPECT_NEAR(at.GetRoadPoint(2.1)->GetX(), 3.0 + 2.98, 1e-12);
    EXPECT_EQ(at.CalcProfileAt(1.0, nullptr, nullptr), 0);

    // A copy takes its right side from the source's left side and keeps the source's points.
    CRoadProfile copy(*pb);
    for (int i = 0; i < 20; ++i) EXPECT_EQ(copy.GetProfRightValue(i), a[i]);
    EXPECT_NEAR(copy.GetRoadPoint(2.1)->GetX(), 13.0, 1e-12);

    CRefLine line(1, "Road");
    CRoadProfile out;
    EXPECT_EQ(line.GetRoadProfileAt(100.0, &out), 0);
    EXPECT_EQ(line.GetRoadProfileAt(100.0, nullptr), 0);
    line.AddRoadProfile(std::move(pb));
    // One profile: a copy at any station, with its right side equal to its left side.
    ASSERT_EQ(line.GetRoadProfileAt(20.0, &out), 1);
    EXPECT_EQ(out.GetStationNo(), 20.0);
    EXPECT_EQ(out.GetProfRightValue(7), 2.0);
    line.AddRoadProfile(std::move(pa));
    ASSERT_EQ(line.GetRoadProfileList().GetCount(), 2u);
    EXPECT_EQ(line.GetRoadProfileList().First()->GetStationNo(), 100.0);
    // Ahead of the first profile the first pair extrapolates: at 50, no lanes and a width of 1.
    ASSERT_EQ(line.GetRoadProfileAt(50.0, &out), 1);
    EXPECT_EQ(out.GetRoadPoint(1.1), nullptr);
    EXPECT_NEAR(out.GetRoadPoint(2.1)->GetX(), 1.0, 1e-12);
    ASSERT_EQ(line.GetRoadProfileAt(150.0, &out), 1);
    EXPECT_NEAR(out.GetRoadPoint(2.1)->GetX(), 9.0, 1e-12);
    // Past the last one, that one is copied.
    ASSERT_EQ(line.GetRoadProfileAt(250.0, &out), 1);
    EXPECT_EQ(out.GetStationNo(), 250.0);
    EXPECT_EQ(out.GetProfRightValue(7), 2.0);

    EXPECT_EQ(line.DeleteRoadProfile(100.000001), 1);
    EXPECT_EQ(line.DeleteRoadProfile(100.0), 0);
}

TEST(PolyLine, BowsBecomeEighteenChords) {
    // A bow of R = 10 on a chord of 20: a half circle about (10, 0), bulging to -Y.
    CPolyLine open(1, 0, 0);
    open.AddSectPoint(std::make_unique<CSectPoint>(1.0, 0, 0.0, 0.0));
    open.AddSectPoint(std::make_unique<CSectPoint>(2.0, -1, 10.0, 0.0));
    open.AddSectPoint(std::make_unique<CSectPoint>(3.0, 0, 20.0, 0.0));
    open.MakeConvSectPointList();
    ASSERT_EQ(open.GetConvSectPointCount(), 19u);
    for (std::size_t i = 1; i < 18; ++i) {
        const CSectPoint* p = open.GetConvSectPointAt(i);
        EXPECT_NEAR(std::hypot(p->GetX() - 10.0, p->GetY()), 10.0, 1e-9);
        EXPECT_LT(p->GetY(), 0.0);
        EXPECT_EQ(p->GetTemporaryFlag(), 1);
    }
    EXPECT_NEAR(open.GetConvSectPointAt(9)->GetX(), 10.0, 1e-9);
    EXPECT_NEAR(open.GetConvSectPointAt(9)->GetY(), -10.0, 1e-9);
    EXPECT_EQ(open.GetConvSectPointAt(18)->GetX(), 20.0);

    // Closed, the radius point at the end bows back to the first point.
    CPolyLine ring(2, 0, 1);
    ring.AddSectPoint(std::make_unique<CSectPoint>(1.0, 0, 0.0, 0.0));
    ring.AddSectPoint(std::make_unique<CSectPoint>(2.0, 0, 20.0, 0.0));
    ring.AddSectPoint(std::make_unique<CSectPoint>(3.0, -1, 10.0, 0.0));
    ring.MakeConvSectPointList();
    ASSERT_EQ(ring.GetConvSectPointCount(), 19u);
    EXPECT_NEAR(ring.GetConvSectPointAt(10)->GetY(), 10.0, 1e-9);
}
