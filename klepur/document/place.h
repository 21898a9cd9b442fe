// Internal: where something new goes.
#ifndef KLEPUR_DOCUMENT_PLACE_H
#define KLEPUR_DOCUMENT_PLACE_H

#include <cstdint>
#include <string>
#include <string_view>

#include <klepur/document/gaps.h>
#include <klepur/document/neighbours.h>
#include <klepur/document/placement.h>

namespace klepur::internal {

struct Place {
  Gap gap;
  bool before_next;        ///< Right above what follows and not right below what precedes.
  NodeId found = kNoNode;  ///< What it is behind, when that was searched for.
  /// What that is: the last of a key, that begins with a word, or other.
  enum class By : std::uint8_t { kKey, kWord, kOther } by = By::kOther;
};

/// What is to be placed.
struct Placed {
  std::string key;
  bool is_block = false;
  bool is_branch = false;
  bool ends_in_comment =
      false;  ///< In a line of its own, that must not come to belong to what follows.
};

/// Throws Error(kBadPlace) when the anchor is no child of the parent, or the place is within a chain.
Place FindPlace(DocumentState& state, NodeId parent, const Placed& what, Placement::Where where,
                NodeId anchor);

/// Remembers that a node was put where Placement::Auto wants it, or forgets what it made wrong elsewhere.
void RememberPlace(DocumentState& state, const Place& place, const Placed& what, NodeId node);
void ForgetPlaces(DocumentState& state, NodeId parent, const Placed& what);

/// Whether a place is within a line: other nodes or the block's brace stand on the same line on that side.
bool IsMidLine(const DocumentState& state, Place place);
/// The indentation of a new line at a place.
std::string IndentAt(DocumentState& state, Place place, const Neighbours& neighbours);

/// Puts text in a place that is at a line's end or beginning, on lines of its own.
/// \param text  what InLines gives: without indentation before its first line and line end behind its last.
/// \param key  of what is placed; blocks keep the distance that those of their key have.
/// \param apart  whether a comment above, that does not belong to the text, must be kept apart from it.
/// \return the address of the text's first byte.
TextAddress PutLines(DocumentState& state, Place place, std::string_view text,
                     std::string_view indent, const Placed& what, bool apart);
/// Puts text that has no line end in a place within a line.
TextAddress PutInLine(DocumentState& state, Place place, std::string_view text);
/// Puts lines in a place within a line that is broken for them.
TextAddress PutBetweenLines(DocumentState& state, Place place, std::string_view text,
                            std::string_view indent);
/// Puts text, with these gaps around it, in the place of a gap.
TextAddress PutInGap(DocumentState& state, Gap gap, std::string_view before, std::string_view text,
                     std::string_view behind);

}  // namespace klepur::internal

#endif
