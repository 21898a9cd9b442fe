#include <klepur/storage/verifier.h>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <memory>
#include <optional>
#include <utility>

#include <klepur/storage/failure.h>
#include <klepur/storage/save_report.h>
#include <klepur/text/descriptor.h>
#include <klepur/text/uninterrupted.h>

namespace klepur::internal {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::size_t kMostOutput = std::size_t{1} << 20;
constexpr std::chrono::hours kForever{24 * 365};
constexpr int kNoFile = -1;
constexpr int kFileOfChild = 3;
constexpr int kLongestPause = 20;  // milliseconds

/// Both ends of a pipe; the one for the child out of the way of what it gets open.
struct Pipe {
  explicit Pipe(const std::string& path) {
    std::array<int, 2> ends = {};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw Failure(path, "make a pipe for the verifier");
    read = Descriptor(ends[0]);
    write = Above(kFileOfChild, Descriptor(ends[1]));
    if (!write.IsOpen() || ::fcntl(ends[0], F_SETFL, O_NONBLOCK) != 0) {
      throw Failure(path, "make a pipe for the verifier");
    }
  }

  Descriptor read;
  Descriptor write;
};

/// How a child is started: with the pipe's end as both outputs, an empty input and perhaps an open file, in a
/// group of its own, no signal blocked or ignored that a program counts on.
class Start {
 public:
  Start(int output, int file) {
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawnattr_init(&attributes_);
    sigset_t none = {};
    sigset_t standard = {};
    ::sigemptyset(&none);
    ::sigemptyset(&standard);
    ::sigaddset(&standard, SIGPIPE);
    ::sigaddset(&standard, SIGCHLD);
    ::posix_spawnattr_setsigmask(&attributes_, &none);
    ::posix_spawnattr_setsigdefault(&attributes_, &standard);
    ::posix_spawnattr_setpgroup(&attributes_, 0);
    ::posix_spawnattr_setflags(
        &attributes_, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    complete_ =
        ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0) ==
            0 &&
        ::posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO) == 0 &&
        ::posix_spawn_file_actions_adddup2(&actions_, output, STDERR_FILENO) == 0 &&
        (file == kNoFile || ::posix_spawn_file_actions_adddup2(&actions_, file, kFileOfChild) == 0);
  }
  Start(const Start&) = delete;
  Start& operator=(const Start&) = delete;
  ~Start() {
    ::posix_spawn_file_actions_destroy(&actions_);
    ::posix_spawnattr_destroy(&attributes_);
  }

  /// 0 and the process, or the reason why there is none.
  int Run(char* const* arguments, pid_t* process) const {
    if (!complete_) return ENOMEM;
    return ::posix_spawnp(process, arguments[0], &actions_, &attributes_, arguments, environ);
  }

 private:
  posix_spawn_file_actions_t actions_;
  posix_spawnattr_t attributes_;
  bool complete_ = false;
};

/// A child that does not outlive this.
class Child {
 public:
  Child(std::vector<std::string> words, int output, int file, const std::string& path)
      : path_(path) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const int reason = Start(output, file).Run(arguments.data(), &process_);
    if (reason == 0) return;
    throw Failure(ErrorCode::kFile, path, "run the verifier " + words.front(), reason);
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child() {
    if (status_) return;
    Kill();
    int ignored = 0;
    Uninterrupted([&] { return ::waitpid(process_, &ignored, 0); });
  }

  /// How it ended, once it has.
  std::optional<int> Status() {
    if (status_) return status_;
    int status = 0;
    const pid_t ended = Uninterrupted([&] { return ::waitpid(process_, &status, WNOHANG); });
    if (ended == process_) status_ = status;
    if (ended < 0) {
      status_ = 0;  // it is not there to be waited for any more
      throw Failure(path_, "learn how the verifier ended");
    }
    return status_;
  }

 private:
  void Kill() const { ::kill(-process_, SIGKILL); }

  std::string path_;
  pid_t process_ = 0;
  std::optional<int> status_;
};

/// Takes what there is in a pipe, but not without end; false at the pipe's end.
bool TakeFrom(int pipe, std::string& output) {
  std::array<char, 4096> bytes;
  for (int times = 0; times != 64; ++times) {
    const ssize_t count = Uninterrupted([&] { return ::read(pipe, bytes.data(), bytes.size()); });
    if (count < 0) return errno == EAGAIN;
    if (count == 0) return false;
    output.append(bytes.data(),
                  std::min(static_cast<std::size_t>(count), kMostOutput - output.size()));
  }
  return true;
}

/// Collects the output of a child until it ends; false when that takes too long.
bool Await(Child& child, const Descriptor& pipe, milliseconds limit, std::string& output) {
  const Clock::time_point end = Clock::now() + std::min<milliseconds>(limit, kForever);
  bool open = true;
  for (int pause = 1;; pause = std::min(2 * pause, kLongestPause)) {
    const bool ended = child.Status().has_value();
    if (open) open = TakeFrom(pipe.Get(), output);
    if (ended) return true;
    if (Clock::now() >= end) return false;
    pollfd waited = {pipe.Get(), POLLIN, 0};
    ::poll(&waited, open ? 1 : 0, pause);
  }
}

std::string EndOf(int status) {
  if (WIFSIGNALED(status)) return std::string("it was ended by ") + ::strsignal(WTERMSIG(status));
  return "it ended with " + std::to_string(WEXITSTATUS(status));
}

/// \param name  what the program is told the file's path is. \param file  what it gets open, or kNoFile.
std::string Run(const std::vector<std::string>& command, milliseconds limit,
                const std::string& name, int file, const std::string& path) {
  Pipe pipe(path);
  std::vector<std::string> words = command;
  words.push_back(name);
  auto output = std::make_shared<std::string>();
  Child child(std::move(words), pipe.write.Get(), file, path);
  pipe.write = Descriptor();
  const bool in_time = Await(child, pipe.read, limit, *output);
  if (in_time && *child.Status() == 0) return std::move(*output);
  throw RejectedText(path + ": the verifier " + command.front() + " did not accept the new text: " +
                         (in_time ? EndOf(*child.Status()) : "it took too long"),
                     std::move(output));
}

}  // namespace

std::string Verify(const std::vector<std::string>& command, milliseconds limit,
                   const std::string& file, const std::string& path) {
  return Run(command, limit, file, kNoFile, path);
}

std::string VerifyOpen(const std::vector<std::string>& command, milliseconds limit, int file,
                       const std::string& path) {
  return Run(command, limit, "/proc/self/fd/" + std::to_string(kFileOfChild), file, path);
}

}  // namespace klepur::internal
