// Whether edits brought in errors, without a check of the whole file.
#ifndef KLEPUR_CHECK_EDIT_CHECK_H
#define KLEPUR_CHECK_EDIT_CHECK_H

#include <klepur/document/document.h>
#include <klepur/export.h>

namespace klepur {

/// Whether it is sure that Check finds no error in the document that it did not find at the mark: no finding
/// of severity error whose rule and message say more often now what they said then.
///
///     const klepur::Document::Mark read = document.GetMark();
///     document.Find("host pc-17").Set("fixed-address", "10.20.0.18");
///     if (!klepur::EditsBringNoError(document, read)) ...   // only Check tells
///
/// False says nothing. It is sure of edits of hosts, and of statements that concern no other place of the
/// file, when what they touched has no error: none that declare or use a name (a class, a key, an option of
/// the file's own), none of ranges and of other blocks, none below a comment that silences rules; and of none in a
/// file that has errors of structure.
///
/// Cost: in proportion to the edits; where hosts are new or have new names, also one pass over the blocks.
KLEPUR_EXPORT bool EditsBringNoError(const Document& document, const Document::Mark& mark);

}  // namespace klepur

#endif
