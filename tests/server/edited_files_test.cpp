// What the server accepts stays accepted after edits that keep its meaning.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "tests/random/chance.h"
#include "tests/server/judged_files.h"
#include "tests/support/document_tree.h"
#include "tests/support/files.h"

namespace klepur::test {
namespace {

constexpr std::size_t kSeriesOfEachFile = 4;
constexpr std::size_t kEditsOfASeries = 10;

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

bool IsTime(const Node& node) {
  return IsOneOf(node.Keyword(), {"default-lease-time", "max-lease-time", "min-lease-time"}) &&
         node.Value().find_first_not_of("0123456789") == std::string::npos;
}

bool IsHost(const Node& node) {
  return node.Is(NodeKind::kBlock) && node.Keyword() == "host";
}

bool MayHoldTime(const Node& node) {
  return node.Is(NodeKind::kFile) ||
         (node.Is(NodeKind::kBlock) &&
          IsOneOf(node.Keyword(), {"host", "group", "subnet", "subnet6", "shared-network", "pool",
                                   "pool6", "class", "if", "elsif", "else", "on"}));
}

bool MayHoldHost(const Node& node) {
  return node.Is(NodeKind::kFile) ||
         (node.Is(NodeKind::kBlock) &&
          IsOneOf(node.Keyword(), {"group", "subnet", "subnet6", "shared-network"}));
}

bool IsBranch(const Node& node) {
  return IsOneOf(node.Keyword(), {"elsif", "else"});
}

/// A statement, or a block with all that hangs on it.
bool IsEntry(const Node& node) {
  if (node.Next() && node.Next().Is(NodeKind::kStray)) return false;
  return node.Is(NodeKind::kStatement) || (node.Is(NodeKind::kBlock) && !IsBranch(node));
}

/// Whether it may be left out. The server dies of a switch whose last label nothing follows.
bool MayBeMissed(const Node& node) {
  return IsHost(node) || (IsTime(node) && node.Parent().Keyword() != "switch");
}

/// Whether nothing that follows asks for it, so that it may stand further below.
bool MayStandBelow(const Node& node) {
  return IsTime(node) ||
         IsOneOf(node.Keyword(),
                 {"host", "subnet", "subnet6", "pool", "pool6", "range", "range6", "prefix6",
                  "zone", "shared-network", "option routers", "option domain-name-servers"});
}

bool IsListOfAddresses(const Node& node) {
  return IsOneOf(node.Keyword(),
                 {"option routers", "option domain-name-servers", "option ntp-servers",
                  "option time-servers", "option smtp-server", "option nis-servers"}) &&
         node.Value().find_first_not_of("0123456789., \t\r\n") == std::string::npos;
}

Node NeighbourOf(Node node, Node (Node::*step)() const) {
  do {
    node = (node.*step)();
  } while (node.Is(NodeKind::kComment));
  return node;
}

/// One series of edits of a document.
class Series {
 public:
  Series(const std::string& text, std::uint64_t seed, bool is_v6)
      : document_(text), chance_(seed), is_v6_(is_v6) {}

  void DoOne() {
    const Document::Mark mark = document_.GetMark();
    words_.clear();
    try {
      (this->*kEdits[chance_.Below(std::size(kEdits))])();
    } catch (const Error& error) {
      // Beside a part of a chain nothing can stand.
      EXPECT_EQ(error.Code(), ErrorCode::kBadPlace) << words_ << ": " << error.what();
      document_.RollBack(mark);
      words_.clear();
    }
    if (chance_.OneIn(5)) ReadAgain();
  }

  std::string Text() const { return document_.Text(); }
  const Document& Doc() const { return document_; }
  /// What the last edit was; empty when it was none.
  const std::string& Words() const { return words_; }

 private:
  using Edit = void (Series::*)();

  void Collect(const Node& block, std::vector<Node>& nodes) const {
    for (const Node& child : block.Children()) {
      nodes.push_back(child);
      Collect(child, nodes);
    }
  }

  Node Pick(const std::function<bool(const Node&)>& fits) {
    std::vector<Node> nodes = {document_.Root()};
    Collect(document_.Root(), nodes);
    nodes.erase(
        std::remove_if(nodes.begin(), nodes.end(), [&](const Node& node) { return !fits(node); }),
        nodes.end());
    return nodes.empty() ? Node() : chance_.Pick(nodes);
  }

  void Say(const std::string& what, const Node& node) {
    words_ =
        what + " in line " + std::to_string(node.Begin().line) + ": " + node.Text().substr(0, 60);
  }

  void ReadAgain() {
    document_ = Document(document_.Text());
    words_ += " (and read again)";
  }

  Placement WithComments(Placement placement) {
    if (chance_.OneIn(5)) placement = placement.WithComment("above; { \"");
    if (chance_.OneIn(5)) placement = placement.WithTrailingComment("behind; } \"");
    return placement;
  }

  void CommentOutAndBack() {
    Node node = Pick(IsEntry);
    if (!node) return;
    Say("comment out and back", node);
    const std::string before = document_.Text();
    node.CommentOut();
    node.BringBack();
    EXPECT_EQ(document_.Text(), before) << words_;
  }

  /// Only the text tells then what was commented out.
  void CommentOutAndReadAndBack() {
    Node node = Pick(IsEntry);
    if (!node) return;
    Say("comment out, read again and bring back", node);
    const std::string text = node.Text();
    const Document::Mark mark = document_.GetMark();
    node.CommentOut();
    Document read(document_.Text());
    Node comment = read.At(node.Begin().line);
    if (!comment.IsDisabled()) {  // as of words that the server does not know
      document_.RollBack(mark);
      words_.clear();
      return;
    }
    comment.BringBack();
    document_ = std::move(read);
  }

  void CommentOutForGood() {
    Node node = Pick(MayBeMissed);
    if (!node) return;
    Say("comment out", node);
    node.CommentOut();
  }

  void MoveBehindOneOfItsKind() {
    Node node = Pick(MayStandBelow);
    if (!node) return;
    std::vector<Node> below;
    for (Node at = node.Next(); at; at = at.Next()) {
      if (at.Keyword() == node.Keyword() && IsEntry(at)) below.push_back(at);
    }
    if (below.empty()) return;
    const Node anchor = chance_.Pick(below);
    Say("move behind line " + std::to_string(anchor.Begin().line), node);
    node.MoveTo(node.Parent(), Placement::After(anchor));
  }

  void MoveHostToAnotherBlock() {
    Node node = Pick(IsHost);
    if (!node) return;
    const Node block = Pick([&](const Node& at) {
      return MayHoldHost(at) && (at.Is(NodeKind::kFile) || node.Offset() < at.Offset());
    });
    if (!block) return;
    Say("move to the block of line " + std::to_string(block.Begin().line), node);
    node.MoveTo(block);
  }

  void MoveTimeToStart() {
    Node node = Pick([](const Node& at) { return IsTime(at) && MayBeMissed(at); });
    if (!node) return;
    Say("move to the start of its block", node);
    node.MoveTo(node.Parent(), chance_.OneIn(2) ? Placement::First() : Placement::Last());
  }

  void RemoveAndAddAgain() {
    Node node = Pick(IsEntry);
    if (!node) return;
    Say("remove and add again", node);
    std::string text = node.Text();
    Node end = node;
    if (node.Keyword() == "if") {
      for (Node next = NeighbourOf(end, &Node::Next); next && IsBranch(next);
           next = NeighbourOf(end, &Node::Next)) {
        text += " " + next.Text();
        end = next;
      }
    }
    Node parent = node.Parent();
    const Node next = NeighbourOf(end, &Node::Next);
    const Node previous = NeighbourOf(node, &Node::Previous);
    node.Remove(chance_.OneIn(2) ? CommentsAbove::kAuto : CommentsAbove::kKeep);
    if (next && (!previous || chance_.OneIn(2))) {
      parent.Add(text, WithComments(Placement::Before(next)));
    } else if (previous) {
      parent.Add(text, WithComments(Placement::After(previous)));
    } else {
      parent.Add(text, WithComments({}));
    }
  }

  void RemoveForGood() {
    Node node = Pick(MayBeMissed);
    if (!node) return;
    Say("remove", node);
    node.Remove();
  }

  void SetToItsOwnValue() {
    Node node = Pick([](const Node& at) { return !at.Value().empty(); });
    if (!node) return;
    Say("set to its own value", node);
    const std::string before = document_.Text();
    node.SetValue(node.Value());
    EXPECT_EQ(document_.Text(), before) << words_;
  }

  void SetAndBack() {
    Node node = Pick([](const Node& at) {
      return !at.Value().empty() && at.Value().find_first_of("#(") == std::string::npos;
    });
    if (!node) return;
    Say("set to another value and back", node);
    const std::string value = node.Value();
    const std::string before = document_.Text();
    node.SetValue("klepur, 1234567");
    node.SetValue(value);
    EXPECT_EQ(document_.Text(), before) << words_;
  }

  void SetTime() {
    Node node = Pick(IsTime);
    if (!node) return;
    Say("set the time", node);
    node.SetValue(std::to_string(chance_.Below(100000)));
  }

  void RenameAndBack() {
    Node node = Pick([](const Node& at) { return !at.Name().empty(); });
    if (!node) return;
    Say("rename and back", node);
    const std::string before = document_.Text();
    const std::string name = node.Name();
    node.Rename("klepur");
    node.Rename(name);
    EXPECT_EQ(document_.Text(), before) << words_;
  }

  void RenameHost() {
    Node node = Pick(IsHost);
    if (!node) return;
    Say("rename", node);
    node.Rename(NewName());
  }

  void AddTime() {
    Node block = Pick(MayHoldTime);
    Say("add a time", block);
    block.Add("max-lease-time 7200", WithComments({}));
  }

  void SetTimeOfBlock() {
    Node block = Pick(MayHoldTime);
    Say("set the time of a block", block);
    block.Set("default-lease-time", "600");
  }

  void AddHost() {
    Node block = Pick(MayHoldHost);
    Say("add a host", block);
    const std::string mac =
        " { hardware ethernet 02:00:00:00:00:0" + std::to_string(chance_.Below(10)) + "; ";
    const std::string address =
        is_v6_ ? "fixed-address6 2001:db8:ffff::" : "fixed-address 192.0.2.";
    block.Add("host " + NewName() + mac + address + std::to_string(chance_.Below(200)) + "; }",
              WithComments({}));
  }

  void AppendAndRemoveElement() {
    Node node = Pick(IsListOfAddresses);
    if (!node) return;
    Say("append to the list and take out", node);
    node.AppendToList("192.0.2.200");
    if (chance_.OneIn(2)) return;
    EXPECT_TRUE(node.RemoveFromList("192.0.2.200")) << words_;
  }

  std::string NewName() { return "klepur" + std::to_string(++names_); }

  static constexpr Edit kEdits[] = {&Series::CommentOutAndBack,
                                    &Series::CommentOutAndReadAndBack,
                                    &Series::CommentOutAndReadAndBack,
                                    &Series::CommentOutForGood,
                                    &Series::MoveBehindOneOfItsKind,
                                    &Series::MoveBehindOneOfItsKind,
                                    &Series::MoveHostToAnotherBlock,
                                    &Series::MoveTimeToStart,
                                    &Series::RemoveAndAddAgain,
                                    &Series::RemoveAndAddAgain,
                                    &Series::RemoveForGood,
                                    &Series::SetToItsOwnValue,
                                    &Series::SetAndBack,
                                    &Series::SetTime,
                                    &Series::RenameAndBack,
                                    &Series::RenameHost,
                                    &Series::AddTime,
                                    &Series::SetTimeOfBlock,
                                    &Series::AddHost,
                                    &Series::AppendAndRemoveElement};

  Document document_;
  Chance chance_;
  bool is_v6_;
  std::size_t names_ = 0;
  std::string words_;
};

struct Edited {
  JudgedFile file;
  std::string text;
  std::uint64_t seed;
};

/// Which edit of a series it was that the server refuses, and what it says.
std::string FirstRefused(const Edited& edited) {
  Series series(ReadFile(edited.file.path), edited.seed, edited.file.is_v6);
  std::vector<Question> questions;
  std::vector<std::string> words;
  for (std::size_t i = 0; i < kEditsOfASeries; ++i) {
    series.DoOne();
    words.push_back(series.Words());
    questions.push_back({series.Text(), edited.file.is_v6});
  }
  const std::vector<std::string> answers = AskServer(questions);
  for (std::size_t i = 0; i < answers.size(); ++i) {
    if (answers[i].empty()) continue;
    return words[i] + "\n" + answers[i] + "the text before:\n" +
           (i == 0 ? "as the file" : questions[i - 1].text) + "\nthe text:\n" + questions[i].text;
  }
  return "accepted now";
}

std::string Setting(const char* name, const std::string& otherwise) {
  const char* const value = std::getenv(name);
  return value == nullptr ? otherwise : value;
}

TEST(EditedFiles, StayAccepted) {
  if (!ServerIsHere()) GTEST_SKIP() << "the DHCP server is not here, scripts/fetch_server gets it";
  const std::uint64_t first = std::stoull(Setting("KLEPUR_RANDOM_SEED", "1"));
  const std::uint64_t series_of_each =
      std::stoull(Setting("KLEPUR_SERIES", std::to_string(kSeriesOfEachFile)));
  std::vector<Edited> edited;
  std::vector<Question> questions;
  for (const JudgedFile& file : AcceptedFiles()) {
    const std::string text = ReadFile(file.path);
    for (std::uint64_t i = 0; i < series_of_each; ++i) {
      SCOPED_TRACE(file.name + " with seed " + std::to_string(first + i));
      Series series(text, first + i, file.is_v6);
      for (std::size_t edit = 0; edit < kEditsOfASeries; ++edit) series.DoOne();
      EXPECT_EQ(FindingsText(series.Doc()), "");
      EXPECT_EQ(FindingsText(Document(series.Text())), "");
      edited.push_back({file, series.Text(), first + i});
      questions.push_back({series.Text(), file.is_v6});
    }
  }
  const std::vector<std::string> answers = AskServer(questions);
  for (std::size_t i = 0; i < answers.size(); ++i) {
    if (answers[i].empty()) continue;
    ADD_FAILURE() << edited[i].file.name << " with seed " << edited[i].seed << ": "
                  << FirstRefused(edited[i]);
  }
}

}  // namespace
}  // namespace klepur::test
