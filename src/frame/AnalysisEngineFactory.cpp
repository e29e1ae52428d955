#include "frame/Frame.h"
#include "model/AnalysisEngine.h"

namespace kelo {

// The frame solver is the engine of every run of a new project.
AnalysisEngineFactory DefaultAnalysisEngineFactory() {
    return [](CAnalysisRun& run) -> std::unique_ptr<CAnalysisEngine> {
        return std::make_unique<CFrame>(run);
    };
}

} // namespace kelo
