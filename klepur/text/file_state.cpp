#include <klepur/text/file_state.h>

#include <fcntl.h>

#include <ctime>

#include <klepur/text/descriptor.h>
#include <klepur/text/file_blocks.h>
#include <klepur/text/uninterrupted.h>

namespace klepur::internal {
namespace {

constexpr time_t kSlowestTick = 2;  // seconds, as FAT has them

/// A file that goes on changing is taken as it was before the last look.
constexpr int kLooks = 10;

bool IsYoung(const struct stat& status) noexcept {
  timespec now = {};
  ::clock_gettime(CLOCK_REALTIME, &now);
  return now.tv_sec - status.st_ctim.tv_sec <= kSlowestTick;
}

bool AreSame(const timespec& left, const timespec& right) noexcept {
  return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

}  // namespace

bool AreAlike(const struct stat& left, const struct stat& right) noexcept {
  return left.st_dev == right.st_dev && left.st_ino == right.st_ino &&
         left.st_size == right.st_size && AreSame(left.st_mtim, right.st_mtim) &&
         AreSame(left.st_ctim, right.st_ctim);
}

std::optional<FileState> FileState::OfFile(int file) noexcept {
  FileState state;
  state.exists_ = true;
  for (int look = 0; look != kLooks; ++look) {
    if (::fstat(file, &state.status_) != 0) return std::nullopt;
    state.young_ = IsYoung(state.status_);
    if (!state.young_) return state;
    state.sum_ = Checksum::OfFile(file);
    struct stat after = {};
    if (!state.sum_ || ::fstat(file, &after) != 0) return std::nullopt;
    if (AreAlike(state.status_, after)) break;
  }
  return state;
}

FileState FileState::OfRead(const struct stat& status, std::uint64_t sum) noexcept {
  FileState state;
  state.exists_ = true;
  state.status_ = status;
  state.young_ = IsYoung(status);
  state.sum_ = sum;
  return state;
}

FileState FileState::OfPath(const std::string& path) noexcept {
  struct stat status = {};
  if (::stat(path.c_str(), &status) != 0) return {};
  if (!S_ISREG(status.st_mode) || !IsYoung(status)) {
    FileState state;
    state.exists_ = true;
    state.status_ = status;
    return state;
  }
  const int flags = O_RDONLY | O_CLOEXEC | O_NOCTTY;
  const Descriptor file(Uninterrupted([&] { return ::openat(AT_FDCWD, path.c_str(), flags); }));
  return file.IsOpen() ? OfFile(file.Get()).value_or(FileState()) : FileState();
}

std::optional<bool> FileState::IsThat(int file) const noexcept {
  struct stat now = {};
  if (::fstat(file, &now) != 0) return std::nullopt;
  if (!exists_ || now.st_size != status_.st_size) return false;
  if (!young_ && AreAlike(now, status_)) return true;
  if (!sum_) return false;
  const std::optional<std::uint64_t> sum = Checksum::OfFile(file);
  if (!sum) return std::nullopt;
  return *sum == *sum_;
}

}  // namespace klepur::internal
