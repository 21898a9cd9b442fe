// Where it counts which of two statements or blocks comes first. The configuration classes write what
// stands on one line before all blocks.
#include <klepur/rewrite/rewrite_losses.h>

#include <gtest/gtest.h>

#include <string>

namespace klepur::test {
namespace {

/// The lines of what comes to stand before something it must stand behind, with the lines of that.
std::string OutOfOrder(const std::string& text) {
  std::string lines;
  for (const RewriteLoss& loss : FindRewriteLosses(text)) {
    if (loss.reason != RewriteReason::kOrder) continue;
    if (!lines.empty()) lines += ", ";
    lines += std::to_string(loss.where.line) + " behind " + std::to_string(loss.other.line);
  }
  return lines;
}

TEST(RewriteOrder, CountsWhereItHasAMeaning) {
  const struct {
    const char* what;
    const char* text;
    const char* lines;
  } kRows[] = {
      // declarations before references
      {"class", "class \"c\" {\n}\nsubclass \"c\" 1:2;\n", "3 behind 1"},
      {"class in other letters", "class \"c\" {\n}\nsubclass \"C\" 1:2;\n", ""},
      {"key in other letters", "key k {\n}\nomapi-key K;\n", "3 behind 1"},
      {"other class", "class \"c\" {\n}\nsubclass \"d\" 1:2;\n", ""},
      {"class and pool",
       "class \"c\" {\n}\nsubnet s { pool { allow members of \"c\"; range r; } }\n", "3 behind 1"},
      {"key and zone", "key k {\n}\nzone z { primary p; key k; }\n", "3 behind 1"},
      {"key and omapi", "key \"k\" {\n}\nomapi-key k;\n", "3 behind 1"},
      {"peer", "failover peer \"f\" {\n}\nsubnet s { pool { failover peer \"f\"; range r; } }\n",
       "3 behind 1"},
      {"group", "group g {\n}\nhost h { group g; }\n", "3 behind 1"},
      {"option definition", "host h {\n  option x 1;\n}\noption x code 200 = text;\n",
       "4 behind 2"},
      {"option that is not defined", "host h {\n  option x 1;\n}\noption x 2;\n", ""},
      {"option in an expression",
       "class \"c\" {\n  match if option x = 1;\n}\noption x code 200 = text;\n", "4 behind 2"},
      {"option space", "host h {\n  option s.x 1;\n}\noption space s;\noption s.x code 1 = text;\n",
       "5 behind 2"},

      // networks
      {"pool before its subnet", "shared-network n {\n  subnet s {\n  }\n  pool { range r; }\n}\n",
       "4 behind 2"},
      {"subnet on one line", "shared-network n {\n  pool {\n  }\n  subnet s { x 1; }\n}\n",
       "4 behind 2"},
      {"subnets of a shared network",
       "shared-network n {\n  subnet s {\n  }\n  subnet t { range r; }\n}\n", ""},
      {"pool in a subnet", "subnet s {\n  pool {\n    range r;\n  }\n  range r;\n}\n", ""},
      {"authority behind a subnet", "subnet s {\n}\nauthoritative;\n", "3 behind 1"},
      {"authority behind a subnet of a group",
       "group {\n  subnet s {\n  }\n}\nnot authoritative;\n", "5 behind 2"},
      {"authority in another subnet", "subnet s {\n}\nsubnet t { authoritative; }\n", ""},
      {"authority behind a host", "host h {\n}\nauthoritative;\n", ""},

      // values
      {"value behind a branch", "if known {\n  a 1;\n}\na 2;\n", "4 behind 2"},
      {"other value behind a branch", "if known {\n  a 1;\n}\nb 2;\n", ""},
      {"value behind a branch's branch", "if a {\n  if b {\n    x 1;\n  }\n}\nx 2;\n",
       "6 behind 3"},
      {"value behind a branch that supersedes",
       "if known {\n  supersede routers 1;\n}\noption routers 2;\n", "4 behind 2"},
      {"permission behind a branch", "if known {\n  allow booting;\n}\ndeny booting;\n",
       "4 behind 2"},
      {"value behind one that the classes take into a block",
       "host a {\n  host b { x 1; }}\na 1;\n}\na 2;\n", "5 behind 3"},
      {"value behind a host", "host a {\n  a 1;\n}\na 2;\n", ""},
      {"value of a class behind one",
       "class \"c\" {\n  a 1;\n}\nclass \"d\" { match if x; a 2; }\n", "4 behind 2"},
      {"what a class is",
       "class \"c\" {\n  match if x;\n}\nclass \"d\" { match if y; lease limit 1; }\n", ""},
      {"same hardware",
       "host a {\n  hardware ethernet 1:2;\n}\nhost b { hardware ethernet 1:2; }\n", "4 behind 2"},

      // what is carried out
      {"variable", "if known {\n  set x = 1;\n}\na = x;\n", "4 behind 2"},
      {"other variable", "if known {\n  set x = 1;\n}\na = y;\n", ""},
      {"variable in another block", "host h {\n  set x = 1;\n}\na = x;\n", ""},
      {"log", "if known {\n  log(info, \"a\");\n}\nlog(info, \"b\");\n", "4 behind 2"},
      {"break", "if known {\n  break;\n}\na 2;\n", "4 behind 2"},
      {"break in a switch", "switch (x) {\ncase 1:\n  break;\n}\na 2;\n", ""},
      {"on", "on commit {\n  a 1;\n}\non release or commit { b 2; }\n", "4 behind 1"},
      {"on for another event", "on commit {\n  a 1;\n}\non release { b 2; }\n", ""},
      {"block in a switch", "switch (x) {\ncase 1:\n  a 1;\n  if b {\n    c 1;\n  }\n  break;\n}\n",
       "7 behind 4"},

      // chains
      {"else on one line", "if a {\n  x 1;\n}\nelse { y 1; }\n", "4 behind 1"},
      {"if on one line", "host h {\n}\nif a { x 1; }\nelse {\n  y 1;\n}\n", "4 behind 3"},
      {"chain on lines", "if a { x 1; }\nelsif b { x 2; }\nelse { x 3; }\n", ""},

      // included files
      {"include behind a class", "class \"c\" {\n}\ninclude \"f\";\n", "3 behind 1"},
      {"include behind a subnet", "subnet s {\n}\ninclude \"f\";\n", "3 behind 1"},
      {"include behind a host", "host h {\n  fixed-address 10.0.0.1;\n}\ninclude \"f\";\n", ""},
      {"include behind hardware", "host h {\n  hardware ethernet 1:2;\n}\ninclude \"f\";\n", ""},
      {"include before a class", "include \"f\";\nclass \"c\" {\n}\n", ""},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(OutOfOrder(row.text), row.lines) << row.text;
  }
}

}  // namespace
}  // namespace klepur::test
