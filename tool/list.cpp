// list: the blocks of a file.
#include <fmt/core.h>

#include <algorithm>
#include <utility>
#include <vector>

#include <tool/block_info.h>
#include <tool/commands.h>
#include <tool/nearest.h>
#include <tool/output.h>
#include <tool/problem.h>
#include <tool/source.h>

namespace klepur::tool {
namespace {

std::string Joined(const std::vector<std::string>& elements) {
  std::string text;
  for (const std::string& element : elements) text += (text.empty() ? "" : ", ") + element;
  return text;
}

/// All blocks below each other as they stand in each other.
Table Overview(const std::vector<BlockInfo>& blocks) {
  Table table = {{"BLOCK", "IDENTITY", "ADDRESSES", "LINE", "STATE"}, {}};
  for (const BlockInfo& block : blocks) {
    const std::string name = block.name.empty() ? block.kind : block.kind + " " + block.name;
    table.rows.push_back(
        {{std::string(2 * block.depth, ' ') + name, block.identity, Joined(block.addresses),
          std::to_string(block.line), block.disabled ? "disabled" : ""},
         block.disabled ? Style::kFaint : Style::kPlain});
  }
  return table;
}

Table TableOf(std::vector<BlockInfo> blocks) {
  Table table = {{"KIND", "NAME", "IDENTITY", "ADDRESSES", "IN", "LINE", "STATE"}, {}};
  table.rows.reserve(blocks.size());
  for (BlockInfo& block : blocks) {
    Table::Row& row = table.rows.emplace_back();
    row.style = block.disabled ? Style::kFaint : Style::kPlain;
    row.cells.reserve(table.headings.size());
    row.cells.push_back(std::move(block.kind));
    row.cells.push_back(std::move(block.name));
    row.cells.push_back(std::move(block.identity));
    row.cells.push_back(Joined(block.addresses));
    row.cells.push_back(std::move(block.in));
    row.cells.push_back(std::to_string(block.line));
    row.cells.emplace_back(block.disabled ? "disabled" : "");
  }
  return table;
}

/// By their addresses, those without behind; blocks of one address stay in the order of the file.
void SortByAddress(std::vector<BlockInfo>& blocks) {
  std::stable_sort(blocks.begin(), blocks.end(), [](const BlockInfo& left, const BlockInfo& right) {
    if (!left.first_address || !right.first_address)
      return left.first_address.has_value() && !right.first_address;
    return *left.first_address < *right.first_address;
  });
}

/// Keeps the blocks of these kinds. Throws Problem(kNothing) when there are none.
void KeepKinds(std::vector<BlockInfo>& blocks, const std::vector<std::string>& kinds) {
  std::vector<std::string> present;
  for (const BlockInfo& block : blocks) {
    if (present.empty() || present.back() != block.kind) present.push_back(block.kind);
  }
  const auto is_wanted = [&kinds](const BlockInfo& block) {
    return std::find(kinds.begin(), kinds.end(), block.kind) != kinds.end();
  };
  blocks.erase(std::remove_if(blocks.begin(), blocks.end(),
                              [&](const BlockInfo& block) { return !is_wanted(block); }),
               blocks.end());
  if (!blocks.empty()) return;
  const std::string nearest = Nearest(kinds.front(), present);
  throw Problem(ExitStatus::kNothing,
                fmt::format("there is no {}{}", Joined(kinds),
                            nearest.empty() ? "" : fmt::format("; did you mean {}?", nearest)));
}

}  // namespace

ExitStatus RunList(const Invocation& invocation) {
  const Output output(invocation);
  const Document document = ReadDocument(invocation.Argument("FILE"));
  const std::vector<std::string>& kinds = invocation.Arguments("KIND");
  std::vector<BlockInfo> blocks =
      AllBlocks(document, output.IsJson() ? Detail::kStatements : Detail::kValues, kinds);
  if (!kinds.empty()) KeepKinds(blocks, kinds);
  const std::string order = invocation.Value("sort");
  if (order == "address" || (order.empty() && !kinds.empty())) SortByAddress(blocks);
  if (order == "name") {
    std::stable_sort(
        blocks.begin(), blocks.end(),
        [](const BlockInfo& left, const BlockInfo& right) { return left.name < right.name; });
  }
  if (output.IsJson()) {
    Records records;
    for (const BlockInfo& block : blocks) records.push_back(block.AsRecord());
    output.Print(
        Record().With("file", invocation.Argument("FILE")).With("blocks", std::move(records)));
  } else if (output.IsTerminal() && kinds.empty() && (order.empty() || order == "file")) {
    output.Print(Overview(blocks));
  } else {
    output.Print(TableOf(std::move(blocks)));
  }
  return ExitStatus::kDone;
}

}  // namespace klepur::tool
