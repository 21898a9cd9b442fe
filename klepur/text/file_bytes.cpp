#include <klepur/text/file_bytes.h>

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

/// Calls again what a signal interrupts.
template <class Call>
auto Uninterrupted(Call call) {
  for (;;) {
    const auto result = call();
    if (result >= 0 || errno != EINTR) return result;
  }
}

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

  /// How many bytes a regular file has; 0 for others.
  std::size_t Size() const {
    struct stat status = {};
    if (::fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode)) return 0;
    return static_cast<std::size_t>(status.st_size);
  }

  /// How many bytes were read: 0 at the end, less than 0 when it failed.
  ssize_t Read(char* place, std::size_t room) const {
    return Uninterrupted([&] { return ::read(descriptor_, place, room); });
  }

 private:
  int descriptor_;
};

/// Room for twice the text that filled what there was, and for its padding.
std::size_t RoomBehind(std::size_t read, std::size_t expected) {
  if (read == 0 && expected != 0) return expected + kPadding;
  return std::max(2 * read, kUnknownSize) + kPadding;
}

}  // namespace

std::variant<TextBuffer, FileFailure> ReadFileBytes(const std::string& path, std::size_t most) {
  const OpenFile file(path);
  if (!file.IsOpen()) return FileFailure{Step::kOpen, errno};
  const std::size_t expected = file.Size();
  if (expected > most) return FileFailure{Step::kRead, EFBIG};
  LargeMemory memory;
  std::size_t read = 0;
  for (;;) {
    // The end is found with what is left for the padding.
    if (read == memory.size()) memory.Grow(RoomBehind(read, expected), read);
    const ssize_t count = file.Read(memory.data() + read, memory.size() - read);
    if (count < 0) return FileFailure{Step::kRead, errno};
    if (count == 0) break;
    read += static_cast<std::size_t>(count);
    if (read > most) return FileFailure{Step::kRead, EFBIG};
  }
  memory.Grow(read + kPadding, read);
  return TextBuffer(std::move(memory), read);
}

}  // namespace klepur::internal
