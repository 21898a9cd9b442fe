// Any text as a configuration file: text to tree to text to tree.
//
// What is checked:
// - The tree is the plain model's, however few bytes a read brings, and from a C string too. A NUL
//   byte ends the reading with a message that names its line; what stands before it counts.
// - "\r\n" for each "\n" of a text without "\r" makes no difference.
// - The text written is the plain model's, for a first and a second write of the same parser.
// - Reading what was written gives the same tree exactly when the syntax can carry the tree; for
//   the trees that it cannot carry, and why, see fuzz/carried.h. What a "}" too many has put beside
//   the root section is not written and not compared.
// - Where the tree is the same, writing it again gives the same bytes.
#include <klepur/parser/dhcp_parser.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/carried.h"
#include "fuzz/memory_file.h"
#include "fuzz/plain_reader.h"
#include "fuzz/require.h"
#include "fuzz/same_tree.h"
#include "fuzz/target.h"
#include "fuzz/text.h"
#include "tests/random/model_file.h"
#include "tests/support/chunk_stream.h"
#include "tests/support/system_log.h"

namespace klepur::fuzz {
namespace {

/// A parser that can be given a stream.
class Parser : public DhcpParser {
 public:
  void Install(StreamIterator* given) { stream = given; }
};

/// What the log says of a reading.
std::string ExpectedLog(const std::string& path, const PlainTree& expected) {
  if (expected.nulLine == 0) return "";
  return "syslog LOG_INFO EXCEPTION! Cannot read " + path + ", NUL byte in line " +
         std::to_string(expected.nulLine) + "!\n";
}

void RequireReading(const char* what, Parser& parser, const std::string& path,
                    CfSectionHolder& holder, const PlainTree& expected) {
  test::ClearSystemLog();
  const bool read = parser.ParseFile(path.c_str(), &holder);
  Require(read == (expected.nulLine == 0), "the reading fails at a NUL byte and nowhere else");
  RequireSame("the log", ExpectedLog(path, expected), Joined(test::SystemLog()));
  RequireSameTree(what, holder.topNode, *expected.top);
}

void CheckSmallReads(const std::string& text, const std::string& path, const PlainTree& expected) {
  Parser parser;
  CfSectionHolder holder;
  parser.Install(new test::ChunkStream(text, 1 + text.size() % 7));
  RequireReading("the tree read in small pieces", parser, path, holder, expected);
}

void CheckCString(const std::string& text, const PlainTree& expected) {
  if (text.find('\0') != std::string::npos) return;
  Parser parser;
  CfSectionHolder holder;
  Require(parser.ParseBuffer(text.c_str(), &holder), "a C string can be read");
  RequireSameTree("the tree of a C string", holder.topNode, *expected.top);
}

void CheckCarriageReturns(const std::string& text, const std::string& path,
                          const PlainTree& expected) {
  if (text.find('\r') != std::string::npos) return;
  Parser parser;
  CfSectionHolder holder;
  parser.Install(new test::ChunkStream(WithCarriageReturns(text)));
  RequireReading("the tree of the text with carriage returns", parser, path, holder, expected);
}

/// Writes a tree and says what was written.
std::string Written(Parser& parser, CfSectionHolder& holder, MemoryFile& file) {
  file.Write("what the file held before");
  Require(parser.FileWriter(file.Path().c_str(), &holder), "a tree can be written");
  return file.Read();
}

void CheckReadingBack(const std::string& written, MemoryFile& file, const test::ModelNode& root) {
  const PlainTree expected = PlainRead(written);
  Parser parser;
  CfSectionHolder holder;
  RequireReading("the tree read back", parser, file.Path(), holder, expected);
  const test::ModelNode& top = *expected.top;
  const bool isSame =
      top.lines.empty() && top.children.size() == 1 && IsSame(*top.children.front(), root);
  Require(isSame == IsCarried(root), "exactly the trees that can be carried are read back");
  if (!isSame) return;
  RequireSame("the bytes of the second cycle", written, Written(parser, holder, file));
}

void Check(const std::string& text) {
  static MemoryFile file;
  const PlainTree expected = PlainRead(text);
  CheckSmallReads(text, file.Path(), expected);
  CheckCString(text, expected);
  CheckCarriageReturns(text, file.Path(), expected);

  file.Write(text);
  Parser parser;
  CfSectionHolder holder;
  RequireReading("the tree", parser, file.Path(), holder, expected);
  Require(file.Read() == text, "reading leaves the file as it was");

  test::ModelFile model(test::ModelV4());
  model.Open(*expected.top);
  if (!model.CanBeWritten()) return;  // a second root section: its level of tabs is not defined
  const std::string written = *model.Save();
  RequireSame("the text written", written, Written(parser, holder, file));
  RequireSameTree("the tree after writing", holder.topNode, *expected.top);
  CheckReadingBack(written, file, *model.Root());
  RequireSame("the text written again", *model.Save(), Written(parser, holder, file));
}

}  // namespace
}  // namespace klepur::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return klepur::fuzz::RunTarget(data, size, klepur::fuzz::Check);
}
