#include <klepur/text/file_blocks.h>

#include <klepur/text/uninterrupted.h>

#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cstring>

namespace klepur::internal {
namespace {

/// Odd numbers whose bits look random.
constexpr std::uint64_t kFirst = 0x9e3779b97f4a7c15U;
constexpr std::uint64_t kSecond = 0xbf58476d1ce4e5b9U;

std::uint64_t Mixed(std::uint64_t sum, std::uint64_t word) noexcept {
  return std::rotl(sum + word * kFirst, 31) * kSecond;
}

}  // namespace

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
  std::array<std::uint64_t, 4> words = {};
  for (; block.size() >= sizeof words; block.remove_prefix(sizeof words)) {
    std::memcpy(words.data(), block.data(), sizeof words);
    for (std::size_t i = 0; i != words.size(); ++i) sums_[i] = Mixed(sums_[i], words[i]);
  }
  if (block.empty()) return;  // as all but the last block of a file
  words = {};
  std::memcpy(words.data(), block.data(), block.size());
  for (std::size_t i = 0; i != words.size(); ++i) sums_[i] = Mixed(sums_[i], words[i]);
  sums_[0] = Mixed(sums_[0], block.size());
}

std::uint64_t Checksum::Value() const noexcept {
  std::uint64_t value = 0;
  for (const std::uint64_t sum : sums_) value = Mixed(value, sum);
  return value;
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
