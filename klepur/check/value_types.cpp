#include <klepur/check/value_types.h>

#include <klepur/check/value_reader.h>
#include <klepur/document/words_of_text.h>
#include <klepur/language/word_index.h>
#include <klepur/language/word_rows.h>
#include <klepur/text/letters.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace klepur::internal {
namespace {

struct ValueType {
  std::string_view name;
  ValueReader read;
};

// What the table of words calls types.
constexpr ValueType kTypes[] = {
    {"address-or-name", ReadAddressOrName},
    {"count", ReadNumber},
    {"domain", ReadDomain},
    {"domain-name", ReadDomainName},
    {"flag", ReadFlag},
    {"hardware", ReadHardware},
    {"int32", ReadNumber},
    {"ip6-address", ReadAddress6},
    {"microseconds", ReadTime},
    {"milliseconds", ReadTime},
    {"number", ReadNumber},
    {"percentage", ReadNumber},
    {"port", ReadNumber},
    {"prefix", ReadPrefix},
    {"prefix-range", ReadPrefixRange},
    {"quoted-text", ReadQuotedText},
    {"range", ReadRange},
    {"range6", ReadRange},
    {"seconds", ReadTime},
    {"string", ReadData},
    {"text", ReadText},
    {"uint16", ReadNumber},
    {"uint32", ReadNumber},
    {"uint8", ReadNumber},
};

// The type of options that say something by being there.
constexpr std::string_view kNoValue = "zerolen";

/// What a value is made of.
struct ValueForm {
  using Parts = std::vector<std::pair<std::string_view, ValueReader>>;
  Parts parts;
  Parts again;              ///< The parts that may come again, behind a comma.
  bool is_checked = false;  ///< False where something stands in it that is no type.
};

ValueReader ReaderOf(std::string_view type) {
  if (type.find('|') != std::string_view::npos) return ReadChoice;
  const auto* const found =
      std::find_if(std::begin(kTypes), std::end(kTypes),
                   [&](const ValueType& other) { return other.name == type; });
  return found == std::end(kTypes) ? nullptr : found->read;
}

ValueForm FormOf(std::string_view value) {
  ValueForm form;
  form.is_checked = true;
  while (!value.empty()) {
    const std::string_view type = value.substr(0, value.find(' '));
    value.remove_prefix(std::min(type.size() + 1, value.size()));
    if (type == kNoValue) continue;
    if (type == "list" && value.empty()) {
      const bool alike = form.parts.size() < 2 || form.parts.front() == form.parts.back();
      form.again = alike ? form.parts : ValueForm::Parts{form.parts.back()};
    } else {
      const ValueReader read = ReaderOf(type);
      form.parts.emplace_back(type, read);
      form.is_checked = form.is_checked && read != nullptr;
    }
  }
  return form;
}

std::vector<ValueForm> AllForms() {
  std::vector<ValueForm> forms;
  forms.reserve(kWordCount);
  for (const Word& word : Words()) forms.push_back(FormOf(word.value));
  return forms;
}

const ValueForm& FormOfWord(const Word* word) {
  static const std::vector<ValueForm> forms = AllForms();
  return forms[static_cast<std::size_t>(word - kWordRows)];
}

/// Reads some parts.
void ReadParts(ValueWords& words, const ValueForm::Parts& parts, ValueProblem& problem) {
  for (const auto& [type, read] : parts) {
    if (words.AtEnd()) {
      problem = {"missing-value", {}, "the value ends early: " + std::string(type) + " is missing"};
      return;
    }
    read(words, type, problem);
    if (problem) return;
  }
}

ValueProblem ProblemOf(std::string_view value, const ValueForm& form) {
  ValueProblem problem;
  ValueWords words(value);
  ReadParts(words, form.parts, problem);
  while (!form.again.empty() && !problem && !words.AtEnd() && words.Rest().front() == ',') {
    words.Next();
    ReadParts(words, form.again, problem);
  }
  if (!problem && !words.AtEnd()) {
    problem = {"surplus-value", words.Rest(),
               Excerpt(words.Rest()) + " is more than the statement takes"};
  }
  return problem;
}

/// The value without the blanks and comments around its dots, which the server passes over.
std::string WithDotsJoined(std::string_view value) {
  std::string joined;
  WordsOfText words(value);
  for (std::string_view word = words.Next(); !word.empty(); word = words.Next()) {
    const bool join = joined.empty() || joined.back() == '.' || word.front() == '.';
    joined.append(join ? "" : " ").append(word);
  }
  return joined;
}

/// The first word of a value that is the keyword of a statement with a value; empty when none is.
std::string_view KeywordIn(std::string_view value) {
  ValueWords words(value);
  while (const auto word = words.Next()) {
    if (word->kind != ValueWord::kPlain || words.AtEnd()) continue;
    const KnownFirstWord known = FindFirstWord(word->text);
    const bool has_value = known.alone != nullptr && known.alone->kind != WordKind::kConditional &&
                           !known.alone->value.empty();
    if (has_value ||
        (known.goes_on && FindTwoWords(word->text, words.Rest().substr(0, words.Rest().find(' ')))))
      return word->text;
  }
  return {};
}

}  // namespace

std::string Excerpt(std::string_view text) {
  constexpr std::size_t kMost = 60;
  std::string excerpt = "\"";
  for (const char byte : text.substr(0, kMost)) {
    const bool shown = byte >= ' ' || (byte & 0x80) != 0;
    excerpt += shown ? byte : ' ';
  }
  if (text.size() > kMost) excerpt += "...";
  return excerpt + '"';
}

void CheckValue(const Item& item, Report& report) {
  std::string_view value = WithoutLeadingBlanks(item.value);
  const Word* word = item.word;
  if (word->value == "OPTION value") {  // append, supersede and the like: that of the option
    ValueWords words(value);
    word = words.AtEnd() ? nullptr : FindTwoWords("option", words.Next()->text);
    value = words.Rest();
  }
  if (word == nullptr) return;
  const ValueForm& form = FormOfWord(word);
  if (!form.is_checked) return;
  if (!value.empty() && value.front() == '=') return;
  ValueProblem problem = ProblemOf(value, form);
  if (!problem ||
      (value.find('.') != std::string_view::npos && !ProblemOf(WithDotsJoined(value), form))) {
    return;
  }
  if (const std::string_view swallowed = KeywordIn(value); !swallowed.empty()) {
    problem = {"swallowed-statement", swallowed,
               "a \";\" is missing before \"" + std::string(swallowed) + "\""};
  }
  report.Add(problem.rule,
             {.node = item.id, .message = std::move(problem.message), .at = problem.at});
}

}  // namespace klepur::internal
