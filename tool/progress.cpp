#include <tool/progress.h>

#include <fmt/core.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <utility>

namespace klepur::tool {
namespace {

constexpr std::string_view kEraseLine = "\r\x1b[K";

void Write(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
  std::fflush(stderr);
}

}  // namespace

Progress::Progress(std::string doing) {
  if (isatty(STDERR_FILENO) != 1) return;
  thread_ = std::thread([this, text = std::move(doing)] { Run(text); });
}

Progress::~Progress() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    is_ended_ = true;
  }
  ended_.notify_one();
  thread_.join();
}

void Progress::Run(const std::string& doing) {
  std::unique_lock<std::mutex> lock(mutex_);
  int seconds = 0;
  while (!ended_.wait_for(lock, std::chrono::seconds(1), [this] { return is_ended_; })) {
    Write(fmt::format("{}{}, {} s", kEraseLine, doing, ++seconds));
  }
  if (seconds > 0) Write(kEraseLine);
}

}  // namespace klepur::tool
