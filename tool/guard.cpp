#include <tool/guard.h>

#include <klepur/check/checker.h>
#include <klepur/check/edit_check.h>

#include <fmt/core.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include <tool/problem.h>
#include <tool/progress.h>

namespace klepur::tool {
namespace {

std::vector<CheckFinding> ErrorsOf(const Document& document) {
  std::vector<CheckFinding> errors;
  for (CheckFinding& finding : Check(document)) {
    if (finding.severity == Severity::kError) errors.push_back(std::move(finding));
  }
  return errors;
}

/// How often each thing is said.
using Said = std::map<std::pair<std::string, std::string>, std::size_t>;

Said WhatIsSaid(const std::vector<CheckFinding>& findings) {
  Said said;
  for (const CheckFinding& finding : findings) ++said[{std::string(finding.rule), finding.message}];
  return said;
}

}  // namespace

void RefuseNewErrors(EditedFile& file) {
  if (!file.IsChanged() || EditsBringNoError(file.Document(), file.AsRead())) return;
  const Progress progress(fmt::format("checking {}", file.Name()));
  const std::vector<CheckFinding> after = ErrorsOf(file.Document());
  if (after.empty()) return;
  Said before = WhatIsSaid(ErrorsOf(file.Before()));
  std::string message = "refused, the edit brings in an error (--force saves all the same):";
  bool is_new = false;
  for (const CheckFinding& finding : after) {
    const auto known = before.find({std::string(finding.rule), finding.message});
    if (known != before.end() && known->second > 0) {
      --known->second;
      continue;
    }
    is_new = true;
    message += fmt::format("\n  {}:{}:{}: {} [{}]", file.Name(), finding.place.where.line,
                           finding.place.where.column, finding.message, finding.rule);
    if (finding.other) message += fmt::format(", see line {}", finding.other->where.line);
  }
  if (is_new) throw Problem(ExitStatus::kRefused, message);
}

}  // namespace klepur::tool
