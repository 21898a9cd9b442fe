#include <klepur/text/structural_scan.h>

#include <string_view>

namespace klepur::internal {

std::uint64_t StructuralMaskPlainly(const char* from) {
  constexpr std::string_view kBytes = ";{}#\"\\";
  std::uint64_t mask = 0;
  for (std::ptrdiff_t i = 0; i != kMaskSize; ++i) {
    if (kBytes.find(from[i]) != kBytes.npos) mask |= std::uint64_t{1} << i;
  }
  return mask;
}

}  // namespace klepur::internal
