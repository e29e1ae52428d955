#include "geometry/KeySection.h"

#include <utility>

namespace kelo {

CKeySection::CKeySection(int no, std::string name, double stationNo)
    : No(no), Name(std::move(name)), StationNo(stationNo) {}

} // namespace kelo
