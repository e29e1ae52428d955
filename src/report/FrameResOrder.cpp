#include "report/FrameResOrder.h"

#include "frame/Element.h"
#include "frame/TrafLine.h"
#include "model/Displace.h"
#include "model/Structure.h"
#include "platform/Text.h"
#include "store/MemResBase.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace kelo {

namespace {

// A new piece is begun when the present one has grown past this many characters.
constexpr std::size_t kPieceLimit = 59900;

// Units of the columns.
const char* const kMm = "[mm]";
const char* const kKn = "[kN]";
const char* const kKnm = "[kNm]";
const char* const kRad = "[rad]";

// Names of the twelve governing rows: short by the component of the row, and long by what the
// component is. A force set carries the long name; a displacement set, which is not itself
// extreme but belongs to the governing force set, the short one.
const char* const kRowShort[12] = {"PL-Max", "PM-Max", "PN-Max", "ML-Max", "MM-Max", "MN-Max",
                                   "PL-Min", "PM-Min", "PN-Min", "ML-Min", "MM-Min", "MN-Min"};
// By component PL, PM, PN, ML, MM, MN: shear along L, axial force, shear along N, bending about L,
// torsion, bending about N.
const char* const kRowLong[12] = {"Max Shear-L", "Max Axial  ", "Max Shear-N", "Max Bend-L ",
                                  "Max Torsion", "Max Bend-N ", "Min Shear-L", "Min Axial  ",
                                  "Min Shear-N", "Min Bend-L ", "Min Torsion", "Min Bend-N "};
// Section forces are printed axial force first, as their column heads say: the stored components
// PM, PL, PN, ML, MN, MM.
constexpr int kForceColumn[6] = {1, 0, 2, 3, 5, 4};

// Result codes of the store: load cases as calculated (1) or given (11); ordinary combinations
// as calculated (2), given (12) and the two kinds of combined results (15, 16); the first rows of
// sorted combinations (21) and of sorted combination lines (41).
constexpr int kSortCombRow0 = 21;
constexpr int kSortLineRow0 = 41;

// Items of the order.
enum ItemKind { kDispl = 0, kForce = 1, kReaction = 2, kSums = 3, kStoreCheck = 10 };

// One result found in the store: the node or element, the case, the position along an element,
// and one row (load cases and ordinary combinations) or twelve (governing results), each with
// its six values as stored, the number it is stored under and, for combination lines, the sorted
// combination it came from.
struct Block {
    int ItemNo = 0;
    int LoadNo = 0;
    double X = 0.0;
    int Rows = 1;
    std::array<bool, 12> Found{};
    std::array<std::array<double, 6>, 12> V{};
    std::array<int, 12> StoredNo{};
    std::array<int, 12> Source{};
};

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

// Whether an ordinary combination has results to sum: one of its cases, or of the combinations
// it holds, was calculated or given. Chains deeper than this can only be loops.
constexpr int kMaxCombDepth = 32;
bool CombHasResults(const CStructure& s, const CLoadcomb* comb, int depth) {
    if (!comb || depth > kMaxCombDepth) return false;
    for (const CLoadfact* lf : comb->GetLoadfacts().GetList()) {
        if (lf->GetCode() == 1) {
            const CLoadcase* lc = s.GetLoadcasePtr(lf->GetNo());
            if (lc && (lc->GetResults() != 0 || lc->GetExternal() != 0)) return true;
        } else if (lf->GetCode() == 2 &&
                   CombHasResults(s, s.GetLoadcombPtr(lf->GetNo()), depth + 1)) {
            return true;
        }
    }
    return false;
}

// The family of results that an order lists, k = Load + 1.
struct Family {
    int K = 0;
    // The head of the case column of one-row families and of the number column of twelve-row
    // ones, and the head of a block of twelve rows.
    const char* ColumnHead = "";
    const char* BlockHead = "";
    int Rows = 1;
    std::vector<int> Codes;
};

Family FamilyOf(int k) {
    switch (k) {
    case 1:
        return {1, "Lc", "", 1, {1, 11}};
    case 2:
        return {2, "Comb", "", 1, {2, 12, 15, 16}};
    case 3:
        return {3, "Lc", "Traffic load No: ", 12, {1}};
    case 4:
        return {4, "Sort.", "Sort.Comb No: ", 12, {kSortCombRow0}};
    case 5:
        return {5, "Line", "Sort.Line No: ", 12, {kSortLineRow0}};
    default:
        return {};
    }
}

// Reads stored results of the order's item: a node's displacements (turned into an element's
// axes when asked, and in mm) or reactions, or the section forces at x along an element. A
// twelve-row family reads its rows under consecutive numbers (traffic loads) or consecutive
// result codes (sorted results).
class Reader {
public:
    Reader(CStructure& s, const Family& f, int item, const double (*axes)[3])
        : Store(*s.GetResBasePtr()), F(f), Item(item), Axes(axes) {}

    // The twelve rows of a governing result; answers whether any was found.
    bool ReadRows(Block& b) {
        bool any = false;
        for (int r = 0; r < 12; ++r) {
            const int code = F.K == 3 ? F.Codes[0] : F.Codes[0] + r;
            const int no = F.K == 3 ? b.LoadNo + r : b.LoadNo;
            b.StoredNo[r] = no;
            b.Found[r] = ReadOne(code, no, b.ItemNo, b.X, b.V[r]);
            any = any || b.Found[r];
        }
        if (any && F.K == 5 && (Item == kForce || Item == kStoreCheck)) {
            int sources[12] = {};
            if (Store.GovSortCombInBase(0, 0, 0, b.ItemNo, b.X, kSortLineRow0, b.LoadNo, sources))
                std::copy(std::begin(sources), std::end(sources), b.Source.begin());
        }
        return any;
    }

    bool ReadOne(int code, int no, int item, double x, std::array<double, 6>& v) {
        if (Item == kDispl) {
            CDisplace d;
            if (!Store.NodeDisplaceInBase(0, 0, 0, item, code, no, &d)) return false;
            if (Axes) d.Transform(Axes);
            // Translations are printed in mm, rotations as they stand.
            v = {d.GetUx() * 1000.0, d.GetUy() * 1000.0, d.GetUz() * 1000.0,
                 d.GetRotx(),        d.GetRoty(),        d.GetRotz()};
            return true;
        }
        if (Item == kReaction) return Store.NodeReactionInBase(0, 0, 0, item, code, no, v.data());
        int a = 0, c = 0;
        return Store.SectionForceInBase(0, 0, 0, item, x, code, no, a, c, v.data()) != 0;
    }

private:
    CMemResBase& Store;
    const Family& F;
    int Item;
    const double (*Axes)[3];
};

// The positions along an element at which its forces are listed: its design sections, or its
// two ends when it has none.
std::vector<double> Positions(const CStructure& s, int elementNo) {
    std::vector<double> positions;
    if (const CElement* e = s.GetElementPtr(elementNo))
        for (const CDesignSection* d : e->GetDesignSectionList())
            positions.push_back(d->GetXoverL());
    if (positions.empty()) positions = {0.0, 1.0};
    return positions;
}

// The local axes of an element as the rows of `axes`, from its present node coordinates.
bool ElementAxes(CStructure& s, int elementNo, double axes[3][3]) {
    const CElement* e = s.GetElementPtr(elementNo);
    if (!e) return false;
    CElement copy(*e);
    copy.SetNodeNo1Ptr(s.GetNodePtr(e->GetNodeNo1()));
    copy.SetNodeNo2Ptr(s.GetNodePtr(e->GetNodeNo2()));
    copy.SetNodeNo3Ptr(s.GetNodePtr(e->GetNodeNo3()));
    if (!copy.MakeTransMatrix(&s)) return false;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) axes[i][j] = copy.GetTransMatrix(i, j);
    return true;
}

// The six values of a row in the order of the printed columns.
std::array<double, 6> Columns(int item, const std::array<double, 6>& v) {
    if (item != kForce) return v;
    std::array<double, 6> c{};
    for (int i = 0; i < 6; ++i) c[i] = v[kForceColumn[i]];
    return c;
}

} // namespace

void CFrameResOrder::Empty() {
    Item = Load = Leading = Sort = SortComp = 0;
    ItemIntervals.clear();
    LoadIntervals.clear();
}

int CFrameResOrder::MakeListingFromResOrder(CStructure* s, std::vector<std::string>& out) const {
    const Family fam = FamilyOf(Load + 1);
    if (!s || fam.K == 0) return 0;
    if (Item != kDispl && Item != kForce && Item != kReaction && Item != kSums &&
        Item != kStoreCheck)
        return 0;
    double axes[3][3] = {};
    const bool local = LocalElemAxis > 0 && Item == kDispl;
    if (local && !ElementAxes(*s, LocalElemAxis, axes)) return 0;

    std::vector<int> loads;
    switch (fam.K) {
    case 1:
        loads = Numbers(LoadIntervals, *s->GetLoadcaseList());
        break;
    case 2:
        loads = Numbers(LoadIntervals, *s->GetLoadcombList());
        break;
    case 3:
        loads = Numbers(LoadIntervals, *s->GetTrafLoadList());
        break;
    case 4:
        loads = Numbers(LoadIntervals, *s->GetSortCombList());
        break;
    default:
        loads = Numbers(LoadIntervals, *s->GetSortCombLineList());
        break;
    }
    const char* loadHead = fam.ColumnHead;

    if (Item == kSums) {
        // The sums are kept on load cases and ordinary combinations only.
        AddLine(out, Format("%5s%s", loadHead,
                            "                                PX          PY          PZ\r\n"));
        AddLine(out, Format("%40s%12s%12s\r\n", kKn, kKn, kKn));
        bool firstCase = true;
        for (const int no : loads) {
            // PX, PY, PZ of the applied loads and of the reactions.
            std::array<double, 3> app{}, rea{};
            if (fam.K == 1) {
                const CLoadcase* lc = s->GetLoadcasePtr(no);
                if (!lc || lc->GetResults() == 0) continue;
                for (int i = 0; i < 3; ++i) {
                    app[i] = lc->GetSumAppForces(i);
                    rea[i] = lc->GetSumReaForces(i);
                }
            } else if (fam.K == 2) {
                const CLoadcomb* c = s->GetLoadcombPtr(no);
                if (!CombHasResults(*s, c, 0)) continue;
                for (int i = 0; i < 3; ++i) {
                    app[i] = c->GetSumAppForces(i);
                    rea[i] = c->GetSumReaForces(i);
                }
            } else {
                continue;
            }
            if (Sort == 0 && !firstCase) AddLine(out, kCrLf);
            firstCase = false;
            AddLine(out,
                    Format("%5d   %-20s%12.2f%12.2f%12.2f\r\n", no, "Sum applied loads",
                           ListedValue(app[0], 2), ListedValue(app[1], 2), ListedValue(app[2], 2)));
            AddLine(out,
                    Format("%5d   %-20s%12.2f%12.2f%12.2f\r\n", no, "Sum reaction forces",
                           ListedValue(rea[0], 2), ListedValue(rea[1], 2), ListedValue(rea[2], 2)));
        }
        return 1;
    }

    // Collect what the store holds.
    const bool onElements = Item == kForce || Item == kStoreCheck;
    const std::vector<int> items = onElements ? Numbers(ItemIntervals, *s->GetElementList())
                                              : Numbers(ItemIntervals, *s->GetNodeList());
    Reader reader(*s, fam, Item, local ? axes : nullptr);
    std::vector<Block> blocks;
    bool missing = false;
    for (const int item : items) {
        const std::vector<double> positions =
            onElements ? Positions(*s, item) : std::vector<double>{0.0};
        for (const double x : positions)
            for (const int load : loads) {
                Block b;
                b.ItemNo = item;
                b.LoadNo = load;
                b.X = x;
                b.Rows = fam.Rows;
                if (fam.Rows == 12) {
                    const bool any = reader.ReadRows(b);
                    if (!std::all_of(b.Found.begin(), b.Found.end(), [](bool f) { return f; }))
                        missing = true;
                    if (any) blocks.push_back(b);
                    continue;
                }
                bool any = false;
                for (const int code : fam.Codes) {
                    b.Found[0] = reader.ReadOne(code, load, item, x, b.V[0]);
                    b.StoredNo[0] = load;
                    if (!b.Found[0]) continue;
                    blocks.push_back(b);
                    any = true;
                }
                if (!any) missing = true;
            }
    }

    if (Item == kStoreCheck) {
        // Every value found, summed per component: a figure to compare between runs, and a word
        // when a result that was asked for isn't there.
        std::array<double, 6> sum{};
        for (const Block& b : blocks)
            for (int r = 0; r < b.Rows; ++r)
                if (b.Found[r])
                    for (int i = 0; i < 6; ++i) sum[i] += b.V[r][i];
        AddLine(out,
                Format("%10s%10s%10s%10s%10s%10s%10s\r\n", "", "PL", "PM", "PN", "ML", "MM", "MN"));
        AddLine(out,
                Format("%10s%10s%10s%10s%10s%10s%10s\r\n", "", kKn, kKn, kKn, kKnm, kKnm, kKnm));
        std::string line = "DB. sum  :";
        for (const double v : sum) line += Format("%10.1f", ListedValue(v, 1));
        AddLine(out, line + kCrLf);
        if (missing) AddLine(out, "Error! not all results were found!\r\n");
        return 1;
    }

    if (Leading == 1)
        std::stable_sort(blocks.begin(), blocks.end(),
                         [](const Block& a, const Block& b) { return a.LoadNo < b.LoadNo; });
    if (Sort != 0 && SortComp >= 0 && SortComp < fam.Rows * 6) {
        // One-row results by their component; twelve-row results by the governing row SortComp,
        // taken at its own component. A block without that row goes last.
        const int row = fam.Rows == 12 ? SortComp : 0;
        const int comp = SortComp % 6;
        const bool up = Sort > 0;
        std::stable_sort(blocks.begin(), blocks.end(), [=](const Block& a, const Block& b) {
            if (a.Found[row] != b.Found[row]) return a.Found[row];
            if (!a.Found[row]) return false;
            return up ? a.V[row][comp] < b.V[row][comp] : a.V[row][comp] > b.V[row][comp];
        });
    }

    // Heads: the column names, then the units.
    const char* itemHead = onElements ? "Elem" : "Node";
    const char* first = Leading == 1 ? loadHead : itemHead;
    const char* second = Leading == 1 ? itemHead : loadHead;
    const std::string localHead =
        local ? Format("UL        UM        UN             RotL       RotM       RotN El:%i\r\n",
                       LocalElemAxis)
              : std::string("Ux        Uy        Uz             Rotx       Roty       Rotz\r\n");
    const std::string displHead =
        local ? Format(" %9s %9s %9s %14s %14s %14s El:%i\r\n", "UL", "UM", "UN", "RotL", "RotM",
                       "RotN", LocalElemAxis)
              : Format(" %9s %9s %9s %14s %14s %14s\r\n", "Ux", "Uy", "Uz", "Rotx", "Roty", "Rotz");
    if (fam.Rows == 1) {
        if (Item == kDispl) {
            AddLine(out, Format("%5s %4s       %s", first, second, localHead.c_str()));
            AddLine(out, Format("%10s %9s %9s %9s %14s %14s %14s\r\n", "", kMm, kMm, kMm, kRad,
                                kRad, kRad));
        } else if (Item == kForce) {
            AddLine(out,
                    Format("%5s%7s%5s%12s%12s%12s%12s%12s%12s\r\n", first, "X/L", second, "Axial",
                           "Shear L", "Shear N", "Bending L", "Bending N", "Torsion"));
            AddLine(out, Format("%17s%12s%12s%12s%12s%12s%12s\r\n", "", kKn, kKn, kKn, kKnm, kKnm,
                                kKnm));
        } else {
            AddLine(out, Format("%5s%5s%12s%12s%12s%12s%12s%12s\r\n", first, second, "PX", "PY",
                                "PZ", "MX", "MY", "MZ"));
            AddLine(out, Format("%10s%12s%12s%12s%12s%12s%12s\r\n", "", kKn, kKn, kKn, kKnm, kKnm,
                                kKnm));
        }
    } else {
        // Twelve-row families: a number column (the number each row is stored under) and the
        // row's name, or for combination lines the name first and the source combination last.
        const bool line = fam.K == 5;
        const std::string lead = line ? std::string() : Format("%5s%3s", fam.ColumnHead, "");
        const std::string blank = line ? std::string() : Format("%8s", "");
        if (Item == kDispl) {
            AddLine(out, lead + Format("%-12s", "Row") + displHead);
            AddLine(out, blank + Format("%12s %9s %9s %9s %14s %14s %14s\r\n", "", kMm, kMm, kMm,
                                        kRad, kRad, kRad));
        } else {
            const bool forces = Item == kForce;
            AddLine(out, lead + Format("%-12s%11s%11s%11s%11s%11s%11s", "Row",
                                       forces ? "Axial" : "PX", forces ? "Shear L" : "PY",
                                       forces ? "Shear N" : "PZ", forces ? "Bending L" : "MX",
                                       forces ? "Bending N" : "MY", forces ? "Torsion" : "MZ"));
            if (line && forces) out.back() += Format("%8s", "Comb");
            AddLine(out, kCrLf);
            AddLine(out, blank + Format("%12s%11s%11s%11s%11s%11s%11s\r\n", "", kKn, kKn, kKn, kKnm,
                                        kKnm, kKnm));
        }
    }

    // The records.
    int lastLeading = 0;
    bool firstBlock = true;
    for (const Block& b : blocks) {
        const int lead = Leading == 1 ? b.LoadNo : b.ItemNo;
        const int inner = Leading == 1 ? b.ItemNo : b.LoadNo;
        if (Sort == 0 && !firstBlock && lead != lastLeading) AddLine(out, kCrLf);
        firstBlock = false;
        lastLeading = lead;
        if (fam.Rows == 1) {
            const auto v = Columns(Item, b.V[0]);
            if (Item == kDispl)
                AddLine(out,
                        Format("%5d %4d %9.3f %9.3f %9.3f %14.8f %14.8f %14.8f\r\n", lead, inner,
                               ListedValue(v[0], 3), ListedValue(v[1], 3), ListedValue(v[2], 3),
                               ListedValue(v[3], 8), ListedValue(v[4], 8), ListedValue(v[5], 8)));
            else if (Item == kForce)
                AddLine(out, Format("%5d%7.2f%5d%12.2f%12.2f%12.2f%12.2f%12.2f%12.2f\r\n", lead,
                                    b.X, inner, ListedValue(v[0], 2), ListedValue(v[1], 2),
                                    ListedValue(v[2], 2), ListedValue(v[3], 2),
                                    ListedValue(v[4], 2), ListedValue(v[5], 2)));
            else
                AddLine(out,
                        Format("%5d%5d%12.2f%12.2f%12.2f%12.2f%12.2f%12.2f\r\n", lead, inner,
                               ListedValue(v[0], 2), ListedValue(v[1], 2), ListedValue(v[2], 2),
                               ListedValue(v[3], 2), ListedValue(v[4], 2), ListedValue(v[5], 2)));
            continue;
        }
        if (onElements)
            AddLine(out, Format("%14s%5i%14s%5i%7s%5.2f\r\n", fam.BlockHead, b.LoadNo,
                                "Element No: ", b.ItemNo, ", X/L: ", b.X));
        else
            AddLine(out,
                    Format("%14s%5i%14s%5i\r\n", fam.BlockHead, b.LoadNo, "Node No: ", b.ItemNo));
        for (int r = 0; r < 12; ++r) {
            if (!b.Found[r]) continue;
            const auto v = Columns(Item, b.V[r]);
            const char* name = Item == kForce ? kRowLong[r] : kRowShort[r];
            if (Item == kDispl) {
                const std::string values =
                    Format(" %9.3f %9.3f %9.3f %14.8f %14.8f %14.8f\r\n", ListedValue(v[0], 3),
                           ListedValue(v[1], 3), ListedValue(v[2], 3), ListedValue(v[3], 8),
                           ListedValue(v[4], 8), ListedValue(v[5], 8));
                if (fam.K == 5)
                    AddLine(out, Format("%-12s", name) + values);
                else
                    AddLine(out, Format("%5i%3s%-12s", b.StoredNo[r], "", name) + values);
            } else if (fam.K == 5 && Item == kForce) {
                AddLine(out, Format("%-12s%11.2f%11.2f%11.2f%11.2f%11.2f%11.2f%8i\r\n", name,
                                    ListedValue(v[0], 2), ListedValue(v[1], 2),
                                    ListedValue(v[2], 2), ListedValue(v[3], 2),
                                    ListedValue(v[4], 2), ListedValue(v[5], 2), b.Source[r]));
            } else {
                const std::string values =
                    Format("%11.2f%11.2f%11.2f%11.2f%11.2f%11.2f\r\n", ListedValue(v[0], 2),
                           ListedValue(v[1], 2), ListedValue(v[2], 2), ListedValue(v[3], 2),
                           ListedValue(v[4], 2), ListedValue(v[5], 2));
                if (fam.K == 5)
                    AddLine(out, Format("%-12s", name) + values);
                else
                    AddLine(out, Format("%5i%3s%-12s", b.StoredNo[r], "", name) + values);
            }
        }
    }
    return 1;
}

} // namespace kelo
