#include "command/StructureCmd.h"
#include "model/Structure.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace kelo;

namespace {

// A new project as the program makes it, reading commands through the interpreter.
struct Frame {
    explicit Frame(int language = 2, int checkLevel = 1) : s(2) {
        s.GetStructureCmd()->SetLanguage(language);
        s.CreateDefaultContents(language, 0);
        s.SetWarnLevel(checkLevel);
    }
    int Run(const std::string& text) {
        std::string t = text;
        return s.CommandConvert(&t, &log, 0);
    }
    CStructureCmd& cmd() { return *s.GetStructureCmd(); }
    int Messages() { return cmd().GetErrCount() + cmd().GetWarnCount(); }
    const CNode& node(int no) {
        const CNode* n = s.GetNodePtr(no);
        EXPECT_NE(n, nullptr) << "node " << no;
        static const CNode none;
        return n ? *n : none;
    }
    CElement* elem(int no) { return s.GetElementPtr(no); }
    CStructure s;
    std::string log;
};

void ExpectAt(const CNode& n, double x, double y, double z) {
    EXPECT_NEAR(n.GetX(), x, 1e-9) << "node " << n.GetNo();
    EXPECT_NEAR(n.GetY(), y, 1e-9) << "node " << n.GetNo();
    EXPECT_NEAR(n.GetZ(), z, 1e-9) << "node " << n.GetNo();
}

std::vector<int> Fixity(const CNode& n) {
    std::vector<int> fix;
    for (int d = 0; d < 6; ++d) fix.push_back(n.GetFix(d));
    return fix;
}

// A straight line given by two vertices from (0, 0, 0) at station 0 to (30, 40, 10): stations run
// along the plan projection, 50 m long, so the point at station s is (0.6 s, 0.8 s, 0.2 s).
CRefLine* AddStraightLine(CStructure& s, int no) {
    CRefLine* line = s.AddRefLine(std::make_unique<CRefLine>(no, "Girder"), 0);
    line->AddCoord(std::make_unique<CCoord>(1, line, 1, 0.0, 0.0, 0.0, 0.0));
    line->AddCoord(std::make_unique<CCoord>(2, line, 2, 30.0, 40.0, 10.0, 0.0));
    line->AddAxis(std::make_unique<CAxis>(1, "A1", 10.0));
    line->AddAxis(std::make_unique<CAxis>(2, "A2", 40.0));
    return line;
}

} // namespace

TEST(FrameNodes, RangesWithIncrementsAndReplacement) {
    Frame f;
    EXPECT_EQ(f.Run("NODE 1 5 1 0 0 0 2.5 0 0\n"), 0);
    for (int k = 0; k < 5; ++k) ExpectAt(f.node(1 + k), 2.5 * k, 0.0, 0.0);
    // Every third number, each 1 m further along X and Y.
    EXPECT_EQ(f.Run("NODE 20 26 3 0 0 5 1 1 0\n"), 0);
    ExpectAt(f.node(20), 0, 0, 5);
    ExpectAt(f.node(23), 1, 1, 5);
    ExpectAt(f.node(26), 2, 2, 5);
    EXPECT_EQ(f.s.GetNodePtr(21), nullptr);
    // Last and step 0 make one node; a range can also count down.
    EXPECT_EQ(f.Run("NODE 10 0 0 1 2 3\nNODE 32 30 -1 0 0 0 0 0 -1\n"), 0);
    ExpectAt(f.node(10), 1, 2, 3);
    ExpectAt(f.node(32), 0, 0, 0);
    ExpectAt(f.node(30), 0, 0, -2);
    EXPECT_EQ(f.s.GetNodeList()->GetCount(), 12u);

    // An existing number is replaced whole: its support goes with it.
    f.Run("BOUNDINS 1 0 0 1 1 1 1 1 1\nNODE 1 0 0 7 7 7\n");
    ExpectAt(f.node(1), 7, 7, 7);
    EXPECT_EQ(Fixity(f.node(1)), std::vector<int>(6, 0));
    EXPECT_EQ(f.s.GetNodeList()->GetCount(), 12u);
    EXPECT_EQ(f.Messages(), 0) << f.log;

    // An empty step leaves a range of several nodes without a step: refused, nothing made.
    EXPECT_EQ(f.Run("NODE 41,45,,0,0,0,1,0,0\n"), -2);
    EXPECT_EQ(f.s.GetNodePtr(41), nullptr);
    EXPECT_NE(f.log.find("Illegal step value!"), std::string::npos) << f.log;
}

TEST(FrameElements, ConnectNodesComputeLengthAndReplace) {
    Frame f;
    // Lengths of 5, 12 and again 5 m: 3-4-5 and 5-12-13 triangles.
    f.Run("NODE 1 0 0 0 0 0\nNODE 2 0 0 3 4 0\nNODE 3 0 0 3 4 12\nNODE 4 0 0 0 0 12\n");
    EXPECT_EQ(f.Run("ELEM 1 2 1 1 2 1\n"), 0);
    ASSERT_NE(f.elem(1), nullptr);
    ASSERT_NE(f.elem(2), nullptr);
    EXPECT_EQ(f.elem(1)->GetNodeNo1(), 1);
    EXPECT_EQ(f.elem(1)->GetNodeNo2(), 2);
    EXPECT_EQ(f.elem(2)->GetNodeNo1(), 2);
    EXPECT_EQ(f.elem(2)->GetNodeNo2(), 3);
    EXPECT_NEAR(f.elem(1)->GetLength(), 5.0, 1e-12);
    EXPECT_NEAR(f.elem(2)->GetLength(), 12.0, 1e-12);
    EXPECT_EQ(f.elem(1)->GetNodeNo1Ptr(), f.s.GetNodePtr(1));
    EXPECT_EQ(f.elem(2)->GetAlpha(), 0.0);

    // Replacing an element loses what was given for it.
    f.Run("JOINT 2 0 0 0 11\nELEM 2 0 0 4 3\n");
    EXPECT_EQ(f.elem(2)->GetJoint2(), 0.0);
    EXPECT_EQ(f.elem(2)->GetNodeNo1(), 4);
    EXPECT_NEAR(f.elem(2)->GetLength(), 5.0, 1e-12);
    // A node given anew is the one that its elements point at.
    f.Run("NODE 4 0 0 0 4 0\n");
    EXPECT_EQ(f.elem(2)->GetNodeNo1Ptr(), f.s.GetNodePtr(4));
    EXPECT_EQ(f.Messages(), 0) << f.log;

    // An error in one element of a range drops the whole range.
    EXPECT_EQ(f.Run("ELEM 5 8 1 1 2 1\n"), -2); // element 8 would need node 5
    EXPECT_EQ(f.elem(5), nullptr);
    EXPECT_EQ(f.elem(7), nullptr);
}

TEST(FrameElements, CheckLevelZeroLetsAnElementStandOnMissingNodes) {
    Frame f(2, 0);
    EXPECT_EQ(f.Run("ELEM 1 0 0 7 8\n"), 0);
    ASSERT_NE(f.elem(1), nullptr);
    EXPECT_EQ(f.elem(1)->GetNodeNo1Ptr(), nullptr);
    EXPECT_EQ(f.elem(1)->GetNodeNo2Ptr(), nullptr);
    EXPECT_EQ(f.elem(1)->GetLength(), 0.0);
    EXPECT_EQ(f.Messages(), 0);
    // The range is still completed at level 0, and one that can't be walked is refused.
    EXPECT_EQ(f.Run("ELEM 4 2 1 1 2\n"), -2);
    EXPECT_EQ(f.elem(4), nullptr);
}

TEST(FrameSupports, FixitiesAndSlaveNodes) {
    Frame f;
    f.Run("NODE 1 30 1 0 0 0 1 0 0\n");
    EXPECT_EQ(f.Run("BOUNDINS 1 0 0 1 1 1 1 1 1\nBOUNDINS 2 3 1 1 1 1 0 0 0\n"), 0);
    EXPECT_EQ(Fixity(f.node(1)), std::vector<int>(6, 1));
    EXPECT_EQ(Fixity(f.node(3)), (std::vector<int>{1, 1, 1, 0, 0, 0}));
    // A first value of 2 or more names the master: all six freedoms follow it.
    EXPECT_EQ(f.Run("BOUNDINS 4,4,1,2\n"), 0);
    EXPECT_EQ(Fixity(f.node(4)), std::vector<int>(6, -2));
    // Masters counted up with the nodes: 10 -> 20, 11 -> 22, 12 -> 24.
    EXPECT_EQ(f.Run("BOUNDINS 10 12 1 20 2\n"), 0);
    EXPECT_EQ(f.node(10).GetFix(5), -20);
    EXPECT_EQ(f.node(11).GetFix(0), -22);
    EXPECT_EQ(f.node(12).GetFix(3), -24);
    EXPECT_EQ(f.Messages(), 0) << f.log;
    // A slave can't be a master, and a fixity is 0 or 1.
    EXPECT_EQ(f.Run("BOUNDINS 5 0 0 4\n"), -2);
    EXPECT_EQ(f.Run("BOUNDINS 5 0 0 1 0 2\n"), -2);
    EXPECT_EQ(Fixity(f.node(5)), std::vector<int>(6, 0));
}

TEST(FrameElementProperties, JointsSectionsSpringsAndLocalAxes) {
    Frame f;
    f.Run("NODE 1 5 1 0 0 0 4 0 0\nELEM 1 4 1 1 2 1\n");
    EXPECT_EQ(f.Run("JOINT 1 3 1 0 100\n"), 0);
    EXPECT_EQ(f.elem(3)->GetJoint2(), 100.0);
    EXPECT_EQ(f.elem(4)->GetJoint2(), 0.0);

    EXPECT_EQ(f.Run("SECTINS 1 1 35000 0.2 0.32 0.017 0.0117 0.0043 \"Beam 400x800\"\n"
                    "SECTINS 2 20 30000 0.3 1E6 2E6 3E6\n"),
              0);
    const CRefLine* line0 = f.s.GetRefLinePtr(0);
    ASSERT_NE(line0, nullptr);
    const CKeySection* beam = line0->GetKeySectionPtr(1);
    ASSERT_NE(beam, nullptr);
    EXPECT_EQ(beam->GetName(), "Beam 400x800");
    EXPECT_EQ(beam->GetStationNo(), 1.0);
    // A stiffness section: its values are the properties A, IL, IM, IN as they stand.
    EXPECT_EQ(beam->GetType(), 1);
    EXPECT_EQ(beam->GetMatType(), 0);
    EXPECT_EQ(beam->GetYoungsModulus(), 35000.0);
    EXPECT_EQ(beam->GetPoisson(), 0.2);
    EXPECT_EQ(beam->GetSectionArea(), 0.32);
    EXPECT_EQ(beam->GetMomInertL(), 0.017);
    EXPECT_EQ(beam->GetMomInertM(), 0.0117);
    EXPECT_EQ(beam->GetMomInertN(), 0.0043);
    EXPECT_EQ(line0->GetKeySectionPtr(2)->GetType(), 20);

    // Section 1 on elements 1 to 3 with alpha 10, 15, 20 degrees; the spring on element 4.
    EXPECT_EQ(f.Run("ELSPINS 1 3 1 1 2 10 5\nELSPINS 4 0 0 2\n"), 0);
    EXPECT_EQ(f.elem(2)->GetSectionNo(), 1);
    EXPECT_EQ(f.elem(2)->GetSectionPtr(), beam);
    EXPECT_EQ(f.elem(2)->GetLocAxisCode(), 2);
    EXPECT_EQ(f.elem(1)->GetAlpha(), 10.0);
    EXPECT_EQ(f.elem(3)->GetAlpha(), 20.0);
    EXPECT_EQ(f.elem(1)->GetType(), 1);
    EXPECT_EQ(f.elem(4)->GetType(), 2); // a translation spring
    EXPECT_EQ(f.elem(4)->GetLocAxisCode(), 3);

    // Axes by a third node and by the direction of N.
    EXPECT_EQ(f.Run("ELSPINS 1 0 0 0 1 5\nELSPINS 2 0 0 0 3 1\n"), 0);
    EXPECT_EQ(f.elem(1)->GetNodeNo3(), 5);
    EXPECT_EQ(f.elem(1)->GetNodeNo3Ptr(), f.s.GetNodePtr(5));
    EXPECT_EQ(f.elem(1)->GetSectionNo(), 1); // section 0 leaves the section
    EXPECT_EQ(f.elem(2)->GetLocAxisCode(), 3);
    EXPECT_EQ(f.elem(2)->GetNDirCode(), 1);

    // A section given anew: its elements point at the new key section.
    EXPECT_EQ(f.Run("SECTINS 1 4 35000 0.2 0.8 0.4 0.2 0.2\n"), 0);
    EXPECT_EQ(f.elem(2)->GetSectionPtr(), line0->GetKeySectionPtr(1));
    // A box 0.8 wide and 0.4 high whose flanges of 0.2 fill its height: A = bh.
    EXPECT_EQ(line0->GetKeySectionPtr(1)->GetType(), 4);
    EXPECT_NEAR(line0->GetKeySectionPtr(1)->GetSectionArea(), 0.32, 1e-15);
    EXPECT_EQ(f.Messages(), 0) << f.log;

    EXPECT_EQ(f.Run("TORSIONAD 1 2 1 0.05\n"), 0);
    EXPECT_EQ(f.elem(2)->GetTorsionAD(), 0.05);
    EXPECT_EQ(f.elem(3)->GetTorsionAD(), 0.0);
    // Wind areas add up; the tenth value is not one of the nine.
    EXPECT_EQ(f.Run("WINDFACT 1 0 0 1 2 3 4 5 6 7 8 9 10\nWINDFACT 1 0 0 1\n"), 0);
    EXPECT_EQ(f.elem(1)->GetWindArea(0), 2.0);
    EXPECT_EQ(f.elem(1)->GetWindArea(8), 9.0);
}

TEST(FrameElementProperties, DesignSectionsMassesAndAxialForces) {
    Frame f;
    f.Run("NODE 1 0 0 0 0 0\nNODE 2 0 0 8 0 4\nNODE 3 0 0 8 0 4\nELEM 1 0 0 1 2\nELEM 2 0 0 2 3\n"
          "SECTINS 7 21 30000 0 1E5\nELSPINS 2 0 0 7\n");
    EXPECT_EQ(f.Run("DESGINS 1 0 0 0 0.25 1\n"), 0);
    const auto& sections = f.elem(1)->GetDesignSectionList();
    ASSERT_EQ(sections.GetCount(), 3u);
    EXPECT_EQ(sections.At(1)->GetXoverL(), 0.25);
    // A quarter of the way from (0, 0, 0) to (8, 0, 4).
    EXPECT_NEAR(sections.At(1)->GetX(), 2.0, 1e-12);
    EXPECT_NEAR(sections.At(1)->GetZ(), 1.0, 1e-12);
    EXPECT_EQ(sections.At(0)->GetNodeDisplace(), 1);
    EXPECT_EQ(sections.At(2)->GetNodeDisplace(), 2);
    EXPECT_EQ(sections.At(1)->GetNodeDisplace(), 0);
    // Positions already held are not doubled; new ones fall into place.
    EXPECT_EQ(f.Run("DESGINS 1 0 0 0.5 0.25\n"), 0);
    ASSERT_EQ(sections.GetCount(), 4u);
    EXPECT_EQ(sections.At(2)->GetXoverL(), 0.5);
    // A rotation spring is designed at x/l 0 as well.
    EXPECT_EQ(f.Run("DESGINS 2 0 0 0.5\n"), 0);
    ASSERT_EQ(f.elem(2)->GetDesignSectionList().GetCount(), 2u);
    EXPECT_EQ(f.elem(2)->GetDesignSectionList().At(0)->GetXoverL(), 0.0);

    EXPECT_EQ(f.Run("MASS 1 2 1 3 3 2.5\nMASS 1 0 0 3 3 4.0\nMASS 1 0 0 4 1 10 3\n"), 0);
    const auto& masses = f.elem(1)->GetMassList();
    ASSERT_EQ(masses.GetCount(), 2u); // the second type 3 in Z replaced the first
    EXPECT_EQ(masses.At(0)->GetMassValues(0), 4.0);
    EXPECT_EQ(masses.At(1)->GetType(), 4);
    EXPECT_EQ(masses.At(1)->GetMassValues(1), 3.0);
    EXPECT_EQ(masses.At(1)->GetElemPtr(), f.elem(1));
    EXPECT_EQ(f.elem(2)->GetMassList().At(0)->GetMassValues(0), 2.5);

    EXPECT_EQ(f.Run("AXIAL 1 0 0 1 -1200 15 -8\n"), 0);
    ASSERT_EQ(f.elem(1)->GetAxialList().GetCount(), 1u);
    const CAxial* given = f.elem(1)->GetAxialList().At(0);
    EXPECT_EQ(given->GetAxialValue(), -1200.0);
    EXPECT_EQ(given->GetMLValue(), 15.0);
    EXPECT_EQ(given->GetMNValue(), -8.0);
    // Load cases with factors replace what the element had.
    EXPECT_EQ(f.Run("AXIAL 1 0 0 2 3 1.35 0 0 5 1.5\n"), 0);
    ASSERT_EQ(f.elem(1)->GetAxialList().GetCount(), 2u);
    EXPECT_EQ(f.elem(1)->GetAxialList().At(0)->GetLoadcaseNo(), 3);
    EXPECT_EQ(f.elem(1)->GetAxialList().At(1)->GetLoadcaseFac(), 1.5);
    EXPECT_EQ(f.elem(1)->GetAxialList().At(1)->GetType(), 2);
}

TEST(FrameModels, ModelsDependenciesAndModifications) {
    Frame f;
    f.Run("NODE 1 6 1 0 0 0 1 0 0\nELEM 1 5 1 1 2 1\n");
    EXPECT_EQ(f.Run("MODEL 2 3 1 3 1 \"Left part\"\n"), 0);
    const CModel* m2 = f.s.GetModelPtr(2);
    ASSERT_NE(m2, nullptr);
    EXPECT_EQ(m2->GetModelName(), "Left part");
    EXPECT_EQ(m2->GetCode(), 1);
    EXPECT_EQ(m2->GetElementNoArray(), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(f.Run("MODEL 2 -3 2\n"), 0);
    EXPECT_EQ(m2->GetElementNoArray(), (std::vector<int>{1, 3}));
    // A new model without elements; named again, it takes all elements.
    EXPECT_EQ(f.Run("MODEL 3 1 2 0 0 \"Both\"\nMODEL 3 1 1\n"), 0);
    const CModel* m3 = f.s.GetModelPtr(3);
    EXPECT_EQ(m3->GetDepModelNoArray(), (std::vector<int>{1, 2}));
    EXPECT_EQ(m3->GetElementNoArray(), (std::vector<int>{1, 2, 3, 4, 5}));
    EXPECT_EQ(f.Run("MODEL 3 -1 1\n"), 0);
    EXPECT_EQ(m3->GetDepModelNoArray(), (std::vector<int>{2}));
    // A copy of model 1, the whole frame.
    EXPECT_EQ(f.Run("MODEL 4 -1 1 0 0 1 \"Copy\"\n"), 0);
    EXPECT_EQ(f.s.GetModelPtr(4)->GetElementNoArray(), (std::vector<int>{1, 2, 3, 4, 5}));

    EXPECT_EQ(f.Run("MODMODIF 2 10 1 3 2 0 11\nMODMODIF 2 1 4 0 0 111000\n"), 0);
    const auto& mods = m2->GetModelModifyList();
    ASSERT_EQ(mods.GetCount(), 2u);
    EXPECT_EQ(mods.At(0)->GetType(), 10);
    EXPECT_EQ(mods.At(0)->GetInterval(0), 1);
    EXPECT_EQ(mods.At(0)->GetInterval(1), 3);
    EXPECT_EQ(mods.At(0)->GetInterval(2), 2);
    EXPECT_EQ(mods.At(0)->GetValues(1), 11.0);
    // One number: the range is completed to first = last, step 1.
    EXPECT_EQ(mods.At(1)->GetInterval(1), 4);
    EXPECT_EQ(mods.At(1)->GetInterval(2), 1);
    EXPECT_EQ(mods.At(1)->GetValues(0), 111000.0);
    EXPECT_EQ(f.Messages(), 0) << f.log;
}

TEST(FrameMembersAndSelections, MembersHoldElementsSelectionsCollectIntervals) {
    Frame f;
    f.Run("NODE 1 6 1 0 0 0 1 0 0\nELEM 1 5 1 1 2 1\n");
    EXPECT_EQ(f.Run("MEMBER 1 2 1 3 1 \"Girder\"\nMEMBER 2 1 4 5 1 \"Column\"\n"), 0);
    const CMember* girder = f.s.GetMemberPtr(1);
    ASSERT_NE(girder, nullptr);
    EXPECT_EQ(girder->GetName(), "Girder");
    EXPECT_EQ(girder->GetType(), 2);
    EXPECT_EQ(girder->GetElementNoArray(), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(f.elem(2)->GetMemberPtr(), girder);
    // An element moves to the member that takes it last.
    EXPECT_EQ(f.Run("MEMBER 2 1 3\n"), 0);
    EXPECT_EQ(girder->GetElementNoArray(), (std::vector<int>{1, 2}));
    EXPECT_EQ(f.s.GetMemberPtr(2)->GetElementNoArray(), (std::vector<int>{4, 5, 3}));
    EXPECT_EQ(f.elem(3)->GetMemberPtr(), f.s.GetMemberPtr(2));
    EXPECT_EQ(f.s.GetMemberPtr(2)->GetName(), "Column"); // no name keeps the name

    EXPECT_EQ(f.Run("SELEDEL 2 1 5 2\n"), 0);
    EXPECT_EQ(f.elem(1)->GetVisible(), 0);
    EXPECT_EQ(f.elem(2)->GetVisible(), 1);
    EXPECT_EQ(f.elem(5)->GetVisible(), 0);
    EXPECT_EQ(f.Run("SELE 2 5\nSELEDEL 1 6\n"), 0);
    EXPECT_EQ(f.elem(5)->GetVisible(), 1);
    EXPECT_EQ(f.node(6).GetVisible(), 0);

    EXPECT_EQ(f.Run("ESEL 1 1 5 2 \"Odd elements\"\nESEL 1 4 0 0\n"), 0);
    const CSelection* sel = f.s.GetSelectionPtr(1);
    ASSERT_NE(sel, nullptr);
    EXPECT_EQ(sel->GetName(), "Odd elements");
    ASSERT_EQ(sel->GetIntervalList().size(), 2u);
    EXPECT_EQ(sel->GetIntervalList()[0].GetTo(), 5);
    EXPECT_EQ(sel->GetIntervalList()[0].GetStep(), 2);
    EXPECT_EQ(sel->GetIntervalList()[1].GetFrom(), 4);
    EXPECT_EQ(sel->GetIntervalList()[1].GetTo(), 4);

    // A copied project points at its own members.
    const CStructure copy(f.s);
    EXPECT_EQ(copy.GetElementPtr(1)->GetMemberPtr(), copy.GetMemberPtr(1));
    EXPECT_EQ(f.Messages(), 0) << f.log;
}

TEST(FrameDelete, NodesInUseStayAndRangesGoWhole) {
    Frame f;
    f.Run("NODE 1 6 1 0 0 0 1 0 0\nELEM 1 3 1 1 2 1\n");
    EXPECT_EQ(f.Run("DELETE 1 5\n"), 0); // a last below the number: node 5 alone
    EXPECT_EQ(f.s.GetNodePtr(5), nullptr);
    EXPECT_NE(f.s.GetNodePtr(4), nullptr);
    // Node 3 is used by elements 2 and 3: the whole range stays.
    EXPECT_EQ(f.Run("DELETE 1 3 6 1\n"), -2);
    EXPECT_NE(f.s.GetNodePtr(6), nullptr);
    EXPECT_EQ(f.Run("DEL 2 3\n"), 0);
    EXPECT_EQ(f.elem(3), nullptr);
    EXPECT_EQ(f.Run("DELETE 1 4 6 2\n"), 0);
    EXPECT_EQ(f.s.GetNodeList()->GetCount(), 3u);
    EXPECT_EQ(f.Run("DELETE 1 -1\n"), -2); // elements still use nodes 1 to 3
    EXPECT_EQ(f.Run("DELETE 2 -1\nDELETE 1 -1\n"), 0);
    EXPECT_TRUE(f.s.GetElementList()->IsEmpty());
    EXPECT_TRUE(f.s.GetNodeList()->IsEmpty());
}

TEST(FrameDelete, AtCheckLevelZeroNodesInUseStaySilently) {
    Frame f(2, 0);
    f.Run("NODE 1 6 1 0 0 0 1 0 0\nELEM 1 0 0 2 3\nELEM 2 0 0 3 4\n");
    EXPECT_EQ(f.Run("DELETE 1 1 6 1\nDELETE 2 2\n"), 0);
    EXPECT_EQ(f.s.GetNodeList()->GetCount(), 3u);
    EXPECT_NE(f.s.GetNodePtr(4), nullptr); // element 2 still held it when the nodes went
    EXPECT_EQ(f.elem(1)->GetNodeNo2Ptr(), f.s.GetNodePtr(3));
    EXPECT_EQ(f.Messages(), 0);
}

TEST(FrameProject, NumberCodesAndName) {
    Frame f;
    const std::string longName(70, 'x');
    EXPECT_EQ(f.Run("PROJECT 12 103 201 \"" + longName + "\"\n"), 0);
    EXPECT_EQ(f.s.GetProjectNo(), 12);
    EXPECT_EQ(f.s.GetConcrCode(), 103);
    EXPECT_EQ(f.s.GetSteelCode(), 201);
    EXPECT_EQ(f.s.GetName(), std::string(64, 'x'));
    EXPECT_EQ(f.Run("PROJECT 13 107\n"), -2);
    EXPECT_EQ(f.s.GetProjectNo(), 12);
}

TEST(FrameNodesOnLines, StationsAxesAndCoordinatePoints) {
    Frame f;
    AddStraightLine(f.s, 1);
    // Six nodes from station 0 to 50: 10 m apart, the last on station 50.
    EXPECT_EQ(f.Run("RFLNODE 1 6 1 1 0 50\n"), 0);
    for (int k = 0; k < 6; ++k) ExpectAt(f.node(1 + k), 6.0 * k, 8.0 * k, 2.0 * k);
    EXPECT_EQ(f.node(4).GetStationNo(), 30.0);
    EXPECT_EQ(f.node(4).GetRefLineNo(), 1);
    EXPECT_EQ(f.node(4).GetRefLineConnect(), 1);
    // Every second number: three nodes, two intervals of 25 m.
    EXPECT_EQ(f.Run("RFLNODE 11 15 2 1 0 50\n"), 0);
    EXPECT_EQ(f.node(13).GetStationNo(), 25.0);
    ExpectAt(f.node(15), 30, 40, 10);

    // Between axis 1 (station 10) and axis 2 (station 40), 5 m past the first and 5 m short of
    // the second: stations 15, 25, 35.
    EXPECT_EQ(f.Run("AXISNODE 21 23 1 1 1 2 5 -5\n"), 0);
    EXPECT_EQ(f.node(22).GetStationNo(), 25.0);
    ExpectAt(f.node(23), 21, 28, 7);
    // One offset for both axes: stations 12 and 42.
    EXPECT_EQ(f.Run("AXIS2NOD 31 32 1 1 1 2 2\n"), 0);
    EXPECT_EQ(f.node(31).GetStationNo(), 12.0);
    EXPECT_EQ(f.node(32).GetStationNo(), 42.0);
    // One node at an axis needs no second axis.
    EXPECT_EQ(f.Run("AXISNODE 33 0 0 1 2\n"), 0);
    EXPECT_EQ(f.node(33).GetStationNo(), 40.0);

    // One node on each vertex, with the station the polygon gives it.
    EXPECT_EQ(f.Run("NODECOORD 41 42 1 1 1 1\n"), 0);
    ExpectAt(f.node(41), 0, 0, 0);
    ExpectAt(f.node(42), 30, 40, 10);
    EXPECT_EQ(f.node(42).GetStationNo(), 50.0);
    EXPECT_EQ(f.Messages(), 0) << f.log;

    // A missing axis ends the command.
    EXPECT_EQ(f.Run("AXISNODE 51 52 1 1 1 3\n"), -2);
    EXPECT_EQ(f.s.GetNodePtr(51), nullptr);
}

TEST(FrameNodesOnLines, ElementsOnColumnsAndAgainstTheLine) {
    Frame f(2, 2);
    AddStraightLine(f.s, 1);
    CRefLine* column = AddStraightLine(f.s, 2);
    column->SetColumn(1);
    f.Run("RFLNODE 1 2 1 1 0 10\nRFLNODE 3 4 1 2 0 10\n");
    EXPECT_EQ(f.Run("ELEM 1 0 0 1 2\nELEM 2 0 0 3 4\n"), 0);
    EXPECT_EQ(f.elem(1)->GetLocAxisCode(), 3);
    EXPECT_EQ(f.elem(2)->GetLocAxisCode(), 5);
    // From station 10 back to station 0: a warning, and the element is made.
    EXPECT_EQ(f.Run("ELEM 3 0 0 2 1\n"), -1);
    EXPECT_NE(f.elem(3), nullptr);
    EXPECT_NE(f.log.find("Element M-direction is defined opposite reference line direction!"),
              std::string::npos);
}

// Every check of the frame commands in both languages. Each line runs on a small frame that has
// nodes 1 to 4 on line 1, elements 1 to 3 between them, node 4 a slave of node 3, section 1 on
// line 0 and axis 1 on line 1; it raises one message, whose whole text in the log is compared.
TEST(FrameMessages, EveryCheckSaysItsWordsInEnglishAndNorwegian) {
    struct Case {
        const char* line;
        int result;
        const char* english;
        const char* norwegian;
    };
    const Case cases[] = {
        {"NODE 0", -2, "Node number must be greater than 0!",
         "Knutepunktnummer må være større enn 0!"},
        {"NODE 7 8 1", -1, "Several nodes defined at same location!",
         "Flere knutepunkter er definert på samme sted!"},
        {"NODE 2 0 0 5", -1, "Replacing existing node number! 2",
         "Erstatter eksisterende knutepunktnummer! 2"},
        {"NODE 1,5,,0,0,0,1", -2, "Illegal step value!", "Ulovlig trinnverdi!"},
        {"NODE 9 5 1", -2, "Wrong sign for step value!", "Feil fortegn for trinnverdi!"},
        {"NODE 1 3000000 1 0 0 0 1", -2, "One or more of the values in command line are not valid!",
         "En eller flere av verdiene i kommandolinjen er ikke gyldige!"},
        {"ELEM 9 0 0 1 1", -2, "Node 1 og node 2 for element are same node!",
         "Knutepunkt 1 og knutepunkt 2 for elementet er samme knutepunkt!"},
        {"ELEM 9 0 0 1 99", -2, "Node number 99 is not defined!",
         "Knutepunkt nummer 99 er ikke definert!"},
        {"ELEM 0 0 0 1 2", -2, "Element number must be greater than 0!",
         "Elementnummer må være større enn 0!"},
        {"ELEM 10 11 1 1 2 0", -1, "Several elements defined with the same nodes!",
         "Flere elementer er definert med de samme knutepunktene!"},
        {"ELEM 12 0 0 2 1", -1, "Element M-direction is defined opposite reference line direction!",
         "Elementets M-retning er definert motsatt av referanselinjens retning!"},
        {"ELEM 12 13 5 1 2", -1, "Step value larger than interval!",
         "Trinnverdien er større enn intervallet!"},
        {"BOUNDINS 50 0 0 1", -1, "Node number 50 is not defined!",
         "Knutepunkt nummer 50 er ikke definert!"},
        {"BOUNDINS 1 0 0 4", -2, "Master node number 4 is itself a slave node!",
         "Hovedknutepunkt nummer 4 er selv et slaveknutepunkt!"},
        {"BOUNDINS 1 0 0 60", -1, "Master node number 60 is not defined!",
         "Hovedknutepunkt nummer 60 er ikke definert!"},
        {"BOUNDINS 1 0 0 1 2", -2, "One or more of the values in command line are not valid!",
         "En eller flere av verdiene i kommandolinjen er ikke gyldige!"},
        {"JOINT 1 0 0 200000", -2,
         "Code =  200000 is not a valid joint code for end 1 (must be between 0 and 111111)!",
         "Kode =  200000 er ikke en gyldig leddkode for ende 1 (må være mellom 0 og 111111)!"},
        {"JOINT 1 0 0 0 -1", -2,
         "Code =  -1 is not a valid joint code for end 2 (must be between 0 and 111111)!",
         "Kode =  -1 er ikke en gyldig leddkode for ende 2 (må være mellom 0 og 111111)!"},
        {"JOINT 70 0 0 0 1", -1, "Element number 70 is not defined!",
         "Element nummer 70 er ikke definert!"},
        {"SECTINS 0", -2, "Section number must be greater than 0!",
         "Snittnummer må være større enn 0!"},
        {"SECTINS 2 3", -2, "Type =  3 is not a valid section type for elements!",
         "Type =  3 er ikke en gyldig tverrsnittstype for elementer!"},
        {"SECTINS 2 1 0", -2, "Young's modulus must be greater than 0!",
         "Elastisitetsmodulen må være større enn 0!"},
        {"SECTINS 2 1 30000 0.6", -2, "Poisson's ratio must be between 0 and 0.5!",
         "Tverrkontraksjonstallet må være mellom 0 og 0.5!"},
        {"ELSPINS 1 0 0 9", -2, "Section number 9.000 on reference line 0 is not defined!",
         "Snitt nummer 9.000 på referanselinje 0 er ikke definert!"},
        {"ELSPINS 1 0 0 1 7", -2, "Code =  7 is not a valid local axis code (must be 1 to 5)!",
         "Kode =  7 er ikke en gyldig kode for lokale akser (må være 1 til 5)!"},
        {"ELSPINS 1 0 0 1 1 77", -2, "Node number 77 is not defined and can not be used as node 3!",
         "Knutepunkt nummer 77 er ikke definert og kan ikke brukes som knutepunkt 3!"},
        {"ELSPINS 1 0 0 1 3 8", -2,
         "Direction =  8 is not a valid N-direction code (must be 1 to 6)!",
         "Retning =  8 er ikke en gyldig kode for N-retning (må være 1 til 6)!"},
        {"ELSPINS 70 0 0 1", -1, "Element number 70 is not defined!",
         "Element nummer 70 er ikke definert!"},
        {"DESGINS 1 0 0 1.5", -2, "x/l =  1.500 is not a valid value. x/l must be between 0 and 1!",
         "x/l =  1.500 er ikke en gyldig verdi. x/l må være mellom 0 og 1!"},
        {"MASS 1 0 0 2", -2, "Type =  2 is not a valid mass type (must be 1, 3, 4 or 5)!",
         "Type =  2 er ikke en gyldig massetype (må være 1, 3, 4 eller 5)!"},
        {"MASS 1 0 0 3 4", -2, "Dir =  4 is not a valid direction!",
         "Retn =  4 er ikke en gyldig retning!"},
        {"MASS 1 0 0 3 1 -2", -2, "-2.000 is not a valid value. Mass can not be negative!",
         "-2.000 er ikke en gyldig verdi. Massen kan ikke være negativ!"},
        {"MASS 1 0 0 5 0 1", -2, "Dir =  0 can not be used with this mass type!",
         "Retn =  0 kan ikke brukes med denne massetypen!"},
        {"WINDFACT 70 0 0 1", -1, "Element number 70 is not defined!",
         "Element nummer 70 er ikke definert!"},
        {"TORSIONAD 70 0 0 1", -1, "Element number 70 is not defined!",
         "Element nummer 70 er ikke definert!"},
        {"AXIAL 1 0 0 3", -2, "Type =  3 is not a valid axial force type (must be 1 or 2)!",
         "Type =  3 er ikke en gyldig aksialkrafttype (må være 1 eller 2)!"},
        {"AXIAL 1 0 0 2 9 1", -1, "Load case number 9 is not defined!",
         "Lasttilfelle nummer 9 er ikke definert!"},
        {"DELETE 3 1", -2, "3 is not a valid item type for this delete command! 1",
         "3 er ikke en gyldig objekttype for denne slettekommandoen! 1"},
        {"DELETE 1 2", -2, "Can not delete node already connected to element number 1!",
         "Kan ikke slette knutepunkt som allerede er koblet til element nummer 1!"},
        {"MODEL 0", -2, "Model number must be greater than 0!",
         "Modellnummer må være større enn 0!"},
        {"MODEL 2 1 5", -2, "Model number 5 is not defined!", "Modell nummer 5 er ikke definert!"},
        {"MODEL 2 2", -2, "Code =  2 is not a valid model code (must be 1, -1, 3 or -3)!",
         "Kode =  2 er ikke en gyldig modellkode (må være 1, -1, 3 eller -3)!"},
        {"MODMODIF 9", -2, "Model number 9 is not defined!", "Modell nummer 9 er ikke definert!"},
        {"MODMODIF 0", -2, "Model number must be greater than 0!",
         "Modellnummer må være større enn 0!"},
        {"MODMODIF 1 5", -2, "Type =  5 is not a valid model modification type!",
         "Type =  5 er ikke en gyldig type modellendring!"},
        {"MODMODIF 1 1 40", -2, "Node number 40 is not defined!",
         "Knutepunkt nummer 40 er ikke definert!"},
        {"MODMODIF 1 11 1 0 0 0 8", -2, "Section number 8.000 on reference line 0 is not defined!",
         "Snitt nummer 8.000 på referanselinje 0 er ikke definert!"},
        {"MODMODIF 1 10 70", -1, "Element number 70 is not defined!",
         "Element nummer 70 er ikke definert!"},
        {"SELE 3 1", -2, "Code =  3 is not a valid selection code (must be 1=node or 2=element)!",
         "Kode =  3 er ikke en gyldig utvalgskode (må være 1=knutepunkt eller 2=element)!"},
        {"RFLNODE 40 0 0 9", -2, "Reference line number 9 is not defined!",
         "Referanselinje nummer 9 er ikke definert!"},
        {"RFLNODE 40 0 0 1 60", -1,
         "Station number 60.000 is outside the defined interval for reference line number 1",
         "Profilnummer 60.000 ligger utenfor det definerte intervallet for referanselinje nummer "
         "1"},
        {"AXISNODE 40 0 0 1 5", -2, "Axis number 5 is not defined!",
         "Akse nummer 5 er ikke definert!"},
        {"NODECOORD 40 0 0 1 9", -2,
         "One or more of the objects referred to in command line does not exist!",
         "Ett eller flere av objektene det refereres til i kommandolinjen finnes ikke!"},
        {"PROJECT 1 107", -2, "Concrete design code must be between 101 and 106!",
         "Betongnormen må være mellom 101 og 106!"},
        {"PROJECT 1 105 203", -2, "Steel design code must be 201 or 202!",
         "Stålnormen må være 201 eller 202!"},
    };
    for (const int language : {2, 1}) {
        for (const Case& c : cases) {
            Frame f(language, 2);
            AddStraightLine(f.s, 1);
            f.Run("RFLNODE 1 4 1 1 0 30\nELEM 1 3 1 1 2 1\nBOUNDINS 4 0 0 3\nSECTINS 1\n");
            ASSERT_EQ(f.Messages(), 0) << f.log;
            f.log.clear();
            EXPECT_EQ(f.Run(std::string(c.line) + "\n"), c.result) << c.line;
            const char* header =
                c.result == -1 ? "\r\n*** Warning ***\r\n" : "\r\n*** Error ***\r\n";
            const std::string words = language == 2 ? c.english : c.norwegian;
            EXPECT_EQ(f.log, c.line + std::string(header) + words + "\r\n\r\n") << c.line;
        }
    }
}

TEST(FrameMessages, WarningsWaitForCheckLevelTwo) {
    Frame f(2, 1);
    f.Run("NODE 1 0 0 0 0 0\n");
    EXPECT_EQ(f.Run("NODE 1 0 0 5\nJOINT 70 0 0 0 1\nBOUNDINS 50 0 0 1\n"), 0);
    EXPECT_EQ(f.Messages(), 0) << f.log;
    EXPECT_EQ(f.node(1).GetX(), 5.0);
}

// The portal frame of the examples, read as a file; the values below are those of the drawing
// the file was typed from: feet at x = 0 and 12, column tops at z = 6, beam nodes 6 m apart.
TEST(FrameExamples, PortalFrameStandsAsDrawn) {
    Frame f;
    ASSERT_EQ(
        f.s.ReadCommandFile(std::string(KELO_SOURCE_DIR) + "/examples/portal_frame.inp", &f.log, 0),
        0);
    EXPECT_EQ(f.log, "");
    EXPECT_EQ(f.s.GetName(), "Portal frame");
    ASSERT_EQ(f.s.GetNodeList()->GetCount(), 5u);
    ExpectAt(f.node(1), 0, 0, 0);
    ExpectAt(f.node(2), 0, 0, 6);
    ExpectAt(f.node(3), 6, 0, 6);
    ExpectAt(f.node(4), 12, 0, 6);
    ExpectAt(f.node(5), 12, 0, 0);
    const int connectivity[4][2] = {{1, 2}, {2, 3}, {3, 4}, {4, 5}};
    ASSERT_EQ(f.s.GetElementList()->GetCount(), 4u);
    for (int i = 0; i < 4; ++i) {
        const CElement* e = f.elem(i + 1);
        ASSERT_NE(e, nullptr);
        EXPECT_EQ(e->GetNodeNo1(), connectivity[i][0]);
        EXPECT_EQ(e->GetNodeNo2(), connectivity[i][1]);
        EXPECT_NEAR(e->GetLength(), 6.0, 1e-12);
        EXPECT_EQ(e->GetDesignSectionList().GetCount(), 3u);
    }
    // Columns of section 1 with N along X, the beam of section 2 with N along Z.
    EXPECT_EQ(f.elem(1)->GetSectionNo(), 1);
    EXPECT_EQ(f.elem(4)->GetNDirCode(), 1);
    EXPECT_EQ(f.elem(2)->GetSectionNo(), 2);
    EXPECT_EQ(f.elem(3)->GetNDirCode(), 3);
    EXPECT_EQ(f.elem(3)->GetSectionPtr(), f.s.GetRefLinePtr(0)->GetKeySectionPtr(2));
    // Fixed feet, free tops, and the hinge at the right end of the beam.
    EXPECT_EQ(Fixity(f.node(1)), std::vector<int>(6, 1));
    EXPECT_EQ(Fixity(f.node(5)), std::vector<int>(6, 1));
    EXPECT_EQ(Fixity(f.node(3)), std::vector<int>(6, 0));
    EXPECT_EQ(f.elem(3)->GetJoint2(), 100.0);
    EXPECT_EQ(f.elem(3)->GetJoint1(), 0.0);
    EXPECT_EQ(f.elem(2)->GetJoint2(), 0.0);
    EXPECT_EQ(f.s.GetMemberPtr(2)->GetElementNoArray(), (std::vector<int>{2, 3}));
    EXPECT_EQ(f.elem(4)->GetMemberPtr(), f.s.GetMemberPtr(3));
    // The default model takes the whole frame at the end of the file.
    EXPECT_EQ(f.s.GetModelPtr(1)->GetElementNoArray(), (std::vector<int>{1, 2, 3, 4}));
}

// The faulty lines of the faults example leave the frame of its good lines as it was meant.
TEST(FrameExamples, FaultyLinesLeaveTheGoodFrameStanding) {
    Frame f;
    f.s.ReadCommandFile(std::string(KELO_SOURCE_DIR) + "/examples/frame_faults.inp", &f.log, 0);
    EXPECT_EQ(f.cmd().GetTotalErrors(), 9);
    ASSERT_EQ(f.s.GetNodeList()->GetCount(), 3u);
    ExpectAt(f.node(3), 10, 0, 0);
    ASSERT_EQ(f.s.GetElementList()->GetCount(), 3u);
    EXPECT_EQ(f.elem(3)->GetNodeNo1(), 1);
    EXPECT_EQ(f.elem(3)->GetNodeNo2(), 3);
    EXPECT_EQ(f.elem(1)->GetJoint2(), 0.0);
    EXPECT_EQ(f.s.GetKeySectionPtr(0, 1)->GetType(), 1);
    EXPECT_EQ(f.elem(2)->GetSectionNo(), 1);
    EXPECT_TRUE(f.elem(1)->GetMassList().IsEmpty());
    EXPECT_EQ(Fixity(f.node(1)), std::vector<int>(6, 1));
    EXPECT_EQ(f.s.GetModelPtr(2), nullptr);
}
