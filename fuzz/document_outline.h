// What a document holds, as a text to be compared.
#ifndef KLEPUR_FUZZ_DOCUMENT_OUTLINE_H
#define KLEPUR_FUZZ_DOCUMENT_OUTLINE_H

#include <klepur/document/document.h>

#include <string>
#include <vector>

namespace klepur::fuzz {

/// All nodes in the order of the text; the file's is none of them.
std::vector<Node> AllNodes(const Document& document);

/// A line for each node, as deep as it stands: its offset, kind and text, of a block its header; then a line
/// for each finding.
std::string OutlineOf(const Document& document);

/// Fails unless each block is found by its header.
void RequireBlocksFound(const Document& document);

}  // namespace klepur::fuzz

#endif
