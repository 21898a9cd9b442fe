// The words of the configuration language: statements, options, declarations.
#ifndef KLEPUR_LANGUAGE_WORDS_H
#define KLEPUR_LANGUAGE_WORDS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <klepur/export.h>

namespace klepur {

/// What a word begins.
enum class WordKind : std::uint8_t {
  kStatement,    ///< Sets or does something: "max-lease-time".
  kOption,       ///< Sets an option that the client is told: "option routers".
  kDeclaration,  ///< Says what there is: "host", "range", "option space".
  kConditional,  ///< Chooses: "if", "switch", "on".
};

/// Which server makes use of a word. It may be taken by the other one as well.
enum class ServedBy : std::uint8_t { kBoth, kDhcp4, kDhcp6 };

/// A set of places, one bit each.
using Scopes = std::uint16_t;

/// Where something stands: right in the file, or right in a block of a kind.
enum Scope : Scopes {
  kNowhere = 0,
  kInFile = 1U << 0U,
  kInSharedNetwork = 1U << 1U,
  kInSubnet = 1U << 2U,  ///< subnet, subnet6
  kInPool = 1U << 3U,    ///< pool, pool6
  kInGroup = 1U << 4U,
  kInHost = 1U << 5U,
  kInClass = 1U << 6U,
  kInSubclass = 1U << 7U,  ///< subclass, and vendor-class and user-class
  kInIf = 1U << 8U,        ///< if, elsif, else
  kInSwitch = 1U << 9U,
  kInOn = 1U << 10U,
  kInFailoverPeer = 1U << 11U,
  kInZone = 1U << 12U,
  kInKey = 1U << 13U,
};

/// One word, with what follows it where that tells it from others.
struct Word {
  /// "max-lease-time", "option routers", "allow unknown-clients".
  std::string_view name;
  WordKind kind;
  ServedBy served_by;
  /// Where the server takes it as one of DHCPv4, and as one of DHCPv6. "deny" and "ignore" are
  /// taken where "allow" is.
  Scopes scopes4;
  Scopes scopes6;
  /// The form of what stands behind it, empty for nothing: "seconds", "address-or-name list", "on|off"
  /// for a choice. What these mean stands in the manual (docs/words.md).
  std::string_view value;
  /// What it is for, a line of English.
  std::string_view explanation;
};

/// All words, in the order of the manual. They live as long as the program.
class KLEPUR_EXPORT WordTable {
 public:
  const Word* begin() const noexcept;
  const Word* end() const noexcept;
  std::size_t size() const noexcept { return static_cast<std::size_t>(end() - begin()); }

  /// The word of a keyword as Node::Keyword gives it, in any letter case; null when there is none. Some
  /// words mean different things in different blocks, as "key" does at file level and in a zone: then
  /// the one of these places, else the first one.
  ///
  ///     Words().Find("max-lease-time")->value;                     // "seconds"
  ///     Words().Find("deny unknown-clients")->name;                // "allow unknown-clients"
  ///     Words().Find("key", kInZone)->value;                       // "name of a key block above"
  ///     Words().Find("max-lease-tiem");                            // null
  const Word* Find(std::string_view keyword, Scopes scopes = kNowhere) const noexcept;
};

KLEPUR_EXPORT WordTable Words() noexcept;

/// In small letters: "statement", "shared-network".
KLEPUR_EXPORT std::string_view ToText(WordKind kind) noexcept;
/// "DHCPv4 and DHCPv6", "DHCPv4".
KLEPUR_EXPORT std::string_view ToText(ServedBy served_by) noexcept;
/// A set of places in words: "file, group, host"; "everywhere"; "nowhere".
KLEPUR_EXPORT std::string ScopesInWords(Scopes scopes);
/// All words as a table in Markdown, a line each.
KLEPUR_EXPORT std::string WordsAsMarkdown();

}  // namespace klepur

#endif
