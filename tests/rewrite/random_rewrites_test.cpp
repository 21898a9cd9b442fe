// Random files, whole and broken: something is told exactly when what the configuration class saves means
// something else. What files mean is written down here in a simpler way than in the library.
//
//     KLEPUR_RANDOM_SEED=5     begins with this seed instead of a new one
//     KLEPUR_RANDOM_SECONDS=60 goes on for so long
#include <klepur/document/document.h>
#include <klepur/rewrite/rewrite_losses.h>
#include <klepur/rewrite/rewriting.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "tests/document/random_document.h"
#include "tests/random/chance.h"
#include "tests/rewrite/saved_text.h"

namespace klepur::test {
namespace {

/// The text with each statement, header and comment made another one than all others.
std::string Numbered(const std::string& text) {
  std::string numbered;
  int number = 0;
  bool quoted = false;
  bool comment = false;
  for (std::size_t i = 0; i != text.size(); ++i) {
    const char byte = text[i];
    if (comment) {
      comment = byte != '\n' && byte != '\r';
      if (!comment) numbered += ' ' + std::to_string(++number);
    } else if (byte == '"') {
      quoted = !quoted;
    } else if (quoted && byte == '\\') {
      numbered += text[i++];
    } else if (!quoted && byte == '#') {
      comment = true;
    } else if (!quoted && (byte == ';' || byte == '{') && (i == 0 || text[i - 1] != '}')) {
      numbered += " n" + std::to_string(++number);
    }
    numbered += text[i];
  }
  return numbered;
}

/// A text with some bytes and lines left out, doubled, moved, or others put in.
std::string Broken(Chance& chance, std::string text) {
  static const std::vector<std::string> bytes = {"}",
                                                 "{",
                                                 ";",
                                                 "#",
                                                 "\n",
                                                 "\"",
                                                 "} ",
                                                 "\\",
                                                 "\r",
                                                 "x",
                                                 "{ ",
                                                 " }",
                                                 "}\n",
                                                 "\n}",
                                                 "};",
                                                 "{\n",
                                                 ";\n",
                                                 "\r\n",
                                                 "\v",
                                                 "\"\n",
                                                 "host b {",
                                                 "option a code 1 = { ",
                                                 "TREE_ROOT_SECTION {\n"};
  for (std::size_t count = chance.Between(1, 6); count > 0 && !text.empty(); --count) {
    const std::size_t at = chance.Below(text.size());
    const std::size_t size = chance.OneIn(4) ? chance.Between(1, 40) : 1;
    switch (chance.Below(6)) {
      case 0:
      case 1:
        text.erase(at, size);
        break;
      case 2: {
        const std::string moved = text.substr(at, size);
        if (chance.OneIn(2)) text.erase(at, size);
        text.insert(chance.Below(text.size() + 1), moved);
        break;
      }
      default:
        text.insert(at, chance.Pick(bytes));
    }
  }
  return text;
}

/// Where the quoted text ends that begins at a place, one past its last quote; the place behind the first
/// one when nothing ends it.
std::size_t BehindQuoted(const std::string& text, std::size_t quote) {
  for (std::size_t at = quote + 1; at < text.size(); ++at) {
    if (text[at] == '"') return at + 1;
    if (text[at] == '\\') ++at;
  }
  return quote + 1;
}

/// Words with a blank between, without comments; what stands between quotes as it is.
std::string Words(const std::string& text) {
  const std::string alone = ";,{}=\"\\'";
  std::string words;
  bool gap = false;
  for (std::size_t i = 0; i < text.size();) {
    if (text[i] == '#') {
      i = std::min(text.find('\n', i), text.size());
    } else if (text[i] == ' ' || (text[i] >= '\t' && text[i] <= '\r')) {
      gap = true;
      ++i;
    } else {
      const bool joins = alone.find(text[i]) == std::string::npos;
      if (gap && joins && !words.empty() && alone.find(words.back()) == std::string::npos) {
        words += ' ';
      }
      gap = false;
      const std::size_t end = text[i] == '"' ? BehindQuoted(text, i) : i + 1;
      words += text.substr(i, end - i);
      i = end;
    }
  }
  return words;
}

std::string Joined(std::vector<std::string> parts) {
  std::sort(parts.begin(), parts.end());
  std::string joined;
  for (const std::string& part : parts) joined += part + '\n';
  return joined;
}

bool IsBranch(const Node& node) {
  return node.Is(NodeKind::kBlock) && (node.Keyword() == "elsif" || node.Keyword() == "else");
}

bool IsConditional(const Node& node) {
  return IsBranch(node) || (node.Is(NodeKind::kBlock) && node.Keyword() == "if");
}

/// What a text means, for files as random_document.h makes them: what is in each block, in whatever order;
/// in which order values are set that can replace each other; which branch belongs to which "if"; and where
/// the server is authoritative.
class Meaning {
 public:
  explicit Meaning(const Document& document) {
    Settings settings;
    text_ = Of(document.Root(), {}, settings, "");
    text_ += Listed(settings) + Listed(declared_) + Listed(classes_);
    std::size_t open = 0;
    for (const Finding& finding : document.Findings()) {
      if (finding.code == FindingCode::kUnclosedBlock) ++open;
    }
    text_ += std::to_string(open) + " open\n";
    comments_ = Joined(found_comments_);
  }

  const std::string& Text() const { return text_; }
  const std::string& Comments() const { return comments_; }

 private:
  /// What sets a thing, in its order.
  using Settings = std::map<std::string, std::vector<std::string>>;

  static std::string Listed(const Settings& settings) {
    std::string text;
    for (const auto& [key, values] : settings) {
      text += key + " is set by";
      for (const std::string& value : values) text += ' ' + value;
      text += '\n';
    }
    return text;
  }

  std::string Of(const Node& block, std::vector<std::string> authorities, Settings& settings,
                 const std::string& path) {
    const bool subnet = block.Keyword() == "subnet";
    std::string text = path + (subnet ? " with authority " + Joined(authorities) : "") + " {\n";
    std::vector<std::string> parts;
    std::string previous;
    for (const Node child : block.Children()) {
      if (child.Is(NodeKind::kComment)) {
        found_comments_.push_back(Place(child, path));
        continue;
      }
      const std::string words = Words(child.Is(NodeKind::kBlock) ? child.Header() : child.Text());
      const std::string behind = IsBranch(child) ? " behind " + previous : "";
      previous = IsConditional(child) ? words : "nothing";
      if (child.Is(NodeKind::kBlock)) {
        parts.push_back(behind + OfChild(child, authorities, settings, path + '/' + words));
      } else {
        parts.push_back(path + '/' + words);
        if (child.Keyword() == "authoritative") authorities.push_back(path + '/' + words);
        if (child.Is(NodeKind::kStatement)) settings[child.Keyword()].push_back(path + '/' + words);
      }
    }
    return text + Joined(parts) + "}\n";
  }

  std::string OfChild(const Node& block, const std::vector<std::string>& authorities,
                      Settings& around, const std::string& path) {
    Settings own;
    Settings& settings = IsConditional(block)         ? around
                         : block.Keyword() == "class" ? classes_
                                                      : own;
    std::string text = Of(block, authorities, settings, path);
    text += Listed(own);
    if (const std::string key = Declared(block); !key.empty()) declared_[key].push_back(text);
    return text;
  }

  /// What can be declared again, without the number: the last one counts.
  static std::string Declared(const Node& block) {
    const std::string keyword = block.Keyword();
    const std::string name = block.Name();
    if (keyword == "group") return name.empty() ? "" : keyword + ' ' + name;
    if (keyword != "key" && keyword != "class") return "";
    return keyword + ' ' + name.substr(0, name.rfind(" n"));
  }

  static std::string Place(const Node& comment, const std::string& path) {
    std::string text = comment.Text().substr(1);
    text.erase(0, text.find_first_not_of(" \t\v\f\r"));
    Node with = comment;
    if (IsTrailing(comment)) {
      with = comment.Previous();
      return path + " # " + text + " behind " +
             (with ? Words(with.Is(NodeKind::kBlock) ? with.Header() : with.Text()) : "{");
    }
    while (with.Is(NodeKind::kComment)) with = with.Next();
    return path + " # " + text + " above " +
           (with ? Words(with.Is(NodeKind::kBlock) ? with.Header() : with.Text()) : "}");
  }

  static bool IsTrailing(const Node& comment) {
    const Node previous = comment.Previous();
    const std::size_t line = comment.Begin().line;
    if (previous) return previous.End().line == line;
    const Node parent = comment.Parent();
    if (!parent.Is(NodeKind::kBlock)) return false;
    const std::string header = parent.Header();
    const std::string above = parent.Text().substr(0, comment.Offset() - parent.Offset());
    return above.find('\n', above.find('{', header.size())) == std::string::npos;
  }

  std::string text_;
  std::string comments_;
  Settings declared_;
  Settings classes_;
  std::vector<std::string> found_comments_;
};

bool Tells(const std::vector<RewriteLoss>& losses, Severity severity) {
  return std::any_of(losses.begin(), losses.end(),
                     [severity](const RewriteLoss& loss) { return loss.severity == severity; });
}

std::string Listed(const std::vector<RewriteLoss>& losses) {
  std::string list;
  for (const RewriteLoss& loss : losses) {
    list += std::to_string(loss.where.line) + ' ' + NameOf(loss.reason) + '\n';
  }
  return list;
}

void ExpectExact(const std::string& text) {
  const std::string saved = Saved(text);
  const internal::TextBuffer buffer(text);
  EXPECT_EQ(WithoutIndentation(internal::Rewrite(buffer.view()).text.view()),
            WithoutIndentation(saved))
      << text;
  const Meaning before{Document(text)};
  const Meaning after{Document(saved)};
  const std::vector<RewriteLoss> losses = FindRewriteLosses(text);
  EXPECT_EQ(Tells(losses, Severity::kError), before.Text() != after.Text())
      << "---- text\n"
      << text << "---- saved\n"
      << saved << "---- told\n"
      << Listed(losses) << "---- meaning\n"
      << before.Text() << "---- saved meaning\n"
      << after.Text();
  if (before.Text() != after.Text()) return;
  EXPECT_EQ(Tells(losses, Severity::kWarning), before.Comments() != after.Comments())
      << "---- text\n"
      << text << "---- saved\n"
      << saved << "---- told\n"
      << Listed(losses) << "---- comments\n"
      << before.Comments() << "---- saved comments\n"
      << after.Comments();
}

std::string Setting(const char* name, const std::string& otherwise) {
  const char* const value = std::getenv(name);
  return value == nullptr || *value == '\0' ? otherwise : value;
}

void ForRandomTexts(void (*check)(Chance&)) {
  using Clock = std::chrono::steady_clock;
  const auto until = Clock::now() + std::chrono::milliseconds(std::lround(
                                        1000 * std::stod(Setting("KLEPUR_RANDOM_SECONDS", "0.7"))));
  const std::string seed = Setting("KLEPUR_RANDOM_SEED", std::to_string(std::random_device()()));
  for (std::uint64_t next = std::stoull(seed);; ++next) {
    SCOPED_TRACE("KLEPUR_RANDOM_SEED=" + std::to_string(next));
    Chance chance(next);
    check(chance);
    if (Clock::now() >= until || ::testing::Test::HasFailure()) break;
  }
}

TEST(RandomRewrites, AreToldExactlyWhenTheyChangeTheMeaning) {
  ForRandomTexts([](Chance& chance) { ExpectExact(Numbered(RandomDocumentText(chance))); });
}

TEST(RandomRewrites, OfBrokenTextsAreToldExactlyWhenTheyChangeTheMeaning) {
  ForRandomTexts([](Chance& chance) {
    std::string text = RandomDocumentText(chance);
    while (chance.OneIn(3)) text += RandomDocumentText(chance);
    ExpectExact(Broken(chance, Numbered(text)));
  });
}

}  // namespace
}  // namespace klepur::test
