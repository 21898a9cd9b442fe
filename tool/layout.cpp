#include <tool/layout.h>

#include <fmt/core.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include <tool/language.h>
#include <tool/problem.h>
#include <tool/walk.h>

namespace klepur::tool {
namespace {

constexpr std::size_t kWidestOneLineBlock = 100;
constexpr std::size_t kWidthOfTab = 8;

class Layout {
 public:
  /// \param text  that of the document.
  Layout(const Document& document, std::string_view text, const std::string& step)
      : document_(document), whole_(text), step_(step) {}

  std::string Text() {
    const Node root = document_.Root();
    Node node = root.FirstChild();
    while (node) {
      Begin(node);
      const bool is_open = node.Is(NodeKind::kBlock) && !one_line_;
      if (is_open) ++depth_;
      Node next = is_open ? node.FirstChild() : Node();
      if (is_open && !next) Close(node);
      while (!next && node != root) {
        next = node.Next();
        if (next) break;
        node = node.Parent();
        if (node == root) break;
        Close(node);
      }
      node = next;
    }
    if (!text_.empty()) text_ += '\n';
    return std::move(text_);
  }

 private:
  void Begin(const Node& node) {
    one_line_ = false;
    if (node.Is(NodeKind::kComment) && StandsBehind(node)) {
      text_ += "  " + node.Text();
      return;
    }
    if (IsElse(node) && !text_.empty() && text_.back() == '}') {
      text_ += ' ';
    } else {
      NewLine(node);
    }
    if (!node.Is(NodeKind::kBlock)) {
      text_ += Spaced(node.Text());
      return;
    }
    const std::string one_line = OneLineBlock(node);
    one_line_ = !one_line.empty();
    text_ += one_line_ ? one_line : Opening(node);
  }

  void Close(const Node& block) {
    --depth_;
    text_ += '\n' + Indent() + '}';
    if (EndsInSemicolon(block)) text_ += ';';
  }

  /// How many lines end between a node and what is before it.
  std::size_t LineEndsBefore(const Node& node) const {
    const std::string_view before = whole_.substr(0, node.Offset());
    const std::size_t end = before.find_last_not_of(" \t\n\v\f\r") + 1;
    return static_cast<std::size_t>(
        std::count(before.begin() + static_cast<std::ptrdiff_t>(end), before.end(), '\n'));
  }

  /// Whether a comment stands on the line on which something before it ends, or opens.
  bool StandsBehind(const Node& comment) const {
    if (LineEndsBefore(comment) != 0) return false;
    const Node before = comment.Previous();
    return before ? !before.Is(NodeKind::kComment) : comment.Parent().Is(NodeKind::kBlock);
  }

  /// Where the "{" of a block stands; between it and the header there may be blanks and comments.
  std::size_t BraceOf(const Node& block) const {
    Piece piece = PieceBehind(whole_, block.Offset());
    while (!piece.text.empty() && !piece.Is('{')) {
      piece = PieceBehind(whole_, piece.offset + piece.text.size());
    }
    return piece.offset;
  }

  /// The header and the "{", with the comments between them.
  std::string Opening(const Node& block) const {
    const std::string_view text = whole_.substr(block.Offset(), BraceOf(block) - block.Offset());
    const std::vector<Piece> pieces = PiecesOf(text);
    const bool is_behind_comment = !pieces.empty() && pieces.back().IsComment();
    return Spaced(text) + (is_behind_comment ? "\n" + Indent() + "{" : " {");
  }

  void NewLine(const Node& node) {
    if (!text_.empty()) text_ += '\n';
    if (node.Previous() && LineEndsBefore(node) > 1) text_ += '\n';
    text_ += Indent();
  }

  std::string Indent() const {
    std::string indent;
    for (std::size_t i = 0; i < depth_; ++i) indent += step_;
    return indent;
  }

  static bool IsElse(const Node& node) {
    if (!node.Is(NodeKind::kBlock)) return false;
    const std::string keyword = node.Keyword();
    return keyword == "else" || keyword == "elsif";
  }

  static bool EndsInSemicolon(const Node& block) {
    const std::string text = block.Text();
    return !text.empty() && text.back() == ';';
  }

  /// A block that can stay on its line; empty if it cannot.
  std::string OneLineBlock(const Node& block) const {
    const Node first = block.FirstChild();
    if (!first || LineEndsBefore(first) != 0 || block.Begin().line != block.End().line) return {};
    if (block.Keyword() == "if" || IsElse(block)) return {};
    std::string line = Spaced(block.Header()) + " {";
    for (const Node& child : block.Children()) {
      if (!child.Is(NodeKind::kStatement)) return {};
      line += ' ' + Spaced(child.Text());
    }
    line += EndsInSemicolon(block) ? " };" : " }";
    const std::size_t indent = depth_ * (step_ == "\t" ? kWidthOfTab : step_.size());
    return indent + line.size() <= kWidestOneLineBlock ? line : std::string();
  }

  /// A statement or header with the blanks that belong in it.
  std::string Spaced(std::string_view text) const {
    std::string spaced;
    std::size_t end = 0;
    bool was_comment = false;
    bool was_comma = false;
    for (const Piece& piece : PiecesOf(text)) {
      const std::string_view between = text.substr(end, piece.offset - end);
      const bool tight = (piece.Is(';') || piece.Is(',')) && !was_comment;
      if (!spaced.empty() && !tight) {
        if (was_comment || between.find('\n') != std::string_view::npos) {
          spaced += '\n' + Indent() + step_;
        } else if (!between.empty() || was_comma) {
          spaced += ' ';
        }
      }
      std::string_view word = piece.text;
      if (piece.IsComment()) word = word.substr(0, word.find_last_not_of(" \t\r") + 1);
      spaced += word;
      end = piece.offset + piece.text.size();
      was_comment = piece.IsComment();
      was_comma = piece.Is(',');
    }
    return spaced;
  }

  const Document& document_;
  std::string_view whole_;
  std::string step_;
  std::string text_;
  std::size_t depth_ = 0;
  bool one_line_ = false;
};

bool HasErrors(const Document& document) {
  const std::vector<Finding> findings = document.Findings();
  return std::any_of(findings.begin(), findings.end(),
                     [](const Finding& finding) { return finding.severity == Severity::kError; });
}

/// Whether two texts have the same words and comments.
bool HaveSameWords(std::string_view left, std::string_view right) {
  const auto without_blanks = [](const Piece& piece) {
    if (!piece.IsComment()) return piece.text;
    return piece.text.substr(0, piece.text.find_last_not_of(" \t\r") + 1);
  };
  Piece at_left = PieceBehind(left, 0);
  Piece at_right = PieceBehind(right, 0);
  while (!at_left.text.empty() && without_blanks(at_left) == without_blanks(at_right)) {
    at_left = PieceBehind(left, at_left.offset + at_left.text.size());
    at_right = PieceBehind(right, at_right.offset + at_right.text.size());
  }
  return at_left.text.empty() && at_right.text.empty();
}

std::string WithLineEnds(const std::string& text, std::string_view like) {
  const std::size_t first = like.find('\n');
  if (first == std::string_view::npos || first == 0 || like[first - 1] != '\r') return text;
  std::string with;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) with += '\r';
    with += text[i];
  }
  return with;
}

}  // namespace

std::string LaidOut(const Document& document, const std::string& step) {
  if (HasErrors(document)) {
    throw Problem(ExitStatus::kRefused, "its structure is broken, `klepur check` says where");
  }
  const std::string before = document.Text();
  std::string text = Layout(document, before, step).Text();
  if (!HaveSameWords(text, before)) {
    throw Problem(ExitStatus::kRefused, "it cannot be laid out without changing it");
  }
  return WithLineEnds(text, before);
}

}  // namespace klepur::tool
