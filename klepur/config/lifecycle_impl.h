// Internal: ConfigFile's construction, opening, saving, and the finding of tree nodes.
#ifndef KLEPUR_CONFIG_LIFECYCLE_IMPL_H
#define KLEPUR_CONFIG_LIFECYCLE_IMPL_H

#include <klepur/config/config_file.h>
#include <klepur/config/family_words.h>
#include <klepur/config/statement_table.h>
#include <klepur/framework/tree_index.h>
#include <klepur/framework/tree_links.h>

#include <memory>
#include <new>
#include <string>
#include <type_traits>

namespace klepur {

template <class Vocabulary>
ConfigFile<Vocabulary>::ConfigFile()
    : holder(nullptr), parser(nullptr), currentNetwork(nullptr), currentSubnet(nullptr), isRead(0) {
  auto newHolder = std::make_unique<CfSectionHolder>();
  parser = new DhcpParser;
  holder = newHolder.release();
}

template <class Vocabulary>
ConfigFile<Vocabulary>::ConfigFile(const char* fileName) : ConfigFile() {
  if (fileName != nullptr) confFileName = fileName;
}

template <class Vocabulary>
ConfigFile<Vocabulary>::~ConfigFile() {
  delete parser;
  delete holder;
}

template <class Vocabulary>
std::string ConfigFile<Vocabulary>::GetConfFileName() const {
  return confFileName;
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::ReadDhcpConfigFile() {
  if (confFileName.empty()) return false;
  bool read = false;
  try {
    read = parser != nullptr && parser->ParseFile(confFileName.c_str(), holder);
  } catch (...) {
    return false;
  }
  isRead = 1;
  return read;
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::Open() {
  if (isRead != 0) DiscardTree();
  if (holder == nullptr || parser == nullptr) return false;
  const bool read = ReadDhcpConfigFile();
  if (read && HasTree()) PlaceCursors();
  return read;
}

/// Starts over with an empty tree and a parser that has read nothing.
template <class Vocabulary>
void ConfigFile<Vocabulary>::DiscardTree() {
  currentNetwork = nullptr;
  currentSubnet = nullptr;
  if (holder != nullptr) {
    holder->topNode.DeleteAllItems();
    holder->topNode.section.ClearEntryList();
    Index().Drop();
  } else {
    holder = new CfSectionHolder;
  }
  if (parser != nullptr) {
    // The old parser closes the system log before the new one opens it. It stays when there is no
    // memory for the new one.
    static_assert(std::is_nothrow_default_constructible_v<DhcpParser>);
    void* const memory = ::operator new(sizeof(DhcpParser));
    delete parser;
    parser = new (memory) DhcpParser;
  }
}

template <class Vocabulary>
void ConfigFile<Vocabulary>::PlaceCursors() {
  currentNetwork = nullptr;
  currentSubnet = nullptr;
  TreeNode* const root = Root();
  TreeNode* const first = root == nullptr ? nullptr : internal::FirstChild(*root);
  if (first != nullptr && !PlaceCursorsOn(first)) currentSubnet = first;
}

/// Puts both cursors on a shared network and its first block; false when `node` is no shared
/// network.
template <class Vocabulary>
bool ConfigFile<Vocabulary>::PlaceCursorsOn(TreeNode* node) {
  const auto& blocks = internal::FamilyWords<Vocabulary>::kBlocks;
  if (node == nullptr ||
      KindOf(blocks, node->section.GetName()) != Section::SECTION_SHARED_NETWORK) {
    return false;
  }
  currentNetwork = node;
  currentSubnet = internal::FirstChild(*node);
  return true;
}

template <class Vocabulary>
int ConfigFile<Vocabulary>::Save(const std::string& path) {
  if (!IsReady() || confFileName.empty()) return 0;
  const std::string& target = path.empty() ? confFileName : path;
  return parser->FileWriter(target.c_str(), holder) ? 1 : 0;
}

template <class Vocabulary>
typename ConfigFile<Vocabulary>::TreeNode* ConfigFile<Vocabulary>::GetTreeItemByNameAt(
    const char* name, TreeNode* start) {
  return name == nullptr ? Root() : GetTreeItemBySectionAt(name, start);
}

template <class Vocabulary>
typename ConfigFile<Vocabulary>::TreeNode* ConfigFile<Vocabulary>::GetTreeItemBySectionAt(
    const char* name, TreeNode* start) {
  if (name == nullptr || !HasTree()) return nullptr;
  TreeNode* const from = start != nullptr ? start : Root();
  if (from == nullptr) return nullptr;
  return Index().FirstNamed(*from, name);
}

/// Finds, adds and removes blocks without reading all of them.
template <class Vocabulary>
internal::TreeIndex& ConfigFile<Vocabulary>::Index() const {
  return internal::TreeIndex::Of(*holder);
}

/// Whether there is a tree with a top level: something was read.
template <class Vocabulary>
bool ConfigFile<Vocabulary>::HasTree() const {
  return holder != nullptr && holder->topNode.children != nullptr;
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::IsReady() const {
  return HasTree() && parser != nullptr;
}

/// The root section's node; null when there is none.
template <class Vocabulary>
typename ConfigFile<Vocabulary>::TreeNode* ConfigFile<Vocabulary>::Root() const {
  return HasTree() ? internal::FirstChild(holder->topNode) : nullptr;
}

/// The node that a node hangs under; the holder's topNode is its own.
template <class Vocabulary>
typename ConfigFile<Vocabulary>::TreeNode* ConfigFile<Vocabulary>::ParentOf(TreeNode* node) const {
  return node == &holder->topNode ? node : node->parent;
}

}  // namespace klepur

#endif
