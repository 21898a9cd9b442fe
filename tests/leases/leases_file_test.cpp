// Whole leases files, as servers write them and as accidents leave them.
#include <gmock/gmock.h>
#include <klepur/leases/leases_parser.h>

#include <algorithm>
#include <cstddef>
#include <list>
#include <string>
#include <vector>

#include "tests/leases/lease_words.h"
#include "tests/support/files.h"
#include "tests/support/system_log.h"

namespace klepur::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string DataFile(const std::string& name) {
  return std::string(KLEPUR_TEST_DATA) + "/leases/" + name + ".leases";
}

std::vector<std::string> LeasesAt(const std::string& path) {
  std::list<_Dhcpv6LeaseStore> leases;
  Dhcpv6LeasesParser().GetLeases(path.c_str(), leases);
  return LeaseWords(leases);
}

class WholeLeasesFile : public ::testing::Test {
 protected:
  WholeLeasesFile() { ClearSystemLog(); }

  /// The leases of a file in the data folder, which with the other kind of line end has the same.
  std::vector<std::string> Leases(const std::string& name) const {
    const std::string text = ReadFile(DataFile(name));
    EXPECT_EQ(text.find('\r'), std::string::npos);
    const std::vector<std::string> leases = LeasesAt(DataFile(name));
    ClearSystemLog();
    EXPECT_EQ(LeasesIn(WithCarriageReturns(text)), leases);
    return leases;
  }

  std::vector<std::string> LeasesIn(const std::string& text) const {
    return LeasesAt(scratch_.Write("dhcpd6.leases", text));
  }

  ScratchFolder scratch_;
};

TEST_F(WholeLeasesFile, OfficeWithAddressesAndPrefixes) {
  EXPECT_THAT(
      Leases("office"),
      ElementsAre("11003e16000100012de20c0100163e100011 address=2001:db8:20:1::1004 state=active "
                  "preferred=375 max=600 ends=4 2026/11/19 08:08:12",
                  "30003e16000100012de20c0200163e100030 address=2001:db8:20:2::1007 state=active "
                  "preferred=375 max=600 ends=4 2026/11/19 09:11:40",
                  "030000000003000100163e100019",
                  "4142000000010001 address=2001:db8:30::a1b2 cltt=3 2026/11/18 23:12:05 "
                  "state=released preferred=60 max=120 ends=3 2026/11/18 23:14:05",
                  "010000000003000100163e210001 address=2001:db8:2000:100::/56 state=active "
                  "preferred=4500 max=7200 ends=never",
                  "010000000003000100163e210002 address=2001:db8:2000:200::/56 state=abandoned "
                  "preferred=4500 max=7200 ends=4 2026/11/19\t\t 08:00:00"));
  EXPECT_THAT(SystemLog(), IsEmpty());
}

TEST_F(WholeLeasesFile, IdentifiersWithEveryKindOfEscape) {
  EXPECT_THAT(Leases("identifiers"),
              ElementsAre("61626358595a2030313839",
                          "21232425262728292a2b2c2d2e2f3a3c3d3e3f405b5d5e5f607b7c7d7e",
                          // octal numbers
                          "00", "ff", "0139", "7f61",
                          // backslashes
                          "615c62", "5c303031", "433a5c", "5c5c",
                          // double quotes
                          "73617920000077", "00", "5c00", "4142",
                          // what no server writes
                          "0a", "1ff", "00", "00", "ffffffff", "0a",
                          // beyond ASCII
                          "ffffffc3ffffffa9"));
  EXPECT_THAT(SystemLog(), IsEmpty());
}

TEST_F(WholeLeasesFile, RepeatedIdentifiersAndAddressesAreAllListed) {
  EXPECT_THAT(Leases("repeated"),
              ElementsAre("010000004142 address=2001:db8::10 state=active preferred=300 max=600 "
                          "ends=1 2026/11/16 09:10:00",
                          "020000004344 address=2001:db8::11 state=active preferred=300 max=600 "
                          "ends=1 2026/11/16 09:11:00",
                          "010000004142 address=2001:db8::10 state=active preferred=300 max=600 "
                          "ends=1 2026/11/16 09:15:00",
                          "010000004142 address=2001:db8::10 state=active preferred=300 max=600 "
                          "ends=1 2026/11/16 09:15:00",
                          "010000004142 address=2001:db8:100::/48 state=active preferred=300 "
                          "max=600 ends=never",
                          "020000004344 address=2001:db8::10 state=active preferred=300 max=600 "
                          "ends=1 2026/11/16 10:00:00",
                          "010000004142"));
  EXPECT_THAT(SystemLog(), IsEmpty());
}

TEST_F(WholeLeasesFile, CutOffInABlockGivesWhatCameBefore) {
  EXPECT_THAT(Leases("cut_off"),
              ElementsAre("010000004142 address=2001:db8::10 state=active preferred=300 max=600 "
                          "ends=1 2026/11/16 09:10:00",
                          "020000004344 address=2001:db8::11 state=active preferred=300"));
  EXPECT_THAT(SystemLog(), IsEmpty());
}

TEST_F(WholeLeasesFile, UnknownStatementEndsTheListBeforeItsAssociation) {
  EXPECT_THAT(Leases("unknown_statement"),
              ElementsAre("010000004142 address=2001:db8::10 state=active preferred=300 max=600 "
                          "ends=1 2026/11/16 09:10:00"));
  EXPECT_THAT(SystemLog(), ElementsAre("syslog LOG_INFO basic_string::substr"));
}

TEST_F(WholeLeasesFile, FileWithCarriageReturns) {
  const std::string text = ReadFile(DataFile("dos_line_ends"));
  ASSERT_GT(std::count(text.begin(), text.end(), '\r'), 20);
  ASSERT_EQ(std::count(text.begin(), text.end(), '\r'), std::count(text.begin(), text.end(), '\n'));
  EXPECT_THAT(LeasesAt(DataFile("dos_line_ends")),
              ElementsAre("010000004142 address=2001:db8::10 state=active preferred=300 max=600 "
                          "ends=1 2026/11/16      09:10:00",
                          "020000004344 address=2001:db8:100::/48 state=expired ends=never"));
  EXPECT_THAT(SystemLog(), IsEmpty());
}

/// Wherever a file is cut off, the associations that it still holds whole are the same, and at most
/// one more follows.
TEST_F(WholeLeasesFile, CutOffAnywhereGivesTheWholeAssociationsBeforeTheCut) {
  const std::string text = ReadFile(DataFile("office"));
  const std::vector<std::string> whole = Leases("office");
  std::size_t closed = 0;
  for (std::size_t length = 0; length <= text.size(); ++length) {
    if (text.substr(0, length).ends_with("\n}")) ++closed;
    std::vector<std::string> leases = LeasesIn(text.substr(0, length));
    ASSERT_GE(leases.size(), closed) << length;
    ASSERT_LE(leases.size(), closed + 1) << length;
    leases.resize(closed);
    ASSERT_TRUE(std::equal(leases.begin(), leases.end(), whole.begin())) << length;
  }
  EXPECT_EQ(closed, 6U);
  EXPECT_THAT(SystemLog(), IsEmpty());
}

// ---- several hundred blocks ----

/// One kind of association; "%" stands for its number in the file, "$" for that number as the bytes
/// of an identifier.
struct Pattern {
  const char* block;
  const char* lease;  // null when there is none
};

const Pattern kPatterns[] = {
    {"ia-na \"\\001\\000%\" {\n"
     "  cltt 4 2024/01/01 12:00:00;\n"
     "  iaaddr 2001:db8::% {\n"
     "    binding state active;\n"
     "    preferred-life 375;\n"
     "    max-life %;\n"
     "    ends 4 2024/01/01 12:10:00;\n"
     "  }\n"
     "}\n",
     "0100$ address=2001:db8::% state=active preferred=375 max=% ends=4 2024/01/01 12:10:00"},
    {"# association %\n"
     "ia-pd \"\\\\%\" {\n"
     "  iaprefix 2001:db8:%::/48 {\n"
     "    binding state expired;\n"
     "    ends never;\n"
     "    on expiry {\n"
     "      set gone = \"%\";\n"
     "    }\n"
     "  }\n"
     "}\n",
     "5c$ address=2001:db8:%::/48 state=expired ends=never"},
    {"ia-ta \"%\\377\" {\n"
     "  iaaddr 2001:db8:1::% {\n"
     "    cltt 1 2024/01/01 00:00:00;\n"
     "    max-life 1;\n"
     "  }\n"
     "  iaaddr 2001:db8:2::% {\n"
     "    max-life %; # not 5;\n"
     "  }\n"
     "}\n",
     "$ff address=2001:db8:2::% cltt=1 2024/01/01 00:00:00 max=%"},
    {"ia-na \"\" {\n"
     "  iaaddr 2001:db8:3::% {\n"
     "  }\n"
     "}\n"
     "failover peer \"%\" state {\n"
     "  my state normal at %;\n"
     "}\n",
     nullptr},
    {"ia-na \"same\" {\n"
     "  cltt %;\n"
     "}\n",
     "73616d65"},
};

/// A pattern with its number filled in.
std::string Numbered(const char* pattern, int number) {
  const std::string digits = std::to_string(number);
  std::string text;
  for (const char c : std::string(pattern)) {
    if (c == '%') {
      text += digits;
    } else if (c == '$') {
      for (const char digit : digits) text += std::string("3") + digit;
    } else {
      text += c;
    }
  }
  return text;
}

TEST_F(WholeLeasesFile, ManyHundredBlocksGiveTheirLeasesInFileOrder) {
  std::string text;
  std::vector<std::string> expected;
  for (int number = 1000; number < 1400; ++number) {
    for (const Pattern& pattern : kPatterns) {
      text += Numbered(pattern.block, number);
      if (pattern.lease != nullptr) expected.push_back(Numbered(pattern.lease, number));
    }
  }
  ASSERT_EQ(expected.size(), 1600U);
  EXPECT_EQ(LeasesIn(text), expected);
  EXPECT_EQ(LeasesIn(WithCarriageReturns(text)), expected);
  EXPECT_THAT(SystemLog(), IsEmpty());
}

}  // namespace
}  // namespace klepur::test
