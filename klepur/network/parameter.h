// Internal: what a statement sets.
#ifndef KLEPUR_NETWORK_PARAMETER_H
#define KLEPUR_NETWORK_PARAMETER_H

#include <klepur/document/document_state.h>

#include <string>
#include <string_view>

namespace klepur::internal {

struct Parameter {
  /// What other statements that set the same are compared by; empty for the definition of an option.
  std::string key;
  /// Whether it sets something for what stands in the block too.
  bool inherited;
};

/// What a statement in a block sets.
Parameter ParameterOf(const DocumentState& state, NodeId statement);
/// The key of a keyword as a caller writes it: "Max-Lease-Time", "deny booting".
std::string ParameterKey(std::string_view keyword);

}  // namespace klepur::internal

#endif
