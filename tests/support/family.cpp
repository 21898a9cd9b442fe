#include "tests/support/family.h"

namespace klepur::test {

std::string Replace(std::string text,
                    const std::vector<std::pair<std::string_view, std::string_view>>& words) {
  for (const auto& [placeholder, word] : words) {
    std::size_t at = 0;
    while ((at = text.find(placeholder, at)) != std::string::npos) {
      text.replace(at, placeholder.size(), word);
      at += word.size();
    }
  }
  return text;
}

std::string V4::Text(std::string_view text) {
  return Replace(std::string(text), {{"@header1", "subnet 10.0.1.0 netmask 255.255.255.0"},
                                     {"@header2", "subnet 10.0.2.0 netmask 255.255.255.0"},
                                     {"@header3", "subnet 10.0.3.0 netmask 255.255.255.0"},
                                     {"@bare1", "10.0.1.0 netmask 255.255.255.0"},
                                     {"@bare2", "10.0.2.0 netmask 255.255.255.0"},
                                     {"@bare3", "10.0.3.0 netmask 255.255.255.0"},
                                     {"@name1", "10.0.1.0:255.255.255.0"},
                                     {"@name2", "10.0.2.0:255.255.255.0"},
                                     {"@name3", "10.0.3.0:255.255.255.0"},
                                     {"@ip1", "10.0.0.1"},
                                     {"@ip2", "10.0.0.2"},
                                     {"@ip3", "10.0.0.3"},
                                     {"@subnet", "subnet"},
                                     {"@range", "range"},
                                     {"@fixed", "fixed-address"},
                                     {"@fqdn", "option host-name"}});
}

std::string V6::Text(std::string_view text) {
  return Replace(std::string(text), {{"@header1", "subnet6 2001:db8:1::/64"},
                                     {"@header2", "subnet6 2001:db8:2::/64"},
                                     {"@header3", "subnet6 2001:db8:3::/64"},
                                     {"@bare1", "2001:db8:1::/64"},
                                     {"@bare2", "2001:db8:2::/64"},
                                     {"@bare3", "2001:db8:3::/64"},
                                     {"@name1", "2001:db8:1::/64"},
                                     {"@name2", "2001:db8:2::/64"},
                                     {"@name3", "2001:db8:3::/64"},
                                     {"@ip1", "2001:db8::1"},
                                     {"@ip2", "2001:db8::2"},
                                     {"@ip3", "2001:db8::3"},
                                     {"@subnet", "subnet6"},
                                     {"@range", "range6"},
                                     {"@fixed", "fixed-address6"},
                                     {"@fqdn", "option dhcp6.fqdn"}});
}

}  // namespace klepur::test
