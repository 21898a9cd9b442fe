// A folder whose files are saved.
#ifndef KLEPUR_TESTS_STORAGE_FOLDER_H
#define KLEPUR_TESTS_STORAGE_FOLDER_H

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/files.h"

namespace klepur::test {

/// What a file holds, and what is saved in its place.
inline constexpr std::string_view kOld = "max-lease-time 7200;\n";
inline constexpr std::string_view kNew = "max-lease-time 3600;\n";

/// The names of all files in a scratch folder, sorted, with a blank between them.
inline std::string NamesIn(const ScratchFolder& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path(""))) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : " ") + name;
  return list;
}

}  // namespace klepur::test

#endif
