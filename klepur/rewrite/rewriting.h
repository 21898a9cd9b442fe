// Internal: what the configuration classes make of a text when they read and save it.
#ifndef KLEPUR_REWRITE_REWRITING_H
#define KLEPUR_REWRITE_REWRITING_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <klepur/text/piece_text.h>

namespace klepur::internal {

/// Bytes of the text that became one line, or one block's header, of the rewritten text. It begins behind
/// the piece before it, or behind a "}" in between, and takes no byte of the next one.
struct RewrittenPiece {
  enum class Sort : std::uint8_t { kStatement, kComment, kHeader };

  Span source;
  Span written;  ///< Empty for what is not written.
  Sort sort;

  bool IsLost() const { return written.begin == written.end; }
};

struct Rewriting {
  std::string text;
  std::vector<RewrittenPiece> pieces;  ///< In the order of the text that was read.
  bool stopped = false;                ///< At a NUL byte, behind which nothing is read.
};

/// Has the parser of the configuration classes read a text of less than 4 GiB, and its writer write it, but
/// for the indentation: it means nothing, and in deeply nested blocks it is longer than all the rest. Throws
/// std::bad_alloc, and Error(kTooLarge) when what is written reaches 4 GiB. Cost: linear.
Rewriting Rewrite(std::string_view text);

}  // namespace klepur::internal

#endif
