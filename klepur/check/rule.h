// Internal: a rule, as a row of the table of rules.
#ifndef KLEPUR_CHECK_RULE_H
#define KLEPUR_CHECK_RULE_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include <klepur/document/finding.h>

namespace klepur::internal {

struct Facts;
struct Item;
class Report;

/// Which statements and blocks a rule that looks at each for itself is shown.
enum class Shown : std::uint8_t {
  kNone,
  kUnknownWords,  ///< Statements and blocks whose keyword is in no table.
  kBlocks,        ///< All blocks.
  kSubnets,       ///< Blocks of subnets.
  kBroken,  ///< What is unfinished, or has a block where none belongs, or none where one does.
};

/// A rule has one of three ways to work. `each` is called while the file is walked through, in the order
/// of the text; `whole` when all facts are gathered. One that has neither speaks through a table: that of
/// the document's findings (structure_rules.cpp), or that of the types of values (value_types.cpp).
struct Rule {
  std::string_view name;
  Severity severity;
  std::string_view title;
  void (*whole)(const Facts&, Report&) = nullptr;
  Shown shown = Shown::kNone;
  void (*each)(const Item&, const Facts&, Report&) = nullptr;
};

/// The table, in the order of the manual.
extern const Rule* const kRules;
extern const std::size_t kRuleCount;

/// The number of the rule of a name; kRuleCount when there is none.
std::size_t RuleNumber(std::string_view name) noexcept;

}  // namespace klepur::internal

#endif
