// Internal: what the configuration classes make of a text when they read and save it.
#ifndef KLEPUR_REWRITE_REWRITING_H
#define KLEPUR_REWRITE_REWRITING_H

#include <cstdint>
#include <string_view>

#include <klepur/text/large_array.h>
#include <klepur/text/piece_text.h>
#include <klepur/text/text_buffer.h>

namespace klepur::internal {

/// The blocks that are written, in the order of their "{"; the root section is the first.
using BlockNumber = std::uint32_t;
inline constexpr BlockNumber kRootBlock = 0;
/// Of what hangs beside the root section, behind a "}" too many.
inline constexpr BlockNumber kOutside = 0xFFFFFFFF;

/// Bytes of the text that became one line, or one block's header, of the rewritten text. It begins behind
/// the piece before it, or behind a "}" in between, and takes no byte of the next one.
struct RewrittenPiece {
  enum class Sort : std::uint8_t { kStatement, kComment, kHeader };

  Span source;
  Span written;       ///< Empty for what is not written.
  BlockNumber block;  ///< That it stands in, or that it begins.
  Sort sort;

  bool IsLost() const { return written.begin == written.end; }
};

struct Rewriting {
  TextBuffer text;
  LargeArray<RewrittenPiece> pieces;  ///< In the order of the text that was read.
  bool stopped = false;               ///< At a NUL byte, behind which nothing is read.
};

/// Reads a text of less than 4 GiB, with kPadding readable bytes behind it, as the configuration classes do
/// (BlockParser, CfLex), and writes what they would save (DhcpParser::FileWriter).
///
/// The indentation is left out where it means nothing: it stands in no quoted text when quotes pair on each
/// line. In deeply nested blocks it is longer than all the rest; beyond 16 times the text it is left out too.
///
/// Those rules are applied in place, without tokens and without a tree, in a fraction of the time. That the
/// outcome is theirs is tested with random texts.
///
/// Throws std::bad_alloc, and Error(kTooLarge) when what is written reaches 4 GiB, or the text together with
/// the statements in it that run over lines. Cost: linear.
Rewriting Rewrite(std::string_view text);

}  // namespace klepur::internal

#endif
