// Internal: one edit, done whole or not at all.
#ifndef KLEPUR_DOCUMENT_EDIT_H
#define KLEPUR_DOCUMENT_EDIT_H

#include <klepur/document/document.h>
#include <klepur/document/document_state.h>

namespace klepur::internal {

Document::Mark MarkOf(const DocumentState& state);
void RollBackTo(DocumentState& state, const Document::Mark& mark) noexcept;

/// Takes back what was done since it was made, unless it was kept.
class Edit {
 public:
  explicit Edit(DocumentState& state) : state_(state), mark_(MarkOf(state)) {}
  Edit(const Edit&) = delete;
  Edit& operator=(const Edit&) = delete;
  ~Edit() {
    if (!kept_) RollBackTo(state_, mark_);
  }

  /// Throws Error(kBadPlace) when what stands first begins with the bytes of a byte order mark, and
  /// Error(kMalformed) when the text, malformed as it is, would be read as something else now.
  void Keep();

 private:
  DocumentState& state_;
  Document::Mark mark_;
  bool kept_ = false;
};

/// Whether reading the text gives the tree that the edits made.
bool ReadsAsEdited(const DocumentState& state);
/// Throws Error(kMalformed) unless it does.
void RequireReadsAsEdited(DocumentState& state);

}  // namespace klepur::internal

#endif
