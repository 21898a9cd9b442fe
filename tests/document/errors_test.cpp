// What is refused says why, and leaves the document as it is.
#include <klepur/document/document.h>

#include <gtest/gtest.h>
#include <sys/mman.h>

#include <cstdint>
#include <string>

#include "tests/document/document_test.h"
#include "tests/support/document_tree.h"
#include "tests/support/files.h"

namespace klepur::test {
namespace {

class Refusal : public EditTest {
 protected:
  void SetUp() override {
    Given(
        "# head\n"
        "\n"
        "max-lease-time 600;\n"
        "host a { fixed-address 10.0.0.1; }\n"
        "group {\n"
        "  # Bob\n"
        "  host b { fixed-address 10.0.0.2; }\n"
        "}\n");
  }
};
KLEPUR_WITH_BOTH_LINE_ENDS(Refusal);

TEST_P(Refusal, OfTextThatIsNotWhole) {
  const char* const texts[] = {
      "host c {",
      "host c { fixed-address 10.0.0.3;",
      "}",
      "max-lease-time 1; }",
      "} host c {",
      ";",
      "option domain-name \"open;",
      "host c { } }",
      "{ }",
      "group { option domain-name \"open; }",
      "max-lease-time 1; host c { ",
  };
  for (const char* const text : texts) {
    EXPECT_EQ(Refused([&] { Root().Add(text); }), "bad text") << text;
    EXPECT_EQ(Refused([&] { Find("group").Add(text); }), "bad text") << text;
    EXPECT_EQ(Refused([&] { Find("host a").Add(text, Placement::First()); }), "bad text") << text;
  }
}

TEST_P(Refusal, OfAPlaceInAStatementOrAComment) {
  EXPECT_EQ(Refused([&] { Root().Child("max-lease-time").Add("authoritative;"); }), "bad place");
  EXPECT_EQ(Refused([&] { Root().FirstChild().Add("authoritative;"); }), "bad place");
  EXPECT_EQ(Refused([&] { Find("host a").MoveTo(Root().FirstChild()); }), "bad place");
}

TEST_P(Refusal, OfACommentOverLinesBehindAStatement) {
  EXPECT_EQ(
      Refused([&] { Root().Add("authoritative;", Placement().WithTrailingComment("one\ntwo")); }),
      "bad text");
}

TEST_P(Refusal, OfMovingABlockThatIsNotClosedOrABranch) {
  Document open("group { }\nif known { } else { }\nhost a {\n");
  const auto refused = [&](const char* header) {
    try {
      open.Find(header).MoveTo(open.Find("group"));
    } catch (const Error& error) {
      return ToText(error.Code());
    }
    return std::string_view("nothing");
  };
  EXPECT_EQ(refused("host a"), "malformed");
  EXPECT_EQ(refused("else"), "bad place");
}

TEST_P(Refusal, OfWhatTheFilesNodeCannotDo) {
  EXPECT_NE(Refused([&] { Root().Remove(); }), "nothing");
  EXPECT_NE(Refused([&] { Root().CommentOut(); }), "nothing");
  EXPECT_NE(Refused([&] { Root().MoveTo(Find("group")); }), "nothing");
  EXPECT_NE(Refused([&] { Root().Rename("x"); }), "nothing");
  EXPECT_NE(Refused([&] { Root().SetHeader("group"); }), "nothing");
  EXPECT_NE(Refused([&] { Root().SetValue("x"); }), "nothing");
}

TEST_P(Refusal, OfWhatOtherNodesCannotDo) {
  Node comment = Root().FirstChild();
  Node statement = Root().Child("max-lease-time");
  Node block = Find("host a");
  EXPECT_NE(Refused([&] { comment.SetValue("x"); }), "nothing");
  EXPECT_NE(Refused([&] { comment.Rename("x"); }), "nothing");
  EXPECT_NE(Refused([&] { comment.Set("filename", "\"x\""); }), "nothing");
  EXPECT_NE(Refused([&] { statement.Rename("x"); }), "nothing");
  EXPECT_NE(Refused([&] { statement.SetHeader("x"); }), "nothing");
  EXPECT_NE(Refused([&] { statement.Set("filename", "\"x\""); }), "nothing");
  EXPECT_NE(Refused([&] { block.SetValue("x"); }), "nothing");
  EXPECT_NE(Refused([&] { block.AppendToList("x"); }), "nothing");
  EXPECT_NE(Refused([&] { block.RemoveFromList("x"); }), "nothing");
}

TEST_P(Refusal, OfEverythingForANodeThatIsGone) {
  Node removed = Find("host a");
  Edit([&] { removed.Remove(); });
  for (Node node : {removed, Node()}) {
    EXPECT_TRUE(node.IsGone());
    EXPECT_EQ(Refused([&] { node.Add("authoritative;"); }), "gone");
    EXPECT_EQ(Refused([&] { node.Add("authoritative;", Placement::First()); }), "gone");
    EXPECT_EQ(Refused([&] { node.SetValue("x"); }), "gone");
    EXPECT_EQ(Refused([&] { node.Set("filename", "\"x\""); }), "gone");
    EXPECT_EQ(Refused([&] { node.Set("filename \"x\""); }), "gone");
    EXPECT_EQ(Refused([&] { node.AppendToList("x"); }), "gone");
    EXPECT_EQ(Refused([&] { node.RemoveFromList("x"); }), "gone");
    EXPECT_EQ(Refused([&] { node.Rename("x"); }), "gone");
    EXPECT_EQ(Refused([&] { node.SetHeader("host x"); }), "gone");
    EXPECT_EQ(Refused([&] { node.Remove(); }), "gone");
    EXPECT_EQ(Refused([&] { node.Remove(CommentsAbove::kTake); }), "gone");
    EXPECT_EQ(Refused([&] { node.MoveTo(Root()); }), "gone");
    EXPECT_EQ(Refused([&] { node.MoveTo(Root(), Placement::First()); }), "gone");
    EXPECT_EQ(Refused([&] { node.CommentOut(); }), "gone");
    EXPECT_EQ(Refused([&] { node.BringBack(); }), "gone");
    EXPECT_EQ(Refused([&] { Find("group").MoveTo(node); }), "gone");
    EXPECT_EQ(Refused([&] { Root().Add("authoritative;", Placement::After(node)); }), "gone");
    EXPECT_EQ(Refused([&] { Find("host b").MoveTo(Root(), Placement::Before(node)); }), "gone");
  }
}

TEST_P(Refusal, OfAnotherDocumentsNodes) {
  Document other("group { }\n");
  EXPECT_NE(Refused([&] { Find("host a").MoveTo(other.Root()); }), "nothing");
  EXPECT_NE(
      Refused([&] { Root().Add("authoritative;", Placement::After(other.Root().FirstChild())); }),
      "nothing");
  EXPECT_EQ(other.Text(), "group { }\n");
}

TEST_P(Refusal, OfBringingBackWhatIsNotDisabled) {
  EXPECT_EQ(Refused([&] { Root().FirstChild().BringBack(); }), "not found");
  EXPECT_EQ(Refused([&] { Find("host a").BringBack(); }), "not found");
}

TEST_P(Refusal, OfNamesThatNothingCanBe) {
  Node host = Find("host a");
  for (const char* const name : {"x\ny { } host z", "\"", "x\"y"}) {
    const std::string text = name;
    try {
      host.Rename(text);
      EXPECT_EQ(host.Name(), text);
    } catch (const Error& error) {
      EXPECT_EQ(error.Code(), ErrorCode::kBadText);
    }
    EXPECT_EQ(Doc().Walk("host").size(), 2U) << text;
  }
}

TEST(ReadingAFile, ThatIsNotThereSaysWhich) {
  const ScratchFolder folder;
  const std::string path = folder.Path("missing.conf");
  try {
    Document::Read(path);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Code(), ErrorCode::kFile);
    EXPECT_NE(std::string(error.what()).find(path), std::string::npos) << error.what();
    EXPECT_NE(std::string(error.what()).find("No such file"), std::string::npos) << error.what();
  }
}

TEST(ReadingAFile, ThatIsAFolderIsRefused) {
  const ScratchFolder folder;
  try {
    Document::Read(folder.Path(""));
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Code(), ErrorCode::kFile);
  }
}

TEST(ReadingAFile, GivesItsTextAndPath) {
  const ScratchFolder folder;
  const std::string text("host a { }\r\n# \0\n", 16);
  const std::string path = folder.Write("dhcpd.conf", text);
  const Document document = Document::Read(path);
  EXPECT_EQ(document.Text(), text);
  EXPECT_EQ(document.Path(), path);
  EXPECT_EQ(Document(text).Path(), "");
}

TEST(ReadingAText, OfFourGibibytesIsRefused) {
  const std::size_t size = std::size_t{1} << 32U;
  // Nobody may look at these bytes: the size alone decides.
  void* const memory =
      mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  ASSERT_NE(memory, MAP_FAILED);
  try {
    const Document document(std::string_view(static_cast<const char*>(memory), size));
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_EQ(error.Code(), ErrorCode::kTooLarge);
  }
  munmap(memory, size);
}

}  // namespace
}  // namespace klepur::test
