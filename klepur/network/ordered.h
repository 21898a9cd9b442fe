// Comparison of small values.
#ifndef KLEPUR_NETWORK_ORDERED_H
#define KLEPUR_NETWORK_ORDERED_H

namespace klepur {

/// The comparisons == != < <= > >= of a value with
/// `int Compare(const Value& other) const noexcept`, which is negative, zero or positive as the
/// value stands before, equals or stands behind the other.
template <class Value>
class Ordered {
  friend bool operator==(const Value& a, const Value& b) noexcept { return a.Compare(b) == 0; }
  friend bool operator!=(const Value& a, const Value& b) noexcept { return a.Compare(b) != 0; }
  friend bool operator<(const Value& a, const Value& b) noexcept { return a.Compare(b) < 0; }
  friend bool operator<=(const Value& a, const Value& b) noexcept { return a.Compare(b) <= 0; }
  friend bool operator>(const Value& a, const Value& b) noexcept { return a.Compare(b) > 0; }
  friend bool operator>=(const Value& a, const Value& b) noexcept { return a.Compare(b) >= 0; }
};

}  // namespace klepur

#endif
