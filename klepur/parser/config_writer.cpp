// The writing half of DhcpParser. What it writes:
//
//   file   = entry* block*
//   entry  = ["#"] tabs(depth) key "\n"
//   block  = "\n" tabs(depth - 1) name "\n" tabs(depth - 1) "{" "\n"
//            entry* block*
//            ["\n"] tabs(depth - 1) "}" "\n"
//
// with depth the number of blocks around the line; the last "\n" in brackets stands before the "}"
// of top-level blocks only, unless the leftmost depth is 1.
#include <klepur/framework/tree_links.h>
#include <klepur/parser/dhcp_parser.h>

#include <cstring>
#include <string>

using klepur::internal::FirstChild;
using klepur::internal::TreeNode;

namespace {

bool IsRoot(const CfSection& section) {
  return std::strcmp(section.GetName(), klepur::internal::kRootName) == 0;
}

/// How many levels there are on the way down through first children, this node not counted.
unsigned int LeftmostLevels(const TreeNode& node) {
  unsigned int levels = 0;
  for (const TreeNode* child = FirstChild(node); child != nullptr; child = FirstChild(*child)) {
    ++levels;
  }
  return levels;
}

}  // namespace

bool DhcpParser::FileWriter(const char* path, CfSectionHolder* target) {
  if (target != nullptr) holder = target;
  if (holder == nullptr) return false;
  TreeNode* const root = FirstChild(holder->topNode);
  if (root == nullptr) return false;
  leftmostDepth += LeftmostLevels(*root);
  if (outputFile == nullptr) outputFile = path == nullptr ? nullptr : std::fopen(path, "w");
  if (outputFile == nullptr) return false;
  try {
    root->TraverseDo(this, WriteSectionW, WriteSectionEndW);
  } catch (...) {
    CloseOutput();
    throw;
  }
  CloseOutput();
  return true;
}

bool DhcpParser::WriteSection(CfSection& section) {
  std::string text;
  if (IsRoot(section)) {
    writeDepth = 0;
  } else {
    const std::string outerTabs(writeDepth, '\t');
    ++writeDepth;
    text.append("\n").append(outerTabs).append(section.GetName());
    text.append("\n").append(outerTabs).append("{\n");
  }
  for (const CfSectionEntry* entry : section.entryList) {
    if (entry == nullptr) continue;
    if (entry->GetComment() != nullptr) text += '#';
    text.append(writeDepth, '\t').append(entry->GetKeyName()).append("\n");
  }
  WriteBuff(text.c_str());
  return true;
}

int DhcpParser::WriteSectionEnd(CfSection& section) {
  if (IsRoot(section)) return 0;
  // A block that is named like the root sets the level to 0, so it can be 0 already.
  if (writeDepth > 0) --writeDepth;
  std::string text;
  if (leftmostDepth != 1 && writeDepth == 0) text = "\n";
  text.append(writeDepth, '\t').append("}\n");
  WriteBuff(text.c_str());
  return 0;
}

std::size_t DhcpParser::WriteBuff(const char* text) {
  if (outputFile == nullptr || text == nullptr) return 0;
  return std::fwrite(text, 1, std::strlen(text), outputFile);
}

bool WriteSectionW(void* ctx, CfSection& section) {
  return ctx != nullptr && static_cast<DhcpParser*>(ctx)->WriteSection(section);
}

bool WriteSectionEndW(void* ctx, CfSection& section) {
  return ctx != nullptr && static_cast<DhcpParser*>(ctx)->WriteSectionEnd(section) != 0;
}
