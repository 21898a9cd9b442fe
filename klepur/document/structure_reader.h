// Internal: reads a text into nodes.
#ifndef KLEPUR_DOCUMENT_STRUCTURE_READER_H
#define KLEPUR_DOCUMENT_STRUCTURE_READER_H

#include <cstdint>
#include <string_view>

#include <klepur/document/syntax_tree.h>

namespace klepur::internal {

/// The three bytes that some editors begin a text with. They are nobody's, and stay the first.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Reads statements, blocks and comments, whatever they say. Nothing is refused: what is malformed is
/// marked in its node, and reading goes on behind it.
///
/// A statement ends at its ";", a block's header at its "{", a label in a switch at its ":", a comment
/// at the end of its line. Strings and comments hide all of these, and so do braces that are the value
/// of an option definition ("= { ... }", "array of { ... }").
///
/// Where the ";" is missing, a statement ends before the "}" of its block, or before a line that begins
/// with a word that begins statements, provided that what was read so far could be whole. Where the "}"
/// is missing, a block reaches to the end of the text. A quote that nothing closes, or that is closed
/// on another line by one that a word follows, is an ordinary byte.
///
/// kPadding bytes behind the text must be readable. Cost: linear in the text, whatever it holds.
class StructureReader {
 public:
  /// `base` is the address of the text's first byte.
  StructureReader(SyntaxTree& tree, std::string_view text, TextAddress base);

  /// Appends the nodes of the text. Those at the top have this parent and each other as siblings, and
  /// are linked to nothing else.
  void Read(NodeId parent);
  /// The same, and stops behind the first of them.
  void ReadFirst(NodeId parent);
  /// Whether something in it lacked its end, or stood there alone: what is added to or taken from such a text can change what
  /// other parts of it mean.
  bool IsMalformed() const { return malformed_; }

 private:
  void Read(NodeId parent, bool only_first);
  void Close(NodeId top);
  void ReadComment();
  void ReadStatement();
  bool ReadLabel();
  const char* BehindString(const char* quote, bool& open);
  bool FindClosing(const char* quote);
  NodeId Add(NodeKind kind, const char* begin, const char* end);
  void AddStatement(const char* start, const char* end, bool unfinished, bool open_quote);
  void AddUnfinished(const char* start, const char* limit, bool open_quote);
  void OpenBlock(const char* start, const char* brace, bool open_quote);
  void CloseOpenBlocks(NodeId top);
  std::uint8_t WordAt(const char* start);
  TextAddress AddressOf(const char* place) const {
    return base_ + static_cast<TextAddress>(place - begin_);
  }

  SyntaxTree& tree_;
  const char* const begin_;
  const char* const end_;
  const TextAddress base_;
  const char* next_;
  NodeId parent_ = kNoNode;
  NodeId previous_ = kNoNode;
  bool quotes_pair_ = true;
  // The string that was looked at last: its quotes, and the last line end in it. Each quote between them
  // that is taken for the first of a string would end there too.
  const char* opening_ = nullptr;
  const char* closing_ = nullptr;
  const char* last_line_end_ = nullptr;
  bool malformed_ = false;
  std::string_view last_word_;
  std::uint8_t last_word_number_ = 0;
};

}  // namespace klepur::internal

#endif
