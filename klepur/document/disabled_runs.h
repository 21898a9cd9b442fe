// Internal: which comments are parts of something that was commented out.
#ifndef KLEPUR_DOCUMENT_DISABLED_RUNS_H
#define KLEPUR_DOCUMENT_DISABLED_RUNS_H

#include <cstddef>
#include <mutex>
#include <unordered_map>

#include <klepur/document/syntax_node.h>

namespace klepur::internal {

/// What was found in runs of comments that were looked at, so that a question about each comment of a long run
/// does not read the run each time. Void when the text has changed.
struct DisabledRuns {
  /// The comments from the first to the last of a disabled statement or block; none.
  struct Part {
    NodeId first = kNoNode;
    NodeId last = kNoNode;
  };
  /// The state of the document for which this holds.
  struct Stamp {
    std::size_t edits = 0;
    std::size_t text = 0;
    friend bool operator==(const Stamp&, const Stamp&) = default;
  };

  std::mutex lock;
  Stamp stamp;
  std::unordered_map<NodeId, Part> parts;
};

}  // namespace klepur::internal

#endif
