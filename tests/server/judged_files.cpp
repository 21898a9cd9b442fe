#include "tests/server/judged_files.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <sstream>

#include "tests/support/files.h"

namespace klepur::test {
namespace {

namespace fs = std::filesystem;

const std::string kFolder = std::string(KLEPUR_TEST_DATA) + "/server";
const std::string kJudge = KLEPUR_JUDGE;

JudgedFile FileNamed(const std::string& name) {
  return {name, kFolder + "/" + name, name.find('6') < name.find('/')};
}

std::string OutputOf(const std::string& command) {
  std::string output;
  std::FILE* const pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return output;
  std::array<char, 4096> bytes;
  while (const std::size_t size = std::fread(bytes.data(), 1, bytes.size(), pipe)) {
    output.append(bytes.data(), size);
  }
  pclose(pipe);
  return output;
}

/// What the server said about the files of a command's output, in their order.
std::vector<std::string> AnswersIn(const std::string& output) {
  std::vector<std::string> answers;
  std::istringstream lines(output);
  for (std::string line; std::getline(lines, line);) {
    if (line.substr(0, 4) == "    ") {
      if (!answers.back().empty()) answers.back() += line.substr(4) + "\n";
      continue;
    }
    const std::string verdict = line.substr(line.find(": ") + 2);
    answers.push_back(verdict == "accepted" ? std::string() : verdict + "\n");
  }
  return answers;
}

std::size_t MistakeIn(const std::string& text) {
  static constexpr std::string_view kMark = "# mistake in line ";
  return std::stoul(text.substr(text.find(kMark) + kMark.size()));
}

}  // namespace

std::vector<JudgedFile> AcceptedFiles() {
  std::vector<JudgedFile> files;
  for (const std::string folder : {"v4", "v6"}) {
    for (const fs::directory_entry& entry : fs::directory_iterator(kFolder + "/" + folder)) {
      if (entry.path().extension() != ".conf") continue;
      files.push_back(FileNamed(folder + "/" + entry.path().filename().string()));
    }
  }
  std::sort(files.begin(), files.end(),
            [](const JudgedFile& left, const JudgedFile& right) { return left.name < right.name; });
  return files;
}

std::vector<RefusedFile> RefusedFiles() {
  std::vector<RefusedFile> files;
  std::istringstream lines(ReadFile(kFolder + "/refusals.txt"));
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string name;
    std::string named;
    words >> name >> named;
    const JudgedFile file = FileNamed(name);
    files.push_back(
        {file, named == "-" ? kNoLine : std::stoul(named), MistakeIn(ReadFile(file.path))});
  }
  return files;
}

bool ServerIsHere() {
  return access((fs::path(kJudge).parent_path() / "../build/server/usr/sbin/dhcpd").c_str(),
                X_OK) == 0;
}

std::vector<std::string> AskServer(const std::vector<Question>& questions) {
  const ScratchFolder scratch;
  for (const std::string family : {"v4", "v6"}) {
    fs::create_directories(scratch.Path(family));
    fs::copy(kFolder + "/" + family + "/parts", scratch.Path(family + "/parts"));
  }
  std::vector<std::string> answers;
  for (std::size_t i = 0; i < questions.size();) {
    // Many files of one family in one command, which is shorter than the system's longest.
    const bool is_v6 = questions[i].is_v6;
    std::string command = "'" + kJudge + (is_v6 ? "' -6" : "' -4");
    const std::size_t first = i;
    for (; i < questions.size() && i < first + 500 && questions[i].is_v6 == is_v6; ++i) {
      const std::string name = (is_v6 ? "v6/" : "v4/") + std::to_string(i) + ".conf";
      command += " '" + scratch.Write(name, questions[i].text) + "'";
    }
    for (std::string& answer : AnswersIn(OutputOf(command))) answers.push_back(std::move(answer));
    EXPECT_EQ(answers.size(), i) << "the server did not answer all questions";
    answers.resize(i, "no answer\n");
  }
  return answers;
}

}  // namespace klepur::test
