#include "model/Structure.h"
#include "platform/Machine.h"

#include <gtest/gtest.h>

#include <cstdio>

using namespace kelo;

TEST(Structure, ListFamiliesKeepNumberOrderAndReplaceInPlace) {
    CStructure s(2);
    EXPECT_EQ(s.GetFirstFreeRefLineNo(), 1);
    for (int n : {4, 1, 2}) s.AddRefLine(std::make_unique<CRefLine>(n, "line"));
    s.AddRefLine(std::make_unique<CRefLine>(0, "sections"));
    EXPECT_EQ(s.GetFirstFreeRefLineNo(), 3); // number 0 neither free nor taken
    s.AddRefLine(std::make_unique<CRefLine>(2, "replaced"));
    std::vector<int> order;
    for (const CRefLine* r : *s.GetRefLineList()) order.push_back(r->GetNo());
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 4}));
    EXPECT_EQ(s.GetRefLinePtr(2)->GetName(), "replaced");
    s.DeleteRefLine(1);
    s.DeleteRefLine(99);
    EXPECT_EQ(s.GetRefLineList()->GetCount(), 3u);
    s.EmptyRefLineList();
    EXPECT_TRUE(s.GetRefLineList()->IsEmpty());
}

TEST(Structure, NodesInUseAreNotDeletedAndElementDeletionClearsLoadPointers) {
    CStructure s(2);
    s.AddNode(std::make_unique<CNode>(1, 0, 0, 0));
    s.AddNode(std::make_unique<CNode>(2, 10, 0, 0));
    s.AddNode(std::make_unique<CNode>(3, 20, 0, 0));
    s.AddElement(std::make_unique<CElement>(7, 1, 2, 0, 1));
    auto lc = std::make_unique<CLoadcase>(1, "Self weight");
    lc->AddLoad(std::make_unique<CLoad>(1, 7, 1, 3, -25.0, 0, 0, 0));
    s.AddLoadcase(std::move(lc));
    s.UpdatePointers();
    EXPECT_EQ(s.GetElementPtr(7)->GetNodeNo2Ptr(), s.GetNodePtr(2));
    EXPECT_EQ(s.GetLoadPtr(1, 0)->GetElemPtr(), s.GetElementPtr(7));
    EXPECT_EQ(s.DeleteNode(2), 0);
    EXPECT_EQ(s.DeleteNode(3), 1);
    s.DeleteElement(7);
    EXPECT_EQ(s.GetLoadPtr(1, 0)->GetElemPtr(), nullptr);
    EXPECT_EQ(s.DeleteNode(2), 1);
}

TEST(Structure, SettingsVersionsAndCommandStore) {
    CStructure s(1);
    EXPECT_EQ(s.ActiveApp(), 1);
    s.SetVersionAndRevision(3, 5.2, 1.0);
    EXPECT_EQ(s.GetVersion(3), 5.2);
    EXPECT_EQ(s.GetVersion(7), 0.0);
    s.SetVersionAndRevision(0, 1, 1);
    EXPECT_EQ(s.GetRevision(0), 0.0);
    double conv[6];
    s.GetConvOptions(conv);
    EXPECT_EQ(conv[0], 50.0);
    EXPECT_EQ(conv[5], 2.0);

    EXPECT_EQ(s.AddASCIICommand(0, "NODE 1"), 0);
    EXPECT_EQ(s.AddASCIICommand(1002, "ELEM 1 1 2"), 1);
    EXPECT_EQ(s.AddASCIICommand(1001, "NODE 1\r\n"), 1);
    EXPECT_EQ(s.AddASCIICommand(1002, "ELEM 2 2 3"), 1);
    EXPECT_EQ(s.GetASCIICommand(1002), "ELEM 1 1 2\r\nELEM 2 2 3\r\n");
    EXPECT_EQ(s.GetASCIICommandLength(1001), 8);
    EXPECT_EQ(s.GetASCIICommandList()->First()->GetCommandType(), 1001);
}

TEST(Structure, DefaultContentsOfTwoCodesInBothLanguages) {
    CStructure en(2);
    en.SetConcrCode(105);
    en.SetSteelCode(202);
    en.CreateDefaultContents(2, 0);
    EXPECT_EQ(en.GetRefLinePtr(0)->GetName(), "Cross sections");
    EXPECT_EQ(en.GetModelPtr(1)->GetModelName(), "Default All");
    EXPECT_EQ(en.GetModelPtr(1)->GetCode(), 0);
    EXPECT_EQ(en.GetSelectionPtr(0)->GetName(), "<All>");
    EXPECT_EQ(en.GetDesignSetupList()->GetCount(), 2u);
    EXPECT_EQ(en.GetWindSpectraList()->First()->GetName(), "NS3491-4 (Default)");
    EXPECT_FALSE(en.GetConcrMatParList()->IsEmpty());
    EXPECT_FALSE(en.GetReinfTypeList()->IsEmpty());
    EXPECT_FALSE(en.GetShearReinfTypeList()->IsEmpty());

    CStructure no(2);
    no.SetConcrCode(102);
    no.SetSteelCode(201);
    no.CreateDefaultContents(1, 0);
    EXPECT_EQ(no.GetRefLinePtr(0)->GetName(), "Tverrsnitt");
    EXPECT_EQ(no.GetModelPtr(1)->GetModelName(), "Hele modellen");
    EXPECT_EQ(no.GetSelectionPtr(0)->GetName(), "<Hele>");

    // A deep copy owns its own objects.
    CStructure copy(en);
    copy.GetRefLinePtr(0)->SetName("changed");
    EXPECT_EQ(en.GetRefLinePtr(0)->GetName(), "Cross sections");
    EXPECT_EQ(copy.GetReinfTypeList()->GetCount(), en.GetReinfTypeList()->GetCount());

    en.DeleteAllObjects(0);
    EXPECT_TRUE(en.GetRefLineList()->IsEmpty());
    EXPECT_TRUE(en.GetReinfTypeList()->IsEmpty());
}

TEST(ChangeRecords, NamesEqualityAndSweepingChanges) {
    CId id(401, 5);
    id.SetNo(1, 1);
    id.SetNo(2, 12);
    id.SetActiveApp(2);
    std::string line;
    id.GetIdString(line);
    // Action in 20 columns, code in 30, then " %3i" and three "  %9.3f".
    EXPECT_EQ(line, "BASE_WRITE" + std::string(10, ' ') + "CID_NODE" + std::string(22, ' ') +
                        "   2      1.000     12.000      0.000\r\n");
    EXPECT_STREQ(CId::ActionName(42), "UNKNOWN ACTION!!!!");
    EXPECT_STREQ(CId::CodeName(123), "UNKNOWN CODE!!!!!!!!");
    CId near(401, 1);
    near.SetNo(1, 1.000001);
    near.SetNo(2, 12);
    EXPECT_EQ(id.IsEqual(near), 1);
    near.SetNo(3, 0.1);
    EXPECT_EQ(id.IsEqual(near), 0);
    CId all(402, 5);
    EXPECT_EQ(CId(401, 99).IsWriteAllOfSameCode(all), 1);
    EXPECT_EQ(CId(401, 1).IsWriteAllOfSameCode(all), 0);

    CStructure s(2);
    for (int code : {401, 403, 402, 501}) s.GetChangesList()->Add(std::make_unique<CId>(code, 5));
    EXPECT_EQ(s.DeleteRedundantChanges(CId(402, 99)), 1);
    EXPECT_EQ(s.GetChangesList()->GetCount(), 2u);
    EXPECT_EQ(s.DeleteRedundantChanges(CId(402, 1)), 0);
    EXPECT_EQ(s.DeleteRedundantChanges(CId(999, 5)), 0);
}

TEST(Structure, MemoryBudgetErrorFileAndBusyFlag) {
    FixedMachine machine(2800000000ull, {2026, 11, 21, 12, 30, 5});
    SetMachine(&machine);
    CStructure s(2);
    EXPECT_EQ(s.MaxObjectsInMemory(1, 0), 50000000); // 1.4e9 bytes over 28
    EXPECT_EQ(s.MaxObjectsInMemory(2, 0), 0);
    s.SetLoggTime(nullptr);
    int t[6];
    s.GetLoggTime(t);
    EXPECT_EQ(t[0], 2026);
    EXPECT_EQ(t[5], 5);
    SetMachine(nullptr);

    EXPECT_EQ(s.OpenErrFile(1), 0); // no document
    s.SetDocumentPath("structure_test.v1.inp");
    EXPECT_EQ(s.GetErrFilePath(), "structure_test.err");
    ASSERT_EQ(s.OpenErrFile(1), 1);
    s.AddErrMessage("first\r\n");
    std::string text;
    EXPECT_EQ(s.LoadErrFileToString(&text), 1);
    EXPECT_EQ(text, "first\r\n");

    EXPECT_EQ(s.GetAdminFlagPath(), "structure_test.v1.adm");
    EXPECT_EQ(s.SetBaseBusy(0, 2, 1, 0), 1);
    EXPECT_EQ(s.GetFileAdminFlag(s.GetAdminFlagPath()), 2);
    EXPECT_EQ(s.SetBaseBusy(0, 1, 1, 0), 0); // held by the other application
    int last = 0;
    EXPECT_EQ(s.IsBaseBusy(0, last, 0), 1);
    EXPECT_EQ(last, 2);
    EXPECT_EQ(s.IsBaseBusy(0, last, 0), 0); // no news
    EXPECT_EQ(s.SetBaseBusy(0, 2, 0, 0), 1);
    EXPECT_EQ(s.GetFileAdminFlag(s.GetAdminFlagPath()), 0);
    std::remove("structure_test.err");
    std::remove("structure_test.v1.adm");
}
