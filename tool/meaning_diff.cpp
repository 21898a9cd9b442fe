#include <tool/meaning_diff.h>

#include <klepur/network/hardware_address.h>

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include <tool/block_names.h>
#include <tool/language.h>
#include <tool/walk.h>

namespace klepur::tool {
namespace {

using Nodes = std::vector<Node>;
using Kind = Difference::Kind;

/// A statement's value, spelled in one way.
std::string ValueOf(const Node& statement) {
  const std::string value = statement.Value();
  if (statement.Keyword() == "hardware") {
    if (const auto address = HardwareAddress::Parse(value)) return address->Value();
  }
  return Plain(value);
}

/// What tells a block from others beside it; the same for blocks that correspond.
std::string KeyOf(const Node& block) {
  const std::string name = NameOf(block);
  return name.empty() ? block.Keyword() : block.Keyword() + " " + name;
}

bool HasName(const Node& block) {
  return !block.Name().empty();
}

class Comparison {
 public:
  Comparison(const Document& old_document, const Document& new_document)
      : old_root_(old_document.Root()),
        new_root_(new_document.Root()),
        old_names_(old_document),
        new_names_(new_document) {}

  std::vector<Difference> Run() {
    pairs_.emplace_back(old_root_, new_root_);
    ComparePairs();
    // Of what moved, something may have moved on.
    while (MatchMoved()) ComparePairs();
    ReportRest();
    std::stable_sort(found_.begin(), found_.end(),
                     [](const Difference& left, const Difference& right) {
                       return LineOf(left) < LineOf(right);
                     });
    return std::move(found_);
  }

 private:
  static std::size_t LineOf(const Difference& each) {
    return each.new_line != 0 ? each.new_line : each.old_line;
  }

  void ComparePairs() {
    while (!pairs_.empty()) {
      const auto [before, now] = pairs_.back();
      pairs_.pop_back();
      CompareStatements(before, now);
      CompareBlocks(before, now);
    }
  }

  static std::map<std::string, Nodes> StatementsOf(const Node& block) {
    std::map<std::string, Nodes> statements;
    for (const Node& child : block.Children()) {
      if (child.Is(NodeKind::kStatement)) statements[child.Keyword()].push_back(child);
    }
    return statements;
  }

  void CompareStatements(const Node& before, const Node& now) {
    std::map<std::string, Nodes> old_statements = StatementsOf(before);
    std::map<std::string, Nodes> new_statements = StatementsOf(now);
    for (const auto& [keyword, nodes] : new_statements) {
      CompareValues(keyword, old_statements[keyword], nodes, now);
      old_statements.erase(keyword);
    }
    for (const auto& [keyword, nodes] : old_statements) CompareValues(keyword, nodes, {}, now);
  }

  void CompareValues(const std::string& keyword, Nodes before, Nodes now, const Node& in) {
    // Equal values at the beginning and end of both, then any others, are taken away.
    const auto equal = [](const Node& left, const Node& right) {
      return ValueOf(left) == ValueOf(right);
    };
    if (before.size() == now.size() && std::equal(before.begin(), before.end(), now.begin(), equal))
      return;
    const bool last_differs = before.empty() || now.empty() || !equal(before.back(), now.back());
    std::multimap<std::string, std::size_t> old_values;
    for (std::size_t i = 0; i < before.size(); ++i) old_values.emplace(ValueOf(before[i]), i);
    Nodes added;
    for (const Node& node : now) {
      const auto same = old_values.find(ValueOf(node));
      if (same == old_values.end()) {
        added.push_back(node);
      } else {
        old_values.erase(same);
      }
    }
    Nodes removed;
    for (const auto& [value, i] : old_values) removed.push_back(before[i]);
    if (removed.empty() && added.empty() && last_differs) {
      removed.push_back(before.back());
      added.push_back(now.back());
    }
    const std::size_t changed = std::min(removed.size(), added.size());
    for (std::size_t i = 0; i < changed; ++i)
      Report(Kind::kChanged, keyword, in, removed[i], added[i]);
    for (std::size_t i = changed; i < removed.size(); ++i)
      Report(Kind::kRemoved, keyword, in, removed[i], Node());
    for (std::size_t i = changed; i < added.size(); ++i)
      Report(Kind::kAdded, keyword, in, Node(), added[i]);
  }

  void Report(Kind kind, const std::string& keyword, const Node& in, const Node& before,
              const Node& now) {
    Difference difference = {kind, keyword, InPath(in), {}, {}, 0, 0};
    if (before) {
      difference.was = ValueOf(before);
      difference.old_line = before.Begin().line;
    }
    if (now) {
      difference.now = ValueOf(now);
      difference.new_line = now.Begin().line;
    }
    found_.push_back(std::move(difference));
  }

  std::string InPath(const Node& block) {
    return block == new_root_ ? std::string() : new_names_.Path(block);
  }

  static Nodes BlocksOf(const Node& block) {
    Nodes blocks;
    for (const Node& child : block.Children()) {
      if (child.Is(NodeKind::kBlock)) blocks.push_back(child);
    }
    return blocks;
  }

  void CompareBlocks(const Node& before, const Node& now) {
    std::map<std::string, std::pair<Nodes, Nodes>> by_key;
    for (const Node& block : BlocksOf(before)) by_key[KeyOf(block)].first.push_back(block);
    for (const Node& block : BlocksOf(now)) by_key[KeyOf(block)].second.push_back(block);
    for (auto& [key, both] : by_key) {
      auto& [old_blocks, new_blocks] = both;
      if (old_blocks.size() != new_blocks.size() || old_blocks.size() > 1)
        PairEqual(old_blocks, new_blocks);
      const std::size_t paired = std::min(old_blocks.size(), new_blocks.size());
      for (std::size_t i = 0; i < paired; ++i) pairs_.emplace_back(old_blocks[i], new_blocks[i]);
      gone_.insert(gone_.end(), old_blocks.begin() + static_cast<std::ptrdiff_t>(paired),
                   old_blocks.end());
      new_.insert(new_.end(), new_blocks.begin() + static_cast<std::ptrdiff_t>(paired),
                  new_blocks.end());
    }
  }

  /// Takes away the blocks that say the same, word by word.
  static void PairEqual(Nodes& old_blocks, Nodes& new_blocks) {
    std::multimap<std::string, std::size_t> by_text;
    for (std::size_t i = 0; i < old_blocks.size(); ++i) {
      by_text.emplace(Plain(old_blocks[i].Text()), i);
    }
    Nodes left;
    for (const Node& block : new_blocks) {
      const auto same = by_text.find(Plain(block.Text()));
      if (same == by_text.end()) {
        left.push_back(block);
        continue;
      }
      old_blocks[same->second] = Node();
      by_text.erase(same);
    }
    Drop(old_blocks, [](const Node& node) { return !node; });
    new_blocks = std::move(left);
  }

  /// Where blocks begin.
  using Places = std::unordered_set<std::size_t>;

  /// The named blocks of these and in these, by their keys; those that moved, and what is in them, left out.
  static std::map<std::string, Nodes> NamedIn(const Nodes& blocks, const Places& moved) {
    std::map<std::string, Nodes> named;
    for (const Node& block : blocks) {
      Node node = block;
      while (node) {
        if (moved.count(node.Offset()) != 0) {
          node = NextBehind(node, block);
          continue;
        }
        if (node.Is(NodeKind::kBlock) && HasName(node)) named[KeyOf(node)].push_back(node);
        node = NextBelow(node, block);
      }
    }
    return named;
  }

  /// Pairs the blocks that are gone in one place and new in another, and says whether there were any.
  bool MatchMoved() {
    const std::map<std::string, Nodes> old_named = NamedIn(gone_, moved_from_);
    std::vector<std::pair<Node, Node>> matches;
    std::unordered_map<std::size_t, std::size_t> places;
    for (const auto& [key, now] : NamedIn(new_, moved_to_)) {
      const auto before = old_named.find(key);
      if (before == old_named.end() || before->second.size() != 1 || now.size() != 1) continue;
      matches.emplace_back(before->second.front(), now.front());
      places.emplace(now.front().Offset(), before->second.front().Offset());
    }
    for (const auto& [from, to] : matches) {
      if (WentWithBlock(from, to, places)) continue;
      moved_from_.insert(from.Offset());
      moved_to_.insert(to.Offset());
      found_.push_back({Kind::kMoved, KeyOf(to), InPath(to.Parent()), old_names_.In(from),
                        new_names_.In(to), from.Begin().line, to.Begin().line});
      pairs_.emplace_back(from, to);
    }
    Drop(gone_, [&](const Node& node) { return moved_from_.count(node.Offset()) != 0; });
    Drop(new_, [&](const Node& node) { return moved_to_.count(node.Offset()) != 0; });
    return !matches.empty();
  }

  /// Whether a block only went with one around it, with which it is compared: the next one around the new place that
  /// has a match has it around the old place.
  ///
  /// \param places  the new places with the old ones.
  static bool WentWithBlock(Node from, Node to,
                            const std::unordered_map<std::size_t, std::size_t>& places) {
    std::unordered_map<std::size_t, std::size_t>::const_iterator around;
    do {
      to = to.Parent();
      if (to.Is(NodeKind::kFile)) return false;
      around = places.find(to.Offset());
    } while (around == places.end());
    do {
      from = from.Parent();
      if (from.Is(NodeKind::kFile)) return false;
    } while (from.Offset() != around->second);
    return true;
  }

  template <class Is>
  static void Drop(Nodes& nodes, const Is& is) {
    nodes.erase(std::remove_if(nodes.begin(), nodes.end(), is), nodes.end());
  }

  void ReportRest() {
    for (const Node& block : gone_) {
      found_.push_back({Kind::kRemoved,
                        old_names_.Step(block),
                        old_names_.In(block),
                        {},
                        {},
                        block.Begin().line,
                        0});
    }
    for (const Node& block : new_) {
      found_.push_back({Kind::kAdded,
                        new_names_.Step(block),
                        new_names_.In(block),
                        {},
                        {},
                        0,
                        block.Begin().line});
    }
  }

  Node old_root_;
  Node new_root_;
  BlockNames old_names_;
  BlockNames new_names_;
  std::vector<std::pair<Node, Node>> pairs_;
  Nodes gone_;
  Nodes new_;
  Places moved_from_;
  Places moved_to_;
  std::vector<Difference> found_;
};

}  // namespace

std::vector<Difference> Differences(const Document& old_document, const Document& new_document) {
  return Comparison(old_document, new_document).Run();
}

std::string_view ToText(Difference::Kind kind) {
  switch (kind) {
    case Kind::kAdded:
      return "added";
    case Kind::kRemoved:
      return "removed";
    case Kind::kChanged:
      return "changed";
    case Kind::kMoved:
      return "moved";
  }
  return "";
}

}  // namespace klepur::tool
