// Any text as a leases file.
//
// What is checked:
// - The tree is the plain model's; so are the leases, in order, field by field, and what is logged.
// - Leases that the list held before stay, in front.
// - "\r\n" for each "\n" of a text without "\r" makes no difference.
// - A second reading by the same parser gives what the model says: no root section is made again,
//   and text that nothing has ended stands in front. Not after a NUL byte: how much of the text
//   before it is left over is not promised.
// - The leases are those of the text that the configuration writer makes of the tree, whenever the
//   syntax can carry the tree; see fuzz/carried.h.
#include <klepur/leases/leases_parser.h>
#include <klepur/parser/dhcp_parser.h>

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>

#include "fuzz/carried.h"
#include "fuzz/memory_file.h"
#include "fuzz/plain_leases.h"
#include "fuzz/plain_reader.h"
#include "fuzz/require.h"
#include "fuzz/same_tree.h"
#include "fuzz/target.h"
#include "fuzz/text.h"
#include "tests/support/system_log.h"

namespace klepur::fuzz {
namespace {

using Leases = std::list<_Dhcpv6LeaseStore>;

std::string ToText(const Leases& leases) {
  std::string text;
  for (const _Dhcpv6LeaseStore& lease : leases) {
    text += "address [" + lease.address + "] cltt [" + lease.cltt + "] duid [" + lease.duid +
            "] preferredLife [" + lease.preferredLife + "] maxLife [" + lease.maxLife + "] ends [" +
            lease.ends + "] bindingState [" + lease.bindingState + "]\n";
  }
  return text;
}

std::string ExpectedLog(const std::string& path, std::size_t nulLine, bool wasCutShort) {
  std::string log;
  if (nulLine != 0) {
    log += "syslog LOG_INFO EXCEPTION! Cannot read " + path + ", NUL byte in line " +
           std::to_string(nulLine) + "!\n";
  }
  if (wasCutShort) log += "syslog LOG_INFO basic_string::substr\n";
  return log;
}

void RequireLeases(Dhcpv6LeasesParser& parser, MemoryFile& file, const std::string& text,
                   const PlainTree& tree) {
  file.Write(text);
  Leases leases(1);
  leases.front().duid = "before";
  Leases expected = leases;
  const bool wasCutShort = !PlainLeases(*tree.top, expected);
  test::ClearSystemLog();
  parser.GetLeases(file.Path().c_str(), leases);
  RequireSame("the leases", ToText(expected), ToText(leases));
  RequireSame("the log", ExpectedLog(file.Path(), tree.nulLine, wasCutShort),
              Joined(test::SystemLog()));
  Require(file.Read() == text, "reading leaves the file as it was");
}

/// The leases of the same tree in another layout.
void CheckRewritten(CfSectionHolder& holder, MemoryFile& file, const PlainTree& tree) {
  if (tree.nulLine != 0 || !IsCarried(*tree.top->children.front())) return;
  if (!tree.top->lines.empty() || tree.top->children.size() > 1) return;  // they are not written
  Require(DhcpParser().FileWriter(file.Path().c_str(), &holder), "a tree can be written");
  Dhcpv6LeasesParser parser;
  RequireLeases(parser, file, file.Read(), tree);
}

void Check(const std::string& text) {
  static MemoryFile file;
  const PlainTree tree = PlainRead(text);
  Dhcpv6LeasesParser parser;
  RequireLeases(parser, file, text, tree);
  if (tree.nulLine == 0) RequireLeases(parser, file, text, PlainReadAgain(text, tree.rest));
  if (text.find('\r') == std::string::npos) {
    Dhcpv6LeasesParser another;
    RequireLeases(another, file, WithCarriageReturns(text), tree);
  }
  file.Write(text);
  CfSectionHolder holder;
  Require(Dhcpv6LeasesParser().ParseFile(file.Path().c_str(), &holder) == (tree.nulLine == 0),
          "the reading fails at a NUL byte and nowhere else");
  RequireSameTree("the tree", holder.topNode, *tree.top);
  CheckRewritten(holder, file, tree);
}

}  // namespace
}  // namespace klepur::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return klepur::fuzz::RunTarget(data, size, klepur::fuzz::Check);
}
