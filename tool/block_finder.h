// The blocks that a BLOCK argument names.
#ifndef KLEPUR_TOOL_BLOCK_FINDER_H
#define KLEPUR_TOOL_BLOCK_FINDER_H

#include <klepur/document/document.h>
#include <klepur/network/network.h>

#include <string>
#include <string_view>
#include <vector>

#include <tool/text_search.h>

namespace klepur::tool {

/// A statement or block that is commented out.
struct DisabledNode {
  Node comment;      ///< Its first comment.
  std::string text;  ///< Without the comment marks.
  std::string name;  ///< As a BLOCK argument has it: "host pc-17"; of a statement its keyword.
  bool is_block;
};

/// Those right below a block or the file, in the order of the text.
std::vector<DisabledNode> DisabledBelow(const Node& block);

/// Finds blocks as they are named in one argument:
///
///     host pc-17                       by its header, as it stands in the file
///     subnet 10.20.0.0, subnet 10.20.0.0/24, subnet6 2001:db8:1::/64
///     group 2                          the second one of its kind, where none has that name
///     pool                             the only one of its kind
///     subnet 10.20.0.0 > pool 1        in another, however deep
///     @112                             the block or statement on line 112
///     global                           the file
///
/// It follows the edits of the document.
class BlockFinder {
 public:
  explicit BlockFinder(const Document& document)
      : document_(&document), network_(document), text_(document) {}

  /// The one that is named; a statement only for "@112". Throws Problem(kNothing), with the candidates and
  /// their lines, when there is none or more than one, and Problem(kUsage) for what names nothing.
  Node One(std::string_view block) const;
  /// The same, and the file or a block for sure.
  Node OneBlock(std::string_view block) const;
  /// All that are named, in the order of the text, at least one. Names may be patterns: "host lab-*".
  std::vector<Node> All(std::string_view pattern) const;
  /// All of a kind, patterns not needed: "host" for all hosts. None is no problem.
  std::vector<Node> Matching(std::string_view block, bool patterns) const;

  /// The disabled block that is named, or the disabled block or statement of "@112".
  DisabledNode OneDisabled(std::string_view block) const;

  const Network& GetNetwork() const { return network_; }

 private:
  struct Step;
  std::vector<Node> Candidates(const Step& step, const Node& scope, bool patterns) const;
  std::vector<Node> ByName(const Step& step) const;
  Node AtLine(std::string_view number) const;
  [[noreturn]] void ThrowNone(std::string_view block) const;
  [[noreturn]] void ThrowNoneIn(const Node& scope, const Step& step,
                                const std::string& message) const;
  [[noreturn]] void ThrowSeveral(std::string_view block, const std::vector<Node>& found) const;

  std::vector<Node> ByHeader(const Step& step) const;

  const Document* document_;
  Network network_;
  TextSearch text_;
  mutable std::size_t headers_sought_ = 0;
};

}  // namespace klepur::tool

#endif
