// The flat record in which callers see one block of a configuration file.
#ifndef KLEPUR_CONFIG_SECTION_RECORD_H
#define KLEPUR_CONFIG_SECTION_RECORD_H

#include <klepur/export.h>

#include <list>
#include <string>

namespace klepur {

/// The kinds of blocks. The numbers are fixed: they may be stored and compared as integers. Each
/// vocabulary has an enumeration of its own, with the same numbers.
template <class Vocabulary>
struct SectionTypes {
  enum SectionType : int {
    SECTION_GLOBAL = 0,          ///< the outermost level, and any block that is of no kind below
    SECTION_SHARED_NETWORK = 1,  ///< "shared-network office"
    SECTION_SUBNET = 2,  ///< "subnet 10.0.0.0 netmask 255.0.0.0", or "subnet6 2001:db8::/64"
    SECTION_HOST = 3,    ///< "host pc-17"
    SECTION_IF = 4,      ///< "if option vendor-class-identifier = \"x\""
  };
};

/// One statement of a block, or its name. Each vocabulary has a type of its own.
template <class Vocabulary>
struct SectionParam {
  bool commented = false;  ///< The statement is commented out in the file.
  int type = -1;           ///< Which statement: one of the vocabulary's parameter types.
  std::string value;       ///< Its value as text; each parameter type says in which form.
};

/// One block as a caller sees it: what kind it is, its name, and its statements by type.
///
/// The block's name is the value of the first parameter of type 0 (PARAM_NAME, PARAM6_NAME).
/// `Vocabulary` brings the parameter types of one address family. Records are plain values.
template <class Vocabulary>
struct SectionRecord : SectionTypes<Vocabulary>, Vocabulary {
  using SectionType = typename SectionTypes<Vocabulary>::SectionType;
  using SectionParam = klepur::SectionParam<Vocabulary>;

  /// Which statement a line of a file is.
  ///
  /// The vocabulary's keywords are looked for one after the other, in a fixed order, anywhere in
  /// the line and with regard to letter case; the first one found decides. So a comment or a quoted
  /// text that holds a keyword counts as that statement: "not authoritative;" is "authoritative".
  /// "IPLine" and "Special" count only in a line that holds a ";".
  ///
  /// \param line  a whole line with its ";": "option routers 10.0.0.1;".
  /// \return the parameter type, or -1 for a line that holds no keyword.
  static int GetStringType(const std::string& line);

  std::list<SectionParam> params;  ///< In the order in which they were read or added.
  SectionType type = SectionTypes<Vocabulary>::SECTION_HOST;
};

}  // namespace klepur

#endif
