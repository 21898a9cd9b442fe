#include <klepur/framework/section.h>

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "tests/support/blocks.h"

namespace klepur::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

static_assert(std::has_virtual_destructor_v<CfSection>);

/// The lines of a section, "#" before a commented-out one.
std::vector<std::string> Lines(const CfSection& section) {
  std::vector<std::string> lines;
  for (const CfSectionEntry* entry : section.entryList) {
    lines.push_back(std::string(entry->GetComment() != nullptr ? "#" : "") + entry->GetKeyName());
  }
  return lines;
}

CfSectionEntry Entry(const char* key, const char* comment = nullptr) {
  CfSectionEntry entry;
  entry.SetKeyName(key);
  entry.SetComment(comment);
  return entry;
}

/// Where FindEntry finds this key: the index, or the number of lines when it does not.
long FoundAt(CfSection& section, const char* key) {
  CfSectionEntry probe = Entry(key);
  return section.FindEntry(&probe) - section.entryList.begin();
}

TEST(Section, StartsWithAnEmptyNameAndNoLines) {
  const CfSection section;
  EXPECT_STREQ(section.GetName(), "");
  EXPECT_THAT(section.entryList, IsEmpty());
}

TEST(Section, KeepsItsOwnCopyOfTheName) {
  std::string name = "host pc-17";
  CfSection section;
  section.SetName(name.c_str());
  name[0] = 'X';
  EXPECT_STREQ(section.GetName(), "host pc-17");
}

TEST(Section, TakesAnotherNameAndKeepsItsLines) {
  CfSection section = Block("host pc-17", {"fixed-address 10.0.0.17;"});
  section.SetName("host pc-18");
  EXPECT_STREQ(section.GetName(), "host pc-18");
  EXPECT_THAT(Lines(section), ElementsAre("fixed-address 10.0.0.17;"));
}

TEST(Section, NullNameIsTheEmptyName) {
  CfSection section = Block("host pc-17", {});
  section.SetName(nullptr);
  EXPECT_STREQ(section.GetName(), "");
}

TEST(Section, CopyIsIndependentOfItsSource) {
  auto original = std::make_unique<CfSection>(Block("host a", {"x 1;", "#y 2;"}));
  const CfSection copy(*original);
  original->SetName("host b");
  original->entryList[0]->SetKeyName("changed");
  original->entryList[1]->UndoComment();
  original.reset();
  EXPECT_STREQ(copy.GetName(), "host a");
  EXPECT_THAT(Lines(copy), ElementsAre("x 1;", "#y 2;"));
}

TEST(Section, CopyLeavesItsSourceAsItWas) {
  const CfSection original = Block("host a", {"x 1;", "#y 2;"});
  CfSection copy(original);
  copy.SetName("host b");
  copy.ClearEntryList();
  EXPECT_STREQ(original.GetName(), "host a");
  EXPECT_THAT(Lines(original), ElementsAre("x 1;", "#y 2;"));
}

TEST(Section, MoveLeavesItsSourceAsIfNew) {
  CfSection original = Block("host a", {"x 1;"});
  const CfSection moved(std::move(original));
  EXPECT_STREQ(moved.GetName(), "host a");
  EXPECT_THAT(Lines(moved), ElementsAre("x 1;"));
  EXPECT_STREQ(original.GetName(), "");  // NOLINT(bugprone-use-after-move)
  EXPECT_THAT(Lines(original), IsEmpty());
}

TEST(Section, AssignmentReplacesNameAndLines) {
  CfSection section = Block("host a", {"x 1;", "y 2;"});
  const CfSection other = Block("host b", {"#z 3;"});
  section = other;
  EXPECT_STREQ(section.GetName(), "host b");
  EXPECT_THAT(Lines(section), ElementsAre("#z 3;"));
  EXPECT_THAT(Lines(other), ElementsAre("#z 3;"));
}

TEST(Section, AssignmentToItselfChangesNothing) {
  CfSection section = Block("host a", {"x 1;"});
  const CfSection& same = section;
  section = same;
  EXPECT_STREQ(section.GetName(), "host a");
  EXPECT_THAT(Lines(section), ElementsAre("x 1;"));
}

TEST(Section, AddEntryAppendsAndReturnsOne) {
  CfSection section = Block("", {"x 1;"});
  EXPECT_EQ(section.AddEntry("y 2;", nullptr, nullptr), 1);
  EXPECT_EQ(section.AddEntry("z 3;", nullptr, "#"), 1);
  EXPECT_THAT(Lines(section), ElementsAre("x 1;", "y 2;", "#z 3;"));
}

TEST(Section, AddEntryKeepsTheTextOfTheComment) {
  CfSection section;
  section.AddEntry("x 1;", nullptr, "#");
  EXPECT_STREQ(section.entryList[0]->GetComment(), "#");
}

TEST(Section, AddEntryCopiesTheKey) {
  std::string key = "x 1;";
  CfSection section;
  section.AddEntry(key.c_str(), nullptr, nullptr);
  key[0] = 'Y';
  EXPECT_THAT(Lines(section), ElementsAre("x 1;"));
}

TEST(Section, AddEntryKeepsEqualLinesApart) {
  CfSection section;
  section.AddEntry("x 1;", nullptr, nullptr);
  section.AddEntry("x 1;", nullptr, nullptr);
  EXPECT_THAT(Lines(section), ElementsAre("x 1;", "x 1;"));
}

TEST(Section, AddEntryTakesAnEmptyKey) {
  CfSection section;
  EXPECT_EQ(section.AddEntry("", nullptr, "#"), 1);
  EXPECT_THAT(Lines(section), ElementsAre("#"));
}

TEST(Section, AddEntryWithoutAKeyAddsNothing) {
  CfSection section;
  EXPECT_EQ(section.AddEntry(nullptr, nullptr, "#"), 0);
  EXPECT_THAT(Lines(section), IsEmpty());
}

TEST(Section, InsertEntryAppendsACopyAtTheEnd) {
  CfSection section = Block("", {"x 1;"});
  {
    CfSectionEntry entry = Entry("y 2;", "#");
    section.InsertEntry(&entry);
    entry.SetKeyName("changed");
    entry.UndoComment();
  }
  EXPECT_THAT(Lines(section), ElementsAre("x 1;", "#y 2;"));
}

TEST(Section, InsertEntryOfALineOfItsOwnDoublesIt) {
  CfSection section = Block("", {"x 1;", "y 2;"});
  section.InsertEntry(section.entryList[0]);
  EXPECT_THAT(Lines(section), ElementsAre("x 1;", "y 2;", "x 1;"));
}

TEST(Section, InsertEntryOfNullChangesNothing) {
  CfSection section = Block("", {"x 1;"});
  EXPECT_EQ(section.InsertEntry(nullptr), 0);
  EXPECT_THAT(Lines(section), ElementsAre("x 1;"));
}

TEST(Section, RemoveEntryRemovesTheVeryEntryAmongEqualOnes) {
  CfSection section = Block("", {"x 1;", "y 2;", "x 1;"});
  const CfSectionEntry* const first = section.entryList[0];
  EXPECT_EQ(section.RemoveEntry(section.entryList[2]), 1);
  EXPECT_THAT(Lines(section), ElementsAre("x 1;", "y 2;"));
  EXPECT_EQ(section.entryList[0], first);
}

TEST(Section, RemoveEntryOfAnotherSectionsLineChangesNothing) {
  CfSection section = Block("", {"x 1;"});
  CfSectionEntry stranger = Entry("x 1;");
  EXPECT_EQ(section.RemoveEntry(&stranger), 0);
  EXPECT_THAT(Lines(section), ElementsAre("x 1;"));
  EXPECT_STREQ(stranger.GetKeyName(), "x 1;");
}

TEST(Section, RemoveEntryOfNullChangesNothing) {
  CfSection section = Block("", {"x 1;"});
  EXPECT_EQ(section.RemoveEntry(nullptr), 0);
  EXPECT_THAT(Lines(section), ElementsAre("x 1;"));
}

TEST(Section, FindEntryComparesWholeKeysByteForByte) {
  CfSection section = Block("", {"range 10.0.0.1;", "#deny x;", "range 10.0.0.1;", ""});
  const struct {
    const char* key;
    long index;
  } rows[] = {
      // the first of equal lines
      {"range 10.0.0.1;", 0},
      // a commented-out line like a live one
      {"deny x;", 1},
      // the empty line
      {"", 3},
      // no line: another case, a part, a longer text, other blanks, the mark
      {"Range 10.0.0.1;", 4},
      {"range 10.0.0.1", 4},
      {"range 10.0.0.1; ", 4},
      {"range  10.0.0.1;", 4},
      {"#deny x;", 4},
  };
  for (const auto& row : rows) EXPECT_EQ(FoundAt(section, row.key), row.index) << row.key;
}

TEST(Section, FindEntryLooksAtTheKeyOfTheProbeOnly) {
  CfSection section = Block("", {"x 1;"});
  CfSectionEntry probe = Entry("x 1;", "#");
  EXPECT_EQ(section.FindEntry(&probe), section.entryList.begin());
}

TEST(Section, FindEntryInASectionWithoutLinesIsTheEnd) {
  CfSection section;
  CfSectionEntry probe = Entry("x 1;");
  EXPECT_EQ(section.FindEntry(&probe), section.entryList.end());
}

TEST(Section, FindEntryOfNullIsTheEnd) {
  CfSection section = Block("", {"x 1;"});
  EXPECT_EQ(section.FindEntry(nullptr), section.entryList.end());
}

TEST(Section, NullAmongTheLinesIsPassedOver) {
  CfSection section = Block("", {"x 1;", "y 2;"});
  section.entryList.insert(section.entryList.begin(), nullptr);
  CfSectionEntry probe = Entry("y 2;");
  EXPECT_EQ(section.FindEntry(&probe), section.entryList.begin() + 2);
  EXPECT_THAT(Lines(CfSection(section)), ElementsAre("x 1;", "y 2;"));
}

TEST(Section, ClearEntryListKeepsTheName) {
  CfSection section = Block("host a", {"x 1;", "#y 2;"});
  section.ClearEntryList();
  EXPECT_STREQ(section.GetName(), "host a");
  EXPECT_THAT(Lines(section), IsEmpty());
}

TEST(Section, TakesLinesAgainAfterClearEntryList) {
  CfSection section = Block("host a", {"x 1;"});
  section.ClearEntryList();
  section.ClearEntryList();
  section.AddEntry("y 2;", nullptr, nullptr);
  EXPECT_THAT(Lines(section), ElementsAre("y 2;"));
}

}  // namespace
}  // namespace klepur::test
