// Internal: the leases in the tree of a leases file.
#ifndef KLEPUR_LEASES_LEASE_WALK_H
#define KLEPUR_LEASES_LEASE_WALK_H

#include <klepur/framework/section_holder.h>
#include <klepur/leases/lease_store.h>

#include <list>

namespace klepur::internal {

/// Appends one record for each identity association straight below a top-level node of the tree,
/// and deletes the blocks that it was read from; see Dhcpv6LeasesParser::GetLeases. Throws
/// std::out_of_range, "basic_string::substr", where that says so.
void TakeLeases(CfSectionHolder& tree, std::list<_Dhcpv6LeaseStore>& leases);

}  // namespace klepur::internal

#endif
