#pragma once

#include "platform/Object.h"

#include <any>
#include <memory>
#include <unordered_map>
#include <vector>

namespace kelo {

// What the entries of a result node are. An inner node (99) holds child nodes; every other kind
// is a leaf whose entries are payload records of that kind.
inline constexpr int RES_ITEM_DISPLACEMENTS = 0;
inline constexpr int RES_ITEM_SECT_FORCE = 1;
inline constexpr int RES_ITEM_SUPPORT_REACT = 2;
inline constexpr int RES_ITEM_EQULIBRIUM = 3;
inline constexpr int RES_ITEM_EIGEN_MODES = 4;
inline constexpr int RES_ITEM_BUCKLING_MODES = 5;
inline constexpr int RES_ITEM_ACCELRATIONS = 6;
inline constexpr int RES_ITEM_STEEL_UR = 7;
inline constexpr int RES_ITEM_STEEL_STRESS = 8;
inline constexpr int RES_ITEM_MODEL_ELEM_RES = 9;
inline constexpr int RES_ITEM_SECTION_RES = 10;
inline constexpr int RES_ITEM_TRAF_TRACK_POS = 11;
inline constexpr int RES_ITEM_GOV_SORT_COMB = 12;
inline constexpr int RES_ITEM_SPARE = 13;
inline constexpr int RES_ITEM_MEMRESNODE = 99;

// Two positions along a member closer than this (in the unit of the key, x/L or metres) are the
// same section: results written at 0.3333333 and read at 1/3 meet in one leaf.
inline constexpr double kMemResDataTol = 1e-5;

// One node of the result tree. A node is keyed among its siblings by `ID` and, for positions
// along a member, by `Data`. Inner nodes keep their children in an ordered array; leaves keep a
// fixed number of payload slots, each empty or holding one record.
//
// Child lookups answer what a scan of the array from its start would answer (the first child
// whose key matches), but without the scan on long lists: while the children stand in ascending
// key order, as the store always adds them, a binary search finds the first match; when the
// order was broken by other sort modes, a lazily built index takes over.
class CMemResNode : public CObject {
public:
    // `size` is the number of payload slots of a leaf; an inner node starts without children.
    CMemResNode(int type, int id, double data, int size);
    CMemResNode(const CMemResNode&) = delete;
    CMemResNode& operator=(const CMemResNode&) = delete;
    ~CMemResNode() override;

    int GetID() const { return ID; }
    double GetData() const { return Data; }
    int GetType() const { return Type; }
    bool IsInner() const { return Type == RES_ITEM_MEMRESNODE; }
    // Entries of the node: children of an inner node, payload slots of a leaf.
    int GetSize() const;

    // Takes over `child`. Sort mode 0 appends; 1 inserts before the first child of greater ID;
    // 2 inserts before the first child whose Data exceeds the new one's by more than the
    // tolerance. Answers the index given to the child, or -1 (the child is then freed) for a
    // leaf, which has no child array, for a null child, for an unknown sort mode and when memory
    // runs out.
    int AddChild(std::unique_ptr<CMemResNode> child, int sortMode);
    // The first child of that ID, or null.
    CMemResNode* GetChildByID(int id);
    // The first child whose Data lies within the tolerance of `data`, or null.
    CMemResNode* GetChildByData(double data);
    CMemResNode* GetChild(int index);
    const CMemResNode* GetChild(int index) const;

    // Payload slot `index` of a leaf; null when out of range or on an inner node.
    std::any* GetEntry(int index);
    const std::any* GetEntry(int index) const;
    // Slot `index` of a leaf holds a record.
    bool HasEntry(int index) const;

    // An inner node frees all its children; a leaf frees its payloads and keeps its empty slots.
    void Clear();

private:
    // The children of an inner node in their order. They are kept in blocks of bounded length,
    // so that an insertion anywhere in a long list moves at most one block: the solver writes
    // node results in its band order, which scrambles the node numbers.
    class ChildList {
    public:
        int Size() const { return Count; }
        CMemResNode* At(int index) const;
        CMemResNode* Back() const { return BlockAt(BlockCount() - 1).back().get(); }
        void Insert(int index, std::unique_ptr<CMemResNode> child);
        // First index at which `pred` turns false; `pred` must hold on a leading run only.
        template <class Pred> int PartitionPoint(Pred pred) const;

        // Children stand in ascending ID order, and in ascending Data order.
        bool SortedById = true;
        bool SortedByData = true;
        // Where the last ID lookup hit: results are written and read in runs of neighbouring
        // keys.
        int LastHit = 0;

        // Lookups of a long list out of key order, made when first needed.
        struct Index {
            // First child of each ID.
            std::unordered_map<int, CMemResNode*> ById;
            bool ByIdValid = false;
            // Children by ascending Data.
            std::vector<CMemResNode*> ByData;
            bool ByDataValid = false;
        };
        std::unique_ptr<Index> Lookup;

    private:
        using Block = std::vector<std::unique_ptr<CMemResNode>>;
        // The blocks after the first, and the index of the first child of every block.
        struct Blocks {
            std::vector<Block> More;
            std::vector<int> Starts;
        };
        Block& BlockAt(int b) { return b == 0 ? First : Rest->More[b - 1]; }
        const Block& BlockAt(int b) const { return b == 0 ? First : Rest->More[b - 1]; }
        int BlockCount() const { return Rest ? static_cast<int>(Rest->More.size()) + 1 : 1; }
        int BlockStart(int b) const { return Rest ? Rest->Starts[b] : 0; }
        // The block that holds `index`; the last one for the index past the end.
        int BlockOf(int index) const;

        Block First;
        std::unique_ptr<Blocks> Rest;
        int Count = 0;
        // The block of the last access; neighbouring children are mostly asked for in turn.
        mutable int LastBlock = 0;
    };

    int InsertPosition(const CMemResNode& child, int sortMode) const;
    void NoteInsertion(int position);
    CMemResNode* FirstInOrder(const std::vector<CMemResNode*>& candidates) const;

    int ID;
    int Type;
    double Data;
    int SlotCount = 0;
    // Inner nodes only, made with the first child.
    std::unique_ptr<ChildList> Children;
    // A leaf's first slot lies in the node, so that the common one-record leaf takes no extra
    // allocation; further slots are allocated with the node.
    std::any Entry0;
    std::unique_ptr<std::any[]> MoreEntries;
};

} // namespace kelo
