// What --help prints.
#ifndef KLEPUR_TOOL_HELP_H
#define KLEPUR_TOOL_HELP_H

#include <string>

#include <tool/command.h>

namespace klepur::tool {

/// "klepur set [OPTIONS] FILE BLOCK STATEMENT..."
std::string Synopsis(const Command& command);

/// The whole tool on a screenful.
std::string GeneralHelp();

/// One command: synopsis, arguments, options, examples.
std::string HelpFor(const Command& command);

}  // namespace klepur::tool

#endif
