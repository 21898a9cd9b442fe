// Internal: the bytes of an open file, block by block, and their checksum.
#ifndef KLEPUR_TEXT_FILE_BLOCKS_H
#define KLEPUR_TEXT_FILE_BLOCKS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace klepur::internal {

/// Reads a file from its first byte to its end, wherever it stands. The blocks have kSize bytes each, but for
/// the last one.
class FileBlocks {
 public:
  static constexpr std::size_t kSize = std::size_t{16} << 10;

  explicit FileBlocks(int file) noexcept : file_(file) {}

  /// The next block, good until the next call; empty at the end; nothing when reading failed, for the
  /// reason in errno.
  std::optional<std::string_view> Next() noexcept;

 private:
  int file_;
  std::uint64_t offset_ = 0;
  std::array<char, kSize> bytes_;
};

/// A checksum of 64 bits of texts that come in blocks as FileBlocks has them.
class Checksum {
 public:
  void Add(std::string_view block) noexcept;
  std::uint64_t Value() const noexcept;

  /// That of a text that stands in memory.
  static std::uint64_t Of(std::string_view text) noexcept;
  /// That of a file; nothing when reading failed, for the reason in errno.
  static std::optional<std::uint64_t> OfFile(int file) noexcept;

 private:
  // Four sums of every fourth word each, which a processor works on at once.
  std::array<std::uint64_t, 4> sums_ = {1, 2, 3, 4};
};

}  // namespace klepur::internal

#endif
