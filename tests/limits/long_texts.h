// Texts as long as the tests of limits want them.
#ifndef KLEPUR_TESTS_LIMITS_LONG_TEXTS_H
#define KLEPUR_TESTS_LIMITS_LONG_TEXTS_H

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace klepur::test {

inline std::string Repeated(std::string_view text, std::size_t times) {
  std::string result;
  result.reserve(text.size() * times);
  for (std::size_t i = 0; i != times; ++i) result += text;
  return result;
}

/// A text for each number from 0 on; "%" in it stands for the number.
inline std::string Numbered(std::string_view text, std::size_t count) {
  std::string result;
  for (std::size_t number = 0; number != count; ++number) {
    const std::string digits = std::to_string(number);
    for (const char c : text) c == '%' ? result += digits : result += c;
  }
  return result;
}

/// EXPECT_EQ would print a hundred megabytes.
inline void ExpectSame(std::string_view actual, std::string_view expected) {
  EXPECT_TRUE(actual == expected) << actual.size() << " bytes in place of " << expected.size()
                                  << ", " << actual.substr(0, 100) << "...";
}

}  // namespace klepur::test

#endif
