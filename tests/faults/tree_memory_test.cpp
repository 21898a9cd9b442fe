// Memory runs out in the classes of the tree, and in what cuts values out of lines.
#include <klepur/framework/tree_links.h>
#include <klepur/klepur.h>
#include <klepur/lookup/tree_index.h>

#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/faults/every_fault.h"
#include "tests/support/blocks.h"
#include "tests/support/family.h"
#include "tests/support/tree_text.h"

namespace klepur::test {
namespace {

using TreeNode = Tree<CfSection>::TreeNode;

/// A text longer than sections and entries keep without memory of their own.
constexpr const char* kLong = "option domain-name \"a-domain-name-that-needs-memory-of-its-own\";";

std::string Words(const CfSection& section) {
  std::string words = section.GetName();
  for (const CfSectionEntry* entry : section.entryList) {
    words += std::string(" | ") + (entry->GetComment() == nullptr ? "" : entry->GetComment()) +
             entry->GetKeyName();
  }
  return words;
}

// ---- sections ----

class SectionShortOfMemory : public ::testing::Test {
 protected:
  /// Whenever memory runs out in `change`, the section is as it was; else it reads `after`.
  void ExpectAllOrNothing(const std::function<void(CfSection&)>& change, const std::string& after) {
    std::unique_ptr<CfSection> section;
    const std::size_t struck = ForEveryFault(
        [&] {
          section = std::make_unique<CfSection>(Block("host a", {"#log one;", "log two;"}));
        },
        [&] { return change(*section), true; },
        [&](const Outcome& outcome) {
          EXPECT_EQ(outcome.threw, outcome.struck);
          EXPECT_EQ(Words(*section), outcome.threw ? "host a | #log one; | log two;" : after);
          if (outcome.threw) {
            change(*section);
            EXPECT_EQ(Words(*section), after);
          }
        },
        [&] { section.reset(); });
    EXPECT_GE(struck, 2U);
  }
};

TEST_F(SectionShortOfMemory, SetNameKeepsTheName) {
  ExpectAllOrNothing([](CfSection& section) { section.SetName(kLong); },
                     std::string(kLong) + " | #log one; | log two;");
}

TEST_F(SectionShortOfMemory, AddEntryAddsNothing) {
  ExpectAllOrNothing([](CfSection& section) { section.AddEntry(kLong, nullptr, "#"); },
                     "host a | #log one; | log two; | #" + std::string(kLong));
}

TEST_F(SectionShortOfMemory, InsertEntryAddsNothing) {
  CfSectionEntry entry;
  entry.SetKeyName(kLong);
  entry.SetComment("#");
  ExpectAllOrNothing([&](CfSection& section) { section.InsertEntry(&entry); },
                     "host a | #log one; | log two; | #" + std::string(kLong));
}

TEST_F(SectionShortOfMemory, AssignmentKeepsNameAndLines) {
  const CfSection other = Block(kLong, {"log three;", std::string("#") + kLong, "log four;"});
  ExpectAllOrNothing([&](CfSection& section) { section = other; },
                     std::string(kLong) + " | log three; | #" + kLong + " | log four;");
}

TEST_F(SectionShortOfMemory, CopyIsNotMade) {
  const CfSection other = Block(kLong, {"log three;", std::string("#") + kLong, "log four;"});
  ExpectAllOrNothing(
      [&](CfSection& section) {
        const CfSection copy(other);
        section.SetName(copy.GetName());
      },
      std::string(kLong) + " | #log one; | log two;");
}

TEST_F(SectionShortOfMemory, SetKeyNameAndSetCommentKeepTheLine) {
  ExpectAllOrNothing([](CfSection& section) { section.entryList[1]->SetKeyName(kLong); },
                     "host a | #log one; | " + std::string(kLong));
  const std::string mark(50, '#');
  ExpectAllOrNothing([&](CfSection& section) { section.entryList[0]->SetComment(mark.c_str()); },
                     "host a | " + mark + "log one; | log two;");
}

TEST_F(SectionShortOfMemory, RemovingAndClearingNeedNoMemory) {
  CfSection section = Block("host a", {"#log one;", "log two;", kLong});
  const MemoryFault fault(0, Shortage::kFromThenOn);
  const bool removed = section.RemoveEntry(section.entryList[0]) == 1;
  section.entryList[0]->UndoComment();
  section.ClearEntryList();
  EXPECT_FALSE(fault.Struck());
  EXPECT_TRUE(removed);
}

// ---- nodes ----

/// Blocks nested as deep as one walk needs several allocations for, and a last one beside them.
class TreeShortOfMemory : public ::testing::Test {
 protected:
  TreeShortOfMemory() {
    TreeNode* node = &holder_.topNode;
    for (int depth = 0; depth != 40; ++depth) node = Append(*node, "level");
    Append(holder_.topNode, "last");
  }

  static TreeNode* Append(TreeNode& parent, const char* name) {
    if (parent.children == nullptr) parent.children = new std::list<TreeNode*>;
    parent.children->push_back(new TreeNode(&parent, Block(name, {})));
    return parent.children->back();
  }

  void ExpectUnchangedThroughout(const std::function<bool()>& operation) {
    const std::string tree = TreeText(holder_);
    const std::size_t struck = ForEveryFault([] {}, operation,
                                             [&](const Outcome& outcome) {
                                               EXPECT_EQ(outcome.threw, outcome.struck);
                                               EXPECT_NE(outcome.result, outcome.struck);
                                               EXPECT_EQ(TreeText(holder_), tree);
                                               EXPECT_TRUE(operation());
                                             },
                                             [] {});
    EXPECT_GE(struck, 4U);
  }

  CfSectionHolder holder_;
};

bool Accept(CfSection& /*section*/) {
  return true;
}

bool Count(void* counter, CfSection& /*section*/) {
  ++*static_cast<int*>(counter);
  return true;
}

TEST_F(TreeShortOfMemory, WalksThrow) {
  ExpectUnchangedThroughout([this] { return holder_.topNode.TraverseDo(Accept); });
  ExpectUnchangedThroughout([this] { return holder_.topNode.TraverseDo(Accept, Accept); });
  ExpectUnchangedThroughout([this] {
    int calls = 0;
    return holder_.topNode.TraverseDo(&calls, Count, Count) && calls == 2 * 42;
  });
}

TEST_F(TreeShortOfMemory, SearchThrows) {
  const CfSection probe = Block("last", {});
  ExpectUnchangedThroughout([&] {
    return holder_.topNode.FindIf(probe, Condition1) == holder_.topNode.children->back();
  });
}

TEST_F(TreeShortOfMemory, LookupWalksWhenThereIsNoMemoryForItsTables) {
  std::size_t passing = 0;
  Outcome outcome;
  do {
    internal::TreeIndex index(holder_.topNode);
    // Two walks over all nodes cost more than tables: the next search makes them.
    for (int i = 0; i != 2; ++i) EXPECT_EQ(index.FirstNamed(holder_.topNode, "missing"), nullptr);
    outcome = RunShortOfMemory(passing++, Shortage::kOnce, [&] {
      return index.FirstNamed(holder_.topNode, "last") == holder_.topNode.children->back();
    });
    EXPECT_FALSE(outcome.threw);
    EXPECT_TRUE(outcome.result);
  } while (outcome.struck);
  EXPECT_GT(passing, 2U);
}

TEST_F(TreeShortOfMemory, AppendChildAppendsNothing) {
  const std::string tree = TreeText(holder_);
  TreeNode& last = *holder_.topNode.children->back();
  const std::size_t struck =
      ForEveryFault([] {},
                    [&] {
                      CfSection section;
                      section.SetName(kLong);
                      return internal::AppendChild(last, std::move(section)) != nullptr;
                    },
                    [&](const Outcome& outcome) {
                      EXPECT_EQ(outcome.threw, outcome.struck);
                      EXPECT_EQ(internal::FirstChild(last) == nullptr, outcome.threw);
                    },
                    [&] {
                      last.DeleteAllItems();
                      EXPECT_EQ(TreeText(holder_), tree);
                    });
  EXPECT_GE(struck, 2U);
}

TEST_F(TreeShortOfMemory, NodeIsNotMade) {
  const CfSection payload = Block(kLong, {"log one;"});
  std::unique_ptr<TreeNode> node;
  const std::size_t struck =
      ForEveryFault([] {},
                    [&] {
                      node = std::make_unique<TreeNode>(&holder_.topNode, payload);
                      return true;
                    },
                    [&](const Outcome& outcome) {
                      EXPECT_EQ(outcome.threw, outcome.struck);
                      EXPECT_EQ(node == nullptr, outcome.threw);
                    },
                    [&] { node.reset(); });
  EXPECT_GE(struck, 2U);
}

TEST_F(TreeShortOfMemory, HolderIsNotMade) {
  std::unique_ptr<CfSectionHolder> holder;
  ForEveryFault([] {}, [&] { return (holder = std::make_unique<CfSectionHolder>()) != nullptr; },
                [&](const Outcome& outcome) { EXPECT_EQ(holder == nullptr, outcome.threw); },
                [&] { holder.reset(); });
}

TEST_F(TreeShortOfMemory, DeletionNeedsNoMemory) {
  const MemoryFault fault(0, Shortage::kFromThenOn);
  const int result = holder_.topNode.DeleteAllItems();
  EXPECT_FALSE(fault.Struck());
  EXPECT_EQ(result, 0);
  EXPECT_EQ(holder_.topNode.children, nullptr);
}

// ---- values ----

template <class Family>
class ValuesShortOfMemory : public ::testing::Test {
 protected:
  /// Whenever memory runs out in `cut`, which is true when it cut the right value, the exception
  /// reaches the caller, and the next call is right.
  static void ExpectThrows(const std::function<bool()>& cut) {
    ForEveryFault([] {}, cut,
                  [&](const Outcome& outcome) {
                    EXPECT_EQ(outcome.threw, outcome.struck);
                    EXPECT_NE(outcome.result, outcome.struck);
                    EXPECT_TRUE(cut());
                  },
                  [] {});
  }

  typename Family::File file_;
};
TYPED_TEST_SUITE(ValuesShortOfMemory, Families, FamilyNames);

TYPED_TEST(ValuesShortOfMemory, GetValueFromString) {
  const std::string line = "option domain-name a-domain-name-that-needs-memory-of-its-own;";
  const std::string separator = ";";
  const std::string value = "a-domain-name-that-needs-memory-of-its-own";
  this->ExpectThrows([&] {
    std::string out;
    this->file_.GetValueFromString(line, separator, out);
    return out == value;
  });
}

TYPED_TEST(ValuesShortOfMemory, GetNameServers) {
  const std::list<std::string> servers = {"2001:db8:aaaa:bbbb:cccc::1", "2001:db8:aaaa:bbbb::2"};
  this->ExpectThrows([&] {
    std::list<std::string> out;
    return this->file_.GetNameServers("x 2001:db8:aaaa:bbbb:cccc::1, 2001:db8:aaaa:bbbb::2;",
                                      &out) &&
           out == servers;
  });
}

TYPED_TEST(ValuesShortOfMemory, ParameterTypes) {
  CfSectionEntry entry;
  entry.SetKeyName("authoritative; # and a comment that needs memory of its own");
  const std::string line = entry.GetKeyName();
  this->ExpectThrows([&] { return this->file_.GetEntryType(&entry) == TypeParam::kAuthoritative; });
  this->ExpectThrows(
      [&] { return TypeParam::Section::GetStringType(line) == TypeParam::kAuthoritative; });
}

TEST(ValuesShortOfMemory4, GetNetmaskBySubnet) {
  DhcpConfigFile file;
  ForEveryFault([] {},
                [&] {
                  return file.GetNetmaskBySubnet("192.168.1.1") ==
                         std::string("255.255.255.255\0", 16);
                },
                [](const Outcome& outcome) {
                  EXPECT_EQ(outcome.threw, outcome.struck);
                  EXPECT_NE(outcome.result, outcome.struck);
                },
                [] {});
}

}  // namespace
}  // namespace klepur::test
