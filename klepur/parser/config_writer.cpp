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

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

using klepur::internal::FirstChild;
using klepur::internal::TreeNode;

namespace {

/// How much of a file is written at once. A call for each block takes longer than all the rest.
constexpr std::size_t kWriteSize = 262144;

/// How many bytes behind an entry memory is fetched: three hosts.
constexpr std::size_t kAhead = 640;

bool IsRoot(const CfSection& section) {
  const char* const name = section.GetName();
  return *name == *klepur::internal::kRootName &&
         std::strcmp(name, klepur::internal::kRootName) == 0;
}

constexpr std::string_view kTabs = "\t\t\t\t\t\t\t\t";

/// How many characters PutTabs may touch.
std::size_t RoomForTabs(std::size_t count) {
  return std::max(count, kTabs.size());
}

/// Puts tabs to a place and returns their end; a few in one move.
char* PutTabs(std::size_t count, char* place) {
  if (count <= kTabs.size()) {
    std::memcpy(place, kTabs.data(), kTabs.size());
  } else {
    std::memset(place, '\t', count);
  }
  return place + count;
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

/// While it lives, what is written is collected and goes nowhere.
class DhcpParser::Collecting {
 public:
  Collecting(DhcpParser& parser, unsigned int levels)
      : parser_(parser),
        depth_(parser.leftmostDepth),
        file_(std::exchange(parser.outputFile, nullptr)),
        size_(std::exchange(parser.writeSize_, static_cast<std::size_t>(-1))) {
    parser.leftmostDepth += levels;
  }
  Collecting(const Collecting&) = delete;
  Collecting& operator=(const Collecting&) = delete;
  ~Collecting() {
    parser_.text_.clear();
    parser_.collected_ = 0;
    parser_.writeSize_ = size_;
    parser_.outputFile = file_;
    parser_.leftmostDepth = depth_;
  }

 private:
  DhcpParser& parser_;
  unsigned int depth_;
  std::FILE* file_;
  std::size_t size_;
};

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

std::string DhcpParser::TextOf(CfSectionHolder* target) {
  TreeNode* const root = target == nullptr ? nullptr : FirstChild(target->topNode);
  if (root == nullptr) return {};
  const Collecting collecting(*this, LeftmostLevels(*root));
  root->TraverseDo(this, WriteSectionW, WriteSectionEndW);
  text_.resize(collected_);
  return std::move(text_);
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
    AppendLine(0, "");
    AppendLine(writeDepth, section.GetName());
    AppendLine(writeDepth, "{");
    ++writeDepth;
  }
  for (const CfSectionEntry* entry : section.entryList) {
    if (entry == nullptr) continue;
    // A parse makes nodes and entries one behind the other: what comes next is fetched meanwhile.
    __builtin_prefetch(reinterpret_cast<const char*>(entry) + kAhead);
    AppendEntry(writeDepth, *entry);
  }
  WriteWhenLong();
  return true;
}

int DhcpParser::WriteSectionEnd(CfSection& section) {
  if (IsRoot(section)) return 0;
  // A block that is named like the root sets the level to 0, so it can be 0 already.
  if (writeDepth > 0) --writeDepth;
  if (leftmostDepth != 1 && writeDepth == 0) AppendLine(0, "");
  AppendLine(writeDepth, "}");
  WriteWhenLong();
  return 0;
}

std::size_t DhcpParser::WriteBuff(const char* text) {
  if (outputFile == nullptr || text == nullptr) return 0;
  WriteCollected();
  return std::fwrite(text, 1, std::strlen(text), outputFile);
}

void DhcpParser::MakeRoom(std::size_t size) {
  text_.resize(std::max(2 * text_.size(), collected_ + size));
}

/// Where the next characters go, with room for so many. It is theirs once they are counted.
char* DhcpParser::Room(std::size_t size) {
  if (text_.size() - collected_ < size) [[unlikely]]
    MakeRoom(size);
  return &text_[collected_];
}

void DhcpParser::AppendLine(std::size_t tabs, std::string_view line) {
  char* end = PutTabs(tabs, Room(RoomForTabs(tabs) + line.size() + 1));
  end += line.copy(end, line.size());
  *end++ = '\n';
  collected_ = static_cast<std::size_t>(end - text_.data());
}

void DhcpParser::AppendEntry(std::size_t tabs, const CfSectionEntry& entry) {
  char* end = Room(1 + RoomForTabs(tabs) + entry.keyName_.RoomToCopy() + 1);
  if (entry.comment_ != nullptr) *end++ = '#';
  end = entry.keyName_.Copy(PutTabs(tabs, end));
  *end++ = '\n';
  collected_ = static_cast<std::size_t>(end - text_.data());
}

void DhcpParser::WriteWhenLong() noexcept {
  if (collected_ >= writeSize_) WriteCollected();
}

void DhcpParser::WriteCollected() noexcept {
  if (outputFile != nullptr) std::fwrite(text_.data(), 1, collected_, outputFile);
  collected_ = 0;
}

bool WriteSectionW(void* ctx, CfSection& section) {
  return ctx != nullptr && static_cast<DhcpParser*>(ctx)->WriteSection(section);
}

bool WriteSectionEndW(void* ctx, CfSection& section) {
  return ctx != nullptr && static_cast<DhcpParser*>(ctx)->WriteSectionEnd(section) != 0;
}
