#include <klepur/rewrite/rewrite_losses.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <mutex>
#include <unordered_map>
#include <utility>

#include <klepur/document/document_state.h>
#include <klepur/document/node_access.h>
#include <klepur/document/structure_words.h>
#include <klepur/rewrite/loss_reason.h>
#include <klepur/rewrite/node_images.h>
#include <klepur/rewrite/order_names.h>
#include <klepur/text/error.h>
#include <klepur/text/file_bytes.h>
#include <klepur/text/line_count.h>

namespace klepur {
namespace internal {
namespace {

using Reason = RewriteReason;

struct Loss {
  NodeId id;
  Reason reason;
  Severity severity;
  NodeId other = kNoNode;
};

bool BeginsChainPart(const DocumentState& state, NodeId id, Begins what) {
  return id != kNoNode && state.IsBlock(id) && WordOf(state.tree[id].word).begins == what;
}

/// The sibling before a node that is no comment; kNoNode when there is none.
NodeId OtherBefore(const DocumentState& state, NodeId id) {
  do {
    id = state.tree[id].previous;
  } while (id != kNoNode && state.IsComment(id));
  return id;
}

/// For each node the sibling behind it that is no comment.
std::vector<NodeId> OthersBehind(const DocumentState& state) {
  std::vector<NodeId> behind(state.tree.Count(), kNoNode);
  for (NodeId id = state.tree.Count() - 1; id != kRoot; --id) {
    const NodeId next = state.tree[id].next;
    behind[id] = next != kNoNode && state.IsComment(next) ? behind[next] : next;
  }
  return behind;
}

/// Whether something else stands before a node on its line, in a text that nobody edited.
bool IsBehindSomething(const DocumentState& state, NodeId id) {
  const SyntaxNode& node = state.tree[id];
  if (node.parent == kRoot && node.previous == kNoNode) return false;
  const std::string_view before = state.text.View({0, node.begin});
  const std::size_t last = before.find_last_not_of(std::string_view(" \t\r\v\f\0", 6));
  return last != std::string_view::npos && before[last] != '\n';
}

/// Finds all losses, in the order of the text. What a node's own text and place say comes first; then what its
/// neighbours are, for what is told nowhere yet.
class LossFinder {
 public:
  explicit LossFinder(const NodeImages& images)
      : images_(images), state_(images.Before()), told_(state_.tree.Count(), false) {}

  std::vector<Loss> Find() {
    for (NodeId id = 1; id != state_.tree.Count(); ++id) Check(id);
    CheckCommentsPlaces();
    CheckOrder();
    for (const NodeImages::NewNode& node : images_.NewNodes()) CheckNewNode(node);
    for (NodeId id = 1; id != state_.tree.Count(); ++id) CheckChain(id);
    if (images_.HasNewStray()) {
      CheckSwallowedBraces();
      CheckBracesInValues();
    }
    const std::vector<bool> changed = told_;
    for (const NodeId id : one_line_blocks_) TellOneLineBlock(id, changed);
    std::sort(losses_.begin(), losses_.end(),
              [](const Loss& left, const Loss& right) { return left.id < right.id; });
    return std::move(losses_);
  }

 private:
  void Tell(Loss loss) {
    if (told_[loss.id]) return;
    told_[loss.id] = true;
    losses_.push_back(loss);
  }

  void Check(NodeId id) {
    if (!images_.SaysTheSame(id) || !images_.StaysInBlock(id)) {
      const Severity severity = state_.IsComment(id) ? Severity::kWarning : Severity::kError;
      return Tell({id, ReasonOf(images_, id), severity});
    }
    if (state_.IsComment(id)) comments_.push_back(id);
    if (state_.IsBlock(id)) CheckOneLineBlock(id);
  }

  /// A comment behind something stands with that, every other one with what follows it in its block.
  void CheckCommentsPlaces() {
    if (comments_.empty()) return;
    const std::vector<NodeId> behind = OthersBehind(state_);
    const std::vector<NodeId> written_behind = OthersBehind(images_.After());
    for (const NodeId id : comments_) {
      const NodeId image = images_.ImageOf(id);
      const NodeId next = behind[id];
      const NodeId next_image = next == kNoNode ? kNoNode : images_.ImageOf(next);
      const bool trails = IsBehindSomething(state_, id);
      const bool stays = trails == IsBehindSomething(images_.After(), image) &&
                         (trails || (written_behind[image] == next_image &&
                                     (next == kNoNode) == (next_image == kNoNode)));
      if (!stays) Tell({id, Reason::kCommentMoves, Severity::kWarning});
    }
  }

  void CheckOneLineBlock(NodeId id) {
    const std::uint32_t piece = images_.PieceOf(id);
    if (images_.Written().pieces[piece].sort == RewrittenPiece::Sort::kHeader) return;
    if (images_.PieceOf(state_.tree[id].parent) != piece) one_line_blocks_.push_back(id);
  }

  /// A block whose "}" is in a line below takes that of the block around it, when that loses one.
  void TellOneLineBlock(NodeId id, const std::vector<bool>& changed) {
    const bool takes = EndsBelowItsLine(images_, id) && changed[state_.tree[id].parent];
    Tell({id, Reason::kOneLineBlock, takes ? Severity::kError : Severity::kNote});
  }

  /// The blocks whose children, as far as nothing is told of them, may come to stand in another order.
  std::vector<bool> DisorderedBlocks() const {
    std::vector<bool> disordered(state_.tree.Count(), false);
    for (NodeId id = 1; id != state_.tree.Count(); ++id) {
      if (state_.IsComment(id)) continue;
      const NodeId previous = OtherBefore(state_, id);
      const bool moves =
          previous != kNoNode && !told_[previous] && images_.IsWrittenBefore(id, previous);
      if (told_[id] || moves) disordered[state_.tree[id].parent] = true;
    }
    return disordered;
  }

  /// Whatever changes its order with something has a node that comes to stand before one that it stands behind:
  /// only what has to do with those can be out of order.
  void CheckOrder() {
    const std::vector<bool> disordered = DisorderedBlocks();
    if (std::find(disordered.begin(), disordered.end(), true) == disordered.end()) return;
    OrderNames order(state_, disordered);
    const std::vector<NodeId> moved = NodesThatMoveForward();
    std::unordered_map<std::uint64_t, LastWritten> things;
    std::vector<bool> sorts(OrderNames::kSorts, false);
    for (const NodeId id : moved) {
      for (const OrderName& name : order.Of(id)) {
        things.try_emplace(name.thing);
        sorts[static_cast<std::size_t>(name.sort)] = true;
      }
    }
    if (things.empty()) return;
    order.Limit(sorts, moved);
    for (NodeId id = 1; id != state_.tree.Count(); ++id) {
      if (told_[id]) continue;
      for (const OrderName& name : order.Of(id)) {
        if (const auto thing = things.find(name.thing); thing != things.end()) {
          CheckName(id, name, thing->second);
        }
      }
    }
  }

  std::vector<NodeId> NodesThatMoveForward() const {
    std::vector<NodeId> moved;
    NodeId last = kRoot;
    for (NodeId id = 1; id != state_.tree.Count(); ++id) {
      if (told_[id] || state_.IsComment(id)) continue;
      if (images_.IsWrittenBefore(id, last)) {
        moved.push_back(id);
      } else {
        last = id;
      }
    }
    return moved;
  }

  /// Of the nodes so far that have to do with a thing, those that are written last.
  struct LastWritten {
    NodeId user = kNoNode;
    NodeId giver = kNoNode;
  };

  void CheckName(NodeId id, const OrderName& name, LastWritten& last) {
    if (name.role != OrderRole::kEnables) CheckBehind(id, last.giver);
    if (name.role != OrderRole::kUses) CheckBehind(id, last.user);
    KeepLast(id, name.role == OrderRole::kUses ? last.user : last.giver);
  }

  void CheckBehind(NodeId id, NodeId other) {
    if (other == kNoNode || !images_.IsWrittenBefore(id, other)) return;
    Tell({id, Reason::kOrder, Severity::kError, other});
  }

  void KeepLast(NodeId id, NodeId& last) const {
    if (last == kNoNode || images_.IsWrittenBefore(last, id)) last = id;
  }

  void CheckChain(NodeId id) {
    if (told_[id] || !BeginsChainPart(state_, id, Begins::kBranch)) return;
    const NodeId previous = OtherBefore(state_, id);
    if (!BeginsChainPart(state_, previous, Begins::kChain) &&
        !BeginsChainPart(state_, previous, Begins::kBranch)) {
      return;
    }
    if (OtherBefore(images_.After(), images_.ImageOf(id)) == images_.ImageOf(previous)) return;
    Tell({id, Reason::kOrder, Severity::kError, previous});
  }

  /// A block is written with a "}" of its own, also when the one that it had is part of a line.
  void CheckSwallowedBraces() {
    const LargeArray<RewrittenPiece>& pieces = images_.Written().pieces;
    for (NodeId id = 1; id != state_.tree.Count(); ++id) {
      const std::uint32_t piece = images_.PieceOf(id);
      if (!state_.IsBlock(id) || state_.tree[id].unfinished || piece == NodeImages::kNoPiece)
        continue;
      if (pieces[piece].sort != RewrittenPiece::Sort::kHeader) continue;
      const TextAddress brace = state_.tree[id].end - 1;
      const auto behind = std::upper_bound(
          pieces.begin(), pieces.end(), brace,
          [](TextAddress at, const RewrittenPiece& other) { return at < other.source.begin; });
      if (behind == pieces.begin() || std::prev(behind)->source.end <= brace) continue;
      Tell({id, Reason::kSwallowedBrace, Severity::kError});
    }
  }

  /// A "{" within a statement begins a block for the classes, which they end.
  void CheckBracesInValues() {
    std::vector<bool> begins_block(images_.Written().pieces.size(), false);
    for (NodeId id = 1; id != state_.tree.Count(); ++id) {
      if (state_.IsBlock(id) && images_.PieceOf(id) != NodeImages::kNoPiece)
        begins_block[images_.PieceOf(id)] = true;
    }
    for (std::uint32_t i = 0; i != begins_block.size(); ++i) {
      const RewrittenPiece& piece = images_.Written().pieces[i];
      if (piece.sort != RewrittenPiece::Sort::kHeader || piece.IsLost() || begins_block[i])
        continue;
      if (const NodeId id = NodeAround(piece.source); id != kRoot) {
        Tell({id, Reason::kBraceInValue, Severity::kError});
      }
    }
  }

  /// What is in the rewritten text only is told of what it is made of.
  void CheckNewNode(NodeImages::NewNode node) {
    const NodeId id = NodeAround(images_.Written().pieces[node.piece].source);
    if (id == kRoot) return;
    if (images_.After().IsComment(node.image)) {
      return Tell({id, Reason::kCommentChanges, Severity::kWarning});
    }
    const bool late = state_.IsBlock(id) && state_.tree[id].late_semicolon != 0;
    Tell({id, late ? Reason::kSemicolonBehindBlock : Reason::kAnotherMeaning, Severity::kError});
  }

  /// The innermost node around the last byte of a piece, or else the last one before it.
  NodeId NodeAround(Span source) const {
    const NodeId last = LastBefore(state_, source.end);
    for (NodeId id = last; id != kRoot; id = state_.tree[id].parent) {
      if (state_.tree[id].end >= source.end) return id;
    }
    return last;
  }

  const NodeImages& images_;
  const DocumentState& state_;
  std::vector<bool> told_;
  std::vector<Loss> losses_;
  std::vector<NodeId> comments_;  ///< That say the same in the same block.
  std::vector<NodeId> one_line_blocks_;
};

/// Finds the places of addresses, in a text that nobody edited. Those in ascending order need no search.
class Places {
 public:
  explicit Places(const DocumentState& state) : state_(state) {}

  Position Of(NodeId id) {
    if (id == kNoNode) return {};
    const TextAddress at = state_.tree[id].begin;
    if (at < at_) return Search(id);
    const std::string_view passed = state_.text.View({at_, at});
    if (const std::size_t last = passed.rfind('\n'); last != std::string_view::npos) {
      line_ += CountLineEnds(passed);
      line_begin_ = at_ + last + 1;
    }
    at_ = at;
    return {line_, at - line_begin_ + 1};
  }

 private:
  Position Search(NodeId id) const {
    const std::lock_guard<std::mutex> lock(state_.lazy);
    state_.positions.Update(state_.text);
    return state_.positions.Of(state_.text, state_.Begin(id));
  }

  const DocumentState& state_;
  TextAddress at_ = 0;
  std::size_t line_ = 1;
  std::size_t line_begin_ = 0;
};

/// The losses of a text that nobody edited.
std::vector<RewriteLoss> LossesOf(const DocumentState& before) {
  Rewriting rewriting = Rewrite(before.text.View({0, before.text.BaseSize()}));
  const DocumentState after{std::move(rewriting.text)};
  const NodeImages images(before, after, rewriting);
  Places places(before);
  std::vector<RewriteLoss> losses;
  for (const Loss& loss : LossFinder(images).Find()) {
    losses.push_back({loss.reason, loss.severity, places.Of(loss.id),
                      SentenceOf(before, loss.id, loss.reason), places.Of(loss.other)});
  }
  return losses;
}

}  // namespace
}  // namespace internal

std::vector<RewriteLoss> FindRewriteLosses(std::string_view text) {
  if (text.size() > internal::kMostBytes) {
    throw Error(ErrorCode::kTooLarge, "the text reaches 4 GiB");
  }
  return internal::LossesOf(internal::DocumentState{internal::TextBuffer(text)});
}

std::vector<RewriteLoss> FindRewriteLosses(const Document& document) {
  const internal::DocumentState& state = *NodeAccess::State(document.Root());
  return state.edits == 0 ? internal::LossesOf(state) : FindRewriteLosses(document.Text());
}

}  // namespace klepur
