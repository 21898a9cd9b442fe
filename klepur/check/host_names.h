// Internal: the names of hosts, as far as finding equal ones goes.
#ifndef KLEPUR_CHECK_HOST_NAMES_H
#define KLEPUR_CHECK_HOST_NAMES_H

#include <string>
#include <string_view>

namespace klepur::internal {

/// The name in a header, given what stands behind the keyword; empty when there is none.
std::string_view NameOfHost(std::string_view behind_keyword);

/// The same of a whole header, "host pc-17".
std::string_view NameInHeader(std::string_view header);

/// What the value of an "option host-name" says, in small letters.
std::string SpelledHostName(std::string_view value);

}  // namespace klepur::internal

#endif
