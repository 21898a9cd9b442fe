#include <tool/process.h>

#include <fcntl.h>
#include <fmt/core.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include <tool/problem.h>

namespace klepur::tool {
namespace {

[[noreturn]] void ThrowCannot(const std::string& program, int reason) {
  throw Problem(ExitStatus::kFile,
                fmt::format("{} cannot be run: {}", program, std::strerror(reason)));
}

std::string ReadToEnd(int descriptor) {
  std::string text;
  char piece[4096];
  for (;;) {
    const ssize_t size = read(descriptor, piece, sizeof piece);
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) return text;
    text.append(piece, static_cast<std::size_t>(size));
  }
}

}  // namespace

Ended RunProgram(const std::vector<std::string>& command) {
  int ends[2] = {-1, -1};
  if (pipe2(ends, O_CLOEXEC) != 0) ThrowCannot(command.front(), errno);
  std::vector<char*> words;
  words.reserve(command.size() + 1);
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
  pid_t child = -1;
  const int failed = posix_spawnp(&child, words[0], &actions, nullptr, words.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  std::string output = failed == 0 ? ReadToEnd(ends[0]) : std::string();
  close(ends[0]);
  if (failed != 0) ThrowCannot(command.front(), failed);
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return {WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status), std::move(output)};
}

}  // namespace klepur::tool
