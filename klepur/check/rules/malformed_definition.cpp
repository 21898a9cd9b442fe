// The definition of an option: a number, "=", and types that there are.
#include <klepur/check/rules/rules.h>

#include <klepur/check/value_reader.h>
#include <klepur/document/words_of_text.h>
#include <klepur/text/letters.h>

#include <algorithm>

namespace klepur::internal {
namespace {

constexpr std::string_view kTypes[] = {"boolean",     "text",        "string",      "ip-address",
                                       "ip6-address", "domain-name", "domain-list", "zerolen"};

/// Walks over the types of a definition, up to the first word that cannot stand there.
class TypeReader {
 public:
  explicit TypeReader(const WordsOfText& words) : words_(words) { Advance(); }

  /// The word that is wrong; empty when none is. At the end of the text that is the last word.
  std::string_view Wrong() {
    if (!ReadArray()) return Here();
    const bool right = Take("{") ? ReadRecord() : ReadType();
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

  /// "array of", if it is there. Texts have no end by which the server could tell them apart.
  bool ReadArray() {
    if (!Take("array")) return true;
    return Take("of") && !EqualButForCase(word_, "text");
  }

  bool ReadRecord() {
    do {
      if (!ReadArray() || !ReadType()) return false;
    } while (Take(","));
    return Take("}");
  }

  bool ReadType() {
    const bool sign = Take("signed") || Take("unsigned");
    if (Take("integer")) return Take("8") || Take("16") || Take("32");
    if (sign) return false;
    if (Take("encapsulate")) {
      const bool named = !word_.empty();
      Advance();
      return named;
    }
    const bool list = EqualButForCase(word_, "domain-list");
    if (std::none_of(std::begin(kTypes), std::end(kTypes),
                     [this](std::string_view type) { return EqualButForCase(word_, type); })) {
      return false;
    }
    Advance();
    if (list) Take("compressed");
    return true;
  }

  WordsOfText words_;
  std::string_view word_;
  std::string_view last_;
};

}  // namespace

void MalformedDefinition(const Facts& facts, Report& report) {
  for (const NamedFact& definition : facts.option_definitions) {
    std::string_view text = facts.state.OwnText(definition.node);
    if (facts.state.tree[definition.node].unfinished) continue;
    text.remove_suffix(1);
    WordsOfText words(text.substr(static_cast<std::size_t>(definition.name.end() - text.begin())));
    words.Next();
    const std::string_view number = words.Next();
    if (!IsNumber(number)) {
      report.Add({.node = definition.node,
                  .message = Excerpt(number) + " is no number of an option",
                  .at = number});
      continue;
    }
    if (words.Next() != "=") {
      report.Add({.node = definition.node,
                  .message = "a \"=\" must stand behind the number of an option",
                  .at = number});
      continue;
    }
    if (const std::string_view wrong = TypeReader(words).Wrong(); !wrong.empty()) {
      report.Add({.node = definition.node,
                  .message = Excerpt(wrong) + " stands where the type of an option must",
                  .at = wrong});
    }
  }
}

}  // namespace klepur::internal
