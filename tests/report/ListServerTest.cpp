#include "report/ListServer.h"

#include "model/AnalysisRun.h"
#include "model/Structure.h"
#include "platform/Machine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

using namespace kelo;

namespace {

// A beam of two spans: node 1 fixed, node 2 on reference line 1, node 3 on rollers; element 2
// takes its section from the line and is released for bending at its far end. One load case
// and one combination of it.
std::unique_ptr<CStructure> SmallModel() {
    auto s = std::make_unique<CStructure>(2);
    auto* n1 = s->AddNode(std::make_unique<CNode>(1, 0.0, 0.0, 0.0));
    for (int i = 0; i < 6; ++i) n1->SetFix(i, 1);
    auto* n2 = s->AddNode(std::make_unique<CNode>(2, 5.0, 0.0, 0.0));
    n2->SetRefLineNo(1);
    n2->SetStationNo(105.0);
    n2->SetRefLineOffset(1, 0.5);
    n2->SetRefLineOffset(2, -0.25);
    auto* n3 = s->AddNode(std::make_unique<CNode>(3, 10.0, 0.0, 0.0));
    n3->SetFix(1, 1);
    n3->SetFix(2, 1);
    n3->SetFix(4, -1);
    s->AddElement(std::make_unique<CElement>(1, 1, 2, 0, 4));
    auto* e2 = s->AddElement(std::make_unique<CElement>(2, 2, 3, 0, 0));
    e2->SetAlpha(90.0);
    e2->SetJoint2(11.0);

    auto* lc = s->AddLoadcase(std::make_unique<CLoadcase>(1, "Self weight"));
    lc->AddLoad(std::make_unique<CLoad>(1, 1, 1, 3, -25.0, -25.0, 0.0, 0.0));
    lc->AddLoad(std::make_unique<CLoad>(1, 2, 1, 3, -25.0, -12.5, 0.0, 0.0));
    auto* comb = s->AddLoadcomb(std::make_unique<CLoadcomb>(7, "Ultimate", 1));
    comb->AddLoadfact(1, 1, 1.35);
    comb->AddLoadfact(1, 1, 0.15);
    return s;
}

std::string Listing(CListServer& server, int code) {
    std::string out;
    EXPECT_EQ(server.MakeListing(code, out), 1) << code;
    return out;
}

const char* const kWholeStructure = "Listing based on:\r\nEntire structure, (Default all):\r\n\r\n";

} // namespace

TEST(ListServer, NodeBoundaryAndMasterSlaveBlocks) {
    auto s = SmallModel();
    CListServer server(s.get());
    EXPECT_EQ(Listing(server, 201),
              std::string("Nodes\r\n=====\r\n\r\n") + kWholeStructure +
                  "Coordinates listed in global coordinate system\r\n\r\n"
                  "   Node         X         Y         Z  Refline     Station     Xoff     Yoff"
                  "     Zoff\r\n"
                  "              [m]       [m]       [m]                  [m]      [m]      [m]"
                  "      [m]\r\n"
                  "      1     0.000     0.000     0.000      N/A\r\n"
                  "      2     5.000     0.000     0.000       1     105.000    0.000    0.500"
                  "   -0.250\r\n"
                  "      3    10.000     0.000     0.000      N/A\r\n");
    // A slave freedom is neither free nor fixed: it shows as 0 beside the fixed ones.
    EXPECT_EQ(Listing(server, 203), std::string("Boundary conditions\r\n"
                                                "===================\r\n\r\n") +
                                        kWholeStructure +
                                        "          0 = free   1 = fixed\r\n\r\n"
                                        "   Node    Ux    Uy    Uz    Rx    Ry    Rz\r\n"
                                        "      1     1     1     1     1     1     1\r\n"
                                        "      3     0     1     1     0     0     0\r\n");
    EXPECT_EQ(Listing(server, 204), std::string("Master slave connections\r\n"
                                                "========================\r\n\r\n") +
                                        kWholeStructure +
                                        "   Slave   Master  \r\n"
                                        "      3      1  \r\n");
}

TEST(ListServer, ElementBlockWithReleasesAndSectionFromTheLine) {
    auto s = SmallModel();
    CListServer server(s.get());
    const std::string sp20(20, ' ');
    EXPECT_EQ(Listing(server, 210),
              std::string("Elements\r\n========\r\n\r\n") + kWholeStructure + std::string(56, ' ') +
                  "Released degrees of freedom\r\n" +
                  "  Elem  Node1  Node2   Length  Section  Node3  Alpha    End1" +
                  std::string(12, ' ') + "End2\r\n" + std::string(26, ' ') + "[m]" +
                  std::string(18, ' ') + "[deg]\r\n" +
                  "     1      1      2    5.000        4      0   0.00" + std::string(37, ' ') +
                  "\r\n" + "     2      2      3    5.000   By RfL      0  90.00" + sp20 + "MM MN" +
                  std::string(12, ' ') + "\r\n");
    // Element 2 runs against the stationing when node 3 stands before node 2 on the same line.
    s->GetNodePtr(3)->SetRefLineNo(1);
    s->GetNodePtr(3)->SetStationNo(100.0);
    server.SetInterval(2, 2, 1);
    const std::string only2 = Listing(server, 210);
    EXPECT_NE(
        only2.find("MM MN" + std::string(9, ' ') + " Warn.: M-axis opposite RFL-direction!   \r\n"),
        std::string::npos)
        << only2;
    EXPECT_EQ(only2.find("     1      1"), std::string::npos);
}

TEST(ListServer, LoadCaseAndCombinationBlocks) {
    auto s = SmallModel();
    CListServer server(s.get());
    EXPECT_EQ(Listing(server, 301), "Loads\r\n=====\r\n\r\n"
                                    "Load case:      1   Self weight\r\n"
                                    "  Elem  Type   Dir      Value1      Value2      Value3      "
                                    "Value4\r\n"
                                    "     1     1     3     -25.000     -25.000       0.000       "
                                    "0.000\r\n"
                                    "     2     1     3     -25.000     -12.500       0.000       "
                                    "0.000\r\n"
                                    "\r\n");
    // The two factors on case 1 were summed when the combination was made.
    EXPECT_EQ(Listing(server, 601), "Ordinary load combinations\r\n"
                                    "==========================\r\n\r\n"
                                    "Combination:     7  ULS   Ultimate\r\n"
                                    "        Code    No    Factor\r\n"
                                    "          LC     1     1.500\r\n"
                                    "\r\n");
}

TEST(ListServer, ModelsGroupsAndAnalysesBlocks) {
    auto s = SmallModel();
    auto* m = s->AddModel(std::make_unique<CModel>(2, "Span 1"));
    m->SetCode(1);
    m->AddElementNo(1);
    auto* g = s->AddCalcGroup(std::make_unique<CCalcGroup>(1, "Dead", 1));
    g->AddLoadNo(1);
    auto* a = s->AddAnalysis(std::make_unique<CAnalysis>(3, "Static"));
    a->SetModel(2);
    CListServer server(s.get());
    EXPECT_EQ(Listing(server, 501), "All model data\r\n==============\r\n\r\n"
                                    "MODEL NO.        : 2\r\n"
                                    "Model name       : Span 1\r\n"
                                    "Elements:\r\n"
                                    "      1\r\n"
                                    "Modifications    : 0\r\n"
                                    "\r\n");
    EXPECT_EQ(Listing(server, 510), "Calculation groups\r\n==================\r\n\r\n"
                                    "Calculation group:    1 Type:  1   Dead\r\n"
                                    "      1\r\n"
                                    "\r\n");
    EXPECT_EQ(Listing(server, 511), "Analyses\r\n========\r\n\r\n"
                                    "    No   Type  Model  First   Last  Setup Status  Name\r\n"
                                    "     3      1      2      1      1      0      0  Static\r\n");
}

TEST(ListServer, ModelHeaderOfARunAndOfTheWholeStructure) {
    auto s = SmallModel();
    CModel span(2, "Span 1");
    CModel whole(0, "All");
    CListServer server(s.get());
    server.SetType(2);
    std::string out = "x";
    // A model listing with no run to show says nothing.
    EXPECT_EQ(server.MakeListing(201, out), 0);
    EXPECT_EQ(out, "");
    out.clear();
    EXPECT_EQ(server.MakeModelHeader(out), 0);

    CAnalysis analysis(1, "Run");
    CAnalysisRun run(s.get(), &analysis, &span, nullptr);
    run.GetNodeList().Emplace(2, 5.0, 0.0, 0.0);
    server.SetFrame(&run);
    EXPECT_EQ(server.MakeModelHeader(out), 1);
    EXPECT_EQ(out, "Listing based on:\r\n"
                   "MODEL NO.        : 2\r\n"
                   "Model name       : Span 1                          \r\n"
                   "Detailed model contents\r\n"
                   "\r\n");
    // The node listing of a run walks the run's nodes, not the project's.
    const std::string nodes = Listing(server, 201);
    EXPECT_NE(nodes.find("      2     5.000     0.000     0.000      N/A\r\n"), std::string::npos);
    EXPECT_EQ(nodes.find("      1     0.000"), std::string::npos);

    CAnalysisRun all(s.get(), &analysis, &whole, nullptr);
    server.SetFrame(&all);
    out.clear();
    server.MakeModelHeader(out);
    EXPECT_EQ(out, kWholeStructure);
}

TEST(ListServer, IntervalsStepsAndTheCodesThatHonourThem) {
    CListServer server;
    server.SetInterval(-1, 0, 0);
    EXPECT_EQ(server.CheckInterval(-50), 1);
    server.SetInterval(-2, 0, 0);
    EXPECT_EQ(server.CheckInterval(123456), 1);
    server.SetInterval(10, 20, 3);
    EXPECT_EQ(server.CheckInterval(10), 1);
    EXPECT_EQ(server.CheckInterval(13), 1);
    EXPECT_EQ(server.CheckInterval(16), 1);
    EXPECT_EQ(server.CheckInterval(11), 0);
    EXPECT_EQ(server.CheckInterval(9), 0);
    EXPECT_EQ(server.CheckInterval(22), 0);
    server.SetInterval(10, 20, 0);
    EXPECT_EQ(server.CheckInterval(11), 1);
    EXPECT_EQ(server.CheckInterval(21), 0);

    for (int code : {201, 210, 211, 241, 401, 402, 403, 404, 405, 1101, 1102, 1103, 1107, 1109,
                     1112, 1113, 1114})
        EXPECT_EQ(CListServer::IntervalAvailable(code), 1) << code;
    for (int code : {203, 301, 406, 601, 1104, 1110})
        EXPECT_EQ(CListServer::IntervalAvailable(code), 0);

    // Nodes 1 and 3 of the small model by a step of 2.
    auto s = SmallModel();
    server.SetStructure(s.get());
    server.SetInterval(1, 3, 2);
    const std::string nodes = Listing(server, 201);
    EXPECT_NE(nodes.find("      1     0.000"), std::string::npos);
    EXPECT_EQ(nodes.find("      2     5.000"), std::string::npos);
    EXPECT_NE(nodes.find("      3    10.000"), std::string::npos);
}

TEST(ListServer, MenuGroupsItemsUnknownCodesAndProjectHeader) {
    CListServer server;
    std::string out = "x";
    EXPECT_EQ(server.MakeListing(201, out), 0);
    EXPECT_EQ(out, "");

    std::vector<CListMenuItem> items;
    server.ListAvailableGroup(items);
    ASSERT_EQ(items.size(), 9u);
    EXPECT_EQ(items[0].Label, "Materials and design data               ");
    EXPECT_EQ(items[0].Code, 100);
    EXPECT_EQ(items[7].Code, 1100);
    EXPECT_EQ(items[8].Label, "X Export alternatives                   ");

    server.ListAvailableItems(200, items);
    ASSERT_EQ(items.size(), 8u);
    EXPECT_EQ(items[0].Label, "Nodes");
    EXPECT_EQ(items[5].Label, "Element mass");
    EXPECT_EQ(items[7].Code, 241);
    server.SetType(2);
    server.ListAvailableItems(200, items);
    EXPECT_EQ(items[5].Label, "Model Element mass");
    // Group 800 is not shown but answers its items.
    server.ListAvailableItems(800, items);
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[2].Label, "Combination Tracer");

    auto s = SmallModel();
    s->SetProjectNo(42);
    s->SetName("Fjord crossing");
    CListServer listing(s.get());
    out = "x";
    EXPECT_EQ(listing.MakeListing(9999, out), 0);
    EXPECT_EQ(out, "");

    const FixedMachine machine(1u << 30, {2024, 3, 7, 9, 5, 30});
    SetMachine(&machine);
    listing.SetProjHeader(1);
    const std::string rule(72, '=');
    EXPECT_EQ(Listing(listing, 511),
              rule + "\r\n" +
                  "Project no.      : 42\r\n"
                  "Project name     : Fjord crossing\r\n"
                  "Listed           : 2024-03-07 09:05:30\r\n" +
                  rule + "\r\n\r\n" +
                  "Analyses\r\n========\r\n\r\n"
                  "    No   Type  Model  First   Last  Setup Status  Name\r\n");
    SetMachine(nullptr);

    out.clear();
    CListServer::MakeLine(out, 4, 0);
    CListServer::MakeLine(out, 3, 2);
    EXPECT_EQ(out, "----\r\n***\r\n");
}

namespace {

// A project with its default contents, built by commands as a command file would build it.
struct CommandModel {
    CStructure s{2};
    std::string log;
    explicit CommandModel(const std::string& text) {
        s.CreateDefaultContents(2, 0);
        std::string t = text;
        EXPECT_EQ(s.CommandConvert(&t, &log, 0), 0) << log;
    }
};

std::vector<std::string> SplitLines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t at = 0;
    for (std::size_t end; (end = text.find("\r\n", at)) != std::string::npos; at = end + 2)
        lines.push_back(text.substr(at, end - at));
    return lines;
}

} // namespace

// A beam of L = 4 m along X with N along +Z, E = 30000 MPa, A = 0.2 m2, IL = 0.01, IM (torsion)
// 0.005 and IN = 0.02 m4, Poisson 0.2 (G = E / 2.4). In local axes: EA/L = 1.5e6 kN/m on the
// axial freedoms (M), GIM/L = 15625 kNm on the twist, 12 EIN/L^3 = 112500 kN/m along L (bending
// about N), 12 EIL/L^3 = 56250 kN/m along N, 4 EIL/L = 3e5 and 4 EIN/L = 6e5 kNm on the
// rotations about L and N. Its axes: M = +X, N = +Z, L = M x N = -Y.
TEST(ListServer, ElementStiffnessInLocalAxesAndTheAxesOfEachElement) {
    CommandModel m("NODE 1 2 1 0 0 0 4 0 0\r\n"
                   "ELEM 1 1 1 1 2 1\r\n"
                   "SECTINS 1 1 30000 0.2 0.2 0.01 0.005 0.02\r\n"
                   "ELSPINS 1 1 1 1 3 ZDIR\r\n");
    CListServer server(&m.s);
    const std::string listing = Listing(server, 211);
    const std::vector<std::string> lines = SplitLines(listing);
    const auto at = std::find(lines.begin(), lines.end(), "Stiffness matrix - local axis:");
    ASSERT_NE(at, lines.end()) << listing;
    ASSERT_GE(lines.end() - at, 13);
    // The axial row in full: 12 values of "%15e".
    EXPECT_EQ(*(at + 2), "   0.000000e+00   1.500000e+06   0.000000e+00   0.000000e+00   "
                         "0.000000e+00   0.000000e+00   0.000000e+00  -1.500000e+06   "
                         "0.000000e+00   0.000000e+00   0.000000e+00   0.000000e+00");
    const double diagonal[6] = {112500.0, 1.5e6, 56250.0, 3e5, 15625.0, 6e5};
    for (int i = 0; i < 12; ++i) {
        double row[12] = {};
        ASSERT_EQ(std::sscanf((at + 1 + i)->c_str(),
                              "%le %le %le %le %le %le %le %le %le %le %le %le", &row[0], &row[1],
                              &row[2], &row[3], &row[4], &row[5], &row[6], &row[7], &row[8],
                              &row[9], &row[10], &row[11]),
                  12);
        EXPECT_NEAR(row[i], diagonal[i % 6], 1e-6 * diagonal[i % 6]) << "row " << i;
    }
    // Without the matrix the same listing has no such lines.
    EXPECT_EQ(Listing(server, 210).find("Stiffness"), std::string::npos);

    const std::string axes = Listing(server, 701);
    EXPECT_NE(axes.find("  Elem Axis         X         Y         Z\r\n"
                        "     1    L   0.00000  -1.00000   0.00000\r\n"
                        "     1    M   1.00000   0.00000   0.00000\r\n"
                        "     1    N   0.00000   0.00000   1.00000\r\n"),
              std::string::npos)
        << axes;
}

// A line of two straight grades, 10 m to 11 m over 50 m and back down over the next 50, and a
// key section at station 40 with three points given in mm.
TEST(ListServer, VerticalProfileAndKeySectionTables) {
    CommandModel m("REFLINE 1 1 \"Road\"\r\n"
                   "RFLHORI 1, 1, 1, 0, 0, 0, 100, 100, 0, 0, 0, 0\r\n"
                   "RFLVERT 1, 1, 1, 0, 10, 50, 11\r\n"
                   "RFLVERT 1, 2, 1, 50, 11, 100, 10\r\n"
                   "XSECT 1, 40, GENERAL, CONCR, 1, 1, 1, \"Mid\"\r\n"
                   "SECTPT 1, 40, 0, 1, 0, -3000, -2000\r\n"
                   "SECTPT 1, 40, 0, 2, 0, 3000, -2000\r\n"
                   "SECTPT 1, 40, 0, 3, 0, 0, 0\r\n");
    CListServer server(&m.s);
    EXPECT_EQ(Listing(server, 410), "Reference line geometry, NYLP\r\n"
                                    "=============================\r\n\r\n"
                                    "Reference line:     1   Road\r\n"
                                    "   Leg  Type     Station         Z     Grade      Radius\r\n"
                                    "                     [m]       [m]       [-]         [m]\r\n"
                                    "     1     1       0.000    10.000   0.02000         0.0\r\n"
                                    "     2     1      50.000    11.000  -0.02000         0.0\r\n"
                                    "   End           100.000    10.000  -0.02000\r\n"
                                    "\r\n");
    const std::string params = Listing(server, 422);
    EXPECT_NE(params.find("     1      40.000      0    13       1       1       1       1     "
                          "0.000  Mid\r\n"),
              std::string::npos)
        << params;
    const std::string connect = Listing(server, 423);
    EXPECT_NE(connect.find("     1      40.000      0     0.000     0.000        1       -1\r\n"),
              std::string::npos)
        << connect;
    const std::string points = Listing(server, 424);
    EXPECT_NE(points.find("Reference line:     1    Station:    40.000   Sect:    0   Mid\r\n"
                          "    Point  Type         x         y           X           Y           "
                          "Z\r\n"),
              std::string::npos)
        << points;
    EXPECT_NE(points.find("     1.00     0    -3.000    -2.000"), std::string::npos) << points;
    EXPECT_NE(points.find("     2.00     0     3.000    -2.000"), std::string::npos) << points;
}

// A simply supported beam of L = 4 m with one design section at x = 1 m: case 1 q = 10 kN/m down
// gives M = q x (L - x) / 2 = 15 kNm and shear N -q (L/2 - x) = -10 kN there; case 2, P = 12 kN
// down at 3 m, M = P x / 4 = 3 kNm and shear N -3 kN. Combination 2 is twice combination 1
// (1.35 x case 1) plus 1.5 x case 2: the tracer follows it down to 2.7 x case 1 and 1.5 x case 2.
// Sorted combination 1, WORST of the two cases, takes case 1 in row ML-Max and case 2 in ML-Min.
TEST(ListServer, ModelElementRecordsModalMassesAndTheCombinationTracer) {
    CommandModel m("NODE 1 2 1 0 0 0 4 0 0\r\n"
                   "ELEM 1 1 1 1 2 1\r\n"
                   "SECTINS 1 1 30000 0.2 0.2 0.01 0.005 0.02\r\n"
                   "ELSPINS 1 1 1 1 3 ZDIR\r\n"
                   "BOUNDINS 1 1 1 1 1 1 1 0 0\r\n"
                   "BOUNDINS 2 2 1 0 1 1 0 0 0\r\n"
                   "DESGINS 1 1 1 0.25\r\n"
                   "LOAD 1 3 1 1 1 ZDIR -10 \"Uniform\"\r\n"
                   "LOAD 2 4 1 1 1 ZDIR -12 3 \"Point\"\r\n"
                   "SOLVE 1\r\n"
                   "ORDCOMB 1 LC ULS 1 1.35 \"Dead\"\r\n"
                   "ORDCOMB 2 OC ULS 1 2.0 \"Twice\"\r\n"
                   "ORDCOMB 2 LC ULS 2 1.5\r\n"
                   "SORTCOMB 1 LC ULS WORST 1 1.0 2 1.0 \"Envelope\"\r\n"
                   "CALCCOMB -1\r\n");
    CListServer server(&m.s);
    // The run kept the element's section values for model 1.
    const std::string records = Listing(server, 503);
    EXPECT_NE(
        records.find("     1    0.20000   0.010000   0.005000   0.020000    30000       0.00"),
        std::string::npos)
        << records;

    const std::string tracer = Listing(server, 806);
    EXPECT_NE(tracer.find("Combination:     2  ULS   Twice\r\n"
                          "    Lc  Factor\r\n"
                          "     1   2.700     2   1.500\r\n"),
              std::string::npos)
        << tracer;
    EXPECT_NE(tracer.find("     1   0.25  ML-Max        15.00     1   1.000\r\n"),
              std::string::npos)
        << tracer;
    EXPECT_NE(tracer.find("     1   0.25  ML-Min         3.00     2   1.000\r\n"),
              std::string::npos);
    EXPECT_NE(tracer.find("     1   0.25  PN-Max        -3.00     2   1.000\r\n"),
              std::string::npos);
    EXPECT_NE(tracer.find("     1   0.25  PN-Min       -10.00     1   1.000\r\n"),
              std::string::npos);

    // Modes with no modal masses from their run show "-" in those columns.
    m.s.GetModelPtr(1)->GetEigenModeList().Add(std::make_unique<CModeRecord>(1, 2.5));
    const std::string masses = Listing(server, 722);
    EXPECT_NE(masses.find("     1     2.500         -         -         -         -         -"
                          "         -         -         -\r\n"),
              std::string::npos)
        << masses;
}
