#include <klepur/check/allowances.h>

#include <klepur/check/rule.h>
#include <klepur/document/words_of_text.h>

namespace klepur::internal {

std::vector<std::size_t> AllowedBy(std::string_view comment) {
  std::vector<std::size_t> rules;
  WordsOfText words(comment.substr(comment.find_first_not_of('#') == std::string_view::npos
                                       ? comment.size()
                                       : comment.find_first_not_of('#')));
  if (words.Next() != "klepur:" || words.Next() != "allow") return rules;
  for (std::string_view word = words.Next(); !word.empty(); word = words.Next()) {
    if (const std::size_t rule = RuleNumber(word); rule != kRuleCount) rules.push_back(rule);
  }
  return rules;
}

}  // namespace klepur::internal
