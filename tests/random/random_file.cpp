#include "tests/random/random_file.h"

#include <algorithm>

#include "tests/support/files.h"

namespace klepur::test {
namespace {

/// The kinds of blocks that stand in a block of each kind; the number beside each is how often.
struct Likely {
  std::size_t network, subnet, host, ifBlock, odd;
};
constexpr Likely kInRoot = {25, 35, 15, 8, 17};
constexpr Likely kInNetwork = {3, 65, 10, 7, 15};
constexpr Likely kInSubnet = {1, 4, 65, 15, 15};
constexpr Likely kInOther = {2, 3, 60, 15, 20};

class TreeMaker {
 public:
  TreeMaker(Chance& chance, const ModelFamily& family)
      : chance_(chance), family_(family), words_(chance, family) {}

  void AddLines(ModelNode& node, std::size_t most) {
    for (std::size_t count = chance_.Between(0, most); count > 0; --count) {
      node.lines.push_back(words_.FileLine());
    }
  }

  /// Adds `count` blocks, some of them within others of them.
  void AddBlocks(ModelNode& node, const Likely& likely, std::size_t count, int depth) {
    while (count > 0) {
      const int kind = KindIn(likely);
      ModelNode& block = AddNode(node, words_.Header(kind));
      --count;
      AddLines(block, 5);
      if (kind == kHost && chance_.OneIn(2)) AddHostStatements(block);
      const std::size_t within = depth > 6 ? 0 : chance_.Between(0, count);
      AddBlocks(block, LikelyIn(kind), within, depth + 1);
      count -= within;
    }
  }

  /// Hosts most of which have a name and addresses of their own.
  void AddManyHosts(ModelNode& subnet, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      ModelNode& host = AddNode(subnet, "host pc-" + NearlyAlways(i, count));
      AddLines(host, 2);
      const std::string high = std::to_string(10 + i / 100);
      AddStatement(host, family_.hardwareEthernet,
                   "00:00:00:00:" + high + ":" + NearlyAlways(i % 100, 100));
      AddStatement(host, family_.fixedAddress, AddressPrefix() + NearlyAlways(i, count));
      AddStatement(host, family_.hostName, "pc-" + NearlyAlways(i, count));
      if (chance_.OneIn(10)) AddLines(host, 2);
    }
  }

 private:
  std::string NearlyAlways(std::size_t number, std::size_t count) {
    return std::to_string(chance_.OneIn(30) ? chance_.Below(count) : number);
  }

  std::string AddressPrefix() const { return family_.isV6 ? "2001:db8:7::" : "pc.lan."; }

  void AddHostStatements(ModelNode& host) {
    for (const int type : {family_.hardwareEthernet, family_.fixedAddress, family_.hostName}) {
      AddStatement(host, type, words_.Value(type));
    }
  }

  void AddStatement(ModelNode& node, int type, const std::string& value) {
    const ModelFamily::Written& written = family_.written.at(type);
    if (chance_.OneIn(15)) return;
    node.lines.push_back({written.beforeValue + value + written.behindValue, chance_.OneIn(15)});
  }

  int KindIn(const Likely& likely) {
    std::size_t at = chance_.Below(100);
    for (const auto& [kind, weight] : {std::pair<int, std::size_t>{kNetwork, likely.network},
                                       {kSubnet, likely.subnet},
                                       {kHost, likely.host},
                                       {kIf, likely.ifBlock}}) {
      if (at < weight) return kind;
      at -= weight;
    }
    return kGlobal;
  }

  static const Likely& LikelyIn(int kind) {
    return kind == kNetwork ? kInNetwork : kind == kSubnet ? kInSubnet : kInOther;
  }

  Chance& chance_;
  const ModelFamily& family_;
  RandomWords words_;
};

class Layout {
 public:
  explicit Layout(Chance& chance)
      : chance_(chance), indented_(!chance.OneIn(4)), braceBelow_(chance.OneIn(3)) {}

  std::string Text(const ModelNode& top) {
    Content(*top.children.front(), 0);
    if (top.children.size() > 1 || !top.lines.empty()) {
      text_ += "}\n";
      for (const ModelLine& line : top.lines) Line(line, 0);
      for (std::size_t i = 1; i < top.children.size(); ++i) Block(*top.children[i], 0);
    }
    return text_;
  }

 private:
  void Content(const ModelNode& node, std::size_t depth) {
    for (const ModelLine& line : node.lines) Line(line, depth);
    for (const auto& child : node.children) Block(*child, depth);
  }

  void Line(const ModelLine& line, std::size_t depth) {
    Indent(depth);
    if (line.commented) text_ += chance_.OneIn(2) ? "# " : "#";
    text_ += line.text;
    if (chance_.OneIn(8)) text_ += " \t";
    const bool endsItself = !line.commented && line.text.find('{') == std::string::npos;
    text_ += endsItself && chance_.OneIn(10) ? " " : "\n";
    if (chance_.OneIn(10)) text_ += "\n";
  }

  void Block(const ModelNode& node, std::size_t depth) {
    Indent(depth);
    text_ += node.name;
    if (braceBelow_) {
      text_ += "\n";
      Indent(depth);
    } else {
      text_ += " ";
    }
    text_ += "{\n";
    Content(node, depth + 1);
    Indent(depth);
    text_ += "}\n";
  }

  void Indent(std::size_t depth) {
    if (indented_) text_.append(2 * depth, ' ');
  }

  Chance& chance_;
  bool indented_;
  bool braceBelow_;
  std::string text_;
};

bool HasBlankEnds(const std::string& text) {
  const std::string blanks = " \t\v";
  return text.empty() || blanks.find(text.front()) != std::string::npos ||
         blanks.find(text.back()) != std::string::npos;
}

bool HasEvenQuotes(const std::string& text) {
  return std::count(text.begin(), text.end(), '"') % 2 == 0;
}

bool IsCleanHeader(const std::string& name) {
  return name.find_first_of(";{}#\n") == std::string::npos && !HasBlankEnds(name) &&
         HasEvenQuotes(name) && name != "TREE_ROOT_SECTION";
}

bool IsCleanLine(const ModelLine& line) {
  const std::string& text = line.text;
  if (text.find('\n') != std::string::npos || !HasEvenQuotes(text)) return false;
  if (line.commented) return text.empty() || !HasBlankEnds(text);
  if (text == "host z { fixed-address 10.0.0.5; }") return true;
  return !HasBlankEnds(text) && text.find_first_of(";{}#") == text.size() - 1 && text.back() == ';';
}

bool IsClean(const ModelNode& node) {
  return std::all_of(node.lines.begin(), node.lines.end(), IsCleanLine) &&
         std::all_of(node.children.begin(), node.children.end(), [](const auto& child) {
           return IsCleanHeader(child->name) && IsClean(*child);
         });
}

}  // namespace

std::unique_ptr<ModelNode> RandomTree(Chance& chance, const ModelFamily& family, FileSize size) {
  TreeMaker maker(chance, family);
  auto top = std::make_unique<ModelNode>();
  ModelNode& root = AddNode(*top, "TREE_ROOT_SECTION");
  maker.AddLines(root, 4);
  maker.AddBlocks(root, kInRoot, chance.Between(0, size == FileSize::kMedium ? 100 : 15), 0);
  if (size == FileSize::kLarge) {
    const std::vector<ModelNode*> nodes = AllNodes(root);
    const std::size_t most = chance.OneIn(5) ? 1000 : 300;
    for (std::size_t subnets = chance.Between(1, 4); subnets > 0; --subnets) {
      ModelNode& subnet = *chance.Pick(nodes);
      maker.AddManyHosts(subnet, chance.Between(100, most));
    }
  }
  if (chance.OneIn(20)) {
    maker.AddLines(*top, 2);
    maker.AddBlocks(*top, kInRoot, chance.Between(0, 3), 0);
  }
  return top;
}

std::string RandomLayout(Chance& chance, const ModelNode& top) {
  const std::string text = Layout(chance).Text(top);
  return chance.OneIn(4) ? WithCarriageReturns(text) : text;
}

bool IsReadBackAsItIs(const ModelNode& root) {
  return root.name == "TREE_ROOT_SECTION" && IsClean(root);
}

}  // namespace klepur::test
