#include <klepur/text/structural_bytes.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace klepur::internal {
namespace {

/// A table, which takes a quarter of the time of comparisons.
class ByteSet {
 public:
  constexpr explicit ByteSet(std::string_view bytes) : holds_{} {
    for (const char byte : bytes) holds_[static_cast<unsigned char>(byte)] = true;
  }
  constexpr bool operator()(char byte) const { return holds_[static_cast<unsigned char>(byte)]; }

 private:
  std::array<bool, 256> holds_;
};

constexpr ByteSet kStructural(";{}#\"\n");
constexpr ByteSet kStringMarks("\"\\");

const char* FirstIn(const ByteSet& set, const char* from, const char* end) {
  return std::find_if(from, end, [&set](char byte) { return set(byte); });
}

}  // namespace

const char* FindStructuralPlainly(const char* from, const char* end) {
  return FirstIn(kStructural, from, end);
}

const char* SkipBlanksPlainly(const char* from, const char* end) {
  return std::find_if_not(from, end, IsBlank);
}

const char* FindStringMarkPlainly(const char* from, const char* end) {
  return FirstIn(kStringMarks, from, end);
}

}  // namespace klepur::internal
