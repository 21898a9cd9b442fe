// Adds a host to a subnet of a DHCPv4 configuration file.
//
//     add_host FILE "10.20.0.0 netmask 255.255.255.0" pc-42 00:16:3e:10:00:42 10.20.0.42
//
// It prints the blocks of the file, adds the host, finds it again by its address and saves the
// file.
#include <klepur/klepur.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

using Section = DhcpConfigFile::DhcpSection;

namespace {

std::string Value(const Section& section, int type) {
  for (const Section::SectionParam& param : section.params) {
    if (param.type == type) return (param.commented ? "#" : "") + param.value;
  }
  return "";
}

void Print(const std::string& indent, const Section& section) {
  const char* const kinds[] = {"", "shared-network ", "subnet ", "host ", "if "};
  std::cout << indent << kinds[section.type] << Value(section, Section::PARAM_NAME);
  for (const int type :
       {Section::PARAM_RANGE, Section::PARAM_HARDWARE_ETHERNET, Section::PARAM_FIXED_ADDRESS}) {
    const std::string value = Value(section, type);
    if (!value.empty()) std::cout << "  " << value;
  }
  std::cout << "\n";
}

/// The blocks of the level that the cursor for `type` stands on, or, for hosts and if blocks, those
/// of that kind in the current subnet.
std::vector<Section> Blocks(DhcpConfigFile& file, Section::DhcpSectionType type) {
  std::vector<Section> blocks;
  Section current;
  current.type = type;
  for (bool found = file.GetFirstSection(current, false); found;
       found = file.GetNextSection(current, current, false)) {
    blocks.push_back(current);
    current.type = type;  // networks and subnets: whatever was found, stay on this level
  }
  return blocks;
}

void PrintCurrentSubnet(DhcpConfigFile& file, const std::string& indent) {
  for (const auto type : {Section::SECTION_HOST, Section::SECTION_IF}) {
    for (const Section& block : Blocks(file, type)) Print(indent, block);
  }
}

/// What GotoSection wants for a subnet: "10.0.0.0 netmask 255.0.0.0".
std::string Header(const Section& subnet) {
  std::string name = Value(subnet, Section::PARAM_NAME);
  return name.replace(name.find(':'), 1, " netmask ");
}

void PrintSubnets(DhcpConfigFile& file, const std::vector<Section>& blocks,
                  const std::string& indent) {
  for (const Section& block : blocks) {
    Print(indent, block);
    if (block.type == Section::SECTION_SUBNET &&
        file.GotoSection(Header(block).c_str(), Section::SECTION_SUBNET)) {
      PrintCurrentSubnet(file, indent + "  ");
    }
  }
}

/// Prints every block of a file that was just opened, so that a cursor stands on its first block.
void PrintBlocks(DhcpConfigFile& file) {
  std::vector<Section> top = Blocks(file, Section::SECTION_SHARED_NETWORK);
  if (top.empty()) top = Blocks(file, Section::SECTION_SUBNET);  // the first block is no network
  for (const Section& block : top) {
    file.GotoSection(nullptr, Section::SECTION_GLOBAL);
    PrintSubnets(file, {block}, "");
    if (block.type != Section::SECTION_SHARED_NETWORK) continue;
    file.GotoSection(Value(block, Section::PARAM_NAME).c_str(), Section::SECTION_SHARED_NETWORK);
    PrintSubnets(file, Blocks(file, Section::SECTION_SUBNET), "  ");
  }
}

int Fail(const std::string& message) {
  std::cerr << "add_host: " << message << "\n";
  return EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 6) return Fail("usage: add_host FILE SUBNET NAME MAC IP");
  const std::string subnet = argv[2];
  const std::string name = argv[3];
  const std::string mac = argv[4];
  const std::string ip = argv[5];

  DhcpConfigFile file(argv[1]);
  if (!file.Open()) return Fail(std::string("cannot read ") + argv[1] + ", see the system log");
  std::cout << "Blocks:\n";
  PrintBlocks(file);

  file.GotoSection(nullptr, Section::SECTION_GLOBAL);  // so that the whole file is searched
  if (!file.GotoSection(subnet.c_str(), Section::SECTION_SUBNET)) {
    return Fail("there is no subnet " + subnet);
  }
  Section host;
  if (file.GetHostByMACAddress(mac.c_str(), host, false)) {
    return Fail(mac + " belongs to host " + Value(host, Section::PARAM_NAME));
  }
  host.type = Section::SECTION_HOST;
  host.params = {{false, Section::PARAM_NAME, name},
                 {false, Section::PARAM_HARDWARE_ETHERNET, mac},
                 {false, Section::PARAM_FIXED_ADDRESS, ip},
                 {false, Section::PARAM_HOST_NAME, name}};
  if (!file.AddSection(host)) return Fail("subnet " + subnet + " has a host " + name + " already");

  Section added;
  if (!file.GetHostByIp(ip.c_str(), added, false)) return Fail("the host was not added");
  std::cout << "\nAdded to subnet " << subnet << ":\n";
  Print("  ", added);
  if (!file.Save("")) return Fail(std::string("cannot write ") + argv[1]);
  return EXIT_SUCCESS;
}
