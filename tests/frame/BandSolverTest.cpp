#include "frame/BandSolver.h"
#include "frame/SolverSink.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <utility>
#include <vector>

using namespace kelo;

// The address sanitizer aborts on a request beyond its heap instead of failing it.
#if defined(__SANITIZE_ADDRESS__)
#define KELO_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KELO_ASAN 1
#endif
#endif

namespace {

struct Recorder : SolverSink {
    struct Msg {
        int kind, id;
        std::string extra;
    };
    std::vector<Msg> msgs;
    std::vector<std::string> status;
    void Message(int kind, int id, const std::string& extra) override {
        msgs.push_back({kind, id, extra});
    }
    void Status(const std::string& text) override { status.push_back(text); }
};

// Full symmetric matrix, row-major.
struct Dense {
    int n;
    std::vector<double> a;
    explicit Dense(int size) : n(size), a(static_cast<std::size_t>(size) * size, 0.0) {}
    double& operator()(int i, int j) { return a[static_cast<std::size_t>(i) * n + j]; }
    void Sym(int i, int j, double v) { (*this)(i, j) = (*this)(j, i) = v; }
};

// Gaussian elimination with row exchanges on the full matrix; f holds n rows of nLoad.
std::vector<double> DenseSolve(Dense k, std::vector<double> f, int nLoad) {
    const int n = k.n;
    for (int c = 0; c < n; ++c) {
        int piv = c;
        for (int r = c + 1; r < n; ++r)
            if (std::fabs(k(r, c)) > std::fabs(k(piv, c))) piv = r;
        for (int j = 0; j < n; ++j) std::swap(k(c, j), k(piv, j));
        for (int l = 0; l < nLoad; ++l) std::swap(f[c * nLoad + l], f[piv * nLoad + l]);
        for (int r = c + 1; r < n; ++r) {
            const double m = k(r, c) / k(c, c);
            for (int j = c; j < n; ++j) k(r, j) -= m * k(c, j);
            for (int l = 0; l < nLoad; ++l) f[r * nLoad + l] -= m * f[c * nLoad + l];
        }
    }
    for (int r = n - 1; r >= 0; --r)
        for (int l = 0; l < nLoad; ++l) {
            double s = f[r * nLoad + l];
            for (int j = r + 1; j < n; ++j) s -= k(r, j) * f[j * nLoad + l];
            f[r * nLoad + l] = s / k(r, r);
        }
    return f;
}

// A diagonally dominant banded matrix; with `profile` each column starts at a random row inside
// the band, as the columns of a frame's stiffness do.
Dense RandomBand(int n, int band, bool profile, std::mt19937& gen) {
    std::uniform_real_distribution<double> d(-1.0, 1.0);
    Dense k(n);
    for (int j = 0; j < n; ++j) {
        const int lowest = std::max(0, j - band + 1);
        const int top = profile ? std::uniform_int_distribution<int>(lowest, j)(gen) : lowest;
        for (int i = top; i < j; ++i) k.Sym(i, j, d(gen));
    }
    for (int i = 0; i < n; ++i) {
        double s = 1.0;
        for (int j = 0; j < n; ++j)
            if (j != i) s += std::fabs(k(i, j));
        k(i, i) = s;
    }
    return k;
}

// Hands the system over block by block as the assembly does: stiffness columns, then load
// columns. Padding rows of the last block carry the 1e20 diagonal of an unstiffened freedom.
void LoadByBlocks(CBandSolver& s, Dense& k, const std::vector<double>& f, int nLoad) {
    const int n = k.n, band = s.GetBand(), size = s.GetBlockSize();
    std::vector<double> col(size);
    for (int b = 0; b < s.GetNBlocks(); ++b) {
        for (int c = 1; c <= band + nLoad; ++c) {
            for (int r = 0; r < size; ++r) {
                const int i = b * size + r, j = i + c - 1;
                if (c > band)
                    col[r] = i < n ? f[i * nLoad + (c - band - 1)] : 0.0;
                else if (i >= n)
                    col[r] = c == 1 ? 1e20 : 0.0;
                else
                    col[r] = j < n ? k(i, j) : 0.0;
            }
            ASSERT_EQ(s.SetBlockColumn(b + 1, c, col.data()), 1);
        }
    }
}

void LoadByTerms(CBandSolver& s, Dense& k, const std::vector<double>& f, int nLoad) {
    for (int i = 0; i < k.n; ++i) {
        for (int j = i; j < k.n; ++j)
            if (k(i, j) != 0.0) {
                ASSERT_EQ(s.AddStiffness(j + 1, i + 1, k(i, j)), 1);
            }
        for (int l = 0; l < nLoad; ++l) ASSERT_EQ(s.AddLoad(i + 1, l + 1, f[i * nLoad + l]), 1);
    }
}

double MaxError(const CBandSolver& s, const std::vector<double>& x, int n, int nLoad) {
    double err = 0.0, size = 0.0;
    for (int i = 0; i < n; ++i)
        for (int l = 0; l < nLoad; ++l) {
            // The system holds restraint forces: the displacement is minus the solution.
            err = std::max(err, std::fabs(s.GetDisplacement(i + 1, l + 1) + x[i * nLoad + l]));
            size = std::max(size, std::fabs(x[i * nLoad + l]));
        }
    return err / size;
}

} // namespace

TEST(BandSolver, BandedSystemsAgreeWithADenseSolve) {
    struct Case {
        int n, band, block, nLoad, panel;
        bool profile, byBlocks;
    };
    const Case cases[] = {
        {20, 4, 20, 1, 0, false, true},    // one block
        {50, 5, 6, 3, 0, true, true},      // nine blocks, the last with four padding rows
        {30, 2, 7, 2, 0, false, true},     // band 2
        {40, 8, 8, 2, 0, true, true},      // band = block size
        {45, 13, 6, 4, 0, true, true},     // band over two blocks
        {12, 1, 5, 2, 0, false, false},    // diagonal only
        {300, 40, 100, 3, 8, true, false}, // tile products, panels inside blocks
        {300, 40, 100, 3, 0, false, true}, // tile products, panels cut by block ends
        {257, 70, 257, 5, 16, true, false},
        {90, 50, 30, 2, 7, false, false}, // panels and band wider than a block
    };
    std::mt19937 gen(11);
    // Each case with the processor's vector kernels, where it has them, and with the plain ones.
    for (int pass = 0; pass < 2; ++pass)
        for (const Case& c : cases) {
            CBandSolver::UseVectorKernels(pass == 0);
            SCOPED_TRACE(testing::Message() << "n " << c.n << " band " << c.band << " block "
                                            << c.block << " panel " << c.panel << " pass " << pass);
            Dense k = RandomBand(c.n, c.band, c.profile, gen);
            std::vector<double> f(static_cast<std::size_t>(c.n) * c.nLoad);
            std::uniform_real_distribution<double> d(-10.0, 10.0);
            for (double& v : f) v = d(gen);
            Recorder rec;
            CBandSolver s;
            ASSERT_EQ(s.Init(c.n, c.nLoad, c.band, c.block, &rec), 1);
            EXPECT_EQ(s.GetNBlocks(), (c.n + c.block - 1) / c.block);
            s.SetPanelRows(c.panel);
            if (c.byBlocks)
                LoadByBlocks(s, k, f, c.nLoad);
            else
                LoadByTerms(s, k, f, c.nLoad);
            ASSERT_EQ(s.SolveEquations(), 1);
            EXPECT_LT(MaxError(s, DenseSolve(k, f, c.nLoad), c.n, c.nLoad), 1e-12);
            EXPECT_TRUE(rec.msgs.empty());
            ASSERT_EQ(rec.status.size(), static_cast<std::size_t>(s.GetNBlocks()));
            EXPECT_EQ(rec.status.back(), "Solving block  " + std::to_string(s.GetNBlocks()) +
                                             " of  " + std::to_string(s.GetNBlocks()));
        }
    CBandSolver::UseVectorKernels(true);
}

TEST(BandSolver, AMechanismEndsTheSolveNamingTheNodeAtEquationPlusOneOverSix) {
    // Equations 4 and 5 tied by a rigid pair: the pivot of 5 is exactly 2 - 2 * 2 / 2 = 0.
    for (int block : {12, 3}) {
        Recorder rec;
        CBandSolver s;
        ASSERT_EQ(s.Init(12, 1, 2, block, &rec), 1);
        s.SetNodeNumbers({10, 20});
        for (int eq = 1; eq <= 12; ++eq) s.SetStiffness(eq, eq, 2.0);
        s.SetStiffness(4, 5, 2.0);
        s.AddLoad(12, 1, 1.0);
        EXPECT_EQ(s.SolveEquations(), 0);
        ASSERT_EQ(rec.msgs.size(), 1u);
        EXPECT_EQ(rec.msgs[0].kind, 3);
        EXPECT_EQ(rec.msgs[0].id, 41003);
        // Equation 5 belongs to node 10, but (5 + 1) / 6 is entry 1 of the table.
        EXPECT_EQ(rec.msgs[0].extra, "Node no.: 20");
        EXPECT_EQ(s.GetDisplacement(12, 1), 0.0);
        // The system is used up: a second solve cannot reach it.
        EXPECT_EQ(s.SolveEquations(), 0);
        EXPECT_EQ(rec.msgs.back().kind, 4);
        EXPECT_EQ(rec.msgs.back().id, 41001);
    }
}

TEST(BandSolver, NegativePivotsWarnFiveTimesAndTheSolveGoesOn) {
    // Tridiagonal with diagonal -4 on the first six equations: six negative pivots.
    const int n = 9;
    Dense k(n);
    for (int i = 0; i < n; ++i) k(i, i) = i < 6 ? -4.0 : 4.0;
    for (int i = 0; i + 1 < n; ++i) k.Sym(i, i + 1, 1.0);
    std::vector<double> f(n);
    for (int i = 0; i < n; ++i) f[i] = i + 1.0;
    Recorder rec;
    CBandSolver s;
    ASSERT_EQ(s.Init(n, 1, 2, 4, &rec), 1);
    LoadByTerms(s, k, f, 1);
    ASSERT_EQ(s.SolveEquations(), 1);
    EXPECT_EQ(s.GetNegativePivots(), 6);
    ASSERT_EQ(rec.msgs.size(), 5u);
    // Equations 1 to 4 give entry 0 (node 1), equation 5 entry 1 (node 2).
    const char* nodes[] = {"Node no.: 1", "Node no.: 1", "Node no.: 1", "Node no.: 1",
                           "Node no.: 0"};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(rec.msgs[i].kind, 3);
        EXPECT_EQ(rec.msgs[i].id, 41003);
    }
    // The default node table holds neq / 6 = 1 entry; entry 1 lies beyond it.
    for (int i = 0; i < 5; ++i) EXPECT_EQ(rec.msgs[i].extra, nodes[i]) << i;
    EXPECT_LT(MaxError(s, DenseSolve(k, f, 1), n, 1), 1e-12);

    // After five warnings a mechanism ends the solve in silence.
    Recorder rec2;
    CBandSolver t;
    ASSERT_EQ(t.Init(7, 1, 2, 7, &rec2), 1);
    for (int eq = 1; eq <= 5; ++eq) t.SetStiffness(eq, eq, -1.0);
    t.SetStiffness(6, 6, 1.0);
    t.SetStiffness(6, 7, 1.0);
    t.SetStiffness(7, 7, 1.0);
    EXPECT_EQ(t.SolveEquations(), 0);
    EXPECT_EQ(rec2.msgs.size(), 5u);
}

TEST(BandSolver, OneEquation) {
    struct Case {
        double k;
        int result;
        std::size_t messages;
    };
    // A tiny negative pivot is only warned about; a tiny positive one is a mechanism.
    const Case cases[] = {{4.0, 1, 0}, {-2.0, 1, 1}, {0.0, 0, 1}, {-1e-50, 1, 1}, {1e-50, 0, 1}};
    for (const Case& c : cases) {
        Recorder rec;
        CBandSolver s;
        ASSERT_EQ(s.Init(1, 2, 1, 1, &rec), 1);
        s.SetStiffness(1, 1, c.k);
        s.AddLoad(1, 1, 2.0);
        s.AddLoad(1, 2, -8.0);
        EXPECT_EQ(s.SolveEquations(), c.result) << c.k;
        ASSERT_EQ(rec.msgs.size(), c.messages) << c.k;
        if (c.messages) {
            EXPECT_EQ(rec.msgs[0].extra, "Node no.: 0");
        }
        if (c.result) {
            EXPECT_DOUBLE_EQ(s.GetDisplacement(1, 1), -2.0 / c.k);
            EXPECT_DOUBLE_EQ(s.GetDisplacement(1, 2), 8.0 / c.k);
        }
    }
}

TEST(BandSolver, TermsUnder1e40CountOnlyBelowTheColumnTop) {
    // Scaled so that 1e-40 matters: K(1,2) is under 1e-40 at the top of column 2 and drops out;
    // K(2,3) is as small but lies below the top of column 3, K(1,3), and stays.
    Dense k(3);
    for (int i = 0; i < 3; ++i) k(i, i) = 1e-39;
    k.Sym(0, 1, 0.5e-40);
    k.Sym(0, 2, 2e-40);
    k.Sym(1, 2, 0.5e-40);
    const std::vector<double> f = {1e-39, 2e-39, -1e-39};
    CBandSolver s;
    ASSERT_EQ(s.Init(3, 1, 3, 3, nullptr), 1);
    LoadByTerms(s, k, f, 1);
    ASSERT_EQ(s.SolveEquations(), 1);
    Dense cut = k;
    cut.Sym(0, 1, 0.0);
    EXPECT_LT(MaxError(s, DenseSolve(cut, f, 1), 3, 1), 1e-14);
    EXPECT_GT(MaxError(s, DenseSolve(k, f, 1), 3, 1), 1e-3);

    // The table is made anew for each block from the terms carried into it. K(3,4) lies below
    // the top of column 4, K(1,4), in one block; in blocks of two it is the first term of the
    // column in the second block, stays under 1e-40 (columns 3 takes nothing from block 1) and
    // drops out there.
    Dense k4(4);
    for (int i = 0; i < 4; ++i) k4(i, i) = 1e-39;
    k4.Sym(0, 1, 3e-40);
    k4.Sym(0, 3, 2e-40);
    k4.Sym(2, 3, 0.5e-40);
    const std::vector<double> f4 = {1e-39, -1e-39, 2e-39, 1e-39};
    Dense cut4 = k4;
    cut4.Sym(2, 3, 0.0);
    for (int block : {4, 2}) {
        CBandSolver t;
        ASSERT_EQ(t.Init(4, 1, 4, block, nullptr), 1);
        LoadByTerms(t, k4, f4, 1);
        ASSERT_EQ(t.SolveEquations(), 1);
        EXPECT_LT(MaxError(t, DenseSolve(block == 4 ? k4 : cut4, f4, 1), 4, 1), 1e-14) << block;
        EXPECT_GT(MaxError(t, DenseSolve(block == 4 ? cut4 : k4, f4, 1), 4, 1), 1e-3) << block;
    }
}

TEST(BandSolver, RefusesWhatLiesOutsideTheSystem) {
    Recorder rec;
    CBandSolver s;
    EXPECT_EQ(s.SolveEquations(), 0);
    EXPECT_EQ(s.AddStiffness(1, 1, 1.0), 0);
    EXPECT_EQ(s.Init(0, 1, 1, 1, &rec), 0);
    EXPECT_EQ(s.Init(10, 1, 3, 4, &rec), 1);
    EXPECT_EQ(s.GetNBlocks(), 3);
    const double col[4] = {1, 2, 3, 4};
    EXPECT_EQ(s.SetBlockColumn(4, 1, col), 0);
    EXPECT_EQ(s.SetBlockColumn(1, 5, col), 0);
    EXPECT_EQ(s.SetBlockColumn(3, 4, col), 1);
    EXPECT_EQ(s.AddStiffness(1, 4, 1.0), 0);
    EXPECT_EQ(s.AddStiffness(3, 1, 1.0), 1);
    EXPECT_EQ(s.GetStiffness(1, 3), 1.0);
    EXPECT_EQ(s.AddStiffness(10, 11, 1.0), 0);
    EXPECT_EQ(s.AddLoad(10, 2, 1.0), 0);
    EXPECT_EQ(s.GetLoad(9, 1), 1.0);
    EXPECT_TRUE(rec.msgs.empty());
#ifndef KELO_ASAN
    // Far more than any machine holds: the allocation failure is reported, not thrown.
    EXPECT_EQ(s.Init(2000000000, 1, 1000000, 6, &rec), 0);
    ASSERT_EQ(rec.msgs.size(), 1u);
    EXPECT_EQ(rec.msgs[0].kind, 4);
    EXPECT_EQ(rec.msgs[0].id, 41002);
#endif
}

TEST(BandSolver, SlaveMovesWithItsMasterAsARigidLever) {
    const double master[6] = {1.0, 2.0, 3.0, 0.1, 0.2, 0.3};
    double slave[6];
    CBandSolver::SlaveDisplacement(master, 1.0, -2.0, 0.5, slave);
    // u + r x d with d = (1, -2, 0.5): r x d = (0.2*0.5 + 0.3*2, 0.3*1 - 0.1*0.5, -0.1*2 - 0.2*1).
    EXPECT_DOUBLE_EQ(slave[0], 1.7);
    EXPECT_DOUBLE_EQ(slave[1], 2.25);
    EXPECT_DOUBLE_EQ(slave[2], 2.6);
    EXPECT_EQ(slave[3], 0.1);
    EXPECT_EQ(slave[4], 0.2);
    EXPECT_EQ(slave[5], 0.3);
}
