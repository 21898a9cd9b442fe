// What saving with the configuration classes would change in a file beside its layout.
#ifndef KLEPUR_REWRITE_REWRITE_LOSSES_H
#define KLEPUR_REWRITE_REWRITE_LOSSES_H

#include <string>
#include <string_view>
#include <vector>

#include <klepur/document/document.h>
#include <klepur/document/finding.h>
#include <klepur/export.h>
#include <klepur/text/position.h>

namespace klepur {

enum class RewriteReason {
  kOneLineBlock,      ///< A ";" stands on the line of its "{": to the classes it is no block.
  kTextBehindBrace,   ///< What stands behind a "{" on its line becomes part of the block's name.
  kTextBeforeBrace,   ///< Text without a ";" before a "}" becomes part of what follows the "}".
  kMissingSemicolon,  ///< Text without a ";" elsewhere becomes part of what follows.
  kBehindText,        ///< What such text becomes part of.
  kCommentInside,     ///< Text before a comment within it becomes part of that comment.
  kLinesJoined,       ///< Words on two lines become one, as line ends are dropped.
  kQuoteOverLines,    ///< A text in quotes that runs over lines comes to stand on one.
  kOrder,             ///< It comes to stand before what it must stand behind.
  kOtherBlock,        ///< It comes to stand in another block.
  kStrayBrace,        ///< A "}" that belongs to nothing is left out.
  kBehindStrayBrace,  ///< What follows a "}" too many, as the classes count them, is left out.
  kUnfinishedEnd,     ///< What the text ends in without a ";" is left out.
  kBehindNul,         ///< The classes stop reading at a NUL byte.
  kUnclosedBlock,     ///< A block without its "}" gets one at the end.
  kSwallowedBrace,    ///< A "}" stays as part of a line, and its block gets another one.
  kBraceInValue,      ///< A "{" in a value without its "}" begins a block, which gets a "}".
  kLostBrace,         ///< A block loses its "}".
  kSemicolonBehindBlock,  ///< The ";" behind a block comes to stand alone.
  kRootName,              ///< A block named "TREE_ROOT_SECTION" loses its name and braces.
  kAnotherMeaning,        ///< It is read as something else, for none of the reasons above.
  kCommentInName,         ///< A comment behind a "{" becomes part of the block's name.
  kCommentMoves,          ///< A comment comes to stand with something else.
  kCommentChanges,        ///< A comment is lost, or becomes part of something else.
};

/// "one-line-block", "comment-moves": a name that stays the same in every release.
KLEPUR_EXPORT const char* NameOf(RewriteReason reason);

/// One statement, block or comment that saving would change.
struct RewriteLoss {
  RewriteReason reason;
  /// kError: the file would mean something else. kWarning: a comment would be lost or stand with
  /// something else. kNote: the file would mean the same, but the classes do not find this block.
  Severity severity;
  Position where;       ///< Its first byte.
  std::string message;  ///< A sentence without the place.
  Position other;       ///< The place of what it is at odds with; {0, 0} when there is none.
};

/// What a DhcpConfigFile or a Dhcpv6ConfigFile that opens a file of this text and saves it would change, in
/// the order of the text. Empty when the file would mean the same to the server, each comment would stand
/// with what it stands with now, and the classes find every block.
///
///     for (const RewriteLoss& loss : klepur::FindRewriteLosses(text)) {
///       std::cerr << path << ":" << loss.where.line << ": " << loss.message << "\n";
///     }
///
/// The text is read and written by the rules of those classes, and what is written is compared with the text. Not changes are: indentation, blank lines and line ends, another order where the
/// order means nothing, a comment right above something that stays right above it. Of an included file
/// nothing is known, so it counts as changed when it comes to stand before a declaration, a subnet or a branch.
///
/// Throws Error(kTooLarge) from 4 GiB on, and
/// std::bad_alloc. Cost: linear, but for a search in the tables of what is found.
KLEPUR_EXPORT std::vector<RewriteLoss> FindRewriteLosses(std::string_view text);
/// The same of a document's text as it is now. Of a document that was never edited it takes a sixth less time.
KLEPUR_EXPORT std::vector<RewriteLoss> FindRewriteLosses(const Document& document);

}  // namespace klepur

#endif
