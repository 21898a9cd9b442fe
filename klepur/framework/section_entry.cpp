#include <klepur/framework/entry_changes.h>
#include <klepur/framework/section_entry.h>

CfSectionEntry::CfSectionEntry() noexcept = default;

CfSectionEntry::CfSectionEntry(const CfSectionEntry& other) : keyName_(other.keyName_) {
  SetComment(other.GetComment());
}

CfSectionEntry::CfSectionEntry(const char* key, const char* comment)
    : keyName_(key), countsChanges_(true) {
  SetComment(comment);
}

CfSectionEntry& CfSectionEntry::operator=(const CfSectionEntry& other) {
  if (this != &other) {
    SetKeyName(other.GetKeyName());
    SetComment(other.GetComment());
  }
  return *this;
}

CfSectionEntry::~CfSectionEntry() {
  if (countsChanges_) klepur::internal::CountEntryChange();
}

void CfSectionEntry::SetKeyName(const char* key) {
  keyName_ = KeyName(key);
  if (countsChanges_) klepur::internal::CountEntryChange();
}

void CfSectionEntry::SetComment(const char* comment) {
  comment_ = comment == nullptr ? nullptr : std::make_unique<std::string>(comment);
}
