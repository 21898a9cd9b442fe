// Internal: a count of the changes to lines of which no section knows.
#ifndef KLEPUR_FRAMEWORK_ENTRY_CHANGES_H
#define KLEPUR_FRAMEWORK_ENTRY_CHANGES_H

#include <cstdint>

namespace klepur::internal {

/// How often, in this process, a line that a section owns was given another text or was deleted
/// other than by its section.
///
/// An entry cannot tell its section: a caller may have taken it out of the list, and the section
/// may be gone. So there is one count for all. It grows with the changes that callers make by hand
/// and with nothing else.
std::uint64_t EntryChanges() noexcept;

void CountEntryChange() noexcept;

}  // namespace klepur::internal

#endif
