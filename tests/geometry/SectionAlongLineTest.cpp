#include "geometry/RefLine.h"
#include "platform/Sinks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

using namespace kelo;

namespace {

// Keeps what the sections would have shown in boxes.
struct RecordingSink : MessageSink {
    int Show(MsgKind, const std::string& text) override {
        texts.push_back(text);
        return 1;
    }
    std::vector<std::string> texts;
};

// A line along +X from station 0 at the origin to station 100, level.
std::unique_ptr<CRefLine> StraightLine(int no = 1) {
    auto line = std::make_unique<CRefLine>(no, "Test");
    line->AddHorSegment(std::make_unique<CHorSegment>(1, nullptr, 1, 0.0, 0.0, 0.0, 100.0, 100.0,
                                                      0.0, 0.0, 0.0, 0.0));
    return line;
}

// A drawn rectangle b wide and h deep below the line, anticlockwise from its bottom left corner
// and closed on it: points 1 to 5, and the line at the origin of the section.
std::unique_ptr<CKeySection> Rect(int lineNo, double station, double b, double h) {
    auto s = std::make_unique<CKeySection>(0, "Rect", station);
    s->SetRefLineNo(lineNo);
    s->SetType(13);
    s->SetConnectType(0);
    const double xy[5][2] = {{-b / 2, -h}, {b / 2, -h}, {b / 2, 0.0}, {-b / 2, 0.0}, {-b / 2, -h}};
    for (int k = 0; k < 5; ++k)
        s->AddSectPoint(std::make_unique<CSectPoint>(k + 1.0, 0, xy[k][0], xy[k][1]));
    return s;
}

} // namespace

TEST(CreateSectionAt, LinearLawsBetweenKeySectionsAndTheEnds) {
    auto line = StraightLine();
    // 1 m × 2 m at station 10, 2 m × 4 m at station 50: between them each corner moves linearly.
    line->AddKeySection(Rect(1, 10.0, 1.0, 2.0));
    line->AddKeySection(Rect(1, 50.0, 2.0, 4.0));

    // Ahead of the first key section there is none.
    EXPECT_EQ(line->CreateSectionAt(5.0, nullptr, 4), nullptr);

    // At 20, a quarter of the way: 1.25 × 2.5.
    const auto quarter = line->CreateSectionAt(20.0, nullptr, 4);
    ASSERT_NE(quarter, nullptr);
    EXPECT_DOUBLE_EQ(quarter->GetStationNo(), 20.0);
    EXPECT_NEAR(quarter->GetSectPointPtr(3)->GetX(), 0.625, 1e-12);
    EXPECT_NEAR(quarter->GetSectPointPtr(1)->GetY(), -2.5, 1e-12);
    EXPECT_NEAR(quarter->GetSectionArea(), 1.25 * 2.5, 1e-12);
    // Placed on the line: the top corner 3 lies 0.625 m to the right of travel (−Y) at X = 20.
    EXPECT_NEAR(quarter->GetSectPointPtr(3)->GetXg(), 20.0, 1e-12);
    EXPECT_NEAR(quarter->GetSectPointPtr(3)->GetYg(), -0.625, 1e-12);
    EXPECT_NEAR(quarter->GetSectPointPtr(1)->GetZg(), -2.5, 1e-12);
    // The key sections themselves are not changed by being interpolated from.
    EXPECT_EQ(line->GetKeySectionPtr(10.0)->GetSectPointPtr(3)->GetDeltaX(), 0.5);

    // Within 1 mm of a key section: that section as it is, at its own station.
    const auto on = line->CreateSectionAt(10.0005, nullptr, 4);
    ASSERT_NE(on, nullptr);
    EXPECT_DOUBLE_EQ(on->GetStationNo(), 10.0);
    EXPECT_NEAR(on->GetSectionArea(), 2.0, 1e-12);

    // Past the last key section it is its own neighbour: the linear laws stand still.
    const auto past = line->CreateSectionAt(70.0, nullptr, 4);
    ASSERT_NE(past, nullptr);
    EXPECT_NEAR(past->GetSectionArea(), 8.0, 1e-12);

    // A cubic law of its own carries on past the last section: y = −4 + 0.001·s² − 0.0001·s³.
    const double law[3] = {-0.0001, 0.001, 0.0};
    CSectPoint* bottom = line->GetKeySectionPtr(50.0)->GetSectPointPtr(2);
    bottom->SetParaType(2, 2);
    bottom->SetParaData(2, 2, law);
    const auto further = line->CreateSectionAt(60.0, nullptr, 4);
    EXPECT_NEAR(further->GetSectPointPtr(2)->GetY(), -4.0 + 0.1 - 0.1, 1e-12);
    const auto far = line->CreateSectionAt(70.0, nullptr, 4);
    EXPECT_NEAR(far->GetSectPointPtr(2)->GetY(), -4.0 + 0.4 - 0.8, 1e-12);
}

TEST(CreateSectionAt, StandardDimensionsAndOffsetsInterpolatedLinearly) {
    auto line = StraightLine();
    // Frame member rectangles 0.4 × 1.0 m at 0 and 0.8 × 1.0 m at 40, offset from the line by
    // 0.1 and 0.5 m.
    for (const auto& [st, b, dx] : {std::tuple{0.0, 0.4, 0.1}, std::tuple{40.0, 0.8, 0.5}}) {
        auto s = std::make_unique<CKeySection>(0, "Member", st);
        s->SetRefLineNo(1);
        s->SetType(3);
        s->SetSpecParam(0, b);
        s->SetSpecParam(1, 1.0);
        s->SetConnectType(2);
        s->SetDeltaX(dx);
        line->AddKeySection(std::move(s));
    }
    const auto mid = line->CreateSectionAt(10.0, nullptr, 4);
    ASSERT_NE(mid, nullptr);
    EXPECT_NEAR(mid->GetSpecParam(0), 0.5, 1e-15);
    EXPECT_NEAR(mid->GetSectionArea(), 0.5, 1e-15);
    EXPECT_NEAR(mid->GetDeltaX(), 0.2, 1e-15);
    // A section hung from a point and one connected by offsets don't mix: the offset stays.
    line->GetKeySectionPtr(40.0)->SetConnectType(3);
    EXPECT_NEAR(line->CreateSectionAt(10.0, nullptr, 4)->GetDeltaX(), 0.1, 1e-15);
}

TEST(CreateSectionAt, LineZeroCopiesAndUnequalOutlinesFail) {
    CRefLine zero(0, "Cross sections");
    zero.AddKeySection(Rect(0, 3.0, 1.0, 1.0));
    const auto copy = zero.CreateSectionAt(3.0, nullptr, 0);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->GetSectPointList().GetCount(), 5u);
    EXPECT_EQ(zero.CreateSectionAt(4.0, nullptr, 0), nullptr);

    // Six points against eight: nothing to pair them by.
    auto line = StraightLine();
    auto six = Rect(1, 10.0, 1.0, 1.0);
    six->AddSectPoint(std::make_unique<CSectPoint>(6.0, 0, -0.5, -1.0));
    auto eight = Rect(1, 50.0, 1.0, 1.0);
    for (int k = 6; k <= 8; ++k)
        eight->AddSectPoint(std::make_unique<CSectPoint>(k, 0, -0.5, -1.0));
    line->AddKeySection(std::move(six));
    line->AddKeySection(std::move(eight));
    RecordingSink sink;
    SectionEnv env;
    env.Sink = &sink;
    EXPECT_EQ(line->CreateSectionAt(30.0, nullptr, 4, &env), nullptr);
    ASSERT_EQ(sink.texts.size(), 1u);
    EXPECT_EQ(sink.texts[0], "Creating cross section failed!\r\n"
                             "Unable to interpolate between:\r\n"
                             "Refline: 1 station:       10.000, 6 section points.\r\n"
                             "Refline: 1 station:       50.000, 8 section points.\r\n");
    // On the key section itself nothing is interpolated, so nothing fails.
    EXPECT_NE(line->CreateSectionAt(10.0, nullptr, 4, &env), nullptr);
    EXPECT_EQ(sink.texts.size(), 1u);
}

TEST(TempSections, EveryFiveMetresBetweenKeySectionsAndAwayAgain) {
    auto line = StraightLine();
    line->AddKeySection(Rect(1, 0.0, 1.0, 2.0));
    line->AddKeySection(Rect(1, 23.0, 1.0, 2.0));
    line->AddKeySection(Rect(1, 46.0, 1.0, 2.0));
    line->AddKeySection(Rect(1, 49.0, 1.0, 2.0));
    // A cubic law on the first section's corner 3: x = 0.5 + 0.001·s³.
    const double law[3] = {0.001, 0.0, 0.0};
    line->GetKeySectionPtr(0.0)->GetSectPointPtr(3)->SetParaType(1, 2);
    line->GetKeySectionPtr(0.0)->GetSectPointPtr(3)->SetParaData(1, 2, law);

    // 23 m holds four intervals of 5.75 m, so three sections between each pair; the 3 m from 46
    // to 49 none.
    ASSERT_EQ(line->CreateTempSections(nullptr, nullptr), 1);
    const auto& list = line->GetKeySectionList();
    ASSERT_EQ(list.GetCount(), 10u);
    const double stations[10] = {0, 5.75, 11.5, 17.25, 23, 28.75, 34.5, 40.25, 46, 49};
    int temporary = 0;
    for (std::size_t i = 0; i < list.GetCount(); ++i) {
        EXPECT_NEAR(list.At(i)->GetStationNo(), stations[i], 1e-12) << i;
        temporary += list.At(i)->GetTemporaryFlag();
    }
    EXPECT_EQ(temporary, 6);
    EXPECT_NEAR(list.At(2)->GetSectPointPtr(3)->GetX(), 0.5 + 0.001 * std::pow(11.5, 3), 1e-12);
    // A section is still made from the key section before it, not from a temporary one.
    const auto at12 = line->CreateSectionAt(12.0, nullptr, 4);
    EXPECT_NEAR(at12->GetSectPointPtr(3)->GetX(), 0.5 + 0.001 * 1728.0, 1e-12);

    // Away from the first key section: up to the next key section only.
    line->DeleteTempSections(list.At(0));
    EXPECT_EQ(list.GetCount(), 7u);
    EXPECT_EQ(list.At(1)->GetStationNo(), 23.0);
    EXPECT_EQ(list.At(2)->GetTemporaryFlag(), 1);
    line->DeleteTempSections(nullptr);
    EXPECT_EQ(list.GetCount(), 4u);

    // From one section to the end of the line: 51 m in ten steps of 5.1.
    ASSERT_EQ(line->CreateTempSections(line->GetKeySectionPtr(49.0), nullptr), 1);
    EXPECT_EQ(list.GetCount(), 13u);
    EXPECT_NEAR(list.Last()->GetStationNo(), 94.9, 1e-12);
    // A section of another line is no start.
    CKeySection stranger(0, "", 10.0);
    EXPECT_EQ(line->CreateTempSections(&stranger, nullptr), 0);
    // Line 0 and a line without sections have nothing to fill.
    CRefLine zero(0, "Cross sections");
    EXPECT_EQ(zero.CreateTempSections(nullptr, nullptr), 1);
}

TEST(RoadProfile, RoadPointsPlacedInSpaceAtTheirStation) {
    // A line heading +Y from (5, 0) and rising 2 % from level 10: right of travel is +X.
    CRefLine line(1, "North");
    line.AddHorSegment(std::make_unique<CHorSegment>(1, nullptr, 1, 0.0, 5.0, 0.0, 100.0, 5.0,
                                                     100.0, 0.0, 0.0, 0.0));
    line.AddVerSegment(std::make_unique<CVerSegment>(1, nullptr, 1, 0.0, 10.0, 100.0, 12.0, 0.0))
        ->CalculateAndValidate();
    auto profile = std::make_unique<CRoadProfile>(0, 20.0);
    double right[CRoadProfile::kValues] = {};
    right[4] = 1;     // one lane
    right[5] = 3.5;   // 3.5 m wide
    right[6] = 0.025; // falling 2.5 % to the right
    profile->SetProfRight(right);
    profile->SetProfLeft(right);
    ASSERT_EQ(profile->Update(&line), 1);
    // The lane edge 1.1 at (3.5, −0.0875) in the road's axes. The section's Y axis is square to
    // the line, tilted back by the grade: up = (0, −0.02, 1)/√1.0004, across = (1, 0, 0).
    const CSectPoint* edge = profile->GetRoadPoint(1.1);
    ASSERT_NE(edge, nullptr);
    const double n = std::sqrt(1.0004);
    EXPECT_NEAR(edge->GetXg(), 5.0 + 3.5, 1e-12);
    EXPECT_NEAR(edge->GetYg(), 20.0 + 0.0875 * 0.02 / n, 1e-12);
    EXPECT_NEAR(edge->GetZg(), 10.4 - 0.0875 / n, 1e-12);
    EXPECT_NEAR(profile->GetTransMatrix(2, 1), 1.0 / n, 1e-12);
    EXPECT_NEAR(profile->GetOrigin(2), 10.4, 1e-12);
    // Off the line the points are made but not placed.
    auto off = std::make_unique<CRoadProfile>(0, 150.0);
    off->SetProfRight(right);
    EXPECT_EQ(off->Update(&line), 0);
    EXPECT_NE(off->GetRoadPoint(1.1), nullptr);
}
