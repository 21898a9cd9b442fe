#include "tests/faults/memory_fault.h"

#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::ptrdiff_t> blocks = 0;

struct Plan {
  bool armed = false;
  bool struck = false;
  bool again = false;  // every later allocation fails too
  std::size_t passing = 0;
};

thread_local Plan plan;

// The thread sanitizer itself calls mmap, before it is ready to watch what mmap does.
#define UNWATCHED __attribute__((no_sanitize_thread))

UNWATCHED bool Fails() {
  if (!plan.armed) return false;
  if (plan.struck) return plan.again;
  if (plan.passing-- != 0) return false;
  plan.struck = true;
  return true;
}

/// A block, counted; null when memory is out.
void* Allocate(std::size_t size) noexcept {
  void* const block = Fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (block != nullptr) ++blocks;
  return block;
}

void* Allocate(std::size_t size, std::align_val_t alignment) noexcept {
  const auto bytes = static_cast<std::size_t>(alignment);
  // aligned_alloc wants a multiple of the alignment.
  const std::size_t rounded = (size == 0 ? bytes : size + bytes - 1) / bytes * bytes;
  void* const block = Fails() ? nullptr : std::aligned_alloc(bytes, rounded);
  if (block != nullptr) ++blocks;
  return block;
}

void* OrThrow(void* block) {
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

/// Pages, which are not counted: they need not be given back as they were got.
UNWATCHED void* Pages(long answer) {
  return reinterpret_cast<void*>(answer);
}

UNWATCHED void* NoPages() {
  errno = ENOMEM;
  return MAP_FAILED;
}

void Free(void* block) noexcept {
  if (block != nullptr) --blocks;
  std::free(block);
}

}  // namespace

// ---- operator new, each form followed by that for arrays ----

void* operator new(std::size_t size) {
  return OrThrow(Allocate(size));
}

void* operator new[](std::size_t size) {
  return OrThrow(Allocate(size));
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return Allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return Allocate(size);
}

void* operator new(std::size_t size, std::align_val_t alignment) {
  return OrThrow(Allocate(size, alignment));
}

void* operator new[](std::size_t size, std::align_val_t alignment) {
  return OrThrow(Allocate(size, alignment));
}

void* operator new(std::size_t size, std::align_val_t alignment,
                   const std::nothrow_t& /*tag*/) noexcept {
  return Allocate(size, alignment);
}

void* operator new[](std::size_t size, std::align_val_t alignment,
                     const std::nothrow_t& /*tag*/) noexcept {
  return Allocate(size, alignment);
}

// ---- operator delete ----

void operator delete(void* block) noexcept {
  Free(block);
}

void operator delete[](void* block) noexcept {
  Free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
  Free(block);
}

void operator delete[](void* block, std::size_t /*size*/) noexcept {
  Free(block);
}

void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
  Free(block);
}

void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept {
  Free(block);
}

void operator delete(void* block, std::align_val_t /*alignment*/) noexcept {
  Free(block);
}

void operator delete[](void* block, std::align_val_t /*alignment*/) noexcept {
  Free(block);
}

void operator delete(void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  Free(block);
}

void operator delete[](void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  Free(block);
}

void operator delete(void* block, std::align_val_t /*alignment*/,
                     const std::nothrow_t& /*tag*/) noexcept {
  Free(block);
}

void operator delete[](void* block, std::align_val_t /*alignment*/,
                       const std::nothrow_t& /*tag*/) noexcept {
  Free(block);
}

// ---- pages ----

extern "C" {

UNWATCHED void* mmap(void* place, std::size_t size, int protection, int flags, int descriptor,
                     off_t offset) noexcept {
  if (Fails()) return NoPages();
  return Pages(syscall(SYS_mmap, place, size, protection, flags, descriptor, offset));
}

void* mremap(void* place, std::size_t size, std::size_t newSize, int flags, ...) noexcept {
  if (Fails()) return NoPages();
  va_list arguments;
  va_start(arguments, flags);
  void* const newPlace = (flags & MREMAP_FIXED) != 0 ? va_arg(arguments, void*) : nullptr;
  va_end(arguments);
  return Pages(syscall(SYS_mremap, place, size, newSize, flags, newPlace));
}

}  // extern "C"

namespace klepur::test {

MemoryFault::MemoryFault(std::size_t passing, Shortage shortage) {
  plan = {true, false, shortage == Shortage::kFromThenOn, passing};
}

MemoryFault::~MemoryFault() {
  plan.armed = false;
}

bool MemoryFault::Struck() const {
  return plan.struck;
}

std::ptrdiff_t BlocksInUse() {
  return blocks;
}

}  // namespace klepur::test
