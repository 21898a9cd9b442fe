// Internal: what a file was at some moment, to see later whether it is still the same.
#ifndef KLEPUR_TEXT_FILE_STATE_H
#define KLEPUR_TEXT_FILE_STATE_H

#include <sys/stat.h>

#include <cstdint>
#include <optional>
#include <string>

namespace klepur::internal {

/// Identity, size and times of a file, and where these are not enough a checksum of its bytes.
///
/// They are not enough when the file was changed less than two seconds before it was looked at: its time may
/// then be that of another change still to come, since clocks of file systems tick slowly.
class FileState {
 public:
  /// No file.
  FileState() noexcept = default;

  /// An open file, whose bytes are read where they are needed. Nothing when that failed, for the reason in
  /// errno.
  static std::optional<FileState> OfFile(int file) noexcept;
  /// The same where the sum of the bytes is known. `status` is what the system said before these were read.
  static FileState OfRead(const struct stat& status, std::uint64_t sum) noexcept;
  /// The file that a path names; no file when there is none or it cannot be opened.
  static FileState OfPath(const std::string& path) noexcept;

  bool Exists() const noexcept { return exists_; }

  /// Whether an open file is this one, with the same bytes. One of the same size and bytes is, whatever its
  /// identity and times. Nothing when it could not be read, for the reason in errno.
  std::optional<bool> IsThat(int file) const noexcept;

 private:
  bool exists_ = false;
  struct stat status_ = {};
  bool young_ = false;
  std::optional<std::uint64_t> sum_;
};

/// Whether identity, size and times are the same.
bool AreAlike(const struct stat& left, const struct stat& right) noexcept;

}  // namespace klepur::internal

#endif
