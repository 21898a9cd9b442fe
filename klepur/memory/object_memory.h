// Internal: memory for the many small objects that a parse makes.
#ifndef KLEPUR_MEMORY_OBJECT_MEMORY_H
#define KLEPUR_MEMORY_OBJECT_MEMORY_H

#include <cstddef>
#include <memory>
#include <new>
#include <utility>

namespace klepur::internal {

struct Chunk;

/// Makes objects one behind the other in chunks of memory, which takes a third of the time of
/// making each in a block of its own. Where many are expected a chunk is a huge page, if the system
/// has any: to get one takes a fifth of the time that its bytes take in usual pages.
///
/// The memory of an object may be freed at any time and on any thread, with Free. A chunk is freed
/// with the last object in it; the one in which objects are made lives as long as this.
class ObjectMemory {
 public:
  ObjectMemory() noexcept = default;
  ObjectMemory(const ObjectMemory&) = delete;
  ObjectMemory& operator=(const ObjectMemory&) = delete;

  /// The objects live on.
  ~ObjectMemory();

  /// Objects of so many bytes, and perhaps more, will be made from now on and not be freed at once;
  /// 0 when that is not known. Nothing but time and memory depends on it.
  void Expect(std::size_t bytes) noexcept {
    expected_ = bytes;
    taken_ = 0;
  }

  /// Makes an object of a class derived from MadeAnywhere.
  template <class Object, class... Arguments>
  std::unique_ptr<Object> Make(Arguments&&... arguments) {
    static_assert(alignof(Object) <= kAlignment);
    void* const place = Take(sizeof(Object));
    try {
      return std::unique_ptr<Object>(::new (place) Object(std::forward<Arguments>(arguments)...));
    } catch (...) {
      Free(place);
      throw;
    }
  }

  /// Frees what Make or the global operator new gave for an object that is gone.
  static void Free(void* place) noexcept;

 private:
  static constexpr std::size_t kAlignment = alignof(void*);

  void* Take(std::size_t size);
  void BeginSegment();
  void BeginChunk();
  bool WantsPage() const noexcept;
  void LeaveChunk() noexcept;

  std::size_t expected_ = 0;    // how many bytes of objects
  std::size_t taken_ = 0;       // how many bytes of chunks since then
  Chunk* chunk_ = nullptr;      // the one in which objects are made
  std::size_t made_ = 0;        // how many in it
  char* next_ = nullptr;        // where the next one stands
  char* segmentEnd_ = nullptr;  // if it has room before this
  char* chunkEnd_ = nullptr;
};

}  // namespace klepur::internal

#endif
