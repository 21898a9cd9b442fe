// Internal: the file that a path leads to.
#ifndef KLEPUR_STORAGE_TARGET_H
#define KLEPUR_STORAGE_TARGET_H

#include <string>

#include <klepur/storage/stored_file.h>
#include <klepur/text/descriptor.h>

namespace klepur::internal {

/// The absolute path of the file that a path leads to, without symbolic links. With IfMissing::kMake the
/// file need not exist, but its folder must. Throws Error(kFile).
std::string TargetOf(const std::string& path, IfMissing missing);

/// The folder of an absolute path, "/etc/dhcp", and the name in it.
std::string FolderOf(const std::string& target);
std::string NameOf(const std::string& target);

/// Opens a regular file to read it. Not open when there is none and `missing` allows that. Throws
/// Error(kFile). \param path  how the file is called in errors.
Descriptor OpenTarget(const std::string& target, const std::string& path, IfMissing missing,
                      int access);

/// Whether something is mounted on this file. False where the system does not tell.
bool IsMountPoint(int file);

}  // namespace klepur::internal

#endif
