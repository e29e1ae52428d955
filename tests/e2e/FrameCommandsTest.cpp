#include "KeloRun.h"

#include <gtest/gtest.h>

using namespace kelo;
using namespace kelo::e2e;

namespace {

// One message of the error file: its header, its words and the line that caused it.
std::string Entry(const std::string& header, const std::string& words, const std::string& line) {
    return "\r\n*** " + header + " ***\r\n" + words + "\r\n'" + line + "'\r\n\r\n";
}

} // namespace

TEST(FrameFaultsExample, EachFaultIsReportedWithItsLineAndTheRunFails) {
    const RunResult r = RunKelo(SourcePath("examples/frame_faults.inp"), "frame_faults.inp");
    EXPECT_EQ(r.status, 1);
    const std::string expected[] = {
        Entry("Error", "Node number must be greater than 0!", "NODE 0 0 0 2 0 0"),
        Entry("Error", "Node 1 og node 2 for element are same node!", "ELEM 3 0 0 3 3"),
        Entry("Error", "Node number 9 is not defined!", "ELEM 3 0 0 3 9"),
        Entry("Warning", "Step value larger than interval!", "ELEM 3 4 2 1 3"),
        Entry("Error", "Illegal step value!", "NODE 10,14,,0,0,5,1"),
        Entry("Error",
              "Code =  222222 is not a valid joint code for end 2 (must be between 0 and 111111)!",
              "JOINT 1 0 0 0 222222"),
        Entry("Error", "Type =  7 is not a valid section type for elements!", "SECTINS 1 7"),
        Entry("Error", "Dir =  5 is not a valid direction!", "MASS 1 2 1 3 5 2.0"),
        Entry("Error", "Can not delete node already connected to element number 1!", "DELETE 1 1"),
        Entry("Error", "Code =  2 is not a valid model code (must be 1, -1, 3 or -3)!",
              "MODEL 2 2"),
    };
    // The messages stand in the order of the lines, and there are no others.
    std::string all;
    for (const std::string& e : expected) all += e;
    EXPECT_EQ(r.err, all);
    // The log gives each message behind the line that caused it.
    EXPECT_EQ(Count(r.out, "ELEM 3 0 0 3 9\r\n*** Error ***\r\nNode number 9 is not defined!\r\n"),
              1)
        << r.out;
    EXPECT_EQ(Count(r.out, "*** Error ***"), 9);
    EXPECT_EQ(Count(r.out, "*** Warning ***"), 1);
}

TEST(FrameFaultsExample, NorwegianWordsForTheSameFaults) {
    const RunResult r =
        RunKelo(SourcePath("examples/frame_faults.inp"), "frame_faults_no.inp", "--language no");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(
        Count(r.err, Entry("Error", "Knutepunkt nummer 9 er ikke definert!", "ELEM 3 0 0 3 9")), 1)
        << r.err;
    EXPECT_EQ(Count(r.err, Entry("Error",
                                 "Kan ikke slette knutepunkt som allerede er koblet til element "
                                 "nummer 1!",
                                 "DELETE 1 1")),
              1);
    EXPECT_EQ(
        Count(r.err, Entry("Warning", "Trinnverdien er større enn intervallet!", "ELEM 3 4 2 1 3")),
        1);
    EXPECT_EQ(Count(r.err, "***"), 20);
}

TEST(PortalFrameExample, ReadsWithoutAnyMessage) {
    const RunResult r = RunKelo(SourcePath("examples/portal_frame.inp"), "portal_frame.inp");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "");
}
