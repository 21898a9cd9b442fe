// Records as JSON.
#ifndef KLEPUR_TOOL_JSON_H
#define KLEPUR_TOOL_JSON_H

#include <string>
#include <string_view>

#include <tool/record.h>

namespace klepur::tool {

/// Counts up when a field is renamed, removed or means something else; new fields do not count.
constexpr std::size_t kJsonVersion = 1;

/// The record as an object over several lines, with "version" in front and a line end behind it.
std::string Json(const Record& record);

/// A text as UTF-8: bytes that are none are written as `\xe9`. A text of UTF-8 is given as it is.
std::string AsUtf8(std::string_view text);

}  // namespace klepur::tool

#endif
