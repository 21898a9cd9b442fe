#include <klepur/lookup/tree_tables.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <iterator>
#include <limits>
#include <utility>

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

/// Another one for each node. Addresses differ in their middle bits, tables look at the lowest.
std::size_t HashOf(const TreeNode& node) {
  const std::size_t spread =
      reinterpret_cast<std::uintptr_t>(&node) * static_cast<std::size_t>(0x9E3779B97F4A7C15);
  return spread ^ (spread >> (std::numeric_limits<std::size_t>::digits / 2));
}

/// What stands before the last blank of a line: "fixed-address" of "fixed-address 10.0.0.5;".
std::string_view KeywordOf(std::string_view line) {
  const std::size_t blank = line.rfind(' ');
  return line.substr(0, blank == std::string_view::npos ? 0 : blank);
}

/// Whether a node is `block` or stands in it.
bool IsWithin(const KnownNode* known, const KnownNode& block) {
  while (known->depth > block.depth) known = known->parent;
  return known == &block;
}

}  // namespace

std::unique_ptr<TreeTables> TreeTables::Of(TreeNode& top, std::size_t count) {
  auto tables = std::make_unique<TreeTables>();
  tables->nodes_.Reserve(count);
  tables->names_.Reserve(count);
  return tables->AddAll(top) ? std::move(tables) : nullptr;
}

bool TreeTables::AddAll(TreeNode& top) {
  std::vector<std::pair<KnownNode*, std::list<TreeNode*>::iterator>> path;
  const auto add = [this, &path](KnownNode* parent, TreeNode& node,
                                 std::list<TreeNode*>::iterator place) {
    KnownNode& known = Add(parent, node, place);
    if (node.children != nullptr) path.emplace_back(&known, node.children->begin());
  };
  add(nullptr, top, {});
  while (!path.empty()) {
    auto& [known, next] = path.back();
    if (next == known->node->children->end()) {
      path.pop_back();
      continue;
    }
    if (known->depth == kDeepest) return false;
    const auto place = next++;
    add(known, **place, place);
  }
  return true;
}

KnownNode* TreeTables::Find(const TreeNode& node) const {
  return nodes_.Only(HashOf(node));
}

TreeNode* TreeTables::FirstNamed(KnownNode& start, const char* name) const {
  const KnownNode* const first =
      names_.FirstFrom(HashOf(name), &start, [name](const KnownNode& known) {
        return std::strcmp(known.node->section.GetName(), name) == 0;
      });
  // What follows `start` in document order is in it, or nothing further on is.
  return first != nullptr && IsWithin(first, start) ? first->node : nullptr;
}

TreeNode* TreeTables::FirstChildWithLine(KnownNode& parent, const char* line) {
  if (parent.children == nullptr) return nullptr;
  const std::string_view keyword = KeywordOf(line);
  NodeTable* table = LinesOf(parent, keyword);
  if (table == nullptr) {
    std::size_t& walked = parent.children->walked;
    if (walked <= parent.node->children->size()) {
      return internal::FirstChildWithLine(*parent.node, line, walked);
    }
    table = &MakeLines(parent, keyword);
  }
  const KnownNode* const first = table->FirstFrom(HashOf(line), &parent, [&](const auto& child) {
    return HoldsLine(child.node->section, line);
  });
  return first == nullptr ? nullptr : first->node;
}

bool TreeTables::Enter(KnownNode& parent, TreeNode& node) {
  if (parent.depth == kDeepest) return false;
  Add(&parent, node, std::prev(parent.node->children->end()));
  return true;
}

/// Takes each node out before the one that it hangs under.
void TreeTables::Remove(KnownNode& known) {
  std::vector<KnownNode*> within = {&known};
  for (std::size_t i = 0; i < within.size(); ++i) {
    const std::list<TreeNode*>* const children = within[i]->node->children;
    if (children == nullptr) continue;
    for (const TreeNode* child : *children) within.push_back(Find(*child));
  }
  for (auto next = within.rbegin(); next != within.rend(); ++next) {
    KnownNode& gone = **next;
    RemoveTexts(gone);
    nodes_.Erase(HashOf(*gone.node), &gone);
    gone = KnownNode();
    free_.push_back(&gone);
  }
}

KnownNode& TreeTables::Add(KnownNode* parent, TreeNode& node,
                           std::list<TreeNode*>::iterator place) {
  if (free_.empty()) free_.push_back(&known_.emplace_back());
  KnownNode& known = *free_.back();
  free_.pop_back();
  known.node = &node;
  known.place = place;
  if (parent != nullptr) {
    known.parent = parent;
    known.depth = parent->depth + 1;
    if (parent->children == nullptr) parent->children = std::make_unique<KnownChildren>();
    known.ordinal = parent->children->nextOrdinal++;
  }
  nodes_.Insert(HashOf(node), &known);
  EnterTexts(known);
  return known;
}

/// Calls `visit` with each table in which a text of a node belongs, and the text's hash.
template <class Visit>
void TreeTables::ForEachTable(KnownNode& known, Visit visit) {
  visit(names_, HashOf(known.node->section.GetName()));
  if (known.parent == nullptr || known.parent->children->lines.empty()) return;
  for (const CfSectionEntry* entry : known.node->section.entryList) {
    const std::string_view line = entry->GetKeyName();
    NodeTable* const table = LinesOf(*known.parent, KeywordOf(line));
    if (table != nullptr) visit(*table, HashOf(line));
  }
}

void TreeTables::EnterTexts(KnownNode& known) {
  ForEachTable(known, [&known](NodeTable& table, std::size_t hash) { table.Insert(hash, &known); });
}

void TreeTables::RemoveTexts(KnownNode& known) {
  ForEachTable(known, [&known](NodeTable& table, std::size_t hash) { table.Erase(hash, &known); });
}

NodeTable* TreeTables::LinesOf(KnownNode& parent, std::string_view keyword) {
  auto& lines = parent.children->lines;
  const auto found = lines.find(keyword);
  return found == lines.end() ? nullptr : &found->second;
}

NodeTable& TreeTables::MakeLines(KnownNode& parent, std::string_view keyword) const {
  NodeTable table;
  for (const TreeNode* child : *parent.node->children) {
    for (const CfSectionEntry* entry : child->section.entryList) {
      const std::string_view line = entry->GetKeyName();
      if (KeywordOf(line) == keyword) table.Insert(HashOf(line), Find(*child));
    }
  }
  auto& lines = parent.children->lines;
  if (lines.size() >= kMostKeywords) lines.clear();
  return lines.emplace(keyword, std::move(table)).first->second;
}

}  // namespace klepur::internal
