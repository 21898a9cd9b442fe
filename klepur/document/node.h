// A block, a statement or a comment of a document.
#ifndef KLEPUR_DOCUMENT_NODE_H
#define KLEPUR_DOCUMENT_NODE_H

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <klepur/document/node_kind.h>
#include <klepur/export.h>
#include <klepur/text/position.h>

namespace klepur {

class Document;
class NodeRange;
struct Placement;
struct RemovalReport;
enum class CommentsAbove;

namespace internal {
struct DocumentState;
}

/// A handle to one node of a document: a small value, to be copied freely.
///
/// It stays good whatever is edited elsewhere. When its node, or a block around it, is removed it is
/// gone: it converts to false, questions get empty answers and edits throw Error(kGone). It must not
/// be used when the document is gone. A handle of no node is gone from the start.
///
///     Node host = document.Find("host pc1");
///     host.Set("fixed-address", "10.0.0.7");
///     host.Add("next-server 10.0.0.5;");
///     host.Parent().Add("host pc2 { hardware ethernet 00:16:3e:00:00:02; }");
///
/// Each edit changes the lines that it must and no others, and is laid out as its neighbours are.
/// An edit that throws changes nothing. Where the file holds a block that is never closed, a quote
/// that is never closed or an unfinished last statement, each edit is checked by reading the whole text
/// again, and refused with Error(kMalformed) when the text would be read as something else than meant.
class KLEPUR_EXPORT Node {
 public:
  Node() = default;

  /// Whether the node stands in the document.
  explicit operator bool() const noexcept;
  bool IsGone() const noexcept { return !static_cast<bool>(*this); }

  NodeKind Kind() const;
  bool Is(NodeKind kind) const { return !IsGone() && Kind() == kind; }

  /// Its bytes as they stand, without the comments that belong to it: "fixed-address 10.0.0.1;". Of the
  /// whole file, all of them.
  std::string Text() const;
  /// What tells it from other statements and blocks, in small letters: "host", "shared-network",
  /// "fixed-address", "option routers". Empty for the file, comments and strays.
  std::string Keyword() const;
  /// A block's words behind the keyword: `pc1`, `10.0.0.0 netmask 255.255.255.0`. Strings stand without
  /// their quotes, one blank between words. Empty for all but blocks, and for blocks without a name.
  std::string Name() const;
  /// A statement's text behind the keyword, as written, without the ";": `10.0.0.1,  10.0.0.2`.
  std::string Value() const;
  /// A block's text up to the "{", as written: `host  "pc1"`.
  std::string Header() const;

  /// The block around it; the file's node for what stands in none.
  Node Parent() const;
  Node FirstChild() const;
  /// Cost: linear in the number of children.
  Node LastChild() const;
  Node Next() const;
  Node Previous() const;
  /// For `for (Node child : block.Children())`. Edits of other nodes while walking are fine; a walk
  /// that comes from a node that was removed ends.
  NodeRange Children() const;
  /// The first child of that keyword and, when one is given, of that name: Child("host", "pc1"),
  /// Child("option routers"). Cost: linear in the number of children.
  Node Child(std::string_view keyword) const;
  Node Child(std::string_view keyword, std::string_view name) const;
  /// The last child statement of that keyword: of several, the one that the server goes by.
  Node InForce(std::string_view keyword) const;

  /// Where its first byte stands, and the byte behind its last one.
  Position Begin() const;
  Position End() const;
  /// How many bytes of the text stand before it.
  std::size_t Offset() const;

  /// The comments that belong to it, in the order of the text: those right above it, as deep as it and
  /// without a blank line between, and the one behind it on its last line; of a block also the one behind
  /// its "{". They go and move with it. Disabled statements are nobody's comments.
  std::vector<Node> Comments() const;
  /// Whether the text from this comment on is one whole statement or block, commented out.
  bool IsDisabled() const;
  /// Of a disabled statement or block: its text without the comment marks.
  std::string DisabledText() const;
  /// The disabled statements and blocks right below this block, each by its first comment.
  std::vector<Node> Disabled() const;

  /// Adds what the text says, any number of statements, blocks and comments, below this block or file
  /// and gives the first statement or block, or comment if there is no other. A last ";" may be left out. Without a placement a statement goes behind
  /// the last one of its keyword, else behind the last statement before the first block; a block goes
  /// behind the last one of its kind, else behind the last child; both before the comments that end the
  /// block. The layout of the given text is replaced by that of the neighbours.
  /// Throws Error(kBadText) for text that is not whole and Error(kBadPlace) where nothing can be added.
  /// Cost: linear in the text; without a placement also in the children behind the last one of its kind.
  Node Add(std::string_view text);
  Node Add(std::string_view text, const Placement& placement);

  /// Gives a statement another value: `10.0.0.7`, `"z#1"` with the quotes. What is given must be what
  /// can stand between a keyword and a ";". A comment behind the statement keeps its column where its
  /// neighbours' comments stand in the same one.
  void SetValue(std::string_view value);
  /// Sets, in this block or file, the statement of a keyword: the one in force gets the value, or one is
  /// added. Set("max-lease-time", "7200"), Set("option routers", "10.0.0.1"). Gives the statement.
  Node Set(std::string_view keyword, std::string_view value);
  /// The same with the statement as it would be written, with or without the ";".
  Node Set(std::string_view statement);
  /// Adds an element to a statement's comma-separated list, at its end, or takes one out; the list's
  /// layout and comments stay. False when it is not in the list. The last one cannot be taken out:
  /// Error(kBadText).
  void AppendToList(std::string_view element);
  bool RemoveFromList(std::string_view element);

  /// Gives a block another name, between quotes when the old name is or the new one needs it.
  void Rename(std::string_view name);
  /// Gives a block another header: "if known".
  void SetHeader(std::string_view header);

  /// Removes it, its lines and the comments that belong to it, but for a comment above that heads a run
  /// of its kind. An "if" goes with its "elsif" and "else".
  RemovalReport Remove();
  RemovalReport Remove(CommentsAbove comments);

  /// Moves it below a block or the file, with the comments that belong to it, to where Add would put it
  /// or to the given place. Only the indentation of its lines changes. Handles stay good.
  void MoveTo(Node parent);
  void MoveTo(Node parent, const Placement& placement);

  /// Makes comments of a statement or block and the comment behind it. The handle then is that of the
  /// first comment; handles to what is below are gone. An "if" goes with its "elsif" and "else".
  void CommentOut();
  /// Makes a statement or block of a disabled one. Throws Error(kNotFound) if it is none.
  void BringBack();

  friend bool operator==(const Node& left, const Node& right) {
    return left.state_ == right.state_ && left.id_ == right.id_;
  }
  friend bool operator!=(const Node& left, const Node& right) { return !(left == right); }

 private:
  friend class Document;
  friend class NodeAccess;
  Node(internal::DocumentState* state, std::uint32_t id) : state_(state), id_(id) {}

  internal::DocumentState* state_ = nullptr;
  std::uint32_t id_ = 0;
};

/// The children of a node, for a range-based for.
class KLEPUR_EXPORT NodeRange {
 public:
  class KLEPUR_EXPORT Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Node;
    using difference_type = std::ptrdiff_t;
    using pointer = const Node*;
    using reference = const Node&;

    Iterator() = default;
    explicit Iterator(Node node) : node_(node) {}
    reference operator*() const { return node_; }
    pointer operator->() const { return &node_; }
    Iterator& operator++() {
      node_ = node_.Next();
      return *this;
    }
    Iterator operator++(int) {
      Iterator old = *this;
      ++*this;
      return old;
    }
    friend bool operator==(const Iterator& left, const Iterator& right) {
      return left.node_ == right.node_;
    }
    friend bool operator!=(const Iterator& left, const Iterator& right) { return !(left == right); }

   private:
    Node node_;
  };

  explicit NodeRange(Node first) : first_(first) {}
  Iterator begin() const { return Iterator(first_); }
  Iterator end() const { return Iterator(); }

 private:
  Node first_;
};

}  // namespace klepur

#endif
