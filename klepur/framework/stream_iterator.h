// StreamIterator: where a lexer gets its bytes from.
#ifndef KLEPUR_FRAMEWORK_STREAM_ITERATOR_H
#define KLEPUR_FRAMEWORK_STREAM_ITERATOR_H

#include <klepur/export.h>

#include <cstddef>

/// A run of bytes that is read once, from front to back.
class KLEPUR_EXPORT StreamIterator {
 public:
  StreamIterator() = default;
  StreamIterator(const StreamIterator&) = delete;
  StreamIterator& operator=(const StreamIterator&) = delete;
  virtual ~StreamIterator();

  /// Puts the next bytes into `buffer`.
  /// \param size  room in `buffer`, at least 1.
  /// \return how many bytes were put there; 0 at the end.
  /// Throws an exception derived from std::exception when the bytes cannot be read.
  virtual std::size_t Read(char* buffer, std::size_t size) = 0;

  /// Lets go of what the bytes come from; the stream is then at its end. Does nothing unless
  /// overridden.
  virtual void CloseFile();
};

#endif
