// The pieces that a configuration text is made of.
#ifndef KLEPUR_FRAMEWORK_TOKEN_H
#define KLEPUR_FRAMEWORK_TOKEN_H

#include <cstdint>
#include <string>

namespace klepur {

enum TokenKind : std::uint32_t {
  kWord = 0,
  kPunctuator = 1,    // one of "#", ";", "{" and "}"
  kNumber = 2,        // a word of nothing but digits
  kQuotedString = 3,  // with its quotes and escapes
  kBlank = 4,         // a run of white space within a line
  kLineEnd = 5,       // "\n" or "\r\n"
};

struct Token {
  std::uint32_t kind = kWord;
  std::string text;
};

}  // namespace klepur

#endif
