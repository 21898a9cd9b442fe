#include "tests/support/document_tree.h"

#include <klepur/check/check_finding.h>

#include <array>
#include <cstdio>

namespace klepur::test {
namespace {

std::string PlaceOf(const Node& node) {
  const auto text = [](Position position) {
    return std::to_string(position.line) + ":" + std::to_string(position.column);
  };
  return text(node.Begin()) + "-" + text(node.End()) + "@" + std::to_string(node.Offset()) + " ";
}

std::string WordsOf(const Node& node) {
  switch (node.Kind()) {
    case NodeKind::kFile:
      return "file";
    case NodeKind::kBlock:
      return "[" + node.Keyword() + (node.Name().empty() ? "" : " " + node.Name()) + "]";
    case NodeKind::kStatement:
      return node.Keyword() + (node.Value().empty() ? "" : ": " + node.Value());
    case NodeKind::kStray:
      return "stray " + node.Text();
    case NodeKind::kLabel:
    case NodeKind::kComment:
      return node.Text();
  }
  return "?";
}

std::string CommentsOf(const Node& node) {
  std::string text;
  for (const Node& comment : node.Comments()) {
    text += (text.empty() ? " <- \"" : ", \"") + comment.Text() + "\"";
  }
  return text;
}

std::string LineOf(const Node& node) {
  std::string line = WordsOf(node) + CommentsOf(node);
  if (node.IsDisabled()) line += " is disabled \"" + node.DisabledText() + "\"";
  return Visible(line);
}

/// Without recursion, for documents may be deep.
std::string TreeBelow(const Node& root, bool with_places) {
  std::string text;
  std::string indentation;
  Node node = root.FirstChild();
  while (node) {
    text += indentation;
    if (with_places) text += PlaceOf(node);
    text += LineOf(node) + "\n";
    if (Node child = node.FirstChild()) {
      indentation += "  ";
      node = child;
      continue;
    }
    while (node && node != root && !node.Next()) {
      node = node.Parent();
      if (node != root) indentation.resize(indentation.size() - 2);
    }
    if (node == root) break;
    node = node.Next();
  }
  return text;
}

}  // namespace

std::string DocumentTree(const Document& document) {
  return TreeBelow(document.Root(), false);
}

std::string PlacedTree(const Document& document) {
  return TreeBelow(document.Root(), true);
}

std::string FindingsText(const Document& document) {
  std::string text;
  for (const Finding& finding : document.Findings()) {
    text += std::to_string(finding.where.line) + ":" + std::to_string(finding.where.column) + " " +
            std::string(klepur::ToText(finding.severity)) + " " +
            std::string(ToText(finding.code)) + "\n";
  }
  return text;
}

std::string_view ToText(FindingCode code) {
  switch (code) {
    case FindingCode::kBranchWithoutIf:
      return "branch without if";
    case FindingCode::kBlockSeemsToEnd:
      return "block seems to end";
    case FindingCode::kByteOrderMark:
      return "byte order mark";
    case FindingCode::kEmptyStatement:
      return "empty statement";
    case FindingCode::kEndInBlock:
      return "end in block";
    case FindingCode::kMissingBlock:
      return "missing block";
    case FindingCode::kMissingHeader:
      return "missing header";
    case FindingCode::kMissingSemicolon:
      return "missing semicolon";
    case FindingCode::kNul:
      return "NUL";
    case FindingCode::kSemicolonBehindBlock:
      return "semicolon behind block";
    case FindingCode::kStrayBrace:
      return "stray brace";
    case FindingCode::kUnclosedBlock:
      return "unclosed block";
    case FindingCode::kUnclosedQuote:
      return "unclosed quote";
    case FindingCode::kUnclosedValue:
      return "unclosed value";
  }
  return "?";
}

std::string Visible(std::string_view text) {
  std::string visible;
  for (const char byte : text) {
    if (byte == '\n') {
      visible += "\\n";
    } else if (byte == '\r') {
      visible += "\\r";
    } else if (byte == '\t') {
      visible += "\\t";
    } else if (static_cast<unsigned char>(byte) < 0x20) {
      std::array<char, 5> hex = {};
      std::snprintf(hex.data(), hex.size(), "\\x%02X", static_cast<unsigned char>(byte));
      visible += hex.data();
    } else {
      visible += byte;
    }
  }
  return visible;
}

}  // namespace klepur::test
