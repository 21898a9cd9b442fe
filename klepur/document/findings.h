// Internal: what is wrong with the structure of a document.
#ifndef KLEPUR_DOCUMENT_FINDINGS_H
#define KLEPUR_DOCUMENT_FINDINGS_H

#include <vector>

#include <klepur/document/document_state.h>
#include <klepur/document/finding.h>

namespace klepur::internal {

/// A finding, and the node that it is about: that of the file for what stands between nodes.
struct NodeFinding : Finding {
  NodeId node = kRoot;
};

/// All findings in the order of the text.
std::vector<NodeFinding> FindingsOf(const DocumentState& state);

/// Whether a NUL byte stands anywhere.
bool HoldsNul(const DocumentState& state);

}  // namespace klepur::internal

#endif
