#pragma once

#include "model/Loadcomb.h"
#include "platform/ObList.h"

#include <array>
#include <string>
#include <vector>

namespace kelo {

class CStructure;
class CMemResBase;
class CElement;
class CNode;
class CDesignSection;
class ProgressSink;

// Combines the stored results of load cases into ordinary combinations (factored sums),
// sorted combinations (the twelve governing force sets of each design section) and sorted
// combination lines (the envelope of a series of sorted combinations). Everything is read from
// and written to a result store; the model itself is only read.
//
// The twelve rows of a sorted result: row r for r in 0..5 is the set in which force component r
// (PL, PM, PN, ML, MM, MN) is greatest, row r in 6..11 the set in which component r - 6 is least.
// Each row holds all six components, so that concurrent forces stay together.
class CCombServer {
public:
    // The rows of a sorted result, each a full set of six components.
    using Rows = std::array<std::array<double, 6>, 12>;

    // Result codes in the store.
    static constexpr int kLoadcase = 1;
    static constexpr int kOrdComb = 2;
    static constexpr int kExternal = 10;
    static constexpr int kSortCombRow0 = 21;
    static constexpr int kSortLineRow0 = 41;

    // Combination methods of a sorted combination.
    enum Method {
        ADD = 0,
        WORST = 1,
        SWORST = 2,
        ADDIF = 3,
        SADDIF = 4,
        RMS = 10,
        RMSPH = 11,
        SDYNW = 13
    };

    // `store` null means the structure's own result store. `log`, when given, receives the
    // status lines of the stages and the failure texts, each ended by "\r\n".
    CCombServer(CStructure* structure, CMemResBase* store = nullptr, std::string* log = nullptr);

    // The elements to combine on: null means the structure's own list. A combination run of the
    // frame solver may hand over the elements of its run.
    void SetElementList(const CObList<CElement>* elements) { Elements = elements; }
    // Narrows the element loops to one element number; 0 means no narrowing.
    void SetOnlyElement(int elementNo) { OnlyElement = elementNo; }

    // The three kinds of combination run. Each answers 0 when there is nothing to combine (no
    // combinations, no results), and 1 otherwise, also when a step failed: the status text
    // "Unable to complete loadcombination!" is then the report.
    int ProsessOrdCombinations();
    int ProsessSortCombinations();
    int ProsessSortLineCombinations();
    // The same runs for a structure and a store in one call, as the frame solver's combination
    // stages make them.
    static int ProsessOrdCombinations(CStructure* structure, CMemResBase* store, std::string* log);
    static int ProsessSortCombinations(CStructure* structure, CMemResBase* store, std::string* log);
    static int ProsessSortLineCombinations(CStructure* structure, CMemResBase* store,
                                           std::string* log);

    // The steps of the runs; each answers 0 when cancelled or without a store.
    int CalcOrdCombSectionForces();
    int CalcOrdCombDisplacements();
    int CalcOrdCombReactions();
    int CalcOrdCombSumAppLoads();
    int CalcOrdCombSumReactions();
    int CalcSortCombSectionForces();
    int CalcSortCombLineSectionForces();

    // The sorted combinations and combination lines of one element only. Answers the result of
    // the line run, 0 when there is no such element.
    int CalcComb(int elementNo);

    // One value of one stored section result: `code` is the result code (1, 2, 21..32, 41..52),
    // `component` 0..11, where 6..11 read the same values as 0..5. A load case or ordinary
    // combination that is not found is tried again as external (code + 10); else 0.0.
    double GetResult(int code, int component, int no, int elementNo, double xOverL);

    // The plain (load case, factor) pairs behind an ordinary combination, each factor times
    // `factor`. Combinations of combinations are followed down. Answers the number of pairs
    // appended.
    int SplitLoadComb(const CLoadcomb* comb, std::vector<CLoadfact>* out, double factor,
                      int component, int elementNo, double xOverL);
    // The pairs behind row `component` (0..11) of a sorted combination at one section, chosen by
    // the combination's method from the stored results.
    int SplitSortComb(const CSortComb* comb, std::vector<CLoadfact>* out, double factor,
                      int component, int elementNo, double xOverL);

    // The text last shown as status.
    const std::string& GetStatus() const { return Status; }

private:
    // One of the two sums (applied loads, reactions) of every ordinary combination.
    template <class Get, class Set> int CalcOrdCombSums(Get get, Set set);

    bool ElementSelected(const CElement& e) const;
    const CObList<CElement>& ElementList() const;
    void SetStatus(const std::string& text, bool toLog);
    bool Cancelled() const;
    int ProsessFrame(bool any, const char* preparing,
                     const std::vector<std::pair<const char*, int (CCombServer::*)()>>& steps);

    bool ReadForceLine(const CLoadfact& lf, int element, double x, Rows& r);
    bool ReadDisplLine(const CLoadfact& lf, int node, Rows& r);
    bool ReadForce(int code, int no, int element, double x, std::array<double, 6>& f);
    bool ReadDispl(int code, int no, int node, std::array<double, 6>& d);
    void SortSection(const CSortComb& comb, const CElement& e, const CDesignSection& s);
    int SplitSortComb(const CSortComb* comb, std::vector<CLoadfact>* out, double factor,
                      int component, int elementNo, double xOverL, int depth);
    int SplitLoadComb(const CLoadcomb* comb, std::vector<CLoadfact>* out, double factor, int depth);
    int SplitLine(const CLoadfact& lf, int row, double fact, std::vector<CLoadfact>* out,
                  int elementNo, double xOverL, int depth);

    CStructure* Structure;
    CMemResBase* Store;
    std::string* Log;
    ProgressSink* Progress;
    const CObList<CElement>* Elements = nullptr;
    int OnlyElement = 0;
    std::string Status;
};

} // namespace kelo
