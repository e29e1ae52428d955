// The static solve of two frames, by our block band reduction and by LAPACK's banded Cholesky
// (dpbtrf and dpbtrs) on the same system and loads. Prints each time and ours over LAPACK's.
//
// Girder: 10,000 beam elements of 1 m in a row along X, 6 freedoms a node, supported in Y, Z
// and torsion at every 40th node and in X at the first: band 12.
// Building: 20 by 10 bays of 6 m, 20 storeys of 3.5 m, columns and beams on every floor, fixed
// at the base: 4,851 nodes, 29,106 equations. Nodes are numbered plane by plane across X, the
// order the band optimisation picks for this frame: band 1,392.
// Both are assembled from the stiffness of axis-parallel beams straight into the band, with the
// 1e20 diagonal of the assembly at supports. Ten load cases of random nodal forces.
// Times are processor time of the solving thread, so that other work on the machine does not
// count; "ours" is the whole SolveEquations (reduction, forward and back substitution), LAPACK's
// is dpbtrf plus dpbtrs. The loads reach LAPACK as its column layout, which is not timed.
#include "frame/BandSolver.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <ctime>
#include <random>
#include <vector>

extern "C" {
void dpbtrf_(const char* uplo, const int* n, const int* kd, double* ab, const int* ldab, int* info,
             std::size_t uploLen);
void dpbtrs_(const char* uplo, const int* n, const int* kd, const int* nrhs, const double* ab,
             const int* ldab, double* b, const int* ldb, int* info, std::size_t uploLen);
}

using namespace kelo;

namespace {

constexpr int kLoads = 10;

// Upper band, column by column, ldab = band: LAPACK's layout.
struct BandSystem {
    int n = 0, band = 0;
    std::vector<double> ab;
    std::vector<double> f; // n rows of kLoads
    double& At(int i, int k) {
        return ab[static_cast<std::size_t>(k) * band + (band - 1) - (k - i)];
    }
};

// Beam of length l along global axis `axis` (0 X, 1 Y, 2 Z) from node a to node b; the local
// axes are the cyclic turn of X, Y, Z that takes X to the beam, so the transformation is a
// renumbering of freedoms.
void AddBeam(BandSystem& s, int a, int b, int axis, double l) {
    const double ea = 2.1e8 * 0.05, ei = 2.1e8 * 4e-4, gj = 8.1e7 * 6e-4;
    std::array<std::array<double, 12>, 12> k{};
    auto set = [&](int i, int j, double v) { k[i][j] = k[j][i] = v; };
    const double t = ea / l, tt = gj / l, b1 = 12 * ei / (l * l * l), b2 = 6 * ei / (l * l);
    const double b3 = 4 * ei / l, b4 = 2 * ei / l;
    set(0, 0, t), set(0, 6, -t), set(6, 6, t), set(3, 3, tt), set(3, 9, -tt), set(9, 9, tt);
    set(1, 1, b1), set(1, 5, b2), set(1, 7, -b1), set(1, 11, b2), set(5, 5, b3);
    set(5, 7, -b2), set(5, 11, b4), set(7, 7, b1), set(7, 11, -b2), set(11, 11, b3);
    set(2, 2, b1), set(2, 4, -b2), set(2, 8, -b1), set(2, 10, -b2), set(4, 4, b3);
    set(4, 8, b2), set(4, 10, b4), set(8, 8, b1), set(8, 10, b2), set(10, 10, b3);
    int eq[12];
    for (int end = 0; end < 2; ++end)
        for (int d = 0; d < 3; ++d) {
            const int node = end ? b : a, g = (axis + d) % 3;
            eq[end * 6 + d] = node * 6 + g;
            eq[end * 6 + 3 + d] = node * 6 + 3 + g;
        }
    for (int i = 0; i < 12; ++i)
        for (int j = 0; j < 12; ++j)
            if (eq[i] <= eq[j]) s.At(eq[i], eq[j]) += k[i][j];
}

void RandomLoads(BandSystem& s) {
    std::mt19937 gen(3);
    std::uniform_real_distribution<double> d(-100.0, 100.0);
    s.f.resize(static_cast<std::size_t>(s.n) * kLoads);
    for (double& v : s.f) v = d(gen);
}

BandSystem Girder() {
    const int nodes = 10001;
    BandSystem s;
    s.n = nodes * 6;
    s.band = 12;
    s.ab.assign(static_cast<std::size_t>(s.n) * s.band, 0.0);
    for (int e = 0; e + 1 < nodes; ++e) AddBeam(s, e, e + 1, 0, 1.0);
    for (int node = 0; node < nodes; node += 40)
        for (int d : {1, 2, 3}) s.At(node * 6 + d, node * 6 + d) = 1e20;
    s.At(0, 0) = 1e20;
    RandomLoads(s);
    return s;
}

BandSystem Building() {
    const int nx = 21, ny = 11, nz = 21, plane = ny * nz;
    auto id = [&](int ix, int iy, int iz) { return ix * plane + iz * ny + iy; };
    BandSystem s;
    s.n = nx * plane * 6;
    s.band = (plane + 1) * 6;
    s.ab.assign(static_cast<std::size_t>(s.n) * s.band, 0.0);
    for (int ix = 0; ix < nx; ++ix)
        for (int iy = 0; iy < ny; ++iy)
            for (int iz = 0; iz < nz; ++iz) {
                if (iz + 1 < nz) AddBeam(s, id(ix, iy, iz), id(ix, iy, iz + 1), 2, 3.5);
                if (iz > 0 && ix + 1 < nx) AddBeam(s, id(ix, iy, iz), id(ix + 1, iy, iz), 0, 6.0);
                if (iz > 0 && iy + 1 < ny) AddBeam(s, id(ix, iy, iz), id(ix, iy + 1, iz), 1, 6.0);
                if (iz == 0)
                    for (int d = 0; d < 6; ++d) {
                        const int e = id(ix, iy, iz) * 6 + d;
                        s.At(e, e) = 1e20;
                    }
            }
    RandomLoads(s);
    return s;
}

// Processor time of this thread: both solvers run on one core, and the machine may be shared.
double ThreadSeconds() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + 1e-9 * static_cast<double>(t.tv_nsec);
}

// Our solve, system handed over in one block as the assembly of a machine with gigabytes does.
// Returns seconds; u gets the displacements.
double SolveOurs(BandSystem& s, std::vector<double>& u) {
    CBandSolver solver;
    if (!solver.Init(s.n, kLoads, s.band, s.n, nullptr)) return -1.0;
    for (int k = 0; k < s.n; ++k)
        for (int i = std::max(0, k - s.band + 1); i <= k; ++i)
            if (s.At(i, k) != 0.0) solver.SetStiffness(i + 1, k + 1, s.At(i, k));
    // The system holds restraint forces, the negative of the loads.
    for (int i = 0; i < s.n; ++i)
        for (int l = 0; l < kLoads; ++l) solver.AddLoad(i + 1, l + 1, -s.f[i * kLoads + l]);
    const double t0 = ThreadSeconds();
    if (!solver.SolveEquations()) return -1.0;
    const double t = ThreadSeconds() - t0;
    u.resize(s.f.size());
    for (int i = 0; i < s.n; ++i)
        for (int l = 0; l < kLoads; ++l) u[i * kLoads + l] = solver.GetDisplacement(i + 1, l + 1);
    return t;
}

// LAPACK's solve on a copy; loads as columns. Returns seconds of dpbtrf and of dpbtrs.
std::array<double, 2> SolveLapack(const BandSystem& s, std::vector<double>& u) {
    std::vector<double> ab = s.ab;
    std::vector<double> b(s.f.size());
    for (int i = 0; i < s.n; ++i)
        for (int l = 0; l < kLoads; ++l)
            b[static_cast<std::size_t>(l) * s.n + i] = s.f[i * kLoads + l];
    const int kd = s.band - 1, ld = s.band, nrhs = kLoads;
    int info = 0;
    double t0 = ThreadSeconds();
    dpbtrf_("U", &s.n, &kd, ab.data(), &ld, &info, 1);
    const double tf = ThreadSeconds() - t0;
    if (info != 0) return {-1.0, -1.0};
    t0 = ThreadSeconds();
    dpbtrs_("U", &s.n, &kd, &nrhs, ab.data(), &ld, b.data(), &s.n, &info, 1);
    const double ts = ThreadSeconds() - t0;
    u.resize(s.f.size());
    for (int i = 0; i < s.n; ++i)
        for (int l = 0; l < kLoads; ++l)
            u[i * kLoads + l] = b[static_cast<std::size_t>(l) * s.n + i];
    return {tf, ts};
}

void Compare(benchmark::State& state, BandSystem (*make)()) {
    BandSystem s = make();
    std::vector<double> ours, theirs;
    double tOurs = 0.0, tFactor = 0.0, tSolve = 0.0;
    int runs = 0;
    for (auto _ : state) {
        const double t = SolveOurs(s, ours);
        const std::array<double, 2> tl = SolveLapack(s, theirs);
        if (t < 0.0 || tl[0] < 0.0) {
            state.SkipWithError("solve failed");
            return;
        }
        state.SetIterationTime(t);
        tOurs += t;
        tFactor += tl[0];
        tSolve += tl[1];
        ++runs;
    }
    double diff = 0.0, size = 0.0;
    for (std::size_t i = 0; i < ours.size(); ++i) {
        diff = std::max(diff, std::fabs(ours[i] - theirs[i]));
        size = std::max(size, std::fabs(theirs[i]));
    }
    state.counters["neq"] = s.n;
    state.counters["band"] = s.band;
    state.counters["ours_ms"] = 1e3 * tOurs / runs;
    state.counters["lapack_trf_ms"] = 1e3 * tFactor / runs;
    state.counters["lapack_trs_ms"] = 1e3 * tSolve / runs;
    state.counters["ours_over_lapack"] = tOurs / (tFactor + tSolve);
    state.counters["rel_diff"] = diff / size;
}

void BM_Girder10000Elements(benchmark::State& state) { Compare(state, Girder); }
void BM_Building20x10Bays20Storeys(benchmark::State& state) { Compare(state, Building); }

} // namespace

BENCHMARK(BM_Girder10000Elements)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(BM_Building20x10Bays20Storeys)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);
BENCHMARK_MAIN();
