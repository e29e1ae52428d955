// libFuzzer target: any text fed to the command reader must neither crash nor hang it.

#include "command/StructureCmd.h"
#include "model/Structure.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static kelo::CStructure* structure = [] {
        auto* s = new kelo::CStructure(2);
        s->CreateDefaultContents(2, 0);
        // Loops are bounded far lower than in real use, so that each input runs in moments.
        s->GetStructureCmd()->SetMaxLoopRounds(100);
        return s;
    }();
    std::string text(reinterpret_cast<const char*>(data), size);
    std::string log;
    structure->CommandConvert(&text, &log, 0);
    // Keep the project small between inputs; CLEAR is itself a command under test.
    std::string clear = "CLEAR\n";
    structure->CommandConvert(&clear, &log, 0);
    return 0;
}
