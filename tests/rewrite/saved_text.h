// What a configuration class makes of a text.
#ifndef KLEPUR_TESTS_REWRITE_SAVED_TEXT_H
#define KLEPUR_TESTS_REWRITE_SAVED_TEXT_H

#include <string>
#include <string_view>

namespace klepur::test {

/// A file of this text, opened and saved by DhcpConfigFile.
std::string Saved(std::string_view text);

/// The lines of a text that was saved, without the empty ones and the tabs that indent them, which stand behind
/// the "#" of a comment.
std::string WithoutIndentation(std::string_view text);

}  // namespace klepur::test

#endif
