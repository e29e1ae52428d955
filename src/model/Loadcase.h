#pragma once

#include "model/DynLoad.h"
#include "platform/Field.h"
#include "platform/ObList.h"
#include "platform/Object.h"

#include <memory>
#include <string>

namespace kelo {

class CElement;

// One element load. Direction 1..6 is X, Y, Z (global) and L, M, N (local).
class CLoad : public CObject {
public:
    CLoad() = default;
    CLoad(int loadcaseNo, int elementNo, int type, int direction, double v1, double v2, double v3,
          double v4)
        : LoadcaseNo(loadcaseNo), ElementNo(elementNo), Type(type),
          Direction(direction), LoadValues{v1, v2, v3, v4} {}

    KELO_FIELD(int, LoadcaseNo, 0)
    KELO_FIELD(int, ElementNo, 0)
    KELO_FIELD(int, Type, 0)
    KELO_FIELD(int, Direction, 0)
    KELO_ARRAY_FIELD(double, LoadValues, 4)
    KELO_FIELD(CElement*, ElemPtr, nullptr)
};

// A load command as it was given, so that a regenerated file shows the input, not its expansion.
class CLoadInp : public CObject {
public:
    CLoadInp() = default;
    CLoadInp(int fromElemNo, int toElemNo, int elemInc, int type, int direction, double v1,
             double v2, double v3, double v4)
        : FromElemNo(fromElemNo), ToElemNo(toElemNo), ElemInc(elemInc), Type(type),
          Direction(direction), LoadValues{v1, v2, v3, v4} {}

    KELO_FIELD(int, FromElemNo, 0)
    KELO_FIELD(int, ToElemNo, 0)
    KELO_FIELD(int, ElemInc, 0)
    KELO_FIELD(int, Type, 0)
    KELO_FIELD(int, Direction, 0)
    KELO_ARRAY_FIELD(double, LoadValues, 4)
};

// A load case: type 1 ordinary, 2 traffic unit case, 3 dynamic, 4 creep.
class CLoadcase : public CObject {
public:
    CLoadcase() = default;
    CLoadcase(int no, std::string name) : LoadcaseNo(no), Name(std::move(name)) {}
    CLoadcase(const CLoadcase& other);
    CLoadcase& operator=(const CLoadcase&) = delete;

    int KeyNo() const { return LoadcaseNo; }

    void SetTraffic() { Traffic = 1; }
    void SetDynamic() { Dynamic = 1; }
    int GetTraffic() const { return Traffic; }
    int GetDynamic() const { return Dynamic; }

    CDynLoad* GetDynLoadPtr() const { return DynLoad.get(); }
    void SetDynLoadPtr(std::unique_ptr<CDynLoad> d) { DynLoad = std::move(d); }

    COwnedList<CLoad>& GetLoadList() { return LoadList; }
    const COwnedList<CLoad>& GetLoadList() const { return LoadList; }
    COwnedList<CLoadInp>& GetLoadInpList() { return LoadInpList; }
    const COwnedList<CLoadInp>& GetLoadInpList() const { return LoadInpList; }
    CLoad* AddLoad(std::unique_ptr<CLoad> load) { return LoadList.Add(std::move(load)); }

    KELO_FIELD(int, LoadcaseNo, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, Type, 1)
    KELO_FIELD(int, External, 0)
    KELO_FIELD(int, Active, 1)
    KELO_FIELD(int, LoadClass, 0)
    KELO_ARRAY_FIELD(double, SumAppForces, 6)
    KELO_ARRAY_FIELD(double, SumReaForces, 6)
    KELO_FIELD(int, Results, 0)

private:
    int Traffic = 0;
    int Dynamic = 0;
    std::unique_ptr<CDynLoad> DynLoad;
    COwnedList<CLoad> LoadList;
    COwnedList<CLoadInp> LoadInpList;
};

} // namespace kelo
