#include "fuzz/memory_file.h"

#include <sys/mman.h>
#include <unistd.h>

#include "fuzz/require.h"

namespace klepur::fuzz {

MemoryFile::MemoryFile()
    : descriptor_(memfd_create("klepur-fuzz", MFD_CLOEXEC)),
      path_("/proc/self/fd/" + std::to_string(descriptor_)) {
  if (descriptor_ < 0) Fail("no file in memory can be made");
}

MemoryFile::~MemoryFile() {
  close(descriptor_);
}

void MemoryFile::Write(std::string_view text) {
  Require(ftruncate(descriptor_, 0) == 0, "a file in memory can be emptied");
  const ssize_t written = pwrite(descriptor_, text.data(), text.size(), 0);
  Require(written == static_cast<ssize_t>(text.size()), "a file in memory can be written");
}

std::string MemoryFile::Read() const {
  const off_t size = lseek(descriptor_, 0, SEEK_END);
  std::string text(static_cast<std::size_t>(size), '\0');
  const ssize_t read = pread(descriptor_, text.data(), text.size(), 0);
  Require(read == static_cast<ssize_t>(size), "a file in memory can be read");
  return text;
}

}  // namespace klepur::fuzz
