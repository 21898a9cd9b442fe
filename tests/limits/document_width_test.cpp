// Documents of 300 000 blocks side by side, and edits of all of them, one by one.
#include <gtest/gtest.h>
#include <klepur/document/document.h>

#include <cstddef>
#include <string>
#include <vector>

#include "tests/limits/long_texts.h"
#include "tests/limits/sizes.h"

namespace klepur::test {
namespace {

constexpr std::size_t kBlocks = 300'000 / kPart;
constexpr std::size_t kAdded = 200'000 / kPart;
constexpr std::size_t kEdits = 10'000 / kPart;

std::string Number(std::size_t number) {
  return std::to_string(number);
}

std::string Hosts(std::size_t count) {
  return Numbered("host h% {\n  fixed-address 10.0.0.1;\n}\n", count);
}

TEST(DocumentWidth, BlocksAreReadWalkedFoundAndChecked) {
  const std::string text = Hosts(kBlocks);
  const Document document(text);
  ExpectSame(document.Text(), text);
  EXPECT_EQ(document.Walk("fixed-address").size(), kBlocks);
  for (std::size_t i = 0; i != kBlocks; ++i) {
    ASSERT_EQ(document.Find("host h" + Number(i)).Begin().line, 3 * i + 1);
  }
  EXPECT_EQ(document.At(3 * kBlocks).Name(), "h" + Number(kBlocks - 1));
  EXPECT_TRUE(document.Findings().empty());
}

TEST(DocumentWidth, BlocksOfOneHeaderAreFoundAndSetApartFromOthers) {
  const Document document(Repeated("pool {\n}\n", kBlocks) + "host a {\n}\n");
  const std::vector<Node> pools = document.FindAll("pool");
  ASSERT_EQ(pools.size(), kBlocks);
  EXPECT_EQ(pools.back().Begin().line, 2 * kBlocks - 1);
  EXPECT_EQ(document.Find("host a").Begin().line, 2 * kBlocks + 1);
}

TEST(DocumentWidth, BlocksAreRemovedFromTheFrontAndBack) {
  const std::string text = Hosts(kBlocks);
  Document document(text);
  const Document::Mark mark = document.GetMark();
  for (std::size_t i = 0; i != kBlocks / 2; ++i) document.Root().FirstChild().Remove();
  ExpectSame(document.Text(), text.substr(text.find("host h" + Number(kBlocks / 2) + " ")));
  document.RollBack(mark);
  ExpectSame(document.Text(), text);
  const std::vector<Node> hosts = document.Walk("host");
  for (std::size_t i = kBlocks; i != 0; --i) Node(hosts[i - 1]).Remove();
  EXPECT_EQ(document.Text(), "");
  document.RollBack(mark);
  ExpectSame(document.Text(), text);
  EXPECT_TRUE(hosts.front());
}

TEST(DocumentWidth, BlocksAreAddedOneByOne) {
  Document document("");
  for (std::size_t i = 0; i != kAdded; ++i) {
    const std::string name = "host h" + Number(i);
    const Node host = document.Root().Add(name + " { fixed-address 10.0.0.1; }");
    ASSERT_EQ(document.Find(name), host);
  }
  ExpectSame(document.Text(), Numbered("host h% {\n\tfixed-address 10.0.0.1;\n}\n", kAdded));
}

TEST(DocumentWidth, BlocksAreEditedOneByOne) {
  const std::string text = Hosts(kBlocks);
  Document document(text);
  const std::vector<Node> hosts = document.Walk("host");
  const std::size_t step = kBlocks / kEdits;
  const Document::Mark mark = document.GetMark();
  document.AsOne([&] {
    for (std::size_t i = 0; i < kBlocks; i += step) {
      Node host = hosts[i];
      host.Set("fixed-address", "10.0.0.7");
      host.Set("next-server", "10.0.0.5");
      host.Rename("g" + Number(i));
      host.CommentOut();
      host.BringBack();
    }
  });
  const Node last = document.Find("host g" + Number((kBlocks - 1) / step * step));
  EXPECT_EQ(last.Text(),
            "host " + last.Name() + " {\n  fixed-address 10.0.0.7;\n  next-server 10.0.0.5;\n}");
  document.RollBack(mark);
  ExpectSame(document.Text(), text);
}

TEST(DocumentWidth, PlacesAreAskedForBetweenEdits) {
  Document document(Hosts(kBlocks));
  const std::vector<Node> hosts = document.Walk("host");
  for (std::size_t i = 0; i != kAdded / 4; ++i) {
    Node(hosts[i * 7919 % kBlocks]).Set("fixed-address", "10.0.0.77");
    const std::size_t asked = i * 104'729 % kBlocks;
    ASSERT_EQ(hosts[asked].Begin().line, 3 * asked + 1);
  }
}

TEST(DocumentWidth, LinesAreAskedForAllOverAnEditedFile) {
  Document document(Hosts(kBlocks));
  const std::vector<Node> hosts = document.Walk("host");
  for (std::size_t i = 0; i < kBlocks; i += 10) Node(hosts[i]).Set("fixed-address", "10.0.0.77");
  for (std::size_t i = 0; i != kAdded / 10; ++i) {
    const std::size_t asked = i * 104'729 % kBlocks;
    ASSERT_EQ(document.At(3 * asked + 1), hosts[asked]);
    ASSERT_EQ(document.At(3 * asked + 2).Parent(), hosts[asked]);
  }
  for (std::size_t i = 0; i != kAdded / 20; ++i) {  // of added text alone
    const std::size_t asked = i * 104'729 % (kBlocks / 10) * 10;
    ASSERT_EQ(document.At(3 * asked + 2).Parent(), hosts[asked]);
  }
}

TEST(DocumentWidth, EverNewStatementsAreSetInABlockOfMany) {
  const std::string hosts = Numbered("  host h% {\n  }\n", kEdits);
  Document document("group {\n" + hosts + "}\n");
  Node group = document.Find("group");
  for (std::size_t i = 0; i != kAdded / 20; ++i) {
    const Node word = group.Set("word" + Number(i), "1");
    ASSERT_EQ(group.Set("word" + Number(i), "2"), word);
    ASSERT_TRUE(group.Set("option name" + Number(i), "3"));
  }
  std::string words = Numbered("  word% 2;\n", kAdded / 20);
  const std::size_t second = words.find('\n') + 1;
  ExpectSame(document.Text(), "group {\n" + words.substr(0, second) +
                                  Numbered("  option name% 3;\n", kAdded / 20) +
                                  words.substr(second) + hosts + "}\n");
}

TEST(DocumentWidth, BlocksAreMovedOneByOne) {
  Document document("group {\n}\n" + Hosts(kEdits));
  Node group = document.Find("group");
  for (Node host : document.Walk("host")) host.MoveTo(group);
  ExpectSame(
      document.Text(),
      "group {\n" + Numbered("  host h% {\n    fixed-address 10.0.0.1;\n  }\n", kEdits) + "}\n");
}

}  // namespace
}  // namespace klepur::test
