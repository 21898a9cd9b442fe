// What a caller changes by itself, by the model.
#include <algorithm>
#include <iterator>
#include <utility>

#include "tests/random/model_file.h"

namespace klepur::test {

void ModelFile::SetName(const Path& node, const std::string& name) {
  At(node).name = name;
}

void ModelFile::AddEntry(const Path& node, const ModelLine& line) {
  At(node).lines.push_back(line);
}

void ModelFile::InsertEntry(const Path& node, const ModelLine& line) {
  At(node).lines.push_back(line);
}

void ModelFile::SetKeyName(const Path& node, std::size_t line, const std::string& text) {
  At(node).lines.at(line).text = text;
}

void ModelFile::SetCommented(const Path& node, std::size_t line, bool commented) {
  At(node).lines.at(line).commented = commented;
}

void ModelFile::RemoveEntry(const Path& node, std::size_t line) {
  auto& lines = At(node).lines;
  lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(line));
}

void ModelFile::ClearEntryList(const Path& node) {
  At(node).lines.clear();
}

void ModelFile::AssignSection(const Path& node, const std::string& name, const Lines& lines) {
  At(node).name = name;
  At(node).lines = lines;
}

void ModelFile::SwapSections(const Path& one, const Path& other) {
  std::swap(At(one).name, At(other).name);
  std::swap(At(one).lines, At(other).lines);
}

void ModelFile::NewNode(const Path& parent, std::size_t position, const std::string& name,
                        const Lines& lines) {
  auto node = std::make_unique<ModelNode>();
  node->name = name;
  node->lines = lines;
  AddNode(At(parent), position, std::move(node));
}

/// `position` is counted without the node that moves.
void ModelFile::MoveNode(const Path& node, const Path& parent, std::size_t position) {
  ModelNode& to = At(parent);
  AddNode(to, position, TakeOut(At(node)));
}

void ModelFile::DeleteNode(const Path& node) {
  TakeOut(At(node));
}

void ModelFile::DeleteAllItems(const Path& node) {
  At(node).children.clear();
}

void ModelFile::PutLine(const Path& node, std::size_t position, const ModelLine& line) {
  auto& lines = At(node).lines;
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(position), line);
}

void ModelFile::TakeLine(const Path& node, std::size_t line) {
  RemoveEntry(node, line);
}

void ModelFile::ReverseLines(const Path& node) {
  auto& lines = At(node).lines;
  std::reverse(lines.begin(), lines.end());
}

void ModelFile::SwapNodes(const Path& one, const Path& other) {
  ModelNode& a = At(one);
  ModelNode& b = At(other);
  ModelNode* const parentOfA = a.parent;
  std::swap(parentOfA->children[one.back()], b.parent->children[other.back()]);
  a.parent = b.parent;
  b.parent = parentOfA;
}

void ModelFile::ReverseChildren(const Path& node) {
  auto& children = At(node).children;
  std::reverse(children.begin(), children.end());
}

void ModelFile::SpliceChildren(const Path& from, const Path& to) {
  auto& moving = At(from).children;
  ModelNode& above = At(to);
  for (auto& child : moving) child->parent = &above;
  std::move(moving.begin(), moving.end(), std::back_inserter(above.children));
  moving.clear();
}

void ModelFile::KeepNode(const Path& node) {
  kept_.push_back(TakeOut(At(node)));
}

void ModelFile::HangKept(const Path& parent, std::size_t position) {
  if (kept_.empty()) return;
  AddNode(At(parent), position, std::move(kept_.back()));
  kept_.pop_back();
}

void ModelFile::PlaceCursors(const MaybePath& network, const MaybePath& subnet) {
  currentNetwork_ = network ? &At(*network) : nullptr;
  currentSubnet_ = subnet ? &At(*subnet) : nullptr;
}

}  // namespace klepur::test
