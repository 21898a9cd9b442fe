#include <klepur/framework/lexer.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string_view>

namespace {

using klepur::Token;
using klepur::TokenKind;

constexpr std::size_t kReadSize = 65536;

/// Those before kCarriageReturn are text without further looking.
enum class ByteClass : std::uint8_t {
  kWord,
  kDigit,
  kBlank,
  kCarriageReturn,  // a blank, unless a line feed follows
  kPunctuator,
  kLineFeed,
  kQuote,
  kNul,
};

constexpr std::array<ByteClass, 256> MakeByteClasses() {
  std::array<ByteClass, 256> classes{};
  const auto set = [&classes](std::string_view bytes, ByteClass value) {
    for (const char byte : bytes) classes[static_cast<unsigned char>(byte)] = value;
  };
  set("0123456789", ByteClass::kDigit);
  set(" \t\v\f", ByteClass::kBlank);
  set("\r", ByteClass::kCarriageReturn);
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

/// The first byte from `at` on that is of no such class. A line feed stands behind every text.
template <class Accept>
const char* Skip(const char* at, Accept accept) {
  while (accept(ClassOf(*at))) ++at;
  return at;
}

bool IsWord(ByteClass byteClass) {
  return byteClass == ByteClass::kWord || byteClass == ByteClass::kDigit;
}

bool IsText(ByteClass byteClass) {
  return byteClass < ByteClass::kCarriageReturn;
}

std::size_t Length(const char* begin, const char* end) {
  return static_cast<std::size_t>(end - begin);
}

bool HasNul(const char* begin, const char* end) {
  return std::memchr(begin, '\0', Length(begin, end)) != nullptr;
}

}  // namespace

CfLex::CfLex(StreamIterator* stream, bool /*unused*/) : stream_(stream), window_(1, '\n') {
  next_ = linesStop_ = textStop_ = unclosedStop_ = window_.data();
}

CfLex::~CfLex() = default;

void CfLex::Detach() noexcept {
  stream_ = nullptr;
  next_ = linesStop_ = textStop_;
}

Token* CfLex::GetToken() {
  if (next_ == linesStop_ && !LoadLines()) return nullptr;
  if (const char* const end = LineEndAt(next_)) {
    ++lineNumber_;
    return Take(TokenKind::kLineEnd, end);
  }
  switch (ClassOf(*next_)) {
    case ByteClass::kPunctuator:
      return TakePunctuator();
    case ByteClass::kBlank:
    case ByteClass::kCarriageReturn:
      return Take(TokenKind::kBlank, BlankEnd());
    case ByteClass::kQuote:
      return TakeQuotedOrWord();
    default:
      return TakeWord();
  }
}

void CfLex::AppendStatement(std::string& text) {
  while (next_ != linesStop_ || LoadLines()) {
    if (text.empty()) next_ = BlankEnd();
    const char* const end = TextEnd();
    if (end == nullptr) return AppendTokensBeforeNul(text);
    text.append(next_, Length(next_, end));
    next_ = end;
    if (ClassOf(*end) == ByteClass::kPunctuator) return;
    if (end == linesStop_) continue;
    next_ = LineEndAt(end);
    ++lineNumber_;
  }
}

void CfLex::AppendRestOfLine(std::string& text) {
  if (next_ == linesStop_ && !LoadLines()) return;
  const char* end = next_;
  while (LineEndAt(end) == nullptr && end != linesStop_) {
    if (ClassOf(*end) == ByteClass::kNul) return AppendTokensBeforeNul(text);
    ++end;
  }
  text.append(next_, Length(next_, end));
  next_ = end;
}

/// Appends what can be read of the line and throws at its NUL byte.
void CfLex::AppendTokensBeforeNul(std::string& text) {
  for (const Token* token = GetToken(); token != nullptr; token = GetToken()) text += token->text;
}

/// Where the next punctuator or line end begins, or the text ends; null with a NUL byte before
/// that.
const char* CfLex::TextEnd() {
  const char* end = next_;
  for (;;) {
    end = Skip(end, IsText);
    switch (ClassOf(*end)) {
      case ByteClass::kCarriageReturn:
        if (LineEndAt(end) != nullptr) return end;
        ++end;
        break;
      case ByteClass::kQuote:
        if (const char* const closed = QuotedEnd(end)) {
          if (HasNul(end, closed)) return nullptr;
          end = closed;
        } else {
          ++end;
        }
        break;
      case ByteClass::kNul:
        return nullptr;
      default:
        return end;
    }
  }
}

/// Reads on until there is a whole line, be it the last one without a line end. False at the end of
/// the text.
bool CfLex::LoadLines() {
  const void* lineFeed = nullptr;
  while (lineFeed == nullptr) {
    const std::size_t searched = Length(next_, textStop_);
    if (!ReadMore()) {
      linesStop_ = textStop_;
      return next_ != linesStop_;
    }
    lineFeed = ::memrchr(next_ + searched, '\n', Length(next_ + searched, textStop_));
  }
  linesStop_ = static_cast<const char*>(lineFeed) + 1;
  return true;
}

/// Reads on behind the unfinished line, which moves to the front of the window.
bool CfLex::ReadMore() {
  if (stream_ == nullptr) return false;
  const std::size_t kept = Length(next_, textStop_);
  if (kept != 0) std::memmove(window_.data(), next_, kept);
  if (window_.size() < kept + kReadSize + 1) window_.resize(2 * kept + kReadSize + 1);
  next_ = linesStop_ = unclosedStop_ = window_.data();
  textStop_ = next_ + kept;
  const std::size_t count = stream_->Read(&window_[kept], window_.size() - kept - 1);
  textStop_ += count;
  window_[kept + count] = '\n';
  return count != 0;
}

/// Where the line end that begins at `at` ends; null when none begins there.
const char* CfLex::LineEndAt(const char* at) const {
  if (at == linesStop_) return nullptr;
  if (*at == '\n') return at + 1;
  return *at == '\r' && at + 1 != linesStop_ && at[1] == '\n' ? at + 2 : nullptr;
}

/// Where the blanks that begin at the next token end.
const char* CfLex::BlankEnd() const {
  const char* end = next_;
  while (ClassOf(*end) == ByteClass::kBlank ||
         (ClassOf(*end) == ByteClass::kCarriageReturn && LineEndAt(end) == nullptr)) {
    ++end;
  }
  return end;
}

/// Where the quoted string that begins at `quote` ends; null when nothing closes it on its line.
///
/// Whether a double quote can close a string depends only on the backslashes straight before it,
/// which never reach back past another double quote. So where nothing closes one string, nothing
/// closes any that begins later in the line, and the rest of the line is searched once.
const char* CfLex::QuotedEnd(const char* quote) {
  if (quote < unclosedStop_) return nullptr;
  const char* at = quote + 1;
  for (; *at != '\n'; ++at) {
    if (*at == '"') return at + 1;
    if (*at == '\\' && at[1] != '\n') ++at;
  }
  unclosedStop_ = at;
  return nullptr;
}

Token* CfLex::TakePunctuator() {
  token_.kind = TokenKind::kPunctuator;
  token_.text.clear();
  token_.text.push_back(*next_++);
  return &token_;
}

Token* CfLex::TakeQuotedOrWord() {
  const char* const end = QuotedEnd(next_);
  if (end == nullptr) return TakeWord();
  if (HasNul(next_, end)) ThrowNulByte();
  return Take(TokenKind::kQuotedString, end);
}

Token* CfLex::TakeWord() {
  const char* end = Skip(next_, IsWord);
  while (ClassOf(*end) == ByteClass::kQuote && QuotedEnd(end) == nullptr)
    end = Skip(end + 1, IsWord);
  if (ClassOf(*end) == ByteClass::kNul) ThrowNulByte();
  const char* const digitsEnd =
      Skip(next_, [](ByteClass byteClass) { return byteClass == ByteClass::kDigit; });
  return Take(digitsEnd == end ? TokenKind::kNumber : TokenKind::kWord, end);
}

Token* CfLex::Take(TokenKind kind, const char* end) {
  token_.kind = kind;
  token_.text.assign(next_, Length(next_, end));
  next_ = end;
  return &token_;
}

void CfLex::ThrowNulByte() const {
  throw std::runtime_error("NUL byte in line " + std::to_string(lineNumber_));
}
