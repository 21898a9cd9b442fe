#include <klepur/document/reindented.h>

#include <algorithm>

#include <klepur/document/words_of_text.h>

namespace klepur::internal {
namespace {

/// Where the next line begins that does not begin within a string; npos behind the last.
std::size_t NextLine(std::string_view text, std::size_t at) {
  while (at < text.size()) {
    if (text[at] == '\n') return at + 1;
    if (text[at] == '#') {
      at = text.find('\n', at);
    } else if (text[at] == '"') {
      const std::size_t end = StringEnd(text, at);
      at = end == std::string_view::npos ? at + 1 : end;
    } else {
      ++at;
    }
  }
  return std::string_view::npos;
}

}  // namespace

Reindented::Reindented(std::string_view text, std::string_view from, std::string_view to) {
  std::size_t taken = 0;
  for (std::size_t line = NextLine(text, 0); line != std::string_view::npos;
       line = NextLine(text, line)) {
    const bool blank = line == text.size() || text[line] == '\n' || text[line] == '\r';
    if (blank || text.substr(line, from.size()) != from) continue;
    text_.append(text.substr(taken, line - taken)).append(to);
    taken = line + from.size();
    shifts_.push_back({taken, text_.size()});
  }
  text_.append(text.substr(taken));
}

std::optional<Reindented> Reindented::Like(std::string_view text, std::string_view other) {
  Reindented like;
  like.text_ = other;
  std::size_t old = 0;
  std::size_t moved = 0;
  for (std::size_t line = NextLine(text, 0);; line = NextLine(text, line)) {
    const bool last = line == std::string_view::npos;
    const std::size_t size = (last ? text.size() : line) - old;
    if (text.substr(old, size) != other.substr(moved, last ? other.size() : size)) {
      return std::nullopt;
    }
    if (last) return like;
    old = std::min(text.find_first_not_of(" \t", line), text.size());
    moved = std::min(other.find_first_not_of(" \t", moved + size), other.size());
    like.shifts_.push_back({old, moved});
  }
}

std::size_t Reindented::NewOffset(std::size_t old) const {
  const auto behind =
      std::upper_bound(shifts_.begin(), shifts_.end(), old,
                       [](std::size_t offset, const Shift& shift) { return offset < shift.old; });
  if (behind == shifts_.begin()) return old;
  return behind[-1].moved + (old - behind[-1].old);
}

}  // namespace klepur::internal
