#pragma once

#include <string>

namespace kelo {

class CStructureCmd;

// The handlers of the material, design parameter and cross-section commands. Made by the
// interpreter, to which it hands its handlers and checks.
class CSectionCmd {
public:
    explicit CSectionCmd(CStructureCmd& cmd);
    CSectionCmd(const CSectionCmd&) = delete;
    CSectionCmd& operator=(const CSectionCmd&) = delete;

private:
    [[maybe_unused]] CStructureCmd& m_cmd;
};

} // namespace kelo
