// Internal: an array of records that grows at its end, to many megabytes or only to a few bytes.
#ifndef KLEPUR_TEXT_LARGE_ARRAY_H
#define KLEPUR_TEXT_LARGE_ARRAY_H

#include <klepur/text/large_memory.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <type_traits>
#include <utility>

namespace klepur::internal {

/// Records one behind the other, as std::vector holds them, but never two copies of a large array
/// while it grows, and no more memory than its records take and 2 MiB.
///
/// Adding a record may move all of them: references and pointers to records end with it. Whatever
/// needs memory throws std::bad_alloc when there is none, and leaves the array as it was.
template <class Record>
class LargeArray {
  static_assert(std::is_trivially_copyable_v<Record> && alignof(Record) <= 16);

 public:
  using Index = std::uint32_t;

  /// As many as an Index can count.
  static constexpr Index kMostRecords = std::numeric_limits<Index>::max();

  LargeArray() noexcept = default;
  LargeArray(LargeArray&& other) noexcept { Swap(other); }
  LargeArray& operator=(LargeArray&& other) noexcept {
    LargeArray taken(std::move(other));
    taken.Swap(*this);
    return *this;
  }

  Index size() const noexcept { return size_; }
  bool empty() const noexcept { return size_ == 0; }

  Record* data() noexcept { return records_; }
  const Record* data() const noexcept { return records_; }
  Record* begin() noexcept { return records_; }
  const Record* begin() const noexcept { return records_; }
  Record* end() noexcept { return records_ + size_; }
  const Record* end() const noexcept { return records_ + size_; }
  Record& operator[](Index index) noexcept { return records_[index]; }
  const Record& operator[](Index index) const noexcept { return records_[index]; }
  Record& back() noexcept { return records_[size_ - 1]; }
  const Record& back() const noexcept { return records_[size_ - 1]; }

  /// Adds a record behind the last one. kMostRecords are the most there can be; one more is
  /// std::bad_alloc. Cost: constant, in the long run.
  void push_back(Record record) {
    if (size_ == room_) Grow(std::size_t{size_} + 1);
    ::new (static_cast<void*>(records_ + size_)) Record(record);
    ++size_;
  }

  /// Takes addresses for so many records, which costs no memory when they are many: from
  /// LargeMemory::kLarge bytes on, only records that are added take any.
  void reserve(std::size_t records) {
    if (records > room_) Grow(records);
  }

  /// Removes the records from this one on.
  void truncate(Index size) noexcept { size_ = std::min(size_, size); }

 private:
  static constexpr std::size_t kFirst = 32;

  void Grow(std::size_t records) {
    if (records > kMostRecords) throw std::bad_alloc();
    const std::size_t room = std::max({records, 2 * std::size_t{room_}, kFirst});
    memory_.Grow(std::min<std::size_t>(room, kMostRecords) * sizeof(Record),
                 size_ * sizeof(Record));
    records_ = reinterpret_cast<Record*>(memory_.data());
    room_ =
        static_cast<Index>(std::min<std::size_t>(memory_.size() / sizeof(Record), kMostRecords));
  }

  void Swap(LargeArray& other) noexcept {
    std::swap(memory_, other.memory_);
    std::swap(records_, other.records_);
    std::swap(size_, other.size_);
    std::swap(room_, other.room_);
  }

  LargeMemory memory_;
  Record* records_ = nullptr;
  Index size_ = 0;
  Index room_ = 0;
};

}  // namespace klepur::internal

#endif
