// Names, values and lines that a random file and random operations are made of.
#ifndef KLEPUR_TESTS_RANDOM_RANDOM_WORDS_H
#define KLEPUR_TESTS_RANDOM_RANDOM_WORDS_H

#include <string>
#include <vector>

#include "tests/random/chance.h"
#include "tests/random/model_family.h"
#include "tests/random/model_tree.h"
#include "tests/random/record.h"

namespace klepur::test {

/// Few different words, so that equal ones meet: names that are prefixes of each other or differ in
/// letter case, addresses that several hosts have.
class RandomWords {
 public:
  RandomWords(Chance& chance, const ModelFamily& family) : chance_(chance), family_(family) {}

  /// What stands behind the keyword in a block's header: "pc-1", "10.0.1.0 netmask 255.0.0.0".
  std::string BareName(int kind);

  /// A block's name as a record has it; "10.0.1.0:255.0.0.0".
  std::string RecordName(int kind);

  /// A header of a known kind, or of another one: "group", "class \"a\"".
  std::string Header(int kind);
  std::string OddHeader();

  std::string Address();
  std::string HardwareAddress();

  /// A value for a parameter of this type.
  std::string Value(int type);

  /// A line that a file can hold and that is read back as it is.
  ModelLine FileLine();

  /// The same, or one that only a caller can make.
  ModelLine AnyLine();

 private:
  std::string Number() { return std::to_string(chance_.Below(20)); }

  Chance& chance_;
  const ModelFamily& family_;
};

/// The type of parameter of a random statement.
int RandomType(Chance& chance, const ModelFamily& family);

}  // namespace klepur::test

#endif
