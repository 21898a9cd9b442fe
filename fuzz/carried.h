// Which trees the syntax can carry.
#ifndef KLEPUR_FUZZ_CARRIED_H
#define KLEPUR_FUZZ_CARRIED_H

#include "tests/random/model_tree.h"

namespace klepur::fuzz {

/// Whether what is written for a tree is read back as the same tree. It is when the root section
/// carries the root's name and each text below it, alone on its line, means what it is:
///
/// - A live line ends at its first ";" outside quotes, which is its last character; or it has a "{"
///   first, within its first 65536 characters, and a ";" anywhere: a one-line block. Without either
///   it runs into the next line. A "#" or "}" first makes it a comment or an end of a block.
/// - A header holds no ";", which would make a one-line block, in quotes too, and no "#", "{" or
///   "}" outside them. It is not that of the root section, which is written without a header.
/// - No text begins with blanks, which are dropped: those of a comment are space, tab and "\v",
///   those of other texts "\f" and "\r" as well. None ends in a space, tab or "\v", or in "\r",
///   which makes one line end with the "\n" behind it.
/// - No text holds a "\n".
///
/// A file that was read can hold such texts all the same: the rest of the line behind a "{" becomes
/// part of the header, "host a { }"; lines are joined, and two quotes that nothing closed on their
/// lines then make a quoted string; a text may end in a "\r" that stood before a blank.
bool IsCarried(const test::ModelNode& root);

}  // namespace klepur::fuzz

#endif
