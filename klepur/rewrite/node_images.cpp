#include <klepur/rewrite/node_images.h>

#include <algorithm>
#include <string_view>

#include <klepur/document/words_of_text.h>

namespace klepur::internal {
namespace {

/// The first node that begins at an address or behind it. In a text that nobody edited they are numbered in
/// the order in which they stand.
NodeId FirstFrom(const DocumentState& state, TextAddress address) {
  NodeId low = 1;
  NodeId high = state.tree.Count();
  while (low < high) {
    const NodeId middle = low + (high - low) / 2;
    if (state.tree[middle].begin < address) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

bool BeginsBefore(const DocumentState& state, NodeId id, TextAddress address) {
  return id < state.tree.Count() && state.tree[id].begin < address;
}

/// Whether it is what FirstFrom would find: pieces that are written in their order need no search.
bool IsFirstFrom(const DocumentState& state, NodeId id, TextAddress address) {
  return !BeginsBefore(state, id, address) && (id == 1 || state.tree[id - 1].begin < address);
}

std::string_view WithoutBlanksBehind(std::string_view text) {
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

bool AreSameWords(std::string_view left, std::string_view right) {
  if (left == right || WithoutBlanksBehind(left) == WithoutBlanksBehind(right)) return true;
  WordsOfText left_words(left);
  WordsOfText right_words(right);
  for (;;) {
    const std::string_view word = left_words.Next();
    if (word != right_words.Next()) return false;
    if (word.empty()) return true;
  }
}

/// The text of a comment without its first mark and the blanks around.
std::string_view CommentText(std::string_view comment) {
  comment.remove_prefix(std::min<std::size_t>(comment.size(), 1));
  constexpr std::string_view kBlanks = " \t\v\f\r";
  const std::size_t begin = comment.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return comment.substr(begin, comment.find_last_not_of(kBlanks) - begin + 1);
}

bool IsLoneBrace(const DocumentState& state, NodeId id) {
  return state.tree[id].kind == NodeKind::kStray && state.OwnText(id) == "}";
}

}  // namespace

NodeImages::NodeImages(const DocumentState& before, const DocumentState& after,
                       const Rewriting& rewriting)
    : before_(before),
      after_(after),
      rewriting_(rewriting),
      image_(before.tree.Count(), kNoNode),
      piece_(before.tree.Count(), kNoPiece),
      known_(after.tree.Count(), false) {
  image_[kRoot] = kRoot;
  NodeId node = 1;
  NodeId image = 1;
  for (std::uint32_t i = 0; i != rewriting.pieces.size(); ++i) {
    while (BeginsBefore(before, node, rewriting.pieces[i].source.begin)) ++node;
    if (!IsFirstFrom(after, image, rewriting.pieces[i].written.begin)) {
      image = FirstFrom(after, rewriting.pieces[i].written.begin);
    }
    MatchPiece(i, node, image);
  }
  MatchStrays();
}

/// A "}" is of no piece. Those that belong to nothing became, one behind the other, those of the rewritten text.
void NodeImages::MatchStrays() {
  NodeId image = 1;
  for (NodeId id = 1; id != before_.tree.Count(); ++id) {
    if (!IsLoneBrace(before_, id) || piece_[id] != kNoPiece) continue;
    const NodeId count = after_.tree.Count();
    while (image != count && (known_[image] || !IsLoneBrace(after_, image))) ++image;
    if (image == count) return;
    image_[id] = image;
    known_[image] = true;
  }
}

void NodeImages::MatchPiece(std::uint32_t piece, NodeId& node, NodeId& image) {
  const RewrittenPiece& bytes = rewriting_.pieces[piece];
  NodeId next_comment = node;
  NodeId next_other = node;
  for (; BeginsBefore(before_, node, bytes.source.end); ++node) piece_[node] = piece;
  for (; BeginsBefore(after_, image, bytes.written.end); ++image) {
    known_[image] = true;
    const bool comment = after_.IsComment(image);
    NodeId& next = comment ? next_comment : next_other;
    while (next != node && before_.IsComment(next) != comment) ++next;
    if (next == node) {
      new_nodes_.push_back({image, piece});
    } else {
      image_[next++] = image;
    }
  }
}

bool NodeImages::HasNewStray() const {
  for (NodeId image = 1; image != after_.tree.Count(); ++image) {
    if (!known_[image] && after_.tree[image].kind == NodeKind::kStray) return true;
  }
  return false;
}

bool NodeImages::HasSameWords(NodeId id) const {
  if (image_[id] == kNoNode) return false;
  const NodeKind kind = before_.tree[id].kind;
  if (kind != after_.tree[image_[id]].kind) return false;
  const std::string_view text = before_.OwnText(id);
  const std::string_view written = after_.OwnText(image_[id]);
  if (kind == NodeKind::kComment) return CommentText(text) == CommentText(written);
  return AreSameWords(text, written);
}

bool NodeImages::SaysTheSame(NodeId id) const {
  return HasSameWords(id) && before_.tree[id].unfinished == after_.tree[image_[id]].unfinished;
}

bool NodeImages::StaysInBlock(NodeId id) const {
  return image_[id] != kNoNode && image_[before_.tree[id].parent] == after_.tree[image_[id]].parent;
}

NodeId LastBefore(const DocumentState& state, TextAddress address) {
  return FirstFrom(state, address) - 1;
}

}  // namespace klepur::internal
