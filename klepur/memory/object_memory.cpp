#include <klepur/memory/made_anywhere.h>
#include <klepur/memory/object_memory.h>

#include <sys/mman.h>

#include <atomic>
#include <cstdint>

// Objects stand in segments, which begin at multiples of their size, so that the address of an
// object leads to the chunk. Chunks are large, since blocks of that size are cheap to get and go
// back to the system. Those from operator new are not aligned, since malloc makes little of aligned
// blocks that were freed.

namespace klepur::internal {

/// What stands in front of the objects of a chunk.
struct Chunk {
  std::atomic<std::size_t> holds;  // objects alive in it; kMaker more while objects are made in it
  void* memory;                    // where it begins
  bool isPage;                     // a huge one, not from operator new
};

namespace {

constexpr std::size_t kChunkSize = std::size_t{1} << 20;
constexpr std::size_t kPageSize = std::size_t{1} << 21;  // of a huge page, on most machines
constexpr std::size_t kSegmentSize = std::size_t{1} << 15;

/// More objects than a chunk has room for.
constexpr std::size_t kMaker = kPageSize;

/// The beginning of a segment.
struct Segment {
  Chunk* chunk;
};

/// Objects stand this far behind a multiple of kStep, where MadeAnywhere's operator new gives none:
/// so the address tells where an object was made.
constexpr std::size_t kStep = MadeAnywhere::kStep;
constexpr std::size_t kOffset = sizeof(Segment);
constexpr std::size_t kFirstOffset = kOffset + (sizeof(Chunk) + kStep - 1) / kStep * kStep;
static_assert(alignof(Chunk) <= kOffset);

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

/// The first multiple of `step` in a piece of memory.
char* FirstMultiple(std::size_t step, char* begin) {
  return begin + (step - AddressOf(begin) % step) % step;
}

/// New memory that is a huge page if the system has one to give; null when there is no memory.
void* TakePage() noexcept {
  void* const room =
      ::mmap(nullptr, 2 * kPageSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (room == MAP_FAILED) return nullptr;
  auto* const begin = static_cast<char*>(room);
  char* const page = FirstMultiple(kPageSize, begin);
  if (page != begin) ::munmap(begin, static_cast<std::size_t>(page - begin));
  ::munmap(page + kPageSize, static_cast<std::size_t>(begin + kPageSize - page));
  ::madvise(page, kPageSize, MADV_HUGEPAGE);
  return page;
}

void Release(Chunk& chunk, std::size_t holds) noexcept {
  if (chunk.holds.fetch_sub(holds, std::memory_order_acq_rel) != holds) return;
  if (chunk.isPage) {
    ::munmap(chunk.memory, kPageSize);
  } else {
    ::operator delete(chunk.memory);
  }
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
  if (room > kSegmentSize - kFirstOffset) return MadeAnywhere::operator new(size);
  if (static_cast<std::size_t>(segmentEnd_ - next_) < room) BeginSegment();
  void* const place = next_;
  next_ += room;
  ++made_;
  return place;
}

/// Goes on to the next segment, in a new chunk when this one has no room for it.
void ObjectMemory::BeginSegment() {
  if (chunkEnd_ - segmentEnd_ < static_cast<std::ptrdiff_t>(kSegmentSize)) return BeginChunk();
  ::new (segmentEnd_) Segment{chunk_};
  next_ = segmentEnd_ + kOffset;
  segmentEnd_ += kSegmentSize;
}

/// Whether the next chunk is to be a huge page. Usual pages that objects do not reach cost nothing,
/// but of a huge one all is there at once. So one is wanted if it will be filled, or if it is little
/// beside what there is.
bool ObjectMemory::WantsPage() const noexcept {
  constexpr std::size_t kMuch = 32 * kPageSize;
  return expected_ != 0 && (taken_ + kPageSize <= expected_ || taken_ >= kMuch);
}

/// Begins a chunk with its first segment.
void ObjectMemory::BeginChunk() {
  void* memory = WantsPage() ? TakePage() : nullptr;
  const bool isPage = memory != nullptr;
  const std::size_t size = isPage ? kPageSize : kChunkSize;
  if (!isPage) memory = ::operator new(size);
  LeaveChunk();
  char* const segment = FirstMultiple(kSegmentSize, static_cast<char*>(memory));
  chunk_ = ::new (segment + kOffset) Chunk{kMaker, memory, isPage};
  ::new (segment) Segment{chunk_};
  made_ = 0;
  next_ = segment + kFirstOffset;
  segmentEnd_ = segment + kSegmentSize;
  chunkEnd_ = static_cast<char*>(memory) + size;
  taken_ += size;
}

/// From now on the chunk is held by its objects alone.
void ObjectMemory::LeaveChunk() noexcept {
  if (chunk_ != nullptr) Release(*chunk_, kMaker - made_);
}

}  // namespace klepur::internal
