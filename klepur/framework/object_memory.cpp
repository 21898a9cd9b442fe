#include <klepur/framework/object_memory.h>

#include <atomic>
#include <cstdint>

namespace klepur::internal {

/// The beginning of a chunk. It stands at a multiple of kChunkSize, so that any object in the chunk
/// leads to it.
struct Chunk {
  std::atomic<std::size_t> holds;  // objects alive in it; kMaker more while objects are made in it
};

namespace {

constexpr std::size_t kChunkSize = std::size_t{1} << 20;
constexpr std::align_val_t kChunkAlignment{kChunkSize};

/// More than a chunk has room for.
constexpr std::size_t kMaker = kChunkSize;

/// Objects stand this far behind a multiple of kStep, where the global operator new gives none: so
/// the address tells where an object was made.
constexpr std::size_t kOffset = sizeof(Chunk);
constexpr std::size_t kStep = 2 * kOffset;

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define __SANITIZE_ADDRESS__
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kUsesChunks = false;  // a block for each object, which the sanitizer watches
#else
constexpr bool kUsesChunks = __STDCPP_DEFAULT_NEW_ALIGNMENT__ >= kStep;
#endif

/// The chunk in which an object was made; null for an object that was made elsewhere.
Chunk* ChunkOf(void* place) {
  const auto address = reinterpret_cast<std::uintptr_t>(place);
  if (!kUsesChunks || address % kStep != kOffset) return nullptr;
  return reinterpret_cast<Chunk*>(static_cast<char*>(place) - address % kChunkSize);
}

void Release(Chunk& chunk, std::size_t holds) noexcept {
  if (chunk.holds.fetch_sub(holds, std::memory_order_acq_rel) != holds) return;
  chunk.~Chunk();
  ::operator delete(&chunk, kChunkAlignment);
}

}  // namespace

ObjectMemory::~ObjectMemory() {
  LeaveChunk();
}

void ObjectMemory::Free(void* place) noexcept {
  if (Chunk* const chunk = ChunkOf(place)) {
    Release(*chunk, 1);
  } else {
    ::operator delete(place);
  }
}

void* ObjectMemory::Take(std::size_t size) {
  if (!kUsesChunks) return ::operator new(size);
  const std::size_t room = (size + kStep - 1) / kStep * kStep;
  if (chunk_ == nullptr || kChunkSize - used_ < room) {
    void* const memory = ::operator new(kChunkSize, kChunkAlignment);
    LeaveChunk();
    chunk_ = ::new (memory) Chunk{kMaker};
    used_ = kOffset;
    made_ = 0;
  }
  void* const place = reinterpret_cast<char*>(chunk_) + used_;
  used_ += room;
  ++made_;
  return place;
}

/// From now on the chunk is held by its objects alone.
void ObjectMemory::LeaveChunk() noexcept {
  if (chunk_ != nullptr) Release(*chunk_, kMaker - made_);
  chunk_ = nullptr;
}

}  // namespace klepur::internal
