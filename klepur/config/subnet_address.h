// Internal: the address part of a subnet record's name.
#ifndef KLEPUR_CONFIG_SUBNET_ADDRESS_H
#define KLEPUR_CONFIG_SUBNET_ADDRESS_H

#include <klepur/config/family_words.h>
#include <klepur/config/param_list.h>
#include <klepur/config/section_record.h>
#include <klepur/config/value_scan.h>

#include <string>

namespace klepur::internal {

/// The name up to the first ","; without one, where the family says so, up to the first ":";
/// without that, up to the first blank; else all of it.
/// Throws as ConfigFile::AddSubnet says.
template <class Vocabulary>
std::string SubnetAddressOf(const SectionRecord<Vocabulary>& section) {
  return AddressPart(ValueOfType(section.params, kNameType),
                     FamilyWords<Vocabulary>::ColonEndsAddress(section.type));
}

}  // namespace klepur::internal

#endif
