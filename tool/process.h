// Running another program.
#ifndef KLEPUR_TOOL_PROCESS_H
#define KLEPUR_TOOL_PROCESS_H

#include <string>
#include <vector>

namespace klepur::tool {

struct Ended {
  int status;          ///< As a shell has it: the exit status, or 128 and the number of the signal.
  std::string output;  ///< What it printed, on both of its outputs.
};

/// Runs a program without a shell, its standard input empty, and waits for it.
///
/// \param command  the program, looked for in PATH when it has no "/", and its arguments.
/// Throws Problem(kFile) when it cannot be started.
Ended RunProgram(const std::vector<std::string>& command);

}  // namespace klepur::tool

#endif
