// CfSectionEntry: one statement line of a block.
#ifndef KLEPUR_FRAMEWORK_SECTION_ENTRY_H
#define KLEPUR_FRAMEWORK_SECTION_ENTRY_H

#include <klepur/export.h>
#include <klepur/memory/c_string.h>
#include <klepur/memory/made_anywhere.h>

#include <memory>
#include <string>
#include <string_view>

class CfSection;
class DhcpParser;
namespace klepur::internal {
class ObjectMemory;
}

/// One line of a block: a statement or a comment.
///
/// The key name is the whole text of the line, its ";" included: "option routers 10.0.0.1;". A
/// comment that is not null marks the line as commented out; its text is always "#" here and is
/// never written.
class KLEPUR_EXPORT CfSectionEntry : public klepur::internal::MadeAnywhere {
 public:
  /// An entry with an empty key name and no comment.
  CfSectionEntry() noexcept;

  /// A copy that belongs to no section.
  CfSectionEntry(const CfSectionEntry& other);

  /// Copies text and comment. Each entry stays in the section that it is in.
  CfSectionEntry& operator=(const CfSectionEntry& other);

  ~CfSectionEntry();

  /// The line's text; never null, empty when none was set. Valid until the next SetKeyName.
  const char* GetKeyName() const noexcept { return keyName_.Get(); }

  /// Copies `key` as the line's text. Null makes the text empty.
  void SetKeyName(const char* key);

  /// The comment, or null when the line is not commented out. Valid until the comment changes.
  const char* GetComment() const noexcept {
    return comment_ != nullptr ? comment_->c_str() : nullptr;
  }

  /// Copies `comment`, usually "#", which marks the line as commented out. Null is UndoComment().
  void SetComment(const char* comment);

  /// Makes the line live again. Does nothing to a line that is not commented out.
  void UndoComment() noexcept { comment_.reset(); }

 private:
  friend CfSection;
  friend DhcpParser;
  friend klepur::internal::ObjectMemory;

  using KeyName = klepur::internal::CString<40>;

  CfSectionEntry(std::string_view key, const char* comment);

  KeyName keyName_;
  std::unique_ptr<std::string> comment_;  // one pointer wide: few lines have one
};

#endif
