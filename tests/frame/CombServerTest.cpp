#include "frame/CombServer.h"
#include "frame/Element.h"
#include "model/Displace.h"
#include "model/Structure.h"
#include "store/MemResBase.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

using namespace kelo;

namespace {

using Six = std::array<double, 6>;
using Rows = std::array<Six, 12>;

// A project of two elements with design sections at both ends; the start section of element 1
// carries node 1's displacements.
struct Project {
    CStructure s{2};
    CMemResBase& store = *s.GetResBasePtr();
    std::string log;

    Project() {
        for (int no = 1; no <= 3; ++no) s.AddNode(std::make_unique<CNode>(no, no - 1.0, 0.0, 0.0));
        for (int no = 1; no <= 2; ++no) {
            auto e = std::make_unique<CElement>(no, no, no + 1, 0, 1);
            e->GetDesignSectionList().Emplace(0.0, 0, no == 1 ? 1 : 0);
            e->GetDesignSectionList().Emplace(1.0, 0, 0);
            s.AddElement(std::move(e));
        }
    }
    void Force(int type, int no, int element, double x, const Six& f) {
        store.SetForce(type, no, element, x, 0, 0, f.data());
    }
    void Displ(int type, int no, int node, const Six& d) {
        CDisplace displace(node, no, type, d[0], d[1], d[2], d[3], d[4], d[5]);
        store.SetDisplace(type, no, node, &displace);
    }
    Six ReadForce(int type, int no, int element, double x, int* found = nullptr) {
        Six f{};
        int a = 0, b = 0;
        const int ok = store.GetForce(type, no, element, x, a, b, f.data());
        if (found) *found = ok;
        return f;
    }
    Rows ReadRows(int type0, int no, int element, double x) {
        Rows r{};
        for (int row = 0; row < 12; ++row) r[row] = ReadForce(type0 + row, no, element, x);
        return r;
    }
    CSortComb* Sort(int no, int method, const std::vector<CLoadfact>& lines) {
        auto comb = std::make_unique<CSortComb>(no, "S", 1, method);
        for (const CLoadfact& lf : lines) comb->AddLoadfact(lf.GetNo(), lf.GetCode(), lf.GetFact());
        return s.AddSortComb(std::move(comb));
    }
};

void ExpectSix(const Six& expected, const Six& actual, const std::string& what) {
    for (int k = 0; k < 6; ++k) EXPECT_NEAR(expected[k], actual[k], 1e-9) << what << " k=" << k;
}

void ExpectRows(const Rows& expected, const Rows& actual, const std::string& what) {
    for (int r = 0; r < 12; ++r)
        ExpectSix(expected[r], actual[r], what + " row " + std::to_string(r));
}

Six Neg(const Six& a) {
    Six n{};
    for (int k = 0; k < 6; ++k) n[k] = -a[k];
    return n;
}

// Three load cases at element 1, x/l 0.5 (a section added for the purpose), as lines of factors
// 1, 2 and 1. The factored sets are
//   A = 1 LC1 = {10, -2, 0, 4, 0, 0}
//   B = 2 LC2 = {-10, 6, 0, -12, 0, 0}
//   C = 1 LC3 = {2, 1, 0, 0, 0, 0}
// PN, MM and MN are zero in all three, so that the tie rules show in rows 2, 4, 5, 8, 10, 11.
const Six kA{10, -2, 0, 4, 0, 0};
const Six kB{-10, 6, 0, -12, 0, 0};
const Six kC{2, 1, 0, 0, 0, 0};
const Six kSum{2, 5, 0, -8, 0, 0};

struct SortProject : Project {
    SortProject() {
        s.GetElementPtr(1)->GetDesignSectionList().Emplace(0.5, 0, 2);
        Force(1, 1, 1, 0.5, kA);
        Force(1, 2, 1, 0.5, {-5, 3, 0, -6, 0, 0});
        Force(1, 3, 1, 0.5, kC);
        // Node 2 moves in X by 1, 2 and 3 mm in the three cases.
        Displ(1, 1, 2, {0.001, 0, 0, 0, 0, 0});
        Displ(1, 2, 2, {0.002, 0, 0, 0, 0, 0});
        Displ(1, 3, 2, {0.003, 0, 0, 0, 0, 0});
    }
    Rows Run(int method) {
        s.EmptySortCombList();
        Sort(1, method, {{1, 1, 1.0}, {2, 1, 2.0}, {3, 1, 1.0}});
        CCombServer server(&s, nullptr, &log);
        EXPECT_EQ(1, server.ProsessSortCombinations());
        return ReadRows(21, 1, 1, 0.5);
    }
};

} // namespace

TEST(CombServer, OrdinaryCombinationsSumFactoredCasesOnForcesDisplacementsReactionsAndSums) {
    Project p;
    p.s.AddLoadcase(std::make_unique<CLoadcase>(1, "G"))->SetSumAppForces(2, -100.0);
    p.s.GetLoadcasePtr(1)->SetSumReaForces(2, 100.0);
    p.s.AddLoadcase(std::make_unique<CLoadcase>(2, "Q"))->SetSumAppForces(2, 20.0);
    p.s.GetLoadcasePtr(2)->SetSumReaForces(2, -20.0);
    p.s.AddLoadcase(std::make_unique<CLoadcase>(3, "E"))->SetExternal(1);
    p.Force(1, 1, 1, 0.0, {10, 2, -4, 1, 0, 3});
    p.Force(1, 2, 1, 0.0, {-6, 1, 2, 0, 5, -1});
    // Case 3 is given as external: it is read under code 11.
    p.Force(11, 3, 1, 0.0, {1, 1, 1, 1, 1, 1});
    p.Displ(1, 1, 1, {0.001, 0, -0.002, 0, 0.0005, 0});
    p.Displ(1, 2, 1, {0, 0.003, 0.001, 0.0001, 0, 0});
    const Six r1{0, 0, 100, 0, 0, 0}, r2{5, 0, -20, 0, 0, 0};
    p.store.SetReaction(1, 1, 1, r1.data());
    p.store.SetReaction(1, 2, 1, r2.data());

    auto* oc1 = p.s.AddLoadcomb(std::make_unique<CLoadcomb>(1, "ULS", 1));
    oc1->AddLoadfact(1, 1, 1.2);
    oc1->AddLoadfact(2, 1, 1.5);
    auto* oc2 = p.s.AddLoadcomb(std::make_unique<CLoadcomb>(2, "of comb", 3));
    oc2->AddLoadfact(1, 2, 2.0);
    oc2->AddLoadfact(3, 1, 1.0);
    p.s.AddLoadcomb(std::make_unique<CLoadcomb>(3, "nothing", 1))->AddLoadfact(9, 1, 1.0);
    auto* oc4 = p.s.AddLoadcomb(std::make_unique<CLoadcomb>(4, "ext", 1));
    oc4->SetExternal(1);
    oc4->AddLoadfact(2, 1, -1.0);

    CCombServer server(&p.s, nullptr, &p.log);
    ASSERT_EQ(1, server.ProsessOrdCombinations());

    // OC1 = 1.2 LC1 + 1.5 LC2: PL 12 - 9, PM 2.4 + 1.5, PN -4.8 + 3, ML 1.2, MM 7.5, MN 3.6 - 1.5.
    const Six oc1Forces{3, 3.9, -1.8, 1.2, 7.5, 2.1};
    ExpectSix(oc1Forces, p.ReadForce(2, 1, 1, 0.0), "OC1");
    int a = 0, b = 0;
    Six f{};
    ASSERT_EQ(1, p.store.GetForce(2, 1, 1, 0.0, a, b, f.data()));
    EXPECT_EQ(1, a);
    // OC2 = 2 OC1 + LC3 (external): 6 + 1, 7.8 + 1, -3.6 + 1, 2.4 + 1, 15 + 1, 4.2 + 1.
    ExpectSix({7, 8.8, -2.6, 3.4, 16, 5.2}, p.ReadForce(2, 2, 1, 0.0), "OC2");
    // No case of OC3 has results: nothing is stored. Element 2 has no results at all.
    int found = 1;
    p.ReadForce(2, 3, 1, 0.0, &found);
    EXPECT_EQ(0, found);
    p.ReadForce(2, 1, 2, 0.0, &found);
    EXPECT_EQ(0, found);
    // An external combination goes under code 12.
    ExpectSix({6, -1, -2, 0, -5, 1}, p.ReadForce(12, 4, 1, 0.0), "OC4 external");
    p.ReadForce(2, 4, 1, 0.0, &found);
    EXPECT_EQ(0, found);

    // Node 1: 1.2 (1, 0, -2, 0, 0.5, 0) mm + 1.5 (0, 3, 1, 0.1, 0, 0) mm.
    CDisplace d;
    ASSERT_EQ(1, p.store.GetDisplace(2, 1, 1, &d));
    const Six expectedD{0.0012, 0.0045, -0.0009, 0.00015, 0.0006, 0.0};
    for (int k = 0; k < 6; ++k) EXPECT_NEAR(expectedD[k], d.Get(k), 1e-12);
    EXPECT_EQ(2, d.GetCode());
    // Reactions: 1.2 (0, 0, 100) + 1.5 (5, 0, -20) = (7.5, 0, 90).
    Six r{};
    ASSERT_EQ(1, p.store.GetReaction(2, 1, 1, r.data()));
    ExpectSix({7.5, 0, 90, 0, 0, 0}, r, "reaction OC1");
    // Sums: applied Z -120 + 30 = -90 on OC1, 2 (-90) + 0 = -180 on OC2; reactions the opposite.
    EXPECT_NEAR(-90.0, oc1->GetSumAppForces(2), 1e-12);
    EXPECT_NEAR(90.0, oc1->GetSumReaForces(2), 1e-12);
    EXPECT_NEAR(-180.0, oc2->GetSumAppForces(2), 1e-12);
    EXPECT_NEAR(180.0, oc2->GetSumReaForces(2), 1e-12);
    EXPECT_NE(std::string::npos, p.log.find("Combining section forces"));
}

TEST(CombServer, RunsWithoutCombinationsOrResultsAnswerZero) {
    Project p;
    CCombServer server(&p.s, nullptr, &p.log);
    EXPECT_EQ(0, server.ProsessOrdCombinations());
    EXPECT_EQ(0, server.ProsessSortCombinations());
    EXPECT_EQ(0, server.ProsessSortLineCombinations());
    p.s.AddLoadcomb(std::make_unique<CLoadcomb>(1, "C", 1))->AddLoadfact(1, 1, 1.0);
    EXPECT_EQ(0, server.ProsessOrdCombinations());
    EXPECT_EQ("No results to combine!\r\nHave you performed Solve?", server.GetStatus());
    EXPECT_EQ(0, CCombServer::ProsessOrdCombinations(nullptr, nullptr, nullptr));
}

TEST(CombServer, AddAndWorstTakeWholeSetsWithTheTieRules) {
    SortProject p;
    Rows add;
    add.fill(kSum);
    ExpectRows(add, p.Run(CCombServer::ADD), "ADD");

    // Max PL 10 from A, max PM 6 from B, max ML 4 from A; min PL -10 and min ML -12 from B, min
    // PM -2 from A. PN, MM, MN are 0 in all: a maximum row takes the last line (C), a minimum
    // row keeps the first (A).
    const Rows worst{kA, kB, kC, kA, kC, kC, kB, kA, kA, kB, kA, kA};
    ExpectRows(worst, p.Run(CCombServer::WORST), "WORST");

    // The node of the section follows the same decisions: 1, 2 x 2 and 3 mm in X.
    CDisplace d;
    ASSERT_EQ(1, p.store.GetDisplace(21, 1, 2, &d));
    EXPECT_NEAR(0.001, d.GetUx(), 1e-12);
    ASSERT_EQ(1, p.store.GetDisplace(22, 1, 2, &d));
    EXPECT_NEAR(0.004, d.GetUx(), 1e-12);
    ASSERT_EQ(1, p.store.GetDisplace(23, 1, 2, &d));
    EXPECT_NEAR(0.003, d.GetUx(), 1e-12);
    ASSERT_EQ(1, p.store.GetDisplace(27, 1, 2, &d));
    EXPECT_NEAR(0.004, d.GetUx(), 1e-12);
    // A section without a node keeps no displacement rows; node 3 is no section's node.
    EXPECT_EQ(0, p.store.GetDisplace(21, 1, 3, &d));

    // One line gives rows equal to the line times its factor.
    p.s.EmptySortCombList();
    p.Sort(1, CCombServer::WORST, {{2, 1, 2.0}});
    CCombServer(&p.s).ProsessSortCombinations();
    Rows one;
    one.fill(kB);
    ExpectRows(one, p.ReadRows(21, 1, 1, 0.5), "WORST one line");
}

TEST(CombServer, SWorstAndSAddIfMakeMirroredRows) {
    SortProject p;
    // SWORST, per component, the line of the greatest size, turned so that the component is
    // positive in row i: PL |10| first from A (kept against B's equal size), PM 6 from B,
    // PN 0 from A turned (0 counts as negative), ML |-12| from B turned.
    const Rows sworst{kA, kB, Neg(kA), Neg(kB), Neg(kA), Neg(kA), Neg(kA), Neg(kB), kA, kB, kA, kA};
    ExpectRows(sworst, p.Run(CCombServer::SWORST), "SWORST");

    // SADDIF adds every line turned to a positive component: PL A - B + C, PM -A + B + C,
    // ML A - B (C has no ML); PN, MM, MN none.
    const Six pl{22, -7, 0, 16, 0, 0}, pm{-18, 9, 0, -16, 0, 0}, ml{20, -8, 0, 16, 0, 0};
    const Six zero{};
    const Rows saddif{pl, pm, zero, ml, zero, zero, Neg(pl), Neg(pm), zero, Neg(ml), zero, zero};
    ExpectRows(saddif, p.Run(CCombServer::SADDIF), "SADDIF");
}

TEST(CombServer, AddIfTakesLinesThatIncreaseTheRow) {
    SortProject p;
    // Maximum rows take positive governing values, minimum rows anything below +1e-5.
    const Six zero{};
    const Six ac{12, -1, 0, 4, 0, 0}, bc{-8, 7, 0, -12, 0, 0};
    const Rows addif{ac, bc, zero, kA, zero, zero, kB, kA, kSum, bc, kSum, kSum};
    ExpectRows(addif, p.Run(CCombServer::ADDIF), "ADDIF");

    // A line of PL -3 with factor 1 goes into the minimum row only.
    p.Force(1, 4, 2, 0.0, {-3, 0, 0, 0, 0, 0});
    p.s.EmptySortCombList();
    p.Sort(2, CCombServer::ADDIF, {{4, 1, 1.0}});
    CCombServer(&p.s).ProsessSortCombinations();
    EXPECT_EQ(0.0, p.ReadForce(21, 2, 2, 0.0)[0]);
    EXPECT_EQ(-3.0, p.ReadForce(27, 2, 2, 0.0)[0]);
}

TEST(CombServer, RootSumMethods) {
    SortProject p;
    const double pl3 = std::sqrt(100.0 + 100.0 + 4.0), pm3 = std::sqrt(4.0 + 36.0 + 1.0);
    const double ml2 = std::sqrt(16.0 + 144.0);
    const Six all{pl3, pm3, 0, ml2, 0, 0};
    Rows rms;
    rms.fill(all);
    ExpectRows(rms, p.Run(CCombServer::RMS), "RMS");

    // RMSPH: the maximum rows are root sums of the lines that have the component, the minimum
    // rows start from their old value: c := c - sqrt(c^2 + s^2) line by line.
    auto step = [](double c, double s) { return c - std::sqrt(c * c + s * s); };
    const double pl0 = step(step(step(0, 10), -10), 2), pm0 = step(step(step(0, -2), 6), 1);
    const double ml0 = step(step(step(0, 4), -12), 0);
    const Six min3{pl0, pm0, 0, ml0, 0, 0};
    // ML: C has no ML, so only A and B count for row 3 and row 9.
    const Six max2{std::sqrt(200.0), std::sqrt(40.0), 0, ml2, 0, 0};
    const Six min2{step(step(0, 10), -10), step(step(0, -2), 6), 0, step(step(0, 4), -12), 0, 0};
    const Six zero{};
    const Rows rmsph{all, all, zero, max2, zero, zero, min3, min3, zero, min2, zero, zero};
    ExpectRows(rmsph, p.Run(CCombServer::RMSPH), "RMSPH");
}

TEST(CombServer, SDynWPutsTheFirstLineOnTheSizeOfTheRest) {
    SortProject p;
    // All lines add to {2, 5, 0, -8, 0, 0}; the first line (A) is the dynamic term. For PL: the
    // governing entry becomes 2 - 10 + 10 = 2 (max) and 2 - 10 - 10 = -18 (min); PM: 5 + 2 + 2
    // = 9; ML: -8 - 4 - 4 = -16. For PM: its own entry 5 + 2 + 2 = 9 and 5 + 2 - 2 = 5, PL
    // -8 - 10 = -18. For ML: -8 - 4 + 4 = -8 and -16.
    const Six row0{2, 9, 0, -16, 0, 0}, row6{-18, 9, 0, -16, 0, 0};
    const Six row1{-18, 9, 0, -16, 0, 0}, row7{-18, 5, 0, -16, 0, 0};
    const Six row3{-18, 9, 0, -8, 0, 0}, row9{-18, 9, 0, -16, 0, 0};
    const Rows sdynw{row0, row1, kSum, row3, kSum, kSum, row6, row7, kSum, row9, kSum, kSum};
    ExpectRows(sdynw, p.Run(CCombServer::SDYNW), "SDYNW");
}

TEST(CombServer, TrafficAndSortedLinesReadTwelveRows) {
    Project p;
    // Twelve unit cases 101..112: case 101 + r has PL r + 1, MN -(r + 1).
    for (int r = 0; r < 12; ++r) p.Force(1, 101 + r, 1, 1.0, {r + 1.0, 0, 0, 0, 0, -(r + 1.0)});
    // Cases 201..211 only: the twelfth is missing.
    for (int r = 0; r < 11; ++r) p.Force(1, 201 + r, 1, 1.0, {1, 0, 0, 0, 0, 0});
    p.Sort(1, CCombServer::ADD, {{101, 3, 2.0}});
    p.Sort(2, CCombServer::ADD, {{201, 3, 1.0}});
    // A sorted combination of a sorted combination: row r of comb 1, times 0.5.
    p.Sort(3, CCombServer::WORST, {{1, 4, 0.5}});
    CCombServer server(&p.s);
    ASSERT_EQ(1, server.ProsessSortCombinations());
    for (int r = 0; r < 12; ++r) {
        const Six f = p.ReadForce(21 + r, 1, 1, 1.0);
        EXPECT_DOUBLE_EQ(2.0 * (r + 1), f[0]);
        EXPECT_DOUBLE_EQ(-2.0 * (r + 1), f[5]);
        EXPECT_DOUBLE_EQ(r + 1.0, p.ReadForce(21 + r, 3, 1, 1.0)[0]);
    }
    int found = 1;
    p.ReadForce(21, 2, 1, 1.0, &found);
    EXPECT_EQ(0, found);
}

TEST(CombServer, SortedCombinationLineTakesTheEnvelope) {
    SortProject p;
    p.Sort(1, CCombServer::WORST, {{1, 1, 1.0}, {2, 1, 2.0}, {3, 1, 1.0}});
    p.Sort(2, CCombServer::ADD, {{1, 1, 1.0}, {2, 1, 2.0}, {3, 1, 1.0}});
    auto* line = p.s.AddSortCombLine(std::make_unique<CSortCombLine>(7, "L"));
    line->SetSortCombInterval(0, 1);
    line->SetSortCombInterval(1, 5);
    line->SetSortCombInterval(2, 0);
    line->SetLimitState(2);
    line->AddElementNo(1);
    line->AddElementNo(99);
    CCombServer server(&p.s);
    ASSERT_EQ(1, server.ProsessSortCombinations());
    ASSERT_EQ(1, server.ProsessSortLineCombinations());
    // Comb 1 holds the WORST rows {A, B, C, A, C, C, B, A, A, B, A, A}, comb 2 the sum
    // {2, 5, 0, -8, 0, 0} in every row. Maximum rows: PL 10 > 2, PM 6 > 5, ML 4 > -8 from comb
    // 1; PN, MM, MN tie at 0 and go to the later comb 2. Minimum rows: PL -10, PM -2, ML -12
    // from comb 1; the ties stay with comb 1.
    const Rows env{kA, kB, kSum, kA, kSum, kSum, kB, kA, kA, kB, kA, kA};
    ExpectRows(env, p.ReadRows(41, 7, 1, 0.5), "line");
    std::array<int, 12> sources{};
    ASSERT_EQ(1, p.store.GetGovSortComb(41, 7, 1, 0.5, sources.data()));
    const std::array<int, 12> expected{1, 1, 2, 1, 2, 2, 1, 1, 1, 1, 1, 1};
    EXPECT_EQ(expected, sources);
    int a = 0, b = 0;
    Six f{};
    ASSERT_EQ(1, p.store.GetForce(41, 7, 1, 0.5, a, b, f.data()));
    EXPECT_EQ(2, a);
}

TEST(CombServer, SplitGivesTheLoadCasesBehindARow) {
    SortProject p;
    auto* oc1 = p.s.AddLoadcomb(std::make_unique<CLoadcomb>(1, "C1", 1));
    oc1->AddLoadfact(1, 1, 1.2);
    oc1->AddLoadfact(2, 1, 1.5);
    auto* oc2 = p.s.AddLoadcomb(std::make_unique<CLoadcomb>(2, "C2", 1));
    oc2->AddLoadfact(1, 2, 2.0);
    oc2->AddLoadfact(3, 1, 1.0);
    CCombServer server(&p.s);
    std::vector<CLoadfact> out;
    EXPECT_EQ(3, server.SplitLoadComb(oc2, &out, 1.0, 0, 1, 0.5));
    ASSERT_EQ(3u, out.size());
    EXPECT_EQ(1, out[0].GetNo());
    EXPECT_DOUBLE_EQ(2.4, out[0].GetFact());
    EXPECT_EQ(2, out[1].GetNo());
    EXPECT_DOUBLE_EQ(3.0, out[1].GetFact());
    EXPECT_EQ(3, out[2].GetNo());

    auto split = [&](int method, int row) {
        p.s.EmptySortCombList();
        CSortComb* comb = p.Sort(1, method, {{1, 1, 1.0}, {2, 1, 2.0}, {3, 1, 1.0}});
        std::vector<CLoadfact> pairs;
        server.SplitSortComb(comb, &pairs, 1.0, row, 1, 0.5);
        std::vector<std::pair<int, double>> plain;
        for (const CLoadfact& lf : pairs) plain.emplace_back(lf.GetNo(), lf.GetFact());
        return plain;
    };
    using V = std::vector<std::pair<int, double>>;
    // WORST max PM is case 2 (2 x 3), min PL case 2; min PN ties stay with case 1.
    EXPECT_EQ((V{{2, 2.0}}), split(CCombServer::WORST, 1));
    EXPECT_EQ((V{{2, 2.0}}), split(CCombServer::WORST, 6));
    EXPECT_EQ((V{{1, 1.0}}), split(CCombServer::WORST, 8));
    // A line without results counted nowhere: the minimum PN tie goes to case 1, not case 9.
    p.s.EmptySortCombList();
    std::vector<CLoadfact> pairs;
    server.SplitSortComb(p.Sort(1, CCombServer::WORST, {{9, 1, 1.0}, {1, 1, 1.0}, {3, 1, 1.0}}),
                         &pairs, 1.0, 8, 1, 0.5);
    ASSERT_EQ(1u, pairs.size());
    EXPECT_EQ(1, pairs[0].GetNo());
    // SWORST max ML is case 2 turned (-2), its mirror row case 2 as it is.
    EXPECT_EQ((V{{2, -2.0}}), split(CCombServer::SWORST, 3));
    EXPECT_EQ((V{{2, 2.0}}), split(CCombServer::SWORST, 9));
    // ADDIF max PL: cases 1 and 3; min ML: case 2 only (the limit is 0 here).
    EXPECT_EQ((V{{1, 1.0}, {3, 1.0}}), split(CCombServer::ADDIF, 0));
    EXPECT_EQ((V{{2, 2.0}}), split(CCombServer::ADDIF, 9));
    // SADDIF max PL: A - B + C.
    EXPECT_EQ((V{{1, 1.0}, {2, -2.0}, {3, 1.0}}), split(CCombServer::SADDIF, 0));
    EXPECT_EQ((V{{1, -1.0}, {2, 2.0}, {3, -1.0}}), split(CCombServer::SADDIF, 6));
    EXPECT_EQ((V{{1, 1.0}, {2, 2.0}, {3, 1.0}}), split(CCombServer::ADD, 4));

    // GetResult: components 6..11 read 0..5; an external result is found under code + 10.
    p.Force(11, 5, 1, 0.5, {7, 8, 9, 10, 11, 12});
    EXPECT_DOUBLE_EQ(8.0, server.GetResult(1, 7, 5, 1, 0.5));
    EXPECT_DOUBLE_EQ(-6.0, server.GetResult(1, 3, 2, 1, 0.5));
    EXPECT_DOUBLE_EQ(0.0, server.GetResult(2, 0, 5, 1, 0.5));
}

TEST(CombServer, CalcCombWorksOnOneElement) {
    SortProject p;
    p.Force(1, 1, 2, 1.0, {5, 0, 0, 0, 0, 0});
    p.Sort(1, CCombServer::ADD, {{1, 1, 1.0}});
    CCombServer server(&p.s);
    EXPECT_EQ(0, server.CalcComb(42));
    server.CalcComb(2);
    EXPECT_DOUBLE_EQ(5.0, p.ReadForce(21, 1, 2, 1.0)[0]);
    int found = 1;
    p.ReadForce(21, 1, 1, 0.5, &found);
    EXPECT_EQ(0, found);
}
