// Internal: ConfigFile's adding of blocks.
#ifndef KLEPUR_CONFIG_ADDING_IMPL_H
#define KLEPUR_CONFIG_ADDING_IMPL_H

#include <klepur/config/config_file.h>
#include <klepur/config/family_words.h>
#include <klepur/config/param_list.h>
#include <klepur/config/subnet_address.h>
#include <klepur/framework/tree_links.h>
#include <klepur/lookup/tree_index.h>

#include <string>
#include <utility>

namespace klepur {

template <class Vocabulary>
int ConfigFile<Vocabulary>::AddSection(const Section& section) {
  if (!IsReady() || internal::ValueOfType(section.params, internal::kNameType).empty()) return 0;
  switch (section.type) {
    case Section::SECTION_SHARED_NETWORK:
      return AddNetwork(section);
    case Section::SECTION_SUBNET:
      return AddSubnet(section);
    case Section::SECTION_HOST:
      return AddHost(section);
    case Section::SECTION_IF:
      return AddIFSection(section);
    default:
      return 0;
  }
}

template <class Vocabulary>
int ConfigFile<Vocabulary>::AddNetwork(const Section& section) {
  const std::string name = internal::ValueOfType(section.params, internal::kNameType);
  // The bare name is looked for, so another network of that name is not in the way.
  if (FindNamed(name.c_str(), nullptr) != nullptr) return 0;
  if (!ConvertAndAdd(section, Root()) || !GotoSection(name.c_str(), section.type)) return 0;
  currentSubnet = currentNetwork == nullptr ? nullptr : internal::FirstChild(*currentNetwork);
  return 1;
}

template <class Vocabulary>
int ConfigFile<Vocabulary>::AddSubnet(const Section& section) {
  const std::string address = internal::SubnetAddressOf<Vocabulary>(section);
  const std::string header = Header(Section::SECTION_SUBNET, address);
  TreeNode* const scope = currentNetwork != nullptr ? currentNetwork : Root();
  TreeNode* const existing = FindNamed(header.c_str(), currentNetwork);
  if (existing != nullptr && ParentOf(existing) == scope) return 0;
  if (!ConvertAndAdd(section, currentNetwork)) return 0;
  return GotoSection(address.c_str(), Section::SECTION_SUBNET) ? 1 : 0;
}

template <class Vocabulary>
int ConfigFile<Vocabulary>::AddHost(const Section& section) {
  return AddBelowSubnet(section, Section::SECTION_HOST);
}

template <class Vocabulary>
int ConfigFile<Vocabulary>::AddIFSection(const Section& section) {
  return AddBelowSubnet(section, Section::SECTION_IF);
}

template <class Vocabulary>
int ConfigFile<Vocabulary>::AddBelowSubnet(const Section& section, SectionType type) {
  const std::string name = internal::ValueOfType(section.params, internal::kNameType);
  TreeNode* const existing = FindNamed(Header(type, name).c_str(), currentSubnet);
  // Unlike in AddSubnet the cursor is compared as it is: when it is null, nothing is a duplicate.
  if (existing != nullptr && ParentOf(existing) == currentSubnet) return 0;
  return ConvertAndAdd(section, currentSubnet) ? 1 : 0;
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::ConvertAndAdd(const Section& section, TreeNode* parent) {
  Section treeForm;
  return DhcpToTree(section, treeForm) && AddTreeSection(treeForm, parent);
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::AddTreeSection(const Section& section, TreeNode* parent) {
  if (holder == nullptr) return false;
  const std::string header = internal::ValueOfType(section.params, internal::kNameType);
  if (header.empty()) return false;
  CfSection block;
  block.SetName(header.c_str());
  bool added = false;
  for (const SectionParam& param : section.params) {
    if (param.type == internal::kNameType) continue;
    if (param.value.empty()) {
      if (block.entryList.empty()) return false;
      continue;
    }
    const bool commented = internal::IsCommented(section.params, param.type);
    added = block.AddEntry(param.value.c_str(), nullptr, commented ? "#" : nullptr) != 0;
    if (!added) return false;
  }
  if (parent == nullptr) parent = Root();
  if (parent == nullptr) parent = &holder->topNode;
  Index().Append(*parent, std::move(block));
  return added;
}

}  // namespace klepur

#endif
