#include <klepur/text/descriptor.h>

#include <cerrno>

namespace klepur::internal {

Descriptor::~Descriptor() {
  if (!IsOpen()) return;
  const int reason = errno;
  ::close(descriptor_);
  errno = reason;
}

}  // namespace klepur::internal
