#include "tests/support/files.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

namespace klepur::test {

ScratchFolder::ScratchFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "klepur-test-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) ADD_FAILURE() << "no scratch folder";
  path_ = pattern;
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string ScratchFolder::Path(std::string_view name) const {
  return path_ + "/" + std::string(name);
}

std::string ScratchFolder::Write(std::string_view name, std::string_view content) const {
  std::ofstream file(Path(name), std::ios::binary);
  file << content;
  file.close();
  EXPECT_TRUE(file) << Path(name);
  return Path(name);
}

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  std::ostringstream text;
  text << file.rdbuf();
  return std::move(text).str();
}

std::string WithCarriageReturns(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '\n') result += '\r';
    result += c;
  }
  return result;
}

}  // namespace klepur::test
