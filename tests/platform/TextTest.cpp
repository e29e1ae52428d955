#include "platform/Text.h"
#include "platform/TextFile.h"

#include <gtest/gtest.h>

#include <cstdio>

using namespace kelo;

TEST(Text, FormatAndCase) {
    EXPECT_EQ(Format("%5i|%-4s|%9.3f", 42, "ab", 1.5), "   42|ab  |    1.500");
    EXPECT_EQ(MakeUpper("Node x1æ"), "NODE X1æ");
    EXPECT_EQ(Trim(" \t a b \t"), "a b");
    EXPECT_EQ(TrimLeft("  a "), "a ");
    EXPECT_EQ(TrimRight("  a "), "  a");
    const std::string long1(300, 'x');
    EXPECT_EQ(Format("%s", long1.c_str()).size(), 300u);
}

TEST(Text, CutNameCountsCharactersNotBytes) {
    EXPECT_EQ(CutName("Brøndbybroen", 4), "Brøn");
    EXPECT_EQ(CharCount("Brøn"), 4u);
    EXPECT_EQ(CutName("abc", 30), "abc");
    EXPECT_EQ(CutName("æøå", 2), "æø");
}

TEST(TextFile, PathsResolveAgainstTheReadingFile) {
    EXPECT_EQ(ResolvePath("runs/v1.2/bridge.inp", "loads.inp"), "runs/v1.2/loads.inp");
    EXPECT_EQ(ResolvePath("bridge.inp", "loads.inp"), "loads.inp");
    EXPECT_EQ(ResolvePath("runs/bridge.inp", "/abs/x.inp"), "/abs/x.inp");
    EXPECT_EQ(StemOf("runs/v1.2/bridge.inp"), "runs/v1.2/bridge");
    EXPECT_EQ(StemOf("runs/v1.2/bridge.a.inp"), "runs/v1.2/bridge");
    EXPECT_EQ(StemOf("bridge"), "bridge");
}

TEST(TextFile, LinesKeepOrGainCrLf) {
    const std::string path = "textfile_test.tmp";
    {
        CTextWriter w;
        ASSERT_TRUE(w.Open(path, false));
        w.Write("one\r\ntwo\nthree");
    }
    {
        CTextWriter w;
        ASSERT_TRUE(w.Open(path, true));
        w.Write("\nfour\n");
    }
    CTextReader r(path);
    ASSERT_TRUE(r.IsOpen());
    std::string line;
    ASSERT_TRUE(r.ReadLineCrLf(line));
    EXPECT_EQ(line, "one\r\n");
    ASSERT_TRUE(r.ReadLine(line));
    EXPECT_EQ(line, "two");
    ASSERT_TRUE(r.ReadLine(line));
    EXPECT_EQ(line, "three");
    ASSERT_TRUE(r.ReadLine(line));
    EXPECT_EQ(line, "four");
    EXPECT_FALSE(r.ReadLine(line));
    std::remove(path.c_str());
    EXPECT_FALSE(CTextReader("no/such/file").IsOpen());
}

// A value that would print as a negative zero in its column is given as zero; anything that
// shows a digit keeps its sign.
TEST(Text, ListedValueDropsTheSignOfAPrintedZero) {
    EXPECT_EQ(Format("%.2f", ListedValue(-0.0, 2)), "0.00");
    EXPECT_EQ(Format("%.2f", ListedValue(-0.004, 2)), "0.00");
    EXPECT_EQ(Format("%.2f", ListedValue(-0.006, 2)), "-0.01");
    EXPECT_EQ(Format("%.3f", ListedValue(-0.0004, 3)), "0.000");
    EXPECT_EQ(Format("%.8f", ListedValue(-3e-9, 8)), "0.00000000");
    EXPECT_EQ(ListedValue(12.5, 1), 12.5);
}
