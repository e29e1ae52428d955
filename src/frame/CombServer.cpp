#include "frame/CombServer.h"

#include "frame/Element.h"
#include "frame/SortCombiner.h"
#include "model/Displace.h"
#include "model/Node.h"
#include "model/Structure.h"
#include "platform/Sinks.h"
#include "platform/Text.h"
#include "store/MemResBase.h"
#include "store/MemResNode.h"

#include <algorithm>
#include <cmath>

namespace kelo {

namespace {

constexpr int kWriteMode = 5;
// Combinations of combinations are followed this deep; a deeper chain can only be a loop.
constexpr int kMaxDepth = 32;
// The branch of section forces in the result store.
constexpr int kForceBranch = 1;
constexpr double kHuge = 1e20;

const char* const kNoResults = "No results to combine!\r\nHave you performed Solve?";
const char* const kUnable = "Unable to complete loadcombination!";
const char* const kElemStatus = "%s %i  %s %i";
const char* const kElemText = "Elem No.:";
const char* const kCombText = "Comb No.:";

bool IsSMethod(int method) {
    return method == CCombServer::SWORST || method == CCombServer::SADDIF ||
           method == CCombServer::RMSPH;
}

} // namespace

CCombServer::CCombServer(CStructure* structure, CMemResBase* store, std::string* log)
    : Structure(structure),
      Store(store ? store : (structure ? structure->GetResBasePtr() : nullptr)), Log(log),
      Progress(structure ? &structure->GetProgressSink() : nullptr) {}

// ------------------------------------------------------------------------- frame of the runs

void CCombServer::SetStatus(const std::string& text, bool toLog) {
    Status = text;
    if (Progress) Progress->SetText(text);
    if (toLog && Log) *Log += text + "\r\n";
}

bool CCombServer::Cancelled() const { return Progress && Progress->IsCancelled(); }

const CObList<CElement>& CCombServer::ElementList() const {
    return Elements ? *Elements : *Structure->GetElementList();
}

bool CCombServer::ElementSelected(const CElement& e) const {
    return e.GetNo() >= 1 && (OnlyElement == 0 || e.GetNo() == OnlyElement) &&
           !e.GetDesignSectionList().IsEmpty();
}

int CCombServer::ProsessFrame(
    bool any, const char* preparing,
    const std::vector<std::pair<const char*, int (CCombServer::*)()>>& steps) {
    if (!Structure || !any) return 0;
    SetStatus(preparing, true);
    if (!Store || !Store->AnyResults(-1, -1)) {
        SetStatus(kNoResults, true);
        return 0;
    }
    for (const auto& [text, step] : steps) {
        SetStatus(text, true);
        if (!(this->*step)()) {
            SetStatus(kUnable, true);
            return 1;
        }
    }
    return 1;
}

int CCombServer::ProsessOrdCombinations() {
    return ProsessFrame(Structure && !Structure->GetLoadcombList()->IsEmpty(),
                        "Preparing ord. combinations",
                        {{"Combining section forces", &CCombServer::CalcOrdCombSectionForces},
                         {"Combining displacements", &CCombServer::CalcOrdCombDisplacements},
                         {"Combining reactions", &CCombServer::CalcOrdCombReactions},
                         {"Combining sums of applied loads", &CCombServer::CalcOrdCombSumAppLoads},
                         {"Combining sums of reactions", &CCombServer::CalcOrdCombSumReactions}});
}

int CCombServer::ProsessSortCombinations() {
    return ProsessFrame(
        Structure && !Structure->GetSortCombList()->IsEmpty(), "Preparing sort combinations",
        {{"Combining sorted section forces", &CCombServer::CalcSortCombSectionForces}});
}

int CCombServer::ProsessSortLineCombinations() {
    return ProsessFrame(
        Structure && !Structure->GetSortCombLineList()->IsEmpty(),
        "Preparing sort combination lines",
        {{"Combining sorted combination lines", &CCombServer::CalcSortCombLineSectionForces}});
}

int CCombServer::ProsessOrdCombinations(CStructure* structure, CMemResBase* store,
                                        std::string* log) {
    CCombServer server(structure, store, log);
    return server.ProsessOrdCombinations();
}

int CCombServer::ProsessSortCombinations(CStructure* structure, CMemResBase* store,
                                         std::string* log) {
    CCombServer server(structure, store, log);
    return server.ProsessSortCombinations();
}

int CCombServer::ProsessSortLineCombinations(CStructure* structure, CMemResBase* store,
                                             std::string* log) {
    CCombServer server(structure, store, log);
    return server.ProsessSortLineCombinations();
}

int CCombServer::CalcComb(int elementNo) {
    if (!Structure || !ElementList().Get(elementNo)) return 0;
    const int saved = OnlyElement;
    OnlyElement = elementNo;
    ProsessSortCombinations();
    const int result = ProsessSortLineCombinations();
    OnlyElement = saved;
    return result;
}

// ------------------------------------------------------------------------- reading

bool CCombServer::ReadForce(int code, int no, int element, double x, std::array<double, 6>& f) {
    int a = 0, b = 0;
    if (Store->GetForce(code, no, element, x, a, b, f.data())) return true;
    // Load cases and ordinary combinations may be held as given (external) results.
    if (code == kLoadcase || code == kOrdComb)
        return Store->GetForce(code + kExternal, no, element, x, a, b, f.data()) != 0;
    return false;
}

bool CCombServer::ReadDispl(int code, int no, int node, std::array<double, 6>& d) {
    CDisplace displace;
    if (!Store->GetDisplace(code, no, node, &displace)) {
        if (code != kLoadcase && code != kOrdComb) return false;
        if (!Store->GetDisplace(code + kExternal, no, node, &displace)) return false;
    }
    for (int k = 0; k < 6; ++k) d[k] = displace.Get(k);
    return true;
}

// The rows of one line: a load case or ordinary combination gives one set for all twelve rows;
// a traffic load its twelve consecutive unit cases, a sorted combination its twelve rows.
bool CCombServer::ReadForceLine(const CLoadfact& lf, int element, double x, Rows& r) {
    switch (lf.GetCode()) {
    case 1:
    case 2:
        if (!ReadForce(lf.GetCode(), lf.GetNo(), element, x, r[0])) return false;
        std::fill(r.begin() + 1, r.end(), r[0]);
        return true;
    case 3:
        for (int row = 0; row < 12; ++row) {
            int a = 0, b = 0;
            if (!Store->GetForce(kLoadcase, lf.GetNo() + row, element, x, a, b, r[row].data()))
                return false;
        }
        return true;
    case 4:
        for (int row = 0; row < 12; ++row) {
            int a = 0, b = 0;
            if (!Store->GetForce(kSortCombRow0 + row, lf.GetNo(), element, x, a, b, r[row].data()))
                return false;
        }
        return true;
    default:
        return false;
    }
}

bool CCombServer::ReadDisplLine(const CLoadfact& lf, int node, Rows& r) {
    switch (lf.GetCode()) {
    case 1:
    case 2:
        if (!ReadDispl(lf.GetCode(), lf.GetNo(), node, r[0])) return false;
        std::fill(r.begin() + 1, r.end(), r[0]);
        return true;
    case 3:
        for (int row = 0; row < 12; ++row)
            if (!ReadDispl(kLoadcase, lf.GetNo() + row, node, r[row])) return false;
        return true;
    case 4:
        for (int row = 0; row < 12; ++row)
            if (!ReadDispl(kSortCombRow0 + row, lf.GetNo(), node, r[row])) return false;
        return true;
    default:
        return false;
    }
}

double CCombServer::GetResult(int code, int component, int no, int elementNo, double xOverL) {
    if (!Store || component < 0 || component > 11) return 0.0;
    std::array<double, 6> f{};
    if (!ReadForce(code, no, elementNo, xOverL, f)) return 0.0;
    return f[component % 6];
}

// ------------------------------------------------------------------------- ordinary combinations

int CCombServer::CalcOrdCombSectionForces() {
    if (!Store || !Structure) return 0;
    for (const CElement* e : ElementList()) {
        if (!ElementSelected(*e)) continue;
        bool firstSection = true;
        for (const CDesignSection* s : e->GetDesignSectionList()) {
            const double x = s->GetXoverL();
            for (const CLoadcomb* comb : *Structure->GetLoadcombList()) {
                if (Cancelled()) return 0;
                if (firstSection)
                    SetStatus(Format(kElemStatus, kElemText, e->GetNo(), kCombText,
                                     comb->GetLoadcombNo()),
                              false);
                std::array<double, 6> sum{};
                int found = 0;
                for (const CLoadfact* lf : comb->GetLoadfacts().GetList()) {
                    if (lf->GetCode() != kLoadcase && lf->GetCode() != kOrdComb) continue;
                    std::array<double, 6> f{};
                    if (!ReadForce(lf->GetCode(), lf->GetNo(), e->GetNo(), x, f)) continue;
                    for (int i = 0; i < 6; ++i) sum[i] += lf->GetFact() * f[i];
                    ++found;
                }
                if (!found) continue;
                const int target = comb->GetExternal() ? kOrdComb + kExternal : kOrdComb;
                int a = comb->GetLimitState(), b = 0;
                Store->SectionForceInBase(0, kWriteMode, 0, e->GetNo(), x, target,
                                          comb->GetLoadcombNo(), a, b, sum.data());
            }
            firstSection = false;
        }
    }
    return 1;
}

int CCombServer::CalcOrdCombDisplacements() {
    if (!Store || !Structure) return 0;
    for (const CNode* node : *Structure->GetNodeList()) {
        if (Cancelled()) return 0;
        for (const CLoadcomb* comb : *Structure->GetLoadcombList()) {
            std::array<double, 6> sum{};
            int found = 0;
            for (const CLoadfact* lf : comb->GetLoadfacts().GetList()) {
                if (lf->GetCode() != kLoadcase && lf->GetCode() != kOrdComb) continue;
                std::array<double, 6> d{};
                if (!ReadDispl(lf->GetCode(), lf->GetNo(), node->GetNo(), d)) continue;
                for (int i = 0; i < 6; ++i) sum[i] += lf->GetFact() * d[i];
                ++found;
            }
            if (!found) continue;
            const int target = comb->GetExternal() ? kOrdComb + kExternal : kOrdComb;
            CDisplace displace(node->GetNo(), comb->GetLoadcombNo(), target, sum[0], sum[1], sum[2],
                               sum[3], sum[4], sum[5]);
            Store->NodeDisplaceInBase(0, kWriteMode, 0, node->GetNo(), target,
                                      comb->GetLoadcombNo(), &displace);
        }
    }
    return 1;
}

int CCombServer::CalcOrdCombReactions() {
    if (!Store || !Structure) return 0;
    for (const CNode* node : *Structure->GetNodeList()) {
        if (Cancelled()) return 0;
        for (const CLoadcomb* comb : *Structure->GetLoadcombList()) {
            std::array<double, 6> sum{};
            int found = 0;
            for (const CLoadfact* lf : comb->GetLoadfacts().GetList()) {
                if (lf->GetCode() != kLoadcase && lf->GetCode() != kOrdComb) continue;
                std::array<double, 6> r{};
                if (!Store->GetReaction(lf->GetCode(), lf->GetNo(), node->GetNo(), r.data()) &&
                    !Store->GetReaction(lf->GetCode() + kExternal, lf->GetNo(), node->GetNo(),
                                        r.data()))
                    continue;
                for (int i = 0; i < 6; ++i) sum[i] += lf->GetFact() * r[i];
                ++found;
            }
            if (!found) continue;
            const int target = comb->GetExternal() ? kOrdComb + kExternal : kOrdComb;
            Store->NodeReactionInBase(0, kWriteMode, 0, node->GetNo(), target,
                                      comb->GetLoadcombNo(), sum.data());
        }
    }
    return 1;
}

// The sums of applied loads and of reactions: six-vectors kept on the load cases, summed with
// the factors onto the combinations. A combination of combinations takes the sums of the
// combinations before it in the list. `get` reads component i of a case or a combination, `set`
// writes it onto the combination.
template <class Get, class Set> int CCombServer::CalcOrdCombSums(Get get, Set set) {
    if (!Structure) return 0;
    for (CLoadcomb* comb : *Structure->GetLoadcombList()) {
        std::array<double, 6> sum{};
        int found = 0;
        for (const CLoadfact* lf : comb->GetLoadfacts().GetList()) {
            const CLoadcase* lc =
                lf->GetCode() == kLoadcase ? Structure->GetLoadcasePtr(lf->GetNo()) : nullptr;
            const CLoadcomb* oc =
                lf->GetCode() == kOrdComb ? Structure->GetLoadcombPtr(lf->GetNo()) : nullptr;
            if (!lc && !oc) continue;
            for (int i = 0; i < 6; ++i) sum[i] += lf->GetFact() * (lc ? get(*lc, i) : get(*oc, i));
            ++found;
        }
        if (found)
            for (int i = 0; i < 6; ++i) set(*comb, i, sum[i]);
    }
    return 1;
}

int CCombServer::CalcOrdCombSumAppLoads() {
    return CalcOrdCombSums([](const auto& x, int i) { return x.GetSumAppForces(i); },
                           [](CLoadcomb& c, int i, double v) { c.SetSumAppForces(i, v); });
}

int CCombServer::CalcOrdCombSumReactions() {
    return CalcOrdCombSums([](const auto& x, int i) { return x.GetSumReaForces(i); },
                           [](CLoadcomb& c, int i, double v) { c.SetSumReaForces(i, v); });
}

// ------------------------------------------------------------------------- sorted combinations

void CCombServer::SortSection(const CSortComb& comb, const CElement& e, const CDesignSection& s) {
    const double x = s.GetXoverL();
    const int node = s.GetNodeDisplace();
    CSortCombiner combiner(comb.GetCombMethod());
    bool first = true;
    for (const CLoadfact* lf : comb.GetLoadfacts().GetList()) {
        Rows r{};
        if (ReadForceLine(*lf, e.GetNo(), x, r)) {
            Rows d{};
            const bool withDispl = node > 0 && ReadDisplLine(*lf, node, d);
            combiner.AddLine(lf->GetFact(), r, withDispl ? &d : nullptr, first);
        }
        first = false;
    }
    combiner.Finish();
    if (combiner.GetCounted() == 0) return;
    for (int row = 0; row < 12; ++row) {
        int a = comb.GetLimitState(), b = 0;
        Rows::value_type forces = combiner.GetForces()[row];
        Store->SectionForceInBase(0, kWriteMode, 0, e.GetNo(), x, kSortCombRow0 + row,
                                  comb.GetSortCombNo(), a, b, forces.data());
    }
    if (node <= 0 || combiner.GetDisplCounted() == 0) return;
    for (int row = 0; row < 12; ++row) {
        const auto& d = combiner.GetDispls()[row];
        CDisplace displace(node, comb.GetSortCombNo(), kSortCombRow0 + row, d[0], d[1], d[2], d[3],
                           d[4], d[5]);
        Store->NodeDisplaceInBase(0, kWriteMode, 0, node, kSortCombRow0 + row, comb.GetSortCombNo(),
                                  &displace);
    }
}

int CCombServer::CalcSortCombSectionForces() {
    if (!Store || !Structure) return 0;
    for (const CElement* e : ElementList()) {
        if (!ElementSelected(*e)) continue;
        if (Cancelled()) return 0;
        const CSortComb* firstComb = Structure->GetSortCombList()->First();
        if (firstComb)
            SetStatus(
                Format(kElemStatus, kElemText, e->GetNo(), kCombText, firstComb->GetSortCombNo()),
                false);
        for (const CDesignSection* s : e->GetDesignSectionList())
            for (const CSortComb* comb : *Structure->GetSortCombList()) SortSection(*comb, *e, *s);
    }
    return 1;
}

// ------------------------------------------------------------------------- combination lines

int CCombServer::CalcSortCombLineSectionForces() {
    if (!Store || !Structure) return 0;
    for (const CSortCombLine* line : *Structure->GetSortCombLineList()) {
        const int from = line->GetSortCombInterval(0);
        const int to = line->GetSortCombInterval(1);
        const int step = line->GetSortCombInterval(2) == 0 ? 1 : line->GetSortCombInterval(2);
        // Only numbers with stored rows can be read: they are taken from the store in the order
        // of the interval, so that a wide interval costs nothing.
        std::vector<int> numbers;
        if (const CMemResNode* rows0 = Store->GetCodeResNode(kForceBranch, kSortCombRow0)) {
            for (int c = 0; c < rows0->GetSize(); ++c) {
                const long long n = rows0->GetChild(c)->GetID();
                const long long offset = n - from;
                const bool inside = step > 0 ? n >= from && n <= to : n <= from && n >= to;
                if (inside && offset % step == 0) numbers.push_back(static_cast<int>(n));
            }
        }
        if (step < 0) std::reverse(numbers.begin(), numbers.end());
        for (const int elementNo : line->GetElementNoArray()) {
            const CElement* e = ElementList().Get(elementNo);
            if (!e || !ElementSelected(*e)) continue;
            if (Cancelled()) return 0;
            for (const CDesignSection* s : e->GetDesignSectionList()) {
                const double x = s->GetXoverL();
                Rows c{};
                std::array<int, 12> source{};
                bool any = false;
                for (const int n : numbers) {
                    Rows r{};
                    bool read = true;
                    for (int row = 0; row < 12 && read; ++row) {
                        int a = 0, b = 0;
                        read = Store->GetForce(kSortCombRow0 + row, n, elementNo, x, a, b,
                                               r[row].data()) != 0;
                    }
                    if (!read) continue;
                    for (int row = 0; row < 12; ++row) {
                        const int i = row % 6;
                        // A tie goes to the later combination in a maximum row.
                        const bool take =
                            !any || (row < 6 ? !(c[row][i] > r[row][i]) : c[row][i] > r[row][i]);
                        if (!take) continue;
                        c[row] = r[row];
                        source[row] = n;
                    }
                    any = true;
                }
                if (!any) continue;
                for (int row = 0; row < 12; ++row) {
                    int a = line->GetLimitState(), b = 0;
                    Store->SectionForceInBase(0, kWriteMode, 0, elementNo, x, kSortLineRow0 + row,
                                              line->GetSortCombLineNo(), a, b, c[row].data());
                }
                Store->GovSortCombInBase(0, kWriteMode, 0, elementNo, x, kSortLineRow0,
                                         line->GetSortCombLineNo(), source.data());
            }
        }
    }
    return 1;
}

// ------------------------------------------------------------------------- splitting

int CCombServer::SplitLoadComb(const CLoadcomb* comb, std::vector<CLoadfact>* out, double factor,
                               int /*component*/, int /*elementNo*/, double /*xOverL*/) {
    return SplitLoadComb(comb, out, factor, 0);
}

int CCombServer::SplitLoadComb(const CLoadcomb* comb, std::vector<CLoadfact>* out, double factor,
                               int depth) {
    if (!comb || !out || !Structure || depth > kMaxDepth) return 0;
    int count = 0;
    for (const CLoadfact* lf : comb->GetLoadfacts().GetList()) {
        const double fact = factor * lf->GetFact();
        if (lf->GetCode() == kLoadcase) {
            out->emplace_back(lf->GetNo(), kLoadcase, fact);
            ++count;
        } else if (lf->GetCode() == kOrdComb) {
            count += SplitLoadComb(Structure->GetLoadcombPtr(lf->GetNo()), out, fact, depth + 1);
        }
    }
    return count;
}

int CCombServer::SplitLine(const CLoadfact& lf, int row, double fact, std::vector<CLoadfact>* out,
                           int elementNo, double xOverL, int depth) {
    switch (lf.GetCode()) {
    case 1:
        out->emplace_back(lf.GetNo(), kLoadcase, fact);
        return 1;
    case 2:
        return SplitLoadComb(Structure->GetLoadcombPtr(lf.GetNo()), out, fact, depth + 1);
    case 3:
        out->emplace_back(lf.GetNo() + row, kLoadcase, fact);
        return 1;
    case 4:
        return SplitSortComb(Structure->GetSortCombPtr(lf.GetNo()), out, fact, row, elementNo,
                             xOverL, depth + 1);
    default:
        return 0;
    }
}

int CCombServer::SplitSortComb(const CSortComb* comb, std::vector<CLoadfact>* out, double factor,
                               int component, int elementNo, double xOverL) {
    return SplitSortComb(comb, out, factor, component, elementNo, xOverL, 0);
}

int CCombServer::SplitSortComb(const CSortComb* comb, std::vector<CLoadfact>* out, double factor,
                               int component, int elementNo, double xOverL, int depth) {
    if (!comb || !out || !Structure || !Store || depth > kMaxDepth || component < 0 ||
        component > 11)
        return 0;
    const int row = component;
    const int i = row % 6;
    const bool maxRow = row < 6;
    const int method = comb->GetCombMethod();

    // Lines are read as the combination read them: a line that was not found in full did not
    // count there, and has no part in the row.
    const auto& lines = comb->GetLoadfacts().GetList();
    int count = 0;
    if (method == WORST || method == SWORST) {
        // The one governing line, found as the combination found it.
        const CLoadfact* best = nullptr;
        int bestRow = row;
        double bestFact = 0.0;
        // WORST: the governing value of the row so far; SWORST: C[i][i] and C[i + 6][i].
        double cur = maxRow ? -kHuge : kHuge;
        double cMax = -kHuge, cMin = kHuge;
        bool first = true;
        for (const CLoadfact* lf : lines) {
            Rows r{};
            const bool counted = ReadForceLine(*lf, elementNo, xOverL, r);
            const double f = lf->GetFact();
            if (counted && method == WORST) {
                const double v = f * r[row][i];
                if (first || (maxRow ? v >= cur : v < cur)) {
                    cur = v;
                    best = lf;
                    bestFact = f;
                }
            } else if (counted) {
                const double a = std::fabs(f * r[i][i]);
                const double b = std::fabs(f * r[i + 6][i]);
                int s = -1;
                bool negative = false;
                if (b <= a) {
                    if (a > cMax) {
                        s = i;
                        negative = f * r[i][i] <= 0.0;
                    }
                } else if (b < cMin) {
                    s = i + 6;
                    negative = f * r[i + 6][i] < 0.0;
                }
                if (s >= 0) {
                    const double sign = negative ? -1.0 : 1.0;
                    cMax = sign * f * r[s][i];
                    cMin = -cMax;
                    best = lf;
                    bestRow = s;
                    // Row i holds the set turned to a positive component i, row i + 6 its mirror.
                    bestFact = (maxRow ? sign : -sign) * f;
                }
            }
            first = false;
        }
        if (best)
            count += SplitLine(*best, bestRow, factor * bestFact, out, elementNo, xOverL, depth);
        return count;
    }
    for (const CLoadfact* lf : lines) {
        Rows r{};
        if (!ReadForceLine(*lf, elementNo, xOverL, r)) continue;
        const double f = lf->GetFact();
        if (method == ADDIF) {
            const double v = f * r[row][i];
            if (maxRow ? v > 0.0 : v < 0.0)
                count += SplitLine(*lf, row, factor * f, out, elementNo, xOverL, depth);
        } else if (IsSMethod(method)) {
            bool negative = false;
            const int s = CSortCombiner::ChooseRow(f, r, i, negative);
            double fact = f;
            if (method == SADDIF) fact = (negative == maxRow ? -1.0 : 1.0) * f;
            count += SplitLine(*lf, s, factor * fact, out, elementNo, xOverL, depth);
        } else {
            count += SplitLine(*lf, row, factor * f, out, elementNo, xOverL, depth);
        }
    }
    return count;
}

} // namespace kelo
