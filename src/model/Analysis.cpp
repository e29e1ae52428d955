#include "model/Analysis.h"

#include <algorithm>

namespace kelo {

int CCalcGroup::GetNoOfModes() const {
    return LoadNoArray.empty() ? 0 : *std::max_element(LoadNoArray.begin(), LoadNoArray.end());
}

} // namespace kelo
