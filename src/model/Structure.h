#pragma once

#include "design/ConcrDesPar.h"
#include "design/ConcrMatPar.h"
#include "design/DesignSetup.h"
#include "design/PrestDesPar.h"
#include "design/PrestMatPar.h"
#include "design/ReinfDesPar.h"
#include "design/ReinfMatPar.h"
#include "design/ReinfType.h"
#include "design/SectDesPar.h"
#include "design/ShearReinfType.h"
#include "design/SteelDesPar.h"
#include "design/SteelMatPar.h"
#include "frame/Element.h"
#include "frame/Spectra.h"
#include "frame/TrafLine.h"
#include "geometry/RefLine.h"
#include "geometry/Tendon.h"
#include "model/Analysis.h"
#include "model/AnalysisEngine.h"
#include "model/CommandString.h"
#include "model/Force.h"
#include "model/Id.h"
#include "model/Loadcase.h"
#include "model/Loadcomb.h"
#include "model/Member.h"
#include "model/Model.h"
#include "model/Node.h"
#include "platform/ObList.h"
#include "platform/Object.h"
#include "platform/Sinks.h"
#include "platform/TextFile.h"

#include <array>
#include <memory>
#include <string>

namespace kelo {

class CStructureCmd;
class CMemResBase;
class CKeloBase;

// The family of operations on one numbered list of the project: the list itself, lookup by
// number, sorted add with replacement, empty, first free number and deep copy.
#define KELO_LIST_FAMILY_BASE(Type, Name)                                                          \
public:                                                                                            \
    CObList<Type>* Get##Name##List() { return &Name##List; }                                       \
    const CObList<Type>* Get##Name##List() const { return &Name##List; }                           \
    void Set##Name##List(CObList<Type>&& list) { Name##List = std::move(list); }                   \
    Type* Get##Name##Ptr(int no) const { return Name##List.Get(no); }                              \
    Type* Add##Name(std::unique_ptr<Type> obj, int addChange = 0) {                                \
        Type* added = Name##List.Add(std::move(obj));                                              \
        if (addChange) NoteObjectChange();                                                         \
        return added;                                                                              \
    }                                                                                              \
    void Empty##Name##List() { Name##List.RemoveAll(); }                                           \
    int GetFirstFree##Name##No() const { return Name##List.GetFirstFreeNo(); }                     \
    void Copy##Name##List(CStructure& to) const { to.Name##List = Name##List; }                    \
                                                                                                   \
private:                                                                                           \
    CObList<Type> Name##List;

// The family with a plain delete by number; no match does nothing.
#define KELO_LIST_FAMILY(Type, Name)                                                               \
    KELO_LIST_FAMILY_BASE(Type, Name)                                                              \
                                                                                                   \
public:                                                                                            \
    void Delete##Name(int no) { Name##List.Delete(no); }                                           \
                                                                                                   \
private:

// The root of one project: every list of objects, the settings, the interpreter, the result
// store and the message facility. Everything reaches the model through it.
class CStructure : public CObject {
public:
    // activeApp: 1 the section design application, 2 the frame application.
    explicit CStructure(int activeApp);
    CStructure(const CStructure& other);
    CStructure& operator=(const CStructure&) = delete;
    ~CStructure() override;

    // ---- identity and settings
    int GetNo() const { return No; }
    void SetNo(int no) { No = no; }
    int ActiveApp() const { return m_activeApp; }
    int GetProjectNo() const { return ProjectNo; }
    void SetProjectNo(int no) { ProjectNo = no; }
    const std::string& GetName() const { return Name; }
    void SetName(const std::string& name) { Name = name; }
    void SetVersionAndRevision(int which, double version, double revision);
    double GetVersion(int which) const;
    double GetRevision(int which) const;
    int GetAutoBackup() const { return AutoBackup; }
    void SetAutoBackup(int v) { AutoBackup = v; }
    int GetAutoBackupInt() const { return AutoBackupInt; }
    void SetAutoBackupInt(int v) { AutoBackupInt = v; }
    double GetFrameYModulus() const { return FrameYModulus; }
    void SetFrameYModulus(double v) { FrameYModulus = v; }
    double GetFramePoisson() const { return FramePoisson; }
    void SetFramePoisson(double v) { FramePoisson = v; }
    int GetFrameAnType() const { return FrameAnType; }
    void SetFrameAnType(int v) { FrameAnType = v; }
    int GetMaterialChoice() const { return MaterialChoice; }
    void SetMaterialChoice(int v) { MaterialChoice = v; }
    int GetSteelGrade() const { return SteelGrade; }
    void SetSteelGrade(int v) { SteelGrade = v; }
    double GetSteelMaterialFactor() const { return SteelMaterialFactor; }
    void SetSteelMaterialFactor(double v) { SteelMaterialFactor = v; }
    int GetRunStatistics(int i) const { return i >= 0 && i < 5 ? RunStatistics[i] : 0; }
    void SetRunStatistics(int i, int v) {
        if (i >= 0 && i < 5) RunStatistics[i] = v;
    }
    void GetConvOptions(double* out) const;
    void SetConvOptions(const double* in);
    int GetConcrCode() const { return ConcrCode; }
    void SetConcrCode(int code) { ConcrCode = code; }
    int GetSteelCode() const { return SteelCode; }
    void SetSteelCode(int code) { SteelCode = code; }
    const std::string& GetProfileStdString() const { return ProfileStdString; }
    void SetProfileStdString(const std::string& s) { ProfileStdString = s; }
    const std::string& GetProfileGenString() const { return ProfileGenString; }
    void SetProfileGenString(const std::string& s) { ProfileGenString = s; }
    const std::string& GetBucklingString() const { return BucklingString; }
    void SetBucklingString(const std::string& s) { BucklingString = s; }
    const std::string& GetProfileLibFile() const { return ProfileLibFile; }
    void SetProfileLibFile(const std::string& s) { ProfileLibFile = s; }
    const std::string& GetAppVersion() const { return AppVersion; }
    void SetAppVersion(const std::string& s) { AppVersion = s; }

    // ---- owned parts
    CStructureCmd* GetStructureCmd() const { return m_cmd.get(); }
    CMemResBase* GetResBasePtr() const { return m_resBase.get(); }
    // The project store, when the project lives in one; none is attached in batch runs.
    CKeloBase* GetDatabasePtr() const { return m_database; }
    void SetDatabasePtr(CKeloBase* base) { m_database = base; }

    // ---- the document: the file the project was read from; its path names the error file,
    // the flag file and the listings.
    const std::string& GetDocumentPath() const { return m_documentPath; }
    void SetDocumentPath(const std::string& path) { m_documentPath = path; }
    bool HasDocument() const { return !m_documentPath.empty(); }
    bool IsModified() const { return m_modified; }
    void SetModified(bool m) { m_modified = m; }

    // ---- the lists
    KELO_LIST_FAMILY_BASE(CCommandString, ASCIICommand)
    KELO_LIST_FAMILY(CRefLine, RefLine)
    KELO_LIST_FAMILY_BASE(CElement, Element)
    KELO_LIST_FAMILY(CConcrMatPar, ConcrMatPar)
    KELO_LIST_FAMILY(CSteelMatPar, SteelMatPar)
    KELO_LIST_FAMILY(CReinfMatPar, ReinfMatPar)
    KELO_LIST_FAMILY(CPrestMatPar, PrestMatPar)
    KELO_LIST_FAMILY(CConcrDesPar, ConcrDesPar)
    KELO_LIST_FAMILY(CSteelDesPar, SteelDesPar)
    KELO_LIST_FAMILY(CReinfDesPar, ReinfDesPar)
    KELO_LIST_FAMILY(CPrestDesPar, PrestDesPar)
    KELO_LIST_FAMILY(CSectDesPar, SectDesPar)
    KELO_LIST_FAMILY(CReinfType, ReinfType)
    KELO_LIST_FAMILY(CShearReinfType, ShearReinfType)
    KELO_LIST_FAMILY(CChart, Chart)
    KELO_LIST_FAMILY(CDesignSetup, DesignSetup)
    KELO_LIST_FAMILY_BASE(CNode, Node)
    KELO_LIST_FAMILY(CLoadcase, Loadcase)
    KELO_LIST_FAMILY(CLoadcomb, Loadcomb)
    KELO_LIST_FAMILY(CSortComb, SortComb)
    KELO_LIST_FAMILY(CSortCombLine, SortCombLine)
    KELO_LIST_FAMILY(CTrafLoad, TrafLoad)
    KELO_LIST_FAMILY(CTrafLine, TrafLine)
    KELO_LIST_FAMILY(CConstrSeq, ConstrSeq)
    KELO_LIST_FAMILY(CModel, Model)
    KELO_LIST_FAMILY(CCalcGroup, CalcGroup)
    KELO_LIST_FAMILY(CAnalysis, Analysis)
    KELO_LIST_FAMILY(CWindSpectra, WindSpectra)
    KELO_LIST_FAMILY(CEarthquakeSpectra, EarthquakeSpectra)
    KELO_LIST_FAMILY(CCreepComb, CreepComb)
    KELO_LIST_FAMILY(CTendon, Tendon)
    KELO_LIST_FAMILY(CMember, Member)
    KELO_LIST_FAMILY(CAnalysisSetup, AnalysisSetup)
    KELO_LIST_FAMILY(CSelection, Selection)

public:
    // Changes and section forces are not kept by number.
    COwnedList<CId>* GetChangesList() { return &ChangesList; }
    COwnedList<CForce>* GetForceList() { return &ForceList; }
    CForce* AddForce(std::unique_ptr<CForce> force) { return ForceList.Add(std::move(force)); }
    void EmptyForceList() { ForceList.RemoveAll(); }

    // ---- what hangs on a reference line: the line is found first
    CKeySection* GetKeySectionPtr(int refLineNo, double station) const;
    CKeySection* GetKeySectionFor(int refLineNo, double station) const;
    CKeySection* AddKeySection(int refLineNo, std::unique_ptr<CKeySection> section,
                               int addChange = 0);
    CKeySection* AddProfileStd(int refLineNo, std::unique_ptr<CKeySection> profile);
    CKeySection* AddProfileGen(int refLineNo, std::unique_ptr<CKeySection> profile);
    CRoadProfile* AddRoadProfile(int refLineNo, std::unique_ptr<CRoadProfile> profile);
    CDesignSection* GetDesignSectionPtr(int elementNo, int pos) const;

    // ---- sections made on the fly, owned by the caller
    // Mode 0: the section of element elementOrLine at the relative position xiOrStation (0 at
    // node 1, 1 at node 2): a copy of the element's own section, or the section on its line at
    // the station between the stations of its ends. Mode 1: the section on line elementOrLine at
    // the station xiOrStation. updateMode as for CRefLine::CreateSectionAt (2 for design: no
    // tendon groups). Null for another mode, a missing element or line, or no section there.
    std::unique_ptr<CKeySection> CreateKeySection(int mode, int elementOrLine, double xiOrStation,
                                                  int updateMode = 0);
    // Temporary sections every 5 m or so between the key sections of every line, and away again.
    void CreateTempSections();
    void DeleteTempSections();

    // ---- operations with more to them than the family
    // Refused (0) while an element uses the node.
    int DeleteNode(int no);
    void DeleteElement(int no);
    void MakeElemPtrInLoadsNULL(int elementNo);
    void DeleteAllNegativeElements();
    void DeleteAllObjects(int addChange);
    void DeleteAllResults(int addChange);
    CLoad* GetLoadPtr(int loadcaseNo, int pos) const;
    int GetReinfTypePos(int no) const { return ReinfTypeList.GetPos(no); }
    int GetShearReinfTypePos(int no) const { return ShearReinfTypeList.GetPos(no); }
    int GetMinElementNo() const;
    int GetMaxElementNo() const;
    int AnyResults() const;
    void ResetAnalysisStatus();
    void RemoveAllEigenModes();
    void RemoveAllBucklingModes();
    double GetYoungsModulus() const { return FrameYModulus; }
    // How many results may be held in memory: half the physical memory (or of the virtual
    // address space) over 28 bytes a result for kind 1, else 0.
    int MaxObjectsInMemory(int kind, int useVirtual) const;

    // The dependent data, brought up to date in this order once per command file.
    void ReCalcAllRoadProfiles();
    // Every key section of every line resolved, placed in space and given its properties; flag
    // plays no part.
    void ReCalcAllKeySections(int flag);
    // Every node made on a reference line put back on it: at the line's point of its station,
    // moved to the centre of gravity of the section there. flag: the line whose nodes are
    // placed, or below 0 all lines.
    void ReCalcAllNodesOnRefLines(int flag);
    void ReCalcAllModelDependencies();
    void RecalcConnectedCharts(int flag, void* chart);
    // Pointer caches from their numbers: the nodes and section of each element (a spring section
    // also gives its element the spring's kind), the elements of loads, axial forces, masses and
    // members.
    void UpdatePointers();

    // ---- the command store
    int AddASCIICommand(int order, const std::string& text);
    void SetASCIICommand(int order, const std::string& text);
    std::string GetASCIICommand(int order) const;
    int GetASCIICommandLength(int order) const;

    // ---- a new project
    void CreateDefaultContents(int language, int addChange);
    void MakeDefaultReinfTypes(int addChange);
    void MakeDefaultShearReinfTypes(int addChange);

    // ---- change records
    void AddChange(int activeApp, std::unique_ptr<CId> id);
    int DeleteRedundantChanges(const CId& id);
    int SaveChanges();
    int ProcessChange() { return 1; }
    int SaveAll() { return 1; }

    // ---- busy flags shared by the two applications
    std::string GetAdminFlagPath() const;
    int SetFileAdminFlag(const std::string& file, int value);
    int GetFileAdminFlag(const std::string& file) const;
    int SetBaseBusy(int, int app, int busy, int);
    int IsBaseBusy(int, int& last, int);
    int CanChangesBePerformed(int, int, int& a, int& b);
    int ShouldDataBeRetrived(int& a, int& b) {
        a = 0;
        b = 1;
        return 1;
    }
    int IsBaseTimeOK() const { return 1; }

    // ---- time stamps: year, month, day, hour, minute, second
    void SetLoggTime(const int* time);
    void GetLoggTime(int* time) const;
    void SetBaseTime(const int* time);
    void GetBaseTime(int* time) const;

    // ---- messages of the model root
    int SendMessage(int code, int severity, int dialog);
    int Message(int code, int severity, int dialog) { return SendMessage(code, severity, dialog); }
    int SetMsgOption(int option);
    int GetMsgOption() const { return MsgOption; }
    int GetErrCount() const { return ErrCount; }
    int GetMaxDialogs() const { return MaxDialogs; }
    void SetMaxDialogs(int n) { MaxDialogs = n; }
    void ResetErrCount();
    int OpenErrFile(int create);
    void AddErrMessage(const std::string& text);
    int LoadErrFileToString(std::string* out) const;
    std::string GetErrFilePath() const;
    void SetMessageSink(MessageSink* sink) { m_sink = sink ? sink : &m_silent; }
    MessageSink& GetMessageSink() const { return *m_sink; }
    void SetProgressSink(ProgressSink* sink) { m_progress = sink ? sink : &m_silentProgress; }
    ProgressSink& GetProgressSink() const { return *m_progress; }

    // ---- the solver of analysis and combination runs
    void SetAnalysisEngineFactory(AnalysisEngineFactory factory) {
        m_engineFactory = std::move(factory);
    }
    // The engine of one run; null when the project has none.
    std::unique_ptr<CAnalysisEngine> MakeAnalysisEngine(CAnalysisRun& run) const {
        return m_engineFactory ? m_engineFactory(run) : nullptr;
    }

    // ---- the interpreter's settings, reached through the root
    int GetWarnLevel() const;
    void SetWarnLevel(int level);
    int ReadCommandFile(const std::string& fileName, std::string* log, int showDialog);
    int CommandConvert(std::string* text, std::string* log, int showDialog);

private:
    void NoteObjectChange();

    int No = 1;
    int m_activeApp;
    int ProjectNo = 0;
    std::string Name;
    std::array<double, 6> m_version{};
    std::array<double, 6> m_revision{};
    int AutoBackup = 0;
    int AutoBackupInt = 300000;
    COwnedList<CId> ChangesList;
    COwnedList<CForce> ForceList;
    double FrameYModulus = 30000.0;
    double FramePoisson = 0.2;
    int FrameAnType = 1;
    int MaterialChoice = 1;
    int SteelGrade = 2;
    double SteelMaterialFactor = 1.15;
    std::array<int, 5> RunStatistics{};
    std::array<double, 6> ConvOptions{50.0, 0.5, 0.5, 0.5, 0.0, 2.0};
    std::array<int, 6> LoggTime{-1, -1, -1, -1, -1, -1};
    std::array<int, 6> BaseTime{};
    int ConcrCode = 105;
    int SteelCode = 202;
    std::string ProfileStdString, ProfileGenString, BucklingString, ProfileLibFile, AppVersion;
    int ErrCount = 0;
    int MaxDialogs = 5;
    int MsgOption = 0;
    CTextWriter m_errFile;
    std::string m_documentPath;
    bool m_modified = false;
    SilentMessageSink m_silent;
    MessageSink* m_sink = &m_silent;
    SilentProgressSink m_silentProgress;
    ProgressSink* m_progress = &m_silentProgress;
    std::unique_ptr<CStructureCmd> m_cmd;
    std::unique_ptr<CMemResBase> m_resBase;
    CKeloBase* m_database = nullptr;
    AnalysisEngineFactory m_engineFactory = DefaultAnalysisEngineFactory();
};

#undef KELO_LIST_FAMILY
#undef KELO_LIST_FAMILY_BASE

} // namespace kelo
