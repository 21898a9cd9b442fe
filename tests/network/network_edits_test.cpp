#include <klepur/network/network.h>

#include <gtest/gtest.h>
#include <klepur/document/placement.h>
#include <klepur/network/prefix.h>
#include <klepur/network/range.h>
#include <klepur/text/error.h>
#include <tests/network/random_values.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace klepur {
namespace {

// Few values, so that many are equal.
constexpr const char* kStatements[] = {
    "hardware ethernet 0:0:0:0:0:%",
    "fixed-address 10.0.%.1",
    "fixed-address 10.0.%.1, 10.0.0.1",
    "option dhcp-client-identifier \"%\"",
    "option dhcp-client-identifier 3%",
    "option host-name \"pc%\"",
    "range 10.0.%.1 10.0.%.9",
    "range 10.0.%.1",
    "option routers 10.0.0.%",
    "max-lease-time %",
    "deny booting",
    "allow booting",
};
constexpr const char* kHeaders[] = {
    "host pc%",
    "group",
    "subnet 10.0.%.0 netmask 255.255.255.0",
    "subnet 10.0.0.0 netmask 255.255.%.0",
    "pool",
    "shared-network s%",
    "if known",
};

template <std::size_t count>
std::string One(RandomValues& random, const char* const (&texts)[count]) {
  std::string text = texts[random.Below(count)];
  for (std::size_t at = text.find('%'); at != std::string::npos; at = text.find('%')) {
    text.replace(at, 1, std::to_string(random.Below(4)));
  }
  return text;
}

std::string ABlock(RandomValues& random, unsigned depth) {
  std::string text = One(random, kHeaders) + " {\n";
  for (unsigned i = random.Below(4); i > 0; --i) text += One(random, kStatements) + ";\n";
  for (unsigned i = depth == 0 ? 0 : random.Below(3); i > 0; --i) text += ABlock(random, depth - 1);
  return text + "}\n";
}

std::vector<Node> AllNodes(const Node& top) {
  std::vector<Node> nodes = {top};
  for (const Node& child : top.Children()) {
    const std::vector<Node> below = AllNodes(child);
    nodes.insert(nodes.end(), below.begin(), below.end());
  }
  return nodes;
}

Node ANode(RandomValues& random, const Document& document) {
  const std::vector<Node> nodes = AllNodes(document.Root());
  return nodes[random.Below(static_cast<unsigned>(nodes.size()))];
}

void Edit(RandomValues& random, Document& document) {
  Node node = ANode(random, document);
  const Node other = ANode(random, document);
  switch (random.Below(10)) {
    case 0:
      if (random.Below(3) == 0) node.Remove();
      break;
    case 1:
      node.CommentOut();
      break;
    case 2:
    case 3:
      node.BringBack();
      break;
    case 4:
      node.MoveTo(other, random.Below(2) == 0 ? Placement() : Placement::First());
      break;
    case 5:
      node.SetHeader(One(random, kHeaders));
      break;
    case 6:
    case 7:
      node.Set(One(random, kStatements));
      break;
    case 8:
      node.Add(One(random, kStatements), random.Below(2) == 0 ? Placement() : Placement::First());
      break;
    default:
      node.Add(ABlock(random, 1));
  }
}

void TryToEdit(RandomValues& random, Document& document) {
  try {
    if (random.Below(8) != 0) return Edit(random, document);
    const Document::Mark mark = document.GetMark();
    try {
      for (unsigned i = random.Below(4); i > 0; --i) Edit(random, document);
    } catch (const Error&) {
    }
    document.RollBack(mark);
  } catch (const Error&) {  // an edit of a node that it is not for
  }
}

/// What a walk over the whole document answers, with nothing remembered.
class Walk {
 public:
  explicit Walk(const Document& document) : nodes_(AllNodes(document.Root())) {}

  template <class Has>
  std::vector<Node> Hosts(const Has& has) const {
    std::vector<Node> found;
    for (const Node& node : nodes_) {
      if (!node.Is(NodeKind::kBlock) || node.Keyword() != "host") continue;
      const NodeRange children = node.Children();
      if (std::any_of(children.begin(), children.end(), has)) found.push_back(node);
    }
    return found;
  }

  std::vector<Node> Subnets(const Address& address) const {
    return Around(address, [](const Node& node) -> std::optional<AddressRange> {
      if (!node.Is(NodeKind::kBlock) || node.Keyword() != "subnet") return std::nullopt;
      const auto prefix = Prefix::ParseSubnet(node.Name());
      return prefix ? std::optional(AddressRange(*prefix)) : std::nullopt;
    });
  }

  std::vector<Node> Ranges(const Address& address) const {
    return Around(address, [](const Node& node) {
      return node.Is(NodeKind::kStatement) && node.Keyword() == "range"
                 ? AddressRange::Parse(node.Value())
                 : std::nullopt;
    });
  }

  std::vector<Node> Pools(const Address& address) const {
    std::vector<Node> pools;
    for (const Node& range : Ranges(address)) {
      const Node block = range.Parent();
      if (block.Keyword() != "pool") continue;
      if (std::find(pools.begin(), pools.end(), block) == pools.end()) pools.push_back(block);
    }
    return pools;
  }

  std::vector<Node> ScopesOf(const Node& block) const {
    std::vector<Node> scopes = Chain(block);
    for (const Node& address : Fixed(block)) {
      for (const std::string& word : {address.Value().substr(0, 8), std::string("10.0.0.1")}) {
        const Address at = *Address::Parse(word);
        const bool listed = address.Value().find(word) != std::string::npos;
        if (!listed || Subnets(at).empty()) continue;
        const std::vector<Node> pools = Pools(at);
        if (!pools.empty()) Add(scopes, pools.front());
        Add(scopes, Subnets(at).front());
        return scopes;
      }
    }
    return scopes;
  }

  Node InForce(const Node& block, const std::string& keyword) const {
    for (const Node& scope : ScopesOf(block)) {
      if (const Node found = scope.InForce(keyword)) return found;
    }
    return {};
  }

 private:
  template <class Read>
  std::vector<Node> Around(const Address& address, const Read& read) const {
    struct Found {
      AddressRange range;
      Node node;
    };
    std::vector<Found> found;
    for (const Node& node : nodes_) {
      const std::optional<AddressRange> range = read(node);
      if (range && range->Contains(address)) found.push_back({*range, node});
    }
    std::stable_sort(found.begin(), found.end(), [](const Found& left, const Found& right) {
      if (left.range.First() != right.range.First()) {
        return left.range.First() > right.range.First();
      }
      return left.range.Last() < right.range.Last();
    });
    std::vector<Node> nodes;
    for (const Found& one : found) nodes.push_back(one.node);
    return nodes;
  }

  std::vector<Node> Chain(const Node& block) const {
    std::vector<Node> chain = {block};
    for (Node at = block.Parent(); at; at = at.Parent()) {
      if (at.Keyword() != "if") chain.push_back(at);
    }
    return chain;
  }

  void Add(std::vector<Node>& scopes, const Node& block) const {
    for (const Node& node : Chain(block)) {
      scopes.erase(std::remove(scopes.begin(), scopes.end(), node), scopes.end());
      scopes.push_back(node);
    }
  }

  std::vector<Node> Fixed(const Node& block) const {
    std::vector<Node> fixed;
    if (block.Keyword() != "host") return fixed;
    for (const Node& child : block.Children()) {
      if (child.Is(NodeKind::kStatement) && child.Keyword() == "fixed-address") {
        fixed.push_back(child);
      }
    }
    return fixed;
  }

  std::vector<Node> nodes_;
};

void ExpectSameHosts(const Network& network, const Walk& walk) {
  for (char digit = '0'; digit < '4'; ++digit) {
    const std::string text(1, digit);
    const auto has = [&](const std::string& keyword, const std::string& in) {
      return [keyword, in](const Node& node) {
        return node.Is(NodeKind::kStatement) && node.Keyword() == keyword &&
               (", " + node.Value() + ",").find(in) != std::string::npos;
      };
    };
    ASSERT_EQ(network.HostsByHardwareAddress("00:00:00:00:00:0" + text),
              walk.Hosts(has("hardware", "0:0:0:0:0:" + text)));
    ASSERT_EQ(network.HostsByAddress("10.0." + text + ".1"),
              walk.Hosts(has("fixed-address", " 10.0." + text + ".1,")));
    ASSERT_EQ(network.HostsByHostName("pc" + text),
              walk.Hosts(has("option host-name", "\"pc" + text + "\"")));
    const auto quoted = has("option dhcp-client-identifier", "\"" + text + "\"");
    const auto number = has("option dhcp-client-identifier", " 3" + text + ",");
    ASSERT_EQ(network.HostsByClientIdentifier(Identifier(text)),
              walk.Hosts([&](const Node& node) { return quoted(node) || number(node); }));
  }
}

void ExpectSamePlaces(const Network& network, const Walk& walk) {
  for (const char* text : {"10.0.0.1", "10.0.1.5", "10.0.2.9", "10.0.3.200"}) {
    const Address address = *Address::Parse(text);
    ASSERT_EQ(network.SubnetsOf(address), walk.Subnets(address)) << text;
    ASSERT_EQ(network.RangesOf(address), walk.Ranges(address)) << text;
    ASSERT_EQ(network.PoolsOf(address), walk.Pools(address)) << text;
  }
}

void ExpectSameInForce(const Network& network, const Walk& walk, const Node& block) {
  if (!block.Is(NodeKind::kFile) && !block.Is(NodeKind::kBlock)) return;
  std::set<std::string> given;
  for (const InForce& found : network.StatementsInForce(block)) {
    ASSERT_EQ(found.from, found.statement.Parent());
    given.insert(found.statement.Text());
  }
  for (const char* keyword : {"option routers", "max-lease-time"}) {
    const Node expected = walk.InForce(block, keyword);
    const InForce found = network.StatementInForce(block, keyword);
    ASSERT_EQ(found.statement, expected) << keyword << " of " << block.Header();
    ASSERT_EQ(found.from, expected.Parent());
    if (expected) {
      ASSERT_EQ(given.count(expected.Text()), 1U);
    }
  }
}

TEST(Network, AnswersAfterAnyEditsWhatAWalkAnswers) {
  for (unsigned seed = 0; seed < 40; ++seed) {
    SCOPED_TRACE(seed);
    RandomValues random(seed);
    std::string text;
    for (unsigned i = random.Below(8); i > 0; --i) text += ABlock(random, 2);
    Document document(text);
    const Network network(document);
    for (int round = 0; round < 60; ++round) {
      for (unsigned i = random.Below(4); i > 0; --i) TryToEdit(random, document);
      const Walk walk(document);
      ASSERT_NO_FATAL_FAILURE(ExpectSameHosts(network, walk)) << document.Text();
      ASSERT_NO_FATAL_FAILURE(ExpectSamePlaces(network, walk)) << document.Text();
      ASSERT_NO_FATAL_FAILURE(ExpectSameInForce(network, walk, ANode(random, document)))
          << document.Text();
    }
  }
}

}  // namespace
}  // namespace klepur
