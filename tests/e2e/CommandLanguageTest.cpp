#include "KeloRun.h"

#include <gtest/gtest.h>

using namespace kelo;
using namespace kelo::e2e;

// The example's values, worked out by hand: L = 3 * 32.5, H = 32.5 / 16,
// ANGLE = atan(1/16) in degrees, CHECK = 3^2 + sqrt(16) + 2^(3^2) = 9 + 4 + 512,
// TOTAL = 3 spans of 32.5, LAST = 3*10 + 2 from the last rounds of the two loops. A wrong value
// runs a misspelt keyword, which kelo reports.
TEST(CommandLanguageExample, DefinitionsExpressionsAndLoopsGiveTheHandValues) {
    const std::string check = "INPUT \"" + SourcePath("examples/first_steps.inp") +
                              "\"\n"
                              "IF L NE 97.5\nL_IS_WRONG\nENDIF\n"
                              "IF H NE 2.03125\nH_IS_WRONG\nENDIF\n"
                              "DIFF=ANGLE-3.5763343749973511\n"
                              "IF DIFF*DIFF GT 1e-20\nANGLE_IS_WRONG\nENDIF\n"
                              "IF CHECK NE 525\nCHECK_IS_WRONG\nENDIF\n"
                              "IF GAMMAC NE 1.5\nGAMMAC_IS_WRONG\nENDIF\n"
                              "IF TOTAL NE 97.5\nTOTAL_IS_WRONG\nENDIF\n"
                              "IF LAST NE 32\nLAST_IS_WRONG\nENDIF\n"
                              "IF LAST EQ 32\nALL_VALUES_RIGHT\nENDIF\n";
    {
        CTextWriter w;
        w.Open("first_steps_check.src", false);
        w.Write(check);
    }
    const RunResult r = RunKelo("first_steps_check.src", "first_steps_check.inp");
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(Count(r.out, "_IS_WRONG"), 0) << r.out;
    // The one deliberate unknown word proves that the checks ran at all.
    EXPECT_EQ(Count(r.out, "'ALL_VALUES_RIGHT' is not a valid command!"), 1) << r.out;

    const RunResult plain = RunKelo(SourcePath("examples/first_steps.inp"), "first_steps.inp");
    EXPECT_EQ(plain.status, 0);
    EXPECT_EQ(plain.out, "");
    EXPECT_EQ(plain.err, "");
}

TEST(CommandLanguageExample, FaultsAreReportedInEnglish) {
    const RunResult r = RunKelo(SourcePath("examples/command_faults.inp"), "faults_en.inp");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(Count(r.err, "\r\n*** Warning ***\r\n'BRIGDE' is not a valid command!\r\n"
                           "'BRIGDE 1 2 3'\r\n\r\n"),
              1)
        << r.err;
    EXPECT_EQ(Count(r.err, "\r\n*** Error ***\r\n'WIDTH++2' is not a valid value, alias or "
                           "expression!\r\n'DEPTH=WIDTH++2'\r\n\r\n"),
              1)
        << r.err;
    EXPECT_EQ(Count(r.err, "\r\n*** Error ***\r\nENDDO without matching DO!\r\n'ENDDO'\r\n\r\n"), 1)
        << r.err;
    EXPECT_EQ(Count(r.err, "***"), 6);
    // The log carries the same messages behind the line that caused them.
    EXPECT_EQ(Count(r.out, "BRIGDE 1 2 3\r\n*** Warning ***\r\n"), 1) << r.out;
    EXPECT_EQ(Count(r.out, "ENDDO\r\n*** Error ***\r\nENDDO without matching DO!\r\n"), 1);
}

TEST(CommandLanguageExample, FaultsAreReportedInNorwegian) {
    const RunResult r =
        RunKelo(SourcePath("examples/command_faults.inp"), "faults_no.inp", "--language no");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(Count(r.err, "\r\n*** Warning ***\r\n'BRIGDE' Ukjent kommando i kommandolinjen!\r\n"
                           "'BRIGDE 1 2 3'\r\n\r\n"),
              1)
        << r.err;
    EXPECT_EQ(Count(r.err, "\r\n*** Error ***\r\n'WIDTH++2' er ikke et gyldig verdi, alias eller "
                           "uttrykk!\r\n'DEPTH=WIDTH++2'\r\n\r\n"),
              1)
        << r.err;
    EXPECT_EQ(Count(r.err, "\r\n*** Error ***\r\nENDDO uten tilhørende DO!\r\n'ENDDO'\r\n\r\n"), 1)
        << r.err;
    EXPECT_EQ(Count(r.out, "is not"), 0); // no English words in a Norwegian run
}

TEST(KeloProgram, UsageAndUnreadableFiles) {
    const std::string kelo = KELO_BINARY;
    EXPECT_EQ(WEXITSTATUS(std::system((kelo + " >/dev/null 2>&1").c_str())), 2);
    EXPECT_EQ(WEXITSTATUS(std::system((kelo + " --help >/dev/null").c_str())), 0);
    EXPECT_EQ(WEXITSTATUS(std::system((kelo + " run no_such.inp 2>/dev/null").c_str())), 2);
    EXPECT_EQ(WEXITSTATUS(std::system((kelo + " run x.inp --code 99 2>/dev/null").c_str())), 2);
}
