#include <klepur/check/near_word.h>

#include <gtest/gtest.h>

#include <string>

namespace klepur::internal {
namespace {

TEST(LettersBetween, CountsWhatTypistsDo) {
  const struct {
    const char* one;
    const char* other;
    std::size_t letters;
  } cases[] = {
      {"host", "host", 0}, {"host", "HOST", 0}, {"host", "hst", 1},    {"host", "hosst", 1},
      {"host", "hosd", 1}, {"host", "hots", 1}, {"host", "hotss", 2},  {"range", "renga", 2},
      {"a", "", 1},        {"", "", 0},         {"host", "subnet", 3}, {"subnet", "subnet6", 1},
  };
  for (const auto& [one, other, letters] : cases) {
    EXPECT_EQ(LettersBetween(one, other, 2), letters) << one << " " << other;
    EXPECT_EQ(LettersBetween(other, one, 2), letters) << other << " " << one;
  }
  EXPECT_EQ(LettersBetween(std::string(100, 'a'), std::string(100, 'a'), 2), 3U);
}

TEST(NearestKeyword, IsTheOneThatWasMeant) {
  EXPECT_EQ(NearestKeyword("max-laese-time"), "max-lease-time");
  EXPECT_EQ(NearestKeyword("hots"), "host");
  EXPECT_EQ(NearestKeyword("shared_network"), "shared-network");
  EXPECT_EQ(NearestKeyword("gateway"), "");
  EXPECT_EQ(NearestKeyword("hosttt"), "host");
  EXPECT_EQ(NearestKeyword("hoo"), "");  // two letters of three
  EXPECT_EQ(NearestOption("domain-nam"), "domain-name");
  EXPECT_EQ(NearestOption("name-server"), "");
}

TEST(NearestOf, GivesNoneOfTwoThatAreAsNear) {
  EXPECT_EQ(NearestOf({"primary", "primarz"}, "primarx"), "");
  EXPECT_EQ(NearestOf({"primary", "primarz", "primars"}, "primarz"), "primarz");
}

}  // namespace
}  // namespace klepur::internal
