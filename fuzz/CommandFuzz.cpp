// libFuzzer target: any text fed to the command reader must neither crash nor hang it.

#include "command/StructureCmd.h"
#include "model/Structure.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A new project for each input, as a new run of the program makes it, so that an input's
    // outcome does not hang on what earlier inputs left open (a DO still gathering its body
    // would take in every later input) and every finding replays by itself.
    kelo::CStructure structure(2);
    structure.CreateDefaultContents(2, 0);
    // Loops are bounded far lower than in real use, so that each input runs in moments.
    structure.GetStructureCmd()->SetMaxLoopRounds(100);
    std::string text(reinterpret_cast<const char*>(data), size);
    std::string log;
    structure.CommandConvert(&text, &log, 0);
    // CLEAR is itself a command under test: it must leave a project that can be torn down.
    std::string clear = "CLEAR\n";
    structure.CommandConvert(&clear, &log, 0);
    return 0;
}
