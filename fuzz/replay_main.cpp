// Feeds files to a fuzz target: the corpus and the past findings run as ordinary tests.
//
//     config_text_replay FOLDER...   every file of the folders; the first must not be empty
//     config_text_replay FILE...
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/target.h"

namespace {

namespace fs = std::filesystem;

/// The file, or those of the folder but for hidden ones, in the order of their names.
std::vector<std::string> FilesOf(const std::string& path) {
  if (!fs::is_directory(path)) return {path};
  std::vector<std::string> files;
  for (const auto& file : fs::directory_iterator(path)) {
    if (file.path().filename().string().front() != '.') files.push_back(file.path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

bool Replay(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return false;
  const std::string text(std::istreambuf_iterator<char>(file), {});
  std::cout << path << std::endl;
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> paths(argv + 1, argv + argc);
  if (paths.empty() || FilesOf(paths.front()).empty()) {
    std::cerr << "There is nothing to replay.\n";
    return 1;
  }
  std::size_t count = 0;
  for (const std::string& path : paths) {
    for (const std::string& file : FilesOf(path)) {
      if (!Replay(file)) {
        std::cerr << file << " cannot be read.\n";
        return 1;
      }
      ++count;
    }
  }
  std::cout << count << " inputs, no finding\n";
}
