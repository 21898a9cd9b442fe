#include <klepur/rewrite/piece_reader.h>

#include <algorithm>

#include <klepur/text/error.h>
#include <klepur/text/file_bytes.h>
#include <klepur/text/structural_bytes.h>

namespace klepur::internal {
namespace {

using Sort = RewrittenPiece::Sort;

/// The parser remembers the place of a "{" that opens no block in 16 bits, and puts it back there.
constexpr std::size_t kBracePlaces = 65536;

std::string_view Between(const char* begin, const char* end) {
  return {begin, static_cast<std::size_t>(end - begin)};
}

bool IsCutOff(char byte) {
  return byte == ' ' || byte == '\t' || byte == '\v';
}

std::string_view WithoutEnd(std::string_view text) {
  while (!text.empty() && IsCutOff(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view WithoutFront(std::string_view text) {
  while (!text.empty() && IsCutOff(text.front())) text.remove_prefix(1);
  return text;
}

bool HasSemicolon(std::string_view text) {
  return text.find(';') != std::string_view::npos;
}

}  // namespace

PieceReader::PieceReader(std::string_view text)
    : begin_(text.data()),
      end_(begin_ + text.size()),
      nul_(begin_ + std::min(text.find('\0'), text.size())),
      next_(begin_),
      piece_(begin_) {
  pieces_.reserve(static_cast<TextAddress>(text.size() / 32 + 1));
  blocks_.push_back({kOutside});
}

bool PieceReader::Read() {
  while (const char* const mark = CollectToMark()) {
    next_ = mark + 1;
    switch (*mark) {
      case ';':
        pending_.Append(Between(mark, next_));
        KeepEntry(Sort::kStatement, pending_.View());
        break;
      case '#':
        if (!TakeComment(mark)) return false;
        break;
      case '{':
        if (!TakeBrace(mark)) return false;
        break;
      default:
        TakeClosingBrace();
    }
  }
  return nul_ == end_;
}

/// Collects what stands before the next ";", "#" or brace, and returns the place of that. Null when none
/// follows, or a NUL byte before it.
const char* PieceReader::CollectToMark() {
  if (pending_.IsEmpty()) next_ = SkipBlanks(next_, end_);
  for (const char* at = next_;;) {
    at = FindStructural(at, end_);
    if (at >= nul_) return nullptr;
    if (*at == '"') {
      at = BehindQuoted(at);
      if (at > nul_) return nullptr;
    } else if (*at == '\n') {
      pending_.Append(UpToLineEnd(next_, at));
      next_ = pending_.IsEmpty() ? SkipBlanks(at, end_) : at + 1;
      at = next_;
    } else {
      pending_.Append(Between(next_, at));
      return at;
    }
  }
}

/// Where the quoted string ends that begins at a quote; right behind that when nothing closes it on its line.
/// Nothing closes those that begin later in the line then.
const char* PieceReader::BehindQuoted(const char* quote) {
  if (quote < unclosed_until_) return quote + 1;
  const char* at = quote + 1;
  for (; !EndsLine(at); ++at) {
    if (*at == '"') return at + 1;
    if (*at == '\\' && !EndsLine(at + 1)) ++at;
  }
  unclosed_until_ = at;
  return quote + 1;
}

/// Takes the rest of a line and goes behind it. False when it holds a NUL byte.
bool PieceReader::FindRestOfLine(const char* from, std::string_view& rest) {
  const char* const line_feed = FindLineEnd(from, end_);
  if (nul_ < line_feed) return false;
  rest = line_feed == end_ ? Between(from, end_) : UpToLineEnd(from, line_feed);
  next_ = line_feed == end_ ? end_ : line_feed + 1;
  return true;
}

/// A line end is a line feed or both of "\r\n".
std::string_view PieceReader::UpToLineEnd(const char* from, const char* line_feed) const {
  const bool both = line_feed != from && line_feed[-1] == '\r';
  return Between(from, both ? line_feed - 1 : line_feed);
}

bool PieceReader::TakeComment(const char* mark) {
  std::string_view rest;
  if (!FindRestOfLine(mark + 1, rest)) return false;
  pending_.Append(rest);
  KeepEntry(Sort::kComment, WithoutFront(WithoutEnd(pending_.View())));
  return true;
}

/// For HasUnpairedQuotes.
void PieceReader::LookAtQuotes(std::string_view rest) {
  std::size_t at = rest.find('"');
  while (at < rest.size()) {
    at = rest.find('"', static_cast<std::size_t>(BehindQuoted(rest.data() + at) - rest.data()));
  }
}

/// A "{" opens a block, unless a ";" stands before it (then in quotes) or behind it on its line.
bool PieceReader::TakeBrace(const char* brace) {
  std::string_view rest;
  if (!FindRestOfLine(brace + 1, rest)) return false;
  LookAtQuotes(rest);
  if (!HasSemicolon(rest) && !HasSemicolon(pending_.View())) {
    pending_.Append(WithoutEnd(rest));
    OpenBlock();
    return true;
  }
  if (const std::size_t place = pending_.View().size(); place < kBracePlaces) {
    pending_.Append(Between(brace, brace + 1));
    pending_.Append(rest);
  } else {
    pending_.Append(rest);
    pending_.Insert(place % kBracePlaces, '{');
  }
  KeepEntry(Sort::kStatement, WithoutEnd(pending_.View()));
  return true;
}

void PieceReader::OpenBlock() {
  if (block_ == kOutside) {
    ++levels_outside_;
    return Keep(Sort::kHeader, {});
  }
  blocks_.push_back({block_, {}});
  block_ = blocks_.size() - 1;
  Keep(Sort::kHeader, WithoutEnd(pending_.View()));
}

/// What is pending stays so.
void PieceReader::TakeClosingBrace() {
  if (pending_.IsEmpty()) piece_ = next_;
  if (block_ != kOutside) {
    block_ = blocks_[block_].parent;
  } else if (levels_outside_ != 0) {
    --levels_outside_;
  }
}

void PieceReader::KeepEntry(Sort sort, std::string_view content) {
  if (block_ != kOutside) {
    ReadBlock& block = blocks_[block_];
    block.entries_size += EntrySize(sort, content);
    ++block.entries;
  }
  Keep(sort, content);
}

void PieceReader::Keep(Sort sort, std::string_view content) {
  pieces_.push_back({{AddressOf(piece_), AddressOf(next_)}, PlaceOf(content), block_, sort});
  pending_.Clear();
  piece_ = next_;
}

Span PieceReader::PlaceOf(std::string_view content) {
  if (content.empty()) return {};
  if (!pending_.IsCopied()) {
    const TextAddress begin = AddressOf(content.data());
    return {begin, begin + static_cast<TextAddress>(content.size())};
  }
  const std::size_t begin = static_cast<std::size_t>(end_ - begin_) + copies_.size();
  if (begin + content.size() > kMostBytes) {
    throw Error(ErrorCode::kTooLarge, "the text and what is joined of it reach 4 GiB");
  }
  copies_ += content;
  return {static_cast<TextAddress>(begin), static_cast<TextAddress>(begin + content.size())};
}

std::string_view PieceReader::Content(Span place) const {
  const auto size = static_cast<std::size_t>(end_ - begin_);
  const char* const begin =
      place.begin < size ? begin_ + place.begin : copies_.data() + (place.begin - size);
  return place.begin == place.end ? std::string_view()
                                  : std::string_view(begin, place.end - place.begin);
}

}  // namespace klepur::internal
