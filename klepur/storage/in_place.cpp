#include <klepur/storage/in_place.h>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <utility>
#include <variant>

#include <klepur/storage/failure.h>
#include <klepur/storage/target.h>
#include <klepur/text/file_bytes.h>
#include <klepur/text/uninterrupted.h>

namespace klepur::internal {
namespace {

constexpr const char* kWrite = "write over the file";

/// Throws when there is surely no room on the disk; where room cannot be set aside it is not known.
void SetRoomAside(int file, const std::string& path, std::uint64_t size) {
  if (size == 0) return;
  const auto allocated = Uninterrupted(
      [&] { return ::fallocate(file, FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size)); });
  if (allocated != 0 && (errno == ENOSPC || errno == EDQUOT || errno == EFBIG || errno == EIO)) {
    throw Failure(path, "set room aside for the new text");
  }
}

/// The checksum of what was written; nothing when that failed, for the reason in errno.
std::optional<std::uint64_t> WriteAll(int file, const Pieces& text) {
  if (!text.WriteTo(file)) return std::nullopt;
  const auto cut = [&] { return ::ftruncate(file, static_cast<off_t>(text.Size())); };
  if (Uninterrupted(cut) != 0) return std::nullopt;
  if (Uninterrupted([&] { return ::fsync(file); }) != 0) return std::nullopt;
  const auto comparison = text.CompareWith(file);
  if (!comparison) return std::nullopt;
  if (comparison->equal) return comparison->sum;
  errno = EIO;
  return std::nullopt;
}

}  // namespace

std::uint64_t WriteInPlace(const std::string& target, const std::string& path, const Pieces& text) {
  const Descriptor file = OpenTarget(target, path, IfMissing::kFail, O_RDWR);
  auto bytes = ReadOpenFile(file.Get());
  if (!std::holds_alternative<TextBuffer>(bytes)) {
    throw Failure(ErrorCode::kFile, path, "read the file", std::get<FileFailure>(bytes).reason);
  }
  const Pieces old(std::get<TextBuffer>(bytes).view());
  SetRoomAside(file.Get(), path, text.Size());
  if (const auto sum = WriteAll(file.Get(), text)) return *sum;
  const int reason = errno;
  const bool put_back = WriteAll(file.Get(), old).has_value();
  const Error error = Failure(ErrorCode::kFile, path, kWrite, reason);
  throw Error(ErrorCode::kFile, std::string(error.what()) +
                                    (put_back ? "" : "; and the old text could not be put back"));
}

}  // namespace klepur::internal
