// leases: the records of a leases file.
#include <klepur/document/document.h>
#include <klepur/leases/leases_parser.h>
#include <klepur/network/hardware_address.h>

#include <list>
#include <string>
#include <vector>

#include <tool/commands.h>
#include <tool/language.h>
#include <tool/output.h>
#include <tool/problem.h>
#include <tool/source.h>

namespace klepur::tool {
namespace {

/// A lease as both families tell it. What a file does not say is empty.
struct Lease {
  std::string address;
  std::string state;
  std::string starts;
  std::string ends;
  std::string client;  ///< A hardware address or identifier in DHCPv4, a DUID in DHCPv6.
  std::string name;    ///< Only in DHCPv4.
};

/// The words of a statement, strings without their quotes.
std::vector<std::string> WordsOf(const Node& statement) {
  std::vector<std::string> words;
  const std::string text = statement.Text();
  for (const Piece& piece : PiecesOf(text)) {
    if (!piece.IsComment() && !piece.Is(';')) words.push_back(WithoutQuotes(piece.text));
  }
  return words;
}

/// The words behind the first `count`, with a blank between.
std::string Behind(const std::vector<std::string>& words, std::size_t count) {
  std::string text;
  for (std::size_t i = count; i < words.size(); ++i) text += (text.empty() ? "" : " ") + words[i];
  return text;
}

/// "2026/11/19 08:08:12" of "4 2026/11/19 08:08:12", where the number is the day of the week.
std::string WithoutWeekday(const std::string& time) {
  return time.size() > 2 && time[1] == ' ' ? time.substr(2) : time;
}

Lease LeaseOf(const Node& block) {
  Lease lease;
  lease.address = block.Name();
  for (const Node& child : block.Children()) {
    if (!child.Is(NodeKind::kStatement)) continue;
    const std::vector<std::string> words = WordsOf(child);
    if (words.empty()) continue;
    if (words[0] == "starts") lease.starts = WithoutWeekday(Behind(words, 1));
    if (words[0] == "ends") lease.ends = WithoutWeekday(Behind(words, 1));
    if (words[0] == "binding") lease.state = Behind(words, 2);
    if (words[0] == "hardware") lease.client = Behind(words, 2);
    if (words[0] == "uid" && lease.client.empty()) lease.client = Behind(words, 1);
    if (words[0] == "client-hostname") lease.name = Behind(words, 1);
  }
  return lease;
}

/// The records of a DHCPv4 server: "lease 10.0.0.7 { ... }".
std::vector<Lease> LeasesIn(const Document& document) {
  std::vector<Lease> leases;
  for (const Node& node : document.Root().Children()) {
    if (!node.Is(NodeKind::kBlock)) continue;
    const std::string header = Plain(node.Header());
    if (header.compare(0, 6, "lease ") != 0) continue;
    leases.push_back(LeaseOf(node));
    leases.back().address = header.substr(6);
  }
  return leases;
}

/// The records of a DHCPv6 server.
std::vector<Lease> Leases6In(const std::string& path) {
  std::list<_Dhcpv6LeaseStore> stored;
  Dhcpv6LeasesParser().GetLeases(path.c_str(), stored);
  std::vector<Lease> leases;
  for (const _Dhcpv6LeaseStore& each : stored) {
    leases.push_back({each.address,
                      each.bindingState,
                      WithoutWeekday(each.cltt),
                      WithoutWeekday(each.ends),
                      each.duid,
                      {}});
  }
  return leases;
}

}  // namespace

ExitStatus RunLeases(const Invocation& invocation) {
  const Output output(invocation);
  const std::string path = invocation.Argument("FILE");
  if (path == kStandard) throw Problem(ExitStatus::kUsage, "leases: FILE must be a file");
  std::vector<Lease> leases = LeasesIn(ReadDocument(path));
  if (leases.empty()) leases = Leases6In(path);
  Table table = {{"ADDRESS", "STATE", "STARTS", "ENDS", "CLIENT", "NAME"}, {}};
  Records records;
  for (const Lease& lease : leases) {
    std::vector<std::string> cells = {lease.address, lease.state,  lease.starts,
                                      lease.ends,    lease.client, lease.name};
    for (std::string& cell : cells) cell = OneLine(cell);
    table.rows.push_back(
        {std::move(cells), lease.state == "active" ? Style::kPlain : Style::kFaint});
    if (!output.IsJson()) continue;
    Record record;
    record.With("address", lease.address).With("state", lease.state).With("starts", lease.starts);
    records.push_back(
        record.With("ends", lease.ends).With("client", lease.client).With("name", lease.name));
  }
  if (output.IsJson()) {
    output.Print(Record().With("file", path).With("leases", std::move(records)));
  } else {
    output.Print(table);
  }
  if (!leases.empty()) return ExitStatus::kDone;
  Say(path + ": there are no leases in it");
  return ExitStatus::kNothing;
}

}  // namespace klepur::tool
