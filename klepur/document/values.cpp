#include <klepur/document/values.h>

#include <algorithm>
#include <string>
#include <vector>

#include <klepur/document/comments.h>
#include <klepur/document/document.h>
#include <klepur/document/gaps.h>
#include <klepur/document/insertion.h>
#include <klepur/document/node_text.h>
#include <klepur/document/structure_reader.h>
#include <klepur/document/structure_words.h>
#include <klepur/document/words_of_text.h>
#include <klepur/text/error.h>
#include <klepur/text/letters.h>
#include <klepur/text/text_buffer.h>

namespace klepur::internal {
namespace {

/// Whether a text reads as one node of a kind that takes all of it.
bool IsOne(std::string_view text, NodeKind kind) {
  const TextBuffer buffer(text);
  SyntaxTree tree;
  StructureReader reader(tree, buffer.view(), 1);
  reader.Read(kRoot);
  return !reader.IsMalformed() && tree.Count() == 2 && tree[1].kind == kind && tree[1].begin == 1 &&
         tree[1].end == text.size() + 1;
}

bool IsStatement(const DocumentState& state, NodeId id) {
  return state.tree[id].kind == NodeKind::kStatement;
}

void RequireStatement(const DocumentState& state, NodeId id) {
  if (IsStatement(state, id)) return;
  throw Error(ErrorCode::kBadPlace, "only statements have values");
}

void RequireBlock(const DocumentState& state, NodeId id) {
  if (!state.IsBlock(id)) throw Error(ErrorCode::kBadPlace, "only blocks have headers");
}

std::string_view WithoutBlanksAround(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n\v\f";
  const std::size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
  return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

/// Whether a statement is surely one and the same statement with another value in the place of its own, without
/// reading it: nothing in either ends a word in a way of its own.
bool IsPlainChange(std::string_view statement, ValuePlace place, std::string_view value) {
  const auto is_plain = [](char byte) {
    return IsWordByte(byte) || byte == ' ' || byte == '.' || byte == ':' || byte == '/' ||
           byte == ',';
  };
  const std::string_view words = statement.substr(0, statement.size() - 1);
  return !value.empty() && place.begin != place.end && place.begin != 0 &&
         statement[place.begin - 1] == ' ' && statement.back() == ';' &&
         std::all_of(words.begin(), words.end(), is_plain) &&
         std::all_of(value.begin(), value.end(), is_plain) &&
         ToSmallLetter(statement.front()) != 'n';
}

/// Puts another text in the place of a statement's, or of a header up to its "{".
void ReplaceOwnText(DocumentState& state, NodeId id, std::string_view text) {
  const bool block = state.IsBlock(id);
  const PieceText::Edge begin = state.Begin(id);
  PieceText::Edge end =
      block ? state.text.Before(state.tree[id].begin + state.tree.BraceOf(id)) : state.End(id);
  Span span = state.text.Append(text);
  if (block) {  // whose header keeps standing side by side with its "{"
    span.end = state.text.Append("{").end;
    state.text.Forward(end);
  }
  state.text.Replace(begin, end, span);
  SyntaxNode& node = state.tree.Change(id);
  const bool empty_block =
      block && node.unfinished && node.end == node.begin + state.tree.BraceOf(id) + 1;
  node.begin = span.begin;
  if (!block || empty_block) node.end = span.end;
  if (block) state.tree.SetBrace(id, static_cast<TextAddress>(text.size()));
  state.tree.Note(id);
}

/// The column of the comment behind a statement, if a comment on a line next to it stands there too.
bool IsAligned(const DocumentState& state, NodeId statement, NodeId comment) {
  const std::size_t column = ColumnOf(state, state.Begin(comment));
  if (column == kFar) return false;
  const auto has_comment_there = [&](NodeId id) {
    if (id == kNoNode || state.IsComment(id)) return false;
    const NodeId other = TrailingComment(state, id);
    return other != kNoNode && ColumnOf(state, state.Begin(other)) == column;
  };
  NodeId previous = state.tree[statement].previous;
  while (previous != kNoNode && state.IsComment(previous)) {
    previous = state.tree[previous].previous;
  }
  NodeId next = state.tree[comment].next;
  while (next != kNoNode && state.IsComment(next)) next = state.tree[next].next;
  return has_comment_there(previous) || has_comment_there(next);
}

/// Changes a statement's text and keeps the column of an aligned comment behind it.
void ReplaceStatement(DocumentState& state, NodeId id, const std::string& text) {
  if (text == state.OwnText(id)) return;
  const NodeId comment = TrailingComment(state, id);
  const Gap gap = GapBehind(state, id);
  const bool aligned = comment != kNoNode && IsAligned(state, id, comment) &&
                       ReadGap(state, gap).find_first_not_of(' ') == std::string::npos;
  const std::size_t column = comment == kNoNode ? 0 : ColumnOf(state, state.Begin(comment));
  if (comment != kNoNode) {
    state.memory.Remember(
        {EditMemory::About::kAlignment, id, comment, std::string(state.OwnText(id))},
        {{}, {ReadGap(state, gap)}});
  }
  ReplaceOwnText(state, id, text);
  if (comment == kNoNode) return;
  const Remembered* memory =
      state.memory.Recall({EditMemory::About::kAlignment, id, comment, text});
  if (memory != nullptr) return WriteGap(state, gap, memory->texts.front());
  if (!aligned) return;
  const std::size_t end = ColumnOf(state, state.End(id));
  WriteGap(state, gap, std::string(end < column ? column - end : 1, ' '));
}

/// The same with the text of a whole statement, where there may have been part of one.
void ReplaceWhole(DocumentState& state, NodeId id, const std::string& text) {
  const bool completed = state.tree[id].unfinished != 0;
  ReplaceStatement(state, id, text);
  if (completed || state.tree[id].open_quote) {
    SyntaxNode& node = state.tree.Change(id);
    node.unfinished = 0;
    node.open_quote = 0;
  }
}

/// The elements of a comma-separated list, as places in a statement's text.
std::vector<ValuePlace> ElementsOf(std::string_view statement) {
  const ValuePlace value = ValueIn(statement);
  const std::string_view text = statement.substr(0, value.end);
  std::vector<ValuePlace> elements;
  WordsOfText words(text.substr(value.begin));
  ValuePlace element = {value.begin, value.begin};
  int depth = 0;
  bool fresh = true;
  for (std::string_view word = words.Next(); !word.empty(); word = words.Next()) {
    const auto begin = static_cast<std::size_t>(word.data() - statement.data());
    if (word == "(" || word == "{") ++depth;
    if (word == ")" || word == "}") --depth;
    if (word == "," && depth == 0) {
      elements.push_back(element);
      fresh = true;
      continue;
    }
    if (fresh) element.begin = begin;
    element.end = begin + word.size();
    fresh = false;
  }
  if (!fresh) elements.push_back(element);
  return elements;
}

std::string_view ElementText(std::string_view statement, ValuePlace element) {
  return statement.substr(element.begin, element.end - element.begin);
}

/// The text with an element more, for an element and a list without anything in them that would have to be read: a long
/// list is looked at only at its end. Empty for others, and where taking the element out again would not give the first
/// text back.
std::string WithPlainElement(const std::string& text, std::string_view element) {
  const ValuePlace value = ValueIn(text);
  if (!IsBareWord(element) || !IsPlainChange(text, value, element)) return {};
  std::string_view separator = ", ";
  const std::size_t comma = text.rfind(',', value.end);
  if (comma != std::string::npos && comma >= value.begin) {
    const std::size_t last = text.find_first_not_of(' ', comma + 1);
    if (text[comma - 1] == ' ' || last >= value.end) return {};
    separator = std::string_view(text).substr(comma, last - comma);
  }
  return text.substr(0, value.end).append(separator).append(element) + text.substr(value.end);
}

/// The text with a list's element taken out, and its line if it stood alone on one.
std::string WithoutElement(const std::string& text, const std::vector<ValuePlace>& elements,
                           std::size_t index) {
  if (index + 1 == elements.size()) {  // the comma before the last one goes with it
    const std::size_t comma = text.rfind(',', elements[index].begin);
    const std::string between = text.substr(comma + 1, elements[index].begin - comma - 1);
    if (between.find('#') == std::string::npos) {
      return text.substr(0, comma) + text.substr(elements[index].end);
    }
    return text.substr(0, comma) + between + text.substr(elements[index].end);
  }
  const std::size_t begin = elements[index].begin;
  const std::size_t comma = text.find(',', elements[index].end);
  const std::size_t line_begin = text.rfind('\n', begin) + 1;
  const std::size_t line_end = text.find('\n', comma);
  const bool first_on_line = line_begin != 0 && text.find_first_not_of(" \t", line_begin) == begin;
  const bool last_on_line =
      line_end != std::string::npos && text.find_first_not_of(" \t\r", comma + 1) == line_end;
  if (first_on_line && last_on_line) {
    return text.substr(0, line_begin) + text.substr(line_end + 1);
  }
  const std::size_t next = elements[index + 1].begin;
  const std::string between = text.substr(comma + 1, next - comma - 1);
  const std::size_t end = between.find('#') == std::string::npos ? next : comma + 1;
  return text.substr(0, begin) + text.substr(end);
}

/// Ends a statement before the comment in the line of its last word, if there is only the ";" behind it.
void PutCommentsBehind(DocumentState& state, NodeId id) {
  const std::string text(state.OwnText(id));
  const std::size_t end = UpToLastWord(text.substr(0, text.size() - 1)).size();
  const std::size_t line_end = text.find('\n', end);
  const std::size_t mark = text.find_first_not_of(" \t", end);
  if (mark == std::string::npos || text[mark] != '#' || !EndsLine(state, id) ||
      text.find_first_not_of(" \t\r\n", line_end) != text.size() - 1) {
    return;
  }
  const std::size_t comment_end = text[line_end - 1] == '\r' ? line_end - 1 : line_end;
  ReplaceOwnText(state, id, text.substr(0, end) + ";");
  const Gap gap = GapBehind(state, id);
  const std::string comment = text.substr(mark, comment_end - mark);
  const TextAddress address =
      PutInGap(state, gap, text.substr(end, mark - end), comment, ReadGap(state, gap));
  HangNodes(state, gap, comment, address);
}

}  // namespace

void RequireStatementText(std::string_view text) {
  if (IsOne(text, NodeKind::kStatement)) return;
  throw Error(ErrorCode::kBadText, "\"" + std::string(text) + "\" is not one statement");
}

void SetValueOf(DocumentState& state, NodeId id, std::string_view value) {
  RequireStatement(state, id);
  const std::string_view old = state.OwnText(id);
  const ValuePlace place = ValueIn(old);
  value = WithoutBlanksAround(value);
  const bool emptied = place.begin != place.end && value.empty();
  std::string text(old.substr(0, emptied ? KeySize(old) : place.begin));
  if (place.begin == place.end && !value.empty()) text += ' ';
  text.append(value).append(old.substr(place.end));
  if (text.back() != ';') text += ';';
  const bool sound = !state.tree[id].unfinished && !state.tree[id].open_quote;
  const bool plain = sound && IsPlainChange(old, place, value);
  if (!plain && (!IsOne(text, NodeKind::kStatement) || !HasKey(text, KeyOf(old)))) {
    throw Error(ErrorCode::kBadText, "\"" + std::string(value) + "\" is no value of a statement");
  }
  ReplaceWhole(state, id, text);
}

void SetStatementOf(DocumentState& state, NodeId id, std::string_view text) {
  RequireStatement(state, id);
  RequireStatementText(text);
  if (WordOf(NumberOf(LeadingWord(text))).begins == Begins::kLabel) {
    throw Error(ErrorCode::kBadText, "a statement cannot become a label");
  }
  ReplaceWhole(state, id, std::string(text));
  state.last_of_key.clear();
}

void SetHeaderOf(DocumentState& state, NodeId block, std::string_view header) {
  RequireBlock(state, block);
  const std::string old(state.OwnText(block));
  const std::string_view words = UpToLastWord(header);
  const std::string text = std::string(words) + old.substr(UpToLastWord(old).size());
  const bool whole =
      header.find_first_not_of(" \t\r\n\v\f", words.size()) == std::string_view::npos;
  if (words.empty() || !whole || !IsOne(text + "{}", NodeKind::kBlock)) {
    throw Error(ErrorCode::kBadText, "\"" + std::string(header) + "\" is no header of a block");
  }
  ReplaceOwnText(state, block, text);
  SyntaxNode& node = state.tree.Change(block);
  node.word = NumberOf(LeadingWord(text));
  node.open_quote = 0;
  state.last_of_key.clear();
}

void RenameBlock(DocumentState& state, NodeId block, std::string_view name) {
  RequireBlock(state, block);
  const std::string old(UpToLastWord(state.OwnText(block)));
  const std::string old_name = NameIn(old);
  if (name == old_name) return;
  state.memory.Remember({EditMemory::About::kHeader, block, kNoNode, old_name}, {{}, {old}});
  const Remembered* memory =
      state.memory.Recall({EditMemory::About::kHeader, block, kNoNode, std::string(name)});
  if (memory != nullptr && KeyOf(memory->texts.front()) == KeyOf(old)) {
    return SetHeaderOf(state, block, memory->texts.front());
  }
  const bool one_word = IsBareWord(name);
  const bool as_it_stands = !IsQuotedName(old) && NameIn("x " + std::string(name)) == name;
  const std::string_view key = std::string_view(old).substr(0, KeySize(old));
  const std::string_view first = FirstWord(std::string_view(old).substr(key.size()));
  const std::string gap = first.empty() ? " " : std::string(key.data() + key.size(), first.data());
  const bool plain =
      one_word ? !IsQuotedName(old) : as_it_stands && old_name.find(' ') != std::string::npos;
  SetHeaderOf(state, block, std::string(key) + gap + (plain ? std::string(name) : Quoted(name)));
}

NodeId StatementInForce(const DocumentState& state, NodeId block, std::string_view key) {
  NodeId found = kNoNode;
  int seen = 0;
  for (NodeId id = state.tree.FirstChild(block); id != kNoNode; id = state.tree[id].next) {
    if (IsStatement(state, id) && HasKey(state.OwnText(id), key)) found = id;
    if (++seen != ChildIndex::kMany) continue;
    const std::vector<NodeId> all = ChildrenWithKey(state, block, key);
    if (all.empty()) return kNoNode;
    if (all.size() == 1) return IsStatement(state, all.front()) ? all.front() : kNoNode;
  }
  return found;
}

void AppendToListOf(DocumentState& state, NodeId id, std::string_view element) {
  RequireStatement(state, id);
  const std::string old(state.OwnText(id));
  const bool sound = !state.tree[id].unfinished && !state.tree[id].open_quote;
  const std::string plain = sound ? WithPlainElement(old, element) : std::string();
  if (!plain.empty()) return ReplaceStatement(state, id, plain);
  const std::vector<ValuePlace> elements = ElementsOf(old);
  if (elements.empty()) return SetValueOf(state, id, element);
  const ValuePlace last = elements.back();
  const std::size_t line_begin = old.rfind('\n', last.begin) + 1;
  const bool alone = line_begin != 0 && old.find_first_not_of(" \t", line_begin) == last.begin;
  std::string separator = ", ";
  if (alone) {
    const bool carriage_return = line_begin > 1 && old[line_begin - 2] == '\r';
    separator =
        (carriage_return ? ",\r\n" : ",\n") + old.substr(line_begin, last.begin - line_begin);
  } else if (elements.size() > 1) {
    const std::size_t before = elements[elements.size() - 2].end;
    const std::string between = old.substr(before, last.begin - before);
    if (between.find_first_of("#\n") == std::string::npos) separator = between;
  }
  const std::string text =
      old.substr(0, last.end) + separator + std::string(element) + old.substr(last.end);
  if (!IsOne(text, NodeKind::kStatement) || ElementsOf(text).size() != elements.size() + 1) {
    throw Error(ErrorCode::kBadText, "\"" + std::string(element) + "\" is no element of a list");
  }
  state.memory.Remember({EditMemory::About::kList, id}, {{}, {text, old, NormalWords(element)}});
  ReplaceStatement(state, id, text);
}

bool RemoveFromListOf(DocumentState& state, NodeId id, std::string_view element) {
  RequireStatement(state, id);
  const std::string old(state.OwnText(id));
  const std::vector<ValuePlace> elements = ElementsOf(old);
  const auto found = std::find_if(elements.begin(), elements.end(), [&](const ValuePlace& place) {
    return NormalWords(ElementText(old, place)) == NormalWords(element);
  });
  if (found == elements.end()) return false;
  if (elements.size() == 1) {
    throw Error(ErrorCode::kBadText, "the last element of a list cannot be taken out");
  }
  const Remembered* memory = state.memory.Recall({EditMemory::About::kList, id});
  if (memory != nullptr && memory->texts[0] == old && memory->texts[2] == NormalWords(element)) {
    ReplaceStatement(state, id, std::string(memory->texts[1]));
    return true;
  }
  const std::string text =
      WithoutElement(old, elements, static_cast<std::size_t>(found - elements.begin()));
  ReplaceStatement(state, id, text);
  if (TrailingComment(state, id) == kNoNode) PutCommentsBehind(state, id);
  return true;
}

}  // namespace klepur::internal
