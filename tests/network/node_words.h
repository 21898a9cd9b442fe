// What nodes are, as texts that a test compares.
#ifndef KLEPUR_TESTS_NETWORK_NODE_WORDS_H
#define KLEPUR_TESTS_NETWORK_NODE_WORDS_H

#include <klepur/document/node.h>

#include <string>
#include <vector>

namespace klepur {

/// "pc1 pc2"
inline std::string NamesOf(const std::vector<Node>& blocks) {
  std::string names;
  for (const Node& block : blocks) names += (names.empty() ? "" : " ") + block.Name();
  return names;
}

/// "10.0.0.1|10.0.0.7 10.0.0.9"
inline std::string ValuesOf(const std::vector<Node>& statements) {
  std::string values;
  for (const Node& statement : statements)
    values += (values.empty() ? "" : "|") + statement.Value();
  return values;
}

}  // namespace klepur

#endif
