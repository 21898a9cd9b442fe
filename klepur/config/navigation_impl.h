// Internal: ConfigFile's walking and lookup.
#ifndef KLEPUR_CONFIG_NAVIGATION_IMPL_H
#define KLEPUR_CONFIG_NAVIGATION_IMPL_H

#include <klepur/config/config_file.h>
#include <klepur/config/family_words.h>
#include <klepur/config/param_list.h>
#include <klepur/config/statement_table.h>
#include <klepur/framework/tree_links.h>
#include <klepur/lookup/tree_index.h>

#include <string>

namespace klepur {

template <class Vocabulary>
bool ConfigFile<Vocabulary>::GetFirstSection(Section& section, bool rawEntries) {
  if (!HasTree()) return false;
  switch (section.type) {
    case Section::SECTION_GLOBAL:
      return Fetch(Root(), section, rawEntries);
    case Section::SECTION_SHARED_NETWORK:
      return MoveTo(FirstOfLevel(currentNetwork), currentNetwork, section, rawEntries);
    case Section::SECTION_SUBNET:
      return MoveTo(FirstOfLevel(currentSubnet), currentSubnet, section, rawEntries);
    case Section::SECTION_HOST:
    case Section::SECTION_IF:
      if (currentSubnet == nullptr) return false;
      return Fetch(internal::FirstChildHolding(*currentSubnet, Prefix(section.type)), section,
                   rawEntries);
  }
  return false;
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::GetNextSection(const Section& current, Section& next,
                                            bool rawEntries) {
  if (!HasTree()) return false;
  switch (current.type) {
    case Section::SECTION_SHARED_NETWORK:
      return MoveTo(NextOfLevel(currentNetwork), currentNetwork, next, rawEntries);
    case Section::SECTION_SUBNET:
      return MoveTo(NextOfLevel(currentSubnet), currentSubnet, next, rawEntries);
    case Section::SECTION_HOST:
    case Section::SECTION_IF:
      return Fetch(NextOfKind(current), next, rawEntries);
    default:
      return false;
  }
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::GotoSection(const char* name, SectionType type) {
  if (!IsReady()) return false;
  if (type == Section::SECTION_GLOBAL) {
    currentNetwork = nullptr;
    currentSubnet = nullptr;
    return true;
  }
  if (name == nullptr || *name == '\0') return false;
  TreeNode* const found = FindBlock(type, name);
  if (found == nullptr) return false;
  if (type == Section::SECTION_SHARED_NETWORK) {
    currentNetwork = found;
    currentSubnet = internal::FirstChild(*found);
  } else if (type == Section::SECTION_SUBNET) {
    currentSubnet = found;
  }
  return true;
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::GetSectionByName(Section& section, const char* name) {
  if (!IsReady()) return false;
  const SectionType type = section.type;
  if (type == Section::SECTION_GLOBAL) return Fetch(Root(), section, false);
  if (name == nullptr) return false;
  if (type == Section::SECTION_SHARED_NETWORK) {
    return MoveTo(FindBlock(type, name), currentNetwork, section, false);
  }
  if (currentSubnet == nullptr) return false;
  if (type == Section::SECTION_SUBNET) {
    return MoveTo(FindBlock(type, name), currentSubnet, section, false);
  }
  return Fetch(FindBlock(type, name), section, false);
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::GetSectionByKeyname(const char* keyname, Section& section,
                                                 bool rawEntries) {
  if (keyname == nullptr || !IsReady()) return false;
  if (currentSubnet == nullptr || currentSubnet->children == nullptr) return false;
  return Fetch(Index().FirstChildWithLine(*currentSubnet, keyname), section, rawEntries);
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::GetHostByName(const char* name, Section& section, bool rawEntries) {
  return GetHostByParam(internal::FamilyWords<Vocabulary>::kHostName, name, section, rawEntries);
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::GetHostByIp(const char* ip, Section& section, bool rawEntries) {
  return GetHostByParam(internal::FamilyWords<Vocabulary>::kFixedAddress, ip, section, rawEntries);
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::GetHostByMACAddress(const char* mac, Section& section,
                                                 bool rawEntries) {
  return GetHostByParam(internal::FamilyWords<Vocabulary>::kHardwareEthernet, mac, section,
                        rawEntries);
}

/// Looks for a host by the statement line that a parameter makes.
template <class Vocabulary>
bool ConfigFile<Vocabulary>::GetHostByParam(int type, const char* value, Section& section,
                                            bool rawEntries) {
  if (value == nullptr) return false;
  Section wanted;
  wanted.params.push_back({false, type, value});
  Section treeForm;
  if (!DhcpToTree(wanted, treeForm)) return false;
  const std::string line = internal::ValueOfType(treeForm.params, type);
  return GetSectionByKeyname(line.c_str(), section, rawEntries);
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::Fetch(const TreeNode* node, Section& section, bool rawEntries) {
  return node != nullptr && TreeToDhcp(node->section, section, rawEntries);
}

/// Puts a cursor on a node and fetches it; does nothing when the node is null.
template <class Vocabulary>
bool ConfigFile<Vocabulary>::MoveTo(TreeNode* node, TreeNode*& cursor, Section& section,
                                    bool rawEntries) {
  if (node != nullptr) cursor = node;
  return Fetch(node, section, rawEntries);
}

template <class Vocabulary>
typename ConfigFile<Vocabulary>::TreeNode* ConfigFile<Vocabulary>::FirstOfLevel(
    TreeNode* cursor) const {
  TreeNode* const level = cursor == nullptr ? nullptr : ParentOf(cursor);
  return level == nullptr ? nullptr : internal::FirstChild(*level);
}

template <class Vocabulary>
typename ConfigFile<Vocabulary>::TreeNode* ConfigFile<Vocabulary>::NextOfLevel(
    TreeNode* cursor) const {
  return cursor == nullptr ? nullptr : Index().NextSiblingHolding(*cursor, "");
}

/// The block of the same kind that follows the host or if block that `current` names.
template <class Vocabulary>
typename ConfigFile<Vocabulary>::TreeNode* ConfigFile<Vocabulary>::NextOfKind(
    const Section& current) {
  if (currentSubnet == nullptr) return nullptr;
  Section treeForm;
  DhcpToTree(current, treeForm);
  const std::string header = internal::ValueOfType(treeForm.params, internal::kNameType);
  TreeNode* const node = FindNamed(header.c_str(), currentSubnet);
  return node == nullptr ? nullptr : Index().NextSiblingHolding(*node, Prefix(current.type));
}

/// The block of this kind and bare name, looked for from the cursor that its kind goes by.
template <class Vocabulary>
typename ConfigFile<Vocabulary>::TreeNode* ConfigFile<Vocabulary>::FindBlock(SectionType type,
                                                                             const char* name) {
  switch (type) {
    case Section::SECTION_SHARED_NETWORK:
      return FindNamed(Header(type, name).c_str(), nullptr);
    case Section::SECTION_SUBNET:
      return FindNamed(Header(type, name).c_str(), currentNetwork);
    case Section::SECTION_HOST:
    case Section::SECTION_IF:
      return FindNamed(Header(type, name).c_str(), currentSubnet);
    default:
      return nullptr;
  }
}

/// What the header of this kind of block begins with.
template <class Vocabulary>
std::string_view ConfigFile<Vocabulary>::Prefix(SectionType type) {
  return PrefixOf(internal::FamilyWords<Vocabulary>::kBlocks, type);
}

/// The header of a block from its keyword and the text behind it.
template <class Vocabulary>
std::string ConfigFile<Vocabulary>::Header(SectionType type, std::string_view name) {
  return std::string(Prefix(type)).append(name);
}

}  // namespace klepur

#endif
