// In a block of many children keywords are looked up in a table, which gives what walking would give, whatever is edited.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/document/document_test.h"

namespace klepur::test {
namespace {

constexpr int kWords = 100;
constexpr int kHosts = 20;

class ManyChildren : public EditTest {
 protected:
  void SetUp() override {
    std::string text = "group {\n  host first { }\n  label;\n";
    for (int i = 0; i != kWords; ++i) text += "  word" + std::to_string(i) + " 1;\n";
    for (int i = 0; i != kHosts; ++i) text += "  host h" + std::to_string(i) + " { }\n";
    Given(text + "}\nkey k { }\n");
    ExpectAsWalked();
  }

  Node Group() const { return Root().Child("group"); }
  Node Word(int number) const { return Group().Child("word" + std::to_string(number)); }

  Node LastWalked(std::string_view keyword) const {
    Node last;
    for (const Node& child : Group().Children()) {
      if (child.Is(NodeKind::kStatement) && child.Keyword() == keyword) last = child;
    }
    return last;
  }

  void ExpectAsWalked() const {
    for (const char* const keyword : {"label", "host", "key", "nothing", "other"}) {
      EXPECT_EQ(Group().InForce(keyword), LastWalked(keyword)) << keyword;
    }
    for (int i = 0; i != kWords; ++i) {
      const std::string keyword = "word" + std::to_string(i);
      EXPECT_EQ(Group().InForce(keyword), LastWalked(keyword)) << keyword;
    }
  }

  void EditAndLook(const Edits& edits) {
    Edit([&] {
      edits();
      ExpectAsWalked();
    });
    ExpectAsWalked();
  }
};
KLEPUR_WITH_BOTH_LINE_ENDS(ManyChildren);

TEST_P(ManyChildren, StatementsInForceAreThoseThatWalkingFinds) {
  Group().InForce("word3");
  EditAndLook([&] { Word(3).Remove(); });
  EditAndLook([&] { Word(4).SetValue("2"); });
  EditAndLook([&] { Word(5).CommentOut(); });
  EditAndLook([&] { Root().Add("other 1;"); });
  EditAndLook([&] { Group().Add("other 1;"); });
  EditAndLook([&] { Group().Add("other 2;", Placement::First()); });
  EditAndLook([&] { Group().Add("word7 2;", Placement::First()); });
  EditAndLook([&] { Group().Add("word8 2;\nword9 2;", Placement::Last()); });
  EditAndLook([&] { Group().InForce("word8").Remove(); });
  EditAndLook([&] { Word(10).MoveTo(Root()); });
  EditAndLook([&] { Root().Child("word10").MoveTo(Group()); });
  EditAndLook([&] { Word(11).MoveTo(Group(), Placement::First()); });
  EditAndLook([&] { Find("host first").SetHeader("nothing"); });
  EditAndLook([&] { Find("key k").MoveTo(Group()); });
}

TEST_P(ManyChildren, StatementsOfABlockThatWasCommentedOutAreFoundWhenItIsBack) {
  Node group = Group();
  group.InForce("word3");
  group.CommentOut();
  EXPECT_FALSE(group.InForce("word3"));
  EXPECT_FALSE(Root().InForce("word3"));
  group.BringBack();
  ExpectAsWalked();
}

TEST_P(ManyChildren, NewOnesGoBehindTheLastOfTheirKeyword) {
  const struct {
    const char* text;
    const char* behind;  // the beginning of what stands before it then
  } cases[] = {
      {"word3 2;", "word3 1;"},       {"host new { }", "host h19 "},  {"option a 1;", "word99 1;"},
      {"option a 2;", "option a 1;"}, {"option b 1;", "option a 2;"}, {"key new { }", "host new "},
  };
  for (const auto& row : cases) {
    const std::string text = Group().Add(row.text).Previous().Text();
    EXPECT_EQ(text.substr(0, std::string(row.behind).size()), row.behind) << row.text;
    ExpectAsWalked();
  }
}

TEST_P(ManyChildren, NewOnesFollowEachOther) {
  Find("host first").Remove();
  Node group = Group();
  for (int i = 0; i != 3; ++i) {
    const std::string number = std::to_string(i);
    EXPECT_EQ(group.Add("plain" + number + " 1;").Previous().Keyword(), i == 0   ? "word99"
                                                                        : i == 1 ? "option a0"
                                                                                 : "plain1");
    EXPECT_EQ(group.Add("option a" + number + " 1;").Previous().Keyword(),
              i == 0 ? "plain0" : "option a" + std::to_string(i - 1));
  }
}

TEST_P(ManyChildren, NewOnesFollowWhatWasPutElsewhereMeanwhile) {
  Find("host first").Remove();
  Node group = Group();
  group.Add("option a 1;");
  group.Add("option b 1;");
  group.Add("option a 2;");
  EXPECT_EQ(group.Add("option c 1;").Previous().Keyword(), "option b");
  group.Add("option z 1;", Placement::After(group.Child("option c")));
  EXPECT_EQ(group.Add("option d 1;").Previous().Keyword(), "option z");
  const Node plain = group.Add("plain 1;");
  const Node behind = group.Add("behind 1;", Placement::After(plain));
  EXPECT_EQ(group.Add("more 1;").Previous(), behind);
}

}  // namespace
}  // namespace klepur::test
