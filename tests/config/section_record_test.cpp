#include <klepur/config/section_record.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/support/family.h"

namespace klepur::test {
namespace {

template <class Family>
class SectionRecords : public ::testing::Test {};
TYPED_TEST_SUITE(SectionRecords, Families, FamilyNames);

TYPED_TEST(SectionRecords, NewOneIsAHostWithoutParameters) {
  const typename TypeParam::Section record;
  EXPECT_EQ(record.type, TypeParam::Section::SECTION_HOST);
  EXPECT_TRUE(record.params.empty());
}

TYPED_TEST(SectionRecords, NewParameterIsALiveLineOfNoTypeWithoutAValue) {
  const typename TypeParam::Section::SectionParam param;
  EXPECT_FALSE(param.commented);
  EXPECT_EQ(param.type, -1);
  EXPECT_EQ(param.value, "");
}

std::string FamilyOf(const DhcpConfigFile::DhcpSection& /*record*/) {
  return "V4 record";
}
std::string FamilyOf(const Dhcpv6ConfigFile::Dhcpv6Section& /*record*/) {
  return "V6 record";
}
std::string FamilyOf(const DhcpConfigFile::DhcpSection::SectionParam& /*param*/) {
  return "V4 parameter";
}
std::string FamilyOf(const Dhcpv6ConfigFile::Dhcpv6Section::SectionParam& /*param*/) {
  return "V6 parameter";
}
std::string FamilyOf(DhcpConfigFile::DhcpSection::DhcpSectionType /*type*/) {
  return "V4 section type";
}
std::string FamilyOf(Dhcpv6ConfigFile::Dhcpv6Section::Dhcpv6SectionType /*type*/) {
  return "V6 section type";
}
std::string FamilyOf(DhcpConfigFile::DhcpSection::DhcpParamType /*type*/) {
  return "V4 parameter type";
}
std::string FamilyOf(Dhcpv6ConfigFile::Dhcpv6Section::Dhcpv6ParamType /*type*/) {
  return "V6 parameter type";
}

TEST(TypesOfTheFamilies, FunctionsAreOverloadedOnThem) {
  DhcpConfigFile::DhcpSection record;
  record.params.resize(1);
  EXPECT_EQ(FamilyOf(record), "V4 record");
  EXPECT_EQ(FamilyOf(record.params.front()), "V4 parameter");
  EXPECT_EQ(FamilyOf(record.type), "V4 section type");
  EXPECT_EQ(FamilyOf(record.SECTION_IF), "V4 section type");
  EXPECT_EQ(FamilyOf(record.PARAM_NAME), "V4 parameter type");

  Dhcpv6ConfigFile::Dhcpv6Section record6;
  record6.params.resize(1);
  EXPECT_EQ(FamilyOf(record6), "V6 record");
  EXPECT_EQ(FamilyOf(record6.params.front()), "V6 parameter");
  EXPECT_EQ(FamilyOf(record6.type), "V6 section type");
  EXPECT_EQ(FamilyOf(record6.SECTION_IF), "V6 section type");
  EXPECT_EQ(FamilyOf(record6.PARAM6_NAME), "V6 parameter type");
}

}  // namespace
}  // namespace klepur::test
