#include "store/MemResNode.h"

#include <algorithm>
#include <cmath>

namespace kelo {

namespace {

// Below this many children a plain scan is as quick as any index and needs no memory.
constexpr std::size_t kScanLimit = 8;

bool WithinTol(double a, double b) { return std::fabs(a - b) < kMemResDataTol; }

} // namespace

CMemResNode::CMemResNode(int type, int id, double data, int size) : ID(id), Type(type), Data(data) {
    if (IsInner()) {
        if (size > 0) Children.reserve(static_cast<std::size_t>(size));
        return;
    }
    SlotCount = std::max(size, 0);
    if (SlotCount > 1) MoreEntries = std::make_unique<std::any[]>(SlotCount - 1);
}

CMemResNode::~CMemResNode() = default;

int CMemResNode::GetSize() const {
    return IsInner() ? static_cast<int>(Children.size()) : SlotCount;
}

int CMemResNode::InsertPosition(const CMemResNode& child, int sortMode) const {
    const auto n = static_cast<int>(Children.size());
    if (sortMode == 0) return n;
    if (sortMode == 1) {
        if (SortedById) {
            const auto it = std::upper_bound(
                Children.begin(), Children.end(), child.ID,
                [](int id, const std::unique_ptr<CMemResNode>& c) { return id < c->ID; });
            return static_cast<int>(it - Children.begin());
        }
        for (int i = 0; i < n; ++i)
            if (Children[i]->ID > child.ID) return i;
        return n;
    }
    // Sort mode 2: a new position within the tolerance of existing ones goes after them.
    const auto greater = [&child](const std::unique_ptr<CMemResNode>& c) {
        return c->Data - child.Data > kMemResDataTol;
    };
    if (SortedByData) {
        const auto it = std::partition_point(
            Children.begin(), Children.end(),
            [&greater](const std::unique_ptr<CMemResNode>& c) { return !greater(c); });
        return static_cast<int>(it - Children.begin());
    }
    for (int i = 0; i < n; ++i)
        if (greater(Children[i])) return i;
    return n;
}

void CMemResNode::NoteInsertion(int position) {
    const auto n = static_cast<int>(Children.size());
    const CMemResNode* added = Children[position].get();
    const CMemResNode* prev = position > 0 ? Children[position - 1].get() : nullptr;
    const CMemResNode* next = position + 1 < n ? Children[position + 1].get() : nullptr;
    if (SortedById)
        SortedById = (!prev || prev->ID <= added->ID) && (!next || added->ID <= next->ID);
    if (SortedByData)
        SortedByData = (!prev || prev->Data <= added->Data) && (!next || added->Data <= next->Data);
    if (!Lookup) return;
    if (Lookup->ByIdValid) {
        // An appended child cannot be the first of its ID if another one came before it.
        if (position == n - 1)
            Lookup->ById.emplace(added->ID, Children[position].get());
        else
            Lookup->ByIdValid = false;
    }
    if (Lookup->ByDataValid) {
        auto& byData = Lookup->ByData;
        const auto it =
            std::upper_bound(byData.begin(), byData.end(), added->Data,
                             [](double d, const CMemResNode* c) { return d < c->Data; });
        byData.insert(it, Children[position].get());
    }
}

CMemResNode::ChildIndex& CMemResNode::Index() {
    if (!Lookup) Lookup = std::make_unique<ChildIndex>();
    return *Lookup;
}

int CMemResNode::AddChild(std::unique_ptr<CMemResNode> child, int sortMode) {
    if (!child || !IsInner() || sortMode < 0 || sortMode > 2) return -1;
    const int position = InsertPosition(*child, sortMode);
    Children.insert(Children.begin() + position, std::move(child));
    NoteInsertion(position);
    return position;
}

CMemResNode* CMemResNode::GetChildByID(int id) {
    if (!IsInner()) return nullptr;
    const auto n = static_cast<int>(Children.size());
    if (SortedById) {
        // In ascending order the first of an ID is the one whose predecessor has a smaller ID.
        const auto isFirstOf = [this, id](int i) {
            return Children[i]->ID == id && (i == 0 || Children[i - 1]->ID != id);
        };
        for (int hint = LastHit; hint <= LastHit + 1; ++hint)
            if (hint < n && isFirstOf(hint)) {
                LastHit = hint;
                return Children[hint].get();
            }
        const auto it = std::lower_bound(
            Children.begin(), Children.end(), id,
            [](const std::unique_ptr<CMemResNode>& c, int key) { return c->ID < key; });
        if (it == Children.end() || (*it)->ID != id) return nullptr;
        LastHit = static_cast<int>(it - Children.begin());
        return it->get();
    }
    if (Children.size() <= kScanLimit) {
        for (const auto& c : Children)
            if (c->ID == id) return c.get();
        return nullptr;
    }
    ChildIndex& index = Index();
    if (!index.ByIdValid) {
        index.ById.clear();
        for (const auto& c : Children) index.ById.emplace(c->ID, c.get());
        index.ByIdValid = true;
    }
    const auto it = index.ById.find(id);
    return it == index.ById.end() ? nullptr : it->second;
}

CMemResNode* CMemResNode::FirstInOrder(const std::vector<CMemResNode*>& candidates) const {
    for (const auto& c : Children)
        if (std::find(candidates.begin(), candidates.end(), c.get()) != candidates.end())
            return c.get();
    return nullptr;
}

CMemResNode* CMemResNode::GetChildByData(double data) {
    if (!IsInner()) return nullptr;
    // Everything before the first child with Data - data > -tol is too far below `data`; the
    // test is written as in the tolerance test so that both agree to the last bit.
    const auto tooLow = [data](const CMemResNode* c) { return c->Data - data <= -kMemResDataTol; };
    if (SortedByData) {
        const auto it = std::partition_point(
            Children.begin(), Children.end(),
            [&tooLow](const std::unique_ptr<CMemResNode>& c) { return tooLow(c.get()); });
        if (it == Children.end() || !WithinTol((*it)->Data, data)) return nullptr;
        return it->get();
    }
    if (Children.size() <= kScanLimit) {
        for (const auto& c : Children)
            if (WithinTol(c->Data, data)) return c.get();
        return nullptr;
    }
    ChildIndex& index = Index();
    if (!index.ByDataValid) {
        index.ByData.clear();
        for (const auto& c : Children) index.ByData.push_back(c.get());
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
    // Two sections both within the tolerance of `data`: the one met first in the array wins.
    return FirstInOrder(candidates);
}

CMemResNode* CMemResNode::GetChild(int index) {
    if (!IsInner() || index < 0 || index >= static_cast<int>(Children.size())) return nullptr;
    return Children[index].get();
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
        Children.clear();
        Lookup.reset();
        SortedById = true;
        SortedByData = true;
        LastHit = 0;
        return;
    }
    Entry0.reset();
    for (int i = 1; i < SlotCount; ++i) MoreEntries[i - 1].reset();
}

} // namespace kelo
