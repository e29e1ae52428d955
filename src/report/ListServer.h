#pragma once

#include "platform/ObList.h"
#include "platform/Object.h"

#include <string>
#include <vector>

namespace kelo {

class CStructure;
class CAnalysisRun;
class CElement;
class CNode;
class CTendon;

// One entry of the listing menu: its label and the code it stands for.
struct CListMenuItem {
    std::string Label;
    int Code = 0;
};

// Plain-text listings of the input data of a project. A listing is chosen by a numeric code out
// of a two-level menu (group, item); its text is written with fixed-width lines ended "\r\n".
// Type 1 lists the whole structure, type 2 the working copies of one model's run.
class CListServer : public CObject {
public:
    CListServer() = default;
    explicit CListServer(CStructure* structure) : Structure(structure) {}

    void SetStructure(CStructure* structure) { Structure = structure; }
    // The run whose expanded element and node lists a type 2 listing shows.
    void SetFrame(const CAnalysisRun* frame) { Frame = frame; }
    void SetType(int type) { Type = type; }
    void SetProjHeader(int flag) { ProjHeader = flag; }
    void SetInterval(int from, int to, int step) {
        From = from;
        To = to;
        Step = step;
    }
    int GetType() const { return Type; }

    // Clears `out` and writes the listing of `code`. 0 with no structure, with type 2 and no
    // frame, or for an unknown code (which leaves `out` empty); else 1.
    int MakeListing(int code, std::string& out);

    // 1 when `no` is inside the interval (always, with From -1 or -2), else 0.
    int CheckInterval(int no) const;
    // 1 for the codes whose listings honour an interval.
    static int IntervalAvailable(int code);

    // The first level of the menu, and the second level of one group, in menu order.
    void ListAvailableGroup(std::vector<CListMenuItem>& items) const;
    void ListAvailableItems(int group, std::vector<CListMenuItem>& items) const;

    // n repeats of a rule character ('-' for kind 0, '=' for 1, '*' for 2), then "\r\n".
    static void MakeLine(std::string& out, int n, int kind);
    // The head telling what the listing is based on: the whole structure or the model of the
    // run. 0 for a type 2 server without a frame.
    int MakeModelHeader(std::string& out) const;
    int MakeProjectDataListing(std::string& out) const;

    // The element and node lists that the listings walk: the structure's for type 1 and when
    // there is no frame, the frame's for type 2.
    const CObList<CElement>* FindElementList() const;
    const CObList<CNode>* FindNodeList() const;

    // ---- the listings; each answers 1 and writes at least its header
    int MakeConcrMatParListing(std::string& out) const;
    int MakeReinfMatParListing(std::string& out) const;
    int MakePrestMatParListing(std::string& out) const;
    int MakeSteelMatParListing(std::string& out) const;
    int MakeConcrDesParListing(std::string& out) const;
    int MakeReinfDesParListing(std::string& out) const;
    int MakePrestDesParListing(std::string& out) const;
    int MakeSteelDesParListing(std::string& out) const;
    int MakeSectionDesParListing(std::string& out) const;
    int MakeNodeListing(std::string& out) const;
    int MakeBoundaryListing(std::string& out) const;
    int MakeMasterSlaveListing(std::string& out) const;
    // With `withMatrix` each element's stiffness matrix in its local axes follows its line, when
    // its nodes and section values can be had.
    int MakeElementListing(std::string& out, int withMatrix) const;
    int MakeElementStiffnessListing(std::string& out) const;
    int MakeMassListing(std::string& out) const;
    int MakeWindAreaListing(std::string& out) const;
    int MakeBucklingLengthListing(std::string& out) const;
    int MakeSectionAtDesignSectListing(std::string& out) const;
    int MakeLoadcaseListing(std::string& out) const;
    int MakeTrafLineListing(std::string& out, int withPositions) const;
    int MakeTrafLoadListing(std::string& out) const;
    int MakeDynamicLoadListing(std::string& out) const;
    int MakeCreepLoadListing(std::string& out, int detailed) const;
    int MakeCreepCombListing(std::string& out) const;
    int MakeAxialForceListing(std::string& out) const;
    int MakeRefLineListing(std::string& out) const;
    // Mode 0 the geometry as given, 1 the calculated points along the line.
    int MakeRefLineGeomListing(std::string& out, int mode) const;
    int MakeSectionGeomListing(std::string& out) const;
    int MakeSectGeometryDataListing(std::string& out) const;
    int MakeRefLineColumnListing(std::string& out) const;
    int MakeSectPropertyDataListing(std::string& out) const;
    // The vertical profile of each reference line: its legs with station, level, grade and
    // rounding radius.
    int MakeNYLPListing(std::string& out) const;
    // The material, design and section design sets of each key section, and how it hangs on its
    // line; the points of each key section in section and global coordinates.
    int MakeSectParameterDataListing(std::string& out) const;
    int MakeConnectSectDataListing(std::string& out) const;
    int MakeSectGeometryCoordListing(std::string& out) const;
    // The element properties that the last run of each model used, as the result store keeps
    // them.
    int MakeModelElemResListing(std::string& out) const;
    int MakeAllModelListing(std::string& out) const;
    int MakeModelModificationListing(std::string& out) const;
    int MakeModelEigenModeListing(std::string& out) const;
    int MakeCalcGroupListing(std::string& out) const;
    int MakeAnalysesListing(std::string& out) const;
    int MakeConSeqListing(std::string& out) const;
    int MakeLoadCombListing(std::string& out) const;
    int MakeSortCombListing(std::string& out) const;
    int MakeSortCombLineListing(std::string& out) const;
    int MakeRunStatisticsListing(std::string& out) const;
    int MakeDefinedSpectrasListing(std::string& out) const;
    int MakeEqulibriumCheckListing(std::string& out) const;
    // The global axes and the local axes L, M, N of each element.
    int MakeCoordSysListing(std::string& out) const;
    // The modal masses of the modes of each model, where the eigenvalue run left them.
    int MakePartisipateMassListing(std::string& out) const;
    // The load cases and factors behind each ordinary combination, and behind each governing
    // row of each sorted combination at each design section.
    int MakeCombTracerListing(std::string& out) const;
    int MakeMemberListing(std::string& out) const;
    int MakeChangesListing(std::string& out) const;
    int MakeDocStatustListing(std::string& out) const;
    int MakeNodeAsciiListing(std::string& out) const;
    int MakeElemStiffAsciiListing(std::string& out) const;
    // ---- tendons; the geometry and losses of a tendon that is not up to date are worked out
    // first.
    int MakeTendonListing(std::string& out) const;
    // The loss parameters and the force along each tendon; `detailed` adds the losses by kind.
    int MakeTendonLossesListing(std::string& out, int detailed) const;
    // Mode 0 the path pieces as given, 1 the elongations at the jacks, 2 the path point by point.
    int MakeTendonGeomListing(std::string& out, int mode) const;
    int MakeTendonAmountListing(std::string& out) const;
    // How the pieces of each path lie on the elements.
    int MakeTendonGeomDetailListing(std::string& out) const;
    // The stressing record: jacking stress, force and elongation at each jacked end.
    int MakePCSpennListing(std::string& out) const;
    // Tendon forces and positions at the design sections of the elements. Mode 0 per tendon,
    // 1 per tendon with strains and coordinates, 2 the sum and its resultant position, 3 both.
    int MakeTendonDesignListing(std::string& out, int mode) const;
    // Stresses at the upper and lower face from the tendon forces at the design sections.
    int MakeElastStressListing(std::string& out) const;

private:
    // The title of a listing, underlined, and a blank line.
    static void MakeTitle(std::string& out, const std::string& title);
    int ListingOf(int code, std::string& out) const;
    // Brings a tendon up to date for a listing; false, with the reason written, when its
    // geometry or losses can't be worked out.
    bool TendonReady(CTendon& tendon, std::string& out) const;

    int Type = 1;
    int ProjHeader = 0;
    int From = -1;
    int To = -1;
    int Step = 1;
    CStructure* Structure = nullptr;
    const CAnalysisRun* Frame = nullptr;
};

} // namespace kelo
