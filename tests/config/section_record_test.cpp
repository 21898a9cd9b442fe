#include <klepur/config/section_record.h>

#include <gtest/gtest.h>

#include "tests/support/family.h"

namespace klepur::test {
namespace {

TEST(SectionParam, NewOneIsALiveLineOfNoTypeWithoutAValue) {
  const SectionParam param;
  EXPECT_FALSE(param.commented);
  EXPECT_EQ(param.type, -1);
  EXPECT_EQ(param.value, "");
}

template <class Family>
class SectionRecords : public ::testing::Test {};
TYPED_TEST_SUITE(SectionRecords, Families, FamilyNames);

TYPED_TEST(SectionRecords, NewOneIsAHostWithoutParameters) {
  const typename TypeParam::Section record;
  EXPECT_EQ(record.type, SectionTypes::SECTION_HOST);
  EXPECT_TRUE(record.params.empty());
}

}  // namespace
}  // namespace klepur::test
