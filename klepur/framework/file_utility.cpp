#include <klepur/framework/file_utility.h>

#include <sys/stat.h>

bool FileUtility::IsFileExist(const char* path) {
  struct stat status = {};
  return path != nullptr && ::stat(path, &status) == 0;
}
