#pragma once

#include "platform/Object.h"
#include "store/MemResNode.h"

#include <array>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace kelo {

class CDisplace;
class CStructure;
class CFrame;
class CSectionRes;
class CModeRes;
class CModelElemRes;

// Values stored with one section force: six forces (kN, kNm, local axes L, M, N), then the two
// integers given with them.
inline constexpr int kMemResForceValues = 8;
// A support reaction: six components in global axes.
inline constexpr int kMemResReactionValues = 6;
// A governing sort combination: the source combination of each of the twelve rows.
inline constexpr int kMemResGovSortCombValues = 12;

// Results of analyses and design runs, held in memory as a tree of numeric keys. Level 1 is the
// branch of one kind of result (the code, equal to the RES_ITEM_ value of its leaves); below it
// come the result type (load case, combination, sorted combination row...), the number of the
// case, the node or element, and for results along a member the position x as a real key.
//
// Record classes that are complete here (CDisplace, number arrays, texts) are stored as copies.
// Section results, mode results and element records of a model are kept as the shared records
// the caller hands over: the store does not look into them, and the shared pointer frees them
// with the deleter of their own class.
//
// Get functions answer 1 when they found a record. A missing key answers 0 and leaves the output
// as it was; a leaf that exists but holds no record answers 0 with zeroed output.
class CMemResBase : public CObject {
public:
    // One stored section force, as the lists of a design run or a listing take it.
    struct SectionForceRow {
        int Type = 0;
        int No = 0;
        int Element = 0;
        double X = 0.0;
        int A = 0;
        int B = 0;
        std::array<double, 6> Forces{};
    };
    // One stored section result with its keys.
    struct SectionResRow {
        int Type = 0;
        int No = 0;
        int Element = 0;
        double X = 0.0;
        std::shared_ptr<CSectionRes> Res;
    };

    explicit CMemResBase(CStructure* structure = nullptr);
    CMemResBase(const CMemResBase&) = delete;
    CMemResBase& operator=(const CMemResBase&) = delete;
    ~CMemResBase() override;

    // 1 for the results of ordinary runs; a traffic run's temporary store is marked 2.
    int GetType() const { return Type; }
    void SetType(int type) { Type = type; }
    CStructure* GetStructure() const { return Structure; }
    void SetStructure(CStructure* structure) { Structure = structure; }
    CFrame* GetFrame() const { return Frame; }
    void SetFrame(CFrame* frame) { Frame = frame; }

    CMemResNode* GetRootNode() { return Root.get(); }
    // The node of result type `id` in the branch `code`, or null.
    CMemResNode* GetCodeResNode(int code, int id);

    // Node displacements (branch 0).
    int SetDisplace(int type, int no, int node, const CDisplace* displace);
    int GetDisplace(int type, int no, int node, CDisplace* displace);
    // Section forces (branch 1): `forces` holds six values; a and b travel with them.
    int SetForce(int type, int no, int element, double x, int a, int b, const double* forces);
    int GetForce(int type, int no, int element, double x, int& a, int& b, double* forces);
    // Support reactions (branch 2): six values.
    int SetReaction(int type, int no, int node, const double* reaction);
    int GetReaction(int type, int no, int node, double* reaction);
    // Node accelerations (branch 6): a record of the shape of a displacement.
    int SetNodeAccel(int type, int no, int node, const CDisplace* accel);
    int GetNodeAccel(int type, int no, int node, CDisplace* accel);
    // Design results of a section (branch 10). The store takes over `res`; a result that it
    // replaces is handed back through `old` when given, and freed otherwise.
    int SetSectionRes(int type, int no, int element, double x, std::shared_ptr<CSectionRes> res,
                      std::shared_ptr<CSectionRes>* old);
    int GetSectionRes(int type, int no, int element, double x, std::shared_ptr<CSectionRes>* res);
    // Loaded positions of one traffic track for one governing row, as text (branch 11).
    int SetTrafTrackPosRes(int type, int no, int element, double x, int row, int track,
                           const std::string* text);
    int GetTrafTrackPosRes(int type, int no, int element, double x, int row, int track,
                           std::string* text);
    // Source combinations of the twelve governing rows of a section (branch 12).
    int SetGovSortComb(int type, int no, int element, double x, const int* sources);
    int GetGovSortComb(int type, int no, int element, double x, int* sources);
    // Mode shapes (branches 4 and 5), keyed by model, mode number and node.
    int SetEigenModeDisplace(int type, int model, int modeNo, int node, const CDisplace* displace);
    int GetEigenModeDisplace(int type, int model, int modeNo, int node, CDisplace* displace);
    int SetBucklingModeDisplace(int type, int model, int modeNo, int node,
                                const CDisplace* displace);
    int GetBucklingModeDisplace(int type, int model, int modeNo, int node, CDisplace* displace);
    // Results of one mode in a dynamic load case: branch 6, under the result type 100 + resType,
    // apart from the accelerations under their result codes.
    int SetModeRes(int resType, int loadcaseNo, int modeNo, std::shared_ptr<CModeRes> res);
    int GetModeRes(int resType, int loadcaseNo, int modeNo, std::shared_ptr<CModeRes>* res);

    // The same records in the calling form of the project store: mode 0 reads, modes 5 and 6
    // write, any other mode answers 0. `open` and the owner number `parent` have no meaning in
    // memory; the mode shapes and the element records take the model number in that place.
    int NodeDisplaceInBase(int open, int mode, int parent, int node, int type, int no,
                           CDisplace* displace);
    int SectionForceInBase(int open, int mode, int parent, int element, double x, int type, int no,
                           int& a, int& b, double* forces);
    int NodeReactionInBase(int open, int mode, int parent, int node, int type, int no,
                           double* reaction);
    int NodeAccelInBase(int open, int mode, int parent, int node, int type, int no,
                        CDisplace* accel);
    int SectResInBase(int open, int mode, int parent, int element, double x, int type, int no,
                      std::shared_ptr<CSectionRes>* res);
    int TrafTrackPosResInBase(int open, int mode, int parent, int element, double x, int type,
                              int no, int row, int track, std::string* text);
    int GovSortCombInBase(int open, int mode, int parent, int element, double x, int type, int no,
                          int* sources);
    int EigenModeDisplInBase(int open, int mode, int model, int node, int type, int modeNo,
                             CDisplace* displace);
    int BucklingModeDisplInBase(int open, int mode, int model, int node, int type, int modeNo,
                                CDisplace* displace);
    int LoadcaseModeResInBase(int open, int mode, int loadcaseNo, int modeNo, int resType,
                              std::shared_ptr<CModeRes>* res);
    // Element properties of one model (branch 9), kept across runs of the model.
    int ModelElemResInBase(int open, int mode, int model, int element,
                           std::shared_ptr<CModelElemRes>* res);

    // Lists over all numbers of one result type, in ascending number. Each appends what it
    // finds to the list and answers how many records it appended.
    int RetrieveSectionForceList(int element, double x, int type,
                                 std::vector<SectionForceRow>& list);
    int RetrieveSectionResList(int element, double x, int type, std::vector<SectionResRow>& list);
    // All nodes of one mode, in ascending node number.
    int RetrieveEigenModeDisplList(int type, int model, int modeNo, std::vector<CDisplace>& list);
    int RetrieveBucklingModeDisplList(int type, int model, int modeNo,
                                      std::vector<CDisplace>& list);
    // The influence values of all unit load cases of a traffic run at one section (forces) or
    // one node (displacements), one six-vector per load case found, with its load case number.
    int RetrieveTrafLoadULC(int type, int element, double x,
                            std::vector<std::array<double, 6>>& rows,
                            std::vector<int>* loadcases = nullptr);
    int RetrieveTrafLoadULCDef(int type, int node, std::vector<std::array<double, 6>>& rows,
                               std::vector<int>* loadcases = nullptr);

    // 1 when the branch `code` holds a record under result type `type`; -1 for either means any.
    int AnyResults(int code, int type);
    // 1 when any branch holds a record under result type `type`.
    int AnyResultsByType(int type);

    // Empties every branch and makes the branches anew.
    void DeleteAllResults();
    // Displacements, section forces, reactions and section results of the result types of a
    // zero-ended list.
    void DeleteAllSpesResults(const int* types);
    // Section results of a type and number; -1 for either means all.
    void DeleteAllSectRes(int type, int no);
    // The results of one section: of (type, no), or with `wholeSection` of every type that
    // design results are stored under and every number. Answers how many went.
    int DeleteSectRes(int type, int no, int element, double x, int wholeSection);
    // Mode shapes of one model, or of all with -1.
    void DeleteEigenModeRes(int model);
    void DeleteBucklingModeRes(int model);
    // Calculated results of one load case, of all load cases, and with those held as external.
    void DeleteCalcLoadcaseResults(int no);
    void DeleteAllCalcLoadcaseResults();
    void DeleteAllLoadcaseResults();
    void DeleteAllCalcLoadcombResults();
    void DeleteAllCalcSortCombResults();
    void DeleteAllCalcSortCombLineResults();
    void DeleteAllCombResults();
    // Empties the branch `code`, or every branch with -1; the branch nodes stay.
    void Clear(int code);

    // Writes the tree as indented text, for debugging.
    void DumpContentToFile(const std::string& path);

private:
    CMemResNode* Branch(int code);
    CMemResNode* Walk(int code, std::initializer_list<int> ids, bool create);
    void MakeBranches();

    int Type = 1;
    CStructure* Structure = nullptr;
    CFrame* Frame = nullptr;
    std::unique_ptr<CMemResNode> Root;
};

} // namespace kelo
