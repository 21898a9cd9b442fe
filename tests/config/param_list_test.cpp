#include <klepur/config/param_list.h>

#include <gtest/gtest.h>
#include <klepur/config/section_record.h>

#include <list>
#include <string>
#include <type_traits>

namespace klepur::internal {
namespace {

using Param = SectionParam<struct AnyVocabulary>;
using ParamList = std::list<Param>;

std::string Text(const ParamList& params) {
  std::string text;
  for (const Param& param : params) {
    text += (param.commented ? "#" : "") + std::to_string(param.type) + "=" + param.value + " ";
  }
  return text;
}

ParamList Sample() {
  return {{false, 0, "pc"}, {true, 8, "first"}, {false, 8, "second"}, {false, -1, "line"}};
}

TEST(FirstOfType, GivesTheFirstOfSeveral) {
  ParamList params = Sample();
  EXPECT_EQ(FirstOfType(params, 0), &params.front());
  EXPECT_EQ(FirstOfType(params, 8)->value, "first");
  EXPECT_EQ(FirstOfType(params, kRawType), &params.back());
}

TEST(FirstOfType, IsNullWhenThereIsNone) {
  ParamList params = Sample();
  ParamList none;
  EXPECT_EQ(FirstOfType(params, 9), nullptr);
  EXPECT_EQ(FirstOfType(none, kNameType), nullptr);
}

TEST(FirstOfType, KeepsAConstantListConstant) {
  const ParamList params = Sample();
  static_assert(std::is_same_v<decltype(FirstOfType(params, 8)), const Param*>);
  EXPECT_EQ(FirstOfType(params, 8)->value, "first");
}

TEST(ValueOfType, IsTheFirstOnesOrEmpty) {
  EXPECT_EQ(ValueOfType(Sample(), kNameType), "pc");
  EXPECT_EQ(ValueOfType(Sample(), 8), "first");
  EXPECT_EQ(ValueOfType(Sample(), 9), "");
  EXPECT_EQ(ValueOfType(ParamList(), kNameType), "");
}

TEST(IsCommented, IsTheFirstOnesMarkOrFalse) {
  EXPECT_TRUE(IsCommented(Sample(), 8));
  EXPECT_FALSE(IsCommented(Sample(), 0));
  EXPECT_FALSE(IsCommented(Sample(), 9));
  EXPECT_FALSE(IsCommented(ParamList{{false, 8, "first"}, {true, 8, "second"}}, 8));
}

TEST(SetParam, AppendsTheFirstOfItsType) {
  ParamList params = Sample();
  SetParam(params, true, 9, "600");
  EXPECT_EQ(Text(params), "0=pc #8=first 8=second -1=line #9=600 ");
}

TEST(SetParam, ReplacesValueAndMarkOfTheFirstInItsPlace) {
  ParamList params = Sample();
  SetParam(params, false, 8, "third");
  EXPECT_EQ(Text(params), "0=pc 8=third 8=second -1=line ");
  SetParam(params, true, 0, "");
  EXPECT_EQ(Text(params), "#0= 8=third 8=second -1=line ");
}

}  // namespace
}  // namespace klepur::internal
