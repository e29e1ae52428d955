#pragma once

#include <string>

namespace kelo {

// Where the equation solver reports. The frame routes messages to its DisplayMessage, whose text
// is the resource string `id`, then "\r\n", then `extra`, and status texts to its status window.
class SolverSink {
public:
    virtual ~SolverSink() = default;
    // kind: 1 question, 2 info, 3 warning, 4 error.
    virtual void Message(int kind, int id, const std::string& extra) = 0;
    virtual void Status(const std::string& text) { (void)text; }
};

} // namespace kelo
