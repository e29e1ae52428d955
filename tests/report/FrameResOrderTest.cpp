#include "report/FrameResOrder.h"

#include "model/Displace.h"
#include "model/Structure.h"
#include "store/MemResBase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

using namespace kelo;

namespace {

std::string Joined(const std::vector<std::string>& pieces) {
    std::string all;
    for (const std::string& p : pieces) all += p;
    return all;
}

struct Results {
    CStructure s{2};
    Results() {
        for (int no = 1; no <= 3; ++no) s.AddNode(std::make_unique<CNode>(no, 5.0 * no, 0, 0));
        s.AddLoadcase(std::make_unique<CLoadcase>(1, "Dead"));
        s.AddLoadcase(std::make_unique<CLoadcase>(2, "Live"));
        CMemResBase& r = *s.GetResBasePtr();
        const CDisplace d11(1, 1, 1, 0.001, 0.0, -0.0025, 0.0, 0.0001, 0.0);
        const CDisplace d31(3, 1, 1, 0.0, 0.0, -0.004, 0.0, 0.0, 0.0);
        const CDisplace d32(3, 2, 11, 0.0, 0.0005, 0.0, 0.0, 0.0, -0.00002);
        r.SetDisplace(1, 1, 1, &d11);
        r.SetDisplace(1, 1, 3, &d31);
        r.SetDisplace(11, 2, 3, &d32);
        const double r1[6] = {0.0, 0.0, 150.0, 0.0, 0.0, 0.0};
        const double r3[6] = {0.0, 0.0, 90.0, 0.0, 0.0, 0.0};
        const double r32[6] = {0.0, 0.0, 210.0, 0.0, 0.0, 0.0};
        r.SetReaction(1, 1, 1, r1);
        r.SetReaction(1, 1, 3, r3);
        r.SetReaction(1, 2, 3, r32);
    }
};

} // namespace

TEST(FrameResOrder, DisplacementsByNodeWithABlankLineAtEachNewNode) {
    Results f;
    CFrameResOrder order;
    order.Item = 0;
    order.AddItemInterval(-1, 0);
    order.AddLoadInterval(-1, 0);
    std::vector<std::string> out;
    ASSERT_EQ(order.MakeListingFromResOrder(&f.s, out), 1);
    EXPECT_EQ(Joined(out),
              " Node   Lc       Ux        Uy        Uz             Rotx       Roty       Rotz\r\n"
              "                [mm]      [mm]      [mm]          [rad]          [rad]          "
              "[rad]\r\n"
              "    1    1     1.000     0.000    -2.500     0.00000000     0.00010000     "
              "0.00000000\r\n"
              "\r\n"
              "    3    1     0.000     0.000    -4.000     0.00000000     0.00000000     "
              "0.00000000\r\n"
              "    3    2     0.000     0.500     0.000     0.00000000     0.00000000    "
              "-0.00002000\r\n");

    // Only node 3 and load case 2, where a given result (code 11) stands.
    order.Empty();
    order.AddItemInterval(3, 3);
    order.AddLoadInterval(2, 2);
    out.clear();
    order.MakeListingFromResOrder(&f.s, out);
    EXPECT_EQ(Joined(out).substr(Joined(out).find("\r\n    3")),
              "\r\n    3    2     0.000     0.500     0.000     0.00000000     0.00000000    "
              "-0.00002000\r\n");
}

TEST(FrameResOrder, ReactionsSortedByAComponentAndRefusedFamilies) {
    Results f;
    CFrameResOrder order;
    order.Item = 2;
    order.Sort = -1;
    order.SortComp = 2;
    order.AddItemInterval(-1, 0);
    order.AddLoadInterval(-1, 0);
    std::vector<std::string> out;
    ASSERT_EQ(order.MakeListingFromResOrder(&f.s, out), 1);
    // Largest PZ first, with no blank lines.
    EXPECT_EQ(Joined(out),
              " Node   Lc          PX          PY          PZ          MX          MY          MZ"
              "\r\n"
              "                  [kN]        [kN]        [kN]       [kNm]       [kNm]       [kNm]"
              "\r\n"
              "    3    2        0.00        0.00      210.00        0.00        0.00        0.00"
              "\r\n"
              "    1    1        0.00        0.00      150.00        0.00        0.00        0.00"
              "\r\n"
              "    3    1        0.00        0.00       90.00        0.00        0.00        0.00"
              "\r\n");

    order.Load = 5;
    out.clear();
    EXPECT_EQ(order.MakeListingFromResOrder(&f.s, out), 0);
    EXPECT_TRUE(out.empty());
    // An empty project prints the headers only.
    CStructure empty(2);
    order.Load = 0;
    out.clear();
    EXPECT_EQ(order.MakeListingFromResOrder(&empty, out), 1);
    const std::string heads = Joined(out);
    EXPECT_EQ(std::count(heads.begin(), heads.end(), '\n'), 2) << heads;
}

namespace {

// Element 5 from node 1 (0, 0, 0) to node 2 (4, 0, 0) with one design section at its middle.
// Its local axes with N along +Z: M = +X, N = +Z, L = M x N = -Y.
struct Girder {
    CStructure s{2};
    CMemResBase& store = *s.GetResBasePtr();
    Girder() {
        s.AddNode(std::make_unique<CNode>(1, 0.0, 0.0, 0.0));
        s.AddNode(std::make_unique<CNode>(2, 4.0, 0.0, 0.0));
        s.AddElement(std::make_unique<CElement>(5, 1, 2, 0, 1))
            ->GetDesignSectionList()
            .Add(std::make_unique<CDesignSection>(0.5, 0, 2));
    }
    // Twelve rows under `code0` + r (or, with `consecutive`, under code0 and number no + r):
    // row r holds PL = r, PM = 100 + r, PN = -r, ML = 1000 + 10 r, MM = r / 4, MN = -1000 - 10 r.
    void StoreRows(int code0, int no, bool consecutive) {
        for (int r = 0; r < 12; ++r) {
            const double f[6] = {1.0 * r,           100.0 + r, -1.0 * r,
                                 1000.0 + 10.0 * r, 0.25 * r,  -1000.0 - 10.0 * r};
            store.SetForce(consecutive ? code0 : code0 + r, consecutive ? no + r : no, 5, 0.5, 1, 0,
                           f);
        }
    }
};

std::string Listing(CStructure& s, CFrameResOrder& order) {
    std::vector<std::string> out;
    EXPECT_EQ(order.MakeListingFromResOrder(&s, out), 1);
    return Joined(out);
}

int Count(const std::string& text, const std::string& what) {
    int n = 0;
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
    return n;
}

const char* const kForceUnits12 =
    "       [kN]       [kN]       [kN]      [kNm]      [kNm]      [kNm]\r\n";

} // namespace

// A sorted combination line: each row named by the force component that governs it, the values
// axial force first as the heads say, and the sorted combination that gave the row at the end.
// A stored -0 prints as 0.00.
TEST(FrameResOrder, SortedCombinationLineBlockWithItsSourceCombinations) {
    Girder g;
    g.s.AddSortCombLine(std::make_unique<CSortCombLine>(1, "Girder"));
    g.StoreRows(41, 1, false);
    const int sources[12] = {2, 2, 4, 4, 2, 4, 2, 4, 2, 2, 4, 4};
    g.store.SetGovSortComb(41, 1, 5, 0.5, sources);
    CFrameResOrder order;
    order.Item = 1;
    order.Load = 4;
    order.AddItemInterval(-1, 0);
    order.AddLoadInterval(-1, 0);
    EXPECT_EQ(Listing(g.s, order),
              std::string("Row               Axial    Shear L    Shear N  Bending L  Bending N    "
                          "Torsion    Comb\r\n") +
                  "            " + kForceUnits12 +
                  "Sort.Line No:     1  Element No:     5, X/L:  0.50\r\n"
                  "Max Shear-L      100.00       0.00       0.00    1000.00   -1000.00       0.00"
                  "       2\r\n"
                  "Max Axial        101.00       1.00      -1.00    1010.00   -1010.00       0.25"
                  "       2\r\n"
                  "Max Shear-N      102.00       2.00      -2.00    1020.00   -1020.00       0.50"
                  "       4\r\n"
                  "Max Bend-L       103.00       3.00      -3.00    1030.00   -1030.00       0.75"
                  "       4\r\n"
                  "Max Torsion      104.00       4.00      -4.00    1040.00   -1040.00       1.00"
                  "       2\r\n"
                  "Max Bend-N       105.00       5.00      -5.00    1050.00   -1050.00       1.25"
                  "       4\r\n"
                  "Min Shear-L      106.00       6.00      -6.00    1060.00   -1060.00       1.50"
                  "       2\r\n"
                  "Min Axial        107.00       7.00      -7.00    1070.00   -1070.00       1.75"
                  "       4\r\n"
                  "Min Shear-N      108.00       8.00      -8.00    1080.00   -1080.00       2.00"
                  "       2\r\n"
                  "Min Bend-L       109.00       9.00      -9.00    1090.00   -1090.00       2.25"
                  "       2\r\n"
                  "Min Torsion      110.00      10.00     -10.00    1100.00   -1100.00       2.50"
                  "       4\r\n"
                  "Min Bend-N       111.00      11.00     -11.00    1110.00   -1110.00       2.75"
                  "       4\r\n");
}

// A traffic load's twelve rows are the load cases 101 to 112 of its twelve unit results; the
// number column tells which. A row that is missing is left out, and the store check says so.
TEST(FrameResOrder, TrafficLoadRowsAndTheStoreCheck) {
    Girder g;
    g.s.AddTrafLoad(std::make_unique<CTrafLoad>(101, 1, "Lorry"));
    g.StoreRows(1, 101, true);
    CFrameResOrder order;
    order.Item = 1;
    order.Load = 2;
    order.AddItemInterval(-1, 0);
    order.AddLoadInterval(-1, 0);
    const std::string all = Listing(g.s, order);
    const std::string start =
        std::string("   Lc   Row               Axial    Shear L    Shear N  Bending L  "
                    "Bending N    Torsion\r\n") +
        "                    " + kForceUnits12 +
        "Traffic load No:   101  Element No:     5, X/L:  0.50\r\n"
        "  101   Max Shear-L      100.00       0.00       0.00    1000.00   -1000.00"
        "       0.00\r\n";
    EXPECT_EQ(all.substr(0, start.size()), start);
    EXPECT_NE(all.find("  112   Min Bend-N       111.00      11.00     -11.00    1110.00   "
                       "-1110.00       2.75\r\n"),
              std::string::npos)
        << all;

    // The sum of every stored value per component: PL 0 + 1 + ... + 11 = 66, PM 1200 + 66,
    // PN -66, ML 12000 + 660, MM 16.5, MN -12660.
    order.Item = 10;
    const std::string check = Listing(g.s, order);
    EXPECT_EQ(check.substr(check.find("DB. sum")),
              "DB. sum  :      66.0    1266.0     -66.0   12660.0      16.5  -12660.0\r\n");
    // Load case 112 of the twelfth row gone: the sum lacks it and the check says so.
    g.store.DeleteCalcLoadcaseResults(112);
    const std::string missing = Listing(g.s, order);
    EXPECT_EQ(missing.substr(missing.find("DB. sum")),
              "DB. sum  :      55.0    1155.0     -55.0   11550.0      13.8  -11550.0\r\n"
              "Error! not all results were found!\r\n");
    order.Item = 1;
    EXPECT_EQ(Listing(g.s, order).find("  112   "), std::string::npos);
}

// The sums of the applied loads and the reactions of load cases that have results, and of a
// combination of them, in the order of the cases with a blank line between.
TEST(FrameResOrder, SumsOfAppliedLoadsAndReactions) {
    CStructure s(2);
    auto* dead = s.AddLoadcase(std::make_unique<CLoadcase>(1, "Dead"));
    auto* live = s.AddLoadcase(std::make_unique<CLoadcase>(2, "Live"));
    s.AddLoadcase(std::make_unique<CLoadcase>(3, "Not solved"));
    dead->SetResults(1);
    live->SetResults(1);
    dead->SetSumAppForces(2, -1500.0);
    dead->SetSumReaForces(2, 1500.0);
    live->SetSumAppForces(0, 12.5);
    live->SetSumAppForces(2, -200.0);
    live->SetSumReaForces(0, -12.5);
    live->SetSumReaForces(2, 200.0);
    CFrameResOrder order;
    order.Item = 3;
    order.AddLoadInterval(-1, 0);
    EXPECT_EQ(Listing(s, order),
              "   Lc                                PX          PY          PZ\r\n"
              "                                    [kN]        [kN]        [kN]\r\n"
              "    1   Sum applied loads           0.00        0.00    -1500.00\r\n"
              "    1   Sum reaction forces         0.00        0.00     1500.00\r\n"
              "\r\n"
              "    2   Sum applied loads          12.50        0.00     -200.00\r\n"
              "    2   Sum reaction forces       -12.50        0.00      200.00\r\n");

    // A combination's sums are those the combination run left on it; one whose cases have no
    // results is left out.
    auto* comb = s.AddLoadcomb(std::make_unique<CLoadcomb>(4, "ULS", 1));
    comb->AddLoadfact(1, 1, 1.35);
    comb->SetSumAppForces(2, -2025.0);
    comb->SetSumReaForces(2, 2025.0);
    s.AddLoadcomb(std::make_unique<CLoadcomb>(5, "Empty", 1))->AddLoadfact(3, 1, 1.0);
    order.Load = 1;
    EXPECT_EQ(Listing(s, order),
              " Comb                                PX          PY          PZ\r\n"
              "                                    [kN]        [kN]        [kN]\r\n"
              "    4   Sum applied loads           0.00        0.00    -2025.00\r\n"
              "    4   Sum reaction forces         0.00        0.00     2025.00\r\n");
}

// Displacements in the local axes of element 5 (M = +X, N = +Z, L = -Y): UL = -Uy, UM = Ux,
// UN = Uz and the same for the rotations. An element that doesn't exist gives no listing.
TEST(FrameResOrder, DisplacementsTurnedIntoAnElementsLocalAxes) {
    Girder g;
    g.s.AddLoadcase(std::make_unique<CLoadcase>(1, "Dead"));
    const CDisplace d(2, 1, 1, 0.001, 0.002, -0.003, 0.0001, 0.0002, 0.0003);
    g.store.SetDisplace(1, 1, 2, &d);
    CFrameResOrder order;
    order.Item = 0;
    order.LocalElemAxis = 5;
    order.AddItemInterval(-1, 0);
    order.AddLoadInterval(-1, 0);
    EXPECT_EQ(Listing(g.s, order),
              " Node   Lc       UL        UM        UN             RotL       RotM       RotN "
              "El:5\r\n"
              "                [mm]      [mm]      [mm]          [rad]          [rad]          "
              "[rad]\r\n"
              "    2    1    -2.000     1.000    -3.000    -0.00020000     0.00010000     "
              "0.00030000\r\n");
    order.LocalElemAxis = 6;
    std::vector<std::string> out;
    EXPECT_EQ(order.MakeListingFromResOrder(&g.s, out), 0);
}

// Sorted combinations led by the combination and sorted by a governing row: blocks go by the
// value of bending about L in row ML-Min (9), largest first, with no blank lines.
TEST(FrameResOrder, SortedCombinationBlocksOrderedByAGoverningRow) {
    Girder g;
    for (int no = 1; no <= 3; ++no) g.s.AddSortComb(std::make_unique<CSortComb>(no, "", 1, 1));
    g.StoreRows(21, 1, false);
    // Combination 3 has a larger ML in row 9 than combination 1; combination 2 has no results.
    for (int r = 0; r < 12; ++r) {
        const double f[6] = {0.0, 0.0, 0.0, r == 9 ? 5000.0 : 0.0, 0.0, 0.0};
        g.store.SetForce(21 + r, 3, 5, 0.5, 1, 0, f);
    }
    CFrameResOrder order;
    order.Item = 1;
    order.Load = 3;
    order.Leading = 1;
    order.AddItemInterval(-1, 0);
    order.AddLoadInterval(-1, 0);
    std::string all = Listing(g.s, order);
    // Number order: a blank line before the block of combination 3.
    EXPECT_LT(all.find("Sort.Comb No:     1"), all.find("\r\n\r\nSort.Comb No:     3"));
    EXPECT_EQ(Count(all, "Sort.Comb No:     2"), 0);
    EXPECT_EQ(Count(all, "    3   Min Bend-L         0.00       0.00       0.00    5000.00       "
                         "0.00       0.00\r\n"),
              1);
    order.Sort = -1;
    order.SortComp = 9;
    all = Listing(g.s, order);
    EXPECT_LT(all.find("Sort.Comb No:     3"), all.find("Sort.Comb No:     1"));
    EXPECT_EQ(Count(all, "\r\n\r\n"), 0);
    order.Sort = 1;
    all = Listing(g.s, order);
    EXPECT_LT(all.find("Sort.Comb No:     1"), all.find("Sort.Comb No:     3"));
}

// A long listing comes in pieces that each end with a whole line, the first one past 59900
// characters; together they are the whole text.
TEST(FrameResOrder, LongListingsComeInPiecesOfWholeLines) {
    CStructure s(2);
    s.AddLoadcase(std::make_unique<CLoadcase>(1, "Dead"));
    // 2000 nodes of one line each: 2000 * 87 characters, about 174000.
    for (int no = 1; no <= 2000; ++no) {
        s.AddNode(std::make_unique<CNode>(no, no, 0.0, 0.0));
        const CDisplace d(no, 1, 1, 0.0, 0.0, -0.001 * no, 0.0, 0.0, 0.0);
        s.GetResBasePtr()->SetDisplace(1, 1, no, &d);
    }
    CFrameResOrder order;
    order.Item = 0;
    order.Sort = -1;
    order.SortComp = 2;
    order.AddItemInterval(-1, 0);
    order.AddLoadInterval(-1, 0);
    std::vector<std::string> out;
    ASSERT_EQ(order.MakeListingFromResOrder(&s, out), 1);
    ASSERT_EQ(out.size(), 3u);
    for (const std::string& piece : out) {
        EXPECT_LE(piece.size(), 59900u + 87u);
        EXPECT_EQ(piece.substr(piece.size() - 2), "\r\n");
    }
    EXPECT_GT(out[0].size(), 59900u);
    const std::string all = Joined(out);
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 2002);
    // Descending Uz: node 1 (-1 mm) first after the two head lines, node 2000 (-2000 mm) last.
    const std::size_t third = all.find("\r\n", all.find("\r\n") + 2) + 2;
    EXPECT_EQ(all.substr(third, 40), "    1    1     0.000     0.000    -1.000");
    const std::size_t last = all.rfind("\r\n", all.size() - 3) + 2;
    EXPECT_EQ(all.substr(last, 40), " 2000    1     0.000     0.000 -2000.000");
}

// The displacements that belong to the governing sets of a sorted combination, at the node of a
// design section, in the axes of element 5 (UL = -Uy, UM = Ux, UN = Uz): each row named after
// the force component that governs it.
TEST(FrameResOrder, SortedCombinationDisplacementsInLocalAxes) {
    Girder g;
    g.s.AddSortComb(std::make_unique<CSortComb>(7, "", 1, 1));
    for (int r = 0; r < 12; ++r) {
        const CDisplace d(2, 7, 21 + r, 0.0, 0.001 * r, -0.002, 0.0, 0.0, 0.0);
        g.store.SetDisplace(21 + r, 7, 2, &d);
    }
    CFrameResOrder order;
    order.Item = 0;
    order.Load = 3;
    order.LocalElemAxis = 5;
    order.AddItemInterval(-1, 0);
    order.AddLoadInterval(-1, 0);
    const std::string all = Listing(g.s, order);
    EXPECT_EQ(all.substr(0, all.find("    7   PL-Min")),
              "Sort.   Row                 UL        UM        UN           RotL           RotM"
              "           RotN El:5\r\n"
              "                          [mm]      [mm]      [mm]          [rad]          [rad]"
              "          [rad]\r\n"
              "Sort.Comb No:     7     Node No:     2\r\n"
              "    7   PL-Max           0.000     0.000    -2.000     0.00000000     0.00000000"
              "     0.00000000\r\n"
              "    7   PM-Max          -1.000     0.000    -2.000     0.00000000     0.00000000"
              "     0.00000000\r\n"
              "    7   PN-Max          -2.000     0.000    -2.000     0.00000000     0.00000000"
              "     0.00000000\r\n"
              "    7   ML-Max          -3.000     0.000    -2.000     0.00000000     0.00000000"
              "     0.00000000\r\n"
              "    7   MM-Max          -4.000     0.000    -2.000     0.00000000     0.00000000"
              "     0.00000000\r\n"
              "    7   MN-Max          -5.000     0.000    -2.000     0.00000000     0.00000000"
              "     0.00000000\r\n");
}
