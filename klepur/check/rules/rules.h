// Internal: the functions of the rules, each in a file of its own name.
#ifndef KLEPUR_CHECK_RULES_RULES_H
#define KLEPUR_CHECK_RULES_RULES_H

#include <klepur/check/facts.h>
#include <klepur/check/item.h>
#include <klepur/check/report.h>
#include <klepur/check/value_reader.h>

namespace klepur::internal {

// Shown statements and blocks one by one.
void ForeignCharacter(const Item& item, const Facts& facts, Report& report);
void HostBits(const Item& item, const Facts& facts, Report& report);
void LabelWithoutColon(const Item& item, const Facts& facts, Report& report);
void LoneWord(const Item& item, const Facts& facts, Report& report);
void MalformedName(const Item& item, const Facts& facts, Report& report);
void MalformedSubnet(const Item& item, const Facts& facts, Report& report);
void MissingBlock(const Item& item, const Facts& facts, Report& report);
void MisspelledKeyword(const Item& item, const Facts& facts, Report& report);
void NetmaskWithHoles(const Item& item, const Facts& facts, Report& report);
void SurplusBlock(const Item& item, const Facts& facts, Report& report);
void UnknownPermission(const Item& item, const Facts& facts, Report& report);
void UnknownStatement(const Item& item, const Facts& facts, Report& report);

// Shown the facts of the whole file.
void DuplicateHardwareAddress(const Facts& facts, Report& report);
void MalformedDefinition(const Facts& facts, Report& report);
void MisplacedStatement(const Facts& facts, Report& report);
void UnknownOption(const Facts& facts, Report& report);
void UnknownOptionSpace(const Facts& facts, Report& report);

}  // namespace klepur::internal

#endif
