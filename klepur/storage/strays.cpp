#include <klepur/storage/strays.h>

#include <dirent.h>
#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <memory>
#include <string_view>

#include <klepur/storage/file_lock.h>
#include <klepur/storage/target.h>
#include <klepur/text/descriptor.h>
#include <klepur/text/uninterrupted.h>

namespace klepur::internal {
namespace {

/// The longest name of a file has 255 bytes; what stands around it has at most 30.
constexpr std::size_t kMostOfName = 220;
constexpr std::size_t kRandomDigits = 8;
constexpr std::string_view kDecimal = "0123456789";
constexpr std::string_view kHexadecimal = "0123456789abcdef";

std::string FrontFor(const std::string& name) {
  return "." + name.substr(0, kMostOfName) + ".klepur-";
}

std::uint32_t RandomNumber() {
  std::uint32_t number = 0;
  if (::getrandom(&number, sizeof number, GRND_NONBLOCK) == sizeof number) return number;
  timespec now = {};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<std::uint32_t>(now.tv_nsec);
}

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

std::vector<std::string> StraysOf(const std::string& target) {
  std::vector<std::string> strays;
  const std::string folder = FolderOf(target);
  const std::string name = NameOf(target);
  const std::unique_ptr<DIR, CloseFolder> entries(::opendir(folder.c_str()));
  if (!entries) return strays;
  const std::string front = folder == "/" ? folder : folder + "/";
  while (const dirent* const entry = ::readdir(entries.get())) {
    if (IsStrayOf(name, entry->d_name)) strays.push_back(front + entry->d_name);
  }
  std::sort(strays.begin(), strays.end());
  return strays;
}

/// Whether no saver has it any more: nobody holds its lock, or it is but another name of the target, which a
/// saver got no time to remove.
bool IsLeftBehind(const std::string& stray, const std::string& target) {
  const int flags = O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
  const Descriptor file(Uninterrupted([&] { return ::open(stray.c_str(), flags); }));
  struct stat status = {};
  if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
  return Names(target, file.Get()) || LockNow(file.Get());
}

}  // namespace

std::string StrayNameFor(const std::string& target) {
  std::string random;
  for (std::uint32_t number = RandomNumber(); random.size() != kRandomDigits; number >>= 4) {
    random += kHexadecimal[number & 15];
  }
  const std::string folder = FolderOf(target);
  return (folder == "/" ? folder : folder + "/") + FrontFor(NameOf(target)) +
         std::to_string(::getpid()) + "-" + random;
}

bool IsStrayOf(const std::string& name, const std::string& stray) {
  const std::string front = FrontFor(name);
  if (stray.compare(0, front.size(), front) != 0) return false;
  const std::size_t dash = stray.find_first_not_of(kDecimal, front.size());
  return dash != front.size() && dash != std::string::npos && stray[dash] == '-' &&
         stray.size() == dash + 1 + kRandomDigits &&
         stray.find_first_not_of(kHexadecimal, dash + 1) == std::string::npos;
}

std::vector<std::string> RemoveStrays(const std::string& target) {
  std::vector<std::string> removed;
  for (std::string& stray : StraysOf(target)) {
    if (!IsLeftBehind(stray, target)) continue;
    if (::unlink(stray.c_str()) == 0) removed.push_back(std::move(stray));
  }
  return removed;
}

}  // namespace klepur::internal
