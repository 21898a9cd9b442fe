#include "tests/process/every_operation.h"

#include <klepur/klepur.h>

#include <chrono>
#include <cstdio>
#include <exception>
#include <fstream>
#include <list>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace {

using TreeNode = Tree<CfSection>::TreeNode;

const char* wrong = nullptr;

/// Notes the first operation that did not do what it should.
void Expect(bool holds, const char* what) {
  if (!holds && wrong == nullptr) wrong = what;
}

struct V4 {
  using File = DhcpConfigFile;
  using Section = File::DhcpSection;
  static constexpr const char* kText =
      "# main office\n"
      "shared-network office {\n"
      "  subnet 10.0.0.0 netmask 255.255.255.0 {\n"
      "    range 10.0.0.10 10.0.0.20;\n"
      "    host a {\n"
      "      fixed-address 10.0.0.1;\n"
      "      option host-name \"a\";\n"
      "      hardware ethernet 0:1;\n"
      "    }\n"
      "    if known {\n"
      "      max-lease-time 60;\n"
      "    }\n"
      "  }\n"
      "}\n"
      "shared-network other {\n"
      "}\n";
  static constexpr const char* kSubnet = "10.0.0.0 netmask 255.255.255.0";
  static constexpr const char* kNewSubnet = "10.0.1.0:255.255.255.0";
  static constexpr const char* kIp = "10.0.0.1";
  static constexpr int kName = Section::PARAM_NAME;
  static constexpr int kMaxLeaseTime = Section::PARAM_MAX_LEASE_TIME;
};

struct V6 {
  using File = Dhcpv6ConfigFile;
  using Section = File::Dhcpv6Section;
  static constexpr const char* kText =
      "# main office\n"
      "shared-network office {\n"
      "  subnet6 2001:db8::/64 {\n"
      "    range6 2001:db8::10 2001:db8::20;\n"
      "    host a {\n"
      "      fixed-address6 2001:db8::1;\n"
      "      option dhcp6.fqdn \"a\";\n"
      "      hardware ethernet 0:1;\n"
      "    }\n"
      "    if known {\n"
      "      max-lease-time 60;\n"
      "    }\n"
      "  }\n"
      "}\n"
      "shared-network other {\n"
      "}\n";
  static constexpr const char* kSubnet = "2001:db8::/64";
  static constexpr const char* kNewSubnet = "2001:db8:1::/64";
  static constexpr const char* kIp = "2001:db8::1";
  static constexpr int kName = Section::PARAM6_NAME;
  static constexpr int kMaxLeaseTime = Section::PARAM6_MAX_LEASE_TIME;
};

template <class Family>
typename Family::Section Record(typename Family::Section::SectionType type, const char* name) {
  typename Family::Section record;
  record.type = type;
  record.params = {{false, Family::kName, name}, {false, Family::kMaxLeaseTime, "60"}};
  return record;
}

template <class Family>
void WalkAndSearch(typename Family::File& file) {
  using Types = typename Family::Section;
  typename Family::Section record;
  for (const auto type : {Types::SECTION_GLOBAL, Types::SECTION_SHARED_NETWORK,
                          Types::SECTION_SUBNET, Types::SECTION_HOST, Types::SECTION_IF}) {
    record.type = type;
    Expect(file.GetFirstSection(record, false), "GetFirstSection");
    Expect(!file.GetNextSection(Record<Family>(type, "missing"), record, true) ||
               type == Types::SECTION_SHARED_NETWORK,
           "GetNextSection");
  }
  Expect(file.GotoSection("office", Types::SECTION_SHARED_NETWORK), "GotoSection");
  Expect(file.GotoSection(Family::kSubnet, Types::SECTION_SUBNET), "GotoSection of a subnet");
  Expect(!file.GotoSection(nullptr, Types::SECTION_SUBNET), "GotoSection of null");
  record.type = Types::SECTION_HOST;
  Expect(file.GetSectionByName(record, "a"), "GetSectionByName");
  Expect(!file.GetSectionByName(record, "missing"), "GetSectionByName of none");
  Expect(!file.GetSectionByKeyname(nullptr, record, false), "GetSectionByKeyname");
  for (int i = 0; i != 8; ++i) {
    Expect(file.GetHostByIp(Family::kIp, record, true), "GetHostByIp");
    Expect(file.GetHostByName("a", record, false), "GetHostByName");
    Expect(file.GetHostByMACAddress("0:1", record, false), "GetHostByMACAddress");
    Expect(!file.GetHostByMACAddress("0:2", record, false), "GetHostByMACAddress of none");
    Expect(file.GetTreeItemByNameAt("host a", nullptr) != nullptr, "GetTreeItemByNameAt");
    Expect(file.GetTreeItemBySectionAt("host b", nullptr) == nullptr, "GetTreeItemBySectionAt");
  }
  std::string subnet;
  Expect(file.GetSubnet(subnet) == 1, "GetSubnet");
}

template <class Family>
void Edit(typename Family::File& file) {
  using Types = typename Family::Section;
  const auto host = Record<Family>(Types::SECTION_HOST, "b");
  const auto known = Record<Family>(Types::SECTION_IF, "unknown");
  Expect(file.AddSection(host) == 1, "AddSection");
  Expect(file.AddHost(host) == 0, "AddHost of one that is there");
  Expect(file.AddIFSection(known) == 1, "AddIFSection");
  Expect(file.ChangeSection(host, "c") == 1, "ChangeSection");
  Expect(file.ChangeTreeSection(host, nullptr, nullptr) == 0, "ChangeTreeSection of null");
  Expect(file.SetSectionParams(known) == 1, "SetSectionParams");
  Expect(file.RemoveSection(known) == 1, "RemoveSection");
  Expect(file.RemoveHostSection("c") == 1, "RemoveHostSection");
  Expect(file.RemoveHostSection(nullptr) == 0, "RemoveHostSection of null");
  Expect(file.RemoveIFSection("missing") == 0, "RemoveIFSection of none");
  file.AddSubnet(Record<Family>(Types::SECTION_SUBNET, Family::kNewSubnet));
  try {
    file.AddSection(Record<Family>(Types::SECTION_SUBNET, "10.0.0.0,"));
    Expect(false, "AddSection of a name that ends in a comma");
  } catch (const std::exception&) {
  }
  Expect(file.RemoveSubnetSection(Family::kSubnet) == 1, "RemoveSubnetSection");
  Expect(file.RemoveNetwork("other") == 1, "RemoveNetwork");
  Expect(file.AddNetwork(Record<Family>(Types::SECTION_SHARED_NETWORK, "new")) == 1, "AddNetwork");
}

template <class Family>
void ConvertAndCut(typename Family::File& file) {
  using Types = typename Family::Section;
  typename Family::Section tree;
  typename Family::Section back;
  Expect(file.DhcpToTree(Record<Family>(Types::SECTION_HOST, "x"), tree), "DhcpToTree");
  Expect(file.AddTreeSection(tree, nullptr), "AddTreeSection");
  TreeNode* const node = file.GetTreeItemByNameAt("host x", nullptr);
  Expect(node != nullptr && file.TreeToDhcp(node->section, back, false), "TreeToDhcp");
  Expect(file.GetEntryType(nullptr) == -1, "GetEntryType");
  std::vector<CfSectionEntry*> none;
  Expect(file.GetEntryFromList(&none, "x") == nullptr, "GetEntryFromList");
  std::string value;
  file.GetValueFromString("max-lease-time 60;", ";", value);
  Expect(value == "60", "GetValueFromString");
  char buffer[] = "...";
  file.GetValueFromBuffer("a;", ";", buffer);
  std::list<std::string> servers;
  Expect(file.GetNameServers("option ntp-servers 10.1.1.1, 10.1.1.2;", &servers), "GetNameServers");
  Expect(*file.GetFirstDigit("a1") == '1', "GetFirstDigit");
  if constexpr (std::is_same_v<Family, V4>) {
    Expect(*file.GetFirstChar("1a") == 'a', "GetFirstChar");
    Expect(!file.GetNetmaskBySubnet("10.0.0.0").empty(), "GetNetmaskBySubnet");
  } else {
    Expect(*file.GetFirstChar("1a", nullptr) == 'a', "GetFirstChar");
  }
}

template <class Family>
void UseConfig(const std::string& folder) {
  const std::string path = folder + "/used.conf";
  std::ofstream(path) << Family::kText;
  typename Family::File file(path.c_str());
  Expect(file.Open(), "Open");
  WalkAndSearch<Family>(file);
  Edit<Family>(file);
  ConvertAndCut<Family>(file);
  std::remove(path.c_str());  // some file systems wait for the disk when a file is written over
  Expect(file.Save("") == 1, "Save");
  Expect(file.Save(folder) == 0, "Save over a folder");
  Expect(file.Save(folder + "/missing/x") == 0, "Save in a missing folder");
  Expect(file.Save("/dev/full") == 1, "Save on a full device");
  Expect(file.Open(), "Open again");
  typename Family::File missing((folder + "/missing").c_str());
  Expect(!missing.Open(), "Open of a missing file");
  typename Family::File directory(folder.c_str());
  Expect(!directory.Open(), "Open of a folder");
  const std::string nul = folder + "/nul.conf";
  std::ofstream(nul) << "log x;\n" << '\0';
  typename Family::File broken(nul.c_str());
  Expect(!broken.Open(), "Open of a file with a NUL byte");
  std::remove(path.c_str());
  std::remove(nul.c_str());
}

/// But for flushing to the disk, which takes long, and programs that judge texts, whose end is a signal.
void UseStorage(const std::string& folder) {
  const std::string path = folder + "/used.conf";
  std::ofstream(path) << V4::kText;
  const auto options = klepur::SaveOptions().WithBackup().LockedWithin(std::chrono::seconds(1));
  klepur::StoredFile file = klepur::StoredFile::OpenLocked(path);
  klepur::Document document = file.Read();
  Expect(!file.Save(document, options).Written(), "Save of what is there");
  document.Find("host a").Remove();
  Expect(file.Diff(document).size() > 50, "Diff");
  file.Unlock();
  DhcpConfigFile config(path.c_str());
  Expect(config.Open() && !config.Text().empty(), "Text");
  std::ofstream(path) << "# changed\n";
  Expect(file.HasChanged(), "HasChanged");
  try {
    klepur::SaveSafely(config);
    Expect(false, "SaveSafely over a file that changed");
  } catch (const klepur::Error&) {
  }
  try {
    file.Save(document);
    Expect(false, "Save over a file that changed");
  } catch (const klepur::Error&) {
  }
  std::remove(path.c_str());
}

bool Accept(CfSection& /*section*/) {
  return true;
}

void UseTree() {
  CfSectionHolder holder;
  Expect(DhcpParser().ParseBuffer("a {\nb {\nlog x;\n}\n}\n", &holder), "ParseBuffer");
  Expect(holder.topNode.TraverseDo(Accept), "TraverseDo");
  Expect(holder.topNode.TraverseDo(Accept, Accept), "TraverseDo with a function behind");
  CfSection probe;
  probe.SetName("b");
  for (const auto predicate : {Condition1, Condition2, compare}) {
    Expect(holder.topNode.FindIf(probe, predicate) != nullptr, "FindIf");
  }
  Expect(!WriteSectionW(nullptr, probe), "WriteSectionW");
  Expect(!WriteSectionEndW(nullptr, probe), "WriteSectionEndW");
}

void UseLeases(const std::string& folder) {
  const std::string path = folder + "/used.leases";
  std::ofstream(path) << "ia-na \"A\" {\niaaddr 2001:db8::1 {\nends never;\n}\n}\n"
                         "ia-na \"B\" {\niaaddr 2001:db8::2 {\nset x = y;\n}\n}\n";
  std::list<_Dhcpv6LeaseStore> leases;
  Dhcpv6LeasesParser().GetLeases(path.c_str(), leases);
  Expect(leases.size() == 1, "GetLeases");  // and the reason why the second one is not there
  Dhcpv6LeasesParser().GetLeases((folder + "/missing").c_str(), leases);
  Dhcpv6LeasesParser().GetLeases(folder.c_str(), leases);
  Expect(leases.size() == 1, "GetLeases of nothing");
  std::remove(path.c_str());
  Expect(Dhcpv6LeasesParser().ParseDuid("\\001A") == "0141", "ParseDuid");
}

}  // namespace

const char* RunEveryOperation(const char* folder) {
  wrong = nullptr;
  UseLeases(folder);
  UseConfig<V4>(folder);
  UseConfig<V6>(folder);
  UseTree();
  UseStorage(folder);
  return wrong;
}
