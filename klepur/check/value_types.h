// Internal: the types that values are made of, and the rules that hold for them.
#ifndef KLEPUR_CHECK_VALUE_TYPES_H
#define KLEPUR_CHECK_VALUE_TYPES_H

#include <klepur/check/item.h>
#include <klepur/check/report.h>

namespace klepur::internal {

/// Compares the value of a statement whose keyword is known with the form that the table of words gives it.
void CheckValue(const Item& item, Report& report);

}  // namespace klepur::internal

#endif
