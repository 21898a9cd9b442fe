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

/// The same open file under a number above `lowest`. Not open when that failed, or it was not, for the reason in
/// errno.
///
/// A file must not be open where a standard stream was closed: what somebody prints would get into it.
Descriptor Above(int lowest, Descriptor file) noexcept;

}  // namespace klepur::internal

#endif
