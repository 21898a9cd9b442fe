// What a configuration file says of the network: its hosts, subnets, pools and ranges, and what counts for them.
#ifndef KLEPUR_NETWORK_NETWORK_H
#define KLEPUR_NETWORK_NETWORK_H

#include <klepur/document/document.h>
#include <klepur/document/node.h>
#include <klepur/export.h>
#include <klepur/network/address.h>
#include <klepur/network/hardware_address.h>
#include <klepur/network/identifier.h>

#include <memory>
#include <string_view>
#include <vector>

namespace klepur {

/// A statement that counts for a block, and where it comes from.
struct InForce {
  Node statement;  ///< No node when there is none.
  Node from;       ///< The block that it stands in, or the file's node.

  explicit operator bool() const { return static_cast<bool>(statement); }
};

/// Finds the hosts, subnets, pools and ranges of a document.
///
///     klepur::Document document = klepur::Document::Read("/etc/dhcp/dhcpd.conf");
///     klepur::Network network(document);
///     for (klepur::Node host : network.HostsByHardwareAddress("00-16-3E-10-00-07")) {
///       host.Set("fixed-address", "10.20.0.8");
///     }
///     klepur::Node pool = network.PoolOf("10.20.0.200");
///     klepur::Node host = network.HostsByName("prn7").front();
///     klepur::InForce lease = network.StatementInForce(host, "max-lease-time");
///     // lease.statement.Value() is "7200", lease.from.Keyword() is "subnet"
///
/// Everything is found anywhere in the file, in blocks of any depth, and as it is written now: edits of the
/// document need not be told. What is commented out is not found, and files that the document includes are
/// not read. When several are found they stand in the order of the text.
///
/// Cost: the first question of a kind reads the whole file. Later ones take a time that does not depend on
/// the size of the file, and what was edited in between is read again. When a question has several answers,
/// finding their order after an edit takes time in proportion to the number of edits so far.
///
/// The document must outlive it, and may be moved. Several threads may ask while nobody edits the document.
class KLEPUR_EXPORT Network {
 public:
  /// Reads nothing yet.
  explicit Network(const Document& document);
  Network(Network&&) noexcept;
  Network& operator=(Network&&) noexcept;
  ~Network();

  /// The hosts with a `hardware` statement of this address.
  std::vector<Node> HostsByHardwareAddress(const HardwareAddress& address) const;
  /// \param text  in any spelling that HardwareAddress::Parse or HardwareAddress::ParseAnySpelling takes:
  ///              "0:16:3e:10:0:7", "0016.3e10.0007", "token-ring 0:16:3e:10:0:7"; without a kind it is
  ///              one of ethernet. No host is found for any other text.
  std::vector<Node> HostsByHardwareAddress(std::string_view text) const;

  /// The hosts whose `fixed-address` or `fixed-address6` lists this address, at any place. Names in these
  /// lists are not resolved, and `fixed-prefix6` is no address.
  std::vector<Node> HostsByAddress(const Address& address) const;
  /// \param text  "10.20.0.7", "2001:DB8::1"; no host is found for any other text.
  std::vector<Node> HostsByAddress(std::string_view text) const;

  /// The hosts that are recognised by this client identifier: by `option dhcp-client-identifier`, `uid`,
  /// or `host-identifier option dhcp6.client-id`, written as text or as hexadecimal numbers.
  std::vector<Node> HostsByClientIdentifier(const Identifier& identifier) const;
  /// \param text  as Identifier::ParseAnySpelling takes it: "\"CLIENT-FOO\"" with the quotes,
  ///              "43:4c:49", "434c49"; no host is found for any other text.
  std::vector<Node> HostsByClientIdentifier(std::string_view text) const;

  /// The hosts that are given this name by `option host-name`. Letter case counts.
  std::vector<Node> HostsByHostName(std::string_view name) const;
  /// The hosts that are declared by this name: "prn7" finds `host prn7 { ... }`. Letter case counts.
  std::vector<Node> HostsByName(std::string_view name) const;

  /// The `subnet` or `subnet6` block around an address, of several the innermost: the smallest one where
  /// they lie one in the other. No node if there is none. A subnet whose netmask has holes is not found.
  Node SubnetOf(const Address& address) const;
  Node SubnetOf(std::string_view text) const;
  /// The `range` or `range6` statement that holds an address; the innermost if they overlap.
  Node RangeOf(const Address& address) const;
  Node RangeOf(std::string_view text) const;
  /// The `pool` or `pool6` block with a range that holds an address. No node for an address in a range that
  /// stands right in a subnet.
  Node PoolOf(const Address& address) const;
  Node PoolOf(std::string_view text) const;
  /// All of them, the innermost first, and of those with the same addresses the first one of the text first.
  std::vector<Node> SubnetsOf(const Address& address) const;
  std::vector<Node> RangesOf(const Address& address) const;
  std::vector<Node> PoolsOf(const Address& address) const;

  /// The statement of a keyword that counts for a block or the file. Blocks are asked in this order, and the
  /// first one with such a statement right in it gives it, the last one if it has several:
  ///
  /// 1. the block itself;
  /// 2. the blocks around it, from the inside outwards: for a host, the groups that it stands in;
  /// 3. for a host with a fixed address, the pool whose range holds that address, the subnet around the
  ///    address, the shared network, and the groups around these;
  /// 4. the file.
  ///
  /// A block that comes up twice is asked the second time. So a group around a host outweighs the host's
  /// subnet, but a shared network that both the host and its subnet stand in does not. Of several fixed
  /// addresses the first one that lies in a subnet of the file counts, and of overlapping pools and subnets
  /// the innermost.
  ///
  /// Not asked are what depends on the client: classes, and `if`, `switch` and `on`, around the block or in
  /// it; nor the group that a host names (`group printers;`). The server also serves a host without a fixed
  /// address from any subnet, which its file does not tell; see the other form.
  ///
  /// Statements with `allow`, `deny` and `ignore` set the same parameter, as do `authoritative` and
  /// `not authoritative`: whichever of them is asked for, the one in force is found. What says something of
  /// its own block only (`range`, `hardware`, `match`, a pool's permits) and what is carried out rather than
  /// set (`log`, `set`, `append`) is found in the block itself and in no other; the definition of an option
  /// is never found. In a `zone`, `key` or `failover peer` only its own statements count.
  ///
  /// \param block    a block or the file of the document; for any other node none is found.
  /// \param keyword  as Node::Keyword has it: "max-lease-time", "option routers".
  /// Cost: linear in the number of blocks asked, and in the number of children of the block itself unless
  /// that is the file, a group, a shared network, a subnet or a pool.
  InForce StatementInForce(const Node& block, std::string_view keyword) const;
  /// The same for a host that got an address, whatever it has in its own statements.
  InForce StatementInForce(const Node& block, std::string_view keyword,
                           const Address& address) const;

  /// All statements that count for a block, one of each keyword: first those of the block itself, then those
  /// of the blocks asked after it, each in the order of the text. Of those that only its own block knows,
  /// such as `range`, all are given.
  /// Cost: linear in the statements of the blocks asked and in the children of the block itself.
  std::vector<InForce> StatementsInForce(const Node& block) const;
  std::vector<InForce> StatementsInForce(const Node& block, const Address& address) const;

 private:
  struct Tables;
  std::unique_ptr<Tables> tables_;
};

}  // namespace klepur

#endif
