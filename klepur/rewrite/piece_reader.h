// Internal: what the parser of the configuration classes makes of a text, in place.
#ifndef KLEPUR_REWRITE_PIECE_READER_H
#define KLEPUR_REWRITE_PIECE_READER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <klepur/rewrite/pending_text.h>
#include <klepur/rewrite/rewriting.h>
#include <klepur/text/large_array.h>

namespace klepur::internal {

/// How many bytes an entry takes beside its indentation.
inline std::size_t EntrySize(RewrittenPiece::Sort sort, std::string_view content) {
  return (sort == RewrittenPiece::Sort::kComment ? 1 : 0) + content.size() + 1;
}

/// A block that is written.
struct ReadBlock {
  BlockNumber parent;
  std::size_t entries_size = 0;  ///< How many bytes its entries take beside their indentation.
  std::uint32_t entries = 0;
};

/// Reads a text as BlockParser does with CfLex; see there for the rules.
class PieceReader {
 public:
  /// kPadding bytes behind the text must be readable. It is kept, and must not change.
  explicit PieceReader(std::string_view text);

  /// False when it stops at a NUL byte.
  bool Read();

  /// Of those that are not written yet, `written` is the place of their content.
  LargeArray<RewrittenPiece>& Pieces() { return pieces_; }
  /// An entry's text or a block's name, by its place.
  std::string_view Content(Span place) const;
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
  void KeepEntry(RewrittenPiece::Sort sort, std::string_view content);
  void Keep(RewrittenPiece::Sort sort, std::string_view content);
  Span PlaceOf(std::string_view content);
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
  LargeArray<RewrittenPiece> pieces_;
  LargeArray<ReadBlock> blocks_;
  std::string
      copies_;  ///< Contents that do not stand in the text side by side: places behind its end.
};

}  // namespace klepur::internal

#endif
