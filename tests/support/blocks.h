// Blocks and lines made without a file.
#ifndef KLEPUR_TESTS_SUPPORT_BLOCKS_H
#define KLEPUR_TESTS_SUPPORT_BLOCKS_H

#include <klepur/framework/section.h>

#include <initializer_list>
#include <string>

namespace klepur::test {

/// A block with this header and these lines; "#" before a line makes it a commented-out one:
///
///     Block("host pc-17", {"fixed-address 10.0.0.17;", "#max-lease-time 7200;"})
inline CfSection Block(const std::string& header, std::initializer_list<std::string> lines) {
  CfSection block;
  block.SetName(header.c_str());
  for (const std::string& line : lines) {
    const bool commented = !line.empty() && line[0] == '#';
    block.AddEntry(line.c_str() + (commented ? 1 : 0), nullptr, commented ? "#" : nullptr);
  }
  return block;
}

}  // namespace klepur::test

#endif
