// Internal: changing what statements and headers say.
#ifndef KLEPUR_DOCUMENT_VALUES_H
#define KLEPUR_DOCUMENT_VALUES_H

#include <string_view>

#include <klepur/document/document_state.h>

namespace klepur::internal {

/// Throws Error(kBadText) unless a text is one statement.
void RequireStatementText(std::string_view text);
void SetValueOf(DocumentState& state, NodeId id, std::string_view value);
/// Gives a statement another text, that of one whole statement that begins with no word of labels.
void SetStatementOf(DocumentState& state, NodeId id, std::string_view text);
void RenameBlock(DocumentState& state, NodeId block, std::string_view name);
void SetHeaderOf(DocumentState& state, NodeId block, std::string_view header);
/// The statement of a key in force in a block: the last one; none when there is none.
NodeId StatementInForce(const DocumentState& state, NodeId block, std::string_view key);
void AppendToListOf(DocumentState& state, NodeId id, std::string_view element);
bool RemoveFromListOf(DocumentState& state, NodeId id, std::string_view element);

}  // namespace klepur::internal

#endif
