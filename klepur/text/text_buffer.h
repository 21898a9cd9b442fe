// Internal: a text of its own, with readable bytes behind it.
#ifndef KLEPUR_TEXT_TEXT_BUFFER_H
#define KLEPUR_TEXT_TEXT_BUFFER_H

#include <klepur/text/large_memory.h>
#include <klepur/text/padding.h>

#include <cstddef>
#include <string_view>
#include <utility>

namespace klepur::internal {

/// A text that does not change. kPadding bytes of 0 stand behind it.
class TextBuffer {
 public:
  /// An empty text, which takes no memory.
  TextBuffer() noexcept = default;

  /// A copy of this text. Throws std::bad_alloc when there is no memory for it.
  explicit TextBuffer(std::string_view text);

  /// The first `size` bytes of this memory, which must have room for kPadding more.
  TextBuffer(LargeMemory memory, std::size_t size) noexcept;

  /// What was moved from is empty.
  TextBuffer(TextBuffer&& other) noexcept
      : memory_(std::move(other.memory_)), size_(std::exchange(other.size_, 0)) {}
  TextBuffer& operator=(TextBuffer&& other) noexcept {
    memory_ = std::move(other.memory_);
    size_ = std::exchange(other.size_, 0);
    return *this;
  }

  /// Never null.
  const char* data() const noexcept { return memory_.size() == 0 ? kNothing : memory_.data(); }
  std::size_t size() const noexcept { return size_; }
  std::string_view view() const noexcept { return {data(), size_}; }

 private:
  static constexpr char kNothing[kPadding] = {};

  LargeMemory memory_;
  std::size_t size_ = 0;
};

}  // namespace klepur::internal

#endif
