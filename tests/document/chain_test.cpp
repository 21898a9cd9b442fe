// "if" with its "elsif" and "else", and the labels of a "switch".
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/document/document_test.h"
#include "tests/support/document_tree.h"

namespace klepur::test {
namespace {

class Chain : public EditTest {
 protected:
  void GivenChain() {
    Given(
        "if option arch = 00:07 {\n"
        "  filename \"efi64\";\n"
        "} elsif option arch = 00:06 {\n"
        "  filename \"efi32\";\n"
        "} else {\n"
        "  filename \"bios\";\n"
        "}\n"
        "authoritative;\n");
  }
};
KLEPUR_WITH_BOTH_LINE_ENDS(Chain);

TEST_P(Chain, StatementIsAddedToTheBranchInTheMiddle) {
  Given(
      "if option arch = 00:07 {\n"
      "  filename \"efi64\";\n"
      "} elsif option arch = 00:06 {\n"
      "  filename \"efi32\";\n"
      "} else {\n"
      "  filename \"bios\";\n"
      "}\n");
  Node added;
  Edit([&] { added = Root().Child("elsif").Add("next-server 10.0.0.6;"); });
  EXPECT_EQ(Text(),
            "if option arch = 00:07 {\n"
            "  filename \"efi64\";\n"
            "} elsif option arch = 00:06 {\n"
            "  filename \"efi32\";\n"
            "  next-server 10.0.0.6;\n"
            "} else {\n"
            "  filename \"bios\";\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Chain, BranchesAreSiblings) {
  GivenChain();
  const Node first = Root().FirstChild();
  EXPECT_EQ(first.Keyword(), "if");
  EXPECT_EQ(first.Name(), "option arch = 00:07");
  EXPECT_EQ(first.Next().Keyword(), "elsif");
  EXPECT_EQ(first.Next().Next().Keyword(), "else");
  EXPECT_EQ(first.Next().Next().Name(), "");
}

TEST_P(Chain, StatementIsAddedToTheFirstAndTheLastBranch) {
  GivenChain();
  Edit([&] {
    Root().Child("if").Add("next-server 10.0.0.7;", Placement::First());
    Root().Child("else").Add("next-server 10.0.0.5;");
  });
  EXPECT_EQ(Text(),
            "if option arch = 00:07 {\n"
            "  next-server 10.0.0.7;\n"
            "  filename \"efi64\";\n"
            "} elsif option arch = 00:06 {\n"
            "  filename \"efi32\";\n"
            "} else {\n"
            "  filename \"bios\";\n"
            "  next-server 10.0.0.5;\n"
            "}\n"
            "authoritative;\n");
}

TEST_P(Chain, GoesAsAWholeWithItsIf) {
  GivenChain();
  const Node last = Root().Child("else");
  Edit([&] { Root().Child("if").Remove(); });
  EXPECT_EQ(Text(), "authoritative;\n");
  EXPECT_TRUE(last.IsGone());
}

TEST_P(Chain, LosesABranchInTheMiddle) {
  GivenChain();
  Edit([&] { Root().Child("elsif").Remove(); });
  EXPECT_EQ(Text(),
            "if option arch = 00:07 {\n"
            "  filename \"efi64\";\n"
            "} else {\n"
            "  filename \"bios\";\n"
            "}\n"
            "authoritative;\n");
}

TEST_P(Chain, LosesItsLastBranch) {
  GivenChain();
  Edit([&] { Root().Child("else").Remove(); });
  EXPECT_EQ(Text(),
            "if option arch = 00:07 {\n"
            "  filename \"efi64\";\n"
            "} elsif option arch = 00:06 {\n"
            "  filename \"efi32\";\n"
            "}\n"
            "authoritative;\n");
}

TEST_P(Chain, IsCommentedOutAndBackAsAWhole) {
  GivenChain();
  Node chain = Root().Child("if");
  Edit([&] { chain.CommentOut(); });
  EXPECT_EQ(Text(),
            "# if option arch = 00:07 {\n"
            "#   filename \"efi64\";\n"
            "# } elsif option arch = 00:06 {\n"
            "#   filename \"efi32\";\n"
            "# } else {\n"
            "#   filename \"bios\";\n"
            "# }\n"
            "authoritative;\n");
  EXPECT_TRUE(chain.IsDisabled());
  EXPECT_TRUE(Root().Child("authoritative").Comments().empty());
  Edit([&] { chain.BringBack(); });
  EXPECT_EQ(Text(), First());
  EXPECT_TRUE(Root().Child("else"));
}

TEST_P(Chain, MovesAsAWhole) {
  Given(
      "if known {\n"
      "  filename \"a\";\n"
      "}\n"
      "else {\n"
      "  filename \"b\";\n"
      "}\n"
      "group {\n"
      "  filename \"c\";\n"
      "}\n");
  Node chain = Root().Child("if");
  Edit([&] { chain.MoveTo(Find("group")); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"c\";\n"
            "  if known {\n"
            "    filename \"a\";\n"
            "  }\n"
            "  else {\n"
            "    filename \"b\";\n"
            "  }\n"
            "}\n");
  EXPECT_EQ(chain.Next().Keyword(), "else");
  Edit([&] { chain.MoveTo(Root(), Placement::First()); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Chain, NothingComesBetweenItsBranches) {
  GivenChain();
  const Node chain = Root().Child("if");
  EXPECT_EQ(Refused([&] { Root().Add("max-lease-time 600;", Placement::After(chain)); }),
            "bad place");
  EXPECT_EQ(Refused([&] { Root().Add("max-lease-time 600;", Placement::Before(chain.Next())); }),
            "bad place");
  EXPECT_EQ(
      Refused([&] { Root().Add("max-lease-time 600;", Placement::Before(Root().Child("else"))); }),
      "bad place");
}

TEST_P(Chain, WhatIsAddedBehindItsLastBranchIsBehindTheChain) {
  GivenChain();
  Edit([&] { Root().Add("max-lease-time 600;", Placement::After(Root().Child("else"))); });
  EXPECT_EQ(Text(),
            "if option arch = 00:07 {\n"
            "  filename \"efi64\";\n"
            "} elsif option arch = 00:06 {\n"
            "  filename \"efi32\";\n"
            "} else {\n"
            "  filename \"bios\";\n"
            "}\n"
            "max-lease-time 600;\n"
            "authoritative;\n");
}

TEST_P(Chain, IfIsAddedBehindTheLastOne) {
  Given(
      "if known {\n"
      "  filename \"a\";\n"
      "} else {\n"
      "  filename \"b\";\n"
      "}\n"
      "group {\n"
      "}\n");
  Node added;
  Edit([&] { added = Root().Add("if unknown {\nfilename \"c\";\n} else {\nfilename \"d\";\n}"); });
  EXPECT_EQ(Text(),
            "if known {\n"
            "  filename \"a\";\n"
            "} else {\n"
            "  filename \"b\";\n"
            "}\n"
            "if unknown {\n"
            "  filename \"c\";\n"
            "} else {\n"
            "  filename \"d\";\n"
            "}\n"
            "group {\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Chain, BranchIsAddedBehindItsIf) {
  Given(
      "if known {\n"
      "  filename \"a\";\n"
      "}\n"
      "authoritative;\n");
  Edit([&] { Root().Add("else { filename \"b\"; }", Placement::After(Root().Child("if"))); });
  const Node branch = Root().Child("else");
  EXPECT_EQ(branch.Previous(), Root().Child("if"));
  EXPECT_EQ(branch.Child("filename").Value(), "\"b\"");
}

TEST_P(Chain, BranchWithoutAnIfIsRefused) {
  Given(
      "group {\n"
      "}\n");
  EXPECT_NE(Refused([&] { Find("group").Add("else { filename \"b\"; }"); }), "nothing");
}

TEST_P(Chain, ConditionIsSet) {
  GivenChain();
  Edit([&] { Root().Child("elsif").SetHeader("elsif known"); });
  EXPECT_EQ(Text(),
            "if option arch = 00:07 {\n"
            "  filename \"efi64\";\n"
            "} elsif known {\n"
            "  filename \"efi32\";\n"
            "} else {\n"
            "  filename \"bios\";\n"
            "}\n"
            "authoritative;\n");
  Edit([&] { Root().Child("elsif").SetHeader("elsif option arch = 00:06"); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Chain, CommentsMayStandBetweenBranches) {
  Given(
      "if known { # one\n"
      "  filename \"a\";\n"
      "} # end of one\n"
      "# before the other\n"
      "else {\n"
      "  filename \"b\";\n"
      "} # end\n"
      "authoritative;\n");
  Node chain = Root().Child("if");
  Edit([&] { chain.CommentOut(); });
  EXPECT_EQ(Text(),
            "# if known { # one\n"
            "#   filename \"a\";\n"
            "# } # end of one\n"
            "# # before the other\n"
            "# else {\n"
            "#   filename \"b\";\n"
            "# } # end\n"
            "authoritative;\n");
  Edit([&] { chain.BringBack(); });
  EXPECT_EQ(Text(), First());
  Edit([&] { Root().Child("if").Remove(); });
  EXPECT_EQ(Text(), "authoritative;\n");
}

TEST_P(Chain, OnOneLine) {
  Given(
      "if known { filename \"a\"; } else { filename \"b\"; }\n"
      "authoritative;\n");
  Edit([&] { Root().Child("if").Add("next-server 10.0.0.5;"); });
  EXPECT_EQ(Text(),
            "if known { filename \"a\"; next-server 10.0.0.5; } else { filename \"b\"; }\n"
            "authoritative;\n");
  Edit([&] { Root().Child("else").Remove(); });
  EXPECT_EQ(Text(),
            "if known { filename \"a\"; next-server 10.0.0.5; }\n"
            "authoritative;\n");
}

// Labels.

class Switch : public EditTest {
 protected:
  void SetUp() override {
    Given(
        "switch (option arch) {\n"
        "  case 1:\n"
        "    filename \"a\";\n"
        "    break;\n"
        "  default:\n"
        "    filename \"b\";\n"
        "}\n");
    switch_ = Root().FirstChild();
  }

  Node switch_;
};
KLEPUR_WITH_BOTH_LINE_ENDS(Switch);

TEST_P(Switch, HoldsLabelsAndStatements) {
  EXPECT_EQ(DocumentTree(Doc()),
            "[switch ( option arch )]\n"
            "  case 1:\n"
            "  filename: \"a\"\n"
            "  break\n"
            "  default:\n"
            "  filename: \"b\"\n");
}

TEST_P(Switch, StatementIsAddedBehindOneOfACase) {
  Node added;
  Edit([&] {
    added = switch_.Add("next-server 10.0.0.5;", Placement::After(switch_.Child("filename")));
  });
  EXPECT_EQ(Text(),
            "switch (option arch) {\n"
            "  case 1:\n"
            "    filename \"a\";\n"
            "    next-server 10.0.0.5;\n"
            "    break;\n"
            "  default:\n"
            "    filename \"b\";\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Switch, StatementIsAddedLast) {
  Node added;
  Edit([&] { added = switch_.Add("next-server 10.0.0.5;", Placement::Last()); });
  EXPECT_EQ(Text(),
            "switch (option arch) {\n"
            "  case 1:\n"
            "    filename \"a\";\n"
            "    break;\n"
            "  default:\n"
            "    filename \"b\";\n"
            "    next-server 10.0.0.5;\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Switch, StatementOfACaseIsSetAndCommentedOut) {
  Node first = switch_.Child("filename");
  Edit([&] { first.SetValue("\"c\""); });
  EXPECT_EQ(Text(),
            "switch (option arch) {\n"
            "  case 1:\n"
            "    filename \"c\";\n"
            "    break;\n"
            "  default:\n"
            "    filename \"b\";\n"
            "}\n");
  Edit([&] { first.SetValue("\"a\""); });
  EXPECT_EQ(Text(), First());
  Edit([&] { first.CommentOut(); });
  EXPECT_EQ(Text(),
            "switch (option arch) {\n"
            "  case 1:\n"
            "    # filename \"a\";\n"
            "    break;\n"
            "  default:\n"
            "    filename \"b\";\n"
            "}\n");
  Edit([&] { first.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Switch, IsCommentedOutAndBack) {
  Edit([&] { switch_.CommentOut(); });
  EXPECT_TRUE(switch_.IsDisabled());
  Edit([&] { switch_.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Chain, IsDisabledAsAWholeWithProseBelow) {
  Given(
      "# was { once }\n"
      "if known {\n"
      "  filename \"a\"; # one\n"
      "} else {\n"
      "  filename \"b\";\n"
      "} # end\n"
      "# prose\n"
      "authoritative;\n");
  Node chain = Root().Child("if");
  Edit([&] { chain.CommentOut(); });
  EXPECT_EQ(Text(),
            "# was { once }\n"
            "# if known {\n"
            "#   filename \"a\"; # one\n"
            "# } else {\n"
            "#   filename \"b\";\n"
            "# } # end\n"
            "# prose\n"
            "authoritative;\n");
  EXPECT_TRUE(chain.IsDisabled());
  EXPECT_EQ(Root().Child("authoritative").Comments().size(), 1U);
  Edit([&] { chain.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Chain, IsNotMovedIntoABranchOfItsOwn) {
  GivenChain();
  for (const char* const branch : {"if", "elsif", "else"}) {
    EXPECT_EQ(Refused([&] { Root().Child("if").MoveTo(Root().Child(branch)); }), "bad place")
        << branch;
  }
}

TEST_P(Chain, IsFoundInAgainAfterItWasMovedIntoAndCommentedOut) {
  Given(
      "if known {\n"
      "  filename \"a\";\n"
      "} else {\n"
      "}\n"
      "group {\n"
      "  filename \"b\";\n"
      "}\n");
  Node group = Find("group");
  Edit([&] { group.MoveTo(Root().Child("if")); });
  Node chain = Root().Child("if");
  Edit([&] { chain.CommentOut(); });
  EXPECT_TRUE(Doc().FindAll("group").empty());
  Edit([&] { chain.BringBack(); });
  const std::vector<Node> groups = Doc().FindAll("group");
  ASSERT_EQ(groups.size(), 1U);
  EXPECT_EQ(groups[0].Parent(), chain);
}

TEST_P(Chain, OfManyLinesIsDisabledAsAWhole) {
  std::string text = "if known {\n";
  for (int i = 0; i != 30; ++i) text += "  filename \"" + std::to_string(i) + "\";\n";
  text += "}\nelsif unknown {\n";
  for (int i = 0; i != 30; ++i) text += "  filename \"" + std::to_string(i) + "\";\n";
  text += "} else {\n}\nauthoritative;\n";
  Given(text);
  Node chain = Root().Child("if");
  Edit([&] { chain.CommentOut(); });
  EXPECT_NE(chain.DisabledText().find("else"), std::string::npos);
  EXPECT_TRUE(Root().Child("authoritative").Comments().empty());
  EXPECT_EQ(Document(Doc().Text()).Root().Disabled().front().DisabledText(), chain.DisabledText());
  Edit([&] { chain.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Chain, OfAnyNumberOfLinesIsDisabledAsAWhole) {
  for (int lines = 0; lines != 40; ++lines) {
    std::string text = "if known {\n";
    for (int i = 0; i != lines; ++i) text += "  filename \"a\";\n";
    Given(text + "}\nelse {\n}\n# prose\nauthoritative;\n");
    Node chain = Root().Child("if");
    chain.CommentOut();
    EXPECT_NE(chain.DisabledText().find("else"), std::string::npos) << lines;
    EXPECT_EQ(Root().Child("authoritative").Comments().size(), 1U) << lines;
    chain.BringBack();
    EXPECT_EQ(Text(), First()) << lines;
  }
}

}  // namespace
}  // namespace klepur::test
