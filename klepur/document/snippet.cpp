#include <klepur/document/snippet.h>

#include <algorithm>
#include <vector>

#include <klepur/document/document.h>
#include <klepur/document/node_text.h>
#include <klepur/document/structure_reader.h>
#include <klepur/document/structure_words.h>
#include <klepur/document/words_of_text.h>
#include <klepur/text/error.h>
#include <klepur/text/letters.h>

namespace klepur::internal {
namespace {

constexpr std::size_t kWidth = 100;

std::string_view WithoutBlanksBehind(std::string_view text) {
  return text.substr(0, text.find_last_not_of(std::string_view(" \t\r\n\v\f\0", 7)) + 1);
}

/// The text with the ";" that its last statement may lack.
std::string Completed(std::string_view text) {
  const std::string_view words = UpToLastWord(text);
  if (words.empty() || words.back() == ';' || words.back() == '}' || words.back() == ':' ||
      SizeOfEndless(words) == words.size()) {
    return std::string(text);
  }
  std::string completed(words);
  completed += ';';
  return completed.append(text.substr(words.size()));
}

/// A statement with nothing between its last word and its ";", where the server does not take blanks everywhere.
std::string WithoutBlanksBeforeEnd(std::string statement) {
  if (statement.empty() || statement.back() != ';') return statement;
  const std::size_t words = UpToLastWord({statement.data(), statement.size() - 1}).size();
  const bool comment = statement.find('#', words) != std::string::npos;
  if (words != 0 && !comment) statement.erase(words, statement.size() - 1 - words);
  return statement;
}

/// Whether a statement begins with a word that asks for a block.
bool LacksBlock(const SyntaxNode& node, std::string_view text) {
  return node.kind == NodeKind::kStatement && WantsBlock(NumberOf(LeadingWord(text)));
}

bool IsWhole(const SyntaxNode& node, std::string_view text) {
  return node.kind != NodeKind::kStray && !node.unfinished && !node.open_quote &&
         !UpToLastWord(text).empty() && !LacksBlock(node, text);
}

}  // namespace

Snippet::Snippet(std::string_view text, std::uint8_t parent_word)
    : text_(Completed(WithoutBlanksBehind(text))) {
  tree_.Made(kRoot).word = parent_word;
  StructureReader(tree_, text_.view(), kBase).Read(kRoot);
  if (tree_.Count() < 2) throw Error(ErrorCode::kBadText, "there is nothing to add in the text");
  for (NodeId id = 1; id < tree_.Count(); ++id) {
    if (tree_[id].kind == NodeKind::kComment || IsWhole(tree_[id], OwnText(id))) continue;
    throw Error(ErrorCode::kBadText, "\"" + std::string(text) + "\" is not whole statements");
  }
  for (NodeId id = 1; id != kNoNode; id = tree_[id].next) {
    if (main_ == kNoNode && tree_[id].kind != NodeKind::kComment) main_ = id;
    last_ = id;
  }
}

std::string Snippet::Key() const {
  return main_ == kNoNode ? std::string() : KeyOf(OwnText(main_));
}

bool Snippet::IsBranch() const {
  return IsBlock() && WordOf(tree_[main_].word).begins == Begins::kBranch;
}

std::string_view Snippet::OwnText(NodeId id) const {
  const SyntaxNode& node = tree_[id];
  return View(node.begin,
              node.kind == NodeKind::kBlock ? node.begin + tree_.BraceOf(id) : node.end);
}

std::string_view Snippet::GapBefore(NodeId id) const {
  const SyntaxNode& node = tree_[id];
  if (node.previous != kNoNode) return View(tree_[node.previous].end, node.begin);
  if (node.parent == kRoot) return {};
  return View(tree_[node.parent].begin + tree_.BraceOf(node.parent) + 1, node.begin);
}

bool Snippet::IsTrailing(NodeId comment) const {
  return tree_[comment].kind == NodeKind::kComment && !HasLineEnd(GapBefore(comment)) &&
         (tree_[comment].previous != kNoNode || tree_[comment].parent != kRoot);
}

/// Whether it is an "else" that goes on the line of the "}" before it.
bool Snippet::ContinuesLine(NodeId id, const Neighbours& neighbours) const {
  const NodeId previous = tree_[id].previous;
  if (tree_[id].kind != NodeKind::kBlock || previous == kNoNode ||
      WordOf(tree_[id].word).begins != Begins::kBranch ||
      tree_[previous].kind != NodeKind::kBlock) {
    return false;
  }
  return neighbours.BranchesContinueLines().value_or(!HasLineEnd(GapBefore(id)));
}

std::string Snippet::StatementText(NodeId id, const Neighbours& neighbours) const {
  std::string text(OwnText(id));
  if (tree_[id].kind != NodeKind::kStatement) return text;
  text = WithoutBlanksBeforeEnd(std::move(text));
  const ValuePlace value = ValueIn(text);
  const std::string_view word = std::string_view(text).substr(value.begin, value.end - value.begin);
  if (IsBareWord(word) && neighbours.IsQuoted(KeyOf(text)) == true) {
    text.replace(value.begin, word.size(), Quoted(word));
  }
  return text;
}

std::string Snippet::HeaderText(NodeId id, const Neighbours& neighbours) const {
  const std::string_view header = UpToLastWord(OwnText(id));
  const std::string name = NameIn(header);
  const std::optional<bool> quoted = neighbours.IsQuoted(KeyOf(header));
  if (name.empty() || !quoted || *quoted == IsQuotedName(header) || !IsBareWord(name)) {
    return std::string(header);
  }
  std::string text(header.substr(0, KeySize(header)));
  return text + ' ' + (*quoted ? Quoted(name) : name);
}

bool Snippet::FitsOnOneLine(NodeId block) const {
  for (NodeId child = tree_.FirstChild(block); child != kNoNode; child = tree_[child].next) {
    if (tree_[child].kind != NodeKind::kStatement || HasLineEnd(OwnText(child))) return false;
  }
  return !HasLineEnd(UpToLastWord(OwnText(block)));
}

std::string Snippet::BlockOnOneLine(NodeId id, const Neighbours& neighbours) const {
  const std::string header = HeaderText(id, neighbours);
  const Neighbours::OneLineBlanks blanks = neighbours.InOneLine(KeyOf(header));
  std::string text = header + " {" + blanks.open;
  for (NodeId child = tree_.FirstChild(id); child != kNoNode; child = tree_[child].next) {
    if (tree_[child].previous != kNoNode) text += blanks.between;
    text += StatementText(child, neighbours);
  }
  if (tree_.FirstChild(id) != kNoNode) text += blanks.close;
  return text + (tree_[id].late_semicolon ? "};" : "}");
}

std::string Snippet::OnOneLine(const Neighbours& neighbours) const {
  if (tree_[1].next != kNoNode || main_ != 1) return {};
  if (IsBlock()) return FitsOnOneLine(1) ? BlockOnOneLine(1, neighbours) : std::string();
  const std::string text = StatementText(1, neighbours);
  return HasLineEnd(text) ? std::string() : text;
}

/// Writes the nodes of a snippet line by line, without a call for each level.
class LineWriter {
 public:
  LineWriter(const Snippet& snippet, const Neighbours& neighbours, std::string_view indent,
             std::string_view line_end)
      : snippet_(snippet), neighbours_(neighbours), indents_{std::string(indent)}, end_(line_end) {}

  std::string Write() {
    NodeId id = 1;
    while (id != kNoNode) {
      BeginNode(id);
      if (snippet_.tree_[id].kind == NodeKind::kBlock && OpenBlock(id)) {
        const NodeId child = snippet_.tree_.FirstChild(id);
        if (child != kNoNode) {
          id = child;
          continue;
        }
        CloseBlock(id);
      }
      id = Behind(id);
    }
    return std::move(text_);
  }

 private:
  void NewLine() {
    text_ += end_;
    text_ += indents_.back();
  }

  void BeginNode(NodeId id) {
    const bool first = snippet_.tree_[id].previous == kNoNode && indents_.size() == 1;
    if (!first && (snippet_.IsTrailing(id) || snippet_.ContinuesLine(id, neighbours_))) {
      text_ += ' ';
    } else if (!first) {
      if (snippet_.tree_[id].previous != kNoNode && CountLineEnds(snippet_.GapBefore(id)) > 1) {
        text_ += end_;
      }
      NewLine();
    }
    if (snippet_.tree_[id].kind != NodeKind::kBlock) {
      text_ += snippet_.StatementText(id, neighbours_);
    }
  }

  /// True when the children are to be written on lines of their own.
  bool OpenBlock(NodeId id) {
    const std::string header = snippet_.HeaderText(id, neighbours_);
    const std::string key = KeyOf(header);
    if (snippet_.FitsOnOneLine(id) && neighbours_.BlocksStandOnOneLine(key)) {
      const std::string line = snippet_.BlockOnOneLine(id, neighbours_);
      const std::size_t limit = std::max(kWidth, neighbours_.WidestOneLine(key));
      if (WidthOf(indents_.back() + line) <= limit) {
        text_ += line;
        return false;
      }
    }
    text_ += header;
    const std::string gap = neighbours_.BeforeBrace(key);
    if (HasLineEnd(gap)) {
      NewLine();
      text_ += LastLine(gap);
    } else {
      text_ += gap;
    }
    text_ += '{';
    indents_.push_back(indents_.back() + neighbours_.Step(key));
    return true;
  }

  void CloseBlock(NodeId id) {
    indents_.pop_back();
    NewLine();
    text_ += snippet_.tree_[id].late_semicolon ? "};" : "}";
  }

  /// The node to be written next, behind this one and all below it.
  NodeId Behind(NodeId id) {
    while (snippet_.tree_[id].next == kNoNode) {
      id = snippet_.tree_[id].parent;
      if (id == kRoot) return kNoNode;
      CloseBlock(id);
    }
    return snippet_.tree_[id].next;
  }

  const Snippet& snippet_;
  const Neighbours& neighbours_;
  std::vector<std::string> indents_;
  std::string_view end_;
  std::string text_;
};

std::string Snippet::InLines(const Neighbours& neighbours, std::string_view indent,
                             std::string_view line_end) const {
  return LineWriter(*this, neighbours, indent, line_end).Write();
}

}  // namespace klepur::internal
