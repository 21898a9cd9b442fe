#include <klepur/parser/dhcp_parser.h>

#include <syslog.h>

DhcpParser::DhcpParser() noexcept : writeDepth(0), leftmostDepth(0) {
  openlog("dhcpparser", LOG_PID, LOG_USER);
}

DhcpParser::~DhcpParser() {
  CloseOutput();
  closelog();
}
