// Internal: all that a document holds.
#ifndef KLEPUR_DOCUMENT_DOCUMENT_STATE_H
#define KLEPUR_DOCUMENT_DOCUMENT_STATE_H

#include <cstddef>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <klepur/document/child_index.h>
#include <klepur/document/disabled_runs.h>
#include <klepur/document/edit_memory.h>
#include <klepur/document/header_index.h>
#include <klepur/document/positions.h>
#include <klepur/document/syntax_tree.h>
#include <klepur/text/piece_text.h>

namespace klepur::internal {

struct DocumentState {
  explicit DocumentState(TextBuffer bytes);

  /// The bytes of a node that stand side by side: all of a statement or comment, a block's header
  /// without its "{".
  std::string_view OwnText(NodeId id) const;
  /// All bytes of a node.
  std::string WholeText(NodeId id) const;
  PieceText::Edge Begin(NodeId id) const;
  PieceText::Edge End(NodeId id) const;
  /// The border behind a block's "{", and before its "}"; of the file its borders.
  PieceText::Edge Inside(NodeId block) const;
  PieceText::Edge InsideEnd(NodeId block) const;
  bool IsBlock(NodeId id) const { return tree[id].kind == NodeKind::kBlock; }
  bool HoldsNodes(NodeId id) const { return IsBlock(id) || id == kRoot; }
  bool IsComment(NodeId id) const { return tree[id].kind == NodeKind::kComment; }

  std::string path;
  PieceText text;
  SyntaxTree tree;
  NodeId nodes_read;  ///< The nodes before this one were made by reading, in the order of the text.
  EditMemory memory;
  /// What Add put behind the last of a key in a block, behind the last one that begins with a word ("option "), or behind
  /// the last statement before the blocks (""), so that many are added without a search each. Edits of other
  /// kinds clear it.
  std::map<std::pair<NodeId, std::string>, NodeId> last_of_key;
  std::size_t edits =
      0;  ///< Counts all that changed the text, for who keeps something worked out of it.
  bool malformed = false;  ///< Whether what reading found wrong could change what an edit means.
  int series = 0;          ///< How many series of edits are going on, one in another.
  bool unchecked = false;  ///< Whether edits of a malformed text wait for the end of the series.

  mutable std::mutex lazy;  ///< Guards what is made when it is first asked for.
  mutable Positions positions;
  mutable NodeId last_at = kRoot;  ///< What At answered last, near which what is asked next may be.
  mutable HeaderIndex headers;
  mutable ChildIndex children;
  mutable DisabledRuns disabled;
};

}  // namespace klepur::internal

#endif
