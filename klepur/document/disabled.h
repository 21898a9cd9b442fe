// Internal: statements and blocks that were commented out.
#ifndef KLEPUR_DOCUMENT_DISABLED_H
#define KLEPUR_DOCUMENT_DISABLED_H

#include <optional>
#include <string>
#include <vector>

#include <klepur/document/document_state.h>

namespace klepur::internal {

/// One whole statement or block that stands in lines of comment of their own.
struct Disabled {
  NodeId first;
  NodeId last;
  /// The lines without their comment marks, each but the last with its line end, and each but the
  /// first with the blanks before its mark.
  std::string text;
};

/// What is disabled from this comment on, if it is the first of a disabled statement or block. Only what
/// begins with a word that the server knows counts, and has the form that the word asks for: a host has a
/// block, a range has none.
std::optional<Disabled> DisabledAt(const DocumentState& state, NodeId comment);
/// Whether a comment in a line of its own is part of a disabled statement or block.
bool IsPartOfDisabled(const DocumentState& state, NodeId comment);
/// For the end of an edit that brings back what is disabled: the rest of its run is what it was before.
void KeepKnownRuns(const DocumentState& state);
/// The disabled ones in the run of comments that a comment in a line of its own belongs to.
std::vector<Disabled> DisabledInRun(const DocumentState& state, NodeId comment);

/// The first comment of the run that a comment in a line of its own stands in: comments in lines right below
/// each other, not more than a blank deeper or less deep than each other.
NodeId StartOfRun(const DocumentState& state, NodeId comment);
bool AreInOneRun(const DocumentState& state, NodeId above, NodeId below);

}  // namespace klepur::internal

#endif
