// Any text as a document.
//
// What is checked:
// - The text of the document is the input, and so are its pieces, one behind the other.
// - Nodes stand one behind the other where they say, with the bytes that they say.
// - Findings come in the order of the text and name places in it.
// - Each block is found by its header.
// - Reading it again gives the same nodes and findings.
// - Every question has an answer for every node and every line.
#include <klepur/document/document.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/document_outline.h"
#include "fuzz/require.h"
#include "fuzz/target.h"
#include "fuzz/text.h"

namespace klepur::fuzz {
namespace {

void CheckText(const Document& document, const std::string& text) {
  RequireSame("the text", text, document.Text());
  std::string pieces;
  for (const std::string_view piece : document.Pieces()) pieces += piece;
  RequireSame("the pieces", text, pieces);
  Require(!document.IsChanged(), "what nobody edited is not changed");
}

Position PlainPosition(std::string_view text, std::size_t offset) {
  Position position = {1, 1};
  for (const char byte : text.substr(0, offset)) {
    ++position.column;
    if (byte == '\n') position = {position.line + 1, 1};
  }
  return position;
}

void CheckNodes(const Document& document, const std::string& text) {
  std::size_t before = 0;
  for (const Node& node : AllNodes(document)) {
    const std::size_t offset = node.Offset();
    Require(offset >= before, "nodes stand in the order of the text");
    before = offset;
    const std::string own = node.Text();
    RequireSame("a node's text", text.substr(offset, own.size()), own);
    Require(node.Begin() == PlainPosition(text, offset), "a node's line and column");
    Require(node.End() == PlainPosition(text, offset + own.size()), "a node's end");
    node.Comments();
    node.DisabledText();
    node.Disabled();
    node.Name();
    node.Value();
    Require(node.Keyword().empty() || !document.Walk(node.Keyword()).empty(),
            "a node is met on a walk over its keyword");
  }
}

void CheckFindings(const Document& document, std::size_t lines) {
  Position before = {0, 0};
  for (const Finding& finding : document.Findings()) {
    Require(!(finding.where < before), "findings stand in the order of the text");
    Require(finding.where.line >= 1 && finding.where.line <= lines, "findings stand in the text");
    before = finding.where;
  }
}

void Check(const std::string& text) {
  const Document document(text);
  const std::size_t lines = Lines(text).size();
  CheckText(document, text);
  CheckNodes(document, text);
  CheckFindings(document, lines);
  RequireBlocksFound(document);
  for (std::size_t line = 1; line <= lines; ++line) document.At(line);
  document.GetFamily();
  RequireSame("what is read again", OutlineOf(document), OutlineOf(Document(text)));
}

}  // namespace
}  // namespace klepur::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return klepur::fuzz::RunTarget(data, size, klepur::fuzz::Check);
}
