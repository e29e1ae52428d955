#include "command/FrameCmd.h"

#include "command/StructureCmd.h"

namespace kelo {

CFrameCmd::CFrameCmd(CStructureCmd& cmd) : m_cmd(cmd) {}

} // namespace kelo
