#pragma once

#include "platform/TextFile.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/wait.h>

namespace kelo::e2e {

// The result of one `kelo run`: its exit status, what it printed and the error file it left.
struct RunResult {
    int status = -1;
    std::string out;
    std::string err;
};

inline std::string SourcePath(const std::string& relative) {
    return std::string(KELO_SOURCE_DIR) + "/" + relative;
}

// Copies `source` into the test's working directory under `name` and runs kelo on the copy, so
// that the error file and listings land beside the copy and not in the source tree.
inline RunResult RunKelo(const std::string& source, const std::string& name,
                         const std::string& options = "") {
    std::string text;
    ReadWholeFile(source, text);
    {
        CTextWriter w;
        w.Open(name, false);
        w.Write(text);
    }
    const std::string outFile = name + ".stdout";
    const std::string cmd = std::string(KELO_BINARY) + " run " + name + " " + options +
                            " --quiet > " + outFile + " 2>/dev/null";
    RunResult r;
    const int raw = std::system(cmd.c_str());
    r.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    ReadWholeFile(outFile, r.out);
    ReadWholeFile(StemOf(name) + ".err", r.err);
    std::remove(outFile.c_str());
    return r;
}

inline int Count(const std::string& text, const std::string& what) {
    int n = 0;
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
    return n;
}

} // namespace kelo::e2e
