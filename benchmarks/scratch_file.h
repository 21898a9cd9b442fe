// ScratchFile: a file of this process's own.
#ifndef KLEPUR_BENCHMARKS_SCRATCH_FILE_H
#define KLEPUR_BENCHMARKS_SCRATCH_FILE_H

#include <stdlib.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

/// An empty file in the folder for temporary files ($TMPDIR) that is removed at the end.
class ScratchFile {
 public:
  ScratchFile() : path_(std::filesystem::temp_directory_path() / "klepur-benchmark-XXXXXX") {
    const int descriptor = mkstemp(path_.data());
    if (descriptor == -1) std::abort();
    close(descriptor);
  }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  ~ScratchFile() { std::filesystem::remove(path_); }

  const std::string& Path() const { return path_; }
  const char* Name() const { return path_.c_str(); }

 private:
  std::string path_;
};

#endif
