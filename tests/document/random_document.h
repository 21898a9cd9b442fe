// Random configuration files with nothing wrong in them, in the layouts that people write.
#ifndef KLEPUR_TESTS_DOCUMENT_RANDOM_DOCUMENT_H
#define KLEPUR_TESTS_DOCUMENT_RANDOM_DOCUMENT_H

#include <string>

#include "tests/random/chance.h"

namespace klepur::test {

/// A text of up to some dozen statements and blocks: tabs and blanks, braces behind headers and on lines
/// of their own, blocks and several statements on one line, comments everywhere, disabled statements,
/// blank lines, either line end, with or without a last one.
std::string RandomDocumentText(Chance& chance);

/// A whole statement of a known word, with its ";".
std::string RandomStatement(Chance& chance);

/// A whole block, on one line or several.
std::string RandomBlock(Chance& chance);

/// A value for a statement as RandomStatement makes them.
std::string RandomValue(Chance& chance);

/// A name for a host.
std::string RandomName(Chance& chance);

}  // namespace klepur::test

#endif
