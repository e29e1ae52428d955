#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

#include <string>

namespace kelo {

// A prestressing tendon; its path and forces are laid out along the elements it runs through.
class CTendon : public CObject {
public:
    CTendon() = default;
    CTendon(int no, std::string name) : No(no), Name(std::move(name)) {}
    int KeyNo() const { return No; }
    KELO_FIELD(int, No, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, Type, 0)
};

} // namespace kelo
