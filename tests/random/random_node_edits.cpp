// What a caller changes on the nodes of the tree by itself.
#include "tests/random/random_operations.h"

namespace klepur::test {

Operation RandomOperations::SetName() {
  const Path node = PathOf(AnyBlock());
  const std::string name = AnyHeader();
  return Silent(Call("SetName", {Node(node), Quoted(name)}),
                [=](Side& side) { side.SetName(node, name); });
}

Operation RandomOperations::AddLine() {
  const Path node = PathOf(chance_.OneIn(2) ? AnyNodeToBeFound(0) : AnyBlock());
  const ModelLine line = AnyLine();
  const std::vector<std::string> arguments = {Node(node), ToText(line)};
  if (chance_.OneIn(2)) {
    return Silent(Call("AddEntry", arguments), [=](Side& side) { side.AddEntry(node, line); });
  }
  return Silent(Call("InsertEntry", arguments), [=](Side& side) { side.InsertEntry(node, line); });
}

Operation RandomOperations::ChangeLine() {
  const ModelNode& node = AnyBlock();
  if (node.lines.empty()) return AddLine();
  const Path path = PathOf(node);
  const std::size_t at = chance_.Below(node.lines.size());
  if (chance_.OneIn(4)) {
    const bool commented = chance_.OneIn(2);
    return Silent(Call("SetCommented", {Node(path), std::to_string(at), ToText(commented)}),
                  [=](Side& side) { side.SetCommented(path, at, commented); });
  }
  const std::string text = AnyLine().text;
  return Silent(Call("SetKeyName", {Node(path), std::to_string(at), Quoted(text)}),
                [=](Side& side) { side.SetKeyName(path, at, text); });
}

Operation RandomOperations::RemoveLine() {
  const ModelNode& node = AnyBlock();
  const Path path = PathOf(node);
  if (node.lines.empty() || chance_.OneIn(5)) {
    return Silent(Call("ClearEntryList", {Node(path)}),
                  [=](Side& side) { side.ClearEntryList(path); });
  }
  const std::size_t at = chance_.Below(node.lines.size());
  return Silent(Call("RemoveEntry", {Node(path), std::to_string(at)}),
                [=](Side& side) { side.RemoveEntry(path, at); });
}

Operation RandomOperations::ReplaceSection() {
  const Path node = PathOf(AnyBlock());
  const std::string name = AnyHeader();
  const Side::Lines lines = AnyLines();
  return Silent(Call("assign a section", {Node(node), Quoted(name), ToText(lines)}),
                [=](Side& side) { side.AssignSection(node, name, lines); });
}

Operation RandomOperations::SwapSections() {
  const Path one = PathOf(AnyBlock());
  const Path other = PathOf(AnyBlock());
  return Silent(Call("swap sections", {Node(one), Node(other)}),
                [=](Side& side) { side.SwapSections(one, other); });
}

Operation RandomOperations::NewNode() {
  ModelNode& parent = AnyNode();
  const Path above = PathOf(parent);
  const std::size_t count = parent.children.size();
  const std::size_t position = chance_.OneIn(4) ? chance_.Between(0, count) : count;
  const std::string name = AnyHeader();
  const Side::Lines lines = AnyLines();
  return Silent(
      Call("new TreeNode", {Node(above), std::to_string(position), Quoted(name), ToText(lines)}),
      [=](Side& side) { side.NewNode(above, position, name, lines); });
}

Operation RandomOperations::MoveNode() {
  const ModelNode& node = AnyBlock();
  ModelNode& parent = AnyNode();
  if (IsIn(&parent, node) || node.parent == &model_.Top()) return NewNode();
  const std::size_t others = parent.children.size() - (node.parent == &parent ? 1 : 0);
  const std::size_t position = chance_.Between(0, others);
  const Path path = PathOf(node);
  const Path above = PathOf(parent);
  return Silent(Call("move", {Node(path), "below " + Node(above), std::to_string(position)}),
                [=](Side& side) { side.MoveNode(path, above, position); });
}

/// The cursors must not be left on what a caller deletes.
Operation RandomOperations::DeleteNode() {
  const ModelNode& node = AnyBlock();
  const Path path = PathOf(node);
  const bool leave = HasCursorIn(node);
  const std::string before = leave ? "GotoSection(nullptr, 0), " : "";
  if (chance_.OneIn(4)) {
    return Silent(before + Call("DeleteAllItems", {Node(path)}), [=](Side& side) {
      if (leave) side.GotoSection(std::nullopt, kGlobal);
      side.DeleteAllItems(path);
    });
  }
  return Silent(before + Call("delete", {Node(path)}), [=](Side& side) {
    if (leave) side.GotoSection(std::nullopt, kGlobal);
    side.DeleteNode(path);
  });
}

Operation RandomOperations::ChangeCopies() {
  const Path node = PathOf(AnyNode());
  const std::string name = AnyHeader();
  return Silent(Call("change copies", {Node(node), Quoted(name)}),
                [=](Side& side) { side.ChangeCopies(node, name); });
}

}  // namespace klepur::test
