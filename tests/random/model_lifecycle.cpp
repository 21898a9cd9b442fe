// Opening and saving, by the model.
#include "tests/random/model_file.h"

namespace klepur::test {
namespace {

constexpr char kRootName[] = "TREE_ROOT_SECTION";

unsigned DepthOfFirstBlocks(const ModelNode& root) {
  unsigned depth = 0;
  for (const ModelNode* node = FirstChild(root); node != nullptr; node = FirstChild(*node)) ++depth;
  return depth;
}

}  // namespace

/// What Open does first when the file was read before, even in vain.
void ModelFile::StartOver() {
  if (!isRead_) return;
  top_.children.clear();
  top_.lines.clear();
  topHasList_ = false;
  leftmostDepth_ = 0;
  currentNetwork_ = nullptr;
  currentSubnet_ = nullptr;
}

void ModelFile::OpenMissing() {
  StartOver();
  isRead_ = true;
}

void ModelFile::Open(const ModelNode& parsed) {
  StartOver();
  top_.lines.insert(top_.lines.end(), parsed.lines.begin(), parsed.lines.end());
  for (const auto& child : parsed.children) AddNode(top_, top_.children.size(), Copy(*child));
  topHasList_ = true;
  isRead_ = true;
  ModelNode* const first = FirstChild(*Root());
  if (first == nullptr) return;
  if (Read(family_, *first, false).type == kNetwork) {
    currentNetwork_ = first;
    currentSubnet_ = FirstChild(*first);
  } else {
    currentSubnet_ = first;
  }
}

bool ModelFile::CanBeWritten() {
  if (Root() == nullptr) return true;
  for (const ModelNode* node : AllNodes(*Root())) {
    if (node != Root() && node->name == kRootName) return false;
  }
  return true;
}

std::unique_ptr<std::string> ModelFile::Save() {
  if (!topHasList_ || Root() == nullptr) return nullptr;
  leftmostDepth_ += DepthOfFirstBlocks(*Root());
  auto text = std::make_unique<std::string>();
  Write(*Root(), 0, *text);
  return text;
}

void ModelFile::Write(const ModelNode& node, unsigned depth, std::string& text) const {
  const bool isRoot = node.name == kRootName;
  const std::string indent(depth, '\t');
  if (!isRoot) text += "\n" + indent + node.name + "\n" + indent + "{\n";
  const std::string below = isRoot ? "" : indent + "\t";
  for (const ModelLine& line : node.lines) {
    text += (line.commented ? "#" : "") + below + line.text + "\n";
  }
  for (const auto& child : node.children) Write(*child, isRoot ? 0 : depth + 1, text);
  if (isRoot) return;
  if (depth == 0 && leftmostDepth_ != 1) text += "\n";
  text += indent + "}\n";
}

}  // namespace klepur::test
