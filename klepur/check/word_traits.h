// Internal: what the words of the language are to the gathering of facts.
#ifndef KLEPUR_CHECK_WORD_TRAITS_H
#define KLEPUR_CHECK_WORD_TRAITS_H

#include <cstdint>

#include <klepur/language/words.h>

namespace klepur::internal {

/// What a word's statements are gathered as.
enum class Role : std::uint8_t {
  kNone,
  kFixedAddress,
  kFixedPrefix,
  kHardware,
  kHostName,
  kIdentifier,
  kInclude,
  kOptionChange,  ///< "append NAME value" and the like.
  kPrefixRange,
  kRange,
};

// Up to this one they say something of the host that they stand in.
constexpr Role kLastOfHosts = Role::kIdentifier;

/// What a word's statements and headers refer to, or set for others.
enum class Reference : std::uint8_t {
  kNone,
  kClassUse,
  kDefaultLeaseTime,
  kGroup,
  kKeyUse,
  kMaxLeaseTime,
  kMinLeaseTime,
  kPeerUse,
  kRange,
  kRouters,
};

/// What is asked of every statement and block, worked out once for each word.
struct WordTraits {
  Role role = Role::kNone;
  Reference reference = Reference::kNone;
  Scope inside =
      kNowhere;  ///< What the children of its block stand in; kNowhere where anything may.
  bool is_option = false;
  bool has_expression = false;
  bool tells4 = false;  ///< Whether a file with it is one of DHCPv4, or of DHCPv6.
  bool tells6 = false;
};

/// Those of a word of the table; of no word when it is null.
const WordTraits& TraitsOf(const Word* word);

}  // namespace klepur::internal

#endif
