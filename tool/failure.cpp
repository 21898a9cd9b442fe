#include <tool/failure.h>

#include <klepur/storage/save_report.h>
#include <klepur/text/error.h>

#include <fmt/core.h>

#include <new>

#include <tool/problem.h>

namespace klepur::tool {
namespace {

ExitStatus StatusOf(ErrorCode code) {
  switch (code) {
    case ErrorCode::kFile:
    case ErrorCode::kTooLarge:
      return ExitStatus::kFile;
    case ErrorCode::kGone:
    case ErrorCode::kNotFound:
      return ExitStatus::kNothing;
    case ErrorCode::kBadText:
      return ExitStatus::kUsage;
    case ErrorCode::kBadPlace:
    case ErrorCode::kMalformed:
    case ErrorCode::kChanged:
    case ErrorCode::kLocked:
    case ErrorCode::kRefused:
    case ErrorCode::kRejected:
      return ExitStatus::kRefused;
  }
  return ExitStatus::kRefused;
}

/// The lines of a text, each behind four blanks on a new line.
std::string Indented(const std::string& text) {
  std::string indented = "\n    ";
  for (const char byte : text) {
    indented += byte;
    if (byte == '\n') indented += "    ";
  }
  indented.erase(indented.find_last_not_of(" \n") + 1);
  return indented;
}

}  // namespace

std::string MessageOf(const std::exception& failure) {
  if (const auto* const rejected = dynamic_cast<const RejectedText*>(&failure)) {
    return rejected->what() + (rejected->Output().empty() ? "" : Indented(rejected->Output()));
  }
  if (dynamic_cast<const std::bad_alloc*>(&failure) != nullptr) return "there is not enough memory";
  const auto* const error = dynamic_cast<const Error*>(&failure);
  if (error != nullptr && error->Code() == ErrorCode::kRefused) {
    return std::string(error->what()) + ", as --in-place does";
  }
  return failure.what();
}

ExitStatus StatusOf(const std::exception& failure) {
  if (const auto* const problem = dynamic_cast<const Problem*>(&failure)) return problem->Status();
  if (const auto* const error = dynamic_cast<const Error*>(&failure))
    return StatusOf(error->Code());
  return ExitStatus::kFile;
}

}  // namespace klepur::tool
