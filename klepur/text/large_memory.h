// Internal: a piece of memory that grows without moving its bytes when it is large.
#ifndef KLEPUR_TEXT_LARGE_MEMORY_H
#define KLEPUR_TEXT_LARGE_MEMORY_H

#include <cstddef>
#include <utility>

namespace klepur::internal {

/// Bytes of its own, at an address that is a multiple of 16.
///
/// Less than kLarge bytes come from operator new. More stand in pages of their own, huge ones where
/// the system has them: only what was written to takes memory, rounded up to 2 MiB, so a size much
/// larger than what is needed costs nothing; and growing moves the pages, not the bytes.
class LargeMemory {
 public:
  /// The size from which on memory is large.
  static constexpr std::size_t kLarge = std::size_t{1} << 20;

  LargeMemory() noexcept = default;
  LargeMemory(LargeMemory&& other) noexcept { Swap(other); }
  LargeMemory& operator=(LargeMemory&& other) noexcept {
    LargeMemory taken(std::move(other));
    taken.Swap(*this);
    return *this;
  }
  ~LargeMemory();

  /// Null while the size is 0.
  char* data() const noexcept { return data_; }
  std::size_t size() const noexcept { return size_; }

  /// Makes the size at least this; never less than it is. The first `used` bytes keep their values,
  /// at another address; the others have any.
  ///
  /// Throws std::bad_alloc when there is not so much memory, and changes nothing. Cost: a copy of
  /// `used` bytes while the size is less than kLarge, and of the page tables from then on.
  void Grow(std::size_t size, std::size_t used);

 private:
  void Swap(LargeMemory& other) noexcept {
    std::swap(data_, other.data_);
    std::swap(size_, other.size_);
  }

  char* data_ = nullptr;
  std::size_t size_ = 0;
};

}  // namespace klepur::internal

#endif
