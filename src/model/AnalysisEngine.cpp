#include "model/AnalysisEngine.h"

namespace kelo {

const char* AnalysisStageName(EAnalysisStage stage) {
    switch (stage) {
    case EAnalysisStage::ElementProperties:
        return "CalcElementSectParam";
    case EAnalysisStage::ModelCheck:
        return "IsModelComplete";
    case EAnalysisStage::SystemAnalysis:
        return "RunSystemAnalysis";
    case EAnalysisStage::ReactionForces:
        return "CalcReactionForces";
    case EAnalysisStage::SectionForces:
        return "CalcSectionForces";
    case EAnalysisStage::TrafLineLoads:
        return "MakeTrafLineLoads";
    case EAnalysisStage::TrafSectForces:
        return "CalcTrafSectForces";
    case EAnalysisStage::CreepPreparation:
        return "PrepareCreepAnalysis";
    case EAnalysisStage::WindAnalysis:
        return "WindAnalysis";
    case EAnalysisStage::EarthquakeAnalysis:
        return "EarthquakeAnalysis";
    case EAnalysisStage::BucklingAnalysis:
        return "BRunSystemAnalysis";
    case EAnalysisStage::OrdCombinations:
        return "ProsessOrdCombinations";
    case EAnalysisStage::SortCombinations:
        return "ProsessSortCombinations";
    case EAnalysisStage::SortLineCombinations:
        return "ProsessSortLineCombinations";
    }
    return "";
}

} // namespace kelo
