#include "command/StructureCmd.h"
#include "model/Structure.h"
#include "platform/TextFile.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

using namespace kelo;

namespace {

struct CountingSink : MessageSink {
    int shown = 0;
    std::string last;
    int Show(MsgKind, const std::string& text) override {
        ++shown;
        last = text;
        return 1;
    }
};

// A project with its default contents and an error file, as the program makes it.
struct Project {
    explicit Project(int language = 2, const std::string& doc = "") : s(2) {
        s.GetStructureCmd()->SetLanguage(language);
        s.CreateDefaultContents(language, 0);
        if (!doc.empty()) {
            s.SetDocumentPath(doc);
            s.OpenErrFile(1);
        }
    }
    int Run(const std::string& text) {
        std::string t = text;
        return s.CommandConvert(&t, &log, 0);
    }
    double Alias(const std::string& name) {
        double v = 0.0;
        EXPECT_EQ(cmd().GetAliases().GetAlias(name, v), 1) << name;
        return v;
    }
    CStructureCmd& cmd() { return *s.GetStructureCmd(); }
    CStructure s;
    std::string log;
};

std::string WriteFile(const std::string& path, const std::string& text) {
    CTextWriter w;
    w.Open(path, false);
    w.Write(text);
    return path;
}

} // namespace

TEST(CommandValues, FieldsDefaultsSeparatorsAndText) {
    Project p;
    CStructureCmd& c = p.cmd();
    double v[6] = {-1, -2, -3, -4, -5, -6};
    std::string text;
    EXPECT_EQ(c.CommandValues("1,,3\r\n", v, 5, text, 0), 0);
    EXPECT_EQ(v[0], 1.0);
    EXPECT_EQ(v[1], -2.0); // an empty field keeps its default
    EXPECT_EQ(v[2], 3.0);

    double w[6] = {0, 0, 9, 0, 0, 0};
    EXPECT_EQ(c.CommandValues("1 , 2\r\n", w, 5, text, 0), 0);
    EXPECT_EQ(w[0], 1.0);
    EXPECT_EQ(w[1], 2.0);
    EXPECT_EQ(w[2], 9.0); // "1 , 2" is two fields, not three

    double q[4] = {0, 0, 0, 0};
    text.clear();
    EXPECT_EQ(c.CommandValues("7 \"Main girder\" 2*(3+4) ! comment 5\r\n", q, 3, text, 0), 0);
    EXPECT_EQ(q[0], 7.0);
    EXPECT_EQ(q[1], 14.0);
    EXPECT_EQ(q[2], 0.0);
    EXPECT_EQ(text, "Main girder");

    // Words after the last value become the text.
    double r[3] = {0, 0, 0};
    text.clear();
    EXPECT_EQ(c.CommandValues("1 2 Pier axis\r\n", r, 2, text, 0), 0);
    EXPECT_EQ(r[1], 2.0);
    EXPECT_EQ(text, "Pier axis");

    // "[" and "]" are for show only.
    double s[3] = {0, 0, 0};
    EXPECT_EQ(c.CommandValues("[1] [2]\r\n", s, 2, text, 0), 0);
    EXPECT_EQ(s[0] + s[1], 3.0);
}

TEST(CommandValues, FaultsAreReportedAndDropTheCommand) {
    Project p;
    CStructureCmd& c = p.cmd();
    double v[4] = {0, 0, 0, 0};
    std::string text;
    EXPECT_EQ(c.CommandValues("1 \"open\r\n", v, 3, text, 0), -2); // quotes not closed
    EXPECT_EQ(c.CommandValues("1 2\"x\"\r\n", v, 3, text, 0), -2); // quote behind a token
    EXPECT_EQ(c.CommandValues("1 ++2\r\n", v, 3, text, 0), -2);    // not a valid expression
    EXPECT_EQ(c.GetErrCount(), 3);
    // A value that is no finite number is refused as well, so that no command sees it.
    EXPECT_EQ(c.CommandValues("1 sqrt(0-1)\r\n", v, 3, text, 0), -2);
    EXPECT_EQ(c.CommandValues("1 1e999\r\n", v, 3, text, 0), -2);
    EXPECT_EQ(c.GetErrCount(), 5);
    EXPECT_EQ(p.Run("NODE 1 sqrt(0-1)\r\n"), -2);
    EXPECT_EQ(p.s.GetNodePtr(1), nullptr);
    EXPECT_NE(p.log.find("'sqrt(0-1)' is not a valid value, alias or expression!"),
              std::string::npos)
        << p.log;
}

TEST(Command, CommentsBlankLinesAndBannersStoreNothing) {
    Project p;
    for (const char* line :
         {"\r\n", "   ! only a comment\r\n", "% another\r\n", "*** Error ***\r\n"}) {
        std::string l = line;
        EXPECT_EQ(p.cmd().Command(l, &p.log, 0, 1), 0) << line;
    }
    EXPECT_EQ(p.s.GetASCIICommandList()->GetCount(), 0u);
    EXPECT_EQ(p.cmd().GetErrCount() + p.cmd().GetWarnCount(), 0);
}

TEST(Command, ContinuationJoinsLinesAndIsRecordedWhole) {
    Project p;
    std::string a = "ELEM 1 & comment\r\n", b = "2 3\r\n";
    EXPECT_EQ(p.cmd().Command(a, &p.log, 0, 1), 0);
    EXPECT_EQ(p.s.GetASCIICommandList()->GetCount(), 0u);
    p.cmd().Command(b, &p.log, 0, 1);
    EXPECT_EQ(p.s.GetASCIICommand(1002), "ELEM 1 2 3\r\n");

    // An "&" after a comment sign or inside quotes does not continue the line.
    std::string c = "REFLINE 1 \"A&B\"\r\n";
    p.cmd().Command(c, &p.log, 0, 1);
    std::string d = "REFLINE 2 ! x & y\r\n";
    p.cmd().Command(d, &p.log, 0, 1);
    EXPECT_EQ(p.s.GetASCIICommand(901), "REFLINE 1 \"A&B\"\r\nREFLINE 2 ! x & y\r\n");
}

TEST(Command, StoreKeepsOrderNumbersNotTypingOrder) {
    Project p;
    for (const char* text : {"ELEM 1 1 2\r\n", "NODE 1 0 0 0\r\n", "REFLINE 1\r\n", "X=3\r\n",
                             "SOLVE 1\r\n", "BRIDGE 2\r\n"}) {
        std::string line = text;
        p.cmd().Command(line, &p.log, 0, 1);
    }
    std::vector<int> orders;
    for (const CCommandString* c : *p.s.GetASCIICommandList())
        orders.push_back(c->GetCommandType());
    EXPECT_EQ(orders, (std::vector<int>{901, 1001, 1002, 2001}));
    EXPECT_EQ(p.s.GetASCIICommand(2001), "X=3\r\n");
    // Lines replayed from a text are not recorded.
    p.Run("NODE 2 1 0 0\n");
    EXPECT_EQ(p.s.GetASCIICommand(1001), "NODE 1 0 0 0\r\n");
}

TEST(Command, KeywordsAreCaseBlindAndUnknownWordsWarn) {
    Project p;
    EXPECT_EQ(p.cmd().GetCommandType("node 1"), 2);
    EXPECT_EQ(p.cmd().GetCommandType("  NodeIns,1"), 2);
    EXPECT_EQ(p.cmd().GetCommandType("NODEDEL 1"), -2);
    EXPECT_EQ(p.cmd().GetCommandType("BRIDGE 1"), -1);
    EXPECT_EQ(CStructureCmd::IsHelpCommand("POLY ?\r\n"), 1);
    EXPECT_EQ(CStructureCmd::IsHelpCommand("POLY 1 ! what?\r\n"), 0);
    EXPECT_EQ(p.cmd().GetCommandMap().size(), 151u); // retired keywords included
    EXPECT_EQ(p.Run("BRIDGE 1\n"), -1);
    EXPECT_NE(p.log.find("'BRIDGE' is not a valid command!"), std::string::npos);
    EXPECT_EQ(p.Run("nodedel 1\n"), -1);
    EXPECT_NE(p.log.find("'NODEDEL' is a retired command and is no longer read!"),
              std::string::npos);
}

TEST(Definitions, AliasesAreCaseBlindAndReservedNamesRefused) {
    Project p;
    p.Run("x=5\nSPAN=2*x+1\n");
    EXPECT_EQ(p.Alias("X"), 5.0);
    EXPECT_EQ(p.Alias("span"), 11.0);
    EXPECT_EQ(p.Run("ON=3\n"), -1); // a reserved alias
    EXPECT_EQ(p.Alias("ON"), 1.0);
    EXPECT_EQ(p.Run("A B=3\n"), -1); // a blank inside the name
    EXPECT_EQ(p.Run("Y=1++2\n"), -2);
    std::string listing;
    p.cmd().MakeUserAliasListing(listing);
    EXPECT_EQ(listing, "SPAN=11\r\nX=5\r\n");
    EXPECT_EQ(p.cmd().GetErrCount(), 1);
    EXPECT_EQ(p.cmd().GetWarnCount(), 2);
}

TEST(FlowControl, IfElseifElseWithTheSwappedOperatorsOfElseif) {
    Project p;
    p.Run("IF 3 LT 4\nA=1\nELSE\nA=2\nENDIF\n");
    EXPECT_EQ(p.Alias("A"), 1.0);
    // ELSEIF reads LT as "greater than".
    p.Run("IF 1 EQ 2\nB=1\nELSEIF 3 LT 4\nB=2\nELSEIF 5 LT 4\nB=3\nELSE\nB=4\nENDIF\n");
    EXPECT_EQ(p.Alias("B"), 3.0);
    // A taken branch skips every later branch.
    p.Run("IF 1 EQ 1\nC=1\nELSEIF 1 EQ 1\nC=2\nELSE\nC=3\nENDIF\n");
    EXPECT_EQ(p.Alias("C"), 1.0);
    // Unknown words in a skipped branch are not reported.
    p.Run("IF 1 GT 2\nBRIDGE 7\nENDIF\n");
    EXPECT_EQ(p.cmd().GetWarnCount(), 0);
    EXPECT_EQ(p.cmd().GetIfLevel(), -1);
    // A nested IF inside a skipped branch does not count: its ENDIF closes the outer block.
    p.Run("IF 1 EQ 2\nIF 1 EQ 1\nD=1\nENDIF\nD=2\n");
    EXPECT_EQ(p.cmd().GetIfLevel(), -1);
    EXPECT_EQ(p.Alias("D"), 2.0);
}

TEST(FlowControl, DoLoopsReplayTheirBodyAndNest) {
    Project p;
    p.Run("S=0\nDO I 1 3\nS=S+I\nENDDO\n");
    EXPECT_EQ(p.Alias("S"), 6.0);
    EXPECT_EQ(p.Alias("I"), 3.0); // the loop variable keeps its last value
    p.Run("N=0\nDO I 1 3\nDO J 1 I\nN=N+1\nENDDO\nENDDO\n");
    EXPECT_EQ(p.Alias("N"), 6.0); // 1 + 2 + 3 inner rounds
    p.Run("U=0\nDO K 5 1\nU=1\nENDDO\n");
    EXPECT_EQ(p.Alias("U"), 0.0); // first > last: no round
    p.Run("V=0\nDO K 1 0.5 -1\nV=1\nENDDO\n");
    EXPECT_EQ(p.Alias("V"), 0.0);
    // Nothing of a body is recorded in the command store.
    EXPECT_EQ(p.s.GetASCIICommandList()->GetCount(), 0u);
}

TEST(FlowControl, NeverEndingLoopsAndStrayBlocksAreRefused) {
    Project p;
    EXPECT_EQ(p.Run("DO I 1 5 0\nW=I\nENDDO\n"), -2);
    EXPECT_EQ(p.cmd().GetDoDepth(), -1);
    EXPECT_EQ(p.Run("ENDDO\n"), -2);
    EXPECT_NE(p.log.find("ENDDO without matching DO!"), std::string::npos);
    EXPECT_EQ(p.Run("ENDIF\n"), -2);
    EXPECT_EQ(p.Run("ELSE\n"), -2);
}

TEST(FlowControl, StopInALoopBodyRunsOneLineMore) {
    Project p;
    p.Run("DO I 1 1\nA=1\nSTOP\nB=2\nC=3\nENDDO\n");
    EXPECT_EQ(p.Alias("A"), 1.0);
    EXPECT_EQ(p.Alias("B"), 2.0);
    double v = 0;
    EXPECT_EQ(p.cmd().GetAliases().GetAlias("C", v), 0);
}

TEST(Input, IncludedFilesRunAndMissingOnesAreReported) {
    Project p(2, "input_test_doc.inp");
    WriteFile("input_test_inner.inp", "INNER=7\nSTOP\nAFTER=1\n");
    WriteFile("input_test_self.inp", "DEPTH=DEPTH+1\nINPUT \"input_test_self.inp\"\n");
    WriteFile("input_test_doc.inp", "INPUT \"input_test_inner.inp\"\nOUTER=INNER+1\n"
                                    "INPUT \"no_such_file.inp\"\nDEPTH=0\n"
                                    "INPUT \"input_test_self.inp\"\n");
    EXPECT_EQ(p.s.ReadCommandFile("input_test_doc.inp", &p.log, 0), 0);
    EXPECT_EQ(p.Alias("OUTER"), 8.0); // a STOP ends the included file only
    double v = 0;
    EXPECT_EQ(p.cmd().GetAliases().GetAlias("AFTER", v), 0);
    EXPECT_EQ(p.Alias("DEPTH"), CStructureCmd::kMaxInputDepth - 1.0);
    std::string err;
    p.s.LoadErrFileToString(&err);
    EXPECT_NE(err.find("Unable to locate, or open specified input file:"), std::string::npos);
    EXPECT_NE(err.find("no_such_file.inp"), std::string::npos);
    EXPECT_NE(err.find("nested deeper than 64 files"), std::string::npos);
    for (const char* f : {"input_test_inner.inp", "input_test_self.inp", "input_test_doc.inp",
                          "input_test_doc.err"})
        std::remove(f);
}

TEST(Messages, HeadersCountsDialogLimitAndErrorFile) {
    Project p(2, "messages_test.inp");
    CountingSink sink;
    p.s.SetMessageSink(&sink);
    for (int i = 0; i < 7; ++i) {
        std::string line = "BRIDGE 1\r\n";
        p.cmd().Command(line, &p.log, 1, 1);
    }
    EXPECT_EQ(sink.shown, 5); // MaxDialogs
    EXPECT_EQ(p.cmd().GetWarnCount(), 7);
    std::string err;
    p.s.LoadErrFileToString(&err);
    std::size_t count = 0;
    for (std::size_t at = err.find("*** Warning ***"); at != std::string::npos;
         at = err.find("*** Warning ***", at + 1))
        ++count;
    EXPECT_EQ(count, 7u);
    EXPECT_NE(
        err.find("\r\n*** Warning ***\r\n'BRIDGE' is not a valid command!\r\n'BRIDGE 1'\r\n\r\n"),
        std::string::npos);
    EXPECT_NE(err.find("Flere feilmeldinger vil ikke bli vist!"), std::string::npos);
    std::remove("messages_test.err");
}

TEST(Checks, StepCheckFillsDefaultsAndRefusesBadSteps) {
    Project p;
    CStructureCmd& c = p.cmd();
    double a[3] = {4, 0, 0};
    EXPECT_EQ(c.StepCheck(0, a, 0), 0);
    EXPECT_EQ(a[1], 4.0);
    EXPECT_EQ(a[2], 1.0);
    double b[3] = {1, 5, 0};
    EXPECT_EQ(c.StepCheck(0, b, 0), -2); // 3501
    double d[3] = {5, 1, 1};
    EXPECT_EQ(c.StepCheck(0, d, 0), -2); // 3500
    double e[3] = {1, 3, 5};
    EXPECT_EQ(c.StepCheck(0, e, 0), -1); // 2200
    const double up[3] = {1, 5, 2}, down[3] = {5, 1, -2}, none[3] = {1, 1, 0};
    EXPECT_TRUE(CStructureCmd::LessOrEqual(5, up));
    EXPECT_FALSE(CStructureCmd::LessOrEqual(6, up));
    EXPECT_TRUE(CStructureCmd::LessOrEqual(1, down));
    EXPECT_FALSE(CStructureCmd::LessOrEqual(0, down));
    EXPECT_FALSE(CStructureCmd::LessOrEqual(1, none));
}

TEST(Clear, AllGivesANewProjectAndResOnlyKeepsTheModel) {
    Project p;
    p.Run("Q=1\nREFLINE 4\n");
    p.s.AddNode(std::make_unique<CNode>(1, 0, 0, 0));
    p.Run("CLEAR RES\n");
    EXPECT_NE(p.s.GetNodePtr(1), nullptr);
    double v = 0;
    EXPECT_EQ(p.cmd().GetAliases().GetAlias("Q", v), 0);
    p.Run("CLEAR\n");
    EXPECT_EQ(p.s.GetNodePtr(1), nullptr);
    EXPECT_NE(p.s.GetRefLinePtr(0), nullptr);
    EXPECT_EQ(p.s.GetASCIICommandList()->GetCount(), 0u);
    EXPECT_EQ(p.Run("CLEAR 5\n"), -2);
}

TEST(FlowControl, LoopRoundsAreBoundedOverNestedLoops) {
    Project p;
    p.cmd().SetMaxLoopRounds(50);
    EXPECT_EQ(p.Run("M=0\nDO I 1 10\nDO J 1 10\nM=M+1\nENDDO\nENDDO\n"), -2);
    // 50 rounds in all, outer ones included: four outer rounds of 1 + 10, then 1 + 5.
    EXPECT_EQ(p.Alias("M"), 45.0);
    EXPECT_NE(p.log.find("more than 50 loop rounds!"), std::string::npos);
    EXPECT_EQ(p.cmd().GetDoDepth(), -1);
    // The budget is given anew to the next loop.
    EXPECT_EQ(p.Run("Z=0\nDO I 1 30\nZ=Z+1\nENDDO\n"), 0);
    EXPECT_EQ(p.Alias("Z"), 30.0);
}
