#include <klepur/check/edit_check.h>

#include <klepur/check/allowances.h>
#include <klepur/check/facts.h>
#include <klepur/check/host_names.h>
#include <klepur/check/report.h>
#include <klepur/check/rule.h>
#include <klepur/check/structure_rules.h>
#include <klepur/check/walk.h>
#include <klepur/document/node_access.h>
#include <klepur/document/structure_words.h>
#include <klepur/document/words_of_text.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace klepur {
namespace internal {
namespace {

bool IsHost(std::string_view header) {
  return WordOf(NumberOf(FirstWord(header))).text == "host";
}

bool BeginsBranch(std::string_view text) {
  return WordOf(NumberOf(FirstWord(text))).begins == Begins::kBranch;
}

/// What edits touched as a text of its own: statements and hosts, each in blocks with the headers that are around
/// it in the file.
class Excerpt {
 public:
  /// \param headers  of the blocks around it, the innermost first.
  void Add(const std::vector<std::string_view>& headers, std::string_view touched) {
    for (auto header = headers.rbegin(); header != headers.rend(); ++header) {
      // The hosts around are no hosts of theirs: they may come more than once.
      if (IsHost(*header)) {
        text_ += "host around-" + std::to_string(places_.size());
      } else {
        text_ += *header;
      }
      text_ += "{\n";
    }
    const std::size_t begin = text_.size();
    text_ += touched;
    places_.push_back({begin, text_.size()});
    text_ += '\n';
    for (std::size_t i = 0; i != headers.size(); ++i) text_ += "}\n";
  }

  /// Whether what was touched has no error, and matters to nothing but itself and to hosts of its name.
  bool IsHarmless() const {
    const Document document(text_);
    DocumentState& state = *NodeAccess::State(document.Root());
    if (state.malformed) return false;
    Facts facts(state);
    Report report(state, std::vector<bool>(kRuleCount, false));
    Walk walk(facts, report);
    constexpr std::size_t kNodesAtOnce = 4096;
    while (walk.Step(kNodesAtOnce)) {
    }
    if (report.HasErrors() || ConcernsOthers(facts)) return false;
    for (std::size_t rule = 0; rule != kRuleCount; ++rule) {
      if (kRules[rule].whole == nullptr || kRules[rule].severity != Severity::kError) continue;
      report.SetRule(rule);
      kRules[rule].whole(facts, report);
    }
    ReportStructure(document, true, report);
    return !report.HasErrors();
  }

 private:
  struct Place {
    std::size_t begin;
    std::size_t end;
  };

  bool WasTouched(const DocumentState& state, NodeId id) const {
    const std::size_t at = state.tree[id].begin;
    const auto behind = std::upper_bound(
        places_.begin(), places_.end(), at,
        [](std::size_t address, const Place& place) { return address < place.begin; });
    return behind != places_.begin() && at < std::prev(behind)->end;
  }

  /// Whether there is among what was touched what rules of severity error look for elsewhere, names of hosts
  /// excepted, or what tells the family of the file.
  bool ConcernsOthers(const Facts& facts) const {
    const auto touched = [&](const auto& all) {
      return std::any_of(all.begin(), all.end(),
                         [&](const auto& fact) { return WasTouched(facts.state, fact.node); });
    };
    return !facts.subnets_with_ranges.empty() || touched(facts.subnets) || touched(facts.classes) ||
           touched(facts.class_uses) || touched(facts.groups) || touched(facts.group_uses) ||
           touched(facts.key_uses) || touched(facts.failover_peer_uses) || touched(facts.keys) ||
           touched(facts.failover_peers) || touched(facts.option_definitions) ||
           touched(facts.option_spaces) || touched(facts.includes) || touched(facts.option_uses) ||
           touched(facts.misplaced);
  }

  std::string text_;
  std::vector<Place> places_;
};

enum class When { kAtMark, kNow };

/// Compares a document with what it was at a mark.
class EditCheck {
 public:
  EditCheck(const DocumentState& state, const Document::Mark& mark)
      : state_(state), tree_(state.tree), first_new_(mark.nodes) {
    tree_.ForEachChangeSince({mark.log, mark.nodes}, [&](const SyntaxTree::Was& was) {
      if (was.id < first_new_) before_.try_emplace(was.id, was);
    });
  }

  bool FindsNone() {
    if (state_.malformed) return false;
    for (const auto& [id, was] : before_) Compare(id, was.node);
    for (NodeId id = first_new_; id != tree_.Count() && is_sure_; ++id) {
      // What stands in a new block is part of it.
      if (!tree_.IsGone(id) && tree_[id].parent < first_new_) Add(id, When::kNow);
    }
    return is_sure_ && was_.IsHarmless() && now_.IsHarmless() && NamesAreTheirOwn();
  }

 private:
  static constexpr std::size_t kMostAround = 16;

  void Compare(NodeId id, const SyntaxNode& was) {
    if (id == kRoot || !is_sure_) return;
    const SyntaxNode& now = tree_[id];
    const bool stands = !tree_.IsGone(id);
    if (stands && !was.gone && was.kind == now.kind && was.parent == now.parent &&
        was.unfinished == now.unfinished && was.open_quote == now.open_quote &&
        was.late_semicolon == now.late_semicolon && OwnText(was) == state_.OwnText(id)) {
      return;
    }
    if (!was.gone) Add(id, When::kAtMark);
    if (stands) Add(id, When::kNow);
  }

  void Add(NodeId id, When when) {
    const SyntaxNode& node = Record(id, when);
    for (NodeId above = node.previous; above != kNoNode; above = Record(above, when).previous) {
      if (Record(above, when).kind != NodeKind::kComment) break;
      RequirePlainComment(OwnText(Record(above, when)));
    }
    NodeId next = node.next;
    while (next != kNoNode && Record(next, when).kind == NodeKind::kComment)
      next = Record(next, when).next;
    if (next != kNoNode && BeginsBranch(OwnText(Record(next, when)))) is_sure_ = false;
    (when == When::kNow ? now_ : was_).Add(HeadersAround(node.parent, when), TextOf(id, when));
    if (node.kind != NodeKind::kBlock) return;
    hosts_.insert(id);
    names_.insert(NameInHeader(OwnText(node)));
  }

  /// A statement; a host with all that is in it. Nothing that matters for a comment.
  std::string TextOf(NodeId id, When when) {
    std::string text = TextOf(Record(id, when));
    if (Record(id, when).kind != NodeKind::kBlock) return text;
    if (!IsHost(text)) is_sure_ = false;
    text += " {\n";
    for (NodeId child = FirstChild(id, when); child != kNoNode && is_sure_;
         child = Record(child, when).next) {
      if (Record(child, when).kind == NodeKind::kBlock) is_sure_ = false;
      text += TextOf(Record(child, when)) + "\n";
    }
    return text + "}";
  }

  std::string TextOf(const SyntaxNode& node) {
    if (node.kind == NodeKind::kComment) RequirePlainComment(OwnText(node));
    if (node.kind == NodeKind::kLabel || node.kind == NodeKind::kStray || node.unfinished ||
        node.open_quote || node.late_semicolon) {
      is_sure_ = false;
    }
    std::string text(OwnText(node));
    if (text.find('\0') != std::string::npos) is_sure_ = false;
    return text;
  }

  const SyntaxNode& Record(NodeId id, When when) const {
    if (when == When::kNow) return tree_[id];
    const auto was = before_.find(id);
    return was == before_.end() ? tree_[id] : was->second.node;
  }

  NodeId FirstChild(NodeId id, When when) const {
    if (when == When::kNow) return tree_.FirstChild(id);
    const auto was = before_.find(id);
    if (was == before_.end() && tree_[id].own_head) return tree_.FirstChild(id);
    if (was != before_.end() && was->second.node.own_head) return was->second.head;
    const NodeId next = id + 1;
    if (next >= first_new_) return kNoNode;
    const SyntaxNode& node = Record(next, when);
    return node.parent == id && !node.gone ? next : kNoNode;
  }

  std::string_view OwnText(const SyntaxNode& node) {
    if (node.kind != NodeKind::kBlock) return state_.text.View({node.begin, node.end});
    if (node.brace == SyntaxNode::kFarBrace) {
      is_sure_ = false;
      return {};
    }
    return state_.text.View({node.begin, node.begin + node.brace});
  }

  void RequirePlainComment(std::string_view comment) {
    if (!AllowedBy(comment).empty()) is_sure_ = false;
  }

  /// Of a block and those around it, the innermost first.
  std::vector<std::string_view> HeadersAround(NodeId block, When when) {
    std::vector<std::string_view> headers;
    for (; block != kRoot && is_sure_; block = Record(block, when).parent) {
      headers.push_back(OwnText(Record(block, when)));
      if (headers.size() > kMostAround) is_sure_ = false;
    }
    return headers;
  }

  /// Whether no other host has a name of those that were touched.
  bool NamesAreTheirOwn() const {
    if (names_.empty()) return true;
    for (NodeId id = 0; id != tree_.Count(); ++id) {
      if (!state_.IsBlock(id) || !IsHostWord(tree_[id].word)) continue;
      if (names_.count(NameInHeader(state_.OwnText(id))) == 0) continue;
      if (hosts_.count(id) == 0 && !tree_.IsGone(id)) return false;
    }
    return true;
  }

  static bool IsHostWord(std::uint8_t word) {
    static const std::uint8_t number = NumberOf("host");
    return word == number;
  }

  const DocumentState& state_;
  const SyntaxTree& tree_;
  const NodeId first_new_;
  std::map<NodeId, SyntaxTree::Was> before_;  ///< What was changed, as it was at the mark.
  bool is_sure_ = true;
  Excerpt was_;
  Excerpt now_;
  std::unordered_set<NodeId> hosts_;
  std::unordered_set<std::string_view> names_;
};

}  // namespace
}  // namespace internal

bool EditsBringNoError(const Document& document, const Document::Mark& mark) {
  return internal::EditCheck(*NodeAccess::State(document.Root()), mark).FindsNone();
}

}  // namespace klepur
