#include "command/StructureCmd.h"
#include "model/Displace.h"
#include "model/Structure.h"
#include "platform/TextFile.h"
#include "store/MemResBase.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

using namespace kelo;

namespace {

// A project with its default contents and a straight beam along X: nodes 1 to 4 at x = 0, 5, 10,
// 15 m, elements 1 to 3 between them, each with design sections at x/l 0, 0.5 and 1, and a key
// section 1 on reference line 0.
struct Frame {
    explicit Frame(int language = 2, int level = 1) : s(2) {
        s.GetStructureCmd()->SetLanguage(language);
        s.GetStructureCmd()->SetCheckLevel(level);
        s.CreateDefaultContents(language, 0);
        for (int n = 1; n <= 4; ++n) s.AddNode(std::make_unique<CNode>(n, 5.0 * (n - 1), 0, 0));
        for (int e = 1; e <= 3; ++e) AddElement(e, e, e + 1);
        s.GetRefLinePtr(0)->AddKeySection(std::make_unique<CKeySection>(1, "Deck", 1.0));
    }
    CElement* AddElement(int no, int n1, int n2) {
        auto e = std::make_unique<CElement>(no, n1, n2, 0, 0);
        for (double x : {0.0, 0.5, 1.0})
            e->GetDesignSectionList().Add(std::make_unique<CDesignSection>(x, 0, 0));
        return s.AddElement(std::move(e));
    }
    int Run(const std::string& text) {
        std::string t = text + "\r\n";
        return s.CommandConvert(&t, &log, 0);
    }
    CStructureCmd& cmd() { return *s.GetStructureCmd(); }
    const CLoad* LoadAt(int lc, std::size_t i) const {
        return s.GetLoadcasePtr(lc)->GetLoadList().At(i);
    }
    CStructure s;
    std::string log;
};

std::size_t LoadCount(const CStructure& s, int lc) {
    const CLoadcase* c = s.GetLoadcasePtr(lc);
    return c ? c->GetLoadList().GetCount() : 0;
}

} // namespace

TEST(LoadCommand, ElementLoadsOverARangeWithTheInputKept) {
    Frame f;
    EXPECT_EQ(f.Run("LOAD 3 4 1 3 2 ZDIR -50 2.5 \"Point loads\""), 0);
    const CLoadcase* lc = f.s.GetLoadcasePtr(3);
    ASSERT_NE(lc, nullptr);
    EXPECT_EQ(lc->GetName(), "Point loads");
    EXPECT_EQ(lc->GetType(), 1);
    ASSERT_EQ(lc->GetLoadList().GetCount(), 2u); // elements 1 and 3
    EXPECT_EQ(f.LoadAt(3, 0)->GetElementNo(), 1);
    EXPECT_EQ(f.LoadAt(3, 1)->GetElementNo(), 3);
    EXPECT_EQ(f.LoadAt(3, 1)->GetType(), 4);
    EXPECT_EQ(f.LoadAt(3, 1)->GetDirection(), 3);
    EXPECT_DOUBLE_EQ(f.LoadAt(3, 1)->GetLoadValues(0), -50.0);
    EXPECT_DOUBLE_EQ(f.LoadAt(3, 1)->GetLoadValues(1), 2.5);
    ASSERT_EQ(lc->GetLoadInpList().GetCount(), 1u);
    const CLoadInp* inp = lc->GetLoadInpList().At(0);
    EXPECT_EQ(inp->GetFromElemNo(), 1);
    EXPECT_EQ(inp->GetToElemNo(), 3);
    EXPECT_EQ(inp->GetElemInc(), 2);

    // A single element by default range; a second command adds to the same case and record.
    EXPECT_EQ(f.Run("LOAD 3 2 2 0 0 0 10 1 0 1.2"), 0);
    EXPECT_EQ(LoadCount(f.s, 3), 3u);
    EXPECT_EQ(f.LoadAt(3, 2)->GetElementNo(), 2);
    EXPECT_EQ(f.s.GetLoadcasePtr(3)->GetLoadInpList().GetCount(), 2u);
    EXPECT_EQ(f.s.GetLoadcasePtr(3)->GetName(), "Point loads");
    // A command read from a file is kept for regeneration among the loads.
    std::string line = "LOAD 4 1 1 0 0 ZDIR 25\r\n";
    EXPECT_EQ(f.cmd().Command(line, &f.log, 0, 1), 0);
    EXPECT_EQ(f.s.GetASCIICommand(1101), "LOAD 4 1 1 0 0 ZDIR 25\r\n");
}

// Interval loads along X on the beam of 3 x 5 m: the interval 2 to 8 m with -10 kN/m at 2 and
// -16 at 8 (slope -1 per m). Element 1 (0..5) is loaded from 2 m on with -10 rising to -13,
// element 2 (5..10) over its first 3 m from -13 to -16, element 3 not at all. For a load in Z on
// a horizontal element the projected length is the length, so the factor is L / (L + 1e-5).
TEST(LoadCommand, IntervalAlongAGlobalAxisBecomesPartLoadsOfType8) {
    Frame f;
    f.AddElement(4, 3, 2); // element 2 reversed: node 1 at x = 10
    EXPECT_EQ(f.Run("LOAD 7 20 0 0 0 ZDIR 2 8 -10 -16"), 0);
    ASSERT_EQ(LoadCount(f.s, 7), 3u);
    const double k = (5.0 + 1e-5) / 5.0;
    struct Expect {
        int element;
        double q, start, increase, end;
    } expected[] = {
        {1, -10.0, 2.0, -3.0, 0.0}, {2, -13.0, 0.0, -3.0, 2.0}, {4, -16.0, 2.0, 3.0, 0.0}};
    for (std::size_t i = 0; i < 3; ++i) {
        const CLoad* load = f.LoadAt(7, i);
        EXPECT_EQ(load->GetElementNo(), expected[i].element);
        EXPECT_EQ(load->GetType(), 8);
        EXPECT_EQ(load->GetDirection(), 3);
        EXPECT_NEAR(load->GetLoadValues(0), expected[i].q * k, 1e-9) << i;
        EXPECT_NEAR(load->GetLoadValues(1), expected[i].start, 1e-9) << i;
        EXPECT_NEAR(load->GetLoadValues(2), expected[i].increase * k, 1e-9) << i;
        EXPECT_NEAR(load->GetLoadValues(3), expected[i].end, 1e-9) << i;
    }
    // The input is kept as given, type 20 and all.
    const CLoadInp* inp = f.s.GetLoadcasePtr(7)->GetLoadInpList().At(0);
    EXPECT_EQ(inp->GetType(), 20);
    EXPECT_DOUBLE_EQ(inp->GetLoadValues(1), 8.0);

    // An interval that misses every element leaves the case without loads.
    EXPECT_EQ(f.Run("LOAD 8 20 0 0 0 ZDIR 20 30 -1 -1"), 0);
    EXPECT_EQ(LoadCount(f.s, 8), 0u);
    // One that only touches element 3 at its end does not load it either.
    EXPECT_EQ(f.Run("LOAD 8 20 3 0 0 ZDIR 15 30 -1 -1"), 0);
    EXPECT_EQ(LoadCount(f.s, 8), 0u);
}

// Projected lengths: an element from (0,0,0) to (3,0,4), length 5. A load in Z is given per
// horizontal length (3 m), one in X per vertical length (4 m); per element length they are
// q * 3 / 5 and q * 4 / 5. A column along Z takes a load in X over its whole height, and a beam
// across the Z axis is loaded whole when its height lies in the interval.
TEST(LoadCommand, IntervalLoadsTakeTheProjectionNormalToTheirDirection) {
    Frame f;
    f.s.AddNode(std::make_unique<CNode>(10, 0, 0, 0));
    f.s.AddNode(std::make_unique<CNode>(11, 3, 0, 4));
    f.s.AddNode(std::make_unique<CNode>(12, 0, 0, 10));
    f.AddElement(10, 10, 11);
    f.AddElement(11, 10, 12);
    EXPECT_EQ(f.Run("LOAD 1 20 10 0 0 ZDIR 0 3 -10 -10"), 0);
    EXPECT_EQ(f.Run("LOAD 2 20 10 0 0 XDIR 0 3 -10 -10"), 0);
    EXPECT_EQ(f.Run("LOAD 3 22 11 0 0 XDIR 0 10 2 2"), 0);
    EXPECT_EQ(f.Run("LOAD 4 22 1 3 1 ZDIR -1 1 -7 -7"), 0);
    ASSERT_EQ(LoadCount(f.s, 1), 1u);
    EXPECT_NEAR(f.LoadAt(1, 0)->GetLoadValues(0), -10.0 * (3.0 + 1e-5) / 5.0, 1e-12);
    EXPECT_NEAR(f.LoadAt(1, 0)->GetLoadValues(3), 0.0, 1e-12);
    ASSERT_EQ(LoadCount(f.s, 2), 1u);
    EXPECT_NEAR(f.LoadAt(2, 0)->GetLoadValues(0), -10.0 * (4.0 + 1e-5) / 5.0, 1e-12);
    ASSERT_EQ(LoadCount(f.s, 3), 1u);
    EXPECT_NEAR(f.LoadAt(3, 0)->GetLoadValues(0), 2.0 * (10.0 + 1e-5) / 10.0, 1e-12);
    EXPECT_NEAR(f.LoadAt(3, 0)->GetLoadValues(1), 0.0, 1e-12);
    EXPECT_NEAR(f.LoadAt(3, 0)->GetLoadValues(3), 0.0, 1e-12);
    ASSERT_EQ(LoadCount(f.s, 4), 3u);
    EXPECT_NEAR(f.LoadAt(4, 2)->GetLoadValues(0), -7.0 * (5.0 + 1e-5) / 5.0, 1e-12);
    EXPECT_NEAR(f.LoadAt(4, 2)->GetLoadValues(2), 0.0, 1e-12);
}

// Along reference line 1, whose nodes 21 to 23 stand at stations 100, 110 and 130 (x = 0, 10,
// 30). Type 30 takes stations 105 to 125, type 40 the stations of axes 1 (105) and 2 (125):
// element 21 (100..110) from 5 m on, element 22 (110..130) over its first 15 m.
TEST(LoadCommand, IntervalAlongAReferenceLineByStationsAndByAxes) {
    Frame f;
    auto line = std::make_unique<CRefLine>(1, "Main");
    line->AddAxis(std::make_unique<CAxis>(1, "A1", 105.0));
    line->AddAxis(std::make_unique<CAxis>(2, "A2", 125.0));
    f.s.AddRefLine(std::move(line));
    const double stations[3] = {100.0, 110.0, 130.0};
    for (int i = 0; i < 3; ++i) {
        auto node = std::make_unique<CNode>(21 + i, stations[i] - 100.0, 0, 0);
        node->SetRefLineNo(1);
        node->SetStationNo(stations[i]);
        f.s.AddNode(std::move(node));
    }
    f.AddElement(21, 21, 22);
    f.AddElement(22, 22, 23);
    for (const char* command :
         {"LOAD 5 30 1 0 0 ZDIR 105 125 -4 -8", "LOAD 6 40 1 0 0 ZDIR 1 2 -4 -8"}) {
        f.log.clear();
        EXPECT_EQ(f.Run(command), 0) << f.log;
    }
    for (int lc : {5, 6}) {
        ASSERT_EQ(LoadCount(f.s, lc), 2u) << lc;
        const CLoad* first = f.LoadAt(lc, 0);
        const CLoad* second = f.LoadAt(lc, 1);
        EXPECT_EQ(first->GetElementNo(), 21);
        EXPECT_NEAR(first->GetLoadValues(0), -4.0 * (10.0 + 1e-5) / 10.0, 1e-12);
        EXPECT_NEAR(first->GetLoadValues(1), 5.0, 1e-9);
        EXPECT_NEAR(first->GetLoadValues(2), -1.0 * (10.0 + 1e-5) / 10.0, 1e-12);
        EXPECT_NEAR(first->GetLoadValues(3), 0.0, 1e-9);
        EXPECT_EQ(second->GetElementNo(), 22);
        EXPECT_NEAR(second->GetLoadValues(0), -5.0 * (20.0 + 1e-5) / 20.0, 1e-12);
        EXPECT_NEAR(second->GetLoadValues(1), 0.0, 1e-9);
        EXPECT_NEAR(second->GetLoadValues(2), -3.0 * (20.0 + 1e-5) / 20.0, 1e-12);
        EXPECT_NEAR(second->GetLoadValues(3), 5.0, 1e-9);
    }
}

TEST(Combinations, OrdinaryFactorsSumAndSortedOnesAppend) {
    Frame f;
    f.Run("LOAD 1 1 1 3 1 ZDIR 25\r\nLOAD 2 4 2 0 0 ZDIR -100 2.5");
    EXPECT_EQ(f.Run("ORDCOMB 1,1,1,2,1.0,2,0.5 \"ULS 1\""), 0);
    const CLoadcomb* comb = f.s.GetLoadcombPtr(1);
    ASSERT_NE(comb, nullptr);
    EXPECT_EQ(comb->GetName(), "ULS 1");
    ASSERT_EQ(comb->GetLoadfacts().GetList().GetCount(), 1u);
    EXPECT_EQ(comb->GetLoadfacts().GetList().At(0)->GetNo(), 2);
    EXPECT_DOUBLE_EQ(comb->GetLoadfacts().GetList().At(0)->GetFact(), 1.5);
    // Another line for the same combination adds its factors to those there.
    EXPECT_EQ(f.Run("ORDCOMB 1 1 1 1 1.35 2 0.25"), 0);
    ASSERT_EQ(comb->GetLoadfacts().GetList().GetCount(), 2u);
    EXPECT_DOUBLE_EQ(comb->GetLoadfacts().GetList().At(0)->GetFact(), 1.75);
    EXPECT_DOUBLE_EQ(comb->GetLoadfacts().GetList().At(1)->GetFact(), 1.35);
    // A combination of combinations takes code 2.
    EXPECT_EQ(f.Run("ORDCOMB 2 2 3 1 1.0"), 0);
    EXPECT_EQ(f.s.GetLoadcombPtr(2)->GetLoadfacts().GetList().At(0)->GetCode(), 2);
    EXPECT_EQ(f.s.GetLoadcombPtr(2)->GetLimitState(), 3);

    EXPECT_EQ(f.Run("SORTCOMB 5 1 1 WORST 1 1.0 1 0.9 2 1.5 \"Envelope\""), 0);
    const CSortComb* sorted = f.s.GetSortCombPtr(5);
    ASSERT_NE(sorted, nullptr);
    EXPECT_EQ(sorted->GetCombMethod(), 1);
    ASSERT_EQ(sorted->GetLoadfacts().GetList().GetCount(), 3u);
    EXPECT_DOUBLE_EQ(sorted->GetLoadfacts().GetList().At(0)->GetFact(), 1.0);
    EXPECT_DOUBLE_EQ(sorted->GetLoadfacts().GetList().At(1)->GetFact(), 0.9);

    EXPECT_EQ(f.Run("SORTLINE 7 5 6 1 ULS 1 1 2 1 \"Girder\""), 0);
    const CSortCombLine* line = f.s.GetSortCombLinePtr(7);
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->GetSortCombInterval(0), 5);
    EXPECT_EQ(line->GetSortCombInterval(1), 6);
    EXPECT_EQ(line->GetCalcCode(), 1);
    EXPECT_EQ(line->GetElementNoArray(), (std::vector<int>{1, 2}));
    // Without an element range every element takes part.
    EXPECT_EQ(f.Run("SORTLINE 8 5 5"), 0);
    EXPECT_EQ(f.s.GetSortCombLinePtr(8)->GetElementNoArray(), (std::vector<int>{1, 2, 3}));

    EXPECT_EQ(f.Run("BUCKLDES OC 1 2 1 1 2 3 4"), 0);
    EXPECT_EQ(f.s.GetLoadcombPtr(1)->GetBucklDes(), 321);
    EXPECT_EQ(f.s.GetLoadcombPtr(2)->GetBucklModel(), 4);
    EXPECT_EQ(f.Run("BUCKLDES SCL 8 8 1 0 1 0"), 0);
    EXPECT_EQ(f.s.GetSortCombLinePtr(8)->GetBucklDes(), 10);
    EXPECT_EQ(f.s.GetSortCombLinePtr(8)->GetBucklModel(), -1);
}

TEST(CreepCommands, CombinationAndCreepLoadsOnEachElement) {
    Frame f;
    f.Run("LOAD 1 1 1 3 1 ZDIR 25");
    EXPECT_EQ(f.Run("CREEPCMB 2 1 1.0 1 0.5 \"Permanent\""), 0);
    const CCreepComb* comb = f.s.GetCreepCombPtr(2);
    ASSERT_NE(comb, nullptr);
    ASSERT_EQ(comb->GetLoadfacts().GetList().GetCount(), 1u);
    EXPECT_EQ(comb->GetLoadfacts().GetList().At(0)->GetCode(), 1);
    EXPECT_DOUBLE_EQ(comb->GetLoadfacts().GetList().At(0)->GetFact(), 1.5);

    EXPECT_EQ(f.Run("CREEPLC 9 1 3 1 2 28 10000 \"Creep\""), 0);
    const CLoadcase* lc = f.s.GetLoadcasePtr(9);
    ASSERT_NE(lc, nullptr);
    EXPECT_EQ(lc->GetType(), 4);
    ASSERT_EQ(lc->GetLoadList().GetCount(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(lc->GetLoadList().At(i)->GetType(), 50);
        EXPECT_EQ(lc->GetLoadList().At(i)->GetElementNo(), static_cast<int>(i) + 1);
        EXPECT_DOUBLE_EQ(lc->GetLoadList().At(i)->GetLoadValues(0), 2.0);
        EXPECT_DOUBLE_EQ(lc->GetLoadList().At(i)->GetLoadValues(2), 10000.0);
    }
    EXPECT_EQ(lc->GetLoadInpList().GetCount(), 1u);
}

TEST(AnalysisCommands, GroupsAnalysesAndSetups) {
    Frame f;
    f.Run("LOAD 1 1 1 3 1 ZDIR 25\r\nLOAD 2 4 2 0 0 ZDIR -100 2.5\r\nDYNWIND 5 1 4 30 90");
    // Only existing cases of the range go into a static group, each once.
    EXPECT_EQ(f.Run("CALCGRP 1 STATIC 1 4 1 \"Dead\""), 0);
    EXPECT_EQ(f.Run("CALCGRP 1 STATIC 2"), 0);
    EXPECT_EQ(f.s.GetCalcGroupPtr(1)->GetLoadNoArray(), (std::vector<int>{1, 2}));
    EXPECT_EQ(f.s.GetCalcGroupPtr(1)->GetName(), "Dead");
    // A wind group keeps dynamic cases only; an eigenvalue group keeps the mode count.
    EXPECT_EQ(f.Run("CALCGRP 2 DYNWIND 1 5 1"), 0);
    EXPECT_EQ(f.s.GetCalcGroupPtr(2)->GetLoadNoArray(), (std::vector<int>{5}));
    EXPECT_EQ(f.Run("CALCGRP 3 EIGEN 12"), 0);
    EXPECT_EQ(f.s.GetCalcGroupPtr(3)->GetNoOfModes(), 12);

    EXPECT_EQ(f.Run("ANSETUP 2 1 0 1 \"Geometric\""), 0);
    const CAnalysisSetup* setup = f.s.GetAnalysisSetupPtr(2);
    ASSERT_NE(setup, nullptr);
    EXPECT_EQ(setup->GetIncludeAxial(), 1);
    EXPECT_EQ(setup->GetAccumulate(), 1);
    EXPECT_EQ(f.Run("ANALYSIS 4 1 3 2 \"Modes\""), 0);
    const CAnalysis* a = f.s.GetAnalysisPtr(4);
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->GetName(), "Modes");
    EXPECT_EQ(a->GetModel(), 1);
    EXPECT_EQ(a->GetFirstCalcGroup(), 3);
    EXPECT_EQ(a->GetAnSetupNo(), 2);
    EXPECT_EQ(a->GetAnType(), 4); // from the group
}

// Element lengths are 5 m; a spacing of 2 m cuts each into 2 stretches.
TEST(TrafficCommands, LinesAccumulateAndLoadsMakeTheirTwelveCases) {
    Frame f;
    EXPECT_EQ(f.Run("TRAFLINE 1 1 2 1 0 2.0 \"Lane\""), 0);
    EXPECT_EQ(f.Run("TRAFLINE 1 3 3 1 3"), 0);
    const CTrafLine* line = f.s.GetTrafLinePtr(1);
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->GetName(), "Lane");
    ASSERT_EQ(line->GetTrafLineElemList().GetCount(), 3u);
    const double accum[3] = {0.0, 5.0, 10.0};
    const int posNo[3] = {2, 2, 3}, accPos[3] = {0, 2, 4};
    for (std::size_t i = 0; i < 3; ++i) {
        const CTrafLineElem* e = line->GetTrafLineElemList().At(i);
        EXPECT_EQ(e->GetTrafLineElemNo(), static_cast<int>(i) + 1);
        EXPECT_DOUBLE_EQ(e->GetTrafLineElemLength(), 5.0);
        EXPECT_DOUBLE_EQ(e->GetTrafLineElemAccum(), accum[i]);
        EXPECT_EQ(e->GetTrafLineElemPosNo(), posNo[i]);
        EXPECT_EQ(e->GetTrafLineElemAccPosNo(), accPos[i]);
    }
    ASSERT_EQ(line->GetTrafLineInpList().GetCount(), 2u);
    EXPECT_DOUBLE_EQ(line->GetTrafLineInpList().At(0)->GetMinPosDist(), 2.0);
    EXPECT_EQ(line->GetTrafLineInpList().At(1)->GetPosNo(), 3);

    EXPECT_EQ(f.Run("TRAFLOAD 100 1 1 1 ZDIR 9 300 200 0 1.2 0 0.5 0.5 \"LM1\""), 0);
    EXPECT_EQ(f.Run("TRAFLOAD 100 1 2 2 ZDIR 0.8 0 80 250"), 0);
    const CTrafLoad* load = f.s.GetTrafLoadPtr(100);
    ASSERT_NE(load, nullptr);
    EXPECT_EQ(load->GetTrafLineNo(), 1);
    ASSERT_EQ(load->GetTrafTrackList().GetCount(), 2u);
    const CTrafTrack* lane = load->GetTrafTrackList().Get(1);
    EXPECT_EQ(lane->GetTrafType(), 1);
    EXPECT_DOUBLE_EQ(lane->GetQ(), 9.0);
    EXPECT_DOUBLE_EQ(lane->GetTrafTrackValue(1), 300.0);
    EXPECT_DOUBLE_EQ(lane->GetTrafTrackValue(7), 0.5);
    const CTrafTrack* train = load->GetTrafTrackList().Get(2);
    EXPECT_DOUBLE_EQ(train->GetTrafTrackAdist(), 0.8);
    EXPECT_DOUBLE_EQ(train->GetQ(), 80.0);

    const char* rows[12] = {"PL-Max", "PM-Max", "PN-Max", "ML-Max", "MM-Max", "MN-Max",
                            "PL-Min", "PM-Min", "PN-Min", "ML-Min", "MM-Min", "MN-Min"};
    for (int r = 0; r < 12; ++r) {
        const CLoadcase* lc = f.s.GetLoadcasePtr(100 + r);
        ASSERT_NE(lc, nullptr) << r;
        EXPECT_EQ(lc->GetType(), 2);
        EXPECT_NE(lc->GetTraffic(), 0);
        EXPECT_EQ(lc->GetName(), std::string("LM1 ") + rows[r]);
    }
    EXPECT_EQ(f.s.GetLoadcasePtr(112), nullptr);
    // The unit cases belong to traffic: a static run without group leaves them out, a traffic
    // group takes the load by its number.
    EXPECT_EQ(f.Run("CALCGRP 4 TRAFFIC 100"), 0);
    EXPECT_EQ(f.s.GetCalcGroupPtr(4)->GetLoadNoArray(), (std::vector<int>{100}));

    // TRAFDISP ties the section at x/l 1 of element 2 to node 3 (its end 2).
    EXPECT_EQ(f.Run("TRAFDISP 2 2 1.0"), 0);
    EXPECT_EQ(f.s.GetElementPtr(2)->GetDesignSectionList().At(2)->GetNodeDisplace(), 3);
    EXPECT_DOUBLE_EQ(f.s.GetNodePtr(3)->GetSortDisplace(), 2.2);
}

TEST(DynamicCommands, EarthquakeWindAndSpectra) {
    Frame f;
    EXPECT_EQ(f.Run("EQSPEC 2 1 1 5 2 9.81 \"Site\""), 0);
    EXPECT_EQ(f.Run("EQSPECPT 2 1 1 0.5 1.2\r\nEQSPECPT 2 2 20 33 0.4"), 0);
    const CEarthquakeSpectra* eq = f.s.GetEarthquakeSpectraPtr(2);
    ASSERT_NE(eq, nullptr);
    EXPECT_EQ(eq->GetName(), "Site");
    EXPECT_EQ(eq->GetDampingRule(), 2);
    EXPECT_DOUBLE_EQ(eq->GetNormalization(), 9.81);
    double freq = 0, value = 0;
    EXPECT_EQ(eq->GetPoint(1, 1, &freq, &value), 1);
    EXPECT_DOUBLE_EQ(freq, 0.5);
    EXPECT_DOUBLE_EQ(value, 1.2);
    EXPECT_EQ(eq->GetPoint(2, 20, &freq, &value), 1);
    EXPECT_DOUBLE_EQ(freq, 33.0);

    EXPECT_EQ(f.Run("EARTHQUA 20 1 6 2.5 1 1 0.7 2 5 \"Quake\""), 0);
    const CLoadcase* lc = f.s.GetLoadcasePtr(20);
    ASSERT_NE(lc, nullptr);
    EXPECT_EQ(lc->GetType(), 3);
    EXPECT_EQ(lc->GetDynamic(), 1);
    const CDynLoad* dyn = lc->GetDynLoadPtr();
    ASSERT_NE(dyn, nullptr);
    EXPECT_EQ(dyn->GetLastMode(), 6);
    EXPECT_DOUBLE_EQ(dyn->GetGroundAcc(), 2.5);
    EXPECT_DOUBLE_EQ(dyn->GetScaleZ(), 0.7);
    EXPECT_EQ(dyn->GetEarthquakeSpectraNo(), 2);

    EXPECT_EQ(f.Run("DYNWIND 21 1 3 31 90 2 0.008 0 4.5"), 0);
    dyn = f.s.GetLoadcasePtr(21)->GetDynLoadPtr();
    ASSERT_NE(dyn, nullptr);
    EXPECT_DOUBLE_EQ(dyn->GetWindSpeed(), 31.0);
    EXPECT_DOUBLE_EQ(dyn->GetWindDirection(), 90.0);
    EXPECT_DOUBLE_EQ(dyn->GetRoughness(), 2.0);
    EXPECT_DOUBLE_EQ(dyn->GetDamping(), 0.008);
    EXPECT_DOUBLE_EQ(dyn->GetGroundLevel(), 4.5);

    EXPECT_EQ(f.Run("WINDSPEC 3 2 0 25 \"Fjord\"\r\nWINDLEN 3 150 50 20\r\nWINDTURB 3 0.14 "
                    "0.1 0.07\r\nWINDCOH 3 10 8\r\nWINDVRTX 3 1 2 3"),
              0);
    const CWindSpectra* wind = f.s.GetWindSpectraPtr(3);
    ASSERT_NE(wind, nullptr);
    EXPECT_EQ(wind->GetType(), 2);
    EXPECT_EQ(wind->GetAeroInclude(), 0);
    EXPECT_DOUBLE_EQ(wind->GetRefHeight(), 25.0);
    EXPECT_DOUBLE_EQ(wind->GetLengthScales(2), 20.0);
    EXPECT_DOUBLE_EQ(wind->GetTurbIntensity(0), 0.14);
    EXPECT_DOUBLE_EQ(wind->GetHorCoherence(), 10.0);
    EXPECT_DOUBLE_EQ(wind->GetVortexValues(2), 3.0);
    // A spectrum named first by one of its parts starts from the default one.
    EXPECT_EQ(f.Run("WINDLEN 4 100"), 0);
    EXPECT_EQ(f.s.GetWindSpectraPtr(4)->GetName(), "NS3491-4 (Default)");
}

TEST(ResultCommands, GivenForcesAndDisplacementsGoToTheStoreAsExternal) {
    Frame f;
    EXPECT_EQ(f.Run("FORCE 1 30 2 0.5 10 -200 3 4 -55 6 \"Given\""), 0);
    EXPECT_EQ(f.s.GetLoadcasePtr(30)->GetExternal(), 1);
    int a = 0, b = 0;
    double forces[6] = {};
    ASSERT_EQ(f.s.GetResBasePtr()->SectionForceInBase(0, 0, 0, 2, 0.5, 11, 30, a, b, forces), 1);
    EXPECT_DOUBLE_EQ(forces[1], -200.0);
    EXPECT_DOUBLE_EQ(forces[4], -55.0);
    // A second set for the same section replaces the first.
    EXPECT_EQ(f.Run("FORCE 1 30 2 0.5 0 -300"), 0);
    f.s.GetResBasePtr()->SectionForceInBase(0, 0, 0, 2, 0.5, 11, 30, a, b, forces);
    EXPECT_DOUBLE_EQ(forces[1], -300.0);

    EXPECT_EQ(f.Run("FORCE 2 31 3 1.0 0 -10"), 0);
    EXPECT_EQ(f.s.GetLoadcombPtr(31)->GetExternal(), 1);
    EXPECT_EQ(f.s.GetResBasePtr()->SectionForceInBase(0, 0, 0, 3, 1.0, 12, 31, a, b, forces), 1);

    EXPECT_EQ(f.Run("DISPL 1 30 4 0.001 0 -0.02 0 0.003"), 0);
    CDisplace d;
    ASSERT_EQ(f.s.GetResBasePtr()->NodeDisplaceInBase(0, 0, 0, 4, 11, 30, &d), 1);
    EXPECT_DOUBLE_EQ(d.GetUz(), -0.02);
    EXPECT_DOUBLE_EQ(d.GetRoty(), 0.003);

    EXPECT_EQ(f.Run("SECTFORCE 5 SLS 1 -1 -1000 0 0 0 250"), 0);
    ASSERT_EQ(f.s.GetResBasePtr()->SectionForceInBase(0, 0, 0, -1, 0.0, 16, 5, a, b, forces), 1);
    EXPECT_EQ(a, 3);
    EXPECT_DOUBLE_EQ(forces[0], -1000.0);
    EXPECT_DOUBLE_EQ(forces[4], 250.0);
}

TEST(ElementCommands, BucklingDataOnARange) {
    Frame f;
    EXPECT_EQ(f.Run("BUCKLING 2 3 1 1 2 3 4 5 0 \"Columns\""), 0);
    EXPECT_DOUBLE_EQ(f.s.GetElementPtr(1)->GetBucklingData(0), 0.0);
    for (int e : {2, 3})
        for (int i = 0; i < 5; ++i)
            EXPECT_DOUBLE_EQ(f.s.GetElementPtr(e)->GetBucklingData(i), i + 1.0);
    EXPECT_EQ(f.s.GetBucklingString(), "Columns");
}

// SOLVE makes its own analyses of model 1: -1 runs all eight types in turn, 4 runs creep and
// eigenvalues (the creep branch answers to the eigenvalue type), and 3 runs nothing.
TEST(SolveCommand, RunsTheTypesItsTestSelects) {
    auto types = [](const std::string& line) {
        Frame f;
        f.Run(line);
        std::vector<std::string> found;
        for (auto at = f.log.find("Type: "); at != std::string::npos;
             at = f.log.find("Type: ", at + 1))
            found.push_back(f.log.substr(at + 6, f.log.find('\r', at) - at - 6));
        return found;
    };
    EXPECT_TRUE(types("SOLVE 3").empty());
    EXPECT_EQ(types("SOLVE 1"), (std::vector<std::string>{"Ordinary static."}));
    EXPECT_EQ(types("SOLVE 4 6"), (std::vector<std::string>{"Creep.", "Eigenvalue."}));
    EXPECT_EQ(types("SOLVE -1 2"),
              (std::vector<std::string>{"Ordinary static.", "Traffic.", "Creep.", "Eigenvalue.",
                                        "Dynamic wind.", "EarthQuake.", "Euler buckling.",
                                        "Lateral buckling."}));
    Frame f;
    f.Run("SOLVE 4 6");
    EXPECT_EQ(f.s.GetModelPtr(1)->GetNoOfModes(), 6);
    EXPECT_NE(f.log.find("Anaysis no.   0, Default All\r\n"), std::string::npos);
}

TEST(OutputCommand, FileIsTheDocumentNameWithTheExtensionMadeOrAppended) {
    Frame f;
    const std::string doc = "output_project.inp";
    const std::string listing = "output_project.lst";
    std::remove(listing.c_str());
    f.s.SetDocumentPath(doc);
    const std::string loads = "Loads\r\n=====\r\n\r\n";
    EXPECT_EQ(f.Run("OUTPUT 1 0 301 \"lst\""), 0);
    std::string text;
    ReadWholeFile(listing, text);
    EXPECT_EQ(text, loads);
    {
        CTextWriter w;
        w.Open(listing, true);
        w.Write("kept\r\n");
    }
    f.Run("OUTPUT 1 APPEND 301 \"lst\"");
    ReadWholeFile(listing, text);
    EXPECT_EQ(text, loads + "kept\r\n" + loads);
    // Design result listings are not part of this build: the file is made and left empty.
    EXPECT_EQ(f.Run("OUTPUT 3 0 301 \"lst\""), -1);
    EXPECT_NE(f.log.find("Listings of OUTPUT 3 are not available yet"), std::string::npos);
    ReadWholeFile(listing, text);
    EXPECT_EQ(text, "");
    std::remove(listing.c_str());

    Frame none;
    EXPECT_EQ(none.Run("OUTPUT 1 0 301 \"lst\""), -2);
    EXPECT_NE(none.log.find("Unable to open file with name: \".lst\"!"), std::string::npos);
}

// Every check of the family with its message, in English and in Norwegian. Each case runs in a
// fresh frame, after its setup lines, at the check level given.
TEST(LoadCommandChecks, MessagesInBothLanguages) {
    struct Case {
        const char* setup;
        const char* line;
        int level;
        bool error;
        const char* english;
        const char* norwegian;
    };
    const Case cases[] = {
        {"", "LOAD 0 1 1 0 0 ZDIR 25", 1, true, "Load case number must be greater than 0!",
         "Lasttilfellenummer må være større enn 0!"},
        {"", "LOAD 1 13 1 0 0 ZDIR", 1, true, "Type =  13 is not a valid load type!",
         "Type =  13 er ikke en gyldig lasttype!"},
        {"", "LOAD 1 4 1 0 0 7 10", 1, true, "Dir =  7 is not a valid direction!",
         "Retn =  7 er ikke en gyldig retning!"},
        {"", "LOAD 1 30 9 0 0 ZDIR 0 10 1 1", 1, true,
         "Reference line number 9 is not valid for a load along a reference line!",
         "Referanselinje nummer 9 er ikke gyldig for last langs referanselinje!"},
        {"", "LOAD 1 20 0 0 0 ZDIR 8 2 1 1", 1, true,
         "End of load interval must be greater than its start!",
         "Slutten av lastintervallet må være større enn starten!"},
        {"", "LOAD 1 4 7 0 0 ZDIR 1 1", 2, false, "Element number 7 is not defined!",
         "Element nummer 7 er ikke definert!"},
        {"", "FORCE 3 1 1 0.5", 1, true,
         "Code =  3 is not a valid result code (must be 1=load case or 2=load combination)!",
         "Kode =  3 er ikke en gyldig resultatkode (må være 1=lasttilfelle eller "
         "2=lastkombinasjon)!"},
        {"", "FORCE 1 1 1 1.5", 1, true,
         "x/l =  1.500 is not a valid value. x/l must be between 0 and 1!",
         "x/l =  1.500 er ikke en gyldig verdi. x/l må være mellom 0 og 1!"},
        {"LOAD 5 1 1 0 0 ZDIR 25", "FORCE 1 5 1 0.5", 1, true,
         "Load case number 5 exists and is not an external load case!",
         "Lasttilfelle nummer 5 finnes og er ikke et eksternt lasttilfelle!"},
        {"ORDCOMB 2 1 1 1 1.0", "FORCE 2 2 1 0.5", 1, true,
         "Load combination number 2 exists and is not an external load combination!",
         "Lastkombinasjon nummer 2 finnes og er ikke en ekstern lastkombinasjon!"},
        {"", "FORCE 1 9 1 0.3", 1, true,
         "Element number 1 has no design section at the given position!",
         "Element nummer 1 har ikke noe dimensjoneringssnitt i angitt posisjon!"},
        {"FORCE 1 9 1 0.5", "FORCE 1 9 1 0.5", 2, false,
         "Element number 1 already has section forces at this position, which are replaced!",
         "Element nummer 1 har allerede snittkrefter i denne posisjonen, som blir erstattet!"},
        {"", "DISPL 1 9 99", 1, true, "Node number 99 is not defined!",
         "Knutepunkt nummer 99 er ikke definert!"},
        {"", "SECTFORCE 0", 1, true, "Section force ID must be greater than 0!",
         "Snittkraft-ID må være større enn 0!"},
        {"", "SECTFORCE 1 5", 1, true,
         "Limit state 5 is not a valid selection (must be 1=ULS, 2=PLS, 3=SLS or 4=FLS)!",
         "Grensetilstand 5 er ikke et gyldig valg (må være 1=ULS, 2=PLS, 3=SLS eller 4=FLS)!"},
        {"", "SECTFORCE 1 1 7", 1, true, "Section number 7.000 on reference line 0 is not defined!",
         "Snitt nummer 7.000 på referanselinje 0 er ikke definert!"},
        {"", "ORDCOMB 1 3 1 1 1.0", 1, true, "Type =  3 is not a valid load combination type!",
         "Type =  3 er ikke en gyldig type lastkombinasjon!"},
        {"", "ORDCOMB 1 2 1 1 1.0", 1, true, "Load combination number 1 is combined with itself!",
         "Lastkombinasjon nummer 1 er kombinert med seg selv!"},
        {"ORDCOMB 1 2 1 2 1.0", "ORDCOMB 2 2 1 1 1.0", 1, true,
         "Load combination number 1 gives a circular reference between load combinations!",
         "Lastkombinasjon nummer 1 gir en sirkulær referanse mellom lastkombinasjoner!"},
        {"", "ORDCOMB 1 1 1 9 1.0", 2, false, "Load case number 9 is not defined!",
         "Lasttilfelle nummer 9 er ikke definert!"},
        {"", "ORDCOMB 1 2 1 9 1.0", 2, false, "Load combination number 9 is not defined!",
         "Lastkombinasjon nummer 9 er ikke definert!"},
        {"ORDCOMB 1", "ORDCOMB 1", 2, false,
         "Load combination number 1 exists. The factors are added to its load factors!",
         "Lastkombinasjon nummer 1 finnes. Faktorene legges til de eksisterende lastfaktorene!"},
        {"", "SORTCOMB 0", 1, true, "Sorted combination number must be greater than 0!",
         "Nummer for sortert kombinasjon må være større enn 0!"},
        {"", "SORTCOMB 1 5", 1, true, "Type =  5 is not a valid sorted combination type!",
         "Type =  5 er ikke en gyldig type sortert kombinasjon!"},
        {"", "SORTCOMB 1 1 1 5", 1, true, "Method =  5 is not a valid combination method!",
         "Metode =  5 er ikke en gyldig kombinasjonsmetode!"},
        {"", "SORTCOMB 1 4 1 0 1 1.0", 1, true,
         "Sorted combination number 1 is combined with itself!",
         "Sortert kombinasjon nummer 1 er kombinert med seg selv!"},
        {"SORTCOMB 2\r\nSORTCOMB 1 4 1 0 2 1.0", "SORTCOMB 2 4 1 0 1 1.0", 1, true,
         "Sorted combination number 1 gives a circular reference between sorted combinations!",
         "Sortert kombinasjon nummer 1 gir en sirkulær referanse mellom sorterte kombinasjoner!"},
        {"", "SORTCOMB 1 4 1 0 9 1.0", 1, true, "Sorted combination number 9 is not defined!",
         "Sortert kombinasjon nummer 9 er ikke definert!"},
        {"", "SORTCOMB 1 3 1 0 9 1.0", 2, false, "Traffic load number 9 is not defined!",
         "Trafikklast nummer 9 er ikke definert!"},
        {"SORTCOMB 1", "SORTCOMB 1", 2, false,
         "Sorted combination number 1 exists. New load factors are appended to it!",
         "Sortert kombinasjon nummer 1 finnes. Nye lastfaktorer legges til!"},
        {"", "SORTLINE 0", 1, true, "Sorted combination line number must be greater than 0!",
         "Nummer for sortert kombinasjonslinje må være større enn 0!"},
        {"", "SORTLINE 1000", 1, true, "Maximum allowed sorted combination line number is 999!",
         "Største tillatte nummer for sortert kombinasjonslinje er 999!"},
        {"", "SORTLINE 1 1 1 1 1 2", 1, true,
         "Code =  2 is not a valid calculation code for sorted combination lines!",
         "Kode =  2 er ikke en gyldig beregningskode for sorterte kombinasjonslinjer!"},
        {"", "SORTLINE 1 4 4", 2, false, "Sorted combination number 4 is not defined!",
         "Sortert kombinasjon nummer 4 er ikke definert!"},
        {"SORTCOMB 4\r\nSORTLINE 1 4 4", "SORTLINE 1 4 4", 2, false,
         "Replacing existing sorted combination line number! 1",
         "Erstatter eksisterende nummer for sortert kombinasjonslinje! 1"},
        {"", "CREEPCMB 0", 1, true, "Creep combination number must be greater than 0!",
         "Krypkombinasjonsnummer må være større enn 0!"},
        {"CREEPCMB 1", "CREEPLC 0 1 1 1 1 0 10", 1, true, "Number must be greater than 0!",
         "Nummer må være større enn 0!"},
        {"", "CREEPLC 4 1 1 1 0 0 10", 1, true, "Creep combination number 0 is not defined!",
         "Krypkombinasjon nummer 0 er ikke definert!"},
        {"CREEPCMB 1", "CREEPLC 4 1 1 1 1 28 28", 1, true, "Time t2 must be greater than time t1!",
         "Tidspunkt t2 må være større enn tidspunkt t1!"},
        {"", "CALCGRP 0", 1, true, "Calculation group number must be greater than 0!",
         "Beregningsgruppenummer må være større enn 0!"},
        {"", "CALCGRP 1 9", 1, true,
         "Type =  9 is not a valid calculation group type (must be 1 to 8)!",
         "Type =  9 er ikke en gyldig type beregningsgruppe (må være 1 til 8)!"},
        {"", "CALCGRP 1 STATIC 9", 2, false, "Load case number 9 is not defined!",
         "Lasttilfelle nummer 9 er ikke definert!"},
        {"", "CALCGRP 1 TRAFFIC 9", 2, false, "Traffic load number 9 is not defined!",
         "Trafikklast nummer 9 er ikke definert!"},
        {"", "CALCGRP 1 EQUAKE 9", 2, false, "9 Load case number is not defined!",
         "9 Lasttilfellenummer er ikke definert!"},
        {"", "CALCCOMB 4", 1, true,
         "Code =  4 is not a valid combination code (must be -1, 1, 2 or 3)!",
         "Kode =  4 er ikke en gyldig kombinasjonskode (må være -1, 1, 2 eller 3)!"},
        {"", "ANALYSIS 0", 1, true, "Analysis number must be greater than 0!",
         "Analysenummer må være større enn 0!"},
        {"", "ANALYSIS 1 0", 1, true, "Model number must be greater than 0!",
         "Modellnummer må være større enn 0!"},
        {"", "ANALYSIS 1 5", 1, true, "Model number 5 is not defined!",
         "Modell nummer 5 er ikke definert!"},
        {"", "ANALYSIS 1 1 0", 1, true, "Calculation group number must be greater than 0!",
         "Beregningsgruppenummer må være større enn 0!"},
        {"", "ANALYSIS 1 1 5", 1, true, "Calculation group number 5 is not defined!",
         "Beregningsgruppe nummer 5 er ikke definert!"},
        {"CALCGRP 1", "ANALYSIS 1 1 1 4", 2, false,
         "Analysis setup number 4 is not defined! Default values are used!",
         "Analyseoppsett nummer 4 er ikke definert! Standardverdier blir brukt!"},
        {"", "ANSOLVE 5", 1, true, "Analysis number 5 is not defined!",
         "Analyse nummer 5 er ikke definert!"},
        {"", "SOLVE 9", 1, true, "Antype =  9 is not a valid analysis type (must be -1 or 1 to 8)!",
         "Antype =  9 er ikke en gyldig analysetype (må være -1 eller 1 til 8)!"},
        {"", "SOLVE 4 0", 1, true, "Number of modes must be greater than 0!",
         "Antall egenformer må være større enn 0!"},
        {"", "TRAFLINE 0", 1, true, "Traffic line number must be greater than 0!",
         "Trafikklinjenummer må være større enn 0!"},
        {"", "TRAFLINE 1 4 4", 2, false, "Element number 4 is not defined!",
         "Element nummer 4 er ikke definert!"},
        {"", "TRAFLOAD 0", 1, true, "Traffic load number must be greater than 0!",
         "Trafikklastnummer må være større enn 0!"},
        {"", "TRAFLOAD 1 0", 1, true, "Traffic line number must be greater than 0!",
         "Trafikklinjenummer må være større enn 0!"},
        {"", "TRAFLOAD 1 4", 1, true, "Traffic line number 4 is not defined!",
         "Trafikklinje nummer 4 er ikke definert!"},
        {"TRAFLINE 1", "TRAFLOAD 1 1 0", 1, true, "Track number must be greater than 0!",
         "Spornummer må være større enn 0!"},
        {"TRAFLINE 1", "TRAFLOAD 1 1 1 5", 1, true,
         "Type =  5 is not a valid traffic load type (must be 1, 2, 3, 4 or 6)!",
         "Type =  5 er ikke en gyldig trafikklasttype (må være 1, 2, 3, 4 eller 6)!"},
        {"TRAFLINE 1\r\nLOAD 101 1 1 0 0 ZDIR 25", "TRAFLOAD 100 1", 1, true,
         "Load case number 101 is already used and is not a traffic load case!",
         "Lasttilfelle nummer 101 er allerede i bruk og er ikke et trafikklasttilfelle!"},
        {"TRAFLINE 1\r\nTRAFLINE 2\r\nTRAFLOAD 100 1", "TRAFLOAD 100 2", 1, true,
         "Traffic load number 100 is connected to another traffic line!",
         "Trafikklast nummer 100 er koblet til en annen trafikklinje!"},
        {"", "TRAFDISP 2 1 0.3", 1, true,
         "Element number 2 has no design section at the given position!",
         "Element nummer 2 har ikke noe dimensjoneringssnitt i angitt posisjon!"},
        {"", "EARTHQUA 0", 1, true, "Load case number must be greater than 0!",
         "Lasttilfellenummer må være større enn 0!"},
        {"", "EARTHQUA 1 1 1 1 1 0 0 3", 1, true, "Earthquake spectrum number 3 is not defined!",
         "Jordskjelvspekter nummer 3 er ikke definert!"},
        {"EARTHQUA 1", "EARTHQUA 1", 2, false,
         "Load case number 1 already has an earthquake load, which is replaced!",
         "Lasttilfelle nummer 1 har allerede en jordskjelvlast, som blir erstattet!"},
        {"", "EQSPEC 1 7", 1, true, "Type =  7 is not a valid earthquake spectrum type!",
         "Type =  7 er ikke en gyldig type jordskjelvspekter!"},
        {"", "EQSPEC 1 1 2", 1, true, "Code =  2 is not a valid seismic code!",
         "Kode =  2 er ikke en gyldig jordskjelvnorm!"},
        {"", "EQSPEC 1 1 1 0", 1, true,
         "0.000 is not a valid damping ratio (must be greater than 0)!",
         "0.000 er ikke et gyldig dempningsforhold (må være større enn 0)!"},
        {"", "EQSPECPT 4", 1, true,
         "Earthquake spectrum number 4 must be defined before its points!",
         "Jordskjelvspekter nummer 4 må defineres før punktene!"},
        {"EQSPEC 4", "EQSPECPT 4 3", 1, true, "Type =  3 is not a valid spectrum point type!",
         "Type =  3 er ikke en gyldig type spekterpunkt!"},
        {"EQSPEC 4", "EQSPECPT 4 1 0", 1, true,
         "Point number 0 is not a valid spectrum point number (must be greater than 0)!",
         "Punkt nummer 0 er ikke et gyldig spekterpunktnummer (må være større enn 0)!"},
        {"EQSPEC 4", "EQSPECPT 4 1 21", 1, true,
         "Earthquake specter point number too large (max 20)!",
         "Punktnummer i jordskjelvspekter er for stort (maks 20)!"},
        {"", "WINDSPEC 0", 1, true, "Spectrum number must be greater than 0!",
         "Spekternummer må være større enn 0!"},
        {"", "BUCKLING 4 4", 2, false, "Element number 4 is not defined!",
         "Element nummer 4 er ikke definert!"},
        {"", "BUCKLDES OC 3 3", 2, false, "Load combination number 3 is not defined!",
         "Lastkombinasjon nummer 3 er ikke definert!"},
        {"", "LOAD 1 4 1 2000000 1 ZDIR 1", 1, true,
         "One or more of the values in command line are not valid!",
         "En eller flere av verdiene i kommandolinjen er ikke gyldige!"},
        {"", "BUCKLDES OC 1 1 1 12", 1, true,
         "One or more of the values in command line are not valid!",
         "En eller flere av verdiene i kommandolinjen er ikke gyldige!"},
    };
    for (int language : {2, 1}) {
        for (const Case& c : cases) {
            Frame f(language, c.level);
            f.Run(c.setup);
            f.log.clear();
            const int errors = f.cmd().GetTotalErrors();
            const int warnings = f.cmd().GetTotalWarnings();
            const int result = f.Run(c.line);
            const std::string words = language == 2 ? c.english : c.norwegian;
            const std::string header = c.error ? "*** Error ***" : "*** Warning ***";
            EXPECT_NE(f.log.find(header + "\r\n" + words + "\r\n"), std::string::npos)
                << c.line << "\n"
                << f.log;
            EXPECT_EQ(f.cmd().GetTotalErrors() - errors, c.error ? 1 : 0) << c.line;
            EXPECT_EQ(f.cmd().GetTotalWarnings() - warnings, c.error ? 0 : 1) << c.line;
            EXPECT_EQ(result, c.error ? -2 : -1) << c.line;
        }
    }
}

// An error drops the whole command: no load, case or combination is made, and what was there
// stays as it was. The same command at check level 0 goes through.
TEST(LoadCommandChecks, AnErrorLeavesTheModelAsItWas) {
    Frame f;
    f.Run("LOAD 1 4 1 0 0 ZDIR -10 2\r\nORDCOMB 1 1 1 1 1.0");
    EXPECT_EQ(f.Run("LOAD 1 4 2 0 0 9 -10 2"), -2);
    EXPECT_EQ(f.Run("LOAD 2 13 1"), -2);
    EXPECT_EQ(f.Run("ORDCOMB 1 2 1 1 1.0"), -2);
    EXPECT_EQ(LoadCount(f.s, 1), 1u);
    EXPECT_EQ(f.s.GetLoadcasePtr(1)->GetLoadInpList().GetCount(), 1u);
    EXPECT_EQ(f.s.GetLoadcasePtr(2), nullptr);
    EXPECT_EQ(f.s.GetLoadcombPtr(1)->GetLoadfacts().GetList().GetCount(), 1u);
    f.cmd().SetCheckLevel(0);
    EXPECT_EQ(f.Run("LOAD 1 4 2 0 0 9 -10 2"), 0);
    EXPECT_EQ(LoadCount(f.s, 1), 2u);
}

// Without checks, values far outside what a model uses neither hang the reader nor overflow:
// a range of more than a million numbers gives nothing, and numbers are held within an int.
TEST(LoadCommandChecks, ExtremeValuesWithoutChecksAreHarmless) {
    Frame f(2, 0);
    EXPECT_EQ(f.Run("LOAD 1 4 1 1e12 1 ZDIR 1"), 0);
    EXPECT_EQ(LoadCount(f.s, 1), 0u);
    EXPECT_EQ(f.Run("LOAD 2 4 2147483646 1e12 1 ZDIR 1"), 0);
    EXPECT_EQ(LoadCount(f.s, 2), 2u); // 2147483646 and the largest int, where the range is held
    EXPECT_EQ(f.Run("TRAFLINE 1\r\nTRAFLOAD 2147483647 1"), -2);
    EXPECT_EQ(f.s.GetTrafLoadPtr(2147483647), nullptr);
    EXPECT_EQ(f.Run("SECTFORCE 1 1 -1e12"), 0);
    EXPECT_EQ(f.Run("ORDCOMB 1\r\nBUCKLDES OC 1 1 1 1e9 -1e9 nan"), 0);
    EXPECT_EQ(f.Run("SORTLINE 1 1 1 1 1 0 1 1e12 1"), 0);
    EXPECT_TRUE(f.s.GetSortCombLinePtr(1)->GetElementNoArray().empty());
}
