// Dhcpv6ConfigFile: a DHCPv6 server's configuration file.
#ifndef KLEPUR_CONFIG6_DHCPV6_CONFIG_FILE_H
#define KLEPUR_CONFIG6_DHCPV6_CONFIG_FILE_H

#include <klepur/config/config_file.h>
#include <klepur/config6/dhcpv6_vocabulary.h>
#include <klepur/export.h>

namespace klepur {
extern template struct KLEPUR_EXPORT SectionRecord<Dhcpv6Vocabulary>;
extern template class KLEPUR_EXPORT ConfigFile<Dhcpv6Vocabulary>;
}  // namespace klepur

/// One DHCPv6 server configuration file. Every operation is described at klepur::ConfigFile, every
/// statement at klepur::Dhcpv6Vocabulary.
///
/// It differs from DhcpConfigFile in its statements and in its subnets: their keyword is "subnet6",
/// and their name is the prefix as it stands, "2001:db8:1::/64", in records and for GotoSection
/// alike. So AddSection refuses a second one of that name at its level, unless one that stands
/// elsewhere is found first, and makes the first one of that name current, which is the new one
/// unless a shared network has one too; and RemoveSection finds it.
///
///     Dhcpv6ConfigFile file("/etc/dhcp/dhcpd6.conf");
///     if (!file.Open()) return Failed("cannot read it, see the system log");
///     Dhcpv6ConfigFile::Dhcpv6Section subnet;
///     file.GotoSection(nullptr, subnet.SECTION_GLOBAL);  // add to the file, not to a network
///     subnet.type = subnet.SECTION_SUBNET;
///     subnet.params = {{false, subnet.PARAM6_NAME, "2001:db8:1::/64"},
///                      {false, subnet.PARAM6_RANGE, "2001:db8:1::100 2001:db8:1::200"}};
///     if (!file.AddSection(subnet)) return Failed("it is there already");
///     if (!file.Save("")) return Failed("cannot write it");
class KLEPUR_EXPORT Dhcpv6ConfigFile : public klepur::ConfigFile<klepur::Dhcpv6Vocabulary> {
 public:
  using Dhcpv6Section = Section;

  using ConfigFile::ConfigFile;
  ~Dhcpv6ConfigFile() override;

  /// The first character of `s` that equals the first one of `stopChar`; when that is null, the
  /// first letter, A to Z or a to z. Counts and fails as GetFirstDigit does.
  const char* GetFirstChar(const char* s, const char* stopChar);
};

#endif
