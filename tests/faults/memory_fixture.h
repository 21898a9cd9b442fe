// The language of the tests that let memory run out in the operations of a configuration file.
#ifndef KLEPUR_TESTS_FAULTS_MEMORY_FIXTURE_H
#define KLEPUR_TESTS_FAULTS_MEMORY_FIXTURE_H

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "tests/faults/every_fault.h"
#include "tests/support/descriptors.h"
#include "tests/support/edit_fixture.h"
#include "tests/support/system_log.h"

namespace klepur::test {

/// How often an object was searched in vain, for a block's name and for a host's line, before the
/// operation that runs short of memory. An object that answers searches from tables of its own
/// makes them once searching has cost enough: with some of these numbers the operation makes them,
/// and with others it finds them made and has to keep them right.
struct Searches {
  int names;
  int lines;
};

inline constexpr Searches kSearches[] = {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {3, 1}, {3, 2}, {3, 3}};

template <class Family>
class MemoryFixture : public EditFixture<Family, Kind::kPlain> {
 public:
  using typename EditFixture<Family, Kind::kPlain>::Base;
  using typename EditFixture<Family, Kind::kPlain>::File;
  using typename EditFixture<Family, Kind::kPlain>::Section;
  using typename EditFixture<Family, Kind::kPlain>::TreeNode;

  MemoryFixture() { ClearSystemLog(); }

  void SearchInVain(const Searches& searches) {
    for (int i = 0; i != searches.names; ++i) {
      EXPECT_EQ(this->Conf().GetTreeItemByNameAt("no such block", nullptr), nullptr);
    }
    Section none;
    for (int i = 0; i != searches.lines; ++i) {
      EXPECT_FALSE(this->Conf().GetHostByIp("nowhere", none, false));
    }
  }

  /// ForEveryFault on an object that has just opened the file of this text and was then searched.
  template <class Operation, class Check>
  std::size_t ForEveryFaultIn(std::string_view text, const Searches& searches, Operation operation,
                              Check check) {
    const std::string path = this->scratch_.Write("dhcpd.conf", this->Text(text));
    return ForEveryFault(
        [&] {
          Reopen(path);
          SearchInVain(searches);
          ClearSystemLog();
        },
        operation, check,
        [this] {
          this->file_.reset();
          texts_ = {};
        });
  }

  void Reopen(const std::string& path) {
    this->file_ = std::make_unique<File>(path.c_str());
    ASSERT_TRUE(this->Conf().Open());
    texts_ = {};
    Collect(Reach<Base>::Holder(this->Conf()).topNode);
  }

  /// The tree is sound, every search finds what stands in it and nothing that is gone, and it can
  /// be saved and read again. The last searches bring nodes, so that the object looks into the tree
  /// alone from then on.
  void ExpectUsable() {
    ExpectSound(Reach<Base>::Holder(this->Conf()).topNode);
    ExpectSearchesRight();
    ExpectNodesFound();
    const std::string copy = this->scratch_.Path("copy.conf");
    ASSERT_EQ(this->Conf().Save(copy), 1);
    File again(copy.c_str());
    ASSERT_TRUE(again.Open());
    EXPECT_EQ(TreeText(Reach<Base>::Holder(again)), this->Tree());
    // Some file systems wait for the disk when a file is written over.
    std::filesystem::remove(copy);
  }

  /// The object can open its file again and then holds this tree.
  void ExpectOpens(const std::string& tree) {
    ASSERT_TRUE(this->Conf().Open());
    EXPECT_EQ(this->Tree(), tree);
    ExpectUsable();
  }

 private:
  static void ExpectSound(const TreeNode& node) {
    if (node.children == nullptr) return;
    for (const TreeNode* child : *node.children) {
      ASSERT_NE(child, nullptr);
      EXPECT_EQ(child->parent, &node);
      ExpectSound(*child);
    }
  }

  /// Adds the names and lines of a node and all below it to those that are looked for.
  void Collect(const TreeNode& node) {
    texts_.names.insert(node.section.GetName());
    for (const CfSectionEntry* entry : node.section.entryList) {
      texts_.lines.insert(entry->GetKeyName());
    }
    if (node.children == nullptr) return;
    for (const TreeNode* child : *node.children) Collect(*child);
  }

  /// Looks for all that stands in the tree, and for what stood in it when it was opened.
  void ExpectSearchesRight() {
    TreeNode& top = Reach<Base>::Holder(this->Conf()).topNode;
    if (top.children == nullptr || top.children->empty()) return;
    Collect(top);
    TreeNode* const subnet = Reach<Base>::CurrentSubnet(this->Conf());
    for (const std::string& name : texts_.names) {
      if (!name.starts_with("host ")) continue;
      EXPECT_EQ(this->Conf().GotoSection(name.substr(5).c_str(), SECTION_HOST),
                name != "host " && FirstNamed(subnet == nullptr ? *top.children->front() : *subnet,
                                              name) != nullptr)
          << name;
    }
    if (subnet == nullptr) return;
    for (const std::string& line : texts_.lines) {
      ExpectLineFound(line, FirstWithLine(*subnet, line));
    }
  }

  void ExpectNodesFound() {
    TreeNode& top = Reach<Base>::Holder(this->Conf()).topNode;
    if (top.children == nullptr || top.children->empty()) return;
    TreeNode& root = *top.children->front();
    for (const std::string& name : texts_.names) {
      EXPECT_EQ(this->Conf().GetTreeItemByNameAt(name.c_str(), nullptr), FirstNamed(root, name))
          << name;
    }
    ExpectFindsEach(root);
  }

  /// Each node is the first of its name in itself.
  void ExpectFindsEach(TreeNode& node) {
    EXPECT_EQ(this->Conf().GetTreeItemByNameAt(node.section.GetName(), &node), &node);
    if (node.children == nullptr) return;
    for (TreeNode* child : *node.children) ExpectFindsEach(*child);
  }

  static TreeNode* FirstNamed(TreeNode& node, std::string_view name) {
    if (name == node.section.GetName()) return &node;
    if (node.children == nullptr) return nullptr;
    for (TreeNode* child : *node.children) {
      if (TreeNode* const found = FirstNamed(*child, name)) return found;
    }
    return nullptr;
  }

  static const TreeNode* FirstWithLine(const TreeNode& subnet, std::string_view line) {
    if (subnet.children == nullptr) return nullptr;
    for (const TreeNode* child : *subnet.children) {
      for (const CfSectionEntry* entry : child->section.entryList) {
        if (line == entry->GetKeyName()) return child;
      }
    }
    return nullptr;
  }

  void ExpectLineFound(const std::string& line, const TreeNode* block) {
    Section found;
    EXPECT_EQ(this->Conf().GetSectionByKeyname(line.c_str(), found, true), block != nullptr)
        << line;
    if (block == nullptr) return;
    Section expected;
    this->Conf().TreeToDhcp(block->section, expected, true);
    EXPECT_EQ(RecordText(found), RecordText(expected)) << line;
  }

  struct Texts {
    std::set<std::string> names;
    std::set<std::string> lines;
  };
  Texts texts_;
};

}  // namespace klepur::test

#endif
