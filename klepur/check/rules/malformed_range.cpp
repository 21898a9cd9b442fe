// Ranges of addresses and of prefixes.
#include <klepur/check/value_reader.h>

#include <klepur/network/prefix.h>
#include <klepur/network/prefix_range.h>
#include <klepur/network/range.h>

#include <klepur/document/words_of_text.h>

#include <string>

namespace klepur::internal {
namespace {

void TakeAll(ValueWords& words) {
  words = ValueWords(words.Rest().substr(words.Rest().size()));
}

/// Two addresses with a dash between, without it; empty when it is nothing else.
std::string WithoutDash(std::string_view value, bool is_six) {
  const std::size_t dash = value.find('-');
  if (dash == std::string_view::npos) return {};
  std::string text(UpToLastWord(value.substr(0, dash)));
  text += ' ';
  text += UpToLastWord(WithoutLeadingBlanks(value.substr(dash + 1)));
  const auto range = AddressRange::Parse(text);
  return range && range->First().IsV6() == is_six ? text : std::string();
}

void NoteHostBits(std::string_view value, const std::optional<Prefix>& prefix,
                  ValueProblem& problem) {
  if (!prefix || !prefix->HasHostBits()) return;
  problem = {"host-bits", value,
             prefix->Text() + " has bits behind its prefix; the network is " +
                 prefix->WithoutHostBits().Text()};
}

}  // namespace

void ReadRange(ValueWords& words, std::string_view type, ValueProblem& problem) {
  const std::string_view value = words.Rest();
  const auto range = AddressRange::Parse(value);
  const bool is_six = type == "range6";
  if (range && range->First().IsV6() == is_six) {
    NoteHostBits(value, is_six ? Prefix::Parse(ValueWords(value).Next()->text) : std::nullopt,
                 problem);
    return TakeAll(words);
  }
  problem = {"malformed-range", value,
             Excerpt(value) + (is_six ? " is no range, as 2001:db8::1 2001:db8::9 or 2001:db8::/64"
                                      : " is no range, as 10.0.0.1 10.0.0.9"),
             WithoutDash(value, is_six), UpToLastWord(value)};
}

void ReadPrefixRange(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const std::string_view value = words.Rest();
  if (const auto range = PrefixRange::Parse(value)) {
    NoteHostBits(value, range->First(), problem);
    NoteHostBits(value, range->Last(), problem);
    return TakeAll(words);
  }
  problem = {"malformed-range", value,
             Excerpt(value) + " is no range of prefixes, as 2001:db8:0:100:: 2001:db8:0:f00:: /56"};
}

void ReadPrefix(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const std::string_view value = words.Rest();
  const auto prefix = Prefix::Parse(value);
  if (prefix && prefix->GetAddress().IsV6()) {
    NoteHostBits(value, prefix, problem);
    if (problem) problem.instead = prefix->WithoutHostBits().Text();
    if (!problem && IsValueBlank(value.back()) && value.find('#') == std::string_view::npos) {
      problem = {"blank-behind-prefix", value, "a blank stands before the \";\" of the prefix",
                 std::string(UpToLastWord(value))};
    }
    return TakeAll(words);
  }
  problem = {"malformed-prefix", value, Excerpt(value) + " is no prefix, as 2001:db8:0:100::/56"};
}

}  // namespace klepur::internal
