#include <tool/editor.h>

#include <klepur/network/prefix.h>

#include <fmt/core.h>

#include <algorithm>
#include <optional>
#include <utility>

#include <tool/language.h>
#include <tool/nearest.h>
#include <tool/output.h>
#include <tool/problem.h>
#include <tool/walk.h>

namespace klepur::tool {
namespace {

[[noreturn]] void ThrowUsage(const std::string& message) {
  throw Problem(ExitStatus::kUsage, message);
}

/// A statement without the ";" at its end.
std::string WithoutSemicolon(const std::string& statement) {
  std::string plain = Plain(statement);
  while (!plain.empty() && (plain.back() == ';' || plain.back() == ' ')) plain.pop_back();
  return plain;
}

/// The header of a subnet as the language has it, for one that was given with its length: of
/// "subnet 10.0.0.0/24" "subnet 10.0.0.0 netmask 255.255.255.0". Any other header is given as it is.
std::string FullHeader(const std::string& header) {
  const std::vector<Piece> pieces = PiecesOf(header);
  if (pieces.size() != 2 || pieces[0].text != "subnet") return header;
  const auto prefix = Prefix::Parse(pieces[1].text);
  if (!prefix || !prefix->GetAddress().IsV4()) return header;
  return fmt::format("subnet {} netmask {}", prefix->GetAddress().Text(), prefix->Netmask().Text());
}

/// Whether a header is only the kind of a block that must have a name.
bool WantsName(const std::string& header) {
  constexpr std::string_view kNamed[] = {"host",  "subnet",   "subnet6", "shared-network",
                                         "class", "subclass", "zone",    "key"};
  return std::find(std::begin(kNamed), std::end(kNamed), header) != std::end(kNamed);
}

/// The text of a block with these statements or blocks in it.
std::string BlockText(const std::string& header, const std::vector<std::string>& statements) {
  std::string text = FullHeader(header) + " {\n";
  for (const std::string& statement : statements) {
    text += statement;
    const std::vector<Piece> pieces = PiecesOf(statement);
    const bool is_ended = !pieces.empty() && (pieces.back().Is(';') || pieces.back().Is('}'));
    text += is_ended ? "\n" : ";\n";
  }
  return text + "}\n";
}

/// The statements that set the same as this one with another first word: "deny booting" for "allow booting".
std::vector<std::string> Opposites(const std::string& keyword) {
  constexpr std::string_view kPermits[] = {"allow ", "deny ", "ignore "};
  for (const std::string_view permit : kPermits) {
    if (keyword.compare(0, permit.size(), permit) != 0) continue;
    std::vector<std::string> all;
    for (const std::string_view other : kPermits) {
      if (other != permit) all.push_back(std::string(other) + keyword.substr(permit.size()));
    }
    return all;
  }
  if (keyword == "authoritative") return {"not authoritative"};
  if (keyword == "not authoritative") return {"authoritative"};
  return {};
}

/// The statements of a block that a keyword names, or the text of one whole statement.
std::vector<Node> StatementsOf(const Node& block, const std::string& keyword) {
  const std::string sought = WithoutSemicolon(keyword);
  std::vector<Node> found;
  for (const Node& child : block.Children()) {
    if (!child.Is(NodeKind::kStatement)) continue;
    if (child.Keyword() == sought || WithoutSemicolon(child.Text()) == sought)
      found.push_back(child);
  }
  return found;
}

std::string NearestKeyword(const Node& block, const std::string& typed) {
  std::vector<std::string> keywords;
  for (const Node& child : block.Children()) {
    if (child.Is(NodeKind::kStatement)) keywords.push_back(child.Keyword());
  }
  const std::string nearest = Nearest(typed, keywords);
  return nearest.empty() ? "" : fmt::format("; did you mean '{}'?", nearest);
}

Node OneStatement(const Document& document, const Node& block, const std::string& keyword) {
  const std::vector<Node> found = StatementsOf(block, keyword);
  if (found.size() == 1) return found.front();
  std::string message =
      fmt::format("there {} '{}' in {}", found.empty() ? "is no" : "is more than one", keyword,
                  BlockNames(document).Path(block));
  if (found.empty()) message += NearestKeyword(block, keyword);
  for (const Node& each : found) {
    message += fmt::format("\n  @{}  {}", each.Begin().line, OneLine(each.Text()));
  }
  throw Problem(ExitStatus::kNothing, message);
}

/// The comment of the one disabled statement of a keyword, or of the one that is spelled out.
Node OneDisabledStatement(const Document& document, const Node& block, const std::string& keyword) {
  const std::string sought = WithoutSemicolon(keyword);
  std::vector<DisabledNode> found;
  for (DisabledNode& each : DisabledBelow(block)) {
    if (each.is_block || (each.name != sought && WithoutSemicolon(each.text) != sought)) continue;
    found.push_back(std::move(each));
  }
  if (found.size() == 1) return found.front().comment;
  std::string message =
      fmt::format("{} '{}' is disabled in {}", found.empty() ? "no" : "more than one", keyword,
                  BlockNames(document).Path(block));
  for (const DisabledNode& each : found) {
    message += fmt::format("\n  @{}  {}", each.comment.Begin().line, OneLine(each.text));
  }
  throw Problem(ExitStatus::kNothing, message);
}

}  // namespace

Editor::Editor(Document& document, Tells tells)
    : document_(&document),
      tells_paths_(tells == Tells::kPaths),
      finder_(document),
      places_(document, finder_.GetNetwork()) {}

Editor::Operation Editor::OperationOf(const Invocation& edit) {
  constexpr std::pair<std::string_view, Operation> kOperations[] = {
      {"add", &Editor::Add},         {"set", &Editor::Set},       {"unset", &Editor::Unset},
      {"disable", &Editor::Disable}, {"enable", &Editor::Enable}, {"rename", &Editor::Rename},
      {"move", &Editor::Move},       {"remove", &Editor::Remove},
  };
  const auto* const found =
      std::find_if(std::begin(kOperations), std::end(kOperations),
                   [&edit](const auto& operation) { return operation.first == edit.Of().name; });
  if (found == std::end(kOperations)) ThrowUsage(fmt::format("{} is no edit", edit.Of().name));
  return found->second;
}

void Editor::Apply(const Invocation& edit) {
  const Operation operation = OperationOf(edit);
  const std::size_t notes = notes_.size();
  try {
    document_->AsOne([&] { (this->*operation)(edit); });
  } catch (...) {
    notes_.resize(notes);
    throw;
  }
}

void Editor::Add(const Invocation& edit) {
  const std::string header = edit.Argument("HEADER");
  if (!header.empty() && header.back() == ';') {
    ThrowUsage(fmt::format("add: '{}' is a statement, `klepur set` puts it into a block", header));
  }
  if (WantsName(header)) {
    ThrowUsage(
        fmt::format("add: '{}' is without a name, which stands in the same argument: '{} NAME'",
                    header, header));
  }
  const std::string text = BlockText(header, edit.Arguments("STATEMENT"));
  const Document alone(text);
  const Node block = alone.Root().FirstChild();
  const std::vector<Finding> findings = alone.Findings();
  if (!block.Is(NodeKind::kBlock) || block.Next() || !findings.empty()) {
    ThrowUsage(fmt::format("'{}' with these statements is no block{}", header,
                           findings.empty() ? "" : ": " + findings.front().message));
  }
  Node parent;
  const Placement placement = PlacementOf(edit, "in", parent);
  if (!parent) {
    parent = block.Keyword() == "host" ? places_.PlaceFor(block) : document_->Root();
  }
  const Node added = parent.Add(text, placement.WithComment(edit.Value("comment")));
  for (const Target& target : Named({added})) Tell(added, fmt::format("added {}", target.name));
}

void Editor::Set(const Invocation& edit) {
  const std::vector<Target> targets = Targets(edit);
  for (const std::string& statement : edit.Arguments("STATEMENT")) {
    for (const Target& target : targets) {
      const Node now = SetStatement(target.node, statement);
      Tell(now, fmt::format("set {} in {}", WithoutSemicolon(statement), target.name));
    }
  }
}

Node Editor::SetStatement(Node block, const std::string& statement) {
  const Document alone(statement + "\n;");
  const Node meant = alone.Root().FirstChild();
  if (!meant.Is(NodeKind::kStatement)) ThrowUsage(fmt::format("'{}' is no statement", statement));
  for (const std::string& opposite : Opposites(meant.Keyword())) {
    Node standing = block.InForce(opposite);
    if (!standing) continue;
    const Node now = block.Add(statement, Placement::After(standing));
    standing.Remove(CommentsAbove::kKeep);
    return now;
  }
  return block.Set(statement);
}

void Editor::Unset(const Invocation& edit) {
  std::vector<Node> statements;
  for (const Target& target : Targets(edit)) {
    for (const std::string& keyword : edit.Arguments("KEYWORD")) {
      const std::vector<Node> found = StatementsOf(target.node, keyword);
      if (found.empty()) {
        throw Problem(ExitStatus::kNothing, fmt::format("there is no '{}' in {}{}", keyword,
                                                        BlockNames(*document_).Path(target.node),
                                                        NearestKeyword(target.node, keyword)));
      }
      statements.insert(statements.end(), found.begin(), found.end());
    }
  }
  RemoveAll(statements);
}

void Editor::Disable(const Invocation& edit) {
  const std::string keyword = edit.Argument("KEYWORD");
  std::vector<Node> nodes;
  for (const Target& target : Targets(edit)) {
    nodes.push_back(keyword.empty() ? target.node : OneStatement(*document_, target.node, keyword));
    const Node& node = nodes.back();
    if (node.Is(NodeKind::kFile)) ThrowUsage("the whole file cannot be disabled");
    if (node.Is(NodeKind::kComment)) {
      throw Problem(ExitStatus::kNothing, fmt::format("{} is a comment", edit.Argument("BLOCK")));
    }
  }
  for (Target& target : Named(nodes)) {
    target.node.CommentOut();
    Tell(target.node, fmt::format("disabled {}", target.name));
  }
}

void Editor::Enable(const Invocation& edit) {
  const std::string keyword = edit.Argument("KEYWORD");
  const std::string block = edit.Argument("BLOCK");
  Node comment = keyword.empty()
                     ? finder_.OneDisabled(block).comment
                     : OneDisabledStatement(*document_, finder_.OneBlock(block), keyword);
  comment.BringBack();
  for (const Target& target : Named({comment}))
    Tell(comment, fmt::format("enabled {}", target.name));
}

void Editor::Rename(const Invocation& edit) {
  Node block = finder_.OneBlock(edit.Argument("BLOCK"));
  if (!block.Is(NodeKind::kBlock)) ThrowUsage("the file has no name");
  const std::vector<Target> before = Named({block});
  const std::string name = edit.Argument("NAME");
  const std::string kind = block.Keyword();
  if (kind == "subnet" || kind == "subnet6") {
    block.SetHeader(FullHeader(fmt::format("{} {}", kind, name)));
  } else {
    block.Rename(name);
  }
  for (const Target& target : before) {
    Tell(block, fmt::format("renamed {} to {}", target.name, BlockNames(*document_).Step(block)));
  }
}

void Editor::Move(const Invocation& edit) {
  Node to;
  const Placement placement = PlacementOf(edit, "to", to);
  if (!to) ThrowUsage("move: --to is missing");
  BlockNames names(*document_);
  const std::string place = NameOfBlock(to, names);
  for (Target& target : Targets(edit)) {
    if (target.node.Is(NodeKind::kFile)) ThrowUsage("the whole file cannot be moved");
    target.node.MoveTo(to, placement);
    Tell(target.node, fmt::format("moved {} to {}", target.name, place));
  }
}

void Editor::Remove(const Invocation& edit) {
  std::vector<Node> nodes;
  for (const std::string& block : edit.Arguments("BLOCK")) {
    const std::vector<Node> found =
        edit.Has("all") ? finder_.All(block) : std::vector<Node>{finder_.One(block)};
    nodes.insert(nodes.end(), found.begin(), found.end());
  }
  for (const Node& node : nodes) {
    if (node.Is(NodeKind::kFile)) ThrowUsage("the whole file cannot be removed");
  }
  RemoveAll(nodes);
}

void Editor::RemoveAll(const std::vector<Node>& nodes) {
  for (Target& target : Named(nodes)) {
    if (target.node.IsGone()) continue;  // it went with a block around it
    RemovalReport report = target.node.Remove();
    notes_.push_back({Node(), target.line, fmt::format("removed {}", target.name),
                      std::move(report.comments), script_line_});
  }
}

std::vector<Editor::Target> Editor::Named(const std::vector<Node>& nodes) const {
  std::vector<Target> targets;
  BlockNames names(*document_);
  for (const Node& node : nodes) {
    targets.push_back({node, {}, 0});
    Target& target = targets.back();
    if (tells_paths_) target.line = node.Begin().line;
    if (node.Is(NodeKind::kBlock) || node.Is(NodeKind::kFile)) {
      target.name = NameOfBlock(node, names);
      continue;
    }
    const Node around = node.Parent();
    target.name = WithoutSemicolon(node.Text());
    if (target.name.empty()) target.name = OneLine(node.Text());  // a comment
    if (around.Is(NodeKind::kBlock)) target.name += " in " + NameOfBlock(around, names);
  }
  return targets;
}

std::string Editor::NameOfBlock(const Node& block, BlockNames& names) const {
  if (tells_paths_ || block.Is(NodeKind::kFile)) return names.Path(block);
  if (!block.Name().empty()) return names.Step(block);
  // Which of its kind it is would be counted in the whole file.
  const Node around = block.Parent();
  const bool is_named = around.Is(NodeKind::kBlock) && !around.Name().empty();
  return (is_named ? names.Step(around) + std::string(kStep) : "") + block.Keyword();
}

std::vector<Editor::Target> Editor::Targets(const Invocation& edit) const {
  const std::string block = edit.Argument("BLOCK");
  if (edit.Has("all")) return Named(finder_.All(block));
  const bool only_blocks = edit.Of().name == "set" || edit.Of().name == "unset";
  return Named({only_blocks ? finder_.OneBlock(block) : finder_.One(block)});
}

/// Where --after and --before want it; `parent` is set when they or the option `in` name one.
Placement Editor::PlacementOf(const Invocation& edit, const std::string& in, Node& parent) const {
  Placement placement;
  if (edit.Has("after") && edit.Has("before")) {
    ThrowUsage("--after and --before cannot both be obeyed");
  }
  for (const std::string option : {"after", "before"}) {
    if (!edit.Has(option)) continue;
    const Node anchor = finder_.One(edit.Value(option));
    placement = option == "after" ? Placement::After(anchor) : Placement::Before(anchor);
    parent = anchor.Parent();
  }
  if (edit.Has(in)) {
    const Node named = finder_.OneBlock(edit.Value(in));
    if (parent && parent != named) {
      ThrowUsage(fmt::format("'{}' does not stand right in '{}'",
                             edit.Value("after") + edit.Value("before"), edit.Value(in)));
    }
    parent = named;
  }
  return placement;
}

void Editor::Tell(const Node& where, const std::string& text) {
  notes_.push_back({where, 0, OneLine(text), {}, script_line_});
}

}  // namespace klepur::tool
