// One layout for a whole file.
#ifndef KLEPUR_TOOL_LAYOUT_H
#define KLEPUR_TOOL_LAYOUT_H

#include <klepur/document/document.h>

#include <string>

namespace klepur::tool {

/// The text of a document in the tool's layout:
///
/// - A statement a line, a step of indentation for each block around it, "{" behind its header, "}" on a line of
///   its own, and "} else {". A block of statements on one line, but for an "if", stays on it if it has no
///   comment and takes at most 100 columns.
/// - One blank between words, none before "," and ";". A statement over several lines keeps its lines, the second
///   and all further ones a step deeper.
/// - Comments stay where they belong: above a line at its depth, or two blanks behind it.
/// - At most one empty line, none behind "{", before "}", and at the ends of the file.
///
/// Words, strings and comments are those of the document, in their order: Throws Problem(kRefused) for a
/// document that was not read without a finding of severity error.
///
/// \param step  "\t" or blanks.
/// Cost: linear in the text.
std::string LaidOut(const Document& document, const std::string& step);

}  // namespace klepur::tool

#endif
