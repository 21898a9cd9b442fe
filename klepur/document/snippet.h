// Internal: text that a caller gives to be added, and its layout in the document.
#ifndef KLEPUR_DOCUMENT_SNIPPET_H
#define KLEPUR_DOCUMENT_SNIPPET_H

#include <string>
#include <string_view>

#include <klepur/document/neighbours.h>
#include <klepur/document/syntax_tree.h>
#include <klepur/text/text_buffer.h>

namespace klepur::internal {

class Snippet {
 public:
  /// Throws Error(kBadText) unless the text is one or more whole statements, blocks and comments. The ";"
  /// of the last statement may be missing. In a switch, whose word is given, labels are read too.
  explicit Snippet(std::string_view text, std::uint8_t parent_word = 0);

  /// The key of the first node that is no comment; empty when all are comments.
  std::string Key() const;
  bool IsBlock() const { return main_ != kNoNode && tree_[main_].kind == NodeKind::kBlock; }
  bool IsBranch() const;
  bool EndsInCommentLine() const {
    return tree_[last_].kind == NodeKind::kComment && !IsTrailing(last_);
  }
  bool IsOneNode() const { return main_ == 1 && last_ == 1; }

  /// The text on one line, as the neighbours write such; empty when it is more than one statement or
  /// block, or holds a comment, a block in a block or a line end.
  std::string OnOneLine(const Neighbours& neighbours) const;
  /// The text as the neighbours write it. Its first line stands behind this indentation, which is not in
  /// the text; the others begin with it. No line end behind the last line.
  std::string InLines(const Neighbours& neighbours, std::string_view indent,
                      std::string_view line_end) const;

 private:
  friend class LineWriter;
  std::string_view View(TextAddress begin, TextAddress end) const {
    return text_.view().substr(begin - kBase, end - begin);
  }
  std::string_view OwnText(NodeId id) const;
  std::string_view GapBefore(NodeId id) const;
  std::string StatementText(NodeId id, const Neighbours& neighbours) const;
  std::string HeaderText(NodeId id, const Neighbours& neighbours) const;
  std::string BlockOnOneLine(NodeId id, const Neighbours& neighbours) const;
  bool FitsOnOneLine(NodeId block) const;
  bool IsTrailing(NodeId comment) const;
  bool ContinuesLine(NodeId id, const Neighbours& neighbours) const;

  static constexpr TextAddress kBase = 1;  // not 0, where a byte order mark could stand

  TextBuffer text_;
  SyntaxTree tree_;
  NodeId main_ = kNoNode;
  NodeId last_ = kNoNode;
};

}  // namespace klepur::internal

#endif
