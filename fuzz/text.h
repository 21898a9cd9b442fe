// Texts in and out of fuzz targets.
#ifndef KLEPUR_FUZZ_TEXT_H
#define KLEPUR_FUZZ_TEXT_H

#include <string>
#include <string_view>
#include <vector>

namespace klepur::fuzz {

/// The lines of a text without their "\n"; one empty line when the text is empty.
std::vector<std::string> Lines(std::string_view text);

/// The lines as a text, "\n" behind each.
std::string Joined(const std::vector<std::string>& lines);

/// The text with "\r\n" for each "\n".
std::string WithCarriageReturns(std::string_view text);

/// The text without its NUL bytes, as a C string can hold it.
std::string WithoutNulBytes(std::string text);

/// The number that the text begins with, from -`most` to `most`; 0 when it begins with none.
int Number(std::string_view text, int most);

}  // namespace klepur::fuzz

#endif
