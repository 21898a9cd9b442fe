// Tells on a terminal what takes long.
#ifndef KLEPUR_TOOL_PROGRESS_H
#define KLEPUR_TOOL_PROGRESS_H

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace klepur::tool {

/// While it lives: after a second a line on standard error, if that is a terminal, that says what is being
/// done and for how long, and that is gone when it ends.
class Progress {
 public:
  /// \param doing  "reading dhcpd.conf"
  explicit Progress(std::string doing);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

 private:
  void Run(const std::string& doing);

  std::mutex mutex_;
  std::condition_variable ended_;
  bool is_ended_ = false;
  std::thread thread_;
};

}  // namespace klepur::tool

#endif
