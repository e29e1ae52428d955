#include "command/StructureCmd.h"

#include "command/AlignmentCmd.h"
#include "command/Expression.h"
#include "command/FrameCmd.h"
#include "command/LoadCmd.h"
#include "command/MessageTable.h"
#include "command/SectionCmd.h"
#include "command/TendonCmd.h"
#include "model/Id.h"
#include "model/Structure.h"
#include "platform/Text.h"

#include <climits>
#include <cmath>

namespace kelo {

int FieldInt(double v) {
    if (std::isnan(v)) return 0;
    if (v >= static_cast<double>(INT_MAX)) return INT_MAX;
    if (v <= -static_cast<double>(INT_MAX)) return -INT_MAX;
    return static_cast<int>(v);
}

namespace {

struct KeywordEntry {
    const char* keyword;
    int number;
};

// The keyword table: 151 keywords for 123 command numbers, and the retired keywords (-2).
const KeywordEntry kKeywords[] = {
    {"ELEM", 1},
    {"ELEMINS", 1},
    {"NODE", 2},
    {"NODEINS", 2},
    {"BOUNDINS", 3},
    {"POLY", 5},
    {"POLYLINE", 5},
    {"SECTPT", 6},
    {"PTFUNC", 8},
    {"AELEM", 9},
    {"AREAELEM", 9},
    {"LELEM", 10},
    {"LINEELEM", 10},
    {"REFLINE", 11},
    {"RFL", 11},
    {"RFLHORI", 12},
    {"RFLVERT", 13},
    {"RFLCOLUM", 14},
    {"RFLCOORD", 15},
    {"RFLAXIS", 16},
    {"RFLPROF", 17},
    {"ROADPROF", 17},
    {"FORCE", 18},
    {"FORCINS", 18},
    {"DISPL", 19},
    {"DISPINS", 19},
    {"RETYP", 20},
    {"REINFTYP", 20},
    {"MCONCR", 22},
    {"MSTEEL", 23},
    {"MREINF", 24},
    {"LOAD", 26},
    {"LOADINS", 26},
    {"JOINT", 28},
    {"JOINTINS", 28},
    {"ORDCOMB", 30},
    {"SECTINS", 31},
    {"ELSPINS", 32},
    {"MASS", 33},
    {"ELEMMASS", 33},
    {"DESGINS", 34},
    {"WINDFACT", 35},
    {"TRAFLINE", 36},
    {"TRAFLOAD", 37},
    {"EARTHQUA", 38},
    {"DYNWIND", 39},
    {"CREEPCMB", 40},
    {"CREEPLC", 41},
    {"AXIAL", 42},
    {"MODEL", 43},
    {"MODMODIF", 44},
    {"CALCGRP", 45},
    {"ANALYSIS", 46},
    {"SORTCOMB", 47},
    {"SORTLINE", 48},
    {"RFLNODE", 49},
    {"AXISNODE", 50},
    {"AXIS2NOD", 51},
    {"NODECOORD", 52},
    {"MPREST", 53},
    {"MTEND", 53},
    {"CALCCOMB", 54},
    {"DPSECT", 56},
    {"DPCONCR", 57},
    {"DPSTEEL", 58},
    {"DPREINF", 59},
    {"DPPREST", 60},
    {"DPTEND", 60},
    {"RE", 61},
    {"REAS", 62},
    {"SHRE", 63},
    {"SHREAS", 64},
    {"TEND", 66},
    {"TEAS", 67},
    {"TENDAS", 67},
    {"SHEAR", 68},
    {"TORAR", 70},
    {"DELETE", 71},
    {"DEL", 71},
    {"DCSETUP", 72},
    {"DCSOLVE", 73},
    {"DCSECT", 74},
    {"DCCOMB", 75},
    {"DCOPT", 76},
    {"SECTFORCE", 77},
    {"CHART", 78},
    {"CHARTLN", 79},
    {"SHRETYP", 80},
    {"INPUT", 90},
    {"SOLVE", 91},
    {"ANSOLVE", 93},
    {"OUTPUT", 94},
    {"SAVE", 95},
    {"CLEAR", 100},
    {"SECTFACE", 103},
    {"SELE", 104},
    {"SELEINS", 104},
    {"SELEDEL", 105},
    {"BUCKLING", 106},
    {"PROFILE", 107},
    {"PANEL", 108},
    {"BUCKLDES", 109},
    {"TENDON", 110},
    {"TENGROUP", 111},
    {"TENGEO", 112},
    {"TENGEON", 113},
    {"TENGEOL", 114},
    {"TENLOSS", 115},
    {"TENSTRESS", 116},
    {"PROJECT", 117},
    {"DCCONV", 118},
    {"EQSPEC", 120},
    {"EQSPECPT", 121},
    {"WINDSPEC", 125},
    {"WINDLEN", 126},
    {"WINDTURB", 127},
    {"WINDCOH", 128},
    {"WINDVRTX", 129},
    {"XSECT", 130},
    {"CONN", 131},
    {"MEMBER", 132},
    {"ANSETUP", 133},
    {"TRAFDISP", 134},
    {"LIBPROF", 140},
    {"LIBFILE", 141},
    {"ESEL", 151},
    {"IF", 170},
    {"ELSEIF", 171},
    {"ELSE", 172},
    {"ENDIF", 173},
    {"DO", 174},
    {"ENDDO", 175},
    {"TORSIONAD", 176},
    {"STOP", 999},
    {"DIM", 1001},
    {"PT", 1002},
    {"SECT", 1004},
    {"SUBAR", 1005},
    {"SHREPT", 1006},
    {"TE", 1007},
    // Retired keywords are answered with a warning.
    {"NODEDEL", -2},
    {"ELEMDEL", -2},
    {"SECTDEL", -2},
    {"JOINTDEL", -2},
    {"ELSPDEL", -2},
    {"BOUNDDEL", -2},
    {"DESGDEL", -2},
    {"LOADDEL", -2},
    {"REINTYP", -2},
    {"NAMENUM", -2},
    {"GEOMINS", -2},
};

// Order numbers of the command store: the order of a regenerated file, which puts reference
// lines before nodes, nodes before elements, loads before models and models before combinations.
struct OrderEntry {
    int type;
    int order;
};
const OrderEntry kOrders[] = {
    {11, 901},    {16, 902},   {12, 903},   {13, 904},   {15, 905},   {14, 906},   {2, 1001},
    {49, 1001},   {50, 1001},  {51, 1001},  {52, 1001},  {1, 1002},   {3, 1003},   {28, 1004},
    {31, 1005},   {32, 1006},  {34, 1007},  {33, 1008},  {35, 1009},  {176, 1010}, {26, 1101},
    {36, 1102},   {37, 1103},  {38, 1104},  {39, 1104},  {18, 1105},  {19, 1106},  {40, 1107},
    {41, 1108},   {42, 1109},  {134, 1110}, {43, 1202},  {44, 1203},  {45, 1204},  {46, 1205},
    {133, 1206},  {30, 1301},  {47, 1302},  {48, 1303},  {110, 1401}, {111, 1402}, {112, 1403},
    {113, 1404},  {114, 1404}, {116, 1405}, {115, 1406}, {106, 1501}, {109, 1502}, {130, 1601},
    {108, 1604},  {131, 1606}, {77, 1700},  {132, 1800}, {103, 1801}, {102, 2001}, {1002, 1602},
    {1001, 1603},
};

constexpr int kIf = 170, kElseif = 171, kElse = 172, kEndif = 173, kDo = 174, kEndDo = 175;
constexpr int kStop = 999;

bool EndsWithCrLf(const std::string& s) {
    return s.size() >= 2 && s[s.size() - 2] == '\r' && s[s.size() - 1] == '\n';
}

const char* MessageHeader(int severity) {
    switch (severity) {
    case 1:
        return "\r\n*** Note ***\r\n";
    case 2:
        return "\r\n*** Warning ***\r\n";
    default:
        return "\r\n*** Error ***\r\n";
    }
}

} // namespace

CStructureCmd::CStructureCmd(CStructure* structure, int language)
    : m_structure(structure), m_language(language) {
    m_ifState.fill(-1);
    InitCommands();
    RegisterCoreHandlers();
    m_frameCmd = std::make_unique<CFrameCmd>(*this);
    m_loadCmd = std::make_unique<CLoadCmd>(*this);
    m_alignmentCmd = std::make_unique<CAlignmentCmd>(*this);
    m_sectionCmd = std::make_unique<CSectionCmd>(*this);
    m_tendonCmd = std::make_unique<CTendonCmd>(*this);
}

CStructureCmd::~CStructureCmd() = default;

void CStructureCmd::InitCommands() {
    for (const auto& k : kKeywords) m_commands.emplace(k.keyword, k.number);
}

int CStructureCmd::OrderNumberOf(int type) {
    for (const auto& o : kOrders)
        if (o.type == type) return o.order;
    return 0;
}

void CStructureCmd::RegisterHandler(int type, Handler handler, Check check) {
    m_handlers[type] = std::move(handler);
    if (check) m_checks[type] = std::move(check);
}

void CStructureCmd::RegisterCoreHandlers() {
    RegisterHandler(90, [this](std::string& r, int d) { return Input(r, d); });
    RegisterHandler(
        100, [this](std::string& r, int d) { return Clear(r, d); },
        [this](double* v, int d) { return ClearDataCheck(v, d); });
    RegisterHandler(kIf, [this](std::string& r, int d) { return If(r, d); });
    RegisterHandler(kElseif, [this](std::string& r, int d) { return Elseif(r, d); });
    RegisterHandler(kElse, [this](std::string& r, int d) { return Else(r, d); });
    RegisterHandler(kEndif, [this](std::string& r, int d) { return Endif(r, d); });
    RegisterHandler(kDo, [this](std::string& r, int d) { return Do(r, d); });
    RegisterHandler(kEndDo, [this](std::string& r, int d) { return Enddo(r, d); });
}

// ------------------------------------------------------------------------- reading

int CStructureCmd::ReadCommandFile(const std::string& fileName, std::string* log, int showDialog) {
    if (fileName.empty()) return -1;
    if (!m_structure) return -3;
    CTextReader file;
    if (!file.Open(fileName)) {
        m_structure->GetMessageSink().Show(MsgKind::Error,
                                           GetString(3700, m_language) + " " + fileName);
        return -3;
    }
    int a = 0, b = 0;
    if (!m_structure->CanChangesBePerformed(0, 0, a, b)) return -3;
    m_firstLoadFlags.fill(1);
    m_fileStack.push_back(fileName);
    int result = 0;
    std::string line;
    while (file.ReadLineCrLf(line)) {
        if (Command(line, log, showDialog, 1) == -3) {
            result = -3;
            break;
        }
    }
    m_fileStack.pop_back();
    file.Close();
    if (result == 0) m_structure->ResetErrCount();
    RecalcDependencies();
    m_firstLoadFlags.fill(0);
    m_noRecord = 0;
    return result;
}

void CStructureCmd::RecalcDependencies() {
    m_structure->ReCalcAllRoadProfiles();
    m_structure->ReCalcAllKeySections(0);
    m_structure->ReCalcAllNodesOnRefLines(-1);
    m_structure->ReCalcAllModelDependencies();
    m_structure->RecalcConnectedCharts(0, nullptr);
    m_structure->UpdatePointers();
}

int CStructureCmd::CommandConvert(std::string* text, std::string* log, int showDialog) {
    if (!text) return 0;
    // The body may be the DO body that a replayed ENDDO empties, so walk a copy.
    const std::string source = *text;
    int result = 0;
    std::size_t start = 0;
    while (start < source.size()) {
        const std::size_t lf = source.find('\n', start);
        const std::size_t end = lf == std::string::npos ? source.size() : lf + 1;
        std::string piece = source.substr(start, end - start);
        start = end;
        const int r = Command(piece, log, showDialog, 0);
        // The test for a stop looks at the result before the newest line is taken in, so the
        // line after a STOP still runs and the loop ends one line later.
        if (result == -3) break;
        if (r < result) result = r;
    }
    return result;
}

int CStructureCmd::CommandType(std::string& line, std::string& word) const {
    word.clear();
    std::size_t i = 0;
    while (i < line.size() && (line[i] == ' ' || line[i] == '\t')) ++i;
    std::size_t restStart = line.size();
    for (; i < line.size(); ++i) {
        const char c = line[i];
        if (c == ',') {
            restStart = i + 1;
            break;
        }
        if ((c == ' ' || c == '\t') && !word.empty()) {
            std::size_t j = i;
            while (j < line.size() && (line[j] == ' ' || line[j] == '\t')) ++j;
            if (j < line.size() && line[j] == ',') ++j;
            restStart = j;
            break;
        }
        if (c == '\r' || c == '\n' || c == '!' || c == '%') {
            restStart = i;
            break;
        }
        word.push_back(c);
    }
    if (word.empty() || word == "***") return 0;
    line = TrimLeft(line.substr(std::min(restStart, line.size())));
    word = MakeUpper(word);
    const auto it = m_commands.find(word);
    return it == m_commands.end() ? -1 : it->second;
}

int CStructureCmd::GetCommandType(std::string line) const {
    std::string word;
    return CommandType(line, word);
}

int CStructureCmd::Command(std::string& line, std::string* log, int showDialog, int record) {
    if (!m_structure) {
        Message(3000, showDialog, 0, 0.0, nullptr);
        return -3;
    }
    // The ENDDO test needs the number even outside blocks.
    const int peeked = GetCommandType(line);

    if (m_doDepth == -1 && peeked == kEndDo) {
        m_logText = log;
        m_line = line;
        Message(3516, showDialog, 0, 0.0, nullptr);
        return -2;
    }
    if (m_doDepth >= 0) {
        if (peeked == kDo) ++m_doDepth;
        if (peeked == kEndDo) --m_doDepth;
        if (m_doDepth >= 0) {
            m_doBody += line;
            return 0;
        }
    }
    if (m_ifLevel >= 0 && m_ifState[static_cast<std::size_t>(m_ifLevel)] != 1 &&
        peeked != kElseif && peeked != kElse && peeked != kEndif)
        return 0;

    // Continuation: an "&" before any comment sign or quote continues the line.
    const std::string raw = line;
    const std::size_t amp = raw.find('&');
    if (amp != std::string::npos && raw.find_first_of("%!\"") > amp) {
        m_pendingLine += raw.substr(0, amp);
        return 0;
    }
    std::string joined = m_pendingLine + raw;
    m_pendingLine.clear();
    m_logText = log;
    if (!EndsWithCrLf(joined)) {
        while (!joined.empty() && (joined.back() == '\r' || joined.back() == '\n'))
            joined.pop_back();
        joined += "\r\n";
    }
    m_line = joined;

    const bool store = record != 0 && m_noRecord == 0 && m_doDepth < 0;
    if (IsDefCommand(joined)) {
        if (store) AddAsNFCommand(102, std::string(), joined);
        return Def(joined, showDialog);
    }
    std::string rest = joined;
    std::string word;
    const int type = CommandType(rest, word);
    if (type == kStop) return -3;
    if (store) AddAsNFCommand(type, word, joined);
    if (type == 0) return 0;
    if (type == -2) {
        Message(2000, showDialog, 0, 0.0, &word);
        return -1;
    }
    if (type == -1) {
        Message(2001, showDialog, 0, 0.0, &word);
        return -1;
    }
    return Dispatch(type, word, rest, showDialog);
}

int CStructureCmd::Dispatch(int type, const std::string& word, std::string& rest, int showDialog) {
    const auto it = m_handlers.find(type);
    if (it != m_handlers.end()) return it->second(rest, showDialog);
    // A keyword of the language whose handler this build does not have yet: said as a warning
    // so that a file relying on it is not taken for a success.
    ReaderMessage(2, Format("Command %s is not available yet!", word.c_str()),
                  Format("Kommandoen %s er ikke tilgjengelig ennå!", word.c_str()));
    return -1;
}

void CStructureCmd::ReaderMessage(int severity, const std::string& english,
                                  const std::string& norwegian) {
    if (severity == 3) {
        ++m_errCount;
        ++m_totalErrors;
    } else {
        ++m_warnCount;
        ++m_totalWarnings;
    }
    const std::string words =
        std::string(MessageHeader(severity)) + (m_language == 1 ? norwegian : english) + "\r\n";
    const std::string line = m_line.substr(0, m_line.find('\r'));
    Log(line + words + "\r\n");
    m_structure->AddErrMessage(words + "'" + line + "'\r\n\r\n");
}

int CStructureCmd::CommandValues(const std::string& line, double* values, int maxValues,
                                 std::string& text, int showDialog) {
    std::string token;
    int n = 0;
    bool inQuotes = false;
    bool overflow = false;
    int depth = 0;

    auto storeToken = [&]() -> int {
        double v = 0.0;
        // A field whose value is no finite number (sqrt of a negative, a division by zero) is
        // as invalid as one that can't be read: nothing downstream can work with it.
        if (!GetNumber(token, v) || !std::isfinite(v)) {
            Message(3006, showDialog, 0, 0.0, &token);
            return -2;
        }
        if (n < maxValues) values[n] = v;
        ++n;
        token.clear();
        return 0;
    };

    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (c == '\r' || c == '\n' || ((c == '!' || c == '%') && !inQuotes)) {
            if (inQuotes) {
                Message(3002, showDialog, 0, 0.0, nullptr);
                return -2;
            }
            if (!token.empty()) {
                if (n >= maxValues) {
                    if (overflow)
                        text += token;
                    else
                        Message(2002, showDialog, 0, 0.0, nullptr);
                    return 0;
                }
                if (storeToken() != 0) return -2;
            }
            return 0;
        }
        if (inQuotes) {
            if (c == '"')
                inQuotes = false;
            else
                text.push_back(c);
            continue;
        }
        switch (c) {
        case ',':
            if (!token.empty()) {
                if (n >= maxValues) {
                    Message(2002, showDialog, 0, 0.0, nullptr);
                    return -2;
                }
                if (storeToken() != 0) return -2;
            } else {
                ++n;
            }
            break;
        case ' ':
        case '\t':
            if (!overflow && depth == 0) {
                if (!token.empty()) {
                    if (storeToken() != 0) return -2;
                    std::size_t j = i + 1;
                    while (j < line.size() && (line[j] == ' ' || line[j] == '\t')) ++j;
                    if (j < line.size() && line[j] == ',') ++j;
                    i = j - 1;
                }
            } else {
                text.push_back(c);
            }
            break;
        case '"':
            if (!token.empty()) {
                Message(3002, showDialog, 0, 0.0, nullptr);
                return -2;
            }
            inQuotes = true;
            text.clear();
            break;
        case '(':
        case ')':
            depth += c == '(' ? 1 : -1;
            token.push_back(c);
            break;
        case '[':
        case ']':
            break;
        default:
            if (n >= maxValues) {
                text.push_back(c);
                overflow = true;
            } else {
                token.push_back(c);
            }
            break;
        }
    }
    // The end of the string is no terminator: the reader always supplies a line ending.
    return 0;
}

int CStructureCmd::AddAsNFCommand(int type, const std::string&, const std::string& line) {
    const int order = OrderNumberOf(type);
    if (order == 0) return 0;
    return m_structure->AddASCIICommand(order, line);
}

// ------------------------------------------------------------------------- checks

int CStructureCmd::DataCheck(int type, double* values, int showDialog) {
    const auto it = m_checks.find(type);
    return it == m_checks.end() ? 0 : it->second(values, showDialog);
}

int CStructureCmd::StepCheck(int base, double* values, int showDialog) {
    double& first = values[base];
    double& last = values[base + 1];
    double& step = values[base + 2];
    // Both truncate to 0; tested on the doubles, which may lie beyond the range of an int.
    if (std::trunc(last) == 0.0 && std::trunc(step) == 0.0) {
        last = first;
        step = 1.0;
    }
    if (step == 0.0 && first == last) step = 1.0;
    if (first != last && step == 0.0) {
        Message(3501, showDialog, 0, 0.0, nullptr);
        return -2;
    }
    if ((last < first && step > 0.0) || (first < last && step < 0.0)) {
        Message(3500, showDialog, 0, 0.0, nullptr);
        return -2;
    }
    if ((step > 1.0 && last - first < step) || (step < 0.0 && step < last - first)) {
        Message(2200, showDialog, 0, 0.0, nullptr);
        return -1;
    }
    return 0;
}

bool CStructureCmd::LessOrEqual(int i, const double* range) {
    if (!range) return false;
    const double last = range[1];
    const double step = range[2];
    if (step > 0.0) return i <= last;
    if (step < 0.0) return i >= last;
    return false;
}

// ------------------------------------------------------------------------- diagnostics

std::string CStructureCmd::MessageWords(int number, int n, double x,
                                        const std::string* text) const {
    return ComposeMessage(number, n, x, text, m_language);
}

int CStructureCmd::Message(int number, int showDialog, int n, double x, const std::string* text) {
    const int severity = MessageSeverity(number);
    if (severity == 3) {
        ++m_errCount;
        ++m_totalErrors;
    } else {
        ++m_warnCount;
        ++m_totalWarnings;
    }
    const std::string words =
        std::string(MessageHeader(severity)) + MessageWords(number, n, x, text);
    const std::string line = m_line.substr(0, m_line.find('\r'));
    if (m_logText) *m_logText += line + words + "\r\n";
    std::string full = words + "'" + line + "'\r\n\r\n";
    const int shown = m_warnCount + m_errCount;
    if (shown == m_maxDialogs && showDialog)
        full += "\r\n\r\nFlere feilmeldinger vil ikke bli vist!\r\nSe errorfil for etterfølgende "
                "feilmeldinger!\r\n";
    if (shown <= m_maxDialogs && showDialog) {
        const MsgKind kind = severity == 1   ? MsgKind::Note
                             : severity == 2 ? MsgKind::Warning
                                             : MsgKind::Error;
        m_structure->GetMessageSink().Show(kind, full);
    }
    m_structure->AddErrMessage(full);
    return 0;
}

void CStructureCmd::Log(const std::string& text) {
    if (m_logText) *m_logText += text;
}

// ------------------------------------------------------------------------- values

int CStructureCmd::GetNumber(const std::string& token, double& result) const {
    return kelo::GetNumber(token, result, m_aliases);
}

int CStructureCmd::IsDefCommand(const std::string& line) const {
    const std::size_t eq = line.find('=');
    if (eq == std::string::npos) return 0;
    if (line.find('"') != std::string::npos) return 0;
    return line.find_first_of("!%\r\n") > eq ? 1 : 0;
}

int CStructureCmd::DefValue(const std::string& line, double& value, std::string& name,
                            int showDialog) {
    const std::size_t eq = line.find('=');
    name = Trim(line.substr(0, eq));
    if (name.find_first_of(" \t") != std::string::npos) {
        Message(2003, showDialog, 0, 0.0, &name);
        return -1;
    }
    std::string valueText = line.substr(eq + 1);
    const std::size_t valueEnd = valueText.find_first_of("!%\r\n");
    if (valueEnd != std::string::npos) valueText.resize(valueEnd);
    if (!GetNumber(valueText, value)) {
        Message(3006, showDialog, 0, 0.0, &valueText);
        return -2;
    }
    return 0;
}

int CStructureCmd::Def(std::string& line, int showDialog) {
    double value = 0.0;
    std::string name;
    const int r = DefValue(line, value, name, showDialog);
    if (r != 0) return r;
    if (m_aliases.IsReservedAlias(name)) {
        Message(2004, showDialog, 0, 0.0, &name);
        return -1;
    }
    m_aliases.AddUserAlias(value, name);
    AddChange(901, nullptr, 5);
    return 0;
}

void CStructureCmd::AddChange(int code, const double* numbers, int action) {
    // A change is noted only for a project kept in a project store.
    if (!m_structure || !m_structure->GetDatabasePtr() || m_noAddChanges) return;
    auto id = std::make_unique<CId>(code, action);
    id->SetNo(1, m_structure->GetNo());
    if (numbers) {
        const int count = code == 301 ? 1 : code == 306 ? 2 : 5;
        for (int i = 0; i < count; ++i) id->SetNo(i + 2, numbers[i]);
    }
    id->SetActiveApp(m_structure->ActiveApp());
    m_structure->AddChange(m_structure->ActiveApp(), std::move(id));
    m_structure->SetBaseBusy(0, m_structure->ActiveApp(), 1, 1);
}

void CStructureCmd::MakeUserAliasListing(std::string& text) const {
    for (const auto& [name, value] : m_aliases.GetUserAliases())
        text += Format("%s=%.15g\r\n", name.c_str(), value);
}

int CStructureCmd::IsHelpCommand(const std::string& line) {
    const std::size_t q = line.find('?');
    return q != std::string::npos && line.find_first_of("!%\r\n") > q ? 1 : 0;
}

int CStructureCmd::Help(int) {
    m_structure->GetMessageSink().Show(
        MsgKind::Note, "POLY, RFL, PRO, ID, CLOSED, TYPE\r\n      (0)  (0)  (1) (1)     (1)");
    return 0;
}

// ------------------------------------------------------------------------- reader commands

int CStructureCmd::Input(std::string& rest, int showDialog) {
    double values[3] = {0.0, 0.0, 0.0};
    std::string text;
    if (CommandValues(rest, values, 2, text, showDialog) < 0) return -2;
    if (text.empty()) return 0;
    const std::string path = ResolvePath(CurrentFile(), Trim(text));
    if (static_cast<int>(m_fileStack.size()) >= kMaxInputDepth) {
        const std::string why = path + (m_language == 1 ? " (INPUT nestet dypere enn 64 filer)"
                                                        : " (INPUT nested deeper than 64 files)");
        Message(3354, showDialog, 0, 0.0, &why);
        return 0;
    }
    CTextReader file;
    if (!file.Open(path)) {
        Message(3354, showDialog, 0, 0.0, &path);
        return 0;
    }
    if (FieldInt(values[0]) == 1) {
        std::string all = "ALL\r\n";
        Clear(all, showDialog);
    }
    m_noRecord = FieldInt(values[1]);
    m_fileStack.push_back(path);
    std::string line;
    int result = 0;
    while (file.ReadLineCrLf(line)) {
        if (Command(line, m_logText, showDialog, 1) == -3) {
            result = -3;
            break;
        }
    }
    m_fileStack.pop_back();
    if (result == -3) m_noRecord = 0;
    return 0;
}

int CStructureCmd::ClearDataCheck(double* values, int showDialog) {
    if (m_checkLevel < 1) return 0;
    const int what = FieldInt(values[0]);
    if (what != -1 && what != 1) {
        Message(2102, showDialog, what, values[0], nullptr);
        return -2;
    }
    return 0;
}

int CStructureCmd::Clear(std::string& rest, int showDialog) {
    double values[2] = {-1.0, 0.0};
    std::string text;
    if (CommandValues(rest, values, 1, text, showDialog) < 0) return -2;
    if (DataCheck(100, values, showDialog) < -1) return -2;
    if (FieldInt(values[0]) == -1) {
        m_structure->DeleteAllObjects(1);
        m_structure->DeleteAllResults(1);
        m_structure->EmptyASCIICommandList();
        m_structure->CreateDefaultContents(m_language, 1);
    } else {
        m_structure->DeleteAllResults(1);
    }
    m_aliases.EmptyUserAlias();
    return 0;
}

int CStructureCmd::If(std::string& rest, int showDialog) {
    double v[4] = {0.0, 1.0, 0.0, 0.0};
    std::string text;
    if (CommandValues(rest, v, 3, text, showDialog) < 0) return -2;
    if (m_ifLevel >= 49) return -2;
    ++m_ifLevel;
    const int op = FieldInt(v[1]);
    const double a = v[0], b = v[2];
    bool holds = false;
    switch (op) {
    case 1:
        holds = a == b;
        break;
    case 2:
        holds = a < b;
        break;
    case 3:
        holds = a > b;
        break;
    case 4:
        holds = a <= b;
        break;
    case 5:
        holds = a >= b;
        break;
    case 6:
        holds = a != b;
        break;
    default:
        --m_ifLevel;
        return 0;
    }
    m_ifState[static_cast<std::size_t>(m_ifLevel)] = holds ? 1 : 0;
    return 0;
}

int CStructureCmd::Elseif(std::string& rest, int showDialog) {
    if (m_ifLevel < 0) return -2;
    int& state = m_ifState[static_cast<std::size_t>(m_ifLevel)];
    if (state == 1) {
        state = 2;
        return 0;
    }
    double v[4] = {0.0, 1.0, 0.0, 0.0};
    std::string text;
    if (CommandValues(rest, v, 3, text, showDialog) < 0) return -2;
    const double a = v[0], b = v[2];
    // The order operators read the other way round here than in IF; files depend on it.
    switch (FieldInt(v[1])) {
    case 1:
        state = a == b ? 1 : state;
        break;
    case 2:
        state = a > b ? 1 : state;
        break;
    case 3:
        state = a < b ? 1 : state;
        break;
    case 4:
        state = a >= b ? 1 : state;
        break;
    case 5:
        state = a <= b ? 1 : state;
        break;
    case 6:
        state = a != b ? 1 : state;
        break;
    default:
        break;
    }
    return 0;
}

int CStructureCmd::Else(std::string&, int) {
    if (m_ifLevel < 0) return -2;
    int& state = m_ifState[static_cast<std::size_t>(m_ifLevel)];
    if (state < 0) return -2;
    state = state == 0 ? 1 : 0;
    return 0;
}

int CStructureCmd::Endif(std::string&, int) {
    if (m_ifLevel < 0) return -2;
    if (m_ifState[static_cast<std::size_t>(m_ifLevel)] < 0) return -2;
    m_ifState[static_cast<std::size_t>(m_ifLevel)] = -1;
    --m_ifLevel;
    return 0;
}

int CStructureCmd::Do(std::string& rest, int showDialog) {
    const std::size_t cut = rest.find_first_of(" ,\t\r\n");
    const std::string name = rest.substr(0, cut);
    const std::string values = cut == std::string::npos ? std::string() : rest.substr(cut);
    double v[4] = {0.0, 1.0, 1.0, 0.0};
    std::string text;
    if (CommandValues(values + "\r\n", v, 3, text, showDialog) < 0) return -2;
    if (m_doDepth >= 49) return -2;
    ++m_doDepth;
    m_doFirst = v[0];
    m_doLast = v[1];
    m_doStep = v[2];
    m_doValue = v[0];
    m_doVariable = name;
    m_doBody.clear();
    m_aliases.AddTempAlias(m_doFirst, m_doVariable);
    return 0;
}

int CStructureCmd::Enddo(std::string&, int showDialog) {
    std::string* log = m_logText;
    double value = m_doValue;
    const double last = m_doLast;
    const double step = m_doStep;
    const std::string name = m_doVariable;
    std::string body = m_doBody;
    m_doFirst = m_doLast = m_doStep = m_doValue = -1.0;
    m_doVariable.clear();
    m_doBody.clear();
    m_doDepth = -1;
    // A loop that does not advance would never end.
    if (step <= 0.0 && value <= last) {
        Message(3501, showDialog, 0, step, nullptr);
        return -2;
    }
    if (m_replayDepth == 0) m_roundsLeft = m_maxLoopRounds;
    ++m_replayDepth;
    int result = 0;
    while (value <= last) {
        if (m_roundsLeft <= 0) {
            ReaderMessage(
                3,
                Format("DO %s stopped: more than %ld loop rounds!", name.c_str(), m_maxLoopRounds),
                Format("DO %s stoppet: mer enn %ld runder i løkker!", name.c_str(),
                       m_maxLoopRounds));
            result = -2;
            break;
        }
        --m_roundsLeft;
        m_aliases.AddTempAlias(value, name);
        // The body's messages go to the log of the line that closed the loop, so that a user
        // sees the faults of a loop where he sees all others.
        CommandConvert(&body, log, showDialog);
        value += step;
    }
    --m_replayDepth;
    return result;
}

} // namespace kelo
