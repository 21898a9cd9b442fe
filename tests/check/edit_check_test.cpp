// What is sure of edits without a check of the whole file, beside what that finds.
//
//     KLEPUR_RANDOM_SECONDS=60 goes on with random edits for so long
#include <klepur/check/checker.h>
#include <klepur/check/edit_check.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tests/random/chance.h"

namespace klepur::test {
namespace {

constexpr const char* kFile =
    "option site.colour code 200 = text;\n"
    "class \"phones\" { match if exists agent.circuit-id; }\n"
    "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
    "  range 10.0.0.100 10.0.0.200;\n"
    "  pool { range 10.0.0.210 10.0.0.220; allow members of \"phones\"; }\n"
    "  host a { hardware ethernet 00:16:3e:00:00:01; fixed-address 10.0.0.1; }\n"
    "  group { host b { hardware ethernet 00:16:3e:00:00:02; } }\n"
    "}\n"
    "# klepur: allow malformed-time\n"
    "max-lease-time soon;\n"
    "host c { hardware ethernet 00:16:3e:00:00:03; ping-check yes; }\n"
    "if known { default-lease-time 600; } else { default-lease-time 700; }\n";

struct EditCase {
  const char* name;
  std::function<void(Document&)> edit;
  bool sure;
};

TEST(EditCheck, IsSureOfEditsThatConcernOnlyWhatTheyTouch) {
  const EditCase cases[] = {
      {"none", [](Document&) {}, true},
      {"a value", [](Document& d) { d.Find("host a").Set("fixed-address 10.0.0.2;"); }, true},
      {"a new statement", [](Document& d) { d.Find("host b").Set("filename \"x\";"); }, true},
      {"of a subnet", [](Document& d) { d.Root().Child("subnet").Set("option routers 10.0.0.9;"); },
       true},
      {"of the file", [](Document& d) { d.Root().Set("default-lease-time 60;"); }, true},
      {"a host", [](Document& d) { d.Find("group").Add("host d { filename \"x\"; }"); }, true},
      {"a host's end", [](Document& d) { d.Find("host a").Remove(); }, true},
      {"a host's name", [](Document& d) { d.Find("host a").Rename("e"); }, true},
      {"a host's place", [](Document& d) { d.Find("host a").MoveTo(d.Root()); }, true},
      {"a disabled host", [](Document& d) { d.Find("host a").CommentOut(); }, true},
      {"a host gone and back",
       [](Document& d) {
         Node host = d.Find("host a");
         host.CommentOut();
         host.BringBack();
       },
       true},
      {"beside a mistake of another", [](Document& d) { d.Find("host c").Set("filename \"x\";"); },
       true},
      {"a mistake", [](Document& d) { d.Find("host a").Set("fixed-address 10.0.0.;"); }, false},
      {"a mistake mended", [](Document& d) { d.Find("host c").Set("ping-check on;"); }, false},
      {"a second host of a name", [](Document& d) { d.Root().Add("host a { }"); }, false},
      {"two hosts of a name",
       [](Document& d) {
         d.Root().Add("host d { }");
         d.Root().Child("subnet").Add("host d { }");
       },
       false},
      {"a second host by another name", [](Document& d) { d.Find("host a").Rename("b"); }, false},
      {"a range", [](Document& d) { d.Root().Child("subnet").Set("range 10.0.0.1 10.0.0.9;"); },
       false},
      {"a pool", [](Document& d) { d.Root().Child("subnet").Child("pool").Remove(); }, false},
      {"a subnet", [](Document& d) { d.Root().Child("subnet").Remove(); }, false},
      {"a class's end", [](Document& d) { d.Find("class \"phones\"").Remove(); }, false},
      {"a definition's end", [](Document& d) { d.Root().FirstChild().Remove(); }, false},
      {"an option of the file's",
       [](Document& d) { d.Find("host a").Add("option site.colour \"red\";"); }, false},
      {"an include", [](Document& d) { d.Root().Add("include \"no-such-file\";"); }, false},
      {"a comment", [](Document& d) { d.Find("host a").Add("# plain\n"); }, true},
      {"what is allowed", [](Document& d) { d.Root().Set("max-lease-time 7;"); }, false},
      {"the comment that allows it", [](Document& d) { d.At(9).Remove(); }, false},
  };
  for (const EditCase& each : cases) {
    Document document(kFile);
    const Document::Mark mark = document.GetMark();
    each.edit(document);
    EXPECT_EQ(EditsBringNoError(document, mark), each.sure) << each.name;
  }
}

TEST(EditCheck, IsSureOfNothingInATextWithoutEnd) {
  Document document("host a { filename \"x\"; }\ngroup {\nhost b { filename \"y\"; }\n");
  const Document::Mark mark = document.GetMark();
  document.Find("host a").Set("filename \"z\";");
  EXPECT_FALSE(EditsBringNoError(document, mark));
}

TEST(EditCheck, ComparesWithTheMark) {
  Document document(kFile);
  document.Root().Add("host a { }");
  const Document::Mark mark = document.GetMark();
  document.Find("host c").Set("filename \"x\";");
  EXPECT_TRUE(EditsBringNoError(document, mark));
}

/// How often each error is said.
using Errors = std::map<std::pair<std::string, std::string>, int>;

Errors ErrorsIn(const std::string& text) {
  Errors errors;
  for (const CheckFinding& finding : Check(Document(text))) {
    if (finding.severity == Severity::kError)
      ++errors[{std::string(finding.rule), finding.message}];
  }
  return errors;
}

bool HasMore(const Errors& now, const Errors& before) {
  for (const auto& [error, count] : now) {
    const auto was = before.find(error);
    if (count > (was == before.end() ? 0 : was->second)) return true;
  }
  return false;
}

const std::vector<std::string> kStatements = {
    "fixed-address 10.0.0.7;",
    "fixed-address 10.0.0.;",
    "hardware ethernet 00:16:3e:00:00:07;",
    "max-lease-time 600;",
    "max-lease-time soon;",
    "option routers 10.0.0.1;",
    "option host-name \"x\";",
    "option site.colour \"red\";",
    "option site.colour code 200 = text;",
    "option space site;",
    "group staff;",
    "range 10.0.0.20 10.0.0.30;",
    "range 10.0.0.25 10.0.0.35;",
    "range6 2001:db8::1 2001:db8::2;",
    "fixed-address6 2001:db8::7;",
    "allow members of \"phones\";",
    "deny booting;",
    "failover peer \"f\";",
    "include \"no-such-file\";",
    "filname \"x\";",
    "# klepur: allow malformed-time, duplicate-host, malformed-address\n",
    "# a remark\n",
    "if option site.colour = \"red\" { filename \"y\"; } else { filename \"z\"; }",
};

const std::vector<std::string> kBlocks = {
    "group staff",
    "group",
    "class \"phones\"",
    "host a",
    "host b",
    "HOST \"a\"",
    "host c # d\n",
    "pool",
    "subnet 10.0.0.0 netmask 255.255.255.0",
    "key k",
    "failover peer \"f\"",
    "subnet6 2001:db8::/64",
};

std::string RandomNode(Chance& chance, int depth) {
  if (depth == 0 || chance.OneIn(3)) return chance.Pick(kStatements) + "\n";
  std::string text = chance.Pick(kBlocks) + " {\n";
  for (std::size_t left = chance.Below(4); left != 0; --left) text += RandomNode(chance, depth - 1);
  return text + "}\n";
}

void EditAtRandom(Document& document, Chance& chance) {
  std::vector<Node> nodes;
  const Node root = document.Root();
  const std::function<void(const Node&)> gather = [&](const Node& block) {
    for (const Node& child : block.Children()) {
      nodes.push_back(child);
      if (child.Is(NodeKind::kBlock)) gather(child);
    }
  };
  gather(root);
  if (nodes.empty()) return;
  Node node = chance.Pick(nodes);
  Node other = chance.Pick(nodes);
  Node block = other.Is(NodeKind::kBlock) ? other : other.Parent();
  try {
    switch (chance.Below(10)) {
      case 0:
      case 1:
        block.Add(RandomNode(chance, 1));
        break;
      case 2:
        node.Parent().Add(RandomNode(chance, 1), Placement::After(node));
        break;
      case 3:
      case 4:
        block.Set(chance.Pick(kStatements));
        break;
      case 5:
        node.Remove(chance.OneIn(2) ? CommentsAbove::kKeep : CommentsAbove::kTake);
        break;
      case 6:
        node.CommentOut();
        break;
      case 7:
        node.BringBack();
        break;
      case 8:
        node.MoveTo(block);
        break;
      default:
        if (chance.OneIn(2)) {
          node.Rename(chance.OneIn(2) ? "a" : "e");
        } else {
          node.SetHeader(chance.Pick(kBlocks));
        }
        break;
    }
  } catch (const Error&) {
    // Not every edit is possible everywhere.
  }
}

TEST(EditCheck, IsNeverSureWhereTheWholeCheckFindsMore) {
  std::size_t sure = 0;
  std::size_t more = 0;
  constexpr std::uint64_t kLeast = 400;
  const char* const seconds = std::getenv("KLEPUR_RANDOM_SECONDS");
  const auto end = std::chrono::steady_clock::now() +
                   std::chrono::seconds(seconds == nullptr ? 0 : std::atoi(seconds));
  for (std::uint64_t seed = 1; seed <= kLeast || std::chrono::steady_clock::now() < end; ++seed) {
    Chance chance(seed);
    std::string text;
    for (std::size_t left = 1 + chance.Below(7); left != 0; --left) text += RandomNode(chance, 3);
    Document document(text);
    const Document::Mark mark = document.GetMark();
    for (std::size_t left = 1 + chance.Below(3); left != 0; --left) EditAtRandom(document, chance);
    const bool is_sure = EditsBringNoError(document, mark);
    const bool has_more = HasMore(ErrorsIn(document.Text()), ErrorsIn(text));
    sure += is_sure ? 1 : 0;
    more += has_more ? 1 : 0;
    ASSERT_FALSE(is_sure && has_more) << "seed " << seed << "\n"
                                      << text << "--- is now\n"
                                      << document.Text();
  }
  // Both happen often, or nothing was tried.
  EXPECT_GT(sure, kLeast / 10);
  EXPECT_GT(more, kLeast / 10);
}

}  // namespace
}  // namespace klepur::test
