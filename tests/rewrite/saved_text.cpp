#include "tests/rewrite/saved_text.h"

#include <klepur/config4/dhcp_config_file.h>

#include <algorithm>

#include "tests/support/files.h"

namespace klepur::test {

std::string Saved(std::string_view text) {
  const ScratchFolder scratch;
  const std::string path = scratch.Write("dhcpd.conf", text);
  DhcpConfigFile file(path.c_str());
  file.Open();
  file.Save("");
  return ReadFile(path);
}

std::string WithoutIndentation(std::string_view text) {
  std::string bare;
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    const bool comment = line.substr(0, 1) == "#";
    line.remove_prefix(std::min(line.find_first_not_of('\t', comment ? 1 : 0), line.size()));
    if (comment || !line.empty()) bare += (comment ? "#" : "") + std::string(line) + '\n';
  }
  return bare;
}

}  // namespace klepur::test
