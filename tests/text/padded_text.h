// Texts with what may be read behind them, and not a byte more.
#ifndef KLEPUR_TESTS_TEXT_PADDED_TEXT_H
#define KLEPUR_TESTS_TEXT_PADDED_TEXT_H

#include <klepur/text/padding.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstring>
#include <new>
#include <string>
#include <string_view>

#include "tests/random/chance.h"

namespace klepur::test {

/// A text whose padding ends where memory ends. The padding holds bytes that searches look for.
class PaddedText {
 public:
  explicit PaddedText(std::string_view text) : size_(text.size()) {
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    const std::size_t used = (size_ + internal::kPadding + page - 1) / page * page;
    mapped_ = used + page;
    void* const memory =
        ::mmap(nullptr, mapped_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    memory_ = static_cast<char*>(memory);
    ::mprotect(memory_ + used, page, PROT_NONE);
    begin_ = memory_ + used - internal::kPadding - size_;
    if (!text.empty()) std::memcpy(begin_, text.data(), size_);
    std::memset(begin_ + size_, ';', internal::kPadding);
  }
  PaddedText(const PaddedText&) = delete;
  PaddedText& operator=(const PaddedText&) = delete;
  ~PaddedText() { ::munmap(memory_, mapped_); }

  const char* begin() const { return begin_; }
  const char* end() const { return begin_ + size_; }

 private:
  std::size_t size_;
  std::size_t mapped_;
  char* memory_;
  char* begin_;
};

/// Bytes of these, where what stands first in them is the most frequent.
inline std::string RandomText(Chance& chance, std::size_t size, std::string_view bytes) {
  std::string text(size, '\0');
  for (char& byte : text) byte = bytes[chance.Below(1 + chance.Below(bytes.size()))];
  return text;
}

/// All bytes there are, from 0 on.
inline std::string EveryByte() {
  std::string bytes;
  for (int byte = 0; byte != 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

}  // namespace klepur::test

#endif
