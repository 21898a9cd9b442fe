// A plain model of the reading of block-structured text: one character after the other.
//
// It follows what klepur/framework/block_parser.h and klepur/framework/lexer.h promise and shares
// nothing with them: no tokens, no stream, the whole text in memory.
#ifndef KLEPUR_FUZZ_PLAIN_READER_H
#define KLEPUR_FUZZ_PLAIN_READER_H

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/random/model_tree.h"

namespace klepur::fuzz {

struct PlainTree {
  std::unique_ptr<test::ModelNode> top;  ///< the topmost node
  std::size_t nulLine = 0;  ///< the line with the NUL byte that ended the reading; or 0
  std::string rest;         ///< what no ";" and no block has ended
};

/// What a parser that has read nothing yet makes of a text.
PlainTree PlainRead(std::string_view text);

/// What a parser makes of a text when it has read another one before: there is no root section, and
/// the rest of the text before stands in front.
PlainTree PlainReadAgain(std::string_view text, const std::string& restBefore);

/// For each character of a line whether it stands in a quoted string; the quotes do.
std::vector<bool> InQuotes(std::string_view line);

}  // namespace klepur::fuzz

#endif
