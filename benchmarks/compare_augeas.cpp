// Compares opening a DHCPv4 configuration file, and adding one host to it and saving it, with
// augeas.
//
//     compare_augeas FILE ROUNDS
//
// The file is of the kind that generate_config writes. Starting augeas, which compiles its lens, is
// not timed. Both edit copies.
#include <augeas.h>
#include <klepur/klepur.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "benchmarks/check.h"
#include "benchmarks/command_line.h"
#include "benchmarks/compare.h"
#include "benchmarks/measure.h"
#include "benchmarks/scratch_file.h"

namespace {

constexpr char kName[] = "added";
constexpr char kMac[] = "00:16:3e:ff:ff:ff";
constexpr char kAddress[] = "10.0.0.251";

bool AddHost(DhcpConfigFile& file) {
  DhcpConfigFile::DhcpSection host;
  host.params = {{false, host.PARAM_NAME, kName},
                 {false, host.PARAM_HARDWARE_ETHERNET, kMac},
                 {false, host.PARAM_FIXED_ADDRESS, kAddress}};
  return file.GotoSection("10.0.0.0 netmask 255.255.255.0", host.SECTION_SUBNET) &&
         file.AddSection(host) == 1 && file.Save("") == 1;
}

double Open(const std::string& path) {
  DhcpConfigFile file(path.c_str());
  return SecondsFor([&] { Check(file.Open(), "the file is opened"); });
}

double OpenAndAdd(const std::string& path) {
  DhcpConfigFile file(path.c_str());
  return SecondsFor([&] { Check(file.Open() && AddHost(file), "a host is added"); });
}

/// augeas with one file to load.
class Augeas {
 public:
  explicit Augeas(const std::string& path)
      : augeas_(aug_init(nullptr, nullptr, AUG_NO_MODL_AUTOLOAD | AUG_NO_LOAD), aug_close),
        tree_("/files" + path) {
    Set("/augeas/load/Dhcpd/lens", "Dhcpd.lns");
    Set("/augeas/load/Dhcpd/incl", path);
  }

  void Load() {
    Check(aug_load(augeas_.get()) == 0 && Count("/augeas//error") == 0 && Count(tree_) == 1,
          "augeas loads the file");
  }

  void AddHost() {
    const std::string host = tree_ + "/subnet[1]/host[last()+1]";
    const std::string added = tree_ + "/subnet[1]/host[last()]";
    Set(host, kName);
    Set(added + "/hardware/type", "ethernet");
    Set(added + "/hardware/address", kMac);
    Set(added + "/fixed-address", kAddress);
    Check(aug_save(augeas_.get()) == 0, "augeas saves the file");
  }

 private:
  void Set(const std::string& path, const std::string& value) {
    Check(aug_set(augeas_.get(), path.c_str(), value.c_str()) == 0, "augeas sets a value");
  }

  int Count(const std::string& path) { return aug_match(augeas_.get(), path.c_str(), nullptr); }

  std::unique_ptr<augeas, void (*)(augeas*)> augeas_;
  std::string tree_;
};

double LoadWithAugeas(const std::string& path) {
  Augeas other(path);
  return SecondsFor([&] { other.Load(); });
}

double LoadAndAddWithAugeas(const std::string& path) {
  Augeas other(path);
  return SecondsFor([&] {
    other.Load();
    other.AddHost();
  });
}

/// Times `edit` on a fresh copy of `path`.
template <class Edit>
double OnCopy(const std::string& path, const Edit& edit) {
  const ScratchFile copy;
  std::filesystem::copy_file(path, copy.Path(), std::filesystem::copy_options::overwrite_existing);
  const double seconds = edit(copy.Path());
  DhcpConfigFile edited(copy.Name());
  DhcpConfigFile::DhcpSection found;
  Check(edited.Open() && edited.GetHostByMACAddress(kMac, found, false), "the copy has the host");
  return seconds;
}

}  // namespace

int main(int argc, char** argv) {
  const CommandLine arguments(argc, argv);
  const std::string path = std::filesystem::absolute(arguments.file);
  const std::vector<Samples> samples =
      InTurn(arguments.rounds, {[&] { return Open(path); }, [&] { return LoadWithAugeas(path); },
                                [&] { return OnCopy(path, OpenAndAdd); },
                                [&] { return OnCopy(path, LoadAndAddWithAugeas); }});
  const std::string size = Megabytes(arguments.FileSize());
  PrintRow("Open, " + size, samples[0], "augeas, load", samples[1], 0);
  PrintRow("Open, add one host, Save, " + size, samples[2], "augeas, the same", samples[3], 0);
  return EXIT_SUCCESS;
}
