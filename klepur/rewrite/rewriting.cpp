#include <klepur/rewrite/rewriting.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include <klepur/framework/tree_links.h>
#include <klepur/rewrite/piece_reader.h>
#include <klepur/text/error.h>
#include <klepur/text/file_bytes.h>
#include <klepur/text/large_memory.h>

namespace klepur::internal {
namespace {

using Sort = RewrittenPiece::Sort;

/// Indentation is left out when what is written would be longer than so many times the text and a little.
constexpr std::size_t kMostGrowth = 16;
constexpr std::size_t kLittle = 65536;

/// Writes as DhcpParser does: of each block the header, the entries, the blocks in it, the end.
class PieceWriter {
 public:
  explicit PieceWriter(PieceReader& read)
      : read_(read),
        blocks_(read.Blocks()),
        places_(blocks_.size()),
        indents_(read.HasUnpairedQuotes()) {}

  Rewriting Write(std::size_t most) {
    Measure(most);
    memory_.Grow(size_ + kPadding, 0);
    WriteBlocks();
    for (RewrittenPiece& piece : read_.Pieces()) WritePiece(piece);
    return {TextBuffer(std::move(memory_), size_), std::move(read_.Pieces())};
  }

 private:
  /// A block's header and entries.
  struct Place {
    Span name;
    bool has_braces =
        false;  ///< Not so for what is named like the root section, wherever it stands.
    std::uint32_t tabs = 0;  ///< Of an entry.
    std::size_t header = 0;  ///< Where it begins.
    std::size_t next = 0;    ///< Where the next entry comes.
  };

  void Measure(std::size_t most) {
    for (const RewrittenPiece& piece : read_.Pieces()) {
      if (piece.sort != Sort::kHeader || piece.block == kOutside) continue;
      places_[piece.block].name = piece.written;
      places_[piece.block].has_braces = read_.Content(piece.written) != kRootName;
    }
    // The first child of a block is the next one.
    while (leftmost_levels_ + 1 < blocks_.size() &&
           blocks_[leftmost_levels_ + 1].parent == leftmost_levels_) {
      ++leftmost_levels_;
    }
    WriteBlocks();
    if (indents_ && size_ > most) {
      indents_ = false;
      WriteBlocks();
    }
    if (size_ > kMostBytes) throw Error(ErrorCode::kTooLarge, "the rewritten text reaches 4 GiB");
  }

  /// Finds where all is written, and writes headers and ends once there is memory.
  void WriteBlocks() {
    size_ = 0;
    depth_ = 0;
    BlockNumber open = kOutside;
    for (BlockNumber block = 0; block != blocks_.size(); ++block) {
      for (; open != blocks_[block].parent; open = blocks_[open].parent) WriteEnd(open);
      open = block;
      WriteHeader(block);
    }
    for (; open != kOutside; open = blocks_[open].parent) WriteEnd(open);
  }

  void WriteHeader(BlockNumber block) {
    Place& place = places_[block];
    place.header = size_;
    if (place.has_braces) {
      Put("\n", size_);
      PutLine(read_.Content(place.name));
      PutLine("{");
      ++depth_;
    } else {
      depth_ = 0;
    }
    place.tabs = indents_ ? depth_ : 0;
    place.next = size_;
    size_ += blocks_[block].entries_size + std::size_t{place.tabs} * blocks_[block].entries;
  }

  void WriteEnd(BlockNumber block) {
    if (!places_[block].has_braces) return;
    if (depth_ > 0) --depth_;
    if (depth_ == 0 && leftmost_levels_ != 1) Put("\n", size_);
    PutLine("}");
  }

  /// Writes an entry, and says where a piece is written.
  void WritePiece(RewrittenPiece& piece) {
    if (piece.block == kOutside) {
      piece.written = {};
      return;
    }
    Place& place = places_[piece.block];
    const std::size_t begin = piece.sort == Sort::kHeader ? place.header : place.next;
    if (piece.sort != Sort::kHeader) {
      if (piece.sort == Sort::kComment) Put("#", place.next);
      PutTabs(place.tabs, place.next);
      Put(read_.Content(piece.written), place.next);
      Put("\n", place.next);
    }
    piece.written = {static_cast<TextAddress>(begin), static_cast<TextAddress>(place.next)};
  }

  void PutLine(std::string_view line) {
    PutTabs(indents_ ? depth_ : 0, size_);
    Put(line, size_);
    Put("\n", size_);
  }

  void PutTabs(std::uint32_t count, std::size_t& at) {
    if (count != 0 && memory_.size() != 0) std::memset(memory_.data() + at, '\t', count);
    at += count;
  }

  void Put(std::string_view bytes, std::size_t& at) {
    if (!bytes.empty() && memory_.size() != 0) {
      std::memcpy(memory_.data() + at, bytes.data(), bytes.size());
    }
    at += bytes.size();
  }

  PieceReader& read_;
  const LargeArray<ReadBlock>& blocks_;
  std::vector<Place> places_;  ///< By block.
  bool indents_;
  BlockNumber leftmost_levels_ =
      0;  ///< How deep the blocks are that are each the first in the one around.
  std::uint32_t depth_ = 0;
  std::size_t size_ = 0;
  LargeMemory memory_;
};

}  // namespace

Rewriting Rewrite(std::string_view text) {
  PieceReader reader(text);
  const bool whole = reader.Read();
  Rewriting rewriting = PieceWriter(reader).Write(kMostGrowth * text.size() + kLittle);
  rewriting.stopped = !whole;
  return rewriting;
}

}  // namespace klepur::internal
