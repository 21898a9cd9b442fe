#include <klepur/check/checker.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include <klepur/check/check_rules.h>
#include <klepur/check/facts.h>
#include <klepur/check/report.h>
#include <klepur/check/rule.h>
#include <klepur/check/structure_rules.h>
#include <klepur/check/walk.h>
#include <klepur/document/node_access.h>

namespace klepur {
namespace {

constexpr std::size_t kNodesAtOnce = 4096;

std::vector<bool> Silent(const CheckOptions& options) {
  std::vector<bool> silent(internal::kRuleCount, false);
  for (const std::string& name : options.off) {
    const std::size_t rule = internal::RuleNumber(name);
    if (rule != internal::kRuleCount) silent[rule] = true;
  }
  return silent;
}

/// One check of a document that nobody edits: the walk, the rules that look at the file as a whole, and
/// what reading found.
class Pass {
 public:
  Pass(const Document& document, const CheckOptions& options)
      : document_(document),
        state_(*NodeAccess::State(document.Root())),
        edits_(state_.edits),
        facts_(state_),
        report_(state_, Silent(options)),
        walk_(facts_, report_) {
    facts_.family = options.family;
  }

  bool IsOfNow() const {
    return NodeAccess::State(document_.Root()) == &state_ && state_.edits == edits_;
  }

  bool Step() {
    if (walking_) {
      walking_ = walk_.Step(kNodesAtOnce);
      return true;
    }
    while (rule_ != internal::kRuleCount) {
      const internal::Rule& rule = internal::kRules[rule_];
      if (rule.whole != nullptr && !report_.IsSilent(rule_)) {
        report_.SetRule(rule_);
        rule.whole(facts_, report_);
        ++rule_;
        return true;
      }
      ++rule_;
    }
    internal::ReportStructure(document_, facts_.seems_malformed, report_);
    return false;
  }

  std::vector<CheckFinding> Take() { return report_.Take(); }

 private:
  const Document& document_;
  internal::DocumentState& state_;
  std::size_t edits_;
  internal::Facts facts_;
  internal::Report report_;
  internal::Walk walk_;
  bool walking_ = true;
  std::size_t rule_ = 0;
};

}  // namespace

struct Checker::Run {
  Run(const Document& document_, CheckOptions options_)
      : document(document_), options(std::move(options_)) {}

  bool Step() {
    if (pass && !pass->IsOfNow()) pass.reset();
    if (!pass) {
      if (done) return false;
      pass = std::make_unique<Pass>(document, options);
      return true;
    }
    if (pass->Step()) return true;
    findings = pass->Take();
    pass.reset();
    done = true;
    return false;
  }

  const Document& document;
  CheckOptions options;
  std::unique_ptr<Pass> pass;
  std::vector<CheckFinding> findings;
  bool done = false;
};

Checker::Checker(const Document& document, CheckOptions options)
    : run_(std::make_unique<Run>(document, std::move(options))) {}
Checker::Checker(Checker&&) noexcept = default;
Checker& Checker::operator=(Checker&&) noexcept = default;
Checker::~Checker() = default;

bool Checker::Step() {
  try {
    return run_->Step();
  } catch (...) {
    run_->pass.reset();
    throw;
  }
}

const std::vector<CheckFinding>& Checker::Findings() const noexcept {
  return run_->findings;
}

std::vector<CheckFinding> Check(const Document& document, CheckOptions options) {
  Checker checker(document, std::move(options));
  while (checker.Step()) {
  }
  return checker.Findings();
}

}  // namespace klepur
