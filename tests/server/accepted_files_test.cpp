// What the server accepts is read without a finding, and kept as it is.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include "tests/server/judged_files.h"
#include "tests/support/document_tree.h"
#include "tests/support/files.h"

namespace klepur::test {
namespace {

TEST(AcceptedFiles, AreReadWithoutAFinding) {
  const std::vector<JudgedFile> files = AcceptedFiles();
  EXPECT_GE(files.size(), 100U);
  for (const JudgedFile& file : files) {
    SCOPED_TRACE(file.name);
    const Document document = Document::Read(file.path);
    EXPECT_EQ(FindingsText(document), "");
  }
}

TEST(AcceptedFiles, AreKeptByteForByte) {
  for (const JudgedFile& file : AcceptedFiles()) {
    SCOPED_TRACE(file.name);
    const Document document = Document::Read(file.path);
    EXPECT_EQ(document.Text(), ReadFile(file.path));
    EXPECT_FALSE(document.IsChanged());
  }
}

TEST(AcceptedFiles, AreOfTheirFamilyOrOfNoneThatCanBeTold) {
  std::size_t told = 0;
  for (const JudgedFile& file : AcceptedFiles()) {
    const Family family = Document::Read(file.path).GetFamily();
    EXPECT_NE(family, file.is_v6 ? Family::kDhcp4 : Family::kDhcp6) << file.name;
    told += family != Family::kUnknown ? 1U : 0U;
  }
  EXPECT_GE(told, 90U);
}

}  // namespace
}  // namespace klepur::test
