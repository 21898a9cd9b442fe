// A series of edits of any text as a document.
//
// An input is text, see the corpus: the document, a line "%%", then edits, one a line: a letter, the number
// of a node and what the edit wants. Nodes are counted in the order of the text as it is then, the file's is
// 0, and a number too large begins anew at 0.
//
//     a 3 next-server 10.0.0.1;     Add to a block; "\" in what is added stands for a line end
//     f 3 a 1;                      Add first; l: last; b: before the node; e: behind it
//     s 3 max-lease-time 60         Set
//     v 3 60                        SetValue
//     + 3 10.0.0.1                  AppendToList; -: RemoveFromList
//     n 3 pc-17                     Rename
//     h 3 if known                  SetHeader
//     r 3                           Remove; k: and keep the comments above, t: take them
//     m 3 5                         MoveTo another node; M: last in it
//     c 3                           CommentOut
//     u 3                           BringBack
//     [                             begins a series; ]: takes it back
//
// What is checked, after each edit: reading the text gives the nodes and findings that the document has, and
// each block is found by its header. An edit that throws leaves the text as it was; one taken back gives the
// text and the nodes from before, and so does all of them at the end.
#include <klepur/document/document.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/document_outline.h"
#include "fuzz/require.h"
#include "fuzz/target.h"
#include "fuzz/text.h"

namespace klepur::fuzz {
namespace {

constexpr std::size_t kMostEdits = 40;
constexpr int kMostNodes = 1000;

class Run {
 public:
  Run(const std::string& text, const std::vector<std::string>& edits)
      : edits_(edits), document_(text) {}

  void All() {
    marks_.push_back(NowMarked());
    for (const std::string& line : edits_) Do(line);
    marks_.resize(1);
    TakeBack();
  }

 private:
  struct Marked {
    Document::Mark mark;
    std::string text;
    std::string outline;
  };

  Marked NowMarked() const { return {document_.GetMark(), document_.Text(), OutlineOf(document_)}; }

  void TakeBack() {
    const Marked& back = marks_.back();
    document_.RollBack(back.mark);
    RequireSame("the text taken back", back.text, document_.Text());
    RequireSame("the nodes taken back", back.outline, OutlineOf(document_));
    if (marks_.size() > 1) marks_.pop_back();
  }

  void Do(std::string_view line) {
    if (line == "[") return marks_.push_back(NowMarked());
    if (line == "]") return TakeBack();
    const Marked before = NowMarked();
    try {
      Edit(line);
    } catch (const Error&) {
      RequireSame("the text after an edit that failed", before.text, document_.Text());
      RequireSame("the nodes after an edit that failed", before.outline, OutlineOf(document_));
    }
    RequireSame(("the nodes after " + std::string(line)).c_str(),
                OutlineOf(Document(document_.Text())), OutlineOf(document_));
    RequireBlocksFound(document_);
  }

  void Edit(std::string_view line) {
    const char letter = TakeLetter(line);
    Node node = TakeNode(line);
    std::string words(line);
    std::replace(words.begin(), words.end(), '\\', '\n');
    switch (letter) {
      case 'a':
        node.Add(words);
        break;
      case 'f':
        node.Add(words, Placement::First());
        break;
      case 'l':
        node.Add(words, Placement::Last());
        break;
      case 'b':
        node.Parent().Add(words, Placement::Before(node));
        break;
      case 'e':
        node.Parent().Add(words, Placement::After(node));
        break;
      case 's':
        node.Set(words);
        break;
      case 'v':
        node.SetValue(words);
        break;
      case '+':
        node.AppendToList(words);
        break;
      case '-':
        node.RemoveFromList(words);
        break;
      case 'n':
        node.Rename(words);
        break;
      case 'h':
        node.SetHeader(words);
        break;
      case 'k':
        node.Remove(CommentsAbove::kKeep);
        break;
      case 't':
        node.Remove(CommentsAbove::kTake);
        break;
      case 'm':
        node.MoveTo(TakeNode(line));
        break;
      case 'M':
        node.MoveTo(TakeNode(line), Placement::Last());
        break;
      case 'c':
        node.CommentOut();
        break;
      case 'u':
        node.BringBack();
        break;
      default:
        node.Remove();
    }
  }

  static char TakeLetter(std::string_view& line) {
    const char letter = line.empty() ? 'r' : line.front();
    line.remove_prefix(std::min<std::size_t>(2, line.size()));
    return letter;
  }

  Node TakeNode(std::string_view& line) const {
    const std::string_view word = line.substr(0, line.find(' '));
    line.remove_prefix(std::min(word.size() + 1, line.size()));
    std::vector<Node> nodes = AllNodes(document_);
    nodes.insert(nodes.begin(), document_.Root());
    return nodes[static_cast<std::size_t>(std::max(0, Number(word, kMostNodes))) % nodes.size()];
  }

  std::vector<std::string> edits_;
  Document document_;
  std::vector<Marked> marks_;
};

void Check(const std::string& text) {
  const std::size_t end = text.find("\n%%\n");
  std::vector<std::string> edits;
  if (end != std::string::npos) edits = Lines(std::string_view(text).substr(end + 4));
  while (!edits.empty() && edits.back().empty()) edits.pop_back();
  if (edits.size() > kMostEdits) edits.resize(kMostEdits);
  Run(end == std::string::npos ? text : text.substr(0, end + 1), edits).All();
}

}  // namespace
}  // namespace klepur::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return klepur::fuzz::RunTarget(data, size, klepur::fuzz::Check);
}
