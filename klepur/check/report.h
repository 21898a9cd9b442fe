// Internal: where rules say what they found.
#ifndef KLEPUR_CHECK_REPORT_H
#define KLEPUR_CHECK_REPORT_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <klepur/check/check_finding.h>
#include <klepur/check/mend.h>
#include <klepur/check/rule.h>
#include <klepur/document/document_state.h>

namespace klepur::internal {

/// A finding as a rule makes it.
struct Draft {
  NodeId node;          ///< The statement or block that it is about.
  std::string message;  ///< A sentence without places.
  /// The piece of the node's own text that it is about; empty for the node's beginning.
  std::string_view at = {};
  NodeId other = kNoNode;  ///< The node that it is at odds with.
  std::optional<Mend> mend = {};
};

class Report {
 public:
  /// Rules of these numbers stay silent.
  Report(DocumentState& state, std::vector<bool> silent)
      : state_(state), silent_(std::move(silent)) {}

  /// A finding of the rule that is at work.
  void Add(Draft draft) { AddOf(rule_, std::move(draft)); }
  /// One of the rule of a name, for rules that speak through a table.
  void Add(std::string_view rule, Draft draft) { AddOf(RuleNumber(rule), std::move(draft)); }
  /// One at a place of its own, for which what is allowed of a node counts as well: that of a missing ";" stands
  /// behind its statement. kRoot for none.
  void AddAt(std::string_view rule, NodeId node, Position where, std::string message,
             std::optional<Mend> mend = {});

  /// Whether there is an error so far: what is then told of names that nothing uses may follow from it.
  bool HasErrors() const { return has_errors_; }

  void SetRule(std::size_t rule) { rule_ = rule; }
  bool IsSilent(std::size_t rule) const { return silent_[rule]; }

  /// A handle to a node, for a mend.
  Node Handle(NodeId id) const;
  /// A mend that writes another word in the place of a piece of a node's own text.
  Mend Rewrite(NodeId id, std::string_view at, std::string_view instead) const;

  /// The rules of these numbers say nothing of a node and of what is in it.
  void Allow(NodeId node, std::vector<std::size_t> rules);

  /// What was found and is not allowed, in the order of the text.
  std::vector<CheckFinding> Take();

 private:
  struct Entry {
    std::uint32_t rule;
    CheckFinding finding;
    NodeId node = kRoot;  ///< Of one with a place of its own.
  };
  struct Allowed {
    Position begin;
    Position end;
    std::vector<std::size_t> rules;
  };
  void AddOf(std::size_t rule, Draft draft);
  void DropAllowed();
  bool IsAllowedOf(const Entry& entry) const;
  void Enter(std::size_t rule, CheckFinding finding);
  Position PositionOf(PieceText::Edge edge) const;

  DocumentState& state_;
  std::vector<bool> silent_;
  std::size_t rule_ = 0;
  bool has_errors_ = false;
  std::vector<Entry> entries_;
  std::vector<Allowed> allowed_;
};

}  // namespace klepur::internal

#endif
