#include <klepur/text/large_memory.h>

#include <sys/mman.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <new>

namespace klepur::internal {
namespace {

/// The size of a huge page. Pages are moved at once, not each small page in them, from one multiple
/// of it to another.
constexpr std::size_t kHuge = std::size_t{2} << 20;

/// A multiple of the size of small pages, which is another one on other machines.
constexpr std::size_t kSmall = std::size_t{64} << 10;

/// A multiple of kSmall, not of kHuge: what is behind the last whole huge page takes small ones, of which
/// none is in memory that nothing was written to.
std::size_t PagesFor(std::size_t size) {
  if (size > std::numeric_limits<std::size_t>::max() / 2) throw std::bad_alloc();
  return (size + kSmall - 1) / kSmall * kSmall;
}

/// Pages at a multiple of kHuge.
char* MapPages(std::size_t size) {
  void* const mapped = ::mmap(nullptr, size + kHuge, PROT_READ | PROT_WRITE,
                              MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (mapped == MAP_FAILED) throw std::bad_alloc();
  char* const begin = static_cast<char*>(mapped);
  const std::size_t before = kHuge - reinterpret_cast<std::uintptr_t>(begin) % kHuge;
  ::munmap(begin, before);
  if (before != kHuge) ::munmap(begin + before + size, kHuge - before);
  ::madvise(begin + before, size, MADV_HUGEPAGE);  // a wish: without huge pages it is slower
  return begin + before;
}

/// Puts pages in the place of untouched ones.
void MovePages(char* from, std::size_t fromSize, char* to, std::size_t toSize) {
  if (::mremap(from, fromSize, toSize, MREMAP_MAYMOVE | MREMAP_FIXED, to) != MAP_FAILED) return;
  // The system may already have unmapped `to`, and another thread have mapped something there: it
  // must not be unmapped again. At worst, addresses are lost.
  throw std::bad_alloc();
}

void Free(char* data, std::size_t size) noexcept {
  if (size < LargeMemory::kLarge) {
    ::operator delete(data);
  } else {
    ::munmap(data, size);
  }
}

}  // namespace

LargeMemory::~LargeMemory() {
  if (data_ != nullptr) Free(data_, size_);
}

void LargeMemory::Grow(std::size_t size, std::size_t used) {
  if (size <= size_) return;
  const bool large = size >= kLarge;
  if (large) size = PagesFor(size);
  char* const data = large ? MapPages(size) : static_cast<char*>(::operator new(size));
  if (size_ >= kLarge) {
    MovePages(data_, size_, data, size);
  } else if (data_ != nullptr) {
    std::memcpy(data, data_, used);
    Free(data_, size_);
  }
  data_ = data;
  size_ = size;
}

}  // namespace klepur::internal
