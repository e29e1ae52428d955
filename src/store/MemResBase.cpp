#include "store/MemResBase.h"

#include "model/Displace.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

#include <algorithm>
#include <exception>
#include <new>

namespace kelo {

namespace {

constexpr int kBranchCount = 14;
// Mode results of a dynamic load case sit in the branch of the accelerations, under the result
// type 100 + their own result kind, clear of the result codes (1 to 52) of the accelerations.
constexpr int kModeResTypeBase = 100;
// InBase modes of the project store.
constexpr int kModeRead = 0;
constexpr int kModeWrite = 5;
constexpr int kModeOverwrite = 6;

// Layout of the dump.
constexpr const char* kDumpRoot = ">> ROOT\n";
constexpr const char* kDumpLevel = ">> LEVEL %i index=%i\n";
constexpr const char* kDumpNode = "ID=%i : Data=%.3lf : Size=%i\n\n";
constexpr const char* kDumpNull = "NULL\n";
constexpr std::size_t kDumpNameWidth = 26;
constexpr int kDumpIndent = 3;

const char* TypeName(int type) {
    switch (type) {
    case RES_ITEM_DISPLACEMENTS:
        return "RES_ITEM_DISPLACEMENTS";
    case RES_ITEM_SECT_FORCE:
        return "RES_ITEM_SECT_FORCE";
    case RES_ITEM_SUPPORT_REACT:
        return "RES_ITEM_SUPPORT_REACT";
    case RES_ITEM_EQULIBRIUM:
        return "RES_ITEM_EQULIBRIUM";
    case RES_ITEM_EIGEN_MODES:
        return "RES_ITEM_EIGEN_MODES";
    case RES_ITEM_BUCKLING_MODES:
        return "RES_ITEM_BUCKLING_MODES";
    case RES_ITEM_ACCELRATIONS:
        return "RES_ITEM_ACCELRATIONS";
    case RES_ITEM_STEEL_UR:
        return "RES_ITEM_STEEL_UR";
    case RES_ITEM_STEEL_STRESS:
        return "RES_ITEM_STEEL_STRESS";
    case RES_ITEM_MODEL_ELEM_RES:
        return "RES_ITEM_MODEL_ELEM_RES";
    case RES_ITEM_SECTION_RES:
        return "RES_ITEM_SECTION_RES";
    case RES_ITEM_TRAF_TRACK_POS:
        return "RES_ITEM_TRAF_TRACK_POS";
    case RES_ITEM_GOV_SORT_COMB:
        return "RES_ITEM_GOV_SORT_COMB";
    case RES_ITEM_SPARE:
        return "RES_ITEM_SPARE";
    case RES_ITEM_MEMRESNODE:
        return "RES_ITEM_MEMRESNODE";
    default:
        return "RES_ITEM_UNKNOWN";
    }
}

using ForceRecord = std::array<double, kMemResForceValues>;
using ReactionRecord = std::array<double, kMemResReactionValues>;
using GovSortCombRecord = std::array<int, kMemResGovSortCombValues>;

// The record of slot 0 of a leaf, when the leaf holds one of class T.
template <class T> const T* Record(const CMemResNode* leaf) {
    const std::any* entry = leaf ? leaf->GetEntry(0) : nullptr;
    return entry ? std::any_cast<T>(entry) : nullptr;
}

// Replaces the record of slot 0; the old one is freed with the slot's former contents.
template <class T> int Store(CMemResNode* leaf, T record) {
    std::any* entry = leaf ? leaf->GetEntry(0) : nullptr;
    if (!entry) return 0;
    *entry = std::move(record);
    return 1;
}

// A leaf under `parent` found by its ID; made when missing and `create` is set. An inner node
// or a leaf of another kind in its place is no leaf of this kind.
CMemResNode* LeafById(CMemResNode* parent, int id, int leafType, bool create) {
    if (!parent) return nullptr;
    CMemResNode* leaf = parent->GetChildByID(id);
    if (!leaf && create) {
        auto made = std::make_unique<CMemResNode>(leafType, id, 0.0, 1);
        leaf = made.get();
        parent->AddChild(std::move(made), 1);
    }
    return leaf && leaf->GetType() == leafType ? leaf : nullptr;
}

// A leaf at position x under `parent`. All such leaves have ID 0, so that sort mode 1 keeps them
// in the order in which the positions were first written.
CMemResNode* LeafByData(CMemResNode* parent, double x, int leafType, bool create) {
    if (!parent) return nullptr;
    CMemResNode* leaf = parent->GetChildByData(x);
    if (!leaf && create) {
        auto made = std::make_unique<CMemResNode>(leafType, 0, x, 1);
        leaf = made.get();
        parent->AddChild(std::move(made), 1);
    }
    return leaf && leaf->GetType() == leafType ? leaf : nullptr;
}

CMemResNode* InnerByData(CMemResNode* parent, double x, bool create) {
    if (!parent) return nullptr;
    CMemResNode* node = parent->GetChildByData(x);
    if (!node && create) {
        auto made = std::make_unique<CMemResNode>(RES_ITEM_MEMRESNODE, 0, x, 0);
        node = made.get();
        parent->AddChild(std::move(made), 1);
    }
    return node && node->IsInner() ? node : nullptr;
}

CMemResNode* InnerById(CMemResNode* parent, int id) {
    CMemResNode* node = parent ? parent->GetChildByID(id) : nullptr;
    return node && node->IsInner() ? node : nullptr;
}

bool HoldsRecord(const CMemResNode* node) {
    if (!node) return false;
    if (!node->IsInner()) {
        for (int i = 0; i < node->GetSize(); ++i)
            if (node->HasEntry(i)) return true;
        return false;
    }
    for (int i = 0; i < node->GetSize(); ++i)
        if (HoldsRecord(node->GetChild(i))) return true;
    return false;
}

void ClearNode(CMemResNode* node) {
    if (node) node->Clear();
}

// Memory may run out on a big model: a write or a list then answers 0, as a failed one.
template <class F> int Guarded(F body) noexcept {
    try {
        return body();
    } catch (const std::exception&) {
        return 0;
    }
}

// Reads (mode 0) or writes (modes 5 and 6) through the given pair of functions.
template <class Read, class Write> int InBase(int mode, Read read, Write write) {
    if (mode == kModeRead) return read();
    if (mode == kModeWrite || mode == kModeOverwrite) return write();
    return 0;
}

// Calculated results and those held as external, of load cases and combinations.
constexpr int kCalcLoadcaseTypes[] = {1, 0};
constexpr int kLoadcaseTypes[] = {1, 11, 0};
constexpr int kCalcLoadcombTypes[] = {2, 0};
constexpr int kSortCombTypes[] = {21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 0};
constexpr int kSortCombLineTypes[] = {41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 51, 52, 0};
constexpr int kCombTypes[] = {2,  12, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32,
                              41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 51, 52, 0};
// The branches that hold results of a load case or combination.
constexpr int kCaseBranches[] = {RES_ITEM_DISPLACEMENTS, RES_ITEM_SECT_FORCE,
                                 RES_ITEM_SUPPORT_REACT, RES_ITEM_SECTION_RES};
// The result types that section results are stored under.
constexpr int kSectResTypes[] = {1, 2, 3, 11, 12, 15, 16, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30};

} // namespace

CMemResBase::CMemResBase(CStructure* structure) : Structure(structure) { MakeBranches(); }

CMemResBase::~CMemResBase() = default;

void CMemResBase::MakeBranches() {
    auto root = std::make_unique<CMemResNode>(RES_ITEM_MEMRESNODE, 0, 0.0, kBranchCount);
    for (int code = 0; code < kBranchCount; ++code)
        if (root->AddChild(std::make_unique<CMemResNode>(RES_ITEM_MEMRESNODE, code, 0.0, 0), 0) < 0)
            throw std::bad_alloc();
    Root = std::move(root);
}

CMemResNode* CMemResBase::Branch(int code) { return InnerById(Root.get(), code); }

CMemResNode* CMemResBase::GetCodeResNode(int code, int id) { return InnerById(Branch(code), id); }

CMemResNode* CMemResBase::Walk(int code, std::initializer_list<int> ids, bool create) {
    CMemResNode* node = Branch(code);
    for (const int id : ids) {
        if (!node) return nullptr;
        CMemResNode* child = node->GetChildByID(id);
        if (!child && create) {
            auto made = std::make_unique<CMemResNode>(RES_ITEM_MEMRESNODE, id, 0.0, 0);
            child = made.get();
            node->AddChild(std::move(made), 1);
        }
        node = child && child->IsInner() ? child : nullptr;
    }
    return node;
}

// ---- Node results ---------------------------------------------------------------------------

int CMemResBase::SetDisplace(int type, int no, int node, const CDisplace* displace) {
    return Guarded([&] {
        if (!displace) return 0;
        CMemResNode* leaf = LeafById(Walk(RES_ITEM_DISPLACEMENTS, {type, no}, true), node,
                                     RES_ITEM_DISPLACEMENTS, true);
        return Store(leaf, *displace);
    });
}

int CMemResBase::GetDisplace(int type, int no, int node, CDisplace* displace) {
    CMemResNode* leaf = LeafById(Walk(RES_ITEM_DISPLACEMENTS, {type, no}, false), node,
                                 RES_ITEM_DISPLACEMENTS, false);
    if (!leaf || !displace) return 0;
    const CDisplace* record = Record<CDisplace>(leaf);
    *displace = record ? *record : CDisplace();
    return record ? 1 : 0;
}

int CMemResBase::SetReaction(int type, int no, int node, const double* reaction) {
    return Guarded([&] {
        if (!reaction) return 0;
        CMemResNode* leaf = LeafById(Walk(RES_ITEM_SUPPORT_REACT, {type, no}, true), node,
                                     RES_ITEM_SUPPORT_REACT, true);
        ReactionRecord record{};
        std::copy(reaction, reaction + kMemResReactionValues, record.begin());
        return Store(leaf, record);
    });
}

int CMemResBase::GetReaction(int type, int no, int node, double* reaction) {
    CMemResNode* leaf = LeafById(Walk(RES_ITEM_SUPPORT_REACT, {type, no}, false), node,
                                 RES_ITEM_SUPPORT_REACT, false);
    if (!leaf || !reaction) return 0;
    const ReactionRecord* record = Record<ReactionRecord>(leaf);
    const ReactionRecord values = record ? *record : ReactionRecord{};
    std::copy(values.begin(), values.end(), reaction);
    return record ? 1 : 0;
}

int CMemResBase::SetNodeAccel(int type, int no, int node, const CDisplace* accel) {
    return Guarded([&] {
        if (!accel) return 0;
        CMemResNode* leaf = LeafById(Walk(RES_ITEM_ACCELRATIONS, {type, no}, true), node,
                                     RES_ITEM_ACCELRATIONS, true);
        return Store(leaf, *accel);
    });
}

int CMemResBase::GetNodeAccel(int type, int no, int node, CDisplace* accel) {
    CMemResNode* leaf = LeafById(Walk(RES_ITEM_ACCELRATIONS, {type, no}, false), node,
                                 RES_ITEM_ACCELRATIONS, false);
    if (!leaf || !accel) return 0;
    const CDisplace* record = Record<CDisplace>(leaf);
    *accel = record ? *record : CDisplace();
    return record ? 1 : 0;
}

// ---- Section results ------------------------------------------------------------------------

int CMemResBase::SetForce(int type, int no, int element, double x, int a, int b,
                          const double* forces) {
    return Guarded([&] {
        if (!forces) return 0;
        CMemResNode* leaf = LeafByData(Walk(RES_ITEM_SECT_FORCE, {type, no, element}, true), x,
                                       RES_ITEM_SECT_FORCE, true);
        ForceRecord record{};
        std::copy(forces, forces + 6, record.begin());
        record[6] = a;
        record[7] = b;
        return Store(leaf, record);
    });
}

int CMemResBase::GetForce(int type, int no, int element, double x, int& a, int& b, double* forces) {
    CMemResNode* leaf = LeafByData(Walk(RES_ITEM_SECT_FORCE, {type, no, element}, false), x,
                                   RES_ITEM_SECT_FORCE, false);
    if (!leaf || !forces) return 0;
    const ForceRecord* record = Record<ForceRecord>(leaf);
    if (!record) {
        std::fill(forces, forces + 6, 0.0);
        a = 0;
        b = -1;
        return 0;
    }
    std::copy(record->begin(), record->begin() + 6, forces);
    a = static_cast<int>((*record)[6]);
    b = static_cast<int>((*record)[7]);
    return 1;
}

int CMemResBase::SetSectionRes(int type, int no, int element, double x,
                               std::shared_ptr<CSectionRes> res,
                               std::shared_ptr<CSectionRes>* old) {
    return Guarded([&] {
        if (old) old->reset();
        if (!res) return 0;
        CMemResNode* leaf = LeafByData(Walk(RES_ITEM_SECTION_RES, {type, no, element}, true), x,
                                       RES_ITEM_SECTION_RES, true);
        if (!leaf) return 0;
        if (old)
            if (const auto* previous = Record<std::shared_ptr<CSectionRes>>(leaf)) *old = *previous;
        return Store(leaf, std::move(res));
    });
}

int CMemResBase::GetSectionRes(int type, int no, int element, double x,
                               std::shared_ptr<CSectionRes>* res) {
    CMemResNode* leaf = LeafByData(Walk(RES_ITEM_SECTION_RES, {type, no, element}, false), x,
                                   RES_ITEM_SECTION_RES, false);
    if (!leaf || !res) return 0;
    const auto* record = Record<std::shared_ptr<CSectionRes>>(leaf);
    *res = record ? *record : nullptr;
    return record ? 1 : 0;
}

int CMemResBase::SetTrafTrackPosRes(int type, int no, int element, double x, int row, int track,
                                    const std::string* text) {
    return Guarded([&] {
        if (!text) return 0;
        CMemResNode* position =
            InnerByData(Walk(RES_ITEM_TRAF_TRACK_POS, {type, no, element}, true), x, true);
        CMemResNode* rowNode = nullptr;
        if (position) {
            rowNode = position->GetChildByID(row);
            if (!rowNode) {
                auto made = std::make_unique<CMemResNode>(RES_ITEM_MEMRESNODE, row, 0.0, 0);
                rowNode = made.get();
                position->AddChild(std::move(made), 1);
            }
            if (!rowNode->IsInner()) rowNode = nullptr;
        }
        CMemResNode* leaf = LeafById(rowNode, track, RES_ITEM_TRAF_TRACK_POS, true);
        return Store(leaf, *text);
    });
}

int CMemResBase::GetTrafTrackPosRes(int type, int no, int element, double x, int row, int track,
                                    std::string* text) {
    return Guarded([&] {
        CMemResNode* position =
            InnerByData(Walk(RES_ITEM_TRAF_TRACK_POS, {type, no, element}, false), x, false);
        CMemResNode* leaf =
            LeafById(InnerById(position, row), track, RES_ITEM_TRAF_TRACK_POS, false);
        if (!leaf || !text) return 0;
        const std::string* record = Record<std::string>(leaf);
        *text = record ? *record : std::string();
        return record ? 1 : 0;
    });
}

int CMemResBase::SetGovSortComb(int type, int no, int element, double x, const int* sources) {
    return Guarded([&] {
        if (!sources) return 0;
        CMemResNode* leaf = LeafByData(Walk(RES_ITEM_GOV_SORT_COMB, {type, no, element}, true), x,
                                       RES_ITEM_GOV_SORT_COMB, true);
        GovSortCombRecord record{};
        std::copy(sources, sources + kMemResGovSortCombValues, record.begin());
        return Store(leaf, record);
    });
}

int CMemResBase::GetGovSortComb(int type, int no, int element, double x, int* sources) {
    CMemResNode* leaf = LeafByData(Walk(RES_ITEM_GOV_SORT_COMB, {type, no, element}, false), x,
                                   RES_ITEM_GOV_SORT_COMB, false);
    if (!leaf || !sources) return 0;
    const GovSortCombRecord* record = Record<GovSortCombRecord>(leaf);
    const GovSortCombRecord values = record ? *record : GovSortCombRecord{};
    std::copy(values.begin(), values.end(), sources);
    return record ? 1 : 0;
}

// ---- Modes ----------------------------------------------------------------------------------

int CMemResBase::SetEigenModeDisplace(int type, int model, int modeNo, int node,
                                      const CDisplace* displace) {
    return Guarded([&] {
        if (!displace) return 0;
        CMemResNode* leaf = LeafById(Walk(RES_ITEM_EIGEN_MODES, {type, model, modeNo}, true), node,
                                     RES_ITEM_EIGEN_MODES, true);
        return Store(leaf, *displace);
    });
}

int CMemResBase::GetEigenModeDisplace(int type, int model, int modeNo, int node,
                                      CDisplace* displace) {
    CMemResNode* leaf = LeafById(Walk(RES_ITEM_EIGEN_MODES, {type, model, modeNo}, false), node,
                                 RES_ITEM_EIGEN_MODES, false);
    if (!leaf || !displace) return 0;
    const CDisplace* record = Record<CDisplace>(leaf);
    *displace = record ? *record : CDisplace();
    return record ? 1 : 0;
}

int CMemResBase::SetBucklingModeDisplace(int type, int model, int modeNo, int node,
                                         const CDisplace* displace) {
    return Guarded([&] {
        if (!displace) return 0;
        CMemResNode* leaf = LeafById(Walk(RES_ITEM_BUCKLING_MODES, {type, model, modeNo}, true),
                                     node, RES_ITEM_BUCKLING_MODES, true);
        return Store(leaf, *displace);
    });
}

int CMemResBase::GetBucklingModeDisplace(int type, int model, int modeNo, int node,
                                         CDisplace* displace) {
    CMemResNode* leaf = LeafById(Walk(RES_ITEM_BUCKLING_MODES, {type, model, modeNo}, false), node,
                                 RES_ITEM_BUCKLING_MODES, false);
    if (!leaf || !displace) return 0;
    const CDisplace* record = Record<CDisplace>(leaf);
    *displace = record ? *record : CDisplace();
    return record ? 1 : 0;
}

int CMemResBase::SetModeRes(int resType, int loadcaseNo, int modeNo,
                            std::shared_ptr<CModeRes> res) {
    return Guarded([&] {
        if (!res) return 0;
        CMemResNode* leaf =
            LeafById(Walk(RES_ITEM_ACCELRATIONS, {kModeResTypeBase + resType, loadcaseNo}, true),
                     modeNo, RES_ITEM_ACCELRATIONS, true);
        return Store(leaf, std::move(res));
    });
}

int CMemResBase::GetModeRes(int resType, int loadcaseNo, int modeNo,
                            std::shared_ptr<CModeRes>* res) {
    CMemResNode* leaf =
        LeafById(Walk(RES_ITEM_ACCELRATIONS, {kModeResTypeBase + resType, loadcaseNo}, false),
                 modeNo, RES_ITEM_ACCELRATIONS, false);
    if (!leaf || !res) return 0;
    const auto* record = Record<std::shared_ptr<CModeRes>>(leaf);
    *res = record ? *record : nullptr;
    return record ? 1 : 0;
}

// ---- The calling form of the project store ------------------------------------------------

int CMemResBase::NodeDisplaceInBase(int /*open*/, int mode, int /*parent*/, int node, int type,
                                    int no, CDisplace* displace) {
    return InBase(
        mode, [&] { return GetDisplace(type, no, node, displace); },
        [&] { return SetDisplace(type, no, node, displace); });
}

int CMemResBase::SectionForceInBase(int /*open*/, int mode, int /*parent*/, int element, double x,
                                    int type, int no, int& a, int& b, double* forces) {
    return InBase(
        mode, [&] { return GetForce(type, no, element, x, a, b, forces); },
        [&] { return SetForce(type, no, element, x, a, b, forces); });
}

int CMemResBase::NodeReactionInBase(int /*open*/, int mode, int /*parent*/, int node, int type,
                                    int no, double* reaction) {
    return InBase(
        mode, [&] { return GetReaction(type, no, node, reaction); },
        [&] { return SetReaction(type, no, node, reaction); });
}

int CMemResBase::NodeAccelInBase(int /*open*/, int mode, int /*parent*/, int node, int type, int no,
                                 CDisplace* accel) {
    return InBase(
        mode, [&] { return GetNodeAccel(type, no, node, accel); },
        [&] { return SetNodeAccel(type, no, node, accel); });
}

int CMemResBase::SectResInBase(int /*open*/, int mode, int /*parent*/, int element, double x,
                               int type, int no, std::shared_ptr<CSectionRes>* res) {
    return InBase(
        mode, [&] { return GetSectionRes(type, no, element, x, res); },
        [&] { return res ? SetSectionRes(type, no, element, x, *res, nullptr) : 0; });
}

int CMemResBase::TrafTrackPosResInBase(int /*open*/, int mode, int /*parent*/, int element,
                                       double x, int type, int no, int row, int track,
                                       std::string* text) {
    return InBase(
        mode, [&] { return GetTrafTrackPosRes(type, no, element, x, row, track, text); },
        [&] { return SetTrafTrackPosRes(type, no, element, x, row, track, text); });
}

int CMemResBase::GovSortCombInBase(int /*open*/, int mode, int /*parent*/, int element, double x,
                                   int type, int no, int* sources) {
    return InBase(
        mode, [&] { return GetGovSortComb(type, no, element, x, sources); },
        [&] { return SetGovSortComb(type, no, element, x, sources); });
}

int CMemResBase::EigenModeDisplInBase(int /*open*/, int mode, int model, int node, int type,
                                      int modeNo, CDisplace* displace) {
    return InBase(
        mode, [&] { return GetEigenModeDisplace(type, model, modeNo, node, displace); },
        [&] { return SetEigenModeDisplace(type, model, modeNo, node, displace); });
}

int CMemResBase::BucklingModeDisplInBase(int /*open*/, int mode, int model, int node, int type,
                                         int modeNo, CDisplace* displace) {
    return InBase(
        mode, [&] { return GetBucklingModeDisplace(type, model, modeNo, node, displace); },
        [&] { return SetBucklingModeDisplace(type, model, modeNo, node, displace); });
}

int CMemResBase::LoadcaseModeResInBase(int /*open*/, int mode, int loadcaseNo, int modeNo,
                                       int resType, std::shared_ptr<CModeRes>* res) {
    return InBase(
        mode, [&] { return GetModeRes(resType, loadcaseNo, modeNo, res); },
        [&] { return res ? SetModeRes(resType, loadcaseNo, modeNo, *res) : 0; });
}

int CMemResBase::ModelElemResInBase(int /*open*/, int mode, int model, int element,
                                    std::shared_ptr<CModelElemRes>* res) {
    return Guarded([&] {
        if (!res) return 0;
        const bool write = mode == kModeWrite || mode == kModeOverwrite;
        if (mode != kModeRead && !write) return 0;
        if (write && !*res) return 0;
        CMemResNode* leaf = LeafById(Walk(RES_ITEM_MODEL_ELEM_RES, {model}, write), element,
                                     RES_ITEM_MODEL_ELEM_RES, write);
        if (write) return Store(leaf, *res);
        if (!leaf) return 0;
        const auto* record = Record<std::shared_ptr<CModelElemRes>>(leaf);
        *res = record ? *record : nullptr;
        return record ? 1 : 0;
    });
}

// ---- Lists ----------------------------------------------------------------------------------

int CMemResBase::RetrieveSectionForceList(int element, double x, int type,
                                          std::vector<SectionForceRow>& list) {
    return Guarded([&] {
        CMemResNode* typeNode = GetCodeResNode(RES_ITEM_SECT_FORCE, type);
        int found = 0;
        for (int i = 0; typeNode && i < typeNode->GetSize(); ++i) {
            CMemResNode* noNode = typeNode->GetChild(i);
            CMemResNode* leaf =
                LeafByData(InnerById(noNode, element), x, RES_ITEM_SECT_FORCE, false);
            const ForceRecord* record = Record<ForceRecord>(leaf);
            if (!record) continue;
            SectionForceRow row;
            row.Type = type;
            row.No = noNode->GetID();
            row.Element = element;
            row.X = leaf->GetData();
            row.A = static_cast<int>((*record)[6]);
            row.B = static_cast<int>((*record)[7]);
            std::copy(record->begin(), record->begin() + 6, row.Forces.begin());
            list.push_back(row);
            ++found;
        }
        return found;
    });
}

int CMemResBase::RetrieveSectionResList(int element, double x, int type,
                                        std::vector<SectionResRow>& list) {
    return Guarded([&] {
        CMemResNode* typeNode = GetCodeResNode(RES_ITEM_SECTION_RES, type);
        int found = 0;
        for (int i = 0; typeNode && i < typeNode->GetSize(); ++i) {
            CMemResNode* noNode = typeNode->GetChild(i);
            CMemResNode* leaf =
                LeafByData(InnerById(noNode, element), x, RES_ITEM_SECTION_RES, false);
            const auto* record = Record<std::shared_ptr<CSectionRes>>(leaf);
            if (!record) continue;
            list.push_back({type, noNode->GetID(), element, leaf->GetData(), *record});
            ++found;
        }
        return found;
    });
}

namespace {

int ModeDisplList(CMemResNode* modeNode, int leafType, std::vector<CDisplace>& list) {
    int found = 0;
    for (int i = 0; modeNode && i < modeNode->GetSize(); ++i) {
        const CMemResNode* leaf = modeNode->GetChild(i);
        if (leaf->GetType() != leafType) continue;
        if (const CDisplace* record = Record<CDisplace>(leaf)) {
            list.push_back(*record);
            ++found;
        }
    }
    return found;
}

} // namespace

int CMemResBase::RetrieveEigenModeDisplList(int type, int model, int modeNo,
                                            std::vector<CDisplace>& list) {
    return Guarded([&] {
        return ModeDisplList(Walk(RES_ITEM_EIGEN_MODES, {type, model, modeNo}, false),
                             RES_ITEM_EIGEN_MODES, list);
    });
}

int CMemResBase::RetrieveBucklingModeDisplList(int type, int model, int modeNo,
                                               std::vector<CDisplace>& list) {
    return Guarded([&] {
        return ModeDisplList(Walk(RES_ITEM_BUCKLING_MODES, {type, model, modeNo}, false),
                             RES_ITEM_BUCKLING_MODES, list);
    });
}

int CMemResBase::RetrieveTrafLoadULC(int type, int element, double x,
                                     std::vector<std::array<double, 6>>& rows,
                                     std::vector<int>* loadcases) {
    return Guarded([&] {
        CMemResNode* typeNode = GetCodeResNode(RES_ITEM_SECT_FORCE, type);
        int found = 0;
        for (int i = 0; typeNode && i < typeNode->GetSize(); ++i) {
            CMemResNode* noNode = typeNode->GetChild(i);
            const ForceRecord* record = Record<ForceRecord>(
                LeafByData(InnerById(noNode, element), x, RES_ITEM_SECT_FORCE, false));
            if (!record) continue;
            std::array<double, 6> row{};
            std::copy(record->begin(), record->begin() + 6, row.begin());
            rows.push_back(row);
            if (loadcases) loadcases->push_back(noNode->GetID());
            ++found;
        }
        return found;
    });
}

int CMemResBase::RetrieveTrafLoadULCDef(int type, int node,
                                        std::vector<std::array<double, 6>>& rows,
                                        std::vector<int>* loadcases) {
    return Guarded([&] {
        CMemResNode* typeNode = GetCodeResNode(RES_ITEM_DISPLACEMENTS, type);
        int found = 0;
        for (int i = 0; typeNode && i < typeNode->GetSize(); ++i) {
            CMemResNode* noNode = typeNode->GetChild(i);
            const CDisplace* record =
                Record<CDisplace>(LeafById(noNode, node, RES_ITEM_DISPLACEMENTS, false));
            if (!record) continue;
            std::array<double, 6> row{};
            for (int k = 0; k < 6; ++k) row[k] = record->Get(k);
            rows.push_back(row);
            if (loadcases) loadcases->push_back(noNode->GetID());
            ++found;
        }
        return found;
    });
}

// ---- Queries and deletion -------------------------------------------------------------------

int CMemResBase::AnyResults(int code, int type) {
    for (int c = 0; c < Root->GetSize(); ++c) {
        CMemResNode* branch = Root->GetChild(c);
        if (code != -1 && branch->GetID() != code) continue;
        if (type == -1 ? HoldsRecord(branch) : HoldsRecord(InnerById(branch, type))) return 1;
    }
    return 0;
}

int CMemResBase::AnyResultsByType(int type) { return AnyResults(-1, type); }

void CMemResBase::DeleteAllResults() {
    // Fresh branches leave nothing behind, not even nodes hung under the root by hand; when
    // there is no memory for them, emptying the branches in place still frees every result.
    try {
        MakeBranches();
    } catch (const std::exception&) {
        Clear(-1);
    }
}

void CMemResBase::DeleteAllSpesResults(const int* types) {
    for (const int* type = types; type && *type != 0; ++type)
        for (const int code : kCaseBranches) ClearNode(GetCodeResNode(code, *type));
}

void CMemResBase::DeleteAllSectRes(int type, int no) {
    CMemResNode* branch = Branch(RES_ITEM_SECTION_RES);
    for (int i = 0; branch && i < branch->GetSize(); ++i) {
        CMemResNode* typeNode = branch->GetChild(i);
        if (type != -1 && typeNode->GetID() != type) continue;
        if (no == -1)
            typeNode->Clear();
        else
            ClearNode(InnerById(typeNode, no));
    }
}

int CMemResBase::DeleteSectRes(int type, int no, int element, double x, int wholeSection) {
    const auto clearLeaf = [element, x](CMemResNode* noNode) {
        CMemResNode* leaf = LeafByData(InnerById(noNode, element), x, RES_ITEM_SECTION_RES, false);
        if (!leaf || !leaf->HasEntry(0)) return 0;
        leaf->Clear();
        return 1;
    };
    int deleted = 0;
    for (const int t : kSectResTypes) {
        if (!wholeSection && t != type) continue;
        CMemResNode* typeNode = GetCodeResNode(RES_ITEM_SECTION_RES, t);
        if (!typeNode) continue;
        if (!wholeSection) {
            deleted += clearLeaf(InnerById(typeNode, no));
            continue;
        }
        for (int i = 0; i < typeNode->GetSize(); ++i) deleted += clearLeaf(typeNode->GetChild(i));
    }
    return deleted;
}

void CMemResBase::DeleteEigenModeRes(int model) {
    CMemResNode* branch = Branch(RES_ITEM_EIGEN_MODES);
    if (model == -1) {
        ClearNode(branch);
        return;
    }
    for (int i = 0; branch && i < branch->GetSize(); ++i)
        ClearNode(InnerById(branch->GetChild(i), model));
}

void CMemResBase::DeleteBucklingModeRes(int model) {
    CMemResNode* branch = Branch(RES_ITEM_BUCKLING_MODES);
    if (model == -1) {
        ClearNode(branch);
        return;
    }
    for (int i = 0; branch && i < branch->GetSize(); ++i)
        ClearNode(InnerById(branch->GetChild(i), model));
}

void CMemResBase::DeleteCalcLoadcaseResults(int no) {
    for (const int code : kCaseBranches) ClearNode(Walk(code, {1, no}, false));
}

void CMemResBase::DeleteAllCalcLoadcaseResults() { DeleteAllSpesResults(kCalcLoadcaseTypes); }

void CMemResBase::DeleteAllLoadcaseResults() { DeleteAllSpesResults(kLoadcaseTypes); }

void CMemResBase::DeleteAllCalcLoadcombResults() { DeleteAllSpesResults(kCalcLoadcombTypes); }

void CMemResBase::DeleteAllCalcSortCombResults() { DeleteAllSpesResults(kSortCombTypes); }

void CMemResBase::DeleteAllCalcSortCombLineResults() { DeleteAllSpesResults(kSortCombLineTypes); }

void CMemResBase::DeleteAllCombResults() { DeleteAllSpesResults(kCombTypes); }

void CMemResBase::Clear(int code) {
    for (int c = 0; c < Root->GetSize(); ++c) {
        CMemResNode* branch = Root->GetChild(c);
        if (code == -1 || branch->GetID() == code) branch->Clear();
    }
}

// ---- Dump -----------------------------------------------------------------------------------

namespace {

class DumpWriter {
public:
    explicit DumpWriter(CTextWriter& file) : File(file) {}
    ~DumpWriter() { Flush(); }
    DumpWriter(const DumpWriter&) = delete;
    DumpWriter& operator=(const DumpWriter&) = delete;

    void Node(const CMemResNode& node, int level, int index) {
        const std::string indent(static_cast<std::size_t>(kDumpIndent * (level - 1)), ' ');
        Text += indent;
        Text += Format(kDumpLevel, level, index);
        std::string name = TypeName(node.GetType());
        if (name.size() < kDumpNameWidth) name.append(kDumpNameWidth - name.size(), '-');
        Text += indent;
        Text += name;
        Text += Format(kDumpNode, node.GetID(), node.GetData(), node.GetSize());
        if (node.IsInner()) {
            for (int i = 0; i < node.GetSize(); ++i) Node(*node.GetChild(i), level + 1, i);
        } else {
            for (int i = 0; i < node.GetSize(); ++i)
                if (!node.HasEntry(i)) {
                    Text += indent;
                    Text += kDumpNull;
                }
        }
        // A big tree goes out in pieces rather than as one string.
        if (Text.size() > (1u << 20)) Flush();
    }
    void Add(const char* text) { Text += text; }

private:
    void Flush() {
        File.Write(Text);
        Text.clear();
    }

    CTextWriter& File;
    std::string Text;
};

} // namespace

void CMemResBase::DumpContentToFile(const std::string& path) {
    CTextWriter file;
    if (!file.Open(path, false)) return;
    try {
        DumpWriter writer(file);
        writer.Add(kDumpRoot);
        for (int i = 0; i < Root->GetSize(); ++i) writer.Node(*Root->GetChild(i), 1, i);
    } catch (const std::exception&) {
        // A debugging aid: a dump cut short by lack of memory is left as far as it came.
    }
}

} // namespace kelo
