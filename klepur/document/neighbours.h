// Internal: the habits of what stands around a place.
#ifndef KLEPUR_DOCUMENT_NEIGHBOURS_H
#define KLEPUR_DOCUMENT_NEIGHBOURS_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <klepur/document/document_state.h>
#include <klepur/document/gaps.h>

namespace klepur::internal {

/// The nodes around a place, nearest first, found by walking from it in the order of the text, a fixed number
/// of steps each way. Knows the habits that new text takes over.
class Neighbours {
 public:
  Neighbours(DocumentState& state, Gap place);

  /// Whether blocks of this key stand on one line here: as the nearest one does, else as the nearest block
  /// of any key. What the place lies in does not count.
  bool BlocksStandOnOneLine(std::string_view key) const;
  /// The widest one-line block of this key in sight, in columns, or 0.
  std::size_t WidestOneLine(std::string_view key) const;
  /// What stands between the header and the "{" of a block over several lines; when that is a line end,
  /// it is "\n" and the blanks by which the "{" is deeper than the header.
  std::string BeforeBrace(std::string_view key) const;
  /// The blanks behind the "{", before the "}" and between statements of a one-line block.
  struct OneLineBlanks {
    std::string open = " ";
    std::string close = " ";
    std::string between = " ";
  };
  OneLineBlanks InOneLine(std::string_view key) const;
  /// By how much children are deeper than their block.
  std::string Step(std::string_view key) const;
  /// Whether names of blocks of this key, or values of statements of this key, stand between quotes;
  /// nothing when there is none in sight.
  std::optional<bool> IsQuoted(std::string_view key) const;
  /// Whether an "elsif" or "else" stands on the line of the "}" before it; nothing when there is none.
  std::optional<bool> BranchesContinueLines() const;

 private:
  template <class Fits>
  NodeId Nearest(std::string_view key, const Fits& fits) const;
  bool Holds(NodeId id) const { return state_.tree.IsBelow(place_.parent, id); }
  std::optional<std::string> StepOf(NodeId block) const;

  const DocumentState& state_;
  Gap place_;
  std::vector<NodeId> near_;
  std::vector<std::string> keys_;
};

}  // namespace klepur::internal

#endif
