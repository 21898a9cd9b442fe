// Texts, and the nodes that they are read as.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/document/document_test.h"
#include "tests/support/document_tree.h"

namespace klepur::test {
namespace {

using namespace std::string_literals;

class Reading : public EditTest {
 protected:
  struct Case {
    std::string text;
    std::string tree;
  };

  template <std::size_t count>
  void Expect(const Case (&cases)[count]) {
    for (const Case& one : cases) {
      Given(one.text);
      EXPECT_EQ(Tree(), one.tree) << Visible(one.text);
      EXPECT_EQ(FindingsText(Doc()), "") << Visible(one.text);
    }
  }

  /// With "\n" for the line end of this run.
  std::string Tree() const {
    std::string tree = DocumentTree(Doc());
    for (std::size_t at = 0; (at = tree.find("\\r\\n", at)) != std::string::npos;)
      tree.erase(at, 2);
    return tree;
  }
};
KLEPUR_WITH_BOTH_LINE_ENDS(Reading);

TEST_P(Reading, FilesWithoutStatements) {
  const Case cases[] = {
      {"", ""},
      {"\n", ""},
      {" \t\n\v\f \n", ""},
      {"# one\n\n  # two", "# one\n# two\n"},
      {"#\n##\n", "#\n##\n"},
  };
  Expect(cases);
}

TEST_P(Reading, Statements) {
  const Case cases[] = {
      {"authoritative;", "authoritative\n"},
      {"max-lease-time 600;\n", "max-lease-time: 600\n"},
      {"max-lease-time\n  600\n;\n", "max-lease-time: 600\n"},
      {"a 1;b 2; c 3 ;\n", "a: 1\nb: 2\nc: 3\n"},
      {"Option  Routers 10.0.0.1,  10.0.0.2;\n", "option routers: 10.0.0.1,  10.0.0.2\n"},
      {"option dhcp6.name-servers 2001:db8::1;", "option dhcp6.name-servers: 2001:db8::1\n"},
      {"hardware ethernet 00:11:22:33:44:55;", "hardware: ethernet 00:11:22:33:44:55\n"},
      {"allow unknown-clients;", "allow unknown-clients\n"},
      {"range dynamic-bootp 10.0.0.1 10.0.0.2;", "range: dynamic-bootp 10.0.0.1 10.0.0.2\n"},
      {"include \"a b\";", "include: \"a b\"\n"},
      {"unknown-word with \"values\" 1, 2;", "unknown-word: with \"values\" 1, 2\n"},
      {"set x = concat(\"a;\", \"}\");", "set x: = concat(\"a;\", \"}\")\n"},
      {"log(info, \"x\");", "log: (info, \"x\")\n"},
      {"execute(\"/bin/true\");", "execute: (\"/bin/true\")\n"},
  };
  Expect(cases);
}

TEST_P(Reading, Blocks) {
  const Case cases[] = {
      {"group{}", "[group]\n"},
      {"group { }\n", "[group]\n"},
      {"group\n{\n}\n", "[group]\n"},
      {"host a { fixed-address 10.0.0.1; }", "[host a]\n  fixed-address: 10.0.0.1\n"},
      {"host a{max-lease-time 1;}max-lease-time 2;",
       "[host a]\n  max-lease-time: 1\nmax-lease-time: 2\n"},
      {"subnet 10.0.0.0 netmask 255.0.0.0 {\n  pool {\n    range 10.0.0.1;\n  }\n}\n",
       "[subnet 10.0.0.0 netmask 255.0.0.0]\n  [pool]\n    range: 10.0.0.1\n"},
      {"subnet6 2001:db8::/32 { }", "[subnet6 2001:db8::/32]\n"},
      {"class \"a b\" { match if known; }", "[class a b]\n  match: if known\n"},
      {"subclass \"a\" 1:2:3;\nsubclass \"a\" \"x\" { }",
       "subclass: \"a\" 1:2:3\n[subclass a x]\n"},
      {"failover peer \"f\" { primary; port 647; }\nfailover peer \"f\";",
       "[failover peer f]\n  primary\n  port: 647\nfailover peer: \"f\"\n"},
      {"zone a.example. { primary 10.0.0.1; key k; }",
       "[zone a.example.]\n  primary: 10.0.0.1\n  key: k\n"},
      {"on commit or expiry { set x = 1; }\non release;",
       "[on commit or expiry]\n  set x: = 1\non: release\n"},
      {"group { group { group { a 1; } b 2; } c 3; } d 4;",
       "[group]\n  [group]\n    [group]\n      a: 1\n    b: 2\n  c: 3\nd: 4\n"},
      {"shared-network \"x\" { }", "[shared-network x]\n"},
      {"define f(a, b) { return a; }", "[define f ( a , b )]\n  return: a\n"},
      {"host if { }", "[host if]\n"},
      {"unknown block { a 1; }", "[unknown block]\n  a: 1\n"},
  };
  Expect(cases);
}

TEST_P(Reading, KeysWithASemicolonBehindThem) {
  const Case cases[] = {
      {"key k { algorithm hmac-md5; secret aGVsbG8=; };",
       "[key k]\n  algorithm: hmac-md5\n  secret: aGVsbG8=\n"},
      {"key k { secret \"a\"; }\n# c\n", "[key k]\n  secret: \"a\"\n# c\n"},
      {"key k { secret \"a\"; }\n\n;\nauthoritative;", "[key k]\n  secret: \"a\"\nauthoritative\n"},
      {"key \"a b\" { secret \"a\"; };authoritative;",
       "[key a b]\n  secret: \"a\"\nauthoritative\n"},
  };
  Expect(cases);
}

TEST_P(Reading, Chains) {
  const Case cases[] = {
      {"if known { a 1; } elsif unknown { b 2; } else { c 3; }",
       "[if known]\n  a: 1\n[elsif unknown]\n  b: 2\n[else]\n  c: 3\n"},
      {"if option x = \"{\" {\n}\nelse\n{\n}\n", "[if option x = {]\n[else]\n"},
      {"if known { } else if unknown { } else { }", "[if known]\n[else if unknown]\n[else]\n"},
      {"if exists x and not (option y = 1:2) { a 1; }",
       "[if exists x and not ( option y = 1:2 )]\n  a: 1\n"},
  };
  Expect(cases);
}

TEST_P(Reading, Switches) {
  const Case cases[] = {
      {"switch (option x) { case 1: a 1; break; default: b 2; }",
       "[switch ( option x )]\n  case 1:\n  a: 1\n  break\n  default:\n  b: 2\n"},
      {"switch (option x) {\n  case \"a:;\":\n  case \"b\":\n    c 3;\n}\n",
       "[switch ( option x )]\n  case \"a:;\":\n  case \"b\":\n  c: 3\n"},
      {"switch (x) { default domain-name \"y\"; }",
       "[switch ( x )]\n  default: domain-name \"y\"\n"},
      {"default domain-name \"y\";", "default: domain-name \"y\"\n"},
  };
  Expect(cases);
}

TEST_P(Reading, OptionDefinitions) {
  const Case cases[] = {
      {"option x code 200 = text;", "option x: code 200 = text\n"},
      {"option x code 200 = { integer 8, text };\na 1;",
       "option x: code 200 = { integer 8, text }\na: 1\n"},
      {"option x code 200 = array of { text };\na 1;",
       "option x: code 200 = array of { text }\na: 1\n"},
      {"option x code 200 =\n{\n  integer 8, # one\n  text\n}\n;\na 1;",
       "option x: code 200 =\\n{\\n  integer 8, # one\\n  text\\n}\na: 1\n"},
      {"option space s code width 1 length width 1;",
       "option space: s code width 1 length width 1\n"},
  };
  Expect(cases);
}

TEST_P(Reading, Comments) {
  const Case cases[] = {
      {"a 1; # one\nb 2;\n", "a: 1 <- \"# one\"\n# one\nb: 2\n"},
      {"# one\na 1;\n", "# one\na: 1 <- \"# one\"\n"},
      {"# one\n\na 1;\n", "# one\na: 1\n"},
      {"host a { # one\n  # two\n  b 1; # three\n  # four\n} # five\n",
       "[host a] <- \"# one\", \"# five\"\n"
       "  # one\n"
       "  # two\n"
       "  b: 1 <- \"# two\", \"# three\"\n"
       "  # three\n"
       "  # four\n"
       "# five\n"},
      {"# c { ; } \"\na 1;", "# c { ; } \"\na: 1 <- \"# c { ; } \"\"\n"},
      {"host a # x {\n{ }", "[host a]\n"},
      {"host a# x {\n{ }", "[host a]\n"},
      {"a # x; y\n1;", "a: 1\n"},
      {"# a\rb 1;\nc 2;", "# a\\rb 1;\nc: 2 <- \"# a\\rb 1;\"\n"},
      {"a 1; b 2; # both\n", "a: 1\nb: 2 <- \"# both\"\n# both\n"},
  };
  Expect(cases);
}

TEST_P(Reading, Strings) {
  const Case cases[] = {
      {R"(a "b;c{d}e#f";)", "a: \"b;c{d}e#f\"\n"},
      {R"(a "b\"c;"; d 1;)", "a: \"b\\\"c;\"\nd: 1\n"},
      {R"(a "b\\"; c 1;)", "a: \"b\\\\\"\nc: 1\n"},
      {R"(a "" ""; b 1;)", "a: \"\" \"\"\nb: 1\n"},
      {"a \"b\nc;\nd\";\ne 1;", "a: \"b\\nc;\\nd\"\ne: 1\n"},
      {"a\"b\";", "a: \"b\"\n"},
      {"a 'b; c 1;", "a: 'b\nc: 1\n"},
      {"include \"a\";include \"b\";", "include: \"a\"\ninclude: \"b\"\n"},
  };
  Expect(cases);
}

TEST_P(Reading, DisabledStatements) {
  const Case cases[] = {
      {"# max-lease-time 600;\n", "# max-lease-time 600; is disabled \"max-lease-time 600;\"\n"},
      {"#max-lease-time 600;\n", "#max-lease-time 600; is disabled \"max-lease-time 600;\"\n"},
      {"# host a { fixed-address 10.0.0.1; }\n",
       "# host a { fixed-address 10.0.0.1; } is disabled "
       "\"host a { fixed-address 10.0.0.1; }\"\n"},
      {"# host a {\n#   fixed-address 10.0.0.1;\n# }\n",
       "# host a { is disabled \"host a {\\n  fixed-address 10.0.0.1;\\n}\"\n"
       "#   fixed-address 10.0.0.1; is disabled \"fixed-address 10.0.0.1;\"\n"
       "# }\n"},
      {"# one day, host a will come;\n", "# one day, host a will come;\n"},
      {"# host z2 was sold;\n", "# host z2 was sold;\n"},
      {"# max-lease-time 600\n", "# max-lease-time 600\n"},
  };
  Given("");
  for (const Case& one : cases) {
    Given(one.text);
    const std::string tree = Tree();
    // Whether a line inside a disabled block is a disabled statement by itself does not matter here.
    EXPECT_EQ(tree.substr(0, tree.find('\n')), one.tree.substr(0, one.tree.find('\n')));
  }
}

TEST(ReadingBytes, NulAndOddBytes) {
  const struct {
    std::string text;
    std::string tree;
  } cases[] = {
      {"# a\0b\nc 1;"s, "# a\\x00b\nc: 1 <- \"# a\\x00b\"\n"},
      {"a \"b\0c\";"s, "a: \"b\\x00c\"\n"},
      {"host m\xFCller { }", "[host m\xFCller]\n"},
      {"a 1;\rb 2;", "a: 1\nb: 2\n"},
      {"\xEF\xBB\xBF"
       "a 1;",
       "a: 1\n"},
      {"\xEF\xBB\xBF", ""},
  };
  for (const auto& [text, tree] : cases) {
    const Document document(text);
    EXPECT_EQ(DocumentTree(document), tree);
    EXPECT_EQ(document.Text(), text);
  }
}

TEST_P(Reading, Places) {
  Given(
      "# one\n"
      "\tmax-lease-time 600; # two\n"
      "host a { filename\n"
      "  \"a\"; }\n");
  std::string places;
  for (Node node : {Root().FirstChild(), Root().Child("max-lease-time"), Find("host a"),
                    Find("host a").FirstChild()}) {
    places += std::to_string(node.Begin().line) + ":" + std::to_string(node.Begin().column) + "-" +
              std::to_string(node.End().line) + ":" + std::to_string(node.End().column) + "\n";
  }
  EXPECT_EQ(places,
            "1:1-1:6\n"
            "2:2-2:21\n"
            "3:1-4:9\n"
            "3:10-4:7\n");
  EXPECT_EQ(Root().Offset(), 0U);
  EXPECT_EQ(Root().Begin(), (Position{1, 1}));
}

TEST_P(Reading, DeepBlocks) {
  const std::size_t depth = 500;
  std::string text;
  for (std::size_t i = 0; i != depth; ++i) text += "group {\n";
  text += "authoritative;\n";
  for (std::size_t i = 0; i != depth; ++i) text += "}\n";
  Given(text);
  Node node = Root();
  for (std::size_t i = 0; i != depth; ++i) node = node.FirstChild();
  EXPECT_EQ(node.FirstChild().Keyword(), "authoritative");
  Edit([&] { node.FirstChild().Remove(); });
  EXPECT_FALSE(node.FirstChild());
}

}  // namespace
}  // namespace klepur::test
