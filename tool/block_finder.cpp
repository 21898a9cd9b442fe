#include <tool/block_finder.h>

#include <klepur/document/document.h>
#include <klepur/network/prefix.h>

#include <fmt/core.h>
#include <fnmatch.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include <tool/block_names.h>
#include <tool/language.h>
#include <tool/nearest.h>
#include <tool/output.h>
#include <tool/problem.h>
#include <tool/walk.h>

namespace klepur::tool {
namespace {

constexpr std::size_t kMostCandidates = 8;

std::optional<std::size_t> NumberIn(std::string_view text) {
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

[[noreturn]] void ThrowNotABlock(std::string_view block, const std::string& why) {
  throw Problem(ExitStatus::kUsage, fmt::format("'{}' names no block: {}", block, why));
}

std::string SmallLetters(std::string_view text) {
  std::string small(text);
  for (char& letter : small) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return small;
}

bool IsPattern(std::string_view name) {
  return name.find_first_of("*?[") != std::string_view::npos;
}

/// The network of a subnet's name that has its length or netmask: "10.0.0.0/24", "10.0.0.0 netmask ...".
std::optional<Prefix> NetworkIn(const std::string& name) {
  const auto prefix = Prefix::Parse(name);
  return prefix ? prefix : Prefix::ParseSubnet(name);
}

std::vector<Node> Sorted(std::vector<Node> nodes) {
  std::sort(nodes.begin(), nodes.end(),
            [](const Node& left, const Node& right) { return left.Offset() < right.Offset(); });
  return nodes;
}

std::string WithLine(const Node& node, const std::string& name) {
  return fmt::format("\n  {} (line {})", name, node.Begin().line);
}

}  // namespace

/// One step of a path: "host pc-17".
struct BlockFinder::Step {
  std::string text;
  std::string kind;
  std::string name;
  std::string line =
      {};  ///< The name as it was typed, on one line: quotes and braces are part of it.

  static Step Of(std::string_view block, const std::string& text) {
    Step step = {text, {}, {}};
    std::size_t key_words = 1;
    std::size_t end = 0;
    for (const Piece& piece : PiecesOf(text)) {
      if (key_words > 0) {
        if (!step.kind.empty()) step.kind += ' ';
        step.kind += SmallLetters(piece.text);
        end = piece.offset + piece.text.size();
        if (step.kind != "failover") --key_words;
      } else {
        if (!step.name.empty()) step.name += ' ';
        step.name += WithoutQuotes(piece.text);
      }
    }
    step.line = OneLine(std::string_view(text).substr(end));
    if (step.kind.empty()) ThrowNotABlock(block, "a step of it is empty");
    return step;
  }

  bool IsSubnet() const { return kind == "subnet" || kind == "subnet6"; }

  /// Whether the block has this kind and name, or the name is a pattern of its name.
  bool Fits(const Node& block, bool patterns) const {
    if (block.Keyword() != kind) return false;
    if (name.empty() || block.Name() == name || OneLine(block.Name()) == line) return true;
    if (IsSubnet()) return FitsSubnet(block, patterns);
    return patterns && fnmatch(name.c_str(), block.Name().c_str(), 0) == 0;
  }

  bool FitsSubnet(const Node& block, bool patterns) const {
    const auto network = Prefix::ParseSubnet(block.Name());
    if (const auto prefix = NetworkIn(name)) return network == prefix;
    const std::string own = block.Name();
    const auto address = Address::ParseLenient(own.substr(0, own.find_first_of(" /")));
    if (const auto sought = Address::ParseLenient(name)) return address == sought;
    return patterns && fnmatch(name.c_str(), NameOf(block).c_str(), 0) == 0;
  }
};

std::vector<DisabledNode> DisabledBelow(const Node& block) {
  std::vector<DisabledNode> disabled;
  for (const Node& comment : block.Disabled()) {
    std::string text = comment.DisabledText();
    const Document document(text);
    const Node first = document.Root().FirstChild();
    const bool is_block = first.Is(NodeKind::kBlock);
    std::string name = is_block ? BlockNames(document).Step(first) : first.Keyword();
    disabled.push_back({comment, std::move(text), std::move(name), is_block});
  }
  return disabled;
}

Node BlockFinder::AtLine(std::string_view number) const {
  const auto line = NumberIn(number);
  if (!line || *line == 0)
    ThrowNotABlock(fmt::format("@{}", number), "a line's number follows '@'");
  const Node node = document_->At(*line);
  if (!node || node.Is(NodeKind::kFile)) {
    throw Problem(ExitStatus::kNothing, fmt::format("there is nothing on line {}", *line));
  }
  return node;
}

/// The blocks of a kind and name anywhere in the file. The first few are looked for in the bytes of a large
/// file, as the document's own table of all headers takes long to make.
std::vector<Node> BlockFinder::ByHeader(const Step& step) const {
  constexpr std::size_t kFewHeaders = 3;
  if (++headers_sought_ <= kFewHeaders && text_.IsGoodFor()) {
    if (const TextSearch::Blocks blocks =
            text_.AroundText(step.name.substr(0, step.name.find(' ')))) {
      std::vector<Node> found;
      for (const Node& block : *blocks) {
        if (block.Keyword() == step.kind && block.Name() == step.name) found.push_back(block);
      }
      return found;
    }
  }
  return document_->FindAll(fmt::format("{} {}", step.kind, Quoted(step.name)));
}

/// The blocks of a step anywhere in the file, found without a walk where that is possible.
std::vector<Node> BlockFinder::ByName(const Step& step) const {
  std::vector<Node> found;
  const auto prefix = step.IsSubnet() ? NetworkIn(step.name) : std::nullopt;
  if (prefix && prefix->GetAddress().IsV4()) {
    found = ByHeader(
        {{},
         step.kind,
         fmt::format("{} netmask {}", prefix->GetAddress().Text(), prefix->Netmask().Text())});
  } else if (!step.name.empty()) {
    found = ByHeader(step);
  }
  if (!found.empty() || !step.IsSubnet()) return found;
  const auto address = prefix ? prefix->GetAddress() : Address::ParseLenient(step.name);
  if (!address) return found;
  for (const Node& subnet : network_.SubnetsOf(*address)) {
    if (step.Fits(subnet, false)) found.push_back(subnet);
  }
  return Sorted(std::move(found));
}

std::vector<Node> BlockFinder::Candidates(const Step& step, const Node& scope,
                                          bool patterns) const {
  const bool pattern = patterns && IsPattern(step.name);
  const bool everywhere = scope.Is(NodeKind::kFile);
  std::vector<Node> found;
  if (everywhere && !pattern) found = ByName(step);
  if (!found.empty()) return found;
  std::vector<Node> of_kind;
  for (Node node = scope.FirstChild(); node; node = NextBelow(node, scope)) {
    if (!node.Is(NodeKind::kBlock) || node.Keyword() != step.kind) continue;
    of_kind.push_back(node);
    if (step.Fits(node, pattern)) found.push_back(node);
  }
  const auto number = NumberIn(step.name);
  if (found.empty() && number && *number >= 1 && *number <= of_kind.size()) {
    found.push_back(of_kind[*number - 1]);
  }
  return found;
}

std::vector<Node> BlockFinder::Matching(std::string_view block, bool patterns) const {
  std::vector<Node> scopes = {document_->Root()};
  bool first = true;
  for (const std::string& text : Divided(block, '>')) {
    if (first && text == "global") {
      first = false;
      continue;
    }
    if (!text.empty() && text.front() == '@') {
      if (!first) ThrowNotABlock(block, "'@' may only stand in front");
      scopes = {AtLine(std::string_view(text).substr(1))};
    } else {
      const Step step = Step::Of(block, text);
      std::vector<Node> found;
      for (const Node& scope : scopes) {
        for (const Node& node : Candidates(step, scope, patterns)) {
          // A block of that kind in another one that was found too is met twice.
          if (found.empty() || found.back().Offset() < node.Offset()) found.push_back(node);
        }
      }
      scopes = std::move(found);
    }
    first = false;
  }
  return scopes;
}

Node BlockFinder::One(std::string_view block) const {
  const std::vector<Node> found = Matching(block, false);
  if (found.empty()) ThrowNone(block);
  if (found.size() > 1) ThrowSeveral(block, found);
  return found.front();
}

Node BlockFinder::OneBlock(std::string_view block) const {
  const Node node = One(block);
  if (node.Is(NodeKind::kBlock) || node.Is(NodeKind::kFile)) return node;
  throw Problem(ExitStatus::kNothing,
                fmt::format("what stands at {} is no block: {}", block, OneLine(node.Text())));
}

std::vector<Node> BlockFinder::All(std::string_view pattern) const {
  std::vector<Node> found = Matching(pattern, true);
  if (found.empty()) ThrowNone(pattern);
  return found;
}

DisabledNode BlockFinder::OneDisabled(std::string_view block) const {
  std::vector<DisabledNode> found;
  if (!block.empty() && block.front() == '@') {
    const Node node = AtLine(block.substr(1));
    for (const DisabledNode& each : DisabledBelow(node.Parent())) {
      const std::size_t lines =
          static_cast<std::size_t>(std::count(each.text.begin(), each.text.end(), '\n'));
      const std::size_t first = each.comment.Begin().line;
      const std::size_t line = node.Begin().line;
      if (line >= first && line <= first + lines) found.push_back(each);
    }
  } else {
    std::vector<std::string> steps = Divided(block, '>');
    Node scope = document_->Root();
    const std::string last = steps.back();
    if (steps.size() > 1) {
      scope = OneBlock(block.substr(0, block.rfind('>')));
    }
    const Step step = Step::Of(block, last);
    for (Node node = scope; node; node = NextBelow(node, scope)) {
      if (!node.Is(NodeKind::kBlock) && !node.Is(NodeKind::kFile)) continue;
      for (DisabledNode& each : DisabledBelow(node)) {
        const Document document(each.text);
        const Node first = document.Root().FirstChild();
        if (each.is_block && step.Fits(first, false)) found.push_back(std::move(each));
      }
    }
  }
  if (found.empty()) {
    throw Problem(ExitStatus::kNothing,
                  fmt::format("nothing that is disabled is called '{}'", block));
  }
  if (found.size() > 1) {
    std::string message = fmt::format("{} disabled blocks are called '{}':", found.size(), block);
    for (const DisabledNode& each : found) {
      message += fmt::format("\n  @{}  {}", each.comment.Begin().line, each.name);
    }
    throw Problem(ExitStatus::kNothing, message);
  }
  return found.front();
}

/// Says which step of a path leads nowhere.
void BlockFinder::ThrowNone(std::string_view block) const {
  std::string path;
  Node scope = document_->Root();
  for (const std::string& text : Divided(block, '>')) {
    path += path.empty() ? text : std::string(kStep) + text;
    const std::vector<Node> found = Matching(path, false);
    if (!found.empty()) {
      scope = found.front();
      continue;
    }
    ThrowNoneIn(scope, Step::Of(block, text), fmt::format("there is no '{}'", path));
  }
  throw Problem(ExitStatus::kNothing, fmt::format("there is no '{}'", block));
}

/// \param message  what to say before the blocks in `scope` that may have been meant.
void BlockFinder::ThrowNoneIn(const Node& scope, const Step& step,
                              const std::string& message) const {
  BlockNames names(*document_);
  std::string near;
  std::size_t count = 0;
  const auto add = [&](const std::string& line) {
    if (++count <= kMostCandidates) near += line;
  };
  const std::string sought = fmt::format("{} {}", step.kind, step.name);
  for (Node node = scope; node; node = NextBelow(node, scope)) {
    if (node.Is(NodeKind::kBlock) && node != scope) {
      const std::string name = fmt::format("{} {}", node.Keyword(), NameOf(node));
      // Who typed a name only meant a block of that name.
      const std::string& own = step.name.empty() ? step.text : step.name;
      if (IsSlipOf(sought, name) || NameOf(node) == own || node.Name().rfind(own + " ", 0) == 0) {
        add(WithLine(node, names.Path(node)));
      }
    }
    if (!node.Is(NodeKind::kBlock) && !node.Is(NodeKind::kFile)) continue;
    for (const DisabledNode& each : DisabledBelow(node)) {
      if (each.is_block && each.name == sought)
        add(WithLine(each.comment, each.name + ", disabled"));
    }
  }
  if (count > kMostCandidates) near += fmt::format("\n  and {} more", count - kMostCandidates);
  if (IsPattern(step.name)) near += "\n  (a pattern is taken for one by edits with --all)";
  throw Problem(ExitStatus::kNothing, message + (count > 0 ? "; near it are:" : "") + near);
}

void BlockFinder::ThrowSeveral(std::string_view block, const std::vector<Node>& found) const {
  std::string message = fmt::format("{} blocks are called '{}':", found.size(), block);
  BlockNames names(*document_);
  for (std::size_t i = 0; i < found.size() && i < kMostCandidates; ++i) {
    message += WithLine(found[i], names.Path(found[i]));
  }
  if (found.size() > kMostCandidates) {
    message += fmt::format("\n  and {} more", found.size() - kMostCandidates);
  }
  throw Problem(ExitStatus::kNothing, message);
}

}  // namespace klepur::tool
