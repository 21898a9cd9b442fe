#include <klepur/config/config_file_impl.h>
#include <klepur/config/value_scan.h>
#include <klepur/config4/dhcp_config_file.h>
#include <klepur/config4/dhcp_words.h>
#include <klepur/config4/netmask.h>

namespace klepur {
template struct SectionRecord<DhcpVocabulary>;
template class ConfigFile<DhcpVocabulary>;
}  // namespace klepur

DhcpConfigFile::~DhcpConfigFile() = default;

const char* DhcpConfigFile::GetFirstChar(const char* s) {
  return klepur::internal::FirstLetter(s);
}

std::string DhcpConfigFile::GetNetmaskBySubnet(const char* subnet) {
  return subnet == nullptr ? std::string() : klepur::internal::NetmaskOf(subnet);
}
