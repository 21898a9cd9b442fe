#include <tool/findings.h>

#include <fmt/core.h>

namespace klepur::tool {
namespace {

Style StyleOf(Severity severity) {
  switch (severity) {
    case Severity::kError:
      return Style::kBad;
    case Severity::kWarning:
      return Style::kWarning;
    case Severity::kNote:
      return Style::kPlace;
  }
  return Style::kPlain;
}

}  // namespace

std::string LineOf(const CheckFinding& finding, const Output& output) {
  const Position& where = finding.place.where;
  const std::string place = fmt::format("{}:{}:{}:", finding.place.file, where.line, where.column);
  const std::string severity = output.Painted(StyleOf(finding.severity), ToText(finding.severity));
  std::string line = fmt::format("{} {}: {}", output.Painted(Style::kStrong, place), severity,
                                 OneLine(finding.message));
  if (finding.other) line += fmt::format(" (also in line {})", finding.other->where.line);
  return fmt::format("{} {}", line,
                     output.Painted(Style::kFaint, fmt::format("[{}]", finding.rule)));
}

Record AsRecord(const CheckFinding& finding) {
  Record record;
  record.With("file", finding.place.file).With("line", finding.place.where.line);
  record.With("column", finding.place.where.column)
      .With("severity", std::string(ToText(finding.severity)));
  record.With("rule", std::string(finding.rule)).With("message", finding.message);
  if (finding.other) record.With("other_line", finding.other->where.line);
  if (finding.mend) record.With("mend", finding.mend->Description());
  return record;
}

}  // namespace klepur::tool
