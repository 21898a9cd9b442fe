// The subnet queries, by the model.
#include <algorithm>

#include "tests/random/model_conversion.h"
#include "tests/random/model_file.h"

namespace klepur::test {

int ModelFile::GetSubnet(std::string& subnet) {
  if (!topHasList_ || currentSubnet_ == nullptr) return 0;
  subnet = HeaderAddress(currentSubnet_->name);
  return 1;
}

std::string ModelFile::GetNetmaskBySubnet(const std::string& subnet) {
  if (family_.isV6) return "";
  std::string mask;
  std::string digits = "000";
  std::size_t digitsEverRead = 0;
  std::size_t at = 0;
  for (int octet = 0; octet < 4; ++octet) {
    std::size_t read = 0;
    while (read < 3 && at < subnet.size() && subnet[at] != '.') digits[read++] = subnet[at++];
    digitsEverRead = std::max(digitsEverRead, read);
    mask += std::stol("0" + digits.substr(0, digitsEverRead)) != 0 ? "255" : "0";
    mask += at < subnet.size() ? subnet[at] : '\0';
    ++at;
  }
  return mask;
}

}  // namespace klepur::test
