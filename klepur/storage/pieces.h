// Internal: a text in pieces, as it is written to a file.
#ifndef KLEPUR_STORAGE_PIECES_H
#define KLEPUR_STORAGE_PIECES_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace klepur::internal {

/// The pieces stand one behind the other in the text; none of them is empty.
class Pieces {
 public:
  explicit Pieces(std::string_view text);
  explicit Pieces(const std::vector<std::string_view>& pieces);

  std::uint64_t Size() const noexcept { return size_; }

  /// Writes all of them over the front of an open file; false when that failed, for the reason in errno.
  bool WriteTo(int file) const;

  /// Whether an open file holds this text and no more, and the checksum of its bytes if it does. Nothing
  /// when reading failed, for the reason in errno.
  struct Comparison {
    bool equal = false;
    std::uint64_t sum = 0;
  };
  std::optional<Comparison> CompareWith(int file) const;

 private:
  std::vector<std::string_view> pieces_;
  std::uint64_t size_ = 0;
};

}  // namespace klepur::internal

#endif
