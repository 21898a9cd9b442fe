#include <klepur/framework/stream_iterator.h>

#include <gtest/gtest.h>

#include "tests/support/chunk_stream.h"

namespace klepur::test {
namespace {

TEST(StreamIteratorTest, CloseFileDoesNothingUnlessOverridden) {
  ChunkStream stream("ab");
  stream.CloseFile();
  char bytes[2] = {};
  ASSERT_EQ(stream.Read(bytes, 2), 2U);
  EXPECT_EQ(bytes[0], 'a');
  EXPECT_EQ(bytes[1], 'b');
}

}  // namespace
}  // namespace klepur::test
