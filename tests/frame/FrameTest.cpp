#include "frame/Frame.h"
#include "frame/ModeRes.h"
#include "frame/ModelElemRes.h"
#include "model/Analysis.h"
#include "model/AnalysisRun.h"
#include "model/Displace.h"
#include "model/Model.h"
#include "model/Structure.h"
#include "platform/Machine.h"
#include "platform/Sinks.h"
#include "store/MemResBase.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

using namespace kelo;

namespace {

// One run on nodes and elements put straight into its lists.
struct Bench {
    Bench() : s(2), analysis(1, "Test"), model(1, "Model"), run(&s, &analysis, &model, nullptr) {
        s.CreateDefaultContents(2, 0);
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
    // A beam along X of the section A 0.2 m2, IL 0.01, IM 0.005, IN 0.02 m4, E 30000 MPa, with N
    // along +Z.
    CElement* Beam(int no, int n1, int n2) {
        if (!s.GetRefLinePtr(0)->GetKeySectionPtr(1)) {
            std::string text = "SECTINS 1 1 30000 0.2 0.2 0.01 0.005 0.02\r\n";
            s.CommandConvert(&text, &log, 0);
        }
        CElement* e = Elem(no, n1, n2);
        e->SetSectionNo(1);
        e->SetSectionPtr(s.GetRefLinePtr(0)->GetKeySectionPtr(1));
        e->SetLocAxisCode(3);
        e->SetNDirCode(3);
        return e;
    }
    // A cantilever of `n` elements of 1 m along X fixed at node 1, with P = 50 kN down at its tip.
    void Cantilever(int n) {
        Node(1, 0, 0, 0, {1, 1, 1, 1, 1, 1});
        for (int i = 1; i <= n; ++i) {
            Node(i + 1, i, 0, 0);
            Beam(i, i, i + 1);
        }
        CLoadcase* lc = run.GetLoadcaseList().Add(std::make_unique<CLoadcase>(1, "Tip"));
        lc->AddLoad(std::make_unique<CLoad>(1, n, 4, 3, -50.0, 1.0, 0.0, 0.0));
    }
    double Uz(int node) const {
        CDisplace d;
        s.GetResBasePtr()->NodeDisplaceInBase(0, 0, 0, node, 1, 1, &d);
        return d.GetUz();
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

namespace {

// A machine of `bytes` of memory for one test.
struct Memory {
    explicit Memory(std::uint64_t bytes) : machine(bytes, {2024, 1, 1, 12, 0, 0}) {
        SetMachine(&machine);
    }
    ~Memory() { SetMachine(nullptr); }
    FixedMachine machine;
};

} // namespace

// Block sizes of a cantilever of 20 elements: 126 equations, band w = 12, one load case (L = 1).
// - 1 GB: every candidate exceeds the 126 equations, one block of 126.
// - 5000 bytes: A = 2000, B = 500, C = 400 hold the demands (404, 44.25 and 18); the smallest
//   candidate is (2A - w) / (4 (w + L) + 1) = 75.25, so 75 rounded up to whole nodes, 78, and two
//   blocks. Two blocks of 78 rows of 13 doubles (16 kB) don't fit 0.6 of 5000 bytes: the store
//   refuses them and the run fails.
// - 1000 bytes: the demand (2w + 6L + 1) w + 2L (w - 2) + w = 404 raises A to 1404, and A + B +
//   C = 1584 exceeds 0.6 P = 600.
TEST(FrameBlocks, BlockSizeFromTheMachinesMemory) {
    {
        Memory m(1ull << 30);
        Bench b;
        b.Cantilever(20);
        CFrame& f = b.Frame();
        int neq = 0, band = 0, S = 0, nBlocks = 0, nModes = 0;
        f.PrepareSystemInput(neq);
        ASSERT_EQ(f.PrepareAnalysis(neq, 20, band, S, nBlocks, nModes, 0), 1);
        EXPECT_EQ(neq, 126);
        EXPECT_EQ(band, 12);
        EXPECT_EQ(S, 126);
        EXPECT_EQ(nBlocks, 1);
    }
    {
        Memory m(5000);
        Bench b;
        b.Cantilever(20);
        CFrame& f = b.Frame();
        int neq = 0, band = 0, S = 0, nBlocks = 0, nModes = 0;
        f.PrepareSystemInput(neq);
        ASSERT_EQ(f.PrepareAnalysis(neq, 20, band, S, nBlocks, nModes, 0), 1);
        EXPECT_EQ(S, 78);
        EXPECT_EQ(nBlocks, 2);
        EXPECT_EQ(f.GetMaxBlocks(), 0);
        EXPECT_EQ(f.RunSystemAnalysis(), 0);
        EXPECT_NE(b.log.find("Too many blocks\r\n"), std::string::npos) << b.log;
        EXPECT_EQ(b.run.GetRunStatistics(2), 78);
        EXPECT_EQ(b.run.GetRunStatistics(3), 2);
    }
    {
        Memory m(1000);
        Bench b;
        b.Cantilever(20);
        EXPECT_EQ(b.Frame().RunSystemAnalysis(), 0);
        EXPECT_NE(b.log.find(std::string(CFrame::MessageText(41009)) + "\r\n"), std::string::npos)
            << b.log;
    }
    {
        // Wind and earthquake runs have no stiffness step: nothing is sized.
        Bench b;
        b.Cantilever(2);
        b.run.SetAnType(5);
        int band = -7, S = -7, nBlocks = -7, nModes = -7;
        EXPECT_EQ(b.Frame().PrepareAnalysis(18, 2, band, S, nBlocks, nModes, 0), 1);
        EXPECT_EQ(band, -7);
        EXPECT_EQ(S, -7);
        EXPECT_EQ(nBlocks, -7);
    }
    {
        // An eigenvalue run is never solved in one block: 18 equations make two of 9, and the
        // model gets one record per mode.
        Memory m(1ull << 30);
        Bench b;
        b.Cantilever(2);
        b.run.SetAnType(4);
        b.model.SetNoOfModes(3);
        int neq = 0, band = 0, S = 0, nBlocks = 0, nModes = 0;
        b.Frame().PrepareSystemInput(neq);
        ASSERT_EQ(b.Frame().PrepareAnalysis(neq, 2, band, S, nBlocks, nModes, 0), 1);
        EXPECT_EQ(nModes, 3);
        EXPECT_EQ(nBlocks, 2);
        EXPECT_EQ(S, 9);
        EXPECT_EQ(b.model.GetEigenModeList().GetCount(), 3u);
    }
}

// The system assembled in blocks of two nodes (12 equations, six blocks for a cantilever of ten
// elements) gives the same tip deflection as one block: P L^3 / 3EI with P = 50 kN, L = 10 m, EI
// = 3e5 kNm2.
TEST(FrameBlocks, ManyBlocksSolveAsOne) {
    Memory m(1ull << 30);
    Bench b;
    b.Cantilever(10);
    CFrame& f = b.Frame();
    int neq = 0, band = 0, S = 0, nBlocks = 0, nModes = 0;
    f.PrepareSystemInput(neq);
    ASSERT_EQ(f.PrepareAnalysis(neq, 10, band, S, nBlocks, nModes, 0), 1);
    ASSERT_EQ(neq, 66);
    ASSERT_EQ(f.MakeLoadMatrix(12, 6, 1), 1);
    ASSERT_EQ(f.AddStiffness(10, 1, band, 6, 12), 1);
    ASSERT_EQ(f.SolveEquations(neq, 1, band, 6, 12), 1);
    EXPECT_NEAR(b.Uz(11), -50.0 * 1000.0 / (3 * 3e5), 1e-12);
}

// Diagonal rules of the assembly, on two elements 1-2 and 2-3 along X with node 2 fixed in every
// freedom and a node 4 that no element uses. Node 2 gets the penalty from both elements, 2e20,
// brought back to 1e20; node 4 has nothing and gets 1e20 in all six; the axial diagonal of node
// 1 is the element's own EA/L = 3e7 * 0.2 / 5 = 1.2e6 kN/m. The load sums of the case are the
// applied forces: the 50 kN down.
TEST(FrameAssembly, DiagonalRules) {
    Memory m(1ull << 30);
    Bench b;
    b.Node(1, 0, 0, 0);
    b.Node(2, 5, 0, 0, {1, 1, 1, 1, 1, 1});
    b.Node(3, 10, 0, 0);
    b.Node(4, 20, 0, 0);
    b.Beam(1, 1, 2);
    b.Beam(2, 2, 3);
    CLoadcase* lc = b.run.GetLoadcaseList().Add(std::make_unique<CLoadcase>(1, "Point"));
    lc->AddLoad(std::make_unique<CLoad>(1, 2, 4, 3, -50.0, 2.0, 0.0, 0.0));
    CFrame& f = b.Frame();
    int neq = 0, band = 0, S = 0, nBlocks = 0, nModes = 0;
    f.PrepareSystemInput(neq);
    ASSERT_EQ(f.PrepareAnalysis(neq, 2, band, S, nBlocks, nModes, 0), 1);
    ASSERT_EQ(f.MakeLoadMatrix(S, nBlocks, 1), 1);
    ASSERT_EQ(f.AddStiffness(2, 1, band, nBlocks, S), 1);
    CBandSolver* solver = f.GetSolver();
    for (int i = 7; i <= 12; ++i) EXPECT_EQ(solver->GetStiffness(i, i), 1e20) << i;
    for (int i = 19; i <= 24; ++i) EXPECT_EQ(solver->GetStiffness(i, i), 1e20) << i;
    EXPECT_DOUBLE_EQ(solver->GetStiffness(1, 1), 1.2e6);
    EXPECT_DOUBLE_EQ(solver->GetStiffness(1, 7), -1.2e6);
    EXPECT_DOUBLE_EQ(lc->GetSumAppForces(2), -50.0);
    EXPECT_DOUBLE_EQ(lc->GetSumAppForces(0), 0.0);
}

// Outside batch mode a message is shown in a box of its kind as well as logged; in batch mode it
// only goes to the log.
TEST(FrameMessages, BoxOutsideBatchModeLogAlways) {
    struct Boxes : MessageSink {
        std::vector<std::pair<MsgKind, std::string>> shown;
        int Show(MsgKind kind, const std::string& text) override {
            shown.emplace_back(kind, text);
            return 1;
        }
    } boxes;
    Bench b;
    b.s.SetMessageSink(&boxes);
    const std::string extra = "Node no.: 7";
    b.run.SetBatch(1);
    b.Frame().DisplayMessage(3, 41003, &extra);
    EXPECT_TRUE(boxes.shown.empty());
    b.run.SetBatch(0);
    b.Frame().DisplayMessage(4, 41006, nullptr);
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown[0].first, MsgKind::Error);
    EXPECT_EQ(boxes.shown[0].second,
              "Error!\n\nSystem with no degrees of freedom! Run will be terminated!\r\n");
    EXPECT_EQ(b.log,
              "Warning!\n\nNegative Stiffness value on main diagonal!\r\nNode no.: 7\r\n"
              "Error!\n\nSystem with no degrees of freedom! Run will be terminated!\r\n\r\n");
    b.s.SetMessageSink(nullptr);
}

// Section forces of a dynamic load case from its modes. Both modes have the shape of the
// cantilever (L = 4 m, EI = 3e5 kNm2) under P = 50 kN down at the tip, uz = -P x^2 (3L - x) /
// 6EI and ry = P x (2L - x) / 2EI, whose root moment is -PL = -200 kNm. With amplitudes 2 and
// -1.5 the modes combine by the root of the sum of squares to 2.5 PL; a single mode keeps its
// sign, -2 PL. The run leaves one property record per element.
TEST(FrameSectionForces, ModesOfADynamicCaseCombineBySquareRootOfSquares) {
    for (const int lastMode : {2, 1}) {
        Bench b;
        b.run.SetAnType(5);
        b.Cantilever(2);
        b.run.GetElementList().Get(1)->GetDesignSectionList().Emplace(0.0, 0, 0);
        CLoadcase* lc = b.run.GetLoadcaseList().Get(1);
        lc->GetLoadList().RemoveAll();
        auto dyn = std::make_unique<CDynLoad>();
        dyn->SetFirstMode(1);
        dyn->SetLastMode(lastMode);
        lc->SetDynLoadPtr(std::move(dyn));
        CMemResBase* store = b.s.GetResBasePtr();
        const double P = 50, L = 2, EI = 3e5, amplitude[2] = {2.0, -1.5};
        for (int mode = 1; mode <= 2; ++mode) {
            auto res = std::make_shared<CModeRes>(mode, 1, amplitude[mode - 1]);
            store->LoadcaseModeResInBase(0, 5, 1, mode, 1, &res);
            for (int node = 1; node <= 3; ++node) {
                const double x = node - 1.0;
                CDisplace d(node, mode, 1, 0, 0, -P * x * x * (3 * L - x) / (6 * EI), 0,
                            P * x * (2 * L - x) / (2 * EI), 0);
                store->EigenModeDisplInBase(0, 5, 1, node, 1, mode, &d);
            }
        }
        CFrame& f = b.Frame();
        ASSERT_EQ(f.UpdateElementProperties(), 1);
        ASSERT_EQ(f.CalcSectionForces(), 1);
        int a = 0, c = 0;
        double forces[6] = {};
        ASSERT_EQ(store->SectionForceInBase(0, 0, 0, 1, 0.0, 1, 1, a, c, forces), 1);
        if (lastMode == 2)
            EXPECT_NEAR(forces[3], 2.5 * P * L, 1e-9);
        else
            EXPECT_NEAR(forces[3], -2.0 * P * L, 1e-9);
        std::shared_ptr<CModelElemRes> record;
        ASSERT_EQ(store->ModelElemResInBase(0, 0, 1, 2, &record), 1);
        EXPECT_DOUBLE_EQ(record->GetArea(), 0.2);
        EXPECT_DOUBLE_EQ(record->GetMomInertL(), 0.01);
        EXPECT_DOUBLE_EQ(record->GetYoungsModulus(), 30000.0);
    }
}
