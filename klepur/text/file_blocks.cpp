#include <klepur/text/file_blocks.h>

#include <klepur/text/uninterrupted.h>

#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <functional>

namespace klepur::internal {

std::optional<std::string_view> FileBlocks::Next() noexcept {
  std::size_t read = 0;
  while (read != bytes_.size()) {
    const ssize_t count = Uninterrupted([&] {
      return ::pread(file_, bytes_.data() + read, bytes_.size() - read,
                     static_cast<off_t>(offset_ + read));
    });
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    read += static_cast<std::size_t>(count);
  }
  offset_ += read;
  return std::string_view(bytes_.data(), read);
}

void Checksum::Add(std::string_view block) noexcept {
  if (block.empty()) return;
  const std::uint64_t sum = std::hash<std::string_view>{}(block);
  value_ = (((value_ << 5) | (value_ >> 59)) ^ sum) * 0x9e3779b97f4a7c15U;
}

std::uint64_t Checksum::Of(std::string_view text) noexcept {
  Checksum sum;
  for (; !text.empty(); text.remove_prefix(std::min(text.size(), FileBlocks::kSize))) {
    sum.Add(text.substr(0, FileBlocks::kSize));
  }
  return sum.Value();
}

std::optional<std::uint64_t> Checksum::OfFile(int file) noexcept {
  Checksum sum;
  FileBlocks blocks(file);
  for (;;) {
    const std::optional<std::string_view> block = blocks.Next();
    if (!block) return std::nullopt;
    if (block->empty()) return sum.Value();
    sum.Add(*block);
  }
}

}  // namespace klepur::internal
