// A file that is in no folder.
#ifndef KLEPUR_FUZZ_MEMORY_FILE_H
#define KLEPUR_FUZZ_MEMORY_FILE_H

#include <string>
#include <string_view>

namespace klepur::fuzz {

/// Code under test opens it by its path as any file; no input leaves anything behind on a disk.
class MemoryFile {
 public:
  MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  ~MemoryFile();

  /// Good while this object lives.
  const std::string& Path() const { return path_; }

  void Write(std::string_view text);
  std::string Read() const;

 private:
  int descriptor_;
  std::string path_;
};

}  // namespace klepur::fuzz

#endif
