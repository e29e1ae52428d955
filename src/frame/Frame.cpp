#include "frame/Frame.h"

#include "frame/CombServer.h"
#include "frame/Element.h"
#include "frame/ModeRes.h"
#include "frame/ModelElemRes.h"
#include "model/AnalysisRun.h"
#include "model/Displace.h"
#include "model/Loadcase.h"
#include "model/Member.h"
#include "model/Model.h"
#include "model/Node.h"
#include "model/Structure.h"
#include "platform/Machine.h"
#include "platform/Sinks.h"
#include "platform/Text.h"
#include "store/MemResBase.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <new>

namespace kelo {

namespace {

// Result type of load case results in the store.
constexpr int kResultLoadcase = 1;
// Write mode of the store's InBase calls; 0 reads.
constexpr int kStoreWrite = 5;
constexpr int kStoreRead = 0;
// A diagonal below this in size has no stiffness; above kDiagonalCap it holds more than one
// support term and is brought back to one.
constexpr double kNoStiffness = 1e-20;
constexpr double kDiagonalCap = 1.01e20;
// End nodes closer than this (m) make an element of no length.
constexpr double kSamePoint = 1e-5;
// Position argument of the element load routines that asks for end forces, not a section.
constexpr double kEndForces = -1000.0;

// Index of (row i, column j >= i) in the upper triangle of an n by n matrix packed row by row.
std::size_t Packed(int i, int j, int n) {
    return static_cast<std::size_t>(i) * n - static_cast<std::size_t>(i) * (i - 1) / 2 + (j - i);
}

// Lever arms of a slave translation j (0 X, 1 Y, 2 Z) onto the master's rotations, with d the
// slave minus the master coordinates: u_slave = u_master + a rot[ra] + b rot[rb].
struct Lever {
    double a, b;
    int ra, rb;
};
Lever LeverOf(int j, const double d[3]) {
    switch (j) {
    case 0:
        return {-d[1], d[2], 5, 4};
    case 1:
        return {-d[2], d[0], 3, 5};
    default:
        return {-d[0], d[1], 4, 3};
    }
}

MsgKind BoxKind(int kind) {
    switch (kind) {
    case 1:
        return MsgKind::Question;
    case 2:
        return MsgKind::Note;
    case 3:
        return MsgKind::Warning;
    default:
        return MsgKind::Error;
    }
}

double Coord(const CNode& n, int key) {
    return key == 1 ? n.GetX() : key == 2 ? n.GetY() : n.GetZ();
}

} // namespace

const char* CFrame::MessageText(int id) {
    switch (id) {
    case kMsgNoActiveObjects:
        return "Info!\n\nThe model has no active nodes or elements!";
    case CBandSolver::kMsgStoreAccess:
    case CBandSolver::kMsgNoMemory:
    case CBandSolver::kMsgNegativeStiffness:
        return CBandSolver::MessageText(id);
    case 41004:
        return "Error!\n\nZero stiffness on main diagonal! Run will be terminated!";
    case kMsgSystemTooLarge:
        return "Error!\n\nSystem too large! Run will be terminated!";
    case kMsgNoFreedoms:
        return "Error!\n\nSystem with no degrees of freedom! Run will be terminated!";
    case kMsgBandTooLarge:
        return "Error!\n\nBand width is too large!\nUnable to perform analysis!";
    case kMsgIncomplete:
        return "Frame input data are incomplete!";
    case kMsgMemoryLimit:
        return "Error!\n\nThe system needs more memory than the machine has! Run will be "
               "terminated!";
    default:
        return "";
    }
}

CFrame::CFrame(CAnalysisRun& run)
    : m_run(run), AnType(run.GetAnType()), m_solver(std::make_unique<CBandSolver>()) {}

CFrame::~CFrame() = default;

CStructure* CFrame::Structure() const { return m_run.GetStructure(); }

bool CFrame::Provides(EAnalysisStage stage) const {
    switch (stage) {
    case EAnalysisStage::ElementProperties:
    case EAnalysisStage::ModelCheck:
        return true;
    case EAnalysisStage::SystemAnalysis:
        return AnType >= 1 && AnType <= 3;
    case EAnalysisStage::ReactionForces:
    case EAnalysisStage::SectionForces:
        return (AnType >= 1 && AnType <= 3) || AnType == 5 || AnType == 6;
    case EAnalysisStage::OrdCombinations:
    case EAnalysisStage::SortCombinations:
    case EAnalysisStage::SortLineCombinations:
        return true;
    default:
        return false;
    }
}

int CFrame::ProsessOrdCombinations() {
    return CCombServer::ProsessOrdCombinations(Structure(), m_run.GetMemResBasePtr(),
                                               m_run.GetInfo());
}

int CFrame::ProsessSortCombinations() {
    return CCombServer::ProsessSortCombinations(Structure(), m_run.GetMemResBasePtr(),
                                                m_run.GetInfo());
}

int CFrame::ProsessSortLineCombinations() {
    return CCombServer::ProsessSortLineCombinations(Structure(), m_run.GetMemResBasePtr(),
                                                    m_run.GetInfo());
}

int CFrame::GeomFlag() const {
    if (AnType == 7 || AnType == 8) return 1;
    const CAnalysisSetup* setup = m_run.GetAnalysisSetupPtr();
    return setup ? setup->GetIncludeAxial() : 0;
}

CMemResBase* CFrame::GetResultStore() const {
    return AnType == 2 && m_trafResBase ? m_trafResBase.get() : m_run.GetMemResBasePtr();
}

int CFrame::GetNodeRow(int nodeNo) const {
    const auto it = m_rowOfNode.find(nodeNo);
    return it == m_rowOfNode.end() ? -1 : it->second;
}

bool CFrame::IsSlave(const CNode* node) const { return node && node->GetFix(0) < 0; }

std::vector<CLoadcase*> CFrame::SolvedLoadcases() const {
    std::vector<CLoadcase*> cases;
    for (CLoadcase* lc : m_run.GetLoadcaseList())
        if (lc->GetExternal() == 0) cases.push_back(lc);
    return cases;
}

// ------------------------------------------------------------------------- messages

void CFrame::DisplayMessage(int kind, int id, const std::string* extra) {
    std::string text = std::string(MessageText(id)) + "\r\n";
    if (extra) text += *extra;
    ShowText(kind, text);
}

void CFrame::ShowText(int kind, const std::string& text) {
    if (!m_run.GetBatch() && Structure()) Structure()->GetMessageSink().Show(BoxKind(kind), text);
    if (kind >= 3)
        m_run.LogError(text + "\r\n");
    else
        m_run.Log(text + "\r\n");
}

void CFrame::Message(int kind, int id, const std::string& extra) {
    DisplayMessage(kind, id, &extra);
}

void CFrame::Status(const std::string& text) {
    if (ProgressSink* progress = m_run.GetProgress()) progress->SetText(text);
}

// ------------------------------------------------------------------------- element state

int CFrame::UpdateElementProperties() {
    m_updateErrors.clear();
    m_updated = true;
    CStructure* s = Structure();
    const int geomFlag = GeomFlag();
    for (CElement* e : m_run.GetElementList()) {
        if (e->GetNo() < 1) continue;
        std::string msg;
        const CNode* n1 = e->GetNodeNo1Ptr();
        const CNode* n2 = e->GetNodeNo2Ptr();
        const bool noLength = n1 && n2 &&
                              std::hypot(n2->GetX() - n1->GetX(), n2->GetY() - n1->GetY(),
                                         n2->GetZ() - n1->GetZ()) <= kSamePoint;
        if (noLength || !e->Update(s, AnType, geomFlag, &msg)) {
            if (noLength || msg.empty())
                msg = Format("Element update error: Unable to calc. local axis or node(s) non "
                             "exsisting, element no. %i\r\n",
                             e->GetNo());
            m_updateErrors.push_back(msg);
        }
    }
    return m_updateErrors.empty() ? 1 : 0;
}

int CFrame::IsModelComplete(std::string* a, std::string*) {
    if (!m_updated) UpdateElementProperties();
    for (const std::string& msg : m_updateErrors)
        if (a) *a += msg;
    return m_updateErrors.empty() ? 1 : 0;
}

// ------------------------------------------------------------------------- node ordering

void CFrame::SortNodesByCoord(int key) {
    CObList<CNode>& nodes = m_run.GetNodeList();
    if (key < 1 || key > 3) {
        nodes.SortByNumber();
        return;
    }
    nodes.SortBy([key](const CNode& a, const CNode& b) { return Coord(a, key) < Coord(b, key); });
}

int CFrame::CalcBandWidth() {
    int active = 0, elements = 0;
    for (const CNode* n : m_run.GetNodeList()) active += n->GetState() == 1 ? 1 : 0;
    for (const CElement* e : m_run.GetElementList())
        elements += e->GetNo() >= 1 && e->GetType() >= 1 ? 1 : 0;
    if (active < 1 || elements < 1) return -1;
    int neq = 0, band = 0, blockSize = 0, nBlocks = 0, nModes = 0;
    PrepareSystemInput(neq);
    if (!PrepareAnalysis(neq, elements, band, blockSize, nBlocks, nModes, 1)) return -1;
    return band;
}

int CFrame::FindOptimalNodeSort(int optimize) {
    if (!optimize) {
        SortNodesByCoord(0);
        return 1;
    }
    // The starting band is not lowered as the keys are tried, so the last key that beats the
    // starting order wins, not the one with the smallest band.
    const int b0 = CalcBandWidth();
    int best = 0;
    for (int key = 1; key <= 3; ++key) {
        SortNodesByCoord(key);
        if (CalcBandWidth() < b0) best = key;
    }
    SortNodesByCoord(best);
    return 1;
}

int CFrame::SortNodes(int key) {
    if (!SortSegments(key)) return 0;
    return SortNodesFromSegments();
}

int CFrame::SortSegments(int key) {
    m_segments.clear();
    std::vector<COptiNode> nodes;
    std::unordered_map<int, int> index;
    for (const CNode* n : m_run.GetNodeList()) {
        if (n->GetState() != 1) continue;
        index[n->GetNo()] = static_cast<int>(nodes.size());
        nodes.emplace_back(n->GetNo(), n->GetX(), n->GetY(), n->GetZ());
    }
    std::vector<COptiElement> elements;
    for (const CElement* e : m_run.GetElementList()) {
        const auto i1 = index.find(e->GetNodeNo1());
        const auto i2 = index.find(e->GetNodeNo2());
        if (e->GetNo() < 1 || i1 == index.end() || i2 == index.end()) continue;
        const int at = static_cast<int>(elements.size());
        elements.emplace_back(e->GetNo(), i1->second, i2->second);
        nodes[static_cast<std::size_t>(i1->second)].Elements.push_back(at);
        nodes[static_cast<std::size_t>(i2->second)].Elements.push_back(at);
    }
    if (elements.empty()) return 0;

    // Walks from node `start` along element `first` until a node where the frame branches or
    // ends, or an element already taken.
    std::vector<CSegment> found;
    auto walk = [&](int start, int first) {
        CSegment seg;
        seg.Nodes.push_back(nodes[static_cast<std::size_t>(start)].No);
        int node = start, el = first;
        while (el >= 0) {
            COptiElement& e = elements[static_cast<std::size_t>(el)];
            e.Used = 1;
            node = e.Node1 == node ? e.Node2 : e.Node1;
            const COptiNode& at = nodes[static_cast<std::size_t>(node)];
            seg.Nodes.push_back(at.No);
            el = -1;
            if (at.Elements.size() != 2) break;
            for (int next : at.Elements)
                if (!elements[static_cast<std::size_t>(next)].Used) el = next;
        }
        const COptiNode& a = nodes[static_cast<std::size_t>(start)];
        const COptiNode& b = nodes[static_cast<std::size_t>(node)];
        seg.Centre[0] = 0.5 * (a.X + b.X);
        seg.Centre[1] = 0.5 * (a.Y + b.Y);
        seg.Centre[2] = 0.5 * (a.Z + b.Z);
        found.push_back(std::move(seg));
    };
    for (int pass = 0; pass < 2; ++pass)
        for (std::size_t n = 0; n < nodes.size(); ++n) {
            // Segments start at ends and branches first; what is left are closed rings.
            if (pass == 0 && nodes[n].Elements.size() == 2) continue;
            for (int el : nodes[n].Elements)
                if (!elements[static_cast<std::size_t>(el)].Used) walk(static_cast<int>(n), el);
        }

    // Repeated selection of the smallest centre coordinate; of equal ones the first found.
    while (!found.empty()) {
        auto smallest =
            std::min_element(found.begin(), found.end(), [key](const auto& a, const auto& b) {
                return a.GetCentre(key) < b.GetCentre(key);
            });
        m_segments.push_back(std::move(*smallest));
        found.erase(smallest);
    }
    return 1;
}

int CFrame::SortNodesFromSegments() {
    if (m_segments.empty()) return 0;
    std::vector<int> order;
    for (const CNode* n : m_run.GetNodeList()) order.push_back(n->GetNo());
    for (const CSegment& seg : m_segments)
        for (int no : seg.Nodes) {
            const auto at = std::find(order.begin(), order.end(), no);
            if (at == order.end()) continue;
            order.erase(at);
            order.insert(order.begin(), no);
        }
    std::unordered_map<int, std::size_t> rank;
    for (std::size_t i = 0; i < order.size(); ++i) rank[order[i]] = i;
    m_run.GetNodeList().SortBy(
        [&rank](const CNode& a, const CNode& b) { return rank[a.GetNo()] < rank[b.GetNo()]; });
    return 1;
}

// ------------------------------------------------------------------------- equations

int CFrame::PrepareSystemInput(int& neq) {
    m_eq.clear();
    m_rowNode.clear();
    m_rowOfNode.clear();
    int next = 1;
    for (CNode* n : m_run.GetNodeList()) {
        if (n->GetState() != 1) continue;
        std::array<int, 6> row{};
        for (int i = 0; i < 6; ++i)
            row[static_cast<std::size_t>(i)] = IsSlave(n) ? n->GetFix(i) : next + i;
        if (!IsSlave(n)) next += 6;
        m_rowOfNode[n->GetNo()] = static_cast<int>(m_eq.size());
        m_eq.push_back(row);
        m_rowNode.push_back(n);
    }
    neq = next - 1;
    m_neq = neq;
    m_dofOfEq.assign(static_cast<std::size_t>(neq) + 1, 0);
    for (std::size_t r = 0; r < m_eq.size(); ++r) {
        if (IsSlave(m_rowNode[r])) continue;
        for (int i = 0; i < 6; ++i)
            m_dofOfEq[static_cast<std::size_t>(m_eq[r][static_cast<std::size_t>(i)])] = i + 1;
    }
    return m_eq.empty() ? 0 : 1;
}

int CFrame::ElementFreedoms(const CElement& e, int* lm, double (*k)[24], double* f,
                            int* size) const {
    std::fill(lm, lm + 24, 0);
    *size = 12;
    const int rows[2] = {GetNodeRow(e.GetNodeNo1()), GetNodeRow(e.GetNodeNo2())};
    bool slave = false;
    for (int end = 0; end < 2; ++end) {
        const int r = rows[end];
        if (r < 0) continue;
        const bool isSlave = IsSlave(m_rowNode[static_cast<std::size_t>(r)]);
        slave = slave || isSlave;
        for (int i = 0; i < 6; ++i) {
            const int v = m_eq[static_cast<std::size_t>(r)][static_cast<std::size_t>(i)];
            // A slave's own freedoms that are not linked have no equation of their own.
            lm[6 * end + i] = isSlave && v >= 0 ? 0 : v;
        }
    }
    if (slave) return Slave(lm, rows[0], rows[1], k, f, nullptr, size);
    return 1;
}

int CFrame::Slave(int* lm, int node1Index, int node2Index, double (*k)[24], double* f, double* m,
                  int* size) const {
    int ok = 1;
    const int index[2] = {node1Index, node2Index};
    for (int end = 0; end < 2; ++end) {
        const int base = 6 * end;
        if (index[end] < 0) continue;
        const CNode* slave = m_rowNode[static_cast<std::size_t>(index[end])];
        for (int j = 0; j < 6; ++j) {
            const int p = base + j;
            if (lm[p] >= 0) continue;
            const int mr = GetNodeRow(-lm[p]);
            if (mr < 0 || IsSlave(m_rowNode[static_cast<std::size_t>(mr)])) {
                lm[p] = 0;
                ok = 0;
                continue;
            }
            const auto& masterRow = m_eq[static_cast<std::size_t>(mr)];
            lm[p] = masterRow[static_cast<std::size_t>(j)];
            if (j > 2) continue;
            const CNode* master = m_rowNode[static_cast<std::size_t>(mr)];
            const double d[3] = {slave->GetX() - master->GetX(), slave->GetY() - master->GetY(),
                                 slave->GetZ() - master->GetZ()};
            const Lever lever = LeverOf(j, d);
            const int s = *size;
            if (k) {
                for (int i = 0; i < s; ++i) {
                    k[s][i] = k[p][i] * lever.a;
                    k[s + 1][i] = k[p][i] * lever.b;
                    k[i][s] = k[i][p] * lever.a;
                    k[i][s + 1] = k[i][p] * lever.b;
                }
                k[s][s] = k[p][p] * lever.a * lever.a;
                k[s + 1][s + 1] = k[p][p] * lever.b * lever.b;
                k[s][s + 1] = k[s + 1][s] = k[p][p] * lever.a * lever.b;
            }
            if (f) {
                f[s] = f[p] * lever.a;
                f[s + 1] = f[p] * lever.b;
            }
            if (m) {
                m[s] = m[p] * lever.a * lever.a;
                m[s + 1] = m[p] * lever.b * lever.b;
            }
            lm[s] = masterRow[static_cast<std::size_t>(lever.ra)];
            lm[s + 1] = masterRow[static_cast<std::size_t>(lever.rb)];
            *size += 2;
        }
    }
    return ok;
}

int CFrame::MakeElementMatrix(int& band, int bandOnly) {
    CObList<CElement>& elements = m_run.GetElementList();
    if (elements.IsEmpty()) return 0;
    CStructure* s = Structure();
    const int geomFlag = GeomFlag();
    band = 1;
    if (!bandOnly) {
        m_records.clear();
        m_pool.clear();
        m_records.reserve(elements.GetCount());
        m_pool.reserve(elements.GetCount() * 78);
    }
    for (CElement* e : elements) {
        if (e->GetNo() < 1) continue;
        ElementRecord rec;
        rec.No = e->GetNo();
        int* lm = rec.lm.data();
        if (bandOnly) {
            ElementFreedoms(*e, lm, nullptr, nullptr, &rec.n);
        } else {
            double k12[12][12] = {};
            double f12[12] = {};
            const bool made =
                e->MakeTransMatrix(s) && e->MakeStiffMatrix(s, k12, f12, AnType, geomFlag);
            bool finite = true;
            for (const auto& row : k12)
                for (double v : row) finite = finite && std::isfinite(v);
            if (!made || !finite) {
                const std::string extra =
                    made ? Format("Stiffness matrix of element no. %i is not finite: a released "
                                  "freedom has no stiffness.",
                                  rec.No)
                         : Format("Element no.: %i", rec.No);
                DisplayMessage(4, kMsgIncomplete, &extra);
                return 0;
            }
            double k[24][24] = {};
            for (int i = 0; i < 12; ++i)
                for (int j = 0; j < 12; ++j) k[i][j] = k12[i][j];
            ElementFreedoms(*e, lm, k, nullptr, &rec.n);
            // Supports: the penalty replaces what the element gave the freedom's diagonal.
            const CNode* ends[2] = {e->GetNodeNo1Ptr(), e->GetNodeNo2Ptr()};
            for (int end = 0; end < 2; ++end) {
                if (!ends[end] || IsSlave(ends[end])) continue;
                for (int i = 0; i < 6; ++i)
                    if (ends[end]->GetFix(i) == 1) k[6 * end + i][6 * end + i] = kSupportStiffness;
            }
            rec.offset = m_pool.size();
            for (int i = 0; i < rec.n; ++i)
                for (int j = i; j < rec.n; ++j) m_pool.push_back(k[i][j]);
        }
        // For two nodes of six consecutive equations each this span is the band of the pairs
        // (first of end 1, last of end 2) and (last of end 1, first of end 2); it also covers the
        // lever rotations of a slave end.
        int lo = INT_MAX, hi = 0;
        for (int i = 0; i < rec.n; ++i)
            if (lm[i] > 0) {
                lo = std::min(lo, lm[i]);
                hi = std::max(hi, lm[i]);
            }
        if (hi == 0) continue;
        band = std::max(band, hi - lo + 1);
        rec.minEq = lo;
        rec.maxEq = hi;
        if (!bandOnly) m_records.push_back(rec);
    }
    return 1;
}

int CFrame::PrepareAnalysis(int neqRows, int nElem, int& band, int& blockSize, int& nBlocks,
                            int& nModes, int bandOnly) {
    (void)nElem;
    if (AnType == 5 || AnType == 6) return 1;
    if (!MakeElementMatrix(band, bandOnly)) return 0;
    if (bandOnly) return 1;

    // Three budgets of the machine's memory, in bytes, against which counts of doubles are held
    // directly: A the reduction of one block, B the load rows, C the remaining arrays.
    const double P = static_cast<double>(GetMachine().PhysicalMemory());
    double L = 0.0;
    for (const CLoadcase* lc : m_run.GetLoadcaseList()) L += lc->GetExternal() == 0 ? 1.0 : 0.0;
    const double w = band;
    const double n = neqRows;
    double A = 0.4 * P, B = 0.1 * P, C = 0.08 * P;
    if (w * L + (n + 3) / 4 > B) B = w * L + (n + 3) / 4 + 1000;
    if (2 * w * (w + L) - 1 > A) A = 2 * w * (w + L) + 1000;
    const double a2 = (2 * w + 6 * L + 1) * w + 2 * L * (w - 2) + w;
    if (a2 > A) A = std::max(A, a2 + 1000);
    const double a3 = (((w + L) * 4 + 1) * w - w) / 2;
    if (a3 > A) A = std::max(A, a3 + 1000);
    if (w * L + 6 * L >= C) C = w * L + 6 * L + 1000;
    if (0.6 * P < A + B + C) {
        DisplayMessage(4, kMsgMemoryLimit, nullptr);
        return 0;
    }

    auto toBlockSize = [](double candidate) {
        const double capped =
            std::isnan(candidate) ? 0.0 : std::clamp(candidate, -2147483647.0, 2147483647.0);
        int S = static_cast<int>(capped);
        // Whole nodes to a block.
        return (S / 6 + 1) * 6;
    };
    int S = 0;
    if (AnType >= 1 && AnType <= 3) {
        const double candidate = std::min({(B - (n + 3) / 4) / L, (A + 1) / (w + L) / 2,
                                           (2 * A - 2 * L * (w - 2) - w) / (2 * w + 6 * L + 1),
                                           (2 * A - w) / ((w + L) * 4 + 1), (C - 6 * L) / L});
        S = toBlockSize(candidate);
        nBlocks = S > 0 ? (neqRows - 1) / S + 1 : 0;
        if (S > neqRows) S = neqRows;
        if (w - 2 >= S) {
            DisplayMessage(4, kMsgBandTooLarge, nullptr);
            return 0;
        }
    } else if (AnType == 4) {
        CModel* model = m_run.GetModel();
        nModes = model ? model->GetNoOfModes() : 0;
        if (model) {
            model->GetEigenModeList().RemoveAll();
            for (int i = 1; i <= nModes; ++i) model->GetEigenModeList().Emplace(i, 0.0);
        }
        const double m = nModes;
        const double q = std::min(2 * m, m + 8);
        const double candidate = std::min({(A - 1) / (w + 1) / 2, (A - w) / (2 * w + 1),
                                           (A - w - 2 * q - q * (w - 2)) / (3 * q + w + 1),
                                           (A - 3 * q * q - 3 * q) / (2 * q + 1),
                                           (A - 6 * q) / (1 + w), (C - 6 * m) / m});
        S = toBlockSize(candidate);
        nBlocks = S > 0 ? (neqRows - 1) / S + 1 : 0;
        if (nBlocks == 1) {
            nBlocks = 2;
            S = (neqRows + 1) / 2;
        }
        if (S > neqRows) S = neqRows;
    }
    if (S < 1) {
        DisplayMessage(4, kMsgSystemTooLarge, nullptr);
        return 0;
    }
    blockSize = S;
    // The system store keeps every block in memory, as many as 0.6 of the memory holds.
    const double blockBytes = 8.0 * S * (w + L);
    m_maxBlocks = static_cast<int>(std::min(0.6 * P / blockBytes, 2147483647.0));
    return 1;
}

// ------------------------------------------------------------------------- loads and assembly

int CFrame::MakeLoadMatrix(int blockSize, int nBlocks, int nLoad) {
    const std::vector<CLoadcase*> cases = SolvedLoadcases();
    if (AnType >= 1 && AnType <= 3 && cases.empty()) {
        const std::string extra = "No load cases to analyse.";
        DisplayMessage(4, kMsgIncomplete, &extra);
        return 0;
    }
    CStructure* s = Structure();
    const int S = blockSize;
    std::vector<std::array<double, 6>> sums(cases.size(), std::array<double, 6>{});
    int failures = 0;
    m_loadStore.assign(static_cast<std::size_t>(std::max(nBlocks, 0)), {});
    for (int b = 1; b <= nBlocks; ++b) {
        if (b > m_maxBlocks) {
            ShowText(4, "Too many blocks");
            return 0;
        }
        std::vector<double> rows;
        try {
            rows.assign(static_cast<std::size_t>(S) * nLoad, 0.0);
        } catch (const std::bad_alloc&) {
            DisplayMessage(4, CBandSolver::kMsgNoMemory, nullptr);
            return 0;
        }
        const int lo = (b - 1) * S + 1, hi = b * S;
        if (AnType >= 1 && AnType <= 3) {
            for (std::size_t c = 0; c < cases.size(); ++c) {
                for (CLoad* load : cases[c]->GetLoadList()) {
                    CElement* e = load->GetElemPtr();
                    if (!e || e->GetType() < 1) continue;
                    int lm[24];
                    int size = 12;
                    ElementFreedoms(*e, lm, nullptr, nullptr, &size);
                    if (std::none_of(lm, lm + size,
                                     [lo, hi](int eq) { return eq >= lo && eq <= hi; }))
                        continue;
                    double f12[12] = {};
                    if (!e->FixedEndForces(s, load, f12, kEndForces, 2, AnType)) {
                        ++failures;
                        continue;
                    }
                    double f[24] = {};
                    std::copy(f12, f12 + 12, f);
                    ElementFreedoms(*e, lm, nullptr, f, &size);
                    for (int i = 0; i < size; ++i) {
                        const int eq = lm[i];
                        if (eq < lo || eq > hi) continue;
                        rows[static_cast<std::size_t>(eq - lo) * nLoad + c] += f[i];
                        sums[c][static_cast<std::size_t>(m_dofOfEq[static_cast<std::size_t>(eq)] -
                                                         1)] -= f[i];
                    }
                }
            }
        }
        m_loadStore[static_cast<std::size_t>(b - 1)] = std::move(rows);
    }
    for (std::size_t c = 0; c < cases.size(); ++c) SetCaseSums(*cases[c], sums[c].data(), true);
    return failures == 0 ? 1 : 0;
}

void CFrame::SetCaseSums(CLoadcase& lc, const double* sums, bool applied) const {
    // The project's own case keeps the sums when the results are the project's.
    CLoadcase* own = nullptr;
    if (Structure() && m_run.GetMemResBasePtr() == Structure()->GetResBasePtr())
        own = Structure()->GetLoadcasePtr(lc.GetLoadcaseNo());
    for (CLoadcase* target : {&lc, own}) {
        if (!target) continue;
        for (int i = 0; i < 6; ++i) {
            if (applied)
                target->SetSumAppForces(i, sums[i]);
            else
                target->SetSumReaForces(i, sums[i]);
        }
    }
}

int CFrame::AddStiffness(int nElem, int nLoad, int band, int nBlocks, int blockSize) {
    (void)nElem;
    const int S = blockSize;
    std::vector<int> nodeTable;
    for (const CNode* n : m_run.GetNodeList())
        if (n->GetState() != 0 && n->GetFix(0) >= 0) nodeTable.push_back(n->GetNo());
    m_solver = std::make_unique<CBandSolver>();
    m_solver->SetNodeNumbers(std::move(nodeTable));
    if (!m_solver->Init(m_neq, nLoad, band, S, this)) return 0;

    // Two blocks at a time: every element record with a freedom among their rows adds its terms
    // of those rows into the band, then the diagonals of the rows are checked and the rows' loads
    // follow.
    int counted = 0;
    for (int i = 1; i <= nBlocks; i += 2) {
        const int inPair = i < nBlocks ? 2 : 1;
        const int first = (i - 1) * S;
        const int last = std::min(m_neq, first + inPair * S);
        for (const ElementRecord& rec : m_records) {
            if (rec.maxEq <= first || rec.minEq > last) continue;
            const double* k = m_pool.data() + rec.offset;
            for (int a = 0; a < rec.n; ++a) {
                const int row = rec.lm[static_cast<std::size_t>(a)];
                if (row <= first || row > last) continue;
                for (int c = 0; c < rec.n; ++c) {
                    const int col = rec.lm[static_cast<std::size_t>(c)];
                    if (col < row || col - row >= band) continue;
                    m_solver->AddStiffness(
                        row, col, a <= c ? k[Packed(a, c, rec.n)] : k[Packed(c, a, rec.n)]);
                }
            }
        }
        for (int eq = first + 1; eq <= last; ++eq) {
            double d = m_solver->GetStiffness(eq, eq);
            if (std::fabs(d) > kNoStiffness) ++counted;
            if (std::fabs(d) < kNoStiffness || d > kDiagonalCap) d = kSupportStiffness;
            m_solver->SetStiffness(eq, eq, d);
        }
        for (int p = 0; p < inPair; ++p) {
            std::vector<double>& stored = m_loadStore[static_cast<std::size_t>(i - 1 + p)];
            const int row0 = first + p * S;
            for (int r = 0; r < S && row0 + r < m_neq; ++r)
                for (int l = 0; l < nLoad; ++l) {
                    const double v = stored[static_cast<std::size_t>(r) * nLoad + l];
                    if (v != 0.0) m_solver->AddLoad(row0 + r + 1, l + 1, v);
                }
            stored = {};
        }
    }
    if (counted == 0) {
        DisplayMessage(4, kMsgNoFreedoms, nullptr);
        return 0;
    }
    return 1;
}

int CFrame::SolveStaticAnalysis(int neq, int nLoad, int band, int nBlocks, int blockSize) {
    if (!AddStiffness(static_cast<int>(m_records.size()), nLoad, band, nBlocks, blockSize))
        return 0;
    return SolveEquations(neq, nLoad, band, nBlocks, blockSize);
}

int CFrame::SolveEquations(int neq, int nLoad, int band, int nBlocks, int blockSize) {
    (void)neq;
    (void)nLoad;
    (void)band;
    (void)nBlocks;
    (void)blockSize;
    if (!m_solver || !m_solver->SolveEquations()) return 0;
    CMemResBase* store = GetResultStore();
    if (!store) return 0;
    const int model = m_run.GetModel() ? m_run.GetModel()->GetModelNo() : 0;
    const std::vector<CLoadcase*> cases = SolvedLoadcases();
    for (std::size_t r = 0; r < m_eq.size(); ++r) {
        const CNode* node = m_rowNode[r];
        if (IsSlave(node)) continue;
        for (std::size_t l = 0; l < cases.size(); ++l) {
            double u[6];
            for (int i = 0; i < 6; ++i)
                u[i] = m_solver->GetDisplacement(m_eq[r][static_cast<std::size_t>(i)],
                                                 static_cast<int>(l) + 1);
            const int lc = cases[l]->GetLoadcaseNo();
            CDisplace d(node->GetNo(), lc, 1, u[0], u[1], u[2], u[3], u[4], u[5]);
            store->NodeDisplaceInBase(0, kStoreWrite, model, node->GetNo(), kResultLoadcase, lc,
                                      &d);
        }
    }
    // A slave follows its master as a rigid lever.
    for (std::size_t r = 0; r < m_eq.size(); ++r) {
        const CNode* node = m_rowNode[r];
        if (!IsSlave(node)) continue;
        const CNode* master = m_run.GetNodeList().Get(-node->GetFix(0));
        if (!master) continue;
        for (const CLoadcase* lc : cases) {
            CDisplace md;
            store->NodeDisplaceInBase(0, kStoreRead, model, master->GetNo(), kResultLoadcase,
                                      lc->GetLoadcaseNo(), &md);
            double um[6], us[6];
            for (int i = 0; i < 6; ++i) um[i] = md.Get(i);
            CBandSolver::SlaveDisplacement(um, node->GetX() - master->GetX(),
                                           node->GetY() - master->GetY(),
                                           node->GetZ() - master->GetZ(), us);
            CDisplace d(node->GetNo(), lc->GetLoadcaseNo(), 1, us[0], us[1], us[2], us[3], us[4],
                        us[5]);
            store->NodeDisplaceInBase(0, kStoreWrite, model, node->GetNo(), kResultLoadcase,
                                      lc->GetLoadcaseNo(), &d);
        }
    }
    return 1;
}

void CFrame::FreeSystem() {
    m_records = {};
    m_pool = {};
    m_loadStore = {};
    m_solver = std::make_unique<CBandSolver>();
}

int CFrame::RunSystemAnalysis() {
    if (AnType < 1 || AnType > 3) return 0;
    const CObList<CNode>& nodes = m_run.GetNodeList();
    const CObList<CElement>& elements = m_run.GetElementList();
    int active = 0, nElem = 0;
    for (const CNode* n : nodes) active += n->GetState() == 1 ? 1 : 0;
    for (const CElement* e : elements) nElem += e->GetNo() >= 1 && e->GetType() >= 1 ? 1 : 0;
    if (active < 1 || nElem < 1) {
        DisplayMessage(2, kMsgNoActiveObjects, nullptr);
        return 0;
    }
    if (AnType == 2) {
        m_trafResBase = std::make_unique<CMemResBase>(Structure());
        m_trafResBase->SetType(2);
    }

    Status("Optimizing band width!");
    FindOptimalNodeSort(1);
    Status("Band width optimization completed!");

    int neq = 0, band = 0, blockSize = 0, nBlocks = 0, nModes = 0, nLoad = 0;
    for (const CLoadcase* lc : m_run.GetLoadcaseList())
        nLoad += lc->GetExternal() != 0 && lc->GetActive() != 0 ? 0 : 1;
    int result = 0;
    try {
        result = [&] {
            PrepareSystemInput(neq);
            if (neq < 1) {
                DisplayMessage(4, kMsgNoFreedoms, nullptr);
                return 0;
            }
            if (!PrepareAnalysis(neq, nElem, band, blockSize, nBlocks, nModes, 0)) return 0;
            if (!MakeLoadMatrix(blockSize, nBlocks, nLoad)) return 0;
            return SolveStaticAnalysis(neq, nLoad, band, nBlocks, blockSize);
        }();
    } catch (const std::bad_alloc&) {
        DisplayMessage(4, CBandSolver::kMsgNoMemory, nullptr);
        result = 0;
    }
    const int statistics[5] = {neq, band, blockSize, nBlocks, nLoad};
    for (int i = 0; i < 5; ++i) m_run.SetRunStatistics(i, statistics[i]);
    FindOptimalNodeSort(0);
    FreeSystem();
    return result;
}

// ------------------------------------------------------------------------- results

int CFrame::ReadDisplacements(const CElement& e, int lc, double* disp) const {
    CMemResBase* store = GetResultStore();
    const int model = m_run.GetModel() ? m_run.GetModel()->GetModelNo() : 0;
    const int nodes[2] = {e.GetNodeNo1(), e.GetNodeNo2()};
    int found = 0;
    for (int end = 0; end < 2; ++end) {
        CDisplace d;
        if (store &&
            store->NodeDisplaceInBase(0, kStoreRead, model, nodes[end], kResultLoadcase, lc, &d))
            ++found;
        for (int i = 0; i < 6; ++i) disp[6 * end + i] = d.Get(i);
    }
    return found;
}

int CFrame::CalcEndForces(CElement& e, int anType, const CLoadcase* lc, int mode,
                          const double* disp, double* force) {
    std::vector<CLoad*> loads;
    if (lc)
        for (CLoad* load : lc->GetLoadList())
            if (load->GetElementNo() == e.GetNo()) loads.push_back(load);
    return EndForces(e, anType, loads, mode, disp, force);
}

int CFrame::EndForces(CElement& e, int anType, const std::vector<CLoad*>& loads, int mode,
                      const double* disp, double* force) {
    CStructure* s = Structure();
    double k[12][12] = {};
    double scratch[12] = {};
    if (!e.MakeStiffMatrix(s, k, scratch, anType, 0)) return 0;
    for (int i = 0; i < 12; ++i)
        for (int j = 0; j < i; ++j) k[i][j] = k[j][i];
    double f[12];
    for (int i = 0; i < 12; ++i) {
        f[i] = 0.0;
        for (int j = 0; j < 12; ++j) f[i] += k[i][j] * disp[j];
    }
    if (mode == 1) {
        std::copy(f, f + 6, force);
        return 1;
    }
    double g[12];
    for (int b = 0; b < 4; ++b)
        for (int r = 0; r < 3; ++r) {
            g[3 * b + r] = 0.0;
            for (int c = 0; c < 3; ++c) g[3 * b + r] += e.GetTransMatrix(r, c) * f[3 * b + c];
        }
    for (CLoad* load : loads) {
        double out[12] = {};
        e.FixedEndForces(s, load, out, kEndForces, 1, anType);
        for (int i = 0; i < 12; ++i) g[i] += out[i];
    }
    std::copy(g, g + 6, force);
    return 1;
}

int CFrame::CalcReactionForces() {
    const CObList<CNode>& nodes = m_run.GetNodeList();
    CObList<CElement>& elements = m_run.GetElementList();
    const std::vector<CLoadcase*> cases = SolvedLoadcases();
    CMemResBase* store = GetResultStore();
    if (nodes.IsEmpty() || elements.IsEmpty() || cases.empty() || !store) return 0;
    const int model = m_run.GetModel() ? m_run.GetModel()->GetModelNo() : 0;
    std::vector<std::array<double, 6>> sums(cases.size(), std::array<double, 6>{});

    for (const CNode* n : nodes) {
        if (n->GetState() == 0) continue;
        bool supported = false;
        for (int i = 0; i < 6; ++i) supported = supported || n->GetFix(i) > 0;
        if (!supported) continue;
        for (std::size_t c = 0; c < cases.size(); ++c) {
            const int lc = cases[c]->GetLoadcaseNo();
            CDisplace d;
            store->NodeDisplaceInBase(0, kStoreRead, model, n->GetNo(), kResultLoadcase, lc, &d);
            double r[6];
            for (int i = 0; i < 6; ++i) {
                r[i] = n->GetFix(i) > 0 ? kSupportStiffness * d.Get(i) : 0.0;
                sums[c][static_cast<std::size_t>(i)] -= r[i];
            }
            store->NodeReactionInBase(0, kStoreWrite, model, n->GetNo(), kResultLoadcase, lc, r);
        }
    }
    // A spring holds its node 1 to the ground: its force enters the sums, with no record.
    for (CElement* e : elements) {
        if (e->GetType() < 2 || e->GetType() > 4) continue;
        for (std::size_t c = 0; c < cases.size(); ++c) {
            double disp[12], force[6];
            ReadDisplacements(*e, cases[c]->GetLoadcaseNo(), disp);
            if (!CalcEndForces(*e, AnType, cases[c], 1, disp, force)) return 0;
            for (int i = 0; i < 6; ++i) sums[c][static_cast<std::size_t>(i)] -= force[i];
        }
    }
    if (AnType == 1 || AnType == 2)
        for (std::size_t c = 0; c < cases.size(); ++c)
            SetCaseSums(*cases[c], sums[c].data(), false);
    return 1;
}

int CFrame::CalcSectionForces() {
    if (m_run.GetLoadcaseList().IsEmpty()) return 0;
    CStructure* s = Structure();
    CMemResBase* store = GetResultStore();
    if (!store) return 0;
    const int model = m_run.GetModel() ? m_run.GetModel()->GetModelNo() : 0;
    const bool dynamic = AnType == 5 || AnType == 6;

    for (CLoadcase* lc : SolvedLoadcases()) {
        const int lcNo = lc->GetLoadcaseNo();
        // The loads of the case by element, so that an element finds its own at once.
        std::unordered_map<int, std::vector<CLoad*>> loadsOf;
        for (CLoad* load : lc->GetLoadList()) loadsOf[load->GetElementNo()].push_back(load);
        int first = 0, last = 0;
        if (dynamic) {
            const CDynLoad* dyn = lc->GetDynLoadPtr();
            first = dyn ? dyn->GetFirstMode() : 0;
            last = dyn ? dyn->GetLastMode() : 0;
            if (first < 1) return 0;
        }
        for (CElement* e : m_run.GetElementList()) {
            if (e->GetNo() < 1 || e->GetDesignSectionList().IsEmpty()) continue;
            const auto found = loadsOf.find(e->GetNo());
            const std::vector<CLoad*> none;
            const std::vector<CLoad*>& loads = found == loadsOf.end() ? none : found->second;
            for (int mode = first; mode <= last; ++mode) {
                double disp[12] = {};
                if (dynamic) {
                    double amplitude = 1.0;
                    std::shared_ptr<CModeRes> res;
                    if (store->LoadcaseModeResInBase(0, kStoreRead, lcNo, mode, 1, &res) && res)
                        amplitude = res->GetDisplaceAmplitude();
                    const int nodes[2] = {e->GetNodeNo1(), e->GetNodeNo2()};
                    for (int end = 0; end < 2; ++end) {
                        CDisplace d;
                        store->EigenModeDisplInBase(0, kStoreRead, model, nodes[end], 1, mode, &d);
                        for (int i = 0; i < 6; ++i) disp[6 * end + i] = amplitude * d.Get(i);
                    }
                } else {
                    ReadDisplacements(*e, lcNo, disp);
                }
                double P[6];
                if (!EndForces(*e, AnType, loads, 0, disp, P)) return 0;
                for (const CDesignSection* ds : e->GetDesignSectionList()) {
                    const double xOverL = ds->GetXoverL();
                    const double x = xOverL * e->GetLength();
                    double f[6] = {-P[0], -P[1], -P[2], -P[3] + x * P[2], -P[4], -P[5] - x * P[0]};
                    // A creep run has its load in the end forces only.
                    if (AnType != 3)
                        for (CLoad* load : loads) {
                            double out[12] = {};
                            e->FixedEndForces(s, load, out, xOverL, 3, AnType);
                            for (int i = 0; i < 6; ++i) f[i] += out[i];
                        }
                    if (dynamic) {
                        int a = 0, b = 0;
                        double stored[6] = {};
                        const int has =
                            store->SectionForceInBase(0, kStoreRead, model, e->GetNo(), xOverL,
                                                      kResultLoadcase, lcNo, a, b, stored);
                        for (int i = 0; i < 6; ++i) {
                            if (has && last > first)
                                f[i] = std::sqrt(stored[i] * stored[i] + f[i] * f[i]);
                            else if (!has && last > first)
                                f[i] = std::fabs(f[i]);
                        }
                    }
                    int a = 0, b = 0;
                    if (!store->SectionForceInBase(0, kStoreWrite, model, e->GetNo(), xOverL,
                                                   kResultLoadcase, lcNo, a, b, f) &&
                        AnType == 2)
                        ShowText(4, Format("Writing temporary traffic load section forces failed "
                                           "for Elem=%i, X/L=%.3lf Lc=%i",
                                           e->GetNo(), xOverL, lcNo));
                }
            }
        }
    }
    return MakeModelElementResults(model);
}

int CFrame::MakeModelElementResults(int modelNo) {
    CStructure* s = Structure();
    CMemResBase* store = m_run.GetMemResBasePtr();
    if (!store) return 0;
    for (CElement* e : m_run.GetElementList()) {
        if (e->GetNo() < 1) continue;
        double A = 0, IL = 0, IM = 0, IN = 0, E = 0, nu = 0, G = 0;
        if (!e->CalcElementSectParam(s, &A, &IL, &IM, &IN, &E, &nu, &G)) return 0;
        auto res = std::make_shared<CModelElemRes>(e->GetNo());
        res->SetElementProperties(A, IL, IM, IN);
        res->SetYoungsModulus(E);
        res->SetAxialForce(e->CalcAxialForce());
        if (AnType == 7 || AnType == 8) {
            res->SetBucklingLengths(e->GetBucklingLengthLdir(), e->GetBucklingLengthNdir());
            res->SetLateralBucklingLengths(e->GetLatBucklingLengthLdir(),
                                           e->GetLatBucklingLengthNdir());
        } else {
            std::shared_ptr<CModelElemRes> old;
            if (store->ModelElemResInBase(0, kStoreRead, modelNo, e->GetNo(), &old) && old) {
                res->SetBucklingLengths(old->GetBucklingLengthL(), old->GetBucklingLengthN());
                res->SetLateralBucklingLengths(old->GetLatBucklingLengthL(),
                                               old->GetLatBucklingLengthN());
            }
        }
        store->ModelElemResInBase(0, kStoreWrite, modelNo, e->GetNo(), &res);
    }
    return 1;
}

} // namespace kelo
