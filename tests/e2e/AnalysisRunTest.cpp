#include "KeloRun.h"

#include <gtest/gtest.h>

using namespace kelo;
using namespace kelo::e2e;

// The example reads without errors, and its analysis runs through the expansion of the model and
// the model check; the frame solver's stages are not in this build, so the run ends at its first
// stage with the stage named, and kelo reports the failed run with exit status 1.
TEST(AnalysisRunExample, RunGoesToTheFirstMissingStageAndFails) {
    const RunResult r =
        RunKelo(SourcePath("examples/loads_and_analysis.inp"), "loads_and_analysis.inp");
    EXPECT_EQ(r.status, 1) << r.out;
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
                           "Analysis stage not available: RunSystemAnalysis\r\n"
                           "Status: Failed!! , Duration: "),
              1)
        << r.out;
    EXPECT_EQ(Count(r.out, "\r\nCurrent time:  "), 1) << r.out;
    EXPECT_EQ(Count(r.out, "Status: Completed"), 0);
    EXPECT_EQ(Count(r.out, "Load combination is not available yet: ProsessOrdCombinations!"), 1)
        << r.out;
}
