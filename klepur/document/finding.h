// What is wrong with the structure of a text.
#ifndef KLEPUR_DOCUMENT_FINDING_H
#define KLEPUR_DOCUMENT_FINDING_H

#include <string>

#include <klepur/text/position.h>

namespace klepur {

enum class Severity {
  kError,    ///< The server refuses the file, or serves wrongly.
  kWarning,  ///< Surely not meant.
  kNote,     ///< Said to explain something.
};

enum class FindingCode {
  kBranchWithoutIf,  ///< An "elsif" or "else" that stands behind no "if".
  kBlockSeemsToEnd,  ///< Where a block that is never closed seems to end; a note to kUnclosedBlock.
  kByteOrderMark,    ///< The text begins with one.
  kEmptyStatement,   ///< A ";" with nothing before it.
  kEndInBlock,       ///< Where the text ends while a block is open; a note to kUnclosedBlock.
  kMissingBlock,     ///< A statement whose word wants a block: "host a;".
  kMissingHeader,    ///< A "{" without words before it.
  kMissingSemicolon,      ///< A statement ends without its ";".
  kNul,                   ///< NUL bytes where the server stops at them.
  kSemicolonBehindBlock,  ///< A ";" behind a "}", of a block other than a key.
  kStrayBrace,            ///< A "}" without a block.
  kUnclosedBlock,         ///< A "{" whose "}" is missing.
  kUnclosedQuote,         ///< A quote that nothing closes.
  kUnclosedValue,         ///< The braces of an option definition's value do not end before its ";".
};

/// One thing that is wrong, where, and in words.
struct Finding {
  FindingCode code;
  Severity severity;
  Position where;       ///< The byte that it is about.
  std::string message;  ///< A sentence without the place: "this block is not closed".
};

}  // namespace klepur

#endif
