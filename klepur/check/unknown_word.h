// Internal: what the server makes of a word that it does not know.
#ifndef KLEPUR_CHECK_UNKNOWN_WORD_H
#define KLEPUR_CHECK_UNKNOWN_WORD_H

#include <klepur/check/item.h>

namespace klepur::internal {

/// Whether the server refuses a statement or block whose first word is in no table. It takes such a word for
/// an expression when it stands alone or an operator or a parenthesis follows.
bool IsRefusedUnknownWord(const Item& item);

}  // namespace klepur::internal

#endif
