#include <klepur/language/words.h>

#include <array>
#include <cstdint>
#include <iterator>
#include <utility>

#include <klepur/language/word_index.h>
#include <klepur/language/word_rows.h>

namespace klepur {
namespace {

constexpr std::pair<Scope, std::string_view> kScopeNames[] = {
    {kInFile, "file"},     {kInSharedNetwork, "shared-network"},
    {kInSubnet, "subnet"}, {kInPool, "pool"},
    {kInGroup, "group"},   {kInHost, "host"},
    {kInClass, "class"},   {kInSubclass, "subclass"},
    {kInIf, "if"},         {kInSwitch, "switch"},
    {kInOn, "on"},         {kInFailoverPeer, "failover peer"},
    {kInZone, "zone"},     {kInKey, "key"},
};
constexpr Scopes kEverywhere = kInFile | kInSharedNetwork | kInSubnet | kInPool | kInGroup |
                               kInHost | kInClass | kInSubclass | kInIf | kInSwitch | kInOn;

/// Where a word is taken, in both families.
std::string PlacesOf(const Word& word) {
  if (word.scopes4 == word.scopes6) return ScopesInWords(word.scopes4);
  return "DHCPv4: " + ScopesInWords(word.scopes4) + "; DHCPv6: " + ScopesInWords(word.scopes6);
}

/// A text as a cell of a Markdown table.
std::string Cell(std::string_view text) {
  std::string cell;
  for (const char byte : text) {
    if (byte == '|') cell += '\\';
    cell += byte;
  }
  return cell;
}

}  // namespace

const Word* WordTable::begin() const noexcept {
  return internal::kWordRows;
}

const Word* WordTable::end() const noexcept {
  return internal::kWordRows + internal::kWordCount;
}

const Word* WordTable::Find(std::string_view keyword, Scopes scopes) const noexcept {
  return internal::FindWord(keyword, scopes);
}

WordTable Words() noexcept {
  return {};
}

std::string_view ToText(WordKind kind) noexcept {
  constexpr std::array<std::string_view, 4> kNames = {"statement", "option", "declaration",
                                                      "conditional"};
  return kNames[static_cast<std::size_t>(kind)];
}

std::string_view ToText(ServedBy served_by) noexcept {
  constexpr std::array<std::string_view, 3> kNames = {"DHCPv4 and DHCPv6", "DHCPv4", "DHCPv6"};
  return kNames[static_cast<std::size_t>(served_by)];
}

std::string ScopesInWords(Scopes scopes) {
  if (scopes == kNowhere) return "nowhere";
  if (scopes == kEverywhere) return "everywhere";
  std::string text;
  for (const auto& [scope, name] : kScopeNames) {
    if ((scopes & scope) == 0) continue;
    if (!text.empty()) text += ", ";
    text += name;
  }
  return text;
}

std::string WordsAsMarkdown() {
  std::string text =
      "| word | what | of | value | taken in | meaning |\n"
      "|---|---|---|---|---|---|\n";
  for (const Word& word : Words()) {
    text.append("| `").append(word.name).append("` | ").append(ToText(word.kind)).append(" | ");
    text.append(ToText(word.served_by)).append(" | ").append(Cell(word.value)).append(" | ");
    text.append(PlacesOf(word)).append(" | ").append(Cell(word.explanation)).append(" |\n");
  }
  return text;
}

}  // namespace klepur
