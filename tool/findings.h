// How findings are printed.
#ifndef KLEPUR_TOOL_FINDINGS_H
#define KLEPUR_TOOL_FINDINGS_H

#include <klepur/check/check_finding.h>

#include <string>

#include <tool/output.h>
#include <tool/record.h>

namespace klepur::tool {

/// "dhcpd.conf:12:3: error: SENTENCE (also in line 4) [RULE]"
std::string LineOf(const CheckFinding& finding, const Output& output);

Record AsRecord(const CheckFinding& finding);

}  // namespace klepur::tool

#endif
