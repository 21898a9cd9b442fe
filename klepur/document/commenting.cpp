#include <klepur/document/commenting.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <klepur/document/comments.h>
#include <klepur/document/disabled.h>
#include <klepur/document/gaps.h>
#include <klepur/document/insertion.h>
#include <klepur/document/one_line_block.h>
#include <klepur/document/removal.h>
#include <klepur/document/structure_reader.h>
#include <klepur/text/error.h>
#include <klepur/text/text_buffer.h>

namespace klepur::internal {
namespace {

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines;
  for (;;) {
    const std::size_t end = text.find('\n');
    lines.emplace_back(text.substr(0, end == std::string_view::npos ? end : end + 1));
    if (end == std::string_view::npos) return lines;
    text.remove_prefix(end + 1);
  }
}

bool IsBlankLine(std::string_view line) {
  return line.find_first_not_of(" \t\r\n\v\f") == std::string_view::npos;
}

/// The blanks that all lines but blank ones begin with.
std::string CommonIndent(const std::vector<std::string>& lines) {
  std::string common = lines.front().substr(0, lines.front().find_first_not_of(" \t"));
  for (const std::string& line : lines) {
    if (IsBlankLine(line)) continue;
    std::size_t same = 0;
    while (same < common.size() && same < line.size() && line[same] == common[same]) ++same;
    common.resize(same);
  }
  return common;
}

/// The lines as comments, the marks below each other; the first line without the blanks before its mark.
std::string Commented(const std::vector<std::string>& lines, const std::string& indent) {
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i != 0) text += indent;
    if (IsBlankLine(lines[i])) {
      text += '#' + lines[i].substr(std::min(lines[i].find_first_of("\r\n"), lines[i].size()));
    } else {
      text += "# " + lines[i].substr(indent.size());
    }
  }
  return text;
}

/// Gives the nodes lines of their own, when they share some with others.
///
/// \return whether the block around them was opened for that.
bool GiveOwnLines(DocumentState& state, NodeRun run) {
  const NodeId parent = state.tree[run.first].parent;
  if (parent != kRoot && IsOnOneLine(state, parent)) {
    OpenOneLineBlock(state, parent);
    return true;
  }
  const std::string indent = IndentOf(state, run.first);
  const std::string line_end = LineEndAt(state, state.Begin(run.first));
  if (!BeginsLine(state, run.first))
    WriteGap(state, GapBefore(state, run.first), line_end + indent);
  if (!EndsLine(state, run.last)) {
    const Gap behind = GapBehind(state, run.last);
    const bool closes = NextOf(state, behind) == kNoNode;
    WriteGap(state, behind, line_end + (closes ? IndentOf(state, parent) : indent));
  }
  return false;
}

std::vector<NodeId> SiblingsBehind(const DocumentState& state, NodeId id) {
  std::vector<NodeId> siblings;
  while ((id = state.tree[id].next) != kNoNode) siblings.push_back(id);
  return siblings;
}

std::string TextOf(const DocumentState& state, NodeRun run) {
  return state.text.Read(state.Begin(run.first), state.End(run.last));
}

/// What stood around a node that was commented out.
struct Around {
  NodeId first_child;
  NodeId previous;
  NodeId next;
};

/// The comments that a commented-out node became, if they are still what they were then.
bool IsUntouched(const DocumentState& state, const Remembered& memory) {
  for (std::size_t i = 1; i < memory.nodes.size(); ++i) {
    if (state.tree[memory.nodes[i - 1]].next != memory.nodes[i]) return false;
  }
  const NodeRun run = {memory.nodes.front(), memory.nodes.back()};
  return state.IsComment(run.first) && !state.tree.IsGone(run.first) &&
         TextOf(state, run) == memory.texts[0];
}

void ReplaceRun(DocumentState& state, NodeRun run, const std::vector<Span>& spans) {
  state.text.Replace(state.Begin(run.first), state.End(run.last), spans);
}

/// Unlinks and drops all of a run but its first node.
void DropAllButFirst(DocumentState& state, NodeRun run) {
  while (run.last != run.first) {
    const NodeId previous = state.tree[run.last].previous;
    state.tree.Unlink(run.last);
    state.tree.MarkGone(run.last);
    run.last = previous;
  }
}

/// Gives a node another text and the record and children that it had, or a newly read node has.
void BecomeLike(DocumentState& state, NodeId id, const SyntaxNode& like, NodeId first_child) {
  state.tree.SetChildren(id, first_child);
  SyntaxNode& node = state.tree.Change(id);
  node.begin = like.begin;
  node.end = like.end;
  node.kind = like.kind;
  node.word = like.word;
  node.brace = like.brace;
  node.unfinished = like.unfinished;
  node.open_quote = like.open_quote;
  node.late_semicolon = like.late_semicolon;
}

/// Makes of a node the first of the comments that a text in its place consists of, and hangs the others
/// behind it.
std::vector<NodeId> BecomeComments(DocumentState& state, NodeId id, std::string_view text,
                                   TextAddress address) {
  const TextBuffer buffer(text);
  const NodeId parent = state.tree[id].parent;
  state.tree.KeepHead(parent);
  const NodeId read = state.tree.Count();
  StructureReader(state.tree, buffer.view(), address).Read(parent);
  std::vector<NodeId> nodes = SiblingsBehind(state, read);
  BecomeLike(state, id, state.tree[read], kNoNode);
  state.tree.MarkGone(read);
  NodeId previous = id;
  for (const NodeId at : nodes) {
    state.tree.Link(at, parent, previous);
    previous = at;
  }
  nodes.insert(nodes.begin(), id);
  return nodes;
}

void BringBackRemembered(DocumentState& state, NodeId id) {
  // What is remembered may move while it is used.
  const Remembered memory = *state.memory.Recall({EditMemory::About::kCommented, id});
  const NodeRun run = {memory.nodes.front(), memory.nodes.back()};
  ReplaceRun(state, run, memory.spans);
  DropAllButFirst(state, run);
  const Around around = {memory.links[0], memory.links[1], memory.links[2]};
  BecomeLike(state, id, memory.records.front(), around.first_child);
  NodeId last = id;
  for (std::size_t i = 3; i < memory.links.size(); ++i) {
    state.tree.Change(memory.links[i]).gone = 0;
    state.tree.Link(memory.links[i], state.tree[id].parent, last);
    last = memory.links[i];
    state.tree.Note(last);
  }
  const Gap behind = GapBehind(state, last);
  if (NextOf(state, behind) == around.next && ReadGap(state, behind) == memory.texts[4]) {
    WriteGap(state, behind, memory.texts[2]);
  }
  const Gap before = GapBefore(state, id);
  if (before.previous == around.previous && ReadGap(state, before) == memory.texts[3]) {
    WriteGap(state, before, memory.texts[1]);
  }
}

/// The gap between two neighbours that were both commented out becomes what it was when the later one comes
/// back: the earlier one found a comment there.
void JoinAgain(DocumentState& state, NodeId first, NodeId second) {
  if (first == kNoNode || second == kNoNode || state.IsComment(first) || state.IsComment(second)) {
    return;
  }
  const Gap gap = GapBehind(state, first);
  const Remembered* memory = state.memory.Recall({EditMemory::About::kCommented, second});
  if (memory != nullptr && memory->links[1] == first && ReadGap(state, gap) == memory->texts[3]) {
    return WriteGap(state, gap, memory->texts[1]);
  }
  memory = state.memory.Recall({EditMemory::About::kCommented, first});
  if (memory != nullptr && memory->links[2] == second && ReadGap(state, gap) == memory->texts[4]) {
    WriteGap(state, gap, memory->texts[2]);
  }
}

/// What was below a block that is now read anew is gone for good.
void DropFormerChildren(DocumentState& state, const Remembered& memory) {
  for (NodeId child = memory.links[0]; child != kNoNode; child = state.tree[child].next) {
    state.tree.MarkGone(child);
  }
}

void BringBackRead(DocumentState& state, NodeId id, Disabled disabled) {
  const NodeRun run = {disabled.first, disabled.last};
  const std::size_t blanks = disabled.text.find_first_not_of(" \t");
  const Gap before = GapBefore(state, id);
  const std::string indent = disabled.text.substr(0, blanks);
  disabled.text.erase(0, blanks);
  const Span span = state.text.Append(disabled.text);
  ReplaceRun(state, run, {span});
  DropAllButFirst(state, run);
  const TextBuffer buffer(disabled.text);
  state.tree.KeepHead(before.parent);
  const NodeId read = state.tree.Count();
  StructureReader(state.tree, buffer.view(), span.begin).Read(before.parent);
  const std::vector<NodeId> rest = SiblingsBehind(state, read);
  BecomeLike(state, id, state.tree[read], state.tree.FirstChild(read));
  state.tree.MarkGone(read);
  NodeId previous = id;
  for (const NodeId at : rest) {
    state.tree.Link(at, before.parent, previous);
    state.tree.Note(at);
    previous = at;
  }
  if (!indent.empty()) WriteGap(state, before, ReadGap(state, before) + indent);
}

}  // namespace

void CommentOutNode(DocumentState& state, NodeId id) {
  const NodeKind kind = state.tree[id].kind;
  if (kind != NodeKind::kBlock && kind != NodeKind::kStatement) {
    throw Error(ErrorCode::kBadPlace, "only statements and blocks can be commented out");
  }
  if (state.tree[id].unfinished) {
    throw Error(ErrorCode::kMalformed, "the statement or block has no end");
  }
  const NodeId end = LastGoingWith(state, id);
  const NodeId trailing = TrailingComment(state, end);
  const NodeRun run = {id, trailing == kNoNode ? end : trailing};
  const Gap before = GapBefore(state, id);
  const Gap behind = GapBehind(state, run.last);
  Remembered memory;
  memory.links = {state.tree.FirstChild(id), before.previous, NextOf(state, behind)};
  const std::vector<NodeId> nodes = NodesOf(state, run);
  memory.links.insert(memory.links.end(), nodes.begin() + 1, nodes.end());
  std::string whole_before = ReadGap(state, before);
  std::string whole_behind = ReadGap(state, behind);
  const bool opened = GiveOwnLines(state, run);

  const std::string own_indent = IndentOf(state, id);
  std::vector<std::string> lines = LinesOf(TextOf(state, run));
  lines.front().insert(0, own_indent);
  const std::string indent = CommonIndent(lines);
  const std::string text = Commented(lines, indent);
  if (opened) {  // then the block remembers
    whole_before = ReadGap(state, before);
    whole_behind = ReadGap(state, behind);
  }
  memory.spans = state.text.SpansOf(state.Begin(run.first), state.End(run.last));
  memory.records = {state.tree[id]};
  if (indent != own_indent) {
    WriteGap(state, before, std::string(WithoutLastLine(ReadGap(state, before))) + indent);
  }
  memory.texts = {text, std::move(whole_before), std::move(whole_behind), ReadGap(state, before),
                  ReadGap(state, behind)};

  const Span span = state.text.Append(text);
  ReplaceRun(state, run, {span});
  DropAllButFirst(state, run);
  memory.nodes = BecomeComments(state, id, text, span.begin);
  state.memory.Remember({EditMemory::About::kCommented, id}, std::move(memory));
  state.tree.Note(id);
  state.last_of_key.clear();
}

void BringBackNode(DocumentState& state, NodeId id) {
  const Remembered* memory = state.memory.Recall({EditMemory::About::kCommented, id});
  if (memory != nullptr && IsUntouched(state, *memory)) {
    BringBackRemembered(state, id);
  } else {
    std::optional<Disabled> disabled;
    if (state.IsComment(id)) disabled = DisabledAt(state, id);
    if (!disabled) {
      throw Error(ErrorCode::kNotFound, "no statement or block was commented out there");
    }
    if (memory != nullptr) DropFormerChildren(state, *memory);
    BringBackRead(state, id, std::move(*disabled));
    KeepKnownRuns(state);
  }
  JoinAgain(state, state.tree[id].previous, id);
  JoinAgain(state, id, state.tree[id].next);
  state.tree.Note(id);
  state.last_of_key.clear();
  CloseOpenedBlocks(state, state.tree[id].parent);
}

}  // namespace klepur::internal
