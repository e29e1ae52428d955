#include "command/AlignmentCmd.h"

#include "command/StructureCmd.h"

namespace kelo {

CAlignmentCmd::CAlignmentCmd(CStructureCmd& cmd) : m_cmd(cmd) {}

} // namespace kelo
