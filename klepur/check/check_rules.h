// The rules by which files are checked.
#ifndef KLEPUR_CHECK_CHECK_RULES_H
#define KLEPUR_CHECK_CHECK_RULES_H

#include <optional>
#include <string_view>
#include <vector>

#include <klepur/document/finding.h>
#include <klepur/export.h>

namespace klepur {

/// What is to be known of a rule. Its texts live as long as the program.
struct CheckRule {
  /// "duplicate-hardware-address": stable, and its anchor in the manual (docs/checks.md).
  std::string_view name;
  Severity severity;
  /// A line of English: "Two hosts have the same hardware address".
  std::string_view title;
};

/// All rules, in the order of the manual.
KLEPUR_EXPORT std::vector<CheckRule> CheckRules();
/// The rule of a name, if there is one.
KLEPUR_EXPORT std::optional<CheckRule> FindCheckRule(std::string_view name) noexcept;

}  // namespace klepur

#endif
