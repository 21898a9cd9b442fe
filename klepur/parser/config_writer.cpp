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

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

using klepur::internal::FirstChild;
using klepur::internal::TreeNode;

namespace {

/// How much of a file is written at once. A call for each block takes longer than all the rest.
constexpr std::size_t kWriteSize = 262144;

bool IsRoot(const CfSection& section) {
  const char* const name = section.GetName();
  return *name == *klepur::internal::kRootName &&
         std::strcmp(name, klepur::internal::kRootName) == 0;
}

void AppendLine(std::size_t tabs, std::string_view line, std::string& text) {
  const std::size_t begin = text.size();
  text.resize(begin + tabs + line.size() + 1, '\t');
  line.copy(&text[begin + tabs], line.size());
  text.back() = '\n';
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
  writeSize_ = kWriteSize;
  try {
    root->TraverseDo(this, WriteSectionW, WriteSectionEndW);
  } catch (...) {
    FinishFile();
    throw;
  }
  FinishFile();
  return true;
}

void DhcpParser::FinishFile() noexcept {
  writeSize_ = 0;
  WriteCollected();
  CloseOutput();
}

bool DhcpParser::WriteSection(CfSection& section) {
  if (IsRoot(section)) {
    writeDepth = 0;
  } else {
    text_ += '\n';
    AppendLine(writeDepth, section.GetName(), text_);
    AppendLine(writeDepth, "{", text_);
    ++writeDepth;
  }
  for (const CfSectionEntry* entry : section.entryList) {
    if (entry == nullptr) continue;
    if (entry->GetComment() != nullptr) text_ += '#';
    AppendLine(writeDepth, entry->GetKeyName(), text_);
  }
  WriteWhenLong();
  return true;
}

int DhcpParser::WriteSectionEnd(CfSection& section) {
  if (IsRoot(section)) return 0;
  // A block that is named like the root sets the level to 0, so it can be 0 already.
  if (writeDepth > 0) --writeDepth;
  if (leftmostDepth != 1 && writeDepth == 0) text_ += '\n';
  AppendLine(writeDepth, "}", text_);
  WriteWhenLong();
  return 0;
}

std::size_t DhcpParser::WriteBuff(const char* text) {
  if (outputFile == nullptr || text == nullptr) return 0;
  WriteCollected();
  return std::fwrite(text, 1, std::strlen(text), outputFile);
}

void DhcpParser::WriteWhenLong() noexcept {
  if (text_.size() >= writeSize_) WriteCollected();
}

void DhcpParser::WriteCollected() noexcept {
  if (outputFile != nullptr) std::fwrite(text_.data(), 1, text_.size(), outputFile);
  text_.clear();
}

bool WriteSectionW(void* ctx, CfSection& section) {
  return ctx != nullptr && static_cast<DhcpParser*>(ctx)->WriteSection(section);
}

bool WriteSectionEndW(void* ctx, CfSection& section) {
  return ctx != nullptr && static_cast<DhcpParser*>(ctx)->WriteSectionEnd(section) != 0;
}
