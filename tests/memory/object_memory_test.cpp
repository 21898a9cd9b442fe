#include <klepur/memory/object_memory.h>

#include <klepur/memory/made_anywhere.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <memory>
#include <numeric>
#include <stdexcept>
#include <thread>
#include <vector>

namespace klepur::internal {
namespace {

/// An object of `Words` words that knows what it holds.
template <std::size_t Words>
class Numbered : public MadeAnywhere {
 public:
  explicit Numbered(std::size_t first) {
    if (first == kRefused) throw std::invalid_argument("refused");
    std::iota(std::begin(words_), std::end(words_), first);
    ++alive;
  }
  Numbered(const Numbered&) = delete;
  Numbered& operator=(const Numbered&) = delete;
  ~Numbered() { --alive; }

  bool Holds(std::size_t first) const {
    std::size_t next = first;
    for (const std::size_t word : words_) {
      if (word != next++) return false;
    }
    return true;
  }

  static constexpr auto kRefused = static_cast<std::size_t>(-1);
  static inline std::atomic<int> alive = 0;

 private:
  std::size_t words_[Words];
};

using Small = Numbered<1>;
using Middle = Numbered<6>;
using Large = Numbered<13>;

/// Enough for several chunks.
constexpr std::size_t kMany = 100000;

template <class Object>
std::vector<std::unique_ptr<Object>> MakeMany(ObjectMemory& memory) {
  std::vector<std::unique_ptr<Object>> objects;
  for (std::size_t i = 0; i < kMany; ++i) objects.push_back(memory.Make<Object>(i));
  return objects;
}

template <class Object>
std::size_t CountWhole(const std::vector<std::unique_ptr<Object>>& objects) {
  std::size_t whole = 0;
  for (std::size_t i = 0; i < objects.size(); ++i) whole += objects[i]->Holds(i) ? 1U : 0U;
  return whole;
}

TEST(ObjectMemoryTest, ObjectsOfAllSizesKeepWhatTheyHold) {
  ObjectMemory memory;
  std::vector<std::unique_ptr<Small>> small;
  std::vector<std::unique_ptr<Middle>> middle;
  std::vector<std::unique_ptr<Large>> large;
  for (std::size_t i = 0; i < kMany; ++i) {
    small.push_back(memory.Make<Small>(i));
    middle.push_back(memory.Make<Middle>(i));
    large.push_back(memory.Make<Large>(i));
  }
  EXPECT_EQ(CountWhole(small), kMany);
  EXPECT_EQ(CountWhole(middle), kMany);
  EXPECT_EQ(CountWhole(large), kMany);
}

TEST(ObjectMemoryTest, ObjectsOutliveTheMemoryThatMadeThem) {
  auto memory = std::make_unique<ObjectMemory>();
  const auto objects = MakeMany<Middle>(*memory);
  memory.reset();
  EXPECT_EQ(CountWhole(objects), kMany);
}

TEST(ObjectMemoryTest, ObjectsKeepWhatTheyHoldHoweverManyAreExpected) {
  for (const std::size_t expected :
       {std::size_t{1}, std::size_t{1} << 21, std::size_t{5} << 20, std::size_t{1} << 30}) {
    ObjectMemory memory;
    memory.Expect(expected);
    auto objects = MakeMany<Middle>(memory);
    EXPECT_EQ(CountWhole(objects), kMany) << expected;
    for (std::size_t i = 0; i < kMany; i += 2) objects[i].reset();
    memory.Expect(0);
    const auto others = MakeMany<Large>(memory);
    EXPECT_EQ(CountWhole(others), kMany) << expected;
    EXPECT_EQ(CountWhole(MakeMany<Small>(memory)), kMany) << expected;
    for (std::size_t i = 1; i < kMany; i += 2) ASSERT_TRUE(objects[i]->Holds(i)) << expected;
  }
  EXPECT_EQ(Middle::alive, 0);
}

TEST(ObjectMemoryTest, ObjectsStayWhenTheirNeighboursAreFreed) {
  ObjectMemory memory;
  auto objects = MakeMany<Middle>(memory);
  for (std::size_t i = 0; i < kMany; ++i) {
    if (i % 1000 != 7) objects[i].reset();
  }
  EXPECT_EQ(Middle::alive, 100);
  const auto others = MakeMany<Middle>(memory);
  for (std::size_t i = 7; i < kMany; i += 1000) EXPECT_TRUE(objects[i]->Holds(i)) << i;
  EXPECT_EQ(CountWhole(others), kMany);
}

TEST(ObjectMemoryTest, ObjectWhoseConstructorThrowsIsNotMade) {
  ObjectMemory memory;
  const auto before = memory.Make<Middle>(1U);
  EXPECT_THROW(memory.Make<Middle>(Middle::kRefused), std::invalid_argument);
  const auto behind = memory.Make<Middle>(2U);
  EXPECT_TRUE(before->Holds(1U));
  EXPECT_TRUE(behind->Holds(2U));
  EXPECT_EQ(Middle::alive, 2);
}

TEST(ObjectMemoryTest, ObjectMadeByNewIsFreedLikeOthers) {
  std::vector<std::unique_ptr<Middle>> objects;
  for (std::size_t i = 0; i < 1000; ++i) objects.push_back(std::make_unique<Middle>(i));
  EXPECT_EQ(CountWhole(objects), objects.size());
  objects.clear();
  EXPECT_EQ(Middle::alive, 0);
}

TEST(ObjectMemoryTest, NothingIsMadeOfNothing) {
  const ObjectMemory memory;
  ObjectMemory::Free(nullptr);
}

TEST(ObjectMemoryTest, ObjectsAreFreedOnSeveralThreadsWhileOthersAreMade) {
  ObjectMemory memory;
  auto objects = MakeMany<Middle>(memory);
  std::vector<std::thread> threads;
  for (std::size_t first = 0; first < 3; ++first) {
    threads.emplace_back([&objects, first] {
      for (std::size_t i = first; i < objects.size(); i += 3) objects[i].reset();
    });
  }
  const auto others = MakeMany<Middle>(memory);
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(CountWhole(others), kMany);
  EXPECT_EQ(Middle::alive, static_cast<int>(kMany));
}

}  // namespace
}  // namespace klepur::internal
