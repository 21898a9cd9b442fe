// Internal: one statement or block, as rules are shown it.
#ifndef KLEPUR_CHECK_ITEM_H
#define KLEPUR_CHECK_ITEM_H

#include <cstddef>
#include <string_view>

#include <klepur/check/word_traits.h>
#include <klepur/document/syntax_node.h>
#include <klepur/language/words.h>

namespace klepur::internal {

/// Nothing that stands for a host.
inline constexpr std::uint32_t kNoHost = 0xFFFFFFFF;

/// A block that the walk is in, and what is around it.
struct Frame {
  NodeId id = kRoot;
  Scopes scope = kInFile;  ///< What its children stand in; kNowhere where nothing is known of that.
  NodeId subnet = kNoNode;          ///< The innermost subnet or subnet6 around.
  NodeId shared_network = kNoNode;  ///< The shared network around.
  NodeId pool = kNoNode;            ///< The pool or pool6 around.
  std::uint32_t host = kNoHost;     ///< The host around, by its number in Facts::hosts.
};

struct Item {
  NodeId id;
  NodeKind kind;
  bool unfinished;
  std::string_view text;    ///< A statement with its ";", if it has one; a header without its "{".
  std::string_view first;   ///< Its first word, as written.
  std::string_view second;  ///< The second one where that tells the keyword, else empty.
  std::string_view
      value;  ///< What follows the keyword, without the ";", blanks and comments around it kept.
  const Word* word;  ///< What the keyword is; null when it is unknown.
  const WordTraits& traits;
  const Frame& around;
};

}  // namespace klepur::internal

#endif
