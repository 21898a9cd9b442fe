#include <klepur/check/host_names.h>

#include <klepur/document/document.h>
#include <klepur/document/words_of_text.h>
#include <klepur/text/letters.h>

#include <algorithm>
#include <cstddef>

namespace klepur::internal {

std::string_view NameOfHost(std::string_view behind_keyword) {
  WordsOfText words(behind_keyword);
  const std::string_view first = words.Next();
  const std::string_view rest = words.Rest();
  if (first.empty() || rest.empty() || rest == " ") return first;
  return UpToLastWord(
      behind_keyword.substr(static_cast<std::size_t>(first.data() - behind_keyword.data())));
}

std::string_view NameInHeader(std::string_view header) {
  WordsOfText words(header);
  words.Next();
  return NameOfHost(words.Rest());
}

std::string SpelledHostName(std::string_view value) {
  std::string spelled = WithoutQuotes(value);
  std::transform(spelled.begin(), spelled.end(), spelled.begin(), ToSmallLetter);
  return spelled;
}

}  // namespace klepur::internal
