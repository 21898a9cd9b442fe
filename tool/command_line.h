// The words of a command line, understood by the table of commands.
#ifndef KLEPUR_TOOL_COMMAND_LINE_H
#define KLEPUR_TOOL_COMMAND_LINE_H

#include <memory>
#include <string>
#include <vector>

#include <tool/command.h>
#include <tool/invocation.h>

namespace klepur::tool {

/// Understands command lines of one command, any number of them.
class CommandLine {
 public:
  enum class Of {
    kShell,   ///< klepur set FILE BLOCK STATEMENT, with all options.
    kScript,  ///< A line of an edit script: no FILE, and only the options of scripts.
  };

  explicit CommandLine(const Command& command, Of of = Of::kShell);
  ~CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  /// \param words  what stands behind the command's name.
  /// Throws Problem(kUsage), which names the option that may have been meant.
  Invocation Understand(const std::vector<std::string>& words);

 private:
  struct Parser;
  std::unique_ptr<Parser> parser_;
};

}  // namespace klepur::tool

#endif
