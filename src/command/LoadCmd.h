#pragma once

#include <string>

namespace kelo {

class CStructureCmd;

// The handlers of the load, combination and analysis commands. Made by the interpreter, to which it
// hands its handlers and checks.
class CLoadCmd {
public:
    explicit CLoadCmd(CStructureCmd& cmd);
    CLoadCmd(const CLoadCmd&) = delete;
    CLoadCmd& operator=(const CLoadCmd&) = delete;

private:
    [[maybe_unused]] CStructureCmd& m_cmd;
};

} // namespace kelo
