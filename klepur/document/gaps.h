// Internal: the blanks between nodes, and lines.
#ifndef KLEPUR_DOCUMENT_GAPS_H
#define KLEPUR_DOCUMENT_GAPS_H

#include <cstddef>
#include <string>
#include <string_view>

#include <klepur/document/document_state.h>
#include <klepur/text/line_count.h>

namespace klepur::internal {

/// The bytes between two neighbours: behind a child of a block or, given none, behind its "{"; up to the
/// next child or the "}". Blanks only.
struct Gap {
  NodeId parent;
  NodeId previous;
};

inline Gap GapBehind(const DocumentState& state, NodeId id) {
  return {state.tree[id].parent, id};
}
inline Gap GapBefore(const DocumentState& state, NodeId id) {
  return {state.tree[id].parent, state.tree[id].previous};
}
/// The child behind a gap; none before a "}".
NodeId NextOf(const DocumentState& state, Gap gap);
PieceText::Edge BeginOf(const DocumentState& state, Gap gap);
PieceText::Edge EndOf(const DocumentState& state, Gap gap);
std::string ReadGap(const DocumentState& state, Gap gap);
/// Which sides of a gap are comments: what was remembered of it is void when one became a statement, or the other
/// way round.
std::string SidesOf(const DocumentState& state, Gap gap);
/// A gap behind a comment keeps its line end whatever the text: else what follows would be swallowed.
void WriteGap(DocumentState& state, Gap gap, std::string_view text);

inline bool HasLineEnd(std::string_view text) {
  return text.find('\n') != std::string_view::npos;
}
/// What stands behind the last line end: of a gap, the indentation of what follows.
std::string_view LastLine(std::string_view text);
/// The text up to and with its first, or its last, line end.
std::string_view FirstLine(std::string_view text);
std::string_view WithoutLastLine(std::string_view text);

/// Whether only blanks stand before a node on its line, or behind it.
bool BeginsLine(const DocumentState& state, NodeId id);
bool EndsLine(const DocumentState& state, NodeId id);
/// The blanks at the start of the line that a node begins on.
std::string IndentOf(const DocumentState& state, NodeId id);
/// The columns that such blanks take, tabs to every eighth.
std::size_t WidthOf(std::string_view blanks);
/// How many columns stand before an edge on its line; kFar when they are more than anybody reads.
inline constexpr std::size_t kFar = static_cast<std::size_t>(-1);
std::size_t ColumnOf(const DocumentState& state, PieceText::Edge edge);
/// How the line that an edge is on ends: "\n" or "\r\n"; if it does not, as the line above does.
std::string LineEndAt(const DocumentState& state, PieceText::Edge edge);
/// Whether a block's header, "{" and "}" stand on one line.
bool IsOnOneLine(const DocumentState& state, NodeId id);

}  // namespace klepur::internal

#endif
