#include <klepur/check/option_names.h>

#include <klepur/language/word_index.h>
#include <klepur/text/letters.h>

#include <algorithm>

namespace klepur::internal {
namespace {

// The spaces that the server has by itself, and of these the ones of which the table of words has no options.
constexpr std::string_view kSpaces[] = {"agent", "dhcp",   "dhcp6",  "fqdn", "isc",
                                        "nwip",  "server", "vendor", "vsio", "vendor-class"};
constexpr std::string_view kOpenSpaces[] = {"isc", "server", "vendor", "vendor-class", "vsio"};
constexpr std::string_view kByNumber = "unknown-";

std::string Small(std::string_view text) {
  std::string small(text);
  std::transform(small.begin(), small.end(), small.begin(), ToSmallLetter);
  return small;
}

/// "dhcp.routers" for "routers", in small letters.
std::string FullName(std::string_view name) {
  return name.find('.') == std::string_view::npos ? "dhcp." + Small(name) : Small(name);
}

}  // namespace

OptionNames::OptionNames(const Facts& facts) {
  for (const std::string_view space : kSpaces) spaces_.emplace(space);
  for (const NamedFact& space : facts.option_spaces) spaces_.insert(Small(space.name));
  for (const NamedFact& option : facts.option_definitions) options_.insert(FullName(option.name));
}

std::string OptionNames::SpaceOf(std::string_view name) {
  const std::string full = FullName(name);
  return full.substr(0, full.find('.'));
}

bool OptionNames::IsSpaceOfServer(std::string_view space) {
  return std::find(std::begin(kSpaces), std::end(kSpaces), space) != std::end(kSpaces);
}

bool OptionNames::HasSpace(const std::string& space) const {
  return spaces_.count(space) != 0;
}

bool OptionNames::HasOption(std::string_view name) const {
  const std::string full = FullName(name);
  const std::string space = full.substr(0, full.find('.'));
  const std::string own = full.substr(space.size() + 1);
  if (own.compare(0, kByNumber.size(), kByNumber) == 0) return true;
  if (std::find(std::begin(kOpenSpaces), std::end(kOpenSpaces), space) != std::end(kOpenSpaces))
    return true;
  if (options_.count(full) != 0) return true;
  return FindTwoWords("option", space == "dhcp" ? own : full) != nullptr;
}

bool CanDefineElsewhere(const Facts& facts) {
  return !facts.includes.empty();
}

}  // namespace klepur::internal
