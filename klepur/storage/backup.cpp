#include <klepur/storage/backup.h>

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>
#include <utility>

#include <klepur/storage/attributes.h>
#include <klepur/storage/failure.h>
#include <klepur/storage/file_lock.h>
#include <klepur/storage/strays.h>
#include <klepur/storage/target.h>

namespace klepur::internal {
namespace {

constexpr int kMostOfASecond = 10000;

/// Whether a name is surely free.
bool IsFree(const std::string& path) {
  struct stat status = {};
  return ::lstat(path.c_str(), &status) != 0 && errno == ENOENT;
}

/// A copy would take the place of a device or a pipe.
bool IsNoRegularFile(const std::string& path) {
  struct stat status = {};
  return ::lstat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

/// "20240517T081500Z"
std::string Now() {
  const time_t seconds = ::time(nullptr);
  tm parts = {};
  ::gmtime_r(&seconds, &parts);
  std::array<char, 32> text = {};
  const std::size_t size = std::strftime(text.data(), text.size(), "%Y%m%dT%H%M%SZ", &parts);
  return {text.data(), size};
}

std::string FreeNameFor(const std::string& target) {
  const std::string name = target + "." + Now();
  std::string free = name;
  for (int number = 2; number != kMostOfASecond && !IsFree(free); ++number) {
    free = name + "-" + std::to_string(number);
  }
  return free;
}

}  // namespace

Backup::Backup(int file, const std::string& target, const std::string& path,
               const std::string& name, bool locked)
    : path_(name.empty() ? FreeNameFor(target) : TargetOf(name, IfMissing::kMake)) {
  fresh_ = IsFree(path_);
  if (path_ == target || Names(path_, file)) {
    throw Error(ErrorCode::kFile, path + ": cannot make a backup: it would be the file itself");
  }
  if (IsNoRegularFile(path_)) {
    throw Error(ErrorCode::kFile,
                path + ": cannot make a backup: " + path_ + " is no regular file");
  }
  // A copy that is left behind is found again beside the file, or else by the name of the backup.
  const bool beside = FolderOf(path_) == FolderOf(target);
  const std::string& known = beside ? target : path_;
  if (locked && !beside) RemoveStrays(known);
  try {
    copy_ = std::make_unique<NewFile>(known, path_, 0600, locked);
    Attributes(file, path).OfferTo(copy_->File());
    copy_->WriteCopyOf(file);
    copy_->Flush();
  } catch (const Error& error) {
    // A backup that cannot be made says nothing of whether the file can be replaced.
    throw Error(ErrorCode::kFile, path + ": cannot make a backup: " + error.what());
  }
  folder_.emplace(path_);
}

Backup::~Backup() {
  if (named_ && fresh_) ::unlink(path_.c_str());
}

void Backup::Name() {
  if (!copy_) return;
  try {
    copy_->Replace(path_);
  } catch (const Error& error) {
    throw Error(ErrorCode::kFile, std::string("cannot make a backup: ") + error.what());
  }
  named_ = true;
  const std::string warning = folder_->Flush(path_);
  if (!warning.empty()) throw Error(ErrorCode::kFile, "cannot make a backup: " + warning);
}

std::string Backup::Keep() noexcept {
  named_ = false;
  return std::move(path_);
}

}  // namespace klepur::internal
