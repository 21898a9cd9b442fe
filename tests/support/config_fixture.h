// The language in which the tests of the configuration classes speak.
#ifndef KLEPUR_TESTS_SUPPORT_CONFIG_FIXTURE_H
#define KLEPUR_TESTS_SUPPORT_CONFIG_FIXTURE_H

#include <gtest/gtest.h>
#include <klepur/klepur.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "tests/support/family.h"
#include "tests/support/files.h"
#include "tests/support/reach.h"
#include "tests/support/tree_text.h"

namespace klepur::test {

/// A record in one line: its type, then each parameter, "#" before one that is commented out:
///
///     3 | 0=pc-17 | 16=00:11:22:33:44:55 | #17=10.0.0.17
template <class Section>
std::string RecordText(const Section& record) {
  std::string text = std::to_string(static_cast<int>(record.type));
  for (const auto& param : record.params) {
    text += std::string(" | ") + (param.commented ? "#" : "") + std::to_string(param.type) + "=" +
            param.value;
  }
  return text;
}

/// Whether a test has its file as a class derived from the library's, which brings the protected
/// members into reach and has the file answer from its tree alone, or as callers have it.
enum class Kind { kDerived, kPlain };

/// A configuration file of one family that a test can look inside.
template <class Family, Kind kKind = Kind::kDerived>
class ConfigFixture : public ::testing::Test {
 public:
  using Base = typename Family::File;
  using Section = typename Family::Section;
  using TreeNode = Tree<CfSection>::TreeNode;

  /// The class under test with its members in reach.
  class Derived : public Base {
   public:
    using Base::Base;
    using Base::confFileName;
    using Base::currentNetwork;
    using Base::currentSubnet;
    using Base::holder;
    using Base::isRead;
    using Base::parser;
  };
  using File = std::conditional_t<kKind == Kind::kDerived, Derived, Base>;

  /// Opens a file of this text; the placeholders of Family::Text stand for the family's words.
  void Given(std::string_view text) {
    const std::string path = scratch_.Write("dhcpd.conf", Family::Text(text));
    file_ = std::make_unique<File>(path.c_str());
    ASSERT_TRUE(file_->Open());
  }

  /// The object that Given opened.
  File& Conf() { return *file_; }

  /// The whole tree, see tree_text.h.
  std::string Tree() const { return TreeText(Reach<Base>::Holder(*file_)); }

  /// What Save writes to the file that Given opened.
  std::string Saved() {
    EXPECT_EQ(file_->Save(""), 1);
    return ReadFile(file_->GetConfFileName());
  }

  /// Both cursors: "office / subnet 10.0.0.0 netmask 255.0.0.0", "null / null".
  std::string Cursors() const {
    return HeaderOf(Reach<Base>::CurrentNetwork(*file_)) + " / " +
           HeaderOf(Reach<Base>::CurrentSubnet(*file_));
  }

  /// A record without comment marks; values may hold the placeholders of Family::Text.
  static Section Record(typename Section::SectionType type,
                        std::initializer_list<std::pair<int, std::string_view>> params) {
    Section record;
    record.type = type;
    for (const auto& [paramType, value] : params) {
      record.params.push_back({false, paramType, Family::Text(value)});
    }
    return record;
  }

  /// The block with this header, anywhere in the file; fails the test when there is none.
  TreeNode* Node(std::string_view header) {
    TreeNode* node = file_->GetTreeItemByNameAt(Family::Text(header).c_str(), nullptr);
    EXPECT_NE(node, nullptr) << header;
    return node;
  }

 protected:
  static std::string HeaderOf(const TreeNode* node) {
    return node == nullptr ? "null" : node->section.GetName();
  }

  ScratchFolder scratch_;
  std::unique_ptr<File> file_;
};

}  // namespace klepur::test

#endif
