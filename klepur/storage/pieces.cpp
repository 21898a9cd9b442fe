#include <klepur/storage/pieces.h>

#include <limits.h>
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

constexpr std::size_t kMostAtOnce = 256;  // pieces

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
  while (!cursor.AtEnd()) {
    const std::size_t count = std::min(parts.size(), cursor.Left());
    for (std::size_t i = 0; i != count; ++i) {
      const std::string_view piece = cursor.Piece(i);
      parts[i] = {const_cast<char*>(piece.data()), piece.size()};
    }
    const ssize_t written = Uninterrupted(
        [&] { return ::pwritev(file, parts.data(), static_cast<int>(count), offset); });
    if (written == 0) errno = EIO;
    if (written <= 0) return false;
    offset += written;
    cursor.Skip(static_cast<std::size_t>(written));
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
