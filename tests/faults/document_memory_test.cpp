// Memory runs out while a document is read, asked and edited.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "tests/faults/every_fault.h"

namespace klepur::test {
namespace {

constexpr std::string_view kText =
    "# banner\n"
    "\n"
    "authoritative;\n"
    "max-lease-time 7200;  # two hours\n"
    "option domain-name-servers 10.0.0.1, 10.0.0.2;\n"
    "group {\n"
    "  # the printer\n"
    "  host prn1 {\n"
    "    hardware ethernet 00:16:3e:00:00:01;\n"
    "    fixed-address 10.0.0.1;\n"
    "  }\n"
    "  # host prn2 {\n"
    "  #   fixed-address 10.0.0.2;\n"
    "  # }\n"
    "  host prn3 { fixed-address 10.0.0.3; }\n"
    "}\n"
    "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
    "}\n";

/// All blocks, statements and comments, each line with its place.
std::string Outline(const Document& document) {
  std::string outline;
  std::string indent;
  for (Node node = document.Root().FirstChild(); node;) {
    const Position where = node.Begin();
    outline += indent + std::to_string(where.line) + ":" + std::to_string(where.column) + " " +
               (node.Is(NodeKind::kBlock) ? node.Header() : node.Text()) + "\n";
    Node next = node.FirstChild();
    if (next) indent += "  ";
    while (!next) {
      next = node.Next();
      if (next) break;
      node = node.Parent();
      if (node == document.Root()) return outline;
      indent.resize(indent.size() - 2);
    }
    node = next;
  }
  return outline;
}

/// Whether reading the text gives the same tree.
void ExpectReadsAsItIs(const Document& document) {
  EXPECT_EQ(Outline(document), Outline(Document(document.Text())));
}

struct Edit {
  const char* name;
  std::function<void(Document&)> run;
};

std::ostream& operator<<(std::ostream& out, const Edit& edit) {
  return out << edit.name;
}

class DocumentEditMemory : public ::testing::TestWithParam<Edit> {};

Node Host(Document& document) {
  return document.Find("host prn1");
}

INSTANTIATE_TEST_SUITE_P(
    Edits, DocumentEditMemory,
    ::testing::Values(
        Edit{"Add",
             [](Document& d) { d.Find("group").Add("host prn4 { fixed-address 10.0.0.4; }"); }},
        Edit{"AddToEmptyBlock",
             [](Document& d) {
               d.Find("subnet 10.0.0.0 netmask 255.255.255.0").Add("range 10.0.0.5 10.0.0.9");
             }},
        Edit{"AddToOneLineBlock",
             [](Document& d) { d.Find("host prn3").Add("if known {\n  filename \"a\";\n}"); }},
        Edit{"SetNew", [](Document& d) { Host(d).Set("option host-name", "\"a\""); }},
        Edit{"SetOld", [](Document& d) { Host(d).Set("fixed-address", "10.0.0.7"); }},
        Edit{"SetValueBesideAComment",
             [](Document& d) { d.Root().Child("max-lease-time").SetValue("60"); }},
        Edit{"AppendToList",
             [](Document& d) {
               d.Root().Child("option domain-name-servers").AppendToList("10.0.0.3");
             }},
        Edit{"RemoveFromList",
             [](Document& d) {
               d.Root().Child("option domain-name-servers").RemoveFromList("10.0.0.1");
             }},
        Edit{"Rename", [](Document& d) { Host(d).Rename("prn9"); }},
        Edit{"SetHeader", [](Document& d) { d.Find("group").SetHeader("group g"); }},
        Edit{"Remove", [](Document& d) { Host(d).Remove(); }},
        Edit{"RemoveFirst", [](Document& d) { d.Root().FirstChild().Remove(); }},
        Edit{"MoveTo", [](Document& d) { Host(d).MoveTo(d.Root()); }},
        Edit{"CommentOut", [](Document& d) { Host(d).CommentOut(); }},
        Edit{"CommentOutOneLineBlock", [](Document& d) { d.Find("host prn3").CommentOut(); }},
        Edit{"CommentOutInOneLineBlock",
             [](Document& d) { d.Find("host prn3").Child("fixed-address").CommentOut(); }},
        Edit{"BringBackRead", [](Document& d) { d.Find("group").Disabled().front().BringBack(); }},
        Edit{"BringBackRemembered",
             [](Document& d) {
               d.AsOne([&] {
                 Node host = Host(d);
                 host.CommentOut();
                 host.BringBack();
                 host.Set("fixed-address", "10.0.0.7");
               });
             }},
        Edit{"AsOne",
             [](Document& d) {
               d.AsOne([&] {
                 Host(d).Set("fixed-address", "10.0.0.7");
                 d.Find("group").Add("host prn4 { }");
                 d.Find("host prn3").Remove();
               });
             }}),
    [](const ::testing::TestParamInfo<Edit>& edit) { return std::string(edit.param.name); });

TEST_P(DocumentEditMemory, IsDoneOrChangesNothing) {
  Document whole(kText);
  GetParam().run(whole);
  const std::string edited = whole.Text();
  const std::string outline = Outline(Document(kText));
  std::unique_ptr<Document> document;
  const auto prepare = [&] { document = std::make_unique<Document>(kText); };
  const auto edit = [&] {
    GetParam().run(*document);
    return true;
  };
  const auto check = [&](const Outcome& outcome) {
    EXPECT_TRUE(outcome.struck || !outcome.threw);
    if (outcome.threw) {
      EXPECT_EQ(document->Text(), kText);
      EXPECT_EQ(Outline(*document), outline);
      EXPECT_FALSE(document->IsChanged());
      GetParam().run(*document);
    }
    EXPECT_EQ(document->Text(), edited);
    ExpectReadsAsItIs(*document);
  };
  EXPECT_GT(ForEveryFault(prepare, edit, check, [&] { document.reset(); }), 0U);
}

TEST_P(DocumentEditMemory, IsRolledBackWithoutMemory) {
  std::unique_ptr<Document> document;
  Document::Mark mark;
  const auto prepare = [&] {
    document = std::make_unique<Document>(kText);
    document->Find("host prn1");
    mark = document->GetMark();
    GetParam().run(*document);
  };
  const auto check = [&](const Outcome& outcome) {
    EXPECT_FALSE(outcome.threw);
    EXPECT_EQ(document->Text(), kText);
    EXPECT_EQ(document->Find("host prn1").Header(), "host prn1");
    EXPECT_EQ(document->Find("host prn3").Text(), "host prn3 { fixed-address 10.0.0.3; }");
    ExpectReadsAsItIs(*document);
  };
  ForEveryFault(
      prepare,
      [&] {
        document->RollBack(mark);
        return true;
      },
      check, [&] { document.reset(); });
}

/// Questions, of which one that fails leaves the next one its answer.
struct Question {
  const char* name;
  std::function<std::string(const Document&)> ask;
  const char* answer;
};

std::ostream& operator<<(std::ostream& out, const Question& question) {
  return out << question.name;
}

class DocumentQuestionMemory : public ::testing::TestWithParam<Question> {};

INSTANTIATE_TEST_SUITE_P(
    Questions, DocumentQuestionMemory,
    ::testing::Values(
        Question{"Find", [](const Document& d) { return d.Find("host  \"prn3\"").Text(); },
                 "host prn3 { fixed-address 10.0.0.3; }"},
        Question{"FindAll",
                 [](const Document& d) { return std::to_string(d.FindAll("group").size()); }, "1"},
        Question{"Walk", [](const Document& d) { return d.Walk("host").back().Name(); }, "prn3"},
        Question{"At", [](const Document& d) { return d.At(10).Value(); }, "10.0.0.1"},
        Question{
            "Begin",
            [](const Document& d) { return std::to_string(d.Root().Child("group").End().line); },
            "16"},
        Question{"Findings",
                 [](const Document& d) {
                   // Nothing is wrong, which takes no memory to tell; so a place is asked for too.
                   return std::to_string(d.Findings().size() + d.Root().End().column);
                 },
                 "1"},
        Question{"Disabled",
                 [](const Document& d) {
                   return d.Root().Child("group").Disabled().front().DisabledText();
                 },
                 "host prn2 {\n    fixed-address 10.0.0.2;\n  }"},
        Question{"Comments",
                 [](const Document& d) {
                   return d.Root().Child("max-lease-time").Comments().front().Text();
                 },
                 "# two hours"}),
    [](const ::testing::TestParamInfo<Question>& question) {
      return std::string(question.param.name);
    });

TEST_P(DocumentQuestionMemory, IsAnsweredOrCanBeAskedAgain) {
  std::unique_ptr<Document> document;
  std::string answer;
  const auto prepare = [&] {
    document = std::make_unique<Document>(kText);
    answer = {};
  };
  const auto ask = [&] {
    answer = GetParam().ask(*document);
    return true;
  };
  const auto check = [&](const Outcome& outcome) {
    EXPECT_TRUE(outcome.struck || !outcome.threw);
    if (!outcome.threw) {
      EXPECT_EQ(answer, GetParam().answer);
    }
    EXPECT_EQ(GetParam().ask(*document), GetParam().answer);
    EXPECT_EQ(document->Text(), kText);
  };
  const auto finish = [&] {
    document.reset();
    answer = std::string();
  };
  EXPECT_GT(ForEveryFault(prepare, ask, check, finish), 0U);
}

TEST(DocumentMemory, TextIsReadOrNot) {
  for (const std::size_t copies : {std::size_t{1}, std::size_t{10000}}) {
    std::string text;
    for (std::size_t i = 0; i != copies; ++i) text += kText;
    std::unique_ptr<Document> document;
    const auto read = [&] {
      document = std::make_unique<Document>(text);
      return true;
    };
    const auto check = [&](const Outcome& outcome) {
      EXPECT_EQ(outcome.threw, outcome.struck);
      EXPECT_EQ(document == nullptr, outcome.threw);
      EXPECT_TRUE(document == nullptr || document->Text() == text);
    };
    EXPECT_GT(ForEveryFault([] {}, read, check, [&] { document.reset(); }), 3U);
  }
}

TEST(DocumentMemory, TextIsGivenOrNot) {
  const Document document(kText);
  std::string text;
  const auto check = [&](const Outcome& outcome) {
    EXPECT_EQ(outcome.threw, outcome.struck);
    EXPECT_EQ(text, outcome.threw ? std::string_view() : kText);
  };
  const auto give = [&] {
    text = document.Text();
    return true;
  };
  EXPECT_GT(ForEveryFault([] {}, give, check, [&] { text = std::string(); }), 0U);
}

}  // namespace
}  // namespace klepur::test
