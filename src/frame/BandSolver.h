#pragma once

#include <cstddef>
#include <vector>

namespace kelo {

class SolverSink;

// The symmetric banded system of a static analysis, K u = -f for all load cases at once, reduced
// as K = U^T D U (U unit upper triangular) with the pivots taken in equation order.
//
// The system comes in blocks of `blockSize` equations, as the assembly hands them over: stiffness
// column c (1 to band) of a block holds K(r, r + c - 1) for each row r of the block, the diagonal
// in column 1; load column l stands behind the band as column band + l and holds the restraint
// forces of load case l. Rows of the last block beyond the last equation are padding and ignored.
// Equations, load cases, blocks and columns count from 1.
//
// At the start of each block the column tops seen from the block's rows are found (the height
// table): the first entry of 1e-40 or more in size, walking down a column, starts the column, and
// smaller entries above it count as zero. Pivots: a negative one is warned about and the reduction
// goes on; one of 0 or more but under 1e-40 in size is a mechanism and ends it. Both give warning
// 41003 with "Node no.: " and the node from the node table at entry (equation + 1) / 6, counted
// from zero, which can be the node after the one at fault (0 past the table's end); five such
// messages at most in one solve.
class CBandSolver {
public:
    // Message resources of the solver.
    static constexpr int kMsgStoreAccess = 41001;
    static constexpr int kMsgNoMemory = 41002;
    static constexpr int kMsgNegativeStiffness = 41003;
    // Resource text of one of the messages above; empty for other ids.
    static const char* MessageText(int id);

    CBandSolver() = default;
    CBandSolver(const CBandSolver&) = delete;
    CBandSolver& operator=(const CBandSolver&) = delete;

    // Makes an empty system. 1 success; 0 for sizes out of range (no message) or when memory
    // cannot be had (error 41002 to the sink). The sink is not owned and may be null.
    int Init(int neq, int nLoad, int band, int blockSize, SolverSink* sink);

    int GetNeq() const { return m_neq; }
    int GetNLoad() const { return m_nLoad; }
    int GetBand() const { return m_band; }
    int GetBlockSize() const { return m_blockSize; }
    int GetNBlocks() const { return m_nBlocks; }

    // Numbers of the nodes that own equations, six equations each, in equation order. Without it
    // the table is 1, 2, ..., neq / 6.
    void SetNodeNumbers(std::vector<int> nodeNos);

    // Writes stiffness or load column `column` of block `block` from blockSize values. 1 success,
    // 0 for a block or column out of range or before Init.
    int SetBlockColumn(int block, int column, const double* values);

    // One coefficient by equation numbers, either triangle. 0 when it lies outside the band.
    int AddStiffness(int row, int col, double value);
    int SetStiffness(int row, int col, double value);
    double GetStiffness(int row, int col) const;
    int AddLoad(int eq, int load, double value);
    double GetLoad(int eq, int load) const;

    // Reduction, forward elimination of all load cases and back substitution. 1 success, 0
    // failure (reported to the sink). The status text of each block is "Solving block  b of  n".
    // The system is used up either way.
    int SolveEquations();

    // After a successful solve: displacement of equation `eq` under load case `load`, with the sign
    // turned, since the loads are restraint forces.
    double GetDisplacement(int eq, int load) const;
    // Negative pivots met by the last solve (at most five were reported).
    int GetNegativePivots() const { return m_negativePivots; }

    // Rows reduced together before their contribution goes to the rest of the band in one
    // matrix product. 0 (the default) chooses from the band: the whole block for narrow bands.
    void SetPanelRows(int rows) { m_panelRows = rows < 0 ? 0 : rows; }

    // Chooses the kernels of the tile products: with `use`, those of the processor's wider vector
    // instructions when it has them, else the plain ones every processor runs. Answers 1 when the
    // wider ones are in use. Both give the same results to rounding.
    static int UseVectorKernels(bool use);

    // A slave node moves with its master as a rigid lever: d is slave minus master coordinates,
    // displacements are ux, uy, uz, rx, ry, rz.
    static void SlaveDisplacement(const double master[6], double dx, double dy, double dz,
                                  double slave[6]);

private:
    // Working packs of one panel, in slivers for the tile kernel: the undivided terms G and the
    // factors U of the panel rows in the columns to their right, and the panel rows' loads.
    struct Panel {
        int first = 0;   // first panel row that reaches beyond the panel
        int depth = 0;   // rows from `first` to the panel end
        int columns = 0; // columns to the right of the panel that its rows reach
        std::vector<double> g, u, z;
        std::vector<int> gStart, uStart;
    };

    // Column k of the band store: element (i, k) is Col(k)[i] for k - band < i <= k.
    double* Col(int k) { return m_k.data() + ColOffset(k); }
    const double* Col(int k) const { return m_k.data() + ColOffset(k); }
    std::ptrdiff_t ColOffset(int k) const {
        return static_cast<std::ptrdiff_t>(k) * (m_ld - 1) + (m_ld - 1);
    }
    double* Loads(int eq) { return m_f.data() + static_cast<std::ptrdiff_t>(eq) * m_loadStride; }
    // Place of K(row, col) in the band store, -1 outside it or when no system is being built.
    std::ptrdiff_t Offset(int row, int col) const;
    int PanelRows() const;

    void Heights(int first, int end);
    int FactorPanel(int p0, int p1, Panel& pk);
    void UpdateTrailing(int p1, Panel& pk);
    int TestPivot(int eq, double pivot);
    void BackSubstitute();
    int NodeOfEquation(int eq) const;
    void Report(int kind, int id, int eq);

    int m_neq = 0, m_nLoad = 0, m_band = 0, m_blockSize = 0, m_nBlocks = 0;
    int m_ld = 0;         // stored band: the band, but not more than the equations
    int m_loadStride = 0; // load rows padded to whole vectors
    int m_panelRows = 0;
    int m_state = 0; // 0 empty, 1 assembled, 2 solved, 3 failed
    int m_warnings = 0, m_negativePivots = 0;
    SolverSink* m_sink = nullptr;
    std::vector<double> m_k;    // upper band, column by column, diagonal last
    std::vector<double> m_f;    // loads and then solutions, one row of all load cases per equation
    std::vector<int> m_top;     // first row of each column inside the block being reduced
    std::vector<int> m_colTop;  // first stored row of each column over all blocks
    std::vector<int> m_nodeNos; // node table for the messages
    bool m_nodeTableSet = false;
};

} // namespace kelo
