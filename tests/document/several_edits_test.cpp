// Several edits as one, and the way back.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/document/document_test.h"

namespace klepur::test {
namespace {

class SeveralEdits : public EditTest {};
KLEPUR_WITH_BOTH_LINE_ENDS(SeveralEdits);

constexpr char kHosts[] =
    "host a { next-server 10.0.0.5; filename \"a\"; option host-name \"a\"; }\n"
    "host b { next-server 10.0.0.5; filename \"b\"; }\n"
    "host c { next-server 10.0.0.6; filename \"c\"; }\n";

TEST_P(SeveralEdits, AsOneTwoOfThemOnALine) {
  Given(kHosts);
  Edit([&] {
    Doc().AsOne([&] {
      for (Node server : Doc().Walk("next-server")) {
        if (server.Value() == "10.0.0.5") server.SetValue("10.0.0.15");
      }
      Find("host a").Child("filename").Remove();
    });
  });
  EXPECT_EQ(Text(),
            "host a { next-server 10.0.0.15; option host-name \"a\"; }\n"
            "host b { next-server 10.0.0.15; filename \"b\"; }\n"
            "host c { next-server 10.0.0.6; filename \"c\"; }\n");
}

TEST_P(SeveralEdits, OneThatFailsLeavesNoneOfThem) {
  Given(kHosts);
  EXPECT_EQ(Refused([&] {
              Doc().AsOne([&] {
                Find("host b").Set("next-server", "10.0.0.15");
                Find("host a").Remove();
                Find("host c").Add("option host-name \"c\";");
                Find("host c").Add("host d {");
              });
            }),
            "bad text");
  EXPECT_FALSE(Doc().IsChanged());
  EXPECT_TRUE(Find("host a"));
}

TEST_P(SeveralEdits, TheCallersOwnExceptionLeavesNoneOfThemEither) {
  Given(kHosts);
  EXPECT_THROW(Doc().AsOne([&] {
    Find("host a").Remove();
    throw std::runtime_error("enough");
  }),
               std::runtime_error);
  EXPECT_EQ(Text(), First());
}

TEST_P(SeveralEdits, OfASeriesInASeriesOnlyTheInnerIsTakenBack) {
  Given(kHosts);
  Edit([&] {
    Doc().AsOne([&] {
      Find("host a").Remove();
      try {
        Doc().AsOne([&] {
          Find("host b").Remove();
          Find("host b").Remove();
        });
      } catch (const Error&) {
      }
      Find("host c").Remove();
    });
  });
  EXPECT_EQ(Text(), "host b { next-server 10.0.0.5; filename \"b\"; }\n");
}

TEST_P(SeveralEdits, AreTakenBackToAnyMark) {
  Given(kHosts);
  const Document::Mark first = Doc().GetMark();
  Node host = Find("host a");
  host.Rename("x");
  const std::string once = Text();
  const Document::Mark second = Doc().GetMark();
  host.Remove();
  Root().Add("host y { fixed-address 10.0.0.1; }");
  const Document::Mark third = Doc().GetMark();
  Doc().RollBack(third);
  EXPECT_TRUE(Find("host y"));
  Doc().RollBack(second);
  EXPECT_EQ(Text(), once);
  EXPECT_EQ(Find("host x"), host);
  Doc().RollBack(first);
  EXPECT_EQ(Text(), First());
  EXPECT_EQ(Find("host a"), host);
}

TEST_P(SeveralEdits, AreTakenBackAndOthersMade) {
  Given(kHosts);
  const Document::Mark mark = Doc().GetMark();
  Root().Add("host x { fixed-address 10.0.0.1; }");
  Doc().RollBack(mark);
  Root().Add("host y { fixed-address 10.0.0.1; }");
  EXPECT_EQ(Text(), std::string(kHosts) + "host y { fixed-address 10.0.0.1; }\n");
  EXPECT_FALSE(Find("host x"));
  EXPECT_TRUE(Find("host y"));
}

TEST_P(SeveralEdits, RemoveEveryOther) {
  std::string text = "authoritative;\n";
  std::string expected = text;
  for (int i = 0; i != 40; ++i) {
    const std::string host = "host h" + std::to_string(i) + " { fixed-address 10.0.0." +
                             std::to_string(i) + "; } # " + std::to_string(i) + "\n";
    text += host;
    if (i % 2 != 0) expected += host;
  }
  Given(text);
  Edit([&] {
    const std::vector<Node> hosts = Doc().Walk("host");
    for (std::size_t i = 0; i < hosts.size(); i += 2) Node(hosts[i]).Remove();
  });
  EXPECT_EQ(Text(), expected);
}

TEST_P(SeveralEdits, AddedInOneOrderAndRemovedInAnother) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "\n"
      "  # phones\n"
      "  host p { fixed-address 10.0.0.9; }\n"
      "\n"
      "  # the end\n"
      "}\n"
      "authoritative;");
  Node group = Find("group");
  std::vector<int> order = {0, 1, 2, 3, 4};
  do {
    std::vector<Node> added;
    added.push_back(group.Add("max-lease-time 600;"));
    added.push_back(group.Add("host q { fixed-address 10.0.0.10; }"));
    added.push_back(group.Add("next-server 10.0.0.5;", Placement::First()));
    added.push_back(group.Add("host r { fixed-address 10.0.0.11; } # r",
                              Placement::Before(Find("host p")).WithComment("spare")));
    added.push_back(Root().Add("min-lease-time 60;", Placement::Last()));
    ASSERT_EQ(Text(),
              "group {\n"
              "  next-server 10.0.0.5;\n"
              "  filename \"a\";\n"
              "  max-lease-time 600;\n"
              "\n"
              "  # spare\n"
              "  host r { fixed-address 10.0.0.11; } # r\n"
              "  # phones\n"
              "  host p { fixed-address 10.0.0.9; }\n"
              "  host q { fixed-address 10.0.0.10; }\n"
              "\n"
              "  # the end\n"
              "}\n"
              "authoritative;\n"
              "min-lease-time 60;");
    for (const int which : order) {
      added[static_cast<std::size_t>(which)].Remove(CommentsAbove::kTake);
    }
    ASSERT_EQ(Text(), First()) << order[0] << order[1] << order[2] << order[3] << order[4];
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST_P(SeveralEdits, ValuesSetAndSetBackInAnyOrder) {
  Given(
      "group {\n"
      "  max-lease-time 600;      # one\n"
      "  min-lease-time 60;       # two\n"
      "  default-lease-time 300;  # three\n"
      "}\n");
  Node group = Find("group");
  const std::vector<std::string> keywords = {"max-lease-time", "min-lease-time",
                                             "default-lease-time"};
  const std::vector<std::string> values = {"600", "60", "300"};
  std::vector<std::size_t> order = {0, 1, 2};
  do {
    for (const std::string& keyword : keywords) group.Set(keyword, "1");
    EXPECT_EQ(Text(),
              "group {\n"
              "  max-lease-time 1;        # one\n"
              "  min-lease-time 1;        # two\n"
              "  default-lease-time 1;    # three\n"
              "}\n");
    for (const std::size_t which : order) group.Set(keywords[which], values[which]);
    ASSERT_EQ(Text(), First());
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST_P(SeveralEdits, ThatGiveTheFirstTextAreNoChange) {
  Given(kHosts);
  const Document::Mark mark = Doc().GetMark();
  Find("host a").Set("next-server", "10.0.0.15");
  EXPECT_TRUE(Doc().IsChanged());
  Find("host a").Set("next-server", "10.0.0.5");
  EXPECT_EQ(Text(), First());
  EXPECT_FALSE(Doc().IsChanged());
  Find("host a").Set("next-server", "10.0.0.5");
  EXPECT_FALSE(Doc().IsChanged());
  Find("host a").Remove();
  EXPECT_TRUE(Doc().IsChanged());
  Doc().RollBack(mark);
  EXPECT_FALSE(Doc().IsChanged());
}

TEST(ManyEdits, TenThousandAreMadeAndTakenBack) {
  std::string text;
  std::string expected;
  for (int i = 0; i != 10000; ++i) {
    const std::string number = std::to_string(i);
    text += "host h" + number + " { fixed-address 10.0.0.1; }\n";
    expected += "host h" + number + " { fixed-address 10.0.0.2; }\n";
  }
  Document document(text);
  const Document::Mark mark = document.GetMark();
  for (int time = 0; time != 2; ++time) {
    document.AsOne([&] {
      for (int i = 0; i != 10000; ++i) {
        document.Find("host h" + std::to_string(i)).Set("fixed-address", "10.0.0.2");
      }
    });
    EXPECT_EQ(document.Text(), expected);
    document.RollBack(mark);
    EXPECT_EQ(document.Text(), text);
  }
}

}  // namespace
}  // namespace klepur::test
