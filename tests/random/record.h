// A block as a caller sees it, in types of the tests' own.
#ifndef KLEPUR_TESTS_RANDOM_RECORD_H
#define KLEPUR_TESTS_RANDOM_RECORD_H

#include <string>
#include <string_view>
#include <vector>

namespace klepur::test {

/// The kinds of blocks and the one type of parameter that both families number alike.
enum Kind : int { kGlobal = 0, kNetwork = 1, kSubnet = 2, kHost = 3, kIf = 4 };
inline constexpr int kNameParam = 0;

struct Param {
  bool commented = false;
  int type = -1;
  std::string value;
};

struct Record {
  int type = kHost;
  std::vector<Param> params;
};

/// The first parameter of a type; null when there is none.
const Param* FirstOf(const Record& record, int type);
Param* FirstOf(Record& record, int type);

/// The value of the first parameter of a type; empty when there is none.
std::string ValueOf(const Record& record, int type);

/// A text as one writes it in a program: "a \"b\"\n".
std::string Quoted(std::string_view text);

/// A record as one writes it in a program, "#" before a parameter that is commented out:
///
///     {3, {{0, "pc-17"}, #{16, "00:11:22:33:44:55"}}}
std::string ToText(const Record& record);

}  // namespace klepur::test

#endif
