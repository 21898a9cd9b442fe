// Mistakes to be put into correct files, one or more for each rule.
#ifndef KLEPUR_TESTS_CHECK_MISTAKES_H
#define KLEPUR_TESTS_CHECK_MISTAKES_H

#include <cstddef>
#include <vector>

#include "tests/check/correct_file.h"

namespace klepur::test {

/// Into which files a mistake can be put.
enum class In { kAny, kDhcp4, kDhcp6 };

struct Mistake {
  const char* rule;
  In in;
  /// Puts it in and gives the number of the line, counted from 0, that the finding must name.
  std::size_t (*make)(LinesOfFile& file, Random& random);
};

const std::vector<Mistake>& Mistakes();

}  // namespace klepur::test

#endif
