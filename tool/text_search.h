// Answers one question to a large file without tables of all that is in it.
#ifndef KLEPUR_TOOL_TEXT_SEARCH_H
#define KLEPUR_TOOL_TEXT_SEARCH_H

#include <klepur/document/document.h>
#include <klepur/network/address.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace klepur::tool {

/// Finds the blocks around the places where something stands in a text. Making a table of a large file takes many
/// times as long as looking through its bytes once, which is worth it for all questions but the first few.
///
/// Each answer holds all blocks in which it can stand, and others, for the caller to look at: in the order of the text, no
/// block twice. There is no answer where looking through the bytes does not tell, or where there are too many places.
class TextSearch {
 public:
  using Blocks = std::optional<std::vector<Node>>;

  explicit TextSearch(const Document& document);

  /// Whether it is good for this document as it is now: one that is large and not edited, without strings
  /// in which a backslash stands for another byte.
  bool IsGoodFor() const;

  Blocks AroundText(std::string_view text) const;
  /// Where one of these byte strings is written as hexadecimal numbers: "0:16:3E:10:0:17".
  Blocks AroundNumbers(const std::vector<std::string>& any) const;
  /// Whether AroundNumbers finds a text for these bytes wherever it stands as a word.
  static bool IsNumbers(std::string_view text, std::string_view bytes);
  /// Where the address is written, in any spelling.
  Blocks AroundAddress(const Address& address) const;

 private:
  Blocks BlocksAt(const std::vector<std::size_t>& offsets) const;

  const Document* document_;
  std::string_view text_;
};

}  // namespace klepur::tool

#endif
