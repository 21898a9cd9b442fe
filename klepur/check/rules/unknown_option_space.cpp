// An option of a space that neither the server nor the file has, or one whose definition stands above its space's.
#include <klepur/check/rules/references.h>
#include <klepur/check/rules/rules.h>

#include <klepur/check/option_names.h>
#include <klepur/document/words_of_text.h>

namespace klepur::internal {
namespace {

void ReportUnknown(NodeId node, std::string_view at, const std::string& space, Report& report) {
  report.Add({.node = node, .message = "there is no option space \"" + space + "\"", .at = at});
}

/// Where a definition says "encapsulate", the space behind it.
std::string_view Encapsulated(std::string_view definition) {
  WordsOfText words(definition);
  for (std::string_view word = words.Next(); !word.empty(); word = words.Next()) {
    if (EqualButForCase(word, "encapsulate")) return words.Next();
  }
  return {};
}

class SpacesOfDefinitions {
 public:
  SpacesOfDefinitions(const Facts& facts, const OptionNames& names, Report& report)
      : facts_(facts),
        names_(names),
        report_(report),
        declared_(facts.option_spaces, Case::kIgnored) {}

  /// Reports a space in a definition that is not there, or only below.
  void Check(NodeId definition, std::string_view at, const std::string& space) {
    if (!names_.HasSpace(space)) return ReportUnknown(definition, at, space, report_);
    const NodeId node = declared_.Find(space);
    if (node == kNoNode || OptionNames::IsSpaceOfServer(space) ||
        OffsetOf(facts_.state, node) <= OffsetOf(facts_.state, definition)) {
      return;
    }
    report_.Add({.node = definition,
                 .message = "the option space \"" + space + "\" is declared below only",
                 .at = at,
                 .other = node});
  }

 private:
  const Facts& facts_;
  const OptionNames& names_;
  Report& report_;
  Declarations declared_;
};

}  // namespace

void UnknownOptionSpace(const Facts& facts, Report& report) {
  if (CanDefineElsewhere(facts)) return;
  const OptionNames names(facts);
  for (const NamedFact& use : facts.option_uses) {
    const std::string space = OptionNames::SpaceOf(use.name);
    if (!names.HasSpace(space)) ReportUnknown(use.node, use.name, space, report);
  }
  SpacesOfDefinitions spaces(facts, names, report);
  for (const NamedFact& definition : facts.option_definitions) {
    spaces.Check(definition.node, definition.name, OptionNames::SpaceOf(definition.name));
    const std::string_view inner = Encapsulated(facts.state.OwnText(definition.node));
    if (!inner.empty() && inner.front() != '"') {
      spaces.Check(definition.node, inner, OptionNames::SpaceOf(std::string(inner) + '.'));
    }
  }
}

}  // namespace klepur::internal
