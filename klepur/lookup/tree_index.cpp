#include <klepur/framework/name_match.h>
#include <klepur/lookup/tree_index.h>

#include <list>
#include <utility>

namespace klepur::internal {
namespace {

/// A name to look for that counts how often it was compared.
class CountingProbe : public CfSection {
 public:
  static bool Matches(const CfSection& probe, const CfSection& candidate) {
    ++static_cast<const CountingProbe&>(probe).compared;
    return Condition2(probe, candidate);
  }

  static bool IsLastWanted(const CfSection& probe, const CfSection& /*candidate*/) {
    const auto& counting = static_cast<const CountingProbe&>(probe);
    return ++counting.compared == counting.wanted;
  }

  mutable std::size_t compared = 0;
  std::size_t wanted = 0;
};

/// The first node of a name, and how many a walk looks at; one that stops early costs little.
TreeNode* WalkForName(TreeNode& start, const char* name, std::size_t& walked) {
  CountingProbe probe;
  probe.SetName(name);
  TreeNode* const found = start.FindIf(probe, CountingProbe::Matches);
  walked += probe.compared;
  return found;
}

/// How many nodes a tree has, counted up to `most`, which is one or more.
std::size_t CountNodes(TreeNode& top, std::size_t most) {
  CountingProbe probe;
  probe.wanted = most;
  top.FindIf(probe, CountingProbe::IsLastWanted);
  return probe.compared;
}

}  // namespace

// ---- Lookups ----

TreeNode* TreeIndex::FirstNamed(TreeNode& start, const char* name) {
  KnownNode* const known = Find(start);
  return known != nullptr ? tables_->FirstNamed(*known, name) : WalkForName(start, name, walked_);
}

TreeNode* TreeIndex::FirstChildWithLine(TreeNode& parent, const char* line) {
  if (KnownNode* const known = Find(parent)) {
    TreeNode* found = nullptr;
    OrDrop([&] { found = tables_->FirstChildWithLine(*known, line); });
    if (tables_ != nullptr) return found;
  }
  return internal::FirstChildWithLine(parent, line, walked_);
}

TreeNode* TreeIndex::NextSiblingHolding(TreeNode& node, std::string_view part) {
  if (node.parent == nullptr || node.parent->children == nullptr) return nullptr;
  if (const KnownNode* const known = Find(node)) {
    return FirstBehind(*node.parent, known->place, part);
  }
  walked_ += node.parent->children->size();
  return internal::NextSiblingHolding(node, part);
}

// ---- Changes ----

TreeNode* TreeIndex::Append(TreeNode& parent, CfSection&& section) {
  TreeNode* const node = AppendChild(parent, std::move(section));
  if (KnownNode* const above = FindIfMade(parent)) {
    OrDrop([&] {
      if (!tables_->Enter(*above, *node)) Drop();
    });
  }
  return node;
}

bool TreeIndex::Remove(TreeNode& node) {
  KnownNode* const known = Find(node);
  if (known == nullptr || known->parent == nullptr) {
    if (node.parent != nullptr && node.parent->children != nullptr) {
      walked_ += node.parent->children->size();
    }
    if (!Unlink(node)) return false;
  } else {
    const auto place = known->place;
    OrDrop([&] { tables_->Remove(*known); });
    node.parent->children->erase(place);
  }
  delete &node;
  return true;
}

TreeIndex::Edit::Edit(TreeIndex& index, TreeNode& node) : index_(index), node_(node) {
  if (KnownNode* const known = index_.FindIfMade(node_)) {
    index_.OrDrop([&] { index_.tables_->RemoveTexts(*known); });
  }
}

TreeIndex::Edit::~Edit() {
  if (KnownNode* const known = index_.FindIfMade(node_)) {
    index_.OrDrop([&] { index_.tables_->EnterTexts(*known); });
  }
}

// ---- Tables ----

void TreeIndex::Drop() noexcept {
  tables_.reset();
  walked_ = 0;
  nextCount_ = 1;
}

void TreeIndex::WalkFromNowOn() noexcept {
  onlyWalks_ = true;
  tables_.reset();
}

/// What the tables know of a node; null when there are none or it is in another tree.
KnownNode* TreeIndex::FindIfMade(TreeNode& node) const {
  return tables_ != nullptr ? tables_->Find(node) : nullptr;
}

/// The same, with tables made when that pays.
KnownNode* TreeIndex::Find(TreeNode& node) {
  if (tables_ == nullptr && !onlyWalks_) MakeWhenItPays();
  return FindIfMade(node);
}

/// Makes the tables when walks have looked at more nodes than there are. Counting those costs no
/// more than the walks did.
void TreeIndex::MakeWhenItPays() {
  if (walked_ < nextCount_) return;
  nextCount_ = 2 * walked_;
  OrDrop([this] {
    const std::size_t count = CountNodes(top_, walked_);
    if (count == walked_) return;
    walked_ = 0;
    tables_ = TreeTables::Of(top_, count);
  });
}

/// Does what may want memory; without it there are no tables.
template <class Work>
void TreeIndex::OrDrop(Work work) noexcept {
  try {
    work();
  } catch (...) {
    Drop();
  }
}

}  // namespace klepur::internal
