#include "fuzz/plain_reader.h"

#include <string>

namespace klepur::fuzz {
namespace {

using test::AddNode;
using test::ModelNode;

constexpr std::string_view kTrimmed = " \t\v";
constexpr std::string_view kBlanks = " \t\v\f\r";

class Reader {
 public:
  Reader(ModelNode& start, const std::string& textBefore) : at_(&start), text_(textBefore) {}

  /// What is not stored yet.
  const std::string& Rest() const { return text_; }

  /// False when a NUL byte ends the reading in this line.
  bool Line(std::string_view line) {
    const std::vector<bool> quoted = InQuotes(line);
    for (std::size_t i = 0; i < line.size(); ++i) {
      const char c = line[i];
      const std::string_view rest = line.substr(i + 1);
      if (c == '\0') return false;
      if (quoted[i]) {
        text_ += c;
      } else if (c == '#' || c == '{') {
        if (rest.find('\0') != std::string_view::npos) return false;
        c == '#' ? Comment(rest) : Brace(rest);
        return true;
      } else if (c == ';') {
        text_ += c;
        Store(false);
      } else if (c == '}') {
        if (at_->parent != nullptr) at_ = at_->parent;
      } else if (!text_.empty() || kBlanks.find(c) == std::string_view::npos) {
        text_ += c;
      }
    }
    return true;
  }

 private:
  void Comment(std::string_view rest) {
    text_ += rest;
    Store(true);
  }

  void Brace(std::string_view rest) {
    const std::size_t brace = text_.size() % 65536;
    text_ += rest;
    if (text_.find(';') != std::string::npos) {
      text_.insert(brace, 1, '{');
      Store(false);
    } else {
      TrimEnd();
      at_ = &AddNode(*at_, text_);
      text_.clear();
    }
  }

  void Store(bool commented) {
    TrimEnd();
    if (commented) text_.erase(0, text_.find_first_not_of(kTrimmed));
    at_->lines.push_back({text_, commented});
    text_.clear();
  }

  void TrimEnd() {
    while (!text_.empty() && kTrimmed.find(text_.back()) != std::string_view::npos) {
      text_.pop_back();
    }
  }

  ModelNode* at_;
  std::string text_;
};

void Read(std::string_view text, Reader& reader, PlainTree& tree) {
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    const bool endsInCarriageReturn = !line.empty() && line.back() == '\r';
    if (end != std::string_view::npos && endsInCarriageReturn) line.remove_suffix(1);
    if (!reader.Line(line)) {
      tree.nulLine = number;
      break;
    }
  }
  tree.rest = reader.Rest();
}

/// Where the quoted string ends whose first quote stands at `quote`; npos when nothing closes it.
std::size_t ClosingQuote(std::string_view line, std::size_t quote) {
  for (std::size_t i = quote + 1; i < line.size(); ++i) {
    if (line[i] == '"') return i;
    if (line[i] == '\\') ++i;
  }
  return std::string_view::npos;
}

}  // namespace

PlainTree PlainRead(std::string_view text) {
  PlainTree tree;
  tree.top = std::make_unique<ModelNode>();
  Reader reader(AddNode(*tree.top, "TREE_ROOT_SECTION"), "");
  Read(text, reader, tree);
  return tree;
}

PlainTree PlainReadAgain(std::string_view text, const std::string& restBefore) {
  PlainTree tree;
  tree.top = std::make_unique<ModelNode>();
  Reader reader(*tree.top, restBefore);
  Read(text, reader, tree);
  return tree;
}

std::vector<bool> InQuotes(std::string_view line) {
  std::vector<bool> quoted(line.size(), false);
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] != '"') continue;
    const std::size_t end = ClosingQuote(line, i);
    if (end == std::string_view::npos) continue;
    for (; i < end; ++i) quoted[i] = true;
    quoted[end] = true;
  }
  return quoted;
}

}  // namespace klepur::fuzz
