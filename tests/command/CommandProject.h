#pragma once

#include "command/StructureCmd.h"
#include "model/Structure.h"

#include <string>

namespace kelo::test {

// A new project with its default contents (sets number 1 of each kind, line 0 only), driven line
// by line as the command box of the applications does: nothing is recalculated until asked for.
struct CommandProject {
    explicit CommandProject(int language = 2) : s(2) {
        s.GetStructureCmd()->SetLanguage(language);
        s.CreateDefaultContents(language, 0);
    }
    // One command line; its result (0, -1, -2, -3).
    int Line(const std::string& text) {
        std::string l = text + "\r\n";
        return cmd().Command(l, &log, 0, 1);
    }
    // Several lines as a command file gives them.
    void Lines(const std::string& text) {
        std::string t = text;
        cmd().CommandConvert(&t, &log, 0);
    }
    CStructureCmd& cmd() { return *s.GetStructureCmd(); }
    CStructure s;
    std::string log;
};

} // namespace kelo::test
