#include "model/Structure.h"

#include "command/MessageTable.h"
#include "command/StructureCmd.h"
#include "design/DefaultSets.h"
#include "platform/Machine.h"
#include "platform/Text.h"
#include "store/MemResBase.h"

#include <climits>
#include <cstdio>
#include <unordered_map>

namespace kelo {

CStructure::CStructure(int activeApp)
    : m_activeApp(activeApp), m_cmd(std::make_unique<CStructureCmd>(this, 2)),
      m_resBase(std::make_unique<CMemResBase>(this)) {}

CStructure::CStructure(const CStructure& other)
    : CObject(other), No(other.No), m_activeApp(other.m_activeApp), ProjectNo(other.ProjectNo),
      Name(other.Name), m_version(other.m_version), m_revision(other.m_revision),
      AutoBackup(other.AutoBackup), AutoBackupInt(other.AutoBackupInt),
      ChangesList(other.ChangesList), ForceList(other.ForceList),
      FrameYModulus(other.FrameYModulus), FramePoisson(other.FramePoisson),
      FrameAnType(other.FrameAnType), MaterialChoice(other.MaterialChoice),
      SteelGrade(other.SteelGrade), SteelMaterialFactor(other.SteelMaterialFactor),
      RunStatistics(other.RunStatistics), ConvOptions(other.ConvOptions), LoggTime(other.LoggTime),
      BaseTime(other.BaseTime), ConcrCode(other.ConcrCode), SteelCode(other.SteelCode),
      ProfileStdString(other.ProfileStdString), ProfileGenString(other.ProfileGenString),
      BucklingString(other.BucklingString), ProfileLibFile(other.ProfileLibFile),
      AppVersion(other.AppVersion), MaxDialogs(other.MaxDialogs), MsgOption(other.MsgOption),
      m_cmd(std::make_unique<CStructureCmd>(this, other.m_cmd->GetLanguage())),
      m_resBase(std::make_unique<CMemResBase>(this)), m_engineFactory(other.m_engineFactory) {
    other.CopyASCIICommandList(*this);
    other.CopyRefLineList(*this);
    other.CopyElementList(*this);
    other.CopyConcrMatParList(*this);
    other.CopySteelMatParList(*this);
    other.CopyReinfMatParList(*this);
    other.CopyPrestMatParList(*this);
    other.CopyConcrDesParList(*this);
    other.CopySteelDesParList(*this);
    other.CopyReinfDesParList(*this);
    other.CopyPrestDesParList(*this);
    other.CopySectDesParList(*this);
    other.CopyReinfTypeList(*this);
    other.CopyShearReinfTypeList(*this);
    other.CopyChartList(*this);
    other.CopyDesignSetupList(*this);
    other.CopyNodeList(*this);
    other.CopyLoadcaseList(*this);
    other.CopyLoadcombList(*this);
    other.CopySortCombList(*this);
    other.CopySortCombLineList(*this);
    other.CopyTrafLoadList(*this);
    other.CopyTrafLineList(*this);
    other.CopyConstrSeqList(*this);
    other.CopyModelList(*this);
    other.CopyCalcGroupList(*this);
    other.CopyAnalysisList(*this);
    other.CopyWindSpectraList(*this);
    other.CopyEarthquakeSpectraList(*this);
    other.CopyCreepCombList(*this);
    other.CopyTendonList(*this);
    other.CopyMemberList(*this);
    other.CopyAnalysisSetupList(*this);
    other.CopySelectionList(*this);
    UpdatePointers();
}

CStructure::~CStructure() = default;

// ---------------------------------------------------------------- settings

void CStructure::SetVersionAndRevision(int which, double version, double revision) {
    if (which < 1 || which > 6) return;
    m_version[which - 1] = version;
    m_revision[which - 1] = revision;
}

double CStructure::GetVersion(int which) const {
    return which >= 1 && which <= 6 ? m_version[which - 1] : 0.0;
}

double CStructure::GetRevision(int which) const {
    return which >= 1 && which <= 6 ? m_revision[which - 1] : 0.0;
}

void CStructure::GetConvOptions(double* out) const {
    for (int i = 0; i < 6; ++i) out[i] = ConvOptions[i];
}

void CStructure::SetConvOptions(const double* in) {
    for (int i = 0; i < 6; ++i) ConvOptions[i] = in[i];
}

void CStructure::NoteObjectChange() {
    // No project store is attached in this build, so a change note only marks the document.
    m_modified = true;
}

// ---------------------------------------------------------------- on reference lines

CKeySection* CStructure::GetKeySectionPtr(int refLineNo, double station) const {
    const CRefLine* line = RefLineList.Get(refLineNo);
    return line ? line->GetKeySectionPtr(station) : nullptr;
}

CKeySection* CStructure::GetKeySectionFor(int refLineNo, double station) const {
    const CRefLine* line = RefLineList.Get(refLineNo);
    return line ? line->GetKeySectionFor(station) : nullptr;
}

CKeySection* CStructure::AddKeySection(int refLineNo, std::unique_ptr<CKeySection> section,
                                       int addChange) {
    CRefLine* line = RefLineList.Get(refLineNo);
    if (!line) return nullptr;
    CKeySection* added = line->AddKeySection(std::move(section));
    if (addChange) NoteObjectChange();
    return added;
}

CKeySection* CStructure::AddProfileStd(int refLineNo, std::unique_ptr<CKeySection> profile) {
    CRefLine* line = RefLineList.Get(refLineNo);
    return line ? line->GetProfileStdList().Add(std::move(profile)) : nullptr;
}

CKeySection* CStructure::AddProfileGen(int refLineNo, std::unique_ptr<CKeySection> profile) {
    CRefLine* line = RefLineList.Get(refLineNo);
    return line ? line->GetProfileGenList().Add(std::move(profile)) : nullptr;
}

CRoadProfile* CStructure::AddRoadProfile(int refLineNo, std::unique_ptr<CRoadProfile> profile) {
    CRefLine* line = RefLineList.Get(refLineNo);
    return line ? line->AddRoadProfile(std::move(profile)) : nullptr;
}

CDesignSection* CStructure::GetDesignSectionPtr(int elementNo, int pos) const {
    const CElement* e = ElementList.Get(elementNo);
    if (!e || pos < 0 || static_cast<std::size_t>(pos) >= e->GetDesignSectionList().GetCount())
        return nullptr;
    return e->GetDesignSectionList().At(static_cast<std::size_t>(pos));
}

// ---------------------------------------------------------------- sections made on the fly

std::unique_ptr<CKeySection> CStructure::CreateKeySection(int mode, int elementOrLine,
                                                          double xiOrStation, int updateMode) {
    int lineNo = elementOrLine;
    double station = xiOrStation;
    if (mode == 0) {
        const CElement* e = ElementList.Get(elementOrLine);
        if (!e) return nullptr;
        double s1 = 0.0, s2 = 0.0;
        int viaSection = 0;
        if (!e->FindReflineConnection(this, &lineNo, &s1, &s2, &viaSection)) return nullptr;
        if (viaSection || lineNo == 0) {
            const CKeySection* own = GetKeySectionPtr(0, e->GetSectionNo());
            return own ? std::make_unique<CKeySection>(*own) : nullptr;
        }
        station = s1 + (s2 - s1) * xiOrStation;
    } else if (mode != 1) {
        return nullptr;
    }
    CRefLine* line = RefLineList.Get(lineNo);
    if (!line) return nullptr;
    const SectionEnv env = SectionEnv::OfProject(this, lineNo);
    return line->CreateKeySection(station, updateMode, &env);
}

void CStructure::CreateTempSections() {
    for (CRefLine* line : RefLineList) {
        const SectionEnv env = SectionEnv::OfProject(this, line->GetNo());
        line->CreateTempSections(nullptr, nullptr, &env);
    }
}

void CStructure::DeleteTempSections() {
    for (CRefLine* line : RefLineList) line->DeleteTempSections(nullptr);
}

// ---------------------------------------------------------------- operations

int CStructure::DeleteNode(int no) {
    for (const CElement* e : ElementList)
        if (e->GetNodeNo1() == no || e->GetNodeNo2() == no || e->GetNodeNo3() == no) return 0;
    NodeList.Delete(no);
    return 1;
}

void CStructure::MakeElemPtrInLoadsNULL(int elementNo) {
    for (CLoadcase* lc : LoadcaseList)
        for (CLoad* load : lc->GetLoadList())
            if (load->GetElementNo() == elementNo) load->SetElemPtr(nullptr);
}

void CStructure::DeleteElement(int no) {
    MakeElemPtrInLoadsNULL(no);
    ElementList.Delete(no);
}

void CStructure::DeleteAllNegativeElements() {
    std::vector<int> negative;
    for (const CElement* e : ElementList)
        if (e->GetNo() < 0) negative.push_back(e->GetNo());
    for (int no : negative) DeleteElement(no);
}

void CStructure::DeleteAllObjects(int addChange) {
    ConcrMatParList.RemoveAll();
    SteelMatParList.RemoveAll();
    ReinfMatParList.RemoveAll();
    PrestMatParList.RemoveAll();
    ConcrDesParList.RemoveAll();
    SteelDesParList.RemoveAll();
    ReinfDesParList.RemoveAll();
    PrestDesParList.RemoveAll();
    SectDesParList.RemoveAll();
    RefLineList.RemoveAll();
    ReinfTypeList.RemoveAll();
    ShearReinfTypeList.RemoveAll();
    DesignSetupList.RemoveAll();
    NodeList.RemoveAll();
    ElementList.RemoveAll();
    TendonList.RemoveAll();
    ForceList.RemoveAll();
    LoadcombList.RemoveAll();
    LoadcaseList.RemoveAll();
    TrafLoadList.RemoveAll();
    TrafLineList.RemoveAll();
    CreepCombList.RemoveAll();
    // The remaining lists of a project go too, so that a cleared project is empty.
    ChartList.RemoveAll();
    SortCombList.RemoveAll();
    SortCombLineList.RemoveAll();
    ConstrSeqList.RemoveAll();
    ModelList.RemoveAll();
    CalcGroupList.RemoveAll();
    AnalysisList.RemoveAll();
    WindSpectraList.RemoveAll();
    EarthquakeSpectraList.RemoveAll();
    MemberList.RemoveAll();
    AnalysisSetupList.RemoveAll();
    SelectionList.RemoveAll();
    ProfileStdString.clear();
    ProfileGenString.clear();
    if (addChange) NoteObjectChange();
}

void CStructure::DeleteAllResults(int addChange) {
    m_resBase->DeleteAllResults();
    for (CLoadcase* lc : LoadcaseList) lc->SetResults(0);
    if (addChange) NoteObjectChange();
}

CLoad* CStructure::GetLoadPtr(int loadcaseNo, int pos) const {
    const CLoadcase* lc = LoadcaseList.Get(loadcaseNo);
    if (!lc || pos < 0 || static_cast<std::size_t>(pos) >= lc->GetLoadList().GetCount())
        return nullptr;
    return lc->GetLoadList().At(static_cast<std::size_t>(pos));
}

int CStructure::GetMinElementNo() const {
    const CElement* e = ElementList.First();
    return e ? e->GetNo() : 0;
}

int CStructure::GetMaxElementNo() const {
    const CElement* e = ElementList.Last();
    return e ? e->GetNo() : 0;
}

int CStructure::AnyResults() const { return m_resBase->AnyResults(-1, -1); }

void CStructure::ResetAnalysisStatus() {
    for (CAnalysis* a : AnalysisList) a->SetAnalysisStatus(0);
}

void CStructure::RemoveAllEigenModes() {
    for (CModel* m : ModelList) m->GetEigenModeList().RemoveAll();
}

void CStructure::RemoveAllBucklingModes() {
    for (CModel* m : ModelList) m->GetBucklingModeList().RemoveAll();
}

int CStructure::MaxObjectsInMemory(int kind, int useVirtual) const {
    const Machine& machine = GetMachine();
    const double half = 0.5 * static_cast<double>(useVirtual ? machine.VirtualMemory()
                                                             : machine.AvailablePhysicalMemory());
    if (kind != 1) return 0;
    const double count = half / 28.0;
    return count >= static_cast<double>(INT_MAX) ? INT_MAX : static_cast<int>(count);
}

// ---------------------------------------------------------------- dependent data

void CStructure::ReCalcAllRoadProfiles() {
    // The reference lines come first: sections, road points, nodes and columns are all measured
    // along them. Plan segments are chained, every segment is calculated so that no query meets
    // one that isn't, and the corner roundings of the elevation are worked out.
    for (CRefLine* line : RefLineList) {
        if (line->GetColumn()) continue;
        line->RecalcChainedHorSegments();
        for (CHorSegment* seg : line->GetHorSegmentList())
            if (seg->GetSegmCalc() != 1 && seg->GetType() <= 10) seg->CalculateAndValidate();
        for (CVerSegment* seg : line->GetVerSegmentList()) seg->CalculateAndValidate();
        line->VerifyVerticalCurve(0);
        line->FillCoordListStations();
    }
    // A column is built from the line it stands on, now complete; one whose line or axis has
    // gone keeps its last geometry.
    for (CRefLine* line : RefLineList)
        if (line->GetColumn()) line->CreateColumnGeometry(RefLineList);
    for (CRefLine* line : RefLineList) {
        const auto& profiles = line->GetRoadProfileList();
        for (std::size_t i = 0; i < profiles.GetCount(); ++i)
            profiles.At(i)->Update(line, &RefLineList);
    }
}

void CStructure::ReCalcAllKeySections(int) {
    for (CRefLine* line : RefLineList) {
        const SectionEnv env = SectionEnv::OfProject(this, line->GetNo());
        const auto& sections = line->GetKeySectionList();
        for (std::size_t i = 0; i < sections.GetCount(); ++i) {
            CKeySection* section = sections.At(i);
            section->SetRefLineNo(line->GetNo());
            section->UpdateKeySection(0, &env);
        }
    }
}

void CStructure::ReCalcAllNodesOnRefLines(int flag) {
    for (CNode* node : NodeList) {
        if (!node->GetRefLineConnect()) continue;
        if (flag >= 0 && node->GetRefLineNo() != flag) continue;
        CRefLine* line = RefLineList.Get(node->GetRefLineNo());
        if (!line || line->GetNo() == 0) continue;
        double point[3] = {0.0, 0.0, 0.0};
        if (!line->CalcCoordByStation(node->GetStationNo(), point)) continue;
        // A station without a section leaves the node on the line.
        const SectionEnv env = SectionEnv::OfProject(this, line->GetNo());
        double offset[3] = {0.0, 0.0, 0.0};
        line->CalcRefLineToCoGByStation(node->GetStationNo(), offset, line->SectionCoGOf(&env));
        node->SetX(point[0] + offset[0]);
        node->SetY(point[1] + offset[1]);
        node->SetZ(point[2] + offset[2]);
        for (int i = 0; i < 3; ++i) node->SetRefLineOffset(i, offset[i]);
    }
}

void CStructure::ReCalcAllModelDependencies() {
    // The default model covers the whole element list.
    for (CModel* m : ModelList) {
        if (m->GetCode() != 0) continue;
        std::vector<int> all;
        all.reserve(ElementList.GetCount());
        for (const CElement* e : ElementList)
            if (e->GetNo() > 0) all.push_back(e->GetNo());
        m->SetElementNoArray(all);
    }
    // A tendon's path lies on the elements, nodes and sections: it is laid out again, and its
    // losses worked out again, when a load or a listing next asks for it.
    for (CTendon* t : TendonList) t->SetUpdated(0);
}

void CStructure::RecalcConnectedCharts(int, void*) {}

void CStructure::UpdatePointers() {
    for (CElement* e : ElementList) {
        e->SetNodeNo1Ptr(NodeList.Get(e->GetNodeNo1()));
        e->SetNodeNo2Ptr(NodeList.Get(e->GetNodeNo2()));
        e->SetNodeNo3Ptr(NodeList.Get(e->GetNodeNo3()));
        for (CAxial* a : e->GetAxialList()) a->SetElemPtr(e);
        for (CMass* m : e->GetMassList()) m->SetElemPtr(e);
    }
    for (CLoadcase* lc : LoadcaseList)
        for (CLoad* load : lc->GetLoadList())
            load->SetElemPtr(ElementList.Get(load->GetElementNo()));
    // Element sections stand on reference line 0 at the station of their number; each number is
    // looked for once.
    const CRefLine* line0 = RefLineList.Get(0);
    std::unordered_map<int, CKeySection*> sections;
    for (CElement* e : ElementList) {
        if (e->GetSectionNo() <= 0) continue;
        auto found = sections.find(e->GetSectionNo());
        if (found == sections.end()) {
            CKeySection* section = line0 ? line0->GetKeySectionPtr(e->GetSectionNo()) : nullptr;
            found = sections.emplace(e->GetSectionNo(), section).first;
        }
        e->SetSectionPtr(found->second);
        // A spring section makes its element a spring of the same kind.
        if (found->second) {
            switch (found->second->GetType()) {
            case 20:
                e->SetType(2);
                break;
            case 21:
                e->SetType(3);
                break;
            case 22:
                e->SetType(4);
                break;
            default:
                break;
            }
        }
    }
    // An element belongs to the member that lists it; a copied project must not keep pointers
    // into the members of the one it was copied from.
    for (CElement* e : ElementList) e->SetMemberPtr(nullptr);
    for (CMember* m : MemberList)
        for (const int no : m->GetElementNoArray())
            if (CElement* e = ElementList.Get(no)) e->SetMemberPtr(m);
}

// ---------------------------------------------------------------- command store

int CStructure::AddASCIICommand(int order, const std::string& text) {
    if (order < 1) return 0;
    std::string line = text;
    if (line.size() < 2 || line.compare(line.size() - 2, 2, "\r\n") != 0) line += "\r\n";
    if (CCommandString* existing = ASCIICommandList.Get(order)) {
        existing->SetCommandString(existing->GetCommandString() + line);
        return 1;
    }
    SetASCIICommand(order, line);
    return 1;
}

void CStructure::SetASCIICommand(int order, const std::string& text) {
    ASCIICommandList.Add(std::make_unique<CCommandString>(order, text));
}

std::string CStructure::GetASCIICommand(int order) const {
    const CCommandString* c = ASCIICommandList.Get(order);
    return c ? c->GetCommandString() : std::string();
}

int CStructure::GetASCIICommandLength(int order) const {
    return static_cast<int>(GetASCIICommand(order).size());
}

// ---------------------------------------------------------------- a new project

void CStructure::CreateDefaultContents(int language, int addChange) {
    const bool english = language == 2;
    AddRefLine(std::make_unique<CRefLine>(0, english ? "Cross sections" : "Tverrsnitt"), addChange);
    auto model = std::make_unique<CModel>(1, english ? "Default All" : "Hele modellen");
    model->SetCode(0);
    AddModel(std::move(model));
    AddSelection(std::make_unique<CSelection>(0, english ? "<All>" : "<Hele>"), addChange);

    AddConcrMatPar(MakeDefaultConcrMat(ConcrCode, language), addChange);
    AddReinfMatPar(MakeDefaultReinfMat(ConcrCode, language), addChange);
    AddPrestMatPar(MakeDefaultPrestMat(ConcrCode, language), addChange);
    AddSteelMatPar(MakeDefaultSteelMat(SteelCode, language), addChange);
    AddConcrDesPar(MakeDefaultConcrDes(ConcrCode, language), addChange);
    AddReinfDesPar(MakeDefaultReinfDes(ConcrCode, language), addChange);
    AddPrestDesPar(MakeDefaultPrestDes(ConcrCode, language), addChange);
    AddSteelDesPar(MakeDefaultSteelDes(SteelCode, language), addChange);
    AddSectDesPar(MakeDefaultSectDes(ConcrCode, language), addChange);

    MakeDefaultReinfTypes(addChange);
    MakeDefaultShearReinfTypes(addChange);

    // Two setups: one by key sections at stations, one by element sections.
    auto byKey =
        std::make_unique<CDesignSetup>(1, english ? "By key sections" : "Etter tverrsnitt");
    byKey->SetType(0);
    AddDesignSetup(std::move(byKey), addChange);
    auto byElem = std::make_unique<CDesignSetup>(2, english ? "By elements" : "Etter elementer");
    byElem->SetType(1);
    AddDesignSetup(std::move(byElem), addChange);

    auto wind = std::make_unique<CWindSpectra>();
    wind->SetDefaultSpectra();
    AddWindSpectra(std::move(wind));
}

void CStructure::MakeDefaultReinfTypes(int addChange) {
    for (auto& type : MakeDefaultReinfTypeList()) ReinfTypeList.Add(std::move(type));
    if (addChange) NoteObjectChange();
}

void CStructure::MakeDefaultShearReinfTypes(int addChange) {
    for (auto& type : MakeDefaultShearReinfTypeList()) ShearReinfTypeList.Add(std::move(type));
    if (addChange) NoteObjectChange();
}

// ---------------------------------------------------------------- change records

void CStructure::AddChange(int activeApp, std::unique_ptr<CId> id) {
    // Saving writes the whole project, so single changes are not replayed: the record only
    // marks the document, sets the busy flag for this application and stamps the time.
    id.reset();
    m_modified = true;
    if (HasDocument()) SetFileAdminFlag(GetAdminFlagPath(), activeApp);
    SetLoggTime(nullptr);
}

int CStructure::DeleteRedundantChanges(const CId& id) {
    if (id.GetAction() != 99 && id.GetAction() != 5) return 0;
    const bool write = id.GetAction() == 5;
    std::vector<int> codes;
    switch (id.GetCode()) {
    case 402:
        codes = {401, 402};
        break;
    case 404:
        codes = {403, 404, 406};
        break;
    case 405:
        codes = {403, 405, 406};
        break;
    case 407:
        codes = {406, 407};
        break;
    case 502:
        codes = {501, 502};
        break;
    case 602:
        codes = {601, 602};
        break;
    case 807:
        codes = write ? std::vector<int>{807, 502} : std::vector<int>{807};
        break;
    case 809:
        codes = write ? std::vector<int>{809, 602} : std::vector<int>{809};
        break;
    case 811:
        codes = write ? std::vector<int>{811, 810} : std::vector<int>{811};
        break;
    case 813:
        codes = write ? std::vector<int>{813, 812} : std::vector<int>{813};
        break;
    case 804:
        codes = {804};
        break;
    case 805:
        codes = {805};
        break;
    case 802:
        codes = {801, 802};
        break;
    case 307:
        codes = {307};
        break;
    case 303:
        codes = {303};
        break;
    case 823:
        codes = {822, 823};
        break;
    case 827:
        codes = {826, 827};
        break;
    case 899:
        codes = {807, 806, 823, 822, 851, 850, 802, 801, 813, 812,
                 811, 810, 809, 808, 899, 823, 822, 827, 826};
        break;
    default:
        return 0;
    }
    COwnedList<CId> kept;
    for (std::size_t i = 0; i < ChangesList.GetCount(); ++i) {
        const CId* c = ChangesList.At(i);
        bool remove = false;
        for (int code : codes) remove = remove || c->GetCode() == code;
        if (!remove) kept.Add(std::make_unique<CId>(*c));
    }
    ChangesList = std::move(kept);
    return 1;
}

int CStructure::SaveChanges() {
    if (!HasDocument()) return 0;
    m_modified = false;
    return 1;
}

// ---------------------------------------------------------------- busy flags

std::string CStructure::GetAdminFlagPath() const {
    if (m_documentPath.size() < 3) return m_documentPath + "adm";
    return m_documentPath.substr(0, m_documentPath.size() - 3) + "adm";
}

int CStructure::SetFileAdminFlag(const std::string& file, int value) {
    CTextWriter writer;
    if (!writer.Open(file, false)) {
        m_sink->Show(MsgKind::Error, "Unable to open file with name: " + file);
        return 0;
    }
    writer.Write(Format("%i\n", value));
    return 1;
}

int CStructure::GetFileAdminFlag(const std::string& file) const {
    CTextReader reader;
    if (!reader.Open(file)) return 0;
    std::string line;
    reader.ReadLine(line);
    int value = 0;
    return std::sscanf(line.c_str(), "%i", &value) == 1 ? value : 0;
}

int CStructure::SetBaseBusy(int, int app, int busy, int) {
    if (!HasDocument()) return 0;
    const std::string path = GetAdminFlagPath();
    const int flag = GetFileAdminFlag(path);
    if (flag != 0 && flag != app) return 0;
    SetFileAdminFlag(path, busy ? app : 0);
    return 1;
}

int CStructure::IsBaseBusy(int, int& last, int) {
    if (!HasDocument()) return 0;
    const int flag = GetFileAdminFlag(GetAdminFlagPath());
    if (flag == last) return 0;
    last = flag;
    if (flag == 0) return 0;
    if (flag == 1)
        m_sink->Show(MsgKind::Warning, "Database already used by KeloDesign\r\nPlease save your "
                                       "changes in KeloDesign before you perform this operation");
    else
        m_sink->Show(MsgKind::Warning, "Database already used by KeloFrame\r\nPlease save your "
                                       "changes in KeloFrame before you perform this operation");
    return 1;
}

int CStructure::CanChangesBePerformed(int, int, int& a, int&) {
    // The flag set by this application itself does not stop it.
    int last = m_activeApp;
    const int busy = IsBaseBusy(0, last, 1);
    a = last;
    return busy == 0 ? 1 : 0;
}

// ---------------------------------------------------------------- time stamps

void CStructure::SetLoggTime(const int* time) {
    if (time) {
        for (int i = 0; i < 6; ++i) LoggTime[i] = time[i];
        return;
    }
    const auto now = GetMachine().LocalTime();
    for (int i = 0; i < 6; ++i) LoggTime[i] = now[i];
}

void CStructure::GetLoggTime(int* time) const {
    for (int i = 0; i < 6; ++i) time[i] = LoggTime[i];
}

void CStructure::SetBaseTime(const int* time) {
    for (int i = 0; i < 6; ++i) BaseTime[i] = time[i];
}

void CStructure::GetBaseTime(int* time) const {
    for (int i = 0; i < 6; ++i) time[i] = BaseTime[i];
}

// ---------------------------------------------------------------- messages

int CStructure::SendMessage(int code, int severity, int dialog) {
    if (MsgOption == 1) return 0;
    std::string text;
    MsgKind kind = MsgKind::Note;
    switch (severity) {
    case 1:
        text = "\r\n*** Note ***\r\n";
        break;
    case 2:
        text = "\r\n*** Warning ***\r\n";
        kind = MsgKind::Warning;
        break;
    case 3:
        text = "\r\n*** Error ***\r\n";
        kind = MsgKind::Error;
        break;
    default:
        break;
    }
    if (severity >= 1 && severity <= 3) ++ErrCount;
    text += GetString(code, m_cmd->GetLanguage());
    if (severity >= 1 && severity <= 3) text += "\r\n\r\n";
    if (dialog && ErrCount <= MaxDialogs) m_sink->Show(kind, text);
    AddErrMessage(text);
    return 1;
}

int CStructure::SetMsgOption(int option) {
    const int old = MsgOption;
    MsgOption = option;
    return old;
}

void CStructure::ResetErrCount() {
    ErrCount = 0;
    m_cmd->ResetErrCount();
}

std::string CStructure::GetErrFilePath() const {
    return m_documentPath.empty() ? std::string() : StemOf(m_documentPath) + ".err";
}

int CStructure::OpenErrFile(int create) {
    const std::string path = GetErrFilePath();
    if (path.empty()) return 0;
    if (!m_errFile.Open(path, create == 0)) {
        m_sink->Show(MsgKind::Error, "Klarer ikke å åpne fil");
        return 0;
    }
    return 1;
}

void CStructure::AddErrMessage(const std::string& text) {
    if (m_errFile.IsOpen()) m_errFile.Write(text);
}

int CStructure::LoadErrFileToString(std::string* out) const {
    if (!out) return 0;
    return ReadWholeFile(GetErrFilePath(), *out) ? 1 : 0;
}

// ---------------------------------------------------------------- the interpreter

int CStructure::GetWarnLevel() const { return m_cmd ? m_cmd->GetCheckLevel() : 2; }

void CStructure::SetWarnLevel(int level) {
    if (level < 0) {
        m_cmd->SetNoRecord(1);
        return;
    }
    m_cmd->SetCheckLevel(level);
    m_cmd->SetNoRecord(0);
}

int CStructure::ReadCommandFile(const std::string& fileName, std::string* log, int showDialog) {
    return m_cmd->ReadCommandFile(fileName, log, showDialog);
}

int CStructure::CommandConvert(std::string* text, std::string* log, int showDialog) {
    return m_cmd->CommandConvert(text, log, showDialog);
}

} // namespace kelo
