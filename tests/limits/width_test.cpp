// A million blocks on one level, a million lines in one block.
#include <gtest/gtest.h>
#include <klepur/klepur.h>

#include <algorithm>
#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <string_view>

#include "tests/limits/long_texts.h"
#include "tests/limits/sizes.h"
#include "tests/support/family.h"
#include "tests/support/files.h"

namespace klepur::test {
namespace {

using TreeNode = Tree<CfSection>::TreeNode;

std::string Number(std::size_t number) {
  return std::to_string(number);
}

template <class Family>
class Width : public ::testing::Test {
 public:
  class File : public Family::File {
   public:
    using Family::File::currentNetwork;
    using Family::File::currentSubnet;
    using Family::File::File;
    using Family::File::holder;
  };
  void Given(const std::string& text) {
    const std::string path = scratch_.Write("wide.conf", Family::Text(text));
    file_ = std::make_unique<File>(path.c_str());
    ASSERT_TRUE(file_->Open());
  }

  File& Conf() { return *file_; }

  const TreeNode& Root() { return *Conf().holder->topNode.children->front(); }

  std::string Saved() {
    EXPECT_EQ(Conf().Save(""), 1);
    return ReadFile(Conf().GetConfFileName());
  }

 private:
  ScratchFolder scratch_;
  std::unique_ptr<File> file_;
};
TYPED_TEST_SUITE(Width, Families, FamilyNames);

/// Again and again, so that whatever speeds searches up is used too.
template <class File>
void ExpectLastHostFound(File& file) {
  const std::string last = "h" + Number(kMany - 1);
  const std::string line = "log l" + Number(kMany - 1) + ";";
  for (int i = 0; i != 4; ++i) {
    EXPECT_TRUE(file.GotoSection(last.c_str(), SECTION_HOST));
    EXPECT_FALSE(file.GotoSection("missing", SECTION_HOST));
    typename File::Section found;
    ASSERT_TRUE(file.GetSectionByKeyname(line.c_str(), found, true));
    EXPECT_EQ(found.params.front().value, last);
    EXPECT_FALSE(file.GetSectionByKeyname("log missing;", found, true));
  }
}

TYPED_TEST(Width, AMillionBlocksOnOneLevelAreOpenedSearchedEditedAndSaved) {
  this->Given("group {\n" + Numbered("host h% {\nlog l%;\n}\n", kMany) + "}\n");
  auto& file = this->Conf();
  const TreeNode& group = *this->Root().children->front();
  ASSERT_EQ(group.children->size(), kMany);
  ASSERT_EQ(file.currentSubnet, &group);
  ExpectLastHostFound(file);

  const std::string last = "h" + Number(kMany - 1);
  typename TypeParam::Section host;
  host.params = {{false, TypeParam::kName, last}, {false, TypeParam::kMaxLeaseTime, "60"}};
  EXPECT_EQ(file.AddHost(host), 0);  // it is there
  EXPECT_EQ(file.ChangeSection(host, "changed"), 1);
  EXPECT_EQ(file.AddHost(host), 1);
  EXPECT_EQ(file.RemoveHostSection("h0"), 1);
  ASSERT_EQ(group.children->size(), kMany);

  const std::string saved = this->Saved();
  EXPECT_TRUE(saved.starts_with("\ngroup\n{\n\n\thost h1\n\t{\n\t\tlog l1;\n\t}\n"));
  EXPECT_TRUE(saved.ends_with("\n\thost changed\n\t{\n\t\tlog l" + Number(kMany - 1) +
                              ";\n\t\tmax-lease-time 60;\n\t}\n\n\thost " + last +
                              "\n\t{\n\t\tmax-lease-time 60;\n\t}\n\n}\n"));
  EXPECT_EQ(static_cast<std::size_t>(std::count(saved.begin(), saved.end(), '{')), kMany + 1);
}

TYPED_TEST(Width, AMillionBlocksGoWithTheBlockAroundThem) {
  this->Given("shared-network n {\n" + Numbered("host h% {\n}\n", kMany) + "}\nhost last {\n}\n");
  EXPECT_EQ(this->Conf().RemoveNetwork("n"), 1);
  ASSERT_EQ(this->Root().children->size(), 1U);
  EXPECT_EQ(this->Conf().currentSubnet, this->Root().children->front());
  EXPECT_EQ(this->Saved(), "\nhost last\n{\n}\n");
}

/// A block of a million lines; the last one is of a type that is known.
template <class Fixture>
void GivenManyLines(Fixture& test) {
  test.Given("@header1 {\n" + Numbered("log l%;\n", kMany - 1) + "max-lease-time 60;\n}\n");
  ASSERT_NE(test.Conf().currentSubnet, nullptr);
  ASSERT_EQ(test.Conf().currentSubnet->section.entryList.size(), kMany);
}

TYPED_TEST(Width, AMillionLinesInOneBlockAreReadAsARecordAndReplaced) {
  GivenManyLines(*this);
  auto& file = this->Conf();
  typename TypeParam::Section record;
  record.type = SECTION_SUBNET;
  ASSERT_TRUE(file.GetFirstSection(record, true));
  ASSERT_EQ(record.params.size(), kMany + 1);  // the name too
  EXPECT_EQ(record.params.back().value, "max-lease-time 60;");
  EXPECT_EQ(file.SetSectionParams(record), 1);
  EXPECT_EQ(file.currentSubnet->section.entryList.size(), kMany);

  record.params = {{false, TypeParam::kName, "any"}, {true, -1, "alone;"}};
  EXPECT_EQ(file.SetSectionParams(record), 1);
  EXPECT_EQ(this->Saved(), TypeParam::Text("\n@header1\n{\n#\talone;\n}\n"));
}

TYPED_TEST(Width, OneOfAMillionLinesInOneBlockIsChangedAndSaved) {
  GivenManyLines(*this);
  auto& file = this->Conf();
  typename TypeParam::Section record;
  record.type = SECTION_SUBNET;
  ASSERT_TRUE(file.GetFirstSection(record, false));
  ASSERT_EQ(record.params.size(), 2U);
  EXPECT_EQ(record.params.back().value, "60");

  record.params.back().value = "61";
  EXPECT_EQ(file.ChangeSection(record, nullptr), 1);
  const std::string saved = this->Saved();
  EXPECT_TRUE(saved.starts_with(TypeParam::Text("\n@header1\n{\n\tlog l0;\n\tlog l1;\n")));
  EXPECT_TRUE(saved.ends_with("\tmax-lease-time 61;\n}\n"));
  EXPECT_EQ(static_cast<std::size_t>(std::count(saved.begin(), saved.end(), '\n')), kMany + 4);
}

TEST(LeasesWidth, AMillionAssociationsGiveAMillionLeases) {
  const ScratchFolder scratch;
  const std::string path = scratch.Write(
      "dhcpd6.leases", Numbered("ia-na \"A\" {\niaaddr 2001:db8::% {\nends never;\n}\n}\n", kMany));
  std::list<_Dhcpv6LeaseStore> leases;
  Dhcpv6LeasesParser().GetLeases(path.c_str(), leases);
  ASSERT_EQ(leases.size(), kMany);
  EXPECT_EQ(leases.front().address, "2001:db8::0");
  EXPECT_EQ(leases.back().address, "2001:db8::" + Number(kMany - 1));
}

}  // namespace
}  // namespace klepur::test
