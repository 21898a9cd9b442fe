#include "benchmarks/operations.h"

#include <string>
#include <utility>

#include "benchmarks/inputs.h"

namespace {

using Record = DhcpConfigFile::DhcpSection;
using Record6 = Dhcpv6ConfigFile::Dhcpv6Section;

template <class AnyRecord>
AnyRecord Named(typename AnyRecord::SectionType type, std::string name) {
  AnyRecord record;
  record.type = type;
  record.params = {{false, 0, std::move(name)}};
  return record;
}

Record NamedHost(std::size_t number) {
  return Named<Record>(Record::SECTION_HOST, HostName(number));
}

Record6 NamedSubnet(std::size_t number) {
  return Named<Record6>(Record6::SECTION_SUBNET, Prefix(number));
}

Record WholeHost(std::size_t number) {
  Record host = NamedHost(number);
  host.params.push_back({false, Record::PARAM_HARDWARE_ETHERNET, MacAddress(number)});
  host.params.push_back({false, Record::PARAM_FIXED_ADDRESS, Address(number)});
  host.params.push_back({false, Record::PARAM_HOST_NAME, HostName(number)});
  return host;
}

template <class AnyRecord>
bool IsNamed(const AnyRecord& record, const std::string& name) {
  return !record.params.empty() && record.params.front().value == name;
}

}  // namespace

bool FindByMacAddress(DhcpConfigFile& file, std::size_t number) {
  Record found;
  return file.GetHostByMACAddress(MacAddress(number).c_str(), found, false) &&
         IsNamed(found, HostName(number));
}

bool FindByAddress(DhcpConfigFile& file, std::size_t number) {
  Record found;
  return file.GetHostByIp(Address(number).c_str(), found, false) &&
         IsNamed(found, HostName(number));
}

bool FindByHostName(DhcpConfigFile& file, std::size_t number) {
  Record found;
  return file.GetHostByName(HostName(number).c_str(), found, false) &&
         IsNamed(found, HostName(number));
}

bool GoToHost(DhcpConfigFile& file, std::size_t number) {
  return file.GotoSection(HostName(number).c_str(), Record::SECTION_HOST);
}

bool FetchHost(DhcpConfigFile& file, std::size_t number) {
  Record found;
  return file.GetSectionByName(found, HostName(number).c_str()) && IsNamed(found, HostName(number));
}

bool WalkToHost(DhcpConfigFile& file, std::size_t number) {
  Record found;
  const bool exists = number == 0 ? file.GetFirstSection(found, false)
                                  : file.GetNextSection(NamedHost(number - 1), found, false);
  return exists && IsNamed(found, HostName(number));
}

bool AddHost(DhcpConfigFile& file, std::size_t number) {
  return file.AddSection(WholeHost(number)) == 1;
}

bool AddHostTwice(DhcpConfigFile& file, std::size_t number) {
  return file.AddSection(WholeHost(number)) == 0;
}

bool RemoveHost(DhcpConfigFile& file, std::size_t number) {
  return file.RemoveSection(NamedHost(number)) == 1;
}

bool ChangeHost(DhcpConfigFile& file, std::size_t number) {
  Record host = NamedHost(number);
  host.params.push_back({false, Record::PARAM_FIXED_ADDRESS, "1" + Address(number)});
  return file.ChangeSection(host, nullptr) == 1;
}

bool Provide(DhcpConfigFile& file, std::size_t number) {
  Record found;
  const bool known = file.GetHostByMACAddress(MacAddress(number).c_str(), found, false);
  if (known != IsInHalf(number)) return false;
  return known ? IsNamed(found, HostName(number)) : AddHost(file, number);
}

bool GoToSubnet(Dhcpv6ConfigFile& file, std::size_t number) {
  return file.GotoSection(Prefix(number).c_str(), Record6::SECTION_SUBNET);
}

bool FetchSubnet(Dhcpv6ConfigFile& file, std::size_t number) {
  Record6 found;
  found.type = Record6::SECTION_SUBNET;
  return file.GetSectionByName(found, Prefix(number).c_str()) && IsNamed(found, Prefix(number));
}

bool AddSubnet(Dhcpv6ConfigFile& file, std::size_t number) {
  Record6 subnet = NamedSubnet(number);
  subnet.params.push_back({false, Record6::PARAM6_DEFAULT_LEASE_TIME, "600"});
  return file.AddSection(subnet) == 1;
}

bool RemoveSubnet(Dhcpv6ConfigFile& file, std::size_t number) {
  return file.RemoveSection(NamedSubnet(number)) == 1;
}

bool ChangeSubnet(Dhcpv6ConfigFile& file, std::size_t number) {
  Record6 subnet = NamedSubnet(number);
  subnet.params.push_back({false, Record6::PARAM6_DEFAULT_LEASE_TIME, "1200"});
  return GoToSubnet(file, number) && file.ChangeSection(subnet, nullptr) == 1;
}

bool AddHostToItsSubnet(Dhcpv6ConfigFile& file, std::size_t number) {
  auto host = Named<Record6>(Record6::SECTION_HOST, "new-" + HostName(number));
  host.params.push_back({false, Record6::PARAM6_HARDWARE_ETHERNET, MacAddress(number)});
  return GoToSubnet(file, number) && file.AddSection(host) == 1;
}

bool RemoveHostFromItsSubnet(Dhcpv6ConfigFile& file, std::size_t number) {
  return GoToSubnet(file, number) &&
         file.RemoveSection(Named<Record6>(Record6::SECTION_HOST, HostName(number))) == 1;
}

bool ChangeHostOfItsSubnet(Dhcpv6ConfigFile& file, std::size_t number) {
  auto host = Named<Record6>(Record6::SECTION_HOST, HostName(number));
  host.params.push_back({false, Record6::PARAM6_FIXED_ADDRESS, Address6(number) + "1"});
  return GoToSubnet(file, number) && file.ChangeSection(host, nullptr) == 1;
}
