#include "command/AlignmentCmd.h"

#include "command/StructureCmd.h"
#include "geometry/RefLine.h"
#include "model/Structure.h"
#include "platform/Text.h"

#include <cmath>
#include <memory>

namespace kelo {

namespace {

// Names of lines and axes are cut to what the listings and the store hold.
constexpr std::size_t kNameLength = 30;
// A segment shorter than this (m of station) answers no points, so it is refused.
constexpr double kMinSegmentLength = 0.0001;
// Stations closer than this (m) are the same, as everywhere in the geometry.
constexpr double kSameStation = 1e-5;
// Change codes and the write action of the change notes.
constexpr int kCidRefLine = 301, kCidAllRefLineGeom = 303, kCidAxis = 304, kBaseWrite = 5;

// A clothoid radius whose integer part is 0 is the infinite radius at the straight end.
bool IsInfiniteRadius(double r) { return std::trunc(std::fabs(r)) == 0.0; }

bool ValidHorType(int type) {
    return type == 1 || type == 2 || type == 3 || type == 11 || type == 12 || type == 13;
}

bool ValidVerType(int type) { return type == 1 || type == 2 || type == 5; }

// The segment that a chained segment numbered `no` starts from when the line is chained: the
// first segment, or a later chained one; a free segment after the first does not pass its end
// on. Null when the segment would be the first of the line.
const CHorSegment* ChainPredecessor(const CRefLine& line, int no) {
    const CHorSegment* prev = nullptr;
    for (const CHorSegment* s : line.GetHorSegmentList()) {
        if (s->GetHorSegNo() >= no) break;
        if (!prev || s->GetType() > 10) prev = s;
    }
    return prev;
}

// Faults of a chained segment that show without its neighbours' calculation: a stretch of station
// too short to hold points, an arc without radius, a clothoid without parameter, with radii of
// two signs, or with radii that fit none of the spiral's forms.
bool ChainedSegmentFaulty(const CRefLine* line, int no, int type, const double* v) {
    const double endStation = v[6], startR = v[9], endR = v[10], a = v[11];
    if (line) {
        const CHorSegment* prev = ChainPredecessor(*line, no);
        if (prev && endStation - prev->GetEndStation() < kMinSegmentLength) return true;
    }
    if (type == 12) return std::fabs(startR) <= kMinSegmentLength;
    if (type == 13) {
        if (!(a > 0.0) || startR * endR < 0.0) return true;
        const bool infStart = IsInfiniteRadius(startR), infEnd = IsInfiniteRadius(endR);
        if (infStart && infEnd) return true;
        if (!infStart && !infEnd && std::fabs(startR) == std::fabs(endR)) return true;
    }
    return false;
}

// The line's plan extent; false when it has no plan geometry to measure a station against.
bool PlanExtent(CRefLine& line, double& start, double& end) {
    if (line.GetHorSegmentList().IsEmpty() && line.GetCoordList().IsEmpty()) return false;
    start = line.GetStationStart();
    end = line.GetStationEnd();
    return true;
}

} // namespace

CAlignmentCmd::CAlignmentCmd(CStructureCmd& cmd) : m_cmd(cmd) {
    m_cmd.RegisterHandler(
        kRfl, [this](std::string& r, int d) { return Rfl(r, d); },
        [this](double* v, int d) { return RflDataCheck(v, d); });
    m_cmd.RegisterHandler(
        kRflaxis, [this](std::string& r, int d) { return Rflaxis(r, d); },
        [this](double* v, int d) { return RflaxisDataCheck(v, d); });
    m_cmd.RegisterHandler(
        kRflhor, [this](std::string& r, int d) { return Rflhor(r, d); },
        [this](double* v, int d) { return RflhorDataCheck(v, d); });
    m_cmd.RegisterHandler(
        kRflver, [this](std::string& r, int d) { return Rflver(r, d); },
        [this](double* v, int d) { return RflverDataCheck(v, d); });
    m_cmd.RegisterHandler(
        kRflcoord, [this](std::string& r, int d) { return Rflcoord(r, d); },
        [this](double* v, int d) { return RflcoordDataCheck(v, d); });
    m_cmd.RegisterHandler(
        kRflcol, [this](std::string& r, int d) { return Rflcol(r, d); },
        [this](double* v, int d) { return RflcolDataCheck(v, d); });
    m_cmd.RegisterHandler(
        kRflprof, [this](std::string& r, int d) { return Rflprof(r, d); },
        [this](double* v, int d) { return RflprofDataCheck(v, d); });
}

CStructure& CAlignmentCmd::Structure() const { return *m_cmd.GetStructure(); }

CRefLine* CAlignmentCmd::LineForGeometry(double value, int showDialog) {
    const int no = FieldInt(value);
    // Even without checks a negative number can't name a line.
    if (no < 0) {
        m_cmd.Message(3120, showDialog, no, value, nullptr);
        return nullptr;
    }
    if (CRefLine* line = Structure().GetRefLinePtr(no)) return line;
    return Structure().AddRefLine(std::make_unique<CRefLine>(no, std::string(), 1));
}

int CAlignmentCmd::ValuesAndCheck(int type, const std::string& rest, double* values, int count,
                                  std::string& text, int showDialog) {
    if (m_cmd.CommandValues(rest, values, count, text, showDialog) < 0) return -2;
    const int check = m_cmd.DataCheck(type, values, showDialog);
    return check < -1 ? -2 : check;
}

void CAlignmentCmd::NoteGeometryChange(int lineNo) {
    const double numbers[5] = {static_cast<double>(lineNo), 0.0, 0.0, 0.0, 0.0};
    m_cmd.AddChange(kCidAllRefLineGeom, numbers, kBaseWrite);
}

int CAlignmentCmd::ProfValueIndex(int commandValue) {
    static const int kIndex[kProfValuesPerSide] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 15, 16, 17, 18};
    return commandValue >= 0 && commandValue < kProfValuesPerSide ? kIndex[commandValue] : -1;
}

// ------------------------------------------------------------------------- REFLINE

int CAlignmentCmd::RflDataCheck(double* values, int showDialog) {
    const int level = m_cmd.GetCheckLevel();
    if (level < 1) return 0;
    const int no = FieldInt(values[0]), type = FieldInt(values[1]);
    // Line 0 is the project's frame for sections that belong to no line.
    if (no < 1) {
        m_cmd.Message(3101, showDialog, no, values[0], nullptr);
        return -2;
    }
    if (type < 1 || type > 3) {
        m_cmd.Message(3301, showDialog, type, values[1], nullptr);
        return -2;
    }
    if (level >= 2 && Structure().GetRefLinePtr(no)) {
        m_cmd.Message(2011, showDialog, no, values[0], nullptr);
        return -1;
    }
    return 0;
}

int CAlignmentCmd::Rfl(std::string& rest, int showDialog) {
    double values[3] = {1.0, 1.0, 0.0};
    std::string text;
    const int check = ValuesAndCheck(kRfl, rest, values, 2, text, showDialog);
    if (check < -1) return check;
    const int no = FieldInt(values[0]), type = FieldInt(values[1]);
    const std::string name = CutName(Trim(text), kNameLength);
    // A line defined again keeps what stands on it (segments, axes, sections): only its name and
    // the way its stations are measured change.
    if (CRefLine* line = Structure().GetRefLinePtr(no)) {
        line->SetName(name);
        line->SetType(type);
    } else {
        Structure().AddRefLine(std::make_unique<CRefLine>(no, name, type));
    }
    const double numbers[1] = {static_cast<double>(no)};
    m_cmd.AddChange(kCidRefLine, numbers, kBaseWrite);
    return check;
}

// ------------------------------------------------------------------------- RFLAXIS

int CAlignmentCmd::RflaxisDataCheck(double* values, int showDialog) {
    const int level = m_cmd.GetCheckLevel();
    if (level < 1) return 0;
    const int lineNo = FieldInt(values[0]), axisNo = FieldInt(values[1]);
    if (axisNo < 0) {
        m_cmd.Message(3100, showDialog, axisNo, values[1], nullptr);
        return -2;
    }
    const CRefLine* line = Structure().GetRefLinePtr(lineNo);
    if (!line) {
        m_cmd.Message(3010, showDialog, lineNo, values[0], nullptr);
        return -2;
    }
    if (level >= 2 && line->GetAxisPtr(axisNo)) {
        m_cmd.Message(2010, showDialog, axisNo, values[1], nullptr);
        return -1;
    }
    return 0;
}

int CAlignmentCmd::Rflaxis(std::string& rest, int showDialog) {
    double values[4] = {1.0, 1.0, 0.0, 0.0};
    std::string text;
    const int check = ValuesAndCheck(kRflaxis, rest, values, 3, text, showDialog);
    if (check < -1) return check;
    const int lineNo = FieldInt(values[0]), axisNo = FieldInt(values[1]);
    CRefLine* line = Structure().GetRefLinePtr(lineNo);
    // Without checks a missing line still can't take the axis.
    if (!line) {
        m_cmd.Message(3010, showDialog, lineNo, values[0], nullptr);
        return -2;
    }
    line->AddAxis(std::make_unique<CAxis>(axisNo, CutName(Trim(text), kNameLength), values[2]));
    const double numbers[5] = {values[0], values[1], 0.0, 0.0, 0.0};
    m_cmd.AddChange(kCidAxis, numbers, kBaseWrite);
    return check;
}

// ------------------------------------------------------------------------- segments

// The numbers of a plan or elevation segment (line, segment, type): a segment and a line number
// of at least 1, and a type the kind of segment knows (typeMessage otherwise). 0 or -2.
int CAlignmentCmd::SegmentNumbersCheck(const double* values, bool typeValid, int typeMessage,
                                       int showDialog) {
    const int lineNo = FieldInt(values[0]), segNo = FieldInt(values[1]);
    if (segNo < 1) {
        m_cmd.Message(3119, showDialog, segNo, values[1], nullptr);
        return -2;
    }
    if (lineNo < 1) {
        m_cmd.Message(3120, showDialog, lineNo, values[0], nullptr);
        return -2;
    }
    if (!typeValid) {
        m_cmd.Message(typeMessage, showDialog, FieldInt(values[2]), values[2], nullptr);
        return -2;
    }
    return 0;
}

// ------------------------------------------------------------------------- RFLHORI

int CAlignmentCmd::RflhorDataCheck(double* values, int showDialog) {
    const int level = m_cmd.GetCheckLevel();
    if (level < 1) return 0;
    if (SegmentNumbersCheck(values, ValidHorType(FieldInt(values[2])), 3507, showDialog) < 0)
        return -2;
    const int lineNo = FieldInt(values[0]), segNo = FieldInt(values[1]), type = FieldInt(values[2]);
    const CRefLine* line = Structure().GetRefLinePtr(lineNo);
    bool faulty = false;
    std::string why;
    if (type < 10) {
        // A free segment carries all its data: calculate a copy of it to see that they fit.
        CHorSegment trial(segNo, nullptr, type, values[3], values[4], values[5], values[6],
                          values[7], values[8], values[9], values[10], values[11]);
        faulty = trial.CalculateAndValidate() != 1 || values[6] - values[3] < kMinSegmentLength;
        why = trial.GetValidateMessage();
    } else {
        faulty = ChainedSegmentFaulty(line, segNo, type, values);
    }
    if (faulty) {
        m_cmd.Message(3508, showDialog, segNo, values[1], nullptr);
        m_cmd.Log(why);
        return -2;
    }
    if (level >= 2 && line && line->GetHorSegmentPtr(segNo)) {
        m_cmd.Message(2018, showDialog, segNo, values[1], nullptr);
        return -1;
    }
    return 0;
}

int CAlignmentCmd::Rflhor(std::string& rest, int showDialog) {
    double values[13] = {1.0, 1.0};
    std::string text;
    const int check = ValuesAndCheck(kRflhor, rest, values, 12, text, showDialog);
    if (check < -1) return check;
    CRefLine* line = LineForGeometry(values[0], showDialog);
    if (!line) return -2;
    line->AddHorSegment(std::make_unique<CHorSegment>(
        FieldInt(values[1]), line, FieldInt(values[2]), values[3], values[4], values[5], values[6],
        values[7], values[8], values[9], values[10], values[11]));
    NoteGeometryChange(line->GetNo());
    return check;
}

// ------------------------------------------------------------------------- RFLVERT

int CAlignmentCmd::RflverDataCheck(double* values, int showDialog) {
    const int level = m_cmd.GetCheckLevel();
    if (level < 1) return 0;
    if (SegmentNumbersCheck(values, ValidVerType(FieldInt(values[2])), 3171, showDialog) < 0)
        return -2;
    const int lineNo = FieldInt(values[0]), segNo = FieldInt(values[1]), type = FieldInt(values[2]);
    CVerSegment trial(segNo, nullptr, type, values[3], values[4], values[5], values[6], values[7]);
    if (trial.CalculateAndValidate() != 1 || values[5] - values[3] <= kMinSegmentLength) {
        m_cmd.Message(3508, showDialog, segNo, values[1], nullptr);
        m_cmd.Log(trial.GetValidateMessage());
        return -2;
    }
    const CRefLine* line = Structure().GetRefLinePtr(lineNo);
    if (level >= 2 && line && line->GetVerSegmentPtr(segNo)) {
        m_cmd.Message(2018, showDialog, segNo, values[1], nullptr);
        return -1;
    }
    return 0;
}

int CAlignmentCmd::Rflver(std::string& rest, int showDialog) {
    double values[9] = {1.0, 1.0};
    std::string text;
    const int check = ValuesAndCheck(kRflver, rest, values, 8, text, showDialog);
    if (check < -1) return check;
    CRefLine* line = LineForGeometry(values[0], showDialog);
    if (!line) return -2;
    line->AddVerSegment(std::make_unique<CVerSegment>(FieldInt(values[1]), line,
                                                      FieldInt(values[2]), values[3], values[4],
                                                      values[5], values[6], values[7]));
    NoteGeometryChange(line->GetNo());
    return check;
}

// ------------------------------------------------------------------------- RFLCOORD

int CAlignmentCmd::RflcoordDataCheck(double* values, int showDialog) {
    const int level = m_cmd.GetCheckLevel();
    if (level < 1) return 0;
    const int lineNo = FieldInt(values[0]), pointNo = FieldInt(values[1]),
              type = FieldInt(values[2]);
    if (pointNo < 1) {
        m_cmd.Message(3122, showDialog, pointNo, values[1], nullptr);
        return -2;
    }
    if (lineNo < 1) {
        m_cmd.Message(3120, showDialog, lineNo, values[0], nullptr);
        return -2;
    }
    // The line must be there first: its type tells how the polygon's stations are measured.
    const CRefLine* line = Structure().GetRefLinePtr(lineNo);
    if (!line) {
        m_cmd.Message(3010, showDialog, lineNo, values[0], nullptr);
        return -2;
    }
    if (type != 1 && type != 2) {
        m_cmd.Message(3513, showDialog, type, values[2], nullptr);
        return -2;
    }
    if (level >= 2 && line->GetCoordPtr(pointNo)) {
        m_cmd.Message(2019, showDialog, pointNo, values[1], nullptr);
        return -1;
    }
    return 0;
}

int CAlignmentCmd::Rflcoord(std::string& rest, int showDialog) {
    double values[8] = {1.0, 1.0};
    std::string text;
    const int check = ValuesAndCheck(kRflcoord, rest, values, 7, text, showDialog);
    if (check < -1) return check;
    CRefLine* line = Structure().GetRefLinePtr(FieldInt(values[0]));
    if (!line) {
        m_cmd.Message(3010, showDialog, FieldInt(values[0]), values[0], nullptr);
        return -2;
    }
    line->AddCoord(std::make_unique<CCoord>(FieldInt(values[1]), line, FieldInt(values[2]),
                                            values[3], values[4], values[5], values[6]));
    NoteGeometryChange(line->GetNo());
    return check;
}

// ------------------------------------------------------------------------- RFLCOLUM

int CAlignmentCmd::RflcolDataCheck(double* values, int showDialog) {
    const int level = m_cmd.GetCheckLevel();
    if (level < 1) return 0;
    const int lineNo = FieldInt(values[0]), type = FieldInt(values[1]),
              parentNo = FieldInt(values[2]);
    const double location = values[3], angle = values[5], top = values[6], bottom = values[7];
    if (lineNo < 1 || parentNo < 1) {
        m_cmd.Message(3120, showDialog, lineNo < 1 ? lineNo : parentNo, 0.0, nullptr);
        return -2;
    }
    if (parentNo == lineNo) {
        m_cmd.Message(3509, showDialog, lineNo, values[0], nullptr);
        return -2;
    }
    CRefLine* parent = Structure().GetRefLinePtr(parentNo);
    if (!parent) {
        m_cmd.Message(3010, showDialog, parentNo, values[2], nullptr);
        return -2;
    }
    // A column's stations are elevations; a second column can't be measured along them.
    if (parent->GetColumn()) {
        m_cmd.Message(3511, showDialog, parentNo, values[2], nullptr);
        return -2;
    }
    if (type < 1 || type > 4) {
        m_cmd.Message(3325, showDialog, type, values[1], nullptr);
        return -2;
    }
    // The angle slides the foot along the line by tan(angle) times the offset.
    if (!(std::fabs(angle) < 90.0)) {
        m_cmd.Message(3121, showDialog, 0, angle, nullptr);
        return -2;
    }
    double station = location;
    if (type == 2 || type == 4) {
        const CAxis* axis = parent->GetAxisPtr(FieldInt(location));
        if (!axis) {
            m_cmd.Message(3031, showDialog, FieldInt(location), location, nullptr);
            return -2;
        }
        station = axis->GetStationNo();
    }
    // Plan geometry may follow later in the file; only a line that has some is measured.
    double start = 0.0, end = 0.0;
    if (PlanExtent(*parent, start, end) &&
        (station < start - kSameStation || station > end + kSameStation)) {
        m_cmd.Message(3512, showDialog, 0, station, nullptr);
        return -2;
    }
    if ((type == 3 || type == 4) && top <= bottom) {
        m_cmd.Message(3510, showDialog, 0, top, nullptr);
        return -2;
    }
    return 0;
}

int CAlignmentCmd::Rflcol(std::string& rest, int showDialog) {
    double values[9] = {1.0, 1.0};
    std::string text;
    const int check = ValuesAndCheck(kRflcol, rest, values, 8, text, showDialog);
    if (check < -1) return check;
    CRefLine* line = LineForGeometry(values[0], showDialog);
    if (!line) return -2;
    const int type = FieldInt(values[1]);
    line->SetColumn(1);
    line->SetColumnType(type);
    line->SetRefLineFromColumn(FieldInt(values[2]));
    line->SetColumnValues(values + 3);
    // The station on the parent line is known now for a column given by station; one given by
    // axis gets it from the axis when the column is built.
    if (type == 1 || type == 3) line->SetColumnAtStationNo(values[3]);
    NoteGeometryChange(line->GetNo());
    return check;
}

// ------------------------------------------------------------------------- RFLPROF

int CAlignmentCmd::RflprofDataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    const int lineNo = FieldInt(values[0]);
    if (lineNo < 1) {
        m_cmd.Message(3120, showDialog, lineNo, values[0], nullptr);
        return -2;
    }
    return 0;
}

int CAlignmentCmd::Rflprof(std::string& rest, int showDialog) {
    double values[kRflprofValues + 1] = {1.0};
    std::string text;
    const int check = ValuesAndCheck(kRflprof, rest, values, kRflprofValues, text, showDialog);
    if (check < -1) return check;
    CRefLine* line = LineForGeometry(values[0], showDialog);
    if (!line) return -2;
    double left[CRoadProfile::kValues] = {};
    double right[CRoadProfile::kValues] = {};
    for (int i = 0; i < kProfValuesPerSide; ++i) {
        left[ProfValueIndex(i)] = values[2 + i];
        right[ProfValueIndex(i)] = values[2 + kProfValuesPerSide + i];
    }
    auto profile = std::make_unique<CRoadProfile>(0, values[1]);
    profile->SetProfLeft(left);
    profile->SetProfRight(right);
    line->AddRoadProfile(std::move(profile));
    NoteGeometryChange(line->GetNo());
    return check;
}

} // namespace kelo
