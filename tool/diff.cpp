// diff: what differs in meaning between two files.
#include <string>
#include <vector>

#include <tool/commands.h>
#include <tool/meaning_diff.h>
#include <tool/output.h>
#include <tool/problem.h>
#include <tool/source.h>

namespace klepur::tool {
namespace {

Style StyleOf(Difference::Kind kind) {
  switch (kind) {
    case Difference::Kind::kAdded:
      return Style::kGood;
    case Difference::Kind::kRemoved:
      return Style::kBad;
    case Difference::Kind::kChanged:
      return Style::kWarning;
    case Difference::Kind::kMoved:
      return Style::kPlace;
  }
  return Style::kPlain;
}

std::string LineText(std::size_t line) {
  return line == 0 ? std::string() : std::to_string(line);
}

}  // namespace

ExitStatus RunDiff(const Invocation& invocation) {
  const Output output(invocation);
  if (invocation.Argument("OLD") == kStandard && invocation.Argument("NEW") == kStandard) {
    throw Problem(ExitStatus::kUsage, "diff: only one of OLD and NEW can be standard input");
  }
  const Document old_document = ReadDocument(invocation.Argument("OLD"));
  const Document new_document = ReadDocument(invocation.Argument("NEW"));
  Table table = {{"CHANGE", "WHAT", "IN", "OLD", "NEW", "OLD LINE", "NEW LINE"}, {}};
  Records records;
  for (Difference& each : Differences(old_document, new_document)) {
    if (each.kind == Difference::Kind::kMoved) {
      if (each.was.empty()) each.was = "global";
      if (each.now.empty()) each.now = "global";
    }
    const std::string kind(ToText(each.kind));
    table.rows.push_back({{kind, each.what, each.in, OneLine(each.was), OneLine(each.now),
                           LineText(each.old_line), LineText(each.new_line)},
                          StyleOf(each.kind)});
    Record record;
    record.With("change", kind).With("what", each.what).With("in", each.in);
    record.With("old", each.was).With("new", each.now);
    if (each.old_line != 0) record.With("old_line", each.old_line);
    if (each.new_line != 0) record.With("new_line", each.new_line);
    records.push_back(std::move(record));
  }
  const bool differ = !records.empty();
  if (output.IsJson()) {
    output.Print(Record()
                     .With("old", invocation.Argument("OLD"))
                     .With("new", invocation.Argument("NEW"))
                     .With("changes", std::move(records)));
  } else {
    output.Print(table);
  }
  return differ ? ExitStatus::kNothing : ExitStatus::kDone;
}

}  // namespace klepur::tool
