// Several threads may read a document while nobody edits it.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "tests/support/document_tree.h"

namespace klepur::test {
namespace {

std::string ManyKindsOfNodes() {
  std::string text;
  for (int i = 0; i != 40; ++i) {
    const std::string number = std::to_string(i);
    text += "# host off" + number + " { }\n";
    text +=
        "# which was sold\nhost h" + number + " { fixed-address 10.0.0." + number + "; } # here\n";
    text += "group { max-lease-time 600;\n";  // of which the last ones are never closed
    if (i < 30) text += "}\n";
  }
  return text;
}

std::string AllThatIsAsked(const Document& document) {
  std::string answers = PlacedTree(document) + FindingsText(document);
  for (int i = 0; i != 40; ++i) {
    answers += document.Find("host h" + std::to_string(i)).Text();
    answers += document.At(static_cast<std::size_t>(3 * i + 1)).Text();
  }
  for (const Node& node : document.Root().Disabled()) answers += node.DisabledText();
  for (const Node& node : document.FindAll("group")) answers += std::to_string(node.Offset()) + " ";
  return answers + std::to_string(document.Walk("max-lease-time").size()) + document.Text();
}

TEST(DocumentThreads, GetTheAnswersThatOneGets) {
  Document document(ManyKindsOfNodes());
  for (int edit = 0; edit != 3; ++edit) {
    // What was worked out before the edit is void, and all threads want it at once.
    document.Find("host h" + std::to_string(edit)).Set("next-server", "10.0.0.1");
    document.Root().Disabled().front().BringBack();
    std::vector<std::string> answers(4);
    std::vector<std::thread> threads;
    for (std::string& answer : answers) {
      threads.emplace_back([&] { answer = AllThatIsAsked(document); });
    }
    for (std::thread& thread : threads) thread.join();
    const std::string expected = AllThatIsAsked(Document(document.Text()));
    for (const std::string& answer : answers) ASSERT_EQ(answer, expected);
  }
}

}  // namespace
}  // namespace klepur::test
