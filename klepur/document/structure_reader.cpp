#include <klepur/document/structure_reader.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

#include <klepur/document/structure_words.h>
#include <klepur/document/words_of_text.h>
#include <klepur/text/letters.h>
#include <klepur/text/structural_bytes.h>

namespace klepur::internal {
namespace {

std::string_view Between(const char* begin, const char* end) {
  return {begin, static_cast<std::size_t>(end - begin)};
}

/// Over what stands between statements: blanks, and NUL, which the server passes over as well.
const char* BehindGap(const char* from, const char* end) {
  while (from < end && (*from == '\0' || IsBlank(*from))) ++from;
  return from;
}

/// The last line end of these bytes; null when there is none.
const char* LastLineEnd(const char* begin, const char* end) {
  const std::size_t last = Between(begin, end).rfind('\n');
  return last == std::string_view::npos ? nullptr : begin + last;
}

/// Words behind which a statement must go on.
bool WantsMore(std::string_view word) {
  static constexpr std::array<std::string_view, 14> kWords = {
      "and", "or",      "not",   "if", "with", "option",      "exists",
      "of",  "members", "match", "on", "code", "encapsulate", "array"};
  return std::any_of(kWords.begin(), kWords.end(),
                     [word](std::string_view other) { return EqualButForCase(word, other); });
}

bool CanBeLast(std::string_view word, bool secret) {
  const char last = word.back();
  if (last == '=') return secret;  // as base64 ends
  if (!IsWordByte(last)) return last == '"' || last == ')' || last == '}' || last == '.';
  return !WantsMore(word);
}

std::size_t FewestWords(std::string_view first) {
  const StructureWord& word = WordOf(NumberOf(first));
  if (word.text.empty() || word.begins == Begins::kAlone) return 1;
  return std::max<std::size_t>(2, word.key_words);
}

/// How far a statement has come, so that a long one is looked at once and not from its start each time.
class StatementSoFar {
 public:
  explicit StatementSoFar(const char* start) : at_(start) {}

  void AdvanceTo(const char* limit) {
    WordsOfText words(Between(at_, limit));
    for (std::string_view word = words.Next(); !word.empty(); word = words.Next()) Take(word);
    at_ = limit;
  }

  /// Whether it could end here, were there a ";".
  bool CouldBeWhole() const {
    const Begins begins = WordOf(NumberOf(first_)).begins;
    if (begins == Begins::kChain || begins == Begins::kBranch || begins == Begins::kLabel) {
      return false;
    }
    return depth_ <= 0 && count_ >= FewestWords(first_) &&
           CanBeLast(last_, EqualButForCase(first_, "secret"));
  }

  /// Whether a "{" that stands here begins a value: "= { ... }", "array of { ... }".
  bool WantsValue() const {
    return last_ == "=" || (EqualButForCase(last_, "of") && EqualButForCase(first_, "option"));
  }

 private:
  void Take(std::string_view word) {
    if (word == "(") ++depth_;
    if (word == ")") --depth_;
    if (count_++ == 0) first_ = word;
    last_ = word;
  }

  const char* at_;
  std::string_view first_;
  std::string_view last_;
  std::size_t count_ = 0;
  std::ptrdiff_t depth_ = 0;
};

/// Whether the bytes before a "{" rule out that it begins a value.
bool IsPlainHeader(const char* start, const char* brace) {
  while (brace > start && IsBlank(brace[-1])) --brace;
  return brace == start || (brace[-1] != '=' && ToSmallLetter(brace[-1]) != 'f');
}

/// Whether a line that goes on like this begins a statement or a block.
bool BeginsStatement(const char* from, const char* end) {
  const std::string_view word = LeadingWord(Between(from, end));
  const char* const behind = from + word.size();
  if (behind < end && !IsBlank(*behind) && std::strchr(";{\"#", *behind) == nullptr) return false;
  const StructureWord& known = WordOf(NumberOf(word));
  return !known.text.empty() && known.begins != Begins::kBranch;
}

}  // namespace

StructureReader::StructureReader(SyntaxTree& tree, std::string_view text, TextAddress base)
    : tree_(tree),
      begin_(text.data()),
      end_(text.data() + text.size()),
      base_(base),
      next_(begin_) {}

void StructureReader::Read(NodeId parent) {
  Read(parent, false);
}

void StructureReader::ReadFirst(NodeId parent) {
  Read(parent, true);
}

void StructureReader::Read(NodeId parent, bool only_first) {
  parent_ = parent;
  previous_ = kNoNode;
  if (base_ == 0 && Between(begin_, end_).substr(0, kByteOrderMark.size()) == kByteOrderMark) {
    next_ += kByteOrderMark.size();
  }
  for (;;) {
    next_ = BehindGap(next_, end_);
    if (next_ == end_ || (only_first && parent_ == parent && previous_ != kNoNode)) break;
    switch (*next_) {
      case '#':
        ReadComment();
        break;
      case '}':
        Close(parent);
        break;
      case ';':
        Add(NodeKind::kStray, next_, next_ + 1);
        ++next_;
        break;
      default:
        ReadStatement();
    }
  }
  CloseOpenBlocks(parent);
}

void StructureReader::Close(NodeId top) {
  const char* const brace = next_++;
  if (parent_ == top) {
    Add(NodeKind::kStray, brace, next_);
    return;
  }
  const char* const behind = BehindGap(next_, end_);
  SyntaxNode& block = tree_.Made(parent_);
  if (behind < end_ && *behind == ';') {
    block.late_semicolon = 1;
    next_ = behind + 1;
  }
  block.end = AddressOf(next_);
  previous_ = parent_;
  parent_ = block.parent;
}

void StructureReader::ReadComment() {
  const char* const line_end = FindLineEnd(next_, end_);
  const char* text_end = line_end;
  while (IsBlank(text_end[-1])) --text_end;
  Add(NodeKind::kComment, next_, text_end);
  next_ = line_end;
}

void StructureReader::ReadStatement() {
  if (ReadLabel()) return;
  const char* const start = next_;
  if (const std::size_t size = SizeOfEndless(Between(start, end_))) {
    return AddStatement(start, start + size, false, false);
  }
  StatementSoFar so_far(start);
  bool open_quote = false;
  bool comment = false;
  int braces = 0;
  const char* at = start;
  for (;;) {
    at = FindStructural(at, end_);
    if (at == end_) return AddUnfinished(start, end_, open_quote);
    switch (*at) {
      case ';':
        return AddStatement(start, at + 1, braces != 0, open_quote);
      case '{':
        if (braces == 0) {
          if (!comment && IsPlainHeader(start, at)) return OpenBlock(start, at, open_quote);
          so_far.AdvanceTo(at);
          if (!so_far.WantsValue()) return OpenBlock(start, at, open_quote);
        }
        ++braces;
        ++at;
        break;
      case '}':
        if (braces == 0) return AddUnfinished(start, at, open_quote);
        --braces;
        ++at;
        break;
      case '"':
        at = BehindString(at, open_quote);
        break;
      case '#':
        comment = true;
        at = FindLineEnd(at, end_);
        break;
      default: {
        const char* const behind = BehindGap(at, end_);
        if (braces == 0 && behind < end_ && IsLetter(*behind) && BeginsStatement(behind, end_)) {
          so_far.AdvanceTo(at);
          if (so_far.CouldBeWhole()) return AddUnfinished(start, at, open_quote);
        }
        at = behind;
      }
    }
  }
}

bool StructureReader::ReadLabel() {
  if (tree_[parent_].word != kWordSwitch) return false;
  const std::uint8_t number = NumberOf(LeadingWord(Between(next_, end_)));
  if (number != kWordCase && number != kWordDefault) return false;
  const char* at = next_;
  bool open = false;
  while (at < end_ && *at != ':' && *at != ';' && *at != '{' && *at != '}') {
    if (*at == '"') {
      at = BehindString(at, open);
    } else if (*at == '#') {
      at = FindLineEnd(at, end_);
    } else {
      ++at;
    }
  }
  if (at == end_ || *at != ':') return false;
  tree_.Made(Add(NodeKind::kLabel, next_, at + 1)).open_quote = open;
  malformed_ = malformed_ || open;
  next_ = at + 1;
  return true;
}

const char* StructureReader::BehindString(const char* quote, bool& open) {
  if (FindClosing(quote)) {
    const char* const behind = closing_ + 1;
    const bool over_lines = last_line_end_ > quote;
    const bool word_follows = behind < end_ && BeginsWordBehindString(*behind);
    if (!over_lines || !word_follows) return behind;
  }
  open = true;
  return quote + 1;
}

bool StructureReader::FindClosing(const char* quote) {
  if (opening_ < quote && quote < closing_) return true;
  const char* at = quote + 1;
  while (quotes_pair_) {
    at = FindStringMark(at, end_);
    if (at >= end_) break;
    if (*at == '"') {
      opening_ = quote;
      closing_ = at;
      last_line_end_ = LastLineEnd(quote, at);
      return true;
    }
    at = std::min(at + 2, end_);
  }
  // From this quote on none that is not behind a backslash follows, so none of them closes another.
  quotes_pair_ = false;
  return false;
}

NodeId StructureReader::Add(NodeKind kind, const char* begin, const char* end) {
  SyntaxNode node;
  node.begin = AddressOf(begin);
  node.end = AddressOf(end);
  node.parent = parent_;
  node.previous = previous_;
  node.kind = kind;
  malformed_ = malformed_ || kind == NodeKind::kStray;
  const NodeId id = tree_.Append(node);
  if (previous_ != kNoNode) tree_.Made(previous_).next = id;
  previous_ = id;
  return id;
}

void StructureReader::AddStatement(const char* start, const char* end, bool unfinished,
                                   bool open_quote) {
  SyntaxNode& node = tree_.Made(Add(NodeKind::kStatement, start, end));
  node.unfinished = unfinished;
  node.open_quote = open_quote;
  malformed_ = malformed_ || unfinished || open_quote;
  next_ = end;
}

void StructureReader::AddUnfinished(const char* start, const char* limit, bool open_quote) {
  AddStatement(start, start + UpToLastWord(Between(start, limit)).size(), true, open_quote);
}

void StructureReader::OpenBlock(const char* start, const char* brace, bool open_quote) {
  const std::uint8_t word = WordAt(start);
  next_ = brace + 1;
  const NodeId id = Add(NodeKind::kBlock, start, next_);
  SyntaxNode& node = tree_.Made(id);
  tree_.SetBrace(id, static_cast<TextAddress>(brace - start));
  node.word = word;
  node.open_quote = open_quote;
  malformed_ = malformed_ || open_quote;
  parent_ = id;
  previous_ = kNoNode;
}

void StructureReader::CloseOpenBlocks(NodeId top) {
  for (; parent_ != top; parent_ = tree_[parent_].parent) {
    SyntaxNode& block = tree_.Made(parent_);
    block.unfinished = 1;
    malformed_ = true;
    if (previous_ != kNoNode) block.end = tree_[previous_].end;
    previous_ = parent_;
  }
}

/// One lookup for many blocks of a kind in a row.
std::uint8_t StructureReader::WordAt(const char* start) {
  const std::string_view word = LeadingWord(Between(start, end_));
  if (word != last_word_) {
    last_word_ = word;
    last_word_number_ = NumberOf(word);
  }
  return last_word_number_;
}

}  // namespace klepur::internal
