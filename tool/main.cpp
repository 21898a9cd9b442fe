// klepur, the command.
#include <klepur/text/error.h>

#include <fmt/core.h>

#include <csignal>
#include <cstdio>
#include <exception>
#include <new>
#include <string>
#include <vector>

#include <tool/command_line.h>
#include <tool/command_table.h>
#include <tool/exit_status.h>
#include <tool/failure.h>
#include <tool/help.h>
#include <tool/nearest.h>
#include <tool/output.h>
#include <tool/problem.h>

namespace klepur::tool {
namespace {

bool IsHelp(const std::string& word) {
  return word == "--help" || word == "-h";
}

[[noreturn]] void RefuseCommand(const std::string& typed) {
  std::vector<std::string> names = {"--help", "--version"};
  for (const Command& command : Commands()) names.emplace_back(command.name);
  const std::string nearest = Nearest(typed, names);
  throw Problem(ExitStatus::kUsage,
                fmt::format("there is no command {}{}", typed,
                            nearest.empty() ? "; klepur --help lists them"
                                            : fmt::format("; did you mean {}?", nearest)));
}

ExitStatus Run(const std::vector<std::string>& words) {
  if (words.empty()) {
    std::fputs(GeneralHelp().c_str(), stderr);
    return ExitStatus::kUsage;
  }
  if (IsHelp(words[0])) {
    std::fputs(GeneralHelp().c_str(), stdout);
    return ExitStatus::kDone;
  }
  if (words[0] == "--version") {
    std::fputs("klepur " KLEPUR_VERSION "\n", stdout);
    return ExitStatus::kDone;
  }
  const Command* const command = FindCommand(words[0]);
  if (command == nullptr) RefuseCommand(words[0]);
  for (std::size_t i = 1; i < words.size() && words[i] != "--"; ++i) {
    if (!IsHelp(words[i])) continue;
    std::fputs(HelpFor(*command).c_str(), stdout);
    return ExitStatus::kDone;
  }
  return command->run(CommandLine(*command).Understand({words.begin() + 1, words.end()}));
}

ExitStatus RunAndFlush(const std::vector<std::string>& words) {
  const ExitStatus status = Run(words);
  Flush();
  return status;
}

}  // namespace
}  // namespace klepur::tool

int main(int count, char** words) {
  using namespace klepur::tool;
  std::signal(SIGXFSZ, SIG_IGN);  // a file that may not grow so far is told as any other failure
  try {
    return static_cast<int>(RunAndFlush(std::vector<std::string>(words + 1, words + count)));
  } catch (const std::exception& failure) {
    Say(MessageOf(failure));
    return static_cast<int>(StatusOf(failure));
  }
}
