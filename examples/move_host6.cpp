// Moves a host of a DHCPv6 configuration file to another subnet and gives it an address there.
//
//     move_host6 FILE HOST 2001:db8:20:1::/64 2001:db8:20:2::/64 2001:db8:20:2::17
//
// The host keeps its statements that the library knows; they are the ones that a record holds.
#include <klepur/klepur.h>

#include <cstdlib>
#include <iostream>
#include <string>

using Section = Dhcpv6ConfigFile::Dhcpv6Section;

namespace {

void Print(const Section& section) {
  for (const Section::SectionParam& param : section.params) {
    std::cout << "  " << (param.commented ? "#" : "") << param.value << "\n";
  }
}

/// Makes a subnet current, wherever in the file it is.
bool GotoSubnet(Dhcpv6ConfigFile& file, const std::string& prefix) {
  return file.GotoSection(nullptr, Section::SECTION_GLOBAL) &&
         file.GotoSection(prefix.c_str(), Section::SECTION_SUBNET);
}

void SetAddress(Section& host, const std::string& ip) {
  for (Section::SectionParam& param : host.params) {
    if (param.type == Section::PARAM6_FIXED_ADDRESS) {
      param.value = ip;
      return;
    }
  }
  host.params.push_back({false, Section::PARAM6_FIXED_ADDRESS, ip});
}

int Fail(const std::string& message) {
  std::cerr << "move_host6: " << message << "\n";
  return EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 6) return Fail("usage: move_host6 FILE HOST FROM TO IP");
  const std::string name = argv[2];
  const std::string from = argv[3];
  const std::string to = argv[4];

  Dhcpv6ConfigFile file(argv[1]);
  if (!file.Open()) return Fail(std::string("cannot read ") + argv[1] + ", see the system log");
  if (!GotoSubnet(file, from)) return Fail("there is no subnet " + from);
  Section host;
  if (!file.GetSectionByName(host, name.c_str())) return Fail(from + " has no host " + name);
  std::cout << "In subnet " << from << ":\n";
  Print(host);
  if (!file.RemoveSection(host)) return Fail("cannot remove host " + name);

  SetAddress(host, argv[5]);
  if (!GotoSubnet(file, to)) return Fail("there is no subnet " + to);
  if (!file.AddSection(host)) return Fail(to + " has a host " + name + " already");
  std::cout << "In subnet " << to << ":\n";
  Print(host);
  if (!file.Save("")) return Fail(std::string("cannot write ") + argv[1]);
  return EXIT_SUCCESS;
}
