#pragma once

#include "frame/Element.h"
#include "model/Loadcase.h"
#include "model/Node.h"
#include "platform/ObList.h"

#include <array>
#include <string>

namespace kelo {

class CStructure;
class CAnalysis;
class CAnalysisSetup;
class CCalcGroup;
class CMemResBase;
class CModel;
class ProgressSink;

// The working state of one analysis run or combination run: the expanded copies of the model's
// elements and nodes and of the load cases of the calculation group, and what the stages share
// (type, result store, setup, statistics, log). The project's own lists are not touched by the
// stages; results go to the result store.
class CAnalysisRun {
public:
    // `analysis` may be a temporary one that is in no list; `model` and `group` may be null.
    CAnalysisRun(CStructure* structure, CAnalysis* analysis, CModel* model, CCalcGroup* group);
    CAnalysisRun(const CAnalysisRun&) = delete;
    CAnalysisRun& operator=(const CAnalysisRun&) = delete;

    CStructure* GetStructure() const { return Structure; }
    CAnalysis* GetAnalysis() const { return Analysis; }
    CModel* GetModel() const { return Model; }
    CCalcGroup* GetCalcGroup() const { return CalcGroup; }

    CObList<CElement>& GetElementList() { return ElementList; }
    const CObList<CElement>& GetElementList() const { return ElementList; }
    CObList<CNode>& GetNodeList() { return NodeList; }
    const CObList<CNode>& GetNodeList() const { return NodeList; }
    CObList<CLoadcase>& GetLoadcaseList() { return LoadcaseList; }
    const CObList<CLoadcase>& GetLoadcaseList() const { return LoadcaseList; }

    // Node pointers of the elements and element pointers of masses, axial forces and loads, to
    // the run's own copies.
    void UpdatePointers();
    // What the run itself can tell about its model: every node an element names, and every
    // master node of a slave, must be among the run's nodes. Each fault is told in `a`; the
    // answer is 0 when there was one. `b` is left for the engine's own check.
    int IsModelComplete(std::string* a, std::string* b) const;

    CMemResBase* GetMemResBasePtr() const { return MemResBase; }
    void SetMemResBasePtr(CMemResBase* store) { MemResBase = store; }
    CAnalysisSetup* GetAnalysisSetupPtr() const { return AnalysisSetup; }
    void SetAnalysisSetupPtr(CAnalysisSetup* setup) { AnalysisSetup = setup; }
    ProgressSink* GetProgress() const { return Progress; }
    void SetProgress(ProgressSink* progress) { Progress = progress; }

    int GetAnType() const { return AnType; }
    void SetAnType(int type) { AnType = type; }
    int GetAnalysisNo() const { return AnalysisNo; }
    void SetAnalysisNo(int no) { AnalysisNo = no; }
    int GetBatch() const { return Batch; }
    void SetBatch(int batch) { Batch = batch; }
    // Set for the pre-analysis of axial forces, which takes tendons as external loads.
    int GetTendonsExternal() const { return TendonsExternal; }
    void SetTendonsExternal(int v) { TendonsExternal = v; }
    int GetAnyResults() const { return AnyResults; }
    void SetAnyResults(int v) { AnyResults = v; }

    // Equations, band width, block size, block count, load cases.
    int GetRunStatistics(int i) const { return i >= 0 && i < 5 ? RunStatistics[i] : 0; }
    void SetRunStatistics(int i, int v) {
        if (i >= 0 && i < 5) RunStatistics[i] = v;
    }

    // The run's log and its error text; either may be null.
    void SetLog(std::string* info, std::string* errors) {
        Info = info;
        Errors = errors;
    }
    void Log(const std::string& text) const;
    void LogError(const std::string& text) const;
    std::string* GetInfo() const { return Info; }

private:
    CStructure* Structure;
    CAnalysis* Analysis;
    CModel* Model;
    CCalcGroup* CalcGroup;
    CObList<CElement> ElementList;
    CObList<CNode> NodeList;
    CObList<CLoadcase> LoadcaseList;
    CMemResBase* MemResBase = nullptr;
    CAnalysisSetup* AnalysisSetup = nullptr;
    ProgressSink* Progress = nullptr;
    int AnType = 1;
    int AnalysisNo = 0;
    int Batch = 1;
    int TendonsExternal = 0;
    int AnyResults = 0;
    std::array<int, 5> RunStatistics{};
    std::string* Info = nullptr;
    std::string* Errors = nullptr;
};

} // namespace kelo
