// A configuration file's tree as JSON.
#ifndef KLEPUR_BENCHMARKS_JSON_OF_TREE_H
#define KLEPUR_BENCHMARKS_JSON_OF_TREE_H

#include <string>

/// A DHCPv4 configuration file as JSON. Each block is an object that holds what its node of the
/// tree does: "name", a text; "lines", an array of texts; "blocks", an array of such objects,
/// unless there are none. The outermost one is the root section.
///
/// A commented-out line is its text like any other.
std::string JsonOfTree(const std::string& path);

#endif
