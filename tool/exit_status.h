// What the command's exit status says.
#ifndef KLEPUR_TOOL_EXIT_STATUS_H
#define KLEPUR_TOOL_EXIT_STATUS_H

namespace klepur::tool {

enum class ExitStatus {
  kDone = 0,
  kNothing = 1,  ///< Nothing found, findings, or files that differ or would change.
  kUsage = 2,    ///< The command line, a script's line or a given text is not understood.
  kFile = 3,     ///< A file could not be read or written.
  kRefused = 4,  ///< It could have been done, and was not: the file is as it was.
};

}  // namespace klepur::tool

#endif
