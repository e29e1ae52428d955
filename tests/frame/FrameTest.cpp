#include "frame/Frame.h"
#include "model/Analysis.h"
#include "model/AnalysisRun.h"
#include "model/Model.h"
#include "model/Structure.h"
#include "platform/Machine.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using namespace kelo;

namespace {

// One run on nodes and elements put straight into its lists.
struct Bench {
    Bench() : s(2), analysis(1, "Test"), model(1, "Model"), run(&s, &analysis, &model, nullptr) {
        run.SetMemResBasePtr(s.GetResBasePtr());
        run.SetLog(&log, &log);
    }
    CNode* Node(int no, double x, double y, double z, std::vector<int> fix = {}) {
        auto n = std::make_unique<CNode>(no, x, y, z);
        for (std::size_t i = 0; i < fix.size(); ++i) n->SetFix(static_cast<int>(i), fix[i]);
        return run.GetNodeList().Add(std::move(n));
    }
    CElement* Elem(int no, int n1, int n2) {
        return run.GetElementList().Add(std::make_unique<CElement>(no, n1, n2, 0, 0));
    }
    CFrame& Frame() {
        run.UpdatePointers();
        if (!frame) frame = std::make_unique<CFrame>(run);
        return *frame;
    }
    std::vector<int> Order() const {
        std::vector<int> order;
        for (const CNode* n : run.GetNodeList()) order.push_back(n->GetNo());
        return order;
    }
    CStructure s;
    CAnalysis analysis;
    CModel model;
    CAnalysisRun run;
    std::string log;
    std::unique_ptr<CFrame> frame;
};

} // namespace

// Six equations to every active node that is not a slave, fixed freedoms too, in list order; a
// slave's row holds its links, and a node that is not active has no row.
TEST(FrameEquations, SixToAnActiveNodeNoneToASlaveOrAnInactiveNode) {
    Bench b;
    b.Node(1, 0, 0, 0, {1, 1, 1, 1, 1, 1});
    b.Node(2, 5, 0, 0);
    b.Node(3, 5, 1, 0, {-2, -2, -2, -2, -2, -2});
    b.Node(4, 9, 0, 0)->SetState(0);
    b.Node(5, 10, 0, 0);
    b.Elem(1, 1, 2);
    b.Elem(2, 2, 5);
    int neq = 0;
    ASSERT_EQ(b.Frame().PrepareSystemInput(neq), 1);
    EXPECT_EQ(neq, 18);
    const auto& eq = b.Frame().GetEquationTable();
    ASSERT_EQ(eq.size(), 4u);
    EXPECT_EQ(eq[0], (std::array<int, 6>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(eq[1], (std::array<int, 6>{7, 8, 9, 10, 11, 12}));
    EXPECT_EQ(eq[2], (std::array<int, 6>{-2, -2, -2, -2, -2, -2}));
    EXPECT_EQ(eq[3], (std::array<int, 6>{13, 14, 15, 16, 17, 18}));
    EXPECT_EQ(b.Frame().GetNodeRow(4), -1);
    EXPECT_EQ(b.Frame().GetNodeRow(5), 3);
}

// The chain of elements runs through the nodes p1 to p5 (numbers 1, 5, 2, 4, 3). Their band:
// in number order the element 1-5 spans 4 nodes, 30 equations; in X order (the chain's order)
// 12; in Y order the same as by number; in Z order (p1, p3, p2, p4, p5) 18. The last key that
// beats the number order is Z, although X gives the smaller band.
TEST(FrameNodeOrder, LastKeyThatBeatsTheStartingOrderWins) {
    Bench b;
    const int number[5] = {1, 5, 2, 4, 3};
    const double y[5] = {0, 4, 1, 3, 2};
    const double z[5] = {0, 2, 1, 3, 4};
    for (int i = 0; i < 5; ++i) b.Node(number[i], i, y[i], z[i]);
    for (int i = 0; i < 4; ++i) b.Elem(i + 1, number[i], number[i + 1]);
    CFrame& f = b.Frame();
    EXPECT_EQ(f.CalcBandWidth(), 30);
    f.SortNodesByCoord(1);
    EXPECT_EQ(f.CalcBandWidth(), 12);
    f.SortNodesByCoord(2);
    EXPECT_EQ(f.CalcBandWidth(), 30);
    f.SortNodesByCoord(0);

    f.FindOptimalNodeSort(1);
    EXPECT_EQ(b.Order(), (std::vector<int>{1, 2, 5, 4, 3}));
    EXPECT_EQ(f.CalcBandWidth(), 18);
    f.FindOptimalNodeSort(0);
    EXPECT_EQ(b.Order(), (std::vector<int>{1, 2, 3, 4, 5}));

    // A beam numbered along its axis: no order beats the numbers, and they stay.
    Bench line;
    for (int i = 1; i <= 4; ++i) line.Node(i, 3.0 * i, 0, 0);
    for (int i = 1; i <= 3; ++i) line.Elem(i, i, i + 1);
    line.Frame().FindOptimalNodeSort(1);
    EXPECT_EQ(line.Order(), (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(line.Frame().CalcBandWidth(), 12);

    // Equal coordinates keep the order they had.
    Bench ties;
    ties.Node(1, 1, 0, 0);
    ties.Node(2, 0, 0, 0);
    ties.Node(3, 1, 0, 0);
    ties.Node(4, 0, 0, 0);
    ties.Frame().SortNodesByCoord(1);
    EXPECT_EQ(ties.Order(), (std::vector<int>{2, 4, 1, 3}));
    // Nothing to number: no band.
    EXPECT_EQ(ties.Frame().CalcBandWidth(), -1);
}

// The lever expansion of a slave end must give the element the same energy and load work as the
// slave's own freedoms moved rigidly with the master: u_s = u_m + rot_m x (x_s - x_m).
TEST(FrameSlave, LeverExpansionKeepsEnergyAndWork) {
    Bench b;
    b.Node(1, 0, 0, 0);
    b.Node(2, 1.0, 2.0, 3.0, {-1, -1, -1, -1, -1, -1});
    b.Node(3, 6.0, -1.0, 0.5);
    b.Elem(1, 2, 3);
    CFrame& f = b.Frame();
    int neq = 0;
    f.PrepareSystemInput(neq);
    ASSERT_EQ(neq, 12);

    // A symmetric 12 by 12 matrix and a load vector with no pattern to them.
    double k[24][24] = {};
    double load[24] = {};
    for (int i = 0; i < 12; ++i) {
        load[i] = 0.3 * i - 1.7;
        for (int j = 0; j <= i; ++j)
            k[i][j] = k[j][i] = std::sin(1.0 + i * 13 + j * 7) + (i == j ? 9 : 0);
    }
    double k0[12][12];
    for (int i = 0; i < 12; ++i)
        for (int j = 0; j < 12; ++j) k0[i][j] = k[i][j];
    const double f0[12] = {load[0], load[1], load[2], load[3], load[4],  load[5],
                           load[6], load[7], load[8], load[9], load[10], load[11]};

    int lm[24] = {-1, -1, -1, -1, -1, -1, 7, 8, 9, 10, 11, 12};
    int size = 12;
    EXPECT_EQ(f.Slave(lm, f.GetNodeRow(2), -1, k, load, nullptr, &size), 1);
    // The slave's translations are the master's, each with two lever rotations behind.
    ASSERT_EQ(size, 18);
    EXPECT_EQ(std::vector<int>(lm, lm + 18),
              (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 6, 5, 4, 6, 5, 4}));

    // Global displacements: master (equations 1 to 6) and node 3 (7 to 12).
    const double q[13] = {0,   0.01, -0.02, 0.03, 0.004, -0.005, 0.006,
                          0.1, 0.2,  -0.3,  0.04, 0.05,  -0.06};
    const double dx = 1.0, dy = 2.0, dz = 3.0;
    const double ux = q[1], uy = q[2], uz = q[3], rx = q[4], ry = q[5], rz = q[6];
    double d[12] = {
        ux + dz * ry - dy * rz, uy - dz * rx + dx * rz, uz + dy * rx - dx * ry, rx, ry, rz};
    for (int i = 6; i < 12; ++i) d[i] = q[i + 1];
    double energy = 0.0, work = 0.0;
    for (int i = 0; i < 12; ++i) {
        work += f0[i] * d[i];
        for (int j = 0; j < 12; ++j) energy += d[i] * k0[i][j] * d[j];
    }
    double energy2 = 0.0, work2 = 0.0;
    for (int i = 0; i < size; ++i) {
        work2 += load[i] * q[lm[i]];
        for (int j = 0; j < size; ++j) energy2 += q[lm[i]] * k[i][j] * q[lm[j]];
    }
    EXPECT_NEAR(energy2, energy, 1e-12 * std::fabs(energy));
    EXPECT_NEAR(work2, work, 1e-12 * std::fabs(work));
}

// Segments of a T: the arm 1-2, and from the branch node 2 the stems 2-3 and 2-4. By X of their
// centres (0.5, 1.5, 1.0) the order is 1-2, 2-4, 2-3; walking each from its start node and moving
// every node to the head of the list leaves 3, 2, 4, 1.
TEST(FrameNodeOrder, SegmentsOrderedByCentreAndWalked) {
    Bench b;
    b.Node(1, 0, 0, 0);
    b.Node(2, 1, 0, 0);
    b.Node(3, 2, 0, 0);
    b.Node(4, 1, 1, 0);
    b.Elem(1, 1, 2);
    b.Elem(2, 2, 3);
    b.Elem(3, 2, 4);
    CFrame& f = b.Frame();
    ASSERT_EQ(f.SortSegments(1), 1);
    ASSERT_EQ(f.GetSegments().size(), 3u);
    EXPECT_EQ(f.GetSegments()[0].Nodes, (std::vector<int>{1, 2}));
    EXPECT_EQ(f.GetSegments()[1].Nodes, (std::vector<int>{2, 4}));
    EXPECT_EQ(f.GetSegments()[2].Nodes, (std::vector<int>{2, 3}));
    ASSERT_EQ(f.SortNodesFromSegments(), 1);
    EXPECT_EQ(b.Order(), (std::vector<int>{3, 2, 4, 1}));

    // A chain through nodes of two elements each is one segment from end to end.
    Bench chain;
    for (int i = 1; i <= 4; ++i) chain.Node(i, i, 0, 0);
    for (int i = 1; i <= 3; ++i) chain.Elem(i, i, i + 1);
    ASSERT_EQ(chain.Frame().SortNodes(3), 1);
    ASSERT_EQ(chain.Frame().GetSegments().size(), 1u);
    EXPECT_EQ(chain.Frame().GetSegments()[0].Nodes, (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(chain.Order(), (std::vector<int>{4, 3, 2, 1}));
}
