// Dhcpv6LeasesParser: a DHCPv6 server's leases file into a list of leases.
#ifndef KLEPUR_LEASES_LEASES_PARSER_H
#define KLEPUR_LEASES_LEASES_PARSER_H

#include <klepur/export.h>
#include <klepur/framework/block_parser.h>
#include <klepur/leases/lease_store.h>

#include <list>
#include <string>

/// Reads a DHCPv6 leases file. How text becomes a tree: see klepur::BlockParser.
///
/// It neither opens nor closes the system log: what it logs appears under the identity that the
/// process has set by then. Objects on different threads do not disturb each other. Use a new
/// object for each file.
class KLEPUR_EXPORT Dhcpv6LeasesParser : public klepur::BlockParser {
 public:
  Dhcpv6LeasesParser();
  ~Dhcpv6LeasesParser() override;

  /// An identifier as bytes, two lower-case hexadecimal digits each.
  ///
  /// \param text  the identifier without its double quotes: bytes as themselves, a backslash or
  ///              double quote behind a backslash, or a backslash and three octal digits.
  ///              `\001\000\000\000\000\001AB` gives "0100000000014142".
  ///
  /// It ends at a NUL byte. A byte from 0x80 on that stands for itself gives eight digits,
  /// "ffffff80" to "ffffffff". An octal number takes three characters whatever they are, is read as
  /// strtol does and written whole: `\777` gives "1ff", `\12a` "0a", `\9` "00".
  std::string ParseDuid(const std::string& text);

  /// Appends one record for each identity association of the leases file at `path`, in file order.
  ///
  /// An identity association is a block "ia-na", "ia-ta" or "ia-pd" with an identifier at the
  /// outermost level. Its fields come from the blocks straight inside it, "iaaddr" and "iaprefix"
  /// for the address and all of them for the statements; statements in the association itself do
  /// not count.
  ///
  /// Nothing is returned. A missing or unreadable file is logged (BlockParser::ParseFile); what was
  /// read before the failure counts. An exception ends the extraction; the records appended before
  /// stay. The text of one derived from std::exception is logged as information; any other, which
  /// only a derived class can throw, passes to the caller. With "basic_string::substr" the
  /// extraction ends at, in an inner block, a statement of an unknown name, "set foo = bar;", and
  /// one without its argument, "ends;"; and at an association or address block that is named by the
  /// keyword alone. An association whose identifier is empty, `ia-na ""`, is left out.
  ///
  /// Once a file was parsed, the same object finds no associations in the next one, except where
  /// they stand inside another block: see klepur::BlockParser about the root section.
  /// Cost: linear in the file; memory for the records and for the association being read.
  void GetLeases(const char* path, std::list<_Dhcpv6LeaseStore>& leases);
};

#endif
