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

template <class T> std::shared_ptr<T> Tagged(const std::shared_ptr<StandIn>& owner) {
    return std::shared_ptr<T>(owner, reinterpret_cast<T*>(owner.get()));
}

template <class T> int TagOf(const std::shared_ptr<T>& record) {
    return record ? reinterpret_cast<const StandIn*>(record.get())->Tag : -1;
}

std::shared_ptr<StandIn> MakeStandIn(int tag) {
    auto s = std::make_shared<StandIn>();
    s->Tag = tag;
    return s;
}

bool HasForce(CMemResBase& store, int type, int no, int element, double x) {
    int a = 0, b = 0;
    double f[6];
    return store.GetForce(type, no, element, x, a, b, f) == 1;
}

} // namespace

TEST(MemResBase, NewStoreHasFourteenEmptyBranches) {
    CMemResBase store;
    EXPECT_EQ(store.GetType(), 1);
    EXPECT_EQ(store.GetFrame(), nullptr);
    CMemResNode* root = store.GetRootNode();
    ASSERT_EQ(root->GetSize(), 14);
    EXPECT_EQ(root->GetID(), 0);
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
    EXPECT_EQ(store.GetForce(1, 3, 7, 0.5 - 0.9e-5, a, b, f), 1);
    EXPECT_EQ(store.GetForce(1, 3, 7, 0.5 + 1.1e-5, a, b, f), 0);

    // A position within the tolerance replaces the record in the same leaf; one beyond it makes a
    // second leaf.
    const double g[6] = {9.0, 9.0, 9.0, 9.0, 9.0, 9.0};
    ASSERT_EQ(store.SetForce(1, 3, 7, 0.5 + 0.9e-5, 5, 6, g), 1);
    CMemResNode* elementNode = store.GetCodeResNode(1, 1)->GetChildByID(3)->GetChildByID(7);
    EXPECT_EQ(elementNode->GetSize(), 1);
    EXPECT_EQ(elementNode->GetChild(0)->GetData(), 0.5);
    ASSERT_EQ(store.GetForce(1, 3, 7, 0.5, a, b, f), 1);
    EXPECT_EQ(f[0], 9.0);
    EXPECT_EQ(a, 5);
    EXPECT_EQ(b, 6);
    store.SetForce(1, 3, 7, 0.5 + 2e-5, 0, 0, kF);
    EXPECT_EQ(elementNode->GetSize(), 2);

    // Other keys stay apart.
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
    store.GetCodeResNode(1, 1)->GetChildByID(1)->GetChildByID(1)->GetChildByData(0.0)->Clear();
    EXPECT_EQ(store.GetForce(1, 1, 1, 0.0, a, b, f), 0);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(f[i], 0.0);
    EXPECT_EQ(a, 0);
    EXPECT_EQ(b, -1);
    EXPECT_EQ(store.AnyResults(1, 1), 0);

    // The same for a node result: the cleared leaf gives a zero record.
    CDisplace d(5, 1, 1, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    store.SetDisplace(1, 1, 5, &d);
    store.GetCodeResNode(0, 1)->GetChildByID(1)->GetChildByID(5)->Clear();
    CDisplace out(9, 9, 9, 9, 9, 9, 9, 9, 9);
    EXPECT_EQ(store.GetDisplace(1, 1, 5, &out), 0);
    EXPECT_EQ(out.GetNodeNo(), 0);
    EXPECT_EQ(out.GetUz(), 0.0);
    CDisplace untouched(9, 9, 9, 9, 9, 9, 9, 9, 9);
    EXPECT_EQ(store.GetDisplace(1, 1, 6, &untouched), 0);
    EXPECT_EQ(untouched.GetUz(), 9.0);
}

TEST(MemResBase, LeavesKeepCreationOrderAndKeysStaySorted) {
    CMemResBase store;
    for (const double x : {0.5, 0.0, 1.0, 0.25}) store.SetForce(1, 1, 10, x, 0, 0, kF);
    store.SetForce(1, 1, 10, 0.0, 0, 0, kF);
    CMemResNode* elementNode = store.GetCodeResNode(1, 1)->GetChildByID(1)->GetChildByID(10);
    ASSERT_EQ(elementNode->GetSize(), 4);
    const double expected[] = {0.5, 0.0, 1.0, 0.25};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(elementNode->GetChild(i)->GetData(), expected[i]);
        EXPECT_EQ(elementNode->GetChild(i)->GetID(), 0);
        EXPECT_EQ(elementNode->GetChild(i)->GetType(), RES_ITEM_SECT_FORCE);
    }

    for (const int element : {30, 10, 20, 5}) store.SetForce(1, 1, element, 0.0, 0, 0, kF);
    CMemResNode* caseNode = store.GetCodeResNode(1, 1)->GetChildByID(1);
    ASSERT_EQ(caseNode->GetSize(), 4);
    const int ids[] = {5, 10, 20, 30};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(caseNode->GetChild(i)->GetID(), ids[i]);
}

TEST(MemResBase, NodeAndModeRecordsRoundTrip) {
    CMemResBase store;
    const CDisplace d(12, 3, 1, 0.001, -0.002, 0.003, 1e-4, -2e-4, 3e-4);
    ASSERT_EQ(store.SetDisplace(1, 3, 12, &d), 1);
    CDisplace out;
    ASSERT_EQ(store.GetDisplace(1, 3, 12, &out), 1);
    EXPECT_EQ(out.GetNodeNo(), 12);
    EXPECT_EQ(out.GetLoadComb(), 3);
    EXPECT_EQ(out.GetUy(), -0.002);
    EXPECT_EQ(out.GetRotz(), 3e-4);
    EXPECT_EQ(store.GetDisplace(1, 3, 13, &out), 0);

    const double r[6] = {0.0, 0.0, 125.5, 0.0, -3.0, 0.0};
    ASSERT_EQ(store.SetReaction(1, 3, 12, r), 1);
    double rOut[6] = {};
    ASSERT_EQ(store.GetReaction(1, 3, 12, rOut), 1);
    EXPECT_EQ(rOut[2], 125.5);
    EXPECT_EQ(rOut[4], -3.0);

    const CDisplace acc(12, 3, 1, 0.5, 0.0, 0.0, 0.0, 0.0, 0.0);
    ASSERT_EQ(store.SetNodeAccel(1, 3, 12, &acc), 1);
    ASSERT_EQ(store.GetNodeAccel(1, 3, 12, &out), 1);
    EXPECT_EQ(out.GetUx(), 0.5);

    // Modes carry the model and the mode number: mode 2 of model 1 is not mode 1.
    const CDisplace m1(4, 0, 0, 1.0, 0, 0, 0, 0, 0), m2(4, 0, 0, -1.0, 0, 0, 0, 0, 0);
    store.SetEigenModeDisplace(1, 1, 1, 4, &m1);
    store.SetEigenModeDisplace(1, 1, 2, 4, &m2);
    ASSERT_EQ(store.GetEigenModeDisplace(1, 1, 2, 4, &out), 1);
    EXPECT_EQ(out.GetUx(), -1.0);
    EXPECT_EQ(store.GetEigenModeDisplace(1, 2, 1, 4, &out), 0);
    // Buckling shapes live in a branch of their own.
    EXPECT_EQ(store.GetBucklingModeDisplace(1, 1, 1, 4, &out), 0);
    store.SetBucklingModeDisplace(1, 1, 1, 4, &m2);
    ASSERT_EQ(store.GetBucklingModeDisplace(1, 1, 1, 4, &out), 1);
    EXPECT_EQ(out.GetUx(), -1.0);

    int src[12];
    for (int i = 0; i < 12; ++i) src[i] = 100 + i;
    ASSERT_EQ(store.SetGovSortComb(41, 2, 7, 0.5, src), 1);
    int srcOut[12] = {};
    ASSERT_EQ(store.GetGovSortComb(41, 2, 7, 0.5 + 5e-6, srcOut), 1);
    EXPECT_EQ(srcOut[0], 100);
    EXPECT_EQ(srcOut[11], 111);

    const std::string text = "1 2 5 9 : 27.5";
    ASSERT_EQ(store.SetTrafTrackPosRes(1, 300, 7, 0.5, 3, 2, &text), 1);
    std::string textOut;
    ASSERT_EQ(store.GetTrafTrackPosRes(1, 300, 7, 0.5, 3, 2, &textOut), 1);
    EXPECT_EQ(textOut, text);
    EXPECT_EQ(store.GetTrafTrackPosRes(1, 300, 7, 0.5, 3, 1, &textOut), 0);
    EXPECT_EQ(store.GetTrafTrackPosRes(1, 300, 7, 0.5, 4, 2, &textOut), 0);
}

TEST(MemResBase, InBaseReadsWithModeZeroAndWritesWithFiveAndSix) {
    CMemResBase store;
    int a = 1, b = 16;
    double f[6] = {1, 2, 3, 4, 5, 6};
    EXPECT_EQ(store.SectionForceInBase(0, 5, 0, 7, 0.25, 2, 4, a, b, f), 1);
    f[0] = 10.0;
    EXPECT_EQ(store.SectionForceInBase(0, 6, 0, 7, 0.25, 2, 4, a, b, f), 1);
    // Other modes neither read nor write.
    f[0] = 20.0;
    EXPECT_EQ(store.SectionForceInBase(0, 1, 0, 7, 0.25, 2, 4, a, b, f), 0);
    EXPECT_EQ(store.SectionForceInBase(0, 99, 0, 7, 0.25, 2, 4, a, b, f), 0);
    double g[6] = {};
    int ga = 0, gb = 0;
    ASSERT_EQ(store.SectionForceInBase(0, 0, 0, 7, 0.25, 2, 4, ga, gb, g), 1);
    EXPECT_EQ(g[0], 10.0);
    EXPECT_EQ(g[5], 6.0);
    EXPECT_EQ(ga, 1);
    EXPECT_EQ(gb, 16);
    // The same record seen through the Get function, with its keys in that order.
    ASSERT_EQ(store.GetForce(2, 4, 7, 0.25, ga, gb, g), 1);

    CDisplace d(3, 1, 1, 0.1, 0.2, 0.3, 0, 0, 0), out;
    EXPECT_EQ(store.NodeDisplaceInBase(0, 5, 1, 3, 1, 8, &d), 1);
    ASSERT_EQ(store.GetDisplace(1, 8, 3, &out), 1);
    EXPECT_EQ(out.GetUz(), 0.3);
    EXPECT_EQ(store.NodeDisplaceInBase(0, 0, 1, 3, 1, 8, &out), 1);
    EXPECT_EQ(store.NodeDisplaceInBase(0, 0, 1, 4, 1, 8, &out), 0);

    // Eigen mode shapes are keyed by the model given as the parent.
    EXPECT_EQ(store.EigenModeDisplInBase(0, 5, 2, 3, 1, 1, &d), 1);
    EXPECT_EQ(store.GetEigenModeDisplace(1, 2, 1, 3, &out), 1);
    EXPECT_EQ(store.EigenModeDisplInBase(0, 0, 1, 3, 1, 1, &out), 0);
    EXPECT_EQ(store.BucklingModeDisplInBase(0, 5, 2, 3, 1, 1, &d), 1);
    EXPECT_EQ(store.GetBucklingModeDisplace(1, 2, 1, 3, &out), 1);

    double r[6] = {0, 0, 1, 0, 0, 0}, rOut[6] = {};
    EXPECT_EQ(store.NodeReactionInBase(0, 5, 0, 3, 1, 8, r), 1);
    EXPECT_EQ(store.NodeReactionInBase(0, 0, 0, 3, 1, 8, rOut), 1);
    EXPECT_EQ(rOut[2], 1.0);
    EXPECT_EQ(store.NodeAccelInBase(0, 5, 0, 3, 1, 8, &d), 1);
    EXPECT_EQ(store.NodeAccelInBase(0, 0, 0, 3, 1, 8, &out), 1);

    int src[12] = {7, 7, 7, 7, 7, 7, 8, 8, 8, 8, 8, 8}, srcOut[12] = {};
    EXPECT_EQ(store.GovSortCombInBase(0, 5, 0, 7, 0.25, 41, 1, src), 1);
    EXPECT_EQ(store.GovSortCombInBase(0, 0, 0, 7, 0.25, 41, 1, srcOut), 1);
    EXPECT_EQ(srcOut[6], 8);

    std::string text = "3 4", textOut;
    EXPECT_EQ(store.TrafTrackPosResInBase(0, 5, 0, 7, 0.25, 1, 300, 0, 1, &text), 1);
    EXPECT_EQ(store.TrafTrackPosResInBase(0, 0, 0, 7, 0.25, 1, 300, 0, 1, &textOut), 1);
    EXPECT_EQ(textOut, "3 4");
}

TEST(MemResBase, SharedRecordsAreHandedBackOrFreed) {
    CMemResBase store;
    auto first = MakeStandIn(1);
    auto second = MakeStandIn(2);
    std::weak_ptr<StandIn> firstAlive = first, secondAlive = second;

    std::shared_ptr<CSectionRes> old;
    ASSERT_EQ(store.SetSectionRes(2, 5, 7, 0.5, Tagged<CSectionRes>(first), &old), 1);
    EXPECT_EQ(old, nullptr);
    first.reset();
    EXPECT_FALSE(firstAlive.expired());

    // Replacing hands the earlier result back to the caller.
    ASSERT_EQ(store.SetSectionRes(2, 5, 7, 0.5, Tagged<CSectionRes>(second), &old), 1);
    EXPECT_EQ(TagOf(old), 1);
    old.reset();
    EXPECT_TRUE(firstAlive.expired());

    std::shared_ptr<CSectionRes> got;
    ASSERT_EQ(store.GetSectionRes(2, 5, 7, 0.5, &got), 1);
    EXPECT_EQ(TagOf(got), 2);
    got.reset();
    EXPECT_EQ(store.GetSectionRes(2, 5, 8, 0.5, &got), 0);

    // Without a place for the old one the store frees it.
    second.reset();
    store.SetSectionRes(2, 5, 7, 0.5, Tagged<CSectionRes>(MakeStandIn(3)), nullptr);
    EXPECT_TRUE(secondAlive.expired());

    // SectResInBase writes and reads the same records.
    auto viaBase = Tagged<CSectionRes>(MakeStandIn(4));
    EXPECT_EQ(store.SectResInBase(0, 5, 0, 9, 1.0, 12, 6, &viaBase), 1);
    viaBase.reset();
    std::shared_ptr<CSectionRes> readBack;
    EXPECT_EQ(store.SectResInBase(0, 0, 0, 9, 1.0, 12, 6, &readBack), 1);
    EXPECT_EQ(TagOf(readBack), 4);

    auto mode = MakeStandIn(5);
    std::weak_ptr<StandIn> modeAlive = mode;
    auto modeRes = Tagged<CModeRes>(mode);
    mode.reset();
    EXPECT_EQ(store.LoadcaseModeResInBase(0, 5, 3, 2, 1, &modeRes), 1);
    modeRes.reset();
    EXPECT_EQ(store.LoadcaseModeResInBase(0, 0, 3, 2, 1, &modeRes), 1);
    EXPECT_EQ(TagOf(modeRes), 5);
    EXPECT_EQ(store.GetModeRes(2, 3, 2, &modeRes), 0);
    modeRes.reset();
    // Mode results do not pass for accelerations of the same load case.
    CDisplace acc;
    EXPECT_EQ(store.GetNodeAccel(1, 3, 2, &acc), 0);

    auto elemRes = Tagged<CModelElemRes>(MakeStandIn(6));
    EXPECT_EQ(store.ModelElemResInBase(0, 5, 1, 44, &elemRes), 1);
    std::shared_ptr<CModelElemRes> elemOut;
    EXPECT_EQ(store.ModelElemResInBase(0, 0, 1, 44, &elemOut), 1);
    EXPECT_EQ(TagOf(elemOut), 6);
    EXPECT_EQ(store.ModelElemResInBase(0, 0, 2, 44, &elemOut), 0);
    elemOut.reset();

    store.DeleteAllResults();
    EXPECT_TRUE(modeAlive.expired());
    EXPECT_EQ(readBack.use_count(), 1);
}

TEST(MemResBase, DeletionTakesOnlyTheNamedKinds) {
    CMemResBase store;
    const CDisplace d(1, 0, 0, 1, 1, 1, 1, 1, 1);
    const double r[6] = {1, 1, 1, 1, 1, 1};
    // Load cases 3 and 4 (type 1), an external case (11), combinations (2, 12), sorted rows (21,
    // 32) and sorted line rows (41).
    for (const int type : {1, 11, 2, 12, 21, 32, 41}) {
        for (const int no : {3, 4}) {
            store.SetForce(type, no, 7, 0.5, 0, 0, kF);
            store.SetDisplace(type, no, 1, &d);
            store.SetReaction(type, no, 1, r);
        }
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
    EXPECT_TRUE(HasForce(store, 1, 3, 7, 0.5));

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
    EXPECT_TRUE(HasForce(store, 12, 4, 7, 0.5));
    store.DeleteAllLoadcaseResults();
    EXPECT_FALSE(HasForce(store, 11, 4, 7, 0.5));
    EXPECT_TRUE(HasForce(store, 12, 4, 7, 0.5));
    store.DeleteAllCombResults();
    EXPECT_FALSE(HasForce(store, 12, 4, 7, 0.5));
    EXPECT_EQ(store.AnyResults(1, -1), 0);
    EXPECT_EQ(store.AnyResults(0, -1), 0);
    EXPECT_EQ(store.AnyResults(2, -1), 0);

    // Mode shapes are not load case results; they go by model.
    EXPECT_EQ(store.AnyResults(4, -1), 1);
    store.DeleteEigenModeRes(1);
    EXPECT_EQ(store.GetEigenModeDisplace(1, 1, 1, 1, &out), 0);
    EXPECT_EQ(store.GetEigenModeDisplace(1, 2, 1, 1, &out), 1);
    store.DeleteEigenModeRes(-1);
    EXPECT_EQ(store.AnyResults(4, -1), 0);

    const int types[] = {12, 41, 0, 1};
    store.SetForce(12, 1, 7, 0.5, 0, 0, kF);
    store.SetForce(41, 1, 7, 0.5, 0, 0, kF);
    store.SetForce(1, 1, 7, 0.5, 0, 0, kF);
    store.DeleteAllSpesResults(types);
    EXPECT_FALSE(HasForce(store, 12, 1, 7, 0.5));
    EXPECT_FALSE(HasForce(store, 41, 1, 7, 0.5));
    // The list ends at its zero.
    EXPECT_TRUE(HasForce(store, 1, 1, 7, 0.5));
}

TEST(MemResBase, SectionResultsGoBySectionOrByKind) {
    CMemResBase store;
    for (const int type : {2, 12, 16, 31})
        for (const int no : {1, 2}) {
            store.SetSectionRes(type, no, 7, 0.5, Tagged<CSectionRes>(MakeStandIn(no)), nullptr);
            store.SetSectionRes(type, no, 8, 0.5, Tagged<CSectionRes>(MakeStandIn(no)), nullptr);
        }
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

TEST(MemResBase, AnyResultsLooksForStoredRecords) {
    CMemResBase store;
    EXPECT_EQ(store.AnyResultsByType(2), 0);
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
    ASSERT_EQ(store.GetRootNode()->GetSize(), 14);
    EXPECT_EQ(store.GetRootNode()->GetChild(1)->GetSize(), 0);
    store.Clear(-1);
    EXPECT_EQ(store.AnyResults(-1, -1), 0);
    EXPECT_EQ(store.GetRootNode()->GetSize(), 14);
    // The branches still take results.
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
    ASSERT_EQ(rows.size(), 3u);
    const int order[] = {2, 5, 9};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(rows[i].No, order[i]);
        EXPECT_EQ(rows[i].Type, 2);
        EXPECT_EQ(rows[i].Element, 7);
        EXPECT_EQ(rows[i].X, 0.5);
        EXPECT_EQ(rows[i].A, order[i] * 10);
        EXPECT_EQ(rows[i].B, 3);
        EXPECT_EQ(rows[i].Forces[0], order[i]);
        EXPECT_EQ(rows[i].Forces[5], -order[i]);
    }
    // A second call appends.
    EXPECT_EQ(store.RetrieveSectionForceList(7, 0.75, 2, rows), 1);
    EXPECT_EQ(rows.size(), 4u);
    EXPECT_EQ(store.RetrieveSectionForceList(7, 0.5, 12, rows), 0);

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

    store.SetSectionRes(2, 3, 7, 0.5, Tagged<CSectionRes>(MakeStandIn(3)), nullptr);
    store.SetSectionRes(2, 1, 7, 0.5, Tagged<CSectionRes>(MakeStandIn(1)), nullptr);
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
    EXPECT_EQ(shape.size(), 6u);
}

TEST(MemResBase, DumpWritesTheTreeInItsLayout) {
    CMemResBase store;
    const CDisplace d;
    store.SetDisplace(1, 3, 12, &d);
    store.SetForce(1, 3, 7, 0.25, 0, 0, kF);
    store.SetForce(1, 3, 7, 0.75, 0, 0, kF);
    store.GetCodeResNode(1, 1)->GetChildByID(3)->GetChildByID(7)->GetChildByData(0.75)->Clear();

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
