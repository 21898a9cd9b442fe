// show: a block as it stands in the file, or what holds for it.
#include <klepur/network/network.h>

#include <fmt/core.h>

#include <string>
#include <vector>

#include <tool/block_finder.h>
#include <tool/block_info.h>
#include <tool/block_names.h>
#include <tool/commands.h>
#include <tool/language.h>
#include <tool/output.h>
#include <tool/problem.h>
#include <tool/source.h>

namespace klepur::tool {
namespace {

/// The lines from the first comment of a node to the end of its last one.
std::string LinesOf(const Document& document, const Node& node) {
  const std::string text = document.Text();
  std::size_t begin = node.Offset();
  std::size_t end = begin + node.Text().size();
  for (const Node& comment : node.Comments()) {
    begin = std::min(begin, comment.Offset());
    end = std::max(end, comment.Offset() + comment.Text().size());
  }
  const std::size_t line = begin == 0 ? 0 : text.rfind('\n', begin - 1) + 1;
  if (text.find_first_not_of(" \t", line) == begin) begin = line;
  return text.substr(begin, end - begin) + "\n";
}

void PrintInForce(const Output& output, const Document& document, const Node& block,
                  const std::string& file) {
  const Network network(document);
  BlockNames names(document);
  Table table = {{"STATEMENT", "VALUE", "FROM", "LINE"}, {}};
  Records records;
  for (const InForce& each : network.StatementsInForce(block)) {
    const std::string from = names.Path(each.from);
    const std::string value = OneLine(Plain(each.statement.Value()));
    const std::size_t line = each.statement.Begin().line;
    const Style style = each.from == block ? Style::kStrong : Style::kPlain;
    table.rows.push_back({{each.statement.Keyword(), value, from, std::to_string(line)}, style});
    records.push_back(Record()
                          .With("keyword", each.statement.Keyword())
                          .With("value", value)
                          .With("from", from)
                          .With("line", line));
  }
  if (output.IsJson()) {
    output.Print(
        Record().With("file", file).With("block", names.Path(block)).With("statements", records));
  } else {
    output.Print(table);
  }
}

}  // namespace

ExitStatus RunShow(const Invocation& invocation) {
  const Output output(invocation);
  const std::string file = invocation.Argument("FILE");
  const Document document = ReadDocument(file);
  const BlockFinder finder(document);
  const Node node = finder.One(invocation.Argument("BLOCK"));
  if (invocation.Has("in-force")) {
    if (!node.Is(NodeKind::kBlock) && !node.Is(NodeKind::kFile)) {
      throw Problem(ExitStatus::kNothing,
                    fmt::format("{} is no block", invocation.Argument("BLOCK")));
    }
    PrintInForce(output, document, node, file);
  } else if (output.IsJson() && node.Is(NodeKind::kBlock)) {
    BlockNames names(document);
    Record record = InfoOf(node, names, Detail::kStatements).AsRecord();
    record.With("text", LinesOf(document, node));
    output.Print(Record().With("file", file).With("blocks", Records{record}));
  } else {
    const std::string text = node.Is(NodeKind::kFile) ? document.Text() : LinesOf(document, node);
    if (output.IsJson()) {
      output.Print(Record().With("file", file).With("text", text));
    } else {
      output.Print(text);
    }
  }
  return ExitStatus::kDone;
}

}  // namespace klepur::tool
