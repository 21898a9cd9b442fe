#include <klepur/config/config_file_impl.h>
#include <klepur/config/value_scan.h>
#include <klepur/config6/dhcpv6_config_file.h>
#include <klepur/config6/dhcpv6_words.h>

namespace klepur {
template struct SectionRecord<Dhcpv6Vocabulary>;
template class ConfigFile<Dhcpv6Vocabulary>;
}  // namespace klepur

Dhcpv6ConfigFile::~Dhcpv6ConfigFile() = default;

const char* Dhcpv6ConfigFile::GetFirstChar(const char* s, const char* stopChar) {
  return stopChar == nullptr ? klepur::internal::FirstLetter(s)
                             : klepur::internal::FirstOf(s, stopChar[0]);
}
