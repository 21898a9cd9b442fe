#include <klepur/memory/made_anywhere.h>
#include <klepur/memory/object_memory.h>

#include <atomic>
#include <cstdint>

// Objects stand in segments, which begin at multiples of their size, so that the address of an
// object leads to the chunk. Chunks are large, since blocks of that size are cheap to get and go
// back to the system; they are not aligned, since malloc makes little of aligned blocks that were
// freed.

namespace klepur::internal {

/// The beginning of a chunk.
struct Chunk {
  std::atomic<std::size_t> holds;  // objects alive in it; kMaker more while objects are made in it
};

namespace {

constexpr std::size_t kChunkSize = std::size_t{1} << 20;
constexpr std::size_t kSegmentSize = std::size_t{1} << 15;

/// More objects than a chunk has room for.
constexpr std::size_t kMaker = kChunkSize;

/// The beginning of a segment.
struct Segment {
  Chunk* chunk;
};

/// Objects stand this far behind a multiple of kStep, where MadeAnywhere's operator new gives none:
/// so the address tells where an object was made.
constexpr std::size_t kStep = MadeAnywhere::kStep;
constexpr std::size_t kOffset = sizeof(Segment);
static_assert(alignof(void*) <= kOffset);

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define __SANITIZE_ADDRESS__
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kUsesChunks = false;  // a block for each object, which the sanitizer watches
#else
constexpr bool kUsesChunks = __STDCPP_DEFAULT_NEW_ALIGNMENT__ >= kStep && kOffset < kStep;
#endif

std::uintptr_t AddressOf(const void* place) {
  return reinterpret_cast<std::uintptr_t>(place);
}

/// The chunk in which an object was made; null for an object that was made elsewhere.
Chunk* ChunkOf(void* place) {
  const std::uintptr_t address = AddressOf(place);
  if (!kUsesChunks || address % kStep != kOffset) return nullptr;
  return reinterpret_cast<Segment*>(static_cast<char*>(place) - address % kSegmentSize)->chunk;
}

/// The first place for a segment in a piece of memory.
char* SegmentPlace(char* begin) {
  return begin + (kSegmentSize - AddressOf(begin) % kSegmentSize) % kSegmentSize;
}

void Release(Chunk& chunk, std::size_t holds) noexcept {
  if (chunk.holds.fetch_sub(holds, std::memory_order_acq_rel) != holds) return;
  chunk.~Chunk();
  ::operator delete(&chunk);
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
  if (!kUsesChunks) return MadeAnywhere::operator new(size);
  const std::size_t room = (size + kStep - 1) / kStep * kStep;
  if (room > kSegmentSize - kStep) return MadeAnywhere::operator new(size);
  if (static_cast<std::size_t>(segmentEnd_ - next_) < room) BeginSegment();
  void* const place = next_;
  next_ += room;
  ++made_;
  return place;
}

/// Goes on to the next segment, in a new chunk when this one has no room for it.
void ObjectMemory::BeginSegment() {
  if (chunkEnd_ - segmentEnd_ < static_cast<std::ptrdiff_t>(kSegmentSize)) BeginChunk();
  ::new (segmentEnd_) Segment{chunk_};
  next_ = segmentEnd_ + kOffset;
  segmentEnd_ += kSegmentSize;
}

void ObjectMemory::BeginChunk() {
  auto* const memory = static_cast<char*>(::operator new(kChunkSize));
  LeaveChunk();
  chunk_ = ::new (memory) Chunk{kMaker};
  made_ = 0;
  segmentEnd_ = SegmentPlace(memory + sizeof(Chunk));
  chunkEnd_ = memory + kChunkSize;
}

/// From now on the chunk is held by its objects alone.
void ObjectMemory::LeaveChunk() noexcept {
  if (chunk_ != nullptr) Release(*chunk_, kMaker - made_);
}

}  // namespace klepur::internal
