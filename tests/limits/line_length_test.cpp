// Single lines of a hundred megabytes.
#include <gtest/gtest.h>
#include <klepur/klepur.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <list>
#include <memory>
#include <string>
#include <string_view>

#include "tests/limits/long_texts.h"
#include "tests/limits/sizes.h"
#include "tests/support/files.h"

namespace klepur::test {
namespace {

using TreeNode = Tree<CfSection>::TreeNode;

/// The piece so often that the text is as long as a line is to be in these tests.
std::string Long(std::string_view piece) {
  std::string text(piece);
  text.reserve(2 * kLong);
  while (text.size() < kLong) text += std::string_view(text).substr(0, kLong);
  text.resize((kLong + piece.size() - 1) / piece.size() * piece.size());
  return text;
}

class LineLength : public ::testing::Test {
 protected:
  class File : public DhcpConfigFile {
   public:
    using DhcpConfigFile::DhcpConfigFile;
    using DhcpConfigFile::holder;
  };

  void Given(const std::string& text) {
    const std::string path = scratch_.Write("long.conf", text);
    file_ = std::make_unique<File>(path.c_str());
    ASSERT_TRUE(file_->Open());
  }

  const TreeNode& Root() const { return *file_->holder->topNode.children->front(); }

  /// The text of the only line at the top of the file.
  std::string_view OnlyLine() const {
    const auto& lines = Root().section.entryList;
    EXPECT_EQ(lines.size(), 1U);
    return lines.empty() ? std::string_view() : lines.front()->GetKeyName();
  }

  /// What Save writes, read at once: it is large.
  std::string Saved() {
    EXPECT_EQ(file_->Save(""), 1);
    const std::string path = file_->GetConfFileName();
    std::string text(std::filesystem::file_size(path), '\0');
    std::ifstream(path, std::ios::binary)
        .read(text.data(), static_cast<std::streamsize>(text.size()));
    return text;
  }

  ScratchFolder scratch_;
  std::unique_ptr<File> file_;
};

TEST_F(LineLength, StatementOfWords) {
  const std::string line = "option x " + Long("word ") + "end;";
  Given(line + "\n");
  ExpectSame(OnlyLine(), line);
  ExpectSame(Saved(), line + "\n");
}

TEST_F(LineLength, StatementInQuotes) {
  const std::string line = "option x \"" + Long("a;{}#\\\"") + "\";";
  Given(line + "\r\n");
  ExpectSame(OnlyLine(), line);
}

TEST_F(LineLength, QuotesThatNothingCloses) {
  const std::string line = "option x " + Long("\\\"") + "y;";
  Given(line + "\n");
  ExpectSame(OnlyLine(), line);
}

TEST_F(LineLength, Comment) {
  const std::string text = Long("#{};\" ") + "end";
  Given("# " + text + "\n");
  ExpectSame(OnlyLine(), text);
}

TEST_F(LineLength, Header) {
  const std::string name = "host " + Long("x");
  Given(name + " {\n}\n");
  ASSERT_EQ(Root().children->size(), 1U);
  ExpectSame(Root().children->front()->section.GetName(), name);
  EXPECT_EQ(file_->GetTreeItemByNameAt(name.c_str(), nullptr), Root().children->front());
  ExpectSame(Saved(), "\n" + name + "\n{\n}\n");
}

TEST_F(LineLength, Blanks) {
  Given(Long(" \t\r") + "log x;\n");
  ExpectSame(OnlyLine(), "log x;");
}

TEST_F(LineLength, StatementsWithoutALineEnd) {
  const std::string statement = "log " + std::string(995, 'x') + ";";
  Given(Long(statement));
  EXPECT_EQ(Root().section.entryList.size(), (kLong + statement.size() - 1) / statement.size());
}

TEST_F(LineLength, IdentifierOfALease) {
  const std::string path = scratch_.Write(
      "dhcpd6.leases", "ia-na \"" + Long("\\001A") + "\" {\niaaddr 2001:db8::1 {\n}\n}\n");
  std::list<_Dhcpv6LeaseStore> leases;
  Dhcpv6LeasesParser().GetLeases(path.c_str(), leases);
  ASSERT_EQ(leases.size(), 1U);
  EXPECT_EQ(leases.front().address, "2001:db8::1");
  const std::string& duid = leases.front().duid;
  EXPECT_EQ(duid.size(), (kLong + 4) / 5 * 4);
  EXPECT_TRUE(duid.starts_with("0141") && duid.ends_with("0141"));
  ExpectSame(duid.substr(4), std::string_view(duid).substr(0, duid.size() - 4));
}

}  // namespace
}  // namespace klepur::test
