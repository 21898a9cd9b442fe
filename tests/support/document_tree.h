// What a document holds, as a text that a test can compare whole.
#ifndef KLEPUR_TESTS_SUPPORT_DOCUMENT_TREE_H
#define KLEPUR_TESTS_SUPPORT_DOCUMENT_TREE_H

#include <klepur/document/document.h>

#include <string>
#include <string_view>

#include "tests/support/error_word.h"

namespace klepur::test {

/// All nodes below the file's, one a line, two blanks deeper at each level:
///
///     # Printers
///     [host prn1] <- "# third floor"
///       fixed-address: 10.0.0.1
///       authoritative
///       case 1:
///       stray }
///     # max-lease-time 600; is disabled "max-lease-time 600;"
///
/// A block is its keyword and name in brackets, a statement its keyword and value, a label, a comment or
/// a stray its text. Behind the arrow stand the comments that belong to a node. Line ends are written as
/// \n, carriage returns as \r, other bytes that cannot be seen as \x00.
std::string DocumentTree(const Document& document);

/// The same with the place of each node: where it begins, where it ends, and its offset.
std::string PlacedTree(const Document& document);

/// The findings, one a line: "4:1 error stray brace".
std::string FindingsText(const Document& document);

/// A finding's code in words: "unclosed block".
std::string_view ToText(FindingCode code);

/// A text in which every byte can be seen.
std::string Visible(std::string_view text);

}  // namespace klepur::test

#endif
