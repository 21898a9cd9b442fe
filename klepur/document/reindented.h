// Internal: lines with another indentation, and where each byte went.
#ifndef KLEPUR_DOCUMENT_REINDENTED_H
#define KLEPUR_DOCUMENT_REINDENTED_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace klepur::internal {

/// A text in which each line but the first that began with one indentation begins with another. Lines that
/// begin within a string stay as they are.
class Reindented {
 public:
  Reindented(std::string_view text, std::string_view from, std::string_view to);

  const std::string& Text() const { return text_; }
  /// A text as one that differs from it in the blanks only that lines begin with; nothing when it differs in more.
  static std::optional<Reindented> Like(std::string_view text, std::string_view other);

  /// Where a byte of the old text stands in the new one.
  std::size_t NewOffset(std::size_t old) const;

 private:
  Reindented() = default;

  struct Shift {
    std::size_t old;
    std::size_t moved;
  };
  std::string text_;
  std::vector<Shift> shifts_;
};

}  // namespace klepur::internal

#endif
