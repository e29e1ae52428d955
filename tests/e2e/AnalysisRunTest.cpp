#include "KeloRun.h"

#include "model/Structure.h"
#include "store/MemResBase.h"

#include <gtest/gtest.h>

using namespace kelo;
using namespace kelo::e2e;

// The example reads without errors and its static analysis runs to the end: the statistics of
// the system stand in the log and the run is completed. The combinations that follow are not in
// this build and give a warning, which leaves kelo's exit status at 0.
//
// Load case 3 puts P = 500 kN down at a = 15 m in the first of two spans of L = 20 m (b = 5 m).
// Three-moment equation: the moment over the middle support is M = -P a b (L + a) / 4L^2 =
// -820.3125 kNm, so the far end of the second span is held down by -M/L = 41.016 kN and the first
// end carries P b / L + M / L = 83.984 kN. A reaction is the force of the structure on its
// support: -83.984 kN at node 1 and +41.016 kN at node 5.
TEST(AnalysisRunExample, StaticRunCompletes) {
    const RunResult r =
        RunKelo(SourcePath("examples/loads_and_analysis.inp"), "loads_and_analysis.inp");
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(Count(r.out, "*** Error ***"), 0) << r.out;
    EXPECT_EQ(Count(r.out, "\r\n\r\n***Analysis info***\r\n"
                           "Anaysis no.   1, Static\r\n"
                           "Model no.     1, Default All\r\n"
                           "Calc.gr no.   1, Permanent and variable\r\n"
                           "Type: Ordinary static.\r\n"
                           "Updating properties of all elements\r\n"
                           "Finished updating properties of all elements\r\n"
                           "Checking if model is complete\r\n"
                           "Finished checking model\r\n"
                           "Building system matrices!\r\n"
                           "Loadcase count:       3 \r\n"
                           "Block size:          30 \r\n"
                           "Block count:          1 \r\n"
                           "Band width:          12 \r\n"
                           "Eqation count:       30 \r\n"
                           "Calculating reaction forces!\r\n"
                           "Calculating section forces!\r\n"
                           "Status: Completed, Duration: "),
              1)
        << r.out;
    EXPECT_EQ(Count(r.out, "\r\nCurrent time:  "), 1) << r.out;
    EXPECT_EQ(Count(r.out, "Preparing ord. combinations"), 1) << r.out;

    CStructure s(2);
    s.CreateDefaultContents(2, 0);
    s.SetDocumentPath("loads_and_analysis.inp");
    std::string log;
    s.ReadCommandFile("loads_and_analysis.inp", &log, 0);
    const double P = 500, a = 15, b = 5, L = 20;
    const double M = -P * a * b * (L + a) / (4 * L * L);
    double reaction[6] = {};
    ASSERT_EQ(s.GetResBasePtr()->NodeReactionInBase(0, 0, 0, 1, 1, 3, reaction), 1);
    EXPECT_NEAR(reaction[2], -(P * b / L + M / L), 1e-9 * P);
    ASSERT_EQ(s.GetResBasePtr()->NodeReactionInBase(0, 0, 0, 5, 1, 3, reaction), 1);
    EXPECT_NEAR(reaction[2], -M / L, 1e-9 * P);

    // Combination 1 is 1.35 (case 1 + case 2) + 1.5 case 3, the factor of case 3 given in two
    // lines (1.35 + 0.15); its support reaction at node 1 is that sum of the case reactions.
    double r1[6] = {}, r2[6] = {}, comb[6] = {};
    ASSERT_EQ(s.GetResBasePtr()->NodeReactionInBase(0, 0, 0, 1, 1, 1, r1), 1);
    ASSERT_EQ(s.GetResBasePtr()->NodeReactionInBase(0, 0, 0, 1, 1, 2, r2), 1);
    ASSERT_EQ(s.GetResBasePtr()->NodeReactionInBase(0, 0, 0, 1, 2, 1, comb), 1);
    EXPECT_NEAR(comb[2], 1.35 * (r1[2] + r2[2]) + 1.5 * -(P * b / L + M / L), 1e-9 * P);
}
