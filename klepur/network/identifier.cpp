#include <klepur/network/identifier.h>

#include <klepur/network/hex_bytes.h>
#include <klepur/network/quoted_text.h>
#include <klepur/network/value_words.h>

namespace klepur {
namespace {

using internal::ByteRoom;
using internal::ValueWord;
using internal::ValueWords;

unsigned char* AsBytes(std::string& text) {
  return reinterpret_cast<unsigned char*>(text.data());
}

template <class ReadBytes>
std::optional<Identifier> FromHex(std::string_view text, ReadBytes read) {
  std::string bytes((text.size() + 1) / 2, '\0');
  const std::optional<std::size_t> count = read(text, ByteRoom{AsBytes(bytes), bytes.size()});
  if (!count) return std::nullopt;
  bytes.resize(*count);
  return Identifier(std::move(bytes));
}

bool BeginsWithQuote(std::string_view text) {
  return !text.empty() && text.front() == '"';
}

}  // namespace

std::optional<Identifier> Identifier::Parse(std::string_view value) {
  ValueWords words(value);
  if (!BeginsWithQuote(words.Rest())) return FromHex(words.Rest(), internal::ReadHexList);
  const std::optional<ValueWord> text = words.Next();
  if (!words.AtEnd()) return std::nullopt;
  std::optional<std::string> bytes = internal::Unquoted(text->text);
  if (!bytes) return std::nullopt;
  return Identifier(*std::move(bytes));
}

std::optional<Identifier> Identifier::ParseAnySpelling(std::string_view text) {
  std::optional<Identifier> identifier = FromHex(text, internal::ReadTypedHex);
  return identifier ? identifier : Parse(text);
}

std::string Identifier::Hex() const {
  return internal::HexList(reinterpret_cast<const unsigned char*>(bytes_.data()), bytes_.size());
}

std::string Identifier::Quoted() const {
  return internal::Quoted(bytes_);
}

}  // namespace klepur
