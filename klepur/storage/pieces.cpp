#include <klepur/storage/pieces.h>

#include <fcntl.h>
#include <sys/types.h>
#include <sys/uio.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <klepur/text/file_blocks.h>
#include <klepur/text/uninterrupted.h>

namespace klepur::internal {
namespace {

constexpr std::size_t kMostAtOnce = 256;              // pieces
constexpr std::size_t kSlice = std::size_t{8} << 20;  // bytes

/// The bytes of pieces, from the first to the last.
class Cursor {
 public:
  explicit Cursor(const std::vector<std::string_view>& pieces) : pieces_(pieces) {}

  bool AtEnd() const { return at_ == pieces_.size(); }
  /// What is left of the piece that comes next, and of those behind it as they are.
  std::string_view Piece(std::size_t behind) const {
    return behind == 0 ? pieces_[at_].substr(used_) : pieces_[at_ + behind];
  }
  std::size_t Left() const { return pieces_.size() - at_; }
  void Skip(std::size_t count) {
    while (count != 0) {
      const std::size_t step = std::min(count, pieces_[at_].size() - used_);
      count -= step;
      used_ += step;
      if (used_ != pieces_[at_].size()) continue;
      ++at_;
      used_ = 0;
    }
  }

 private:
  const std::vector<std::string_view>& pieces_;
  std::size_t at_ = 0;
  std::size_t used_ = 0;
};

/// The next pieces, up to a slice of them; how many.
std::size_t TakeSlice(const Cursor& cursor, std::array<iovec, kMostAtOnce>& parts) {
  std::size_t count = 0;
  for (std::size_t left = kSlice; count != std::min(parts.size(), cursor.Left()) && left != 0;
       ++count) {
    const std::string_view piece = cursor.Piece(count).substr(0, left);
    parts[count] = {const_cast<char*>(piece.data()), piece.size()};
    left -= piece.size();
  }
  return count;
}

/// Whether the bytes come next; the cursor is then behind them.
bool Takes(Cursor& cursor, std::string_view bytes) {
  while (!bytes.empty()) {
    if (cursor.AtEnd()) return false;
    const std::string_view piece = cursor.Piece(0).substr(0, bytes.size());
    if (std::memcmp(piece.data(), bytes.data(), piece.size()) != 0) return false;
    cursor.Skip(piece.size());
    bytes.remove_prefix(piece.size());
  }
  return true;
}

}  // namespace

Pieces::Pieces(std::string_view text) : size_(text.size()) {
  if (!text.empty()) pieces_.push_back(text);
}

Pieces::Pieces(const std::vector<std::string_view>& pieces) {
  pieces_.reserve(pieces.size());
  for (const std::string_view piece : pieces) {
    if (!piece.empty()) pieces_.push_back(piece);
    size_ += piece.size();
  }
}

bool Pieces::WriteTo(int file) const {
  Cursor cursor(pieces_);
  std::array<iovec, kMostAtOnce> parts;
  off_t offset = 0;
  off_t begun = 0;
  while (!cursor.AtEnd()) {
    const std::size_t count = TakeSlice(cursor, parts);
    const ssize_t written = Uninterrupted(
        [&] { return ::pwritev(file, parts.data(), static_cast<int>(count), offset); });
    if (written == 0) errno = EIO;
    if (written <= 0) return false;
    offset += written;
    cursor.Skip(static_cast<std::size_t>(written));
    if (offset - begun < static_cast<off_t>(kSlice)) continue;
    // The disk begins while the rest is written and read back; whether it can is not asked.
    ::sync_file_range(file, begun, offset - begun, SYNC_FILE_RANGE_WRITE);
    begun = offset;
  }
  return true;
}

std::optional<Pieces::Comparison> Pieces::CompareWith(int file) const {
  Cursor cursor(pieces_);
  FileBlocks blocks(file);
  Checksum sum;
  for (;;) {
    const std::optional<std::string_view> block = blocks.Next();
    if (!block) return std::nullopt;
    if (block->empty()) return Comparison{cursor.AtEnd(), sum.Value()};
    if (!Takes(cursor, *block)) return Comparison{};
    sum.Add(*block);
  }
}

}  // namespace klepur::internal
