#pragma once

#include "frame/BandSolver.h"
#include "frame/Segment.h"
#include "frame/SolverSink.h"
#include "model/AnalysisEngine.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace kelo {

class CAnalysisRun;
class CElement;
class CLoad;
class CLoadcase;
class CMemResBase;
class CNode;
class CStructure;

// The solver object of one analysis run. It works on the run's expanded copies of nodes,
// elements and load cases: orders the nodes for a small band, numbers the equations, keeps one
// packed stiffness record per element, sizes the blocks of the system from the machine's memory,
// assembles loads and stiffness into the band solver, and turns the solution into nodal
// displacements, support reactions and section forces in the run's result store.
//
// Sign conventions. Loads enter the system as the elements' restraint forces (the forces from the
// nodes on an element held at zero displacement), so the system is solved for the negative of the
// displacements and the sign is turned at output. A supported freedom carries the penalty
// stiffness 1e20 on its diagonal; its reaction is 1e20 times its residual displacement, which is
// the force of the structure on the support. Section forces are in the element's local axes L, M,
// N: the force of the part beyond the section on the part towards node 1, axial tension positive.
class CFrame : public CAnalysisEngine, private SolverSink {
public:
    // Messages of the frame solver (resource numbers); 41001 to 41003 come from the band solver.
    static constexpr int kMsgNoActiveObjects = 40306;
    static constexpr int kMsgSystemTooLarge = 41005;
    static constexpr int kMsgNoFreedoms = 41006;
    static constexpr int kMsgBandTooLarge = 41007;
    static constexpr int kMsgIncomplete = 41008;
    static constexpr int kMsgMemoryLimit = 41009;
    // Resource text of a message of the frame solver; empty for an id it does not have.
    static const char* MessageText(int id);

    // Penalty stiffness of a supported freedom (kN/m, kNm/rad), and the diagonal given to a
    // freedom that nothing stiffens, which so behaves as supported.
    static constexpr double kSupportStiffness = 1e20;

    explicit CFrame(CAnalysisRun& run);
    CFrame(const CFrame&) = delete;
    CFrame& operator=(const CFrame&) = delete;
    ~CFrame() override;

    // ---- stages of the run driver
    bool Provides(EAnalysisStage stage) const override;
    // Brings every element of the run to its cached state: local axes, section values, stiffness.
    int UpdateElementProperties() override;
    // Elements whose update failed or whose end nodes coincide are told in `a`, one line each.
    int IsModelComplete(std::string* a, std::string* b) override;
    int RunSystemAnalysis() override;
    int CalcReactionForces() override;
    int CalcSectionForces() override;
    // Combinations of stored results; the frame hands them to the combination server.
    int ProsessOrdCombinations() override;
    int ProsessSortCombinations() override;
    int ProsessSortLineCombinations() override;
    // One property record per element of the model in the result store.
    int MakeModelElementResults(int modelNo);

    // ---- node ordering
    // 0: back to number order. 1: of the orders by X, Y and Z the last one whose band beats the
    // present order's is taken.
    int FindOptimalNodeSort(int optimize);
    // Stable sort of the node list: key 0 by number, 1 by X, 2 by Y, 3 by Z.
    void SortNodesByCoord(int key);
    // Band of the present node order; -1 without an active node or element.
    int CalcBandWidth();
    // A second ordering by unbranched runs of elements, which the run does not use: the segments
    // are ordered by the coordinate `key` of their centres (1 X, 2 Y, other Z), and the nodes of
    // each segment, walked from its start node, are moved to the head of the node list.
    int SortNodes(int key);
    int SortSegments(int key);
    int SortNodesFromSegments();
    const std::vector<CSegment>& GetSegments() const { return m_segments; }

    // ---- equations, element records and blocks
    // The equation table: one row of six equation numbers per active node, in list order. `neq`
    // returns the number of equations. 0 when there is no active node.
    int PrepareSystemInput(int& neq);
    // Element records and band, then the block size from the memory budgets of the machine.
    int PrepareAnalysis(int neqRows, int nElem, int& band, int& blockSize, int& nBlocks,
                        int& nModes, int bandOnly);
    // The packed stiffness record of every element and the band; with `bandOnly` only the band.
    int MakeElementMatrix(int& band, int bandOnly);
    // Expands the freedoms of an element whose end is a slave onto its master's freedoms with
    // the rigid lever between them: `lm` holds the twelve entries of the two ends' rows and is
    // turned into master equation numbers, and `k` (24 by 24), `f` and `m` (24) grow by two lever
    // rotations for each slave translation. Any of k, f, m may be null. Node indices are rows of
    // the equation table.
    int Slave(int* lm, int node1Index, int node2Index, double (*k)[24], double* f, double* m,
              int* size) const;
    // Restraint forces of all loads of the non-external load cases, block by block, and the sums
    // of applied forces of each case.
    int MakeLoadMatrix(int blockSize, int nBlocks, int nLoad);
    // Assembles two blocks at a time from the element records, applies the diagonal rules and
    // hands the blocks with their loads to the band solver.
    int AddStiffness(int nElem, int nLoad, int band, int nBlocks, int blockSize);
    int SolveStaticAnalysis(int neq, int nLoad, int band, int nBlocks, int blockSize);
    // Solves and writes the displacements of all nodes, slaves included, to the result store.
    int SolveEquations(int neq, int nLoad, int band, int nBlocks, int blockSize);

    // End forces of an element from the global displacements of its two nodes: mode 1 the
    // forces K d of end 1 in global axes, any other mode those of end 1 in local axes with the
    // restraint forces of the load case's loads on the element added.
    int CalcEndForces(CElement& e, int anType, const CLoadcase* lc, int mode, const double* disp,
                      double* force);

    // Text of message `id`, "\r\n", then `extra`: shown in a box unless the run is in batch mode,
    // in which case it goes to the run's log. Kind 1 question, 2 info, 3 warning, 4 error.
    void DisplayMessage(int kind, int id, const std::string* extra);

    // ---- state for callers and tests
    int GetAnType() const { return AnType; }
    const std::vector<std::array<int, 6>>& GetEquationTable() const { return m_eq; }
    // Row of the equation table of a node, -1 when the node has none.
    int GetNodeRow(int nodeNo) const;
    // The band solver of the run; its system lives from AddStiffness to the end of the run.
    CBandSolver* GetSolver() { return m_solver.get(); }
    // The store that results of this run go to: the traffic store of a traffic run, else the
    // run's result store.
    CMemResBase* GetResultStore() const;
    CMemResBase* GetTrafResBasePtr() const { return m_trafResBase.get(); }
    // Blocks that the machine's memory lets the system store hold at the present block size.
    int GetMaxBlocks() const { return m_maxBlocks; }

private:
    // One element's packed record: freedoms, equation number per freedom (0 unused), and the
    // upper triangle of its matrix in row order at `offset` in the record pool.
    struct ElementRecord {
        int No = 0;
        int n = 0;
        std::array<int, 24> lm{};
        std::size_t offset = 0;
        int minEq = 0, maxEq = 0;
    };

    void Message(int kind, int id, const std::string& extra) override;
    void Status(const std::string& text) override;
    void ShowText(int kind, const std::string& text);
    CStructure* Structure() const;
    int GeomFlag() const;
    // Equation numbers of the two ends of an element, through Slave when either is a slave; 0
    // when an end node has no row.
    int ElementFreedoms(const CElement& e, int* lm, double (*k)[24], double* f, int* size) const;
    bool IsSlave(const CNode* node) const;
    // Non-external load cases of the run in list order.
    std::vector<CLoadcase*> SolvedLoadcases() const;
    int ReadDisplacements(const CElement& e, int lc, double* disp) const;
    int EndForces(CElement& e, int anType, const std::vector<CLoad*>& loads, int mode,
                  const double* disp, double* force);
    void SetCaseSums(CLoadcase& lc, const double* sums, bool applied) const;
    void FreeSystem();

    CAnalysisRun& m_run;
    int AnType = 1;
    std::unique_ptr<CMemResBase> m_trafResBase;

    std::vector<std::array<int, 6>> m_eq;
    std::vector<CNode*> m_rowNode;
    std::unordered_map<int, int> m_rowOfNode;
    std::vector<int> m_dofOfEq;
    int m_neq = 0;

    std::vector<ElementRecord> m_records;
    std::vector<double> m_pool;
    std::vector<std::vector<double>> m_loadStore;
    int m_maxBlocks = 0;

    std::unique_ptr<CBandSolver> m_solver;
    std::vector<CSegment> m_segments;
    // Messages of element updates, by element number, for the model check.
    std::vector<std::string> m_updateErrors;
    bool m_updated = false;
};

} // namespace kelo
