#include "store/MemResBase.h"

#include "model/Displace.h"

#include <gtest/gtest.h>

#include <cstdio>

using namespace kelo;

namespace {

const double kF[6] = {1.0, -2.0, 3.5, 40.0, -5.0, 6.25};

// The store never looks into a section or mode result. A stand-in object, passed under the
// record's type, shows which record came back and when the store let go of it.
struct StandIn {
    int Tag = 0;
};

template <class T> std::shared_ptr<T> Tagged(int tag, std::weak_ptr<StandIn>* alive = nullptr) {
    auto owner = std::make_shared<StandIn>();
    owner->Tag = tag;
    if (alive) *alive = owner;
    return std::shared_ptr<T>(owner, reinterpret_cast<T*>(owner.get()));
}

template <class T> int TagOf(const std::shared_ptr<T>& record) {
    return record ? reinterpret_cast<const StandIn*>(record.get())->Tag : -1;
}

bool HasForce(CMemResBase& store, int type, int no, int element, double x) {
    int a = 0, b = 0;
    double f[6];
    return store.GetForce(type, no, element, x, a, b, f) == 1;
}

CMemResNode* ElementNode(CMemResBase& store, int type, int no, int element) {
    return store.GetCodeResNode(RES_ITEM_SECT_FORCE, type)->GetChildByID(no)->GetChildByID(element);
}

} // namespace

TEST(MemResBase, NewStoreHasFourteenEmptyBranches) {
    CMemResBase store;
    EXPECT_EQ(store.GetType(), 1);
    EXPECT_EQ(store.GetFrame(), nullptr);
    CMemResNode* root = store.GetRootNode();
    ASSERT_EQ(root->GetSize(), 14);
    EXPECT_TRUE(root->IsInner());
    for (int code = 0; code < 14; ++code) {
        EXPECT_EQ(root->GetChild(code)->GetID(), code);
        EXPECT_TRUE(root->GetChild(code)->IsInner());
        EXPECT_EQ(root->GetChild(code)->GetSize(), 0);
    }
    EXPECT_EQ(store.GetCodeResNode(1, 1), nullptr);
    EXPECT_EQ(store.AnyResults(-1, -1), 0);
}

TEST(MemResBase, SectionForcesShareALeafWithinTheTolerance) {
    CMemResBase store;
    ASSERT_EQ(store.SetForce(1, 3, 7, 0.5, 2, 4, kF), 1);
    int a = 0, b = 0;
    double f[6] = {};
    ASSERT_EQ(store.GetForce(1, 3, 7, 0.5 + 0.9e-5, a, b, f), 1);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(f[i], kF[i]);
    EXPECT_EQ(a, 2);
    EXPECT_EQ(b, 4);
    EXPECT_TRUE(HasForce(store, 1, 3, 7, 0.5 - 0.9e-5));
    EXPECT_FALSE(HasForce(store, 1, 3, 7, 0.5 + 1.1e-5));

    // A position within the tolerance replaces the record in the same leaf; one beyond it makes a
    // second leaf.
    const double g[6] = {9.0, 9.0, 9.0, 9.0, 9.0, 9.0};
    ASSERT_EQ(store.SetForce(1, 3, 7, 0.5 + 0.9e-5, 5, 6, g), 1);
    EXPECT_EQ(ElementNode(store, 1, 3, 7)->GetSize(), 1);
    EXPECT_EQ(ElementNode(store, 1, 3, 7)->GetChild(0)->GetData(), 0.5);
    ASSERT_EQ(store.GetForce(1, 3, 7, 0.5, a, b, f), 1);
    EXPECT_EQ(f[0], 9.0);
    EXPECT_EQ(a, 5);
    EXPECT_EQ(b, 6);
    store.SetForce(1, 3, 7, 0.5 + 2e-5, 0, 0, kF);
    EXPECT_EQ(ElementNode(store, 1, 3, 7)->GetSize(), 2);

    // Every key counts.
    EXPECT_FALSE(HasForce(store, 2, 3, 7, 0.5));
    EXPECT_FALSE(HasForce(store, 1, 4, 7, 0.5));
    EXPECT_FALSE(HasForce(store, 1, 3, 8, 0.5));
    EXPECT_EQ(store.SetForce(1, 3, 7, 0.5, 0, 0, nullptr), 0);
}

TEST(MemResBase, AMissLeavesOutputOrZeroesIt) {
    CMemResBase store;
    int a = 11, b = 12;
    double f[6] = {7, 7, 7, 7, 7, 7};
    // A missing level answers 0 and touches nothing.
    EXPECT_EQ(store.GetForce(1, 1, 1, 0.0, a, b, f), 0);
    EXPECT_EQ(a, 11);
    EXPECT_EQ(b, 12);
    EXPECT_EQ(f[3], 7.0);

    // A leaf that was made and then cleared answers 0 with zero forces, a = 0 and b = -1.
    store.SetForce(1, 1, 1, 0.0, 3, 3, kF);
    ElementNode(store, 1, 1, 1)->GetChildByData(0.0)->Clear();
    EXPECT_EQ(store.GetForce(1, 1, 1, 0.0, a, b, f), 0);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(f[i], 0.0);
    EXPECT_EQ(a, 0);
    EXPECT_EQ(b, -1);
    EXPECT_EQ(store.AnyResults(1, 1), 0);

    // The same for a node result: the cleared leaf gives a zero record, a missing one nothing.
    CDisplace d(5, 1, 1, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    store.SetDisplace(1, 1, 5, &d);
    store.GetCodeResNode(0, 1)->GetChildByID(1)->GetChildByID(5)->Clear();
    EXPECT_EQ(store.GetDisplace(1, 1, 5, &d), 0);
    EXPECT_EQ(d.GetNodeNo(), 0);
    EXPECT_EQ(d.GetUz(), 0.0);
    d.SetUz(9.0);
    EXPECT_EQ(store.GetDisplace(1, 1, 6, &d), 0);
    EXPECT_EQ(d.GetUz(), 9.0);
}

TEST(MemResBase, LeavesKeepCreationOrderAndKeysStaySorted) {
    CMemResBase store;
    for (const double x : {0.5, 0.0, 1.0, 0.25, 0.0}) store.SetForce(1, 1, 10, x, 0, 0, kF);
    CMemResNode* element = ElementNode(store, 1, 1, 10);
    ASSERT_EQ(element->GetSize(), 4);
    const double expected[] = {0.5, 0.0, 1.0, 0.25};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(element->GetChild(i)->GetData(), expected[i]);
        EXPECT_EQ(element->GetChild(i)->GetID(), 0);
        EXPECT_EQ(element->GetChild(i)->GetType(), RES_ITEM_SECT_FORCE);
    }

    for (const int e : {30, 10, 20, 5}) store.SetForce(1, 1, e, 0.0, 0, 0, kF);
    CMemResNode* loadcase = store.GetCodeResNode(1, 1)->GetChildByID(1);
    ASSERT_EQ(loadcase->GetSize(), 4);
    const int ids[] = {5, 10, 20, 30};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(loadcase->GetChild(i)->GetID(), ids[i]);
}

// Each record kind written in the calling form of the project store (node or element first,
// then type and number) must come back through its Get function (type, number, item), and only
// there.
TEST(MemResBase, InBaseWritesWhatGetReads) {
    CMemResBase store;
    int a = 1, b = 16;
    double f[6] = {1, 2, 3, 4, 5, 6};
    EXPECT_EQ(store.SectionForceInBase(0, 5, 0, 7, 0.25, 2, 4, a, b, f), 1);
    f[0] = 10.0;
    EXPECT_EQ(store.SectionForceInBase(0, 6, 0, 7, 0.25, 2, 4, a, b, f), 1);
    f[0] = 20.0;
    EXPECT_EQ(store.SectionForceInBase(0, 1, 0, 7, 0.25, 2, 4, a, b, f), 0);
    EXPECT_EQ(store.SectionForceInBase(0, 99, 0, 7, 0.25, 2, 4, a, b, f), 0);
    double g[6] = {};
    int ga = 0, gb = 0;
    ASSERT_EQ(store.GetForce(2, 4, 7, 0.25, ga, gb, g), 1);
    EXPECT_EQ(g[0], 10.0);
    EXPECT_EQ(g[5], 6.0);
    EXPECT_EQ(ga, 1);
    EXPECT_EQ(gb, 16);
    EXPECT_EQ(store.SectionForceInBase(0, 0, 0, 7, 0.25, 2, 4, ga, gb, g), 1);

    const CDisplace d(3, 8, 1, 0.1, 0.2, 0.3, 1e-4, 2e-4, 3e-4);
    CDisplace in = d, out;
    EXPECT_EQ(store.NodeDisplaceInBase(0, 5, 1, 3, 1, 8, &in), 1);
    ASSERT_EQ(store.GetDisplace(1, 8, 3, &out), 1);
    EXPECT_EQ(out.GetLoadComb(), 8);
    EXPECT_EQ(out.GetRotz(), 3e-4);
    EXPECT_EQ(store.NodeDisplaceInBase(0, 0, 1, 4, 1, 8, &out), 0);
    EXPECT_EQ(store.NodeAccelInBase(0, 5, 0, 3, 1, 9, &in), 1);
    EXPECT_EQ(store.GetNodeAccel(1, 9, 3, &out), 1);
    EXPECT_EQ(store.GetDisplace(1, 9, 3, &out), 0);

    // Mode shapes are keyed by the model, given as the parent, and the mode number.
    EXPECT_EQ(store.EigenModeDisplInBase(0, 5, 2, 3, 1, 4, &in), 1);
    EXPECT_EQ(store.GetEigenModeDisplace(1, 2, 4, 3, &out), 1);
    EXPECT_EQ(store.GetEigenModeDisplace(1, 2, 3, 3, &out), 0);
    EXPECT_EQ(store.GetEigenModeDisplace(1, 1, 4, 3, &out), 0);
    EXPECT_EQ(store.GetBucklingModeDisplace(1, 2, 4, 3, &out), 0);
    EXPECT_EQ(store.BucklingModeDisplInBase(0, 6, 2, 3, 1, 4, &in), 1);
    EXPECT_EQ(store.GetBucklingModeDisplace(1, 2, 4, 3, &out), 1);

    double r[6] = {0, 0, 125.5, 0, -3.0, 0}, rOut[6] = {};
    EXPECT_EQ(store.NodeReactionInBase(0, 5, 0, 3, 1, 8, r), 1);
    ASSERT_EQ(store.GetReaction(1, 8, 3, rOut), 1);
    EXPECT_EQ(rOut[2], 125.5);
    EXPECT_EQ(rOut[4], -3.0);

    int src[12], srcOut[12] = {};
    for (int i = 0; i < 12; ++i) src[i] = 100 + i;
    EXPECT_EQ(store.GovSortCombInBase(0, 5, 0, 7, 0.25, 41, 1, src), 1);
    ASSERT_EQ(store.GetGovSortComb(41, 1, 7, 0.25 + 5e-6, srcOut), 1);
    EXPECT_EQ(srcOut[0], 100);
    EXPECT_EQ(srcOut[11], 111);

    std::string text = "1 2 5 9 : 27.5", textOut;
    EXPECT_EQ(store.TrafTrackPosResInBase(0, 5, 0, 7, 0.25, 1, 300, 3, 2, &text), 1);
    ASSERT_EQ(store.GetTrafTrackPosRes(1, 300, 7, 0.25, 3, 2, &textOut), 1);
    EXPECT_EQ(textOut, text);
    EXPECT_EQ(store.GetTrafTrackPosRes(1, 300, 7, 0.25, 3, 1, &textOut), 0);
    EXPECT_EQ(store.GetTrafTrackPosRes(1, 300, 7, 0.25, 2, 2, &textOut), 0);
}

TEST(MemResBase, SharedRecordsAreHandedBackOrFreed) {
    CMemResBase store;
    std::weak_ptr<StandIn> first, second;
    std::shared_ptr<CSectionRes> old;
    ASSERT_EQ(store.SetSectionRes(2, 5, 7, 0.5, Tagged<CSectionRes>(1, &first), &old), 1);
    EXPECT_EQ(old, nullptr);
    EXPECT_FALSE(first.expired());

    // Replacing hands the earlier result back to the caller; without a place for it, it is freed.
    ASSERT_EQ(store.SetSectionRes(2, 5, 7, 0.5, Tagged<CSectionRes>(2, &second), &old), 1);
    EXPECT_EQ(TagOf(old), 1);
    old.reset();
    EXPECT_TRUE(first.expired());
    std::shared_ptr<CSectionRes> got;
    ASSERT_EQ(store.GetSectionRes(2, 5, 7, 0.5, &got), 1);
    EXPECT_EQ(TagOf(got), 2);
    got.reset();
    store.SetSectionRes(2, 5, 7, 0.5, Tagged<CSectionRes>(3), nullptr);
    EXPECT_TRUE(second.expired());

    // SectResInBase keeps the record it is given, under element, x, type and number.
    std::weak_ptr<StandIn> viaBase;
    auto res = Tagged<CSectionRes>(4, &viaBase);
    EXPECT_EQ(store.SectResInBase(0, 5, 0, 9, 1.0, 12, 6, &res), 1);
    res.reset();
    EXPECT_EQ(store.GetSectionRes(12, 6, 9, 1.0, &res), 1);
    EXPECT_EQ(TagOf(res), 4);
    res.reset();

    std::weak_ptr<StandIn> mode;
    auto modeRes = Tagged<CModeRes>(5, &mode);
    EXPECT_EQ(store.LoadcaseModeResInBase(0, 5, 3, 2, 1, &modeRes), 1);
    modeRes.reset();
    EXPECT_EQ(store.LoadcaseModeResInBase(0, 0, 3, 2, 1, &modeRes), 1);
    EXPECT_EQ(TagOf(modeRes), 5);
    EXPECT_EQ(store.GetModeRes(2, 3, 2, &modeRes), 0);
    EXPECT_EQ(store.GetModeRes(1, 3, 1, &modeRes), 0);
    modeRes.reset();

    std::weak_ptr<StandIn> element;
    auto elemRes = Tagged<CModelElemRes>(6, &element);
    EXPECT_EQ(store.ModelElemResInBase(0, 5, 1, 44, &elemRes), 1);
    elemRes.reset();
    EXPECT_EQ(store.ModelElemResInBase(0, 0, 2, 44, &elemRes), 0);
    EXPECT_EQ(store.ModelElemResInBase(0, 0, 1, 44, &elemRes), 1);
    EXPECT_EQ(TagOf(elemRes), 6);
    elemRes.reset();

    // Load case deletions leave element records of a model alone; deleting all frees them all.
    store.DeleteAllLoadcaseResults();
    store.DeleteAllCombResults();
    EXPECT_FALSE(element.expired());
    store.DeleteAllResults();
    EXPECT_TRUE(viaBase.expired());
    EXPECT_TRUE(mode.expired());
    EXPECT_TRUE(element.expired());
    EXPECT_EQ(store.GetRootNode()->GetSize(), 14);
}

TEST(MemResBase, DeletionTakesOnlyTheNamedKinds) {
    CMemResBase store;
    const CDisplace d(1, 0, 0, 1, 1, 1, 1, 1, 1);
    const double r[6] = {1, 1, 1, 1, 1, 1};
    // Load cases 3 and 4 (type 1), held as external (11), combinations (2, 12), sorted rows
    // (21, 32) and sorted line rows (41).
    for (const int type : {1, 11, 2, 12, 21, 32, 41})
        for (const int no : {3, 4}) {
            store.SetForce(type, no, 7, 0.5, 0, 0, kF);
            store.SetDisplace(type, no, 1, &d);
            store.SetReaction(type, no, 1, r);
        }
    store.SetEigenModeDisplace(1, 1, 1, 1, &d);
    store.SetEigenModeDisplace(1, 2, 1, 1, &d);

    store.DeleteAllCalcLoadcombResults();
    EXPECT_FALSE(HasForce(store, 2, 3, 7, 0.5));
    EXPECT_TRUE(HasForce(store, 12, 3, 7, 0.5));
    EXPECT_TRUE(HasForce(store, 1, 3, 7, 0.5));
    EXPECT_TRUE(HasForce(store, 21, 3, 7, 0.5));
    CDisplace out;
    EXPECT_EQ(store.GetDisplace(2, 4, 1, &out), 0);
    EXPECT_EQ(store.GetDisplace(1, 4, 1, &out), 1);

    store.DeleteAllCalcSortCombResults();
    EXPECT_FALSE(HasForce(store, 21, 3, 7, 0.5));
    EXPECT_FALSE(HasForce(store, 32, 4, 7, 0.5));
    EXPECT_TRUE(HasForce(store, 41, 3, 7, 0.5));
    store.DeleteAllCalcSortCombLineResults();
    EXPECT_FALSE(HasForce(store, 41, 3, 7, 0.5));

    store.DeleteCalcLoadcaseResults(3);
    EXPECT_FALSE(HasForce(store, 1, 3, 7, 0.5));
    EXPECT_TRUE(HasForce(store, 1, 4, 7, 0.5));
    EXPECT_TRUE(HasForce(store, 11, 3, 7, 0.5));
    double rOut[6];
    EXPECT_EQ(store.GetReaction(1, 3, 1, rOut), 0);
    EXPECT_EQ(store.GetReaction(1, 4, 1, rOut), 1);

    store.DeleteAllCalcLoadcaseResults();
    EXPECT_FALSE(HasForce(store, 1, 4, 7, 0.5));
    EXPECT_TRUE(HasForce(store, 11, 4, 7, 0.5));
    store.DeleteAllLoadcaseResults();
    EXPECT_FALSE(HasForce(store, 11, 4, 7, 0.5));
    EXPECT_TRUE(HasForce(store, 12, 4, 7, 0.5));
    store.DeleteAllCombResults();
    for (const int code : {0, 1, 2}) EXPECT_EQ(store.AnyResults(code, -1), 0);

    // Mode shapes are no load case results; they go by model.
    store.DeleteEigenModeRes(1);
    EXPECT_EQ(store.GetEigenModeDisplace(1, 1, 1, 1, &out), 0);
    EXPECT_EQ(store.GetEigenModeDisplace(1, 2, 1, 1, &out), 1);
    store.DeleteEigenModeRes(-1);
    EXPECT_EQ(store.AnyResults(4, -1), 0);

    // The list of result types ends at its zero.
    const int types[] = {12, 41, 0, 1};
    for (const int type : {12, 41, 1}) store.SetForce(type, 1, 7, 0.5, 0, 0, kF);
    store.DeleteAllSpesResults(types);
    EXPECT_FALSE(HasForce(store, 12, 1, 7, 0.5));
    EXPECT_FALSE(HasForce(store, 41, 1, 7, 0.5));
    EXPECT_TRUE(HasForce(store, 1, 1, 7, 0.5));
}

TEST(MemResBase, SectionResultsGoBySectionOrByKind) {
    CMemResBase store;
    for (const int type : {2, 12, 16, 31})
        for (const int no : {1, 2})
            for (const int element : {7, 8})
                store.SetSectionRes(type, no, element, 0.5, Tagged<CSectionRes>(no), nullptr);
    std::shared_ptr<CSectionRes> res;
    EXPECT_EQ(store.DeleteSectRes(2, 1, 7, 0.5 + 5e-6, 0), 1);
    EXPECT_EQ(store.GetSectionRes(2, 1, 7, 0.5, &res), 0);
    EXPECT_EQ(store.GetSectionRes(2, 2, 7, 0.5, &res), 1);
    EXPECT_EQ(store.DeleteSectRes(2, 1, 7, 0.5, 0), 0);
    // 31 is no type that section results are deleted under.
    EXPECT_EQ(store.DeleteSectRes(31, 1, 7, 0.5, 0), 0);

    // The whole section: types 2, 12 and 16 with both numbers, less the one already gone.
    EXPECT_EQ(store.DeleteSectRes(0, 0, 7, 0.5, 1), 5);
    EXPECT_EQ(store.GetSectionRes(16, 2, 7, 0.5, &res), 0);
    EXPECT_EQ(store.GetSectionRes(31, 2, 7, 0.5, &res), 1);
    EXPECT_EQ(store.GetSectionRes(16, 2, 8, 0.5, &res), 1);

    store.DeleteAllSectRes(16, 1);
    EXPECT_EQ(store.GetSectionRes(16, 1, 8, 0.5, &res), 0);
    EXPECT_EQ(store.GetSectionRes(16, 2, 8, 0.5, &res), 1);
    store.DeleteAllSectRes(-1, 2);
    EXPECT_EQ(store.GetSectionRes(16, 2, 8, 0.5, &res), 0);
    EXPECT_EQ(store.GetSectionRes(12, 1, 8, 0.5, &res), 1);
    store.DeleteAllSectRes(-1, -1);
    EXPECT_EQ(store.AnyResults(10, -1), 0);
}

TEST(MemResBase, AnyResultsAndClearLookForStoredRecords) {
    CMemResBase store;
    store.SetForce(2, 1, 7, 0.5, 0, 0, kF);
    EXPECT_EQ(store.AnyResults(1, 2), 1);
    EXPECT_EQ(store.AnyResults(1, 1), 0);
    EXPECT_EQ(store.AnyResults(0, 2), 0);
    EXPECT_EQ(store.AnyResults(-1, 2), 1);
    EXPECT_EQ(store.AnyResults(1, -1), 1);
    EXPECT_EQ(store.AnyResultsByType(2), 1);
    EXPECT_EQ(store.AnyResultsByType(1), 0);

    const CDisplace d;
    store.SetDisplace(1, 1, 1, &d);
    store.Clear(1);
    EXPECT_EQ(store.AnyResultsByType(2), 0);
    EXPECT_EQ(store.AnyResultsByType(1), 1);
    store.Clear(-1);
    EXPECT_EQ(store.AnyResults(-1, -1), 0);
    ASSERT_EQ(store.GetRootNode()->GetSize(), 14);
    EXPECT_EQ(store.SetDisplace(1, 1, 1, &d), 1);
}

TEST(MemResBase, ListsRunOverTheNumbersInOrder) {
    CMemResBase store;
    for (const int no : {5, 2, 9}) {
        const double f[6] = {double(no), 0, 0, 0, 0, double(-no)};
        store.SetForce(2, no, 7, 0.5, no * 10, 3, f);
    }
    store.SetForce(2, 4, 8, 0.5, 0, 0, kF);
    store.SetForce(2, 6, 7, 0.75, 0, 0, kF);

    std::vector<CMemResBase::SectionForceRow> rows;
    ASSERT_EQ(store.RetrieveSectionForceList(7, 0.5, 2, rows), 3);
    const int order[] = {2, 5, 9};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(rows[i].No, order[i]);
        EXPECT_EQ(rows[i].Type, 2);
        EXPECT_EQ(rows[i].Element, 7);
        EXPECT_EQ(rows[i].X, 0.5);
        EXPECT_EQ(rows[i].A, order[i] * 10);
        EXPECT_EQ(rows[i].B, 3);
        EXPECT_EQ(rows[i].Forces[5], -order[i]);
    }
    // A second call appends.
    EXPECT_EQ(store.RetrieveSectionForceList(7, 0.75, 2, rows), 1);
    EXPECT_EQ(rows.size(), 4u);

    std::vector<std::array<double, 6>> ulc;
    std::vector<int> cases;
    EXPECT_EQ(store.RetrieveTrafLoadULC(2, 7, 0.5, ulc, &cases), 3);
    EXPECT_EQ(cases, (std::vector<int>{2, 5, 9}));
    EXPECT_EQ(ulc[1][0], 5.0);
    for (const int no : {301, 300}) {
        const CDisplace d(4, no, 1, no * 0.001, 0, 0, 0, 0, 0);
        store.SetDisplace(1, no, 4, &d);
    }
    ulc.clear();
    cases.clear();
    EXPECT_EQ(store.RetrieveTrafLoadULCDef(1, 4, ulc, &cases), 2);
    EXPECT_EQ(cases, (std::vector<int>{300, 301}));
    EXPECT_DOUBLE_EQ(ulc[1][0], 0.301);

    store.SetSectionRes(2, 3, 7, 0.5, Tagged<CSectionRes>(3), nullptr);
    store.SetSectionRes(2, 1, 7, 0.5, Tagged<CSectionRes>(1), nullptr);
    std::vector<CMemResBase::SectionResRow> resRows;
    ASSERT_EQ(store.RetrieveSectionResList(7, 0.5, 2, resRows), 2);
    EXPECT_EQ(resRows[0].No, 1);
    EXPECT_EQ(TagOf(resRows[0].Res), 1);
    EXPECT_EQ(TagOf(resRows[1].Res), 3);

    for (const int node : {3, 1, 2}) {
        const CDisplace d(node, 0, 0, node * 1.0, 0, 0, 0, 0, 0);
        store.SetEigenModeDisplace(1, 1, 2, node, &d);
        store.SetBucklingModeDisplace(1, 1, 1, node, &d);
    }
    std::vector<CDisplace> shape;
    ASSERT_EQ(store.RetrieveEigenModeDisplList(1, 1, 2, shape), 3);
    EXPECT_EQ(shape[0].GetNodeNo(), 1);
    EXPECT_EQ(shape[2].GetUx(), 3.0);
    EXPECT_EQ(store.RetrieveEigenModeDisplList(1, 1, 1, shape), 0);
    EXPECT_EQ(store.RetrieveBucklingModeDisplList(1, 1, 1, shape), 3);
}

TEST(MemResBase, DumpWritesTheTreeInItsLayout) {
    CMemResBase store;
    const CDisplace d;
    store.SetDisplace(1, 3, 12, &d);
    store.SetForce(1, 3, 7, 0.25, 0, 0, kF);
    store.SetForce(1, 3, 7, 0.75, 0, 0, kF);
    ElementNode(store, 1, 3, 7)->GetChildByData(0.75)->Clear();

    const std::string path = "memresbase_dump.tmp";
    store.DumpContentToFile(path);
    std::string text;
    if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
        char buffer[4096];
        std::size_t n = 0;
        while ((n = std::fread(buffer, 1, sizeof buffer, file)) > 0) text.append(buffer, n);
        std::fclose(file);
    }
    std::remove(path.c_str());

    std::string expected = ">> ROOT\n"
                           ">> LEVEL 1 index=0\n"
                           "RES_ITEM_MEMRESNODE-------ID=0 : Data=0.000 : Size=1\n"
                           "\n"
                           "   >> LEVEL 2 index=0\n"
                           "   RES_ITEM_MEMRESNODE-------ID=1 : Data=0.000 : Size=1\n"
                           "\n"
                           "      >> LEVEL 3 index=0\n"
                           "      RES_ITEM_MEMRESNODE-------ID=3 : Data=0.000 : Size=1\n"
                           "\n"
                           "         >> LEVEL 4 index=0\n"
                           "         RES_ITEM_DISPLACEMENTS----ID=12 : Data=0.000 : Size=1\n"
                           "\n"
                           ">> LEVEL 1 index=1\n"
                           "RES_ITEM_MEMRESNODE-------ID=1 : Data=0.000 : Size=1\n"
                           "\n"
                           "   >> LEVEL 2 index=0\n"
                           "   RES_ITEM_MEMRESNODE-------ID=1 : Data=0.000 : Size=1\n"
                           "\n"
                           "      >> LEVEL 3 index=0\n"
                           "      RES_ITEM_MEMRESNODE-------ID=3 : Data=0.000 : Size=1\n"
                           "\n"
                           "         >> LEVEL 4 index=0\n"
                           "         RES_ITEM_MEMRESNODE-------ID=7 : Data=0.000 : Size=2\n"
                           "\n"
                           "            >> LEVEL 5 index=0\n"
                           "            RES_ITEM_SECT_FORCE-------ID=0 : Data=0.250 : Size=1\n"
                           "\n"
                           "            >> LEVEL 5 index=1\n"
                           "            RES_ITEM_SECT_FORCE-------ID=0 : Data=0.750 : Size=1\n"
                           "\n"
                           "            NULL\n";
    for (int code = 2; code < 14; ++code)
        expected += ">> LEVEL 1 index=" + std::to_string(code) +
                    "\nRES_ITEM_MEMRESNODE-------ID=" + std::to_string(code) +
                    " : Data=0.000 : Size=0\n\n";
    EXPECT_EQ(text, expected);
}
