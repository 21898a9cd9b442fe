// Blocks nested far deeper than any call stack reaches.
#include <gtest/gtest.h>
#include <klepur/klepur.h>

#include <cstddef>
#include <functional>
#include <list>
#include <string>
#include <string_view>

#include "tests/limits/long_texts.h"
#include "tests/limits/on_stack.h"
#include "tests/limits/sizes.h"
#include "tests/support/family.h"
#include "tests/support/files.h"

namespace klepur::test {
namespace {

using TreeNode = Tree<CfSection>::TreeNode;

/// So many blocks in each other: the outermost and the innermost have names of their own, the
/// innermost holds a line.
std::string Nested(std::size_t depth) {
  return "shared-network outermost {\n" + Repeated("group {\n", depth - 2) +
         "host innermost {\nlog x;\n" + Repeated("}\n", depth);
}

std::size_t visits;

bool Visit(CfSection& /*section*/) {
  ++visits;
  return true;
}

bool Count(void* counter, CfSection& /*section*/) {
  ++*static_cast<std::size_t*>(counter);
  return true;
}

class Depth : public ::testing::TestWithParam<std::size_t> {
 protected:
  static void OnTheStack(const std::function<void()>& task) { OnStack(GetParam(), task); }

  ScratchFolder scratch_;
};

std::string StackName(const ::testing::TestParamInfo<std::size_t>& stack) {
  return stack.param == kUsualStack ? "Usual" : "Small";
}

INSTANTIATE_TEST_SUITE_P(Stack, Depth, ::testing::Values(kUsualStack, kSmallStack), StackName);

/// The configuration object with its tree in reach.
template <class Family>
class Opened : public Family::File {
 public:
  using Family::File::currentNetwork;
  using Family::File::currentSubnet;
  using Family::File::File;
  using Family::File::holder;

  TreeNode& Root() { return *this->holder->topNode.children->front(); }
};

/// Again and again, so that whatever speeds searches up is used too.
template <class Family>
void ExpectSearched(Opened<Family>& file) {
  const TreeNode* const outermost = file.Root().children->front();
  EXPECT_EQ(file.currentNetwork, outermost);
  for (int i = 0; i != 4; ++i) {
    const TreeNode* const innermost = file.GetTreeItemByNameAt("host innermost", nullptr);
    ASSERT_NE(innermost, nullptr);
    EXPECT_EQ(innermost->children, nullptr);
    EXPECT_EQ(innermost->section.entryList.size(), 1U);
    EXPECT_EQ(file.GetTreeItemByNameAt("host missing", nullptr), nullptr);
    EXPECT_EQ(file.GetTreeItemByNameAt("group", nullptr), outermost->children->front());
  }
  EXPECT_TRUE(file.GotoSection("innermost", SECTION_HOST));
  typename Family::Section record;
  EXPECT_TRUE(file.GetSectionByName(record, "innermost"));
  EXPECT_FALSE(file.GetHostByIp("10.0.0.1", record, false));
}

/// So many sections are visited, and visited again behind those below them.
void ExpectWalked(TreeNode& node, std::size_t sections) {
  visits = 0;
  EXPECT_TRUE(node.TraverseDo(Visit));
  EXPECT_EQ(visits, sections);
  visits = 0;
  EXPECT_TRUE(node.TraverseDo(Visit, Visit));
  EXPECT_EQ(visits, 2 * sections);
  std::size_t counted = 0;
  EXPECT_TRUE(node.TraverseDo(&counted, Count, Count));
  EXPECT_EQ(counted, 2 * sections);
}

/// Every operation that goes through the whole tree, which is destroyed once empty and once full.
template <class Family>
void UseDeepFile(const std::string& path) {
  Opened<Family> file(path.c_str());
  ASSERT_TRUE(file.Open());
  ExpectSearched(file);
  ExpectWalked(file.Root(), kDeep + 1);
  EXPECT_EQ(file.Root().DeleteAllItems(), 0);
  EXPECT_EQ(file.Root().children, nullptr);
  EXPECT_TRUE(file.Open());
}

template <class Family>
void ExpectOutermostRemoved(Opened<Family>& file) {
  EXPECT_EQ(file.RemoveNetwork("outermost"), 1);
  EXPECT_EQ(file.currentNetwork, nullptr);
  EXPECT_EQ(file.currentSubnet, nullptr);
  EXPECT_TRUE(file.Root().children->empty());
  EXPECT_EQ(file.GetTreeItemByNameAt("host innermost", nullptr), nullptr);
}

TEST_P(Depth, BlocksAreOpenedSearchedWalkedClearedAndDestroyed) {
  // The families share what could recurse: one on each stack saves time.
  const std::string path = scratch_.Write("deep.conf", Nested(kDeep));
  OnTheStack([&] { GetParam() == kUsualStack ? UseDeepFile<V4>(path) : UseDeepFile<V6>(path); });
}

TEST_P(Depth, OutermostBlockIsRemovedWithAllInIt) {
  const std::string path = scratch_.Write("deep.conf", Nested(kDeep));
  OnTheStack([&] {
    Opened<V4> file(path.c_str());
    ASSERT_TRUE(file.Open());
    ExpectOutermostRemoved(file);
  });
}

TEST_P(Depth, OutermostBlockIsRemovedWithAllInItAfterSearches) {
  const std::string path = scratch_.Write("deep.conf", Nested(kDeep));
  OnTheStack([&] {
    Opened<V6> file(path.c_str());
    ASSERT_TRUE(file.Open());
    for (int i = 0; i != 4; ++i) {
      EXPECT_EQ(file.GetTreeItemByNameAt("host missing", nullptr), nullptr);
    }
    ExpectOutermostRemoved(file);
  });
}

/// Notes the walks that reach it, and its end.
class NotingNode : public TreeNode {
 public:
  NotingNode(TreeNode& above, std::string& notes) : TreeNode(&above, {}), notes_(notes) {}
  ~NotingNode() override { notes_ += "deleted "; }

  bool TraverseDo(bool (*visit)(CfSection&)) override {
    notes_ += "visited ";
    return TreeNode::TraverseDo(visit);
  }
  bool TraverseDo(bool (*pre)(CfSection&), bool (*post)(CfSection&)) override {
    notes_ += "walked ";
    return TreeNode::TraverseDo(pre, post);
  }
  bool TraverseDo(void* ctx, bool (*pre)(void*, CfSection&),
                  bool (*post)(void*, CfSection&)) override {
    notes_ += "walked-with-context ";
    return TreeNode::TraverseDo(ctx, pre, post);
  }

 private:
  std::string& notes_;
};

void Append(TreeNode& parent, TreeNode* child) {
  if (parent.children == nullptr) parent.children = new std::list<TreeNode*>;
  parent.children->push_back(child);
}

TEST_P(Depth, OverridesOfADerivedNodeAtTheBottomAreCalled) {
  const std::string path = scratch_.Write("deep.conf", Nested(kDeep));
  std::string notes;
  OnTheStack([&] {
    Opened<V4> file(path.c_str());
    ASSERT_TRUE(file.Open());
    TreeNode* const innermost = file.GetTreeItemByNameAt("host innermost", nullptr);
    auto* const derived = new NotingNode(*innermost, notes);
    Append(*innermost, derived);
    Append(*derived, new TreeNode(derived, {}));
    ExpectWalked(file.Root(), kDeep + 3);
    EXPECT_EQ(file.Root().DeleteAllItems(), 0);
  });
  EXPECT_EQ(notes, "visited walked walked-with-context deleted ");
}

TEST_P(Depth, BlocksAreAddedAndChangedAtTheBottom) {
  const std::string path = scratch_.Write("deep.conf", Nested(kDeep));
  OnTheStack([&] {
    Opened<V6> file(path.c_str());
    ASSERT_TRUE(file.Open());
    file.currentSubnet = file.GetTreeItemByNameAt("host innermost", nullptr);
    V6::Section host;
    host.params = {{false, V6::kName, "added"}, {false, V6::kMaxLeaseTime, "60"}};
    EXPECT_EQ(file.AddHost(host), 1);
    EXPECT_EQ(file.ChangeSection(host, "changed"), 1);
    EXPECT_NE(file.GetTreeItemByNameAt("host changed", nullptr), nullptr);
    EXPECT_EQ(file.RemoveHostSection("changed"), 1);
    EXPECT_EQ(file.GetTreeItemByNameAt("host changed", nullptr), nullptr);
  });
}

TEST_P(Depth, BlocksAreSavedAndReadAgain) {
  const std::string path = scratch_.Write("deep.conf", Nested(kDeepSaved));
  OnTheStack([&] {
    Opened<V4> file(path.c_str());
    ASSERT_TRUE(file.Open());
    EXPECT_EQ(file.Save(""), 1);
    ASSERT_TRUE(file.Open());
    ExpectWalked(file.Root(), kDeepSaved + 1);
  });
  const std::string saved = ReadFile(path);
  const std::string tabs(kDeepSaved - 1, '\t');
  const std::string bottom = "\n" + tabs + "host innermost\n" + tabs + "{\n\t" + tabs + "log x;\n" +
                             tabs + "}\n" + tabs.substr(1) + "}\n";
  EXPECT_TRUE(saved.starts_with("\nshared-network outermost\n{\n\n\tgroup\n\t{\n\n\t\tgroup\n"));
  EXPECT_NE(saved.find(bottom), std::string::npos);
  EXPECT_TRUE(saved.ends_with("\n\t\t}\n\t}\n\n}\n"));
}

TEST_P(Depth, LeasesFileWithBlocksInAnAddressGivesItsLease) {
  const std::string path =
      scratch_.Write("dhcpd6.leases", "ia-na \"AB\" {\niaaddr 2001:db8::1 {\nends never;\n" +
                                          Repeated("x {\n", kDeep - 2) + Repeated("}\n", kDeep));
  OnTheStack([&] {
    std::list<_Dhcpv6LeaseStore> leases;
    Dhcpv6LeasesParser().GetLeases(path.c_str(), leases);
    ASSERT_EQ(leases.size(), 1U);
    EXPECT_EQ(leases.front().address, "2001:db8::1");
    EXPECT_EQ(leases.front().ends, "never");
  });
}

TEST_P(Depth, ClosingBracesTooManyAndTooFewAreNoTrouble) {
  CfSectionHolder open;
  CfSectionHolder closed;
  const std::string opening = Repeated("a {\n", kDeep);
  const std::string closing = Repeated("}\n", kDeep) + "log x;\n";
  OnTheStack([&] {
    EXPECT_TRUE(DhcpParser().ParseBuffer(opening.c_str(), &open));
    EXPECT_TRUE(DhcpParser().ParseBuffer(closing.c_str(), &closed));
    ExpectWalked(open.topNode, kDeep + 2);
    open.topNode.DeleteAllItems();
  });
  ASSERT_EQ(closed.topNode.children->size(), 1U);
  EXPECT_EQ(closed.topNode.section.entryList.size(), 1U);
}

}  // namespace
}  // namespace klepur::test
