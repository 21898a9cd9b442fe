// Keeps mistakes out of a file that is edited.
#ifndef KLEPUR_TOOL_GUARD_H
#define KLEPUR_TOOL_GUARD_H

#include <tool/saving.h>

namespace klepur::tool {

/// Throws Problem(kRefused) with the findings of severity error that the edited text has and the text before
/// had not. Findings are compared by what they say, not by their lines.
void RefuseNewErrors(EditedFile& file);

}  // namespace klepur::tool

#endif
