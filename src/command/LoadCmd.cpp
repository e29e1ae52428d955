#include "command/LoadCmd.h"

#include "command/StructureCmd.h"
#include "model/AnalysisEngine.h"
#include "model/AnalysisRun.h"
#include "model/Displace.h"
#include "model/Structure.h"
#include "platform/Text.h"
#include "platform/TextFile.h"
#include "report/FrameResOrder.h"
#include "report/ListServer.h"
#include "store/MemResBase.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <functional>
#include <set>

namespace kelo {

namespace {

// Command numbers of this family.
constexpr int kForce = 18, kDispl = 19, kLoad = 26, kOrdcomb = 30, kTrafline = 36, kTrafload = 37,
              kEarthqua = 38, kDynwind = 39, kCreepcmb = 40, kCreeplc = 41, kCalcgrp = 45,
              kAnalysis = 46, kSortcomb = 47, kSortline = 48, kCalccomb = 54, kSectforce = 77,
              kSolve = 91, kAnsolve = 93, kOutput = 94, kBuckling = 106, kBuckldes = 109,
              kEqspec = 120, kEqspecpt = 121, kWindspec = 125, kWindlen = 126, kWindturb = 127,
              kWindcoh = 128, kWindvrtx = 129, kAnsetup = 133, kTrafdisp = 134;

// Codes of the change notes.
constexpr int kCidAllLoadcases = 502, kCidAllTrafloads = 504, kCidAllTraflines = 506,
              kCidAllDynloads = 508, kCidAllCreepComb = 510, kCidAllCreepLoad = 512,
              kCidAllWindSpectras = 520, kCidAllEqSpectras = 521, kCidAllPosElements = 405,
              kCidAllDesignSect = 407, kCidAllOrdLoadcomb = 603, kCidAllSortComb = 605,
              kCidAllSortCombLine = 607, kCidAllCalcGroup = 704, kCidAllAnalysis = 706,
              kCidAllAnsetup = 708, kCidAllExtDesignForce = 803, kCidAllExtFrameDispl = 804,
              kCidAllExtFrameForce = 805, kCidAllCalcLoadcaseRes = 807,
              kCidAllCalcLoadcombRes = 809, kCidAllCalcSortCombRes = 811,
              kCidAllCalcSortLineRes = 813;

constexpr int kWriteAction = 5;
constexpr std::size_t kNameLength = 30;
// A design section lies at a given x/l when it is closer than this.
constexpr double kSameXoverL = 0.001;
// Result types of the store for what is given, not calculated: a load case held as external,
// an ordinary combination marked external, section forces on a key section.
constexpr int kResultExternalLoadcase = 11, kResultExternalLoadcomb = 12,
              kResultKeySectionForce = 16;

// Row names of the twelve governing results of a traffic load, in the order of their numbers.
const char* const kTrafRowNames[12] = {"PL-Max", "PM-Max", "PN-Max", "ML-Max", "MM-Max", "MN-Max",
                                       "PL-Min", "PM-Min", "PN-Min", "ML-Min", "MM-Min", "MN-Min"};

std::string NameOf(const std::string& text) { return CutName(Trim(text), kNameLength); }

// No real model numbers a million objects in one command: a longer range is taken for a typing
// error, so that it cannot tie the reader up or exhaust the memory.
constexpr long long kMaxRangeNumbers = 1000000;

bool RangeTooLong(const double* range) {
    const long long step = FieldInt(range[2]);
    if (step == 0) return false;
    return (static_cast<long long>(FieldInt(range[1])) - FieldInt(range[0])) / step + 1 >
           kMaxRangeNumbers;
}

// Calls f(number, k) for each number of the range first, last, step at `range`, k counting from
// 0. A step that truncates to 0, and a range that is too long, give no numbers.
void ForRange(const double* range, const std::function<void(int, int)>& f) {
    const long long step = FieldInt(range[2]);
    if (step == 0 || RangeTooLong(range)) return;
    const long long last = FieldInt(range[1]);
    int k = 0;
    for (long long i = FieldInt(range[0]); step > 0 ? i <= last : i >= last; i += step)
        f(static_cast<int>(i), k++);
}

bool InRange(int no, const double* range) {
    const long long first = FieldInt(range[0]);
    const long long step = FieldInt(range[2]);
    const long long last = FieldInt(range[1]);
    if (step > 0) return no >= first && no <= last && (no - first) % step == 0;
    if (step < 0) return no <= first && no >= last && (first - no) % -step == 0;
    return no == first;
}

// The result type of forces and displacements given for a load case (code 1) or a combination.
int ExternalType(int code) { return code == 1 ? kResultExternalLoadcase : kResultExternalLoadcomb; }

// A traffic load's twelve results take the numbers from its own to eleven above it.
constexpr int kMaxTrafLoadNo = INT_MAX - 11;

// One decimal digit of a code; a check refuses anything else.
int Digit(double v) { return FieldInt(v) % 10; }

bool ValidLimitState(int ls) { return ls >= 1 && ls <= 4; }

bool ValidLoadType(int type) {
    switch (type) {
    case 1:
    case 2:
    case 3:
    case 4:
    case 5:
    case 6:
    case 7:
    case 8:
    case 9:
    case 10:
    case 11:
    case 12:
    case 15:
    case 20:
    case 21:
    case 22:
    case 30:
    case 40:
    case 60:
    case 61:
        return true;
    default:
        return false;
    }
}

// Load types whose values are given in a direction; temperature, strain, prestress, tendons,
// torque and wind find their own.
bool LoadNeedsDirection(int type) {
    switch (type) {
    case 1:
    case 3:
    case 4:
    case 5:
    case 8:
    case 9:
    case 20:
    case 21:
    case 22:
    case 30:
    case 40:
        return true;
    default:
        return false;
    }
}

bool IsIntervalLoad(int type) {
    return type == 20 || type == 21 || type == 22 || type == 30 || type == 40;
}

// The design section of an element at x/l, or null.
CDesignSection* DesignSectionAt(CElement& e, double xOverL) {
    for (CDesignSection* ds : e.GetDesignSectionList())
        if (std::fabs(ds->GetXoverL() - xOverL) < kSameXoverL) return ds;
    return nullptr;
}

// Whether the combination `from` reaches `target` through the lines of code `code`, walking
// the factor lists that `factsOf` finds by number.
bool Reaches(int from, int target, int code,
             const std::function<const CLoadfactList*(int)>& factsOf) {
    std::set<int> seen;
    std::vector<int> todo{from};
    while (!todo.empty()) {
        const int no = todo.back();
        todo.pop_back();
        if (no == target) return true;
        if (!seen.insert(no).second) continue;
        const CLoadfactList* facts = factsOf(no);
        if (!facts) continue;
        for (const CLoadfact* f : facts->GetList())
            if (f->GetCode() == code) todo.push_back(f->GetNo());
    }
    return false;
}

} // namespace

CLoadCmd::CLoadCmd(CStructureCmd& cmd) : m_cmd(cmd) {
    using std::string;
    auto reg = [this](int type, int (CLoadCmd::*handler)(string&, int),
                      int (CLoadCmd::*check)(double*, int)) {
        m_cmd.RegisterHandler(
            type, [this, handler](string& r, int d) { return (this->*handler)(r, d); },
            check ? CStructureCmd::Check(
                        [this, check](double* v, int d) { return (this->*check)(v, d); })
                  : CStructureCmd::Check());
    };
    reg(kLoad, &CLoadCmd::Load, &CLoadCmd::LoadDataCheck);
    reg(kForce, &CLoadCmd::Force, &CLoadCmd::ForceDataCheck);
    reg(kDispl, &CLoadCmd::Displace, &CLoadCmd::DisplaceDataCheck);
    reg(kSectforce, &CLoadCmd::Sectforce, &CLoadCmd::SectforceDataCheck);
    reg(kOrdcomb, &CLoadCmd::Ordcomb, &CLoadCmd::OrdcombDataCheck);
    reg(kSortcomb, &CLoadCmd::Sortcomb, &CLoadCmd::SortcombDataCheck);
    reg(kSortline, &CLoadCmd::Sortline, &CLoadCmd::SortlineDataCheck);
    reg(kCreepcmb, &CLoadCmd::Creepcmb, &CLoadCmd::CreepcmbDataCheck);
    reg(kCreeplc, &CLoadCmd::Creeplc, &CLoadCmd::CreeplcDataCheck);
    reg(kCalcgrp, &CLoadCmd::Calcgrp, &CLoadCmd::CalcgrpDataCheck);
    reg(kCalccomb, &CLoadCmd::Calccomb, &CLoadCmd::CalccombDataCheck);
    reg(kAnalysis, &CLoadCmd::Analysis, &CLoadCmd::AnalysisDataCheck);
    reg(kAnsetup, &CLoadCmd::Ansetup, nullptr);
    reg(kAnsolve, &CLoadCmd::Ansolve, &CLoadCmd::AnsolveDataCheck);
    reg(kSolve, &CLoadCmd::Solve, &CLoadCmd::SolveDataCheck);
    reg(kTrafline, &CLoadCmd::Trafline, &CLoadCmd::TraflineDataCheck);
    reg(kTrafload, &CLoadCmd::Trafload, &CLoadCmd::TrafloadDataCheck);
    reg(kTrafdisp, &CLoadCmd::Trafdisp, &CLoadCmd::TrafdispDataCheck);
    reg(kEarthqua, &CLoadCmd::Earthqua, &CLoadCmd::EarthquaDataCheck);
    reg(kDynwind, &CLoadCmd::Dynwind, &CLoadCmd::DynwindDataCheck);
    reg(kEqspec, &CLoadCmd::Eqspec, &CLoadCmd::EqspecDataCheck);
    reg(kEqspecpt, &CLoadCmd::Eqspecpt, &CLoadCmd::EqspecptDataCheck);
    reg(kBuckling, &CLoadCmd::Buckling, &CLoadCmd::BucklingDataCheck);
    reg(kBuckldes, &CLoadCmd::Buckldes, &CLoadCmd::BuckldesDataCheck);
    reg(kOutput, &CLoadCmd::Output, &CLoadCmd::OutputDataCheck);
    const struct {
        int type;
        int (CLoadCmd::*handler)(string&, int);
    } winds[] = {{kWindspec, &CLoadCmd::Windspec},
                 {kWindlen, &CLoadCmd::Windlen},
                 {kWindturb, &CLoadCmd::Windturb},
                 {kWindcoh, &CLoadCmd::Windcoh},
                 {kWindvrtx, &CLoadCmd::Windvrtx}};
    for (const auto& w : winds)
        m_cmd.RegisterHandler(
            w.type, [this, h = w.handler](string& r, int d) { return (this->*h)(r, d); },
            [this, t = w.type](double* v, int d) { return WindDataCheck(t, v, d); });
}

// ------------------------------------------------------------------------- shared steps

CStructure& CLoadCmd::S() const { return *m_cmd.GetStructure(); }

bool CLoadCmd::CheckErrors() const { return m_cmd.GetCheckLevel() >= 1; }

bool CLoadCmd::CheckWarnings() const { return m_cmd.GetCheckLevel() >= 2; }

int CLoadCmd::ReadAndCheck(int type, const std::string& rest, double* values, int count,
                           std::string& text, int showDialog) {
    text.clear();
    if (m_cmd.CommandValues(rest, values, count, text, showDialog) < 0) return -2;
    const int check = m_cmd.DataCheck(type, values, showDialog);
    return check < -1 ? -2 : check;
}

int CLoadCmd::RangeCheck(int base, double* values, int showDialog) {
    const int result = m_cmd.StepCheck(base, values, showDialog);
    if (result < -1 || !RangeTooLong(&values[base])) return result;
    m_cmd.Message(3004, showDialog, 0, 0.0, nullptr);
    return -2;
}

CLoadcase* CLoadCmd::FindOrMakeLoadcase(int no, const std::string& name, int type) {
    CLoadcase* lc = S().GetLoadcasePtr(no);
    if (!lc) {
        auto made = std::make_unique<CLoadcase>(no, name);
        made->SetType(type);
        return S().AddLoadcase(std::move(made));
    }
    if (!name.empty()) lc->SetName(name);
    return lc;
}

void CLoadCmd::DeleteCalcResults(int kind, int scope) {
    CMemResBase* store = S().GetResBasePtr();
    if (kind == 0 && scope == 0) {
        store->DeleteAllCalcLoadcaseResults();
        for (CLoadcase* lc : *S().GetLoadcaseList())
            if (lc->GetExternal() == 0) lc->SetResults(0);
    }
    store->DeleteAllCalcLoadcombResults();
    store->DeleteAllCalcSortCombResults();
    store->DeleteAllCalcSortCombLineResults();
}

void CLoadCmd::RecalcDependencies(bool charts) {
    CStructure& s = S();
    s.ReCalcAllRoadProfiles();
    s.ReCalcAllKeySections(0);
    s.ReCalcAllNodesOnRefLines(-1);
    s.ReCalcAllModelDependencies();
    if (charts) s.RecalcConnectedCharts(0, nullptr);
    s.UpdatePointers();
}

// ------------------------------------------------------------------------- LOAD

// Values: load case, type, first, last, step, direction, four values. The interval forms 20, 21
// and 22 read the four values as the interval a, b on the global X, Y or Z axis and the load at a
// and at b; the element range then only narrows the elements (first 0: all). The forms along a
// reference line take the line in the place of first: type 30 with the interval in stations,
// type 40 with two axis numbers of the line.
int CLoadCmd::LoadDataCheck(double* v, int showDialog) {
    const int type = FieldInt(v[1]);
    const bool alongLine = type == 30 || type == 40;
    int result = alongLine ? 0 : RangeCheck(2, v, showDialog);
    if (!CheckErrors()) return 0;
    if (result < -1) return result;
    if (FieldInt(v[0]) < 1) {
        m_cmd.Message(3108, showDialog, FieldInt(v[0]), v[0], nullptr);
        return -2;
    }
    if (!ValidLoadType(type)) {
        m_cmd.Message(3313, showDialog, type, v[1], nullptr);
        return -2;
    }
    const int dir = FieldInt(v[5]);
    if (LoadNeedsDirection(type) && (dir < 1 || dir > 6)) {
        m_cmd.Message(3310, showDialog, dir, v[5], nullptr);
        return -2;
    }
    double a = v[6], b = v[7];
    if (alongLine) {
        const CRefLine* line = S().GetRefLinePtr(FieldInt(v[2]));
        if (FieldInt(v[2]) < 1 || !line) {
            m_cmd.Message(3314, showDialog, FieldInt(v[2]), v[2], nullptr);
            return -2;
        }
        if (type == 40) {
            const CAxis* axisA = line->GetAxisPtr(FieldInt(a));
            const CAxis* axisB = line->GetAxisPtr(FieldInt(b));
            if (!axisA || !axisB) {
                m_cmd.Message(3031, showDialog, axisA ? FieldInt(b) : FieldInt(a), 0.0, nullptr);
                return -2;
            }
            a = axisA->GetStationNo();
            b = axisB->GetStationNo();
        }
    }
    if (IsIntervalLoad(type) && b <= a) {
        m_cmd.Message(3135, showDialog, 0, 0.0, nullptr);
        return -2;
    }
    if (CheckWarnings() && !alongLine && !(IsIntervalLoad(type) && FieldInt(v[2]) == 0)) {
        ForRange(&v[2], [&](int no, int) {
            if (!S().GetElementPtr(no)) {
                m_cmd.Message(2027, showDialog, no, 0.0, nullptr);
                result = -1;
            }
        });
    }
    return result;
}

int CLoadCmd::Load(std::string& rest, int showDialog) {
    double v[11] = {1.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kLoad, rest, v, 10, text, showDialog);
    if (check < -1) return check;
    const int lcNo = FieldInt(v[0]);
    const int type = FieldInt(v[1]);
    const int dir = FieldInt(v[5]);
    if (IsIntervalLoad(type) && m_cmd.GetFirstLoadFlags(1) == 1) {
        RecalcDependencies(true);
        m_cmd.SetFirstLoadFlags(1, 0);
    }
    CLoadcase* lc = FindOrMakeLoadcase(lcNo, NameOf(text), 1);
    if (type >= 20 && type <= 22) {
        ExpandIntervalLoad(*lc, v, false, type - 20, v[6], v[7]);
    } else if (type == 30 || type == 40) {
        const CRefLine* line = S().GetRefLinePtr(FieldInt(v[2]));
        double a = v[6], b = v[7];
        if (type == 40 && line) {
            const CAxis* axisA = line->GetAxisPtr(FieldInt(a));
            const CAxis* axisB = line->GetAxisPtr(FieldInt(b));
            a = axisA ? axisA->GetStationNo() : a;
            b = axisB ? axisB->GetStationNo() : b;
        }
        ExpandIntervalLoad(*lc, v, true, FieldInt(v[2]), a, b);
    } else {
        ForRange(&v[2], [&](int no, int) {
            lc->AddLoad(std::make_unique<CLoad>(lcNo, no, type, dir, v[6], v[7], v[8], v[9]));
        });
    }
    lc->GetLoadInpList().Add(std::make_unique<CLoadInp>(
        FieldInt(v[2]), FieldInt(v[3]), FieldInt(v[4]), type, dir, v[6], v[7], v[8], v[9]));
    m_cmd.AddChange(kCidAllLoadcases, nullptr, kWriteAction);
    return check;
}

// Each element that overlaps the interval gets a load of type 8 over the overlapping part: the
// load at the start of the part, its distance from node 1, the increase over the part, and the
// distance of the part's end from node 2, all along the element. The command's load is given per
// length of the axis (or line) and changes linearly from a to b. For a global direction it acts
// on the element's projection normal to that direction, so that the load per element length is
// the given load times projected length / element length; the 1e-5 keeps an element that lies
// along the load's direction at (nearly) no load instead of dividing by zero.
void CLoadCmd::ExpandIntervalLoad(CLoadcase& lc, const double* v, bool alongLine, int axisOrLine,
                                  double a, double b) {
    const int dir = FieldInt(v[5]);
    const double slope = (v[9] - v[8]) / (b - a);
    auto loadAt = [&](double s) { return v[8] + slope * (s - a); };
    const bool allElements = alongLine || FieldInt(v[2]) == 0;
    for (CElement* e : *S().GetElementList()) {
        if (e->GetNo() < 1 || (!allElements && !InRange(e->GetNo(), &v[2]))) continue;
        const CNode* n1 = S().GetNodePtr(e->GetNodeNo1());
        const CNode* n2 = S().GetNodePtr(e->GetNodeNo2());
        if (!n1 || !n2) continue;
        double c1 = 0.0, c2 = 0.0;
        if (alongLine) {
            if (n1->GetRefLineNo() != axisOrLine || n2->GetRefLineNo() != axisOrLine) continue;
            c1 = n1->GetStationNo();
            c2 = n2->GetStationNo();
        } else {
            const double p1[3] = {n1->GetX(), n1->GetY(), n1->GetZ()};
            const double p2[3] = {n2->GetX(), n2->GetY(), n2->GetZ()};
            c1 = p1[axisOrLine];
            c2 = p2[axisOrLine];
        }
        const double dx = n2->GetX() - n1->GetX();
        const double dy = n2->GetY() - n1->GetY();
        const double dz = n2->GetZ() - n1->GetZ();
        const double length = std::sqrt(dx * dx + dy * dy + dz * dz);
        if (length < 1e-5) continue;

        double tStart = 0.0, tEnd = 1.0;
        if (std::fabs(c2 - c1) < 1e-5) {
            // Across the axis: the element is loaded whole when it stands inside the interval.
            if (c1 < a || c1 > b) continue;
        } else {
            const double from = std::max(std::min(c1, c2), a);
            const double to = std::min(std::max(c1, c2), b);
            if (to - from < 1e-5) continue;
            const double ta = (from - c1) / (c2 - c1);
            const double tb = (to - c1) / (c2 - c1);
            tStart = std::min(ta, tb);
            tEnd = std::max(ta, tb);
        }
        double projected = length;
        if (dir == 1) projected = std::sqrt(dy * dy + dz * dz);
        if (dir == 2) projected = std::sqrt(dx * dx + dz * dz);
        if (dir == 3) projected = std::sqrt(dx * dx + dy * dy);
        const double factor = length / (projected + 1e-05);
        const double qStart = loadAt(c1 + tStart * (c2 - c1)) / factor;
        const double qEnd = loadAt(c1 + tEnd * (c2 - c1)) / factor;
        lc.AddLoad(std::make_unique<CLoad>(lc.GetLoadcaseNo(), e->GetNo(), 8, dir, qStart,
                                           tStart * length, qEnd - qStart, (1.0 - tEnd) * length));
    }
}

// ------------------------------------------------------------------------- FORCE, DISPL

// Values: code (1 load case, 2 combination), its number, element, x/l, six forces PL, PM, PN,
// ML, MM, MN (kN, kNm), and two numbers stored with them.
int CLoadCmd::ForceDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    const int code = FieldInt(v[0]);
    const int no = FieldInt(v[1]);
    if (code != 1 && code != 2) {
        m_cmd.Message(3316, showDialog, code, v[0], nullptr);
        return -2;
    }
    if (no < 1) {
        m_cmd.Message(3004, showDialog, no, v[1], nullptr);
        return -2;
    }
    if (v[3] < 0.0 || v[3] > 1.0) {
        m_cmd.Message(3308, showDialog, 0, v[3], nullptr);
        return -2;
    }
    if (code == 1) {
        const CLoadcase* lc = S().GetLoadcasePtr(no);
        if (lc && lc->GetExternal() == 0) {
            m_cmd.Message(3021, showDialog, no, 0.0, nullptr);
            return -2;
        }
    } else {
        const CLoadcomb* comb = S().GetLoadcombPtr(no);
        if (comb && comb->GetExternal() == 0) {
            m_cmd.Message(3022, showDialog, no, 0.0, nullptr);
            return -2;
        }
    }
    const int elementNo = FieldInt(v[2]);
    CElement* e = S().GetElementPtr(elementNo);
    if (!e) {
        m_cmd.Message(2027, showDialog, elementNo, 0.0, nullptr);
        return -2;
    }
    if (!DesignSectionAt(*e, v[3])) {
        m_cmd.Message(3023, showDialog, elementNo, v[3], nullptr);
        return -2;
    }
    if (CheckWarnings()) {
        int a = 0, b = 0;
        double old[6] = {};
        if (S().GetResBasePtr()->SectionForceInBase(0, 0, 0, elementNo, v[3], ExternalType(code),
                                                    no, a, b, old)) {
            m_cmd.Message(2014, showDialog, elementNo, v[3], nullptr);
            return -1;
        }
    }
    return 0;
}

int CLoadCmd::Force(std::string& rest, int showDialog) {
    double v[13] = {1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kForce, rest, v, 12, text, showDialog);
    if (check < -1) return check;
    const int code = FieldInt(v[0]);
    const int no = FieldInt(v[1]);
    if (code != 1 && code != 2) return -2;
    if (code == 1) {
        CLoadcase* lc = FindOrMakeLoadcase(no, NameOf(text), 1);
        lc->SetExternal(1);
    } else {
        CLoadcomb* comb = S().GetLoadcombPtr(no);
        if (!comb) comb = S().AddLoadcomb(std::make_unique<CLoadcomb>(no, NameOf(text), 1));
        comb->SetExternal(1);
    }
    int a = FieldInt(v[10]), b = FieldInt(v[11]);
    double forces[6] = {v[4], v[5], v[6], v[7], v[8], v[9]};
    S().GetResBasePtr()->SectionForceInBase(0, 5, 0, FieldInt(v[2]), v[3], ExternalType(code), no,
                                            a, b, forces);
    m_cmd.AddChange(kCidAllExtFrameForce, nullptr, kWriteAction);
    return check;
}

// Values: code (1 load case, 2 combination), its number, node, Ux, Uy, Uz (m), Rotx, Roty,
// Rotz (rad).
int CLoadCmd::DisplaceDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    const int code = FieldInt(v[0]);
    const int no = FieldInt(v[1]);
    if (code != 1 && code != 2) {
        m_cmd.Message(3316, showDialog, code, v[0], nullptr);
        return -2;
    }
    if (no < 1) {
        m_cmd.Message(3004, showDialog, no, v[1], nullptr);
        return -2;
    }
    if (code == 1) {
        const CLoadcase* lc = S().GetLoadcasePtr(no);
        if (lc && lc->GetExternal() == 0) {
            m_cmd.Message(3021, showDialog, no, 0.0, nullptr);
            return -2;
        }
    } else {
        const CLoadcomb* comb = S().GetLoadcombPtr(no);
        if (comb && comb->GetExternal() == 0) {
            m_cmd.Message(3022, showDialog, no, 0.0, nullptr);
            return -2;
        }
    }
    if (!S().GetNodePtr(FieldInt(v[2]))) {
        m_cmd.Message(3020, showDialog, FieldInt(v[2]), 0.0, nullptr);
        return -2;
    }
    return 0;
}

int CLoadCmd::Displace(std::string& rest, int showDialog) {
    double v[10] = {1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kDispl, rest, v, 9, text, showDialog);
    if (check < -1) return check;
    const int code = FieldInt(v[0]);
    const int no = FieldInt(v[1]);
    if (code != 1 && code != 2) return -2;
    if (code == 1) {
        FindOrMakeLoadcase(no, NameOf(text), 1)->SetExternal(1);
    } else {
        CLoadcomb* comb = S().GetLoadcombPtr(no);
        if (!comb) comb = S().AddLoadcomb(std::make_unique<CLoadcomb>(no, NameOf(text), 1));
        comb->SetExternal(1);
    }
    const int type = ExternalType(code);
    CDisplace d(FieldInt(v[2]), no, type, v[3], v[4], v[5], v[6], v[7], v[8]);
    S().GetResBasePtr()->NodeDisplaceInBase(0, 5, 0, FieldInt(v[2]), type, no, &d);
    m_cmd.AddChange(kCidAllExtFrameDispl, nullptr, kWriteAction);
    return check;
}

// ------------------------------------------------------------------------- SECTFORCE

// Values: ID, limit state, section (on reference line 0), code, six forces. Kept under result
// type 16 with the section's negated number as the element key, as the design run of key
// sections reads them.
int CLoadCmd::SectforceDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    if (FieldInt(v[0]) < 1) {
        m_cmd.Message(3133, showDialog, FieldInt(v[0]), v[0], nullptr);
        return -2;
    }
    if (!ValidLimitState(FieldInt(v[1]))) {
        m_cmd.Message(3321, showDialog, FieldInt(v[1]), v[1], nullptr);
        return -2;
    }
    const CRefLine* line0 = S().GetRefLinePtr(0);
    if (!line0 || !line0->GetKeySectionPtr(v[2])) {
        m_cmd.Message(3015, showDialog, 0, v[2], nullptr);
        return -2;
    }
    return 0;
}

int CLoadCmd::Sectforce(std::string& rest, int showDialog) {
    double v[11] = {1.0, 1.0, 1.0, -1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kSectforce, rest, v, 10, text, showDialog);
    if (check < -1) return check;
    int ls = FieldInt(v[1]), code = FieldInt(v[3]);
    double forces[6] = {v[4], v[5], v[6], v[7], v[8], v[9]};
    S().GetResBasePtr()->SectionForceInBase(0, 5, 0, -FieldInt(v[2]), 0.0, kResultKeySectionForce,
                                            FieldInt(v[0]), ls, code, forces);
    m_cmd.AddChange(kCidAllExtDesignForce, nullptr, kWriteAction);
    return check;
}

// ------------------------------------------------------------------------- combinations

// Values: number, type (the code of the cases: 1 LC, 2 OC), limit state, three pairs of case and
// factor; a pair with case 0 is left out.
int CLoadCmd::OrdcombDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    const int no = FieldInt(v[0]);
    const int code = FieldInt(v[1]);
    if (no < 1) {
        m_cmd.Message(3004, showDialog, no, v[0], nullptr);
        return -2;
    }
    if (code != 1 && code != 2) {
        m_cmd.Message(3322, showDialog, code, v[1], nullptr);
        return -2;
    }
    if (!ValidLimitState(FieldInt(v[2]))) {
        m_cmd.Message(3321, showDialog, FieldInt(v[2]), v[2], nullptr);
        return -2;
    }
    int result = 0;
    auto factsOf = [this](int n) -> const CLoadfactList* {
        const CLoadcomb* c = S().GetLoadcombPtr(n);
        return c ? &c->GetLoadfacts() : nullptr;
    };
    for (int p = 0; p < 3; ++p) {
        const int caseNo = FieldInt(v[3 + 2 * p]);
        if (caseNo <= 0) continue;
        if (code == 2 && caseNo == no) {
            m_cmd.Message(3503, showDialog, no, 0.0, nullptr);
            return -2;
        }
        if (code == 2 && Reaches(caseNo, no, 2, factsOf)) {
            m_cmd.Message(3504, showDialog, caseNo, 0.0, nullptr);
            return -2;
        }
        if (!CheckWarnings()) continue;
        if (code == 1 && !S().GetLoadcasePtr(caseNo)) {
            m_cmd.Message(2029, showDialog, caseNo, 0.0, nullptr);
            result = -1;
        }
        if (code == 2 && !S().GetLoadcombPtr(caseNo)) {
            m_cmd.Message(2028, showDialog, caseNo, 0.0, nullptr);
            result = -1;
        }
    }
    if (CheckWarnings() && S().GetLoadcombPtr(no)) {
        m_cmd.Message(2016, showDialog, no, 0.0, nullptr);
        result = -1;
    }
    return result;
}

int CLoadCmd::Ordcomb(std::string& rest, int showDialog) {
    double v[10] = {1.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kOrdcomb, rest, v, 9, text, showDialog);
    if (check < -1) return check;
    const int no = FieldInt(v[0]);
    CLoadcomb* comb = S().GetLoadcombPtr(no);
    if (!comb)
        comb = S().AddLoadcomb(std::make_unique<CLoadcomb>(no, NameOf(text), FieldInt(v[2])));
    else if (!NameOf(text).empty())
        comb->SetName(NameOf(text));
    for (int p = 0; p < 3; ++p)
        if (FieldInt(v[3 + 2 * p]) > 0)
            comb->AddLoadfact(FieldInt(v[3 + 2 * p]), FieldInt(v[1]), v[4 + 2 * p]);
    m_cmd.AddChange(kCidAllOrdLoadcomb, nullptr, kWriteAction);
    return check;
}

// Values: number, type (the code of the cases: 1 LC, 2 OC, 3 TL, 4 SC), limit state, method,
// three pairs of case and factor.
int CLoadCmd::SortcombDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    const int no = FieldInt(v[0]);
    const int code = FieldInt(v[1]);
    const int method = FieldInt(v[3]);
    if (no < 1) {
        m_cmd.Message(3118, showDialog, no, v[0], nullptr);
        return -2;
    }
    if (!ValidLimitState(FieldInt(v[2]))) {
        m_cmd.Message(3321, showDialog, FieldInt(v[2]), v[2], nullptr);
        return -2;
    }
    if (code < 1 || code > 4) {
        m_cmd.Message(3323, showDialog, code, v[1], nullptr);
        return -2;
    }
    const bool knownMethod =
        (method >= 0 && method <= 4) || method == 10 || method == 11 || method == 13;
    if (!knownMethod) {
        m_cmd.Message(3324, showDialog, method, v[3], nullptr);
        return -2;
    }
    auto factsOf = [this](int n) -> const CLoadfactList* {
        const CSortComb* c = S().GetSortCombPtr(n);
        return c ? &c->GetLoadfacts() : nullptr;
    };
    int result = 0;
    for (int p = 0; p < 3; ++p) {
        const int caseNo = FieldInt(v[4 + 2 * p]);
        if (caseNo <= 0) continue;
        if (code == 4) {
            if (caseNo == no) {
                m_cmd.Message(3505, showDialog, no, 0.0, nullptr);
                return -2;
            }
            if (!S().GetSortCombPtr(caseNo)) {
                m_cmd.Message(3053, showDialog, caseNo, 0.0, nullptr);
                return -2;
            }
            if (Reaches(caseNo, no, 4, factsOf)) {
                m_cmd.Message(3506, showDialog, caseNo, 0.0, nullptr);
                return -2;
            }
        }
        if (!CheckWarnings()) continue;
        int missing = 0;
        if (code == 1 && !S().GetLoadcasePtr(caseNo)) missing = 2029;
        if (code == 2 && !S().GetLoadcombPtr(caseNo)) missing = 2028;
        if (code == 3 && !S().GetTrafLoadPtr(caseNo)) missing = 2031;
        if (missing) {
            m_cmd.Message(missing, showDialog, caseNo, 0.0, nullptr);
            result = -1;
        }
    }
    if (CheckWarnings() && S().GetSortCombPtr(no)) {
        m_cmd.Message(2017, showDialog, no, 0.0, nullptr);
        result = -1;
    }
    return result;
}

int CLoadCmd::Sortcomb(std::string& rest, int showDialog) {
    double v[11] = {1.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kSortcomb, rest, v, 10, text, showDialog);
    if (check < -1) return check;
    const int no = FieldInt(v[0]);
    CSortComb* comb = S().GetSortCombPtr(no);
    if (!comb)
        comb = S().AddSortComb(
            std::make_unique<CSortComb>(no, NameOf(text), FieldInt(v[2]), FieldInt(v[3])));
    else if (!NameOf(text).empty())
        comb->SetName(NameOf(text));
    for (int p = 0; p < 3; ++p)
        if (FieldInt(v[4 + 2 * p]) > 0)
            comb->AddLoadfact(FieldInt(v[4 + 2 * p]), FieldInt(v[1]), v[5 + 2 * p]);
    m_cmd.AddChange(kCidAllSortComb, nullptr, kWriteAction);
    return check;
}

// Values: number (1 to 999), the range first, last, step of sorted combinations, limit state,
// calculation code (0 or 1), and the range of elements (first 0: every element).
int CLoadCmd::SortlineDataCheck(double* v, int showDialog) {
    int result = RangeCheck(1, v, showDialog);
    if (result >= -1 && FieldInt(v[6]) != 0)
        result = std::min(result, RangeCheck(6, v, showDialog));
    if (!CheckErrors()) return 0;
    if (result < -1) return result;
    const int no = FieldInt(v[0]);
    if (no < 1) {
        m_cmd.Message(3123, showDialog, no, v[0], nullptr);
        return -2;
    }
    if (no > 999) {
        m_cmd.Message(3514, showDialog, no, v[0], nullptr);
        return -2;
    }
    if (!ValidLimitState(FieldInt(v[4]))) {
        m_cmd.Message(3321, showDialog, FieldInt(v[4]), v[4], nullptr);
        return -2;
    }
    if (FieldInt(v[5]) != 0 && FieldInt(v[5]) != 1) {
        m_cmd.Message(3326, showDialog, FieldInt(v[5]), v[5], nullptr);
        return -2;
    }
    if (CheckWarnings()) {
        ForRange(&v[1], [&](int n, int) {
            if (!S().GetSortCombPtr(n)) {
                m_cmd.Message(2030, showDialog, n, 0.0, nullptr);
                result = -1;
            }
        });
        if (S().GetSortCombLinePtr(no)) {
            m_cmd.Message(2020, showDialog, no, 0.0, nullptr);
            result = -1;
        }
    }
    return result;
}

int CLoadCmd::Sortline(std::string& rest, int showDialog) {
    double v[10] = {1.0, 1.0, 1.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kSortline, rest, v, 9, text, showDialog);
    if (check < -1) return check;
    auto line = std::make_unique<CSortCombLine>(FieldInt(v[0]), NameOf(text));
    for (int i = 0; i < 3; ++i) line->SetSortCombInterval(i, FieldInt(v[1 + i]));
    line->SetLimitState(FieldInt(v[4]));
    line->SetCalcCode(FieldInt(v[5]));
    if (FieldInt(v[6]) == 0) {
        for (const CElement* e : *S().GetElementList())
            if (e->GetNo() > 0) line->AddElementNo(e->GetNo());
    } else {
        ForRange(&v[6], [&](int no, int) { line->AddElementNo(no); });
    }
    S().AddSortCombLine(std::move(line));
    m_cmd.AddChange(kCidAllSortCombLine, nullptr, kWriteAction);
    return check;
}

// ------------------------------------------------------------------------- creep

// Values: number, three pairs of load case and factor.
int CLoadCmd::CreepcmbDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    if (FieldInt(v[0]) < 1) {
        m_cmd.Message(3113, showDialog, FieldInt(v[0]), v[0], nullptr);
        return -2;
    }
    return 0;
}

int CLoadCmd::Creepcmb(std::string& rest, int showDialog) {
    double v[8] = {1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kCreepcmb, rest, v, 7, text, showDialog);
    if (check < -1) return check;
    CCreepComb* comb = S().GetCreepCombPtr(FieldInt(v[0]));
    if (!comb)
        comb = S().AddCreepComb(std::make_unique<CCreepComb>(FieldInt(v[0]), NameOf(text)));
    else if (!NameOf(text).empty())
        comb->SetName(NameOf(text));
    for (int p = 0; p < 3; ++p)
        if (FieldInt(v[1 + 2 * p]) > 0)
            comb->GetLoadfacts().AddSumming(FieldInt(v[1 + 2 * p]), 1, v[2 + 2 * p]);
    m_cmd.AddChange(kCidAllCreepComb, nullptr, kWriteAction);
    return check;
}

// Values: load case, the element range, creep combination, times t1 and t2 (days), and one more
// value kept with the load.
int CLoadCmd::CreeplcDataCheck(double* v, int showDialog) {
    int result = RangeCheck(1, v, showDialog);
    if (!CheckErrors()) return 0;
    if (result < -1) return result;
    if (FieldInt(v[0]) < 1) {
        m_cmd.Message(3114, showDialog, FieldInt(v[0]), v[0], nullptr);
        return -2;
    }
    if (!S().GetCreepCombPtr(FieldInt(v[4]))) {
        m_cmd.Message(3054, showDialog, FieldInt(v[4]), v[4], nullptr);
        return -2;
    }
    if (v[6] <= v[5]) {
        m_cmd.Message(3170, showDialog, 0, v[6], nullptr);
        return -2;
    }
    if (CheckWarnings())
        ForRange(&v[1], [&](int no, int) {
            if (!S().GetElementPtr(no)) {
                m_cmd.Message(2027, showDialog, no, 0.0, nullptr);
                result = -1;
            }
        });
    return result;
}

int CLoadCmd::Creeplc(std::string& rest, int showDialog) {
    double v[9] = {1.0, 1.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kCreeplc, rest, v, 8, text, showDialog);
    if (check < -1) return check;
    const int lcNo = FieldInt(v[0]);
    CLoadcase* lc = FindOrMakeLoadcase(lcNo, NameOf(text), 4);
    lc->SetType(4);
    ForRange(&v[1], [&](int no, int) {
        lc->AddLoad(std::make_unique<CLoad>(lcNo, no, 50, 0, v[4], v[5], v[6], v[7]));
    });
    lc->GetLoadInpList().Add(std::make_unique<CLoadInp>(
        FieldInt(v[1]), FieldInt(v[2]), FieldInt(v[3]), 50, 0, v[4], v[5], v[6], v[7]));
    m_cmd.AddChange(kCidAllCreepLoad, nullptr, kWriteAction);
    return check;
}

// ------------------------------------------------------------------------- groups and analyses

// Values: number, type (1 to 8), the range of loads (for types 4, 7 and 8 a mode count).
int CLoadCmd::CalcgrpDataCheck(double* v, int showDialog) {
    int result = RangeCheck(2, v, showDialog);
    if (!CheckErrors()) return 0;
    if (result < -1) return result;
    if (FieldInt(v[0]) < 1) {
        m_cmd.Message(3117, showDialog, FieldInt(v[0]), v[0], nullptr);
        return -2;
    }
    const int type = FieldInt(v[1]);
    if (type < 1 || type > 8) {
        m_cmd.Message(3320, showDialog, type, v[1], nullptr);
        return -2;
    }
    if (!CheckWarnings()) return result;
    ForRange(&v[2], [&](int no, int) {
        const CLoadcase* lc = S().GetLoadcasePtr(no);
        int missing = 0;
        if ((type == 1 || type == 3) && !lc) missing = 2029;
        if (type == 2 && !S().GetTrafLoadPtr(no)) missing = 2031;
        if ((type == 5 || type == 6) && (!lc || lc->GetDynamic() == 0)) missing = 2214;
        if (missing) {
            m_cmd.Message(missing, showDialog, no, 0.0, nullptr);
            result = -1;
        }
    });
    return result;
}

int CLoadCmd::Calcgrp(std::string& rest, int showDialog) {
    double v[6] = {1.0, 1.0, 1.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kCalcgrp, rest, v, 5, text, showDialog);
    if (check < -1) return check;
    const int type = FieldInt(v[1]);
    CCalcGroup* group = S().GetCalcGroupPtr(FieldInt(v[0]));
    if (!group)
        group = S().AddCalcGroup(std::make_unique<CCalcGroup>(FieldInt(v[0]), NameOf(text), type));
    else if (!NameOf(text).empty())
        group->SetName(NameOf(text));
    ForRange(&v[2], [&](int no, int) {
        const CLoadcase* lc = S().GetLoadcasePtr(no);
        switch (type) {
        case 1:
        case 3:
            if (lc) group->AddLoadNo(no);
            break;
        case 2:
            if (S().GetTrafLoadPtr(no)) group->AddLoadNo(no);
            break;
        case 5:
        case 6:
            if (lc && lc->GetDynamic() != 0) group->AddLoadNo(no);
            break;
        default: // a mode count
            group->AddLoadNo(no);
            break;
        }
    });
    m_cmd.AddChange(kCidAllCalcGroup, nullptr, kWriteAction);
    return check;
}

// Values: code (-1 all, 1 ordinary combinations, 2 sorted combinations, 3 sorted lines).
int CLoadCmd::CalccombDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    const int code = FieldInt(v[0]);
    if (code != -1 && (code < 1 || code > 3)) {
        m_cmd.Message(3328, showDialog, code, v[0], nullptr);
        return -2;
    }
    return 0;
}

int CLoadCmd::Calccomb(std::string& rest, int showDialog) {
    double v[2] = {1.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kCalccomb, rest, v, 1, text, showDialog);
    if (check < -1) return check;
    const int code = FieldInt(v[0]);
    CAnalysisRun run(&S(), nullptr, nullptr, nullptr);
    run.SetMemResBasePtr(S().GetResBasePtr());
    run.SetProgress(&S().GetProgressSink());
    run.SetLog(m_cmd.GetLogText(), m_cmd.GetLogText());
    std::unique_ptr<CAnalysisEngine> engine = S().MakeAnalysisEngine(run);
    S().GetProgressSink().SetText("Load combination");
    DeleteCalcResults(1, 3);

    int result = check;
    const struct {
        int code;
        EAnalysisStage stage;
        int (CAnalysisEngine::*call)();
        int change;
    } kinds[] = {
        {1, EAnalysisStage::OrdCombinations, &CAnalysisEngine::ProsessOrdCombinations,
         kCidAllCalcLoadcombRes},
        {2, EAnalysisStage::SortCombinations, &CAnalysisEngine::ProsessSortCombinations,
         kCidAllCalcSortCombRes},
        {3, EAnalysisStage::SortLineCombinations, &CAnalysisEngine::ProsessSortLineCombinations,
         kCidAllCalcSortLineRes},
    };
    for (const auto& kind : kinds) {
        if (code != -1 && code != kind.code) continue;
        if (!engine || !engine->Provides(kind.stage)) {
            const std::string name = AnalysisStageName(kind.stage);
            m_cmd.ReaderMessage(2, "Load combination is not available yet: " + name + "!",
                                "Lastkombinering er ikke tilgjengelig ennå: " + name + "!");
            result = -1;
            continue;
        }
        ((*engine).*kind.call)();
        m_cmd.AddChange(kind.change, nullptr, kWriteAction);
    }
    return result;
}

// Values: number, model, calculation group, analysis setup, and a spare.
int CLoadCmd::AnalysisDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    if (FieldInt(v[0]) < 1) {
        m_cmd.Message(3116, showDialog, FieldInt(v[0]), v[0], nullptr);
        return -2;
    }
    if (FieldInt(v[1]) < 1) {
        m_cmd.Message(3115, showDialog, FieldInt(v[1]), v[1], nullptr);
        return -2;
    }
    if (!S().GetModelPtr(FieldInt(v[1]))) {
        m_cmd.Message(3026, showDialog, FieldInt(v[1]), v[1], nullptr);
        return -2;
    }
    if (FieldInt(v[2]) < 1) {
        m_cmd.Message(3117, showDialog, FieldInt(v[2]), v[2], nullptr);
        return -2;
    }
    if (!S().GetCalcGroupPtr(FieldInt(v[2]))) {
        m_cmd.Message(3028, showDialog, FieldInt(v[2]), v[2], nullptr);
        return -2;
    }
    if (CheckWarnings() && FieldInt(v[3]) > 0 && !S().GetAnalysisSetupPtr(FieldInt(v[3]))) {
        m_cmd.Message(2015, showDialog, FieldInt(v[3]), v[3], nullptr);
        return -1;
    }
    return 0;
}

int CLoadCmd::Analysis(std::string& rest, int showDialog) {
    double v[6] = {1.0, 1.0, 1.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kAnalysis, rest, v, 5, text, showDialog);
    if (check < -1) return check;
    auto analysis = std::make_unique<CAnalysis>(FieldInt(v[0]), NameOf(text));
    analysis->SetModel(FieldInt(v[1]));
    analysis->SetFirstCalcGroup(FieldInt(v[2]));
    analysis->SetLastCalcGroup(FieldInt(v[2]));
    analysis->SetStepCalcGroup(1);
    analysis->SetAnSetupNo(FieldInt(v[3]));
    if (const CCalcGroup* group = S().GetCalcGroupPtr(FieldInt(v[2])))
        analysis->SetAnType(group->GetAnalysisType());
    S().AddAnalysis(std::move(analysis));
    m_cmd.AddChange(kCidAllAnalysis, nullptr, kWriteAction);
    return check;
}

// Values: number, include axial forces, option, accumulate, and a spare.
int CLoadCmd::Ansetup(std::string& rest, int showDialog) {
    double v[6] = {1.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kAnsetup, rest, v, 5, text, showDialog);
    if (check < -1) return check;
    auto setup = std::make_unique<CAnalysisSetup>();
    setup->SetNo(FieldInt(v[0]));
    setup->SetName(NameOf(text));
    setup->SetIncludeAxial(FieldInt(v[1]));
    setup->SetAnOption(FieldInt(v[2]));
    setup->SetAccumulate(FieldInt(v[3]));
    S().AddAnalysisSetup(std::move(setup));
    m_cmd.AddChange(kCidAllAnsetup, nullptr, kWriteAction);
    return check;
}

// Values: first (-1: every analysis), last, step.
int CLoadCmd::AnsolveDataCheck(double* v, int showDialog) {
    if (FieldInt(v[0]) == -1) return 0;
    int result = RangeCheck(0, v, showDialog);
    if (!CheckErrors()) return 0;
    if (result < -1) return result;
    ForRange(v, [&](int no, int) {
        if (result < -1 || S().GetAnalysisPtr(no)) return;
        m_cmd.Message(3049, showDialog, no, 0.0, nullptr);
        result = -2;
    });
    return result;
}

int CLoadCmd::Ansolve(std::string& rest, int showDialog) {
    double v[4] = {-1.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kAnsolve, rest, v, 3, text, showDialog);
    if (check < -1) return check;
    RecalcDependencies(false);
    ProgressSink& progress = S().GetProgressSink();
    progress.SetText("Multiple frame analysis");
    std::string* log = m_cmd.GetLogText();
    std::vector<CAnalysis*> runs;
    if (FieldInt(v[0]) == -1) {
        DeleteCalcResults(0, 0);
        for (CAnalysis* a : *S().GetAnalysisList()) {
            if (a->GetAnalysisNo() == 0) continue;
            a->SetAnalysisStatus(0);
            runs.push_back(a);
        }
    } else {
        DeleteCalcResults(0, 3);
        ForRange(v, [&](int no, int) {
            if (CAnalysis* a = S().GetAnalysisPtr(no)) runs.push_back(a);
        });
    }
    for (CAnalysis* a : runs) a->RunAnalysis(&S(), &progress, log, log, 1);
    m_cmd.AddChange(kCidAllAnalysis, nullptr, kWriteAction);
    return check;
}

// Values: type (-1 all, 1 to 8), number of modes.
int CLoadCmd::SolveDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    const int type = FieldInt(v[0]);
    if (type != -1 && (type < 1 || type > 8)) {
        m_cmd.Message(3327, showDialog, type, v[0], nullptr);
        return -2;
    }
    const bool modes = type == -1 || type == 4 || type == 7 || type == 8;
    if (modes && FieldInt(v[1]) < 1) {
        m_cmd.Message(3124, showDialog, FieldInt(v[1]), v[1], nullptr);
        return -2;
    }
    return 0;
}

int CLoadCmd::Solve(std::string& rest, int showDialog) {
    double v[3] = {1.0, 1.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kSolve, rest, v, 2, text, showDialog);
    if (check < -1) return check;
    CStructure& s = S();
    RecalcDependencies(true);
    if (s.HasDocument() && !s.OpenErrFile(0)) {
        const std::string path = s.GetErrFilePath();
        m_cmd.Message(3700, showDialog, 0, 0.0, &path);
    }
    ProgressSink& progress = s.GetProgressSink();
    progress.SetText("Default All");
    std::string* log = m_cmd.GetLogText();
    const int type = FieldInt(v[0]);
    const int modes = FieldInt(v[1]);

    if (CAnalysis::PreAnalsisRequired(*s.GetElementList())) {
        CAnalysis pre(0, "Default All");
        pre.SetModel(1);
        pre.RunPreAnalysis(&s, *s.GetElementList(), &progress, log);
    }
    CAnalysis all(0, "Default All");
    all.SetModel(1);
    all.SetFirstCalcGroup(0);
    auto run = [&](int anType) {
        all.SetAnType(anType);
        all.RunAnalysis(&s, &progress, log, log, 1);
    };
    CModel* model = s.GetModelPtr(1);
    const bool every = type == -1;
    if (every || type == 1) run(1);
    if (every || type == 2) run(2);
    // The creep branch answers to the type of the eigenvalue run, as it always has: SOLVE 3 runs
    // nothing and SOLVE 4 runs creep and eigenvalues.
    if (every || type == 4) run(3);
    if (every || type == 4) {
        if (model) model->SetNoOfModes(modes);
        run(4);
    }
    if (every || type == 5) run(5);
    if (every || type == 6) run(6);
    if (every || type == 7) {
        if (model) {
            model->GetBucklingModeList().RemoveAll();
            s.GetResBasePtr()->DeleteBucklingModeRes(1);
            model->SetNoOfBucklingModes(modes);
        }
        run(7);
    }
    if (every || type == 8) {
        if (model) {
            model->GetEigenModeList().RemoveAll();
            s.GetResBasePtr()->DeleteEigenModeRes(1);
            model->SetNoOfModes(modes);
        }
        run(8);
    }
    m_cmd.AddChange(kCidAllCalcLoadcaseRes, nullptr, kWriteAction);
    if (type == 1) m_cmd.AddChange(kCidAllCalcLoadcombRes, nullptr, kWriteAction);
    return check;
}

// ------------------------------------------------------------------------- traffic

// Values: line number, the element range, stretches per element, spacing (m). With a spacing
// above 0 an element is cut into length / spacing stretches, at least one.
int CLoadCmd::TraflineDataCheck(double* v, int showDialog) {
    int result = RangeCheck(1, v, showDialog);
    if (!CheckErrors()) return 0;
    if (result < -1) return result;
    if (FieldInt(v[0]) < 1) {
        m_cmd.Message(3109, showDialog, FieldInt(v[0]), v[0], nullptr);
        return -2;
    }
    if (CheckWarnings())
        ForRange(&v[1], [&](int no, int) {
            if (!S().GetElementPtr(no)) {
                m_cmd.Message(2027, showDialog, no, 0.0, nullptr);
                result = -1;
            }
        });
    return result;
}

int CLoadCmd::Trafline(std::string& rest, int showDialog) {
    double v[7] = {1.0, 1.0, 1.0, 1.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kTrafline, rest, v, 6, text, showDialog);
    if (check < -1) return check;
    CTrafLine* line = S().GetTrafLinePtr(FieldInt(v[0]));
    if (!line)
        line = S().AddTrafLine(std::make_unique<CTrafLine>(FieldInt(v[0]), NameOf(text)));
    else if (!NameOf(text).empty())
        line->SetName(NameOf(text));
    const int posNo = FieldInt(v[4]);
    const double spacing = v[5];
    double accum = line->GetAccumLength();
    int accPos = line->GetAccumPosNo();
    ForRange(&v[1], [&](int no, int) {
        const CElement* e = S().GetElementPtr(no);
        if (!e) return;
        double length = e->GetLength();
        const CNode* n1 = S().GetNodePtr(e->GetNodeNo1());
        const CNode* n2 = S().GetNodePtr(e->GetNodeNo2());
        if (n1 && n2)
            length = std::sqrt(std::pow(n2->GetX() - n1->GetX(), 2) +
                               std::pow(n2->GetY() - n1->GetY(), 2) +
                               std::pow(n2->GetZ() - n1->GetZ(), 2));
        const int pieces =
            spacing > 0.0 ? std::max(1, FieldInt(length / spacing)) : std::max(1, posNo);
        line->GetTrafLineElemList().Add(
            std::make_unique<CTrafLineElem>(no, length, accum, pieces, accPos));
        accum += length;
        accPos += pieces;
    });
    line->GetTrafLineInpList().Add(std::make_unique<CTrafLineInp>(FieldInt(v[1]), FieldInt(v[2]),
                                                                  FieldInt(v[3]), posNo, spacing));
    if (spacing > 0.0) line->SetMinPosDist(spacing);
    m_cmd.AddChange(kCidAllTraflines, nullptr, kWriteAction);
    return check;
}

// Values: traffic load (also the first of its twelve load cases), traffic line, track, traffic
// type, direction, and the eight track values.
int CLoadCmd::TrafloadDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    const int no = FieldInt(v[0]);
    const int lineNo = FieldInt(v[1]);
    if (no < 1 || no > kMaxTrafLoadNo) {
        m_cmd.Message(3110, showDialog, no, v[0], nullptr);
        return -2;
    }
    if (lineNo < 1) {
        m_cmd.Message(3109, showDialog, lineNo, v[1], nullptr);
        return -2;
    }
    if (!S().GetTrafLinePtr(lineNo)) {
        m_cmd.Message(3016, showDialog, lineNo, v[1], nullptr);
        return -2;
    }
    if (FieldInt(v[2]) < 1) {
        m_cmd.Message(3111, showDialog, FieldInt(v[2]), v[2], nullptr);
        return -2;
    }
    const int type = FieldInt(v[3]);
    if (type < 1 || type > 6 || type == 5) {
        m_cmd.Message(3315, showDialog, type, v[3], nullptr);
        return -2;
    }
    const CTrafLoad* existing = S().GetTrafLoadPtr(no);
    if (existing && existing->GetTrafLineNo() != lineNo) {
        m_cmd.Message(3018, showDialog, no, 0.0, nullptr);
        return -2;
    }
    for (int r = 0; r < 12; ++r) {
        const CLoadcase* lc = S().GetLoadcasePtr(no + r);
        if (lc && lc->GetTraffic() == 0) {
            m_cmd.Message(3017, showDialog, no + r, 0.0, nullptr);
            return -2;
        }
    }
    return 0;
}

int CLoadCmd::Trafload(std::string& rest, int showDialog) {
    double v[14] = {1.0, 1.0, 1.0, 1.0, 3.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kTrafload, rest, v, 13, text, showDialog);
    if (check < -1) return check;
    const int no = FieldInt(v[0]);
    if (no > kMaxTrafLoadNo) return -2;
    CTrafLoad* load = S().GetTrafLoadPtr(no);
    if (!load) {
        const std::string name =
            NameOf(text).empty() ? Format("Traffic load %i", no) : NameOf(text);
        load = S().AddTrafLoad(std::make_unique<CTrafLoad>(no, FieldInt(v[1]), name));
    } else if (!NameOf(text).empty()) {
        load->SetName(NameOf(text));
    }
    auto track = std::make_unique<CTrafTrack>(FieldInt(v[2]), FieldInt(v[3]), FieldInt(v[4]));
    track->SetTrafTrackValues(&v[5]);
    load->GetTrafTrackList().Add(std::move(track));
    // The twelve governing results of the load are kept as load cases of their own.
    for (int r = 0; r < 12; ++r) {
        if (S().GetLoadcasePtr(no + r)) continue;
        auto lc = std::make_unique<CLoadcase>(no + r, CutName(load->GetName(), kNameLength - 7) +
                                                          " " + kTrafRowNames[r]);
        lc->SetType(2);
        lc->SetTraffic();
        S().AddLoadcase(std::move(lc));
    }
    m_cmd.AddChange(kCidAllTrafloads, nullptr, kWriteAction);
    m_cmd.AddChange(kCidAllLoadcases, nullptr, kWriteAction);
    return check;
}

// Values: element, end (1 or 2), x/l. The design section at x/l takes the displacements of the
// node at that end, and the node is sorted in displacement listings as element + end / 10.
int CLoadCmd::TrafdispDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    CElement* e = S().GetElementPtr(FieldInt(v[0]));
    if (!e) {
        m_cmd.Message(2027, showDialog, FieldInt(v[0]), 0.0, nullptr);
        return -2;
    }
    if (FieldInt(v[1]) != 1 && FieldInt(v[1]) != 2) {
        m_cmd.Message(3004, showDialog, FieldInt(v[1]), v[1], nullptr);
        return -2;
    }
    if (v[2] < 0.0 || v[2] > 1.0) {
        m_cmd.Message(3308, showDialog, 0, v[2], nullptr);
        return -2;
    }
    if (!DesignSectionAt(*e, v[2])) {
        m_cmd.Message(3023, showDialog, FieldInt(v[0]), v[2], nullptr);
        return -2;
    }
    return 0;
}

int CLoadCmd::Trafdisp(std::string& rest, int showDialog) {
    double v[4] = {1.0, 1.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kTrafdisp, rest, v, 3, text, showDialog);
    if (check < -1) return check;
    CElement* e = S().GetElementPtr(FieldInt(v[0]));
    CDesignSection* ds = e ? DesignSectionAt(*e, v[2]) : nullptr;
    if (!ds) return -1;
    const int nodeNo = FieldInt(v[1]) == 2 ? e->GetNodeNo2() : e->GetNodeNo1();
    ds->SetNodeDisplace(nodeNo);
    if (CNode* node = S().GetNodePtr(nodeNo)) node->SetSortDisplace(e->GetNo() + v[1] / 10.0);
    m_cmd.AddChange(kCidAllDesignSect, nullptr, kWriteAction);
    return check;
}

// ------------------------------------------------------------------------- dynamic loads

// Values: load case, first mode, last mode, ground acceleration (m/s2), scale factors of it in
// X, Y and Z, response spectrum (0: the built-in one), damping (%).
int CLoadCmd::EarthquaDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    if (FieldInt(v[0]) < 1) {
        m_cmd.Message(3108, showDialog, FieldInt(v[0]), v[0], nullptr);
        return -2;
    }
    if (FieldInt(v[7]) > 0 && !S().GetEarthquakeSpectraPtr(FieldInt(v[7]))) {
        m_cmd.Message(3019, showDialog, FieldInt(v[7]), v[7], nullptr);
        return -2;
    }
    const CLoadcase* lc = S().GetLoadcasePtr(FieldInt(v[0]));
    if (CheckWarnings() && lc && lc->GetDynLoadPtr()) {
        m_cmd.Message(2013, showDialog, FieldInt(v[0]), 0.0, nullptr);
        return -1;
    }
    return 0;
}

CDynLoad& CLoadCmd::AttachDynLoad(const double* v, const std::string& text) {
    CLoadcase* lc = FindOrMakeLoadcase(FieldInt(v[0]), NameOf(text), 3);
    auto dyn = std::make_unique<CDynLoad>();
    dyn->SetFirstMode(FieldInt(v[1]));
    dyn->SetLastMode(FieldInt(v[2]));
    CDynLoad& held = *dyn;
    lc->SetDynLoadPtr(std::move(dyn));
    lc->SetDynamic();
    m_cmd.AddChange(kCidAllDynloads, nullptr, kWriteAction);
    return held;
}

int CLoadCmd::Earthqua(std::string& rest, int showDialog) {
    double v[10] = {1.0, 1.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kEarthqua, rest, v, 9, text, showDialog);
    if (check < -1) return check;
    CDynLoad& dyn = AttachDynLoad(v, text);
    dyn.SetGroundAcc(v[3]);
    dyn.SetScaleX(v[4]);
    dyn.SetScaleY(v[5]);
    dyn.SetScaleZ(v[6]);
    dyn.SetEarthquakeSpectraNo(FieldInt(v[7]));
    dyn.SetDamping(v[8]);
    return check;
}

// Values: load case, first mode, last mode, wind speed at 10 m (m/s), direction (degrees),
// terrain roughness, damping ratio, wind spectrum (0: the default), ground level (m).
int CLoadCmd::DynwindDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    if (FieldInt(v[0]) < 1) {
        m_cmd.Message(3108, showDialog, FieldInt(v[0]), v[0], nullptr);
        return -2;
    }
    return 0;
}

int CLoadCmd::Dynwind(std::string& rest, int showDialog) {
    double v[10] = {1.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kDynwind, rest, v, 9, text, showDialog);
    if (check < -1) return check;
    CDynLoad& dyn = AttachDynLoad(v, text);
    dyn.SetWindSpeed(v[3]);
    dyn.SetWindDirection(v[4]);
    dyn.SetRoughness(v[5]);
    dyn.SetDamping(v[6]);
    dyn.SetWindSpectraNo(FieldInt(v[7]));
    dyn.SetGroundLevel(v[8]);
    return check;
}

// Values: number, type (what the table holds: 0 none, 1 accelerations, 2 pseudo velocities,
// 3 displacements), code of the code spectrum (0 none, 1, or 301 NS_EN_1998), damping of the
// table (%), damping rule (0, 1, 2), normalisation of the ground acceleration.
int CLoadCmd::EqspecDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    if (FieldInt(v[0]) < 1) {
        m_cmd.Message(3112, showDialog, FieldInt(v[0]), v[0], nullptr);
        return -2;
    }
    if (FieldInt(v[1]) < 0 || FieldInt(v[1]) > 3) {
        m_cmd.Message(3360, showDialog, FieldInt(v[1]), v[1], nullptr);
        return -2;
    }
    const int code = FieldInt(v[2]);
    if (code != 0 && code != 1 && code != 301) {
        m_cmd.Message(3361, showDialog, code, v[2], nullptr);
        return -2;
    }
    if (v[3] <= 0.0) {
        m_cmd.Message(3362, showDialog, 0, v[3], nullptr);
        return -2;
    }
    if (FieldInt(v[4]) < 0 || FieldInt(v[4]) > 2 || v[5] <= 0.0) {
        m_cmd.Message(3004, showDialog, 0, 0.0, nullptr);
        return -2;
    }
    return 0;
}

int CLoadCmd::Eqspec(std::string& rest, int showDialog) {
    double v[7] = {1.0, 1.0, 1.0, 5.0, 0.0, 1.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kEqspec, rest, v, 6, text, showDialog);
    if (check < -1) return check;
    CEarthquakeSpectra* spectrum = S().GetEarthquakeSpectraPtr(FieldInt(v[0]));
    if (!spectrum) {
        auto made = std::make_unique<CEarthquakeSpectra>();
        made->SetNo(FieldInt(v[0]));
        spectrum = S().AddEarthquakeSpectra(std::move(made));
    }
    if (!NameOf(text).empty()) spectrum->SetName(NameOf(text));
    spectrum->SetValueKind(FieldInt(v[1]));
    spectrum->SetType(FieldInt(v[2]));
    spectrum->SetDamping(v[3]);
    spectrum->SetDampingRule(FieldInt(v[4]));
    spectrum->SetNormalization(v[5]);
    m_cmd.AddChange(kCidAllEqSpectras, nullptr, kWriteAction);
    return check;
}

// Values: spectrum, type (1 horizontal, 2 vertical table), point (1 to 20), frequency (Hz),
// value.
int CLoadCmd::EqspecptDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    if (!S().GetEarthquakeSpectraPtr(FieldInt(v[0]))) {
        m_cmd.Message(3366, showDialog, FieldInt(v[0]), v[0], nullptr);
        return -2;
    }
    if (FieldInt(v[1]) != 1 && FieldInt(v[1]) != 2) {
        m_cmd.Message(3367, showDialog, FieldInt(v[1]), v[1], nullptr);
        return -2;
    }
    if (FieldInt(v[2]) < 1) {
        m_cmd.Message(3368, showDialog, FieldInt(v[2]), v[2], nullptr);
        return -2;
    }
    if (FieldInt(v[2]) > CEarthquakeSpectra::kMaxPoints) {
        m_cmd.Message(3369, showDialog, FieldInt(v[2]), v[2], nullptr);
        return -2;
    }
    return 0;
}

int CLoadCmd::Eqspecpt(std::string& rest, int showDialog) {
    double v[6] = {1.0, 1.0, 1.0, -1.0, -1.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kEqspecpt, rest, v, 5, text, showDialog);
    if (check < -1) return check;
    CEarthquakeSpectra* spectrum = S().GetEarthquakeSpectraPtr(FieldInt(v[0]));
    if (!spectrum || !spectrum->SetPoint(FieldInt(v[1]), FieldInt(v[2]), v[3], v[4])) return -2;
    m_cmd.AddChange(kCidAllEqSpectras, nullptr, kWriteAction);
    return check;
}

// WINDSPEC: number, type (1, 2, 3, 4 or 101), aerodynamic damping (0 or 1), reference height (m,
// 0: the highest node). WINDLEN: number, length scales of u, v, w (m). WINDTURB: number,
// turbulence intensities of u, v, w. WINDCOH: number, horizontal and vertical coherence
// constants. WINDVRTX: number and three values for vortex shedding. A spectrum that the last four
// name is made with the default values when it is missing.
int CLoadCmd::WindDataCheck(int type, double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    if (FieldInt(v[0]) < 1) {
        m_cmd.Message(3112, showDialog, FieldInt(v[0]), v[0], nullptr);
        return -2;
    }
    const int spectrumType = FieldInt(v[1]);
    if (type == kWindspec && (spectrumType < 1 || spectrumType > 4) && spectrumType != 101) {
        m_cmd.Message(3004, showDialog, spectrumType, v[1], nullptr);
        return -2;
    }
    return 0;
}

int CLoadCmd::Windspec(std::string& rest, int showDialog) {
    return Wind(kWindspec, rest, showDialog);
}

int CLoadCmd::Windlen(std::string& rest, int showDialog) {
    return Wind(kWindlen, rest, showDialog);
}

int CLoadCmd::Windturb(std::string& rest, int showDialog) {
    return Wind(kWindturb, rest, showDialog);
}

int CLoadCmd::Windcoh(std::string& rest, int showDialog) {
    return Wind(kWindcoh, rest, showDialog);
}

int CLoadCmd::Windvrtx(std::string& rest, int showDialog) {
    return Wind(kWindvrtx, rest, showDialog);
}

int CLoadCmd::Wind(int type, std::string& rest, int showDialog) {
    double v[5] = {1.0, 0.0, 0.0, 0.0, 0.0};
    if (type == kWindspec) {
        v[1] = 1.0;
        v[2] = 1.0;
    }
    if (type == kWindcoh) {
        v[1] = 9.0;
        v[2] = 6.0;
    }
    std::string text;
    const int check = ReadAndCheck(type, rest, v, 4, text, showDialog);
    if (check < -1) return check;
    CWindSpectra* spectrum = S().GetWindSpectraPtr(FieldInt(v[0]));
    if (!spectrum) {
        auto made = std::make_unique<CWindSpectra>();
        made->SetDefaultSpectra();
        made->SetNo(FieldInt(v[0]));
        spectrum = S().AddWindSpectra(std::move(made));
    }
    if (!NameOf(text).empty()) spectrum->SetName(NameOf(text));
    switch (type) {
    case kWindspec:
        spectrum->SetType(FieldInt(v[1]));
        spectrum->SetAeroInclude(FieldInt(v[2]));
        spectrum->SetRefHeight(v[3]);
        break;
    case kWindlen:
        for (int i = 0; i < 3; ++i) spectrum->SetLengthScales(i, v[1 + i]);
        break;
    case kWindturb:
        for (int i = 0; i < 3; ++i) spectrum->SetTurbIntensity(i, v[1 + i]);
        break;
    case kWindcoh:
        spectrum->SetHorCoherence(v[1]);
        spectrum->SetVerCoherence(v[2]);
        break;
    default:
        for (int i = 0; i < 3; ++i) spectrum->SetVortexValues(i, v[1 + i]);
        break;
    }
    m_cmd.AddChange(kCidAllWindSpectras, nullptr, kWriteAction);
    return check;
}

// ------------------------------------------------------------------------- buckling

// Values: the element range, the five buckling values, a spare.
int CLoadCmd::BucklingDataCheck(double* v, int showDialog) {
    int result = RangeCheck(0, v, showDialog);
    if (!CheckErrors()) return 0;
    if (result < -1) return result;
    if (CheckWarnings())
        ForRange(v, [&](int no, int) {
            if (!S().GetElementPtr(no)) {
                m_cmd.Message(2027, showDialog, no, 0.0, nullptr);
                result = -1;
            }
        });
    return result;
}

int CLoadCmd::Buckling(std::string& rest, int) {
    double v[10] = {1.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    // Buckling data are always checked with the dialog on.
    const int check = ReadAndCheck(kBuckling, rest, v, 9, text, 1);
    if (check < -1) return check;
    ForRange(v, [&](int no, int) {
        if (CElement* e = S().GetElementPtr(no))
            for (int i = 0; i < 5; ++i) e->SetBucklingData(i, v[3 + i]);
    });
    if (!Trim(text).empty()) S().SetBucklingString(Trim(text));
    m_cmd.AddChange(kCidAllPosElements, nullptr, kWriteAction);
    return check;
}

// Values: kind (2 OC, 4 SC, 5 SCL), the range of combinations, the digits a, b and c of the
// code c b a, and the model of the buckling lengths.
int CLoadCmd::BuckldesDataCheck(double* v, int showDialog) {
    int result = RangeCheck(1, v, showDialog);
    if (!CheckErrors()) return 0;
    if (result < -1) return result;
    const int kind = FieldInt(v[0]);
    const bool digits = FieldInt(v[4]) >= 0 && FieldInt(v[4]) <= 9 && FieldInt(v[5]) >= 0 &&
                        FieldInt(v[5]) <= 9 && FieldInt(v[6]) >= 0 && FieldInt(v[6]) <= 9;
    if ((kind != 2 && kind != 4 && kind != 5) || !digits) {
        m_cmd.Message(3004, showDialog, kind, v[0], nullptr);
        return -2;
    }
    if (CheckWarnings())
        ForRange(&v[1], [&](int no, int) {
            int missing = 0;
            if (kind == 2 && !S().GetLoadcombPtr(no)) missing = 2028;
            if (kind == 4 && !S().GetSortCombPtr(no)) missing = 2030;
            if (kind == 5 && !S().GetSortCombLinePtr(no)) missing = 2032;
            if (missing) {
                m_cmd.Message(missing, showDialog, no, 0.0, nullptr);
                result = -1;
            }
        });
    return result;
}

int CLoadCmd::Buckldes(std::string& rest, int showDialog) {
    double v[9] = {0.0, 1.0, 1.0, 1.0, 1.0, 1.0, 1.0, -1.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kBuckldes, rest, v, 8, text, showDialog);
    if (check < -1) return check;
    const int kind = FieldInt(v[0]);
    const int code = Digit(v[6]) * 100 + Digit(v[5]) * 10 + Digit(v[4]);
    const int model = FieldInt(v[7]);
    ForRange(&v[1], [&](int no, int) {
        if (kind == 2)
            if (CLoadcomb* c = S().GetLoadcombPtr(no)) {
                c->SetBucklDes(code);
                c->SetBucklModel(model);
            }
        if (kind == 4)
            if (CSortComb* c = S().GetSortCombPtr(no)) {
                c->SetBucklDes(code);
                c->SetBucklModel(model);
            }
        if (kind == 5)
            if (CSortCombLine* c = S().GetSortCombLinePtr(no)) {
                c->SetBucklDes(code);
                c->SetBucklModel(model);
            }
    });
    if (kind == 2) m_cmd.AddChange(kCidAllOrdLoadcomb, nullptr, kWriteAction);
    if (kind == 4) m_cmd.AddChange(kCidAllSortComb, nullptr, kWriteAction);
    if (kind == 5) m_cmd.AddChange(kCidAllSortCombLine, nullptr, kWriteAction);
    return check;
}

// ------------------------------------------------------------------------- OUTPUT

// Values: kind (1 input data listing, 2 frame results, 3 design results), append (0 a new file,
// 1 APPEND), then the values of the kind: for 1 the listing code and the range from, to, step;
// for 2 item, load, leading, sort, sort component, the ranges of items and loads and the element
// whose local axes the displacements are turned into; for 3 item, combination kind and
// presentation. The text is the extension of the file, which takes the document's name.
int CLoadCmd::OutputDataCheck(double* v, int showDialog) {
    if (!CheckErrors()) return 0;
    const int kind = FieldInt(v[0]);
    if (kind < 1 || kind > 3 || (FieldInt(v[1]) != 0 && FieldInt(v[1]) != 1)) {
        m_cmd.Message(3004, showDialog, kind, v[0], nullptr);
        return -2;
    }
    return 0;
}

int CLoadCmd::Output(std::string& rest, int showDialog) {
    // The sixth value is a step of 1 for kind 1 but the sort of kind 2, which keeps number order
    // when it is not given: the default is told apart from any value a user can give.
    constexpr double kNotGiven = -1.0e300;
    double v[13] = {1.0, 0.0, 0.0, -1.0, 0.0, kNotGiven, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadAndCheck(kOutput, rest, v, 12, text, showDialog);
    if (check < -1) return check;
    std::string extension = Trim(text);
    if (extension.empty()) extension = "lis";
    if (extension[0] == '.') extension.erase(0, 1);
    const std::string path =
        S().HasDocument() ? StemOf(S().GetDocumentPath()) + "." + extension : std::string();
    CTextWriter file;
    if (path.empty() || !file.Open(path, FieldInt(v[1]) == 1)) {
        // The words of this message are those of the file message 2300.
        const std::string name = path.empty() ? "." + extension : path;
        m_cmd.Message(3700, showDialog, 0, 0.0, &name);
        return -2;
    }
    const int kind = FieldInt(v[0]);
    std::string listing;
    if (kind == 1) {
        CListServer server(&S());
        server.SetType(1);
        server.SetInterval(FieldInt(v[3]), FieldInt(v[4]), v[5] == kNotGiven ? 1 : FieldInt(v[5]));
        server.MakeListing(FieldInt(v[2]), listing);
    } else if (kind == 2) {
        // Item, family, leading, sort and sort component, then the numbers of the items and of
        // the cases, each a first and a last; a first of 0 takes them all.
        CFrameResOrder order;
        order.Item = FieldInt(v[2]);
        order.Load = FieldInt(v[3]) < 0 ? 0 : FieldInt(v[3]);
        order.Leading = FieldInt(v[4]);
        order.Sort = v[5] == kNotGiven ? 0 : FieldInt(v[5]);
        order.SortComp = FieldInt(v[6]);
        order.AddItemInterval(FieldInt(v[7]) == 0 ? -1 : FieldInt(v[7]), FieldInt(v[8]));
        order.AddLoadInterval(FieldInt(v[9]) == 0 ? -1 : FieldInt(v[9]), FieldInt(v[10]));
        order.LocalElemAxis = FieldInt(v[11]);
        std::vector<std::string> pieces;
        if (order.MakeListingFromResOrder(&S(), pieces))
            for (const std::string& piece : pieces) listing += piece;
    }
    if (listing.empty()) {
        m_cmd.ReaderMessage(
            2,
            Format("Listings of OUTPUT %i are not available yet: nothing written to %s!", kind,
                   path.c_str()),
            Format("Utskrifter fra OUTPUT %i er ikke tilgjengelige ennå: ingenting skrevet til %s!",
                   kind, path.c_str()));
        return -1;
    }
    file.Write(listing);
    return check;
}

} // namespace kelo
