#include <klepur/check/unknown_word.h>

#include <klepur/document/words_of_text.h>
#include <klepur/language/word_index.h>
#include <klepur/text/letters.h>

#include <algorithm>

namespace klepur::internal {
namespace {

// "no" begins the undocumented "no failover peer" of pools, which takes no ";".
constexpr std::string_view kNo = "no";

// Words that begin an expression, and stand for none by themselves.
constexpr std::string_view kOfExpressions[] = {"known", "static", "exists"};

bool IsExpressionWord(std::string_view word) {
  return std::any_of(std::begin(kOfExpressions), std::end(kOfExpressions),
                     [&](std::string_view other) { return EqualButForCase(other, word); });
}

bool IsOperator(std::string_view word) {
  return !IsWordByte(word.front()) && word.front() != '"' && word.front() != '.';
}

}  // namespace

bool IsRefusedUnknownWord(const Item& item) {
  if (item.unfinished || item.first.empty() || IsPermission(item)) return false;
  if (!IsLetter(item.first.front())) return true;
  if (EqualButForCase(item.first, kNo) &&
      (item.around.scope == kInPool || item.around.scope == kNowhere)) {
    return false;
  }
  if (item.kind == NodeKind::kBlock) return true;
  if (item.first.find_first_of(".:/") != std::string_view::npos) return true;
  const std::string_view next = FirstWord(item.value);
  // One letter is taken for the digit of a number.
  if (next.empty()) return item.first.size() == 1 || IsExpressionWord(item.first);
  return !IsOperator(next) && !EqualButForCase(next, "and") && !EqualButForCase(next, "or");
}

bool IsPermission(const Item& item) {
  const KnownFirstWord known = FindFirstWord(item.first);
  return known.goes_on && known.alone == nullptr &&
         (EqualButForCase(item.first, "allow") || EqualButForCase(item.first, "deny") ||
          EqualButForCase(item.first, "ignore"));
}

bool HasForeignByte(std::string_view word) {
  return std::any_of(word.begin(), word.end(), [](char byte) { return (byte & 0x80) != 0; });
}

}  // namespace klepur::internal
