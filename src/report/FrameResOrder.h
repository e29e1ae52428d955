#pragma once

#include "model/Member.h"
#include "platform/Object.h"

#include <string>
#include <vector>

namespace kelo {

class CStructure;

// One stored order for a listing of frame results: what to print (`Item`), from which family
// of results (`Load`), for which node or element numbers and which cases, and in which
// arrangement (`Leading`, `Sort`, `SortComp`).
//
// Item: 0 node displacements (mm, rad), 1 section forces at the design sections (kN, kNm),
// 2 support reactions, 3 the sums of applied loads and of reactions, 10 a check sum of the stored
// section forces that also tells when a result is missing.
// Load: 0 load cases, 1 ordinary combinations, 2 traffic loads, 3 sorted combinations, 4 sorted
// combination lines. The last three are governing results of twelve rows each (the greatest and
// the least of each of the six force components), printed as blocks of twelve labelled rows.
// Leading: 0 the node or element leads with the cases inside it, 1 the case leads.
// Sort: 0 number order with a blank line at each change of the leading number; above 0
// ascending and below 0 descending by the value of component `SortComp`: 0 to 5 in the order of
// the stored record (PL, PM, PN, ML, MM, MN for forces; Ux to Rotz; PX to MZ), and for the
// twelve-row families 0 to 11 the governing row, sorted by its own component.
// LocalElemAxis: above 0 the displacements are turned into that element's local axes L, M, N.
class CFrameResOrder : public CObject {
public:
    CFrameResOrder() = default;

    void AddItemInterval(int from, int to) { ItemIntervals.emplace_back(from, to, 1); }
    void AddLoadInterval(int from, int to) { LoadIntervals.emplace_back(from, to, 1); }
    // Clears the five selecting fields and both interval lists.
    void Empty();

    // The listing, in pieces of at most about 59900 characters that the caller joins. Answers 1,
    // or 0 with no text for a family or item this order cannot list, and for a LocalElemAxis
    // element whose axes can't be had.
    int MakeListingFromResOrder(CStructure* s, std::vector<std::string>& out) const;

    int ResOrderNo = 0;
    std::string Label;
    int Chap = 0;
    int Part = 0;
    int Item = 0;
    int Load = 0;
    int Leading = 0;
    int Sort = 0;
    int SortComp = 0;
    int LocalElemAxis = 0;
    std::vector<CInterval> ItemIntervals;
    std::vector<CInterval> LoadIntervals;
};

} // namespace kelo
