#include "report/ListServer.h"

#include "command/StructureCmd.h"
#include "frame/CombServer.h"
#include "frame/ModelElemRes.h"
#include "model/AnalysisRun.h"
#include "model/Structure.h"
#include "platform/Machine.h"
#include "platform/Text.h"
#include "store/MemResBase.h"

#include <cmath>
#include <memory>
#include <numbers>
#include <set>
#include <utility>

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
    case 1102:
    case 1103:
    case 1104:
    case 1105:
    case 1106:
    case 1107:
    case 1108:
    case 1109:
    case 1110:
    case 1111:
    case 1112:
    case 1113:
    case 1114:
        return MakeTendonListing(out);
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

int CListServer::MakeNotAvailable(std::string& out, const std::string& title) {
    MakeTitle(out, title);
    out += "No data of this kind in the project.\r\n";
    return 1;
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

int CListServer::MakeTendonListing(std::string& out) const {
    MakeTitle(out, "Tendon summary");
    out += Format("%6s%6s  %s\r\n", "No", "Type", "Name");
    for (const CTendon* t : *Structure->GetTendonList()) {
        if (!CheckInterval(t->GetNo())) continue;
        out += Format("%6d%6d  %s\r\n", t->GetNo(), t->GetType(), t->GetName().c_str());
    }
    return 1;
}

} // namespace kelo
