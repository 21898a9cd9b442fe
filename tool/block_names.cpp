#include <tool/block_names.h>

#include <klepur/network/prefix.h>

#include <fmt/core.h>

#include <map>
#include <optional>
#include <vector>

#include <tool/language.h>
#include <tool/output.h>
#include <tool/walk.h>

namespace klepur::tool {
namespace {

/// Whether a name would be taken for something else in a BLOCK argument.
bool WantsQuotes(std::string_view name) {
  return name.find_first_of(">\"#{};") != std::string_view::npos || name.front() == ' ' ||
         name.back() == ' ';
}

}  // namespace

std::string NameOf(const Node& block) {
  std::string name = block.Name();
  const std::string kind = block.Keyword();
  if (kind == "subnet" || kind == "subnet6") {
    if (const auto prefix = Prefix::ParseSubnet(name)) return prefix->Text();
  }
  return name;
}

std::string BlockNames::Step(const Node& block) {
  const std::string name = NameOf(block);
  if (!name.empty()) {
    return fmt::format("{} {}", block.Keyword(), OneLine(WantsQuotes(name) ? Quoted(name) : name));
  }
  CountBlocks();
  const auto number = numbers_.find(block.Offset());
  return fmt::format("{} {}", block.Keyword(), number == numbers_.end() ? 1 : number->second);
}

std::string BlockNames::Path(const Node& block) {
  if (block.Is(NodeKind::kFile)) return "global";
  std::string path = Step(block);
  for (Node around = block.Parent(); around.Is(NodeKind::kBlock); around = around.Parent()) {
    path.insert(0, Step(around) + std::string(kStep));
  }
  return path;
}

std::string BlockNames::In(const Node& node) {
  const Node parent = node.Parent();
  return parent.Is(NodeKind::kBlock) ? Path(parent) : std::string();
}

void BlockNames::CountBlocks() {
  if (is_counted_) return;
  is_counted_ = true;
  // The blocks that are open where the walk is, each with how many of each kind it had below it so far.
  struct Open {
    Node block;
    std::map<std::string, std::size_t> counts;
  };
  std::vector<Open> open = {{document_->Root(), {}}};
  const auto close = [&open] {
    for (const auto& [kind, count] : open.back().counts) {
      open[open.size() - 2].counts[kind] += count;
    }
    open.pop_back();
  };
  const Node root = document_->Root();
  for (Node node = root.FirstChild(); node; node = NextBelow(node, root)) {
    if (!node.Is(NodeKind::kBlock)) continue;
    const Node parent = node.Parent();
    while (open.back().block != parent) close();
    const std::size_t number = ++open.back().counts[node.Keyword()];
    if (node.Name().empty()) numbers_[node.Offset()] = number;
    open.push_back({node, {}});
  }
}

}  // namespace klepur::tool
