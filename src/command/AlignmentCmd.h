#pragma once

#include <string>

namespace kelo {

class CStructureCmd;

// The handlers of the reference line commands: lines, axes, plan and elevation segments,
// coordinates, columns and road profiles. Made by the interpreter, to which it hands its handlers
// and checks.
class CAlignmentCmd {
public:
    explicit CAlignmentCmd(CStructureCmd& cmd);
    CAlignmentCmd(const CAlignmentCmd&) = delete;
    CAlignmentCmd& operator=(const CAlignmentCmd&) = delete;

private:
    [[maybe_unused]] CStructureCmd& m_cmd;
};

} // namespace kelo
