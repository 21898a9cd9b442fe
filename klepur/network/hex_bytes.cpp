#include <klepur/network/hex_bytes.h>

#include <klepur/network/value_words.h>

#include <algorithm>
#include <array>

namespace klepur::internal {
namespace {

constexpr std::array<signed char, 256> HexDigitTable() {
  std::array<signed char, 256> table = {};
  for (signed char& value : table) value = -1;
  for (unsigned char digit = 0; digit != 10; ++digit) {
    table[std::size_t{'0'} + digit] = static_cast<signed char>(digit);
  }
  for (unsigned char digit = 0; digit != 6; ++digit) {
    table[std::size_t{'a'} + digit] = static_cast<signed char>(10 + digit);
    table[std::size_t{'A'} + digit] = static_cast<signed char>(10 + digit);
  }
  return table;
}
constexpr std::array<signed char, 256> kHexDigits = HexDigitTable();

/// Fills a room, as far as it goes.
class ByteWriter {
 public:
  explicit ByteWriter(ByteRoom room) : room_(room) {}

  bool Append(int byte) {
    if (byte < 0 || count_ == room_.size) return false;
    room_.bytes[count_++] = static_cast<unsigned char>(byte);
    return true;
  }

  std::size_t Count() const { return count_; }

 private:
  ByteRoom room_;
  std::size_t count_ = 0;
};

/// Takes the digits of one number of a list; -1 when there is none or it is no byte.
int TakeOctet(std::string_view& text) {
  int value = -1;
  while (!text.empty() && HexDigitValue(text.front()) >= 0) {
    value = std::max(value, 0) * 16 + HexDigitValue(text.front());
    if (value > 0xff) return -1;
    text.remove_prefix(1);
  }
  return value;
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsValueBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsValueBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// The value of a text of one or two digits; -1 for any other.
int ShortGroupValue(std::string_view digits) {
  if (digits.size() > 2) return -1;
  const int value = TakeOctet(digits);
  return digits.empty() ? value : -1;
}

bool ReadPairs(std::string_view digits, ByteWriter& out) {
  if (digits.empty() || digits.size() % 2 != 0) return false;
  for (; !digits.empty(); digits.remove_prefix(2)) {
    if (!out.Append(ShortGroupValue(digits.substr(0, 2)))) return false;
  }
  return true;
}

bool ReadGroups(std::string_view text, char separator, ByteWriter& out) {
  const std::size_t firstSize = text.find(separator);
  for (;;) {
    const std::string_view group = text.substr(0, text.find(separator));
    const bool isRead = firstSize <= 2 ? out.Append(ShortGroupValue(group))
                                       : group.size() == firstSize && ReadPairs(group, out);
    if (!isRead) return false;
    if (group.size() == text.size()) return true;
    text.remove_prefix(group.size() + 1);
  }
}

/// What most lists are: two digits for each byte, colons, no blanks. Nothing for all others.
std::optional<std::size_t> ReadPlainList(std::string_view text, ByteRoom room) {
  const std::size_t count = (text.size() + 1) / 3;
  if (text.size() % 3 != 2 || count > room.size) return std::nullopt;
  for (std::size_t i = 0; i != count; ++i) {
    const int high = HexDigitValue(text[3 * i]);
    const int low = HexDigitValue(text[3 * i + 1]);
    if (high < 0 || low < 0 || (i + 1 != count && text[3 * i + 2] != ':')) return std::nullopt;
    room.bytes[i] = static_cast<unsigned char>(high * 16 + low);
  }
  return count;
}

std::optional<std::size_t> CountIf(bool isRead, const ByteWriter& out) {
  return isRead ? std::optional<std::size_t>(out.Count()) : std::nullopt;
}

}  // namespace

int HexDigitValue(char c) noexcept {
  return kHexDigits[static_cast<unsigned char>(c)];
}

std::optional<std::size_t> ReadHexList(std::string_view text, ByteRoom room) noexcept {
  if (const auto count = ReadPlainList(text, room)) return count;
  ByteWriter out(room);
  for (;;) {
    text = WithoutLeadingBlanks(text);
    if (!out.Append(TakeOctet(text))) return std::nullopt;
    text = WithoutLeadingBlanks(text);
    if (text.empty()) return out.Count();
    if (text.front() != ':') return std::nullopt;
    text.remove_prefix(1);
  }
}

std::optional<std::size_t> ReadTypedHex(std::string_view text, ByteRoom room) noexcept {
  text = Trimmed(text);
  ByteWriter out(room);
  const std::size_t separator = text.find_first_of(":-. ");
  if (separator == std::string_view::npos) return CountIf(ReadPairs(text, out), out);
  return CountIf(ReadGroups(text, text[separator], out), out);
}

std::string HexList(const unsigned char* bytes, std::size_t count) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  text.reserve(3 * count);
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) text += ':';
    text += kDigits[bytes[i] / 16];
    text += kDigits[bytes[i] % 16];
  }
  return text;
}

}  // namespace klepur::internal
