#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

#include <string>

namespace kelo {

// The commands of one order number as typed, kept for display and regeneration.
class CCommandString : public CObject {
public:
    CCommandString() = default;
    CCommandString(int type, std::string text)
        : CommandType(type), CommandString(std::move(text)) {}

    int KeyNo() const { return CommandType; }

    KELO_FIELD(int, CommandType, 0)
    KELO_FIELD(std::string, CommandString, "")
};

} // namespace kelo
