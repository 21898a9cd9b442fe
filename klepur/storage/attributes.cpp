#include <klepur/storage/attributes.h>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string_view>

#include <klepur/storage/failure.h>

namespace klepur::internal {
namespace {

constexpr mode_t kModeBits = 07777;

bool HasNoAttributes(int reason) {
  return reason == EOPNOTSUPP || reason == ENOSYS;
}

/// What `call` puts into a place of so many bytes, however many that are; nothing when it fails, for the
/// reason in errno. With no room `call` says how much is needed.
template <class Call>
std::optional<std::string> Whole(const Call& call) {
  for (;;) {
    const ssize_t size = call(nullptr, 0);
    if (size < 0) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    const ssize_t got = size == 0 ? 0 : call(bytes.data(), bytes.size());
    if (got < 0 && errno == ERANGE) continue;  // it grew meanwhile
    if (got < 0) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(got));
    return bytes;
  }
}

std::optional<std::vector<std::string>> NamesOf(int file) {
  const auto list =
      Whole([&](char* place, std::size_t room) { return ::flistxattr(file, place, room); });
  if (!list && HasNoAttributes(errno)) return std::vector<std::string>();
  if (!list) return std::nullopt;
  std::vector<std::string> names;
  for (std::size_t at = 0; at < list->size(); at += names.back().size() + 1) {
    names.emplace_back(list->c_str() + at);
  }
  return names;
}

std::optional<std::string> ValueOf(int file, const std::string& name) {
  return Whole(
      [&](char* place, std::size_t room) { return ::fgetxattr(file, name.c_str(), place, room); });
}

/// Made by the system for each file's own bytes.
bool BelongsToTheBytes(std::string_view name) {
  return name == "security.ima" || name == "security.evm";
}

}  // namespace

Attributes::Attributes(int file, const std::string& path) {
  struct stat status = {};
  if (::fstat(file, &status) != 0) throw Failure(path, "look at the file");
  owner_ = status.st_uid;
  group_ = status.st_gid;
  mode_ = status.st_mode & kModeBits;
  const auto names = NamesOf(file);
  if (!names) throw Failure(path, "list its attributes");
  for (const std::string& name : *names) {
    if (BelongsToTheBytes(name)) continue;
    std::optional<std::string> value = ValueOf(file, name);
    if (!value && errno == ENODATA) continue;  // removed meanwhile
    if (!value) throw Failure(path, "read its attribute " + name);
    extended_.emplace_back(name, *std::move(value));
  }
}

void Attributes::GiveTo(int file, const std::string& path) const {
  const char* const what = Give(file);
  if (what == nullptr) return;
  const int reason = errno;
  // EINVAL: the owner has no number in this user namespace.
  const bool refused = IsRefusal(reason) || reason == EINVAL;
  throw Failure(refused ? ErrorCode::kRefused : ErrorCode::kFile, path,
                std::string("keep its ") + what, reason);
}

void Attributes::OfferTo(int file) const {
  if (!GiveOwner(file)) return;
  if (GiveExtended(file)) GiveMode(file);
}

const char* Attributes::Give(int file) const {
  if (!GiveOwner(file)) return "owner and group";
  if (!GiveExtended(file)) return "access list and extended attributes";
  // Last: a change of the owner takes bits of the mode away.
  if (!GiveMode(file)) return "mode";
  return nullptr;
}

bool Attributes::GiveOwner(int file) const {
  struct stat status = {};
  if (::fstat(file, &status) != 0) return false;
  if (status.st_uid == owner_ && status.st_gid == group_) return true;
  return ::fchown(file, owner_, group_) == 0;
}

bool Attributes::GiveExtended(int file) const {
  const auto own = NamesOf(file);
  if (!own) return false;
  for (const std::string& name : *own) {
    const bool wanted = std::any_of(extended_.begin(), extended_.end(),
                                    [&](const auto& attribute) { return attribute.first == name; });
    // What the system gives every new file it may not let go of; an access list it must.
    if (wanted || BelongsToTheBytes(name)) continue;
    if (::fremovexattr(file, name.c_str()) != 0 && name.rfind("security.", 0) != 0) return false;
  }
  for (const auto& [name, value] : extended_) {
    if (ValueOf(file, name) == value) continue;
    if (::fsetxattr(file, name.c_str(), value.data(), value.size(), 0) != 0) return false;
  }
  return true;
}

bool Attributes::GiveMode(int file) const {
  struct stat status = {};
  if (::fstat(file, &status) != 0) return false;
  return (status.st_mode & kModeBits) == mode_ || ::fchmod(file, mode_) == 0;
}

}  // namespace klepur::internal
