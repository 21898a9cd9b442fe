// Internal: ConfigFile's removing of blocks.
#ifndef KLEPUR_CONFIG_REMOVING_IMPL_H
#define KLEPUR_CONFIG_REMOVING_IMPL_H

#include <klepur/config/config_file.h>
#include <klepur/config/param_list.h>
#include <klepur/config/subnet_address.h>
#include <klepur/framework/tree_links.h>
#include <klepur/lookup/tree_index.h>

#include <string>

namespace klepur {

template <class Vocabulary>
int ConfigFile<Vocabulary>::RemoveSection(const Section& section) {
  const std::string name = internal::ValueOfType(section.params, internal::kNameType);
  if (!IsReady() || name.empty()) return 0;
  switch (section.type) {
    case Section::SECTION_SHARED_NETWORK:
      return RemoveNetwork(name.c_str());
    case Section::SECTION_SUBNET:
      return RemoveSubnetSection(internal::SubnetAddressOf<Vocabulary>(section).c_str());
    case Section::SECTION_HOST:
      return RemoveHostSection(name.c_str());
    case Section::SECTION_IF:
      return RemoveIFSection(name.c_str());
    default:
      return 0;
  }
}

template <class Vocabulary>
int ConfigFile<Vocabulary>::RemoveNetwork(const char* name) {
  if (name == nullptr) return 0;
  TreeNode* const doomed = FindBlock(Section::SECTION_SHARED_NETWORK, name);
  if (doomed == nullptr) return 0;
  if (doomed == currentNetwork) {
    TreeNode* const heir = HeirOf(*doomed, Root());
    if (!PlaceCursorsOn(heir)) {
      currentNetwork = nullptr;
      currentSubnet = heir;
    }
  }
  return RemoveWithChildren(*doomed);
}

template <class Vocabulary>
int ConfigFile<Vocabulary>::RemoveSubnetSection(const char* name) {
  if (name == nullptr) return 0;
  TreeNode* const doomed = FindBlock(Section::SECTION_SUBNET, name);
  if (doomed == nullptr) return 0;
  if (doomed == currentSubnet) {
    TreeNode* const heir = HeirOf(*doomed, currentNetwork != nullptr ? currentNetwork : Root());
    if (!PlaceCursorsOn(heir)) currentSubnet = heir;
  }
  return RemoveWithChildren(*doomed);
}

template <class Vocabulary>
int ConfigFile<Vocabulary>::RemoveHostSection(const char* name) {
  return RemoveBelowSubnet(name, Section::SECTION_HOST);
}

template <class Vocabulary>
int ConfigFile<Vocabulary>::RemoveIFSection(const char* name) {
  return RemoveBelowSubnet(name, Section::SECTION_IF);
}

template <class Vocabulary>
int ConfigFile<Vocabulary>::RemoveBelowSubnet(const char* name, SectionType type) {
  if (name == nullptr) return 0;
  TreeNode* const doomed = FindBlock(type, name);
  if (doomed == nullptr || ParentOf(doomed) != currentSubnet) return 0;
  return RemoveNode(*doomed);
}

/// The block that a cursor on `doomed` moves to: the first of its level, or else the one that
/// follows.
template <class Vocabulary>
typename ConfigFile<Vocabulary>::TreeNode* ConfigFile<Vocabulary>::HeirOf(TreeNode& doomed,
                                                                          TreeNode* level) const {
  TreeNode* const first = level == nullptr ? nullptr : internal::FirstChild(*level);
  return first == &doomed ? Index().NextSiblingHolding(doomed, "") : first;
}

/// Deletes the node's children one by one and then the node. When one of them is not in the child
/// list of its parent, the rest stays and the result is 0.
template <class Vocabulary>
int ConfigFile<Vocabulary>::RemoveWithChildren(TreeNode& doomed) {
  while (doomed.children != nullptr && !doomed.children->empty()) {
    TreeNode* const child = doomed.children->front();
    if (child == nullptr || RemoveNode(*child) == 0) return 0;
  }
  return RemoveNode(doomed);
}

/// Unlinks and deletes a node with all that is nested in it; 0 when its parent does not hold it.
template <class Vocabulary>
int ConfigFile<Vocabulary>::RemoveNode(TreeNode& doomed) {
  const bool holdsNetwork = internal::Holds(doomed, currentNetwork);
  const bool holdsSubnet = internal::Holds(doomed, currentSubnet);
  if (!Index().Remove(doomed)) return 0;
  // A cursor into what was deleted becomes a cursor on nothing.
  if (holdsNetwork) currentNetwork = nullptr;
  if (holdsSubnet) currentSubnet = nullptr;
  return 1;
}

}  // namespace klepur

#endif
