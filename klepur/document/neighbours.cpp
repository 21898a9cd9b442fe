#include <klepur/document/neighbours.h>

#include <algorithm>

#include <klepur/document/node_text.h>
#include <klepur/document/structure_words.h>
#include <klepur/document/words_of_text.h>

namespace klepur::internal {
namespace {

constexpr int kStepsEachWay = 40;

std::string HeaderGap(const DocumentState& state, NodeId block) {
  const std::string_view header = state.OwnText(block);
  return std::string(header.substr(UpToLastWord(header).size()));
}

}  // namespace

Neighbours::Neighbours(DocumentState& state, Gap place) : state_(state), place_(place) {
  NodeId back = place.previous == kNoNode ? place.parent : place.previous;
  if (place.previous != kNoNode) {
    for (NodeId child = state.tree.KnownLastChild(back); child != kNoNode;
         child = state.tree.KnownLastChild(back)) {
      back = child;
    }
  }
  NodeId forth = NextOf(state, place);
  if (forth == kNoNode) forth = state.tree.NextBehind(place.parent, kRoot);
  for (int step = 0; step < kStepsEachWay; ++step) {
    if (back != kRoot) {
      near_.push_back(back);
      const NodeId previous = state.tree[back].previous;
      if (previous == kNoNode) {
        back = state.tree[back].parent;
      } else {
        back = previous;
        for (NodeId child = state.tree.KnownLastChild(back); child != kNoNode;
             child = state.tree.KnownLastChild(back)) {
          back = child;
        }
      }
    }
    if (forth != kNoNode) {
      near_.push_back(forth);
      forth = state.tree.NextInOrder(forth, kRoot);
    }
  }
  for (const NodeId id : near_) keys_.push_back(KeyOf(state.OwnText(id)));
}

template <class Fits>
NodeId Neighbours::Nearest(std::string_view key, const Fits& fits) const {
  NodeId any = kNoNode;
  for (std::size_t i = 0; i < near_.size(); ++i) {
    if (!state_.IsBlock(near_[i]) || !fits(near_[i])) continue;
    if (keys_[i] == key) return near_[i];
    if (any == kNoNode) any = near_[i];
  }
  return any;
}

bool Neighbours::BlocksStandOnOneLine(std::string_view key) const {
  const NodeId nearest = Nearest(
      key, [this](NodeId id) { return !Holds(id) && state_.tree.FirstChild(id) != kNoNode; });
  return nearest != kNoNode && IsOnOneLine(state_, nearest);
}

std::size_t Neighbours::WidestOneLine(std::string_view key) const {
  std::size_t widest = 0;
  for (std::size_t i = 0; i < near_.size(); ++i) {
    if (keys_[i] != key || !state_.IsBlock(near_[i]) || !IsOnOneLine(state_, near_[i])) continue;
    widest = std::max(widest, ColumnOf(state_, state_.End(near_[i])));
  }
  return widest;
}

std::string Neighbours::BeforeBrace(std::string_view key) const {
  NodeId nearest =
      Nearest(key, [this](NodeId id) { return !Holds(id) && !IsOnOneLine(state_, id); });
  if (nearest == kNoNode) nearest = place_.parent == kRoot ? kNoNode : place_.parent;
  if (nearest == kNoNode) return " ";
  std::string gap = HeaderGap(state_, nearest);
  if (!HasLineEnd(gap)) return gap;
  const std::string indent = IndentOf(state_, nearest);
  const std::string_view brace_indent = LastLine(gap);
  if (brace_indent.substr(0, indent.size()) != indent) return "\n";
  return "\n" + std::string(brace_indent.substr(indent.size()));
}

Neighbours::OneLineBlanks Neighbours::InOneLine(std::string_view key) const {
  const NodeId nearest = Nearest(key, [this](NodeId id) {
    return IsOnOneLine(state_, id) && state_.tree.FirstChild(id) != kNoNode;
  });
  if (nearest == kNoNode) return {};
  const NodeId first = state_.tree.FirstChild(nearest);
  OneLineBlanks blanks;
  blanks.open = ReadGap(state_, {nearest, kNoNode});
  blanks.close = ReadGap(state_, {nearest, state_.tree.LastChild(nearest)});
  if (state_.tree[first].next != kNoNode) blanks.between = ReadGap(state_, {nearest, first});
  return blanks;
}

std::string Neighbours::Step(std::string_view key) const {
  const NodeId nearest = Nearest(key, [this](NodeId id) { return StepOf(id).has_value(); });
  return nearest == kNoNode ? "\t" : *StepOf(nearest);
}

std::optional<std::string> Neighbours::StepOf(NodeId block) const {
  for (NodeId child = state_.tree.FirstChild(block); child != kNoNode;
       child = state_.tree[child].next) {
    if (state_.IsComment(child) || !BeginsLine(state_, child)) continue;
    const std::string indent = IndentOf(state_, block);
    const std::string child_indent = IndentOf(state_, child);
    if (child_indent.substr(0, indent.size()) != indent || child_indent == indent) {
      return std::nullopt;
    }
    return child_indent.substr(indent.size());
  }
  return std::nullopt;
}

std::optional<bool> Neighbours::IsQuoted(std::string_view key) const {
  for (std::size_t i = 0; i < near_.size(); ++i) {
    if (keys_[i] != key) continue;
    const std::string_view text = state_.OwnText(near_[i]);
    if (state_.IsBlock(near_[i])) {
      if (!NameIn(text).empty()) return IsQuotedName(text);
    } else {
      const ValuePlace value = ValueIn(text);
      if (value.begin != value.end) return text[value.begin] == '"';
    }
  }
  return std::nullopt;
}

std::optional<bool> Neighbours::BranchesContinueLines() const {
  for (const NodeId id : near_) {
    if (!state_.IsBlock(id) || WordOf(state_.tree[id].word).begins != Begins::kBranch) continue;
    return !BeginsLine(state_, id);
  }
  return std::nullopt;
}

}  // namespace klepur::internal
