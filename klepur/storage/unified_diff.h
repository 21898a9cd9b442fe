// What differs between two texts, as patch reads it.
#ifndef KLEPUR_STORAGE_UNIFIED_DIFF_H
#define KLEPUR_STORAGE_UNIFIED_DIFF_H

#include <cstddef>
#include <string>
#include <string_view>

#include <klepur/export.h>

namespace klepur {

/// The unified diff that makes the old text the new one:
///
///     --- dhcpd.conf
///     +++ dhcpd.conf
///     @@ -1,3 +1,3 @@
///      authoritative;
///     -max-lease-time 7200;
///     +max-lease-time 3600;
///      subnet 10.0.0.0 netmask 255.255.255.0 {
///
/// Lines end at "\n" and are compared byte for byte; "\ No newline at end of file" follows a last line
/// without one.
///
/// \param old_name, new_name  what stands behind "--- " and "+++ ".
/// \param context             how many equal lines are shown around a change.
/// \return empty when the texts are equal.
///
/// The diff is the shortest where the texts differ in up to some hundreds of lines; where they differ in more
/// it may be longer, and is right all the same. Cost: linear in the texts for few changes, with 32 bytes for
/// each line between the first and the last change; n log n for any.
KLEPUR_EXPORT std::string UnifiedDiff(std::string_view old_text, std::string_view new_text,
                                      const std::string& old_name, const std::string& new_name,
                                      std::size_t context = 3);

}  // namespace klepur

#endif
