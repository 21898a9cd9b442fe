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
void DuplicateHost(const Facts& facts, Report& report);
void DuplicateHardwareAddress(const Facts& facts, Report& report);
void MalformedDefinition(const Facts& facts, Report& report);
void MisplacedStatement(const Facts& facts, Report& report);
void UnknownOption(const Facts& facts, Report& report);
void UnknownOptionSpace(const Facts& facts, Report& report);
void DuplicateIdentifier(const Facts& facts, Report& report);
void DuplicateHostName(const Facts& facts, Report& report);
void DuplicateFixedAddress(const Facts& facts, Report& report);
void DuplicateFixedPrefix(const Facts& facts, Report& report);
void HostWithoutIdentity(const Facts& facts, Report& report);
void FixedAddressOutsideSubnets(const Facts& facts, Report& report);
void FixedAddressInRange(const Facts& facts, Report& report);
void FixedPrefixInPool(const Facts& facts, Report& report);
void NetworkAddressHandedOut(const Facts& facts, Report& report);
void OverlappingSubnets(const Facts& facts, Report& report);
void SubnetWithoutAddresses(const Facts& facts, Report& report);
void RouterOutsideSubnet(const Facts& facts, Report& report);
void RangeOutsideSubnet(const Facts& facts, Report& report);
void ReversedRange(const Facts& facts, Report& report);
void OverlappingRanges(const Facts& facts, Report& report);
void OverlappingRanges6(const Facts& facts, Report& report);
void OverlappingPrefixPools(const Facts& facts, Report& report);
void PrefixPoolWithAddresses(const Facts& facts, Report& report);
void LeaseTimesAtOdds(const Facts& facts, Report& report);
void UndeclaredClass(const Facts& facts, Report& report);
void UndeclaredFailoverPeer(const Facts& facts, Report& report);
void UndeclaredGroup(const Facts& facts, Report& report);
void UndeclaredKey(const Facts& facts, Report& report);
void OptionBeforeDefinition(const Facts& facts, Report& report);
void UnusedClass(const Facts& facts, Report& report);
void UnusedFailoverPeer(const Facts& facts, Report& report);
void UnusedGroup(const Facts& facts, Report& report);
void UnusedKey(const Facts& facts, Report& report);
void UnusedOption(const Facts& facts, Report& report);
void MissingInclude(const Facts& facts, Report& report);

}  // namespace klepur::internal

#endif
