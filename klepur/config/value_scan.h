// Internal: the character scans that cut values out of statement lines. A blank is a space to them.
#ifndef KLEPUR_CONFIG_VALUE_SCAN_H
#define KLEPUR_CONFIG_VALUE_SCAN_H

#include <list>
#include <string>
#include <string_view>

namespace klepur::internal {

/// Pointers to the first digit, ASCII letter or given character of `s`. Without one, the end of
/// what was scanned: the text's first (length modulo 65536) characters, but none when bit 15 of the
/// length is set. Null gives null.
const char* FirstDigit(const char* s);
const char* FirstLetter(const char* s);
const char* FirstOf(const char* s, char wanted);

/// Appends the elements of the list that begins at `start` to `out`; see
/// ConfigFile::GetNameServers.
bool SplitList(const char* start, std::list<std::string>& out);

/// "a, b, c" from the elements a, b, c and the separator ", ".
std::string Join(const std::list<std::string>& elements, std::string_view separator);

/// What stands behind the first blank; false when there is none.
bool TextBehindFirstBlank(std::string_view line, std::string& out);

/// What stands between the last blank and the first ";", or behind the last blank when the ";"
/// stands before it; false when there is no blank or no ";".
bool LastWordOfStatement(std::string_view line, std::string& out);

/// The network address in a subnet's header: what stands between the first blank (the beginning,
/// when there is none) and " netmask " (the end, when it is absent or begins at that very blank).
std::string SubnetAddress(std::string_view header);

/// The address in a subnet's bare name; see ConfigFile::AddSubnet for the rule and for what is
/// thrown.
std::string AddressPart(const std::string& name, bool colonEndsAddress);

/// The text without its first and its last character; empty when it has no more than one.
std::string WithoutEnds(const std::string& text);

}  // namespace klepur::internal

#endif
