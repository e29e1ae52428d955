#pragma once

#include "command/AliasTable.h"
#include "platform/TextFile.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace kelo {

class CStructure;
class CFrameCmd;
class CLoadCmd;
class CAlignmentCmd;
class CSectionCmd;
class CTendonCmd;

// A command value as an integer, truncated toward zero as a number field is. A value beyond the
// range of an int is held at ±INT_MAX, so that no number can overflow when it is negated or
// stepped, and one that is no number at all is 0.
int FieldInt(double v);

// The interpreter of command files. A text is fed to it a line at a time; each line is joined
// with its continuations, stripped of comments, dispatched by its keyword to a handler, and
// recorded in the project's command store under the order number of its kind.
//
// Results of commands: 0 done, -1 done with a warning or refused without harm, -2 error in this
// command, -3 stop reading.
class CStructureCmd {
public:
    using Handler = std::function<int(std::string& rest, int showDialog)>;
    using Check = std::function<int(double* values, int showDialog)>;

    CStructureCmd(CStructure* structure, int language);
    CStructureCmd(const CStructureCmd&) = delete;
    CStructureCmd& operator=(const CStructureCmd&) = delete;
    ~CStructureCmd();

    // ---- reading
    int ReadCommandFile(const std::string& fileName, std::string* log, int showDialog);
    int CommandConvert(std::string* text, std::string* log, int showDialog);
    int Command(std::string& line, std::string* log, int showDialog, int record);
    int CommandType(std::string& line, std::string& word) const;
    int GetCommandType(std::string line) const;
    int CommandValues(const std::string& line, double* values, int maxValues, std::string& text,
                      int showDialog);
    int AddAsNFCommand(int type, const std::string& word, const std::string& line);
    // The order number under which a command number is stored; 0 when it is not stored.
    static int OrderNumberOf(int type);
    // The keyword table: upper-case keyword to command number.
    const std::unordered_map<std::string, int>& GetCommandMap() const { return m_commands; }

    // A line with "?" before any comment or line end asks for help; the applications answer it.
    static int IsHelpCommand(const std::string& line);
    int Help(int topic);

    // ---- handlers of the command families
    void RegisterHandler(int type, Handler handler, Check check = nullptr);
    bool HasHandler(int type) const { return m_handlers.count(type) != 0; }
    int DataCheck(int type, double* values, int showDialog);
    // The range first, last, step at values[base]: fills defaults, refuses bad steps.
    int StepCheck(int base, double* values, int showDialog);
    static bool LessOrEqual(int i, const double* range);

    // ---- diagnostics
    int Message(int number, int showDialog, int n, double x, const std::string* text);
    // The words of a message in the interpreter's language, without header.
    std::string MessageWords(int number, int n, double x, const std::string* text) const;
    void ResetErrCount() {
        m_warnCount = 0;
        m_errCount = 0;
    }
    int GetWarnCount() const { return m_warnCount; }
    int GetErrCount() const { return m_errCount; }
    // Errors (messages 3000 and above) since the interpreter was made; never reset.
    int GetTotalErrors() const { return m_totalErrors; }
    int GetTotalWarnings() const { return m_totalWarnings; }
    // A message of the reader's own words (severity 2 warning, 3 error), for what has no number in
    // the table: a part of the language that this build does not carry out yet.
    void ReaderMessage(int severity, const std::string& english, const std::string& norwegian);
    // Appends a text to the log of the command being read, if it has one.
    void Log(const std::string& text);
    std::string* GetLogText() const { return m_logText; }

    // ---- values and aliases
    int GetNumber(const std::string& token, double& result) const;
    CAliasTable& GetAliases() { return m_aliases; }
    const CAliasTable& GetAliases() const { return m_aliases; }
    int IsDefCommand(const std::string& line) const;
    int DefValue(const std::string& line, double& value, std::string& name, int showDialog);
    int Def(std::string& line, int showDialog);
    // The user aliases as definition lines "NAME=value", in name order, as a listing or a
    // regenerated file shows them.
    void MakeUserAliasListing(std::string& text) const;

    // ---- change notes
    void AddChange(int code, const double* numbers, int action);
    void SetNoAddChanges(int v) { m_noAddChanges = v; }
    int GetNoAddChanges() const { return m_noAddChanges; }

    // ---- settings
    int GetLanguage() const { return m_language; }
    void SetLanguage(int language) { m_language = language; }
    int GetCheckLevel() const { return m_checkLevel; }
    void SetCheckLevel(int level) { m_checkLevel = level; }
    int GetNoRecord() const { return m_noRecord; }
    void SetNoRecord(int v) { m_noRecord = v; }
    int GetMaxDialogs() const { return m_maxDialogs; }
    void SetMaxDialogs(int n) { m_maxDialogs = n; }
    int GetFirstLoadFlags(int i) const { return i >= 0 && i < 5 ? m_firstLoadFlags[i] : 0; }
    void SetFirstLoadFlags(int i, int v) {
        if (i >= 0 && i < 5) m_firstLoadFlags[i] = v;
    }
    const std::string& GetLine() const { return m_line; }
    int GetIfLevel() const { return m_ifLevel; }
    int GetDoDepth() const { return m_doDepth; }
    CStructure* GetStructure() const { return m_structure; }
    // The file whose lines are being read now; relative paths in commands are taken from it.
    std::string CurrentFile() const {
        return m_fileStack.empty() ? std::string() : m_fileStack.back();
    }

    // How deep INPUT files may nest before the reader refuses: no real project comes near it,
    // and a file that includes itself ends here instead of exhausting the stack.
    static constexpr int kMaxInputDepth = 64;
    // How many rounds the DO loops started by one outermost ENDDO may run in all, nested loops
    // included: far beyond any real model, and an end to loops such as DO I 1 1E12.
    static constexpr long kMaxLoopRounds = 10000000;
    void SetMaxLoopRounds(long rounds) { m_maxLoopRounds = rounds; }

private:
    void InitCommands();
    void RegisterCoreHandlers();
    int Dispatch(int type, const std::string& word, std::string& rest, int showDialog);
    void RecalcDependencies();

    // The handlers of the reader's own commands.
    int Input(std::string& rest, int showDialog);
    int Clear(std::string& rest, int showDialog);
    int ClearDataCheck(double* values, int showDialog);
    int If(std::string& rest, int showDialog);
    int Elseif(std::string& rest, int showDialog);
    int Else(std::string& rest, int showDialog);
    int Endif(std::string& rest, int showDialog);
    int Do(std::string& rest, int showDialog);
    int Enddo(std::string& rest, int showDialog);

    CStructure* m_structure;
    std::string m_line;
    int m_language;
    int m_warnCount = 0;
    int m_errCount = 0;
    int m_totalErrors = 0;
    int m_totalWarnings = 0;
    int m_maxDialogs = 5;
    int m_checkLevel = 1;
    int m_noRecord = 0;
    std::string m_pendingLine;
    std::string* m_logText = nullptr;
    std::array<int, 5> m_firstLoadFlags{};
    std::array<int, 50> m_ifState;
    int m_ifLevel = -1;
    double m_doFirst = -1.0, m_doLast = -1.0, m_doStep = -1.0, m_doValue = -1.0;
    int m_doDepth = -1;
    std::string m_doVariable, m_doBody;
    int m_noAddChanges = 0;
    std::vector<std::string> m_fileStack;
    long m_maxLoopRounds = kMaxLoopRounds;
    long m_roundsLeft = 0;
    int m_replayDepth = 0;
    CAliasTable m_aliases;
    std::unordered_map<std::string, int> m_commands;
    std::unordered_map<int, Handler> m_handlers;
    std::unordered_map<int, Check> m_checks;
    // The command families; each registers its handlers when it is made.
    std::unique_ptr<CFrameCmd> m_frameCmd;
    std::unique_ptr<CLoadCmd> m_loadCmd;
    std::unique_ptr<CAlignmentCmd> m_alignmentCmd;
    std::unique_ptr<CSectionCmd> m_sectionCmd;
    std::unique_ptr<CTendonCmd> m_tendonCmd;
};

} // namespace kelo
