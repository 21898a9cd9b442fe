// Extractions on several threads at once, for a build with the thread sanitizer above all.
#include <gmock/gmock.h>
#include <klepur/leases/leases_parser.h>

#include <cstring>
#include <list>
#include <string>
#include <thread>
#include <vector>

#include "tests/leases/lease_words.h"
#include "tests/support/files.h"
#include "tests/support/system_log.h"

namespace klepur::test {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::SizeIs;

using Words = std::vector<std::string>;

constexpr int kTimes = 100;

Words LeasesAt(const std::string& path) {
  std::list<_Dhcpv6LeaseStore> leases;
  Dhcpv6LeasesParser().GetLeases(path.c_str(), leases);
  return LeaseWords(leases);
}

/// How many of many extractions of a file gave something else than expected.
int Differences(const std::string& path, const Words& expected) {
  int differences = 0;
  for (int i = 0; i < kTimes; ++i) differences += LeasesAt(path) == expected ? 0 : 1;
  return differences;
}

class LeasesOnThreads : public ::testing::Test {
 protected:
  /// A file of 40 blocks made from one text.
  std::string Given(const std::string& name, const std::string& block) const {
    std::string text;
    for (int i = 0; i < 40; ++i) text += block;
    return scratch_.Write(name, text);
  }

  const ScratchFolder scratch_;
  const std::string addresses_ = Given("addresses.leases",
                                       "ia-na \"\\001\\000AB\" {\n"
                                       "  iaaddr 2001:db8::100 {\n"
                                       "    binding state active;\n"
                                       "    preferred-life 375;\n"
                                       "    max-life 600;\n"
                                       "    ends 4 2024/01/01 12:10:00;\n"
                                       "  }\n"
                                       "}\n");
  const std::string prefixes_ = Given("prefixes.leases",
                                      "ia-pd \"C D\\\\\\377\" {\n"
                                      "  iaprefix 2001:db8:1::/64 {\n"
                                      "    cltt 1 2024/02/02 13:00:00;\n"
                                      "    binding  state expired;\n"
                                      "    ends never;\n"
                                      "  }\n"
                                      "}\n"
                                      "ia - ta EF {\n"
                                      "}\n");
};

TEST_F(LeasesOnThreads, TwoFilesAtOnceGiveWhatEachGivesAlone) {
  const Words addresses = LeasesAt(addresses_);
  const Words prefixes = LeasesAt(prefixes_);
  ASSERT_THAT(addresses, SizeIs(40));
  ASSERT_THAT(addresses, Each("01004142 address=2001:db8::100 state=active preferred=375 max=600 "
                              "ends=4 2024/01/01 12:10:00"));
  ASSERT_THAT(prefixes, SizeIs(80));
  ASSERT_EQ(prefixes[0],
            "4320445cff address=2001:db8:1::/64 cltt=1 2024/02/02 13:00:00 state= expired "
            "ends=never");
  ASSERT_EQ(prefixes[1], "61204546");
  int differences[] = {-1, -1};
  std::thread first([&] { differences[0] = Differences(addresses_, addresses); });
  std::thread second([&] { differences[1] = Differences(prefixes_, prefixes); });
  first.join();
  second.join();
  EXPECT_THAT(differences, ElementsAre(0, 0));
}

TEST_F(LeasesOnThreads, OneFileReadByTwoThreadsGivesTheSameToBoth) {
  const Words expected = LeasesAt(prefixes_);
  int differences[] = {-1, -1};
  std::thread first([&] { differences[0] = Differences(prefixes_, expected); });
  std::thread second([&] { differences[1] = Differences(prefixes_, expected); });
  first.join();
  second.join();
  EXPECT_THAT(differences, ElementsAre(0, 0));
}

TEST_F(LeasesOnThreads, ExtractionsThatEndEarlyDisturbNoOther) {
  const std::string stopped =
      scratch_.Write("stopped.leases",
                     "ia-na \"A\" {\n}\n"
                     "ia-na \"B\" {\niaaddr 2001:db8::1 {\nset a = b;\n}\n}\n");
  const Words addresses = LeasesAt(addresses_);
  ClearSystemLog();
  int differences[] = {-1, -1};
  std::thread first([&] { differences[0] = Differences(addresses_, addresses); });
  std::thread second([&] { differences[1] = Differences(stopped, {"41"}); });
  first.join();
  second.join();
  EXPECT_THAT(differences, ElementsAre(0, 0));
  EXPECT_THAT(SystemLog(), SizeIs(kTimes));
  EXPECT_THAT(SystemLog(), Each("syslog LOG_INFO basic_string::substr"));
}

TEST_F(LeasesOnThreads, TokenisingOfTheCallerGoesOnWhereItWas) {
  char text[] = "one two three";
  ASSERT_STREQ(std::strtok(text, " "), "one");
  LeasesAt(addresses_);
  ASSERT_STREQ(std::strtok(nullptr, " "), "two");
  Dhcpv6LeasesParser().ParseDuid("\\001AB");
  EXPECT_STREQ(std::strtok(nullptr, " "), "three");
}

}  // namespace
}  // namespace klepur::test
