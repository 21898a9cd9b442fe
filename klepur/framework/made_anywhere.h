// Internal: how the objects are freed that a parse makes many at a time and callers make with new.
#ifndef KLEPUR_FRAMEWORK_MADE_ANYWHERE_H
#define KLEPUR_FRAMEWORK_MADE_ANYWHERE_H

#include <klepur/export.h>

#include <cstddef>
#include <new>

namespace klepur::internal {

/// A base of classes whose objects are deleted in the same way whether new or ObjectMemory made
/// them. Every form of new takes the memory that it takes for any other class.
struct KLEPUR_EXPORT MadeAnywhere {
  static void* operator new(std::size_t size);
  static void* operator new(std::size_t size, std::align_val_t alignment);
  static void* operator new(std::size_t size, const std::nothrow_t& tag) noexcept;
  static void* operator new(std::size_t /*size*/, void* place) noexcept { return place; }

  static void operator delete(void* place) noexcept;
  static void operator delete(void* place, std::align_val_t alignment) noexcept;
  static void operator delete(void* place, const std::nothrow_t& tag) noexcept;
  static void operator delete(void* /*object*/, void* /*place*/) noexcept {}
};

}  // namespace klepur::internal

#endif
