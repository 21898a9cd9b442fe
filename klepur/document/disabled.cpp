#include <klepur/document/disabled.h>

#include <algorithm>
#include <string_view>

#include <klepur/document/gaps.h>
#include <klepur/document/structure_reader.h>
#include <klepur/document/structure_words.h>
#include <klepur/document/words_of_text.h>
#include <klepur/text/letters.h>
#include <klepur/text/text_buffer.h>

namespace klepur::internal {
namespace {

bool IsLineOfItsOwn(const DocumentState& state, NodeId id) {
  return state.IsComment(id) && BeginsLine(state, id);
}

std::vector<NodeId> RunFrom(const DocumentState& state, NodeId first) {
  std::vector<NodeId> run = {first};
  for (NodeId next = state.tree[first].next;
       next != kNoNode && AreInOneRun(state, run.back(), next); next = state.tree[next].next) {
    run.push_back(next);
  }
  return run;
}

bool IsWordAlone(std::string_view statement) {
  WordsOfText words(statement);
  words.Next();
  return words.Next() == ";";
}

bool HasTheFormOfItsWord(NodeKind kind, std::uint8_t number, std::string_view text) {
  switch (WordOf(number).begins) {
    case Begins::kStatement:
      return number != kUnknownWord && kind == NodeKind::kStatement;
    case Begins::kAlone:
      return kind == NodeKind::kStatement && IsWordAlone(text);
    case Begins::kBlock:
    case Begins::kChain:
      return kind == NodeKind::kBlock;
    case Begins::kEither:
      return kind == NodeKind::kBlock || kind == NodeKind::kStatement;
    case Begins::kBranch:
    case Begins::kLabel:
      return false;
  }
  return false;
}

/// What a text begins with, behind blanks; empty when it is nothing whole.
struct Extent {
  NodeKind kind = NodeKind::kStray;
  std::size_t begin = 0;
  std::size_t end = 0;
};

Extent FirstIn(std::string_view text) {
  constexpr TextAddress kBase = 1;  // a text of its own, that no byte order mark begins
  const TextBuffer buffer(text);
  SyntaxTree tree;
  StructureReader reader(tree, buffer.view(), kBase);
  reader.ReadFirst(kRoot);
  if (tree.Count() < 2 || reader.IsMalformed()) return {};
  const SyntaxNode& node = tree[1];
  return {node.kind, node.begin - kBase, node.end - kBase};
}

/// Where an "elsif" or "else" stands that goes on behind a block, over blanks and comments.
std::size_t BranchBehind(std::string_view text, std::size_t end) {
  const std::string_view word = FirstWord(text.substr(end));
  if (WordOf(NumberOf(word)).begins != Begins::kBranch) return std::string_view::npos;
  return static_cast<std::size_t>(word.data() - text.data());
}

/// How many lines of the text the statement or block takes that it begins with, and the comment behind it;
/// 0 unless that is whole and takes whole lines.
std::size_t LinesOfWhole(std::string_view text) {
  const Extent first = FirstIn(text);
  const std::string_view own = text.substr(first.begin, first.end - first.begin);
  if (own.empty() || HasLineEnd(text.substr(0, first.begin)) ||
      !HasTheFormOfItsWord(first.kind, NumberOf(LeadingWord(own)), own)) {
    return 0;
  }
  std::size_t end = first.end;
  if (WordOf(NumberOf(LeadingWord(own))).begins == Begins::kChain) {
    for (std::size_t branch = BranchBehind(text, end); branch != std::string_view::npos;
         branch = BranchBehind(text, end)) {
      const Extent extent = FirstIn(text.substr(branch));
      if (extent.kind != NodeKind::kBlock || extent.end == 0) return 0;
      end = branch + extent.end;
    }
  }
  const std::string_view behind = text.substr(end);
  const std::size_t next = behind.find_first_not_of(" \t\r");
  if (next != std::string_view::npos && behind[next] != '#' && behind[next] != '\n') return 0;
  return CountLineEnds(text.substr(0, end)) + 1;
}

bool MarksAreFollowedByBlanks(const DocumentState& state, const std::vector<NodeId>& run,
                              std::size_t begin, std::size_t end) {
  return std::all_of(run.begin() + static_cast<std::ptrdiff_t>(begin),
                     run.begin() + static_cast<std::ptrdiff_t>(end), [&state](NodeId id) {
                       const std::string_view text = state.OwnText(id);
                       return text.size() == 1 || text[1] == ' ' || text[1] == '\t';
                     });
}

std::string_view WithoutMark(std::string_view comment, bool blank_too) {
  comment.remove_prefix(1);
  if (blank_too && comment.substr(0, 1) == " ") comment.remove_prefix(1);
  return comment;
}

/// The lines of a run from `begin` to `end` without their marks, each with the blanks before its mark.
std::string Uncommented(const DocumentState& state, const std::vector<NodeId>& run,
                        std::size_t begin, std::size_t end) {
  const bool blank_too = MarksAreFollowedByBlanks(state, run, begin, end);
  std::string text;
  for (std::size_t i = begin; i < end; ++i) {
    const std::string_view line = WithoutMark(state.OwnText(run[i]), blank_too);
    if (i != begin) {
      const std::string gap = ReadGap(state, GapBefore(state, run[i]));
      text += WithoutLastLine(gap);
      if (!line.empty()) text += LastLine(gap);
    }
    text += line;
  }
  return text;
}

/// Whether a line of prose can be told without reading on.
bool MayBegin(std::string_view line) {
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  return NumberOf(LeadingWord(line)) != kUnknownWord;
}

/// The disabled statement at the start of run[begin..], within a budget of bytes to read.
std::optional<Disabled> FindAt(const DocumentState& state, const std::vector<NodeId>& run,
                               std::size_t begin, std::size_t& budget) {
  const std::string_view first = WithoutMark(state.OwnText(run[begin]), true);
  if (!MayBegin(first)) return std::nullopt;
  // Most are a few lines, so all the rest of a long run is looked at last; but an "else" may be far below.
  const bool chain = WordOf(NumberOf(FirstWord(first))).begins == Begins::kChain;
  for (std::size_t count = chain ? run.size() : 1;; count *= 8) {
    const std::size_t end = std::min(run.size(), begin + count);
    const std::string text = Uncommented(state, run, begin, end);
    if (text.size() > budget) return std::nullopt;
    budget -= text.size();
    const std::size_t lines = LinesOfWhole(text);
    if (lines != 0) {
      const std::size_t behind = begin + lines;
      return Disabled{run[begin], run[behind - 1], Uncommented(state, run, begin, behind)};
    }
    if (end == run.size()) return std::nullopt;
  }
}

std::vector<Disabled> FindAll(const DocumentState& state, const std::vector<NodeId>& run) {
  std::vector<Disabled> found;
  // A run in which many lines seem to begin something long must not cost its square.
  std::size_t budget = 1 << 16;
  for (const NodeId id : run) budget += 16 * state.OwnText(id).size();
  for (std::size_t i = 0; i < run.size();) {
    std::optional<Disabled> disabled = FindAt(state, run, i, budget);
    if (!disabled) {
      ++i;
      continue;
    }
    while (run[i] != disabled->last) ++i;
    ++i;
    found.push_back(std::move(*disabled));
  }
  return found;
}

/// Drops what is known of runs, if the text has changed.
void DropOldRuns(const DocumentState& state) {
  const DisabledRuns::Stamp now = {state.edits, state.text.GetMark()};
  if (state.disabled.stamp == now) return;
  state.disabled.parts.clear();
  state.disabled.stamp = now;
}

std::vector<Disabled> LookAtRun(const DocumentState& state, NodeId comment) {
  const std::vector<NodeId> run = RunFrom(state, StartOfRun(state, comment));
  std::vector<Disabled> found = FindAll(state, run);
  DropOldRuns(state);
  auto next = found.begin();
  bool within = false;
  for (const NodeId id : run) {
    within = within || (next != found.end() && id == next->first);
    state.disabled.parts[id] =
        within ? DisabledRuns::Part{next->first, next->last} : DisabledRuns::Part{};
    if (within && id == next->last) {
      within = false;
      ++next;
    }
  }
  return found;
}

DisabledRuns::Part PartOf(const DocumentState& state, NodeId comment) {
  if (!IsLineOfItsOwn(state, comment)) return {};
  const std::lock_guard<std::mutex> lock(state.disabled.lock);
  DropOldRuns(state);
  auto known = state.disabled.parts.find(comment);
  if (known == state.disabled.parts.end()) {
    LookAtRun(state, comment);
    known = state.disabled.parts.find(comment);
  }
  return known->second;
}

}  // namespace

bool AreInOneRun(const DocumentState& state, NodeId above, NodeId below) {
  if (!IsLineOfItsOwn(state, above) || !IsLineOfItsOwn(state, below)) return false;
  if (CountLineEnds(ReadGap(state, GapBefore(state, below))) != 1) return false;
  const std::size_t above_width = WidthOf(IndentOf(state, above));
  const std::size_t below_width = WidthOf(IndentOf(state, below));
  return std::max(above_width, below_width) - std::min(above_width, below_width) <= 1;
}

NodeId StartOfRun(const DocumentState& state, NodeId comment) {
  NodeId previous = state.tree[comment].previous;
  while (previous != kNoNode && AreInOneRun(state, previous, comment)) {
    comment = previous;
    previous = state.tree[comment].previous;
  }
  return comment;
}

std::vector<Disabled> DisabledInRun(const DocumentState& state, NodeId comment) {
  if (!IsLineOfItsOwn(state, comment)) return {};
  const std::lock_guard<std::mutex> lock(state.disabled.lock);
  return LookAtRun(state, comment);
}

std::optional<Disabled> DisabledAt(const DocumentState& state, NodeId comment) {
  const DisabledRuns::Part part = PartOf(state, comment);
  if (part.first != comment) return std::nullopt;
  std::vector<NodeId> nodes = {part.first};
  while (nodes.back() != part.last) nodes.push_back(state.tree[nodes.back()].next);
  return Disabled{part.first, part.last, Uncommented(state, nodes, 0, nodes.size())};
}

bool IsPartOfDisabled(const DocumentState& state, NodeId comment) {
  return PartOf(state, comment).first != kNoNode;
}

void KeepKnownRuns(const DocumentState& state) {
  const std::lock_guard<std::mutex> lock(state.disabled.lock);
  state.disabled.stamp = {state.edits + 1, state.text.GetMark()};
}

}  // namespace klepur::internal
