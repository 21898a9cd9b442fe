// A range from high to low: the server turns it round.
#include <klepur/check/rules/rules.h>

#include <klepur/document/words_of_text.h>

namespace klepur::internal {
namespace {

template <class Ranges>
void ReportReversed(const Ranges& ranges, const Facts& facts, Report& report) {
  for (const auto& range : ranges) {
    if (!range.value.IsReversed()) continue;
    const std::string_view keyword = FirstWord(facts.state.OwnText(range.statement));
    report.Add({.node = range.statement,
                .message = "the range goes from high to low",
                .mend = Mend::Replace(report.Handle(range.statement),
                                      std::string(keyword) + ' ' + range.value.Text() + ';',
                                      "write \"" + range.value.Text() + "\"")});
  }
}

}  // namespace

void ReversedRange(const Facts& facts, Report& report) {
  ReportReversed(facts.ranges, facts, report);
  ReportReversed(facts.prefix_ranges, facts, report);
}

}  // namespace klepur::internal
