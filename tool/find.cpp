// find: blocks by address, hardware address, identifier or name.
#include <klepur/network/hardware_address.h>
#include <klepur/network/identifier.h>
#include <klepur/network/network.h>
#include <klepur/network/prefix.h>

#include <fmt/core.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include <tool/block_finder.h>
#include <tool/block_info.h>
#include <tool/block_names.h>
#include <tool/commands.h>
#include <tool/language.h>
#include <tool/output.h>
#include <tool/source.h>
#include <tool/surroundings.h>
#include <tool/text_search.h>
#include <tool/walk.h>

namespace klepur::tool {
namespace {

struct Found {
  std::string what;  ///< As it was asked for.
  std::string by;    ///< "hardware address", "in range"
  Node node;         ///< A block, or a range.
};

/// The hosts among some blocks of a document, as a document of their own that can be asked about them.
class Excerpt {
 public:
  explicit Excerpt(const std::vector<Node>& blocks)
      : hosts_(HostsIn(blocks)), document_(TextOf(hosts_)), network_(document_) {
    for (const Node& node : document_.Root().Children()) copies_.push_back(node);
  }

  /// Whether each host is read in it as in its file.
  bool IsWhole() const { return copies_.size() == hosts_.size() && document_.Findings().empty(); }
  const Network& Asked() const { return network_; }

  /// Those of the file for those of the excerpt.
  std::vector<Node> Originals(std::vector<Node> nodes) const {
    for (Node& node : nodes) {
      const auto copy = std::find(copies_.begin(), copies_.end(), node);
      node = hosts_[static_cast<std::size_t>(copy - copies_.begin())];
    }
    return nodes;
  }

 private:
  static std::vector<Node> HostsIn(const std::vector<Node>& blocks) {
    std::vector<Node> hosts;
    for (const Node& block : blocks) {
      if (block.Keyword() == "host") hosts.push_back(block);
    }
    return hosts;
  }

  static std::string TextOf(const std::vector<Node>& hosts) {
    std::string text;
    for (const Node& host : hosts) text += host.Text() + "\n";
    return text;
  }

  std::vector<Node> hosts_;
  Document document_;
  Network network_;
  std::vector<Node> copies_;
};

/// Asks a document for one thing after the other.
class Search {
 public:
  /// \param questions  how many there will be: a few are answered without tables, which take long to make.
  Search(const Document& document, std::size_t questions)
      : document_(document),
        network_(document),
        text_(document),
        has_tables_(questions > kFewQuestions || !text_.IsGoodFor()) {}

  /// Whether anything was found.
  bool For(const std::string& what) {
    const std::size_t before = found_.size();
    const auto address = Address::ParseLenient(what);
    if (address) {
      ForAddress(what, *address);
    } else if (const auto prefix = Prefix::Parse(what)) {
      AddSubnets(what, *prefix);
    } else {
      ForWord(what);
    }
    return found_.size() > before;
  }

  const std::vector<Found>& All() const { return found_; }

 private:
  static constexpr std::size_t kFewQuestions = 5;

  void Add(const std::string& what, const std::string& by, const std::vector<Node>& nodes) {
    for (const Node& node : nodes) found_.push_back({what, by, node});
  }

  void ForAddress(const std::string& what, const Address& address) {
    const TextSearch::Blocks blocks = has_tables_ ? std::nullopt : text_.AroundAddress(address);
    const std::optional<Excerpt> excerpt = ExcerptOf(blocks);
    Add(what, "fixed address",
        excerpt ? excerpt->Originals(excerpt->Asked().HostsByAddress(address))
                : network_.HostsByAddress(address));
    const Surroundings around =
        has_tables_ ? Surroundings{network_.RangesOf(address), network_.PoolsOf(address),
                                   network_.SubnetsOf(address)}
                    : SurroundingsOf(document_, address);
    Add(what, "in range", around.ranges);
    Add(what, "in pool", around.pools);
    Add(what, "in subnet", around.subnets);
  }

  void ForWord(const std::string& what) {
    const TextSearch::Blocks blocks = BlocksAround(what);
    const std::optional<Excerpt> excerpt = ExcerptOf(blocks);
    const Network& asked = excerpt ? excerpt->Asked() : network_;
    const auto add = [&](const std::string& by, const std::vector<Node>& hosts) {
      Add(what, by, excerpt ? excerpt->Originals(hosts) : hosts);
    };
    add("hardware address", asked.HostsByHardwareAddress(what));
    // Identifiers are typed as numbers, as text between quotes, or as text.
    std::vector<Node> clients = asked.HostsByClientIdentifier(what);
    if (clients.empty()) clients = asked.HostsByClientIdentifier(Identifier(what));
    add("client identifier", clients);
    add("host name", asked.HostsByHostName(what));
    add("name", asked.HostsByName(what));
    if (excerpt) {
      for (const Node& block : *blocks) AddNamed(what, block);
      return;
    }
    const Node root = document_.Root();
    for (Node node = root.FirstChild(); node; node = NextBelow(node, root)) AddNamed(what, node);
  }

  /// Adds a block that is no host and has this name.
  void AddNamed(const std::string& what, const Node& node) {
    if (!node.Is(NodeKind::kBlock) || node.Keyword() == "host") return;
    if (node.Name() == what) found_.push_back({what, "name", node});
  }

  void AddSubnets(const std::string& what, const Prefix& prefix) {
    for (const Node& subnet : network_.SubnetsOf(prefix.First())) {
      const auto own = Prefix::ParseSubnet(subnet.Name());
      if (!own || !own->Overlaps(prefix)) continue;
      Add(what, own->WithoutHostBits() == prefix.WithoutHostBits() ? "name" : "in subnet",
          {subnet});
    }
  }

  /// All blocks that what was asked for can stand in, whatever it is meant as.
  TextSearch::Blocks BlocksAround(const std::string& what) const {
    if (has_tables_) return std::nullopt;
    std::vector<std::string> spellings = {what};
    if (const auto identifier = Identifier::ParseAnySpelling(what))
      spellings.push_back(identifier->Bytes());
    if (const auto hardware = HardwareOf(what)) spellings.push_back(*hardware);
    std::sort(spellings.begin(), spellings.end());
    spellings.erase(std::unique(spellings.begin(), spellings.end()), spellings.end());
    std::vector<TextSearch::Blocks> found = {text_.AroundNumbers(spellings)};
    const bool is_numbers =
        std::any_of(spellings.begin(), spellings.end(),
                    [&](const std::string& bytes) { return TextSearch::IsNumbers(what, bytes); });
    for (const std::string& text : spellings) {
      if (!is_numbers || text != what) found.push_back(text_.AroundText(text));
    }
    std::vector<Node> all;
    for (const TextSearch::Blocks& blocks : found) {
      if (!blocks) return std::nullopt;
      all.insert(all.end(), blocks->begin(), blocks->end());
    }
    std::sort(all.begin(), all.end(),
              [](const Node& left, const Node& right) { return left.Offset() < right.Offset(); });
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
  }

  static std::optional<std::string> HardwareOf(const std::string& what) {
    auto address = HardwareAddress::Parse(what);
    if (!address) address = HardwareAddress::ParseAnySpelling(what);
    if (!address) return std::nullopt;
    return std::string(address->Bytes(), address->Bytes() + address->ByteCount());
  }

  static std::optional<Excerpt> ExcerptOf(const TextSearch::Blocks& blocks) {
    if (!blocks) return std::nullopt;
    std::optional<Excerpt> excerpt(std::in_place, *blocks);
    if (!excerpt->IsWhole()) excerpt.reset();
    return excerpt;
  }

  const Document& document_;
  Network network_;
  TextSearch text_;
  bool has_tables_;
  std::vector<Found> found_;
};

/// What would be found if it were not disabled: "; disabled is host pc-18 (line 24)". Empty when nothing.
std::string DisabledHint(const Document& document, const std::string& what) {
  std::string hint;
  const Node root = document.Root();
  for (Node node = root; node; node = NextBelow(node, root)) {
    if (!node.Is(NodeKind::kBlock) && !node.Is(NodeKind::kFile)) continue;
    for (const DisabledNode& each : DisabledBelow(node)) {
      const Document disabled(each.text);
      if (!each.is_block || !Search(disabled, 1).For(what)) continue;
      hint += fmt::format("{}{} (line {})", hint.empty() ? "; disabled is " : ", ", each.name,
                          each.comment.Begin().line);
    }
  }
  return hint;
}

std::string NameOfFound(const Found& found, BlockNames& names) {
  if (found.node.Is(NodeKind::kBlock)) return names.Step(found.node);
  return OneLine(Plain(found.node.Text()));
}

}  // namespace

ExitStatus RunFind(const Invocation& invocation) {
  const Output output(invocation);
  const std::string file = invocation.Argument("FILE");
  const Document document = ReadDocument(file);
  Search search(document, invocation.Arguments("WHAT").size());
  ExitStatus status = ExitStatus::kDone;
  for (const std::string& what : invocation.Arguments("WHAT")) {
    if (search.For(what)) continue;
    Say(fmt::format("{}: there is no {}{}", ShownName(file), what, DisabledHint(document, what)));
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
