#include <klepur/document/words_of_text.h>

#include <cstddef>

namespace klepur::internal {
namespace {

bool IsGap(char byte) {
  return byte == ' ' || (byte >= '\t' && byte <= '\r') || byte == '\0';
}

}  // namespace

std::string_view WordsOfText::NextOfAnyKind() {
  const std::size_t begin = BehindBlanks(at_);
  at_ = begin == text_.size() ? at_ : BehindWord(begin);
  return begin == text_.size() ? std::string_view() : text_.substr(begin, at_ - begin);
}

std::size_t WordsOfText::BehindBlanks(std::size_t at) const {
  while (at < text_.size()) {
    if (text_[at] == '#') {
      at = text_.find('\n', at);
      if (at == std::string_view::npos) return text_.size();
    } else if (!IsGap(text_[at])) {
      break;
    }
    ++at;
  }
  return at;
}

std::size_t WordsOfText::BehindWord(std::size_t at) {
  if (text_[at] == '"' && quotes_pair_) {
    const std::size_t end = StringEnd(text_, at);
    if (end != std::string_view::npos) return end;
    quotes_pair_ = false;
  }
  if (!JoinsWord(text_[at])) return at + 1;
  while (at < text_.size() && JoinsWord(text_[at])) ++at;
  return at;
}

std::string_view FirstWord(std::string_view text) {
  return WordsOfText(text).Next();
}

std::string_view UpToLastWord(std::string_view text) {
  if (text.find('#') == std::string_view::npos) {
    while (!text.empty() && IsGap(text.back())) text.remove_suffix(1);
    return text;
  }
  WordsOfText words(text);
  while (!words.Next().empty()) {
  }
  return text.substr(0, text.size() - words.Rest().size());
}

std::size_t SizeOfEndless(std::string_view text) {
  static constexpr std::array<std::string_view, 3> kWords = {"no", "failover", "peer"};
  if (text.size() < 2 || !EqualButForCase(text.substr(0, 2), kWords[0])) return 0;
  WordsOfText words(text);
  for (const std::string_view word : kWords) {
    if (!EqualButForCase(words.Next(), word)) return 0;
  }
  return text.size() - words.Rest().size();
}

std::size_t StringEnd(std::string_view text, std::size_t quote) {
  for (std::size_t at = quote + 1; at < text.size(); ++at) {
    if (text[at] == '\\') {
      ++at;
    } else if (text[at] == '"') {
      return at + 1;
    }
  }
  return std::string_view::npos;
}

}  // namespace klepur::internal
