#include "store/MemResNode.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <iterator>

namespace kelo {

namespace {

// Below this many children a plain scan is as quick as any index and needs no memory.
constexpr int kScanLimit = 8;
// A block of children is split in two when it grows beyond this length.
constexpr std::size_t kBlockMax = 512;

bool WithinTol(double a, double b) { return std::fabs(a - b) < kMemResDataTol; }

} // namespace

// ---- Child list -----------------------------------------------------------------------------

int CMemResNode::ChildList::BlockOf(int index) const {
    if (!Rest) return 0;
    const auto& starts = Rest->Starts;
    const auto blocks = static_cast<int>(starts.size());
    for (int b = LastBlock; b <= LastBlock + 1 && b < blocks; ++b)
        if (starts[b] <= index && (b + 1 == blocks || index < starts[b + 1])) return LastBlock = b;
    LastBlock =
        static_cast<int>(std::upper_bound(starts.begin(), starts.end(), index) - starts.begin()) -
        1;
    return LastBlock;
}

CMemResNode* CMemResNode::ChildList::At(int index) const {
    const int b = BlockOf(index);
    return BlockAt(b)[static_cast<std::size_t>(index - BlockStart(b))].get();
}

void CMemResNode::ChildList::Insert(int index, std::unique_ptr<CMemResNode> child) {
    const int b = BlockOf(index);
    Block& block = BlockAt(b);
    block.insert(block.begin() + (index - BlockStart(b)), std::move(child));
    ++Count;
    if (Rest)
        for (std::size_t k = static_cast<std::size_t>(b) + 1; k < Rest->Starts.size(); ++k)
            ++Rest->Starts[k];
    if (block.size() <= kBlockMax) return;
    // Everything that may fail for memory comes before any child moves, so that a failed split
    // leaves one long block and loses nothing.
    if (!Rest) {
        auto rest = std::make_unique<Blocks>();
        rest->Starts.push_back(0);
        Rest = std::move(rest);
    }
    Rest->Starts.reserve(Rest->Starts.size() + 1);
    Rest->More.reserve(Rest->More.size() + 1);
    // The reservation may have moved the blocks.
    Block& full = BlockAt(b);
    const auto half = static_cast<long>(full.size() / 2);
    Block tail;
    tail.reserve(full.size() - static_cast<std::size_t>(half));
    std::move(full.begin() + half, full.end(), std::back_inserter(tail));
    full.erase(full.begin() + half, full.end());
    Rest->Starts.insert(Rest->Starts.begin() + b + 1, BlockStart(b) + static_cast<int>(half));
    Rest->More.insert(Rest->More.begin() + b, std::move(tail));
}

template <class Pred> int CMemResNode::ChildList::PartitionPoint(Pred pred) const {
    // The first block whose last child fails the test holds the turning point.
    int lo = 0, hi = Count == 0 ? 0 : BlockCount();
    while (lo < hi) {
        const int mid = (lo + hi) / 2;
        if (pred(BlockAt(mid).back().get()))
            lo = mid + 1;
        else
            hi = mid;
    }
    if (lo == (Count == 0 ? 0 : BlockCount())) return Count;
    const Block& block = BlockAt(lo);
    const auto it = std::partition_point(
        block.begin(), block.end(),
        [&pred](const std::unique_ptr<CMemResNode>& c) { return pred(c.get()); });
    return BlockStart(lo) + static_cast<int>(it - block.begin());
}

// ---- Node -----------------------------------------------------------------------------------

CMemResNode::CMemResNode(int type, int id, double data, int size) : ID(id), Type(type), Data(data) {
    if (IsInner()) return;
    SlotCount = std::max(size, 0);
    if (SlotCount > 1) MoreEntries = std::make_unique<std::any[]>(SlotCount - 1);
}

CMemResNode::~CMemResNode() = default;

int CMemResNode::GetSize() const {
    if (!IsInner()) return SlotCount;
    return Children ? Children->Size() : 0;
}

int CMemResNode::InsertPosition(const CMemResNode& child, int sortMode) const {
    const int n = GetSize();
    if (sortMode == 0 || n == 0) return n;
    const ChildList& list = *Children;
    if (sortMode == 1) {
        const auto notGreater = [&child](const CMemResNode* c) { return c->ID <= child.ID; };
        // Results come mostly in ascending keys: the new child then goes to the end.
        if (list.SortedById && notGreater(list.Back())) return n;
        if (list.SortedById) return list.PartitionPoint(notGreater);
        for (int i = 0; i < n; ++i)
            if (!notGreater(list.At(i))) return i;
        return n;
    }
    // Sort mode 2: a new position within the tolerance of existing ones goes after them.
    const auto notGreater = [&child](const CMemResNode* c) {
        return !(c->Data - child.Data > kMemResDataTol);
    };
    if (list.SortedByData) return list.PartitionPoint(notGreater);
    for (int i = 0; i < n; ++i)
        if (!notGreater(list.At(i))) return i;
    return n;
}

void CMemResNode::NoteInsertion(int position) {
    ChildList& list = *Children;
    const int n = list.Size();
    CMemResNode* added = list.At(position);
    const CMemResNode* prev = position > 0 ? list.At(position - 1) : nullptr;
    const CMemResNode* next = position + 1 < n ? list.At(position + 1) : nullptr;
    if (list.SortedById)
        list.SortedById = (!prev || prev->ID <= added->ID) && (!next || added->ID <= next->ID);
    if (list.SortedByData)
        list.SortedByData =
            (!prev || prev->Data <= added->Data) && (!next || added->Data <= next->Data);
    if (!list.Lookup) return;
    try {
        ChildList::Index& index = *list.Lookup;
        if (index.ByIdValid) {
            // An appended child cannot be the first of its ID if another one came before it.
            if (position == n - 1)
                index.ById.emplace(added->ID, added);
            else
                index.ByIdValid = false;
        }
        if (index.ByDataValid) {
            const auto it =
                std::upper_bound(index.ByData.begin(), index.ByData.end(), added->Data,
                                 [](double d, const CMemResNode* c) { return d < c->Data; });
            index.ByData.insert(it, added);
        }
    } catch (const std::exception&) {
        // The index is made again when next needed.
        list.Lookup.reset();
    }
}

int CMemResNode::AddChild(std::unique_ptr<CMemResNode> child, int sortMode) {
    if (!child || !IsInner() || sortMode < 0 || sortMode > 2) return -1;
    try {
        if (!Children) Children = std::make_unique<ChildList>();
        const int position = InsertPosition(*child, sortMode);
        Children->Insert(position, std::move(child));
        NoteInsertion(position);
        // The child just made is the likeliest to be asked for next.
        Children->LastHit = position;
        return position;
    } catch (const std::exception&) {
        return -1;
    }
}

CMemResNode* CMemResNode::GetChildByID(int id) {
    if (GetSize() == 0 || !IsInner()) return nullptr;
    ChildList& list = *Children;
    const int n = list.Size();
    if (list.SortedById) {
        // In ascending order the first of an ID is the one whose predecessor has another ID.
        const auto isFirstOf = [&list, id](int i) {
            return list.At(i)->ID == id && (i == 0 || list.At(i - 1)->ID != id);
        };
        if (list.Back()->ID < id) return nullptr;
        for (int hint = list.LastHit; hint <= list.LastHit + 1; ++hint)
            if (hint < n && isFirstOf(hint)) {
                list.LastHit = hint;
                return list.At(hint);
            }
        const int i = list.PartitionPoint([id](const CMemResNode* c) { return c->ID < id; });
        if (i == n || list.At(i)->ID != id) return nullptr;
        list.LastHit = i;
        return list.At(i);
    }
    if (n > kScanLimit) {
        try {
            if (!list.Lookup) list.Lookup = std::make_unique<ChildList::Index>();
            ChildList::Index& index = *list.Lookup;
            if (!index.ByIdValid) {
                index.ById.clear();
                for (int i = 0; i < n; ++i) index.ById.emplace(list.At(i)->ID, list.At(i));
                index.ByIdValid = true;
            }
            const auto it = index.ById.find(id);
            return it == index.ById.end() ? nullptr : it->second;
        } catch (const std::exception&) {
            // Without memory for the index the scan still answers.
            list.Lookup.reset();
        }
    }
    for (int i = 0; i < n; ++i)
        if (list.At(i)->ID == id) return list.At(i);
    return nullptr;
}

CMemResNode* CMemResNode::FirstInOrder(const std::vector<CMemResNode*>& candidates) const {
    for (int i = 0; i < GetSize(); ++i) {
        CMemResNode* c = Children->At(i);
        if (std::find(candidates.begin(), candidates.end(), c) != candidates.end()) return c;
    }
    return nullptr;
}

CMemResNode* CMemResNode::GetChildByData(double data) {
    if (GetSize() == 0 || !IsInner()) return nullptr;
    ChildList& list = *Children;
    const int n = list.Size();
    // Everything before the first child with Data - data > -tol is too far below `data`; the
    // test is written as in the tolerance test so that both agree to the last bit.
    const auto tooLow = [data](const CMemResNode* c) { return c->Data - data <= -kMemResDataTol; };
    if (list.SortedByData) {
        const int i = list.PartitionPoint(tooLow);
        if (i == n || !WithinTol(list.At(i)->Data, data)) return nullptr;
        return list.At(i);
    }
    if (n > kScanLimit) {
        try {
            if (!list.Lookup) list.Lookup = std::make_unique<ChildList::Index>();
            ChildList::Index& index = *list.Lookup;
            if (!index.ByDataValid) {
                index.ByData.clear();
                for (int i = 0; i < n; ++i) index.ByData.push_back(list.At(i));
                std::stable_sort(
                    index.ByData.begin(), index.ByData.end(),
                    [](const CMemResNode* a, const CMemResNode* b) { return a->Data < b->Data; });
                index.ByDataValid = true;
            }
            std::vector<CMemResNode*> candidates;
            for (auto it = std::partition_point(index.ByData.begin(), index.ByData.end(), tooLow);
                 it != index.ByData.end() && WithinTol((*it)->Data, data); ++it)
                candidates.push_back(*it);
            if (candidates.size() <= 1) return candidates.empty() ? nullptr : candidates.front();
            // Two sections both within the tolerance of `data`: the one met first in the array
            // wins.
            return FirstInOrder(candidates);
        } catch (const std::exception&) {
            // Without memory for the index the scan still answers.
            list.Lookup.reset();
        }
    }
    for (int i = 0; i < n; ++i)
        if (WithinTol(list.At(i)->Data, data)) return list.At(i);
    return nullptr;
}

CMemResNode* CMemResNode::GetChild(int index) {
    if (!IsInner() || index < 0 || index >= GetSize()) return nullptr;
    return Children->At(index);
}

const CMemResNode* CMemResNode::GetChild(int index) const {
    return const_cast<CMemResNode*>(this)->GetChild(index);
}

std::any* CMemResNode::GetEntry(int index) {
    if (IsInner() || index < 0 || index >= SlotCount) return nullptr;
    return index == 0 ? &Entry0 : &MoreEntries[index - 1];
}

const std::any* CMemResNode::GetEntry(int index) const {
    return const_cast<CMemResNode*>(this)->GetEntry(index);
}

bool CMemResNode::HasEntry(int index) const {
    const std::any* entry = GetEntry(index);
    return entry && entry->has_value();
}

void CMemResNode::Clear() {
    if (IsInner()) {
        Children.reset();
        return;
    }
    Entry0.reset();
    for (int i = 1; i < SlotCount; ++i) MoreEntries[i - 1].reset();
}

} // namespace kelo
