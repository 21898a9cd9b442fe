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
    {"microseconds", ReadNumber},
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
    {"word", ReadWord},
};

// Keywords whose value is more than a row of types, and what is missing where there is none; empty where that may be.
struct OfKeyword {
  std::string_view name;
  ValueReader read;
  std::string_view what;
};

constexpr OfKeyword kOfKeywords[] = {
    {"allow after", ReadDate, "the date"},
    {"define", ReadDefine, "the name of a variable"},
    {"else", ReadElse, {}},
    {"elsif", ReadCondition, "the condition"},
    {"eval", ReadAnyExpression, "the expression"},
    {"execute", ReadExecute, "the command"},
    {"if", ReadCondition, "the condition"},
    {"interface", ReadInterface, "its name"},
    {"log", ReadLog, "what is logged"},
    {"match", ReadDataExpression, "the expression"},
    {"match if", ReadMatchCondition, "the condition"},
    {"on", ReadEvents, "commit, release, expiry or transmission"},
    {"option space", ReadOptionSpace, "its name"},
    {"return", ReadAnyExpression, "the expression"},
    {"server-duid", ReadDuid, "the identifier"},
    {"set", ReadAssignment, "the name of a variable"},
    {"spawn with", ReadDataExpression, "the expression"},
    {"subclass", ReadSubclass, "the name of the class"},
    {"switch", ReadSwitch, "the expression"},
    {"unset", ReadUnset, "the name of a variable"},
    {"user-class", ReadQuotedText, "the name of the class"},
    {"vendor-class", ReadQuotedText, "the name of the class"},
};

constexpr std::string_view kHostIdentifier = "host-identifier";

// The type of options that say something by being there.
constexpr std::string_view kNoValue = "zerolen";

/// What a value is made of.
struct ValueForm {
  using Parts = std::vector<std::pair<std::string_view, ValueReader>>;
  std::string_view rest_of_keyword;  ///< What stands behind its second word, "bootp clients".
  Parts parts;
  Parts again;                 ///< The parts that may come again, behind a comma.
  bool is_checked = false;     ///< False where something stands in it that is no type.
  bool wants_block = false;    ///< Whether nothing but a block may follow it.
  bool is_computable = false;  ///< Whether it may be an expression behind a "=".
};

ValueReader ReaderOf(std::string_view type) {
  if (type.find('|') != std::string_view::npos) return ReadChoice;
  const auto* const found =
      std::find_if(std::begin(kTypes), std::end(kTypes),
                   [&](const ValueType& other) { return other.name == type; });
  return found == std::end(kTypes) ? nullptr : found->read;
}

const OfKeyword* KeywordOf(std::string_view name) {
  const auto* const found =
      std::find_if(std::begin(kOfKeywords), std::end(kOfKeywords),
                   [&](const OfKeyword& other) { return other.name == name; });
  return found == std::end(kOfKeywords) ? nullptr : found;
}

ValueForm FormOf(const Word& word) {
  ValueForm form;
  form.is_checked = true;
  form.wants_block = (word.name == "key" || word.name == "group" || word.name == "failover peer") &&
                     word.value.find("block") != std::string_view::npos &&
                     word.value.find("above") == std::string_view::npos;
  const std::size_t second = std::min(word.name.find(' '), word.name.size());
  const std::size_t third = word.name.find(' ', second + 1);
  if (third != std::string_view::npos) form.rest_of_keyword = word.name.substr(third + 1);
  if (const OfKeyword* const keyword = KeywordOf(word.name)) {
    form.parts.emplace_back(keyword->what, keyword->read);
    return form;
  }
  std::string_view value = word.value;
  form.is_computable = !value.empty();
  while (!value.empty()) {
    const std::string_view type = value.substr(0, value.find(' '));
    value.remove_prefix(std::min(type.size() + 1, value.size()));
    if (type == kNoValue) continue;
    if (type == "list" && value.empty()) {
      const bool alike = form.parts.size() < 2 || form.parts.front() == form.parts.back();
      form.again = alike ? form.parts : ValueForm::Parts{form.parts.back()};
    } else {
      const bool may_lack = type.front() == '[';
      const ValueReader read = ReaderOf(may_lack ? type.substr(1, type.size() - 2) : type);
      form.parts.emplace_back(type, read);
      form.is_checked = form.is_checked && read != nullptr;
    }
  }
  return form;
}

std::vector<ValueForm> AllForms() {
  std::vector<ValueForm> forms;
  forms.reserve(kWordCount);
  for (const Word& word : Words()) forms.push_back(FormOf(word));
  return forms;
}

const ValueForm& FormOfWord(const Word* word) {
  static const std::vector<ValueForm> forms = AllForms();
  return forms[static_cast<std::size_t>(word - kWordRows)];
}

/// Reads some parts.
void ReadParts(ValueWords& words, const ValueForm::Parts& parts, ValueProblem& problem) {
  for (const auto& [type, read] : parts) {
    if (words.AtEnd() && (type.empty() || type.front() == '[')) return;
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

/// Whether a statement can have an expression for its value, behind a "=".
bool CanBeComputed(const Item& item) {
  if (item.word == nullptr) return EqualButForCase(item.first, "option");
  return item.word->kind == WordKind::kOption || FormOfWord(item.word).is_computable;
}

ValueProblem ProblemOfComputed(std::string_view value) {
  ValueProblem problem;
  ValueWords words(value.substr(1));
  if (words.AtEnd()) {
    problem = {"malformed-expression", value.substr(0, 1),
               "the expression is missing behind \"=\""};
  } else {
    ReadDataExpression(words, {}, problem);
  }
  return problem;
}

/// What is wrong with the words of a keyword behind its second one: "allow all" wants "clients".
ValueProblem ProblemOfKeyword(const Item& item, const Word* word) {
  if (word == nullptr || item.second.empty()) return {};
  std::string_view rest = FormOfWord(word).rest_of_keyword;
  if (EqualButForCase(item.second, "known") || EqualButForCase(item.second, "unknown"))
    rest = "clients";
  const auto* const end = item.text.end() - (item.text.back() == ';' ? 1 : 0);
  ValueWords words(
      std::string_view(item.second.end(), static_cast<std::size_t>(end - item.second.end())));
  while (!rest.empty()) {
    const std::string_view wanted = rest.substr(0, rest.find(' '));
    rest.remove_prefix(std::min(wanted.size() + 1, rest.size()));
    if (words.Skip(wanted)) continue;
    return {"missing-value", item.second,
            "\"" + std::string(wanted) + "\" is missing behind \"" + std::string(item.first) + ' ' +
                std::string(item.second) + "\""};
  }
  return {};
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

/// The option that identifies a host, with its value in the place of the whole; null when nothing can be said of it.
const Word* WordOfHostIdentifier(const Item& item, std::string_view& value, Report& report) {
  ValueWords words(value);
  if (words.Skip("v6relopt")) {
    const auto number = words.Next();
    if (!number || !IsNumber(number->text)) {
      report.Add("malformed-number",
                 {.node = item.id,
                  .message = "\"v6relopt\" wants the number of a relay behind it",
                  .at = value});
      return nullptr;
    }
  } else if (!words.Skip("option")) {
    report.Add("unknown-choice",
               {.node = item.id,
                .message = "a host is identified by an \"option\" or a \"v6relopt\"",
                .at = value});
    return nullptr;
  }
  const auto name = words.Next();
  value = words.Rest();
  return name ? FindTwoWords("option", name->text) : nullptr;
}

/// Whether a value is a definition, "code 119 = text", which is noted, or of an option that the file has defined.
bool IsRedefined(const Item& item, std::string_view value, const Word* word, Facts& facts) {
  if (word == nullptr || word->kind != WordKind::kOption) return false;
  ValueWords words(value);
  if (word == item.word && words.Skip("code") && !words.AtEnd() &&
      IsDecimalNumber(words.Next()->text)) {
    facts.option_definitions.push_back({item.id, item.second});
    facts.redefined_options.push_back(word);
    return true;
  }
  return std::find(facts.redefined_options.begin(), facts.redefined_options.end(), word) !=
         facts.redefined_options.end();
}

/// Whether what stands here is no reference to a group, key or failover peer, but one without its block.
bool LacksBlock(const Item& item) {
  if (item.kind == NodeKind::kBlock || item.word == nullptr) return false;
  if (item.around.scope == kNowhere || !FormOfWord(item.word).wants_block) return false;
  return item.word->name != "failover peer" || item.around.scope == kInFile;
}

bool IsNameOfOption(std::string_view text) {
  return !text.empty() && IsWordByte(text.front()) && text.front() != '_' && !IsDecimalNumber(text);
}

void TellOfNoOption(const Item& item, Report& report) {
  report.Add("missing-value", {.node = item.id,
                               .message = "the name of an option is missing behind \"" +
                                          std::string(item.first) + "\""});
}

bool IsRightWithDotsJoined(std::string_view value, const Word* word, const ValueProblem& problem) {
  return word != nullptr && problem.rule != "malformed-expression" &&
         value.find('.') != std::string_view::npos &&
         !ProblemOf(WithDotsJoined(value), FormOfWord(word));
}

void TellOfSwallowed(std::string_view value, ValueProblem& problem) {
  if (problem.rule == "malformed-expression") return;
  const std::string_view swallowed = KeywordIn(value);
  if (swallowed.empty()) return;
  problem = {"swallowed-statement", swallowed,
             "a \";\" is missing before \"" + std::string(swallowed) + "\""};
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

void CheckValue(const Item& item, Facts& facts, Report& report) {
  std::string_view value = WithoutLeadingBlanks(item.value);
  const Word* word = item.word;
  if (LacksBlock(item)) {
    report.Add("missing-block",
               {.node = item.id,
                .message = "the \"{\" of \"" + std::string(word->name) + "\" is missing"});
    return;
  }
  if (word != nullptr &&
      word->value == "OPTION value") {  // append and the like: that of the option
    ValueWords words(value);
    const auto name = words.Next();
    if (!name || !IsNameOfOption(name->text)) return TellOfNoOption(item, report);
    word = FindTwoWords("option", name->text);
    value = words.Rest();
  } else if (item.word != nullptr && item.word->name == "option") {
    if (!IsNameOfOption(item.second)) return TellOfNoOption(item, report);
  } else if (word != nullptr && word->name == kHostIdentifier) {
    word = WordOfHostIdentifier(item, value, report);
  }
  const bool is_computed = item.kind == NodeKind::kStatement && !value.empty() &&
                           value.front() == '=' && CanBeComputed(item);
  if (!is_computed && (word == nullptr || !FormOfWord(word).is_checked)) return;
  ValueProblem problem =
      is_computed ? ProblemOfComputed(value) : ProblemOf(value, FormOfWord(word));
  if (!problem && word == item.word) problem = ProblemOfKeyword(item, word);
  if (!problem || IsRightWithDotsJoined(value, word, problem)) return;
  if (IsRedefined(item, value, word, facts)) return;
  TellOfSwallowed(value, problem);
  std::optional<Mend> mend;
  if (!problem.instead.empty()) mend = report.Rewrite(item.id, problem.at, problem.instead);
  report.Add(problem.rule, {.node = item.id,
                            .message = std::move(problem.message),
                            .at = problem.at,
                            .mend = std::move(mend)});
}

}  // namespace klepur::internal
