#include <klepur/text/line_count.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tests/random/chance.h"

namespace klepur::internal {
namespace {

using test::Chance;

/// A text whose lines are about this long.
std::string RandomLines(Chance& chance, std::size_t size, std::size_t length) {
  std::string text(size, 'a');
  for (char& byte : text) byte = chance.OneIn(length) ? '\n' : chance.OneIn(9) ? '\r' : 'a';
  return text;
}

/// Where the lines of a text begin.
std::vector<std::size_t> LineStarts(std::string_view text) {
  std::vector<std::size_t> starts = {0};
  for (std::size_t i = 0; i != text.size(); ++i) {
    if (text[i] == '\n') starts.push_back(i + 1);
  }
  return starts;
}

std::size_t LinesBefore(const std::vector<std::size_t>& starts, std::size_t offset) {
  return static_cast<std::size_t>(std::upper_bound(starts.begin(), starts.end(), offset) -
                                  starts.begin() - 1);
}

void ExpectCountsAt(const std::string& text, const LineCount& lines,
                    const std::vector<std::size_t>& starts, std::size_t from, std::size_t to) {
  ASSERT_EQ(lines.NewlinesBefore(to), LinesBefore(starts, to)) << to << " of " << text.size();
  ASSERT_EQ(lines.NewlinesIn(from, to), LinesBefore(starts, to) - LinesBefore(starts, from))
      << from << " to " << to << " of " << text.size();
}

struct Case {
  std::string_view text;
  std::vector<std::size_t> lineStarts;
};

TEST(LineCount, LinesEndBehindEachLineEnd) {
  const Case cases[] = {
      {"", {0}},
      {"a", {0}},
      {"\n", {0, 1}},
      {"a\nb", {0, 2}},
      {"a\nb\n", {0, 2, 4}},
      {"\n\n\n", {0, 1, 2, 3}},
      {"a\r\nb\r\n", {0, 3, 6}},
      {"a\rb\r", {0}},  // one line
      {"a\vb\fc\x85"
       "d\n",
       {0, 8}},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(::testing::PrintToString(one.text));
    const LineCount lines(one.text);
    const std::size_t count = one.lineStarts.size();
    EXPECT_EQ(lines.NewlinesBefore(one.text.size()), count - 1);
    for (std::size_t i = 0; i != count; ++i) {
      EXPECT_EQ(lines.OffsetOfLine(i), one.lineStarts[i]);
      EXPECT_EQ(lines.NewlinesBefore(one.lineStarts[i]), i);
    }
    EXPECT_EQ(lines.OffsetOfLine(count), one.text.size());
    EXPECT_EQ(lines.OffsetOfLine(count + 100000), one.text.size());
  }
}

TEST(LineCount, PlaceOfALineEndIsOnTheLineThatItEnds) {
  const LineCount lines("a\nb\n");
  EXPECT_EQ(lines.NewlinesBefore(1), 0U);
  EXPECT_EQ(lines.NewlinesBefore(2), 1U);
  EXPECT_EQ(lines.NewlinesBefore(3), 1U);
  EXPECT_EQ(lines.NewlinesIn(1, 2), 1U);
  EXPECT_EQ(lines.NewlinesIn(2, 3), 0U);
  EXPECT_EQ(lines.NewlinesIn(4, 4), 0U);
}

TEST(LineCount, CountsMoreThanAByteHolds) {
  for (const std::size_t size : {4079U, 4080U, 4081U, 32767U, 32768U, 32769U, 65536U, 100000U}) {
    const std::string text(size, '\n');
    EXPECT_EQ(CountLineEnds(text), size);
    const LineCount lines(text);
    EXPECT_EQ(lines.NewlinesBefore(size), size);
    for (const std::size_t line : {size - 1, size, size + 1}) {
      EXPECT_EQ(lines.OffsetOfLine(line), std::min(line, size));
    }
  }
}

TEST(LineCount, AgreesWithATableOfLinesOnRandomTexts) {
  Chance chance(20260305);
  for (int round = 0; round != 60; ++round) {
    const std::size_t length = chance.Pick(std::vector<std::size_t>{1, 2, 30, 5000, 40000});
    const std::size_t pieces = chance.Below(5) * 32768;
    const std::size_t size = pieces + chance.Below(3);
    const std::string text = RandomLines(chance, size, length);
    const std::vector<std::size_t> starts = LineStarts(text);
    const LineCount lines(text);
    for (int i = 0; i != 100; ++i) {
      const std::size_t to = chance.Below(size + 1);
      ExpectCountsAt(text, lines, starts, chance.Below(to + 1), to);
      const std::size_t line = chance.Below(starts.size() + 2);
      ASSERT_EQ(lines.OffsetOfLine(line), line < starts.size() ? starts[line] : size) << line;
    }
    for (std::size_t to = 0; to <= size; to += 32768) {
      for (const std::size_t near : {to - 1, to, to + 1}) {
        if (near <= size) ExpectCountsAt(text, lines, starts, near / 2, near);
      }
    }
  }
}

TEST(LineCount, BothWaysOfCountingAgree) {
  Chance chance(20260306);
  const std::string text = RandomLines(chance, 9000, 3);
  for (std::size_t size = 0; size < text.size(); size += 1 + size / 40) {
    for (std::size_t from = 0; from != 17 && from + size <= text.size(); ++from) {
      const std::string_view part = std::string_view(text).substr(from, size);
      ASSERT_EQ(CountLineEnds(part), CountLineEndsPlainly(part)) << from << " " << size;
    }
  }
}

TEST(LineCount, SeveralThreadsMayAskFirst) {
  const std::string text(200000, '\n');
  for (int round = 0; round != 20; ++round) {
    const LineCount lines(text);
    std::vector<std::size_t> answers(4);
    std::vector<std::thread> threads;
    for (std::size_t& answer : answers) {
      threads.emplace_back([&] { answer = lines.NewlinesBefore(150000); });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(answers, std::vector<std::size_t>(4, 150000));
  }
}

}  // namespace
}  // namespace klepur::internal
