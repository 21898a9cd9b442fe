// Internal: ConfigFile's changing of blocks.
#ifndef KLEPUR_CONFIG_CHANGING_IMPL_H
#define KLEPUR_CONFIG_CHANGING_IMPL_H

#include <klepur/config/config_file.h>
#include <klepur/config/param_list.h>
#include <klepur/lookup/tree_index.h>

#include <string>

namespace klepur {

template <class Vocabulary>
int ConfigFile<Vocabulary>::ChangeSection(const Section& section, const char* newName) {
  TreeNode* const block = ChooseBlock(section);
  if (block == nullptr) return 0;
  const internal::TreeIndex::Edit edit(Index(), *block);
  return ChangeTreeSection(section, &block->section, newName);
}

template <class Vocabulary>
int ConfigFile<Vocabulary>::ChangeTreeSection(const Section& section, CfSection* target,
                                              const char* newName) {
  if (target == nullptr) return 0;
  if (newName != nullptr && section.type != Section::SECTION_GLOBAL &&
      !Rename(*target, section.type, newName)) {
    return 0;
  }
  Section wanted;
  if (!DhcpToTree(section, wanted)) return 0;
  // The block is read once: a second parameter of a type still looks for the line as it was.
  Section current;
  Section currentLines;
  TreeToDhcp(*target, current, false);
  if (!DhcpToTree(current, currentLines)) return 0;
  for (const SectionParam& param : section.params) {
    if (param.type == internal::kNameType) continue;
    const SectionParam* const line = internal::FirstOfType(wanted.params, param.type);
    if (internal::ValueOfType(current.params, param.type).empty()) {
      AddLine(*target, line);
      continue;
    }
    const std::string currentLine = internal::ValueOfType(currentLines.params, param.type);
    CfSectionEntry* const entry = GetEntryFromList(&target->entryList, currentLine.c_str());
    if (entry == nullptr) return 0;
    if (param.value.empty()) {
      target->RemoveEntry(entry);
    } else {
      ChangeLine(*entry, line);
    }
  }
  return 1;
}

template <class Vocabulary>
int ConfigFile<Vocabulary>::SetSectionParams(const Section& section) {
  TreeNode* const block = ChooseBlock(section);
  if (block == nullptr || section.params.empty()) return 0;
  const internal::TreeIndex::Edit edit(Index(), *block);
  block->section.ClearEntryList();
  int added = 0;
  for (const SectionParam& param : section.params) {
    if (param.type == internal::kNameType) continue;
    added = block->section.AddEntry(param.value.c_str(), nullptr, param.commented ? "#" : nullptr);
    if (added == 0) return 0;
  }
  return added;
}

/// The block that a record of this type and name changes; null when there is none.
template <class Vocabulary>
typename ConfigFile<Vocabulary>::TreeNode* ConfigFile<Vocabulary>::ChooseBlock(
    const Section& section) {
  if (!IsReady()) return nullptr;
  switch (section.type) {
    case Section::SECTION_GLOBAL:
      return Root();
    case Section::SECTION_SHARED_NETWORK:
      return currentNetwork;
    case Section::SECTION_SUBNET:
      return currentSubnet;
    case Section::SECTION_HOST:
    case Section::SECTION_IF:
      if (currentSubnet == nullptr) return nullptr;
      return FindBlock(section.type,
                       internal::ValueOfType(section.params, internal::kNameType).c_str());
  }
  return nullptr;
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::Rename(CfSection& target, SectionType type, const char* newName) {
  Section named;
  named.type = type;
  named.params.push_back({false, internal::kNameType, newName});
  Section treeForm;
  if (!DhcpToTree(named, treeForm)) return false;
  target.SetName(internal::ValueOfType(treeForm.params, internal::kNameType).c_str());
  return true;
}

/// Adds the line of a tree-form parameter; nothing when it is null or empty.
template <class Vocabulary>
void ConfigFile<Vocabulary>::AddLine(CfSection& target, const SectionParam* line) {
  if (line == nullptr || line->value.empty()) return;
  CfSectionEntry entry;
  entry.SetKeyName(line->value.c_str());
  if (line->commented) entry.SetComment("#");
  target.InsertEntry(&entry);
}

/// Gives an entry the text and the comment mark of a tree-form parameter; null is an empty, live
/// line.
template <class Vocabulary>
void ConfigFile<Vocabulary>::ChangeLine(CfSectionEntry& entry, const SectionParam* line) {
  entry.SetKeyName(line == nullptr ? "" : line->value.c_str());
  if (line == nullptr || !line->commented) {
    entry.UndoComment();
  } else if (entry.GetComment() == nullptr) {
    entry.SetComment("#");
  }
}

}  // namespace klepur

#endif
