#include "tests/faults/memory_fault.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <new>

namespace klepur::test {
namespace {

constexpr std::size_t kSize = 3;
constexpr std::size_t kAligned = 256;
constexpr std::align_val_t kAlignment{kAligned};

/// One form of operator new, and one of the forms of operator delete that fit it.
struct Form {
  const char* name;
  bool throws;  // when there is no memory; else it returns null
  void* (*make)();
  void (*free)(void* block);
  std::size_t alignment = 1;
};

constexpr Form kForms[] = {
    // one object
    {"new", true, [] { return operator new(kSize); }, [](void* block) { operator delete(block); }},
    {"new, sized delete", true, [] { return operator new(kSize); },
     [](void* block) { operator delete(block, kSize); }},
    {"new nothrow", false, [] { return operator new(kSize, std::nothrow); },
     [](void* block) { operator delete(block, std::nothrow); }},
    {"new of nothing", true, [] { return operator new(0); },
     [](void* block) { operator delete(block); }},
    // arrays
    {"new[]", true, [] { return operator new[](kSize); },
     [](void* block) { operator delete[](block); }},
    {"new[], sized delete", true, [] { return operator new[](kSize); },
     [](void* block) { operator delete[](block, kSize); }},
    {"new[] nothrow", false, [] { return operator new[](kSize, std::nothrow); },
     [](void* block) { operator delete[](block, std::nothrow); }},
    // one aligned object
    {"aligned new", true, [] { return operator new(kSize, kAlignment); },
     [](void* block) { operator delete(block, kAlignment); }, kAligned},
    {"aligned new, sized delete", true, [] { return operator new(kSize, kAlignment); },
     [](void* block) { operator delete(block, kSize, kAlignment); }, kAligned},
    {"aligned new nothrow", false, [] { return operator new(kSize, kAlignment, std::nothrow); },
     [](void* block) { operator delete(block, kAlignment, std::nothrow); }, kAligned},
    {"aligned new of nothing", true, [] { return operator new(0, kAlignment); },
     [](void* block) { operator delete(block, kAlignment); }, kAligned},
    // aligned arrays
    {"aligned new[]", true, [] { return operator new[](kSize, kAlignment); },
     [](void* block) { operator delete[](block, kAlignment); }, kAligned},
    {"aligned new[], sized delete", true, [] { return operator new[](kSize, kAlignment); },
     [](void* block) { operator delete[](block, kSize, kAlignment); }, kAligned},
    {"aligned new[] nothrow", false, [] { return operator new[](kSize, kAlignment, std::nothrow); },
     [](void* block) { operator delete[](block, kAlignment, std::nothrow); }, kAligned},
};

/// Null when it throws, and then `threw` becomes true.
void* Make(const Form& form, bool& threw) {
  try {
    return form.make();
  } catch (const std::bad_alloc&) {
    threw = true;
    return nullptr;
  }
}

TEST(MemoryFaultTest, BlockOfEveryFormIsAlignedAndCountedUntilItIsFreed) {
  for (const Form& form : kForms) {
    SCOPED_TRACE(form.name);
    const std::ptrdiff_t before = BlocksInUse();
    void* const block = form.make();
    const std::ptrdiff_t between = BlocksInUse();
    const auto address = reinterpret_cast<std::uintptr_t>(block);
    form.free(block);
    EXPECT_EQ(between, before + 1);
    EXPECT_EQ(BlocksInUse(), before);
    EXPECT_NE(address, 0U);
    EXPECT_EQ(address % form.alignment, 0U);
  }
}

TEST(MemoryFaultTest, EveryFormFailsInItsTurnAndOnlyThen) {
  for (const Form& form : kForms) {
    SCOPED_TRACE(form.name);
    const std::ptrdiff_t before = BlocksInUse();
    void* blocks[3] = {};
    bool threw[3] = {};
    bool struckEarly = true;
    bool struck = false;
    {
      const MemoryFault fault(1, Shortage::kOnce);
      blocks[0] = Make(form, threw[0]);
      struckEarly = fault.Struck();
      blocks[1] = Make(form, threw[1]);
      struck = fault.Struck();
      blocks[2] = Make(form, threw[2]);
    }
    EXPECT_EQ(BlocksInUse(), before + 2);
    EXPECT_NE(blocks[0], nullptr);
    EXPECT_FALSE(struckEarly);
    EXPECT_EQ(blocks[1], nullptr);
    EXPECT_EQ(threw[1], form.throws);
    EXPECT_TRUE(struck);
    EXPECT_NE(blocks[2], nullptr);
    for (void* const block : blocks) form.free(block);
    EXPECT_EQ(BlocksInUse(), before);
  }
}

TEST(MemoryFaultTest, MemoryThatIsGoneForGoodFailsEveryFormUntilTheFaultIsOver) {
  for (const Form& form : kForms) {
    SCOPED_TRACE(form.name);
    bool threw = false;
    void* blocks[2] = {};
    {
      const MemoryFault fault(0, Shortage::kFromThenOn);
      for (void*& block : blocks) block = Make(form, threw);
    }
    EXPECT_EQ(blocks[0], nullptr);
    EXPECT_EQ(blocks[1], nullptr);
    EXPECT_EQ(threw, form.throws);
    void* const block = form.make();
    EXPECT_NE(block, nullptr);
    form.free(block);
  }
}

}  // namespace
}  // namespace klepur::test
