// How and where a document is edited, where the caller has a wish.
#ifndef KLEPUR_DOCUMENT_PLACEMENT_H
#define KLEPUR_DOCUMENT_PLACEMENT_H

#include <string>
#include <vector>

#include <klepur/document/node.h>

namespace klepur {

/// Where something new goes, and which comments come with it.
struct Placement {
  enum class Where {
    kAuto,    ///< As Node::Add says.
    kFirst,   ///< Before all statements and blocks.
    kLast,    ///< Behind all statements and blocks, before the comments that end the block.
    kBefore,  ///< Before a node, above its comments.
    kAfter,   ///< Behind a node and its comment.
  };

  Where where = Where::kAuto;
  Node anchor;                   ///< For kBefore and kAfter: a child of the block.
  std::string comment;           ///< Lines of comment above it, without their "#"; none when empty.
  std::string trailing_comment;  ///< The comment behind it, without its "#"; none when empty.

  static Placement First() { return {Where::kFirst, {}, {}, {}}; }
  static Placement Last() { return {Where::kLast, {}, {}, {}}; }
  static Placement Before(Node node) { return {Where::kBefore, node, {}, {}}; }
  static Placement After(Node node) { return {Where::kAfter, node, {}, {}}; }
  Placement WithComment(std::string text) const {
    Placement placement = *this;
    placement.comment = std::move(text);
    return placement;
  }
  Placement WithTrailingComment(std::string text) const {
    Placement placement = *this;
    placement.trailing_comment = std::move(text);
    return placement;
  }
};

/// What happens to the comments right above something that is removed.
enum class CommentsAbove {
  kAuto,  ///< They go, unless the next statement below is of the same keyword: then they head a run.
  kKeep,
  kTake,
};

/// What a removal took besides the node.
struct RemovalReport {
  std::vector<std::string> comments;  ///< As they stood, "# Bob's laptop".
};

}  // namespace klepur

#endif
