#include <klepur/storage/file_lock.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <thread>
#include <utility>

#include <klepur/storage/failure.h>
#include <klepur/storage/target.h>
#include <klepur/text/uninterrupted.h>

namespace klepur::internal {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds kLongestPause{10};
constexpr std::chrono::hours kForever{24 * 365};

/// Looks again and again: there is no waiting for a lock with a time limit.
class Patience {
 public:
  explicit Patience(milliseconds limit)
      : end_(Clock::now() + std::min<milliseconds>(limit, kForever)) {}

  /// Waits a moment; false when the time is over.
  bool Wait() {
    if (Clock::now() >= end_) return false;
    std::this_thread::sleep_for(pause_);
    pause_ = std::min(2 * pause_, kLongestPause);
    return true;
  }

 private:
  Clock::time_point end_;
  milliseconds pause_{1};
};

void LockWithin(Patience& patience, Descriptor& file, const std::string& target,
                const std::string& path) {
  bool reopened = false;
  while (!LockNow(file.Get())) {
    if (errno == EBADF && !reopened) {  // NFS locks only what is open for writing
      file = OpenTarget(target, path, IfMissing::kFail, O_RDWR);
      reopened = true;
    } else if (errno != EWOULDBLOCK) {
      throw Failure(path, "lock the file");
    } else if (!patience.Wait()) {
      throw Error(ErrorCode::kLocked,
                  path + ": cannot lock the file: another saver holds its lock");
    }
  }
}

}  // namespace

bool LockNow(int file) noexcept {
  return Uninterrupted([&] { return ::flock(file, LOCK_EX | LOCK_NB); }) == 0;
}

bool Names(const std::string& path, int file) noexcept {
  struct stat named = {};
  struct stat opened = {};
  return ::stat(path.c_str(), &named) == 0 && ::fstat(file, &opened) == 0 &&
         named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
  if (this == &other) return *this;
  Release();
  file_ = std::move(other.file_);
  return *this;
}

FileLock::~FileLock() {
  Release();
}

/// Gives the lock up even where a child of the process has the file open too.
void FileLock::Release() noexcept {
  if (!IsHeld()) return;
  ::flock(file_.Get(), LOCK_UN);
  file_ = Descriptor();
}

FileLock FileLock::Of(const std::string& target, const std::string& path, milliseconds limit) {
  Patience patience(limit);
  do {
    Descriptor file = OpenTarget(target, path, IfMissing::kMake, O_RDONLY);
    if (!file.IsOpen()) return {};
    LockWithin(patience, file, target, path);
    FileLock lock(std::move(file));
    if (lock.IsHeldOf(target)) return lock;
  } while (patience.Wait());
  throw Error(ErrorCode::kLocked, path + ": cannot lock the file: it is replaced again and again");
}

bool FileLock::IsHeldOf(const std::string& target) const noexcept {
  return IsHeld() && Names(target, File());
}

}  // namespace klepur::internal
