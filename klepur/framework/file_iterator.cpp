#include <klepur/framework/file_iterator.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace {

constexpr int kClosed = -1;

[[noreturn]] void ThrowReason(int reason) {
  throw std::system_error(std::error_code(reason, std::generic_category()));
}

int OpenForReading(const char* path) {
  if (path == nullptr) ThrowReason(ENOENT);
  const int descriptor = ::open(path, O_RDONLY | O_CLOEXEC);
  if (descriptor == kClosed) ThrowReason(errno);
  return descriptor;
}

}  // namespace

FileIterator::FileIterator(const char* path) : descriptor_(OpenForReading(path)), size_(0) {
  struct stat status = {};
  if (::fstat(descriptor_, &status) != 0) return;
  if (S_ISDIR(status.st_mode)) {
    FileIterator::CloseFile();
    ThrowReason(EISDIR);
  }
  if (S_ISREG(status.st_mode)) size_ = static_cast<std::size_t>(status.st_size);
}

FileIterator::~FileIterator() {
  FileIterator::CloseFile();
}

std::size_t FileIterator::Read(char* buffer, std::size_t size) {
  if (descriptor_ == kClosed) return 0;
  for (;;) {
    const ssize_t count = ::read(descriptor_, buffer, size);
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) ThrowReason(errno);
  }
}

void FileIterator::CloseFile() {
  if (descriptor_ == kClosed) return;
  ::close(descriptor_);
  descriptor_ = kClosed;
}
