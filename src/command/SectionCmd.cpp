#include "command/SectionCmd.h"

#include "command/StructureCmd.h"

namespace kelo {

CSectionCmd::CSectionCmd(CStructureCmd& cmd) : m_cmd(cmd) {}

} // namespace kelo
