// Why a command ends without having done what it was asked for.
#ifndef KLEPUR_TOOL_PROBLEM_H
#define KLEPUR_TOOL_PROBLEM_H

#include <stdexcept>
#include <string>

#include <tool/exit_status.h>

namespace klepur::tool {

/// Ends a command with a message, of one line or several, and an exit status.
class Problem : public std::runtime_error {
 public:
  Problem(ExitStatus status, const std::string& message)
      : std::runtime_error(message), status_(status) {}
  ExitStatus Status() const noexcept { return status_; }

 private:
  ExitStatus status_;
};

}  // namespace klepur::tool

#endif
