#include <gtest/gtest.h>
#include <klepur/klepur.h>

#include <list>
#include <string>
#include <vector>

#include "tests/support/config_fixture.h"
#include "tests/support/files.h"
#include "tests/support/tree_text.h"

namespace klepur::test {
namespace {

using TreeNode = Tree<CfSection>::TreeNode;

/// Every operation that a configuration class documents, called by way of the shared library.
template <class Family>
class ExportedConfigFileTest : public ConfigFixture<Family> {};

TYPED_TEST_SUITE(ExportedConfigFileTest, Families, FamilyNames);

TYPED_TEST(ExportedConfigFileTest, EveryOperationLinksAndWorks) {
  using S = typename TypeParam::Section;
  this->Given("shared-network office {\n@header1 {\n@range @ip1 @ip2;\n}\n}\n");
  auto& file = this->Conf();
  const auto host = this->Record(S::SECTION_HOST, {{TypeParam::kName, "a"},
                                                   {TypeParam::kFixedAddress, "@ip3"},
                                                   {TypeParam::kHostName, "pc"},
                                                   {TypeParam::kHardwareEthernet, "0:1"}});
  const auto condition =
      this->Record(S::SECTION_IF, {{TypeParam::kName, "known"}, {TypeParam::kMaxLeaseTime, "60"}});
  EXPECT_EQ(file.AddSection(host), 1);
  EXPECT_EQ(file.AddIFSection(condition), 1);
  EXPECT_EQ(file.AddHost(host), 0);

  S found;
  EXPECT_TRUE(file.GetHostByIp(TypeParam::Text("@ip3").c_str(), found, false));
  EXPECT_TRUE(file.GetHostByName("pc", found, false));
  EXPECT_TRUE(file.GetHostByMACAddress("0:1", found, false));
  EXPECT_TRUE(file.GetSectionByKeyname("max-lease-time 60;", found, true));
  EXPECT_TRUE(file.GetSectionByName(found, "known"));
  found.type = S::SECTION_HOST;
  EXPECT_TRUE(file.GetFirstSection(found, false));
  EXPECT_FALSE(file.GetNextSection(found, found, false));
  EXPECT_EQ(file.ChangeSection(host, "b"), 1);
  EXPECT_EQ(file.SetSectionParams(condition), 1);
  EXPECT_EQ(file.ChangeTreeSection(condition, nullptr, nullptr), 0);
  std::string subnet;
  EXPECT_EQ(file.GetSubnet(subnet), 1);
  EXPECT_EQ(file.RemoveHostSection("b"), 1);
  EXPECT_EQ(file.RemoveIFSection("known"), 1);
  EXPECT_EQ(file.RemoveSubnetSection(TypeParam::Text("@bare1").c_str()), 1);
  EXPECT_EQ(file.RemoveNetwork("office"), 1);
  EXPECT_EQ(file.RemoveSection(host), 0);

  EXPECT_EQ(file.AddNetwork(this->Record(S::SECTION_SHARED_NETWORK,
                                         {{TypeParam::kName, "n"}, {TypeParam::kRange, "1"}})),
            1);
  file.AddSubnet(
      this->Record(S::SECTION_SUBNET, {{TypeParam::kName, "@name2"}, {TypeParam::kRange, "2"}}));
  EXPECT_TRUE(file.GotoSection(nullptr, S::SECTION_GLOBAL));
  S treeForm;
  EXPECT_TRUE(file.DhcpToTree(host, treeForm));
  EXPECT_TRUE(
      file.AddTreeSection(treeForm, file.GetTreeItemBySectionAt("shared-network n", nullptr)));
  EXPECT_TRUE(file.TreeToDhcp(this->Node("host a")->section, found, true));
  EXPECT_EQ(this->Tree(), TypeParam::Text("[TREE_ROOT_SECTION]\n"
                                          "  [shared-network n]\n"
                                          "    @range 1;\n"
                                          "    [@header2]\n"
                                          "      @range 2;\n"
                                          "    [host a]\n"
                                          "      @fixed @ip3;\n"
                                          "      @fqdn \"pc\";\n"
                                          "      hardware ethernet 0:1;\n"));
}

TYPED_TEST(ExportedConfigFileTest, ValueHelpersLink) {
  typename TypeParam::File file;
  std::string value = "unchanged";
  file.GetValueFromString("max-lease-time 60;", ";", value);
  EXPECT_EQ(value, "60");
  char copy[] = "....";
  EXPECT_STREQ(file.GetValueFromBuffer("ab;", ";", copy), "ab..");
  EXPECT_STREQ(file.GetFirstDigit("a1"), "1");
  std::list<std::string> servers;
  EXPECT_TRUE(file.GetNameServers("a 1;", &servers));
  std::vector<CfSectionEntry*> entries;
  EXPECT_EQ(file.GetEntryFromList(&entries, "a"), nullptr);
  EXPECT_EQ(file.GetEntryType(nullptr), -1);
  EXPECT_EQ(TypeParam::Section::GetStringType("authoritative;"), TypeParam::kAuthoritative);
  EXPECT_EQ(file.GetConfFileName(), "");
  EXPECT_FALSE(file.ReadDhcpConfigFile());
}

TEST(ExportedFamilyExtras, Link) {
  DhcpConfigFile four;
  EXPECT_STREQ(four.GetFirstChar("1a"), "a");
  EXPECT_EQ(four.GetNetmaskBySubnet("10.0.0.0"), std::string("255.0.0.0\0", 10));
  Dhcpv6ConfigFile six;
  EXPECT_STREQ(six.GetFirstChar("1,a", ","), ",a");
}

TEST(ExportedPredicates, CompareWholeNames) {
  CfSection a;
  CfSection b;
  a.SetName("host a");
  b.SetName("Host a");
  for (const auto predicate : {&Condition1, &Condition2, &compare}) {
    EXPECT_TRUE(predicate(a, a));
    EXPECT_FALSE(predicate(a, b));
  }
}

/// A node of a user's own class, made outside the library.
class CountingNode : public TreeNode {
 public:
  using TreeNode::TreeNode;
  bool TraverseDo(bool (*visit)(CfSection&)) override {
    ++visits;
    return TreeNode::TraverseDo(visit);
  }
  using TreeNode::TraverseDo;

  int visits = 0;
};

TEST(ExportedTree, CallsTheOverridesOfAUsersNode) {
  CfSectionHolder holder;
  auto* const node = new CountingNode(&holder.topNode, CfSection());
  holder.topNode.children = new std::list<TreeNode*>{node};
  EXPECT_TRUE(holder.topNode.TraverseDo([](CfSection&) { return true; }));
  EXPECT_EQ(node->visits, 1);
}

/// A parser of a user's own, on the library's machinery.
class OwnParser : public klepur::BlockParser {};

TEST(ExportedParsers, ReadTextAndFiles) {
  const ScratchFolder scratch;
  const std::string path = scratch.Write("a.conf", "a {\nb;\n}\n");
  CfSectionHolder fromFile;
  DhcpParser parser;
  EXPECT_TRUE(parser.ParseFile(path.c_str(), &fromFile));
  CfSectionHolder fromText;
  OwnParser own;
  EXPECT_TRUE(own.ParseBuffer("a {\nb;\n}\n", &fromText));
  EXPECT_EQ(TreeText(fromFile), "[TREE_ROOT_SECTION]\n  [a]\n    b;\n");
  EXPECT_EQ(TreeText(fromText), TreeText(fromFile));
  EXPECT_TRUE(parser.FileWriter(path.c_str(), nullptr));
  EXPECT_EQ(ReadFile(path), "\na\n{\n\tb;\n}\n");
  EXPECT_FALSE(WriteSectionW(nullptr, fromFile.topNode.section));
  EXPECT_FALSE(WriteSectionEndW(nullptr, fromFile.topNode.section));
}

TEST(ExportedFileClasses, ReadBytes) {
  const ScratchFolder scratch;
  const std::string path = scratch.Write("a", "xyz");
  EXPECT_TRUE(FileUtility::IsFileExist(path.c_str()));
  FileIterator stream(path.c_str());
  char bytes[4] = {};
  EXPECT_EQ(stream.Read(bytes, 3), 3U);
  EXPECT_STREQ(bytes, "xyz");
  stream.CloseFile();
  CfLex lexer(&stream, false);
  EXPECT_EQ(lexer.GetToken(), nullptr);
}

}  // namespace
}  // namespace klepur::test
