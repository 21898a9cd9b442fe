// FileText: the bytes of a file in memory.
#ifndef KLEPUR_BENCHMARKS_FILE_TEXT_H
#define KLEPUR_BENCHMARKS_FILE_TEXT_H

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

#include "benchmarks/check.h"

class FileText {
 public:
  /// Reads the file with one call into memory that nothing was written to before.
  explicit FileText(const std::string& path)
      : size_(std::filesystem::file_size(path)), bytes_(new char[size_]) {
    std::ifstream file(path, std::ios::binary);
    Check(!!file.read(bytes_.get(), static_cast<std::streamsize>(size_)), "the file is read");
  }

  std::string_view View() const { return {bytes_.get(), size_}; }

 private:
  std::size_t size_;
  std::unique_ptr<char[]> bytes_;
};

#endif
