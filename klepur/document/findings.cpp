#include <klepur/document/findings.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

#include <klepur/document/comments.h>
#include <klepur/document/gaps.h>
#include <klepur/document/node_text.h>
#include <klepur/document/structure_reader.h>
#include <klepur/document/structure_words.h>
#include <klepur/document/words_of_text.h>
#include <klepur/text/letters.h>

namespace klepur::internal {
namespace {

/// Where the block should begin of a statement whose word wants one: where a line seems to begin another
/// statement, or at the ";".
std::size_t WhereBlockIsMissing(std::string_view text) {
  WordsOfText words(text);
  std::size_t behind = words.Next().size();
  for (std::string_view word = words.Next(); !word.empty(); word = words.Next()) {
    const auto begin = static_cast<std::size_t>(word.data() - text.data());
    if (NumberOf(word) != kUnknownWord && HasLineEnd(text.substr(behind, begin - behind))) {
      return begin;
    }
    behind = begin + word.size();
  }
  return text.size() - 1;
}

/// The first word in a statement that only begins statements; empty when there is none, or when what may stand
/// there is the caller's.
std::string_view StatementWithin(std::string_view text) {
  WordsOfText words(text);
  const StructureWord& first = WordOf(NumberOf(words.Next()));
  const bool alone = first.begins == Begins::kAlone;
  if (first.text.empty() || first.holds == Holds::kAnything ||
      (!alone && first.begins != Begins::kStatement) ||
      text.find_first_of("=(") != std::string_view::npos) {
    return {};
  }
  std::size_t count = 1;
  std::string_view last = first.text;
  for (std::string_view word = words.Next(); !word.empty(); last = word, word = words.Next()) {
    const bool is_value = ++count > (alone ? 1U : first.key_words + 1U);
    if (is_value && last != "," && WordOf(NumberOf(word)).stands == Stands::kFirst) return word;
  }
  return {};
}

class Collector {
 public:
  explicit Collector(const DocumentState& state) : state_(state) {}

  std::vector<NodeFinding> Collect() {
    LookAtStart();
    for (NodeId id = state_.tree.NextInOrder(kRoot, kRoot); id != kNoNode;
         id = state_.tree.NextInOrder(id, kRoot)) {
      about_ = id;
      LookAt(id);
    }
    about_ = kRoot;
    LookForNuls();
    std::stable_sort(
        findings_.begin(), findings_.end(),
        [](const Finding& left, const Finding& right) { return left.where < right.where; });
    return std::move(findings_);
  }

 private:
  void Add(FindingCode code, PieceText::Edge where, std::string message,
           Severity severity = Severity::kError) {
    findings_.push_back(
        {{code, severity, state_.positions.Of(state_.text, where), std::move(message)}, about_});
  }

  PieceText::Edge At(NodeId id, std::size_t offset) const {
    return state_.text.Before(state_.tree[id].begin + static_cast<TextAddress>(offset));
  }

  std::string LineOf(NodeId id) const {
    return "line " + std::to_string(state_.positions.Of(state_.text, state_.Begin(id)).line);
  }

  void LookAtStart() {
    if (state_.Inside(kRoot) == state_.text.Start()) return;
    Add(FindingCode::kByteOrderMark, state_.text.Start(),
        "the file begins with a byte order mark, which the server does not read");
  }

  void LookAt(NodeId id) {
    const SyntaxNode& node = state_.tree[id];
    if (node.open_quote) LookAtQuotes(id);
    switch (node.kind) {
      case NodeKind::kStray:
        return LookAtStray(id);
      case NodeKind::kStatement:
        return node.unfinished ? LookAtEnd(id) : LookAtWords(id);
      case NodeKind::kBlock:
        return LookAtBlock(id);
      default:
        return;
    }
  }

  void LookAtStray(NodeId id) {
    if (state_.OwnText(id) == "}") {
      return Add(FindingCode::kStrayBrace, state_.Begin(id), "a closing brace without a block");
    }
    if (IsLateSemicolon(state_, id)) return;
    Add(FindingCode::kEmptyStatement, state_.Begin(id), "a \";\" without a statement");
  }

  /// Of a statement that has its end.
  void LookAtWords(NodeId id) {
    const std::string_view text = state_.OwnText(id);
    const std::string_view first = FirstWord(text);
    if (WantsBlock(NumberOf(first))) {
      return Add(FindingCode::kMissingBlock, At(id, WhereBlockIsMissing(text)),
                 "a \"{\" is missing behind \"" + std::string(first) + "\"");
    }
    const std::string_view next = StatementWithin(text);
    if (next.empty()) return;
    Add(FindingCode::kMissingSemicolon, At(id, static_cast<std::size_t>(next.data() - text.data())),
        "a \";\" is missing before \"" + std::string(next) + "\"");
  }

  /// Of a statement that does not.
  void LookAtEnd(NodeId id) {
    const std::string_view text = state_.OwnText(id);
    if (text.back() == ';') {
      return Add(FindingCode::kUnclosedValue, At(id, text.size() - 1),
                 "the braces of this value are not closed");
    }
    // Where the server finds that it is missing: at what stands there instead.
    NodeId next = state_.tree[id].next;
    while (next != kNoNode && state_.IsComment(next)) next = state_.tree[next].next;
    const NodeId parent = state_.tree[id].parent;
    std::string message = "a \";\" is missing behind \"" + KeyOf(text) + "\" of " + LineOf(id);
    PieceText::Edge where = state_.End(id);
    if (next != kNoNode) {
      where = state_.Begin(next);
    } else if (parent != kRoot && !state_.tree[parent].unfinished) {
      where = state_.InsideEnd(parent);
    } else {
      state_.text.Back(where);
      message = "the file ends in a statement";
    }
    Add(FindingCode::kMissingSemicolon, where, std::move(message));
  }

  void LookAtBlock(NodeId id) {
    const SyntaxNode& node = state_.tree[id];
    const PieceText::Edge brace = At(id, state_.tree.BraceOf(id));
    if (UpToLastWord(state_.OwnText(id)).empty()) {
      Add(FindingCode::kMissingHeader, brace, "a \"{\" without a block's name before it");
    }
    if (node.late_semicolon && node.word != kWordKey) {
      PieceText::Edge semicolon = state_.End(id);
      state_.text.Back(semicolon);
      Add(FindingCode::kSemicolonBehindBlock, semicolon, "a \";\" behind the \"}\" of a block");
    }
    if (WordOf(node.word).begins == Begins::kBranch && StartOfChain(state_, id) == id) {
      Add(FindingCode::kBranchWithoutIf, state_.Begin(id),
          "\"" + KeyOf(state_.OwnText(id)) + "\" without an \"if\" before it");
    }
    if (node.unfinished) LookAtUnclosed(id, brace);
  }

  void LookAtUnclosed(NodeId id, PieceText::Edge brace) {
    std::string message = "the block is not closed";
    const NodeId outside = FirstThatSeemsOutside(id);
    if (outside != kNoNode) {
      message += "; by the indentation it seems to end before " + LineOf(outside);
    }
    Add(FindingCode::kUnclosedBlock, brace, std::move(message));
    if (outside != kNoNode && !told_end_) {
      AddSeemsToEnd(id, state_.Begin(outside));
    } else if (!told_end_ && !looked_within_) {
      LookWithinUnclosed(id);
    }
    PieceText::Edge end = brace;
    const NodeId last = LastNode();
    if (last != id && state_.tree[last].unfinished && state_.IsBlock(last)) {
      end = At(last, state_.tree.BraceOf(last));
    } else if (last != id) {
      end = state_.text.Behind(state_.tree[last].end);
      state_.text.Back(end);
    }
    Add(FindingCode::kEndInBlock, end, "the file ends in the block that begins in " + LineOf(id),
        Severity::kNote);
  }

  /// Told of the first block only: those around and in it follow from that.
  void AddSeemsToEnd(NodeId block, PieceText::Edge where) {
    told_end_ = true;
    Add(FindingCode::kBlockSeemsToEnd, where,
        "the block that begins in " + LineOf(block) + " seems to end before this", Severity::kNote);
  }

  /// A block that is not closed may have taken the "}" of the one around it, which then lacks one.
  void LookWithinUnclosed(NodeId top) {
    looked_within_ = true;
    for (NodeId id = state_.tree.NextInOrder(top, top); id != kNoNode;
         id = state_.tree.NextInOrder(id, top)) {
      if (!EndsLessDeepThanItBegins(id)) continue;
      const NodeId outside = FirstThatSeemsOutside(id);
      return AddSeemsToEnd(id, outside == kNoNode ? state_.InsideEnd(id) : state_.Begin(outside));
    }
  }

  bool EndsLessDeepThanItBegins(NodeId id) const {
    if (!state_.IsBlock(id) || state_.tree[id].unfinished || !BeginsLine(state_, id)) return false;
    const std::string gap = ReadGap(state_, {id, state_.tree.LastChild(id)});
    return HasLineEnd(gap) && WidthOf(LastLine(gap)) < WidthOf(IndentOf(state_, id));
  }

  /// The last node of the file that is no comment, which is in, or is itself, the innermost block that nothing
  /// closes.
  NodeId LastNode() {
    while (last_ == kRoot || (state_.IsBlock(last_) && state_.tree[last_].unfinished)) {
      NodeId child = state_.tree.LastChild(last_);
      while (child != kNoNode && state_.IsComment(child)) child = state_.tree[child].previous;
      if (child == kNoNode) break;
      last_ = child;
    }
    return last_;
  }

  /// The first child on a line of its own that is not deeper than its block.
  NodeId FirstThatSeemsOutside(NodeId block) const {
    std::optional<std::size_t> width;
    for (NodeId child = state_.tree.FirstChild(block); child != kNoNode;
         child = state_.tree[child].next) {
      if (!BeginsLine(state_, child)) continue;
      if (!width) width = WidthOf(IndentOf(state_, block));
      if (WidthOf(IndentOf(state_, child)) <= *width) return child;
    }
    return kNoNode;
  }

  /// The quotes of a node that the reader took for ordinary bytes.
  void LookAtQuotes(NodeId id) {
    const std::string_view text = state_.OwnText(id);
    for (std::size_t at = 0; at < text.size(); ++at) {
      if (text[at] == '#') {
        at = std::min(text.find('\n', at), text.size());
      } else if (text[at] == '"') {
        const std::size_t end = StringEnd(text, at);
        const bool closed = end != std::string_view::npos &&
                            (text.substr(at, end - at).find('\n') == std::string_view::npos ||
                             end == text.size() || !BeginsWordBehindString(text[end]));
        if (!closed) {
          return Add(FindingCode::kUnclosedQuote, At(id, at), "a quote that is never closed");
        }
        at = end - 1;
      }
    }
  }

  /// The server passes over a single NUL before a word, and stops at all others.
  void LookForNuls() {
    if (!HoldsNul(state_)) return;
    NodeId top = kRoot;
    for (NodeId id = kRoot; id != kNoNode; id = state_.tree.NextInOrder(id, top)) {
      if (id != kRoot) LookForNulsIn({state_.tree[id].parent, state_.tree[id].previous});
      if (state_.HoldsNodes(id)) {
        LookForNulsIn({id, state_.tree.LastChild(id)});
      }
    }
  }

  void LookForNulsIn(Gap gap) {
    const PieceText::Edge end = EndOf(state_, gap);
    bool before = false;
    for (PieceText::Edge at = BeginOf(state_, gap); at != end; state_.text.Forward(at)) {
      const bool nul = state_.text.ByteAt(at) == '\0';
      if (nul && before) {
        return Add(FindingCode::kNul, at, "NUL bytes, at which the server stops");
      }
      before = nul;
    }
  }

  const DocumentState& state_;
  NodeId last_ = kRoot;
  bool looked_within_ = false;
  bool told_end_ = false;
  std::vector<NodeFinding> findings_;
  NodeId about_ = kRoot;
};

}  // namespace

bool HoldsNul(const DocumentState& state) {
  bool found = false;
  state.text.ForEachPiece([&](PieceText::PieceId, Span span) {
    found = found || state.text.View(span).find('\0') != std::string_view::npos;
  });
  return found;
}

std::vector<NodeFinding> FindingsOf(const DocumentState& state) {
  return Collector(state).Collect();
}

}  // namespace klepur::internal
