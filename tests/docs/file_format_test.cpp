#include <gtest/gtest.h>
#include <klepur/klepur.h>

#include <string>

#include "tests/support/files.h"

namespace klepur::test {
namespace {

/// The fenced text that follows a line of the document.
std::string FencedTextBehind(const std::string& document, const std::string& line) {
  const std::string fence = "```\n";
  const std::size_t at = document.find(line);
  const std::size_t begin = document.find(fence, at) + fence.size();
  EXPECT_NE(at, std::string::npos) << line;
  return document.substr(begin, document.find(fence, begin) - begin);
}

TEST(FileFormatDocument, ItsExampleIsWrittenAsItSays) {
  const std::string document = ReadFile(KLEPUR_DOCS "/file_format.md");
  const ScratchFolder scratch;
  const std::string path = scratch.Write("dhcpd.conf", FencedTextBehind(document, "\nSo this:\n"));
  DhcpConfigFile file(path.c_str());
  ASSERT_TRUE(file.Open());
  ASSERT_EQ(file.Save(""), 1);
  EXPECT_EQ(ReadFile(path), FencedTextBehind(document, "\nis written as:\n"));
}

}  // namespace
}  // namespace klepur::test
