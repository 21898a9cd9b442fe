// Files that fail and change while all their bytes are read.
//
// Elsewhere: missing files, folders and files that may not be read (text/file_bytes_test.cpp);
// memory that runs out (text_memory_test.cpp).
#include <klepur/text/file_bytes.h>

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "tests/faults/file_calls.h"
#include "tests/support/descriptors.h"
#include "tests/support/files.h"

namespace klepur::test {
namespace {

using internal::FileFailure;
using internal::ReadFileBytes;
using internal::TextBuffer;

/// The text of a file; or the step and the reason of the failure.
std::string ReadWith(const std::string& path, FileCalls::Read read,
                     FileCalls::BeforeOpen beforeOpen = nullptr) {
  const std::ptrdiff_t descriptors = OpenDescriptors();
  std::variant<TextBuffer, FileFailure> result;
  {
    const FileCalls calls(std::move(read), std::move(beforeOpen));
    result = ReadFileBytes(path);
  }
  EXPECT_EQ(OpenDescriptors(), descriptors);
  if (const auto* const text = std::get_if<TextBuffer>(&result)) return std::string(text->view());
  const auto& failure = std::get<FileFailure>(result);
  return (failure.step == FileFailure::Step::kOpen ? "open " : "read ") +
         std::to_string(failure.reason);
}

/// Calls this before the read with that number, counted from 0, and brings ten bytes at a time.
template <class Something>
FileCalls::Read Before(std::size_t number, Something something) {
  return [=, count = std::size_t{0}](int descriptor, char* buffer, std::size_t size) mutable {
    if (count++ == number) something();
    return ::read(descriptor, buffer, std::min<std::size_t>(size, 10));
  };
}

class ReadingFileBytes : public ::testing::Test {
 protected:
  static constexpr std::string_view kText = "0123456789abcdefghijklmnopqrstuvwxyz";

  ScratchFolder scratch_;
  const std::string path_ = scratch_.Write("file", kText);
};

TEST_F(ReadingFileBytes, ReadsMayBringAsLittleAsTheyLike) {
  for (const std::size_t most : {1U, 2U, 7U, 64U}) {
    EXPECT_EQ(ReadWith(path_,
                       [most](int descriptor, char* buffer, std::size_t size) {
                         return ::read(descriptor, buffer, std::min(size, most));
                       }),
              kText);
  }
}

TEST_F(ReadingFileBytes, InterruptedCallsAreMadeAgain) {
  const auto reading = [count = 0](int descriptor, char* buffer, std::size_t size) mutable {
    return count++ % 2 == 0 ? FailWith(EINTR)
                            : ::read(descriptor, buffer, std::min<std::size_t>(size, 10));
  };
  const auto opening = [count = 0]() mutable { return count++ < 2 ? EINTR : 0; };
  EXPECT_EQ(ReadWith(path_, reading, opening), kText);
}

TEST_F(ReadingFileBytes, FailureIsReportedWhereverItHappens) {
  for (const int reason : {EIO, ESTALE, EAGAIN}) {
    EXPECT_EQ(ReadWith(path_, nullptr, [reason] { return reason; }),
              "open " + std::to_string(reason));
    for (std::size_t number = 0; number != 5; ++number) {
      const auto read = [=, count = std::size_t{0}](int descriptor, char* buffer,
                                                    std::size_t size) mutable {
        return count++ == number ? FailWith(reason)
                                 : ::read(descriptor, buffer, std::min<std::size_t>(size, 10));
      };
      EXPECT_EQ(ReadWith(path_, read), "read " + std::to_string(reason)) << number;
    }
  }
}

TEST_F(ReadingFileBytes, FileThatGrowsIsReadToItsNewEnd) {
  for (const std::size_t more : {1U, 63U, 64U, 65U, 500U, 10000U}) {
    const std::string added(more, '+');
    for (std::size_t number = 0; number != 5; ++number) {
      scratch_.Write("file", kText);
      const auto append = [&] { std::ofstream(path_, std::ios::app) << added; };
      EXPECT_EQ(ReadWith(path_, Before(number, append)), std::string(kText) + added);
    }
  }
}

TEST_F(ReadingFileBytes, OfAFileThatShrinksIsReadWhatIsLeft) {
  for (std::size_t number = 0; number != 4; ++number) {
    scratch_.Write("file", kText);
    const auto cut = [&] { std::filesystem::resize_file(path_, 15); };
    const std::size_t left = std::max<std::size_t>(15, 10 * number);
    EXPECT_EQ(ReadWith(path_, Before(number, cut)), kText.substr(0, left));
  }
}

}  // namespace
}  // namespace klepur::test
