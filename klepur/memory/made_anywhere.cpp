#include <klepur/memory/made_anywhere.h>
#include <klepur/memory/object_memory.h>

namespace klepur::internal {
namespace {

/// A block of such a size stands at a multiple of kStep, whatever allocator it comes from.
std::size_t RoundedUp(std::size_t size) {
  return (size + MadeAnywhere::kStep - 1) / MadeAnywhere::kStep * MadeAnywhere::kStep;
}

}  // namespace

void* MadeAnywhere::operator new(std::size_t size) {
  return ::operator new(RoundedUp(size));
}

void* MadeAnywhere::operator new(std::size_t size, std::align_val_t alignment) {
  return ::operator new(size, alignment);
}

void* MadeAnywhere::operator new(std::size_t size, const std::nothrow_t& tag) noexcept {
  return ::operator new(RoundedUp(size), tag);
}

void* MadeAnywhere::operator new(std::size_t size, std::align_val_t alignment,
                                 const std::nothrow_t& tag) noexcept {
  return ::operator new(size, alignment, tag);
}

void MadeAnywhere::operator delete(void* place) noexcept {
  ObjectMemory::Free(place);
}

void MadeAnywhere::operator delete(void* place, std::align_val_t alignment) noexcept {
  ::operator delete(place, alignment);
}

void MadeAnywhere::operator delete(void* place, const std::nothrow_t& tag) noexcept {
  ::operator delete(place, tag);
}

void MadeAnywhere::operator delete(void* place, std::align_val_t alignment,
                                   const std::nothrow_t& tag) noexcept {
  ::operator delete(place, alignment, tag);
}

}  // namespace klepur::internal
