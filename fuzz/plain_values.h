// Plain models of the functions that cut values out of lines.
#ifndef KLEPUR_FUZZ_PLAIN_VALUES_H
#define KLEPUR_FUZZ_PLAIN_VALUES_H

#include <cstddef>
#include <list>
#include <string>

namespace klepur::fuzz {

/// Where the first character stands that is one of those wanted, among those that are scanned: the
/// first (length modulo 65536), but none when that is 32768 or more. Without one, where they end.
std::size_t PlainFirst(const std::string& text, const std::string& wanted);

extern const std::string kDigits;
extern const std::string kLetters;

/// Appends the elements of the address list of a line.
bool PlainNameServers(bool isV6, const std::string& line, std::list<std::string>& out);

/// The value behind the first blank (separator " ") or before the first ";" (separator ";").
void PlainValueFromString(const std::string& line, const std::string& separator, std::string& out);

/// A netmask made of an address, or of what a text holds in place of one.
std::string PlainNetmask(const std::string& text);

}  // namespace klepur::fuzz

#endif
