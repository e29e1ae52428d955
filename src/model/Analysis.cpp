#include "model/Analysis.h"

#include "model/AnalysisEngine.h"
#include "model/AnalysisRun.h"
#include "model/Structure.h"
#include "platform/Machine.h"
#include "platform/Sinks.h"
#include "platform/Text.h"
#include "store/MemResBase.h"

#include <algorithm>
#include <exception>
#include <functional>

namespace kelo {

namespace {

// The words of the log for the analysis types 1 to 8, misspellings as the log has always had them.
const char* const kTypeText[] = {"Ordinary static.", "Traffic.",         "Creep.",
                                 "Eigenvalue.",      "Dynamic wind.",    "EarthQuake.",
                                 "Euler buckling.",  "Lateral buckling."};

constexpr int kResultLoadcase = 1;

// Seconds since midnight of a local time (year, month, day, hour, minute, second).
int SecondOfDay(const std::array<int, 6>& t) { return t[3] * 3600 + t[4] * 60 + t[5]; }

// The x/l at which an element's axial force is read: its first design section's.
double AxialReadPosition(const CElement& e) {
    const auto& sections = e.GetDesignSectionList();
    return sections.IsEmpty() ? 0.0 : sections.At(0)->GetXoverL();
}

// The axial force (along M, kN) of the load case `lc` at the element's design section, from a
// result store; 0 when it is not there.
int ReadAxialForce(CMemResBase& store, const CElement& e, int lc, double& axial) {
    int a = 0, b = 0;
    double forces[6] = {};
    if (!store.SectionForceInBase(0, 0, 0, e.GetNo(), AxialReadPosition(e), kResultLoadcase, lc, a,
                                  b, forces))
        return 0;
    axial = forces[1];
    return 1;
}

void NoteChange(CStructure* s, int code, int action, int no) {
    auto id = std::make_unique<CId>(code, action);
    id->SetNo(1, s->GetNo());
    id->SetNo(2, no);
    id->SetActiveApp(s->ActiveApp());
    s->AddChange(s->ActiveApp(), std::move(id));
}

// The load cases of a run without a calculation group, by the analysis type.
void SelectLoadcases(const CStructure* s, int anType, CObList<CLoadcase>& out) {
    for (const CLoadcase* lc : *s->GetLoadcaseList()) {
        const int kind = lc->GetType();
        bool take = false;
        switch (anType) {
        case 1:
            take = kind == 1;
            break;
        case 2:
            take = kind == 2;
            break;
        case 3:
            take = kind == 4;
            break;
        case 5:
            take = kind == 3 || (kind == 1 && lc->GetDynamic() != 0);
            break;
        case 6:
            take = kind == 3 || kind == 2;
            break;
        default:
            break;
        }
        if (take) out.Add(std::make_unique<CLoadcase>(*lc));
    }
}

} // namespace

// ------------------------------------------------------------------------- calculation group

void CCalcGroup::AddLoadNo(int no) {
    if (std::find(LoadNoArray.begin(), LoadNoArray.end(), no) == LoadNoArray.end())
        LoadNoArray.push_back(no);
}

int CCalcGroup::GetNoOfModes() const {
    return LoadNoArray.empty() ? 0 : *std::max_element(LoadNoArray.begin(), LoadNoArray.end());
}

int CCalcGroup::ExpandCalcGroup(const CStructure* s, CObList<CLoadcase>& loadcases) const {
    if (!s) return 0;
    std::function<bool(const CLoadcase&)> take;
    switch (AnalysisType) {
    case 1:
        take = [](const CLoadcase& lc) { return lc.GetType() == 1; };
        break;
    case 2:
        take = [s](const CLoadcase& lc) {
            return s->GetTrafLoadPtr(lc.GetLoadcaseNo()) != nullptr && lc.GetTraffic() != 0;
        };
        break;
    case 3:
        take = [](const CLoadcase& lc) { return lc.GetType() == 4; };
        break;
    case 4:
    case 7:
    case 8:
        return GetNoOfModes() > 0 ? 1 : 0;
    case 5:
        take = [](const CLoadcase& lc) { return lc.GetDynamic() != 0; };
        break;
    case 6:
        take = [](const CLoadcase& lc) { return lc.GetDynamic() == 1; };
        break;
    default:
        return 0;
    }
    for (int no : LoadNoArray) {
        const CLoadcase* lc = s->GetLoadcasePtr(no);
        if (lc && take(*lc)) loadcases.Add(std::make_unique<CLoadcase>(*lc));
    }
    return 1;
}

// ------------------------------------------------------------------------- model checks

int CAnalysis::IsModelComplete(CAnalysisRun& run, CAnalysisEngine* engine, ProgressSink* w,
                               std::string* a, std::string* b) {
    if (w) w->SetText("Checking if model is complete!");
    std::string reported;
    int complete = run.IsModelComplete(&reported, b);
    if (complete && engine && engine->Provides(EAnalysisStage::ModelCheck))
        complete = engine->IsModelComplete(&reported, b);
    if (a) *a += reported;
    if (complete || reported.empty()) return 1;
    if (w) w->SetText("Error! Model is not complete!");
    return 0;
}

int CAnalysis::PreAnalsisRequired(const CObList<CElement>& elements) {
    for (const CElement* e : elements)
        for (const CAxial* a : e->GetAxialList())
            if (a->GetType() == 2) return 1;
    return 0;
}

int CAnalysis::RunPreAnalysis(CStructure* s, CObList<CElement>& elements, ProgressSink* w,
                              std::string* info) {
    if (!s) return 0;
    CModel* model = s->GetModelPtr(Model);
    if (!model) return 0;
    CMemResBase store(s);
    CCalcGroup group(0, "Pre-analysis axial force", 1);
    for (CElement* e : elements) {
        for (CAxial* a : e->GetAxialList()) {
            if (a->GetType() != 2) continue;
            a->SetAxialValue(0.0);
            if (a->GetLoadcaseFac() > 0.0) group.AddLoadNo(a->GetLoadcaseNo());
        }
    }

    CAnalysisRun run(s, this, model, &group);
    run.SetAnType(1);
    run.SetAnalysisNo(AnalysisNo);
    run.SetTendonsExternal(1);
    run.SetMemResBasePtr(&store);
    run.SetProgress(w);
    run.SetLog(info, nullptr);
    model->ExpandModel(s, run.GetElementList(), run.GetNodeList());
    group.ExpandCalcGroup(s, run.GetLoadcaseList());
    run.UpdatePointers();
    std::unique_ptr<CAnalysisEngine> engine = s->MakeAnalysisEngine(run);

    const struct {
        const char* text;
        EAnalysisStage stage;
        int (CAnalysisEngine::*call)();
    } stages[] = {
        {"Running pre-analysis", EAnalysisStage::SystemAnalysis,
         &CAnalysisEngine::RunSystemAnalysis},
        {"Calculating reaction forces!", EAnalysisStage::ReactionForces,
         &CAnalysisEngine::CalcReactionForces},
        {"Calculating section forces!", EAnalysisStage::SectionForces,
         &CAnalysisEngine::CalcSectionForces},
    };
    for (const auto& st : stages) {
        if (w) w->SetText(st.text);
        if (!engine || !engine->Provides(st.stage)) {
            run.Log(Format("Analysis stage not available: %s\r\n", AnalysisStageName(st.stage)));
            return 0;
        }
        if (!((*engine).*st.call)()) return 0;
    }

    for (CElement* e : elements) {
        for (CAxial* a : e->GetAxialList()) {
            if (a->GetType() != 2 || a->GetLoadcaseFac() <= 0.0) continue;
            double axial = 0.0;
            if (!ReadAxialForce(store, *e, a->GetLoadcaseNo(), axial)) return 0;
            a->SetAxialValue(a->GetLoadcaseFac() * axial);
        }
    }
    return 1;
}

int CAnalysis::LoadAxialForces(CStructure* s, CObList<CElement>& elements, ProgressSink* w,
                               std::string* errors) {
    if (!s) return 0;
    if (w) w->SetText("Load axial forces.");
    int missing = 0;
    for (CElement* e : elements) {
        for (CAxial* a : e->GetAxialList()) {
            if (a->GetType() != 3) continue;
            double axial = 0.0;
            if (ReadAxialForce(*s->GetResBasePtr(), *e, a->GetLoadcaseNo(), axial)) {
                a->SetAxialValue(a->GetLoadcaseFac() * axial);
                continue;
            }
            if (missing < 10 && errors)
                *errors += Format("%s%i%s%i\r\n",
                                  "Axial force results not found for element: ", e->GetNo(),
                                  ", loadcase no. ", a->GetLoadcaseNo());
            ++missing;
        }
        e->CalcAxialForce();
    }
    return missing == 0 ? 1 : 0;
}

// ------------------------------------------------------------------------- the run

int CAnalysis::RunAnalysis(CStructure* s, ProgressSink* progress, std::string* info,
                           std::string* errors, int batch) {
    if (!s) return 0;
    const int oldOption = s->SetMsgOption(1);
    int result = 0;
    try {
        result = Run(s, progress, info, errors, batch);
    } catch (const std::exception& e) {
        if (info) *info += Format("Analysis stopped: %s\r\nStatus: Failed!! \r\n", e.what());
        AnalysisStatus = -1;
        result = 0;
    }
    s->SetMsgOption(oldOption);
    return result;
}

int CAnalysis::Run(CStructure* s, ProgressSink* progress, std::string* info, std::string* errors,
                   int batch) {
    const auto start = GetMachine().LocalTime();
    auto log = [info](const std::string& text) {
        if (info) *info += text;
    };
    CModel* model = s->GetModelPtr(Model);
    CCalcGroup* group = FirstCalcGroup > 0 ? s->GetCalcGroupPtr(FirstCalcGroup) : nullptr;
    const int anType = group ? group->GetAnalysisType() : AnType;
    CMemResBase* store = s->GetResBasePtr();

    CAnalysisRun run(s, this, model, group);
    run.SetAnType(anType);
    run.SetAnalysisNo(AnalysisNo);
    run.SetBatch(batch);
    run.SetProgress(progress);
    run.SetLog(info, errors);
    std::unique_ptr<CAnalysisEngine> engine;

    log("\r\n\r\n***Analysis info***\r\n");

    // Every step answers whether the run goes on; the first that does not ends it as failed.
    auto stage = [&](EAnalysisStage st, const std::function<int(CAnalysisEngine&)>& call) {
        if (progress && progress->IsCancelled()) {
            log("Analysis cancelled!\r\n");
            return false;
        }
        if (!engine || !engine->Provides(st)) {
            log(Format("Analysis stage not available: %s\r\n", AnalysisStageName(st)));
            return false;
        }
        return call(*engine) != 0;
    };
    auto statistics = [&]() {
        log(Format("%-17s %5i \r\n", "Loadcase count:", run.GetRunStatistics(4)));
        log(Format("%-17s %5i \r\n", "Block size:", run.GetRunStatistics(2)));
        log(Format("%-17s %5i \r\n", "Block count:", run.GetRunStatistics(3)));
        log(Format("%-17s %5i \r\n", "Band width:", run.GetRunStatistics(1)));
        log(Format("%-17s %5i \r\n", "Eqation count:", run.GetRunStatistics(0)));
    };
    auto deleteOld = [&](const char* what, int no) {
        log(Format("%s %5i\r\n", what, no));
        store->DeleteCalcLoadcaseResults(no);
        if (CLoadcase* lc = s->GetLoadcasePtr(no)) lc->SetResults(0);
        NoteChange(s, 806, 99, no);
    };
    auto reactionsAndSections = [&](const char* reactionText, const char* sectionText) {
        log(reactionText);
        if (!stage(EAnalysisStage::ReactionForces,
                   [](CAnalysisEngine& e) { return e.CalcReactionForces(); }))
            return false;
        log(sectionText);
        return stage(EAnalysisStage::SectionForces,
                     [](CAnalysisEngine& e) { return e.CalcSectionForces(); });
    };
    auto staticRun = [&]() {
        log("Building system matrices!\r\n");
        if (!stage(EAnalysisStage::SystemAnalysis,
                   [](CAnalysisEngine& e) { return e.RunSystemAnalysis(); }))
            return false;
        statistics();
        if (!reactionsAndSections("Calculating reaction forces!\r\n",
                                  "Calculating section forces!\r\n"))
            return false;
        for (const CLoadcase* lc : run.GetLoadcaseList()) {
            if (CLoadcase* own = s->GetLoadcasePtr(lc->GetLoadcaseNo())) own->SetResults(1);
            NoteChange(s, 806, 5, lc->GetLoadcaseNo());
        }
        return true;
    };

    auto steps = [&]() -> bool {
        if (!model) {
            log(Format("Model no.   %3i, %s\r\n", Model, "is not defined!"));
            return false;
        }
        const int expanded = model->ExpandModel(s, run.GetElementList(), run.GetNodeList());
        if (group)
            group->ExpandCalcGroup(s, run.GetLoadcaseList());
        else
            SelectLoadcases(s, anType, run.GetLoadcaseList());
        run.SetMemResBasePtr(store);
        run.UpdatePointers();
        engine = s->MakeAnalysisEngine(run);

        log(Format("Anaysis no. %3i, %s\r\n", AnalysisNo, Name.c_str()));
        log(Format("Model no.   %3i, %s\r\n", model->GetModelNo(), model->GetModelName().c_str()));
        log(Format("Calc.gr no. %3i, %s\r\n", group ? group->GetCalcGroupNo() : 0,
                   group ? group->GetName().c_str() : ""));
        if (anType < 1 || anType > 8) {
            log(Format("Type: %i is not an analysis type!\r\n", anType));
            return false;
        }
        log(std::string("Type: ") + kTypeText[anType - 1] + "\r\n");
        if (model->GetCode() >= 1 && !expanded) {
            run.LogError(Format("Model no. %i refers to an element, node or section that is not "
                                "defined!\r\n",
                                model->GetModelNo()));
            return false;
        }

        log("Updating properties of all elements\r\n");
        if (engine && engine->Provides(EAnalysisStage::ElementProperties))
            engine->UpdateElementProperties();
        log("Finished updating properties of all elements\r\n");

        log("Checking if model is complete\r\n");
        std::string missing, more;
        if (!IsModelComplete(run, engine.get(), progress, &missing, &more)) {
            run.LogError(missing);
            return false;
        }
        log("Finished checking model\r\n");

        run.SetAnalysisSetupPtr(s->GetAnalysisSetupPtr(AnSetupNo));
        run.SetAnyResults(s->AnyResults());

        if (anType == 7 || anType == 8) {
            if (PreAnalsisRequired(run.GetElementList())) {
                log("Running pre-anlysis in order to find axial forces\r\n");
                if (!RunPreAnalysis(s, run.GetElementList(), progress, info)) return false;
            }
            log("Load axial forces.\r\n");
            std::string notFound;
            const int loaded = LoadAxialForces(s, run.GetElementList(), progress, &notFound);
            run.LogError(notFound);
            if (!loaded) return false;
        }

        switch (anType) {
        case 1:
        case 3: {
            for (const CLoadcase* lc : run.GetLoadcaseList()) {
                const CLoadcase* own = s->GetLoadcasePtr(lc->GetLoadcaseNo());
                if (own && own->GetResults() != 0)
                    deleteOld("Deleting old results for loadcase:", lc->GetLoadcaseNo());
            }
            if (anType == 1) return staticRun();
            // The creep step changes the loads of the run; they are put back after it.
            const CObList<CLoadcase> kept = run.GetLoadcaseList();
            if (!stage(EAnalysisStage::CreepPreparation,
                       [](CAnalysisEngine& e) { return e.PrepareCreepAnalysis(); }))
                return false;
            const bool done = staticRun();
            run.GetLoadcaseList() = kept;
            run.UpdatePointers();
            return done;
        }
        case 2: {
            std::vector<CTrafLoad*> loads;
            for (CTrafLoad* load : *s->GetTrafLoadList())
                if (run.GetLoadcaseList().Has(load->GetTrafLoadNo())) loads.push_back(load);
            for (const CTrafLoad* load : loads)
                for (int r = 0; r < 12; ++r)
                    deleteOld("Deleting old results for traf. loadcase:",
                              load->GetTrafLoadNo() + r);
            // One system per traffic line, solved for the unit load cases of its positions.
            std::vector<int> lines;
            for (const CTrafLoad* load : loads)
                if (std::find(lines.begin(), lines.end(), load->GetTrafLineNo()) == lines.end())
                    lines.push_back(load->GetTrafLineNo());
            for (int lineNo : lines) {
                CTrafLine* line = s->GetTrafLinePtr(lineNo);
                if (!line) {
                    run.LogError(Format("Traffic line number %i is not defined!\r\n", lineNo));
                    return false;
                }
                if (!stage(EAnalysisStage::TrafLineLoads,
                           [line](CAnalysisEngine& e) { return e.MakeTrafLineLoads(*line); }))
                    return false;
                run.UpdatePointers();
                log("Running traffic analysis!\r\n");
                if (!stage(EAnalysisStage::SystemAnalysis,
                           [](CAnalysisEngine& e) { return e.RunSystemAnalysis(); }))
                    return false;
                statistics();
                if (!reactionsAndSections("Calculating reaction forces: \nfor unit traffic "
                                          "loads.\r\n",
                                          "Calculating section forces: \n for unit traffic "
                                          "loads.\r\n"))
                    return false;
                for (CTrafLoad* load : loads) {
                    if (load->GetTrafLineNo() != lineNo) continue;
                    log(std::string("Calculating max and min forces: \nfor traffic load no: ") +
                        Format("%i  %s\r\n", load->GetTrafLoadNo(), load->GetName().c_str()));
                    if (!stage(EAnalysisStage::TrafSectForces,
                               [load](CAnalysisEngine& e) { return e.CalcTrafSectForces(*load); }))
                        return false;
                }
            }
            return true;
        }
        case 4: {
            model->SetNoOfModes(group ? group->GetNoOfModes() : model->GetNoOfModes());
            log(Format("%s %5i\r\n", "Deleting old modes for model:", model->GetModelNo()));
            model->GetEigenModeList().RemoveAll();
            store->DeleteEigenModeRes(model->GetModelNo());
            log("Building system matrices!\r\n");
            if (!stage(EAnalysisStage::SystemAnalysis,
                       [](CAnalysisEngine& e) { return e.RunSystemAnalysis(); }))
                return false;
            statistics();
            return true;
        }
        case 5:
        case 6: {
            for (const CLoadcase* lc : run.GetLoadcaseList())
                deleteOld("Deleting old results for dyn. loadcase:", lc->GetLoadcaseNo());
            if (anType == 5) {
                log("Running wind analysis!\r\n");
                if (!stage(EAnalysisStage::WindAnalysis,
                           [](CAnalysisEngine& e) { return e.WindAnalysis(); }))
                    return false;
            } else {
                log("Running earthquake analysis!\r\n");
                if (!stage(EAnalysisStage::EarthquakeAnalysis,
                           [](CAnalysisEngine& e) { return e.EarthquakeAnalysis(); }))
                    return false;
            }
            return reactionsAndSections("Calculating reaction forces!\r\n",
                                        "Calculating section forces!\r\n");
        }
        default: { // 7 and 8
            log(Format("%s %5i\r\n",
                       "Deleting old buckling modes for model:", model->GetModelNo()));
            model->GetBucklingModeList().RemoveAll();
            store->DeleteBucklingModeRes(model->GetModelNo());
            bool compression = false;
            for (const CElement* e : run.GetElementList())
                compression = compression || (e->GetNo() > 0 && e->CalcAxialForce() < 0.0);
            if (!compression) {
                log("Buckling analysis abortet. No elements in compression!\r\n");
                return false;
            }
            log("Building system matrices!\r\n");
            if (!stage(EAnalysisStage::BucklingAnalysis,
                       [](CAnalysisEngine& e) { return e.BRunSystemAnalysis(); }))
                return false;
            statistics();
            return true;
        }
        }
    };

    const bool completed = steps();

    for (int i = 0; i < 5; ++i) {
        RunStatistics[static_cast<std::size_t>(i)] = run.GetRunStatistics(i);
        // A temporary analysis of SOLVE is in no list: the project keeps its figures.
        if (AnalysisNo == 0) s->SetRunStatistics(i, run.GetRunStatistics(i));
    }
    AnalysisStatus = completed ? 1 : -1;
    const auto end = GetMachine().LocalTime();
    int seconds = SecondOfDay(end) - SecondOfDay(start);
    if (seconds < 0) seconds += 24 * 3600;
    AnDur = {0, 0, 0, seconds / 3600, seconds / 60 % 60, seconds % 60};
    AnalysisTime = seconds;
    log(completed ? "Status: Completed" : "Status: Failed!! ");
    log(Format(", Duration: %i%s%i%s%i\r\n", AnDur[3], ":", AnDur[4], ":", AnDur[5]));
    log(std::string("Current time: ") +
        Format(" %i%s%i%s%i\r\n", end[3], ":", end[4], ":", end[5]));
    return completed ? 1 : 0;
}

} // namespace kelo
