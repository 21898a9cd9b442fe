// DhcpConfigFile: a DHCPv4 server's configuration file.
#ifndef KLEPUR_CONFIG4_DHCP_CONFIG_FILE_H
#define KLEPUR_CONFIG4_DHCP_CONFIG_FILE_H

#include <klepur/config/config_file.h>
#include <klepur/config4/dhcp_vocabulary.h>
#include <klepur/export.h>

#include <string>

namespace klepur {
extern template struct KLEPUR_EXPORT SectionRecord<DhcpVocabulary>;
extern template class KLEPUR_EXPORT ConfigFile<DhcpVocabulary>;
}  // namespace klepur

/// One DHCPv4 server configuration file. Every operation is described at klepur::ConfigFile, every
/// statement at klepur::DhcpVocabulary.
///
///     DhcpConfigFile file("/etc/dhcp/dhcpd.conf");
///     if (!file.Open()) return Failed("cannot read it, see the system log");
///     DhcpConfigFile::DhcpSection host;  // a new record is a SECTION_HOST
///     file.GotoSection(nullptr, host.SECTION_GLOBAL);  // look in the whole file, not in a network
///     if (!file.GotoSection("10.0.0.0 netmask 255.255.255.0", host.SECTION_SUBNET))
///       return Failed("no such subnet");
///     host.params = {{false, host.PARAM_NAME, "pc-17"},
///                    {false, host.PARAM_HARDWARE_ETHERNET, "00:11:22:33:44:55"},
///                    {false, host.PARAM_FIXED_ADDRESS, "10.0.0.17"}};
///     if (!file.AddSection(host)) return Failed("it is there already");
///     if (!file.Save("")) return Failed("cannot write it");
///
/// - **Lifecycle:** Open, Save, GetConfFileName
/// - **Walking:** GetFirstSection, GetNextSection, GotoSection, GetSectionByName
/// - **Lookup:** GetHostByName, GetHostByIp, GetHostByMACAddress, GetSectionByKeyname
/// - **Adding:** AddSection, and AddNetwork, AddSubnet, AddHost, AddIFSection
/// - **Removing:** RemoveSection, and RemoveNetwork, RemoveSubnetSection, RemoveHostSection,
///   RemoveIFSection
/// - **Changing:** ChangeSection, SetSectionParams
/// - **Subnet queries:** GetSubnet, GetNetmaskBySubnet
class KLEPUR_EXPORT DhcpConfigFile : public klepur::ConfigFile<klepur::DhcpVocabulary> {
 public:
  using DhcpSection = Section;

  using ConfigFile::ConfigFile;
  ~DhcpConfigFile() override;

  /// The first letter, A to Z or a to z, of `s`; counts and fails as GetFirstDigit does.
  const char* GetFirstChar(const char* s);

  /// A netmask made of an address octet by octet: "255" for one that is not zero, "0" for one that
  /// is.
  ///
  /// \param subnet  four octets, "10.0.0.0". A text with fewer must not be passed; what is there is
  ///                then turned into a mask.
  /// \return "255.0.0.0" and one zero byte, ten bytes in all: the text keeps the zero byte that
  ///         ends `subnet`. Empty for null.
  ///
  /// Digits of a longer earlier octet are left over behind those of a shorter one, so "192.168.1.0"
  /// gives "255.255.255.255": its last octet is read as "068". Of an octet of more than three
  /// digits three are read, and the next one is copied as if it were the dot.
  std::string GetNetmaskBySubnet(const char* subnet);
};

#endif
