// Internal: comments that silence rules.
#ifndef KLEPUR_CHECK_ALLOWANCES_H
#define KLEPUR_CHECK_ALLOWANCES_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace klepur::internal {

/// The numbers of the rules that a comment allows to be broken below it, "# klepur: allow NAME, NAME";
/// names of no rule do not count.
std::vector<std::size_t> AllowedBy(std::string_view comment);

}  // namespace klepur::internal

#endif
