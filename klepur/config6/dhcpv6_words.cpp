#include <klepur/config/value_scan.h>
#include <klepur/config6/dhcpv6_words.h>

namespace klepur::internal {

using Words = FamilyWords<Dhcpv6Vocabulary>;

const char* Words::ServerListStart(const char* line) {
  return FirstOf(line, ' ');
}

std::string Words::SubnetName(const std::string& header) {
  std::string name;
  TextBehindFirstBlank(header, name);
  return name;
}

bool Words::MakeSubnetHeader(const std::string& name, std::string& header) {
  header.assign(PrefixOf(kBlocks, Types::SECTION_SUBNET)).append(name);
  return true;
}

}  // namespace klepur::internal
