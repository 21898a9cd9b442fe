// A source of random choices that a seed repeats.
#ifndef KLEPUR_TESTS_RANDOM_CHANCE_H
#define KLEPUR_TESTS_RANDOM_CHANCE_H

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace klepur::test {

class Chance {
 public:
  explicit Chance(std::uint64_t seed) : engine_(seed) {}

  /// From 0 to `count` - 1.
  std::size_t Below(std::size_t count) { return static_cast<std::size_t>(engine_() % count); }

  /// From `first` to `last`.
  std::size_t Between(std::size_t first, std::size_t last) {
    return first + Below(last - first + 1);
  }

  bool OneIn(std::size_t count) { return Below(count) == 0; }

  template <class Value>
  const Value& Pick(const std::vector<Value>& values) {
    return values[Below(values.size())];
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace klepur::test

#endif
