// Internal: blocks on one line that must be opened over several, and close again.
#ifndef KLEPUR_DOCUMENT_ONE_LINE_BLOCK_H
#define KLEPUR_DOCUMENT_ONE_LINE_BLOCK_H

#include <klepur/document/document_state.h>

namespace klepur::internal {

/// Puts the nodes of a block on lines of their own, and first those of the blocks around it that stand on the
/// same line. Braces stay where they are.
void OpenOneLineBlock(DocumentState& state, NodeId block);
/// Whether a block stands over several lines because it was opened.
bool IsOpened(const DocumentState& state, NodeId block);
/// Puts a block that was opened back on its line, if it holds no nodes but those that it had then; and the
/// blocks around it as well.
void CloseOpenedBlocks(DocumentState& state, NodeId block);

}  // namespace klepur::internal

#endif
