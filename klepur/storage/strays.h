// Internal: the files beside another that savers of it left behind when they were killed.
#ifndef KLEPUR_STORAGE_STRAYS_H
#define KLEPUR_STORAGE_STRAYS_H

#include <string>
#include <vector>

namespace klepur::internal {

/// A path for a file beside `target`, which is an absolute path:
///
///     "/etc/dhcp/.dhcpd.conf.klepur-" process "-" eight hexadecimal digits
///
/// The process is this one's number, for people who look. Of a very long name only the front is in it.
std::string StrayNameFor(const std::string& target);

/// Whether a file of this name could be one that was made beside a file named `name`.
bool IsStrayOf(const std::string& name, const std::string& stray);

/// Removes files that were made beside `target` and whose savers live no more, for their locks are free.
/// Where files cannot be locked or removed they stay.
/// \return the paths of those removed.
/// Cost: linear in the number of files in the folder.
std::vector<std::string> RemoveStrays(const std::string& target);

}  // namespace klepur::internal

#endif
