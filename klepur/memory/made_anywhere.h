// Internal: how the objects are freed that a parse makes many at a time and callers make with new.
#ifndef KLEPUR_MEMORY_MADE_ANYWHERE_H
#define KLEPUR_MEMORY_MADE_ANYWHERE_H

#include <klepur/export.h>

#include <cstddef>
#include <new>

namespace klepur::internal {

/// A base of classes whose objects are deleted in the same way whether new or ObjectMemory made
/// them: with delete, not with ::delete. Of the forms of new, those of the standard are here.
struct KLEPUR_EXPORT MadeAnywhere {
  /// What new gives stands at a multiple of this.
  static constexpr std::size_t kStep = 16;

  static void* operator new(std::size_t size);
  static void* operator new(std::size_t size, std::align_val_t alignment);
  static void* operator new(std::size_t size, const std::nothrow_t& tag) noexcept;
  static void* operator new(std::size_t size, std::align_val_t alignment,
                            const std::nothrow_t& tag) noexcept;
  static void* operator new(std::size_t /*size*/, void* place) noexcept { return place; }

  static void operator delete(void* place) noexcept;
  static void operator delete(void* place, std::align_val_t alignment) noexcept;
  static void operator delete(void* place, const std::nothrow_t& tag) noexcept;
  static void operator delete(void* place, std::align_val_t alignment,
                              const std::nothrow_t& tag) noexcept;
  static void operator delete(void* /*object*/, void* /*place*/) noexcept {}
};

}  // namespace klepur::internal

#endif
