#include <klepur/framework/section_entry.h>

CfSectionEntry::CfSectionEntry() noexcept = default;

CfSectionEntry::CfSectionEntry(const CfSectionEntry& other)
    : klepur::internal::MadeAnywhere(), keyName_(other.keyName_) {
  SetComment(other.GetComment());
}

CfSectionEntry::CfSectionEntry(std::string_view key, const char* comment) : keyName_(key) {
  SetComment(comment);
}

CfSectionEntry& CfSectionEntry::operator=(const CfSectionEntry& other) {
  if (this != &other) {
    SetKeyName(other.GetKeyName());
    SetComment(other.GetComment());
  }
  return *this;
}

CfSectionEntry::~CfSectionEntry() = default;

void CfSectionEntry::SetKeyName(const char* key) {
  keyName_ = key == nullptr ? KeyName() : KeyName(key);
}

void CfSectionEntry::SetComment(const char* comment) {
  comment_ = comment == nullptr ? nullptr : std::make_unique<std::string>(comment);
}
