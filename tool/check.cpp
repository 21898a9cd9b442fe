// check: what is wrong with files.
#include <klepur/check/check_rules.h>
#include <klepur/check/checker.h>
#include <klepur/rewrite/rewrite_losses.h>

#include <fmt/core.h>

#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include <tool/commands.h>
#include <tool/failure.h>
#include <tool/findings.h>
#include <tool/language.h>
#include <tool/nearest.h>
#include <tool/output.h>
#include <tool/problem.h>
#include <tool/progress.h>
#include <tool/server_check.h>
#include <tool/source.h>

namespace klepur::tool {
namespace {

Severity LeastSeverity(const std::string& name) {
  if (name == "warning") return Severity::kWarning;
  return name == "note" ? Severity::kNote : Severity::kError;
}

/// The rules of --off. Throws Problem(kUsage) for one that there is not.
std::vector<std::string> RulesOff(const std::string& names) {
  std::vector<std::string> off;
  if (names.empty()) return off;
  for (const std::string& name : Divided(names, ',')) {
    if (!FindCheckRule(name)) {
      std::vector<std::string> known;
      for (const CheckRule& rule : CheckRules()) known.emplace_back(rule.name);
      const std::string nearest = Nearest(name, known);
      throw Problem(ExitStatus::kUsage,
                    fmt::format("check: there is no rule {}{}", name,
                                nearest.empty() ? "" : fmt::format("; did you mean {}?", nearest)));
    }
    off.push_back(name);
  }
  return off;
}

std::vector<CheckFinding> LossesOf(const Document& document) {
  std::vector<CheckFinding> findings;
  for (const RewriteLoss& loss : FindRewriteLosses(document)) {
    CheckFinding finding;
    finding.rule = NameOf(loss.reason);
    finding.severity = loss.severity;
    finding.place.where = loss.where;
    finding.message = loss.message;
    if (loss.other != Position()) finding.other = FilePosition{{}, loss.other};
    findings.push_back(std::move(finding));
  }
  return findings;
}

std::vector<CheckFinding> FindingsOf(const std::string& path, const Invocation& invocation) {
  const Document document = ReadDocument(path);
  const std::string name = invocation.Has("as") ? invocation.Value("as") : ShownName(path);
  const Progress progress(fmt::format("checking {}", name));
  std::vector<CheckFinding> findings =
      invocation.Has("rewrite")
          ? LossesOf(document)
          : Check(document, {Family::kUnknown, RulesOff(invocation.Value("off"))});
  for (CheckFinding& finding : findings) {
    finding.place.file = name;
    if (finding.other) finding.other->file = name;
  }
  if (invocation.Has("server")) {
    std::vector<CheckFinding> more = AskServer(invocation.Value("server"), document, name);
    std::move(more.begin(), more.end(), std::back_inserter(findings));
  }
  return findings;
}

}  // namespace

ExitStatus RunCheck(const Invocation& invocation) {
  const Output output(invocation);
  const std::vector<std::string>& files = invocation.Arguments("FILE");
  if (invocation.Has("as") && files.size() > 1) {
    throw Problem(ExitStatus::kUsage, "check: --as takes one FILE");
  }
  RulesOff(invocation.Value("off"));
  const Severity least = LeastSeverity(invocation.Value("fail-on"));
  ExitStatus status = ExitStatus::kDone;
  Records records;
  for (const std::string& path : files) {
    try {
      const std::vector<CheckFinding> findings = FindingsOf(path, invocation);
      if (findings.empty() && output.IsTerminal() && !output.IsJson()) {
        SayPlain(fmt::format("{}: nothing was found", ShownName(path)));
      }
      for (const CheckFinding& finding : findings) {
        if (finding.severity <= least) status = std::max(status, ExitStatus::kNothing);
        if (output.IsJson()) {
          records.push_back(AsRecord(finding));
        } else {
          output.Print(LineOf(finding, output) + "\n");
        }
      }
    } catch (const std::exception& failure) {
      // The other files are checked all the same.
      Say(MessageOf(failure));
      status = std::max(status, StatusOf(failure));
    }
  }
  if (output.IsJson()) output.Print(Record().With("findings", std::move(records)));
  return status;
}

}  // namespace klepur::tool
