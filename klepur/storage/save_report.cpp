#include <klepur/storage/save_report.h>

#include <utility>

#include <klepur/storage/save_facts.h>

namespace klepur {

SaveReport::SaveReport(std::shared_ptr<const internal::SaveFacts> facts) noexcept
    : facts_(std::move(facts)) {}
SaveReport::SaveReport(const SaveReport&) noexcept = default;
SaveReport::SaveReport(SaveReport&&) noexcept = default;
SaveReport& SaveReport::operator=(const SaveReport&) noexcept = default;
SaveReport& SaveReport::operator=(SaveReport&&) noexcept = default;
SaveReport::~SaveReport() = default;

bool SaveReport::Written() const noexcept {
  return facts_->written;
}

bool SaveReport::InPlace() const noexcept {
  return facts_->in_place;
}

const std::string& SaveReport::Backup() const noexcept {
  return facts_->backup;
}

const std::string& SaveReport::VerifierOutput() const noexcept {
  return facts_->verifier_output;
}

const std::vector<std::string>& SaveReport::StraysRemoved() const noexcept {
  return facts_->strays_removed;
}

const std::string& SaveReport::Warning() const noexcept {
  return facts_->warning;
}

RejectedText::RejectedText(const std::string& what, std::shared_ptr<const std::string> output)
    : Error(ErrorCode::kRejected, what), output_(std::move(output)) {}
RejectedText::RejectedText(const RejectedText&) noexcept = default;
RejectedText& RejectedText::operator=(const RejectedText&) noexcept = default;
RejectedText::~RejectedText() = default;

const std::string& RejectedText::Output() const noexcept {
  return *output_;
}

}  // namespace klepur
