// Internal: ConfigFile's conversions between tree sections and records, and the cutting of lines.
#ifndef KLEPUR_CONFIG_CONVERSION_IMPL_H
#define KLEPUR_CONFIG_CONVERSION_IMPL_H

#include <klepur/config/config_file.h>
#include <klepur/config/family_words.h>
#include <klepur/config/param_list.h>
#include <klepur/config/statement_table.h>
#include <klepur/config/value_scan.h>
#include <klepur/framework/tree_links.h>

#include <cstring>
#include <list>
#include <string>

namespace klepur {

template <class Vocabulary>
int SectionRecord<Vocabulary>::GetStringType(const std::string& line) {
  return internal::Classify(internal::FamilyWords<Vocabulary>::kStatements, line);
}

namespace internal {

/// A block's name as the record has it.
template <class Vocabulary>
std::string NameFromHeader(const std::string& header,
                           typename SectionTypes<Vocabulary>::SectionType type) {
  using Types = SectionTypes<Vocabulary>;
  if (type == Types::SECTION_SUBNET) return FamilyWords<Vocabulary>::SubnetName(header);
  std::string name = header;
  if (type != Types::SECTION_GLOBAL) TextBehindFirstBlank(header, name);
  return name;
}

/// A block's header from its name; false when the name cannot make one.
template <class Vocabulary>
bool MakeHeader(const std::string& name, typename SectionTypes<Vocabulary>::SectionType type,
                std::string& header) {
  using Types = SectionTypes<Vocabulary>;
  using Words = FamilyWords<Vocabulary>;
  if (type == Types::SECTION_SUBNET) return Words::MakeSubnetHeader(name, header);
  const std::string_view prefix = PrefixOf(Words::kBlocks, type);
  if (type == Types::SECTION_GLOBAL) {
    header = kRootName;
  } else if (!prefix.empty()) {
    header.assign(prefix).append(name);
  }
  return true;
}

}  // namespace internal

template <class Vocabulary>
bool ConfigFile<Vocabulary>::TreeToDhcp(const CfSection& section, Section& record,
                                        bool rawEntries) {
  using Words = internal::FamilyWords<Vocabulary>;
  const std::string header = section.GetName();
  record.params.clear();
  record.type = static_cast<SectionType>(internal::KindOf(Words::kBlocks, header));
  // One text takes the name and then each value in turn: a line without a value leaves the last
  // one.
  std::string value = internal::NameFromHeader<Vocabulary>(header, record.type);
  record.params.push_back({false, internal::kNameType, value});
  for (const CfSectionEntry* entry : section.entryList) {
    if (entry == nullptr) continue;
    const std::string line = entry->GetKeyName();
    const bool commented = entry->GetComment() != nullptr;
    if (rawEntries) {
      record.params.push_back({commented, internal::kRawType, line});
    } else if (const internal::Statement* statement =
                   internal::FindStatement(Words::kStatements, Section::GetStringType(line))) {
      internal::ReadValue(statement->form, line, Words::ServerListStart, value);
      internal::SetParam(record.params, commented, statement->type, value);
    }
  }
  return true;
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::DhcpToTree(const Section& in, Section& out) {
  if (in.params.empty()) return false;
  out.params.clear();
  out.type = in.type;
  const std::string name = internal::ValueOfType(in.params, internal::kNameType);
  if (!name.empty()) {
    std::string header;
    if (!internal::MakeHeader<Vocabulary>(name, in.type, header)) return false;
    out.params.push_back({false, internal::kNameType, header});
  }
  for (const SectionParam& param : in.params) {
    const internal::Statement* const statement =
        internal::FindStatement(internal::FamilyWords<Vocabulary>::kStatements, param.type);
    if (statement == nullptr || param.value.empty()) continue;
    const bool commented = internal::IsCommented(in.params, param.type);
    internal::SetParam(out.params, commented, param.type,
                       internal::WriteLine(*statement, param.value));
  }
  return true;
}

template <class Vocabulary>
int ConfigFile<Vocabulary>::GetEntryType(CfSectionEntry* entry) {
  return entry == nullptr ? internal::kRawType : Section::GetStringType(entry->GetKeyName());
}

template <class Vocabulary>
CfSectionEntry* ConfigFile<Vocabulary>::GetEntryFromList(const std::vector<CfSectionEntry*>* list,
                                                         const char* text) {
  if (list == nullptr || text == nullptr) return nullptr;
  for (CfSectionEntry* entry : *list) {
    if (entry != nullptr && std::strstr(entry->GetKeyName(), text) != nullptr) return entry;
  }
  return nullptr;
}

template <class Vocabulary>
char* ConfigFile<Vocabulary>::GetValueFromBuffer(const char* src, const char* stopChars,
                                                 char* dst) {
  if (src == nullptr || stopChars == nullptr || dst == nullptr) return dst;
  std::memcpy(dst, src, std::strcspn(src, stopChars));
  return dst;
}

template <class Vocabulary>
void ConfigFile<Vocabulary>::GetValueFromString(const std::string& line,
                                                const std::string& separator, std::string& out) {
  if (separator == " ") {
    internal::TextBehindFirstBlank(line, out);
  } else if (separator == ";") {
    internal::LastWordOfStatement(line, out);
  }
}

template <class Vocabulary>
const char* ConfigFile<Vocabulary>::GetFirstDigit(const char* s) {
  return internal::FirstDigit(s);
}

template <class Vocabulary>
bool ConfigFile<Vocabulary>::GetNameServers(const char* line, std::list<std::string>* out) {
  if (line == nullptr || out == nullptr) return false;
  return internal::SplitList(internal::FamilyWords<Vocabulary>::ServerListStart(line), *out);
}

}  // namespace klepur

#endif
