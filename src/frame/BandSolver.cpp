#include "frame/BandSolver.h"

#include "frame/SolverSink.h"
#include "platform/Text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <exception>
#include <new>
#include <utility>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace kelo {

namespace {

// Entries and pivots smaller than this in size count as zero.
constexpr double kTiny = 1e-40;
// Pivot warnings shown in one solve; later ones pass in silence.
constexpr int kMaxWarnings = 5;
// Panel rows for wide bands: the inner dimension of the tile products.
constexpr int kWidePanel = 64;
// Bands up to this are reduced a block at a time without tile products.
constexpr int kNarrowBand = 32;

// Tile of the trailing update: kMr rows by kNr columns, held in registers across the panel.
constexpr int kMr = 8;
constexpr int kNr = 6;

// c(r, j) -= sum over p of a(p, r) b(p, j): a in slivers of kMr, b in slivers of kNr, tile
// columns ldc apart with contiguous rows.
using TileKernel = void (*)(int depth, const double* a, const double* b, double* c,
                            std::ptrdiff_t ldc);
// Forward substitution of one sliver of kMr columns against a unit upper triangle:
// g(p, :) -= sum over q < p of u(q, p) g(q, :), with u(q, p) at u[p * ldu + q].
using SliverKernel = void (*)(int depth, const double* u, std::ptrdiff_t ldu, double* g);

void SubTilePlain(int depth, const double* a, const double* b, double* c, std::ptrdiff_t ldc) {
    double acc[kNr][kMr] = {};
    for (int p = 0; p < depth; ++p, a += kMr, b += kNr)
        for (int j = 0; j < kNr; ++j)
            for (int r = 0; r < kMr; ++r) acc[j][r] += a[r] * b[j];
    for (int j = 0; j < kNr; ++j)
        for (int r = 0; r < kMr; ++r) c[j * ldc + r] -= acc[j][r];
}

void ForwardSliverPlain(int depth, const double* u, std::ptrdiff_t ldu, double* g) {
    for (int p = 1; p < depth; ++p) {
        double acc[kMr] = {};
        const double* up = u + p * ldu;
        for (int q = 0; q < p; ++q)
            for (int r = 0; r < kMr; ++r) acc[r] += up[q] * g[q * kMr + r];
        for (int r = 0; r < kMr; ++r) g[p * kMr + r] -= acc[r];
    }
}

#if defined(__x86_64__)
__attribute__((target("avx2,fma"))) void SubTileAvx2(int depth, const double* a, const double* b,
                                                     double* c, std::ptrdiff_t ldc) {
    __m256d c00 = _mm256_setzero_pd(), c01 = c00, c02 = c00, c03 = c00, c04 = c00, c05 = c00;
    __m256d c10 = c00, c11 = c00, c12 = c00, c13 = c00, c14 = c00, c15 = c00;
    for (int p = 0; p < depth; ++p, a += kMr, b += kNr) {
        const __m256d a0 = _mm256_loadu_pd(a);
        const __m256d a1 = _mm256_loadu_pd(a + 4);
        __m256d bj = _mm256_broadcast_sd(b);
        c00 = _mm256_fmadd_pd(a0, bj, c00);
        c10 = _mm256_fmadd_pd(a1, bj, c10);
        bj = _mm256_broadcast_sd(b + 1);
        c01 = _mm256_fmadd_pd(a0, bj, c01);
        c11 = _mm256_fmadd_pd(a1, bj, c11);
        bj = _mm256_broadcast_sd(b + 2);
        c02 = _mm256_fmadd_pd(a0, bj, c02);
        c12 = _mm256_fmadd_pd(a1, bj, c12);
        bj = _mm256_broadcast_sd(b + 3);
        c03 = _mm256_fmadd_pd(a0, bj, c03);
        c13 = _mm256_fmadd_pd(a1, bj, c13);
        bj = _mm256_broadcast_sd(b + 4);
        c04 = _mm256_fmadd_pd(a0, bj, c04);
        c14 = _mm256_fmadd_pd(a1, bj, c14);
        bj = _mm256_broadcast_sd(b + 5);
        c05 = _mm256_fmadd_pd(a0, bj, c05);
        c15 = _mm256_fmadd_pd(a1, bj, c15);
    }
    const __m256d lo[kNr] = {c00, c01, c02, c03, c04, c05};
    const __m256d hi[kNr] = {c10, c11, c12, c13, c14, c15};
    for (int j = 0; j < kNr; ++j) {
        double* cj = c + j * ldc;
        _mm256_storeu_pd(cj, _mm256_sub_pd(_mm256_loadu_pd(cj), lo[j]));
        _mm256_storeu_pd(cj + 4, _mm256_sub_pd(_mm256_loadu_pd(cj + 4), hi[j]));
    }
}

// Two sums over alternate rows keep two chains of multiply-adds in flight.
__attribute__((target("avx2,fma"))) void ForwardSliverAvx2(int depth, const double* u,
                                                           std::ptrdiff_t ldu, double* g) {
    for (int p = 1; p < depth; ++p) {
        const double* up = u + p * ldu;
        __m256d a0 = _mm256_setzero_pd(), a1 = a0, b0 = a0, b1 = a0;
        int q = 0;
        for (; q + 2 <= p; q += 2) {
            const __m256d s = _mm256_broadcast_sd(up + q);
            a0 = _mm256_fmadd_pd(s, _mm256_loadu_pd(g + q * kMr), a0);
            a1 = _mm256_fmadd_pd(s, _mm256_loadu_pd(g + q * kMr + 4), a1);
            const __m256d t = _mm256_broadcast_sd(up + q + 1);
            b0 = _mm256_fmadd_pd(t, _mm256_loadu_pd(g + (q + 1) * kMr), b0);
            b1 = _mm256_fmadd_pd(t, _mm256_loadu_pd(g + (q + 1) * kMr + 4), b1);
        }
        if (q < p) {
            const __m256d s = _mm256_broadcast_sd(up + q);
            a0 = _mm256_fmadd_pd(s, _mm256_loadu_pd(g + q * kMr), a0);
            a1 = _mm256_fmadd_pd(s, _mm256_loadu_pd(g + q * kMr + 4), a1);
        }
        double* gp = g + p * kMr;
        _mm256_storeu_pd(gp, _mm256_sub_pd(_mm256_loadu_pd(gp), _mm256_add_pd(a0, b0)));
        _mm256_storeu_pd(gp + 4, _mm256_sub_pd(_mm256_loadu_pd(gp + 4), _mm256_add_pd(a1, b1)));
    }
}
#endif

bool HasAvx2() {
#if defined(__x86_64__)
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
#else
    return false;
#endif
}

// The kernels in use: those of the wider vector instructions where the processor has them.
#if defined(__x86_64__)
TileKernel g_subTile = HasAvx2() ? SubTileAvx2 : SubTilePlain;
SliverKernel g_forwardSliver = HasAvx2() ? ForwardSliverAvx2 : ForwardSliverPlain;
#else
TileKernel g_subTile = SubTilePlain;
SliverKernel g_forwardSliver = ForwardSliverPlain;
#endif

// Four doubles as one value; the compiler maps it to the vector registers the target has.
typedef double V4 __attribute__((vector_size(32)));

// Inner product of two contiguous runs, four terms at a time.
double Dot(const double* a, const double* b, int n) {
    V4 s4 = {0.0, 0.0, 0.0, 0.0};
    int i = 0;
    for (; i + 4 <= n; i += 4) {
        V4 x, y;
        std::memcpy(&x, a + i, sizeof x);
        std::memcpy(&y, b + i, sizeof y);
        s4 += x * y;
    }
    double s = (s4[0] + s4[2]) + (s4[1] + s4[3]);
    for (; i < n; ++i) s += a[i] * b[i];
    return s;
}

// y -= s x over n contiguous values.
void SubScaled(double* y, double s, const double* x, int n) {
    int i = 0;
    for (; i + 4 <= n; i += 4) {
        V4 xv, yv;
        std::memcpy(&xv, x + i, sizeof xv);
        std::memcpy(&yv, y + i, sizeof yv);
        yv -= s * xv;
        std::memcpy(y + i, &yv, sizeof yv);
    }
    for (; i < n; ++i) y[i] -= s * x[i];
}

} // namespace

int CBandSolver::UseVectorKernels(bool use) {
#if defined(__x86_64__)
    if (use && HasAvx2()) {
        g_subTile = SubTileAvx2;
        g_forwardSliver = ForwardSliverAvx2;
        return 1;
    }
#endif
    g_subTile = SubTilePlain;
    g_forwardSliver = ForwardSliverPlain;
    return 0;
}

const char* CBandSolver::MessageText(int id) {
    switch (id) {
    case kMsgStoreAccess:
        return "Error!\n\nUnable to open or access temporary files! Run will be terminated!";
    case kMsgNoMemory:
        return "Error!\n\nUnable to allocate enough memory! Run will be terminated!";
    case kMsgNegativeStiffness:
        return "Warning!\n\nNegative Stiffness value on main diagonal!";
    default:
        return "";
    }
}

int CBandSolver::Init(int neq, int nLoad, int band, int blockSize, SolverSink* sink) {
    m_sink = sink;
    m_state = 0;
    m_k.clear();
    m_f.clear();
    m_top.clear();
    m_colTop.clear();
    if (neq < 1 || nLoad < 0 || band < 1 || blockSize < 1) return 0;
    m_neq = neq;
    m_nLoad = nLoad;
    m_band = band;
    m_blockSize = blockSize;
    m_nBlocks = (neq - 1) / blockSize + 1;
    m_ld = std::min(band, neq);
    m_loadStride = nLoad > 2 ? (nLoad + 3) / 4 * 4 : nLoad;
    try {
        m_k.assign(static_cast<std::size_t>(neq) * m_ld, 0.0);
        m_f.assign(static_cast<std::size_t>(neq) * m_loadStride, 0.0);
        m_top.assign(neq, 0);
        m_colTop.resize(neq);
        if (!m_nodeTableSet) {
            m_nodeNos.resize(neq / 6);
            for (int i = 0; i < neq / 6; ++i) m_nodeNos[i] = i + 1;
        }
    } catch (const std::exception&) {
        m_k = {};
        m_f = {};
        if (m_sink) m_sink->Message(4, kMsgNoMemory, "");
        return 0;
    }
    for (int k = 0; k < neq; ++k) m_colTop[k] = k;
    m_state = 1;
    return 1;
}

void CBandSolver::SetNodeNumbers(std::vector<int> nodeNos) {
    m_nodeNos = std::move(nodeNos);
    m_nodeTableSet = true;
}

std::ptrdiff_t CBandSolver::Offset(int row, int col) const {
    if (m_state != 1) return -1;
    if (row > col) std::swap(row, col);
    if (row < 1 || col > m_neq || col - row >= m_ld) return -1;
    return ColOffset(col - 1) + (row - 1);
}

int CBandSolver::SetBlockColumn(int block, int column, const double* values) {
    if (m_state != 1 || !values || block < 1 || block > m_nBlocks || column < 1 ||
        column > m_band + m_nLoad)
        return 0;
    const int first = (block - 1) * m_blockSize;
    const int rows = std::min(m_blockSize, m_neq - first);
    if (column <= m_band) {
        // Terms beyond the last equation couple to padding and do not exist.
        const int c = column - 1;
        if (c >= m_ld) return 1;
        for (int r = 0; r < rows && first + r + c < m_neq; ++r)
            Col(first + r + c)[first + r] = values[r];
    } else {
        const int l = column - m_band - 1;
        for (int r = 0; r < rows; ++r) Loads(first + r)[l] = values[r];
    }
    return 1;
}

int CBandSolver::AddStiffness(int row, int col, double value) {
    const std::ptrdiff_t e = Offset(row, col);
    if (e < 0) return 0;
    m_k[e] += value;
    return 1;
}

int CBandSolver::SetStiffness(int row, int col, double value) {
    const std::ptrdiff_t e = Offset(row, col);
    if (e < 0) return 0;
    m_k[e] = value;
    return 1;
}

double CBandSolver::GetStiffness(int row, int col) const {
    const std::ptrdiff_t e = Offset(row, col);
    return e < 0 ? 0.0 : m_k[e];
}

int CBandSolver::AddLoad(int eq, int load, double value) {
    if (m_state != 1 || eq < 1 || eq > m_neq || load < 1 || load > m_nLoad) return 0;
    Loads(eq - 1)[load - 1] += value;
    return 1;
}

double CBandSolver::GetLoad(int eq, int load) const {
    if (m_state != 1 || eq < 1 || eq > m_neq || load < 1 || load > m_nLoad) return 0.0;
    return m_f[static_cast<std::size_t>(eq - 1) * m_loadStride + (load - 1)];
}

double CBandSolver::GetDisplacement(int eq, int load) const {
    if (m_state != 2 || eq < 1 || eq > m_neq || load < 1 || load > m_nLoad) return 0.0;
    return -m_f[static_cast<std::size_t>(eq - 1) * m_loadStride + (load - 1)];
}

void CBandSolver::SlaveDisplacement(const double master[6], double dx, double dy, double dz,
                                    double slave[6]) {
    const double ux = master[0], uy = master[1], uz = master[2];
    const double rx = master[3], ry = master[4], rz = master[5];
    slave[0] = ux + dz * ry - dy * rz;
    slave[1] = uy - dz * rx + dx * rz;
    slave[2] = uz + dy * rx - dx * ry;
    slave[3] = rx;
    slave[4] = ry;
    slave[5] = rz;
}

int CBandSolver::PanelRows() const {
    if (m_panelRows > 0) return m_panelRows;
    return m_ld <= kNarrowBand ? m_blockSize : kWidePanel;
}

int CBandSolver::NodeOfEquation(int eq) const {
    const int index = (eq + 1) / 6;
    return index < static_cast<int>(m_nodeNos.size()) ? m_nodeNos[index] : 0;
}

void CBandSolver::Report(int kind, int id, int eq) {
    if (!m_sink) return;
    m_sink->Message(kind, id, Format("%s%i", "Node no.: ", NodeOfEquation(eq)));
}

int CBandSolver::TestPivot(int eq, double pivot) {
    if (pivot < 0.0) {
        ++m_negativePivots;
        if (m_warnings < kMaxWarnings) {
            Report(3, kMsgNegativeStiffness, eq + 1);
            ++m_warnings;
        }
        return 1;
    }
    if (pivot < kTiny) {
        // A mechanism. The warning text stands for the error here, as it always has.
        if (m_warnings < kMaxWarnings) {
            Report(3, kMsgNegativeStiffness, eq + 1);
            ++m_warnings;
        }
        return 0;
    }
    return 1;
}

// The height table of the block of rows first to end - 1: for every column with terms in these
// rows, the first row whose term reaches 1e-40 in size. The terms above it are set to zero, so
// that every later sum over the column sees the same profile.
void CBandSolver::Heights(int first, int end) {
    const int last = std::min(m_neq, end + m_ld - 1);
    for (int k = first; k < last; ++k) {
        double* col = Col(k);
        const int r0 = std::max(first, k - m_ld + 1);
        const int r1 = std::min(k, end - 1);
        int r = r0;
        while (r <= r1 && std::fabs(col[r]) < kTiny) ++r;
        for (int q = r0; q < std::min(r, k); ++q) col[q] = 0.0;
        m_top[k] = r;
        m_colTop[k] = std::min(m_colTop[k], r);
    }
}

// Reduces the rows p0 to p1 - 1 against each other, all earlier rows having been carried into
// them. The panel's own columns go column by column: their terms in the panel rows are reduced
// by inner products down the columns, then divided by their pivots, and each pivot is tested as
// it is found. The columns to the right reached by the panel rows are reduced together by
// forward substitution in slivers; their undivided terms and factors go to the packs of the tile
// product.
int CBandSolver::FactorPanel(int p0, int p1, Panel& pk) {
    const int w = m_ld;
    for (int k = p0; k < p1; ++k) {
        double* col = Col(k);
        const int rlo = std::max({p0, m_top[k], k - w + 1});
        for (int i = rlo + 1; i < k; ++i) {
            const int q0 = std::max({rlo, m_top[i], i - w + 1});
            if (q0 < i) col[i] -= Dot(Col(i) + q0, col + q0, i - q0);
        }
        double pivot = col[k];
        for (int i = rlo; i < k; ++i) {
            const double g = col[i];
            const double u = g / Col(i)[i];
            pivot -= u * g;
            col[i] = u;
        }
        if (!TestPivot(k, pivot)) return 0;
        col[k] = pivot;
        double* fk = Loads(k);
        for (int i = rlo; i < k; ++i)
            if (col[i] != 0.0) SubScaled(fk, col[i], Loads(i), m_loadStride);
    }

    const int kend = std::min(m_neq, p1 + w - 1);
    pk.first = std::max(p0, p1 - w + 1);
    pk.depth = p1 - pk.first;
    pk.columns = kend - p1;
    if (pk.columns <= 0) return 1;
    const int depth = pk.depth;
    const int gSlivers = (pk.columns + kMr - 1) / kMr;
    const int uSlivers = (pk.columns + kNr - 1) / kNr;
    pk.g.assign(static_cast<std::size_t>(gSlivers) * kMr * depth, 0.0);
    pk.u.assign(static_cast<std::size_t>(uSlivers) * kNr * depth, 0.0);
    pk.gStart.assign(gSlivers, depth);
    pk.uStart.assign(uSlivers, depth);

    // Terms of the panel rows in the columns to the right; those above a column's top and
    // outside the band stay zero.
    for (int k = p1; k < kend; ++k) {
        const int t = k - p1;
        const int rlo = std::max({p0, m_top[k], k - w + 1});
        if (rlo >= p1) continue;
        const double* col = Col(k);
        double* g = pk.g.data() + static_cast<std::size_t>(t / kMr) * kMr * depth + t % kMr;
        for (int i = rlo; i < p1; ++i) g[(i - pk.first) * kMr] = col[i];
        pk.gStart[t / kMr] = std::min(pk.gStart[t / kMr], rlo - pk.first);
        pk.uStart[t / kNr] = std::min(pk.uStart[t / kNr], rlo - pk.first);
    }
    const double* triangle = Col(pk.first) + pk.first;
    for (int s = 0; s < gSlivers; ++s) {
        const int r0 = pk.gStart[s];
        if (r0 >= depth) continue;
        g_forwardSliver(depth - r0, triangle + static_cast<std::ptrdiff_t>(r0) * (w - 1) + r0,
                        w - 1, pk.g.data() + (static_cast<std::size_t>(s) * depth + r0) * kMr);
    }
    for (int k = p1; k < kend; ++k) {
        const int t = k - p1;
        const int rlo = std::max({p0, m_top[k], k - w + 1});
        double* col = Col(k);
        const double* g = pk.g.data() + static_cast<std::size_t>(t / kMr) * kMr * depth + t % kMr;
        double* u = pk.u.data() + static_cast<std::size_t>(t / kNr) * kNr * depth + t % kNr;
        for (int i = rlo; i < p1; ++i) {
            const int p = i - pk.first;
            col[i] = g[p * kMr] / Col(i)[i];
            u[p * kNr] = col[i];
        }
    }
    return 1;
}

// Carries the panel rows into the rows after them: K(i, k) -= sum over panel rows p of
// G(p, i) U(p, k) for p1 <= i <= k tile by tile, and f(i) -= U(p, i) f(p).
void CBandSolver::UpdateTrailing(int p1, Panel& pk) {
    const int nt = pk.columns;
    if (nt <= 0 || pk.depth <= 0) return;
    const int depth = pk.depth;
    double edge[kNr * kMr];
    // One tile of `rows` by `cols` over the pack rows ps to depth. Those across the diagonal or
    // the ends go through `edge` and keep only rows up to `diagonal` + j of column j.
    auto tile = [&](const double* a, const double* b, int ps, double* c, std::ptrdiff_t ldc,
                    int rows, int cols, int diagonal) {
        a += static_cast<std::ptrdiff_t>(ps) * kMr;
        b += static_cast<std::ptrdiff_t>(ps) * kNr;
        if (rows == kMr && cols == kNr && diagonal >= kMr - 1) {
            g_subTile(depth - ps, a, b, c, ldc);
            return;
        }
        std::fill(edge, edge + kNr * kMr, 0.0);
        g_subTile(depth - ps, a, b, edge, kMr);
        for (int j = 0; j < cols; ++j) {
            const int n = std::min(rows, diagonal + j + 1);
            for (int r = 0; r < n; ++r) c[j * ldc + r] += edge[j * kMr + r];
        }
    };
    for (int j0 = 0, jg = 0; j0 < nt; j0 += kNr, ++jg) {
        const int cols = std::min(kNr, nt - j0);
        const double* u = pk.u.data() + static_cast<std::size_t>(jg) * kNr * depth;
        for (int i0 = 0, ig = 0; i0 < j0 + cols; i0 += kMr, ++ig) {
            const int ps = std::max(pk.gStart[ig], pk.uStart[jg]);
            if (ps >= depth) continue;
            const double* g = pk.g.data() + static_cast<std::size_t>(ig) * kMr * depth;
            tile(g, u, ps, Col(p1 + j0) + (p1 + i0), m_ld - 1, std::min(kMr, nt - i0), cols,
                 j0 - i0);
        }
    }
    // The loads the same way, load cases down a tile and equations across it:
    // f(i, l) -= sum over p of f(p, l) U(p, i).
    if (m_nLoad == 0) return;
    const int zSlivers = (m_nLoad + kMr - 1) / kMr;
    pk.z.assign(static_cast<std::size_t>(zSlivers) * kMr * depth, 0.0);
    for (int p = 0; p < depth; ++p) {
        const double* f = Loads(pk.first + p);
        for (int l = 0; l < m_nLoad; ++l)
            pk.z[(static_cast<std::size_t>(l / kMr) * depth + p) * kMr + l % kMr] = f[l];
    }
    for (int l0 = 0, lg = 0; l0 < m_nLoad; l0 += kMr, ++lg) {
        const double* z = pk.z.data() + static_cast<std::size_t>(lg) * kMr * depth;
        for (int j0 = 0, jg = 0; j0 < nt; j0 += kNr, ++jg) {
            const int ps = pk.uStart[jg];
            if (ps >= depth) continue;
            const double* u = pk.u.data() + static_cast<std::size_t>(jg) * kNr * depth;
            tile(z, u, ps, Loads(p1 + j0) + l0, m_loadStride, std::min(kMr, m_nLoad - l0),
                 std::min(kNr, nt - j0), kMr);
        }
    }
}

// x = D^-1 y, then x_i -= U(i, k) x_k from the last equation up, column by column.
void CBandSolver::BackSubstitute() {
    for (int k = 0; k < m_neq; ++k) {
        const double d = Col(k)[k];
        double* fk = Loads(k);
        for (int l = 0; l < m_nLoad; ++l) fk[l] /= d;
    }
    if (m_nLoad == 0) return;
    for (int k = m_neq - 1; k > 0; --k) {
        const double* col = Col(k);
        const double* xk = Loads(k);
        for (int i = m_colTop[k]; i < k; ++i)
            if (col[i] != 0.0) SubScaled(Loads(i), col[i], xk, m_loadStride);
    }
}

int CBandSolver::SolveEquations() {
    if (m_state != 1) {
        if (m_sink) m_sink->Message(4, kMsgStoreAccess, "");
        return 0;
    }
    m_state = 3;
    m_warnings = 0;
    m_negativePivots = 0;
    Panel pk;
    try {
        const int nb = PanelRows();
        for (int b = 0; b < m_nBlocks; ++b) {
            if (m_sink)
                m_sink->Status(Format("%s %d %s %d", "Solving block ", b + 1, "of ", m_nBlocks));
            const int first = b * m_blockSize;
            const int end = std::min(m_neq, first + m_blockSize);
            Heights(first, end);
            for (int p0 = first; p0 < end; p0 += nb) {
                const int p1 = std::min(end, p0 + nb);
                if (!FactorPanel(p0, p1, pk)) return 0;
                UpdateTrailing(p1, pk);
            }
        }
    } catch (const std::bad_alloc&) {
        if (m_sink) m_sink->Message(4, kMsgNoMemory, "");
        return 0;
    }
    BackSubstitute();
    m_state = 2;
    return 1;
}

} // namespace kelo
