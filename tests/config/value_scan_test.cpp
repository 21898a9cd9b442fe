#include <klepur/config/value_scan.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>

namespace klepur::internal {
namespace {

std::string Elements(const std::list<std::string>& elements) {
  std::string text;
  for (const std::string& element : elements) text += "[" + element + "]";
  return text;
}

/// The elements in brackets, then the result: "[a][b] true".
std::string Split(const std::string& text) {
  std::list<std::string> elements;
  const bool ended = SplitList(text.c_str(), elements);
  return Elements(elements) + (ended ? " true" : " false");
}

std::string Padded(const std::string& text, std::size_t length, char padding = ' ') {
  return text + std::string(length - text.size(), padding);
}

// ---- FirstDigit, FirstLetter, FirstOf ----

const struct {
  const char* text;
  std::ptrdiff_t digit;
  std::ptrdiff_t letter;
  std::ptrdiff_t comma;
} kScans[] = {
    // text                digit letter comma
    {"", 0, 0, 0},
    {"abc", 3, 0, 3},
    {"7", 0, 1, 1},
    {"  10 host", 2, 5, 9},
    {"a,b", 3, 0, 1},
    {",,", 2, 2, 0},
    {"range 10.0.0.1, 2;", 6, 0, 14},
    {"@[`{/:z9", 7, 6, 8},
    {"AZ09", 2, 0, 4},
    // bytes outside ASCII are no letters and no digits
    {"\xc3\xa4\xb2z0", 4, 3, 5},
};

TEST(FirstDigit, PointsAtTheFirstDigitOrTheEnd) {
  for (const auto& row : kScans) EXPECT_EQ(FirstDigit(row.text) - row.text, row.digit) << row.text;
}

TEST(FirstLetter, PointsAtTheFirstLetterOrTheEnd) {
  for (const auto& row : kScans)
    EXPECT_EQ(FirstLetter(row.text) - row.text, row.letter) << row.text;
}

TEST(FirstOf, PointsAtTheCharacterOrTheEnd) {
  for (const auto& row : kScans)
    EXPECT_EQ(FirstOf(row.text, ',') - row.text, row.comma) << row.text;
}

TEST(FirstOf, FindsNoNulInAText) {
  const char* const text = "ab";
  EXPECT_EQ(FirstOf(text, '\0'), text + 2);
}

TEST(FirstThat, NullGivesNull) {
  EXPECT_EQ(FirstDigit(nullptr), nullptr);
  EXPECT_EQ(FirstLetter(nullptr), nullptr);
  EXPECT_EQ(FirstOf(nullptr, ','), nullptr);
}

TEST(FirstThat, LengthIsCountedWithSixteenBitsAndASign) {
  constexpr std::size_t kNowhere = 1000000;
  const struct {
    std::size_t length;
    std::size_t at;  // where the one match stands
    std::ptrdiff_t found;
  } cases[] = {
      // all of it is scanned
      {32767, 5, 5},
      {32767, 32766, 32766},
      {32767, kNowhere, 32767},
      // bit 15 is set: nothing is
      {32768, 5, 0},
      {32768, kNowhere, 0},
      {40000, 5, 0},
      {65535, 5, 0},
      {65535, kNowhere, 0},
      {98304, 5, 0},
      // the length modulo 65536 is
      {65536, 5, 0},
      {65536, kNowhere, 0},
      {65546, 9, 9},
      {65546, 11, 10},
      {65546, kNowhere, 10},
      {70000, 4463, 4463},
      {70000, 5000, 4464},
      {70000, kNowhere, 4464},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(std::to_string(row.length) + ", " + std::to_string(row.at));
    std::string text(row.length, '-');
    const auto With = [&](char c) {
      if (row.at < row.length) text[row.at] = c;
      return text.c_str();
    };
    EXPECT_EQ(FirstDigit(With('7')) - text.c_str(), row.found);
    EXPECT_EQ(FirstLetter(With('x')) - text.c_str(), row.found);
    EXPECT_EQ(FirstOf(With(','), ',') - text.c_str(), row.found);
  }
}

// ---- SplitList, Join ----

TEST(SplitList, CutsAtCommasAndBlanksUpToTheSemicolon) {
  const struct {
    const char* text;
    const char* elements;
  } cases[] = {
      {"10.1.1.1, 10.1.1.2;", "[10.1.1.1][10.1.1.2] true"},
      {"10.1.1.1,10.1.1.2;", "[10.1.1.1][10.1.1.2] true"},
      {"10.0.0.1,  10.0.0.2 ;", "[10.0.0.1][10.0.0.2] true"},
      {" , ,a,,b, ;", "[a][b] true"},
      {"a;b;", "[a] true"},
      {";", " true"},
      {" ;", " true"},
      // a tab separates nothing
      {"a\tb;", "[a\tb] true"},
  };
  for (const auto& row : cases) EXPECT_EQ(Split(row.text), row.elements) << row.text;
}

TEST(SplitList, WithoutSemicolonStopsAtTheEndAndFails) {
  const struct {
    const char* text;
    const char* elements;
  } cases[] = {
      {"", " false"},      {"a", "[a] false"}, {"10.0.0.1, 10.0.0.2", "[10.0.0.1][10.0.0.2] false"},
      {"a,", "[a] false"}, {" ", " false"},    {", ,", " false"},
  };
  for (const auto& row : cases) EXPECT_EQ(Split(row.text), row.elements) << row.text;
}

TEST(SplitList, AppendsToWhatIsThere) {
  std::list<std::string> elements = {"before"};
  EXPECT_TRUE(SplitList("a b;", elements));
  EXPECT_EQ(Elements(elements), "[before][a][b]");
}

TEST(SplitList, LengthOf32767IsReadWhole) {
  EXPECT_EQ(Split(Padded("a b ", 32766) + ";"), "[a][b] true");
  EXPECT_EQ(Split("a " + std::string(32764, 'x') + ";"),
            "[a][" + std::string(32764, 'x') + "] true");
}

TEST(SplitList, LengthWithBit15SetOrOf65536GivesNothing) {
  for (const std::size_t length : {32768U, 40000U, 65535U, 65536U, 98304U, 131072U}) {
    EXPECT_EQ(Split(Padded("a b;", length)), " false") << length;
  }
}

TEST(SplitList, LengthOf65546EndsAfterTenCharacters) {
  // The element that the tenth character belongs to is still taken whole.
  EXPECT_EQ(Split(Padded("10.0.0.1 10.0.0.2 10.0.0.3;", 65546)), "[10.0.0.1][10.0.0.2] false");
  EXPECT_EQ(Split(Padded("123456789 b;", 65546)), "[123456789] false");
  EXPECT_EQ(Split(Padded("12345678 b c;", 65546)), "[12345678][b] false");
  EXPECT_EQ(Split(Padded("a b;", 65546)), "[a][b] true");
}

TEST(SplitList, LengthOf70000EndsAfter4464Characters) {
  EXPECT_EQ(Split(Padded(Padded("a ", 4463) + "b c;", 70000)), "[a][b] false");
  EXPECT_EQ(Split(Padded(Padded("a ", 4464) + "b c;", 70000)), "[a] false");
  EXPECT_EQ(Split(Padded("a b;", 70000)), "[a][b] true");
}

TEST(SplitList, LongElementWrapsTheLengthAround) {
  const std::string element(40000, 'x');
  EXPECT_EQ(Split(Padded(element + ",b;", 65546)), "[" + element + "][b] true");
}

TEST(Join, PutsTheSeparatorBetweenElements) {
  EXPECT_EQ(Join({}, ", "), "");
  EXPECT_EQ(Join({"a"}, ", "), "a");
  EXPECT_EQ(Join({"a", "b", "c"}, ", "), "a, b, c");
  EXPECT_EQ(Join({"a", "b"}, " "), "a b");
  EXPECT_EQ(Join({"a", "a", "a"}, "-"), "a-a-a");
}

// ---- Cutting values out ----

TEST(TextBehindFirstBlank, IsTheRestOfTheLine) {
  const struct {
    const char* line;
    const char* rest;
  } cases[] = {
      {"host pc-17", "pc-17"},
      {"shared-network office", "office"},
      {"if option vendor-class-identifier = \"x\"", "option vendor-class-identifier = \"x\""},
      {"host  pc", " pc"},
      {" host", "host"},
      {"host ", ""},
      {"a\tb c", "c"},
  };
  for (const auto& row : cases) {
    std::string out = "before";
    EXPECT_TRUE(TextBehindFirstBlank(row.line, out)) << row.line;
    EXPECT_EQ(out, row.rest) << row.line;
  }
}

TEST(TextBehindFirstBlank, WithoutBlankLeavesTheTextAsItIs) {
  for (const char* line : {"", "host", "host\tpc"}) {
    std::string out = "before";
    EXPECT_FALSE(TextBehindFirstBlank(line, out)) << line;
    EXPECT_EQ(out, "before") << line;
  }
}

TEST(LastWordOfStatement, StandsBetweenTheLastBlankAndTheFirstSemicolon) {
  const struct {
    const char* line;
    const char* word;
  } cases[] = {
      {"max-lease-time 7200;", "7200"},
      {"option routers 10.0.0.1;", "10.0.0.1"},
      {"option domain-name \"a b\";", "b\""},
      {"max-lease-time 7200 ;", ""},
      {"max-lease-time 7200;;", "7200"},
      {"filename \"a;b\";", "\"a"},
      {" ;", ""},
  };
  for (const auto& row : cases) {
    std::string out = "before";
    EXPECT_TRUE(LastWordOfStatement(row.line, out)) << row.line;
    EXPECT_EQ(out, row.word) << row.line;
  }
}

TEST(LastWordOfStatement, BehindAnEarlierSemicolonIsTheRestOfTheLine) {
  const struct {
    const char* line;
    const char* word;
  } cases[] = {
      {"host a { fixed-address 10.0.0.5; }", "}"},
      {"host a { fixed-address 10.0.0.5; } # end;", "end;"},
      {"a; b", "b"},
      {"; ", ""},
  };
  for (const auto& row : cases) {
    std::string out = "before";
    EXPECT_TRUE(LastWordOfStatement(row.line, out)) << row.line;
    EXPECT_EQ(out, row.word) << row.line;
  }
}

TEST(LastWordOfStatement, WithoutBlankOrSemicolonLeavesTheTextAsItIs) {
  for (const char* line : {"", "authoritative;", "max-lease-time 7200", "max-lease-time\t7200;"}) {
    std::string out = "before";
    EXPECT_FALSE(LastWordOfStatement(line, out)) << line;
    EXPECT_EQ(out, "before") << line;
  }
}

TEST(LastWordOfStatement, LongLinesAreReadWhole) {
  for (const std::size_t length : {32767U, 32768U, 65535U, 65536U, 65546U, 70000U}) {
    std::string out;
    EXPECT_TRUE(LastWordOfStatement(Padded("filename ", length - 2, 'x') + "7;", out));
    EXPECT_EQ(out, std::string(length - 11, 'x') + "7") << length;
  }
}

TEST(SubnetAddress, StandsBetweenTheFirstBlankAndNetmask) {
  const struct {
    const char* header;
    const char* address;
  } cases[] = {
      {"subnet 10.0.0.0 netmask 255.0.0.0", "10.0.0.0"},
      {"subnet 10.0.0.0", "10.0.0.0"},
      {"subnet 10.0.0.0 netmask", "10.0.0.0 netmask"},
      {"subnet 10.0.0.0 netmask 255.0.0.0 netmask 0", "10.0.0.0"},
      {"subnet  10.0.0.0  netmask 255.0.0.0", " 10.0.0.0 "},
      {"subnet6 2001:db8:1::/64", "2001:db8:1::/64"},
      {"host a", "a"},
      {"my subnet 10.0.0.0 netmask 255.0.0.0", "subnet 10.0.0.0"},
      // " netmask " begins at the first blank: all behind that blank
      {"subnet netmask 255.0.0.0", "netmask 255.0.0.0"},
      {" netmask 255.0.0.0", "netmask 255.0.0.0"},
      // an empty address
      {"subnet  netmask 255.0.0.0", ""},
      {"subnet ", ""},
      // no blank at all
      {"group", "group"},
      {"", ""},
  };
  for (const auto& row : cases) EXPECT_EQ(SubnetAddress(row.header), row.address) << row.header;
}

TEST(AddressPart, EndsAtTheCommaElseTheColonElseTheBlank) {
  const struct {
    const char* name;
    const char* withColon;
    const char* withoutColon;
  } cases[] = {
      {"10.0.0.0", "10.0.0.0", "10.0.0.0"},
      {"10.0.0.0, x", "10.0.0.0", "10.0.0.0"},
      {"10.0.0.0 x", "10.0.0.0", "10.0.0.0"},
      {"10.0.0.0:255.0.0.0", "10.0.0.0", "10.0.0.0:255.0.0.0"},
      {"2001:db8:1::/64", "2001", "2001:db8:1::/64"},
      // the kind of separator decides before its place
      {"a b:c,d", "a b:c", "a b:c"},
      {"a b:c", "a b", "a"},
      {"a:b c", "a", "a:b"},
      // the first of its kind
      {"a,b,c", "a", "a"},
      {"a:b:c", "a", "a:b:c"},
      {"a b c", "a", "a"},
      // a separator at either end
      {",x", "", ""},
      {", ", "", ""},
      {"a,,", "a", "a"},
      {"a:", "a", "a:"},
      {"a ", "a", "a"},
      {"", "", ""},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(AddressPart(row.name, true), row.withColon) << row.name;
    EXPECT_EQ(AddressPart(row.name, false), row.withoutColon) << row.name;
  }
}

/// What AddressPart throws: its text, or "nothing".
std::string ErrorOf(const std::string& name, bool colonEndsAddress) {
  try {
    AddressPart(name, colonEndsAddress);
  } catch (const std::out_of_range& error) {
    return error.what();
  }
  return "nothing";
}

TEST(AddressPart, CommaAtTheEndIsOutOfRange) {
  for (const bool colonEndsAddress : {true, false}) {
    for (const char* name : {"10.0.0.0,", ",", "10.0.0.0:255.0.0.0,", "a b,"}) {
      EXPECT_EQ(ErrorOf(name, colonEndsAddress), "basic_string::substr") << name;
    }
    EXPECT_EQ(ErrorOf("10.0.0.0, ", colonEndsAddress), "nothing");
    EXPECT_EQ(ErrorOf("10.0.0.0,x", colonEndsAddress), "nothing");
  }
}

TEST(WithoutEnds, TakesOneCharacterOffEachEnd) {
  const struct {
    const char* text;
    const char* rest;
  } cases[] = {
      {"\"office.lan\"", "office.lan"},
      {"abc", "b"},
      {"\"\"", ""},
      {"ab", ""},
      {"\"", ""},
      {"", ""},
  };
  for (const auto& row : cases) EXPECT_EQ(WithoutEnds(row.text), row.rest) << row.text;
}

}  // namespace
}  // namespace klepur::internal
