#pragma once

#include <functional>
#include <memory>
#include <string>

namespace kelo {

class CAnalysisRun;
class CTrafLine;
class CTrafLoad;

// The stages of a run that the frame solver carries out. The run driver (CAnalysis::RunAnalysis)
// fixes their order and what is done around them; the stages themselves belong to the engine.
enum class EAnalysisStage {
    ElementProperties,
    ModelCheck,
    SystemAnalysis,
    ReactionForces,
    SectionForces,
    TrafLineLoads,
    TrafSectForces,
    CreepPreparation,
    WindAnalysis,
    EarthquakeAnalysis,
    BucklingAnalysis,
    OrdCombinations,
    SortCombinations,
    SortLineCombinations,
};

// The name of a stage as the log gives it: the solver's own name of the routine.
const char* AnalysisStageName(EAnalysisStage stage);

// The solver of one run: made for one analysis run or one combination run by the project's
// engine factory, working on the run's expanded lists, and deleted at the end of the run.
//
// The driver asks `Provides` before it calls a stage. A stage the engine does not provide ends
// the run as failed, with a log line that names it; the two preparatory stages (element
// properties and the engine's own model check) are only run when provided, because the driver
// does its own check of the model and the element values are computed again where they are
// used. Each stage answers 1 for success and 0 for failure, and writes its results into the
// run's result store. RunSystemAnalysis and BRunSystemAnalysis leave the run statistics on the
// run (equations, band width, block size, block count, load cases).
class CAnalysisEngine {
public:
    CAnalysisEngine() = default;
    CAnalysisEngine(const CAnalysisEngine&) = delete;
    CAnalysisEngine& operator=(const CAnalysisEngine&) = delete;
    virtual ~CAnalysisEngine() = default;

    virtual bool Provides(EAnalysisStage stage) const = 0;

    // Section values of every element of the run, from its section.
    virtual int UpdateElementProperties() { return 0; }
    // The solver's own test of the model: text `a` tells what is missing.
    virtual int IsModelComplete(std::string* a, std::string* b) {
        (void)a;
        (void)b;
        return 0;
    }
    virtual int RunSystemAnalysis() { return 0; }
    virtual int CalcReactionForces() { return 0; }
    virtual int CalcSectionForces() { return 0; }
    // Replaces the run's load cases by the unit load cases of the positions of a traffic line.
    virtual int MakeTrafLineLoads(CTrafLine& line) {
        (void)line;
        return 0;
    }
    virtual int CalcTrafSectForces(CTrafLoad& load) {
        (void)load;
        return 0;
    }
    virtual int PrepareCreepAnalysis() { return 0; }
    virtual int WindAnalysis() { return 0; }
    virtual int EarthquakeAnalysis() { return 0; }
    virtual int BRunSystemAnalysis() { return 0; }
    virtual int ProsessOrdCombinations() { return 0; }
    virtual int ProsessSortCombinations() { return 0; }
    virtual int ProsessSortLineCombinations() { return 0; }
};

// Makes the engine of a run; an empty factory, or one that answers null, means that no stage is
// available.
using AnalysisEngineFactory = std::function<std::unique_ptr<CAnalysisEngine>(CAnalysisRun& run)>;

// The factory a new project starts with: the frame solver's.
AnalysisEngineFactory DefaultAnalysisEngineFactory();

} // namespace kelo
