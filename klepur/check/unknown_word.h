// Internal: what the server makes of a word that it does not know.
#ifndef KLEPUR_CHECK_UNKNOWN_WORD_H
#define KLEPUR_CHECK_UNKNOWN_WORD_H

#include <klepur/check/item.h>

namespace klepur::internal {

/// Whether the server refuses a statement or block whose first word is in no table. It takes such a word for
/// an expression when it stands alone or an operator or a parenthesis follows.
bool IsRefusedUnknownWord(const Item& item);

/// Whether it is an "allow", "deny" or "ignore".
bool IsPermission(const Item& item);
/// Whether a byte in it is no ASCII.
bool HasForeignByte(std::string_view word);

}  // namespace klepur::internal

#endif
