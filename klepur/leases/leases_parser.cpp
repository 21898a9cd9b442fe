#include <klepur/framework/section_holder.h>
#include <klepur/leases/duid.h>
#include <klepur/leases/lease_walk.h>
#include <klepur/leases/leases_parser.h>

#include <syslog.h>

#include <exception>

Dhcpv6LeasesParser::Dhcpv6LeasesParser() = default;

Dhcpv6LeasesParser::~Dhcpv6LeasesParser() = default;

std::string Dhcpv6LeasesParser::ParseDuid(const std::string& text) {
  return klepur::internal::DuidInHex(text.c_str());
}

void Dhcpv6LeasesParser::GetLeases(const char* path, std::list<_Dhcpv6LeaseStore>& leases) {
  try {
    CfSectionHolder tree;
    ParseFile(path, &tree);
    klepur::internal::TakeLeases(tree, leases);
  } catch (const std::exception& reason) {
    syslog(LOG_INFO, "%s", reason.what());
  }
}
