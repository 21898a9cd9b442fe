// Internal: what edits replaced, so that their opposites give the first bytes back.
#ifndef KLEPUR_DOCUMENT_EDIT_MEMORY_H
#define KLEPUR_DOCUMENT_EDIT_MEMORY_H

#include <cstddef>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include <klepur/document/syntax_node.h>
#include <klepur/text/piece_text.h>

namespace klepur::internal {

/// What is remembered of an edit. Whoever recalls it checks that the text around is still what the edit
/// made of it; a memory that does not fit any more is no harm.
struct Remembered {
  std::vector<NodeId> nodes = {};
  std::vector<std::string> texts = {};
  std::vector<Span> spans = {};
  std::vector<SyntaxNode> records = {};
  std::vector<NodeId> links = {};
};

class EditMemory {
 public:
  enum class About {
    kGap,  ///< The gap behind `node` (kNoNode: at the start) in `other`, before something was added in it.
    kOneLine,    ///< The gaps of block `node`, before it was opened.
    kAlignment,  ///< The gap behind statement `node` while it had this text.
    kList,       ///< Statement `node` with an element appended to its list, and before that.
    kHeader,     ///< The header of block `node` while it had this name.
    kCommented,  ///< What node `node` was before it was commented out.
    kMoved,  ///< The gaps around `node` while it stood behind `other` in the block of that number.
  };
  struct Key {
    About about;
    NodeId node;
    NodeId other = kNoNode;
    std::string text = {};
    friend bool operator<(const Key& left, const Key& right) {
      return std::tie(left.about, left.node, left.other, left.text) <
             std::tie(right.about, right.node, right.other, right.text);
    }
  };

  void Remember(const Key& key, Remembered what);
  /// Null when nothing is. Good until something is remembered.
  const Remembered* Recall(const Key& key) const;

  std::size_t GetMark() const { return entries_.size(); }
  void RollBack(std::size_t mark) noexcept;

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  using Latest = std::map<Key, std::size_t>;
  struct Entry {
    Remembered what;
    Latest::iterator place;
    std::size_t before;  ///< What was remembered under the same key.
  };

  std::vector<Entry> entries_;
  Latest latest_;
};

}  // namespace klepur::internal

#endif
