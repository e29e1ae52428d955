#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

#include <string>
#include <vector>

namespace kelo {

// A group of loads calculated together; AnalysisType has the codes of AnType. For eigenvalue
// and buckling types the array holds mode counts.
class CCalcGroup : public CObject {
public:
    CCalcGroup() = default;
    CCalcGroup(int no, std::string name, int type)
        : CalcGroupNo(no), Name(std::move(name)), AnalysisType(type) {}
    int KeyNo() const { return CalcGroupNo; }
    void AddLoadNo(int no) { LoadNoArray.push_back(no); }
    // The largest entry of the array.
    int GetNoOfModes() const;

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
    KELO_FIELD(int, AnalysisStatus, 0)
    KELO_FIELD(double, StartFreq, 0.0)
    KELO_FIELD(double, StopFreq, 0.0)
    KELO_FIELD(int, MaxNoOfIter, 0)
    KELO_FIELD(double, Threshold, 0.0)
    KELO_ARRAY_FIELD(int, AnDur, 6)
};

} // namespace kelo
