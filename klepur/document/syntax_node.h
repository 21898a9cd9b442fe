// Internal: one node of the syntax tree.
#ifndef KLEPUR_DOCUMENT_SYNTAX_NODE_H
#define KLEPUR_DOCUMENT_SYNTAX_NODE_H

#include <cstdint>

#include <klepur/document/node_kind.h>
#include <klepur/text/piece_text.h>

namespace klepur::internal {

/// Nodes are numbered in the order of their making and keep their numbers.
using NodeId = std::uint32_t;
inline constexpr NodeId kNoNode = 0xFFFFFFFF;
inline constexpr NodeId kRoot = 0;

/// A node's bytes stand side by side in memory, but for a block, of which that is true of its header up to
/// the "{". The blanks between nodes are nobody's: they lie between the end of one and the beginning of
/// the next. 24 bytes, for there are as many nodes as lines.
struct SyntaxNode {
  static constexpr std::uint16_t kFarBrace = 0xFFFF;

  TextAddress begin = 0;  ///< Its first byte.
  TextAddress end = 0;    ///< One past its last byte, which is never a blank.
  NodeId next = kNoNode;
  NodeId previous = kNoNode;
  NodeId parent = kNoNode;
  std::uint16_t brace =
      0;  ///< How far behind `begin` the "{" stands; kFarBrace when that is too far to tell.
  std::uint8_t word =
      0;  ///< The number of the word that a block begins with, in the table of words.
  NodeKind kind : 3 = NodeKind::kFile;
  std::uint8_t gone : 1 = 0;            ///< Removed, and with it all below.
  std::uint8_t own_head : 1 = 0;        ///< Its first child is not the node made right after it.
  std::uint8_t unfinished : 1 = 0;      ///< Without its ";" or "}".
  std::uint8_t open_quote : 1 = 0;      ///< Holds a quote that nothing closes.
  std::uint8_t late_semicolon : 1 = 0;  ///< A block behind whose "}" a ";" stands.
};
static_assert(sizeof(SyntaxNode) == 24);

}  // namespace klepur::internal

#endif
