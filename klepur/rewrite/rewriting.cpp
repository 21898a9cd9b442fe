#include <klepur/rewrite/rewriting.h>

#include <algorithm>
#include <cstddef>
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

constexpr std::string_view kBeforeName = "\n";
constexpr std::string_view kBehindName = "\n{\n";
constexpr std::string_view kBlockEnd = "}\n";

/// What is named like the root section, wherever it stands, is written without its name and braces.
bool HasBraces(const ReadBlock& block) {
  return block.name != kRootName;
}

std::size_t HeaderSize(const ReadBlock& block) {
  return HasBraces(block) ? kBeforeName.size() + block.name.size() + kBehindName.size() : 0;
}

/// How many bytes an entry takes.
std::size_t EntrySize(const ReadPiece& piece) {
  return (piece.sort == Sort::kComment ? 1 : 0) + piece.content.size() + 1;
}

/// Writes as DhcpParser does: of each block the header, the entries, the blocks in it, the end.
class PieceWriter {
 public:
  explicit PieceWriter(const PieceReader& read)
      : pieces_(read.Pieces()), blocks_(read.Blocks()), entries_(blocks_.size(), 0) {}

  Rewriting Write() {
    memory_.Grow(Measure() + kPadding, 0);
    WriteBlocks();
    Rewriting result;
    WriteEntries(result.pieces);
    result.text = TextBuffer(std::move(memory_), size_);
    return result;
  }

 private:
  /// How many bytes there will be; and in each block's entries.
  std::size_t Measure() {
    for (const ReadPiece& piece : pieces_) {
      if (piece.block == kOutside || piece.sort == Sort::kHeader) continue;
      entries_[piece.block] += EntrySize(piece);
      size_ += EntrySize(piece);
    }
    for (const ReadBlock& block : blocks_) {
      size_ += HeaderSize(block) + (HasBraces(block) ? kBlockEnd.size() : 0);
    }
    if (size_ > kMostBytes) throw Error(ErrorCode::kTooLarge, "the rewritten text reaches 4 GiB");
    return size_;
  }

  /// Writes headers and ends, and finds where the entries of each block begin.
  void WriteBlocks() {
    BlockNumber open = kOutside;
    for (BlockNumber block = 0; block != blocks_.size(); ++block) {
      for (; open != blocks_[block].parent; open = blocks_[open].parent) WriteEnd(open);
      open = block;
      WriteHeader(blocks_[block]);
      end_ += std::exchange(entries_[block], end_);
    }
    for (; open != kOutside; open = blocks_[open].parent) WriteEnd(open);
  }

  void WriteHeader(const ReadBlock& block) {
    if (!HasBraces(block)) return;
    Put(kBeforeName, end_);
    Put(block.name, end_);
    Put(kBehindName, end_);
  }

  void WriteEnd(BlockNumber block) {
    if (HasBraces(blocks_[block])) Put(kBlockEnd, end_);
  }

  void WriteEntries(LargeArray<RewrittenPiece>& pieces) {
    pieces.reserve(pieces_.size());
    for (const ReadPiece& piece : pieces_) {
      pieces.push_back({piece.source, WrittenPlace(piece), piece.sort});
    }
  }

  /// Where a piece is written. An entry is written now.
  Span WrittenPlace(const ReadPiece& piece) {
    if (piece.block == kOutside) return {};
    std::size_t& place = entries_[piece.block];
    std::size_t begin = place;
    if (piece.sort == Sort::kHeader) {
      begin -= HeaderSize(blocks_[piece.block]);
    } else {
      if (piece.sort == Sort::kComment) Put("#", place);
      Put(piece.content, place);
      Put("\n", place);
    }
    return {static_cast<TextAddress>(begin), static_cast<TextAddress>(place)};
  }

  void Put(std::string_view bytes, std::size_t& place) {
    bytes.copy(memory_.data() + place, bytes.size());
    place += bytes.size();
  }

  const LargeArray<ReadPiece>& pieces_;
  const LargeArray<ReadBlock>& blocks_;
  std::vector<std::size_t> entries_;  ///< By block: the size, then the place of those not written.
  std::size_t size_ = 0;
  std::size_t end_ = 0;  ///< Of the headers and ends that are written.
  LargeMemory memory_;
};

}  // namespace

Rewriting Rewrite(std::string_view text) {
  PieceReader reader(text);
  const bool whole = reader.Read();
  Rewriting rewriting = PieceWriter(reader).Write();
  rewriting.stopped = !whole;
  return rewriting;
}

}  // namespace klepur::internal
