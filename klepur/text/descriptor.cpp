#include <klepur/text/descriptor.h>

#include <fcntl.h>

#include <cerrno>

namespace klepur::internal {

Descriptor::~Descriptor() {
  if (!IsOpen()) return;
  const int reason = errno;
  ::close(descriptor_);
  errno = reason;
}

Descriptor Above(int lowest, Descriptor file) noexcept {
  if (!file.IsOpen() || file.Get() > lowest) return file;
  return Descriptor(::fcntl(file.Get(), F_DUPFD_CLOEXEC, lowest + 1));
}

}  // namespace klepur::internal
