#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kelo {

// A member: a named chain of elements designed together (the elements are not owned).
class CMember : public CObject {
public:
    CMember() = default;
    CMember(int no, int type, std::string name) : No(no), Type(type), Name(std::move(name)) {}
    int KeyNo() const { return No; }
    // Takes an element into the member once. Answers 1 when it was not there before.
    int AddElement(int elementNo) {
        if (std::find(ElementNoArray.begin(), ElementNoArray.end(), elementNo) !=
            ElementNoArray.end())
            return 0;
        ElementNoArray.push_back(elementNo);
        return 1;
    }
    void RemoveElement(int elementNo) {
        ElementNoArray.erase(std::remove(ElementNoArray.begin(), ElementNoArray.end(), elementNo),
                             ElementNoArray.end());
    }
    KELO_FIELD(int, No, 0)
    KELO_FIELD(int, Type, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(std::vector<int>, ElementNoArray, {})
};

// A stage of construction: elements born and terminated at given times (days).
class CConstrSeq : public CObject {
public:
    CConstrSeq() = default;
    int KeyNo() const { return No; }
    KELO_FIELD(int, No, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(double, Birth, 0.0)
    KELO_FIELD(double, Termination, 0.0)
    KELO_FIELD(std::vector<int>, ElemNoArray, {})
};

// How an analysis treats axial forces and accumulation of results.
class CAnalysisSetup : public CObject {
public:
    CAnalysisSetup() = default;
    int KeyNo() const { return No; }
    KELO_FIELD(int, No, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, IncludeAxial, 0)
    KELO_FIELD(int, AnOption, 0)
    KELO_FIELD(int, Accumulate, 0)
};

// An interval of numbers: from, to, step.
class CInterval : public CObject {
public:
    CInterval() = default;
    CInterval(int from, int to, int step) : From(from), To(to), Step(step) {}
    KELO_FIELD(int, From, 0)
    KELO_FIELD(int, To, 0)
    KELO_FIELD(int, Step, 1)
};

// A named selection of element intervals.
class CSelection : public CObject {
public:
    CSelection() = default;
    CSelection(int no, std::string name) : No(no), Name(std::move(name)) {}
    int KeyNo() const { return No; }
    std::vector<CInterval>& GetIntervalList() { return IntervalList; }
    const std::vector<CInterval>& GetIntervalList() const { return IntervalList; }
    void AddSelection(int from, int to, int step) { IntervalList.emplace_back(from, to, step); }
    KELO_FIELD(int, No, 0)
    KELO_FIELD(std::string, Name, "")

private:
    std::vector<CInterval> IntervalList;
};

} // namespace kelo
