#include <klepur/rewrite/rewriting.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <stdexcept>

#include <klepur/framework/tree_links.h>
#include <klepur/parser/dhcp_parser.h>
#include <klepur/text/error.h>
#include <klepur/text/file_bytes.h>

namespace klepur::internal {
namespace {

using Sort = RewrittenPiece::Sort;

/// The number of a block that is not written.
constexpr std::size_t kOutside = static_cast<std::size_t>(-1);

class TextStream : public StreamIterator {
 public:
  explicit TextStream(std::string_view text) : rest_(text) {}

  std::size_t Read(char* buffer, std::size_t size) override {
    const std::size_t count = rest_.copy(buffer, size);
    rest_.remove_prefix(count);
    return count;
  }

 private:
  std::string_view rest_;
};

/// Where a block's own lines begin in the rewritten text, and the next of its entries.
struct WrittenBlock {
  std::size_t header;
  std::size_t entries;
  bool has_header;  ///< Not so for what is named like the root, wherever it stands.
};

/// One line each for what stands before it, the name and the "{".
constexpr int kHeaderLines = 3;

/// The parser, watched before each token: what it has stored since is made of the bytes since.
class WatchedParser : public DhcpParser {
 public:
  Rewriting Rewrite(std::string_view text) {
    Rewriting result;
    result.stopped = !Read(text);
    result.text = Write();
    if (result.text.size() > kMostBytes) {
      throw Error(ErrorCode::kTooLarge, "the rewritten text reaches 4 GiB");
    }
    Place(result.text);
    result.pieces = std::move(pieces_);
    return result;
  }

 private:
  class WatchedLexer : public CfLex {
   public:
    WatchedLexer(StreamIterator* source, WatchedParser& parser)
        : CfLex(source, false), parser_(parser) {}

    Token* GetToken() override {
      parser_.Look();
      Token* const token = CfLex::GetToken();
      if (token != nullptr) parser_.PassOver(*token);
      return token;
    }

   private:
    WatchedParser& parser_;
  };

  /// False when it stops at a NUL byte.
  bool Read(std::string_view text) {
    stream = new TextStream(text);
    lexer = new WatchedLexer(stream, *this);
    try {
      DoParse(&tree_);
    } catch (const std::runtime_error&) {
      return false;
    }
    return true;
  }

  void PassOver(const Token& token) {
    at_ += static_cast<TextAddress>(token.text.size());
    closed_ = token.kind == TokenKind::kPunctuator && token.text[0] == '}';
  }

  void Look() {
    if (currentNode == node_) {
      if (node_->section.entryList.size() != entries_) Keep(EntrySort());
    } else if (currentNode->parent == node_ || node_ == nullptr) {
      Open();
    } else {
      open_.pop_back();
    }
    if (closed_ && lineBuffer.empty()) from_ = at_;
    node_ = currentNode;
    entries_ = node_->section.entryList.size();
  }

  Sort EntrySort() const {
    return node_->section.entryList.back()->GetComment() == nullptr ? Sort::kStatement
                                                                    : Sort::kComment;
  }

  /// A block below the root is written, and so is the root: the first of all.
  void Open() {
    const bool written = node_ == nullptr || BlockNow() != kOutside;
    open_.push_back(written ? blocks_++ : kOutside);
    if (node_ != nullptr) Keep(Sort::kHeader);
  }

  std::size_t BlockNow() const { return open_.empty() ? kOutside : open_.back(); }

  void Keep(Sort sort) {
    pieces_.push_back({{from_, at_}, {}, sort});
    block_of_piece_.push_back(BlockNow());
    from_ = at_;
  }

  std::string Write() {
    char* bytes = nullptr;
    std::size_t size = 0;
    outputFile = open_memstream(&bytes, &size);
    if (outputFile == nullptr) throw std::bad_alloc();
    try {
      FirstChild(tree_.topNode)->TraverseDo(this, WriteHead, WriteEnd);
    } catch (...) {
      CloseOutput();
      std::free(bytes);
      throw;
    }
    const bool failed = std::ferror(outputFile) != 0;
    CloseOutput();
    if (failed || bytes == nullptr) {
      std::free(bytes);
      throw std::bad_alloc();
    }
    struct Free {
      char* bytes;
      ~Free() { std::free(bytes); }
    } const free{bytes};
    return {bytes, size};
  }

  static bool WriteHead(void* context, CfSection& section) {
    auto& parser = *static_cast<WatchedParser*>(context);
    parser.writeDepth = 0;  // never the level of the block: that is the indentation
    const auto begin = static_cast<std::size_t>(std::ftell(parser.outputFile));
    parser.heads_.push_back({begin, begin, section.GetName() != std::string_view(kRootName)});
    return parser.WriteSection(section);
  }

  static bool WriteEnd(void* context, CfSection& section) {
    auto& parser = *static_cast<WatchedParser*>(context);
    parser.writeDepth = 1;
    parser.WriteSectionEnd(section);
    return true;
  }

  /// Says of each piece where it is written: entries in lines below each other, behind the header.
  void Place(std::string_view text) {
    for (WrittenBlock& head : heads_) {
      for (int i = 0; head.has_header && i != kHeaderLines; ++i) {
        head.entries = BehindLine(text, head.entries);
      }
    }
    for (std::size_t i = 0; i != pieces_.size(); ++i) {
      if (block_of_piece_[i] != kOutside) PlacePiece(text, pieces_[i], heads_[block_of_piece_[i]]);
    }
  }

  static void PlacePiece(std::string_view text, RewrittenPiece& piece, WrittenBlock& head) {
    if (piece.sort == Sort::kHeader) {
      piece.written = {static_cast<TextAddress>(head.header),
                       static_cast<TextAddress>(head.entries)};
      return;
    }
    const std::size_t end = BehindLine(text, head.entries);
    piece.written = {static_cast<TextAddress>(head.entries), static_cast<TextAddress>(end)};
    head.entries = end;
  }

  static std::size_t BehindLine(std::string_view text, std::size_t at) {
    return std::min(text.find('\n', at), text.size() - 1) + 1;
  }

  CfSectionHolder tree_;
  Tree<CfSection>::TreeNode* node_ = nullptr;  // the current one when last looked
  std::size_t entries_ = 0;                    // how many it had then
  TextAddress at_ = 0;                         // how many bytes were read
  TextAddress from_ = 0;                       // those from here on are of no piece yet
  bool closed_ = false;                        // whether the last token was "}"
  std::size_t blocks_ = 0;
  std::vector<std::size_t> open_;  // the blocks around, by number in the order of their headers
  std::vector<RewrittenPiece> pieces_;
  std::vector<std::size_t> block_of_piece_;
  std::vector<WrittenBlock> heads_;  // by number
};

}  // namespace

Rewriting Rewrite(std::string_view text) {
  return WatchedParser().Rewrite(text);
}

}  // namespace klepur::internal
