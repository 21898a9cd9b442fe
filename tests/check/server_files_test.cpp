// What the server takes has no error, and what it refuses has one.
#include <klepur/check/checker.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "tests/check/checking.h"

namespace klepur::test {
namespace {

/// The files of a folder below tests/data/server, in the order of their names.
std::set<std::string> Files(const std::string& folder) {
  std::set<std::string> files;
  for (const auto& entry :
       std::filesystem::directory_iterator(KLEPUR_TEST_DATA "/server/" + folder)) {
    if (entry.path().extension() == ".conf") files.insert(entry.path().string());
  }
  return files;
}

CheckOptions Of(Family family) {
  CheckOptions options;
  options.family = family;
  return options;
}

/// The findings that are errors.
std::string Errors(const std::string& path, const CheckOptions& options) {
  std::string errors;
  for (const CheckFinding& finding : Check(Document::Read(path), options)) {
    if (finding.severity == Severity::kError) errors += ToText(finding) + "\n";
  }
  return errors;
}

TEST(ServerFiles, WhatIsTakenHasNoError) {
  for (const auto& [folder, family] : {std::pair{"v4", Family::kDhcp4}, {"v6", Family::kDhcp6}}) {
    const std::set<std::string> files = Files(folder);
    EXPECT_GT(files.size(), 40U);
    for (const std::string& path : files) {
      EXPECT_EQ(Errors(path, Of(family)), "");
      EXPECT_EQ(Errors(path, {}), "");
    }
  }
}

TEST(ServerFiles, WhatIsRefusedHasAnError) {
  for (const auto& [folder, family] :
       {std::pair{"refused4", Family::kDhcp4}, {"refused6", Family::kDhcp6}}) {
    const std::set<std::string> files = Files(folder);
    EXPECT_GT(files.size(), 15U);
    for (const std::string& path : files) EXPECT_NE(Errors(path, Of(family)), "") << path;
  }
}

}  // namespace
}  // namespace klepur::test
