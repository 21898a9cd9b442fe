// Random edits of random files, and what must hold after each.
//
//     KLEPUR_RANDOM_SEED=5     begins with this seed instead of a new one
//     KLEPUR_RANDOM_SECONDS=60 goes on for so long; 0: one file only
//     KLEPUR_RANDOM_TRACE=1    says each edit before it is made, for one that does not return
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/document/random_document.h"
#include "tests/random/chance.h"
#include "tests/support/document_tree.h"

namespace klepur::test {
namespace {

std::string Setting(const char* name, const std::string& otherwise) {
  const char* const value = std::getenv(name);
  return value == nullptr || *value == '\0' ? otherwise : value;
}

bool IsBranch(const Node& node) {
  return node.Keyword() == "elsif" || node.Keyword() == "else";
}

bool IsOf(const Node& node, NodeKind kind) {
  return node.Is(kind);
}

std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::size_t size = end == std::string_view::npos ? text.size() : end + 1;
    lines.push_back(text.substr(0, size));
    text.remove_prefix(size);
  }
  return lines;
}

/// Some lines of a text, counted from 1, both included.
struct Region {
  std::size_t first;
  std::size_t last;
};

/// What is known of a node before an edit.
struct Known {
  Node node;
  NodeKind kind;
  std::string text;
  std::vector<std::string> comments;
  bool touched;  ///< It, or what it stands in, is one of a plan's touched nodes.
};

/// An edit that is about to be made.
struct Plan {
  std::string words;           ///< What it does, to be read.
  std::function<void()> edit;  ///< Can be run again after it was taken back.
  /// Gives the bytes from before it; false, and none when nothing promises that.
  std::function<bool()> inverse;
  /// Whose text, place or comments may change, besides the blocks around.
  std::vector<Node> touched;
  std::vector<Node> parents;  ///< The blocks in which something changes.
};

/// One file and a sequence of edits of it; the seed decides everything.
class Round {
 public:
  explicit Round(std::uint64_t seed)
      : seed_(seed),
        chance_(seed),
        broken_(chance_.OneIn(6)),
        first_(FirstText()),
        document_(first_),
        start_(document_.GetMark()) {}

  /// Edits until something does not hold; true when everything does.
  bool Run() {
    try {
      return RunEdits();
    } catch (const std::exception& exception) {
      return Complain("an exception", exception.what());
    }
  }

  /// What does not hold, and how to see it again.
  std::string Report() const {
    std::string text = "Does not hold: " + complaint_ +
                       "\nTo repeat: KLEPUR_RANDOM_SEED=" + std::to_string(seed_) +
                       " KLEPUR_RANDOM_SECONDS=0\nEdits:\n";
    for (const std::string& edit : log_) text += "  " + edit + "\n";
    return text + "The text before the last one:\n" + before_ + "<end>\nThe text after it:\n" +
           document_.Text() + "<end>\n";
  }

 private:
  bool RunEdits() {
    if (!broken_ && !document_.Findings().empty()) return Complain("a finding", "");
    if (!IsSound()) return false;
    for (std::size_t count = chance_.Between(1, 15); count > 0; --count) {
      if (!Step()) return false;
    }
    document_.RollBack(start_);
    log_.push_back("roll back to the start");
    return Same("all taken back", first_, document_.Text()) && IsSound();
  }

  std::string FirstText() {
    std::string text = RandomDocumentText(chance_);
    if (!broken_ || text.empty()) return text;
    const std::size_t at = chance_.Below(text.size());
    if (chance_.OneIn(2)) {
      text.erase(at, 1);
    } else {
      text.insert(at, 1, ";{}\"#\n"[chance_.Below(6)]);
    }
    return text;
  }

  // Picking.

  std::vector<Node> AllNodes() const {
    std::vector<Node> nodes;
    CollectBelow(document_.Root(), nodes);
    return nodes;
  }

  static void CollectBelow(const Node& block, std::vector<Node>& nodes) {
    for (const Node& child : block.Children()) {
      nodes.push_back(child);
      CollectBelow(child, nodes);
    }
  }

  template <class Predicate>
  Node PickNode(Predicate fits) {
    std::vector<Node> fitting;
    for (const Node& node : AllNodes()) {
      if (fits(node)) fitting.push_back(node);
    }
    return fitting.empty() ? Node() : chance_.Pick(fitting);
  }

  Node PickBlock() {
    if (chance_.OneIn(4)) return document_.Root();
    const Node block = PickNode([](const Node& node) { return IsOf(node, NodeKind::kBlock); });
    return block ? block : document_.Root();
  }

  Node PickStatement() {
    return PickNode([](const Node& node) { return IsOf(node, NodeKind::kStatement); });
  }

  /// A statement, or a block with all that hangs on it.
  Node PickEntry() {
    return PickNode([](const Node& node) {
      return IsOf(node, NodeKind::kStatement) || (IsOf(node, NodeKind::kBlock) && !IsBranch(node));
    });
  }

  Placement PickPlacement(const Node& parent) {
    std::vector<Node> anchors;
    for (const Node& child : parent.Children()) {
      if (IsOf(child, NodeKind::kStatement) || IsOf(child, NodeKind::kBlock)) {
        anchors.push_back(child);
      }
    }
    switch (chance_.Below(5)) {
      case 0:
        return Placement::First();
      case 1:
        return Placement::Last();
      case 2:
        if (!anchors.empty()) return Placement::Before(chance_.Pick(anchors));
        break;
      case 3:
        if (!anchors.empty()) return Placement::After(chance_.Pick(anchors));
        break;
      default:
        break;
    }
    return {};
  }

  // Planning.

  Plan NextPlan() {
    switch (chance_.Below(10)) {
      case 0:
      case 1:
        return PlanAdd();
      case 2:
        return PlanSetValue();
      case 3:
        return PlanSet();
      case 4:
        return PlanRemove();
      case 5:
        return PlanMove();
      case 6:
        return PlanCommentOut();
      case 7:
        return PlanBringBack();
      case 8:
        return PlanList();
      default:
        return PlanRename();
    }
  }

  Plan PlanAdd() {
    const Node parent = PickBlock();
    std::string text = chance_.OneIn(3) ? RandomBlock(chance_) : RandomStatement(chance_);
    if (chance_.OneIn(6)) text += (chance_.OneIn(2) ? " " : "\n") + RandomStatement(chance_);
    if (chance_.OneIn(6)) text = "# given\n" + text;
    if (chance_.OneIn(6)) text += " # behind";
    Placement placement = PickPlacement(parent);
    if (chance_.OneIn(6)) placement.comment = chance_.OneIn(2) ? "one" : "one\ntwo";
    if (chance_.OneIn(6) && text.find("behind") == std::string::npos) {
      placement.trailing_comment = "trailing";
    }
    Plan plan;
    plan.words = "add \"" + Visible(text) + "\" " + Words(placement) + " to " + Words(parent);
    plan.parents = {parent};
    plan.edit = [this, parent, text, placement] {
      std::vector<Node> before;
      for (const Node& child : parent.Children()) before.push_back(child);
      Node(parent).Add(text, placement);
      added_.clear();
      for (const Node& child : parent.Children()) {
        const bool is_new = std::find(before.begin(), before.end(), child) == before.end();
        if (is_new && !IsOf(child, NodeKind::kComment)) added_.push_back(child);
      }
    };
    plan.inverse = [this] {
      while (!added_.empty()) {
        const std::size_t which = chance_.Below(added_.size());
        Node node = added_[which];
        added_.erase(added_.begin() + static_cast<std::ptrdiff_t>(which));
        if (node) node.Remove(CommentsAbove::kTake);
      }
      return true;
    };
    return plan;
  }

  Plan PlanSetValue() {
    Node statement = PickStatement();
    if (!statement || statement.Value().empty()) return {};
    const std::string old = statement.Value();
    const std::string value = RandomValue(chance_);
    Plan plan;
    plan.words = "set value " + value + " of " + Words(statement);
    plan.parents = {statement.Parent()};
    plan.touched = {statement};
    plan.edit = [statement, value] { Node(statement).SetValue(value); };
    // With comments in it, that of the last line may have become one behind the statement.
    if (old.find('#') == std::string::npos) {
      plan.inverse = [statement, old] {
        Node(statement).SetValue(old);
        return true;
      };
    }
    return plan;
  }

  Plan PlanSet() {
    const Node block = PickBlock();
    const std::string statement = RandomStatement(chance_);
    Plan plan;
    plan.words = "set \"" + statement + "\" in " + Words(block);
    plan.parents = {block};
    for (const Node& child : block.Children()) {
      if (IsOf(child, NodeKind::kStatement)) plan.touched.push_back(child);
    }
    plan.edit = [block, statement] { Node(block).Set(statement); };
    return plan;
  }

  Plan PlanRemove() {
    const Node node = PickNode([](const Node& other) {
      return IsOf(other, NodeKind::kStatement) || IsOf(other, NodeKind::kBlock);
    });
    if (!node) return {};
    const CommentsAbove above = chance_.OneIn(4)   ? CommentsAbove::kKeep
                                : chance_.OneIn(3) ? CommentsAbove::kTake
                                                   : CommentsAbove::kAuto;
    Plan plan;
    plan.words = "remove " + Words(node) +
                 (above == CommentsAbove::kKeep   ? ", keep comments"
                  : above == CommentsAbove::kTake ? ", take comments"
                                                  : "");
    plan.parents = {node.Parent()};
    plan.touched = WithNeighbours(node);
    plan.edit = [node, above] { Node(node).Remove(above); };
    return plan;
  }

  Plan PlanMove() {
    const Node node = PickEntry();
    const Node target = PickBlock();
    if (!node || IsBelow(target, node)) return {};
    const Placement placement = PickPlacement(target);
    if (placement.anchor && IsBelow(placement.anchor, node)) return {};
    Plan plan;
    plan.words = "move " + Words(node) + " " + Words(placement) + " to " + Words(target);
    plan.parents = {node.Parent(), target};
    plan.touched = WithNeighbours(node);
    plan.edit = [node, target, placement] { Node(node).MoveTo(target, placement); };
    plan.inverse = WayBack(node);
    return plan;
  }

  /// Whether the comment above it may be one on all the statements of its kind.
  static bool HeadsARun(const Node& node) {
    const std::vector<Node> comments = node.Comments();
    if (comments.empty() || node.Begin() < comments.front().Begin()) return false;
    Node next = node.Next();
    while (next.Is(NodeKind::kComment)) next = next.Next();
    return next.Keyword() == node.Keyword();
  }

  /// Where something stands that an anchor can name; none when comments of nobody are in between.
  std::function<bool()> WayBack(const Node& node) const {
    if (node.Keyword() == "if" || HeadsARun(node)) return nullptr;
    // Of several on a line, whose comment it is changes with who is there.
    if (node.Next().Is(NodeKind::kComment) && node.Previous() &&
        node.Previous().End().line == node.Begin().line) {
      return nullptr;
    }
    const Node parent = node.Parent();
    const std::vector<Node> own = node.Comments();
    const auto is_own = [&own](const Node& other) {
      return std::find(own.begin(), own.end(), other) != own.end();
    };
    Node next = node.Next();
    while (next && is_own(next)) next = next.Next();
    if (next && !next.Comments().empty() && next.Comments().front() == next) return nullptr;
    if (IsOf(next, NodeKind::kStatement) || (IsOf(next, NodeKind::kBlock) && !IsBranch(next))) {
      return [node, parent, next] {
        if (HeadsARun(node)) return false;
        Node(node).MoveTo(parent, Placement::Before(next));
        return true;
      };
    }
    return nullptr;
  }

  Plan PlanCommentOut() {
    const Node node = PickEntry();
    if (!node) return {};
    Plan plan;
    plan.words = "comment out " + Words(node);
    plan.parents = {node.Parent()};
    plan.touched = Chain(node);
    plan.edit = [node] { Node(node).CommentOut(); };
    plan.inverse = [node] {
      Node(node).BringBack();
      return true;
    };
    return plan;
  }

  Plan PlanBringBack() {
    const Node block = PickBlock();
    const std::vector<Node> disabled = block.Disabled();
    if (disabled.empty()) return {};
    const Node node = chance_.Pick(disabled);
    Plan plan;
    plan.words = "bring back " + Words(node);
    plan.parents = {block};
    for (const Node& child : block.Children()) {
      if (IsOf(child, NodeKind::kComment)) plan.touched.push_back(child);
    }
    plan.edit = [node] { Node(node).BringBack(); };
    return plan;
  }

  Plan PlanList() {
    const Node node = PickNode([](const Node& other) {
      return other.Keyword() == "option routers" || other.Keyword() == "option domain-name-servers";
    });
    if (!node) return {};
    Plan plan;
    plan.parents = {node.Parent()};
    plan.touched = {node};
    if (chance_.OneIn(2)) {
      plan.words = "append to " + Words(node);
      plan.edit = [node] { Node(node).AppendToList("10.9.9.9"); };
      plan.inverse = [node] { return Node(node).RemoveFromList("10.9.9.9"); };
    } else {
      plan.words = "take from " + Words(node);
      plan.edit = [node] {
        try {
          Node(node).RemoveFromList("10.0.0.2");
        } catch (const Error& error) {
          if (error.Code() != ErrorCode::kBadText) throw;
        }
      };
    }
    return plan;
  }

  Plan PlanRename() {
    const Node host = PickNode([](const Node& node) { return node.Keyword() == "host"; });
    if (!host || !IsOf(host, NodeKind::kBlock)) return {};
    const std::string old = host.Name();
    const std::string name = RandomName(chance_);
    Plan plan;
    plan.words = "rename " + Words(host) + " to " + name;
    plan.parents = {host.Parent()};
    plan.touched = {host};
    plan.edit = [host, name] { Node(host).Rename(name); };
    plan.inverse = [host, old] {
      Node(host).Rename(old);
      return true;
    };
    return plan;
  }

  /// A node, the branches that go with it, and what its removal may give its comments to.
  static std::vector<Node> WithNeighbours(const Node& node) {
    std::vector<Node> nodes = Chain(node);
    for (Node next = nodes.back().Next(); next; next = next.Next()) {
      if (IsOf(next, NodeKind::kComment)) continue;
      nodes.push_back(next);
      break;
    }
    for (Node previous = node.Previous(); previous; previous = previous.Previous()) {
      if (IsOf(previous, NodeKind::kComment)) continue;
      if (previous.End().line == node.Begin().line) nodes.push_back(previous);
      break;
    }
    return nodes;
  }

  static std::vector<Node> Chain(const Node& node) {
    std::vector<Node> nodes = {node};
    if (node.Keyword() != "if") return nodes;
    for (Node next = node.Next(); next; next = next.Next()) {
      if (IsOf(next, NodeKind::kComment)) continue;
      if (!IsBranch(next)) break;
      nodes.push_back(next);
    }
    return nodes;
  }

  static bool IsBelow(Node node, const Node& ancestor) {
    for (; node; node = node.Parent()) {
      if (node == ancestor) return true;
    }
    return false;
  }

  static std::string Words(const Node& node) {
    if (IsOf(node, NodeKind::kFile)) return "the file";
    const std::string text = IsOf(node, NodeKind::kBlock) ? node.Header() : node.Text();
    return "\"" + Visible(text) + "\" in line " + std::to_string(node.Begin().line);
  }

  static std::string Words(const Placement& placement) {
    std::string words;
    switch (placement.where) {
      case Placement::Where::kAuto:
        words = "anywhere";
        break;
      case Placement::Where::kFirst:
        words = "first";
        break;
      case Placement::Where::kLast:
        words = "last";
        break;
      case Placement::Where::kBefore:
        words = "before " + Words(placement.anchor);
        break;
      case Placement::Where::kAfter:
        words = "after " + Words(placement.anchor);
        break;
    }
    if (!placement.comment.empty()) words += " with comment \"" + Visible(placement.comment) + "\"";
    if (!placement.trailing_comment.empty()) {
      words += " with trailing comment \"" + Visible(placement.trailing_comment) + "\"";
    }
    return words;
  }

  // Making it, and looking at what comes of it.

  bool Step() {
    const Plan plan = NextPlan();
    if (!plan.edit) return true;
    log_.push_back(plan.words);
    if (kTrace) std::cerr << seed_ << "/" << log_.size() << ": " << plan.words << std::endl;
    before_ = document_.Text();
    const std::string tree_before = PlacedTree(document_);
    const std::vector<Known> known = What(plan);
    const std::vector<Region> regions = Regions(plan);
    const Document::Mark mark = document_.GetMark();
    try {
      plan.edit();
    } catch (const Error& error) {
      log_.back() += ": refused, " + std::string(ToText(error.Code()));
      if (!MayBeRefused(error.Code())) return Complain("not refused", error.what());
      return Same("the text after a refusal", before_, document_.Text()) &&
             Same("the tree after a refusal", tree_before, PlacedTree(document_)) && IsSound();
    }
    if (!IsSound() || !LookupsAgree()) return false;
    if (!broken_ && !(OthersAreTheSame(plan, known) && LinesOutsideAreTheSame(regions))) {
      return false;
    }
    if (chance_.OneIn(3) && !CanBeTakenBack(plan, mark, tree_before)) return false;
    return broken_ || !plan.inverse || !chance_.OneIn(3) || InverseRestores(plan);
  }

  bool MayBeRefused(ErrorCode code) const {
    return broken_ || code == ErrorCode::kBadPlace;  // between an "if" and its "else"
  }

  /// What reading the text again must give.
  bool IsSound() {
    const std::string text = document_.Text();
    std::string pieces;
    for (const std::string_view piece : document_.Pieces()) pieces += piece;
    const Document again(text);
    return Same("the pieces", text, pieces) &&
           Same("the tree that is read again", PlacedTree(again), PlacedTree(document_)) &&
           Same("the findings that are read again", FindingsText(again), FindingsText(document_)) &&
           Same("whether it is changed", std::to_string(text != first_),
                std::to_string(document_.IsChanged()));
  }

  bool LookupsAgree() {
    std::map<std::pair<std::string, std::string>, std::vector<Node>> blocks;
    for (const Node& node : AllNodes()) {
      if (IsOf(node, NodeKind::kBlock) && node.Header().find_first_of("#\"") == std::string::npos) {
        blocks[{node.Keyword(), node.Name()}].push_back(node);
      }
    }
    for (const auto& [key, nodes] : blocks) {
      if (!chance_.OneIn(3)) continue;
      const std::string header = nodes.front().Header();
      if (document_.FindAll(header) != nodes) return Complain("FindAll", header);
      if (document_.Find(header) != nodes.front()) return Complain("Find", header);
    }
    return true;
  }

  bool CanBeTakenBack(const Plan& plan, const Document::Mark& mark,
                      const std::string& tree_before) {
    const std::string after = document_.Text();
    document_.RollBack(mark);
    log_.push_back("roll back");
    if (!Same("the text that was taken back", before_, document_.Text())) return false;
    if (!Same("the tree that was taken back", tree_before, PlacedTree(document_))) return false;
    if (!IsSound() || !LookupsAgree()) return false;
    plan.edit();
    log_.push_back("again");
    return Same("the text when it is done again", after, document_.Text()) && IsSound();
  }

  bool InverseRestores(const Plan& plan) {
    log_.push_back("the inverse");
    if (!plan.inverse()) return true;
    return Same("the text after the inverse", before_, document_.Text()) && IsSound() &&
           LookupsAgree();
  }

  std::vector<Known> What(const Plan& plan) const {
    std::vector<Known> known;
    for (const Node& node : AllNodes()) {
      const bool touched = std::any_of(plan.touched.begin(), plan.touched.end(),
                                       [&node](const Node& other) { return IsBelow(node, other); });
      known.push_back({node, node.Kind(), node.Text(), Texts(node.Comments()), touched});
    }
    return known;
  }

  static std::vector<std::string> Texts(const std::vector<Node>& nodes) {
    std::vector<std::string> texts;
    for (const Node& node : nodes) texts.push_back(node.Text());
    return texts;
  }

  /// Handles name what they named, and nobody's comments are others.
  bool OthersAreTheSame(const Plan& plan, const std::vector<Known>& known) {
    for (const Known& was : known) {
      if (was.kind == NodeKind::kComment || was.touched) continue;
      if (!was.node || was.node.Kind() != was.kind) return Complain("a handle", was.text);
      const bool around =
          std::any_of(plan.parents.begin(), plan.parents.end(),
                      [&was](const Node& parent) { return IsBelow(parent, was.node); });
      if (!around && !Same("a node's text", was.text, was.node.Text())) return false;
      if (Texts(was.node.Comments()) != was.comments) return Complain("comments", was.text);
    }
    return true;
  }

  /// Lines of the text as it is in which the edit may change something.
  std::vector<Region> Regions(const Plan& plan) const {
    std::vector<Region> regions;
    for (Node block : plan.parents) {
      // A block on one line may open or close, and with it the one around it.
      if (!block || IsOf(block, NodeKind::kFile)) return {};
      while (!IsOf(block.Parent(), NodeKind::kFile)) block = block.Parent();
      regions.push_back({block.Begin().line, block.End().line});
    }
    return regions;
  }

  bool LinesOutsideAreTheSame(const std::vector<Region>& regions) {
    if (regions.empty()) return true;
    std::size_t first = regions[0].first;
    std::size_t last = regions[0].last;
    for (const Region& region : regions) {
      first = std::min(first, region.first);
      last = std::max(last, region.last);
    }
    const std::string after_text = document_.Text();
    const std::vector<std::string_view> before = Lines(before_);
    const std::vector<std::string_view> after = Lines(after_text);
    const std::size_t behind = before.size() - last;
    if (after.size() < first - 1 + behind) return Complain("the lines outside", "");
    const auto size = [](std::size_t count) { return static_cast<std::ptrdiff_t>(count); };
    if (!std::equal(before.begin(), before.begin() + size(first - 1), after.begin())) {
      return Complain("the lines above", "");
    }
    if (!std::equal(before.end() - size(behind), before.end(), after.end() - size(behind))) {
      return Complain("the lines below", "");
    }
    return true;
  }

  bool Complain(const std::string& what, const std::string& detail) {
    complaint_ = what + " " + detail;
    return false;
  }

  bool Same(const std::string& what, const std::string& expected, const std::string& actual) {
    if (expected == actual) return true;
    return Complain(what, "should be\n" + expected + "<end>\nand is\n" + actual + "<end>");
  }

  static inline const bool kTrace = Setting("KLEPUR_RANDOM_TRACE", "0") != "0";

  std::uint64_t seed_;
  Chance chance_;
  bool broken_;
  std::string first_;
  Document document_;
  Document::Mark start_;
  std::vector<Node> added_;
  std::vector<std::string> log_;
  std::string before_;
  std::string complaint_;
};

TEST(RandomEdits, HoldWhatIsPromised) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() +
                   std::chrono::duration<double>(std::stod(Setting("KLEPUR_RANDOM_SECONDS", "1")));
  const std::uint64_t first =
      std::stoull(Setting("KLEPUR_RANDOM_SEED", std::to_string(std::random_device()())));
  std::cout << "Seeds from " << first << " on" << std::endl;
  std::uint64_t seed = first;
  do {
    Round round(seed);
    if (!round.Run()) FAIL() << round.Report();
    ++seed;
  } while (Clock::now() < end);
  std::cout << seed - first << " files" << std::endl;
}

}  // namespace
}  // namespace klepur::test
