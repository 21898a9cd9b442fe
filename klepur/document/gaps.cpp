#include <klepur/document/gaps.h>

namespace klepur::internal {
namespace {

constexpr std::size_t kMostColumns = 1000;

bool IsSpace(char byte) {
  return byte == ' ' || byte == '\t';
}

/// Walks back from an edge to the start of its line.
PieceText::Edge LineStart(const DocumentState& state, PieceText::Edge edge) {
  PieceText::Edge at = edge;
  while (state.text.Back(at) && state.text.ByteAt(at) != '\n') edge = at;
  return edge;
}

std::string LineEndBefore(const DocumentState& state, PieceText::Edge edge) {
  while (state.text.Back(edge)) {
    if (state.text.ByteAt(edge) != '\n') continue;
    return state.text.Back(edge) && state.text.ByteAt(edge) == '\r' ? "\r\n" : "\n";
  }
  return "\n";
}

}  // namespace

NodeId NextOf(const DocumentState& state, Gap gap) {
  return gap.previous == kNoNode ? state.tree.FirstChild(gap.parent)
                                 : state.tree[gap.previous].next;
}

PieceText::Edge BeginOf(const DocumentState& state, Gap gap) {
  return gap.previous == kNoNode ? state.Inside(gap.parent) : state.End(gap.previous);
}

PieceText::Edge EndOf(const DocumentState& state, Gap gap) {
  const NodeId next = NextOf(state, gap);
  return next == kNoNode ? state.InsideEnd(gap.parent) : state.Begin(next);
}

std::string ReadGap(const DocumentState& state, Gap gap) {
  return state.text.Read(BeginOf(state, gap), EndOf(state, gap));
}

std::string SidesOf(const DocumentState& state, Gap gap) {
  const auto side = [&state](NodeId id) {
    return id != kNoNode && state.IsComment(id) ? '#' : ';';
  };
  return {side(gap.previous), side(NextOf(state, gap))};
}

void WriteGap(DocumentState& state, Gap gap, std::string_view text) {
  const bool behind_comment = gap.previous != kNoNode && state.IsComment(gap.previous);
  const bool at_end = NextOf(state, gap) == kNoNode && gap.parent == kRoot;
  if (behind_comment && !at_end && !HasLineEnd(text)) return;
  if (ReadGap(state, gap) == text) return;
  const Span span = state.text.Append(text);
  state.text.Replace(BeginOf(state, gap), EndOf(state, gap), span);
}

std::string_view LastLine(std::string_view text) {
  return text.substr(text.rfind('\n') + 1);
}

std::string_view FirstLine(std::string_view text) {
  return text.substr(0, text.find('\n') + 1);
}

std::string_view WithoutLastLine(std::string_view text) {
  return text.substr(0, text.rfind('\n') + 1);
}

bool BeginsLine(const DocumentState& state, NodeId id) {
  const Gap gap = GapBefore(state, id);
  return HasLineEnd(ReadGap(state, gap)) || (gap.parent == kRoot && gap.previous == kNoNode);
}

bool EndsLine(const DocumentState& state, NodeId id) {
  const Gap gap = GapBehind(state, id);
  if (HasLineEnd(ReadGap(state, gap))) return true;
  return NextOf(state, gap) == kNoNode &&
         (gap.parent == kRoot || state.text.IsEnd(EndOf(state, gap)));
}

std::string IndentOf(const DocumentState& state, NodeId id) {
  std::string indent;
  PieceText::Edge edge = LineStart(state, state.Begin(id));
  while (!state.text.IsEnd(edge) && IsSpace(state.text.ByteAt(edge))) {
    indent += state.text.ByteAt(edge);
    state.text.Forward(edge);
  }
  return indent;
}

std::size_t WidthOf(std::string_view blanks) {
  std::size_t width = 0;
  for (const char byte : blanks) width = byte == '\t' ? (width / 8 + 1) * 8 : width + 1;
  return width;
}

std::size_t ColumnOf(const DocumentState& state, PieceText::Edge edge) {
  PieceText::Edge start = edge;
  std::size_t bytes = 0;
  for (PieceText::Edge at = edge; state.text.Back(at) && state.text.ByteAt(at) != '\n';
       start = at) {
    if (++bytes > kMostColumns) return kFar;
  }
  return WidthOf(state.text.Read(start, edge));
}

std::string LineEndAt(const DocumentState& state, PieceText::Edge edge) {
  const PieceText::Edge start = edge;
  char before = '\0';
  for (; !state.text.IsEnd(edge); state.text.Forward(edge)) {
    const char byte = state.text.ByteAt(edge);
    if (byte == '\n') {
      PieceText::Edge behind = edge;
      if (edge == start && state.text.Back(behind)) before = state.text.ByteAt(behind);
      return before == '\r' ? "\r\n" : "\n";
    }
    before = byte;
  }
  return LineEndBefore(state, start);
}

bool IsOnOneLine(const DocumentState& state, NodeId id) {
  PieceText::Edge edge = state.Begin(id);
  for (const PieceText::Edge end = state.End(id); edge != end; state.text.Forward(edge)) {
    if (state.text.ByteAt(edge) == '\n') return false;
  }
  return true;
}

}  // namespace klepur::internal
