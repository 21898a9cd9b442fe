// find: blocks by address, hardware address, identifier or name.
#include <klepur/network/network.h>
#include <klepur/network/prefix.h>

#include <fmt/core.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include <tool/block_info.h>
#include <tool/block_names.h>
#include <tool/commands.h>
#include <tool/language.h>
#include <tool/output.h>
#include <tool/source.h>
#include <tool/walk.h>

namespace klepur::tool {
namespace {

struct Found {
  std::string what;  ///< As it was asked for.
  std::string by;    ///< "hardware address", "in range"
  Node node;         ///< A block, or a range.
};

/// Asks a document for one thing after the other.
class Search {
 public:
  explicit Search(const Document& document) : document_(document), network_(document) {}

  /// Whether anything was found.
  bool For(const std::string& what) {
    const std::size_t before = found_.size();
    const auto address = Address::ParseLenient(what);
    if (address) {
      Add(what, "fixed address", network_.HostsByAddress(*address));
      Add(what, "in range", network_.RangesOf(*address));
      Add(what, "in pool", network_.PoolsOf(*address));
      Add(what, "in subnet", network_.SubnetsOf(*address));
    } else if (const auto prefix = Prefix::Parse(what)) {
      AddSubnets(what, *prefix);
    } else {
      Add(what, "hardware address", network_.HostsByHardwareAddress(what));
      AddIdentifiers(what);
      Add(what, "host name", network_.HostsByHostName(what));
      AddNames(what);
    }
    return found_.size() > before;
  }

  const std::vector<Found>& All() const { return found_; }

 private:
  void Add(const std::string& what, const std::string& by, const std::vector<Node>& nodes) {
    for (const Node& node : nodes) found_.push_back({what, by, node});
  }

  void AddSubnets(const std::string& what, const Prefix& prefix) {
    for (const Node& subnet : network_.SubnetsOf(prefix.First())) {
      const auto own = Prefix::ParseSubnet(subnet.Name());
      if (!own || !own->Overlaps(prefix)) continue;
      Add(what, own->WithoutHostBits() == prefix.WithoutHostBits() ? "name" : "in subnet",
          {subnet});
    }
  }

  /// Identifiers are typed as numbers, as text between quotes, or as text.
  void AddIdentifiers(const std::string& what) {
    std::vector<Node> hosts = network_.HostsByClientIdentifier(what);
    if (hosts.empty()) hosts = network_.HostsByClientIdentifier(Identifier(what));
    Add(what, "client identifier", hosts);
  }

  void AddNames(const std::string& what) {
    Add(what, "name", network_.HostsByName(what));
    const Node root = document_.Root();
    for (Node node = root.FirstChild(); node; node = NextBelow(node, root)) {
      if (!node.Is(NodeKind::kBlock) || node.Keyword() == "host") continue;
      if (node.Name() == what) found_.push_back({what, "name", node});
    }
  }

  const Document& document_;
  Network network_;
  std::vector<Found> found_;
};

std::string NameOfFound(const Found& found, BlockNames& names) {
  if (found.node.Is(NodeKind::kBlock)) return names.Step(found.node);
  return OneLine(Plain(found.node.Text()));
}

}  // namespace

ExitStatus RunFind(const Invocation& invocation) {
  const Output output(invocation);
  const std::string file = invocation.Argument("FILE");
  const Document document = ReadDocument(file);
  Search search(document);
  ExitStatus status = ExitStatus::kDone;
  for (const std::string& what : invocation.Arguments("WHAT")) {
    if (search.For(what)) continue;
    Say(fmt::format("{}: there is no {}", ShownName(file), what));
    status = ExitStatus::kNothing;
  }
  BlockNames names(document);
  Table table = {{"WHAT", "FOUND BY", "FOUND", "ADDRESSES", "IN", "LINE"}, {}};
  Records records;
  for (const Found& found : search.All()) {
    const BlockInfo info =
        InfoOf(found.node, names, output.IsJson() ? Detail::kStatements : Detail::kValues);
    if (output.IsJson()) {
      Record record = info.AsRecord();
      records.push_back(record.With("what", found.what).With("found_by", found.by));
      continue;
    }
    std::string addresses;
    for (const std::string& each : info.addresses)
      addresses += (addresses.empty() ? "" : ", ") + each;
    table.rows.push_back({{OneLine(found.what), found.by, NameOfFound(found, names), addresses,
                           info.in, std::to_string(info.line)},
                          Style::kPlain});
  }
  if (output.IsJson()) {
    output.Print(Record().With("file", file).With("blocks", std::move(records)));
  } else {
    output.Print(table);
  }
  return status;
}

}  // namespace klepur::tool
