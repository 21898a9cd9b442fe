// Files that a test makes and reads.
#ifndef KLEPUR_TESTS_SUPPORT_FILES_H
#define KLEPUR_TESTS_SUPPORT_FILES_H

#include <string>
#include <string_view>

namespace klepur::test {

/// A directory of a test's own, removed with all that is in it.
class ScratchFolder {
 public:
  ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder();

  /// The path of a file in it.
  std::string Path(std::string_view name) const;

  /// Writes a file in it and returns its path.
  std::string Write(std::string_view name, std::string_view content) const;

 private:
  std::string path_;
};

/// All bytes of a file; fails the test when it cannot be read.
std::string ReadFile(const std::string& path);

/// The text with "\r\n" for each "\n".
std::string WithCarriageReturns(std::string_view text);

}  // namespace klepur::test

#endif
