#include <klepur/framework/section_entry.h>

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(SectionEntry, StartsWithAnEmptyKeyAndNoComment) {
  const CfSectionEntry entry;
  EXPECT_STREQ(entry.GetKeyName(), "");
  EXPECT_EQ(entry.GetComment(), nullptr);
}

TEST(SectionEntry, KeepsItsOwnCopyOfTheKey) {
  std::string key = "option routers 10.0.0.1;";
  CfSectionEntry entry;
  entry.SetKeyName(key.c_str());
  key[0] = 'X';
  EXPECT_STREQ(entry.GetKeyName(), "option routers 10.0.0.1;");
}

TEST(SectionEntry, KeepsItsOwnCopyOfTheComment) {
  std::string comment = "#";
  CfSectionEntry entry;
  entry.SetComment(comment.c_str());
  comment[0] = 'X';
  EXPECT_STREQ(entry.GetComment(), "#");
}

TEST(SectionEntry, TakesAnotherKey) {
  CfSectionEntry entry;
  entry.SetKeyName("max-lease-time 7200;");
  entry.SetKeyName("max-lease-time 60;");
  EXPECT_STREQ(entry.GetKeyName(), "max-lease-time 60;");
}

TEST(SectionEntry, TakesItsOwnKey) {
  CfSectionEntry entry;
  entry.SetKeyName("max-lease-time 7200;");
  entry.SetKeyName(entry.GetKeyName() + 4);
  EXPECT_STREQ(entry.GetKeyName(), "lease-time 7200;");
}

TEST(SectionEntry, NullKeyIsTheEmptyKey) {
  CfSectionEntry entry;
  entry.SetKeyName("max-lease-time 7200;");
  entry.SetKeyName(nullptr);
  EXPECT_STREQ(entry.GetKeyName(), "");
}

TEST(SectionEntry, EmptyCommentIsAComment) {
  CfSectionEntry entry;
  entry.SetComment("");
  EXPECT_STREQ(entry.GetComment(), "");
}

TEST(SectionEntry, UndoCommentRemovesTheCommentAndKeepsTheKey) {
  CfSectionEntry entry;
  entry.SetKeyName("max-lease-time 7200;");
  entry.SetComment("#");
  entry.UndoComment();
  EXPECT_EQ(entry.GetComment(), nullptr);
  EXPECT_STREQ(entry.GetKeyName(), "max-lease-time 7200;");
}

TEST(SectionEntry, UndoCommentOnALiveLineChangesNothing) {
  CfSectionEntry entry;
  entry.SetKeyName("max-lease-time 7200;");
  entry.UndoComment();
  EXPECT_EQ(entry.GetComment(), nullptr);
  EXPECT_STREQ(entry.GetKeyName(), "max-lease-time 7200;");
}

TEST(SectionEntry, NullCommentIsNoComment) {
  CfSectionEntry entry;
  entry.SetComment("#");
  entry.SetComment(nullptr);
  EXPECT_EQ(entry.GetComment(), nullptr);
}

TEST(SectionEntry, CopyIsIndependent) {
  CfSectionEntry original;
  original.SetKeyName("max-lease-time 7200;");
  original.SetComment("#");
  const CfSectionEntry copy(original);
  original.SetKeyName("changed");
  original.UndoComment();
  EXPECT_STREQ(copy.GetKeyName(), "max-lease-time 7200;");
  EXPECT_STREQ(copy.GetComment(), "#");
}

TEST(SectionEntry, AssignmentCopiesKeyAndCommentOrTheWantOfOne) {
  CfSectionEntry live;
  live.SetKeyName("max-lease-time 7200;");
  CfSectionEntry commented;
  commented.SetKeyName("max-lease-time 60;");
  commented.SetComment("#");
  CfSectionEntry target;
  target = commented;
  EXPECT_STREQ(target.GetKeyName(), "max-lease-time 60;");
  EXPECT_STREQ(target.GetComment(), "#");
  target = live;
  EXPECT_STREQ(target.GetKeyName(), "max-lease-time 7200;");
  EXPECT_EQ(target.GetComment(), nullptr);
  EXPECT_STREQ(live.GetKeyName(), "max-lease-time 7200;");
  EXPECT_STREQ(commented.GetKeyName(), "max-lease-time 60;");
  EXPECT_STREQ(commented.GetComment(), "#");
}

TEST(SectionEntry, AssignmentToItselfChangesNothing) {
  CfSectionEntry entry;
  entry.SetKeyName("a line that is longer than what has room in the entry itself;");
  entry.SetComment("#");
  const CfSectionEntry& same = entry;
  entry = same;
  EXPECT_STREQ(entry.GetKeyName(), "a line that is longer than what has room in the entry itself;");
  EXPECT_STREQ(entry.GetComment(), "#");
}

}  // namespace
