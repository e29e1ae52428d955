#pragma once

#include "frame/Element.h"
#include "model/Node.h"
#include "platform/Field.h"
#include "platform/ObList.h"
#include "platform/Object.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kelo {

class CStructure;

// One modification of a model: its type, an interval of node or element numbers (first, last,
// step) and up to six values Data1 to Data6 (index 0 to 5):
//  1  node supports: data 1 a six-digit code of 1 and 0, X first (1 fixed, 0 free)
//  2  node support of one freedom: data 1 the direction 1 to 6, data 2 the value; a value above
//     1 is a master node, of which the freedom becomes a slave
// 10  element joints: data 1 and 2 the release codes of end 1 and 2
// 11  element section: data 1 the reference line, data 2 the section
// 20  element mass added, 21 the masses replaced: data 1 type, 2 direction, 3 and 4 values
// 30  axial force added (given): data 1 N, data 2 ML, data 3 MN; 31 the same after removing the
//     element's axial forces
// 32  the axial forces replaced by one from a pre-analysis: data 1 load case, data 2 factor
// 33  axial force added from results: data 1 load case, data 2 factor; walks the interval in its
//     own direction
// 40  buckling data: data 1 to 5; 41 to 45 one of the five buckling values from data 1
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

    // The working copies of an analysis run. Code 0: every element and node of the project,
    // unmodified; the answer is then 0, which callers do not take for a failure. Code 1 or
    // above: the elements of the number array, the nodes they use and the modifications; 1 when
    // all three succeed.
    int ExpandModel(const CStructure* s, CObList<CElement>& elements, CObList<CNode>& nodes) const;
    // Copies of the elements of the number array; 0 when one of them is missing.
    int ExpandElementList(const CStructure* s, CObList<CElement>& elements) const;
    // Copies of node 1, node 2 and node 3 (when given) of each element, once each; 0 when one of
    // them is missing.
    int ExpandNodeList(const CStructure* s, const CObList<CElement>& elements,
                       CObList<CNode>& nodes) const;
    // Applies the modifications, in the order given, to the copies; 0 when a modification names
    // a section that does not exist or has an unknown type.
    int ImplementModelModify(const CStructure* s, CObList<CElement>& elements,
                             CObList<CNode>& nodes) const;

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
