// Internal: the owner of an open file.
#ifndef KLEPUR_TEXT_DESCRIPTOR_H
#define KLEPUR_TEXT_DESCRIPTOR_H

#include <unistd.h>

#include <utility>

namespace klepur::internal {

/// Closes the file at its end; the reason of the call that was made last (errno) stays.
class Descriptor {
 public:
  Descriptor() noexcept = default;
  explicit Descriptor(int descriptor) noexcept : descriptor_(descriptor) {}
  Descriptor(Descriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    Descriptor taken(std::move(other));
    std::swap(descriptor_, taken.descriptor_);
    return *this;
  }
  ~Descriptor();

  bool IsOpen() const noexcept { return descriptor_ >= 0; }
  int Get() const noexcept { return descriptor_; }

 private:
  int descriptor_ = -1;
};

}  // namespace klepur::internal

#endif
