// Internal: one walk over a file, in which its facts are gathered and each statement is looked at.
#ifndef KLEPUR_CHECK_WALK_H
#define KLEPUR_CHECK_WALK_H

#include <cstddef>
#include <vector>

#include <klepur/check/facts.h>
#include <klepur/check/item.h>
#include <klepur/check/report.h>
#include <klepur/check/word_memo.h>

namespace klepur::internal {

class Walk {
 public:
  Walk(Facts& facts, Report& report);

  /// Goes over so many nodes and says whether there are more.
  bool Step(std::size_t nodes);

 private:
  void Visit(NodeId id);
  void VisitComment(NodeId id);
  void VisitNode(NodeId id, const SyntaxNode& node);
  void Advance(NodeId id);
  void Look(const Item& item, bool broken);
  void NotePlace(const Item& item);
  void Show(Shown shown, const Item& item);

  Facts& facts_;
  Report& report_;
  const DocumentState& state_;
  NodeId next_;
  WordMemo memo_;
  std::vector<Frame> frames_;
  std::vector<std::size_t> rules_[5];  // by Shown: the rules to be called
};

}  // namespace klepur::internal

#endif
