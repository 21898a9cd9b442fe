// Handles: small values that stay good, and say when their node is gone.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "tests/document/document_test.h"

namespace klepur::test {
namespace {

static_assert(std::is_trivially_copyable_v<Node> && sizeof(Node) <= 16);

class Handles : public EditTest {
 protected:
  void SetUp() override {
    Given(
        "# head\n"
        "\n"
        "max-lease-time 600; # ten\n"
        "group {\n"
        "  # Bob\n"
        "  host b { hardware ethernet 00:00:00:00:00:02; fixed-address 10.0.0.2; } # desk\n"
        "  host c { fixed-address 10.0.0.3; }\n"
        "}\n"
        "authoritative;\n");
    group = Find("group");
    b = Find("host b");
    c = Find("host c");
    address = b.Child("fixed-address");
  }

  Node group;
  Node b;
  Node c;
  Node address;
};
KLEPUR_WITH_BOTH_LINE_ENDS(Handles);

TEST_P(Handles, OfNoNodeAreGone) {
  const Node none;
  EXPECT_FALSE(none);
  EXPECT_TRUE(none.IsGone());
  EXPECT_FALSE(none.Is(NodeKind::kFile));
  EXPECT_EQ(none.Text(), "");
  EXPECT_EQ(none.Keyword(), "");
  EXPECT_EQ(none.Name(), "");
  EXPECT_EQ(none.Value(), "");
  EXPECT_EQ(none.Header(), "");
  EXPECT_FALSE(none.Parent());
  EXPECT_FALSE(none.FirstChild());
  EXPECT_FALSE(none.LastChild());
  EXPECT_FALSE(none.Next());
  EXPECT_FALSE(none.Previous());
  EXPECT_FALSE(none.Child("host"));
  EXPECT_FALSE(none.Child("host", "a"));
  EXPECT_FALSE(none.InForce("host"));
  EXPECT_TRUE(none.Comments().empty());
  EXPECT_TRUE(none.Disabled().empty());
  EXPECT_FALSE(none.IsDisabled());
  EXPECT_EQ(none.DisabledText(), "");
  EXPECT_EQ(none.Begin(), Position());
  EXPECT_EQ(none.End(), Position());
  EXPECT_EQ(none, Node());
  EXPECT_NE(none, Root());
}

TEST_P(Handles, OfTheSameNodeAreEqual) {
  EXPECT_EQ(b, group.FirstChild().Next());
  EXPECT_EQ(b.Next(), b.Comments()[1]);
  EXPECT_EQ(b.Next().Next(), c);
  EXPECT_EQ(c.Previous().Previous(), b);
  EXPECT_EQ(group.LastChild(), c);
  EXPECT_EQ(c.Parent(), group);
  EXPECT_EQ(group.Parent(), Root());
  EXPECT_FALSE(Root().Parent());
  EXPECT_NE(b, c);
  EXPECT_FALSE(c.Next());
  EXPECT_FALSE(group.FirstChild().Previous());
}

TEST_P(Handles, WalkOverTheChildren) {
  std::vector<std::string> keywords;
  for (const Node child : Root().Children()) keywords.push_back(child.Keyword());
  EXPECT_EQ(keywords,
            (std::vector<std::string>{"", "max-lease-time", "", "group", "authoritative"}));
}

TEST_P(Handles, AreGoneWithTheirNodeAndAllBelowIt) {
  const std::vector<Node> comments = b.Comments();
  ASSERT_EQ(comments.size(), 2U);
  Edit([&] { b.Remove(CommentsAbove::kTake); });
  EXPECT_TRUE(b.IsGone());
  EXPECT_TRUE(address.IsGone());
  EXPECT_TRUE(comments[0].IsGone());
  EXPECT_TRUE(comments[1].IsGone());
  EXPECT_EQ(b.Text(), "");
  EXPECT_FALSE(b.Next());
  EXPECT_FALSE(address.Parent());
  EXPECT_TRUE(c);
  EXPECT_EQ(group.FirstChild(), c);
}

TEST_P(Handles, AreGoneWithABlockFarAbove) {
  Edit([&] { group.Remove(); });
  EXPECT_TRUE(address.IsGone());
  EXPECT_TRUE(c.IsGone());
  EXPECT_FALSE(Find("host c"));
  EXPECT_EQ(Doc().Walk("host").size(), 0U);
}

TEST_P(Handles, AreBackWhenTheRemovalIsTakenBack) {
  const Document::Mark mark = Doc().GetMark();
  group.Remove();
  EXPECT_TRUE(address.IsGone());
  Doc().RollBack(mark);
  EXPECT_EQ(address.Value(), "10.0.0.2");
  EXPECT_EQ(Find("host b"), b);
}

TEST_P(Handles, OfWhatWasAddedAreGoneWhenThatIsTakenBack) {
  const Document::Mark mark = Doc().GetMark();
  const Node added = group.Add("host d { fixed-address 10.0.0.4; }");
  const Node below = added.FirstChild();
  EXPECT_EQ(below.Value(), "10.0.0.4");
  Doc().RollBack(mark);
  EXPECT_TRUE(added.IsGone());
  EXPECT_TRUE(below.IsGone());
}

TEST_P(Handles, StayGoodThroughAllOtherEdits) {
  Edit([&] {
    Root().Child("max-lease-time").SetValue("7200000");
    c.Add("next-server 10.0.0.5;");
    c.Rename("cc");
    group.Add("host d { fixed-address 10.0.0.4; }", Placement::First());
    Root().Child("authoritative").CommentOut();
    Root().Add("min-lease-time 60;", Placement::First());
    b.Child("hardware").Remove();
  });
  EXPECT_EQ(b.Text(), "host b { fixed-address 10.0.0.2; }");
  EXPECT_EQ(address.Text(), "fixed-address 10.0.0.2;");
  EXPECT_EQ(address.Parent(), b);
  EXPECT_EQ(c.Name(), "cc");
  EXPECT_EQ(Find("host cc"), c);
  EXPECT_EQ(address.Begin(), (Position{8, 12}));
}

TEST_P(Handles, StayGoodWhenTheirNodeIsChangedOrMoved) {
  Edit([&] {
    address.SetValue("10.0.0.22");
    b.MoveTo(Root());
    b.SetHeader("host bb");
  });
  EXPECT_EQ(b.Header(), "host bb");
  EXPECT_EQ(b.Parent(), Root());
  EXPECT_EQ(address.Value(), "10.0.0.22");
  EXPECT_EQ(address.Parent(), b);
}

TEST_P(Handles, StayGoodWhenTheirBlockOpens) {
  Edit([&] { b.Add("next-server 10.0.0.5;", Placement().WithTrailingComment("boot")); });
  EXPECT_EQ(address.Text(), "fixed-address 10.0.0.2;");
  EXPECT_EQ(address.Parent(), b);
  EXPECT_EQ(b.Comments().size(), 2U);
}

TEST_P(Handles, WalkEndsAtANodeThatIsRemovedOnTheWay) {
  int count = 0;
  for (Node child : Root().Children()) {
    ++count;
    if (child == group) child.Remove();
  }
  EXPECT_EQ(count, 4);
}

TEST_P(Handles, TellTheTextOfTheirNodeWithoutItsComments) {
  EXPECT_EQ(Root().Child("max-lease-time").Text(), "max-lease-time 600;");
  EXPECT_EQ(c.Text(), "host c { fixed-address 10.0.0.3; }");
  EXPECT_EQ(b.Comments()[0].Text(), "# Bob");
  EXPECT_EQ(b.Header(), "host b");
  EXPECT_EQ(address.Header(), "");
  EXPECT_EQ(b.Value(), "");
}

TEST(HandlesOfChildren, OfWhatWasBelowABlockAreGoneWhenItComesBackAsAnother) {
  Document document("host a {\n  fixed-address 10.0.0.1;\n  next-server 10.0.0.2;\n}\n");
  Node host = document.Find("host a");
  const Node address = host.Child("fixed-address");
  const Node server = host.Child("next-server");
  host.CommentOut();
  host.Next().Remove();
  host.BringBack();
  EXPECT_EQ(document.Text(), "host a {\n  next-server 10.0.0.2;\n}\n");
  EXPECT_TRUE(address.IsGone());
  EXPECT_TRUE(server.IsGone());
  EXPECT_EQ(host.Child("next-server").Value(), "10.0.0.2");
}

}  // namespace
}  // namespace klepur::test
