// Conditions and other expressions. Each line was tried on the server: it takes those of which nothing is found, and
// refuses those with an error.
#include <gtest/gtest.h>

#include <string>

#include "tests/check/checking.h"

namespace klepur::test {
namespace {

/// An expression, and what is found of it; where it is wrong stands "^" in `where`, below it.
struct ExpressionCase {
  const char* expression;
  const char* where;
};

/// Tries expressions in a text with "$" for them.
template <std::size_t N>
void ExpectIn(const std::string& frame, const ExpressionCase (&cases)[N]) {
  const std::size_t at = frame.find('$');
  for (const auto& [expression, where] : cases) {
    const std::string text = std::string(frame).replace(at, 1, expression) + "\n";
    const std::string marks = where;
    const std::string found =
        marks.empty() ? ""
                      : "1:" + std::to_string(at + marks.find('^') + 1) + " malformed-expression\n";
    ExpectFoundIn(text, found, ByItself());
  }
}

TEST(Expressions, Conditions) {
  const ExpressionCase cases[] = {
      {"known", ""},
      {"(known)", ""},
      {"not (known) and STATIC", ""},
      {"((exists host-name) or (known))", ""},
      {"not not known", ""},
      {"variable", ""},
      {"function(\"a\", known)", ""},
      {"defined(variable)", ""},
      {"exists agent . circuit-id", ""},
      {"substring (option host-name, 0, 1) = \"a\"", ""},
      {"substring(hardware,1,3)=00:16:3e or hardware = 1:0:1:2:3:4:5", ""},
      {"option host-name ~= \"^a\" and option host-name ~~ variable", ""},
      {"lease-time = 600", ""},
      {"lease-time = 08", ""},
      {"yy = yy = yy", ""},
      {"extract-int(variable, 8) = extract-int(\"a\", 016)", ""},
      {"lcase(option host-name) = concat(\"a\", \"b\", 01) and known or not static", ""},
      {"option dhcp-message-type = 1", ""},
      {"option host-name != \"a\"", ""},
      {"packet(0, 010) = ff", ""},
      {"5z(\"a\") = -1", ""},
      {"option # c } ) \" c\n host-name = \"a ) and\"", ""},
      {"(known) and (static)",  //
       "^"},
      {"known) and static",  //
       "     ^"},
      {"(known",  //
       "^"},
      {"()",  //
       " ^"},
      {"known and",  //
       "      ^"},
      {"known or or static",  //
       "         ^"},
      {"known static",  //
       "      ^"},
      {"option host-name == \"a\"",  //
       "                 ^"},
      {"known && static",  //
       "      ^"},
      {"!known",  //
       "^"},
      {"\"a\"",  //
       "^"},
      {"option host-name",  //
       "^"},
      {"lease-time",  //
       "^"},
      {"not variable",  //
       "    ^"},
      {"exists \"host-name\"",  //
       "       ^"},
      {"exists host-name = \"a\"",  //
       "                 ^"},
      {"option host-name < \"a\"",  //
       "                 ^"},
      {"option routers = 10.0.0.1",  //
       "                   ^"},
      {"option host-name = m",  //
       "                   ^"},
      {"option dhcp-message-type = 300",  //
       "                           ^"},
      {"packet(0x0, 1) = ff",  //
       "       ^"},
      {"\"a\" = \"b\" = \"c\"",  //
       "          ^"},
      {"known = known",  //
       "      ^"},
      {"lease-time + 5 = 10",  //
       "               ^"},
      {"\"a\" ~ \"b\"",  //
       "      ^"},
      {"\"a\" ~= variable",  //
       "       ^"},
      {"mac(\"a\") = 1",  //
       "^"},
  };
  ExpectIn("if $ { }", cases);
  ExpectIn("if known { } elsif $ { }", cases);
  ExpectIn("if known { } else if $ { }", cases);
}

TEST(Expressions, ConditionsOfClasses) {
  const ExpressionCase cases[] = {
      {"(known) and (static)", ""},
      {"(substring(hardware, 1, 3)) = 00:16:3e", ""},
      {"(known) and",  //
       "        ^"},
      {"hardware",  //
       "^"},
  };
  ExpectIn("class \"c\" { match if $; }", cases);
}

TEST(Expressions, Data) {
  const ExpressionCase cases[] = {
      {"\"a\"", ""},
      {"1:2:ff", ""},
      {"01", ""},
      {"variable", ""},
      {"pick-first-value(option host-name, host-decl-name, null)", ""},
      {"binary-to-ascii(16, 8, \":\", substring(hardware, 1, 6))", ""},
      {"encode-int((5 + 3) * lease-time, 32)", ""},
      {"encode-int(lease-time & 5, 8)", ""},
      {"reverse(1, suffix(v6relay(1, option host-name), 4))", ""},
      {"config-option domain-name", ""},
      {"gethostname()", ""},
      {"600",  //
       "^"},
      {"known",  //
       "^"},
      {"lease-time",  //
       "^"},
      {"5 + 3",  //
       "    ^"},
      {"\"a\" \"b\"",  //
       "    ^"},
      {"concat(\"a\")",  //
       "          ^"},
      {"concat(\"a\" \"b\")",  //
       "           ^"},
      {"concat(\"a\",)",  //
       "           ^"},
      {"concat(\"a\", \"b\"",  //
       "            ^"},
      {"substring(\"a\", 0)",  //
       "                ^"},
      {"substring(\"a\", \"0\", 1)",  //
       "               ^"},
      {"encode-int(5, 12)",  //
       "              ^"},
      {"encode-int(5, variable)",  //
       "              ^"},
      {"gethostname",  //
       "^"},
      {"1:2:gg",  //
       "    ^"},
  };
  ExpectIn("option host-name = $;", cases);
  ExpectIn("option kind code 200 = text; option kind = $;", cases);
}

TEST(Expressions, InStatements) {
  const CheckCase cases[] = {
      {"max-lease-time = encode-int(600, 32);\n", ""},
      {"max-lease-time=600;\n", "1:16 malformed-expression\n"},
      {"max-lease-time = ;\n", "1:16 malformed-expression\n"},
      {"set name = known;\nunset name;\neval lease-time;\n", ""},
      {"set 5 = \"a\";\n", "1:5 malformed-expression\n"},
      {"set name \"a\";\n", "1:10 malformed-expression\n"},
      {"set name = ;\n", "1:10 malformed-expression\n"},
      {"unset name other;\n", "1:12 malformed-expression\n"},
      {"define f(xx, yy) { return concat(xx, yy); }\ndefine g = \"a\";\n", ""},
      {"define f(xx yy) { return xx; }\n", "1:13 malformed-expression\n"},
      {"define f { return xx; }\n", "1:8 malformed-expression\n"},
      {"log(info, \"a\");\nlog(variable);\nlog();\n", ""},
      {"log(warning, \"a\");\n", "1:12 malformed-expression\n"},
      {"log \"a\";\n", "1:5 malformed-expression\n"},
      {"log(info \"a\");\n", "1:10 malformed-expression\n"},
      {"log(known);\n", "1:5 malformed-expression\n"},
      {"on commit { execute(\"/bin/true\", \"a\", leased-address); }\n", ""},
      {"on commit { execute(leased-address); }\n", "1:21 malformed-expression\n"},
      {"on commit { execute(\"a\" \"b\"); }\n", "1:25 malformed-expression\n"},
      {"switch (option host-name) { case \"a\": break; }\n", ""},
      {"switch (5 + 3) { case 8: break; }\n", ""},
      {"switch option host-name { case \"a\": break; }\n", "1:8 malformed-expression\n"},
      {"switch () { case \"a\": break; }\n", "1:9 malformed-expression\n"},
      {"if known { } else known { }\n", "1:19 malformed-expression\n"},
      {"if { }\n", "1:1 missing-value\n"},
      {"class \"c\" { match option host-name; spawn with hardware; }\n", ""},
      {"class \"c\" { match; }\n", "1:13 missing-value\n"},
      {"class \"c\" { spawn with known; }\n", "1:24 malformed-expression\n"},
  };
  ExpectFound(cases, ByItself());
}

TEST(Expressions, NestAsDeepAsTheyLike) {
  const std::string deep(100000, '(');
  EXPECT_EQ(Found("if " + deep + " { }\n"), "");
  const std::string right = std::string(900, '(') + "known" + std::string(900, ')');
  EXPECT_EQ(Found("if " + right + " { }\n"), "");
  EXPECT_EQ(Found("if " + right + ") { }\n"), "1:1809 malformed-expression\n");
}

}  // namespace
}  // namespace klepur::test
