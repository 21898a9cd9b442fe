// What the rows of the table of commands run.
#ifndef KLEPUR_TOOL_COMMANDS_H
#define KLEPUR_TOOL_COMMANDS_H

#include <tool/exit_status.h>
#include <tool/invocation.h>

namespace klepur::tool {

// Each prints what it found and gives the exit status, or throws Problem, or what the library throws.
ExitStatus RunList(const Invocation& invocation);
ExitStatus RunShow(const Invocation& invocation);
ExitStatus RunFind(const Invocation& invocation);
ExitStatus RunEdit(const Invocation& invocation);    // add, set, unset, ..., remove
ExitStatus RunScript(const Invocation& invocation);  // edit
ExitStatus RunCheck(const Invocation& invocation);
ExitStatus RunFormat(const Invocation& invocation);
ExitStatus RunDiff(const Invocation& invocation);
ExitStatus RunLeases(const Invocation& invocation);
ExitStatus RunWords(const Invocation& invocation);
ExitStatus RunCompletion(const Invocation& invocation);
ExitStatus RunManual(const Invocation& invocation);
ExitStatus RunHelp(const Invocation& invocation);

}  // namespace klepur::tool

#endif
