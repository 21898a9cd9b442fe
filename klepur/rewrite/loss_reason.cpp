#include <klepur/rewrite/loss_reason.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

#include <klepur/document/node_text.h>
#include <klepur/document/words_of_text.h>
#include <klepur/framework/tree_links.h>

namespace klepur::internal {
namespace {

using Reason = RewriteReason;

struct ReasonRow {
  Reason reason;
  const char* name;
  const char* sentence;  ///< Behind what it is about.
};

constexpr ReasonRow kReasons[] = {
    {Reason::kOneLineBlock, "one-line-block",
     "has a \";\" on the line of its \"{\" and is no block to the configuration classes"},
    {Reason::kTextBehindBrace, "text-behind-brace",
     "has text behind its \"{\", which becomes part of its name"},
    {Reason::kTextBeforeBrace, "text-before-brace",
     "has no \";\" and moves behind the \"}\", to the front of what follows"},
    {Reason::kMissingSemicolon, "missing-semicolon",
     "has no \";\" and becomes part of what follows"},
    {Reason::kBehindText, "behind-text", "gets text without a \";\" before it as its front"},
    {Reason::kCommentInside, "comment-inside",
     "is cut at the comment in it, and the text before becomes part of the comment"},
    {Reason::kLinesJoined, "lines-joined", "runs over lines that are joined without a blank"},
    {Reason::kQuoteOverLines, "quote-over-lines",
     "has a text in quotes over lines that become one"},
    {Reason::kOrder, "order", "comes to stand before what it must stand behind"},
    {Reason::kOtherBlock, "other-block", "comes to stand in another block"},
    {Reason::kStrayBrace, "stray-brace", "belongs to no block and is left out"},
    {Reason::kBehindStrayBrace, "behind-stray-brace",
     "is left out: a \"}\" before it closes more than the configuration classes have open"},
    {Reason::kUnfinishedEnd, "unfinished-end",
     "has no \";\" before the end of the text and is left out"},
    {Reason::kBehindNul, "behind-nul", "is left out: it stands behind a NUL byte"},
    {Reason::kUnclosedBlock, "unclosed-block", "is not closed and gets a \"}\""},
    {Reason::kSwallowedBrace, "swallowed-brace",
     "has its \"}\" on the line of a block, where it stays as text, and gets another one"},
    {Reason::kBraceInValue, "brace-in-value",
     "has a \"{\" that begins a block for the configuration classes and gets a \"}\""},
    {Reason::kLostBrace, "lost-brace", "loses its \"}\""},
    {Reason::kSemicolonBehindBlock, "semicolon-behind-block",
     "has a \";\" behind its \"}\", which comes to stand alone"},
    {Reason::kRootName, "root-name",
     "is named like the root of the configuration classes and loses its name and braces"},
    {Reason::kAnotherMeaning, "another-meaning", "is read as something else"},
    {Reason::kCommentInName, "comment-in-name", "becomes part of the block's name"},
    {Reason::kCommentMoves, "comment-moves", "comes to stand with something else"},
    {Reason::kCommentChanges, "comment-changes", "is lost or becomes part of something else"},
};

const ReasonRow& RowOf(Reason reason) {
  return *std::find_if(std::begin(kReasons), std::end(kReasons),
                       [reason](const ReasonRow& row) { return row.reason == reason; });
}

bool IsGap(char byte) {
  return byte == ' ' || (byte >= '\t' && byte <= '\r') || byte == '\0';
}

/// The first byte behind a node that is no blank; 0 at the end.
char ByteBehind(const DocumentState& state, NodeId id) {
  for (TextAddress at = state.tree[id].end; at < state.text.BaseSize(); ++at) {
    if (!IsGap(*state.text.Bytes(at))) return *state.text.Bytes(at);
  }
  return '\0';
}

Reason OfUnended(const DocumentState& state, NodeId id) {
  return ByteBehind(state, id) == '}' ? Reason::kTextBeforeBrace : Reason::kMissingSemicolon;
}

bool HasQuoteOverLines(std::string_view text) {
  WordsOfText words(text);
  for (std::string_view word = words.Next(); !word.empty(); word = words.Next()) {
    if (word.front() == '"' && word.find('\n') != std::string_view::npos) return true;
  }
  return false;
}

/// Of what was never stored.
Reason OfLeftOver(const NodeImages& images, NodeId id) {
  const DocumentState& state = images.Before();
  if (images.Written().stopped) return Reason::kBehindNul;
  return state.tree[id].kind == NodeKind::kStray ? Reason::kStrayBrace : Reason::kUnfinishedEnd;
}

/// Of a node that begins in the piece of a header: it is the block's, before it or behind its "{".
Reason OfHeader(const NodeImages& images, NodeId id, const RewrittenPiece& piece) {
  const DocumentState& state = images.Before();
  if (state.tree[id].kind == NodeKind::kComment) return Reason::kCommentInName;
  if (!state.IsBlock(id)) {
    const bool behind = state.IsBlock(state.tree[id].parent) &&
                        state.tree[state.tree[id].parent].begin >= piece.source.begin;
    return behind || !state.tree[id].unfinished ? Reason::kTextBehindBrace : OfUnended(state, id);
  }
  const TextAddress behind_brace = state.tree[id].begin + state.tree.BraceOf(id) + 1;
  const std::string_view rest =
      state.text.View({behind_brace, std::max(behind_brace, piece.source.end)});
  return std::all_of(rest.begin(), rest.end(), IsGap) ? Reason::kBehindText
                                                      : Reason::kTextBehindBrace;
}

/// Of what says the same but for its end.
Reason OfEnding(const NodeImages& images, NodeId id) {
  const DocumentState& state = images.Before();
  if (!state.IsBlock(id)) return OfUnended(state, id);
  if (state.tree[id].unfinished) return Reason::kUnclosedBlock;
  return EndsBelowItsLine(images, id) ? Reason::kOneLineBlock : Reason::kLostBrace;
}

bool IsNamedLikeRoot(const DocumentState& state, NodeId id) {
  return state.IsBlock(id) && UpToLastWord(state.OwnText(id)) == kRootName;
}

bool IsFirstInPiece(const NodeImages& images, NodeId id) {
  return images.PieceOf(id - 1) != images.PieceOf(id);
}

/// Of a statement, block or stray that begins in the piece of an entry.
Reason OfEntry(const NodeImages& images, NodeId id) {
  const DocumentState& state = images.Before();
  if (state.tree[id].kind == NodeKind::kComment) return Reason::kCommentChanges;
  if (state.IsBlock(id)) return Reason::kOneLineBlock;
  if (state.tree[id].unfinished) return OfUnended(state, id);
  if (!IsFirstInPiece(images, id)) return Reason::kBehindText;
  const std::string_view text = state.OwnText(id);
  if (HasQuoteOverLines(text)) return Reason::kQuoteOverLines;
  return text.find('\n') != std::string_view::npos ? Reason::kLinesJoined : Reason::kAnotherMeaning;
}

std::string SubjectOf(const DocumentState& state, NodeId id) {
  constexpr std::size_t kLongest = 60;
  if (state.IsComment(id)) return "this comment";
  const std::string_view text = state.OwnText(id);
  std::string subject = KeyOf(text);
  if (state.IsBlock(id)) {
    const std::string name = NameIn(text);
    if (subject.empty()) return "the block without a header";
    if (!name.empty()) subject += ' ' + name.substr(0, kLongest);
  }
  return '"' + subject + '"';
}

}  // namespace

bool EndsBelowItsLine(const NodeImages& images, NodeId block) {
  const SyntaxNode& node = images.Before().tree[block];
  const RewrittenPiece& piece = images.Written().pieces[images.PieceOf(block)];
  return piece.sort != RewrittenPiece::Sort::kHeader && !node.unfinished &&
         node.end > piece.source.end;
}

RewriteReason ReasonOf(const NodeImages& images, NodeId id) {
  const DocumentState& state = images.Before();
  if (images.PieceOf(id) == NodeImages::kNoPiece) return OfLeftOver(images, id);
  const RewrittenPiece& piece = images.Written().pieces[images.PieceOf(id)];
  if (piece.IsLost())
    return IsNamedLikeRoot(state, id) ? Reason::kRootName : Reason::kBehindStrayBrace;
  if (images.HasSameWords(id) && images.StaysInBlock(id)) return OfEnding(images, id);
  if (images.SaysTheSame(id)) {
    return state.IsComment(id) ? Reason::kCommentMoves : Reason::kOtherBlock;
  }
  if (piece.sort == RewrittenPiece::Sort::kHeader) return OfHeader(images, id, piece);
  if (piece.sort == RewrittenPiece::Sort::kComment && !state.IsComment(id)) {
    return Reason::kCommentInside;
  }
  return OfEntry(images, id);
}

std::string SentenceOf(const DocumentState& state, NodeId id, RewriteReason reason) {
  return SubjectOf(state, id) + ' ' + RowOf(reason).sentence;
}

}  // namespace klepur::internal

namespace klepur {

const char* NameOf(RewriteReason reason) {
  return internal::RowOf(reason).name;
}

}  // namespace klepur
