// Internal: the types that values are made of, and the rules that hold for them.
#ifndef KLEPUR_CHECK_VALUE_TYPES_H
#define KLEPUR_CHECK_VALUE_TYPES_H

#include <klepur/check/facts.h>
#include <klepur/check/item.h>
#include <klepur/check/report.h>

namespace klepur::internal {

/// Compares the value of a statement or header with the form that the table of words gives it. An option of the
/// table that the file defines anew is noted among the definitions, and what it is set to is not looked at.
void CheckValue(const Item& item, Facts& facts, Report& report);

}  // namespace klepur::internal

#endif
