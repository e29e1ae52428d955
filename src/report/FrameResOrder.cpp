#include "report/FrameResOrder.h"

#include "model/Displace.h"
#include "model/Structure.h"
#include "platform/Text.h"
#include "store/MemResBase.h"

#include <algorithm>
#include <array>

namespace kelo {

namespace {

// One result found in the store: the node or element, the case, the position along an element
// and the six values as they are printed.
struct ResRow {
    int ItemNo = 0;
    int LoadNo = 0;
    double X = 0.0;
    std::array<double, 6> V{};
};

// A new piece is begun when the present one has grown past this many characters.
constexpr std::size_t kPieceLimit = 59900;

void AddLine(std::vector<std::string>& out, const std::string& line) {
    if (out.empty() || out.back().size() > kPieceLimit) out.emplace_back();
    out.back() += line;
}

// Every number of `intervals` that `all` holds; From -1 or -2 stands for all of them.
template <class List>
std::vector<int> Numbers(const std::vector<CInterval>& intervals, const List& all) {
    std::vector<int> numbers;
    for (const CInterval& in : intervals)
        for (const auto* obj : all) {
            const int no = obj->KeyNo();
            if (in.GetFrom() == -1 || in.GetFrom() == -2 ||
                (no >= in.GetFrom() && no <= in.GetTo()))
                numbers.push_back(no);
        }
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

} // namespace

void CFrameResOrder::Empty() {
    Item = Load = Leading = Sort = SortComp = 0;
    ItemIntervals.clear();
    LoadIntervals.clear();
}

int CFrameResOrder::MakeListingFromResOrder(CStructure* s, std::vector<std::string>& out) const {
    const int k = Load + 1;
    if (!s || (k != 1 && k != 2) || Item < 0 || Item > 2) return 0;
    CMemResBase* store = s->GetResBasePtr();
    // Results of load cases are stored as calculated (1) or given (11); combinations as
    // calculated (2), given (12) and the two kinds of combined results (15, 16).
    const std::vector<int> codes =
        k == 1 ? std::vector<int>{1, 11} : std::vector<int>{2, 12, 15, 16};
    const std::vector<int> loads = k == 1 ? Numbers(LoadIntervals, *s->GetLoadcaseList())
                                          : Numbers(LoadIntervals, *s->GetLoadcombList());
    const std::vector<int> items = Item == 1 ? Numbers(ItemIntervals, *s->GetElementList())
                                             : Numbers(ItemIntervals, *s->GetNodeList());
    std::vector<ResRow> rows;
    for (const int item : items)
        for (const int load : loads)
            for (const int code : codes) {
                if (Item == 0) {
                    CDisplace d;
                    if (!store->NodeDisplaceInBase(0, 0, 0, item, code, load, &d)) continue;
                    // Translations are printed in mm, rotations as they stand.
                    rows.push_back({item,
                                    load,
                                    0.0,
                                    {d.GetUx() * 1000.0, d.GetUy() * 1000.0, d.GetUz() * 1000.0,
                                     d.GetRotx(), d.GetRoty(), d.GetRotz()}});
                } else if (Item == 2) {
                    ResRow r{item, load, 0.0, {}};
                    if (store->NodeReactionInBase(0, 0, 0, item, code, load, r.V.data()))
                        rows.push_back(r);
                } else {
                    std::vector<double> positions;
                    for (const CDesignSection* d : s->GetElementPtr(item)->GetDesignSectionList())
                        positions.push_back(d->GetXoverL());
                    if (positions.empty()) positions = {0.0, 1.0};
                    for (const double x : positions) {
                        ResRow r{item, load, x, {}};
                        int a = 0, b = 0;
                        if (store->SectionForceInBase(0, 0, 0, item, x, code, load, a, b,
                                                      r.V.data()))
                            rows.push_back(r);
                    }
                }
            }

    if (Leading == 1)
        std::stable_sort(rows.begin(), rows.end(),
                         [](const ResRow& a, const ResRow& b) { return a.LoadNo < b.LoadNo; });
    if (Sort != 0 && SortComp >= 0 && SortComp < 6) {
        const int c = SortComp;
        std::stable_sort(rows.begin(), rows.end(), [c, this](const ResRow& a, const ResRow& b) {
            return Sort > 0 ? a.V[c] < b.V[c] : a.V[c] > b.V[c];
        });
    }

    const char* loadHead = k == 1 ? "Lc" : "Comb";
    const char* itemHead = Item == 1 ? "Elem" : "Node";
    const char* first = Leading == 1 ? loadHead : itemHead;
    const char* second = Leading == 1 ? itemHead : loadHead;
    if (Item == 0) {
        AddLine(out, Format("%5s %4s       %s", first, second,
                            "Ux        Uy        Uz             Rotx       Roty       Rotz\r\n"));
        AddLine(out, Format("%10s %9s %9s %9s %14s %14s %14s\r\n", "", "[mm]", "[mm]", "[mm]",
                            "[rad]", "[rad]", "[rad]"));
    } else if (Item == 1) {
        AddLine(out, Format("%5s%7s%5s%12s%12s%12s%12s%12s%12s\r\n", first, "X/L", second, "Axial",
                            "Shear L", "Shear N", "Bending L", "Bending N", "Torsion"));
        AddLine(out, Format("%17s%12s%12s%12s%12s%12s%12s\r\n", "", "[kN]", "[kN]", "[kN]", "[kNm]",
                            "[kNm]", "[kNm]"));
    } else {
        AddLine(out, Format("%5s%5s%12s%12s%12s%12s%12s%12s\r\n", first, second, "PX", "PY", "PZ",
                            "MX", "MY", "MZ"));
        AddLine(out, Format("%10s%12s%12s%12s%12s%12s%12s\r\n", "", "[kN]", "[kN]", "[kN]", "[kNm]",
                            "[kNm]", "[kNm]"));
    }
    int lastLeading = 0;
    bool firstRow = true;
    for (const ResRow& r : rows) {
        const int lead = Leading == 1 ? r.LoadNo : r.ItemNo;
        const int inner = Leading == 1 ? r.ItemNo : r.LoadNo;
        if (Sort == 0 && !firstRow && lead != lastLeading) AddLine(out, kCrLf);
        firstRow = false;
        lastLeading = lead;
        const auto& v = r.V;
        if (Item == 0)
            AddLine(out, Format("%5d %4d %9.3f %9.3f %9.3f %14.8f %14.8f %14.8f\r\n", lead, inner,
                                v[0], v[1], v[2], v[3], v[4], v[5]));
        else if (Item == 1)
            AddLine(out, Format("%5d%7.2f%5d%12.2f%12.2f%12.2f%12.2f%12.2f%12.2f\r\n", lead, r.X,
                                inner, v[0], v[1], v[2], v[3], v[4], v[5]));
        else
            AddLine(out, Format("%5d%5d%12.2f%12.2f%12.2f%12.2f%12.2f%12.2f\r\n", lead, inner, v[0],
                                v[1], v[2], v[3], v[4], v[5]));
    }
    return 1;
}

} // namespace kelo
