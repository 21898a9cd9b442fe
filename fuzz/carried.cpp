#include "fuzz/carried.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/plain_reader.h"

namespace klepur::fuzz {
namespace {

using test::ModelLine;
using test::ModelNode;

constexpr char kRootName[] = "TREE_ROOT_SECTION";

bool HasCleanEnds(const std::string& text, std::string_view droppedInFront) {
  if (text.empty()) return true;
  return droppedInFront.find(text.front()) == std::string_view::npos &&
         std::string_view(" \t\v\r").find(text.back()) == std::string_view::npos &&
         text.find('\n') == std::string::npos;
}

/// The first of ";{}#" outside quotes; the size of the text when there is none.
std::size_t FirstPunctuator(const std::string& text) {
  const std::vector<bool> quoted = InQuotes(text);
  std::size_t at = 0;
  while (at < text.size() &&
         (quoted[at] || std::string_view(";{}#").find(text[at]) == std::string_view::npos)) {
    ++at;
  }
  return at;
}

bool IsCarriedHeader(const std::string& name) {
  return name != kRootName && HasCleanEnds(name, " \t\v\f\r") &&
         name.find(';') == std::string::npos && FirstPunctuator(name) == name.size();
}

bool IsCarriedLine(const ModelLine& line) {
  const std::string& text = line.text;
  if (line.commented) return HasCleanEnds(text, " \t\v");
  if (!HasCleanEnds(text, " \t\v\f\r")) return false;
  const std::size_t at = FirstPunctuator(text);
  if (at == text.size()) return false;
  if (text[at] == '{') return at < 65536 && text.find(';') != std::string::npos;
  return text[at] == ';' && at + 1 == text.size();
}

bool IsContentCarried(const ModelNode& node) {
  return std::all_of(node.lines.begin(), node.lines.end(), IsCarriedLine) &&
         std::all_of(node.children.begin(), node.children.end(), [](const auto& child) {
           return IsCarriedHeader(child->name) && IsContentCarried(*child);
         });
}

}  // namespace

bool IsCarried(const ModelNode& root) {
  return root.name == kRootName && IsContentCarried(root);
}

}  // namespace klepur::fuzz
