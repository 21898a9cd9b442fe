#include <klepur/document/syntax_tree.h>

#include <new>

namespace klepur::internal {

SyntaxTree::SyntaxTree() {
  nodes_.push_back(SyntaxNode{});
}

NodeId SyntaxTree::FirstChild(NodeId id) const {
  if (nodes_[id].own_head) return HeadOf(id);
  const bool has_next = id + 1 < Count() && nodes_[id + 1].parent == id && !nodes_[id + 1].gone;
  return has_next ? id + 1 : kNoNode;
}

NodeId SyntaxTree::LastChild(NodeId id) const {
  if (const auto known = tails_.find(id); known != tails_.end()) return known->second;
  NodeId last = FirstChild(id);
  if (last == kNoNode) return kNoNode;
  while (nodes_[last].next != kNoNode) last = nodes_[last].next;
  return last;
}

NodeId SyntaxTree::KnownLastChild(NodeId id) {
  const auto known = tails_.find(id);
  return known != tails_.end() ? known->second
                               : tails_.emplace(id, LastFromFormer(id)).first->second;
}

bool SyntaxTree::HangsBelow(NodeId id, NodeId parent) const {
  const SyntaxNode& node = nodes_[id];
  if (node.gone || node.parent != parent) return false;
  return (node.previous == kNoNode ? FirstChild(parent) : nodes_[node.previous].next) == id;
}

/// The last child, from a child that was the last one once, or one before it, on.
NodeId SyntaxTree::LastFromFormer(NodeId parent) const {
  constexpr int kStepsBack = 64;
  const auto former = former_tails_.find(parent);
  NodeId id = former == former_tails_.end() ? kNoNode : former->second;
  for (int step = 0; id != kNoNode && !HangsBelow(id, parent); ++step) {
    id = step == kStepsBack ? kNoNode : nodes_[id].previous;
  }
  if (id == kNoNode) return LastChild(parent);
  while (nodes_[id].next != kNoNode) id = nodes_[id].next;
  return id;
}

NodeId SyntaxTree::NextInOrder(NodeId id, NodeId top) const {
  const NodeId child = FirstChild(id);
  return child != kNoNode ? child : NextBehind(id, top);
}

NodeId SyntaxTree::NextBehind(NodeId id, NodeId top) const {
  while (id != top) {
    if (nodes_[id].next != kNoNode) return nodes_[id].next;
    id = nodes_[id].parent;
  }
  return kNoNode;
}

bool SyntaxTree::IsGone(NodeId id) const {
  for (const NodeId asked = id; id != kNoNode; id = nodes_[id].parent) {
    if (nodes_[id].gone) return true;
    if (id == kRoot) return false;
    // What was below a block that was commented out.
    if (id != asked && nodes_[id].kind != NodeKind::kBlock) return true;
  }
  return true;
}

bool SyntaxTree::IsBelow(NodeId id, NodeId ancestor) const {
  for (; id != kNoNode; id = nodes_[id].parent) {
    if (id == ancestor) return true;
  }
  return false;
}

NodeId SyntaxTree::Append(const SyntaxNode& node) {
  nodes_.push_back(node);
  return Count() - 1;
}

void SyntaxTree::SetBrace(NodeId id, TextAddress distance) {
  const bool far = distance >= SyntaxNode::kFarBrace;
  nodes_[id].brace = far ? SyntaxNode::kFarBrace : static_cast<std::uint16_t>(distance);
  if (far) far_braces_[nodes_[id].begin] = distance;
}

TextAddress SyntaxTree::BraceOf(NodeId id) const {
  const std::uint16_t near = nodes_[id].brace;
  return near == SyntaxNode::kFarBrace ? far_braces_.find(nodes_[id].begin)->second : near;
}

SyntaxNode& SyntaxTree::Change(NodeId id) {
  log_.push_back({id, nodes_[id].own_head ? HeadOf(id) : kNoNode, nodes_[id]});
  return nodes_[id];
}

void SyntaxTree::Link(NodeId id, NodeId parent, NodeId previous) {
  const NodeId next = previous == kNoNode ? FirstChild(parent) : nodes_[previous].next;
  SyntaxNode& node = Change(id);
  node.parent = parent;
  node.previous = previous;
  node.next = next;
  if (next != kNoNode) Change(next).previous = id;
  if (previous != kNoNode) {
    Change(previous).next = id;
  } else {
    SetHead(parent, id);
  }
  if (const auto tail = tails_.find(parent); tail != tails_.end() && next == kNoNode) {
    tail->second = id;
  }
}

void SyntaxTree::Unlink(NodeId id) {
  const SyntaxNode node = nodes_[id];
  if (node.next != kNoNode) Change(node.next).previous = node.previous;
  if (node.previous != kNoNode) {
    Change(node.previous).next = node.next;
  } else {
    SetHead(node.parent, node.next);
  }
  if (const auto tail = tails_.find(node.parent); tail != tails_.end() && node.next == kNoNode) {
    tail->second = node.previous;
  }
}

void SyntaxTree::SetChildren(NodeId parent, NodeId first) {
  SetHead(parent, first);
  tails_.erase(parent);
  former_tails_.erase(parent);
  for (NodeId child = first; child != kNoNode; child = nodes_[child].next) {
    if (nodes_[child].parent != parent) Change(child).parent = parent;
  }
}

void SyntaxTree::RollBack(Mark mark) noexcept {
  if (!tails_.empty()) {
    for (auto& [parent, tail] : tails_) {
      while (tail != kNoNode && tail >= mark.count) tail = nodes_[tail].previous;
    }
    former_tails_.swap(tails_);
    tails_.clear();
  }
  for (NodeId id = mark.count; id < Count(); ++id) nodes_[id].gone = 1;
  while (log_.size() > mark.log) {
    const Was& was = log_.back();
    SyntaxNode& node = nodes_[was.id];
    const bool seen = node.begin != was.node.begin || node.end != was.node.end ||
                      node.gone != was.node.gone || node.kind != was.node.kind ||
                      node.parent != was.node.parent;
    const bool made_since = was.id >= mark.count;
    node = was.node;
    if (made_since) node.gone = 1;
    if (node.own_head) heads_.find(was.id)->second = was.head;
    if (seen && !made_since) {
      try {
        Note(was.id);
      } catch (const std::bad_alloc&) {
        ++generation_;
      }
    }
    log_.pop_back();
  }
}

void SyntaxTree::SetHead(NodeId parent, NodeId head) {
  heads_.try_emplace(parent, kNoNode);  // before the change, which it then cannot fail
  Change(parent).own_head = 1;
  heads_.find(parent)->second = head;
}

NodeId SyntaxTree::HeadOf(NodeId parent) const {
  return heads_.find(parent)->second;
}

}  // namespace klepur::internal
