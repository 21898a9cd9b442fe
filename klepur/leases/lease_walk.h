// Internal: the leases in the tree of a leases file.
#ifndef KLEPUR_LEASES_LEASE_WALK_H
#define KLEPUR_LEASES_LEASE_WALK_H

#include <klepur/framework/section_holder.h>
#include <klepur/leases/lease_store.h>

#include <exception>
#include <list>

namespace klepur::internal {

/// Appends one record for each identity association straight below a top-level node of the tree,
/// and deletes all nodes; see Dhcpv6LeasesParser::GetLeases. Throws std::out_of_range,
/// "basic_string::substr", where that says so; the rest of the tree then stays.
void TakeLeases(CfSectionHolder& tree, std::list<_Dhcpv6LeaseStore>& leases);

/// TakeLeases while the tree is still being read, so that little of it is in memory at a time.
class LeaseExtraction {
 public:
  LeaseExtraction(CfSectionHolder& tree, std::list<_Dhcpv6LeaseStore>& leases)
      : tree_(tree), leases_(leases) {}

  /// Takes the lease of a block that has been read to its end, if it stands where associations do,
  /// and deletes the block.
  void TakeEnded(Tree<CfSection>::TreeNode& block) noexcept;

  /// Takes what is left in the tree, or throws what ended the extraction before.
  void Finish();

 private:
  CfSectionHolder& tree_;
  std::list<_Dhcpv6LeaseStore>& leases_;
  std::exception_ptr failure_;  // nothing is taken any more
};

}  // namespace klepur::internal

#endif
