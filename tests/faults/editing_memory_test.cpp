// Memory runs out while a configuration file is edited.
#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "tests/faults/memory_fixture.h"

namespace klepur::test {
namespace {

constexpr std::string_view kFile = R"(max-lease-time 7200;
shared-network office {
  @header1 {
    max-lease-time 600;
    host a {
      @fixed @ip1;
      max-lease-time 60;
    }
    if known {
      max-lease-time 30;
    }
  }
}
shared-network other {
  if known {
    max-lease-time 30;
  }
}
)";

constexpr std::string_view kTree =
    "[TREE_ROOT_SECTION]\n"
    "  max-lease-time 7200;\n"
    "  [shared-network office]\n"
    "    [@header1]\n"
    "      max-lease-time 600;\n"
    "      [host a]\n"
    "        @fixed @ip1;\n"
    "        max-lease-time 60;\n"
    "      [if known]\n"
    "        max-lease-time 30;\n"
    "  [shared-network other]\n"
    "    [if known]\n"
    "      max-lease-time 30;\n";

constexpr std::string_view kCursors = "shared-network office / @header1";

/// Longer than what sections and entries keep without memory of their own.
constexpr std::string_view kLongName = "a-workstation-with-a-name-that-needs-memory-of-its-own";

std::string Replaced(std::string_view text, std::string_view from, std::string_view to) {
  EXPECT_NE(text.find(from), std::string_view::npos) << from;
  return Replace(std::string(text), {{from, to}});
}

std::string Appended(std::string_view text) {
  return std::string(kTree).append(text);
}

template <class Family>
class EditingShortOfMemory : public MemoryFixture<Family> {
 public:
  using typename MemoryFixture<Family>::File;
  using typename MemoryFixture<Family>::Section;

  /// An edit of kFile.
  struct Edit {
    std::function<int(File&)> run;
    int result = 1;
    std::string_view cursors = kCursors;  // afterwards
    /// What the tree becomes, step by step. It was kTree before the first step.
    std::vector<std::string> steps;
  };

  /// Whenever memory runs out, the tree is as one of the steps leaves it, and the later memory runs
  /// out, the later that step is; the cursors are where they were or where the edit moves them; the
  /// object remains usable; and once the file is opened again the edit does its work.
  void ExpectSafe(const Edit& edit) {
    std::vector<std::string> steps = {this->Text(kTree)};
    for (const std::string& step : edit.steps) steps.push_back(this->Text(step));
    std::size_t failures = 0;
    for (const Searches& searches : kSearches) {
      SCOPED_TRACE(::testing::Message() << searches.names << " names and " << searches.lines
                                        << " lines were looked for before");
      std::size_t reached = 0;
      failures += this->ForEveryFaultIn(
          kFile, searches, [&] { return edit.run(this->Conf()) == edit.result; },
          [&](const Outcome& outcome) {
            if (!outcome.struck) reached = 0;
            Check(edit, steps, outcome, reached);
          });
    }
    EXPECT_GT(failures, 0U);
  }

 private:
  void Check(const Edit& edit, const std::vector<std::string>& steps, const Outcome& outcome,
             std::size_t& reached) {
    EXPECT_EQ(SystemLog(), std::vector<std::string>());
    if (outcome.threw) {
      const auto at = std::find(steps.begin() + static_cast<std::ptrdiff_t>(reached), steps.end(),
                                this->Tree());
      ASSERT_NE(at, steps.end()) << "behind step " << reached << " the tree is\n" << this->Tree();
      reached = static_cast<std::size_t>(at - steps.begin());
      if (this->Cursors() != this->Text(kCursors)) ExpectMoved(edit);
    } else {
      ExpectDone(edit, steps.back(), outcome.result);
    }
    this->ExpectUsable();
    if (!outcome.threw) return;
    this->ExpectOpens(steps.front());
    ExpectDone(edit, steps.back(), edit.run(this->Conf()) == edit.result);
    this->ExpectUsable();
  }

  void ExpectMoved(const Edit& edit) { EXPECT_EQ(this->Cursors(), this->Text(edit.cursors)); }

  void ExpectDone(const Edit& edit, const std::string& tree, bool result) {
    EXPECT_TRUE(result);
    EXPECT_EQ(this->Tree(), tree);
    ExpectMoved(edit);
  }
};
TYPED_TEST_SUITE(EditingShortOfMemory, Families, FamilyNames);

TYPED_TEST(EditingShortOfMemory, AddNetwork) {
  const auto record = this->Record(
      SECTION_SHARED_NETWORK, {{TypeParam::kName, kLongName}, {TypeParam::kMaxLeaseTime, "1"}});
  const std::string header = "shared-network " + std::string(kLongName);
  const std::string cursors = header + " / null";
  this->ExpectSafe({.run = [&](auto& file) { return file.AddNetwork(record); },
                    .cursors = cursors,
                    .steps = {Appended("  [" + header + "]\n    max-lease-time 1;\n")}});
}

TYPED_TEST(EditingShortOfMemory, AddSubnet) {
  // The address alone is looked for afterwards: it is the whole header in DHCPv6 only.
  constexpr bool kFound = std::is_same_v<TypeParam, V6>;
  const auto record =
      this->Record(SECTION_SUBNET, {{TypeParam::kName, "@name2"}, {TypeParam::kMaxLeaseTime, "1"}});
  this->ExpectSafe(
      {.run = [&](auto& file) { return file.AddSubnet(record); },
       .result = kFound ? 1 : 0,
       .cursors = kFound ? "shared-network office / @header2" : kCursors,
       .steps = {Replaced(kTree, "  [shared-network other]\n",
                          "    [@header2]\n      max-lease-time 1;\n  [shared-network other]\n")}});
}

TYPED_TEST(EditingShortOfMemory, AddHost) {
  const auto record = this->Record(SECTION_HOST, {{TypeParam::kName, kLongName},
                                                  {TypeParam::kFixedAddress, "@ip2"},
                                                  {TypeParam::kFilename, kLongName}});
  const std::string name(kLongName);
  this->ExpectSafe({.run = [&](auto& file) { return file.AddHost(record); },
                    .steps = {Replaced(kTree, "  [shared-network other]\n",
                                       "      [host " + name + "]\n        @fixed @ip2;\n" +
                                           "        filename \"" + name + "\";\n" +
                                           "  [shared-network other]\n")}});
}

TYPED_TEST(EditingShortOfMemory, AddIFSection) {
  const auto record =
      this->Marked(SECTION_IF, {{TypeParam::kName, "unknown"}, {TypeParam::kMaxLeaseTime, "#1"}});
  this->ExpectSafe(
      {.run = [&](auto& file) { return file.AddIFSection(record); },
       .steps = {Replaced(
           kTree, "  [shared-network other]\n",
           "      [if unknown]\n        #max-lease-time 1;\n  [shared-network other]\n")}});
}

TYPED_TEST(EditingShortOfMemory, AddSection) {
  const auto record =
      this->Record(SECTION_HOST, {{TypeParam::kName, "b"}, {TypeParam::kFixedAddress, "@ip2"}});
  this->ExpectSafe({.run = [&](auto& file) { return file.AddSection(record); },
                    .steps = {Replaced(kTree, "  [shared-network other]\n",
                                       "      [host b]\n        @fixed @ip2;\n"
                                       "  [shared-network other]\n")}});
}

TYPED_TEST(EditingShortOfMemory, AddTreeSection) {
  const auto record = this->Record(
      SECTION_HOST, {{TypeParam::kName, "class \"printers\""}, {77, "match if printer;"}});
  this->ExpectSafe({.run = [&](auto& file) { return file.AddTreeSection(record, nullptr) ? 1 : 0; },
                    .steps = {Appended("  [class \"printers\"]\n    match if printer;\n")}});
}

const std::string& WithoutHost() {
  static const std::string tree =
      Replaced(kTree, "      [host a]\n        @fixed @ip1;\n        max-lease-time 60;\n", "");
  return tree;
}

const std::string& WithoutIf() {
  static const std::string tree =
      Replaced(kTree, "      [if known]\n        max-lease-time 30;\n", "");
  return tree;
}

constexpr std::string_view kWithoutHosts =
    "[TREE_ROOT_SECTION]\n"
    "  max-lease-time 7200;\n"
    "  [shared-network office]\n"
    "    [@header1]\n"
    "      max-lease-time 600;\n"
    "  [shared-network other]\n"
    "    [if known]\n"
    "      max-lease-time 30;\n";

constexpr std::string_view kWithoutSubnet =
    "[TREE_ROOT_SECTION]\n"
    "  max-lease-time 7200;\n"
    "  [shared-network office]\n"
    "  [shared-network other]\n"
    "    [if known]\n"
    "      max-lease-time 30;\n";

constexpr std::string_view kWithoutNetwork =
    "[TREE_ROOT_SECTION]\n"
    "  max-lease-time 7200;\n"
    "  [shared-network other]\n"
    "    [if known]\n"
    "      max-lease-time 30;\n";

TYPED_TEST(EditingShortOfMemory, RemoveNetwork) {
  this->ExpectSafe({.run = [](auto& file) { return file.RemoveNetwork("office"); },
                    .cursors = "shared-network other / if known",
                    .steps = {std::string(kWithoutSubnet), std::string(kWithoutNetwork)}});
}

TYPED_TEST(EditingShortOfMemory, RemoveSubnetSection) {
  const std::string name = this->Text("@bare1");
  this->ExpectSafe(
      {.run = [&](auto& file) { return file.RemoveSubnetSection(name.c_str()); },
       .cursors = "shared-network office / null",
       .steps = {WithoutHost(), std::string(kWithoutHosts), std::string(kWithoutSubnet)}});
}

TYPED_TEST(EditingShortOfMemory, RemoveHostSection) {
  this->ExpectSafe(
      {.run = [](auto& file) { return file.RemoveHostSection("a"); }, .steps = {WithoutHost()}});
}

TYPED_TEST(EditingShortOfMemory, RemoveIFSection) {
  this->ExpectSafe(
      {.run = [](auto& file) { return file.RemoveIFSection("known"); }, .steps = {WithoutIf()}});
}

TYPED_TEST(EditingShortOfMemory, RemoveSection) {
  const auto record = this->Bare(SECTION_SHARED_NETWORK, "office");
  this->ExpectSafe({.run = [&](auto& file) { return file.RemoveSection(record); },
                    .cursors = "shared-network other / if known",
                    .steps = {std::string(kWithoutSubnet), std::string(kWithoutNetwork)}});
}

TYPED_TEST(EditingShortOfMemory, ChangeSection) {
  const auto record = this->Record(SECTION_HOST, {{TypeParam::kName, "a"},
                                                  {TypeParam::kFixedAddress, "@ip2"},
                                                  {TypeParam::kFilename, kLongName},
                                                  {TypeParam::kMaxLeaseTime, ""}});
  const std::string name(kLongName);
  const std::string renamed = Replaced(kTree, "[host a]", "[host " + name + "]");
  const std::string readdressed = Replaced(renamed, "@fixed @ip1;", "@fixed @ip2;");
  const std::string booted =
      Replaced(readdressed, "        max-lease-time 60;\n",
               "        max-lease-time 60;\n        filename \"" + name + "\";\n");
  const std::string done = Replaced(booted, "        max-lease-time 60;\n", "");
  this->ExpectSafe({.run = [&](auto& file) { return file.ChangeSection(record, kLongName.data()); },
                    .steps = {renamed, readdressed, booted, done}});
}

TYPED_TEST(EditingShortOfMemory, ChangeSectionThatCommentsALineOut) {
  const auto record = this->Marked(
      SECTION_SUBNET, {{TypeParam::kName, "@name1"}, {TypeParam::kMaxLeaseTime, "#900"}});
  this->ExpectSafe({.run = [&](auto& file) { return file.ChangeSection(record, nullptr); },
                    .steps = {Replaced(kTree, "max-lease-time 600;", "max-lease-time 900;"),
                              Replaced(kTree, "max-lease-time 600;", "#max-lease-time 900;")}});
}

TYPED_TEST(EditingShortOfMemory, ChangeTreeSection) {
  const auto record = this->Record(SECTION_IF, {{TypeParam::kMaxLeaseTime, "31"}});
  const std::string renamed = Replaced(kTree, "      [if known]", "      [if unknown]");
  this->ExpectSafe({.run =
                        [&](auto& file) {
                          CfSection& target =
                              file.GetTreeItemByNameAt("if known", nullptr)->section;
                          return file.ChangeTreeSection(record, &target, "unknown");
                        },
                    .steps = {renamed, Replaced(renamed, "        max-lease-time 30;",
                                                "        max-lease-time 31;")}});
}

TYPED_TEST(EditingShortOfMemory, SetSectionParams) {
  const std::string line = "filename \"" + std::string(kLongName) + "\";";
  const auto record = this->Marked(
      SECTION_HOST, {{TypeParam::kName, "a"}, {-1, line}, {TypeParam::kRange, "#range;"}});
  const std::string lines = "        @fixed @ip1;\n        max-lease-time 60;\n";
  this->ExpectSafe(
      {.run = [&](auto& file) { return file.SetSectionParams(record); },
       .steps = {Replaced(kTree, lines, ""), Replaced(kTree, lines, "        " + line + "\n"),
                 Replaced(kTree, lines, "        " + line + "\n        #range;\n")}});
}

}  // namespace
}  // namespace klepur::test
