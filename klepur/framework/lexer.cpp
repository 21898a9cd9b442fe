#include <klepur/framework/lexer.h>

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace {

using klepur::Token;
using klepur::TokenKind;

constexpr std::size_t kReadSize = 65536;

enum class ByteClass : std::uint8_t { kWord, kDigit, kBlank, kPunctuator, kLineFeed, kQuote, kNul };

constexpr std::array<ByteClass, 256> MakeByteClasses() {
  std::array<ByteClass, 256> classes{};
  const auto set = [&classes](std::string_view bytes, ByteClass value) {
    for (const char byte : bytes) classes[static_cast<unsigned char>(byte)] = value;
  };
  set("0123456789", ByteClass::kDigit);
  set(" \t\v\f\r", ByteClass::kBlank);
  set("#;{}", ByteClass::kPunctuator);
  set("\n", ByteClass::kLineFeed);
  set("\"", ByteClass::kQuote);
  classes[0] = ByteClass::kNul;
  return classes;
}

constexpr std::array<ByteClass, 256> kByteClasses = MakeByteClasses();

ByteClass ClassOf(char byte) {
  return kByteClasses[static_cast<unsigned char>(byte)];
}

}  // namespace

CfLex::CfLex(StreamIterator* stream, bool /*unused*/) : stream_(stream), chunk_(kReadSize) {}

CfLex::~CfLex() = default;

void CfLex::Detach() noexcept {
  stream_ = nullptr;
  window_.clear();
  position_ = lineStop_ = 0;
}

Token* CfLex::GetToken() {
  if (position_ == lineStop_ && !LoadLine()) return nullptr;
  if (const std::size_t length = LineEndLength(); length != 0) {
    return Take(TokenKind::kLineEnd, length);
  }
  switch (ClassOf(window_[position_])) {
    case ByteClass::kPunctuator:
      return Take(TokenKind::kPunctuator, 1);
    case ByteClass::kBlank:
      return Take(TokenKind::kBlank, BlankLength());
    case ByteClass::kQuote:
      return TakeQuotedOrWord();
    default:
      return TakeWord();
  }
}

/// Makes the line after the current one the current line. False at the end of the text.
bool CfLex::LoadLine() {
  std::size_t lineFeed = window_.find('\n', position_);
  while (lineFeed == std::string::npos) {
    window_.erase(0, position_);
    position_ = lineStop_ = 0;
    const std::size_t searched = window_.size();
    if (!ReadMore()) break;
    lineFeed = window_.find('\n', searched);
  }
  lineStop_ = lineFeed == std::string::npos ? window_.size() : lineFeed + 1;
  lineHasNoCloser_ = false;
  ++lineNumber_;
  return position_ != lineStop_;
}

bool CfLex::ReadMore() {
  if (stream_ == nullptr) return false;
  const std::size_t count = stream_->Read(chunk_.data(), chunk_.size());
  window_.append(chunk_.data(), count);
  return count != 0;
}

/// How many bytes of a line end stand at the position.
std::size_t CfLex::LineEndLength() const {
  if (window_[position_] == '\n') return 1;
  return window_.compare(position_, 2, "\r\n") == 0 ? 2 : 0;
}

std::size_t CfLex::BlankLength() const {
  std::size_t end = position_;
  while (end != lineStop_ && ClassOf(window_[end]) == ByteClass::kBlank) ++end;
  const bool endsInLineEnd = end != lineStop_ && window_[end] == '\n' && window_[end - 1] == '\r';
  return end - position_ - (endsInLineEnd ? 1 : 0);
}

/// The length of the quoted string that begins at `quote`, or 0 when nothing closes it.
///
/// Whether a double quote can close a string depends only on the backslashes straight before it,
/// which never reach back past another double quote. So where nothing closes one string, nothing
/// closes any that begins later in the line, and the rest of the line is searched once.
std::size_t CfLex::QuotedLength(std::size_t quote) {
  if (lineHasNoCloser_) return 0;
  for (std::size_t i = quote + 1; i < lineStop_; ++i) {
    if (window_[i] == '"') return i + 1 - quote;
    if (window_[i] == '\\') ++i;
  }
  lineHasNoCloser_ = true;
  return 0;
}

Token* CfLex::TakeQuotedOrWord() {
  const std::size_t length = QuotedLength(position_);
  if (length == 0) return TakeWord();
  Token* const token = Take(TokenKind::kQuotedString, length);
  if (token->text.find('\0') != std::string::npos) ThrowNulByte();
  return token;
}

Token* CfLex::TakeWord() {
  bool digitsOnly = true;
  std::size_t end = position_;
  for (; end != lineStop_; ++end) {
    const ByteClass byteClass = ClassOf(window_[end]);
    if (byteClass == ByteClass::kDigit) continue;
    if (byteClass == ByteClass::kQuote) {
      if (QuotedLength(end) != 0) break;
    } else if (byteClass == ByteClass::kNul) {
      ThrowNulByte();
    } else if (byteClass != ByteClass::kWord) {
      break;
    }
    digitsOnly = false;
  }
  return Take(digitsOnly ? TokenKind::kNumber : TokenKind::kWord, end - position_);
}

Token* CfLex::Take(TokenKind kind, std::size_t length) {
  token_.kind = kind;
  token_.text.assign(window_, position_, length);
  position_ += length;
  return &token_;
}

void CfLex::ThrowNulByte() const {
  throw std::runtime_error("NUL byte in line " + std::to_string(lineNumber_));
}
