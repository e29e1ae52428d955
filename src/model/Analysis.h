#pragma once

#include "frame/Element.h"
#include "model/Loadcase.h"
#include "platform/Field.h"
#include "platform/ObList.h"
#include "platform/Object.h"

#include <string>
#include <vector>

namespace kelo {

class CStructure;
class CAnalysisRun;
class CAnalysisEngine;
class ProgressSink;

// A group of loads calculated together; AnalysisType has the codes of AnType. For eigenvalue
// and buckling types the array holds mode counts.
class CCalcGroup : public CObject {
public:
    CCalcGroup() = default;
    CCalcGroup(int no, std::string name, int type)
        : CalcGroupNo(no), Name(std::move(name)), AnalysisType(type) {}
    int KeyNo() const { return CalcGroupNo; }
    // A number already in the array is not added again.
    void AddLoadNo(int no);
    // The largest entry of the array.
    int GetNoOfModes() const;
    // Copies into `loadcases` the project's load cases of the group that its type can run: type 1
    // ordinary cases, 2 traffic loads, 3 creep cases, 5 dynamic cases, 6 dynamic cases of flag 1.
    // Types 4, 7 and 8 copy nothing and answer 1 when a mode count above 0 is given; an unknown
    // type answers 0, the others 1.
    int ExpandCalcGroup(const CStructure* s, CObList<CLoadcase>& loadcases) const;

    KELO_FIELD(int, CalcGroupNo, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, AnalysisType, 1)
    KELO_FIELD(std::vector<int>, LoadNoArray, {})
};

// An analysis: a model, a range of calculation groups and an analysis type
// (1 static, 2 traffic, 3 creep, 4 eigenvalue, 5 dynamic wind, 6 earthquake, 7 Euler buckling,
// 8 lateral buckling).
class CAnalysis : public CObject {
public:
    CAnalysis() = default;
    CAnalysis(int no, std::string name) : AnalysisNo(no), Name(std::move(name)) {}
    int KeyNo() const { return AnalysisNo; }

    // Runs the analysis on the project: expands the model and the calculation group, checks the
    // model, and runs the stages of the type through the project's analysis engine, with the run
    // written to `info` and the reasons of a failure to `errors` (to `info` when null). The log
    // ends "Status: Completed" or "Status: Failed!! " with the duration. Answers 1 when the run
    // finished, 0 otherwise; never throws.
    int RunAnalysis(CStructure* s, ProgressSink* progress, std::string* info, std::string* errors,
                    int batch);
    // The run's own check of the model and, when it has one, the engine's. Answers 0 only when a
    // failure was reported in `a`.
    static int IsModelComplete(CAnalysisRun& run, CAnalysisEngine* engine, ProgressSink* w,
                               std::string* a, std::string* b);
    // 1 when an element has an axial force to be found by a pre-analysis (type 2).
    static int PreAnalsisRequired(const CObList<CElement>& elements);
    // Finds the axial forces of type 2 by a static run of this analysis's model on the load cases
    // that they name, with a store of its own. Answers 0 when a stage is missing or fails, or a
    // result is missing.
    int RunPreAnalysis(CStructure* s, CObList<CElement>& elements, ProgressSink* w,
                       std::string* info);
    // Reads the axial forces of type 3 from the project's load case results. Missing results are
    // told in `errors`, the first ten of them, and answer 0.
    int LoadAxialForces(CStructure* s, CObList<CElement>& elements, ProgressSink* w,
                        std::string* errors);

    KELO_FIELD(int, AnalysisNo, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, AnType, 1)
    KELO_FIELD(int, Model, 1)
    KELO_FIELD(int, AnalysisTime, 0)
    KELO_FIELD(int, FirstCalcGroup, 1)
    KELO_FIELD(int, LastCalcGroup, 1)
    KELO_FIELD(int, StepCalcGroup, 1)
    KELO_FIELD(int, AnSetupNo, 0)
    KELO_ARRAY_FIELD(int, RunStatistics, 5)
    // 0 not run, 1 completed, -1 failed.
    KELO_FIELD(int, AnalysisStatus, 0)
    KELO_FIELD(double, StartFreq, 0.0)
    KELO_FIELD(double, StopFreq, 0.0)
    KELO_FIELD(int, MaxNoOfIter, 0)
    KELO_FIELD(double, Threshold, 0.0)
    KELO_ARRAY_FIELD(int, AnDur, 6)

private:
    int Run(CStructure* s, ProgressSink* progress, std::string* info, std::string* errors,
            int batch);
};

} // namespace kelo
