// FileIterator: the bytes of a file.
#ifndef KLEPUR_FRAMEWORK_FILE_ITERATOR_H
#define KLEPUR_FRAMEWORK_FILE_ITERATOR_H

#include <klepur/export.h>
#include <klepur/framework/stream_iterator.h>

/// Brings the bytes of one file in their order.
class KLEPUR_EXPORT FileIterator : public StreamIterator {
 public:
  /// Opens the file at `path` for reading.
  ///
  /// Throws std::system_error, whose what() is the system's reason ("Permission denied", "Is a
  /// directory"), when it cannot be opened or is a directory.
  FileIterator(const char* path);  // NOLINT(google-explicit-constructor): callers convert paths

  /// Closes the file when CloseFile has not.
  ~FileIterator() override;

  /// How many bytes the file had when it was opened; 0 of what has no size, such as a pipe.
  std::size_t Size() const noexcept { return size_; }

  /// As in StreamIterator. An interrupted read goes on; a failed one throws std::system_error with
  /// the system's reason as its what().
  std::size_t Read(char* buffer, std::size_t size) override;

  /// Closes the file. Every later Read returns 0; a second call does nothing.
  void CloseFile() override;

 private:
  int descriptor_;
  std::size_t size_;
};

#endif
