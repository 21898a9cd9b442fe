#include <klepur/framework/made_anywhere.h>
#include <klepur/framework/object_memory.h>

namespace klepur::internal {

void* MadeAnywhere::operator new(std::size_t size) {
  return ::operator new(size);
}

void* MadeAnywhere::operator new(std::size_t size, std::align_val_t alignment) {
  return ::operator new(size, alignment);
}

void* MadeAnywhere::operator new(std::size_t size, const std::nothrow_t& tag) noexcept {
  return ::operator new(size, tag);
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

}  // namespace klepur::internal
