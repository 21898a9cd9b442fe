#include <klepur/storage/target.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>

#include <klepur/storage/failure.h>
#include <klepur/text/uninterrupted.h>

namespace klepur::internal {
namespace {

struct Free {
  void operator()(char* memory) const { ::free(memory); }
};

/// Empty when it cannot be found, for the reason in errno.
std::string RealPath(const std::string& path) {
  const std::unique_ptr<char, Free> real(::realpath(path.c_str(), nullptr));
  return real ? std::string(real.get()) : std::string();
}

bool IsLink(const std::string& path) {
  struct stat status = {};
  return ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

}  // namespace

std::string FolderOf(const std::string& target) {
  const std::size_t slash = target.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : target.substr(0, slash);
}

std::string NameOf(const std::string& target) {
  return target.substr(target.rfind('/') + 1);
}

std::string TargetOf(const std::string& path, IfMissing missing) {
  std::string real = RealPath(path);
  if (!real.empty()) return real;
  const int reason = errno;
  const std::string name = NameOf(path);
  const bool can_be_made = missing == IfMissing::kMake && reason == ENOENT && !name.empty();
  if (!can_be_made || IsLink(path)) throw Failure(ErrorCode::kFile, path, "find the file", reason);
  const std::string folder = RealPath(FolderOf(path));
  if (folder.empty()) throw Failure(path, "find its folder");
  return folder == "/" ? folder + name : folder + "/" + name;
}

Descriptor OpenTarget(const std::string& target, const std::string& path, IfMissing missing,
                      int access) {
  // Not to wait for the other end of a pipe, which is told from a file only once it is open.
  const int flags = access | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  const int opened = Uninterrupted([&] { return ::open(target.c_str(), flags); });
  Descriptor file = Above(STDERR_FILENO, Descriptor(opened));
  if (!file.IsOpen()) {
    if (errno == ENOENT && missing == IfMissing::kMake) return file;
    throw Failure(path, "open the file");
  }
  struct stat status = {};
  if (::fstat(file.Get(), &status) != 0) throw Failure(path, "look at the file");
  if (!S_ISREG(status.st_mode)) {
    throw Error(ErrorCode::kFile, path + ": cannot open the file: it is no regular file");
  }
  return file;
}

bool IsMountPoint(int file) {
  struct statx status = {};
  if (::statx(file, "", AT_EMPTY_PATH, 0, &status) != 0) return false;
  return (status.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0 &&
         (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

}  // namespace klepur::internal
