// Internal: the lock by which savers of a file wait for each other.
#ifndef KLEPUR_STORAGE_FILE_LOCK_H
#define KLEPUR_STORAGE_FILE_LOCK_H

#include <chrono>
#include <string>

#include <klepur/text/descriptor.h>

namespace klepur::internal {

/// An open file that a path names and that is locked (flock) while this lives.
///
/// It is the file itself that is locked, so that nothing is left beside it. A save puts another file in its
/// place: that one is locked before it gets there, and who waited for the old one sees that the path names it
/// no more, and waits for the new one.
class FileLock {
 public:
  /// No lock.
  FileLock() noexcept = default;
  /// A lock that an open file has already.
  explicit FileLock(Descriptor locked) noexcept : file_(std::move(locked)) {}
  FileLock(FileLock&&) noexcept = default;
  FileLock& operator=(FileLock&& other) noexcept;
  ~FileLock();

  /// Waits for the lock of the file that `target` names. Not held when there is no such file.
  /// Throws Error(kLocked) when it takes longer than `limit`, and Error(kFile).
  /// \param path  how the file is called in errors.
  static FileLock Of(const std::string& target, const std::string& path,
                     std::chrono::milliseconds limit);

  bool IsHeld() const noexcept { return file_.IsOpen(); }
  /// Whether it is held, and the path still names the locked file.
  bool IsHeldOf(const std::string& target) const noexcept;
  /// The locked file, open for reading.
  int File() const noexcept { return file_.Get(); }

 private:
  void Release() noexcept;

  Descriptor file_;
};

/// Locks an open file if nobody else has; false when somebody has, or for another reason in errno.
bool LockNow(int file) noexcept;

/// Whether a path names an open file.
bool Names(const std::string& path, int file) noexcept;

}  // namespace klepur::internal

#endif
