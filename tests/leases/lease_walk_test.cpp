#include <klepur/leases/lease_walk.h>

#include <gmock/gmock.h>
#include <klepur/framework/tree_links.h>

#include <list>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/leases/lease_words.h"
#include "tests/support/blocks.h"
#include "tests/support/tree_text.h"

namespace klepur::test {
namespace {

using internal::AppendChild;
using internal::TakeLeases;
using internal::TreeNode;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Trees that no file makes.
class LeaseWalk : public ::testing::Test {
 protected:
  LeaseWalk() : root_(*AppendChild(tree_.topNode, Block("TREE_ROOT_SECTION", {}))) {}

  std::vector<std::string> Leases() {
    std::list<_Dhcpv6LeaseStore> leases;
    TakeLeases(tree_, leases);
    return LeaseWords(leases);
  }

  /// What one statement alone says; the text of the exception when it ends the extraction.
  static std::string Statement(const std::string& line) {
    return Inner(Block("iaaddr 2001:db8::1", {line}));
  }

  /// What one block inside the association "A" says.
  static std::string Inner(const CfSection& block) {
    CfSectionHolder tree;
    TreeNode& root = *AppendChild(tree.topNode, Block("TREE_ROOT_SECTION", {}));
    AppendChild(*AppendChild(root, Block("ia-na \"A\"", {})), CfSection(block));
    std::list<_Dhcpv6LeaseStore> leases;
    try {
      TakeLeases(tree, leases);
    } catch (const std::out_of_range& error) {
      return error.what();
    }
    return leases.size() == 1 ? LeaseWords(leases.front()) : "no lease";
  }

  CfSectionHolder tree_;
  TreeNode& root_;
};

TEST_F(LeaseWalk, TreeWithoutNodesHasNoLeases) {
  std::list<_Dhcpv6LeaseStore> leases;
  CfSectionHolder tree;
  TakeLeases(tree, leases);
  EXPECT_THAT(leases, IsEmpty());
}

TEST_F(LeaseWalk, RootAloneHasNoLeases) {
  EXPECT_THAT(Leases(), IsEmpty());
}

TEST_F(LeaseWalk, EveryNodeAtTheTopIsLookedThrough) {
  AppendChild(root_, Block("ia-na \"A\"", {}));
  TreeNode& beside = *AppendChild(tree_.topNode, Block("anything", {}));
  AppendChild(beside, Block("ia-na \"B\"", {}));
  AppendChild(beside, Block("ia-na \"C\"", {}));
  EXPECT_THAT(Leases(), ElementsAre("41", "42", "43"));
}

TEST_F(LeaseWalk, TopAndWhatIsTooDeepAreNotAssociations) {
  AppendChild(tree_.topNode, Block("ia-na \"A\"", {}));
  AppendChild(*AppendChild(root_, Block("group", {})), Block("ia-na \"B\"", {}));
  EXPECT_THAT(Leases(), IsEmpty());
}

TEST_F(LeaseWalk, DeeperBlocksThanTheAddressAreNotRead) {
  TreeNode* block = AppendChild(root_, Block("ia-na \"A\"", {}));
  block = AppendChild(*block, Block("iaaddr 2001:db8::1", {"max-life 1;"}));
  for (int depth = 0; depth < 1000; ++depth) {
    block = AppendChild(*block, Block("iaaddr 2001:db8::2", {"max-life 2;", "set a = b;"}));
  }
  EXPECT_THAT(Leases(), ElementsAre("41 address=2001:db8::1 max=1"));
}

TEST_F(LeaseWalk, NullInAListOfChildrenIsPassedOver) {
  AppendChild(root_, Block("ia-na \"A\"", {}));
  root_.children->push_front(nullptr);
  tree_.topNode.children->push_back(nullptr);
  EXPECT_THAT(Leases(), ElementsAre("41"));
}

TEST_F(LeaseWalk, NullAmongTheLinesIsPassedOver) {
  TreeNode& block = *AppendChild(root_, Block("ia-na \"A\"", {}));
  TreeNode& inner = *AppendChild(block, Block("iaaddr 2001:db8::1", {"max-life 6;"}));
  std::vector<CfSectionEntry*>& lines = inner.section.entryList;
  lines.insert(lines.begin(), nullptr);
  EXPECT_THAT(Leases(), ElementsAre("41 address=2001:db8::1 max=6"));
}

TEST_F(LeaseWalk, AllBlocksAreDeleted) {
  AppendChild(*AppendChild(root_, Block("ia-na \"A\"", {})), Block("iaaddr 2001:db8::1", {}));
  AppendChild(*AppendChild(root_, Block("server-duid", {})), Block("inner", {"x 1;"}));
  EXPECT_THAT(Leases(), ElementsAre("41 address=2001:db8::1"));
  EXPECT_EQ(TreeText(tree_), "");
}

TEST_F(LeaseWalk, ExceptionKeepsTheLeasesBeforeIt) {
  AppendChild(root_, Block("ia-na \"A\"", {}));
  TreeNode& block = *AppendChild(root_, Block("ia-na \"B\"", {}));
  AppendChild(block, Block("iaaddr 2001:db8::1", {"set foo = bar;"}));
  AppendChild(root_, Block("ia-na \"C\"", {}));
  std::list<_Dhcpv6LeaseStore> leases;
  EXPECT_THROW(TakeLeases(tree_, leases), std::out_of_range);
  EXPECT_THAT(LeaseWords(leases), ElementsAre("41"));
}

/// What is taken of a tree block by block.
class LeaseExtractionTest : public LeaseWalk {
 protected:
  /// An association with one line in its address.
  TreeNode& Association(const char* name, const char* line) {
    TreeNode& block = *AppendChild(root_, Block(name, {}));
    AppendChild(block, Block("iaaddr 2001:db8::1", {line}));
    return block;
  }

  std::list<_Dhcpv6LeaseStore> leases_;
  internal::LeaseExtraction extraction_{tree_, leases_};
};

TEST_F(LeaseExtractionTest, BlockThatHasEndedIsTakenAndDeleted) {
  extraction_.TakeEnded(Association("ia-na \"A\"", "max-life 1;"));
  EXPECT_EQ(TreeText(tree_), "[TREE_ROOT_SECTION]\n");
  extraction_.TakeEnded(*AppendChild(root_, Block("server-duid", {})));
  EXPECT_EQ(TreeText(tree_), "[TREE_ROOT_SECTION]\n");
  EXPECT_THAT(LeaseWords(leases_), ElementsAre("41 address=2001:db8::1 max=1"));
}

TEST_F(LeaseExtractionTest, BlockWhereNoAssociationStandsIsLeftAlone) {
  TreeNode& block = Association("ia-na \"A\"", "max-life 1;");
  extraction_.TakeEnded(*block.children->front());
  extraction_.TakeEnded(root_);
  EXPECT_EQ(TreeText(tree_),
            "[TREE_ROOT_SECTION]\n"
            "  [ia-na \"A\"]\n"
            "    [iaaddr 2001:db8::1]\n"
            "      max-life 1;\n");
  EXPECT_THAT(leases_, IsEmpty());
}

TEST_F(LeaseExtractionTest, WhatHasNotEndedIsTakenAtTheEnd) {
  extraction_.TakeEnded(Association("ia-na \"A\"", "max-life 1;"));
  Association("ia-na \"B\"", "max-life 2;");
  extraction_.Finish();
  EXPECT_THAT(LeaseWords(leases_),
              ElementsAre("41 address=2001:db8::1 max=1", "42 address=2001:db8::1 max=2"));
}

TEST_F(LeaseExtractionTest, NothingIsTakenBehindAnErrorWhichIsThrownAtTheEnd) {
  extraction_.TakeEnded(Association("ia-na \"A\"", "max-life 1;"));
  extraction_.TakeEnded(Association("ia-na \"B\"", "set foo = bar;"));
  extraction_.TakeEnded(Association("ia-na \"C\"", "max-life 3;"));
  EXPECT_THROW(extraction_.Finish(), std::out_of_range);
  EXPECT_THAT(LeaseWords(leases_), ElementsAre("41 address=2001:db8::1 max=1"));
}

TEST_F(LeaseWalk, NamesOfAssociations) {
  const struct {
    const char* name;
    std::vector<std::string> leases;
  } rows[] = {
      {"", {}},
      {" ", {}},
      {"   ", {}},
      // a blank behind the keyword and nothing else
      {"ia-na ", {}},
      {"ia- na", {}},
      // the keyword's length counts from the start of the name, also behind blanks
      {" ia-na \"A\"", {"2041"}},
      {"  ia-na \"A\"", {"612041"}},
      {"i a - n a \"A\"", {"6e20612041"}},
  };
  for (const auto& row : rows) {
    CfSectionHolder tree;
    TreeNode& root = *AppendChild(tree.topNode, Block("TREE_ROOT_SECTION", {}));
    AppendChild(root, Block(row.name, {}));
    std::list<_Dhcpv6LeaseStore> leases;
    TakeLeases(tree, leases);
    EXPECT_EQ(LeaseWords(leases), row.leases) << "'" << row.name << "'";
  }
}

TEST_F(LeaseWalk, NamesOfInnerBlocks) {
  const struct {
    const char* name;
    const char* lease;
  } rows[] = {
      {"", "41"},
      {" ", "41"},
      {"iaaddr ", "41"},
      {"iaprefix ", "41"},
      {"iaaddr  ", "41 address= "},
      {" iaaddr 2001:db8::1", "41 address= 2001:db8::1"},
      // nothing is left behind the keyword and one more character
      {"iaaddr", "basic_string::substr"},
      {"iaprefix", "basic_string::substr"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Inner(Block(row.name, {})), row.lease) << "'" << row.name << "'";
  }
}

TEST_F(LeaseWalk, LineWithoutSemicolonOrThatBeginsWithOneIsPassedOver) {
  for (const char* line : {"", " ", "max-life", "max-life 600", "set foo = bar", ";", ";;",
                           "; max-life 600;", ";max-life 600;"}) {
    EXPECT_EQ(Statement(line), "41 address=2001:db8::1") << line;
  }
}

TEST_F(LeaseWalk, CommentedOutLineIsPassedOver) {
  for (const char* line : {"#", "#;", "#max-life 600;", "#set foo = bar;", "#foo;"}) {
    EXPECT_EQ(Statement(line), "41 address=2001:db8::1") << line;
  }
}

TEST_F(LeaseWalk, ValuesAreCutByTheLengthOfTheName) {
  const struct {
    const char* line;
    const char* words;
  } rows[] = {
      // the character behind the name is left out, whatever it is
      {"max-life 600;", " max=600"},
      {"max-life  600;", " max= 600"},
      {"max-life 600 ;", " max=600 "},
      {"max-life 600; ", " max=600"},
      {"max-life 600; x", " max=600"},
      {"max-life 600;;", " max=600"},
      {"max-life 6;00;", " max=6"},
      {"max-life ;", ""},
      {"max-life  ;", " max= "},
      {"max-life \"a;b\";", " max=\"a"},
      // blanks before the name count as part of it
      {" max-life 600;", " max= 600"},
      {"  max-life 600;", " max=e 600"},
      {" ends ;", " ends= "},
      // more than one blank in the name
      {"binding state active;", " state=active"},
      {"binding  state active;", " state= active"},
      {"binding   state active;", " state=e active"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Statement(row.line), "41 address=2001:db8::1" + std::string(row.words))
        << "'" << row.line << "'";
  }
}

}  // namespace
}  // namespace klepur::test
