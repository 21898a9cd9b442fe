// Internal: which options there are for the server while it reads a file.
#ifndef KLEPUR_CHECK_OPTION_NAMES_H
#define KLEPUR_CHECK_OPTION_NAMES_H

#include <klepur/check/facts.h>

#include <string>
#include <string_view>
#include <unordered_set>

namespace klepur::internal {

/// The options and option spaces of the server and those that a file defines, anywhere in it.
class OptionNames {
 public:
  explicit OptionNames(const Facts& facts);

  /// The space in the name of an option, in small letters: "dhcp" where it has none.
  static std::string SpaceOf(std::string_view name);
  /// Whether the server has it by itself.
  static bool IsSpaceOfServer(std::string_view space);
  bool HasSpace(const std::string& space) const;
  /// Of a space that there is.
  bool HasOption(std::string_view name) const;

 private:
  std::unordered_set<std::string> spaces_;
  std::unordered_set<std::string> options_;  // "space.name" of those that the file defines
};

/// Whether a file includes others, which may define options that it uses.
bool CanDefineElsewhere(const Facts& facts);

}  // namespace klepur::internal

#endif
