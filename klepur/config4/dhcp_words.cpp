#include <klepur/config/value_scan.h>
#include <klepur/config4/dhcp_words.h>

namespace klepur::internal {
namespace {

constexpr std::string_view kNetmask = " netmask ";

}  // namespace

using Words = FamilyWords<DhcpVocabulary>;

const char* Words::ServerListStart(const char* line) {
  return FirstDigit(line);
}

std::string Words::SubnetName(const std::string& header) {
  const std::string mask = header.substr(header.rfind(' ') + 1);
  return SubnetAddress(header) + ":" + mask;
}

bool Words::MakeSubnetHeader(const std::string& name, std::string& header) {
  const std::size_t colon = name.find(':');
  if (colon == std::string::npos) return false;
  header = PrefixOf(kBlocks, Types::SECTION_SUBNET);
  header.append(name, 0, colon).append(kNetmask).append(name, colon + 1);
  return true;
}

}  // namespace klepur::internal
