#include <klepur/document/node.h>

#include <string>

#include <klepur/document/commenting.h>
#include <klepur/document/comments.h>
#include <klepur/document/disabled.h>
#include <klepur/document/document_state.h>
#include <klepur/document/edit.h>
#include <klepur/document/insertion.h>
#include <klepur/document/moving.h>
#include <klepur/document/node_access.h>
#include <klepur/document/node_text.h>
#include <klepur/document/placement.h>
#include <klepur/document/removal.h>
#include <klepur/document/values.h>
#include <klepur/document/words_of_text.h>
#include <klepur/text/error.h>

namespace klepur {
namespace {

using internal::DocumentState;
using internal::Edit;
using internal::kNoNode;
using internal::NodeId;

DocumentState& RequireState(const Node& node) {
  if (node.IsGone()) throw Error(ErrorCode::kGone, "the block or statement is not in the document");
  return *NodeAccess::State(node);
}

/// The anchor of a placement in this document; none when it has none.
NodeId AnchorIn(const DocumentState& state, const Placement& placement) {
  if (placement.where != Placement::Where::kBefore && placement.where != Placement::Where::kAfter) {
    return kNoNode;
  }
  if (&RequireState(placement.anchor) == &state) return NodeAccess::Id(placement.anchor);
  throw Error(ErrorCode::kBadPlace, "the node to add beside is of another document");
}

}  // namespace

Node::operator bool() const noexcept {
  return state_ != nullptr && !state_->tree.IsGone(id_);
}

NodeKind Node::Kind() const {
  return state_ == nullptr ? NodeKind::kStray : state_->tree[id_].kind;
}

std::string Node::Text() const {
  return IsGone() ? std::string() : state_->WholeText(id_);
}

std::string Node::Keyword() const {
  if (!Is(NodeKind::kBlock) && !Is(NodeKind::kStatement) && !Is(NodeKind::kLabel)) return {};
  return internal::KeyOf(state_->OwnText(id_));
}

std::string Node::Name() const {
  return Is(NodeKind::kBlock) ? internal::NameIn(state_->OwnText(id_)) : std::string();
}

std::string Node::Value() const {
  if (!Is(NodeKind::kStatement)) return {};
  const std::string_view text = state_->OwnText(id_);
  const internal::ValuePlace place = internal::ValueIn(text);
  return std::string(text.substr(place.begin, place.end - place.begin));
}

std::string Node::Header() const {
  if (!Is(NodeKind::kBlock)) return {};
  return std::string(internal::UpToLastWord(state_->OwnText(id_)));
}

Node Node::Parent() const {
  if (IsGone() || id_ == internal::kRoot) return {};
  return {state_, state_->tree[id_].parent};
}

Node Node::FirstChild() const {
  return IsGone() ? Node() : NodeAccess::OrNone(state_, state_->tree.FirstChild(id_));
}

Node Node::LastChild() const {
  return IsGone() ? Node() : NodeAccess::OrNone(state_, state_->tree.LastChild(id_));
}

Node Node::Next() const {
  return IsGone() ? Node() : NodeAccess::OrNone(state_, state_->tree[id_].next);
}

Node Node::Previous() const {
  return IsGone() ? Node() : NodeAccess::OrNone(state_, state_->tree[id_].previous);
}

NodeRange Node::Children() const {
  return NodeRange(FirstChild());
}

Node Node::Child(std::string_view keyword) const {
  const std::string key = internal::NormalKey(keyword);
  for (const Node& child : Children()) {
    if (child.Keyword() == key) return child;
  }
  return {};
}

Node Node::Child(std::string_view keyword, std::string_view name) const {
  const std::string key = internal::NormalKey(keyword);
  for (const Node& child : Children()) {
    if (child.Is(NodeKind::kBlock) && child.Keyword() == key && child.Name() == name) return child;
  }
  return {};
}

Node Node::InForce(std::string_view keyword) const {
  if (IsGone()) return {};
  return NodeAccess::OrNone(state_,
                            internal::StatementInForce(*state_, id_, internal::NormalKey(keyword)));
}

std::vector<Node> Node::Comments() const {
  std::vector<Node> comments;
  if (IsGone() || id_ == internal::kRoot) return comments;
  for (const NodeId id : internal::CommentsOf(*state_, id_)) comments.push_back({state_, id});
  return comments;
}

bool Node::IsDisabled() const {
  return Is(NodeKind::kComment) && internal::DisabledAt(*state_, id_).has_value();
}

std::string Node::DisabledText() const {
  if (!Is(NodeKind::kComment)) return {};
  const auto disabled = internal::DisabledAt(*state_, id_);
  return disabled ? disabled->text.substr(disabled->text.find_first_not_of(" \t")) : std::string();
}

std::vector<Node> Node::Disabled() const {
  std::vector<Node> found;
  if (IsGone()) return found;
  NodeId id = state_->tree.FirstChild(id_);
  for (NodeId previous = kNoNode; id != kNoNode; previous = id, id = state_->tree[id].next) {
    const bool in_run = previous != kNoNode && internal::AreInOneRun(*state_, previous, id);
    if (!state_->IsComment(id) || in_run) continue;
    for (const internal::Disabled& disabled : internal::DisabledInRun(*state_, id)) {
      found.push_back({state_, disabled.first});
    }
  }
  return found;
}

Node Node::Add(std::string_view text) {
  return Add(text, Placement());
}

Node Node::Add(std::string_view text, const Placement& placement) {
  DocumentState& state = RequireState(*this);
  const NodeId anchor = AnchorIn(state, placement);
  Edit edit(state);
  const NodeId added = internal::Insert(state, id_, text, placement, anchor);
  edit.Keep();
  return {state_, added};
}

void Node::SetValue(std::string_view value) {
  Edit edit(RequireState(*this));
  internal::SetValueOf(*state_, id_, value);
  edit.Keep();
}

Node Node::Set(std::string_view keyword, std::string_view value) {
  Node statement = InForce(keyword);
  if (!statement) {
    const std::string text =
        std::string(keyword) + (value.empty() ? "" : " ") + std::string(value) + ";";
    internal::RequireStatementText(text);
    return Add(text);
  }
  statement.SetValue(value);
  return statement;
}

Node Node::Set(std::string_view statement) {
  std::string_view text = internal::UpToLastWord(statement);
  if (!text.empty() && text.back() == ';') text.remove_suffix(1);
  const std::string key = internal::KeyOf(text);
  const internal::ValuePlace place = internal::ValueIn(text);
  if (InForce(key)) return Set(key, text.substr(place.begin, place.end - place.begin));
  internal::RequireStatementText(std::string(text) + ";");
  return Add(statement);
}

void Node::AppendToList(std::string_view element) {
  Edit edit(RequireState(*this));
  internal::AppendToListOf(*state_, id_, element);
  edit.Keep();
}

bool Node::RemoveFromList(std::string_view element) {
  Edit edit(RequireState(*this));
  const bool found = internal::RemoveFromListOf(*state_, id_, element);
  edit.Keep();
  return found;
}

void Node::Rename(std::string_view name) {
  Edit edit(RequireState(*this));
  internal::RenameBlock(*state_, id_, name);
  edit.Keep();
}

void Node::SetHeader(std::string_view header) {
  Edit edit(RequireState(*this));
  internal::SetHeaderOf(*state_, id_, header);
  edit.Keep();
}

RemovalReport Node::Remove() {
  return Remove(CommentsAbove::kAuto);
}

RemovalReport Node::Remove(CommentsAbove comments) {
  Edit edit(RequireState(*this));
  RemovalReport report = internal::RemoveNode(*state_, id_, comments);
  edit.Keep();
  return report;
}

void Node::MoveTo(Node parent) {
  MoveTo(parent, Placement());
}

void Node::MoveTo(Node parent, const Placement& placement) {
  DocumentState& state = RequireState(*this);
  if (&RequireState(parent) != &state) {
    throw Error(ErrorCode::kBadPlace, "nothing can be moved to another document");
  }
  const NodeId anchor = AnchorIn(state, placement);
  Edit edit(state);
  internal::MoveNode(state, id_, parent.id_, placement.where, anchor);
  edit.Keep();
}

void Node::CommentOut() {
  Edit edit(RequireState(*this));
  internal::CommentOutNode(*state_, id_);
  edit.Keep();
}

void Node::BringBack() {
  Edit edit(RequireState(*this));
  internal::BringBackNode(*state_, id_);
  edit.Keep();
}

}  // namespace klepur
