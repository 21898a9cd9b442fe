#include <klepur/framework/section.h>
#include <klepur/memory/object_memory.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <utility>

namespace {

/// Room for the lines of a host.
constexpr std::size_t kUsualEntries = 3;

}  // namespace

CfSection::CfSection() noexcept = default;

CfSection::CfSection(const CfSection& other) : CfSection() {
  name_ = Name(other.name_);
  entryList.reserve(other.entryList.size());
  for (const CfSectionEntry* entry : other.entryList) {
    if (entry != nullptr) Append(entry->GetKeyName(), entry->GetComment());
  }
}

CfSection::CfSection(CfSection&& other) noexcept
    : entryList(std::move(other.entryList)), name_(std::move(other.name_)) {
  other.entryList.clear();
}

CfSection& CfSection::operator=(CfSection other) noexcept {
  std::swap(name_, other.name_);
  entryList.swap(other.entryList);
  return *this;
}

CfSection::~CfSection() {
  for (CfSectionEntry* entry : entryList) delete entry;
}

void CfSection::SetName(const char* name) {
  name_ = name == nullptr ? Name() : Name(name);
}

int CfSection::AddEntry(const char* key, const char* /*value*/, const char* comment) {
  return Append(key, comment);
}

int CfSection::InsertEntry(CfSectionEntry* entry) {
  return entry == nullptr ? 0 : Append(entry->GetKeyName(), entry->GetComment());
}

int CfSection::Append(const char* key, const char* comment) {
  if (key == nullptr) return 0;
  Append(std::unique_ptr<CfSectionEntry>(new CfSectionEntry(key, comment)));
  return 1;
}

void CfSection::Append(klepur::internal::ObjectMemory& memory, std::string_view key,
                       const char* comment) {
  Append(memory.Make<CfSectionEntry>(key, comment));
}

void CfSection::Append(std::unique_ptr<CfSectionEntry> entry) {
  if (entryList.capacity() == 0) entryList.reserve(kUsualEntries);
  entryList.push_back(entry.get());
  static_cast<void>(entry.release());  // the list owns it now
}

int CfSection::RemoveEntry(CfSectionEntry* entry) {
  const auto position = std::find(entryList.begin(), entryList.end(), entry);
  if (entry == nullptr || position == entryList.end()) return 0;
  entryList.erase(position);
  delete entry;
  return 1;
}

std::vector<CfSectionEntry*>::iterator CfSection::FindEntry(CfSectionEntry* probe) {
  if (probe == nullptr) return entryList.end();
  return std::find_if(entryList.begin(), entryList.end(), [probe](const CfSectionEntry* entry) {
    return entry != nullptr && std::strcmp(entry->GetKeyName(), probe->GetKeyName()) == 0;
  });
}

void CfSection::ClearEntryList() noexcept {
  for (CfSectionEntry* entry : entryList) delete entry;
  entryList.clear();
}
