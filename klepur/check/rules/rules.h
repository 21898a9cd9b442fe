// Internal: the functions of the rules, each in a file of its own name.
#ifndef KLEPUR_CHECK_RULES_RULES_H
#define KLEPUR_CHECK_RULES_RULES_H

#include <klepur/check/facts.h>
#include <klepur/check/item.h>
#include <klepur/check/report.h>

namespace klepur::internal {

// Shown statements and blocks one by one.
void MisspelledKeyword(const Item& item, const Facts& facts, Report& report);
void MissingBlock(const Item& item, const Facts& facts, Report& report);

// Shown the facts of the whole file.
void DuplicateHardwareAddress(const Facts& facts, Report& report);

}  // namespace klepur::internal

#endif
