#pragma once

#include "platform/Field.h"
#include "platform/ObList.h"
#include "platform/Object.h"

#include <string>
#include <vector>

namespace kelo {

// A factor on a case in a combination. Code says what No refers to: LC 1 load case,
// OC 2 ordinary combination, TL 3 traffic load, SC 4 sorted combination, SCL 5 combination line.
class CLoadfact : public CObject {
public:
    CLoadfact() = default;
    CLoadfact(int no, int code, double fact) : No(no), Code(code), Fact(fact) {}

    KELO_FIELD(int, No, 0)
    KELO_FIELD(int, Code, 1)
    KELO_FIELD(double, Fact, 0.0)
};

// The list of factors of a combination.
class CLoadfactList {
public:
    // A factor of a number and code already present adds to it.
    void AddSumming(int no, int code, double fact);
    // Always a new entry, as sorted combinations want.
    void AddNew(int no, int code, double fact) { List.Emplace(no, code, fact); }
    const COwnedList<CLoadfact>& GetList() const { return List; }
    COwnedList<CLoadfact>& GetList() { return List; }

private:
    COwnedList<CLoadfact> List;
};

// An ordinary load combination: a sum of factored cases.
class CLoadcomb : public CObject {
public:
    CLoadcomb() = default;
    CLoadcomb(int no, std::string name, int limitState)
        : LoadcombNo(no), Name(std::move(name)), LimitState(limitState) {}
    int KeyNo() const { return LoadcombNo; }
    CLoadfactList& GetLoadfacts() { return Loadfacts; }
    const CLoadfactList& GetLoadfacts() const { return Loadfacts; }
    void AddLoadfact(int no, int code, double fact) { Loadfacts.AddSumming(no, code, fact); }

    KELO_FIELD(int, LoadcombNo, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, LimitState, 1)
    KELO_FIELD(int, External, 0)
    KELO_FIELD(int, BucklDes, 0)
    KELO_FIELD(int, BucklModel, 0)
    KELO_ARRAY_FIELD(double, SumAppForces, 6)
    KELO_ARRAY_FIELD(double, SumReaForces, 6)

private:
    CLoadfactList Loadfacts;
};

// A sorted combination: the governing sets of its cases by a combination method.
class CSortComb : public CObject {
public:
    CSortComb() = default;
    CSortComb(int no, std::string name, int limitState, int method)
        : SortCombNo(no), Name(std::move(name)), LimitState(limitState), CombMethod(method) {}
    int KeyNo() const { return SortCombNo; }
    CLoadfactList& GetLoadfacts() { return Loadfacts; }
    const CLoadfactList& GetLoadfacts() const { return Loadfacts; }
    void AddLoadfact(int no, int code, double fact) { Loadfacts.AddNew(no, code, fact); }

    KELO_FIELD(int, SortCombNo, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, LimitState, 1)
    KELO_FIELD(int, CombMethod, 0)
    KELO_FIELD(int, BucklDes, 0)
    KELO_FIELD(int, BucklModel, 0)

private:
    CLoadfactList Loadfacts;
};

// A sorted combination applied along a line of elements.
class CSortCombLine : public CObject {
public:
    CSortCombLine() = default;
    CSortCombLine(int no, std::string name) : SortCombLineNo(no), Name(std::move(name)) {}
    int KeyNo() const { return SortCombLineNo; }
    void AddElementNo(int no) { ElementNoArray.push_back(no); }

    KELO_FIELD(int, SortCombLineNo, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, LimitState, 1)
    KELO_FIELD(int, CalcCode, 0)
    KELO_ARRAY_FIELD(int, SortCombInterval, 3)
    KELO_FIELD(std::vector<int>, ElementNoArray, {})
    KELO_FIELD(int, BucklDes, 0)
    KELO_FIELD(int, BucklModel, 0)
};

// A combination of load cases whose sum creeps; its factors all have code 1.
class CCreepComb : public CObject {
public:
    CCreepComb() = default;
    CCreepComb(int no, std::string name) : CreepCombNo(no), Name(std::move(name)) {}
    int KeyNo() const { return CreepCombNo; }
    CLoadfactList& GetLoadfacts() { return Loadfacts; }
    const CLoadfactList& GetLoadfacts() const { return Loadfacts; }

    KELO_FIELD(int, CreepCombNo, 0)
    KELO_FIELD(std::string, Name, "")

private:
    CLoadfactList Loadfacts;
};

} // namespace kelo
