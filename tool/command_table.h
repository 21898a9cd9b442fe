// The commands of the tool: one table that the command line, help, manual and completion come from.
#ifndef KLEPUR_TOOL_COMMAND_TABLE_H
#define KLEPUR_TOOL_COMMAND_TABLE_H

#include <string_view>
#include <vector>

#include <tool/command.h>

namespace klepur::tool {

/// In the order in which people meet them.
const std::vector<Command>& Commands();

/// The command of a name, or null.
const Command* FindCommand(std::string_view name);

/// What all commands are good for, in paragraphs.
std::string_view Purpose();

/// How a BLOCK argument is written, as lines of form and meaning.
const std::vector<Example>& BlockForms();

/// What the exit statuses say, "0" and its meaning.
const std::vector<Example>& ExitStatuses();

}  // namespace klepur::tool

#endif
