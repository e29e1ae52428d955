#include "report/ListServer.h"

#include "command/StructureCmd.h"
#include "frame/CombServer.h"
#include "frame/ElementSectParam.h"
#include "frame/ModelElemRes.h"
#include "geometry/KeySection.h"
#include "model/AnalysisRun.h"
#include "model/Structure.h"
#include "platform/Machine.h"
#include "platform/Text.h"
#include "store/MemResBase.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <set>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kelo {

namespace {

const char* const kLimitStateNames[] = {"ULS", "PLS", "SLS"};
const char* const kFreedomNames[] = {"PL", "PM", "PN", "ML", "MM", "MN"};
const char* const kFactorCodeNames[] = {"LC", "OC", "TL", "SC", "SCL"};

const char* LimitStateName(int ls) { return ls >= 1 && ls <= 3 ? kLimitStateNames[ls - 1] : ""; }
const char* FactorCodeName(int code) {
    return code >= 1 && code <= 5 ? kFactorCodeNames[code - 1] : "";
}

// The freedoms that a joint code releases, by name: a six-digit code of 0 and 1 whose first digit
// is translation along L and whose last is rotation about N, read from the highest digit down
// the way the element condenses them.
std::string ReleasedFreedoms(double code) {
    std::string names;
    double divisor = 100000.0;
    for (const char* name : kFreedomNames) {
        if (!(divisor > code)) {
            if (!names.empty()) names += " ";
            names += name;
            code -= divisor;
        }
        divisor /= 10.0;
    }
    return names;
}

// Numbers of a list, `perLine` to a line in "%7d".
void NumberLines(std::string& out, const std::vector<int>& numbers, std::size_t perLine) {
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        out += Format("%7d", numbers[i]);
        if ((i + 1) % perLine == 0 || i + 1 == numbers.size()) out += kCrLf;
    }
}

// A working copy of an element with its nodes from `nodes` and its section from line 0, with its
// local axes and length made from the present coordinates; null when they can't be had.
std::unique_ptr<CElement> ElementWithAxes(CStructure* s, const CElement& e,
                                          const CObList<CNode>& nodes) {
    auto copy = std::make_unique<CElement>(e);
    copy->SetNodeNo1Ptr(nodes.Get(e.GetNodeNo1()));
    copy->SetNodeNo2Ptr(nodes.Get(e.GetNodeNo2()));
    copy->SetNodeNo3Ptr(nodes.Get(e.GetNodeNo3()));
    if (!copy->GetSectionPtr() && e.GetSectionNo() > 0)
        copy->SetSectionPtr(s->GetKeySectionPtr(0, e.GetSectionNo()));
    if (!copy->MakeTransMatrix(s)) return nullptr;
    return copy;
}

// The stiffness of an element in its local axes. The element gives it in global axes,
// K = T^t k T with T its axes four times on the diagonal, so k = T K T^t.
bool LocalStiffness(CStructure* s, CElement& e, double k[12][12]) {
    double K[12][12];
    if (!e.MakeStiffMatrix(s, K, nullptr, 1, 0)) return false;
    double TK[12][12] = {};
    for (int i = 0; i < 12; ++i)
        for (int j = 0; j < 12; ++j)
            for (int m = (i / 3) * 3; m < (i / 3) * 3 + 3; ++m)
                TK[i][j] += e.GetTransMatrix(i % 3, m % 3) * K[m][j];
    for (int i = 0; i < 12; ++i)
        for (int j = 0; j < 12; ++j) {
            k[i][j] = 0.0;
            for (int m = (j / 3) * 3; m < (j / 3) * 3 + 3; ++m)
                k[i][j] += TK[i][m] * e.GetTransMatrix(j % 3, m % 3);
        }
    return true;
}

// The factors of a combination: code, number and factor, one a line.
void FactorLines(std::string& out, const COwnedList<CLoadfact>& factors) {
    out += Format("%12s%6s%10s\r\n", "Code", "No", "Factor");
    for (const CLoadfact* f : factors)
        out += Format("%12s%6d%10.3f\r\n", FactorCodeName(f->GetCode()), f->GetNo(), f->GetFact());
}

} // namespace

// ------------------------------------------------------------------------- menu and dispatch

namespace {

struct MenuGroup {
    int Code;
    const char* Label;
    bool Shown;
};

const MenuGroup kMenuGroups[] = {
    {100, "Materials and design data", true},
    {200, "Geometry data", true},
    {300, "Load data", true},
    {400, "Reference line data", true},
    {500, "Models and analyses", true},
    {600, "Load combinations", true},
    {700, "Miscellaneous", true},
    {800, "Logged changes and status", false},
    {900, "Reserved", false},
    {1100, "Tendon", true},
    {1000, "X Export alternatives", true},
};

struct MenuEntry {
    int Group;
    int Code;
    const char* Label;
    // The label of a listing of a model (type 2), where it differs.
    const char* ModelLabel;
};

const MenuEntry kMenuEntries[] = {
    {100, 101, "Concrete material", nullptr},
    {100, 102, "Reinforcement material", nullptr},
    {100, 103, "Prestress material", nullptr},
    {100, 104, "Steel material", nullptr},
    {100, 111, "Concrete design parameters", nullptr},
    {100, 112, "Reinforcement design parameters", nullptr},
    {100, 113, "Prestress design parameters", nullptr},
    {100, 114, "Steel design parameters", nullptr},
    {100, 121, "Section design parameters", nullptr},
    {200, 201, "Nodes", nullptr},
    {200, 203, "Boundary conditions", nullptr},
    {200, 204, "Master slave connections", nullptr},
    {200, 210, "Elements", nullptr},
    {200, 214, "Element section properties", nullptr},
    {200, 230, "Element mass", "Model Element mass"},
    {200, 231, "Wind areas/factors", "Model Wind areas/factors"},
    {200, 241, "Buckling lengths", nullptr},
    {300, 301, "Loads", nullptr},
    {300, 310, "Traffic lines ", nullptr},
    {300, 311, "Traffic lines with positions", nullptr},
    {300, 312, "Traffic loads ", nullptr},
    {300, 313, "Dynamic loads ", nullptr},
    {300, 320, "Creep loads ", nullptr},
    {300, 321, "Creep load, detailed data ", nullptr},
    {300, 322, "Creep combinations ", nullptr},
    {300, 330, "Axial force input", nullptr},
    {400, 401, "Reference lines", nullptr},
    {400, 402, "Reference line geometry", nullptr},
    {400, 403, "Section geometry", nullptr},
    {400, 404, "Section geometry, details ", nullptr},
    {400, 405, "Calc. reference line geometry", nullptr},
    {400, 406, "Column reference lines", nullptr},
    {400, 420, "Section data all reflines", nullptr},
    {400, 424, "Section point coordinate table", nullptr},
    {500, 501, "All model data", nullptr},
    {500, 503, "Model specific element results", nullptr},
    {500, 504, "Model modifications", nullptr},
    {500, 505, "Model eigenfrequencies", nullptr},
    {500, 510, "Calculation groups", nullptr},
    {500, 511, "Analyses", nullptr},
    {600, 601, "Ordinary load combinations", nullptr},
    {600, 602, "Sorted combinations", nullptr},
    {600, 603, "Sorted combinations lines", nullptr},
    {700, 710, "Run statistics", nullptr},
    {700, 711, "Defined spectras", nullptr},
    {700, 712, "Equilibrium check", nullptr},
    {700, 720, "Defined members", nullptr},
    {700, 723, "Defined user alias", nullptr},
    {800, 801, "Logged changes", nullptr},
    {800, 805, "List document content/status", nullptr},
    {800, 806, "Combination Tracer", nullptr},
    {1000, 1001, "Element section prop. as ascii input", nullptr},
    {1000, 1002, "Node coordiantes as ascii input", nullptr},
    {1100, 1101, "Tendon summary", nullptr},
    {1100, 1102, "Tendon losses", nullptr},
    {1100, 1109, "Tendon losses detailed", nullptr},
    {1100, 1103, "Tendon geometry", nullptr},
    {1100, 1110, "Tendon elongation", nullptr},
    {1100, 1104, "Tendon total amount", nullptr},
    {1100, 1107, "Tendon calculated for design", nullptr},
    {1100, 1112, "Tendon calculated for design - detail", nullptr},
    {1100, 1113, "Tendon sum and position calculated for design", nullptr},
    {1100, 1114, "Tendon sum and position calculated for design - detail", nullptr},
};

} // namespace

void CListServer::ListAvailableGroup(std::vector<CListMenuItem>& items) const {
    items.clear();
    for (const MenuGroup& g : kMenuGroups)
        if (g.Shown) items.push_back({Format("%-40s", g.Label), g.Code});
}

void CListServer::ListAvailableItems(int group, std::vector<CListMenuItem>& items) const {
    items.clear();
    for (const MenuEntry& e : kMenuEntries)
        if (e.Group == group)
            items.push_back({Type == 2 && e.ModelLabel ? e.ModelLabel : e.Label, e.Code});
}

int CListServer::CheckInterval(int no) const {
    if (From == -1 || From == -2) return 1;
    if (no < From || no > To) return 0;
    if (Step == 0 || Step == 1) return 1;
    return (static_cast<long long>(no) - From) % Step == 0 ? 1 : 0;
}

int CListServer::IntervalAvailable(int code) {
    static const std::set<int> kCodes = {201,  210,  211,  241,  401,  402,  403,  404, 405,
                                         1101, 1102, 1103, 1107, 1109, 1112, 1113, 1114};
    return kCodes.count(code) ? 1 : 0;
}

const CObList<CElement>* CListServer::FindElementList() const {
    if (Type == 2 && Frame) return &Frame->GetElementList();
    return Structure ? Structure->GetElementList() : nullptr;
}

const CObList<CNode>* CListServer::FindNodeList() const {
    if (Type == 2 && Frame) return &Frame->GetNodeList();
    return Structure ? Structure->GetNodeList() : nullptr;
}

int CListServer::MakeListing(int code, std::string& out) {
    out.clear();
    if (!Structure || (Type == 2 && !Frame)) return 0;
    try {
        std::string text;
        if (!ListingOf(code, text)) return 0;
        if (ProjHeader) MakeProjectDataListing(out);
        out += text;
        return 1;
    } catch (...) {
        out.clear();
        return 0;
    }
}

int CListServer::ListingOf(int code, std::string& out) const {
    switch (code) {
    case 101:
        return MakeConcrMatParListing(out);
    case 102:
        return MakeReinfMatParListing(out);
    case 103:
        return MakePrestMatParListing(out);
    case 104:
        return MakeSteelMatParListing(out);
    case 111:
        return MakeConcrDesParListing(out);
    case 112:
        return MakeReinfDesParListing(out);
    case 113:
        return MakePrestDesParListing(out);
    case 114:
        return MakeSteelDesParListing(out);
    case 121:
        return MakeSectionDesParListing(out);
    case 201:
        return MakeNodeListing(out);
    case 203:
        return MakeBoundaryListing(out);
    case 204:
        return MakeMasterSlaveListing(out);
    case 210:
        return MakeElementListing(out, 0);
    case 211:
        return MakeElementListing(out, 1);
    case 214:
        return MakeElementStiffnessListing(out);
    case 230:
        return MakeMassListing(out);
    case 231:
        return MakeWindAreaListing(out);
    case 241:
        return MakeBucklingLengthListing(out);
    case 242:
        return MakeSectionAtDesignSectListing(out);
    case 301:
        return MakeLoadcaseListing(out);
    case 310:
        return MakeTrafLineListing(out, 0);
    case 311:
        return MakeTrafLineListing(out, 1);
    case 312:
        return MakeTrafLoadListing(out);
    case 313:
        return MakeDynamicLoadListing(out);
    case 320:
        return MakeCreepLoadListing(out, 0);
    case 321:
        return MakeCreepLoadListing(out, 1);
    case 322:
        return MakeCreepCombListing(out);
    case 330:
        return MakeAxialForceListing(out);
    case 401:
        return MakeRefLineListing(out);
    case 402:
        return MakeRefLineGeomListing(out, 0);
    case 403:
        return MakeSectionGeomListing(out);
    case 404:
        return MakeSectGeometryDataListing(out);
    case 405:
        return MakeRefLineGeomListing(out, 1);
    case 406:
        return MakeRefLineColumnListing(out);
    case 410:
        return MakeNYLPListing(out);
    case 420:
        return MakeSectPropertyDataListing(out);
    case 421:
        return MakeSectGeometryDataListing(out);
    case 422:
        return MakeSectParameterDataListing(out);
    case 423:
        return MakeConnectSectDataListing(out);
    case 424:
        return MakeSectGeometryCoordListing(out);
    case 501:
        return MakeAllModelListing(out);
    case 503:
        return MakeModelElemResListing(out);
    case 504:
        return MakeModelModificationListing(out);
    case 505:
        return MakeModelEigenModeListing(out);
    case 510:
        return MakeCalcGroupListing(out);
    case 511:
        return MakeAnalysesListing(out);
    case 512:
        return MakeConSeqListing(out);
    case 601:
        return MakeLoadCombListing(out);
    case 602:
        return MakeSortCombListing(out);
    case 603:
        return MakeSortCombLineListing(out);
    case 701:
        return MakeCoordSysListing(out);
    case 710:
        return MakeRunStatisticsListing(out);
    case 711:
        return MakeDefinedSpectrasListing(out);
    case 712:
        return MakeEqulibriumCheckListing(out);
    case 720:
        return MakeMemberListing(out);
    case 722:
        return MakePartisipateMassListing(out);
    case 723: {
        MakeTitle(out, "Defined user alias");
        out += Format("%-32s %15s\r\n", "Alias", "Value");
        if (const CStructureCmd* cmd = Structure->GetStructureCmd())
            for (const auto& [name, value] : cmd->GetAliases().GetUserAliases())
                out += Format("%-32s %15.6g\r\n", name.c_str(), value);
        return 1;
    }
    case 801:
        return MakeChangesListing(out);
    case 805:
        return MakeDocStatustListing(out);
    case 806:
        return MakeCombTracerListing(out);
    case 1001:
        return MakeElemStiffAsciiListing(out);
    case 1002:
        return MakeNodeAsciiListing(out);
    case 1101:
        return MakeTendonListing(out);
    case 1102:
        return MakeTendonLossesListing(out, 0);
    case 1109:
        return MakeTendonLossesListing(out, 1);
    case 1103:
        return MakeTendonGeomListing(out, 0);
    case 1110:
        return MakeTendonGeomListing(out, 1);
    case 1111:
        return MakeTendonGeomListing(out, 2);
    case 1104:
        return MakeTendonAmountListing(out);
    case 1105:
        return MakeTendonGeomDetailListing(out);
    case 1106:
        return MakePCSpennListing(out);
    case 1107:
        return MakeTendonDesignListing(out, 0);
    case 1112:
        return MakeTendonDesignListing(out, 1);
    case 1113:
        return MakeTendonDesignListing(out, 2);
    case 1114:
        return MakeTendonDesignListing(out, 3);
    case 1108:
        return MakeElastStressListing(out);
    default:
        return 0;
    }
}

// ------------------------------------------------------------------------- heads

void CListServer::MakeLine(std::string& out, int n, int kind) {
    const char rule = kind == 1 ? '=' : kind == 2 ? '*' : '-';
    if (n > 0) out.append(static_cast<std::size_t>(n), rule);
    out += kCrLf;
}

void CListServer::MakeTitle(std::string& out, const std::string& title) {
    out += title + kCrLf;
    MakeLine(out, static_cast<int>(CharCount(title)), 1);
    out += kCrLf;
}

int CListServer::MakeModelHeader(std::string& out) const {
    if (Type == 2 && !Frame) return 0;
    out += "Listing based on:\r\n";
    const CModel* model = Type == 2 ? Frame->GetModel() : nullptr;
    if (!model || model->GetModelNo() == 0) {
        out += "Entire structure, (Default all):\r\n";
    } else {
        out += Format("%-16s%3s%-i\r\n", "MODEL NO.", " : ", model->GetModelNo());
        out += Format("%-16s%3s%-32s\r\n", "Model name", " : ", model->GetModelName().c_str());
        out += "Detailed model contents\r\n";
    }
    out += kCrLf;
    return 1;
}

int CListServer::MakeProjectDataListing(std::string& out) const {
    if (!Structure) return 0;
    const auto t = GetMachine().LocalTime();
    MakeLine(out, 72, 1);
    out += Format("%-16s%3s%-i\r\n", "Project no.", " : ", Structure->GetProjectNo());
    out += Format("%-16s%3s%s\r\n", "Project name", " : ", Structure->GetName().c_str());
    out += Format("%-16s%3s%04i-%02i-%02i %02i:%02i:%02i\r\n", "Listed", " : ", t[0], t[1], t[2],
                  t[3], t[4], t[5]);
    MakeLine(out, 72, 1);
    out += kCrLf;
    return 1;
}

// ------------------------------------------------------------------------- materials

int CListServer::MakeConcrMatParListing(std::string& out) const {
    MakeTitle(out, "Concrete material");
    out += Format("%5s %9s %9s %9s %9s %10s %8s %8s %8s  %s\r\n", "No", "Fck", "Fcck", "Fcn", "Ftn",
                  "Ecn", "Rho", "Epsco", "Epscu", "Name");
    out += Format("%5s %9s %9s %9s %9s %10s %8s %8s %8s\r\n", "", "[MPa]", "[MPa]", "[MPa]",
                  "[MPa]", "[MPa]", "[kg/m3]", "[-]", "[-]");
    for (const CConcrMatPar* m : *Structure->GetConcrMatParList())
        out += Format("%5d %9.2f %9.2f %9.2f %9.2f %10.0f %8.0f %8.5f %8.5f  %s\r\n", m->GetNo(),
                      m->GetFck() / 1000.0, m->GetFcck() / 1000.0, m->GetFcn() / 1000.0,
                      m->GetFtn() / 1000.0, m->GetEcn() / 1000.0, m->GetRho(), m->GetEpsco(),
                      m->GetEpscu(), m->GetName().c_str());
    return 1;
}

namespace {

// Reinforcing and prestressing steel share their record and so their columns.
template <class List> void BarMatLines(std::string& out, const List& list) {
    out += Format("%5s %9s %10s %9s %9s %6s %6s  %s\r\n", "No", "Fsk", "Esk", "Ft", "Epssu",
                  "Class", "Curve", "Name");
    out += Format("%5s %9s %10s %9s %9s\r\n", "", "[MPa]", "[MPa]", "[MPa]", "[-]");
    for (const auto* m : list)
        out += Format("%5d %9.1f %10.0f %9.1f %9.5f %6d %6d  %s\r\n", m->GetNo(),
                      m->GetFsk() / 1000.0, m->GetEsk() / 1000.0, m->GetFt() / 1000.0,
                      m->GetEpssu(), m->GetClass(), m->GetCurve(), m->GetName().c_str());
}

// Design sets whose values are read by their places in the record, `count` of them.
template <class List> void ParamLines(std::string& out, const List& list, int count) {
    for (const auto* p : list) {
        out += Format("%5d  %s\r\n", p->GetNo(), p->GetName().c_str());
        for (int field = 1; field <= count; ++field) {
            out += Format("%5s%4d %12.4f", "", field, p->GetParam(field));
            if (field % 4 == 0 || field == count) out += kCrLf;
        }
    }
}

} // namespace

int CListServer::MakeReinfMatParListing(std::string& out) const {
    MakeTitle(out, "Reinforcement material");
    BarMatLines(out, *Structure->GetReinfMatParList());
    return 1;
}

int CListServer::MakePrestMatParListing(std::string& out) const {
    MakeTitle(out, "Prestress material");
    BarMatLines(out, *Structure->GetPrestMatParList());
    return 1;
}

int CListServer::MakeSteelMatParListing(std::string& out) const {
    MakeTitle(out, "Steel material");
    out += Format("%5s %9s %9s %10s %10s %8s %9s %9s  %s\r\n", "No", "Fb", "Fy", "Es", "E", "Rho",
                  "Poisson", "Alpha", "Name");
    out += Format("%5s %9s %9s %10s %10s %8s %9s %9s\r\n", "", "[MPa]", "[MPa]", "[MPa]", "[MPa]",
                  "[kg/m3]", "[-]", "[1/C]");
    for (const CSteelMatPar* m : *Structure->GetSteelMatParList())
        out += Format("%5d %9.1f %9.1f %10.0f %10.0f %8.0f %9.3f %9.2e  %s\r\n", m->GetNo(),
                      m->GetFb() / 1000.0, m->GetFy() / 1000.0, m->GetEs() / 1000.0,
                      m->GetYoungsModulus() / 1000.0, m->GetRho(), m->GetPoissonRatio(),
                      m->GetAlpha(), m->GetName().c_str());
    return 1;
}

int CListServer::MakeConcrDesParListing(std::string& out) const {
    MakeTitle(out, "Concrete design parameters");
    out += Format("%5s %9s %9s %9s %10s %10s %10s  %s\r\n", "No", "GammaULS", "GammaPLS",
                  "GammaSLS", "EpslimULS", "EpslimPLS", "EpslimSLS", "Name");
    for (const CConcrDesPar* p : *Structure->GetConcrDesParList())
        out += Format("%5d %9.3f %9.3f %9.3f %10.5f %10.5f %10.5f  %s\r\n", p->GetNo(),
                      p->GetGammaULS(), p->GetGammaPLS(), p->GetGammaSLS(), p->GetEpslim(1),
                      p->GetEpslim(2), p->GetEpslim(3), p->GetName().c_str());
    return 1;
}

int CListServer::MakeReinfDesParListing(std::string& out) const {
    MakeTitle(out, "Reinforcement design parameters");
    out += "Values by their place in the record\r\n";
    ParamLines(out, *Structure->GetReinfDesParList(), CReinfDesPar::kFieldCount);
    return 1;
}

int CListServer::MakePrestDesParListing(std::string& out) const {
    MakeTitle(out, "Prestress design parameters");
    out += "Values by their place in the record\r\n";
    ParamLines(out, *Structure->GetPrestDesParList(), CPrestDesPar::kFieldCount);
    return 1;
}

int CListServer::MakeSteelDesParListing(std::string& out) const {
    MakeTitle(out, "Steel design parameters");
    out += Format("%5s %8s %8s %8s %8s %9s %9s %9s %9s  %s\r\n", "No", "Gamma1", "Gamma2", "Gamma3",
                  "Gamma4", "Epslim1", "Epslim2", "Epslim3", "Epslim4", "Name");
    for (const CSteelDesPar* p : *Structure->GetSteelDesParList())
        out +=
            Format("%5d %8.3f %8.3f %8.3f %8.3f %9.5f %9.5f %9.5f %9.5f  %s\r\n", p->GetNo(),
                   p->GetGamma(1), p->GetGamma(2), p->GetGamma(3), p->GetGamma(4), p->GetGamma(5),
                   p->GetGamma(6), p->GetGamma(7), p->GetGamma(8), p->GetName().c_str());
    return 1;
}

int CListServer::MakeSectionDesParListing(std::string& out) const {
    MakeTitle(out, "Section design parameters");
    out += "Values by their place in the record\r\n";
    ParamLines(out, *Structure->GetSectDesParList(), CSectDesPar::kFieldCount);
    return 1;
}

// ------------------------------------------------------------------------- nodes and elements

int CListServer::MakeNodeListing(std::string& out) const {
    MakeTitle(out, "Nodes");
    MakeModelHeader(out);
    out += "Coordinates listed in global coordinate system\r\n\r\n";
    out += Format("%7s %9s %9s %9s %8s %11s %8s %8s %8s\r\n", "Node", "X", "Y", "Z", "Refline",
                  "Station", "Xoff", "Yoff", "Zoff");
    out += Format("%7s %9s %9s %9s %8s %11s %8s %8s %8s\r\n", "", "[m]", "[m]", "[m]", "", "[m]",
                  "[m]", "[m]", "[m]");
    for (const CNode* n : *FindNodeList()) {
        if (!CheckInterval(n->GetNo())) continue;
        if (n->GetRefLineNo() > 0)
            out += Format("%7d %9.3f %9.3f %9.3f   %5d %11.3f %8.3f %8.3f %8.3f\r\n", n->GetNo(),
                          n->GetX(), n->GetY(), n->GetZ(), n->GetRefLineNo(), n->GetStationNo(),
                          n->GetRefLineOffset(0), n->GetRefLineOffset(1), n->GetRefLineOffset(2));
        else
            out += Format("%7d %9.3f %9.3f %9.3f %8s\r\n", n->GetNo(), n->GetX(), n->GetY(),
                          n->GetZ(), "N/A");
    }
    return 1;
}

int CListServer::MakeBoundaryListing(std::string& out) const {
    MakeTitle(out, "Boundary conditions");
    MakeModelHeader(out);
    out += "          0 = free   1 = fixed\r\n\r\n";
    out += "   Node    Ux    Uy    Uz    Rx    Ry    Rz\r\n";
    for (const CNode* n : *FindNodeList()) {
        int f[6];
        bool any = false;
        for (int i = 0; i < 6; ++i) {
            f[i] = n->GetFix(i) == 1 ? 1 : 0;
            any = any || f[i] == 1;
        }
        if (any)
            out +=
                Format("%7d%6d%6d%6d%6d%6d%6d\r\n", n->GetNo(), f[0], f[1], f[2], f[3], f[4], f[5]);
    }
    return 1;
}

int CListServer::MakeMasterSlaveListing(std::string& out) const {
    MakeTitle(out, "Master slave connections");
    MakeModelHeader(out);
    out += "   Slave   Master  \r\n";
    for (const CNode* n : *FindNodeList()) {
        std::set<int> masters;
        for (int i = 0; i < 6; ++i)
            if (n->GetFix(i) < 0 && masters.insert(-n->GetFix(i)).second)
                out += Format("%7d%7d  \r\n", n->GetNo(), -n->GetFix(i));
    }
    return 1;
}

int CListServer::MakeElementListing(std::string& out, int withMatrix) const {
    MakeTitle(out, "Elements");
    MakeModelHeader(out);
    const CObList<CNode>* nodes = FindNodeList();
    out += Format("%56s%s\r\n", "", "Released degrees of freedom");
    out += Format("%6s%7s%7s%9s%9s%7s%7s    %-14s  %s\r\n", "Elem", "Node1", "Node2", "Length",
                  "Section", "Node3", "Alpha", "End1", "End2");
    out += Format("%6s%7s%7s%9s%9s%7s%7s\r\n", "", "", "", "[m]", "", "", "[deg]");
    for (const CElement* e : *FindElementList()) {
        if (!CheckInterval(e->GetNo())) continue;
        const CNode* n1 = nodes->Get(e->GetNodeNo1());
        const CNode* n2 = nodes->Get(e->GetNodeNo2());
        double length = e->GetLength();
        // Elements of a frame that has not been analysed carry no length yet: it is taken from
        // the node coordinates.
        if (n1 && n2)
            length = std::sqrt(std::pow(n2->GetX() - n1->GetX(), 2) +
                               std::pow(n2->GetY() - n1->GetY(), 2) +
                               std::pow(n2->GetZ() - n1->GetZ(), 2));
        // An element running against the stationing of the line its nodes stand on has its M
        // axis turned against the line's direction.
        const bool opposite = n1 && n2 && n1->GetRefLineNo() > 0 &&
                              n1->GetRefLineNo() == n2->GetRefLineNo() &&
                              n2->GetStationNo() < n1->GetStationNo();
        const char* warn = opposite ? " Warn.: M-axis opposite RFL-direction!" : "";
        const std::string end1 = ReleasedFreedoms(e->GetJoint1());
        const std::string end2 = ReleasedFreedoms(e->GetJoint2());
        if (e->GetSectionNo() > 0)
            out += Format("%6d%7d%7d%9.3f%9d%7d%7.2f    %-14s  %-14s%s%3s\r\n", e->GetNo(),
                          e->GetNodeNo1(), e->GetNodeNo2(), length, e->GetSectionNo(),
                          e->GetNodeNo3(), e->GetAlpha(), end1.c_str(), end2.c_str(), warn, "");
        else
            out += Format("%6d%7d%7d%9.3f%9s%7d%7.2f    %-14s  %-14s%s%3s\r\n", e->GetNo(),
                          e->GetNodeNo1(), e->GetNodeNo2(), length, "By RfL", e->GetNodeNo3(),
                          e->GetAlpha(), end1.c_str(), end2.c_str(), warn, "");
        if (!withMatrix) continue;
        double k[12][12];
        const std::unique_ptr<CElement> work = ElementWithAxes(Structure, *e, *nodes);
        if (!work || !LocalStiffness(Structure, *work, k)) continue;
        out += "Stiffness matrix - local axis:\r\n";
        for (const auto& row : k) {
            for (const double v : row) out += Format("%15e", v);
            out += kCrLf;
        }
    }
    return 1;
}

int CListServer::MakeElementStiffnessListing(std::string& out) const {
    MakeTitle(out, "Element section properties");
    MakeModelHeader(out);
    out += Format("%6s%9s%12s%12s%12s%12s%10s\r\n", "Elem", "Section", "A", "IL", "IM", "IN", "E");
    out +=
        Format("%6s%9s%12s%12s%12s%12s%10s\r\n", "", "", "[m2]", "[m4]", "[m4]", "[m4]", "[MPa]");
    for (const CElement* e : *FindElementList()) {
        const CKeySection* k =
            e->GetSectionNo() > 0 ? Structure->GetKeySectionPtr(0, e->GetSectionNo()) : nullptr;
        if (!k) continue;
        out += Format("%6d%9d%12.5f%12.6f%12.6f%12.6f%10.0f\r\n", e->GetNo(), e->GetSectionNo(),
                      k->GetParamA(), k->GetParamIL(), k->GetParamIM(), k->GetParamIN(),
                      k->GetYoungsModulus());
    }
    return 1;
}

int CListServer::MakeMassListing(std::string& out) const {
    MakeTitle(out, Type == 2 ? "Model Element mass" : "Element mass");
    MakeModelHeader(out);
    out += Format("%6s%6s%6s%12s%12s\r\n", "Elem", "Type", "Dir", "Mass1", "Mass2");
    out += Format("%6s%6s%6s%12s%12s\r\n", "", "", "", "[ton]", "[ton]");
    for (const CElement* e : *FindElementList())
        for (const CMass* m : e->GetMassList())
            out += Format("%6d%6d%6d%12.3f%12.3f\r\n", e->GetNo(), m->GetType(), m->GetDirection(),
                          m->GetMassValues(0), m->GetMassValues(1));
    return 1;
}

int CListServer::MakeWindAreaListing(std::string& out) const {
    MakeTitle(out, Type == 2 ? "Model Wind areas/factors" : "Wind areas/factors");
    MakeModelHeader(out);
    out += Format("%6s%9s%9s%9s%9s%9s%9s%9s%9s%9s\r\n", "Elem", "W1", "W2", "W3", "W4", "W5", "W6",
                  "W7", "W8", "W9");
    for (const CElement* e : *FindElementList()) {
        bool any = false;
        for (int i = 0; i < 9; ++i) any = any || e->GetWindArea(i) != 0.0;
        if (!any) continue;
        out += Format("%6d", e->GetNo());
        for (int i = 0; i < 9; ++i) out += Format("%9.3f", e->GetWindArea(i));
        out += kCrLf;
    }
    return 1;
}

int CListServer::MakeBucklingLengthListing(std::string& out) const {
    MakeTitle(out, "Buckling lengths");
    MakeModelHeader(out);
    out += Format("%6s%9s%9s%9s%9s%9s%10s%10s\r\n", "Elem", "B1", "B2", "B3", "B4", "B5", "Lk-L",
                  "Lk-N");
    out += Format("%6s%45s%10s%10s\r\n", "", "", "[m]", "[m]");
    for (const CElement* e : *FindElementList()) {
        if (!CheckInterval(e->GetNo())) continue;
        out += Format("%6d%9.3f%9.3f%9.3f%9.3f%9.3f%10.3f%10.3f\r\n", e->GetNo(),
                      e->GetBucklingData(0), e->GetBucklingData(1), e->GetBucklingData(2),
                      e->GetBucklingData(3), e->GetBucklingData(4), e->GetBucklingLengthLdir(),
                      e->GetBucklingLengthNdir());
    }
    return 1;
}

int CListServer::MakeSectionAtDesignSectListing(std::string& out) const {
    MakeTitle(out, "Design sections");
    MakeModelHeader(out);
    out += Format("%6s%5s%9s%10s%10s%10s%6s\r\n", "Elem", "Pos", "X/L", "X", "Y", "Z", "Node");
    out += Format("%6s%5s%9s%10s%10s%10s\r\n", "", "", "", "[m]", "[m]", "[m]");
    for (const CElement* e : *FindElementList()) {
        int pos = 0;
        for (const CDesignSection* d : e->GetDesignSectionList())
            out += Format("%6d%5d%9.3f%10.3f%10.3f%10.3f%6d\r\n", e->GetNo(), ++pos, d->GetXoverL(),
                          d->GetX(), d->GetY(), d->GetZ(), d->GetNodeDisplace());
    }
    return 1;
}

// ------------------------------------------------------------------------- loads

int CListServer::MakeLoadcaseListing(std::string& out) const {
    MakeTitle(out, "Loads");
    for (const CLoadcase* lc : *Structure->GetLoadcaseList()) {
        out +=
            Format("%-12s%5d   %s\r\n", "Load case:", lc->GetLoadcaseNo(), lc->GetName().c_str());
        out += Format("%6s%6s%6s%12s%12s%12s%12s\r\n", "Elem", "Type", "Dir", "Value1", "Value2",
                      "Value3", "Value4");
        for (const CLoad* l : lc->GetLoadList())
            out += Format("%6d%6d%6d%12.3f%12.3f%12.3f%12.3f\r\n", l->GetElementNo(), l->GetType(),
                          l->GetDirection(), l->GetLoadValues(0), l->GetLoadValues(1),
                          l->GetLoadValues(2), l->GetLoadValues(3));
        out += kCrLf;
    }
    return 1;
}

int CListServer::MakeTrafLineListing(std::string& out, int withPositions) const {
    MakeTitle(out, withPositions ? "Traffic lines with positions" : "Traffic lines");
    for (const CTrafLine* t : *Structure->GetTrafLineList()) {
        out +=
            Format("%-14s%5d   %s\r\n", "Traffic line:", t->GetTrafLineNo(), t->GetName().c_str());
        if (withPositions) {
            out += Format("%6s%12s%12s%7s%7s\r\n", "Elem", "Length", "Accum", "Pos", "AccPos");
            out += Format("%6s%12s%12s\r\n", "", "[m]", "[m]");
        } else {
            out += Format("%6s%12s%12s\r\n", "Elem", "Length", "Accum");
            out += Format("%6s%12s%12s\r\n", "", "[m]", "[m]");
        }
        for (const CTrafLineElem* e : t->GetTrafLineElemList()) {
            out += Format("%6d%12.3f%12.3f", e->GetTrafLineElemNo(), e->GetTrafLineElemLength(),
                          e->GetTrafLineElemAccum());
            if (withPositions)
                out += Format("%7d%7d", e->GetTrafLineElemPosNo(), e->GetTrafLineElemAccPosNo());
            out += kCrLf;
        }
        out += kCrLf;
    }
    return 1;
}

int CListServer::MakeTrafLoadListing(std::string& out) const {
    MakeTitle(out, "Traffic loads");
    out += Format("%6s%6s  %s\r\n", "No", "Line", "Name");
    for (const CTrafLoad* t : *Structure->GetTrafLoadList())
        out +=
            Format("%6d%6d  %s\r\n", t->GetTrafLoadNo(), t->GetTrafLineNo(), t->GetName().c_str());
    return 1;
}

int CListServer::MakeDynamicLoadListing(std::string& out) const {
    MakeTitle(out, "Dynamic loads");
    out += Format("%6s  %s\r\n", "Lc", "Name");
    for (const CLoadcase* lc : *Structure->GetLoadcaseList())
        if (lc->GetDynamic())
            out += Format("%6d  %s\r\n", lc->GetLoadcaseNo(), lc->GetName().c_str());
    return 1;
}

int CListServer::MakeCreepLoadListing(std::string& out, int detailed) const {
    MakeTitle(out, detailed ? "Creep load, detailed data" : "Creep loads");
    out += Format("%6s%8s  %s\r\n", "Lc", "Loads", "Name");
    for (const CLoadcase* lc : *Structure->GetLoadcaseList()) {
        if (lc->GetType() != 4) continue;
        out += Format("%6d%8zu  %s\r\n", lc->GetLoadcaseNo(), lc->GetLoadList().GetCount(),
                      lc->GetName().c_str());
        if (!detailed) continue;
        for (const CLoad* l : lc->GetLoadList())
            out +=
                Format("%14d%12.3f%12.3f%12.3f%12.3f\r\n", l->GetElementNo(), l->GetLoadValues(0),
                       l->GetLoadValues(1), l->GetLoadValues(2), l->GetLoadValues(3));
    }
    return 1;
}

int CListServer::MakeCreepCombListing(std::string& out) const {
    MakeTitle(out, "Creep combinations");
    for (const CCreepComb* c : *Structure->GetCreepCombList()) {
        out += Format("%-18s%5d   %s\r\n", "Creep combination:", c->GetCreepCombNo(),
                      c->GetName().c_str());
        FactorLines(out, c->GetLoadfacts().GetList());
        out += kCrLf;
    }
    return 1;
}

int CListServer::MakeAxialForceListing(std::string& out) const {
    MakeTitle(out, "Axial force input");
    MakeModelHeader(out);
    out += Format("%6s%6s%12s%12s%12s%6s%10s\r\n", "Elem", "Type", "N", "ML", "MN", "Lc", "Factor");
    out += Format("%6s%6s%12s%12s%12s\r\n", "", "", "[kN]", "[kNm]", "[kNm]");
    for (const CElement* e : *FindElementList())
        for (const CAxial* a : e->GetAxialList())
            out += Format("%6d%6d%12.2f%12.2f%12.2f%6d%10.3f\r\n", e->GetNo(), a->GetType(),
                          a->GetAxialValue(), a->GetMLValue(), a->GetMNValue(), a->GetLoadcaseNo(),
                          a->GetLoadcaseFac());
    return 1;
}

// ------------------------------------------------------------------------- reference lines

int CListServer::MakeRefLineListing(std::string& out) const {
    MakeTitle(out, "Reference lines");
    out += Format("%6s%6s%7s%7s%7s%7s  %s\r\n", "No", "Type", "Axes", "Hor", "Ver", "Sect", "Name");
    for (const CRefLine* r : *Structure->GetRefLineList()) {
        if (!CheckInterval(r->GetNo())) continue;
        out += Format("%6d%6d%7zu%7zu%7zu%7zu  %s\r\n", r->GetNo(), r->GetType(),
                      r->GetAxisList().GetCount(), r->GetHorSegmentList().GetCount(),
                      r->GetVerSegmentList().GetCount(), r->GetKeySectionList().GetCount(),
                      r->GetName().c_str());
    }
    return 1;
}

int CListServer::MakeRefLineGeomListing(std::string& out, int mode) const {
    MakeTitle(out, mode ? "Calc. reference line geometry" : "Reference line geometry");
    for (CRefLine* r : *Structure->GetRefLineList()) {
        if (!CheckInterval(r->GetNo())) continue;
        out += Format("%-16s%5d   %s\r\n", "Reference line:", r->GetNo(), r->GetName().c_str());
        if (mode == 0) {
            out += Format("%6s%12s%9s  %s\r\n", "Axis", "Station", "VerRfl", "Name");
            out += Format("%6s%12s\r\n", "", "[m]");
            for (const CAxis* a : r->GetAxisList())
                out += Format("%6d%12.3f%9d  %s\r\n", a->GetNo(), a->GetStationNo(),
                              a->GetVerRefLineNo(), a->GetName().c_str());
        } else {
            // The line's own position at each of its axes.
            out += Format("%6s%12s%12s%12s%12s\r\n", "Axis", "Station", "X", "Y", "Z");
            out += Format("%6s%12s%12s%12s%12s\r\n", "", "[m]", "[m]", "[m]", "[m]");
            for (const CAxis* a : r->GetAxisList()) {
                double c[3] = {0.0, 0.0, 0.0};
                r->CalcCoordByStation(a->GetStationNo(), c);
                out += Format("%6d%12.3f%12.3f%12.3f%12.3f\r\n", a->GetNo(), a->GetStationNo(),
                              c[0], c[1], c[2]);
            }
        }
        out += kCrLf;
    }
    return 1;
}

int CListServer::MakeSectionGeomListing(std::string& out) const {
    MakeTitle(out, "Section geometry");
    out += Format("%6s%12s%7s%6s%6s  %s\r\n", "Rfl", "Station", "Sect", "Type", "Mat", "Name");
    out += Format("%6s%12s\r\n", "", "[m]");
    for (const CRefLine* r : *Structure->GetRefLineList()) {
        if (!CheckInterval(r->GetNo())) continue;
        for (const CKeySection* k : r->GetKeySectionList())
            out += Format("%6d%12.3f%7d%6d%6d  %s\r\n", r->GetNo(), k->GetStationNo(), k->GetNo(),
                          k->GetType(), k->GetMatType(), k->GetName().c_str());
    }
    return 1;
}

int CListServer::MakeSectGeometryDataListing(std::string& out) const {
    MakeTitle(out, "Section geometry, details");
    out += Format("%6s%12s%7s%12s%12s%12s%12s%10s%10s\r\n", "Rfl", "Station", "Sect", "A", "IL",
                  "IM", "IN", "CoGX", "CoGY");
    out += Format("%6s%12s%7s%12s%12s%12s%12s%10s%10s\r\n", "", "[m]", "", "[m2]", "[m4]", "[m4]",
                  "[m4]", "[m]", "[m]");
    for (const CRefLine* r : *Structure->GetRefLineList()) {
        if (!CheckInterval(r->GetNo())) continue;
        for (const CKeySection* k : r->GetKeySectionList())
            out += Format("%6d%12.3f%7d%12.5f%12.6f%12.6f%12.6f%10.3f%10.3f\r\n", r->GetNo(),
                          k->GetStationNo(), k->GetNo(), k->GetSectionArea(), k->GetMomInertL(),
                          k->GetMomInertM(), k->GetMomInertN(), k->GetCoGX(), k->GetCoGY());
    }
    return 1;
}

int CListServer::MakeSectPropertyDataListing(std::string& out) const {
    MakeTitle(out, "Section data all reflines");
    out += Format("%6s%12s%7s%12s%12s%12s%12s%10s%8s\r\n", "Rfl", "Station", "Sect", "ParamA",
                  "ParamIL", "ParamIM", "ParamIN", "E", "Poisson");
    out += Format("%6s%12s%7s%12s%12s%12s%12s%10s\r\n", "", "[m]", "", "[m2]", "[m4]", "[m4]",
                  "[m4]", "[MPa]");
    for (const CRefLine* r : *Structure->GetRefLineList())
        for (const CKeySection* k : r->GetKeySectionList())
            out += Format("%6d%12.3f%7d%12.5f%12.6f%12.6f%12.6f%10.0f%8.3f\r\n", r->GetNo(),
                          k->GetStationNo(), k->GetNo(), k->GetParamA(), k->GetParamIL(),
                          k->GetParamIM(), k->GetParamIN(), k->GetYoungsModulus(), k->GetPoisson());
    return 1;
}

int CListServer::MakeRefLineColumnListing(std::string& out) const {
    MakeTitle(out, "Column reference lines");
    out += Format("%6s%8s%12s%6s%10s  %s\r\n", "No", "FromRfl", "AtStation", "Type", "Rotation",
                  "Name");
    out += Format("%6s%8s%12s%6s%10s\r\n", "", "", "[m]", "", "[deg]");
    for (const CRefLine* r : *Structure->GetRefLineList())
        if (r->GetColumn())
            out += Format("%6d%8d%12.3f%6d%10.3f  %s\r\n", r->GetNo(), r->GetRefLineFromColumn(),
                          r->GetColumnAtStationNo(), r->GetColumnType(), r->GetColumnRotation(),
                          r->GetName().c_str());
    return 1;
}

int CListServer::MakeNYLPListing(std::string& out) const {
    MakeTitle(out, "Reference line geometry, NYLP");
    for (const CRefLine* r : *Structure->GetRefLineList()) {
        if (r->GetVerSegmentList().IsEmpty()) continue;
        out += Format("%-16s%5d   %s\r\n", "Reference line:", r->GetNo(), r->GetName().c_str());
        // A leg from its start: station, level, grade (rise over length) and the radius of its
        // rounding, 0 for a straight grade; the end of the last leg closes the profile. The
        // grades are worked out on a copy of each leg from its end points, so that they hold
        // also before the line has been recalculated.
        out +=
            Format("%6s%6s%12s%10s%10s%12s\r\n", "Leg", "Type", "Station", "Z", "Grade", "Radius");
        out += Format("%6s%6s%12s%10s%10s%12s\r\n", "", "", "[m]", "[m]", "[-]", "[m]");
        std::unique_ptr<CVerSegment> last;
        for (const CVerSegment* v : r->GetVerSegmentList()) {
            last = std::make_unique<CVerSegment>(*v);
            last->CalculateAndValidate();
            out += Format("%6d%6d%12.3f%10.3f%10.5f%12.1f\r\n", v->GetVerSegNo(), v->GetType(),
                          v->GetStartStation(), v->GetStartZ(),
                          last->CalcZDirVector(v->GetStartStation()), v->GetRadius());
        }
        out += Format("%6s%6s%12.3f%10.3f%10.5f\r\n", "End", "", last->GetEndStation(),
                      last->GetEndZ(), last->CalcZDirVector(last->GetEndStation()));
        out += kCrLf;
    }
    return 1;
}

int CListServer::MakeSectParameterDataListing(std::string& out) const {
    MakeTitle(out, "Section parameter data");
    out += Format("%6s%12s%7s%6s%8s%8s%8s%8s%10s  %s\r\n", "Rfl", "Station", "Sect", "Type",
                  "MatType", "MatPar", "DesPar", "SectDes", "EffThick", "Name");
    out += Format("%6s%12s%53s\r\n", "", "[m]", "[m]");
    for (const CRefLine* r : *Structure->GetRefLineList())
        for (const CKeySection* k : r->GetKeySectionList())
            out += Format("%6d%12.3f%7d%6d%8d%8d%8d%8d%10.3f  %s\r\n", r->GetNo(),
                          k->GetStationNo(), k->GetNo(), k->GetType(), k->GetMatType(),
                          k->GetMatParNo(), k->GetDesParNo(), k->GetSectDesParNo(),
                          k->GetEffectivThicness(), k->GetName().c_str());
    return 1;
}

int CListServer::MakeConnectSectDataListing(std::string& out) const {
    MakeTitle(out, "Section connection data");
    // How a section hangs on its line: by the offsets of its origin, by one of its points, or by
    // a point with offsets.
    out += Format("%6s%12s%7s%10s%10s%9s%9s\r\n", "Rfl", "Station", "Sect", "DeltaX", "DeltaY",
                  "Connect", "Point");
    out += Format("%6s%12s%7s%10s%10s\r\n", "", "[m]", "", "[m]", "[m]");
    for (const CRefLine* r : *Structure->GetRefLineList())
        for (const CKeySection* k : r->GetKeySectionList())
            out += Format("%6d%12.3f%7d%10.3f%10.3f%9d%9d\r\n", r->GetNo(), k->GetStationNo(),
                          k->GetNo(), k->GetDeltaX(), k->GetDeltaY(), k->GetConnectType(),
                          k->GetConnectSectPointNo());
    return 1;
}

int CListServer::MakeSectGeometryCoordListing(std::string& out) const {
    MakeTitle(out, "Section point coordinate table");
    for (const CRefLine* r : *Structure->GetRefLineList())
        for (const CKeySection* k : r->GetKeySectionList()) {
            if (k->GetSectPointList().GetCount() == 0) continue;
            out += Format("%-16s%5d%12s%10.3f%8s%5d   %s\r\n", "Reference line:", r->GetNo(),
                          "Station:", k->GetStationNo(), "Sect:", k->GetNo(), k->GetName().c_str());
            // Section coordinates x across and y up from the section's origin, and the point's
            // place in global axes.
            out +=
                Format("%9s%6s%10s%10s%12s%12s%12s\r\n", "Point", "Type", "x", "y", "X", "Y", "Z");
            out +=
                Format("%9s%6s%10s%10s%12s%12s%12s\r\n", "", "", "[m]", "[m]", "[m]", "[m]", "[m]");
            for (const auto& p : k->GetSectPointList())
                out +=
                    Format("%9.2f%6d%10.3f%10.3f%12.3f%12.3f%12.3f\r\n", p->GetNo(), p->GetType(),
                           p->GetX(), p->GetY(), p->GetXg(), p->GetYg(), p->GetZg());
            out += kCrLf;
        }
    return 1;
}

// ------------------------------------------------------------------------- models, analyses

int CListServer::MakeAllModelListing(std::string& out) const {
    MakeTitle(out, "All model data");
    for (const CModel* m : *Structure->GetModelList()) {
        out += Format("%-16s%3s%-i\r\n", "MODEL NO.", " : ", m->GetModelNo());
        out += Format("%-16s%3s%s\r\n", "Model name", " : ", m->GetModelName().c_str());
        if (m->GetCode() == 0 && m->GetElementNoArray().empty()) {
            out += "Entire structure, (Default all):\r\n";
        } else {
            out += "Elements:\r\n";
            NumberLines(out, m->GetElementNoArray(), 10);
        }
        if (!m->GetDepModelNoArray().empty()) {
            out += "Models included:\r\n";
            NumberLines(out, m->GetDepModelNoArray(), 10);
        }
        out +=
            Format("%-16s%3s%zu\r\n", "Modifications", " : ", m->GetModelModifyList().GetCount());
        out += kCrLf;
    }
    return 1;
}

int CListServer::MakeModelModificationListing(std::string& out) const {
    MakeTitle(out, "Model modifications");
    out += Format("%6s%6s%7s%7s%7s%10s%10s%10s%10s%10s%10s\r\n", "Model", "Type", "From", "To",
                  "Step", "Data1", "Data2", "Data3", "Data4", "Data5", "Data6");
    for (const CModel* m : *Structure->GetModelList())
        for (const CModelModify* d : m->GetModelModifyList())
            out += Format("%6d%6d%7d%7d%7d%10.3f%10.3f%10.3f%10.3f%10.3f%10.3f\r\n",
                          m->GetModelNo(), d->GetType(), d->GetInterval(0), d->GetInterval(1),
                          d->GetInterval(2), d->GetValues(0), d->GetValues(1), d->GetValues(2),
                          d->GetValues(3), d->GetValues(4), d->GetValues(5));
    return 1;
}

int CListServer::MakeModelEigenModeListing(std::string& out) const {
    MakeTitle(out, "Model eigenfrequencies");
    out += "CALCULATED EIGENMODES:\r\n";
    for (CModel* m : *Structure->GetModelList()) {
        out += Format("%-11s%5d\r\n", "Model no.:", m->GetModelNo());
        out += Format("%6s%12s%12s%12s\r\n", "Mode:", "Freq.", "Omega", "Period");
        out += Format("%6s%12s%12s%12s\r\n", "", "[Hz]", "[rad/s]", "[sec.]");
        for (const CModeRecord* r : m->GetEigenModeList()) {
            const double f = r->GetValue();
            out += Format("%6i%12.3f%12.3f%12.3f\r\n", r->GetNo(), f, 2.0 * std::numbers::pi * f,
                          f > 0.0 ? 1.0 / f : 0.0);
        }
        out += kCrLf;
    }
    return 1;
}

int CListServer::MakeCalcGroupListing(std::string& out) const {
    MakeTitle(out, "Calculation groups");
    for (const CCalcGroup* g : *Structure->GetCalcGroupList()) {
        out += Format("%-18s%5d%6s%3d   %s\r\n", "Calculation group:", g->GetCalcGroupNo(),
                      "Type:", g->GetAnalysisType(), g->GetName().c_str());
        NumberLines(out, g->GetLoadNoArray(), 10);
        out += kCrLf;
    }
    return 1;
}

int CListServer::MakeAnalysesListing(std::string& out) const {
    MakeTitle(out, "Analyses");
    out += Format("%6s%7s%7s%7s%7s%7s%7s  %s\r\n", "No", "Type", "Model", "First", "Last", "Setup",
                  "Status", "Name");
    for (const CAnalysis* a : *Structure->GetAnalysisList())
        out += Format("%6d%7d%7d%7d%7d%7d%7d  %s\r\n", a->GetAnalysisNo(), a->GetAnType(),
                      a->GetModel(), a->GetFirstCalcGroup(), a->GetLastCalcGroup(),
                      a->GetAnSetupNo(), a->GetAnalysisStatus(), a->GetName().c_str());
    return 1;
}

int CListServer::MakeConSeqListing(std::string& out) const {
    MakeTitle(out, "Construction sequences");
    for (const CConstrSeq* c : *Structure->GetConstrSeqList()) {
        out += Format("%6d%10.2f%10.2f  %s\r\n", c->GetNo(), c->GetBirth(), c->GetTermination(),
                      c->GetName().c_str());
        NumberLines(out, c->GetElemNoArray(), 10);
    }
    return 1;
}

int CListServer::MakeModelElemResListing(std::string& out) const {
    MakeTitle(out, "Model specific element results");
    CMemResBase* store = Structure->GetResBasePtr();
    for (const CModel* m : *Structure->GetModelList()) {
        out += Format("%-16s%3s%-i\r\n", "MODEL NO.", " : ", m->GetModelNo());
        out += Format("%-16s%3s%-32s\r\n", "Model name", " : ", m->GetModelName().c_str());
        out += Format("%6s%11s%11s%11s%11s%9s%11s%9s%9s%9s%9s\r\n", "Elem", "A", "IL", "IM", "IN",
                      "E", "N", "Lk-L", "Lk-N", "LLk-L", "LLk-N");
        out += Format("%6s%11s%11s%11s%11s%9s%11s%9s%9s%9s%9s\r\n", "", "[m2]", "[m4]", "[m4]",
                      "[m4]", "[MPa]", "[kN]", "[m]", "[m]", "[m]", "[m]");
        for (const CElement* e : *Structure->GetElementList()) {
            std::shared_ptr<CModelElemRes> r;
            if (!store->ModelElemResInBase(0, 0, m->GetModelNo(), e->GetNo(), &r) || !r) continue;
            out += Format("%6d%11.5f%11.6f%11.6f%11.6f%9.0f%11.2f%9.3f%9.3f%9.3f%9.3f\r\n",
                          e->GetNo(), r->GetArea(), r->GetMomInertL(), r->GetMomInertM(),
                          r->GetMomInertN(), r->GetYoungsModulus(), r->GetAxialForce(),
                          r->GetBucklingLengthL(), r->GetBucklingLengthN(),
                          r->GetLatBucklingLengthL(), r->GetLatBucklingLengthN());
        }
        out += kCrLf;
    }
    return 1;
}

// ------------------------------------------------------------------------- combinations

int CListServer::MakeLoadCombListing(std::string& out) const {
    MakeTitle(out, "Ordinary load combinations");
    for (const CLoadcomb* c : *Structure->GetLoadcombList()) {
        out += Format("%-13s%5d%5s   %s\r\n", "Combination:", c->GetLoadcombNo(),
                      LimitStateName(c->GetLimitState()), c->GetName().c_str());
        FactorLines(out, c->GetLoadfacts().GetList());
        out += kCrLf;
    }
    return 1;
}

int CListServer::MakeSortCombListing(std::string& out) const {
    MakeTitle(out, "Sorted combinations");
    for (const CSortComb* c : *Structure->GetSortCombList()) {
        out += Format("%-13s%5d%5s%9s%3d   %s\r\n", "Sorted comb.:", c->GetSortCombNo(),
                      LimitStateName(c->GetLimitState()), "Method:", c->GetCombMethod(),
                      c->GetName().c_str());
        FactorLines(out, c->GetLoadfacts().GetList());
        out += kCrLf;
    }
    return 1;
}

int CListServer::MakeSortCombLineListing(std::string& out) const {
    MakeTitle(out, "Sorted combinations lines");
    for (const CSortCombLine* c : *Structure->GetSortCombLineList()) {
        out += Format("%-13s%5d%5s%7s%3d%12s%5d%5d%5d   %s\r\n",
                      "Comb. line:", c->GetSortCombLineNo(), LimitStateName(c->GetLimitState()),
                      "Code:", c->GetCalcCode(), "Sort combs:", c->GetSortCombInterval(0),
                      c->GetSortCombInterval(1), c->GetSortCombInterval(2), c->GetName().c_str());
        NumberLines(out, c->GetElementNoArray(), 10);
        out += kCrLf;
    }
    return 1;
}

// ------------------------------------------------------------------------- miscellaneous

int CListServer::MakeRunStatisticsListing(std::string& out) const {
    MakeTitle(out, "Run statistics");
    // The statistics are kept as equations, band width, block size, block count, load cases.
    const std::pair<const char*, int> rows[] = {{"Number of DOFs          =", 0},
                                                {"Band width              =", 1},
                                                {"Number of blocks        =", 3},
                                                {"Number of DOFs pr block =", 2},
                                                {"Number of loadcases     =", 4}};
    for (const auto& [label, index] : rows)
        out += Format("%-25s %5d\r\n", label, Structure->GetRunStatistics(index));
    out += "Calculated eigenmodes:\r\n";
    for (CModel* m : *Structure->GetModelList())
        for (const CModeRecord* r : m->GetEigenModeList())
            out +=
                Format("%6i%-12s%9.3f%-5s\r\n", r->GetNo(), ".eigenmode ", r->GetValue(), " [Hz]");
    return 1;
}

int CListServer::MakeDefinedSpectrasListing(std::string& out) const {
    MakeTitle(out, "Defined spectras");
    out += "Wind spectra:\r\n";
    out +=
        Format("%6s%6s%10s%10s%10s  %s\r\n", "No", "Type", "RefHeight", "HorCoh", "VerCoh", "Name");
    for (const CWindSpectra* w : *Structure->GetWindSpectraList())
        out +=
            Format("%6d%6d%10.3f%10.3f%10.3f  %s\r\n", w->GetNo(), w->GetType(), w->GetRefHeight(),
                   w->GetHorCoherence(), w->GetVerCoherence(), w->GetName().c_str());
    out += "Earthquake spectra:\r\n";
    out += Format("%6s%6s%8s%10s%10s  %s\r\n", "No", "Type", "Kind", "Damping", "Norm.", "Name");
    for (const CEarthquakeSpectra* e : *Structure->GetEarthquakeSpectraList())
        out += Format("%6d%6d%8d%10.3f%10.3f  %s\r\n", e->GetNo(), e->GetType(), e->GetValueKind(),
                      e->GetDamping(), e->GetNormalization(), e->GetName().c_str());
    return 1;
}

int CListServer::MakeEqulibriumCheckListing(std::string& out) const {
    MakeTitle(out, "Equilibrium check");
    out += Format("%-5s   %-32s %-20s%12s%12s%12s\r\n", "   Lc", "", "", "PX", "PY", "PZ");
    out += Format("%61s%12s%12s%12s\r\n", "", "[kN]", "[kN]", "[kN]");
    for (const CLoadcase* lc : *Structure->GetLoadcaseList()) {
        out += Format("%5d   %-32s %-20s%12.2f%12.2f%12.2f\r\n", lc->GetLoadcaseNo(),
                      lc->GetName().c_str(), "Sum applied loads", lc->GetSumAppForces(0),
                      lc->GetSumAppForces(1), lc->GetSumAppForces(2));
        out += Format("        %33s%-20s%12.2f%12.2f%12.2f\r\n", "", "Sum reaction forces",
                      lc->GetSumReaForces(0), lc->GetSumReaForces(1), lc->GetSumReaForces(2));
    }
    return 1;
}

int CListServer::MakeCoordSysListing(std::string& out) const {
    MakeTitle(out, "Coordinate systems");
    MakeModelHeader(out);
    out += "Global axes: X and Y in plan, Z up; plan angles counter-clockwise from X.\r\n";
    out += "Local element axes: M from node 1 to node 2, L = M x N.\r\n\r\n";
    // Each local axis as a unit vector in global X, Y, Z.
    out += Format("%6s%5s%10s%10s%10s\r\n", "Elem", "Axis", "X", "Y", "Z");
    const char* const axes[3] = {"L", "M", "N"};
    const CObList<CNode>* nodes = FindNodeList();
    for (const CElement* e : *FindElementList()) {
        const std::unique_ptr<CElement> work = ElementWithAxes(Structure, *e, *nodes);
        if (!work) continue;
        for (int i = 0; i < 3; ++i)
            out += Format("%6d%5s%10.5f%10.5f%10.5f\r\n", e->GetNo(), axes[i],
                          work->GetTransMatrix(i, 0), work->GetTransMatrix(i, 1),
                          work->GetTransMatrix(i, 2));
    }
    return 1;
}

int CListServer::MakePartisipateMassListing(std::string& out) const {
    MakeTitle(out, "Participating mass");
    // The modal masses belong to the eigenvalue run; a mode whose run left none shows "-".
    for (CModel* m : *Structure->GetModelList()) {
        if (m->GetEigenModeList().IsEmpty()) continue;
        out += Format("%-11s%5d\r\n", "Model no.:", m->GetModelNo());
        out += Format("%6s%10s%10s%10s%10s%10s%10s%10s%10s%10s\r\n", "Mode:", "Freq.", "Modal MX",
                      "Modal MY", "Modal MZ", "Modal RMX", "Modal RMY", "Modal RMZ", "Sum Modal",
                      "Modal K");
        out += Format("%6s%10s%10s%10s%10s%10s%10s%10s%10s%10s\r\n", "", "[Hz]", "[ton]", "[ton]",
                      "[ton]", "[ton]", "[ton]", "[ton]", "[ton]", "[kN/m]");
        for (const CModeRecord* r : m->GetEigenModeList()) {
            out += Format("%6i%10.3f", r->GetNo(), r->GetValue());
            for (int i = 0; i < 8; ++i) out += Format("%10s", "-");
            out += kCrLf;
        }
        out += kCrLf;
    }
    return 1;
}

int CListServer::MakeCombTracerListing(std::string& out) const {
    MakeTitle(out, "Combination Tracer");
    CCombServer server(Structure);
    // One pair a column: load case and its factor in the combination.
    const auto pairs = [](const std::vector<CLoadfact>& facts) {
        std::string text;
        for (const CLoadfact& f : facts) text += Format("%6d%8.3f", f.GetNo(), f.GetFact());
        return text + kCrLf;
    };
    for (const CLoadcomb* c : *Structure->GetLoadcombList()) {
        out += Format("%-13s%5d%5s   %s\r\n", "Combination:", c->GetLoadcombNo(),
                      LimitStateName(c->GetLimitState()), c->GetName().c_str());
        std::vector<CLoadfact> facts;
        server.SplitLoadComb(c, &facts, 1.0, 0, 0, 0.0);
        out += Format("%6s%8s\r\n", "Lc", "Factor") + pairs(facts) + kCrLf;
    }
    // The sorted combinations: at each design section the cases behind each governing row, by
    // the combination's method, read from the stored results.
    static const char* const kRows[12] = {"PL-Max", "PM-Max", "PN-Max", "ML-Max",
                                          "MM-Max", "MN-Max", "PL-Min", "PM-Min",
                                          "PN-Min", "ML-Min", "MM-Min", "MN-Min"};
    for (const CSortComb* c : *Structure->GetSortCombList()) {
        out += Format("%-13s%5d%5s%9s%3d   %s\r\n", "Sorted comb.:", c->GetSortCombNo(),
                      LimitStateName(c->GetLimitState()), "Method:", c->GetCombMethod(),
                      c->GetName().c_str());
        out +=
            Format("%6s%7s  %-8s%11s  %s\r\n", "Elem", "X/L", "Row", "Value", "Lc and factor ...");
        for (const CElement* e : *Structure->GetElementList())
            for (const CDesignSection* d : e->GetDesignSectionList())
                for (int r = 0; r < 12; ++r) {
                    const double x = d->GetXoverL();
                    std::vector<CLoadfact> facts;
                    if (!server.SplitSortComb(c, &facts, 1.0, r, e->GetNo(), x)) continue;
                    const double value = server.GetResult(CCombServer::kSortCombRow0 + r, r,
                                                          c->GetSortCombNo(), e->GetNo(), x);
                    out += Format("%6d%7.2f  %-8s%11.2f", e->GetNo(), x, kRows[r],
                                  ListedValue(value, 2)) +
                           pairs(facts);
                }
        out += kCrLf;
    }
    return 1;
}

int CListServer::MakeMemberListing(std::string& out) const {
    MakeTitle(out, "Defined members");
    for (const CMember* m : *Structure->GetMemberList()) {
        out += Format("%-8s%5d%6s%3d   %s\r\n", "Member:", m->GetNo(), "Type:", m->GetType(),
                      m->GetName().c_str());
        NumberLines(out, m->GetElementNoArray(), 10);
    }
    return 1;
}

int CListServer::MakeChangesListing(std::string& out) const {
    MakeTitle(out, "Logged changes");
    for (const CId* id : *Structure->GetChangesList()) {
        std::string line;
        id->GetIdString(line);
        out += line;
    }
    return 1;
}

int CListServer::MakeDocStatustListing(std::string& out) const {
    MakeTitle(out, "List document content/status");
    out += Format("%-30s%s\r\n", "Document:", Structure->GetDocumentPath().c_str());
    const std::pair<const char*, std::size_t> rows[] = {
        {"Reference lines", Structure->GetRefLineList()->GetCount()},
        {"Nodes", Structure->GetNodeList()->GetCount()},
        {"Elements", Structure->GetElementList()->GetCount()},
        {"Load cases", Structure->GetLoadcaseList()->GetCount()},
        {"Ordinary load combinations", Structure->GetLoadcombList()->GetCount()},
        {"Sorted combinations", Structure->GetSortCombList()->GetCount()},
        {"Sorted combination lines", Structure->GetSortCombLineList()->GetCount()},
        {"Models", Structure->GetModelList()->GetCount()},
        {"Calculation groups", Structure->GetCalcGroupList()->GetCount()},
        {"Analyses", Structure->GetAnalysisList()->GetCount()},
        {"Tendons", Structure->GetTendonList()->GetCount()}};
    for (const auto& [label, count] : rows) out += Format("%-30s%8zu\r\n", label, count);
    out += Format("%-30s%8s\r\n", "Results", Structure->AnyResults() ? "Yes" : "No");
    return 1;
}

int CListServer::MakeNodeAsciiListing(std::string& out) const {
    for (const CNode* n : *FindNodeList())
        out += Format("NODE, %d, %.3lf, %.3lf, %.3lf\r\n", n->GetNo(), n->GetX(), n->GetY(),
                      n->GetZ());
    return 1;
}

int CListServer::MakeElemStiffAsciiListing(std::string& out) const {
    // The frame sections as they were given: number, type, modulus, Poisson's ratio and the four
    // dimensions of the type. They are the key sections of line 0.
    const CRefLine* line0 = Structure->GetRefLinePtr(0);
    if (!line0) return 1;
    for (const CKeySection* k : line0->GetKeySectionList()) {
        const double* d = k->GetParamArray();
        out += Format("SECTINS, %d, %d, %.1lf, %.3lf, %.6lf, %.6lf, %.6lf, %.6lf\r\n", k->GetNo(),
                      k->GetType(), k->GetYoungsModulus(), k->GetPoisson(), d[0], d[1], d[2], d[3]);
    }
    return 1;
}

// ------------------------------------------------------------------------- tendons

namespace {

// Prestressing steel without a material set: strand of 1670 MPa and 195000 MPa.
constexpr double kDefaultTendonFsk = 1670.0;
constexpr double kDefaultTendonE = 195000.0;
// Density of prestressing steel, kg/m³.
constexpr double kTendonDensity = 7850.0;

const char* TendonKindName(int type) { return type == 1 ? "PRE" : "POST"; }

const char* GeomTypeName(int type) {
    switch (type) {
    case 0:
        return "Elements";
    case 1:
        return "Stations";
    case 2:
        return "Axes";
    default:
        return "?";
    }
}

// The line that opens a tendon's block: its number and, when it has one, its name.
std::string TendonHead(const CTendon& t) {
    return Format("Tendon %d", t.GetNo()) + (t.GetName().empty() ? "" : "  " + t.GetName()) + kCrLf;
}

// Characteristic strength and modulus of a tendon's steel, MPa.
double TendonFsk(const CStructure& s, const CTendon& t) {
    const CPrestMatPar* m = s.GetPrestMatParPtr(t.GetMatParNo());
    return m ? m->GetFsk() / 1000.0 : kDefaultTendonFsk;
}

double TendonModulus(const CStructure& s, const CTendon& t) {
    const CPrestMatPar* m = s.GetPrestMatParPtr(t.GetMatParNo());
    return m ? m->GetEsk() / 1000.0 : kDefaultTendonE;
}

// The jacking force of one tendon (kN) at a stress in percent of the strength: mm² times MPa.
double JackingForce(const CStructure& s, const CTendon& t, double stressPercent) {
    return t.GetArea() * TendonFsk(s, t) * stressPercent / 100000.0;
}

// A tendon at one position of an element: force of one tendon (kN), offsets along L and N (m),
// global position (m).
struct TendonAt {
    const CTendon* Tendon = nullptr;
    double P = 0.0, L = 0.0, N = 0.0;
    double Coord[3] = {0.0, 0.0, 0.0};
};

// The force as the element result gives it; offsets and position straight between the points
// of the walk on either side of ξ.
TendonAt TendonAtSection(const CTendon& tendon, const CTendonElemRes& res, double xi) {
    TendonAt at;
    at.Tendon = &tendon;
    at.P = res.CalcTendonForce(xi);
    const CTendonDesSecRes* a = nullptr;
    const CTendonDesSecRes* b = nullptr;
    for (const CTendonDesSecRes* r : *res.GetSecResList()) {
        if (r->GetXoverL() <= xi + 1e-9) a = r;
        if (r->GetXoverL() >= xi - 1e-9) {
            b = r;
            break;
        }
    }
    if (!a) a = b;
    if (!b) b = a;
    if (!a) return at;
    const double span = b->GetXoverL() - a->GetXoverL();
    const double w = span > 1e-9 ? (xi - a->GetXoverL()) / span : 0.0;
    at.L = a->GetL(0) + w * (b->GetL(0) - a->GetL(0));
    at.N = a->GetN(0) + w * (b->GetN(0) - a->GetN(0));
    for (int i = 0; i < 3; ++i)
        at.Coord[i] = a->GetCoord(i) + w * (b->GetCoord(i) - a->GetCoord(i));
    return at;
}

// The element results of all tendons by element number, found in one walk of each tendon.
using TendonsByElement =
    std::unordered_map<int, std::vector<std::pair<const CTendon*, const CTendonElemRes*>>>;

TendonsByElement CollectTendonResults(const std::vector<CTendon*>& tendons) {
    TendonsByElement byElement;
    for (const CTendon* t : tendons)
        for (const CTendonElemRes* r : *t->GetTendonElemResList())
            byElement[r->GetElementNo()].emplace_back(t, r);
    return byElement;
}

// Heights of the upper and lower face above the centre of gravity of an element's section at
// ξ (m); false for a section given by its values alone, which has no outline.
bool FaceHeights(CStructure& s, int elementNo, double xi, double& upper, double& lower) {
    const std::unique_ptr<CKeySection> section = s.CreateKeySection(0, elementNo, xi);
    if (!section) return false;
    const int type = section->GetType();
    if (type == 1 || (type >= 20 && type <= 22)) return false;
    const CSectPointList& points = section->GetSectPointList();
    if (points.GetCount() < 3) return false;
    // Frame members are drawn in millimetres about their centre of gravity, the others in
    // metres in section axes.
    const bool member = type >= 2 && type <= 5;
    const double scale = member ? 0.001 : 1.0;
    const double centre = member ? 0.0 : section->GetCoGY();
    upper = -1e300;
    lower = 1e300;
    for (std::size_t i = 0; i < points.GetCount(); ++i) {
        const double y = points.At(i)->GetY() * scale - centre;
        upper = std::max(upper, y);
        lower = std::min(lower, y);
    }
    return upper > lower;
}

} // namespace

bool CListServer::TendonReady(CTendon& tendon, std::string& out) const {
    if (tendon.IsUpdate() || tendon.Update(Structure)) return true;
    out += Format("Tendon %d: the geometry or the losses could not be worked out.\r\n",
                  tendon.GetNo());
    out += tendon.GetUpdateText();
    out += kCrLf;
    return false;
}

int CListServer::MakeTendonListing(std::string& out) const {
    MakeTitle(out, "Tendon summary");
    out += Format("%5s %-5s %3s %-8s %4s %3s %4s %4s %9s %7s %7s %8s %8s %4s %9s  %s\r\n", "No",
                  "Type", "Ext", "Geometry", "Rfl", "Rel", "Mat", "Des", "Area", "Duct", "Grout",
                  "Stress1", "Stress2", "Code", "Length", "Name");
    out += Format("%5s %-5s %3s %-8s %4s %3s %4s %4s %9s %7s %7s %8s %8s %4s %9s\r\n", "", "", "",
                  "", "", "", "", "", "[mm2]", "[mm]", "[MPa]", "[%]", "[%]", "", "[m]");
    std::string problems;
    for (CTendon* t : *Structure->GetTendonList()) {
        if (!CheckInterval(t->GetNo())) continue;
        const bool ready = TendonReady(*t, problems);
        out += Format("%5d %-5s %3d %-8s %4d %3d %4d %4d %9.1f %7.1f %7.1f %8.2f %8.2f %4d %9.3f  "
                      "%s\r\n",
                      t->GetNo(), TendonKindName(t->GetType()), t->GetExternal(),
                      GeomTypeName(t->GetGeomType()), t->GetRefLineNo(), t->GetRelativeType(),
                      t->GetMatParNo(), t->GetDesParNo(), t->GetArea(), t->GetDuctDiameter(),
                      t->GetGroutStrength(), t->GetStress1(), t->GetStress2(), t->GetStressCode(),
                      ready ? t->CalcTendonLength() : 0.0, t->GetName().c_str());
    }
    out += kCrLf;
    out += "Bundles and connections\r\n";
    out += Format("%5s %5s %9s %9s %7s %9s %9s\r\n", "No", "nT", "SpaceL", "SpaceN", "Connect",
                  "LOffset", "NOffset");
    out += Format("%5s %5s %9s %9s %7s %9s %9s\r\n", "", "", "[mm]", "[mm]", "", "[mm]", "[mm]");
    for (const CTendon* t : *Structure->GetTendonList()) {
        if (!CheckInterval(t->GetNo())) continue;
        out += Format("%5d %5d %9.1f %9.1f %7d %9.1f %9.1f\r\n", t->GetNo(), t->GetNoOfTendons(),
                      t->GetSpaceLDir(), t->GetSpaceNDir(), t->GetConnectTendon(), t->GetLOffset(),
                      t->GetNOffset());
    }
    if (!problems.empty()) out += kCrLf + problems;
    return 1;
}

int CListServer::MakeTendonLossesListing(std::string& out, int detailed) const {
    MakeTitle(out, detailed ? "Tendon losses detailed" : "Tendon losses");
    for (CTendon* t : *Structure->GetTendonList()) {
        if (!CheckInterval(t->GetNo())) continue;
        out += TendonHead(*t);
        MakeLine(out, 72, 0);
        double mu = 0.0, k = 0.0, slip = 0.0, shrinkage = 0.0, creep = 0.0, low = 0.0, high = 0.0,
               relax = 0.0;
        t->GetLossParam(&mu, &k, &slip, &shrinkage, &creep, &low, &high, &relax);
        const std::pair<const char*, double> rows[] = {
            {"Friction coefficient      [1/rad]", mu},
            {t->GetType() == 1 ? "Anchor slip length        [m]" : "Anchor slip               [mm]",
             slip},
            {"Wobble coefficient        [1/m]", k},
            {"Shrinkage strain          [o/oo]", shrinkage},
            {"Creep strain              [o/oo]", creep},
            {"Relaxation lower limit    [%]", low},
            {"Relaxation upper limit    [%]", high},
            {"Relaxation loss at upper  [%]", relax}};
        for (const auto& [label, value] : rows) out += Format("%-36s%12.4f\r\n", label, value);
        out += Format("%-36s%12.2f%12.2f\r\n", "Jacking stress end 1, end 2 [%]", t->GetStress1(),
                      t->GetStress2());
        out += Format("%-36s%12.1f%12.1f\r\n", "Jacking force end 1, end 2  [kN]",
                      JackingForce(*Structure, *t, t->GetStress1()) * t->GetNoOfTendons(),
                      JackingForce(*Structure, *t, t->GetStress2()) * t->GetNoOfTendons());
        out += kCrLf;
        if (!TendonReady(*t, out)) continue;
        // The tables of the loss walk are the tendon's own.
        std::string tables;
        t->CalcTendonLossesByVector(&tables, Structure, detailed ? 2 : 1);
        out += tables;
        out += kCrLf;
    }
    return 1;
}

int CListServer::MakeTendonGeomListing(std::string& out, int mode) const {
    static const char* const kTitles[] = {"Tendon geometry", "Tendon elongation",
                                          "Tendon path point by point"};
    MakeTitle(out, kTitles[std::clamp(mode, 0, 2)]);
    const bool interval = mode == 0;
    if (mode == 1) {
        out += Format("%5s %4s %8s %8s %10s %10s %10s %10s %9s %9s\r\n", "No", "Code", "Stress1",
                      "Stress2", "Force1", "Force2", "Elong1", "Elong2", "Length", "Angle");
        out += Format("%5s %4s %8s %8s %10s %10s %10s %10s %9s %9s\r\n", "", "", "[%]", "[%]",
                      "[kN]", "[kN]", "[mm]", "[mm]", "[m]", "[rad]");
    }
    std::string problems;
    for (CTendon* t : *Structure->GetTendonList()) {
        if (interval && !CheckInterval(t->GetNo())) continue;
        const bool ready = TendonReady(*t, problems);
        if (mode == 1) {
            const int n = t->GetNoOfTendons();
            out += Format("%5d %4d %8.2f %8.2f %10.1f %10.1f %10.1f %10.1f %9.3f %9.4f\r\n",
                          t->GetNo(), t->GetStressCode(), t->GetStress1(), t->GetStress2(),
                          JackingForce(*Structure, *t, t->GetStress1()) * n,
                          JackingForce(*Structure, *t, t->GetStress2()) * n, t->GetElongation1(),
                          t->GetElongation2(), t->GetTotalLength(), t->GetTotalAngle());
            continue;
        }
        out += TendonHead(*t);
        out += Format("Geometry by: %s   Reference line: %d   Relative type: %d\r\n",
                      GeomTypeName(t->GetGeomType()), t->GetRefLineNo(), t->GetRelativeType());
        if (mode == 0) {
            const bool byElements = t->GetGeomType() == 0;
            out += Format("%4s %4s %5s %10s %10s %5s %9s %9s %9s %8s %9s\r\n", "Dir", "No", "Curve",
                          "From", "To", "Step", "Start", "End", "P", "S", "Length");
            out += Format("%4s %4s %5s %10s %10s %5s %9s %9s %9s %8s %9s\r\n", "", "", "",
                          byElements ? "" : "[m/axis]", byElements ? "" : "[m/axis]", "", "[m]",
                          "[m]", "", "[m]", "[m]");
            const std::pair<const char*, const COwnedList<CTendonGeom>*> lists[] = {
                {"N", t->GetTendonGeomListN()}, {"L", t->GetTendonGeomListL()}};
            for (const auto& [dir, list] : lists) {
                int no = 0;
                for (const CTendonGeom* g : *list) {
                    double from = g->GetStartStation(), to = g->GetEndStation();
                    if (byElements) {
                        from = g->GetStartElement();
                        to = g->GetEndElement();
                    }
                    out += Format("%4s %4d %5d %10.3f %10.3f %5d %9.3f %9.3f %9.4f %8.3f %9.3f\r\n",
                                  dir, ++no, g->GetType(), from, to, g->GetElementStep(),
                                  g->GetStartValue(), g->GetEndValue(), g->GetP(), g->GetS(),
                                  g->GetLength());
                }
            }
        } else if (ready) {
            out += Format("%6s %6s %10s %9s %9s %11s %11s %9s\r\n", "Elem", "x/L", "P", "eL", "eN",
                          "X", "Y", "Z");
            out += Format("%6s %6s %10s %9s %9s %11s %11s %9s\r\n", "", "", "[kN]", "[m]", "[m]",
                          "[m]", "[m]", "[m]");
            const int n = t->GetNoOfTendons();
            for (const CTendonElemRes* r : *t->GetTendonElemResList())
                for (const CTendonDesSecRes* p : *r->GetSecResList())
                    out += Format("%6d %6.3f %10.1f %9.3f %9.3f %11.3f %11.3f %9.3f\r\n",
                                  r->GetElementNo(), p->GetXoverL(), p->GetP() * n, p->GetL(0),
                                  p->GetN(0), p->GetCoord(0), p->GetCoord(1), p->GetCoord(2));
        }
        out += kCrLf;
    }
    if (!problems.empty()) out += kCrLf + problems;
    return 1;
}

int CListServer::MakeTendonAmountListing(std::string& out) const {
    MakeTitle(out, "Tendon total amount");
    out += Format("%5s %5s %9s %10s %9s %10s %11s  %s\r\n", "No", "nT", "Area", "TotArea", "Length",
                  "Volume", "Weight", "Name");
    out += Format("%5s %5s %9s %10s %9s %10s %11s\r\n", "", "", "[mm2]", "[mm2]", "[m]", "[m3]",
                  "[kg]");
    int count = 0;
    double totalLength = 0.0, totalVolume = 0.0;
    std::string problems;
    for (CTendon* t : *Structure->GetTendonList()) {
        const double length = TendonReady(*t, problems) ? t->CalcTendonLength() : 0.0;
        const double area = t->GetArea() * t->GetNoOfTendons();
        const double volume = area * 1e-6 * length;
        out += Format("%5d %5d %9.1f %10.1f %9.3f %10.4f %11.1f  %s\r\n", t->GetNo(),
                      t->GetNoOfTendons(), t->GetArea(), area, length, volume,
                      volume * kTendonDensity, t->GetName().c_str());
        count += t->GetNoOfTendons();
        totalLength += length * t->GetNoOfTendons();
        totalVolume += volume;
    }
    MakeLine(out, 66, 0);
    out += Format("%-5s %5d %9s %10s %9.3f %10.4f %11.1f\r\n", "Sum", count, "", "", totalLength,
                  totalVolume, totalVolume * kTendonDensity);
    if (!problems.empty()) out += kCrLf + problems;
    return 1;
}

int CListServer::MakeTendonGeomDetailListing(std::string& out) const {
    MakeTitle(out, "Tendon geometry on the elements");
    out +=
        "Piece: number of the piece in its direction; spans relative to piece and element\r\n\r\n";
    std::string problems;
    for (CTendon* t : *Structure->GetTendonList()) {
        out += TendonHead(*t);
        if (!TendonReady(*t, out)) continue;
        out += Format("%6s %4s %4s %6s %9s %9s %9s %9s\r\n", "Elem", "Dir", "Slot", "Piece",
                      "PieceFrom", "PieceTo", "ElemFrom", "ElemTo");
        // The pieces by their place in their list, for the piece column.
        std::unordered_map<const CTendonGeom*, int> places;
        for (const auto* list : {t->GetTendonGeomListN(), t->GetTendonGeomListL()}) {
            int no = 0;
            for (const CTendonGeom* g : *list) places.emplace(g, ++no);
        }
        for (const CTenElemGeom* eg : *t->GetTenElemGeomList()) {
            for (const int dir : {2, 1}) {
                for (int slot = 0; slot < 2; ++slot) {
                    const CTendonGeom* piece = nullptr;
                    double pf = 0.0, ef = 0.0, pt = 0.0, et = 0.0;
                    if (!eg->GetElemGeom(dir, slot, &piece, &pf, &ef, &pt, &et) || !piece) continue;
                    const auto place = places.find(piece);
                    out += Format("%6d %4s %4s %6d %9.4f %9.4f %9.4f %9.4f\r\n", eg->GetElementNo(),
                                  dir == 2 ? "N" : "L", slot == 0 ? "A" : "B",
                                  place == places.end() ? 0 : place->second, pf, pt, ef, et);
                }
            }
        }
        out += kCrLf;
    }
    return 1;
}

int CListServer::MakePCSpennListing(std::string& out) const {
    MakeTitle(out, "Stressing record");
    out += Format("%6s %4s %5s %8s %10s %10s %10s %10s %10s\r\n", "Tendon", "End", "nT", "Stress",
                  "Jack/ten.", "Jack", "Elong", "Slip", "Anchor");
    out += Format("%6s %4s %5s %8s %10s %10s %10s %10s %10s\r\n", "", "", "", "[%]", "[kN]", "[kN]",
                  "[mm]", "[mm/m]", "[kN]");
    std::string problems;
    for (CTendon* t : *Structure->GetTendonList()) {
        if (!TendonReady(*t, problems)) continue;
        const int n = t->GetNoOfTendons();
        // The force left at each anchor after all losses: the first and the last point of the
        // walk.
        double anchor[2] = {0.0, 0.0};
        const auto* res = t->GetTendonElemResList();
        if (!res->IsEmpty()) {
            const auto* first = res->At(0)->GetSecResList();
            const auto* last = res->At(res->GetCount() - 1)->GetSecResList();
            if (!first->IsEmpty()) anchor[0] = first->At(0)->GetP() * n;
            if (!last->IsEmpty()) anchor[1] = last->At(last->GetCount() - 1)->GetP() * n;
        }
        const double stress[2] = {t->GetStress1(), t->GetStress2()};
        const double elong[2] = {t->GetElongation1(), t->GetElongation2()};
        const double slip[2] = {t->GetSlip1(), t->GetSlip2()};
        for (int end = 0; end < 2; ++end) {
            if (!(stress[end] > 0.0)) continue;
            const double jack = JackingForce(*Structure, *t, stress[end]);
            out +=
                Format("%6d %4d %5d %8.2f %10.1f %10.1f %10.1f %10.3f %10.1f\r\n", t->GetNo(),
                       end + 1, n, stress[end], jack, jack * n, elong[end], slip[end], anchor[end]);
        }
    }
    if (!problems.empty()) out += kCrLf + problems;
    return 1;
}

int CListServer::MakeTendonDesignListing(std::string& out, int mode) const {
    static const char* const kTitles[] = {"Tendon calculated for design",
                                          "Tendon calculated for design - detail",
                                          "Tendon sum and position calculated for design",
                                          "Tendon sum and position calculated for design - detail"};
    mode = std::clamp(mode, 0, 3);
    MakeTitle(out, kTitles[mode]);
    MakeModelHeader(out);
    out += "Forces of whole bundles; eL, eN offsets of the tendon from the element axis along L\r\n"
           "and N. The sum is placed at the resultant of the forces.\r\n\r\n";
    std::vector<CTendon*> tendons;
    std::string problems;
    for (CTendon* t : *Structure->GetTendonList())
        if (TendonReady(*t, problems)) tendons.push_back(t);
    const TendonsByElement byElement = CollectTendonResults(tendons);

    const bool perTendon = mode != 2;
    const bool sums = mode >= 2;
    if (mode == 1) {
        out += Format("%6s %7s %6s %4s %11s %9s %9s %9s %10s %10s %9s\r\n", "Elem", "x/L", "Tendon",
                      "nT", "P", "eL", "eN", "Strain", "X", "Y", "Z");
        out += Format("%6s %7s %6s %4s %11s %9s %9s %9s %10s %10s %9s\r\n", "", "", "", "", "[kN]",
                      "[m]", "[m]", "[o/oo]", "[m]", "[m]", "[m]");
    } else {
        out += Format("%6s %7s %6s %4s %11s %9s %9s %11s %11s\r\n", "Elem", "x/L", "Tendon", "nT",
                      "P", "eL", "eN", "P*eL", "P*eN");
        out += Format("%6s %7s %6s %4s %11s %9s %9s %11s %11s\r\n", "", "", "", "", "[kN]", "[m]",
                      "[m]", "[kNm]", "[kNm]");
    }
    for (const CElement* e : *FindElementList()) {
        if (!CheckInterval(e->GetNo())) continue;
        const auto found = byElement.find(e->GetNo());
        if (found == byElement.end()) continue;
        for (const CDesignSection* ds : e->GetDesignSectionList()) {
            const double xi = ds->GetXoverL();
            double sumP = 0.0, sumPL = 0.0, sumPN = 0.0;
            int count = 0;
            for (const auto& [tendon, res] : found->second) {
                const TendonAt at = TendonAtSection(*tendon, *res, xi);
                const int n = tendon->GetNoOfTendons();
                const double P = at.P * n;
                sumP += P;
                sumPL += P * at.L;
                sumPN += P * at.N;
                count += n;
                if (!perTendon) continue;
                if (mode == 1) {
                    const double ea = tendon->GetArea() * TendonModulus(*Structure, *tendon);
                    const double strain = ea > 0.0 ? at.P * 1e6 / ea : 0.0;
                    out += Format("%6d %7.3f %6d %4d %11.1f %9.3f %9.3f %9.4f %10.3f %10.3f "
                                  "%9.3f\r\n",
                                  e->GetNo(), xi, tendon->GetNo(), n, P, at.L, at.N, strain,
                                  at.Coord[0], at.Coord[1], at.Coord[2]);
                } else {
                    out +=
                        Format("%6d %7.3f %6d %4d %11.1f %9.3f %9.3f %11.1f %11.1f\r\n", e->GetNo(),
                               xi, tendon->GetNo(), n, P, at.L, at.N, P * at.L, P * at.N);
                }
            }
            if (!sums) continue;
            const double eL = std::fabs(sumP) > 1e-9 ? sumPL / sumP : 0.0;
            const double eN = std::fabs(sumP) > 1e-9 ? sumPN / sumP : 0.0;
            out += Format("%6d %7.3f %6s %4d %11.1f %9.3f %9.3f %11.1f %11.1f\r\n", e->GetNo(), xi,
                          "Sum", count, sumP, eL, eN, sumPL, sumPN);
            if (mode == 3) out += kCrLf;
        }
    }
    if (!problems.empty()) out += kCrLf + problems;
    return 1;
}

int CListServer::MakeElastStressListing(std::string& out) const {
    MakeTitle(out, "Elastic stresses from tendons");
    out += "\r\nDescription:\r\n"
           "Stresses at the upper and the lower face of the sections at the design sections,\r\n"
           "from the sum of the tendon forces at its resultant position: -P/A - P*eN*y/IL.\r\n"
           "Faces are the highest and lowest points of the section outline; a section given\r\n"
           "by its values alone has none. Tensile stresses are marked with '*'.\r\n\r\n";
    MakeModelHeader(out);
    out += Format("%6s %7s %11s %9s %10s %10s %10s   %10s\r\n", "Elem", "x/L", "Sum P", "eN", "A",
                  "IL", "Upper", "Lower");
    out += Format("%6s %7s %11s %9s %10s %10s %10s   %10s\r\n", "", "", "[kN]", "[m]", "[m2]",
                  "[m4]", "[MPa]", "[MPa]");
    std::vector<CTendon*> tendons;
    std::string problems;
    for (CTendon* t : *Structure->GetTendonList())
        if (TendonReady(*t, problems)) tendons.push_back(t);
    const TendonsByElement byElement = CollectTendonResults(tendons);
    auto stress = [](double sigma) {
        // kN/m² to MPa; tension (positive) is marked.
        return Format("%10.3f%s", sigma / 1000.0, sigma > 0.0 ? "  *" : "");
    };
    for (const CElement* e : *FindElementList()) {
        const auto found = byElement.find(e->GetNo());
        if (found == byElement.end()) continue;
        CElementSectParam param;
        const bool props =
            e->CalcElementSectParam(Structure, param) && param.GetA() > 0.0 && param.GetIL() > 0.0;
        for (const CDesignSection* ds : e->GetDesignSectionList()) {
            const double xi = ds->GetXoverL();
            double sumP = 0.0, sumPN = 0.0;
            for (const auto& [tendon, res] : found->second) {
                const TendonAt at = TendonAtSection(*tendon, *res, xi);
                sumP += at.P * tendon->GetNoOfTendons();
                sumPN += at.P * tendon->GetNoOfTendons() * at.N;
            }
            const double eN = std::fabs(sumP) > 1e-9 ? sumPN / sumP : 0.0;
            double upper = 0.0, lower = 0.0;
            std::string faces = Format("%10s   %10s", "N/A", "N/A");
            if (props && FaceHeights(*Structure, e->GetNo(), xi, upper, lower)) {
                const double A = param.GetA(), I = param.GetIL();
                faces = Format("%-13s%s", stress(-sumP / A - sumPN * upper / I).c_str(),
                               stress(-sumP / A - sumPN * lower / I).c_str());
            }
            out += Format("%6d %7.3f %11.1f %9.3f %10.4f %10.5f %s\r\n", e->GetNo(), xi, sumP, eN,
                          props ? param.GetA() : 0.0, props ? param.GetIL() : 0.0, faces.c_str());
        }
    }
    if (!problems.empty()) out += kCrLf + problems;
    return 1;
}

} // namespace kelo
