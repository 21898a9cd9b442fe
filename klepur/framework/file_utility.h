// FileUtility: questions about files.
#ifndef KLEPUR_FRAMEWORK_FILE_UTILITY_H
#define KLEPUR_FRAMEWORK_FILE_UTILITY_H

#include <klepur/export.h>

class KLEPUR_EXPORT FileUtility {
 public:
  /// True when `path` names anything that exists: a file, a directory, a device. False for null,
  /// for a symbolic link whose target is missing, and where the way to it may not be searched.
  static bool IsFileExist(const char* path);
};

#endif
