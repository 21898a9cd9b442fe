// Leases in words, so that a test can compare all their fields at once.
#ifndef KLEPUR_TESTS_LEASES_LEASE_WORDS_H
#define KLEPUR_TESTS_LEASES_LEASE_WORDS_H

#include <klepur/leases/lease_store.h>

#include <list>
#include <string>
#include <vector>

namespace klepur::test {

/// The fields that are not empty, the identifier first:
///
///     4142 address=2001:db8::100 state=active preferred=375 max=600 ends=never
inline std::string LeaseWords(const _Dhcpv6LeaseStore& lease) {
  const auto field = [](const char* name, const std::string& value) {
    return value.empty() ? "" : " " + std::string(name) + "=" + value;
  };
  return lease.duid + field("address", lease.address) + field("cltt", lease.cltt) +
         field("state", lease.bindingState) + field("preferred", lease.preferredLife) +
         field("max", lease.maxLife) + field("ends", lease.ends);
}

inline std::vector<std::string> LeaseWords(const std::list<_Dhcpv6LeaseStore>& leases) {
  std::vector<std::string> words;
  for (const _Dhcpv6LeaseStore& lease : leases) words.push_back(LeaseWords(lease));
  return words;
}

}  // namespace klepur::test

#endif
