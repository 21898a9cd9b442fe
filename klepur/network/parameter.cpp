#include <klepur/network/parameter.h>

#include <klepur/document/node_text.h>
#include <klepur/document/words_of_text.h>
#include <klepur/network/node_kinds.h>
#include <klepur/text/letters.h>

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace klepur::internal {
namespace {

// Statements that say what their own block is, or that are carried out. In the order of the alphabet.
constexpr std::string_view kOwn[] = {
    "add",
    "append",
    "authenticated",
    "break",
    "default",
    "define",
    "deleted",
    "dynamic",
    "eval",
    "execute",
    "failover",
    "fixed-address",
    "fixed-address6",
    "fixed-prefix6",
    "group",
    "hardware",
    "host-identifier",
    "include",
    "interface",
    "key",
    "lease",
    "log",
    "match",
    "no",
    "on",
    "parse-vendor-option",
    "prefix6",
    "prepend",
    "range",
    "range6",
    "return",
    "send",
    "set",
    "spawn",
    "subclass",
    "supersede",
    "uid",
    "unset",
    "user-class",
    "vendor-class",
};
static_assert(std::is_sorted(std::begin(kOwn), std::end(kOwn)));

constexpr std::string_view kPermissions[] = {"allow", "deny", "ignore"};

bool IsPermission(std::string_view first) {
  return std::find(std::begin(kPermissions), std::end(kPermissions), first) !=
         std::end(kPermissions);
}

/// Whether a statement says of an option which number and type it has: "option NAME code 150 = text".
bool IsDefinition(std::string_view statement) {
  WordsOfText words(statement);
  if (!EqualButForCase(words.Next(), "option")) return false;
  words.Next();
  if (!EqualButForCase(words.Next(), "code")) return false;
  const std::string_view number = words.Next();
  return !number.empty() && std::all_of(number.begin(), number.end(), IsDigit);
}

/// The key without what tells only which value is set.
std::string Merged(std::string key) {
  if (key == "not authoritative") return "authoritative";
  const std::size_t first = std::min(key.find(' '), key.size());
  if (IsPermission(std::string_view(key).substr(0, first))) key.replace(0, first, "allow");
  return key;
}

}  // namespace

Parameter ParameterOf(const DocumentState& state, NodeId statement) {
  const std::string_view text = state.OwnText(statement);
  if (IsDefinition(text)) return {{}, false};
  const std::string key = KeyOf(text);
  const std::string_view first = LeadingWord(key);
  const bool is_permit =
      IsPermission(first) && KindOf(state, state.tree[statement].parent) == BlockRole::kPool;
  const bool is_own = is_permit || key == "option space" ||
                      std::binary_search(std::begin(kOwn), std::end(kOwn), first);
  return {Merged(key), !is_own};
}

std::string ParameterKey(std::string_view keyword) {
  return Merged(NormalKey(keyword));
}

}  // namespace klepur::internal
