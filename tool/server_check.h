// What the DHCP server itself says of a file.
#ifndef KLEPUR_TOOL_SERVER_CHECK_H
#define KLEPUR_TOOL_SERVER_CHECK_H

#include <klepur/check/check_finding.h>
#include <klepur/document/document.h>

#include <string>
#include <vector>

namespace klepur::tool {

/// The findings of the server's own check of a text, of the rule "server".
///
/// \param server  "/usr/sbin/dhcpd"
/// \param name    the file in the findings.
/// Throws Problem(kFile) when it cannot be run.
std::vector<CheckFinding> AskServer(const std::string& server, const Document& document,
                                    const std::string& name);

}  // namespace klepur::tool

#endif
