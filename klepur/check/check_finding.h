// What a check finds.
#ifndef KLEPUR_CHECK_CHECK_FINDING_H
#define KLEPUR_CHECK_CHECK_FINDING_H

#include <optional>
#include <string>
#include <string_view>

#include <klepur/check/mend.h>
#include <klepur/document/finding.h>
#include <klepur/export.h>
#include <klepur/text/position.h>

namespace klepur {

/// A line and a column of a file.
struct FilePosition {
  std::string file;  ///< As Document::Path has it; empty for a text.
  Position where;

  friend bool operator==(const FilePosition& left, const FilePosition& right) {
    return left.file == right.file && left.where == right.where;
  }
};

/// One thing that a rule says of a file.
struct CheckFinding {
  std::string_view rule;  ///< "duplicate-hardware-address"; lives as long as the program.
  Severity severity = Severity::kError;
  FilePosition place;
  /// A sentence without the place: `host b has the hardware address 00:16:3e:00:00:01 of host a`.
  std::string message;
  /// The other place, where two are at odds.
  std::optional<FilePosition> other;
  /// What puts it right, where that is obvious.
  std::optional<Mend> mend;
};

/// The finding as one line: "dhcpd.conf:12:3: error: the flag \"yes\" is neither on nor off
/// [malformed-flag]", with "(also in line 4)" behind the sentence where there is another place. Of a
/// text without a file the name is left out: "12:3: error: ...".
KLEPUR_EXPORT std::string ToText(const CheckFinding& finding);
/// "error", "warning", "note".
KLEPUR_EXPORT std::string_view ToText(Severity severity) noexcept;

}  // namespace klepur

#endif
