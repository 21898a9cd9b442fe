#include <klepur/check/check_finding.h>

#include <array>
#include <cstddef>

namespace klepur {

std::string_view ToText(Severity severity) noexcept {
  constexpr std::array<std::string_view, 3> kNames = {"error", "warning", "note"};
  return kNames[static_cast<std::size_t>(severity)];
}

std::string ToText(const CheckFinding& finding) {
  std::string text = finding.place.file;
  if (!text.empty()) text += ':';
  text.append(std::to_string(finding.place.where.line)).append(":");
  text.append(std::to_string(finding.place.where.column)).append(": ");
  text.append(ToText(finding.severity)).append(": ").append(finding.message);
  if (finding.other) {
    text += " (also in ";
    if (finding.other->file != finding.place.file) text += finding.other->file + " ";
    text += "line " + std::to_string(finding.other->where.line) + ")";
  }
  return text.append(" [").append(finding.rule).append("]");
}

}  // namespace klepur
