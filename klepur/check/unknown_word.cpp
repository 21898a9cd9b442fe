#include <klepur/check/unknown_word.h>

#include <klepur/document/words_of_text.h>
#include <klepur/text/letters.h>

#include <algorithm>

namespace klepur::internal {
namespace {

// "no" begins the undocumented "no failover peer", which takes no ";".
constexpr std::string_view kOthers[] = {"no"};

bool IsOperator(std::string_view word) {
  return !IsWordByte(word.front()) && word.front() != '"' && word.front() != '.';
}

}  // namespace

bool IsRefusedUnknownWord(const Item& item) {
  if (item.unfinished || item.first.empty() || !IsLetter(item.first.front())) return false;
  if (std::any_of(std::begin(kOthers), std::end(kOthers),
                  [&](std::string_view other) { return EqualButForCase(other, item.first); })) {
    return false;
  }
  if (item.kind == NodeKind::kBlock) return true;
  const std::string_view next = FirstWord(item.value);
  if (next.empty()) return item.first.find_first_of(".:/") != std::string_view::npos;
  return !IsOperator(next) && !EqualButForCase(next, "and") && !EqualButForCase(next, "or");
}

}  // namespace klepur::internal
