// What differs in meaning between two documents.
#ifndef KLEPUR_TOOL_MEANING_DIFF_H
#define KLEPUR_TOOL_MEANING_DIFF_H

#include <klepur/document/document.h>

#include <cstddef>
#include <string>
#include <vector>

namespace klepur::tool {

struct Difference {
  enum class Kind { kAdded, kRemoved, kChanged, kMoved };

  Kind kind;
  std::string what;  ///< A block, "host pc-17", or a statement's keyword.
  std::string in;    ///< The path of what is around it; of what moved, where it is now.
  std::string was;   ///< The value that was; of what moved, the path of what was around it.
  std::string now;
  std::size_t old_line = 0;  ///< 0 for what was added.
  std::size_t new_line = 0;  ///< 0 for what was removed.
};

/// The differences in the order of the new text, what was removed among them by its old line.
///
/// Blocks are the same that have the same kind and name; those without a name, such as pools, that say the same,
/// else the next ones in their order. A block is moved when it is gone in one place and new in another.
/// The order of statements of one keyword counts, that of others does not.
std::vector<Difference> Differences(const Document& old_document, const Document& new_document);

/// "added", "removed", "changed", "moved".
std::string_view ToText(Difference::Kind kind);

}  // namespace klepur::tool

#endif
