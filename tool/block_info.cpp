#include <tool/block_info.h>

#include <klepur/network/hardware_address.h>
#include <klepur/network/host_identifier.h>
#include <klepur/network/prefix.h>
#include <klepur/network/prefix_range.h>
#include <klepur/network/range.h>

#include <algorithm>
#include <utility>

#include <tool/addresses.h>
#include <tool/block_finder.h>
#include <tool/language.h>
#include <tool/output.h>
#include <tool/walk.h>

namespace klepur::tool {
namespace {

std::string HardwareText(const std::string& value) {
  const auto address = HardwareAddress::Parse(value);
  if (!address) return OneLine(Plain(value));
  return address->Type() == HardwareAddress::kEthernet ? address->Text() : address->Value();
}

bool IsIdentifier(const std::string& keyword) {
  return keyword == "uid" || keyword == "host-identifier" ||
         keyword == "option dhcp-client-identifier";
}

bool HasAddresses(const std::string& keyword) {
  return keyword == "fixed-address" || keyword == "fixed-address6" || keyword == "fixed-prefix6" ||
         keyword == "range" || keyword == "range6" || keyword == "prefix6";
}

std::optional<Address> AddressIn(const std::string& element) {
  return Address::ParseLenient(element.substr(0, element.find_first_of(" /")));
}

/// The bytes alone of a DHCPv6 client's identifier, any other as it is written.
std::string IdentifierText(const Node& statement) {
  const auto identifier = HostIdentifier::Parse(statement.Value());
  const bool is_client = statement.Keyword() == "host-identifier" && identifier &&
                         identifier->option == "dhcp6.client-id" && !identifier->relay;
  return is_client ? identifier->identifier.Hex() : OneLine(Plain(statement.Value()));
}

/// Notes what a statement right in a block says of it.
void NoteStatement(const Node& statement, BlockInfo& info, Detail detail) {
  const std::string keyword = statement.Keyword();
  if (keyword == "hardware") info.identity = HardwareText(statement.Value());
  if (IsIdentifier(keyword) && info.identity.empty()) info.identity = IdentifierText(statement);
  if (HasAddresses(keyword)) {
    for (const std::string& element : ElementsOf(statement))
      info.addresses.push_back(OneLine(element));
  }
  if (detail == Detail::kStatements) {
    info.statements.push_back(Record()
                                  .With("keyword", keyword)
                                  .With("value", Plain(statement.Value()))
                                  .With("line", statement.Begin().line));
  }
}

/// Everything but where it stands.
BlockInfo ContentOf(const Node& block, Detail detail) {
  BlockInfo info;
  info.kind = block.Keyword();
  if (block.Is(NodeKind::kStatement)) {
    info.header = OneLine(Plain(block.Text()));
    NoteStatement(block, info, Detail::kValues);
    return info;
  }
  info.name = OneLine(NameOf(block));
  info.header = OneLine(Plain(block.Header()));
  for (const Node& child : block.Children()) {
    if (child.Is(NodeKind::kStatement)) NoteStatement(child, info, detail);
  }
  info.first_address = AddressIn(info.name);
  if (!info.first_address && !info.addresses.empty()) {
    info.first_address = AddressIn(info.addresses.front());
  }
  return info;
}

/// The blocks of a disabled text, each as if it stood in `around`.
void AppendDisabled(const DisabledNode& disabled, const std::string& around, std::size_t depth,
                    Detail detail, std::vector<BlockInfo>& blocks) {
  const Document document(disabled.text);
  const std::size_t line = disabled.comment.Begin().line;
  BlockInfo info = ContentOf(document.Root().FirstChild(), detail);
  for (Record& statement : info.statements) {
    auto& number = std::get<std::size_t>(statement.fields.back().second);
    number += line - 1;
  }
  info.in = around;
  info.line = line;
  info.depth = depth;
  info.disabled = true;
  blocks.push_back(std::move(info));
}

}  // namespace

Record BlockInfo::AsRecord() const {
  Record record;
  record.With("kind", kind).With("name", name).With("header", header).With("line", line);
  record.With("disabled", disabled).With("in", in);
  record.With("identity", identity).With("addresses", addresses).With("statements", statements);
  return record;
}

BlockInfo InfoOf(const Node& block, BlockNames& names, Detail detail) {
  BlockInfo info = ContentOf(block, detail);
  info.in = names.In(block);
  info.line = block.Begin().line;
  return info;
}

std::vector<BlockInfo> AllBlocks(const Document& document, Detail detail,
                                 const std::vector<std::string>& kinds) {
  /// A block around the one that the walk is at, with what in it is commented out.
  struct Around {
    Node block;
    std::string path;  ///< Made when there is something in it.
    std::vector<DisabledNode> disabled;
    std::size_t next = 0;
  };
  std::vector<BlockInfo> blocks;
  BlockNames names(document);
  const auto is_wanted = [&kinds](const std::string& kind) {
    return kinds.empty() || std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
  };
  const Node root = document.Root();
  std::vector<Around> around;
  around.push_back({root, {}, DisabledBelow(root), 0});
  for (Node node = root.FirstChild(); node; node = NextBelow(node, root)) {
    if (!node.Is(NodeKind::kBlock) && !node.Is(NodeKind::kComment)) continue;
    const Node parent = node.Parent();
    while (around.back().block != parent) around.pop_back();
    Around& in = around.back();
    const std::size_t depth = around.size() - 1;
    if (in.path.empty() && depth != 0) {
      const std::string& outer = around[depth - 1].path;
      in.path =
          outer.empty() ? names.Step(in.block) : outer + std::string(kStep) + names.Step(in.block);
    }
    if (node.Is(NodeKind::kComment)) {
      if (in.next == in.disabled.size() || in.disabled[in.next].comment != node) continue;
      const DisabledNode& disabled = in.disabled[in.next++];
      if (disabled.is_block) AppendDisabled(disabled, in.path, depth, detail, blocks);
      continue;
    }
    BlockInfo& info = blocks.emplace_back();
    info.kind = node.Keyword();
    if (is_wanted(info.kind)) {
      info = ContentOf(node, detail);
      info.in = in.path;
      info.line = node.Begin().line;
      info.depth = depth;
    }
    around.push_back({node, {}, DisabledBelow(node), 0});
  }
  return blocks;
}

}  // namespace klepur::tool
