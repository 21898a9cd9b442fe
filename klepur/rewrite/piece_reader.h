// Internal: what the parser of the configuration classes makes of a text, in place.
#ifndef KLEPUR_REWRITE_PIECE_READER_H
#define KLEPUR_REWRITE_PIECE_READER_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include <klepur/rewrite/pending_text.h>
#include <klepur/rewrite/rewriting.h>
#include <klepur/text/large_array.h>

namespace klepur::internal {

using BlockNumber = std::uint32_t;
inline constexpr BlockNumber kRootBlock = 0;
/// Of what hangs beside the root section, behind a "}" too many.
inline constexpr BlockNumber kOutside = 0xFFFFFFFF;

/// Bytes of the text that became an entry or began a block.
struct ReadPiece {
  Span source;
  RewrittenPiece::Sort sort;
  BlockNumber block;         ///< That it stands in, or that it begins.
  std::string_view content;  ///< The entry's text, or the block's name.
};

/// The root section, or a block below it.
struct ReadBlock {
  BlockNumber parent;
  std::string_view name;
};

/// Reads a text as BlockParser does with CfLex; see there for the rules.
class PieceReader {
 public:
  /// kPadding bytes behind the text must be readable. It is kept, and must not change.
  explicit PieceReader(std::string_view text);

  /// False when it stops at a NUL byte.
  bool Read();

  const LargeArray<ReadPiece>& Pieces() const { return pieces_; }
  /// In the order of their "{".
  const LargeArray<ReadBlock>& Blocks() const { return blocks_; }
  /// Whether nothing closes some quote on its line: a quoted text may run over written lines then.
  bool HasUnpairedQuotes() const { return unclosed_until_ != nullptr; }

 private:
  const char* CollectToMark();
  const char* BehindQuoted(const char* quote);
  bool FindRestOfLine(const char* from, std::string_view& rest);
  std::string_view UpToLineEnd(const char* from, const char* line_feed) const;
  bool EndsLine(const char* at) const { return at == end_ || *at == '\n'; }
  bool TakeComment(const char* mark);
  void LookAtQuotes(std::string_view rest);
  bool TakeBrace(const char* brace);
  void OpenBlock();
  void TakeClosingBrace();
  void Keep(RewrittenPiece::Sort sort, std::string_view content);
  TextAddress AddressOf(const char* place) const {
    return static_cast<TextAddress>(place - begin_);
  }

  const char* const begin_;
  const char* const end_;
  const char* const nul_;  ///< The first NUL byte, or the end.
  const char* next_;
  const char* piece_;                     ///< From here on the bytes are of no piece yet.
  const char* unclosed_until_ = nullptr;  ///< Nothing closes a quote before this.
  PendingText pending_;
  BlockNumber block_ = kRootBlock;
  std::size_t levels_outside_ = 0;
  LargeArray<ReadPiece> pieces_;
  LargeArray<ReadBlock> blocks_;
  std::deque<std::string> copies_;  ///< Contents that do not stand in the text side by side.
};

}  // namespace klepur::internal

#endif
