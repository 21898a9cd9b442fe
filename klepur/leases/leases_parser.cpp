#include <klepur/framework/section_holder.h>
#include <klepur/leases/duid.h>
#include <klepur/leases/lease_walk.h>
#include <klepur/leases/leases_parser.h>

#include <syslog.h>

#include <exception>
#include <typeinfo>

Dhcpv6LeasesParser::Dhcpv6LeasesParser() = default;

Dhcpv6LeasesParser::~Dhcpv6LeasesParser() = default;

std::string Dhcpv6LeasesParser::ParseDuid(const std::string& text) {
  return klepur::internal::DuidInHex(text.c_str());
}

void Dhcpv6LeasesParser::GetLeases(const char* path, std::list<_Dhcpv6LeaseStore>& leases) {
  try {
    CfSectionHolder tree;
    klepur::internal::LeaseExtraction extraction(tree, leases);
    AtBlockEnds::Act take = [&extraction](auto& block) { extraction.TakeEnded(block); };
    // A ParseFile of a derived class finds in the tree all that it has read.
    if (typeid(*this) != typeid(Dhcpv6LeasesParser)) take = nullptr;
    {
      const AtBlockEnds ends(*this, take);
      ParseFile(path, &tree);
    }
    extraction.Finish();
  } catch (const std::exception& reason) {
    syslog(LOG_INFO, "%s", reason.what());
  }
}
