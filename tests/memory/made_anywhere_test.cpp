#include <klepur/memory/made_anywhere.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

namespace klepur::internal {
namespace {

struct Usual : MadeAnywhere {
  char bytes[13] = {};
};

struct alignas(64) Wide : MadeAnywhere {
  char bytes[13] = {};
};

struct Refusing : MadeAnywhere {
  Refusing() { throw 1; }
};

template <class Object>
class MadeAnywhereTest : public ::testing::Test {
 protected:
  static void ExpectAlignedAndDelete(Object* object) {
    constexpr std::size_t kAlignment =
        alignof(Object) > MadeAnywhere::kStep ? alignof(Object) : MadeAnywhere::kStep;
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(object) % kAlignment, 0U);
    delete object;
  }
};

using Objects = ::testing::Types<Usual, Wide>;
TYPED_TEST_SUITE(MadeAnywhereTest, Objects);

TYPED_TEST(MadeAnywhereTest, WhatNewGivesIsAlignedAndDeleted) {
  this->ExpectAlignedAndDelete(new TypeParam);
}

TYPED_TEST(MadeAnywhereTest, WhatNothrowNewGivesIsAlignedAndDeleted) {
  this->ExpectAlignedAndDelete(new (std::nothrow) TypeParam);
}

TYPED_TEST(MadeAnywhereTest, ObjectStandsInMemoryOfACaller) {
  alignas(TypeParam) char memory[sizeof(TypeParam)];
  auto* const object = new (memory) TypeParam;
  EXPECT_EQ(static_cast<void*>(object), static_cast<void*>(memory));
  object->~TypeParam();
}

TYPED_TEST(MadeAnywhereTest, ManyInOneBlockAreMadeAsOfAnyClass) {
  const auto objects = std::make_unique<TypeParam[]>(3);
  EXPECT_EQ(objects[2].bytes[12], 0);
}

TEST(MadeAnywhere, ConstructorThatThrowsLeavesNothing) {
  EXPECT_THROW(new Refusing, int);
  EXPECT_THROW(new (std::nothrow) Refusing, int);
}

}  // namespace
}  // namespace klepur::internal
