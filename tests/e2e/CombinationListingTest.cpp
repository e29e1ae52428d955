// Combinations and result listings checked as a bridge engineer would check them: the moments of
// the load cases against closed forms, and the governing moments of the sorted combinations
// against sums made by hand from the load-case moments that the same listing prints.
//
// Units m, kN, kNm. The girders run along X with local N along +Z, so bending in the vertical
// plane is bending about L (ML), positive when it sags; the listings print section forces in the
// columns Axial, Shear L, Shear N, Bending L, Bending N, Torsion.

#include "KeloRun.h"

#include "platform/TextFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

using namespace kelo;
using namespace kelo::e2e;

namespace {

// Columns of a printed force line.
constexpr int kShearN = 2;
constexpr int kBendL = 3;
// Rows of a governing result: ML-Max is row 3, ML-Min row 9.
constexpr int kMLMax = 3;
constexpr int kMLMin = 9;

using Values = std::array<double, 6>;
// A section: element number and x/L.
using Section = std::pair<int, double>;

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

// What the result listings of one file print, read back into numbers.
struct ResultListing {
    // Section forces of load cases by (element, x/L, load case).
    std::map<std::tuple<int, double, int>, Values> cases;
    // Twelve rows of sorted combinations by (combination, element, x/L), and of combination lines
    // with the source combination of each row.
    std::map<std::tuple<int, int, double>, std::array<Values, 12>> sorted;
    std::map<std::tuple<int, int, double>, std::array<Values, 12>> lines;
    std::map<std::tuple<int, int, double>, std::array<int, 12>> sources;

    explicit ResultListing(const std::string& text) {
        const std::vector<std::string> all = Lines(text);
        bool inCases = false;
        for (std::size_t i = 0; i < all.size(); ++i) {
            const std::string& l = all[i];
            if (l.rfind(" Elem    X/L   Lc", 0) == 0) {
                inCases = true;
                ++i; // the units
                continue;
            }
            int elem = 0, lc = 0, no = 0;
            double x = 0.0;
            Values v{};
            if (inCases) {
                if (l.empty()) continue;
                if (std::sscanf(l.c_str(), "%d %lf %d %lf %lf %lf %lf %lf %lf", &elem, &x, &lc,
                                &v[0], &v[1], &v[2], &v[3], &v[4], &v[5]) == 9) {
                    cases[{elem, x, lc}] = v;
                    continue;
                }
                inCases = false;
            }
            const bool comb = std::sscanf(l.c_str(), "Sort.Comb No: %d Element No: %d, X/L: %lf",
                                          &no, &elem, &x) == 3;
            const bool line =
                !comb && std::sscanf(l.c_str(), "Sort.Line No: %d Element No: %d, X/L: %lf", &no,
                                     &elem, &x) == 3;
            if (!comb && !line) continue;
            std::array<Values, 12> rows{};
            std::array<int, 12> from{};
            for (int r = 0; r < 12 && i + 1 < all.size(); ++r) {
                // "%5i%3s%-12s" then the values; a line's rows begin with the name.
                const std::string& row = all[++i];
                const std::size_t at = comb ? 20 : 12;
                Values& w = rows[r];
                const int n = row.size() < at
                                  ? 0
                                  : std::sscanf(row.c_str() + at, "%lf %lf %lf %lf %lf %lf %d",
                                                &w[0], &w[1], &w[2], &w[3], &w[4], &w[5], &from[r]);
                EXPECT_EQ(n, comb ? 6 : 7) << row;
            }
            if (comb)
                sorted[{no, elem, x}] = rows;
            else {
                lines[{no, elem, x}] = rows;
                sources[{no, elem, x}] = from;
            }
        }
    }

    const Values& Case(const Section& s, int lc) const {
        const auto it = cases.find({s.first, s.second, lc});
        EXPECT_NE(it, cases.end()) << "element " << s.first << " x/L " << s.second << " lc " << lc;
        static const Values none{};
        return it == cases.end() ? none : it->second;
    }
    const std::array<Values, 12>& Sorted(int no, const Section& s) const {
        const auto it = sorted.find({no, s.first, s.second});
        EXPECT_NE(it, sorted.end()) << "sorted " << no << " element " << s.first;
        static const std::array<Values, 12> none{};
        return it == sorted.end() ? none : it->second;
    }
};

// One line of a combination: load case and factor.
struct Line {
    int lc;
    double f;
};

// The force set of WORST in row ML-Max (max) or ML-Min (!max), by the method's rule: the first
// line sets the row; a later line takes a maximum row when its moment is at least the row's (a
// tie goes to the later line), a minimum row only when strictly below.
Values WorstRow(const ResultListing& res, const Section& s, const std::vector<Line>& lines,
                bool max) {
    Values row{};
    bool first = true;
    for (const Line& l : lines) {
        const Values& v = res.Case(s, l.lc);
        const double m = l.f * v[kBendL];
        if (first || (max ? m >= row[kBendL] : m < row[kBendL]))
            for (int k = 0; k < 6; ++k) row[k] = l.f * v[k];
        first = false;
    }
    return row;
}

// ADDIF in row ML-Max or ML-Min: the sum of the lines whose moment is above 1e-5 (max) or below
// 1e-5 (min): each variable action wherever it makes the moment worse.
Values AddIfRow(const ResultListing& res, const Section& s, const std::vector<Line>& lines,
                bool max) {
    Values row{};
    for (const Line& l : lines) {
        const Values& v = res.Case(s, l.lc);
        const double m = l.f * v[kBendL];
        if (max ? m > 1e-5 : m < 1e-5)
            for (int k = 0; k < 6; ++k) row[k] += l.f * v[k];
    }
    return row;
}

// ADD of a factored load case and a row of another combination, component by component.
Values Plus(const Values& a, double f, const Values& lc) {
    Values sum{};
    for (int k = 0; k < 6; ++k) sum[k] = a[k] + f * lc[k];
    return sum;
}

} // namespace

// The three-span girder of 30, 40 and 30 m (examples/three_span_combinations.inp), EI =
// 35e6 kN/m2 x 4.5 m4, bearings at x = 0, 30, 70 and 100 m.
//
// Closed forms (three-moment equation, symmetric girder, M_B = M_C = M):
// - case 1, q = 150 kN/m: M (2 (30 + 40) + 40) = -q (30^3 + 40^3) / 4, M = -18958.33 kNm over
//   the inner bearings; at the end-span middle (x = 15 m) R_A 15 - q 15^2 / 2 with R_A =
//   q 30 / 2 + M / 30 = 1618.06 kN: 7395.83 kNm; at the main-span middle q 40^2 / 8 + M =
//   11041.67 kNm.
// - case 3, a gradient of 5 degrees per metre, alpha = 1e-5: free curvature k = 5e-5 1/m, the
//   inner bearings restrain it with |M| = 3 EI k (30 + 40) / 180 = 9187.50 kNm, constant in the
//   main span and half of it at x = 15 m.
// - case 4, P = 600 kN at the main-span middle: M 180 = -P 20 20 (40 + 20) / 40, M = -2000 kNm;
//   at the middle P 40 / 4 + M = 4000 kNm; at x = 15 m M / 2 = -1000 kNm.
// - case 2, a uniform temperature rise of a girder free to expand: no moment anywhere.
//
// The governing moments are then summed by hand from the moments that the listing prints for
// the four cases, with the factors of the example: sorted 2 = 1.35 G + WORST (1.2 x 2, 1.2 x 3,
// 1.5 x 4), sorted 4 = 1.35 G + ADDIF (the same), and their envelope, line 1.
TEST(CombinationListing, ThreeSpanGoverningMomentsAgainstHandSums) {
    std::remove("three_span_combinations.lis");
    const RunResult r =
        RunKelo(SourcePath("examples/three_span_combinations.inp"), "three_span_combinations.inp");
    ASSERT_EQ(r.status, 0) << r.out << r.err;
    EXPECT_EQ(Count(r.out, "Status: Completed"), 1) << r.out;
    EXPECT_EQ(Count(r.out, "Unable to complete loadcombination!"), 0) << r.out;
    std::string lis;
    ASSERT_TRUE(ReadWholeFile("three_span_combinations.lis", lis));
    EXPECT_EQ(Count(lis, "\n"), Count(lis, "\r\n"));
    // The input listings come first, in the order of the orders.
    std::size_t at = 0;
    for (const char* title :
         {"Nodes\r\n", "Elements\r\n", "Loads\r\n", "Ordinary load combinations\r\n",
          "Sorted combinations\r\n", "Sorted combinations lines\r\n"}) {
        const std::size_t found = lis.find(title, at);
        ASSERT_NE(found, std::string::npos) << title;
        at = found;
    }
    const ResultListing res(lis);
    // The displacements of the characteristic combination in the axes of element 10 (L = -Y,
    // M = X, N = Z): the middle of the main span sinks along -N.
    EXPECT_EQ(Count(lis, " Node Comb       UL        UM        UN             RotL       RotM"
                         "       RotN El:10\r\n"),
              1);
    EXPECT_EQ(Count(lis, "\r\n   11    1     0.000     0.000   -"), 1) << lis;

    const double q = 150.0, L1 = 30.0, L2 = 40.0, P = 600.0;
    const double MB = -q * (L1 * L1 * L1 + L2 * L2 * L2) / (4 * (2 * (L1 + L2) + L2));
    const double RA = q * L1 / 2 + MB / L1;
    const double EIk = 35e6 * 4.5 * 5 * 1e-5;
    const double MT = 3 * EIk * (L1 + L2) / (2 * (L1 + L2) + L2);
    const double MP = -P * 20 * 20 * (L2 + 20) / L2 / (2 * (L1 + L2) + L2);
    EXPECT_NEAR(MB, -18958.33, 0.01);
    EXPECT_NEAR(MT, 9187.50, 0.01);
    EXPECT_NEAR(MP, -2000.0, 1e-9);

    const Section endSpan{4, 0.0}, support{7, 0.0}, mainSpan{10, 1.0};
    // Printed with two decimals: 0.005. A section takes the loads of its element as if it stood
    // 0.1 mm further along: its moment is off by up to 1e-4 m times the shear force there plus
    // the element's loads, q 5 m = 750 kN of self weight or the point load of 600 kN.
    const double offset = 1e-4 * (q * 5.0 + P);
    const auto near = [offset](const Values& v, double m) {
        return std::fabs(v[kBendL] - m) <= 0.006 + offset + 1e-4 * std::fabs(v[kShearN]);
    };
    EXPECT_TRUE(near(res.Case(endSpan, 1), RA * 15 - q * 15 * 15 / 2)) << res.Case(endSpan, 1)[3];
    EXPECT_TRUE(near(res.Case(support, 1), MB)) << res.Case(support, 1)[3];
    EXPECT_TRUE(near(res.Case(mainSpan, 1), q * L2 * L2 / 8 + MB)) << res.Case(mainSpan, 1)[3];
    for (const Section& s : {endSpan, support, mainSpan})
        EXPECT_NEAR(res.Case(s, 2)[kBendL], 0.0, 0.006);
    EXPECT_NEAR(std::fabs(res.Case(endSpan, 3)[kBendL]), MT / 2, 0.006);
    EXPECT_NEAR(std::fabs(res.Case(support, 3)[kBendL]), MT, 0.006);
    EXPECT_NEAR(std::fabs(res.Case(mainSpan, 3)[kBendL]), MT, 0.006);
    EXPECT_TRUE(near(res.Case(endSpan, 4), MP / 2)) << res.Case(endSpan, 4)[3];
    EXPECT_TRUE(near(res.Case(support, 4), MP)) << res.Case(support, 4)[3];
    EXPECT_TRUE(near(res.Case(mainSpan, 4), P * L2 / 4 + MP)) << res.Case(mainSpan, 4)[3];

    // The hand sums. Each printed case value is off by up to 0.005, so a sum of four factored
    // values (factors up to 1.5) by up to 0.03, and the printed combination by 0.005 more.
    const double tol = 0.04;
    const std::vector<Line> variable = {{2, 1.2}, {3, 1.2}, {4, 1.5}};
    for (const Section& s : {endSpan, support, mainSpan}) {
        const Values& g = res.Case(s, 1);
        const std::array<Values, 12>& sc2 = res.Sorted(2, s);
        const std::array<Values, 12>& sc4 = res.Sorted(4, s);
        const Values worstMax = Plus(WorstRow(res, s, variable, true), 1.35, g);
        const Values worstMin = Plus(WorstRow(res, s, variable, false), 1.35, g);
        const Values addIfMax = Plus(AddIfRow(res, s, variable, true), 1.35, g);
        const Values addIfMin = Plus(AddIfRow(res, s, variable, false), 1.35, g);
        // The governing moments and, in the same rows, their concurrent shear forces.
        for (const int k : {kBendL, kShearN}) {
            EXPECT_NEAR(sc2[kMLMax][k], worstMax[k], tol) << "SC 2 max, element " << s.first;
            EXPECT_NEAR(sc2[kMLMin][k], worstMin[k], tol) << "SC 2 min, element " << s.first;
            EXPECT_NEAR(sc4[kMLMax][k], addIfMax[k], tol) << "SC 4 max, element " << s.first;
            EXPECT_NEAR(sc4[kMLMin][k], addIfMin[k], tol) << "SC 4 min, element " << s.first;
        }
        // The envelope takes the greater maximum and the smaller minimum, and names the
        // combination it came from where the two differ by more than the printing.
        const auto key = std::make_tuple(1, s.first, s.second);
        ASSERT_EQ(res.lines.count(key), 1u) << "line 1, element " << s.first;
        const auto& env = res.lines.at(key);
        const auto& src = res.sources.at(key);
        EXPECT_NEAR(env[kMLMax][kBendL], std::max(worstMax[kBendL], addIfMax[kBendL]), tol);
        EXPECT_NEAR(env[kMLMin][kBendL], std::min(worstMin[kBendL], addIfMin[kBendL]), tol);
        if (std::fabs(worstMax[kBendL] - addIfMax[kBendL]) > 0.1) {
            EXPECT_EQ(src[kMLMax], worstMax[kBendL] > addIfMax[kBendL] ? 2 : 4);
        }
        if (std::fabs(worstMin[kBendL] - addIfMin[kBendL]) > 0.1) {
            EXPECT_EQ(src[kMLMin], worstMin[kBendL] < addIfMin[kBendL] ? 2 : 4);
        }
    }
    // The figures a designer reads: hogging over the bearing and sagging at the main-span middle,
    // 1.35 G plus the worst, and plus all unfavourable, variable actions. Over the bearing the
    // point load (1.5 x -2000) governs both; at the middle the gradient's 1.2 x 9187.5 governs
    // WORST and ADDIF adds the point load's 1.5 x 4000 to it. The factored offsets of the
    // sections stay below 0.3 kNm.
    const double G = 1.35;
    EXPECT_NEAR(res.Sorted(2, support)[kMLMin][kBendL], G * MB + 1.5 * MP, 0.3);
    EXPECT_NEAR(res.Sorted(4, support)[kMLMin][kBendL], G * MB + 1.5 * MP, 0.3);
    EXPECT_NEAR(res.Sorted(2, mainSpan)[kMLMax][kBendL], G * (q * L2 * L2 / 8 + MB) + 1.2 * MT,
                0.3);
    EXPECT_NEAR(res.Sorted(4, mainSpan)[kMLMax][kBendL],
                G * (q * L2 * L2 / 8 + MB) + 1.2 * MT + 1.5 * (P * L2 / 4 + MP), 0.3);
    EXPECT_EQ(res.sources.at({1, mainSpan.first, mainSpan.second})[kMLMax], 4);
    std::remove("three_span_combinations.lis");
}

// A simply supported beam of L = 4 m with one design section at x = 1 m (x/L = 0.25):
// case 1 q = 10 kN/m down: shear V = q (L/2 - x) = 10 kN, M = q x (L - x) / 2 = 15 kNm;
// case 2 P = 12 kN down at 3 m: V = R_A = P 1 / 4 = 3 kN, M = R_A x = 3 kNm.
// Shear N is the force of the part beyond on the part towards node 1 along +Z: -V.
// Sorted combination 1 is WORST of the two: row ML-Max takes case 1 (15 > 3), ML-Min case 2; row
// PN-Max case 2 (-3 > -10), PN-Min case 1. The components that are 0 in both tie: a maximum row
// goes to the later case (2), a minimum row stays with the first (1). The listing blocks are
// written out from their format strings. The reactions, listed with the values left at their
// defaults (all nodes and cases, node leading, number order), are the forces of the beam on its
// bearings: q L / 2 = 20 kN at both for case 1, P 1 / 4 = 3 and P 3 / 4 = 9 kN for case 2.
TEST(CombinationListing, WholeBlocksOfASmallGirderAsTheFormatsGiveThem) {
    const std::string text = R"(NODE 1 2 1 0 0 0 4 0 0
ELEM 1 1 1 1 2 1
SECTINS 1 1 30000 0.2 0.2 0.01 0.005 0.02
ELSPINS 1 1 1 1 3 ZDIR
BOUNDINS 1 1 1 1 1 1 1 0 0
BOUNDINS 2 2 1 0 1 1 0 0 0
DESGINS 1 1 1 0.25
LOAD 1 3 1 1 1 ZDIR -10 "Uniform"
LOAD 2 4 1 1 1 ZDIR -12 3 "Point"
SOLVE 1
SORTCOMB 1 LC ULS WORST 1 1.0 2 1.0 "Envelope"
CALCCOMB 2
OUTPUT 2 0 1 0 1 0 0 0 0 0 0 "lis"
OUTPUT 2 APPEND 1 3 0 0 0 0 0 0 0 "lis"
OUTPUT 2 APPEND 2 0 "lis"
)";
    {
        CTextWriter w;
        w.Open("source_small_girder.inp", false);
        w.Write(text);
    }
    std::remove("small_girder.lis");
    const RunResult r = RunKelo("source_small_girder.inp", "small_girder.inp");
    ASSERT_EQ(r.status, 0) << r.out << r.err;
    std::string lis;
    ASSERT_TRUE(ReadWholeFile("small_girder.lis", lis));
    // Load cases led by the case ("%5d%7.2f%5d%12.2f..." with the case first), then the sorted
    // combination ("%14s%5i%14s%5i%7s%5.2f" over rows of "%5i%3s%-12s%11.2f...").
    EXPECT_EQ(lis, "   Lc    X/L Elem       Axial     Shear L     Shear N   Bending L   Bending N"
                   "     Torsion\r\n"
                   "                         [kN]        [kN]        [kN]       [kNm]       [kNm]"
                   "       [kNm]\r\n"
                   "    1   0.25    1        0.00        0.00      -10.00       15.00        0.00"
                   "        0.00\r\n"
                   "\r\n"
                   "    2   0.25    1        0.00        0.00       -3.00        3.00        0.00"
                   "        0.00\r\n"
                   "Sort.   Row               Axial    Shear L    Shear N  Bending L  Bending N"
                   "    Torsion\r\n"
                   "                           [kN]       [kN]       [kN]      [kNm]      [kNm]"
                   "      [kNm]\r\n"
                   "Sort.Comb No:     1  Element No:     1, X/L:  0.25\r\n"
                   "    1   Max Shear-L        0.00       0.00      -3.00       3.00       0.00"
                   "       0.00\r\n"
                   "    1   Max Axial          0.00       0.00      -3.00       3.00       0.00"
                   "       0.00\r\n"
                   "    1   Max Shear-N        0.00       0.00      -3.00       3.00       0.00"
                   "       0.00\r\n"
                   "    1   Max Bend-L         0.00       0.00     -10.00      15.00       0.00"
                   "       0.00\r\n"
                   "    1   Max Torsion        0.00       0.00      -3.00       3.00       0.00"
                   "       0.00\r\n"
                   "    1   Max Bend-N         0.00       0.00      -3.00       3.00       0.00"
                   "       0.00\r\n"
                   "    1   Min Shear-L        0.00       0.00     -10.00      15.00       0.00"
                   "       0.00\r\n"
                   "    1   Min Axial          0.00       0.00     -10.00      15.00       0.00"
                   "       0.00\r\n"
                   "    1   Min Shear-N        0.00       0.00     -10.00      15.00       0.00"
                   "       0.00\r\n"
                   "    1   Min Bend-L         0.00       0.00      -3.00       3.00       0.00"
                   "       0.00\r\n"
                   "    1   Min Torsion        0.00       0.00     -10.00      15.00       0.00"
                   "       0.00\r\n"
                   "    1   Min Bend-N         0.00       0.00     -10.00      15.00       0.00"
                   "       0.00\r\n"
                   " Node   Lc          PX          PY          PZ          MX          MY"
                   "          MZ\r\n"
                   "                  [kN]        [kN]        [kN]       [kNm]       [kNm]"
                   "       [kNm]\r\n"
                   "    1    1        0.00        0.00      -20.00        0.00        0.00"
                   "        0.00\r\n"
                   "    1    2        0.00        0.00       -3.00        0.00        0.00"
                   "        0.00\r\n"
                   "\r\n"
                   "    2    1        0.00        0.00      -20.00        0.00        0.00"
                   "        0.00\r\n"
                   "    2    2        0.00        0.00       -9.00        0.00        0.00"
                   "        0.00\r\n");
    std::remove("small_girder.lis");
}
