// Internal: ConfigFile's construction, opening, saving, and the finding of tree nodes.
#ifndef KLEPUR_CONFIG_LIFECYCLE_IMPL_H
#define KLEPUR_CONFIG_LIFECYCLE_IMPL_H

#include <klepur/config/config_file.h>
#include <klepur/config/family_words.h>
#include <klepur/config/statement_table.h>
#include <klepur/framework/tree_links.h>
#include <klepur/lookup/tree_index.h>
#include <klepur/text/file_state.h>

#include <memory>
#include <new>
#include <string>
#include <type_traits>
#include <typeinfo>

namespace klepur {

template <class Vocabulary>
ConfigFile<Vocabulary>::ConfigFile()
    : holder(nullptr),
      parser(nullptr),
      currentNetwork(nullptr),
      currentSubnet(nullptr),
      isRead(0),
      read_(std::make_unique<internal::FileState>()) {
  auto newHolder = std::make_unique<CfSectionHolder>();
  index_ = std::make_unique<internal::TreeIndex>(newHolder->topNode);
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
  Index().Drop();
  bool read = false;
  try {
    *read_ = internal::FileState::OfPath(confFileName);
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
    Index().Drop();
    holder->topNode.DeleteAllItems();
    holder->topNode.section.ClearEntryList();
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
std::string ConfigFile<Vocabulary>::Text() {
  return IsReady() ? parser->TextOf(holder) : std::string();
}

template <class Vocabulary>
typename ConfigFile<Vocabulary>::TreeNode* ConfigFile<Vocabulary>::GetTreeItemByNameAt(
    const char* name, TreeNode* start) {
  return HandOut(name == nullptr ? Root() : FindNamed(name, start));
}

template <class Vocabulary>
typename ConfigFile<Vocabulary>::TreeNode* ConfigFile<Vocabulary>::GetTreeItemBySectionAt(
    const char* name, TreeNode* start) {
  return HandOut(FindNamed(name, start));
}

/// The first block of a name in `start`, or in the whole file without one; null when there is none.
template <class Vocabulary>
typename ConfigFile<Vocabulary>::TreeNode* ConfigFile<Vocabulary>::FindNamed(
    const char* name, TreeNode* start) const {
  if (name == nullptr || !HasTree()) return nullptr;
  TreeNode* const from = start != nullptr ? start : Root();
  return from == nullptr ? nullptr : Index().FirstNamed(*from, name);
}

/// What a caller gets to see of the tree passes through here. From a node it reaches all others,
/// by way of their parents the topmost one too, which even Open does not replace.
template <class Vocabulary>
typename ConfigFile<Vocabulary>::TreeNode* ConfigFile<Vocabulary>::HandOut(TreeNode* node) const {
  if (node != nullptr) Index().WalkFromNowOn();
  return node;
}

/// Finds, adds and removes blocks without reading all of them, as long as nobody else can change
/// the tree. A derived class can at any time: it has the holder.
template <class Vocabulary>
internal::TreeIndex& ConfigFile<Vocabulary>::Index() const {
  if (typeid(*this) != typeid(typename internal::FamilyWords<Vocabulary>::File)) {
    index_->WalkFromNowOn();
  }
  return *index_;
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
