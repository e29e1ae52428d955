#include "geometry/Axis.h"

#include "platform/Text.h"

namespace kelo {

std::string CAxis::ConvertToASCII(int refLineNo) const {
    return Format("RFLAXIS, %d, %d, %5.3lf, \"%s\"\r\n", refLineNo, No, StationNo, Name.c_str());
}

} // namespace kelo
