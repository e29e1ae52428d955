#pragma once

#include <string>

namespace kelo {

class CStructureCmd;

// The handlers of the frame model commands: nodes, elements, supports, joints, element properties,
// masses, models, members and selections. Made by the interpreter, to which it hands its handlers
// and checks.
class CFrameCmd {
public:
    explicit CFrameCmd(CStructureCmd& cmd);
    CFrameCmd(const CFrameCmd&) = delete;
    CFrameCmd& operator=(const CFrameCmd&) = delete;

private:
    [[maybe_unused]] CStructureCmd& m_cmd;
};

} // namespace kelo
