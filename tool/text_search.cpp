#include <tool/text_search.h>

#include <algorithm>
#include <array>
#include <cstring>

#include <tool/walk.h>

namespace klepur::tool {
namespace {

constexpr std::size_t kLarge = std::size_t{4} << 20U;
constexpr std::size_t kMostPlaces = 200;

bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

constexpr std::array<signed char, 256> MadeDigitValues() {
  std::array<signed char, 256> values = {};
  for (signed char& value : values) value = -1;
  for (signed char digit = 0; digit < 10; ++digit) {
    values[static_cast<std::size_t>('0' + digit)] = digit;
  }
  for (signed char digit = 10; digit < 16; ++digit) {
    values[static_cast<std::size_t>('a' + digit - 10)] = digit;
    values[static_cast<std::size_t>('A' + digit - 10)] = digit;
  }
  return values;
}

/// The value of a hexadecimal digit, or -1.
int DigitValue(char byte) {
  static constexpr std::array<signed char, 256> kValues = MadeDigitValues();
  return kValues[static_cast<unsigned char>(byte)];
}

bool IsBlank(char byte) {
  return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

std::size_t SkipBlanks(std::string_view text, std::size_t at) {
  while (at < text.size() && IsBlank(text[at])) ++at;
  return at;
}

/// A series of numbers with colons between, blanks or not, read from its first digit.
class NumberSeries {
 public:
  NumberSeries(std::string_view text, std::size_t begin) : text_(text), at_(begin) {}

  /// Whether it begins with these bytes.
  bool BeginsWith(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      if (i > 0 && !SkipColon()) return false;
      if (!ReadNumber(static_cast<unsigned char>(bytes[i]))) return false;
    }
    return true;
  }
  /// Whether a comment stands in the way, so that it is not known.
  bool IsCut() const { return at_ < text_.size() && text_[at_] == '#'; }

 private:
  bool SkipColon() {
    at_ = SkipBlanks(text_, at_);
    if (at_ == text_.size() || text_[at_] != ':') return false;
    at_ = SkipBlanks(text_, at_ + 1);
    return true;
  }

  bool ReadNumber(int wanted) {
    const std::size_t begin = at_;
    int value = 0;
    while (at_ < text_.size() && DigitValue(text_[at_]) >= 0 && value < 256) {
      value = value * 16 + DigitValue(text_[at_++]);
    }
    return at_ > begin && value == wanted;
  }

  std::string_view text_;
  std::size_t at_;
};

/// Whether what begins at a place are as many numbers of two digits each as there are bytes, of which the last one
/// is another: most hardware addresses are dismissed so.
bool IsPlainlyAnother(std::string_view text, std::size_t begin, std::string_view bytes) {
  const std::size_t size = bytes.size() * 3 - 1;
  if (text.size() - begin <= size || DigitValue(text[begin + size]) >= 0) return false;
  const char* const first = text.data() + begin;
  for (std::size_t i = 0; i < size; i += 3) {
    if (DigitValue(first[i]) < 0 || DigitValue(first[i + 1]) < 0) return false;
    if (i + 2 < size && first[i + 2] != ':') return false;
  }
  const int last = DigitValue(first[size - 2]) * 16 + DigitValue(first[size - 1]);
  return last != static_cast<unsigned char>(bytes.back());
}

/// A byte that configuration files hardly have.
bool IsRare(char byte) {
  return (byte >= '\0' && byte < '\t') || (byte > '\r' && byte < ' ');
}

/// The first byte of the number before a colon; npos if there is none, or it is not known.
std::size_t NumberBefore(std::string_view text, std::size_t colon) {
  std::size_t end = colon;
  while (end > 0 && IsBlank(text[end - 1])) --end;
  std::size_t begin = end;
  while (begin > 0 && DigitValue(text[begin - 1]) >= 0) --begin;
  return begin == end ? std::string_view::npos : begin;
}

/// The block at the end of a node, the block at the end of that one, and so on.
void AddLastBlocks(Node node, std::vector<Node>& blocks) {
  for (; node.Is(NodeKind::kBlock); node = node.LastChild()) blocks.push_back(node);
}

/// The blocks that have bytes in a line.
void AddBlocksOfLine(const Document& document, std::size_t line, std::vector<Node>& blocks) {
  const Node first = document.At(line);
  if (!first || first.Is(NodeKind::kFile)) return;
  for (Node node = first; node && !node.Is(NodeKind::kFile); node = node.Parent()) {
    if (node.Is(NodeKind::kBlock)) blocks.push_back(node);
    const Node before = node.Previous();
    if (before && before.End().line >= line) AddLastBlocks(before, blocks);
  }
  const Node root = document.Root();
  for (Node node = NextBelow(first, root); node && node.Begin().line <= line;
       node = NextBelow(node, root)) {
    if (node.Is(NodeKind::kBlock)) blocks.push_back(node);
  }
}

}  // namespace

TextSearch::TextSearch(const Document& document) : document_(&document) {
  const std::vector<std::string_view> pieces = document.Pieces();
  if (pieces.size() == 1 && pieces.front().size() >= kLarge) text_ = pieces.front();
}

bool TextSearch::IsGoodFor() const {
  return !text_.empty() && !document_->IsChanged() &&
         std::memchr(text_.data(), '\\', text_.size()) == nullptr;
}

TextSearch::Blocks TextSearch::AroundText(std::string_view text) const {
  std::vector<std::size_t> offsets;
  if (text.size() < 3) return std::nullopt;
  const auto* const rare = std::find_if(text.begin(), text.end(), IsRare);
  if (rare != text.end() && text_.find(*rare) == std::string_view::npos) return BlocksAt(offsets);
  for (std::size_t at = 0; offsets.size() <= kMostPlaces; ++at) {
    const void* const found =
        memmem(text_.data() + at, text_.size() - at, text.data(), text.size());
    if (found == nullptr) break;
    at = static_cast<std::size_t>(static_cast<const char*>(found) - text_.data());
    offsets.push_back(at);
  }
  return BlocksAt(offsets);
}

TextSearch::Blocks TextSearch::AroundNumbers(const std::vector<std::string>& any) const {
  std::vector<std::size_t> offsets;
  for (std::size_t at = text_.find(':'); at < text_.size(); at = text_.find(':', at)) {
    // Of numbers with colons between, each may be the first one that counts.
    const std::size_t begin = NumberBefore(text_, at);
    if (begin == std::string_view::npos) {
      // A comment may stand between a number and its colon.
      std::size_t line = at;
      while (line > 0 && IsBlank(text_[line - 1]) && text_[line - 1] != '\n') --line;
      if (line == 0 || text_[line - 1] == '\n') return std::nullopt;
      ++at;
      continue;
    }
    for (const std::string& bytes : any) {
      if (!bytes.empty() && IsPlainlyAnother(text_, begin, bytes)) continue;
      NumberSeries series(text_, begin);
      if (series.BeginsWith(bytes)) offsets.push_back(begin);
      if (series.IsCut()) return std::nullopt;
    }
    ++at;
    while (at < text_.size() && (text_[at] == ':' || DigitValue(text_[at]) >= 0)) ++at;
  }
  return BlocksAt(offsets);
}

bool TextSearch::IsNumbers(std::string_view text, std::string_view bytes) {
  return !bytes.empty() && text.find(':') != std::string_view::npos &&
         NumberBefore(text, text.find(':')) == 0 && NumberSeries(text, 0).BeginsWith(bytes);
}

TextSearch::Blocks TextSearch::AroundAddress(const Address& address) const {
  const char divider = address.IsV4() ? '.' : ':';
  const auto belongs = [&](char byte) {
    return byte == divider || byte == '.' ||
           (address.IsV4() ? IsDigit(byte) : DigitValue(byte) >= 0);
  };
  std::vector<std::size_t> offsets;
  for (std::size_t at = text_.find(divider); at < text_.size(); at = text_.find(divider, at)) {
    std::size_t begin = at;
    while (begin > 0 && belongs(text_[begin - 1])) --begin;
    while (at < text_.size() && belongs(text_[at])) ++at;
    if (Address::ParseLenient(text_.substr(begin, at - begin)) == address) offsets.push_back(begin);
  }
  return BlocksAt(offsets);
}

TextSearch::Blocks TextSearch::BlocksAt(const std::vector<std::size_t>& offsets) const {
  if (offsets.size() > kMostPlaces) return std::nullopt;
  std::vector<Node> blocks;
  std::size_t line = 1;
  std::size_t counted = 0;
  for (const std::size_t offset : offsets) {
    line += static_cast<std::size_t>(
        std::count(text_.begin() + static_cast<std::ptrdiff_t>(counted),
                   text_.begin() + static_cast<std::ptrdiff_t>(offset), '\n'));
    counted = offset;
    AddBlocksOfLine(*document_, line, blocks);
  }
  std::sort(blocks.begin(), blocks.end(),
            [](const Node& left, const Node& right) { return left.Offset() < right.Offset(); });
  blocks.erase(std::unique(blocks.begin(), blocks.end()), blocks.end());
  return blocks;
}

}  // namespace klepur::tool
