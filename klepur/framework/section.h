// CfSection: the name and the lines of one block.
#ifndef KLEPUR_FRAMEWORK_SECTION_H
#define KLEPUR_FRAMEWORK_SECTION_H

#include <klepur/export.h>
#include <klepur/framework/section_entry.h>
#include <klepur/memory/c_string.h>

#include <memory>
#include <string_view>
#include <vector>

namespace klepur {
class BlockParser;
}
namespace klepur::internal {
class ObjectMemory;
}

/// One block of a file: its header as the name ("host pc-17") and its lines in file order.
///
/// Blocks nested in it are not here but in the tree node that carries the section.
class KLEPUR_EXPORT CfSection {
 public:
  /// A section without a name and without lines.
  CfSection() noexcept;

  /// An independent copy of name and lines.
  /// Cost: linear in their text.
  CfSection(const CfSection& other);

  /// Takes over name and lines; `other` is then as if default-constructed.
  CfSection(CfSection&& other) noexcept;

  /// Replaces name and lines. When memory runs out the section is as it was.
  CfSection& operator=(CfSection other) noexcept;

  virtual ~CfSection();

  /// The name; never null, empty when none was set. Valid until the next SetName.
  const char* GetName() const noexcept { return name_.Get(); }

  /// Copies `name` as the section's name. Null makes it empty.
  void SetName(const char* name);

  /// Appends a line.
  ///
  /// \param key      the whole line with its ";", "max-lease-time 7200;".
  /// \param value    not kept: a line is wholly its key. Pass null.
  /// \param comment  "#" for a commented-out line, null for a live one.
  /// \return 1, or 0 when `key` is null; nothing is then added.
  int AddEntry(const char* key, const char* value, const char* comment);

  /// Appends a copy of `entry` at the end; the caller keeps its own.
  /// \return 1, or 0 when `entry` is null; nothing is then added.
  int InsertEntry(CfSectionEntry* entry);

  /// Removes and deletes the very entry that `entry` points at.
  /// \return 1, or 0 when it is not one of this section's; nothing then changes.
  /// Cost: linear in the number of lines.
  int RemoveEntry(CfSectionEntry* entry);

  /// The first line whose text equals the key name of `probe` byte for byte, comments included; the
  /// end of `entryList` when there is none or `probe` is null.
  /// Cost: linear in the number of lines.
  std::vector<CfSectionEntry*>::iterator FindEntry(CfSectionEntry* probe);

  /// Deletes every line. The name stays.
  void ClearEntryList() noexcept;

  /// The lines in file order, owned by the section. It may be changed by hand: an entry put in was
  /// made with new, and one taken out is the caller's. A null in it is passed over.
  std::vector<CfSectionEntry*> entryList;

 private:
  friend klepur::BlockParser;

  int Append(const char* key, const char* comment);
  void Append(klepur::internal::ObjectMemory& memory, std::string_view key, const char* comment);
  void Append(std::unique_ptr<CfSectionEntry> entry);

  using Name = klepur::internal::CString<24>;

  Name name_;
};

#endif
