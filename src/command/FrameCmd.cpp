#include "command/FrameCmd.h"

#include "command/StructureCmd.h"
#include "model/Structure.h"
#include "platform/Text.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <iterator>
#include <memory>
#include <type_traits>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace kelo {

namespace {

// Command numbers of the keyword table.
constexpr int kElem = 1, kNode = 2, kBoundins = 3, kJoint = 28, kSectins = 31, kElspins = 32,
              kMass = 33, kDesgins = 34, kWindfact = 35, kAxial = 42, kModel = 43, kModmodif = 44,
              kRflnode = 49, kAxisnode = 50, kAxis2nod = 51, kNodecoord = 52, kDelete = 71,
              kSele = 104, kSeledel = 105, kProject = 117, kMember = 132, kEsel = 151,
              kTorsionad = 176;

// Change codes of the project store.
constexpr int kCidKeySection = 306, kCidNode = 401, kCidAllNodes = 402, kCidElement = 403,
              kCidAllPosElements = 405, kCidAllDesignSect = 407, kCidAllModels = 702,
              kCidFrameDoc = 901, kCidDesignDoc = 902;
constexpr int kWrite = 5, kDeleted = 99;

// Names of objects are cut to this many characters, the project's name to its own length.
constexpr std::size_t kNameLength = 30;
constexpr std::size_t kProjectNameLength = 64;

// The largest joint code: all six freedoms of an end released.
constexpr double kMaxJointCode = 111111.0;

// The k-th number of a run that starts at `first` and grows by `increment`.
int NthNo(double first, double increment, int k) {
    return FieldInt(std::trunc(first) + k * std::trunc(increment));
}

std::string NameOf(const std::string& text) { return CutName(Trim(text), kNameLength); }

// Walks the range first, last, step at `range` as its check left it and calls f(number, k) with k
// counting from 0. A callable that answers bool ends the walk by answering false.
template <class F> void ForRange(const double* range, F&& f) {
    const long long step = FieldInt(range[2]);
    if (step == 0) return;
    int k = 0;
    for (long long i = FieldInt(range[0]);
         i >= INT_MIN && i <= INT_MAX && CStructureCmd::LessOrEqual(static_cast<int>(i), range);
         i += step, ++k) {
        if constexpr (std::is_same_v<std::invoke_result_t<F&, int, int>, bool>) {
            if (!f(static_cast<int>(i), k)) return;
        } else {
            f(static_cast<int>(i), k);
        }
    }
}

// Whether a number belongs to the range first, last, step at `range`, as a walk of it would meet
// it.
bool InRange(int no, const double* range) {
    const long long first = FieldInt(range[0]), last = FieldInt(range[1]),
                    step = FieldInt(range[2]);
    if (step > 0) return no >= first && no <= last && (no - first) % step == 0;
    if (step < 0) return no <= first && no >= last && (first - no) % (-step) == 0;
    return false;
}

// The numbers of all elements of the project that are not temporary ones of an analysis.
std::vector<int> PositiveElements(const CStructure& s) {
    std::vector<int> numbers;
    numbers.reserve(s.GetElementList()->GetCount());
    for (const CElement* e : *s.GetElementList())
        if (e->GetNo() > 0) numbers.push_back(e->GetNo());
    return numbers;
}

bool IsValidSectionType(int type) {
    return type == 1 || type == 4 || type == 5 || type == 20 || type == 21 ||
           (type >= 100 && type <= 599) || (type >= 1000 && type <= 2999);
}

// The kinds of model modification: node fixities (1, 2), element joints (10), sections (11),
// masses (20, 21), axial forces (30 to 33) and 40 to 45.
bool IsValidModifyType(int type) {
    static constexpr int kTypes[] = {1, 2, 10, 11, 20, 21, 30, 31, 32, 33, 40, 41, 42, 43, 44, 45};
    return std::find(std::begin(kTypes), std::end(kTypes), type) != std::end(kTypes);
}

double Distance(const CNode& a, const CNode& b) {
    return std::sqrt((b.GetX() - a.GetX()) * (b.GetX() - a.GetX()) +
                     (b.GetY() - a.GetY()) * (b.GetY() - a.GetY()) +
                     (b.GetZ() - a.GetZ()) * (b.GetZ() - a.GetZ()));
}

// Spacing of the stations of the nodes of a range from s1 to s2: the last node of the range lands
// on s2. The count of intervals is whole, as the node numbers are.
double StationSpacing(const double* range, double s1, double s2) {
    const long long step = FieldInt(range[2]);
    if (step == 0) return 0.0;
    const long long intervals =
        (static_cast<long long>(FieldInt(range[1])) - FieldInt(range[0])) / step;
    return intervals != 0 ? (s2 - s1) / static_cast<double>(intervals) : 0.0;
}

} // namespace

CFrameCmd::CFrameCmd(CStructureCmd& cmd) : m_cmd(cmd) {
    auto reg = [this](int type, int (CFrameCmd::*handler)(std::string&, int),
                      int (CFrameCmd::*check)(double*, int)) {
        m_cmd.RegisterHandler(
            type, [this, handler](std::string& r, int d) { return (this->*handler)(r, d); },
            [this, check](double* v, int d) { return (this->*check)(v, d); });
    };
    reg(kNode, &CFrameCmd::Node, &CFrameCmd::NodeDataCheck);
    reg(kElem, &CFrameCmd::Elem, &CFrameCmd::ElemDataCheck);
    reg(kBoundins, &CFrameCmd::Boundcond, &CFrameCmd::BoundcondDataCheck);
    reg(kJoint, &CFrameCmd::Joint, &CFrameCmd::JointDataCheck);
    reg(kSectins, &CFrameCmd::Geomsect, &CFrameCmd::GeomsectDataCheck);
    reg(kElspins, &CFrameCmd::Elemspec, &CFrameCmd::ElemspecDataCheck);
    reg(kDesgins, &CFrameCmd::Dessect, &CFrameCmd::DessectDataCheck);
    reg(kMass, &CFrameCmd::Mass, &CFrameCmd::MassDataCheck);
    reg(kWindfact, &CFrameCmd::Windfact, &CFrameCmd::WindfactDataCheck);
    reg(kTorsionad, &CFrameCmd::TorsionAD, &CFrameCmd::TorsionADDataCheck);
    reg(kAxial, &CFrameCmd::Axial, &CFrameCmd::AxialDataCheck);
    reg(kRflnode, &CFrameCmd::Rflnode, &CFrameCmd::RflnodeDataCheck);
    reg(kAxisnode, &CFrameCmd::Axisnode, &CFrameCmd::AxisnodeDataCheck);
    reg(kAxis2nod, &CFrameCmd::Axis2nod, &CFrameCmd::Axis2nodDataCheck);
    reg(kNodecoord, &CFrameCmd::Nodecoord, &CFrameCmd::NodecoordDataCheck);
    reg(kDelete, &CFrameCmd::Delete, &CFrameCmd::DeleteDataCheck);
    reg(kModel, &CFrameCmd::Model, &CFrameCmd::ModelDataCheck);
    reg(kModmodif, &CFrameCmd::Modmodif, &CFrameCmd::ModmodifDataCheck);
    reg(kMember, &CFrameCmd::Member, &CFrameCmd::MemberDataCheck);
    reg(kSele, &CFrameCmd::Sele, &CFrameCmd::SeleDataCheck);
    reg(kSeledel, &CFrameCmd::Seledel, &CFrameCmd::SeleDataCheck);
    reg(kEsel, &CFrameCmd::Esel, &CFrameCmd::EselDataCheck);
    reg(kProject, &CFrameCmd::Project, &CFrameCmd::ProjectDataCheck);
}

// ------------------------------------------------------------------------- shared steps

CStructure& CFrameCmd::Structure() const { return *m_cmd.GetStructure(); }

int CFrameCmd::ReadValues(int type, std::string& rest, double* values, int count, std::string& text,
                          int showDialog) {
    text.clear();
    if (m_cmd.CommandValues(rest, values, count, text, showDialog) < 0) return -2;
    return m_cmd.DataCheck(type, values, showDialog);
}

bool CFrameCmd::BeginCheck(int base, double* values, int showDialog, int& result) {
    result = 0;
    if (base >= 0) {
        // Numbers are whole: a range is read as whole numbers before it is checked, so that a
        // fractional step counts by its whole part and one without a whole part is refused.
        for (int i = 0; i < 3; ++i) values[base + i] = FieldInt(values[base + i]);
        result = m_cmd.StepCheck(base, values, showDialog);
        if (result < -1) return false;
        const double count = (values[base + 1] - values[base]) / values[base + 2] + 1.0;
        if (count > kMaxRangeCount) {
            m_cmd.Message(3004, showDialog, 0, count, nullptr);
            result = -2;
            return false;
        }
    }
    if (m_cmd.GetCheckLevel() < 1) {
        result = 0;
        return false;
    }
    return true;
}

bool CFrameCmd::WarningsChecked() const { return m_cmd.GetCheckLevel() >= 2; }

int CFrameCmd::MissingElements(const double* range, int showDialog) {
    int result = 0;
    ForRange(range, [&](int no, int) {
        if (Structure().GetElementPtr(no)) return;
        m_cmd.Message(2027, showDialog, no, 0.0, nullptr);
        result = -1;
    });
    return result;
}

CRefLine* CFrameCmd::Line0() {
    CStructure& s = Structure();
    if (CRefLine* line = s.GetRefLinePtr(0)) return line;
    const std::string name = m_cmd.GetLanguage() == 2 ? "Cross sections" : "Tverrsnitt";
    return s.AddRefLine(std::make_unique<CRefLine>(0, name), 0);
}

void CFrameCmd::SetElementSection(CElement& element, int sectionNo) const {
    CStructure& s = Structure();
    element.SetSectionNo(sectionNo);
    const CRefLine* line0 = s.GetRefLinePtr(0);
    CKeySection* section = line0 ? line0->GetKeySectionPtr(sectionNo) : nullptr;
    element.SetSectionPtr(section);
    if (section) {
        switch (section->GetType()) {
        case 20:
            element.SetType(2);
            break;
        case 21:
            element.SetType(3);
            break;
        case 22:
            element.SetType(4);
            break;
        default:
            break;
        }
    }
}

// ------------------------------------------------------------------------- NODE

int CFrameCmd::NodeDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(0, values, showDialog, result)) return result;
    const int first = FieldInt(values[0]), last = FieldInt(values[1]);
    if (std::min(first, last) < 1) {
        m_cmd.Message(3102, showDialog, std::min(first, last), 0.0, nullptr);
        return -2;
    }
    if (!WarningsChecked()) return result;
    if (first != last && values[6] == 0.0 && values[7] == 0.0 && values[8] == 0.0) {
        m_cmd.Message(2100, showDialog, first, 0.0, nullptr);
        result = -1;
    }
    ForRange(values, [&](int no, int) {
        if (!Structure().GetNodePtr(no)) return;
        m_cmd.Message(2012, showDialog, no, 0.0, nullptr);
        result = -1;
    });
    return result;
}

int CFrameCmd::Node(std::string& rest, int showDialog) {
    // Last and step 0: a number alone makes one node, and a range of several nodes needs its
    // step, so that an empty step field is refused rather than taken for 1.
    double v[10] = {1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kNode, rest, v, 9, text, showDialog);
    if (check < -1) return check;
    CStructure& s = Structure();
    bool replaced = false;
    ForRange(v, [&](int no, int k) {
        replaced = replaced || s.GetNodePtr(no) != nullptr;
        s.AddNode(std::make_unique<CNode>(no, v[3] + k * v[6], v[4] + k * v[7], v[5] + k * v[8]));
    });
    // Elements that pointed at a replaced node take the new one.
    if (replaced) s.UpdatePointers();
    m_cmd.AddChange(kCidAllNodes, nullptr, kWrite);
    return check;
}

// ------------------------------------------------------------------------- nodes on lines

void CFrameCmd::NodesAlongLine(const double* range, CRefLine& line, double s1, double s2) {
    CStructure& s = Structure();
    const double spacing = StationSpacing(range, s1, s2);
    const SectionEnv env = SectionEnv::OfProject(&s, line.GetNo());
    bool replaced = false;
    ForRange(range, [&](int no, int k) {
        const double station = s1 + k * spacing;
        double point[3] = {0.0, 0.0, 0.0};
        double offset[3] = {0.0, 0.0, 0.0};
        line.CalcCoordByStation(station, point);
        // The node goes to the centre of gravity of the section there; the end of the file
        // places it again once all sections are known.
        line.CalcRefLineToCoGByStation(station, offset, line.SectionCoGOf(&env));
        auto node = std::make_unique<CNode>(no, point[0] + offset[0], point[1] + offset[1],
                                            point[2] + offset[2]);
        node->SetStationNo(station);
        node->SetRefLineConnect(1);
        node->SetRefLineNo(line.GetNo());
        for (int i = 0; i < 3; ++i) node->SetRefLineOffset(i, offset[i]);
        replaced = replaced || s.GetNodePtr(no) != nullptr;
        s.AddNode(std::move(node));
    });
    if (replaced) s.UpdatePointers();
}

int CFrameCmd::StationsOnLine(const double* range, CRefLine& line, double s1, double s2,
                              int showDialog) {
    const double spacing = StationSpacing(range, s1, s2);
    int result = 0;
    ForRange(range, [&](int, int k) {
        const double station = s1 + k * spacing;
        double point[3] = {0.0, 0.0, 0.0};
        if (line.CalcCoordByStation(station, point)) return true;
        m_cmd.Message(2104, showDialog, line.GetNo(), station, nullptr);
        result = -1;
        return false;
    });
    return result;
}

int CFrameCmd::RflnodeDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(0, values, showDialog, result)) return result;
    CRefLine* line = Structure().GetRefLinePtr(FieldInt(values[3]));
    if (!line) {
        m_cmd.Message(3010, showDialog, FieldInt(values[3]), 0.0, nullptr);
        return -2;
    }
    if (WarningsChecked())
        result = std::min(result, StationsOnLine(values, *line, values[4], values[5], showDialog));
    return result;
}

int CFrameCmd::Rflnode(std::string& rest, int showDialog) {
    double v[7] = {1.0, 1.0, 1.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kRflnode, rest, v, 6, text, showDialog);
    if (check < -1) return check;
    CRefLine* line = Structure().GetRefLinePtr(FieldInt(v[3]));
    if (!line) return check;
    NodesAlongLine(v, *line, v[4], v[5]);
    m_cmd.AddChange(kCidAllNodes, nullptr, kWrite);
    return check;
}

int CFrameCmd::AxisStations(const double* values, const CRefLine& line, int axis1, int axis2,
                            double offset1, double offset2, double& s1, double& s2,
                            int& missing) const {
    const CAxis* a1 = line.GetAxisPtr(axis1);
    if (!a1) {
        missing = axis1;
        return 0;
    }
    s1 = a1->GetStationNo() + offset1;
    s2 = s1;
    const CAxis* a2 = line.GetAxisPtr(axis2);
    if (a2) {
        s2 = a2->GetStationNo() + offset2;
        return 1;
    }
    if (FieldInt(values[0]) == FieldInt(values[1])) return 1;
    missing = axis2;
    return 0;
}

int CFrameCmd::AxisNodeCheck(double* values, bool sharedOffset, int showDialog) {
    int result = 0;
    if (!BeginCheck(0, values, showDialog, result)) return result;
    CRefLine* line = Structure().GetRefLinePtr(FieldInt(values[3]));
    if (!line) {
        m_cmd.Message(3010, showDialog, FieldInt(values[3]), 0.0, nullptr);
        return -2;
    }
    const double offset1 = values[6];
    const double offset2 = sharedOffset ? values[6] : values[7];
    double s1 = 0.0, s2 = 0.0;
    int missing = 0;
    if (!AxisStations(values, *line, FieldInt(values[4]), FieldInt(values[5]), offset1, offset2, s1,
                      s2, missing)) {
        m_cmd.Message(3031, showDialog, missing, 0.0, nullptr);
        return -2;
    }
    if (WarningsChecked())
        result = std::min(result, StationsOnLine(values, *line, s1, s2, showDialog));
    return result;
}

int CFrameCmd::AxisnodeDataCheck(double* values, int showDialog) {
    return AxisNodeCheck(values, false, showDialog);
}

int CFrameCmd::NodesBetweenAxes(double* v, double offset1, double offset2, int check) {
    CRefLine* line = Structure().GetRefLinePtr(FieldInt(v[3]));
    if (!line) return check;
    double s1 = 0.0, s2 = 0.0;
    int missing = 0;
    // A missing axis ends the command.
    if (!AxisStations(v, *line, FieldInt(v[4]), FieldInt(v[5]), offset1, offset2, s1, s2, missing))
        return check;
    NodesAlongLine(v, *line, s1, s2);
    m_cmd.AddChange(kCidAllNodes, nullptr, kWrite);
    return check;
}

int CFrameCmd::Axisnode(std::string& rest, int showDialog) {
    double v[9] = {1.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kAxisnode, rest, v, 8, text, showDialog);
    if (check < -1) return check;
    return NodesBetweenAxes(v, v[6], v[7], check);
}

int CFrameCmd::Axis2nodDataCheck(double* values, int showDialog) {
    return AxisNodeCheck(values, true, showDialog);
}

int CFrameCmd::Axis2nod(std::string& rest, int showDialog) {
    double v[8] = {1.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kAxis2nod, rest, v, 7, text, showDialog);
    if (check < -1) return check;
    return NodesBetweenAxes(v, v[6], v[6], check);
}

int CFrameCmd::NodecoordDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(0, values, showDialog, result)) return result;
    CRefLine* line = Structure().GetRefLinePtr(FieldInt(values[3]));
    if (!line) {
        m_cmd.Message(3010, showDialog, FieldInt(values[3]), 0.0, nullptr);
        return -2;
    }
    bool missing = false;
    ForRange(values, [&](int, int k) {
        missing = line->GetCoordPtr(NthNo(values[4], values[5], k)) == nullptr;
        return !missing;
    });
    if (missing) {
        m_cmd.Message(3005, showDialog, 0, 0.0, nullptr);
        return -2;
    }
    return result;
}

int CFrameCmd::Nodecoord(std::string& rest, int showDialog) {
    double v[7] = {1.0, 1.0, 1.0, 0.0, 0.0, 1.0};
    std::string text;
    const int check = ReadValues(kNodecoord, rest, v, 6, text, showDialog);
    if (check < -1) return check;
    CStructure& s = Structure();
    CRefLine* line = s.GetRefLinePtr(FieldInt(v[3]));
    if (!line) return check;
    line->FillCoordListStations();
    bool replaced = false;
    ForRange(v, [&](int no, int k) {
        const CCoord* point = line->GetCoordPtr(NthNo(v[4], v[5], k));
        if (!point) return;
        auto node = std::make_unique<CNode>(no, point->GetX(), point->GetY(), point->GetZ());
        node->SetStationNo(point->GetStationNo());
        node->SetRefLineConnect(1);
        node->SetRefLineNo(line->GetNo());
        replaced = replaced || s.GetNodePtr(no) != nullptr;
        s.AddNode(std::move(node));
    });
    if (replaced) s.UpdatePointers();
    m_cmd.AddChange(kCidAllNodes, nullptr, kWrite);
    return check;
}

// ------------------------------------------------------------------------- BOUNDINS

int CFrameCmd::BoundcondDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(0, values, showDialog, result)) return result;
    CStructure& s = Structure();
    const bool slaves = values[3] >= 2.0;
    if (!slaves) {
        for (int d = 3; d < 9; ++d) {
            if (values[d] != 0.0 && values[d] != 1.0) {
                m_cmd.Message(3004, showDialog, d - 2, values[d], nullptr);
                return -2;
            }
        }
    } else {
        int slaveMaster = 0;
        ForRange(values, [&](int, int k) {
            const int master = NthNo(values[3], values[4], k);
            const CNode* m = s.GetNodePtr(master);
            if (!m) return true;
            for (int d = 0; d < 6; ++d)
                if (m->GetFix(d) < 0) slaveMaster = master;
            return slaveMaster == 0;
        });
        if (slaveMaster != 0) {
            m_cmd.Message(3056, showDialog, slaveMaster, 0.0, nullptr);
            return -2;
        }
    }
    if (!WarningsChecked()) return result;
    ForRange(values, [&](int no, int k) {
        if (!s.GetNodePtr(no)) {
            m_cmd.Message(2211, showDialog, no, 0.0, nullptr);
            result = -1;
        }
        const int master = NthNo(values[3], values[4], k);
        if (slaves && !s.GetNodePtr(master)) {
            m_cmd.Message(2212, showDialog, master, 0.0, nullptr);
            result = -1;
        }
    });
    return result;
}

int CFrameCmd::Boundcond(std::string& rest, int showDialog) {
    double v[10] = {1.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kBoundins, rest, v, 9, text, showDialog);
    if (check < -1) return check;
    CStructure& s = Structure();
    // A first value of 2 or more is no fixity but the master node: then all six freedoms of the
    // node follow the same freedoms of the master.
    const bool slaves = v[3] >= 2.0;
    ForRange(v, [&](int no, int k) {
        CNode* node = s.GetNodePtr(no);
        if (!node) return;
        const int master = NthNo(v[3], v[4], k);
        for (int d = 0; d < 6; ++d) node->SetFix(d, slaves ? -master : (v[3 + d] != 0.0 ? 1 : 0));
    });
    m_cmd.AddChange(kCidAllNodes, nullptr, kWrite);
    return check;
}

// ------------------------------------------------------------------------- ELEM

int CFrameCmd::ElemDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(0, values, showDialog, result)) return result;
    CStructure& s = Structure();
    const int first = FieldInt(values[0]), last = FieldInt(values[1]);
    if (std::min(first, last) < 1) {
        m_cmd.Message(3107, showDialog, std::min(first, last), 0.0, nullptr);
        return -2;
    }
    if (FieldInt(values[3]) == FieldInt(values[4])) {
        m_cmd.Message(3014, showDialog, FieldInt(values[3]), 0.0, nullptr);
        return -2;
    }
    int missing = 0;
    ForRange(values, [&](int, int k) {
        for (const int node : {NthNo(values[3], values[5], k), NthNo(values[4], values[5], k)})
            if (missing == 0 && !s.GetNodePtr(node)) missing = node;
        return missing == 0;
    });
    if (missing != 0) {
        m_cmd.Message(3020, showDialog, missing, 0.0, nullptr);
        return -2;
    }
    if (!WarningsChecked()) return result;
    if (first != last && FieldInt(values[5]) == 0) {
        m_cmd.Message(2101, showDialog, first, 0.0, nullptr);
        result = -1;
    }
    // An element that runs against the direction of the line its nodes stand on.
    bool against = false;
    ForRange(values, [&](int, int k) {
        const CNode* n1 = s.GetNodePtr(NthNo(values[3], values[5], k));
        const CNode* n2 = s.GetNodePtr(NthNo(values[4], values[5], k));
        against = n1 && n2 && n1->GetRefLineNo() != 0 && n1->GetRefLineNo() == n2->GetRefLineNo() &&
                  n2->GetStationNo() < n1->GetStationNo();
        return !against;
    });
    if (against) {
        m_cmd.Message(2105, showDialog, 0, 0.0, nullptr);
        result = -1;
    }
    return result;
}

int CFrameCmd::Elem(std::string& rest, int showDialog) {
    double v[7] = {1.0, 1.0, 1.0, 1.0, 2.0, 1.0};
    std::string text;
    const int check = ReadValues(kElem, rest, v, 6, text, showDialog);
    if (check < -1) return check;
    CStructure& s = Structure();
    bool replaced = false;
    ForRange(v, [&](int no, int k) {
        const int node1 = NthNo(v[3], v[5], k), node2 = NthNo(v[4], v[5], k);
        auto e = std::make_unique<CElement>(no, node1, node2, 0, 0);
        e->SetAlpha(0.0);
        CNode* p1 = s.GetNodePtr(node1);
        CNode* p2 = s.GetNodePtr(node2);
        e->SetNodeNo1Ptr(p1);
        e->SetNodeNo2Ptr(p2);
        if (p1 && p2) e->SetLength(Distance(*p1, *p2));
        // An element that starts on a column takes its local axes from the column's line.
        if (p1 && p1->GetRefLineNo() != 0) {
            const CRefLine* line = s.GetRefLinePtr(p1->GetRefLineNo());
            if (line && line->GetColumn() == 1) e->SetLocAxisCode(5);
        }
        replaced = replaced || s.GetElementPtr(no) != nullptr;
        s.AddElement(std::move(e));
    });
    // Loads, masses and members that held a replaced element take the new one.
    if (replaced) s.UpdatePointers();
    m_cmd.AddChange(kCidAllPosElements, nullptr, kWrite);
    return check;
}

// ------------------------------------------------------------------------- JOINT

int CFrameCmd::JointDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(0, values, showDialog, result)) return result;
    if (values[3] < 0.0 || values[3] > kMaxJointCode) {
        m_cmd.Message(3302, showDialog, FieldInt(values[3]), values[3], nullptr);
        return -2;
    }
    if (values[4] < 0.0 || values[4] > kMaxJointCode) {
        m_cmd.Message(3303, showDialog, FieldInt(values[4]), values[4], nullptr);
        return -2;
    }
    if (WarningsChecked()) result = std::min(result, MissingElements(values, showDialog));
    return result;
}

int CFrameCmd::Joint(std::string& rest, int showDialog) {
    double v[6] = {1.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kJoint, rest, v, 5, text, showDialog);
    if (check < -1) return check;
    ForRange(v, [&](int no, int) {
        CElement* e = Structure().GetElementPtr(no);
        if (!e) return;
        e->SetJoint1(v[3]);
        e->SetJoint2(v[4]);
    });
    m_cmd.AddChange(kCidAllPosElements, nullptr, kWrite);
    return check;
}

// ------------------------------------------------------------------------- SECTINS

int CFrameCmd::GeomsectDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(-1, values, showDialog, result)) return result;
    if (FieldInt(values[0]) < 1) {
        m_cmd.Message(3103, showDialog, FieldInt(values[0]), 0.0, nullptr);
        return -2;
    }
    if (!IsValidSectionType(FieldInt(values[1]))) {
        m_cmd.Message(3304, showDialog, FieldInt(values[1]), 0.0, nullptr);
        return -2;
    }
    if (!(values[2] > 0.0)) {
        m_cmd.Message(3104, showDialog, 0, values[2], nullptr);
        return -2;
    }
    if (!(values[3] >= 0.0 && values[3] <= 0.5)) {
        m_cmd.Message(3105, showDialog, 0, values[3], nullptr);
        return -2;
    }
    return result;
}

int CFrameCmd::Geomsect(std::string& rest, int showDialog) {
    double v[9] = {1.0, 1.0, 30000.0, 0.3, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kSectins, rest, v, 8, text, showDialog);
    if (check < -1) return check;
    CStructure& s = Structure();
    const int no = FieldInt(v[0]);
    // A frame section stands on line 0 at the station of its number, with no material: its
    // stiffness is its own modulus times the properties of its dimensions.
    auto section = std::make_unique<CKeySection>(no, NameOf(text), no);
    section->SetType(FieldInt(v[1]));
    section->SetOriginalType(FieldInt(v[1]));
    section->SetMatType(0);
    section->SetYoungsModulus(v[2]);
    section->SetPoisson(v[3]);
    double dims[CKeySection::kSpecParams] = {v[4], v[5], v[6], v[7]};
    section->SetParam(dims);
    section->CalcSectionProp(0);
    Line0()->AddKeySection(std::move(section));
    // Elements of a section given anew point at the new one and take its kind.
    for (CElement* e : *s.GetElementList())
        if (e->GetSectionNo() == no) SetElementSection(*e, no);
    const double numbers[2] = {0.0, static_cast<double>(no)};
    m_cmd.AddChange(kCidKeySection, numbers, kWrite);
    return check;
}

// ------------------------------------------------------------------------- ELSPINS

int CFrameCmd::ElemspecDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(0, values, showDialog, result)) return result;
    CStructure& s = Structure();
    const int section = FieldInt(values[3]);
    const CRefLine* line0 = s.GetRefLinePtr(0);
    if (section > 0 && !(line0 && line0->GetKeySectionPtr(section))) {
        m_cmd.Message(3015, showDialog, 0, values[3], nullptr);
        return -2;
    }
    // Code 0 leaves the local axes as they are.
    const int code = FieldInt(values[4]);
    if (code < 0 || code > 5) {
        m_cmd.Message(3305, showDialog, code, 0.0, nullptr);
        return -2;
    }
    if (code == 1) {
        int missing = 0;
        ForRange(values, [&](int, int k) {
            const int node3 = NthNo(values[5], values[6], k);
            if (!s.GetNodePtr(node3)) missing = node3;
            return missing == 0;
        });
        if (missing != 0) {
            m_cmd.Message(3306, showDialog, missing, 0.0, nullptr);
            return -2;
        }
    }
    if (code == 3 && (FieldInt(values[5]) < 1 || FieldInt(values[5]) > 6)) {
        m_cmd.Message(3307, showDialog, FieldInt(values[5]), 0.0, nullptr);
        return -2;
    }
    if (WarningsChecked()) result = std::min(result, MissingElements(values, showDialog));
    return result;
}

int CFrameCmd::Elemspec(std::string& rest, int showDialog) {
    double v[9] = {1.0, 1.0, 1.0, 1.0, 0.0, 4.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kElspins, rest, v, 8, text, showDialog);
    if (check < -1) return check;
    CStructure& s = Structure();
    const int section = FieldInt(v[3]);
    const int code = FieldInt(v[4]);
    ForRange(v, [&](int no, int k) {
        CElement* e = s.GetElementPtr(no);
        if (!e) return;
        if (section > 0) SetElementSection(*e, section);
        if (code == 0) return;
        e->SetLocAxisCode(code);
        switch (code) {
        case 1:
            e->SetNodeNo3(NthNo(v[5], v[6], k));
            e->SetNodeNo3Ptr(s.GetNodePtr(e->GetNodeNo3()));
            break;
        case 2:
            e->SetAlpha(v[5] + k * v[6]);
            break;
        case 3:
            e->SetNDirCode(FieldInt(v[5]));
            break;
        default:
            break;
        }
    });
    m_cmd.AddChange(kCidAllPosElements, nullptr, kWrite);
    return check;
}

// ------------------------------------------------------------------------- DESGINS

int CFrameCmd::DessectDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(0, values, showDialog, result)) return result;
    for (int i = 3; i < 6; ++i) {
        if (!(values[i] >= 0.0 && values[i] <= 1.0)) {
            m_cmd.Message(3308, showDialog, 0, values[i], nullptr);
            return -2;
        }
    }
    if (WarningsChecked()) result = std::min(result, MissingElements(values, showDialog));
    return result;
}

int CFrameCmd::Dessect(std::string& rest, int showDialog) {
    double v[7] = {1.0, 1.0, 1.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kDesgins, rest, v, 6, text, showDialog);
    if (check < -1) return check;
    CStructure& s = Structure();
    ForRange(v, [&](int no, int) {
        CElement* e = s.GetElementPtr(no);
        if (!e) return;
        // The first position always counts; the other two fields are empty when 0. A spring has
        // no length and is designed at its first node.
        std::vector<double> positions{v[3]};
        for (int i = 4; i < 6; ++i)
            if (v[i] != 0.0) positions.push_back(v[i]);
        const CKeySection* section = s.GetKeySectionPtr(0, e->GetSectionNo());
        if (section && section->GetType() >= 20 && section->GetType() <= 22)
            positions.push_back(0.0);
        e->UpdateSectionList(positions);
    });
    m_cmd.AddChange(kCidAllDesignSect, nullptr, kWrite);
    return check;
}

// ------------------------------------------------------------------------- MASS

int CFrameCmd::MassDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(0, values, showDialog, result)) return result;
    const int type = FieldInt(values[3]);
    const int direction = FieldInt(values[4]);
    if (type != 1 && type != 3 && type != 4 && type != 5) {
        m_cmd.Message(3309, showDialog, type, 0.0, nullptr);
        return -2;
    }
    if (direction < 0 || direction > 3) {
        m_cmd.Message(3310, showDialog, direction, 0.0, nullptr);
        return -2;
    }
    for (int i = 5; i < 7; ++i) {
        if (values[i] < 0.0) {
            m_cmd.Message(3311, showDialog, 0, values[i], nullptr);
            return -2;
        }
    }
    // A rotational mass acts about one axis: it has no direction 0 (all three).
    if (type == 5 && direction == 0) {
        m_cmd.Message(3312, showDialog, direction, 0.0, nullptr);
        return -2;
    }
    if (WarningsChecked()) result = std::min(result, MissingElements(values, showDialog));
    return result;
}

int CFrameCmd::Mass(std::string& rest, int showDialog) {
    double v[8] = {1.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kMass, rest, v, 7, text, showDialog);
    if (check < -1) return check;
    const int type = FieldInt(v[3]);
    const int direction = FieldInt(v[4]);
    ForRange(v, [&](int no, int) {
        CElement* e = Structure().GetElementPtr(no);
        if (!e) return;
        // A mass of the same type and direction is given anew; others add up.
        for (CMass* held : e->GetMassList()) {
            if (held->GetType() == type && held->GetDirection() == direction) {
                held->SetMassValues(0, v[5]);
                held->SetMassValues(1, v[6]);
                return;
            }
        }
        CMass* mass =
            e->GetMassList().Add(std::make_unique<CMass>(no, type, direction, v[5], v[6]));
        mass->SetElemPtr(e);
    });
    m_cmd.AddChange(kCidAllPosElements, nullptr, kWrite);
    return check;
}

// ------------------------------------------------------------------------- WINDFACT, TORSIONAD

int CFrameCmd::WindfactDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(0, values, showDialog, result)) return result;
    if (WarningsChecked()) result = std::min(result, MissingElements(values, showDialog));
    return result;
}

int CFrameCmd::Windfact(std::string& rest, int showDialog) {
    double v[14] = {1.0, 1.0, 1.0};
    std::string text;
    const int check = ReadValues(kWindfact, rest, v, 13, text, showDialog);
    if (check < -1) return check;
    ForRange(v, [&](int no, int) {
        if (CElement* e = Structure().GetElementPtr(no)) e->AddWindArea(&v[3]);
    });
    m_cmd.AddChange(kCidAllPosElements, nullptr, kWrite);
    return check;
}

int CFrameCmd::TorsionADDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(0, values, showDialog, result)) return result;
    if (WarningsChecked()) result = std::min(result, MissingElements(values, showDialog));
    return result;
}

int CFrameCmd::TorsionAD(std::string& rest, int showDialog) {
    double v[5] = {1.0, 1.0, 1.0, 0.0};
    std::string text;
    const int check = ReadValues(kTorsionad, rest, v, 4, text, showDialog);
    if (check < -1) return check;
    ForRange(v, [&](int no, int) {
        if (CElement* e = Structure().GetElementPtr(no)) e->SetTorsionAD(v[3]);
    });
    m_cmd.AddChange(kCidAllPosElements, nullptr, kWrite);
    return check;
}

// ------------------------------------------------------------------------- AXIAL

int CFrameCmd::AxialDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(0, values, showDialog, result)) return result;
    const int type = FieldInt(values[3]);
    if (type != 1 && type != 2) {
        m_cmd.Message(3317, showDialog, type, 0.0, nullptr);
        return -2;
    }
    if (!WarningsChecked()) return result;
    result = std::min(result, MissingElements(values, showDialog));
    if (type == 2) {
        for (int i = 4; i < 10; i += 2) {
            const int loadcase = FieldInt(values[i]);
            if (loadcase > 0 && !Structure().GetLoadcasePtr(loadcase)) {
                m_cmd.Message(2029, showDialog, loadcase, 0.0, nullptr);
                result = -1;
            }
        }
    }
    return result;
}

int CFrameCmd::Axial(std::string& rest, int showDialog) {
    double v[11] = {1.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kAxial, rest, v, 10, text, showDialog);
    if (check < -1) return check;
    const int type = FieldInt(v[3]);
    ForRange(v, [&](int no, int) {
        CElement* e = Structure().GetElementPtr(no);
        if (!e) return;
        // The command gives the element's axial force whole.
        e->GetAxialList().RemoveAll();
        auto add = [&](int kind) {
            CAxial* a = e->GetAxialList().Add(std::make_unique<CAxial>());
            a->SetElementNo(no);
            a->SetType(kind);
            a->SetElemPtr(e);
            return a;
        };
        if (type == 1) {
            CAxial* a = add(1);
            a->SetAxialValue(v[4]);
            a->SetMLValue(v[5]);
            a->SetMNValue(v[6]);
        } else if (type == 2) {
            // Up to three load cases with their factors, taken from a pre-analysis.
            for (int i = 4; i < 10; i += 2) {
                if (FieldInt(v[i]) <= 0) continue;
                CAxial* a = add(2);
                a->SetLoadcaseNo(FieldInt(v[i]));
                a->SetLoadcaseFac(v[i + 1]);
            }
        }
    });
    m_cmd.AddChange(kCidAllPosElements, nullptr, kWrite);
    return check;
}

// ------------------------------------------------------------------------- DELETE

int CFrameCmd::DeleteDataCheck(double* values, int showDialog) {
    const bool all = FieldInt(values[1]) == -1;
    // "DELETE 1 5" means node 5 alone: a last number below the first one counts only with a step.
    if (!all && values[3] == 0.0 && values[2] < values[1]) values[2] = values[1];
    int result = 0;
    if (!BeginCheck(all ? -1 : 1, values, showDialog, result)) return result;
    const int item = FieldInt(values[0]);
    if (item != 1 && item != 2) {
        m_cmd.Message(3338, showDialog, FieldInt(values[1]), values[0], nullptr);
        return -2;
    }
    if (item != 1) return result;
    // The first element that uses each node, found in one pass over the elements.
    std::unordered_map<int, int> users;
    for (const CElement* e : *Structure().GetElementList()) {
        for (const int node : {e->GetNodeNo1(), e->GetNodeNo2(), e->GetNodeNo3()})
            if (node != 0) users.emplace(node, e->GetNo());
    }
    int user = 0;
    if (all) {
        for (const CNode* node : *Structure().GetNodeList()) {
            const auto found = users.find(node->GetNo());
            if (found == users.end()) continue;
            user = found->second;
            break;
        }
    } else {
        ForRange(&values[1], [&](int no, int) {
            const auto found = users.find(no);
            if (found != users.end()) user = found->second;
            return user == 0;
        });
    }
    if (user != 0) {
        m_cmd.Message(3515, showDialog, user, 0.0, nullptr);
        return -2;
    }
    return result;
}

int CFrameCmd::Delete(std::string& rest, int showDialog) {
    double v[6] = {1.0, 1.0, 1.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kDelete, rest, v, 5, text, showDialog);
    if (check < -1) return check;
    CStructure& s = Structure();
    const int item = FieldInt(v[0]);
    const bool all = FieldInt(v[1]) == -1;
    // One pass over the list, however many numbers go: a whole model is emptied as fast as one
    // node is deleted.
    if (item == 1) {
        // A node that an element uses stays, as the project refuses to delete it.
        std::unordered_set<int> used;
        for (const CElement* e : *s.GetElementList())
            for (const int node : {e->GetNodeNo1(), e->GetNodeNo2(), e->GetNodeNo3()})
                if (node != 0) used.insert(node);
        s.GetNodeList()->DeleteIf([&](const CNode& node) {
            return (all || InRange(node.GetNo(), &v[1])) && used.count(node.GetNo()) == 0;
        });
        m_cmd.AddChange(all ? kCidAllNodes : kCidNode, nullptr, kDeleted);
    } else if (item == 2) {
        s.GetElementList()->DeleteIf(
            [&](const CElement& e) { return all ? e.GetNo() > 0 : InRange(e.GetNo(), &v[1]); });
        m_cmd.AddChange(all ? kCidAllPosElements : kCidElement, nullptr, kDeleted);
    }
    // Loads of deleted elements lose their pointers here.
    s.UpdatePointers();
    return check;
}

// ------------------------------------------------------------------------- MODEL, MODMODIF

int CFrameCmd::ModelDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(2, values, showDialog, result)) return result;
    if (FieldInt(values[0]) < 1) {
        m_cmd.Message(3115, showDialog, FieldInt(values[0]), 0.0, nullptr);
        return -2;
    }
    const int code = FieldInt(values[1]);
    if (code != 1 && code != -1 && code != 3 && code != -3) {
        m_cmd.Message(3318, showDialog, code, 0.0, nullptr);
        return -2;
    }
    if (code == 1 || code == -1) {
        int missing = 0;
        ForRange(&values[2], [&](int no, int) {
            if (!Structure().GetModelPtr(no)) missing = no;
            return missing == 0;
        });
        if (missing != 0) {
            m_cmd.Message(3026, showDialog, missing, 0.0, nullptr);
            return -2;
        }
    }
    return result;
}

int CFrameCmd::Model(std::string& rest, int showDialog) {
    double v[7] = {1.0, -1.0, 1.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kModel, rest, v, 6, text, showDialog);
    if (check < -1) return check;
    CStructure& s = Structure();
    const int no = FieldInt(v[0]);
    const int code = FieldInt(v[1]);
    const std::string name = NameOf(text);
    CModel* model = s.GetModelPtr(no);
    const bool elementsGiven = code == 3 || code == -3;
    if (model && model->GetElementNoArray().empty() && !elementsGiven)
        model->AddElementByList(PositiveElements(s));
    if (!model && no > 0) {
        std::unique_ptr<CModel> made;
        const CModel* source = s.GetModelPtr(1);
        if (v[5] != 0.0 && source) {
            // A copy of model 1: its elements, dependencies and modifications, but not its modes.
            made = std::make_unique<CModel>(*source);
            made->SetModelNo(no);
            made->SetModelName(name);
            made->GetEigenModeList().RemoveAll();
            made->GetBucklingModeList().RemoveAll();
            if (source->GetCode() == 0) made->SetElementNoArray(PositiveElements(s));
        } else {
            made = std::make_unique<CModel>(no, name);
        }
        made->SetCode(1);
        model = s.AddModel(std::move(made));
    } else if (model && !name.empty()) {
        model->SetModelName(name);
    }
    if (model) {
        ForRange(&v[2], [&](int i, int) {
            switch (code) {
            case 1:
                model->AddModel(i);
                break;
            case -1:
                model->DeleteModel(i);
                break;
            case 3:
                model->AddElementNo(i);
                break;
            case -3:
                model->DeleteElementNo(i);
                break;
            default:
                break;
            }
        });
    }
    m_cmd.AddChange(kCidAllModels, nullptr, kWrite);
    return check;
}

int CFrameCmd::ModmodifDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(2, values, showDialog, result)) return result;
    CStructure& s = Structure();
    const int modelNo = FieldInt(values[0]);
    if (modelNo < 1) {
        m_cmd.Message(3115, showDialog, modelNo, 0.0, nullptr);
        return -2;
    }
    if (!s.GetModelPtr(modelNo)) {
        m_cmd.Message(3026, showDialog, modelNo, 0.0, nullptr);
        return -2;
    }
    const int type = FieldInt(values[1]);
    if (!IsValidModifyType(type)) {
        m_cmd.Message(3319, showDialog, type, 0.0, nullptr);
        return -2;
    }
    // Types 1 and 2 change nodes, 10 to 33 elements.
    if (type == 1 || type == 2) {
        int missing = 0;
        ForRange(&values[2], [&](int no, int) {
            if (!s.GetNodePtr(no)) missing = no;
            return missing == 0;
        });
        if (missing != 0) {
            m_cmd.Message(3011, showDialog, missing, 0.0, nullptr);
            return -2;
        }
    }
    if (type == 11) {
        const CRefLine* line = s.GetRefLinePtr(FieldInt(values[5]));
        if (!(line && line->GetKeySectionPtr(values[6]))) {
            m_cmd.Message(3015, showDialog, FieldInt(values[5]), values[6], nullptr);
            return -2;
        }
    }
    if (WarningsChecked() && type >= 10 && type <= 33)
        result = std::min(result, MissingElements(&values[2], showDialog));
    return result;
}

int CFrameCmd::Modmodif(std::string& rest, int showDialog) {
    double v[12] = {1.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kModmodif, rest, v, 11, text, showDialog);
    if (check < -1) return check;
    CModel* model = Structure().GetModelPtr(FieldInt(v[0]));
    if (!model) return check;
    auto modify = std::make_unique<CModelModify>();
    modify->SetModel(FieldInt(v[0]));
    modify->SetType(FieldInt(v[1]));
    for (int i = 0; i < 3; ++i) modify->SetInterval(i, FieldInt(v[2 + i]));
    for (int i = 0; i < 6; ++i) modify->SetValues(i, v[5 + i]);
    model->GetModelModifyList().Add(std::move(modify));
    m_cmd.AddChange(kCidAllModels, nullptr, kWrite);
    return check;
}

// ------------------------------------------------------------------------- MEMBER

int CFrameCmd::MemberDataCheck(double* values, int showDialog) {
    int result = 0;
    BeginCheck(2, values, showDialog, result);
    return result;
}

int CFrameCmd::Member(std::string& rest, int showDialog) {
    double v[6] = {1.0, 1.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kMember, rest, v, 5, text, showDialog);
    if (check < -1) return check;
    CStructure& s = Structure();
    const int no = FieldInt(v[0]);
    const std::string name = NameOf(text);
    CMember* member = s.GetMemberPtr(no);
    if (!member) {
        member = s.AddMember(std::make_unique<CMember>(no, FieldInt(v[1]), name));
    } else {
        member->SetType(FieldInt(v[1]));
        if (!name.empty()) member->SetName(name);
    }
    if (FieldInt(v[2]) != 0) {
        ForRange(&v[2], [&](int i, int) {
            CElement* e = s.GetElementPtr(i);
            if (!e) return;
            // An element belongs to one member.
            if (CMember* before = e->GetMemberPtr(); before && before != member)
                before->RemoveElement(i);
            member->AddElement(i);
            e->SetMemberPtr(member);
        });
    }
    m_cmd.AddChange(kCidDesignDoc, nullptr, kWrite);
    return check;
}

// ------------------------------------------------------------------------- SELE, SELEDEL, ESEL

int CFrameCmd::SeleDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(1, values, showDialog, result)) return result;
    const int item = FieldInt(values[0]);
    if (item != 1 && item != 2) {
        m_cmd.Message(3339, showDialog, item, 0.0, nullptr);
        return -2;
    }
    return result;
}

int CFrameCmd::Select(std::string& rest, int showDialog, int type, int visible) {
    double v[5] = {1.0, 1.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(type, rest, v, 4, text, showDialog);
    if (check < -1) return check;
    CStructure& s = Structure();
    const int item = FieldInt(v[0]);
    ForRange(&v[1], [&](int no, int) {
        if (item == 1) {
            if (CNode* node = s.GetNodePtr(no)) node->SetVisible(visible);
        } else if (item == 2) {
            if (CElement* e = s.GetElementPtr(no)) e->SetVisible(visible);
        }
    });
    m_cmd.AddChange(kCidFrameDoc, nullptr, kWrite);
    return check;
}

int CFrameCmd::Sele(std::string& rest, int showDialog) {
    return Select(rest, showDialog, kSele, 1);
}

int CFrameCmd::Seledel(std::string& rest, int showDialog) {
    return Select(rest, showDialog, kSeledel, 0);
}

int CFrameCmd::EselDataCheck(double* values, int showDialog) {
    int result = 0;
    BeginCheck(1, values, showDialog, result);
    return result;
}

int CFrameCmd::Esel(std::string& rest, int showDialog) {
    double v[5] = {1.0, 1.0, 1.0, 1.0};
    std::string text;
    const int check = ReadValues(kEsel, rest, v, 4, text, showDialog);
    if (check < -1) return check;
    CStructure& s = Structure();
    const int no = FieldInt(v[0]);
    const std::string name = NameOf(text);
    CSelection* selection = s.GetSelectionPtr(no);
    if (!selection)
        selection = s.AddSelection(std::make_unique<CSelection>(no, name), 0);
    else if (!name.empty())
        selection->SetName(name);
    selection->AddSelection(FieldInt(v[1]), FieldInt(v[2]), FieldInt(v[3]));
    m_cmd.AddChange(kCidDesignDoc, nullptr, kWrite);
    return check;
}

// ------------------------------------------------------------------------- PROJECT

int CFrameCmd::ProjectDataCheck(double* values, int showDialog) {
    int result = 0;
    if (!BeginCheck(-1, values, showDialog, result)) return result;
    const int concrete = FieldInt(values[1]);
    if (concrete < 101 || concrete > 106) {
        m_cmd.Message(3137, showDialog, concrete, 0.0, nullptr);
        return -2;
    }
    const int steel = FieldInt(values[2]);
    if (steel != 201 && steel != 202) {
        m_cmd.Message(3138, showDialog, steel, 0.0, nullptr);
        return -2;
    }
    return result;
}

int CFrameCmd::Project(std::string& rest, int showDialog) {
    double v[4] = {0.0, 101.0, 201.0};
    std::string text;
    const int check = ReadValues(kProject, rest, v, 3, text, showDialog);
    if (check < -1) return check;
    CStructure& s = Structure();
    s.SetProjectNo(FieldInt(v[0]));
    s.SetConcrCode(FieldInt(v[1]));
    s.SetSteelCode(FieldInt(v[2]));
    s.SetName(CutName(Trim(text), kProjectNameLength));
    m_cmd.AddChange(kCidDesignDoc, nullptr, kWrite);
    return check;
}

} // namespace kelo
