// Internal: finding the last of many addresses that is not above another one.
#ifndef KLEPUR_CHECK_SORTED_ADDRESSES_H
#define KLEPUR_CHECK_SORTED_ADDRESSES_H

#include <algorithm>
#include <cstddef>
#include <vector>

#include <klepur/check/address_key.h>

namespace klepur::internal {

class SortedAddresses {
 public:
  void reserve(std::size_t addresses) { keys_.reserve(addresses); }
  /// Adds one that is not below the last one.
  void push_back(const AddressKey& address) { keys_.push_back(address); }

  /// How many are not above an address. Cost: little when it comes to the same as the last time, as it does for
  /// most hosts of a file; else the logarithm of their number.
  std::size_t UpTo(const AddressKey& key) const {
    const bool as_before =
        (last_ == 0 || keys_[last_ - 1] <= key) && (last_ == keys_.size() || key < keys_[last_]);
    if (!as_before) {
      last_ = static_cast<std::size_t>(std::upper_bound(keys_.begin(), keys_.end(), key) -
                                       keys_.begin());
    }
    return last_;
  }

 private:
  std::vector<AddressKey> keys_;
  mutable std::size_t last_ = 0;
};

}  // namespace klepur::internal

#endif
