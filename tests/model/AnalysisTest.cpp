#include "command/StructureCmd.h"
#include "model/AnalysisEngine.h"
#include "model/AnalysisRun.h"
#include "model/Displace.h"
#include "model/Structure.h"
#include "platform/Machine.h"
#include "store/MemResBase.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

using namespace kelo;

namespace {

// A frame of three elements along X (nodes 1 to 4 at x = 0, 5, 10, 15 m), each with design
// sections at x/l 0.5 and 1, a key section 2 on reference line 0, and the time of day fixed at
// 10:15:30 so that the log can be compared whole.
struct Project {
    Project() : machine(1ull << 32, {2024, 5, 6, 10, 15, 30}), s(2) {
        SetMachine(&machine);
        s.CreateDefaultContents(2, 0);
        for (int n = 1; n <= 5; ++n) s.AddNode(std::make_unique<CNode>(n, 5.0 * (n - 1), 0, 0));
        for (int e = 1; e <= 3; ++e) {
            auto element = std::make_unique<CElement>(e, e, e + 1, 0, 0);
            for (double x : {0.5, 1.0})
                element->GetDesignSectionList().Add(std::make_unique<CDesignSection>(x, 0, 0));
            s.AddElement(std::move(element));
        }
        s.GetRefLinePtr(0)->AddKeySection(std::make_unique<CKeySection>(2, "Pier", 2.0));
    }
    ~Project() { SetMachine(nullptr); }
    int Run(const std::string& text) {
        std::string t = text + "\r\n";
        return s.CommandConvert(&t, &log, 0);
    }
    FixedMachine machine;
    CStructure s;
    std::string log;
};

// What a run's engine was asked to do, in order.
struct Calls {
    std::vector<std::string> stages;
    int engines = 0;
};

// An engine that carries out the stages it is told to provide: the system analysis leaves
// statistics, the section forces are PM = -100 kN times the element number times the load case
// number at every design section, and each call is noted.
class FakeEngine : public CAnalysisEngine {
public:
    FakeEngine(CAnalysisRun& run, std::set<EAnalysisStage> provided, Calls& calls, int failing = -1)
        : m_run(run), m_provided(std::move(provided)), m_calls(calls), m_failing(failing) {
        ++m_calls.engines;
    }
    bool Provides(EAnalysisStage stage) const override { return m_provided.count(stage) != 0; }
    int UpdateElementProperties() override { return Note("properties"); }
    int IsModelComplete(std::string*, std::string*) override { return Note("check"); }
    int RunSystemAnalysis() override {
        const int stats[5] = {24, 12, 24, 1, static_cast<int>(m_run.GetLoadcaseList().GetCount())};
        for (int i = 0; i < 5; ++i) m_run.SetRunStatistics(i, stats[i]);
        return Note("system");
    }
    int CalcReactionForces() override { return Note("reactions"); }
    int CalcSectionForces() override {
        for (const CLoadcase* lc : m_run.GetLoadcaseList())
            for (const CElement* e : m_run.GetElementList())
                for (const CDesignSection* ds : e->GetDesignSectionList()) {
                    int a = 0, b = 0;
                    double f[6] = {0, -100.0 * e->GetNo() * lc->GetLoadcaseNo(), 0, 0, 0, 0};
                    m_run.GetMemResBasePtr()->SectionForceInBase(
                        0, 5, 0, e->GetNo(), ds->GetXoverL(), 1, lc->GetLoadcaseNo(), a, b, f);
                }
        return Note("sections");
    }
    int MakeTrafLineLoads(CTrafLine& line) override {
        return Note("unit loads of line " + std::to_string(line.GetTrafLineNo()));
    }
    int CalcTrafSectForces(CTrafLoad& load) override {
        return Note("traffic load " + std::to_string(load.GetTrafLoadNo()));
    }
    int BRunSystemAnalysis() override { return RunSystemAnalysis() && Note("buckling"); }

private:
    int Note(const std::string& what) {
        m_calls.stages.push_back(what);
        return static_cast<int>(m_calls.stages.size()) == m_failing ? 0 : 1;
    }
    CAnalysisRun& m_run;
    std::set<EAnalysisStage> m_provided;
    Calls& m_calls;
    int m_failing;
};

const std::set<EAnalysisStage> kAllStages = {
    EAnalysisStage::ElementProperties, EAnalysisStage::ModelCheck,
    EAnalysisStage::SystemAnalysis,    EAnalysisStage::ReactionForces,
    EAnalysisStage::SectionForces,     EAnalysisStage::TrafLineLoads,
    EAnalysisStage::TrafSectForces,    EAnalysisStage::BucklingAnalysis};

void Install(CStructure& s, Calls& calls, std::set<EAnalysisStage> provided = kAllStages,
             int failing = -1) {
    s.SetAnalysisEngineFactory([&calls, provided, failing](CAnalysisRun& run) {
        return std::make_unique<FakeEngine>(run, provided, calls, failing);
    });
}

const char* const kHead = "\r\n\r\n***Analysis info***\r\n"
                          "Anaysis no.   1, Static run\r\n"
                          "Model no.     1, Default All\r\n"
                          "Calc.gr no.   1, Dead\r\n"
                          "Type: Ordinary static.\r\n"
                          "Updating properties of all elements\r\n"
                          "Finished updating properties of all elements\r\n"
                          "Checking if model is complete\r\n"
                          "Finished checking model\r\n";

CAxial* AddAxial(CElement& e, int type, double value, int lc, double factor) {
    auto a = std::make_unique<CAxial>();
    a->SetElementNo(e.GetNo());
    a->SetType(type);
    a->SetAxialValue(value);
    a->SetLoadcaseNo(lc);
    a->SetLoadcaseFac(factor);
    return e.GetAxialList().Add(std::move(a));
}

} // namespace

TEST(ExpandModel, EachModificationTypeActsOnTheCopiesOnly) {
    Project p;
    auto model = std::make_unique<CModel>(2, "Girder");
    model->SetCode(1);
    model->SetElementNoArray({1, 2, 3});
    struct Mod {
        int type, first, last, step;
        double data[6];
    } mods[] = {
        {1, 1, 2, 1, {110001}},
        {2, 3, 0, 0, {2, 1}},
        {2, 4, 0, 0, {3, 2}}, // above 1: a slave of node 2
        {10, 1, 0, 0, {100000, 1}},
        {11, 2, 0, 0, {0, 2}},
        {20, 3, 0, 0, {3, 0, 1.5}},
        {20, 2, 0, 0, {3, 0, 0.5}},
        {21, 3, 0, 0, {4, 3, 2.0, 1.0}},
        {30, 3, 1, -1, {-500, 10, 20}}, // walked upward whatever the step's sign
        {31, 2, 0, 0, {-700}},
        {32, 3, 0, 0, {4, 1.2}},
        {33, 3, 1, -1, {5, 0.5}}, // walked downward: all three
        {33, 1, 3, -1, {6, 0.5}}, // against its direction: none
        {40, 1, 0, 0, {1, 2, 3, 4, 5}},
        {43, 2, 0, 0, {9}},
    };
    for (const Mod& m : mods) {
        auto mm = std::make_unique<CModelModify>();
        mm->SetModel(2);
        mm->SetType(m.type);
        mm->SetInterval(0, m.first);
        mm->SetInterval(1, m.last);
        mm->SetInterval(2, m.step);
        for (int i = 0; i < 6; ++i) mm->SetValues(i, m.data[i]);
        model->GetModelModifyList().Add(std::move(mm));
    }
    CModel* m = p.s.AddModel(std::move(model));

    CObList<CElement> elements;
    CObList<CNode> nodes;
    EXPECT_EQ(m->ExpandModel(&p.s, elements, nodes), 1);
    ASSERT_EQ(elements.GetCount(), 3u);
    ASSERT_EQ(nodes.GetCount(), 4u); // node 5 is used by no element of the model

    const int fix1[6] = {1, 1, 0, 0, 0, 1};
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(nodes.Get(1)->GetFix(i), fix1[i]) << i;
        EXPECT_EQ(nodes.Get(2)->GetFix(i), fix1[i]) << i;
    }
    EXPECT_EQ(nodes.Get(3)->GetFix(1), 1);
    EXPECT_EQ(nodes.Get(4)->GetFix(2), -2);
    EXPECT_EQ(p.s.GetNodePtr(1)->GetFix(0), 0); // the project's node is untouched

    const CElement* e1 = elements.Get(1);
    const CElement* e2 = elements.Get(2);
    const CElement* e3 = elements.Get(3);
    EXPECT_DOUBLE_EQ(e1->GetJoint1(), 100000.0);
    EXPECT_DOUBLE_EQ(e1->GetJoint2(), 1.0);
    EXPECT_EQ(e2->GetSectionNo(), 2);
    EXPECT_EQ(e2->GetSectionPtr(), p.s.GetRefLinePtr(0)->GetKeySectionPtr(2.0));
    EXPECT_EQ(p.s.GetElementPtr(2)->GetSectionPtr(), nullptr);

    ASSERT_EQ(e3->GetMassList().GetCount(), 1u); // type 21 replaced the mass of type 20
    EXPECT_EQ(e3->GetMassList().At(0)->GetType(), 4);
    EXPECT_EQ(e3->GetMassList().At(0)->GetDirection(), 3);
    EXPECT_DOUBLE_EQ(e3->GetMassList().At(0)->GetMassValues(1), 1.0);
    EXPECT_EQ(e2->GetMassList().GetCount(), 1u);

    // Element 1: 30 and 33. Element 2: 31 replaced its 30, then 33. Element 3: 32 replaced its
    // 30, then 33.
    ASSERT_EQ(e1->GetAxialList().GetCount(), 2u);
    EXPECT_DOUBLE_EQ(e1->GetAxialList().At(0)->GetAxialValue(), -500.0);
    EXPECT_DOUBLE_EQ(e1->GetAxialList().At(0)->GetMNValue(), 20.0);
    EXPECT_EQ(e1->GetAxialList().At(1)->GetType(), 3);
    EXPECT_EQ(e1->GetAxialList().At(1)->GetLoadcaseNo(), 5);
    ASSERT_EQ(e2->GetAxialList().GetCount(), 2u);
    EXPECT_DOUBLE_EQ(e2->GetAxialList().At(0)->GetAxialValue(), -700.0);
    ASSERT_EQ(e3->GetAxialList().GetCount(), 2u);
    EXPECT_EQ(e3->GetAxialList().At(0)->GetType(), 2);
    EXPECT_EQ(e3->GetAxialList().At(0)->GetLoadcaseNo(), 4);
    EXPECT_DOUBLE_EQ(e3->GetAxialList().At(0)->GetLoadcaseFac(), 1.2);
    EXPECT_TRUE(p.s.GetElementPtr(1)->GetAxialList().IsEmpty());

    for (int i = 0; i < 5; ++i) EXPECT_DOUBLE_EQ(e1->GetBucklingData(i), i + 1.0);
    EXPECT_DOUBLE_EQ(e2->GetBucklingData(2), 9.0);
    EXPECT_DOUBLE_EQ(e2->GetBucklingData(0), 0.0);
}

TEST(ExpandModel, MissingObjectsAndTheWholeProject) {
    Project p;
    auto model = std::make_unique<CModel>(2, "Part");
    model->SetCode(1);
    model->SetElementNoArray({1, 9});
    CModel* m = p.s.AddModel(std::move(model));
    CObList<CElement> elements;
    CObList<CNode> nodes;
    EXPECT_EQ(m->ExpandModel(&p.s, elements, nodes), 0);
    EXPECT_EQ(elements.GetCount(), 1u);
    EXPECT_EQ(nodes.GetCount(), 2u);

    m->SetElementNoArray({1});
    auto section = std::make_unique<CModelModify>();
    section->SetType(11);
    section->SetInterval(0, 1);
    section->SetValues(0, 0);
    section->SetValues(1, 99); // no such section
    m->GetModelModifyList().Add(std::move(section));
    EXPECT_EQ(m->ExpandModel(&p.s, elements, nodes), 0);

    // The default model covers the project without modifications, and answers 0.
    CModel* all = p.s.GetModelPtr(1);
    auto joint = std::make_unique<CModelModify>();
    joint->SetType(10);
    joint->SetInterval(0, 1);
    joint->SetValues(0, 111111);
    all->GetModelModifyList().Add(std::move(joint));
    EXPECT_EQ(all->ExpandModel(&p.s, elements, nodes), 0);
    EXPECT_EQ(elements.GetCount(), 3u);
    EXPECT_EQ(nodes.GetCount(), 5u);
    EXPECT_DOUBLE_EQ(elements.Get(1)->GetJoint1(), 0.0);
}

TEST(ExpandCalcGroup, EachTypeTakesItsKindOfLoadCase) {
    Project p;
    p.Run("LOAD 1 1 1 3 1 ZDIR 25\r\nCREEPCMB 1 1 1.0\r\nCREEPLC 2 1 3 1 1 28 1000\r\n"
          "EARTHQUA 3\r\nLOAD 4 1 1 3 1 ZDIR 10\r\nTRAFLINE 1 1 3 1\r\nTRAFLOAD 100 1");
    p.s.GetLoadcasePtr(4)->SetDynamic();
    const std::vector<int> listed = {1, 2, 3, 4, 100, 7};
    auto expand = [&](int type, std::vector<int> numbers, int& result) {
        CCalcGroup group(1, "G", type);
        for (int n : numbers) group.AddLoadNo(n);
        CObList<CLoadcase> cases;
        result = group.ExpandCalcGroup(&p.s, cases);
        std::vector<int> out;
        for (const CLoadcase* lc : cases) out.push_back(lc->GetLoadcaseNo());
        return out;
    };
    int r = -1;
    EXPECT_EQ(expand(1, listed, r), (std::vector<int>{1, 4}));
    EXPECT_EQ(r, 1);
    EXPECT_EQ(expand(2, listed, r), (std::vector<int>{100}));
    EXPECT_EQ(expand(3, listed, r), (std::vector<int>{2}));
    EXPECT_EQ(expand(5, listed, r), (std::vector<int>{3, 4}));
    EXPECT_EQ(expand(6, listed, r), (std::vector<int>{3, 4}));
    for (int type : {4, 7, 8}) {
        EXPECT_TRUE(expand(type, {6}, r).empty());
        EXPECT_EQ(r, 1);
        expand(type, {0}, r);
        EXPECT_EQ(r, 0);
    }
    EXPECT_TRUE(expand(9, listed, r).empty());
    EXPECT_EQ(r, 0);
}

// Without an engine ANSOLVE walks the run through expansion and the model check to its first
// stage, which is not there: the run fails, and the old results of its case are gone.
TEST(RunAnalysis, AnsolveEndsAtTheFirstMissingStage) {
    Project p;
    p.s.SetAnalysisEngineFactory({});
    p.Run("LOAD 1 1 1 3 1 ZDIR 25\r\nCALCGRP 1 STATIC 1 \"Dead\"\r\nANALYSIS 1 1 1 \"Static "
          "run\"");
    p.s.GetLoadcasePtr(1)->SetResults(1);
    CDisplace old(2, 1, 1, 0, 0, -0.01, 0, 0, 0);
    p.s.GetResBasePtr()->NodeDisplaceInBase(0, 5, 0, 2, 1, 1, &old);
    p.log.clear();
    EXPECT_EQ(p.Run("ANSOLVE 1"), 0);
    EXPECT_EQ(p.log, std::string(kHead) + "Deleting old results for loadcase:     1\r\n"
                                          "Building system matrices!\r\n"
                                          "Analysis stage not available: RunSystemAnalysis\r\n"
                                          "Status: Failed!! , Duration: 0:0:0\r\n"
                                          "Current time:  10:15:30\r\n");
    EXPECT_EQ(p.s.GetAnalysisPtr(1)->GetAnalysisStatus(), -1);
    EXPECT_EQ(p.s.GetLoadcasePtr(1)->GetResults(), 0);
    CDisplace d;
    EXPECT_EQ(p.s.GetResBasePtr()->NodeDisplaceInBase(0, 0, 0, 2, 1, 1, &d), 0);
    EXPECT_EQ(p.s.GetMsgOption(), 0);

    // The group's type wins over the analysis's.
    p.Run("CALCGRP 2 EIGEN 4 \"Modes\"\r\nANALYSIS 2 1 2");
    p.s.GetAnalysisPtr(2)->SetAnType(1);
    p.s.GetCalcGroupPtr(2)->SetAnalysisType(4);
    p.log.clear();
    p.Run("ANSOLVE 2");
    EXPECT_NE(p.log.find("Type: Eigenvalue.\r\n"), std::string::npos);
    EXPECT_NE(p.log.find("Deleting old modes for model:     1\r\n"), std::string::npos);
    EXPECT_EQ(p.s.GetModelPtr(1)->GetNoOfModes(), 4);
}

TEST(RunAnalysis, CompletedStaticRunWithAnEngine) {
    Project p;
    Calls calls;
    Install(p.s, calls);
    p.Run("LOAD 1 1 1 3 1 ZDIR 25\r\nLOAD 2 4 2 0 0 ZDIR -100 2\r\nCALCGRP 1 STATIC 1 \"Dead\""
          "\r\nANALYSIS 1 1 1 \"Static run\"");
    p.log.clear();
    EXPECT_EQ(p.Run("ANSOLVE -1"), 0);
    EXPECT_EQ(p.log, std::string(kHead) + "Building system matrices!\r\n"
                                          "Loadcase count:       1 \r\n"
                                          "Block size:          24 \r\n"
                                          "Block count:          1 \r\n"
                                          "Band width:          12 \r\n"
                                          "Eqation count:       24 \r\n"
                                          "Calculating reaction forces!\r\n"
                                          "Calculating section forces!\r\n"
                                          "Status: Completed, Duration: 0:0:0\r\n"
                                          "Current time:  10:15:30\r\n");
    EXPECT_EQ(calls.stages,
              (std::vector<std::string>{"properties", "check", "system", "reactions", "sections"}));
    EXPECT_EQ(p.s.GetAnalysisPtr(1)->GetAnalysisStatus(), 1);
    EXPECT_EQ(p.s.GetAnalysisPtr(1)->GetRunStatistics(0), 24);
    EXPECT_EQ(p.s.GetLoadcasePtr(1)->GetResults(), 1);
    EXPECT_EQ(p.s.GetLoadcasePtr(2)->GetResults(), 0); // not in the group
    int a = 0, b = 0;
    double f[6] = {};
    ASSERT_EQ(p.s.GetResBasePtr()->SectionForceInBase(0, 0, 0, 3, 0.5, 1, 1, a, b, f), 1);
    EXPECT_DOUBLE_EQ(f[1], -300.0);
}

TEST(RunAnalysis, AStageThatFailsOrIsMissingEndsTheRun) {
    {
        Project p;
        Calls calls;
        Install(p.s, calls, {EAnalysisStage::SystemAnalysis});
        p.Run("LOAD 1 1 1 3 1 ZDIR 25\r\nCALCGRP 1 STATIC 1\r\nANALYSIS 1");
        p.log.clear();
        p.Run("ANSOLVE 1");
        EXPECT_NE(p.log.find("Eqation count:       24 \r\nCalculating reaction forces!\r\n"
                             "Analysis stage not available: CalcReactionForces\r\n"
                             "Status: Failed!! "),
                  std::string::npos)
            << p.log;
        EXPECT_EQ(calls.stages, (std::vector<std::string>{"system"}));
    }
    {
        // The system analysis answers 0: no statistics are printed.
        Project p;
        Calls calls;
        Install(p.s, calls, kAllStages, 3);
        p.Run("LOAD 1 1 1 3 1 ZDIR 25\r\nCALCGRP 1 STATIC 1\r\nANALYSIS 1");
        p.log.clear();
        p.Run("ANSOLVE 1");
        EXPECT_NE(p.log.find("Building system matrices!\r\nStatus: Failed!! "), std::string::npos)
            << p.log;
    }
}

TEST(RunAnalysis, ModelThatIsNotCompleteOrNotThere) {
    Project p;
    p.s.AddElement(std::make_unique<CElement>(5, 4, 99, 0, 0));
    p.s.GetNodePtr(3)->SetFix(0, -42);
    p.Run("LOAD 1 1 1 3 1 ZDIR 25\r\nCALCGRP 1 STATIC 1\r\nANALYSIS 1");
    p.log.clear();
    p.Run("ANSOLVE 1");
    EXPECT_NE(p.log.find("Checking if model is complete\r\n"
                         "Element 5: node 99 is not in the model!\r\n"
                         "Node 3: master node 42 is not in the model!\r\n"
                         "Status: Failed!! "),
              std::string::npos)
        << p.log;

    // A model of a list naming an element that is not there.
    auto model = std::make_unique<CModel>(2, "Part");
    model->SetCode(1);
    model->SetElementNoArray({1, 8});
    p.s.AddModel(std::move(model));
    p.Run("ANALYSIS 2 2 1");
    p.log.clear();
    p.Run("ANSOLVE 2");
    EXPECT_NE(p.log.find("Type: Ordinary static.\r\n"
                         "Model no. 2 refers to an element, node or section that is not "
                         "defined!\r\nStatus: Failed!! "),
              std::string::npos)
        << p.log;

    // An analysis whose model went away.
    p.s.GetAnalysisPtr(2)->SetModel(7);
    p.log.clear();
    p.Run("ANSOLVE 2");
    EXPECT_NE(p.log.find("***Analysis info***\r\nModel no.     7, is not defined!\r\n"
                         "Status: Failed!! "),
              std::string::npos)
        << p.log;
}

TEST(RunAnalysis, TrafficRunPerLineAndLoad) {
    Project p;
    Calls calls;
    Install(p.s, calls);
    p.Run("TRAFLINE 1 1 3 1 0 1.0\r\nTRAFLOAD 100 1 1 1 ZDIR 9 \"LM1\"\r\n"
          "CALCGRP 1 TRAFFIC 100 \"Lanes\"\r\nANALYSIS 1 1 1 \"Traffic\"");
    p.log.clear();
    p.Run("ANSOLVE 1");
    std::string deleted;
    for (int no = 100; no < 112; ++no)
        deleted += "Deleting old results for traf. loadcase:   " + std::to_string(no) + "\r\n";
    EXPECT_NE(p.log.find("Type: Traffic.\r\n"), std::string::npos);
    EXPECT_NE(p.log.find("Finished checking model\r\n" + deleted + "Running traffic analysis!\r\n"),
              std::string::npos)
        << p.log;
    EXPECT_NE(p.log.find("Calculating reaction forces: \nfor unit traffic loads.\r\n"
                         "Calculating section forces: \n for unit traffic loads.\r\n"
                         "Calculating max and min forces: \nfor traffic load no: 100  LM1\r\n"
                         "Status: Completed"),
              std::string::npos)
        << p.log;
    EXPECT_EQ(calls.stages,
              (std::vector<std::string>{"properties", "check", "unit loads of line 1", "system",
                                        "reactions", "sections", "traffic load 100"}));
}

// Buckling takes its axial forces from the axial lists: given values, a pre-analysis of the
// model for type 2 entries (the fake engine gives PM = -100 kN x element x case), and stored
// results for type 3 entries.
TEST(RunAnalysis, BucklingPreparesItsAxialForces) {
    Project p;
    Calls calls;
    Install(p.s, calls);
    p.Run("LOAD 1 1 1 3 1 ZDIR 25\r\nCALCGRP 1 BUCKL 2 \"Euler\"\r\nANALYSIS 1 1 1 \"Buckling\"");
    CElement* e2 = p.s.GetElementPtr(2);
    CElement* e3 = p.s.GetElementPtr(3);
    AddAxial(*e2, 2, 0.0, 1, 2.0);
    AddAxial(*e3, 3, 0.0, 1, 0.5);
    int a = 0, b = 0;
    double given[6] = {0, -80.0, 0, 0, 0, 0};
    p.s.GetResBasePtr()->SectionForceInBase(0, 5, 0, 3, 0.5, 1, 1, a, b, given);
    p.log.clear();
    p.Run("ANSOLVE 1");
    EXPECT_NE(p.log.find("Finished checking model\r\n"
                         "Running pre-anlysis in order to find axial forces\r\n"
                         "Load axial forces.\r\n"
                         "Deleting old buckling modes for model:     1\r\n"
                         "Building system matrices!\r\n"),
              std::string::npos)
        << p.log;
    EXPECT_NE(p.log.find("Status: Completed"), std::string::npos) << p.log;
    EXPECT_EQ(calls.engines, 2); // the pre-analysis has an engine of its own
    EXPECT_EQ(calls.stages, (std::vector<std::string>{"properties", "check", "system", "reactions",
                                                      "sections", "system", "buckling"}));
    // The project's own elements keep their entries as they were; the run worked on copies.
    EXPECT_DOUBLE_EQ(e2->GetAxialList().At(0)->GetAxialValue(), 0.0);

    // The same entries read directly: -200 x 2 from the pre-analysis, -80 x 0.5 from results.
    CObList<CElement> copies = *p.s.GetElementList();
    CAnalysis* analysis = p.s.GetAnalysisPtr(1);
    ASSERT_EQ(analysis->RunPreAnalysis(&p.s, copies, nullptr, nullptr), 1);
    std::string errors;
    ASSERT_EQ(analysis->LoadAxialForces(&p.s, copies, nullptr, &errors), 1);
    EXPECT_DOUBLE_EQ(copies.Get(2)->CalcAxialForce(), -400.0);
    EXPECT_DOUBLE_EQ(copies.Get(3)->CalcAxialForce(), -40.0);
    EXPECT_EQ(errors, "");

    // A result that is not there is told, and the run fails.
    AddAxial(*e3, 3, 0.0, 9, 1.0);
    p.log.clear();
    p.Run("ANSOLVE 1");
    EXPECT_NE(p.log.find("Load axial forces.\r\n"
                         "Axial force results not found for element: 3, loadcase no. 9\r\n"
                         "Status: Failed!! "),
              std::string::npos)
        << p.log;
}

TEST(RunAnalysis, BucklingNeedsCompressionAndStaticRunsMakeNoPreAnalysis) {
    Project p;
    Calls calls;
    Install(p.s, calls);
    p.Run("LOAD 1 1 1 3 1 ZDIR 25\r\nCALCGRP 1 BUCKL 2\r\nANALYSIS 1 1 1\r\n"
          "CALCGRP 2 STATIC 1\r\nANALYSIS 2 1 2");
    AddAxial(*p.s.GetElementPtr(1), 1, 250.0, 0, 1.0); // tension
    AddAxial(*p.s.GetElementPtr(2), 2, 0.0, 1, 1.0);
    p.log.clear();
    p.Run("ANSOLVE 2");
    EXPECT_EQ(p.log.find("pre-anlysis"), std::string::npos);
    EXPECT_EQ(calls.engines, 1);

    p.s.GetElementPtr(2)->GetAxialList().RemoveAll();
    p.log.clear();
    p.Run("ANSOLVE 1");
    EXPECT_NE(p.log.find("Deleting old buckling modes for model:     1\r\n"
                         "Buckling analysis abortet. No elements in compression!\r\n"
                         "Status: Failed!! "),
              std::string::npos)
        << p.log;
}

// The engine's own model check counts only when it says what is missing.
TEST(RunAnalysis, IsModelCompleteCountsOnlyWhatIsReported) {
    Project p;
    Calls calls;
    CAnalysis analysis(1, "A");
    CAnalysisRun run(&p.s, &analysis, p.s.GetModelPtr(1), nullptr);
    p.s.GetModelPtr(1)->ExpandModel(&p.s, run.GetElementList(), run.GetNodeList());
    FakeEngine silent(run, {EAnalysisStage::ModelCheck}, calls, 1);
    std::string a, b;
    EXPECT_EQ(CAnalysis::IsModelComplete(run, &silent, nullptr, &a, &b), 1);
    EXPECT_EQ(a, "");
    run.GetNodeList().Delete(4);
    EXPECT_EQ(CAnalysis::IsModelComplete(run, nullptr, nullptr, &a, &b), 0);
    EXPECT_EQ(a, "Element 3: node 4 is not in the model!\r\n");
}
