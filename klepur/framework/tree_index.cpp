#include <klepur/framework/entry_changes.h>
#include <klepur/framework/name_match.h>
#include <klepur/framework/tree_index.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <iterator>
#include <typeinfo>
#include <utility>
#include <vector>

namespace klepur::internal {
namespace {

/// A node's children are looked for by few keywords; a caller that uses more pays for it.
constexpr std::size_t kMostKeywords = 8;

/// Comparing the places of two nodes costs as many steps as they are deep. No server nests blocks
/// like this; in a file that does, the walks remain.
constexpr std::size_t kDeepest = 100;

std::size_t HashOf(std::string_view text) {
  return std::hash<std::string_view>{}(text);
}

/// What stands before the last blank of a line: "fixed-address" of "fixed-address 10.0.0.5;".
std::string_view KeywordOf(std::string_view line) {
  const std::size_t blank = line.rfind(' ');
  return line.substr(0, blank == std::string_view::npos ? 0 : blank);
}

/// Whether a section holds a line; counts the lines it compares.
bool HoldsLine(const CfSection& section, const char* line, std::size_t& compared) {
  for (const CfSectionEntry* entry : section.entryList) {
    ++compared;
    if (entry != nullptr && std::strcmp(entry->GetKeyName(), line) == 0) return true;
  }
  return false;
}

/// A name to look for that counts how often it was compared.
class CountingProbe : public CfSection {
 public:
  static bool Matches(const CfSection& probe, const CfSection& candidate) {
    ++static_cast<const CountingProbe&>(probe).compared;
    return Condition2(probe, candidate);
  }

  mutable std::size_t compared = 0;
};

}  // namespace

// ---- Lookups ----

TreeIndex& TreeIndex::Of(CfSectionHolder& holder) {
  if (holder.index_ == nullptr) holder.index_ = std::make_unique<TreeIndex>(holder.topNode);
  return *holder.index_;
}

TreeIndex::TreeIndex(TreeNode& top) : top_(top), state_(*top.section.state_) {}

TreeIndex::~TreeIndex() = default;

TreeNode* TreeIndex::FirstNamed(TreeNode& start, const char* name) {
  KnownNode* const from = IsReady() ? Find(start.section) : nullptr;
  if (from == nullptr) return WalkForName(start, name);
  const KnownNode* const first =
      names_.FirstFrom(HashOf(name), from, [name](const KnownNode& known) {
        return std::strcmp(known.node->section.GetName(), name) == 0;
      });
  // What follows `start` in document order is in it, or nothing further on is.
  if (first == nullptr || !IsWithin(first->node, start)) return nullptr;
  if (first != from && !IsTrusted(*first)) {
    Drop();
    return WalkForName(start, name);
  }
  return first->node;
}

TreeNode* TreeIndex::FirstChildWithLine(TreeNode& parent, const char* line) {
  if (parent.children == nullptr) return nullptr;
  KnownNode* const known = IsReady() ? Find(parent.section) : nullptr;
  if (known == nullptr || !KnowsChildren(*known)) {
    return WalkForLine(parent, line, walked_);
  }
  NodeTable* table = LinesOf(*known, KeywordOf(line));
  if (table == nullptr && known->children->walked > known->children->count) {
    KeepWhole([&] { table = MakeLines(*known, KeywordOf(line)); });
    if (!made_) return WalkForLine(parent, line, walked_);
  }
  if (table == nullptr) return WalkForLine(parent, line, known->children->walked);
  const KnownNode* const first = table->FirstFrom(HashOf(line), known, [&](const KnownNode& child) {
    std::size_t compared = 0;
    return child.parent == known && HoldsLine(child.node->section, line, compared);
  });
  return first == nullptr ? nullptr : first->node;
}

TreeNode* TreeIndex::NextSiblingHolding(TreeNode& node, std::string_view part) {
  if (node.parent == nullptr || node.parent->children == nullptr) return nullptr;
  std::list<TreeNode*>& siblings = *node.parent->children;
  const KnownNode* const known = IsReady() ? FindTrusted(node) : nullptr;
  if (known != nullptr) return FirstBehind(known->place, siblings.end(), part);
  walked_ += siblings.size();
  return internal::NextSiblingHolding(node, part);
}

/// Looks through the tree; a search that stops early costs little and counts little.
TreeNode* TreeIndex::WalkForName(TreeNode& start, const char* name) {
  CountingProbe probe;
  probe.SetName(name);
  TreeNode* const found = start.FindIf(probe, CountingProbe::Matches);
  walked_ += probe.compared;
  return found;
}

TreeNode* TreeIndex::WalkForLine(TreeNode& parent, const char* line, std::size_t& compared) {
  for (TreeNode* child : *parent.children) {
    if (child != nullptr && HoldsLine(child->section, line, compared)) return child;
  }
  return nullptr;
}

// ---- Changes ----

TreeNode* TreeIndex::Append(TreeNode& parent, CfSection&& section) {
  const bool wasWhole = IsWhole();
  TreeNode* const node = AppendChild(parent, std::move(section));
  if (!wasWhole) return node;
  KeepWhole([this, &parent, node] {
    KnownNode* const above = Find(parent.section);
    if (above == nullptr || above->depth == kDeepest) {
      Drop();
    } else {
      EnterTexts(Enter(above, *node, std::prev(parent.children->end())));
    }
  });
  return node;
}

bool TreeIndex::Remove(TreeNode& node) {
  const KnownNode* const known = IsReady() ? FindTrusted(node) : nullptr;
  if (known == nullptr) {
    if (node.parent != nullptr && node.parent->children != nullptr) {
      walked_ += node.parent->children->size();
    }
    if (!Unlink(node)) return false;
    delete &node;
    return true;
  }
  const auto place = known->place;
  std::list<TreeNode*>& siblings = *node.parent->children;
  KeepWhole([this, &node] { RemoveAllWithin(node); });
  siblings.erase(place);
  delete &node;
  KeepWhole([] {});
  return true;
}

void TreeIndex::Drop() noexcept {
  made_ = false;
  names_.Clear();
  free_.clear();
  known_.clear();
}

TreeIndex::Edit::Edit(TreeIndex* index, CfSection& section) : index_(index), section_(section) {
  KnownNode* const known = index_ != nullptr && index_->IsWhole() ? index_->Find(section) : nullptr;
  isKnown_ = known != nullptr;
  if (isKnown_) index_->RemoveTexts(*known);
  LetEntriesCount(false);
}

TreeIndex::Edit::~Edit() {
  LetEntriesCount(true);
  if (!isKnown_ || !index_->made_) return;
  index_->KeepWhole([this] {
    if (KnownNode* const known = index_->Find(section_)) index_->EnterTexts(*known);
  });
}

/// Whether changes to the section's lines count as made by hand.
void TreeIndex::Edit::LetEntriesCount(bool count) noexcept {
  for (CfSectionEntry* entry : section_.entryList) {
    if (entry != nullptr) entry->SetCountsChanges(count);
  }
}

// ---- Tables ----

/// Whether the tables can be used. Makes them when the walks since they were last of use have
/// looked at more nodes than there are.
bool TreeIndex::IsReady() {
  if (IsWhole()) return true;
  if (walked_ <= state_.nodes) return false;
  walked_ = 0;
  KeepWhole([this] { Build(); });
  return IsWhole();
}

bool TreeIndex::IsWhole() const {
  return made_ && changesSeen_ == state_.changes && entryChangesSeen_ == EntryChanges();
}

/// Makes a change to the tables after which they fit the tree, unless they were dropped.
template <class Change>
void TreeIndex::KeepWhole(Change change) noexcept {
  try {
    change();
    changesSeen_ = state_.changes;
    entryChangesSeen_ = EntryChanges();
  } catch (...) {
    Drop();
  }
}

void TreeIndex::Build() {
  Drop();
  std::vector<std::pair<KnownNode*, std::list<TreeNode*>::iterator>> path;
  const auto enter = [this, &path](KnownNode* parent, TreeNode& node,
                                   std::list<TreeNode*>::iterator place) {
    KnownNode& known = Enter(parent, node, place);
    EnterTexts(known);
    if (node.children != nullptr) path.emplace_back(&known, node.children->begin());
  };
  enter(nullptr, top_, {});
  while (!path.empty()) {
    auto& [known, next] = path.back();
    if (next == known->node->children->end()) {
      path.pop_back();
      continue;
    }
    const auto place = next++;
    TreeNode* const child = *place;
    if (child == nullptr || child->parent != known->node) return Drop();
    if (known->depth == kDeepest) return Drop();
    // What happens to a node of another tree is counted there.
    if (child->section.state_ != &state_) return Drop();
    // A class of a caller's own may answer walks in its own way.
    if (typeid(*child) != typeid(TreeNode)) return Drop();
    enter(known, *child, place);
  }
  // A node that is in no child list may enter one without a word.
  if (known_.size() != state_.nodes) return Drop();
  made_ = true;
}

/// What is known of the node that carries a section; null when that is in no table. While the
/// tables are whole, what the nodes of the tree point at is there.
KnownNode* TreeIndex::Find(const CfSection& section) const {
  return section.state_ == &state_ ? section.known_ : nullptr;
}

/// What is known of a node, if its place in its parent's child list can be relied on; else null.
KnownNode* TreeIndex::FindTrusted(TreeNode& node) {
  KnownNode* const known = Find(node.section);
  if (known == nullptr || IsTrusted(*known)) return known;
  Drop();
  return nullptr;
}

/// Whether a node has as many children as are known.
bool TreeIndex::KnowsChildren(const KnownNode& known) {
  return known.children != nullptr && known.node->children != nullptr &&
         known.children->count == known.node->children->size();
}

/// Whether the node still hangs where it did, as far as its parent's child list tells.
bool TreeIndex::IsTrusted(const KnownNode& known) const {
  return known.parent != nullptr && known.node->parent == known.parent->node &&
         KnowsChildren(*known.parent);
}

KnownNode& TreeIndex::Enter(KnownNode* parent, TreeNode& node,
                            std::list<TreeNode*>::iterator place) {
  if (free_.empty()) free_.push_back(&known_.emplace_back());
  KnownNode& known = *free_.back();
  free_.pop_back();
  node.section.known_ = &known;
  known.node = &node;
  known.place = place;
  if (parent != nullptr) {
    known.parent = parent;
    known.depth = parent->depth + 1;
    if (parent->children == nullptr) parent->children = std::make_unique<KnownChildren>();
    known.ordinal = parent->children->nextOrdinal++;
    ++parent->children->count;
  }
  return known;
}

/// Calls `visit` with each table in which a text of a node belongs, and the text's hash.
template <class Visit>
void TreeIndex::ForEachTable(KnownNode& known, Visit visit) {
  visit(names_, HashOf(known.node->section.GetName()));
  if (known.parent == nullptr) return;
  for (const CfSectionEntry* entry : known.node->section.entryList) {
    if (entry == nullptr) continue;
    const std::string_view line = entry->GetKeyName();
    if (NodeTable* const table = LinesOf(*known.parent, KeywordOf(line)))
      visit(*table, HashOf(line));
  }
}

void TreeIndex::EnterTexts(KnownNode& known) {
  ForEachTable(known, [&known](NodeTable& table, std::size_t hash) { table.Insert(hash, &known); });
}

void TreeIndex::RemoveTexts(KnownNode& known) {
  ForEachTable(known, [&known](NodeTable& table, std::size_t hash) { table.Erase(hash, &known); });
}

/// Takes a node and all below it out of the tables, each before the node that it hangs under.
void TreeIndex::RemoveAllWithin(TreeNode& node) {
  std::vector<KnownNode*> within = {Find(node.section)};
  for (std::size_t i = 0; i < within.size(); ++i) {
    const std::list<TreeNode*>* const children = within[i]->node->children;
    if (children == nullptr) continue;
    for (const TreeNode* child : *children) {
      KnownNode* const known = child == nullptr ? nullptr : Find(child->section);
      if (known == nullptr) return Drop();
      within.push_back(known);
    }
  }
  --within.front()->parent->children->count;
  for (auto next = within.rbegin(); next != within.rend(); ++next) {
    RemoveTexts(**next);
    (*next)->node->section.known_ = nullptr;
    **next = KnownNode();
    free_.push_back(*next);
  }
}

NodeTable* TreeIndex::LinesOf(KnownNode& parent, std::string_view keyword) {
  auto& lines = parent.children->lines;
  const auto found = lines.find(keyword);
  return found == lines.end() ? nullptr : &found->second;
}

/// Makes the table of a keyword; drops all tables when a child is not known.
NodeTable* TreeIndex::MakeLines(KnownNode& parent, std::string_view keyword) {
  NodeTable table;
  for (const TreeNode* child : *parent.node->children) {
    KnownNode* const known = child == nullptr ? nullptr : Find(child->section);
    if (known == nullptr) {
      Drop();
      return nullptr;
    }
    for (const CfSectionEntry* entry : child->section.entryList) {
      if (entry == nullptr) continue;
      const std::string_view line = entry->GetKeyName();
      if (KeywordOf(line) == keyword) table.Insert(HashOf(line), known);
    }
  }
  auto& lines = parent.children->lines;
  if (lines.size() >= kMostKeywords) lines.clear();
  return &lines.emplace(keyword, std::move(table)).first->second;
}

}  // namespace klepur::internal
