#include <klepur/text/file_bytes.h>

#include <klepur/text/uninterrupted.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace klepur::internal {
namespace {

using Step = FileFailure::Step;

/// What is made room for when a file does not say how large it is.
constexpr std::size_t kUnknownSize = 4096 - kPadding;

class OpenFile {
 public:
  explicit OpenFile(const std::string& path)
      : descriptor_(
            Uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY); })) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (IsOpen()) ::close(descriptor_);
  }

  bool IsOpen() const { return descriptor_ >= 0; }
  int Descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

/// How many bytes a regular file has; 0 for others.
std::size_t SizeOf(int file) {
  struct stat status = {};
  if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) return 0;
  return static_cast<std::size_t>(status.st_size);
}

/// Room for twice the text that filled what there was, and for its padding.
std::size_t RoomBehind(std::size_t read, std::size_t expected) {
  if (read == 0 && expected != 0) return expected + kPadding;
  return std::max(2 * read, kUnknownSize) + kPadding;
}

}  // namespace

std::variant<TextBuffer, FileFailure> ReadFileBytes(const std::string& path, std::size_t most) {
  const OpenFile file(path);
  if (!file.IsOpen()) return FileFailure{Step::kOpen, errno};
  return ReadOpenFile(file.Descriptor(), most);
}

std::variant<TextBuffer, FileFailure> ReadOpenFile(int file, std::size_t most) {
  const std::size_t expected = SizeOf(file);
  if (expected > most) return FileFailure{Step::kRead, EFBIG};
  LargeMemory memory;
  std::size_t read = 0;
  for (;;) {
    // The end is found with what is left for the padding.
    if (read == memory.size()) memory.Grow(RoomBehind(read, expected), read);
    const ssize_t count =
        Uninterrupted([&] { return ::read(file, memory.data() + read, memory.size() - read); });
    if (count < 0) return FileFailure{Step::kRead, errno};
    if (count == 0) break;
    read += static_cast<std::size_t>(count);
    if (read > most) return FileFailure{Step::kRead, EFBIG};
  }
  memory.Grow(read + kPadding, read);
  return TextBuffer(std::move(memory), read);
}

}  // namespace klepur::internal
