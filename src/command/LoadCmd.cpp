#include "command/LoadCmd.h"

#include "command/StructureCmd.h"

namespace kelo {

CLoadCmd::CLoadCmd(CStructureCmd& cmd) : m_cmd(cmd) {}

} // namespace kelo
