#include <klepur/text/structural_scan.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tests/text/padded_text.h"

namespace klepur::internal {
namespace {

using test::Chance;
using test::EveryByte;
using test::PaddedText;
using test::RandomText;

using Offsets = std::vector<std::ptrdiff_t>;

/// All that a scan returns before the end.
Offsets Scanned(std::string_view bytes) {
  const PaddedText text(bytes);
  StructuralScan scan(text.begin(), text.end());
  Offsets offsets;
  for (const char* at = nullptr; (at = scan.Next()) != text.end();) {
    offsets.push_back(at - text.begin());
  }
  EXPECT_EQ(scan.Next(), text.end());
  return offsets;
}

/// What a scan should return from an offset on; the size of the text when there is nothing.
std::size_t Expected(std::string_view text, std::size_t from) {
  const std::size_t found = from < text.size() ? text.find_first_of(";{}#\"\\", from) : text.npos;
  return found == text.npos ? text.size() : found;
}

TEST(StructuralScan, ReturnsEachByteOfTheStructure) {
  EXPECT_EQ(Scanned(""), Offsets());
  EXPECT_EQ(Scanned("abc\n"), Offsets());
  EXPECT_EQ(Scanned("host a { # b\n  log \"\\;\";\n}\n"), (Offsets{7, 9, 19, 20, 21, 22, 23, 25}));
}

TEST(StructuralScan, LooksBehindManyBytesThatDoNotMatter) {
  for (const std::size_t before : {62U, 63U, 64U, 65U, 127U, 128U, 129U, 1000U}) {
    EXPECT_EQ(
        Scanned(std::string(before, 'a') + "{}"),
        (Offsets{static_cast<std::ptrdiff_t>(before), static_cast<std::ptrdiff_t>(before) + 1}));
    EXPECT_EQ(Scanned(std::string(before, 'a')), Offsets());
  }
}

TEST(StructuralScan, GoesOnWhereItIsTold) {
  const PaddedText text("# a;b\nlog; # c\n" + std::string(100, '{') + "}");
  StructuralScan scan(text.begin(), text.end());
  EXPECT_EQ(scan.Next() - text.begin(), 0);
  scan.GoTo(text.begin() + 6);
  EXPECT_EQ(scan.Next() - text.begin(), 9);
  scan.GoTo(text.begin() + 115);  // in another block
  EXPECT_EQ(scan.Next() - text.begin(), 115);
  EXPECT_EQ(scan.Next(), text.end());
}

TEST(StructuralScan, FindsNothingBehindTheEnd) {
  for (const std::size_t size : {0U, 1U, 63U, 64U, 65U, 200U}) {
    for (const std::size_t behind : {1U, 2U, 3U, 64U, 1000U}) {
      const PaddedText text(std::string(size, '{'));
      StructuralScan scan(text.begin(), text.end());
      scan.GoTo(text.end() + behind);
      EXPECT_EQ(scan.Next(), text.end()) << size << " " << behind;
    }
  }
}

TEST(StructuralScan, AgreesWithSearchesOnRandomWaysThroughRandomTexts) {
  Chance chance(20260302);
  for (int round = 0; round != 3000; ++round) {
    const std::string bytes =
        RandomText(chance, chance.Below(400), round % 2 == 0 ? "abcdef \n;{}#\"\\" : EveryByte());
    const PaddedText text(bytes);
    StructuralScan scan(text.begin(), text.end());
    std::size_t place = 0;
    while (place <= bytes.size()) {
      const std::size_t found = Expected(bytes, place);
      ASSERT_EQ(static_cast<std::size_t>(scan.Next() - text.begin()), found)
          << "from " << place << " of " << ::testing::PrintToString(bytes);
      place = found + 1;
      if (chance.OneIn(4)) {
        place = found + 1 + chance.Below(100);
        scan.GoTo(text.begin() + place);
      }
    }
  }
}

TEST(StructuralScan, BothWaysAgreeOnEachByteAtEachPlace) {
  std::string bytes(static_cast<std::size_t>(kMaskSize), 'a');
  for (char& place : bytes) {
    for (const char byte : EveryByte()) {
      place = byte;
      ASSERT_EQ(StructuralMask(bytes.data()), StructuralMaskPlainly(bytes.data()))
          << ::testing::PrintToString(bytes);
    }
    place = 'a';
  }
}

TEST(StructuralScan, BothWaysAgreeOnRandomTexts) {
  Chance chance(20260303);
  for (int round = 0; round != 2000; ++round) {
    const auto size = static_cast<std::size_t>(kMaskSize) + 15;
    const std::string bytes =
        RandomText(chance, size, round % 2 == 0 ? ":<z|;{}#\"\\" : EveryByte());
    for (std::size_t from = 0; from != 16; ++from) {
      ASSERT_EQ(StructuralMask(bytes.data() + from), StructuralMaskPlainly(bytes.data() + from))
          << from << " of " << ::testing::PrintToString(bytes);
    }
  }
}

}  // namespace
}  // namespace klepur::internal
