#include <klepur/text/text_buffer.h>

#include <cstring>

namespace klepur::internal {
namespace {

LargeMemory CopyOf(std::string_view text) {
  LargeMemory memory;
  memory.Grow(text.size() + kPadding, 0);
  if (!text.empty()) std::memcpy(memory.data(), text.data(), text.size());
  return memory;
}

}  // namespace

TextBuffer::TextBuffer(std::string_view text) : TextBuffer(CopyOf(text), text.size()) {}

TextBuffer::TextBuffer(LargeMemory memory, std::size_t size) noexcept
    : memory_(std::move(memory)), size_(size) {
  std::memset(memory_.data() + size_, 0, kPadding);
}

}  // namespace klepur::internal
