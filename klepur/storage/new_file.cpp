#include <klepur/storage/new_file.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <utility>

#include <klepur/storage/failure.h>
#include <klepur/storage/file_lock.h>
#include <klepur/storage/strays.h>
#include <klepur/storage/target.h>
#include <klepur/text/file_blocks.h>
#include <klepur/text/uninterrupted.h>

namespace klepur::internal {
namespace {

constexpr int kTries = 100;

bool WriteAll(int file, std::string_view bytes, off_t offset) {
  while (!bytes.empty()) {
    const ssize_t written =
        Uninterrupted([&] { return ::pwrite(file, bytes.data(), bytes.size(), offset); });
    if (written == 0) errno = EIO;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
    offset += written;
  }
  return true;
}

}  // namespace

NewFile::NewFile(const std::string& target, const std::string& path, mode_t mode, bool locked)
    : path_(path) {
  for (int tries = 0; tries != kTries; ++tries) {
    if (!Make(target, mode)) {
      if (errno == EEXIST) continue;
      throw FailureToReplace(path, "make a file beside it");
    }
    if (!locked) return;
    const bool have = LockNow(file_.Get());
    const int reason = errno;
    if (have && IsThere()) return;
    // Another saver took it for one that was left behind, before it was locked.
    Remove();
    if (!have && reason != EWOULDBLOCK) {
      throw Failure(ErrorCode::kFile, path, "lock the file beside it", reason);
    }
  }
  throw Failure(ErrorCode::kFile, path, "make a file beside it", EEXIST);
}

NewFile::~NewFile() {
  Remove();
}

bool NewFile::Make(const std::string& target, mode_t mode) {
  std::string name = StrayNameFor(target);
  Descriptor made(Uninterrupted(
      [&] { return ::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode); }));
  if (!made.IsOpen()) return false;
  name_ = std::move(name);
  file_ = Above(STDERR_FILENO, std::move(made));
  if (file_.IsOpen()) return true;
  const int reason = errno;
  Remove();
  errno = reason;
  return false;
}

bool NewFile::IsThere() const noexcept {
  struct stat status = {};
  return ::fstat(file_.Get(), &status) == 0 && status.st_nlink != 0;
}

void NewFile::Remove() noexcept {
  if (name_.empty()) return;
  Uninterrupted([&] { return ::unlink(name_.c_str()); });
  name_.clear();
  file_ = Descriptor();
}

std::uint64_t NewFile::Write(const Pieces& text) {
  if (!text.WriteTo(file_.Get())) throw Failure(path_, "write the file beside it");
  const auto comparison = text.CompareWith(file_.Get());
  if (!comparison) throw Failure(path_, "read the file beside it");
  if (comparison->equal) return comparison->sum;
  throw Error(
      ErrorCode::kFile,
      path_ + ": cannot write the file beside it: what is read there is not what was written");
}

void NewFile::RequireStill(const Pieces& text) const {
  const auto comparison = text.CompareWith(file_.Get());
  if (!comparison) throw Failure(path_, "read the file beside it");
  if (comparison->equal && Names(name_, file_.Get())) return;
  throw Error(ErrorCode::kFile,
              path_ + ": cannot use the file beside it: somebody else changed it meanwhile");
}

void NewFile::WriteCopyOf(int file) {
  FileBlocks blocks(file);
  off_t offset = 0;
  for (;;) {
    const std::optional<std::string_view> block = blocks.Next();
    if (!block) throw Failure(path_, "read what is copied");
    if (block->empty()) break;
    if (!WriteAll(file_.Get(), *block, offset)) throw Failure(path_, "write the file beside it");
    offset += static_cast<off_t>(block->size());
  }
  const auto sum = Checksum::OfFile(file);
  if (!sum) throw Failure(path_, "read what is copied");
  const auto copied = Checksum::OfFile(file_.Get());
  if (!copied) throw Failure(path_, "read the file beside it");
  if (*sum == *copied) return;
  throw Error(
      ErrorCode::kFile,
      path_ + ": cannot write the file beside it: what is read there is not what was copied");
}

void NewFile::Flush() const {
  if (Uninterrupted([&] { return ::fsync(file_.Get()); }) != 0) {
    throw Failure(path_, "flush the file beside it");
  }
}

void NewFile::Replace(const std::string& target) {
  if (Uninterrupted([&] { return ::rename(name_.c_str(), target.c_str()); }) != 0) {
    throw FailureToReplace(path_, "replace the file");
  }
  name_.clear();
}

void NewFile::BecomeNew(const std::string& target) {
  if (Name(target)) {
    name_.clear();
    return;
  }
  if (errno == EEXIST) {
    throw Error(ErrorCode::kChanged, path_ + ": cannot make the file: somebody else made it");
  }
  throw Failure(path_, "make the file");
}

bool NewFile::Name(const std::string& target) const {
  const auto moved = [&] {
    return ::renameat2(AT_FDCWD, name_.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE);
  };
  if (Uninterrupted(moved) == 0) return true;
  const bool unknown = errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP;
  if (!unknown) return false;
  if (Uninterrupted([&] { return ::link(name_.c_str(), target.c_str()); }) == 0) {
    Uninterrupted([&] { return ::unlink(name_.c_str()); });
    return true;
  }
  const bool no_links = errno == EPERM || errno == ENOSYS || errno == EOPNOTSUPP;
  if (!no_links) return false;
  // FAT behind FUSE: nothing is left but to look first.
  struct stat status = {};
  if (::lstat(target.c_str(), &status) == 0) {
    errno = EEXIST;
    return false;
  }
  return errno == ENOENT &&
         Uninterrupted([&] { return ::rename(name_.c_str(), target.c_str()); }) == 0;
}

Folder::Folder(const std::string& target)
    : file_(Uninterrupted(
          [&] { return ::open(FolderOf(target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); })),
      reason_(errno) {}

std::string Folder::Flush(const std::string& path) const {
  if (file_.IsOpen() && Uninterrupted([&] { return ::fsync(file_.Get()); }) == 0) return {};
  const int reason = file_.IsOpen() ? errno : reason_;
  try {
    return Failure(ErrorCode::kFile, path, "flush its folder", reason).what();
  } catch (const std::bad_alloc&) {
    return "not flushed";  // what was done is done: too short a text to need memory
  }
}

}  // namespace klepur::internal
