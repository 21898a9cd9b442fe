// A plain model of the reading of leases: what is promised of Dhcpv6LeasesParser, step by step.
#ifndef KLEPUR_FUZZ_PLAIN_LEASES_H
#define KLEPUR_FUZZ_PLAIN_LEASES_H

#include <klepur/leases/lease_store.h>

#include <list>
#include <string>

#include "tests/random/model_tree.h"

namespace klepur::fuzz {

/// An identifier, up to its first NUL byte, in hexadecimal.
std::string PlainDuid(const std::string& text);

/// Appends the leases of the identity associations straight below the nodes below `top`.
/// \return false when a text was cut past its end, which ends the extraction.
bool PlainLeases(const test::ModelNode& top, std::list<_Dhcpv6LeaseStore>& leases);

}  // namespace klepur::fuzz

#endif
