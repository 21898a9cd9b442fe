// Saving DhcpConfigFile and Dhcpv6ConfigFile so that the file cannot be lost.
#ifndef KLEPUR_STORAGE_SAVE_CONFIG_H
#define KLEPUR_STORAGE_SAVE_CONFIG_H

#include <klepur/config4/dhcp_config_file.h>
#include <klepur/config6/dhcpv6_config_file.h>
#include <klepur/export.h>
#include <klepur/storage/save_options.h>
#include <klepur/storage/save_report.h>

namespace klepur {

/// Saves a configuration file as StoredFile::Save does: to the path that it was opened from, the text that
/// its own Save would write (ConfigFile::Text). It fails with kChanged when the file was changed since
/// Open began to read it, or since it was last saved by this function. Its own Save is such a change, and so is
/// a new time (touch, chmod) of a file that was older than two seconds when it was read, with the same bytes too.
/// Where the file holds the text already there is nothing to save, and no failure.
///
///     DhcpConfigFile file("/etc/dhcp/dhcpd.conf");
///     file.Open();
///     ...
///     klepur::SaveReport report = klepur::SaveSafely(file, klepur::SaveOptions().WithBackup());
///
/// Throws Error(kNotFound) when there is no tree yet or no file was named. A file that was never opened,
/// whose tree was begun by adding to it, is saved over what is there; a missing one is made.
/// Cost: StoredFile::Save, and Text().
KLEPUR_EXPORT SaveReport SaveSafely(DhcpConfigFile& file,
                                    const SaveOptions& options = SaveOptions());
KLEPUR_EXPORT SaveReport SaveSafely(Dhcpv6ConfigFile& file,
                                    const SaveOptions& options = SaveOptions());

}  // namespace klepur

#endif
