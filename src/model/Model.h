#pragma once

#include "platform/Field.h"
#include "platform/ObList.h"
#include "platform/Object.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kelo {

// One modification of a model: its type (1, 2, 10, 11, 20, 21, 30..33, 40..45), an interval of
// numbers (first, last, step) and up to six values.
class CModelModify : public CObject {
public:
    CModelModify() = default;
    KELO_FIELD(int, Model, 0)
    KELO_FIELD(int, Type, 0)
    KELO_ARRAY_FIELD(int, Interval, 3)
    KELO_ARRAY_FIELD(double, Values, 6)
};

// A mode shape of a model: its number, frequency and, for buckling, its load factor.
class CModeRecord : public CObject {
public:
    CModeRecord() = default;
    CModeRecord(int no, double value) : No(no), Value(value) {}
    int KeyNo() const { return No; }
    KELO_FIELD(int, No, 0)
    KELO_FIELD(double, Value, 0.0)
};

// A model: the whole project (Code 0) or a list of elements, with modifications and modes.
class CModel : public CObject {
public:
    CModel() = default;
    CModel(int no, std::string name) : ModelNo(no), ModelName(std::move(name)) {}
    int KeyNo() const { return ModelNo; }

    COwnedList<CModelModify>& GetModelModifyList() { return ModelModifyList; }
    const COwnedList<CModelModify>& GetModelModifyList() const { return ModelModifyList; }
    CObList<CModeRecord>& GetEigenModeList() { return EigenModeList; }
    CObList<CModeRecord>& GetBucklingModeList() { return BucklingModeList; }

    // The element and dependency arrays are sets kept in ascending order.
    void AddElementNo(int no) { AddToSet(ElementNoArray, no); }
    void DeleteElementNo(int no) { RemoveFromSet(ElementNoArray, no); }
    void AddElementByList(const std::vector<int>& numbers) {
        for (const int no : numbers) AddToSet(ElementNoArray, no);
    }
    void AddModel(int no) { AddToSet(DepModelNoArray, no); }
    void DeleteModel(int no) { RemoveFromSet(DepModelNoArray, no); }

    KELO_FIELD(int, ModelNo, 0)
    KELO_FIELD(std::string, ModelName, "")
    KELO_FIELD(int, Code, 0)
    KELO_FIELD(int, NoOfModes, 0)
    KELO_FIELD(int, NoOfBucklingModes, 0)
    KELO_FIELD(std::vector<int>, ElementNoArray, {})
    KELO_FIELD(std::vector<int>, DepModelNoArray, {})

private:
    static void AddToSet(std::vector<int>& set, int no) {
        const auto at = std::lower_bound(set.begin(), set.end(), no);
        if (at == set.end() || *at != no) set.insert(at, no);
    }
    static void RemoveFromSet(std::vector<int>& set, int no) {
        const auto at = std::lower_bound(set.begin(), set.end(), no);
        if (at != set.end() && *at == no) set.erase(at);
    }

    COwnedList<CModelModify> ModelModifyList;
    CObList<CModeRecord> EigenModeList;
    CObList<CModeRecord> BucklingModeList;
};

} // namespace kelo
