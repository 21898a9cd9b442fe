#include <klepur/document/place.h>

#include <algorithm>
#include <vector>

#include <klepur/document/comments.h>
#include <klepur/document/node_text.h>
#include <klepur/document/structure_words.h>
#include <klepur/document/words_of_text.h>
#include <klepur/text/error.h>
#include <klepur/text/letters.h>

namespace klepur::internal {
namespace {

constexpr int kSiblingsToAsk = 16;

bool IsPlain(const DocumentState& state, NodeId id) {
  return state.tree[id].kind == NodeKind::kStatement;
}

/// The place right behind a node, the rest of its chain and the comment behind that.
Place Behind(const DocumentState& state, NodeId id) {
  const NodeId end = EndOfChain(state, id);
  const NodeId trailing = TrailingComment(state, end);
  return {{state.tree[id].parent, trailing == kNoNode ? end : trailing}, false};
}

Place Above(const DocumentState& state, NodeId id) {
  return {GapBefore(state, FirstOwnComment(state, StartOfChain(state, id))), true};
}

template <class Fits>
NodeId LastThat(DocumentState& state, NodeId parent, const Fits& fits) {
  NodeId id = state.tree.KnownLastChild(parent);
  while (id != kNoNode && !fits(id)) id = state.tree[id].previous;
  return id;
}

NodeId FirstBlock(const DocumentState& state, NodeId parent) {
  NodeId id = state.tree.FirstChild(parent);
  while (id != kNoNode && !state.IsBlock(id)) id = state.tree[id].next;
  return id;
}

NodeId LastAdded(const DocumentState& state, NodeId parent, const std::string& sought) {
  const auto known = state.last_of_key.find({parent, sought});
  return known == state.last_of_key.end() ? kNoNode : known->second;
}

/// What the last one of a word is remembered under; empty when what is placed has no word but its key.
std::string WordSought(const Placed& what) {
  const std::string_view word = FirstWord(what.key);
  return what.is_block || word == what.key ? std::string() : std::string(word) + ' ';
}

constexpr const char* kStatementSought = "";

NodeId LastOfKey(DocumentState& state, NodeId parent, const Placed& what) {
  const NodeId known = LastAdded(state, parent, what.key);
  if (known != kNoNode) return known;
  const auto fits = [&](NodeId id) {
    return !state.IsComment(id) && state.IsBlock(id) == what.is_block &&
           HasKey(state.OwnText(id), what.key);
  };
  int seen = 0;
  NodeId id = state.tree.KnownLastChild(parent);
  for (; id != kNoNode && !fits(id); id = state.tree[id].previous) {
    if (++seen != ChildIndex::kMany) continue;
    const std::vector<NodeId> all = ChildrenWithKey(state, parent, what.key);
    const auto first = std::find_if(all.begin(), all.end(), fits);
    if (first == all.end()) return kNoNode;
    if (all.size() == 1) return *first;
  }
  return id;
}

/// The last statement that begins with the same word: another option, for an option.
NodeId LastOfWord(DocumentState& state, NodeId parent, const Placed& what) {
  const std::string sought = WordSought(what);
  if (sought.empty()) return kNoNode;
  const NodeId known = LastAdded(state, parent, sought);
  if (known != kNoNode) return known;
  const std::string_view word = FirstWord(sought);
  return LastThat(state, parent, [&](NodeId id) {
    return IsPlain(state, id) && EqualButForCase(FirstWord(state.OwnText(id)), word);
  });
}

/// The last statement before the blocks or, when none stands there, of all.
NodeId LastStatement(DocumentState& state, NodeId parent, NodeId first_block) {
  NodeId id =
      first_block == kNoNode ? state.tree.KnownLastChild(parent) : state.tree[first_block].previous;
  while (id != kNoNode && !IsPlain(state, id)) id = state.tree[id].previous;
  if (id != kNoNode) return id;
  return LastThat(state, parent, [&](NodeId each) { return IsPlain(state, each); });
}

/// Behind the comments at the start of a block that holds nothing else, or at its start.
Place InEmptyBlock(DocumentState& state, NodeId parent) {
  return {{parent, state.tree.KnownLastChild(parent)}, false};
}

Place BehindFound(const DocumentState& state, NodeId found, Place::By by) {
  Place place = Behind(state, found);
  place.found = found;
  place.by = by;
  return place;
}

Place AutoPlace(DocumentState& state, NodeId parent, const Placed& what) {
  NodeId last = LastOfKey(state, parent, what);
  if (last != kNoNode) return BehindFound(state, last, Place::By::kKey);
  last = LastOfWord(state, parent, what);
  if (last != kNoNode) return BehindFound(state, last, Place::By::kWord);
  if (!what.is_block) {
    last = LastAdded(state, parent, kStatementSought);
    if (last != kNoNode) return BehindFound(state, last, Place::By::kOther);
    const NodeId block = FirstBlock(state, parent);
    last = LastStatement(state, parent, block);
    if (last != kNoNode) return BehindFound(state, last, Place::By::kOther);
    if (block != kNoNode) return Above(state, block);
  }
  last = LastThat(state, parent, [&](NodeId id) { return !state.IsComment(id); });
  return last == kNoNode ? InEmptyBlock(state, parent) : Behind(state, last);
}

Place AtStart(DocumentState& state, NodeId parent) {
  NodeId first = state.tree.FirstChild(parent);
  while (first != kNoNode && state.IsComment(first)) first = state.tree[first].next;
  return first == kNoNode ? InEmptyBlock(state, parent) : Above(state, first);
}

Place AtEnd(DocumentState& state, NodeId parent) {
  const NodeId last = LastThat(state, parent, [&](NodeId id) { return !state.IsComment(id); });
  return last == kNoNode ? InEmptyBlock(state, parent) : Behind(state, last);
}

bool IsWithinChain(const DocumentState& state, NodeId anchor, Placement::Where where) {
  return where == Placement::Where::kBefore ? StartOfChain(state, anchor) != anchor
                                            : EndOfChain(state, anchor) != anchor;
}

/// The blank lines between a block and the one of its key before it, or behind it.
std::size_t BlankLinesBetween(const DocumentState& state, NodeId first, NodeId second,
                              std::string_view key) {
  if (first == kNoNode || second == kNoNode || !state.IsBlock(first) || !state.IsBlock(second) ||
      !HasKey(state.OwnText(first), key) || !HasKey(state.OwnText(second), key)) {
    return 0;
  }
  const std::size_t line_ends =
      CountLineEnds(ReadGap(state, GapBefore(state, FirstOwnComment(state, second))));
  return line_ends == 0 ? 0 : line_ends - 1;
}

NodeId PreviousStatement(const DocumentState& state, NodeId id) {
  while (id != kNoNode && state.IsComment(id)) id = state.tree[id].previous;
  return id;
}

NodeId NextStatement(const DocumentState& state, NodeId id) {
  while (id != kNoNode && state.IsComment(id)) id = state.tree[id].next;
  return id;
}

std::size_t BlankLinesFor(const DocumentState& state, Place place, const Placed& what) {
  if (!what.is_block) return 0;
  if (place.before_next) {
    const NodeId next = NextStatement(state, NextOf(state, place.gap));
    if (next == kNoNode) return 0;
    return BlankLinesBetween(state, next, NextStatement(state, state.tree[next].next), what.key);
  }
  const NodeId previous = PreviousStatement(state, place.gap.previous);
  if (previous == kNoNode) return 0;
  return BlankLinesBetween(state, PreviousStatement(state, state.tree[previous].previous), previous,
                           what.key);
}

/// A gap with one line end more before what follows it.
std::string WithBlankLine(const std::string& gap, const std::string& line_end) {
  return std::string(WithoutLastLine(gap)) + line_end + std::string(LastLine(gap));
}

std::string Repeated(const std::string& text, std::size_t times) {
  std::string repeated;
  while (times-- > 0) repeated += text;
  return repeated;
}

/// The blanks between two statements on one line of this block.
std::string BlanksInLine(const DocumentState& state, Gap gap) {
  for (NodeId id = state.tree.FirstChild(gap.parent), count = 0;
       id != kNoNode && state.tree[id].next != kNoNode && count < kSiblingsToAsk;
       id = state.tree[id].next, ++count) {
    std::string blanks = ReadGap(state, {gap.parent, id});
    if (!HasLineEnd(blanks) && !state.IsComment(state.tree[id].next)) return blanks;
  }
  return " ";
}

bool FollowsChain(const DocumentState& state, Gap gap) {
  const NodeId previous = PreviousStatement(state, gap.previous);
  if (previous == kNoNode || !state.IsBlock(previous)) return false;
  const Begins begins = WordOf(state.tree[previous].word).begins;
  return begins == Begins::kChain || begins == Begins::kBranch;
}

Place PlaceOf(DocumentState& state, NodeId parent, const Placed& what, Placement::Where where,
              NodeId anchor) {
  const bool at_anchor = where == Placement::Where::kBefore || where == Placement::Where::kAfter;
  if (at_anchor && (anchor == kNoNode || state.tree[anchor].parent != parent)) {
    throw Error(ErrorCode::kBadPlace, "the node to add beside stands in another block");
  }
  switch (where) {
    case Placement::Where::kFirst:
      return AtStart(state, parent);
    case Placement::Where::kLast:
      return AtEnd(state, parent);
    case Placement::Where::kBefore:
    case Placement::Where::kAfter: {
      if (state.IsComment(anchor) || what.is_branch) {
        const NodeId trailing =
            state.IsComment(anchor) ? kNoNode : OwnTrailingComment(state, anchor);
        return where == Placement::Where::kBefore
                   ? Place{GapBefore(state, anchor), true}
                   : Place{{parent, trailing == kNoNode ? anchor : trailing}, false};
      }
      if (IsWithinChain(state, anchor, where)) {
        throw Error(ErrorCode::kBadPlace, "nothing can stand between an \"if\" and its \"else\"");
      }
      return where == Placement::Where::kBefore ? Above(state, anchor) : Behind(state, anchor);
    }
    case Placement::Where::kAuto:
      break;
  }
  return what.key.empty() ? AtEnd(state, parent) : AutoPlace(state, parent, what);
}

}  // namespace

Place FindPlace(DocumentState& state, NodeId parent, const Placed& what, Placement::Where where,
                NodeId anchor) {
  const Place place = PlaceOf(state, parent, what, where, anchor);
  if (what.is_branch && !FollowsChain(state, place.gap)) {
    throw Error(ErrorCode::kBadPlace, "an \"elsif\" or \"else\" stands behind an \"if\"");
  }
  return place;
}

void RememberPlace(DocumentState& state, const Place& place, const Placed& what, NodeId node) {
  const NodeId parent = place.gap.parent;
  const auto remember = [&](const std::string& sought, bool found_so) {
    // Behind the last of something it is the last of that, however its place was found.
    const bool follows = place.found != kNoNode && LastAdded(state, parent, sought) == place.found;
    if (found_so || follows) state.last_of_key[{parent, sought}] = node;
  };
  remember(what.key, true);
  if (what.is_block) return;
  const std::string word = WordSought(what);
  if (!word.empty()) remember(word, place.by != Place::By::kKey);
  remember(kStatementSought, place.by == Place::By::kOther);
}

void ForgetPlaces(DocumentState& state, NodeId parent, const Placed& what) {
  state.last_of_key.erase({parent, what.key});
  state.last_of_key.erase({parent, WordSought(what)});
  state.last_of_key.erase({parent, kStatementSought});
}

bool IsMidLine(const DocumentState& state, Place place) {
  if (HasLineEnd(ReadGap(state, place.gap))) return false;
  const NodeId next = NextOf(state, place.gap);
  if (place.gap.parent != kRoot) return !state.text.IsEnd(EndOf(state, place.gap));
  return place.gap.previous != kNoNode && next != kNoNode;
}

std::string IndentAt(DocumentState& state, Place place, const Neighbours& neighbours) {
  const auto begins_line = [&state](NodeId id, bool comment) {
    return state.IsComment(id) == comment && BeginsLine(state, id);
  };
  for (const bool comment : {false, true}) {
    int count = 0;
    const NodeId next = NextOf(state, place.gap);
    if (place.before_next && next != kNoNode && BeginsLine(state, next))
      return IndentOf(state, next);
    for (NodeId id = place.gap.previous; id != kNoNode && count < kSiblingsToAsk;
         id = state.tree[id].previous, ++count) {
      if (begins_line(id, comment)) return IndentOf(state, id);
    }
    count = 0;
    for (NodeId id = next; id != kNoNode && count < kSiblingsToAsk;
         id = state.tree[id].next, ++count) {
      if (begins_line(id, comment)) return IndentOf(state, id);
    }
  }
  if (place.gap.parent == kRoot) return {};
  return IndentOf(state, place.gap.parent) +
         neighbours.Step(KeyOf(state.OwnText(place.gap.parent)));
}

TextAddress PutLines(DocumentState& state, Place place, std::string_view text,
                     std::string_view indent, const Placed& what, bool apart) {
  const Gap gap = place.gap;
  const std::string old = ReadGap(state, gap);
  const std::string line_end = LineEndAt(state, BeginOf(state, gap));
  const NodeId next = NextOf(state, gap);
  const bool below_comment = apart && gap.previous != kNoNode && state.IsComment(gap.previous) &&
                             !IsTrailing(state, gap.previous);
  const std::size_t blank_lines = BlankLinesFor(state, place, what);
  if (gap.parent == kRoot && gap.previous == kNoNode && next == kNoNode) {
    const bool at_line_start = old.empty() || old.back() == '\n';
    return PutInGap(state, gap, at_line_start ? old : old + line_end, text,
                    at_line_start ? line_end : std::string());
  }
  const bool at_end_apart =
      below_comment && next == kNoNode && gap.parent == kRoot && CountLineEnds(old) > 1;
  if (at_end_apart) {
    return PutInGap(state, gap, std::string(WithoutLastLine(old)) + std::string(indent), text,
                    line_end);
  }
  if (place.before_next && next != kNoNode) {
    const bool touches = below_comment && CountLineEnds(old) == 1;
    const bool apart_below = what.ends_in_comment && !what.key.empty() && blank_lines == 0;
    return PutInGap(
        state, gap, touches ? WithBlankLine(old, line_end) : old, text,
        Repeated(line_end, blank_lines + (apart_below ? 2 : 1)) + IndentOf(state, next));
  }
  const std::size_t line_ends = 1 + (below_comment && blank_lines == 0 ? 1 : blank_lines);
  const bool touches_below = what.ends_in_comment && next != kNoNode && CountLineEnds(old) == 1;
  return PutInGap(state, gap, Repeated(line_end, line_ends) + std::string(indent), text,
                  touches_below ? WithBlankLine(old, line_end) : old);
}

TextAddress PutInLine(DocumentState& state, Place place, std::string_view text) {
  const Gap gap = place.gap;
  const std::string old = ReadGap(state, gap);
  const NodeId next = NextOf(state, gap);
  if (gap.previous == kNoNode && next == kNoNode) {  // "{}", "{ }"
    return PutInGap(state, gap, old.empty() ? " " : old, text, old.empty() ? " " : old);
  }
  const std::string between = BlanksInLine(state, gap);
  if (gap.previous == kNoNode || (place.before_next && next != kNoNode)) {
    return PutInGap(state, gap, old, text, between);
  }
  return PutInGap(state, gap, between, text, old);
}

TextAddress PutBetweenLines(DocumentState& state, Place place, std::string_view text,
                            std::string_view indent) {
  const std::string line_end = LineEndAt(state, BeginOf(state, place.gap));
  const std::string behind = NextOf(state, place.gap) == kNoNode && place.gap.parent != kRoot
                                 ? IndentOf(state, place.gap.parent)
                                 : std::string(indent);
  return PutInGap(state, place.gap, line_end + std::string(indent), text, line_end + behind);
}

TextAddress PutInGap(DocumentState& state, Gap gap, std::string_view before, std::string_view text,
                     std::string_view behind) {
  const NodeId next = NextOf(state, gap);
  state.memory.Remember({EditMemory::About::kGap, gap.previous, gap.parent},
                        {{next}, {ReadGap(state, gap), SidesOf(state, gap)}});
  const Span span = state.text.Append(std::string(before).append(text).append(behind));
  state.text.Replace(BeginOf(state, gap), EndOf(state, gap), span);
  return span.begin + static_cast<TextAddress>(before.size());
}

}  // namespace klepur::internal
