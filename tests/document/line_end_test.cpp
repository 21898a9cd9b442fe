// Line ends, the end of the file, and its beginning.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/document/document_test.h"

namespace klepur::test {
namespace {

/// Of texts whose line ends are what they are.
class LineEnd : public DocumentTest {};

TEST_F(LineEnd, OfAnAddedLineIsThatOfAFileWithCarriageReturns) {
  Given(
      "group {\r\n"
      "  host a { fixed-address 10.0.0.1; }\r\n"
      "}\r\n");
  Node added;
  Edit([&] { added = Find("group").Add("host b { fixed-address 10.0.0.2; }\n"); });
  EXPECT_EQ(Text(),
            "group {\r\n"
            "  host a { fixed-address 10.0.0.1; }\r\n"
            "  host b { fixed-address 10.0.0.2; }\r\n"
            "}\r\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_F(LineEnd, OfAnAddedLineIsThatOfTheLineAbove) {
  Given(
      "option domain-name \"a\";\r\n"
      "group {\r\n"
      "  host a { fixed-address 10.0.0.1; }\n"
      "}\n");
  Node statement;
  Node block;
  Edit([&] {
    statement = Root().Add("max-lease-time 600;");
    block = Find("group").Add("host b { fixed-address 10.0.0.2; }");
  });
  EXPECT_EQ(Text(),
            "option domain-name \"a\";\r\n"
            "max-lease-time 600;\r\n"
            "group {\r\n"
            "  host a { fixed-address 10.0.0.1; }\n"
            "  host b { fixed-address 10.0.0.2; }\n"
            "}\n");
  Edit([&] {
    statement.Remove();
    block.Remove();
  });
  EXPECT_EQ(Text(), First());
}

TEST_F(LineEnd, OfEachAddedLineIsTheSame) {
  Given(
      "group {\n"
      "}\n"
      "host a {\r\n"
      "\tfixed-address 10.0.0.1;\r\n"
      "}\r\n");
  Edit([&] {
    Root().Add(
        "# desk 4\n"
        "host b {\n"
        "fixed-address 10.0.0.2; # two\n"
        "}\n");
  });
  EXPECT_EQ(Text(),
            "group {\n"
            "}\n"
            "host a {\r\n"
            "\tfixed-address 10.0.0.1;\r\n"
            "}\r\n"
            "# desk 4\r\n"
            "host b {\r\n"
            "\tfixed-address 10.0.0.2; # two\r\n"
            "}\r\n");
}

TEST_F(LineEnd, OfOtherLinesStaysWhenAStatementIsSetOrRemoved) {
  Given(
      "filename \"a\";\r\n"
      "max-lease-time 600;\n"
      "min-lease-time 60;\r\n"
      "next-server 10.0.0.1;\n");
  Edit([&] {
    Root().Set("max-lease-time", "7200");
    Root().Child("min-lease-time").Remove();
  });
  EXPECT_EQ(Text(),
            "filename \"a\";\r\n"
            "max-lease-time 7200;\n"
            "next-server 10.0.0.1;\n");
}

TEST_F(LineEnd, OfACommentedOutBlocksLinesStays) {
  Given(
      "host a {\r\n"
      "\r\n"
      "  fixed-address 10.0.0.1;\n"
      "}\r\n");
  Node host = Find("host a");
  Edit([&] { host.CommentOut(); });
  EXPECT_EQ(Text(),
            "# host a {\r\n"
            "#\r\n"
            "#   fixed-address 10.0.0.1;\n"
            "# }\r\n");
  Edit([&] { host.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_F(LineEnd, CarriageReturnByItselfIsABlank) {
  Given("max-lease-time 600;\rmin-lease-time 60;\r");
  EXPECT_EQ(Root().Child("min-lease-time").Begin(), (Position{1, 21}));
}

/// Of texts that begin or end in a way of their own.
class EndOfFile : public EditTest {};
KLEPUR_WITH_BOTH_LINE_ENDS(EndOfFile);

TEST_F(LineEnd, OfALineInAnEmptyFileIsALineFeed) {
  Given("");
  Node statement;
  Node block;
  Edit([&] { statement = Root().Add("authoritative;"); });
  EXPECT_EQ(Text(), "authoritative;\n");
  Edit([&] {
    block = Root().Add(
        "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
        "  range 10.0.0.10 10.0.0.20;\n"
        "}");
  });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
            "\trange 10.0.0.10 10.0.0.20;\n"
            "}\n");
  Edit([&] { block.Remove(); });
  EXPECT_EQ(Text(), "authoritative;\n");
  Edit([&] { statement.Remove(); });
  EXPECT_EQ(Text(), "");
}

TEST_F(LineEnd, InAnEmptyFileGoesWithItsLineInAnyOrder) {
  Given("");
  Node statement;
  Node block;
  Edit([&] {
    statement = Root().Add("authoritative;");
    block = Root().Add("host a { fixed-address 10.0.0.1; }");
  });
  Edit([&] { statement.Remove(); });
  Edit([&] { block.Remove(); });
  EXPECT_EQ(Text(), "");
}

TEST_P(EndOfFile, BlankLinesOfABlankFileStayAbove) {
  Given(
      "   \n"
      "\n"
      "\t\n");
  Node added;
  Edit([&] { added = Root().Add("authoritative;"); });
  EXPECT_EQ(Text(),
            "   \n"
            "\n"
            "\t\n"
            "authoritative;\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(EndOfFile, BlanksWithoutALineEndGetNoStatementOnTheirLine) {
  Given(
      "\n"
      "  ");
  Node added;
  Edit([&] { added = Root().Add("authoritative;"); });
  EXPECT_EQ(Root().FirstChild(), added);
  EXPECT_EQ(Text().substr(0, 3), "\n  ");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(EndOfFile, WithoutALineEndGetsOneWhereTextFollows) {
  Given(
      "authoritative;\n"
      "max-lease-time 600;");
  Node added;
  Edit([&] { added = Root().Add("min-lease-time 60;"); });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "max-lease-time 600;\n"
            "min-lease-time 60;");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(EndOfFile, WithoutALineEndIsLeftSoByAnEditAbove) {
  Given(
      "filename \"a\";\n"
      "max-lease-time 600;");
  Edit([&] {
    Root().Add("next-server 10.0.0.5;", Placement::First());
    Root().Set("max-lease-time", "7200");
  });
  EXPECT_EQ(Text(),
            "next-server 10.0.0.5;\n"
            "filename \"a\";\n"
            "max-lease-time 7200;");
}

TEST_P(EndOfFile, WithoutALineEndBehindACommentKeepsThatClosed) {
  Given(
      "authoritative;\n"
      "max-lease-time 600; # ten minutes");
  Node added;
  Edit([&] { added = Root().Add("min-lease-time 60;"); });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "max-lease-time 600; # ten minutes\n"
            "min-lease-time 60;");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(EndOfFile, WithoutALineEndGetsCommentsWithWhatIsAdded) {
  Given(
      "authoritative;\n"
      "max-lease-time 600;");
  Node added;
  Edit([&] {
    added = Root().Add("min-lease-time 60;",
                       Placement::Last().WithComment("one\ntwo").WithTrailingComment("three"));
  });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "max-lease-time 600;\n"
            "# one\n"
            "# two\n"
            "min-lease-time 60; # three");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(EndOfFile, WithoutALineEndGetsSeveralWithACommentBehindTheLast) {
  Given(
      "authoritative;\n"
      "max-lease-time 600;");
  Edit([&] {
    Root().Add("min-lease-time 60;\nfilename \"a\";",
               Placement::Last().WithComment("one\ntwo").WithTrailingComment("three"));
  });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "max-lease-time 600;\n"
            "# one\n"
            "# two\n"
            "min-lease-time 60;\n"
            "filename \"a\"; # three");
}

TEST_P(EndOfFile, WithoutALineEndBehindCommentsOnly) {
  Given(
      "# head\n"
      "# nothing yet");
  Node added;
  Edit([&] { added = Root().Add("authoritative;"); });
  EXPECT_EQ(Text(),
            "# head\n"
            "# nothing yet\n"
            "\n"
            "authoritative;");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(EndOfFile, WithoutALineEndCommentsOutAndBack) {
  Given(
      "max-lease-time 600;\n"
      "authoritative;");
  Node statement = Root().Child("authoritative");
  Edit([&] { statement.CommentOut(); });
  EXPECT_EQ(Text(),
            "max-lease-time 600;\n"
            "# authoritative;");
  Edit([&] { statement.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(EndOfFile, WithoutALineEndLosesItsLastLine) {
  Given(
      "max-lease-time 600;\n"
      "authoritative;");
  Edit([&] { Root().Child("authoritative").Remove(); });
  EXPECT_EQ(Text(), "max-lease-time 600;\n");
}

TEST_P(EndOfFile, TwoAddedBehindAMissingLineEndGoInAnyOrder) {
  Given(
      "authoritative;\n"
      "group { filename \"a\"; }");
  for (const bool first_goes_first : {true, false}) {
    Node one;
    Node two;
    Edit([&] {
      one = Root().Add("host a { fixed-address 10.0.0.1; }");
      two = Root().Add("host b { fixed-address 10.0.0.2; }");
    });
    EXPECT_EQ(Text(),
              "authoritative;\n"
              "group { filename \"a\"; }\n"
              "host a { fixed-address 10.0.0.1; }\n"
              "host b { fixed-address 10.0.0.2; }");
    Edit([&] { (first_goes_first ? one : two).Remove(); });
    Edit([&] { (first_goes_first ? two : one).Remove(); });
    EXPECT_EQ(Text(), First()) << first_goes_first;
  }
}

TEST_P(EndOfFile, LastStatementLeavesAnEmptyFile) {
  Given("authoritative;\n");
  Edit([&] { Root().FirstChild().Remove(); });
  EXPECT_EQ(Text(), "");
}

// A byte order mark.

TEST_P(EndOfFile, ByteOrderMarkStaysFirst) {
  Given(
      "\xEF\xBB\xBFoption domain-name \"a\";\n"
      "group {\n"
      "}\n");
  EXPECT_EQ(Root().FirstChild().Keyword(), "option domain-name");
  Node added;
  Edit([&] { added = Root().Add("authoritative;", Placement::First()); });
  EXPECT_EQ(Text(),
            "\xEF\xBB\xBF"
            "authoritative;\n"
            "option domain-name \"a\";\n"
            "group {\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
  Edit([&] { Root().FirstChild().Remove(); });
  EXPECT_EQ(Text(),
            "\xEF\xBB\xBFgroup {\n"
            "}\n");
}

TEST_P(EndOfFile, ByteOrderMarkStaysBeforeAFirstStatementThatIsCommentedOut) {
  Given(
      "\xEF\xBB\xBFoption domain-name \"a\";\n"
      "authoritative;\n");
  Node first = Root().FirstChild();
  Edit([&] { first.CommentOut(); });
  EXPECT_EQ(Text(),
            "\xEF\xBB\xBF# option domain-name \"a\";\n"
            "authoritative;\n");
  Edit([&] { first.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_F(LineEnd, ByteOrderMarkAloneStaysFirst) {
  Given("\xEF\xBB\xBF");
  EXPECT_FALSE(Root().FirstChild());
  Node added;
  Edit([&] { added = Root().Add("authoritative;"); });
  EXPECT_EQ(Text(),
            "\xEF\xBB\xBF"
            "authoritative;\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

// Two files were joined, and what stood before the second one's mark is removed or the mark moved to the front.
TEST_P(EndOfFile, WordThatBeginsWithAByteOrderMarkCannotBecomeTheFirst) {
  Given(
      "authoritative;\n"
      "\xEF\xBB\xBFoption domain-name \"a\";\n");
  const auto code = [](const auto& edit) {
    try {
      edit();
    } catch (const Error& error) {
      return error.Code();
    }
    return ErrorCode::kFile;  // which no edit throws
  };
  Node first = Root().FirstChild();
  EXPECT_EQ(code([&] { first.Remove(); }), ErrorCode::kBadPlace);
  EXPECT_EQ(code([&] { first.Next().MoveTo(Root(), Placement::Before(first)); }),
            ErrorCode::kBadPlace);
  EXPECT_EQ(code([&] { Root().Add("\xEF\xBB\xBFnext-server a;", Placement::First()); }),
            ErrorCode::kBadPlace);
  EXPECT_EQ(Text(), First());
}

}  // namespace
}  // namespace klepur::test
