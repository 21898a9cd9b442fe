// Small values as keys of std::unordered_map.
#ifndef KLEPUR_NETWORK_HASHED_H
#define KLEPUR_NETWORK_HASHED_H

#include <cstddef>

namespace klepur {

/// What std::hash is for a value with `std::size_t Hash() const noexcept`.
template <class Value>
struct Hashed {
  std::size_t operator()(const Value& value) const noexcept { return value.Hash(); }
};

}  // namespace klepur

#endif
