// kelo: reads a command file into a new project in batch mode and prints the log.

#include "command/StructureCmd.h"
#include "model/Structure.h"
#include "platform/Sinks.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

#include <cstdio>
#include <cstring>
#include <exception>
#include <string>

namespace {

constexpr const char* kVersion = "0.1.0";

const char* const kUsage =
    "usage: kelo run FILE [--language en|no] [--app frame|design] [--code N] [--steel-code N] "
    "[--quiet]\n"
    "       kelo --help | --version\n";

// Progress of long runs goes to stderr so that stdout carries the log alone.
class StderrProgress final : public kelo::ProgressSink {
public:
    void SetText(const std::string& text) override { std::fprintf(stderr, "%s\n", text.c_str()); }
    void SetPos(int) override {}
};

struct Options {
    std::string file;
    int language = 2;
    int app = 2;
    int code = 105;
    int steelCode = 202;
    bool quiet = false;
};

bool ParseInt(const char* s, int& out) {
    char* end = nullptr;
    const long v = std::strtol(s, &end, 10);
    if (!end || *end != '\0') return false;
    out = static_cast<int>(v);
    return true;
}

// 0 parsed, 1 help or version printed, 2 usage error.
int ParseArgs(int argc, char** argv, Options& o) {
    if (argc < 2) return 2;
    const std::string cmd = argv[1];
    if (cmd == "--help" || cmd == "-h") {
        std::fputs(kUsage, stdout);
        return 1;
    }
    if (cmd == "--version") {
        std::printf("kelo %s\n", kVersion);
        return 1;
    }
    if (cmd != "run") return 2;
    for (int i = 2; i < argc; ++i) {
        const std::string a = argv[i];
        const bool hasValue = i + 1 < argc;
        if (a == "--quiet") {
            o.quiet = true;
        } else if (a == "--language" && hasValue) {
            const std::string v = argv[++i];
            if (v == "en")
                o.language = 2;
            else if (v == "no")
                o.language = 1;
            else
                return 2;
        } else if (a == "--app" && hasValue) {
            const std::string v = argv[++i];
            if (v == "frame")
                o.app = 2;
            else if (v == "design")
                o.app = 1;
            else
                return 2;
        } else if (a == "--code" && hasValue) {
            if (!ParseInt(argv[++i], o.code) || o.code < 101 || o.code > 106) return 2;
        } else if (a == "--steel-code" && hasValue) {
            if (!ParseInt(argv[++i], o.steelCode) || (o.steelCode != 201 && o.steelCode != 202))
                return 2;
        } else if (!a.empty() && a[0] != '-' && o.file.empty()) {
            o.file = a;
        } else {
            return 2;
        }
    }
    return o.file.empty() ? 2 : 0;
}

int Run(const Options& o) {
    kelo::CTextReader probe;
    if (!probe.Open(o.file)) {
        std::fprintf(stderr, "kelo: cannot read %s\n", o.file.c_str());
        return 2;
    }
    probe.Close();

    kelo::CStructure structure(o.app);
    StderrProgress progress;
    if (!o.quiet) structure.SetProgressSink(&progress);
    structure.SetConcrCode(o.code);
    structure.SetSteelCode(o.steelCode);
    structure.GetStructureCmd()->SetLanguage(o.language);
    structure.CreateDefaultContents(o.language, 0);
    structure.SetDocumentPath(o.file);
    structure.OpenErrFile(1);

    std::string log;
    const int result = structure.ReadCommandFile(o.file, &log, 0);
    std::fwrite(log.data(), 1, log.size(), stdout);
    std::fflush(stdout);
    if (!o.quiet) std::fprintf(stderr, "kelo: %s read\n", o.file.c_str());

    const bool failedRun = log.find("Status: Failed!! ") != std::string::npos;
    const bool errors = structure.GetStructureCmd()->GetTotalErrors() > 0;
    if (result == -1) return 2;
    return errors || failedRun ? 1 : 0;
}

} // namespace

int main(int argc, char** argv) {
    Options options;
    const int parsed = ParseArgs(argc, argv, options);
    if (parsed == 1) return 0;
    if (parsed == 2) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    try {
        return Run(options);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "kelo: internal error: %s\n", e.what());
        return 2;
    }
}
