#include <klepur/text/byte_block.h>
#include <klepur/text/line_count.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace klepur::internal {
namespace {

/// The offset behind the LF in a text that has this many before it; npos when it has no more.
std::size_t BehindLineEnd(std::string_view text, std::size_t before) {
  std::size_t behind = 0;
  do {
    const std::size_t at = text.find('\n', behind);
    if (at == text.npos) return text.npos;
    behind = at + 1;
  } while (before-- != 0);
  return behind;
}

}  // namespace

std::size_t CountLineEndsPlainly(std::string_view text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

#if defined(KLEPUR_BYTE_BLOCK)
std::size_t CountLineEnds(std::string_view text) {
  constexpr std::size_t kBlock = ByteBlock::kSize;
  std::size_t count = 0;
  const std::size_t inBlocks = text.size() / kBlock * kBlock;
  for (std::size_t at = 0; at != inBlocks;) {
    const std::size_t end = std::min(inBlocks, at + ByteBlock::kMostCounted * kBlock);
    ByteBlock counts = ByteBlock::Of('\0');
    for (; at != end; at += kBlock) counts.CountIn(ByteBlock(text.data() + at).Are('\n'));
    count += counts.Sum();
  }
  return count + CountLineEndsPlainly(text.substr(inBlocks));
}
#else
std::size_t CountLineEnds(std::string_view text) {
  return CountLineEndsPlainly(text);
}
#endif

std::size_t LineCount::NewlinesBefore(std::size_t offset) const {
  const std::size_t piece = offset / kPiece;
  return Counts()[piece] + CountIn(piece * kPiece, offset);
}

std::size_t LineCount::NewlinesIn(std::size_t from, std::size_t to) const {
  if (to - from <= 2 * kPiece) return CountIn(from, to);
  return NewlinesBefore(to) - NewlinesBefore(from);
}

std::size_t LineCount::OffsetOfLine(std::size_t linesBefore) const {
  if (linesBefore == 0) return 0;
  // The last piece with fewer LF before it than the line has.
  const std::vector<std::uint32_t>& counts = Counts();
  const auto piece = std::prev(std::lower_bound(counts.begin(), counts.end(), linesBefore));
  const std::size_t begin = static_cast<std::size_t>(piece - counts.begin()) * kPiece;
  const std::size_t behind = BehindLineEnd(text_.substr(begin, kPiece), linesBefore - *piece - 1);
  return behind == text_.npos ? text_.size() : begin + behind;
}

const std::vector<std::uint32_t>& LineCount::Counts() const {
  const std::lock_guard<std::mutex> lock(counting_);
  if (!counts_.empty()) return counts_;
  std::vector<std::uint32_t> counts;
  counts.reserve(text_.size() / kPiece + 1);
  counts.push_back(0);
  for (std::size_t end = kPiece; end <= text_.size(); end += kPiece) {
    counts.push_back(counts.back() + static_cast<std::uint32_t>(CountIn(end - kPiece, end)));
  }
  counts_ = std::move(counts);
  return counts_;
}

std::size_t LineCount::CountIn(std::size_t from, std::size_t to) const {
  return CountLineEnds(text_.substr(from, to - from));
}

}  // namespace klepur::internal
