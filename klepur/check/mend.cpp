#include <klepur/check/mend.h>

#include <klepur/document/document_state.h>
#include <klepur/document/edit.h>
#include <klepur/document/node_access.h>
#include <klepur/document/values.h>
#include <klepur/text/error.h>

namespace klepur {
namespace {

/// What a mend may find changed: a statement, a stray, a block's header.
std::string TextOf(const Node& node) {
  return node.Is(NodeKind::kBlock) ? node.Header() : node.Text();
}

}  // namespace

Mend::Mend(Node node, std::string text, std::string description, bool removes)
    : node_(node),
      was_(TextOf(node)),
      text_(std::move(text)),
      description_(std::move(description)),
      removes_(removes) {}

Mend Mend::Replace(Node node, std::string text, std::string description) {
  return {node, std::move(text), std::move(description), false};
}

Mend Mend::Remove(Node node, std::string description) {
  return {node, {}, std::move(description), true};
}

bool Mend::Fits(const Document& document) const {
  return !node_.IsGone() && NodeAccess::State(node_) == NodeAccess::State(document.Root()) &&
         TextOf(node_) == was_;
}

void Mend::Apply(Document& document) const {
  if (!Fits(document)) {
    throw Error(ErrorCode::kGone, "what the mend is for was changed meanwhile");
  }
  Node node = node_;
  if (removes_) {
    node.Remove();
  } else if (node.Is(NodeKind::kBlock)) {
    node.SetHeader(text_);
  } else {
    internal::DocumentState& state = *NodeAccess::State(node);
    internal::Edit edit(state);
    internal::SetStatementOf(state, NodeAccess::Id(node), text_);
    edit.Keep();
  }
}

}  // namespace klepur
