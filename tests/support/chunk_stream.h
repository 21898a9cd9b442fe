// A stream that brings its bytes in small pieces.
#ifndef KLEPUR_TESTS_SUPPORT_CHUNK_STREAM_H
#define KLEPUR_TESTS_SUPPORT_CHUNK_STREAM_H

#include <klepur/framework/stream_iterator.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace klepur::test {

/// The bytes of a text, at most `most` of them a read.
class ChunkStream : public StreamIterator {
 public:
  explicit ChunkStream(std::string_view text, std::size_t most = 65536)
      : text_(text), most_(most) {}

  std::size_t Read(char* buffer, std::size_t size) override {
    const std::size_t count = text_.copy(buffer, std::min(size, most_), taken_);
    taken_ += count;
    return count;
  }

 private:
  std::string text_;
  std::size_t most_;
  std::size_t taken_ = 0;
};

}  // namespace klepur::test

#endif
