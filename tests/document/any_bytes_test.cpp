// Any bytes at all can be read, and are what the document's text is.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/random/chance.h"
#include "tests/support/document_tree.h"
#include "tests/support/files.h"

namespace klepur::test {
namespace {

constexpr std::string_view kFile =
    "# Office\n"
    "authoritative;\n"
    "option domain-name \"a;b # \\\" }\";  # really\n"
    "option x code 200 = { integer 8, text };\n"
    "key k { algorithm hmac-md5; secret aGVsbG8=; };\n"
    "subnet 10.0.0.0 netmask 255.255.255.0\n"
    "{\n"
    "\trange 10.0.0.10 10.0.0.20;   # phones\n"
    "\n"
    "\tpool { allow unknown-clients; range 10.0.0.30\n\t\t10.0.0.40; }\n"
    "\t# host off { fixed-address 10.0.0.9; }\n"
    "}\n"
    "if option arch = 00:07 {\n"
    "  filename \"efi64\";\n"
    "} else {\n"
    "  switch (option x) { case 1: log(info, \"x\"); break; default: next-server 10.0.0.1; }\n"
    "}\n"
    "host m\xFCller { hardware ethernet 00:00:00:00:00:01; }\n";

/// The tiles of a parent: its children lie in it, one behind the other.
void ExpectInOrder(const Document& document, std::string_view bytes) {
  std::size_t last = 0;
  for (Node node = document.Root().FirstChild(); node; node = node.Next()) {
    const std::string text = node.Text();
    ASSERT_GE(node.Offset(), last);
    ASSERT_LE(node.Offset() + text.size(), bytes.size());
    ASSERT_EQ(bytes.substr(node.Offset(), text.size()), text);
    last = node.Offset() + text.size();
  }
}

void ExpectReadAsItIs(std::string_view bytes) {
  const Document document(bytes);
  ASSERT_EQ(document.Text(), bytes);
  ASSERT_EQ(document.Root().Text(), bytes);
  ASSERT_FALSE(document.IsChanged());
  std::string pieces;
  for (const std::string_view piece : document.Pieces()) pieces += piece;
  ASSERT_EQ(pieces, bytes);
  ExpectInOrder(document, bytes);
  DocumentTree(document);
  std::size_t line = 0;
  for (const Finding& finding : document.Findings()) {
    ASSERT_GE(finding.where.line, line);
    ASSERT_GE(finding.where.column, 1U);
    line = finding.where.line;
  }
}

std::string RandomBytes(Chance& chance) {
  static constexpr std::string_view kLikely = ";{}#\"\\\n\r\t  ab=:,()/";
  std::string bytes(chance.Below(60), '\0');
  for (char& byte : bytes) {
    byte = chance.OneIn(4) ? static_cast<char>(chance.Below(256))
                           : kLikely[chance.Below(kLikely.size())];
  }
  return bytes;
}

std::string RandomWords(Chance& chance) {
  static const std::vector<std::string> kWords = {"host a",
                                                  "group",
                                                  "{",
                                                  "}",
                                                  ";",
                                                  "if known",
                                                  "else",
                                                  "elsif",
                                                  "switch (x)",
                                                  "case 1:",
                                                  "default",
                                                  ":",
                                                  "option x",
                                                  "= {",
                                                  "array of {",
                                                  "\"",
                                                  "\"a\"",
                                                  "#",
                                                  "# authoritative;",
                                                  "\n",
                                                  "\r\n",
                                                  "\\",
                                                  "key k",
                                                  "on commit",
                                                  "max-lease-time 1",
                                                  "secret a=",
                                                  "\xEF\xBB\xBF",
                                                  std::string(1, '\0'),
                                                  "subclass \"a\" 1",
                                                  "include \"b\"",
                                                  "max-lease-time",
                                                  "\t"};
  std::string text;
  for (std::size_t count = chance.Below(40); count > 0; --count) {
    text += chance.Pick(kWords);
    if (!chance.OneIn(3)) text += ' ';
  }
  return text;
}

std::string Mutated(Chance& chance, std::string text) {
  for (std::size_t count = chance.Between(1, 4); count > 0 && !text.empty(); --count) {
    const std::size_t at = chance.Below(text.size());
    switch (chance.Below(4)) {
      case 0:
        text.erase(at, chance.Between(1, 3));
        break;
      case 1:
        text[at] = static_cast<char>(chance.Below(256));
        break;
      case 2:
        text.insert(at, 1, ";{}#\"\\\n\r\0"[chance.Below(9)]);
        break;
      default:
        text.resize(at);
    }
  }
  return text;
}

TEST(AnyBytes, OneAndTwoBytes) {
  for (int first = 0; first != 256; ++first) {
    ExpectReadAsItIs(std::string(1, static_cast<char>(first)));
    for (const char second : {';', '{', '}', '#', '"', '\\', '\n', '\r', '\0', ' ', 'a'}) {
      ExpectReadAsItIs(std::string{static_cast<char>(first), second});
      ExpectReadAsItIs(std::string{second, static_cast<char>(first)});
    }
    if (HasFatalFailure()) FAIL() << first;
  }
}

TEST(AnyBytes, EveryBeginningAndEndOfAFile) {
  for (const std::string& file : {std::string(kFile), WithCarriageReturns(kFile)}) {
    for (std::size_t at = 0; at <= file.size(); ++at) {
      ExpectReadAsItIs(std::string_view(file).substr(0, at));
      ExpectReadAsItIs(std::string_view(file).substr(at));
      if (HasFatalFailure()) FAIL() << at;
    }
  }
}

TEST(AnyBytes, EveryByteOfAFileLeftOut) {
  for (std::size_t at = 0; at != kFile.size(); ++at) {
    std::string text(kFile);
    text.erase(at, 1);
    ExpectReadAsItIs(text);
    if (HasFatalFailure()) FAIL() << at;
  }
}

TEST(AnyBytes, OfChance) {
  Chance chance(20260417);
  for (int round = 0; round != 4000; ++round) {
    const std::string bytes = round % 3 == 0   ? RandomBytes(chance)
                              : round % 3 == 1 ? RandomWords(chance)
                                               : Mutated(chance, std::string(kFile));
    ExpectReadAsItIs(bytes);
    if (HasFatalFailure()) FAIL() << Visible(bytes);
  }
}

TEST(AnyBytes, OneWrongByteSpoilsLittle) {
  const Document whole(kFile);
  const std::vector<Node> last = whole.FindAll("host m\xFCller");
  ASSERT_EQ(last.size(), 1U);
  for (std::size_t at = 0; at != kFile.size(); ++at) {
    if (kFile[at] != ';' && kFile[at] != '}') continue;
    std::string text(kFile);
    text.erase(at, 1);
    // In the last line nothing follows.
    if (at > kFile.rfind("host")) break;
    EXPECT_TRUE(Document(text).Find("host m\xFCller")) << at << "\n" << text;
  }
}

}  // namespace
}  // namespace klepur::test
