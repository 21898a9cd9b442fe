// The definition of an option: a number, "=", and types that there are.
#include <klepur/check/rules/rules.h>

#include <klepur/check/value_reader.h>
#include <klepur/document/words_of_text.h>
#include <klepur/text/letters.h>

#include <algorithm>
#include <string>
#include <utility>

namespace klepur::internal {
namespace {

constexpr std::string_view kTypes[] = {"boolean", "ip-address", "ip6-address"};

// What has no end by which the server could tell what stands behind it.
constexpr std::string_view kOpenTypes[] = {"text", "string", "domain-name", "domain-list",
                                           "zerolen"};

template <std::size_t N>
bool IsOneOf(const std::string_view (&types)[N], std::string_view word) {
  return std::any_of(std::begin(types), std::end(types),
                     [&](std::string_view type) { return EqualButForCase(word, type); });
}

/// Walks over the types of a definition, up to the first word that cannot stand there.
class TypeReader {
 public:
  explicit TypeReader(const WordsOfText& words) : words_(words) { Advance(); }

  /// The word that is wrong; empty when none is. At the end of the text that is the last word.
  std::string_view Wrong() {
    if (!ReadArray(is_array_)) return Here();
    const bool right = Take("{") ? ReadRecord() : ReadType(is_array_);
    return right && word_.empty() ? std::string_view() : Here();
  }

 private:
  void Advance() {
    last_ = word_;
    word_ = words_.Next();
  }

  bool Take(std::string_view word) {
    if (!EqualButForCase(word_, word)) return false;
    Advance();
    return true;
  }

  std::string_view Here() const { return word_.empty() ? last_ : word_; }

  /// "array of", if it is there.
  bool ReadArray(bool& is_array) {
    if (!Take("array")) return true;
    is_array = true;
    return Take("of");
  }

  /// What is open can only be the last of a record.
  bool ReadRecord() {
    do {
      bool is_array = is_array_;
      if (is_open_ || !ReadArray(is_array) || !ReadType(is_array)) return false;
    } while (Take(","));
    return Take("}");
  }

  bool ReadType(bool is_array) {
    const bool sign = Take("signed") || Take("unsigned");
    if (Take("integer")) return Take("8") || Take("16") || Take("32");
    if (sign) return false;
    if (EqualButForCase(word_, "encapsulate")) {
      if (is_array_) return false;
      Advance();
      is_open_ = true;
      const bool named = !word_.empty() && word_.front() != '"';
      Advance();
      return named;
    }
    const bool list = EqualButForCase(word_, "domain-list");
    const bool is_open = IsOneOf(kOpenTypes, word_);
    if (is_open ? is_array : !IsOneOf(kTypes, word_)) return false;
    is_open_ = is_open;
    Advance();
    if (list) Take("compressed");
    return true;
  }

  WordsOfText words_;
  std::string_view word_;
  std::string_view last_;
  bool is_array_ = false;
  bool is_open_ = false;
};

/// What is wrong behind the word "code".
ValueProblem ProblemOf(std::string_view number, WordsOfText words) {
  constexpr std::string_view kRule = "malformed-definition";
  if (!IsDecimalNumber(number))
    return {kRule, number, Excerpt(number) + " is no number of an option"};
  if (words.Next() != "=")
    return {kRule, number, "a \"=\" must stand behind the number of an option"};
  if (WordsOfText(words).Next().empty())
    return {kRule, number, "the type of the option is missing"};
  const std::string_view wrong = TypeReader(words).Wrong();
  if (wrong.empty()) return {};
  return {kRule, wrong, Excerpt(wrong) + " stands where the type of an option must"};
}

bool IsWidth(std::string_view number, bool is_code, bool is_hash) {
  if (!IsDecimalNumber(number) || number.front() == '-') return false;
  if (is_hash) return true;
  while (number.size() > 1 && number.front() == '0') number.remove_prefix(1);
  return number == "1" || number == "2" || (is_code && number == "4");
}

}  // namespace

/// The name of an option space, and how long the numbers and the lengths of its options are.
void ReadOptionSpace(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  ReadWord(words, {}, problem);
  while (!problem && !words.AtEnd()) {
    const std::string_view part = words.Rest();
    const bool is_code = words.Skip("code");
    const bool is_length = !is_code && words.Skip("length");
    const bool is_hash = !is_code && !is_length && words.Skip("hash");
    const bool is_part =
        is_hash ? words.Skip("size") : (is_code || is_length) && words.Skip("width");
    const auto number = words.Next();
    if (is_part && number && IsWidth(number->text, is_code, is_hash)) continue;
    problem = {"malformed-definition", part,
               "behind the name of an option space may stand \"code width\" with 1, 2 or 4, "
               "\"length width\" "
               "with 1 or 2, and \"hash size\" with a number"};
  }
}

void MalformedDefinition(const Facts& facts, Report& report) {
  for (const NamedFact& definition : facts.option_definitions) {
    const SyntaxNode& node = facts.state.tree[definition.node];
    if (node.unfinished) continue;
    if (node.parent != kRoot) {
      report.Add("misplaced-statement",
                 {.node = definition.node, .message = "options are defined at file level only"});
      continue;
    }
    std::string_view text = facts.state.OwnText(definition.node);
    text.remove_suffix(1);
    WordsOfText words(text.substr(static_cast<std::size_t>(definition.name.end() - text.begin())));
    words.Next();
    const std::string_view number = words.Next();
    if (auto problem = ProblemOf(number, words)) {
      report.Add(
          {.node = definition.node, .message = std::move(problem.message), .at = problem.at});
    }
  }
}

}  // namespace klepur::internal
