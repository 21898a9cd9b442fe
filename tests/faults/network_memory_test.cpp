// Memory runs out while a network is asked, for the first time and after an edit.
#include <klepur/document/document.h>
#include <klepur/network/network.h>

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/faults/every_fault.h"

namespace klepur::test {
namespace {

constexpr std::string_view kText =
    "max-lease-time 7200;\n"
    "shared-network office {\n"
    "  subnet 10.0.0.0 netmask 255.255.255.0 {\n"
    "    pool {\n"
    "      range 10.0.0.100 10.0.0.200;\n"
    "      default-lease-time 600;\n"
    "    }\n"
    "  }\n"
    "}\n"
    "group {\n"
    "  option routers 10.0.0.254;\n"
    "  host a-host-of-a-name-that-is-long {\n"
    "    hardware ethernet 00:16:3e:00:00:01;\n"
    "    fixed-address 10.0.0.150;\n"
    "    option host-name \"a-name-that-is-long-too\";\n"
    "    option dhcp-client-identifier \"an identifier that is long\";\n"
    "  }\n"
    "  host b {\n"
    "    hardware ethernet 00:16:3e:00:00:02;\n"
    "    option host-name \"a-name-that-is-long-too\";\n"
    "  }\n"
    "}\n";

struct Question {
  const char* name;
  const char* answer;
  std::string (*ask)(const Network& network, const Document& document);
};

std::ostream& operator<<(std::ostream& out, const Question& question) {
  return out << question.name;
}

/// The headers or statements, one behind the other.
std::string Texts(const std::vector<Node>& nodes) {
  std::string texts;
  for (const Node& node : nodes) {
    texts += (node.Is(NodeKind::kBlock) ? node.Header() : node.Text()) + " ";
  }
  return texts;
}

Node Host(const Document& document) {
  return document.Find("host a-host-of-a-name-that-is-long");
}

class NetworkMemory : public ::testing::TestWithParam<Question> {};

INSTANTIATE_TEST_SUITE_P(
    Questions, NetworkMemory,
    ::testing::Values(
        Question{"HostsByHardwareAddress", "host b ",
                 [](const Network& n, const Document& /*document*/) {
                   return Texts(n.HostsByHardwareAddress("00:16:3e:00:00:02"));
                 }},
        Question{"HostsByAddress", "host a-host-of-a-name-that-is-long ",
                 [](const Network& n, const Document& /*document*/) {
                   return Texts(n.HostsByAddress("10.0.0.150"));
                 }},
        Question{"HostsByClientIdentifier", "host a-host-of-a-name-that-is-long ",
                 [](const Network& n, const Document& /*document*/) {
                   return Texts(n.HostsByClientIdentifier("\"an identifier that is long\""));
                 }},
        Question{"HostsByHostName", "host a-host-of-a-name-that-is-long host b ",
                 [](const Network& n, const Document& /*document*/) {
                   return Texts(n.HostsByHostName("a-name-that-is-long-too"));
                 }},
        Question{"HostsByName", "host a-host-of-a-name-that-is-long ",
                 [](const Network& n, const Document& /*document*/) {
                   return Texts(n.HostsByName("a-host-of-a-name-that-is-long"));
                 }},
        Question{"SubnetsOf", "subnet 10.0.0.0 netmask 255.255.255.0 ",
                 [](const Network& n, const Document& /*document*/) {
                   return Texts(n.SubnetsOf(*Address::Parse("10.0.0.7")));
                 }},
        Question{"RangesOf", "range 10.0.0.100 10.0.0.200; ",
                 [](const Network& n, const Document& /*document*/) {
                   return Texts(n.RangesOf(*Address::Parse("10.0.0.120")));
                 }},
        Question{"PoolsOf", "pool ",
                 [](const Network& n, const Document& /*document*/) {
                   return Texts(n.PoolsOf(*Address::Parse("10.0.0.120")));
                 }},
        Question{"StatementInForce", "600",
                 [](const Network& n, const Document& d) {
                   return n.StatementInForce(Host(d), "default-lease-time").statement.Value();
                 }},
        Question{"StatementsInForce",
                 "hardware fixed-address option host-name "
                 "option dhcp-client-identifier option routers "
                 "default-lease-time max-lease-time ",
                 [](const Network& n, const Document& d) {
                   std::string keywords;
                   for (const InForce& it : n.StatementsInForce(Host(d))) {
                     keywords += it.statement.Keyword() + " ";
                   }
                   return keywords;
                 }}),
    [](const auto& row) { return std::string(row.param.name); });

/// A network and a question whose answer is right or missing for lack of memory, and right when it is asked
/// once more.
class Asked {
 public:
  explicit Asked(const Question& question) : question_(question) {}

  void Prepare() {
    document_.emplace(kText);
    network_.emplace(*document_);
  }

  /// Lets the question be asked, and then changes what its answer is found by.
  void PrepareEdited() {
    Prepare();
    Ask();
    Node host = document_->Find("host b");
    host.Set("hardware", "ethernet 00:16:3e:00:00:03");
    host.Set("hardware", "ethernet 00:16:3e:00:00:02");
    document_->Find("group").Add("host c { hardware ethernet 00:16:3e:00:00:04; }");
    document_->Find("host c").Remove();
  }

  bool Ask() {
    answer_ = question_.ask(*network_, *document_);
    return true;
  }

  void Check(const Outcome& outcome) {
    if (!outcome.threw) {
      EXPECT_EQ(answer_, question_.answer);
    }
    Ask();
    EXPECT_EQ(answer_, question_.answer);
  }

  void Finish() {
    network_.reset();
    document_.reset();
    answer_ = std::string();
  }

 private:
  const Question& question_;
  std::optional<Document> document_;
  std::optional<Network> network_;
  std::string answer_;
};

TEST_P(NetworkMemory, FirstAnswerIsRightOrThereIsNone) {
  Asked asked(GetParam());
  EXPECT_GT(
      ForEveryFault([&] { asked.Prepare(); }, [&] { return asked.Ask(); },
                    [&](const Outcome& outcome) { asked.Check(outcome); }, [&] { asked.Finish(); }),
      4U);
}

TEST_P(NetworkMemory, AnswerAfterEditsIsRightOrThereIsNone) {
  Asked asked(GetParam());
  EXPECT_GT(
      ForEveryFault([&] { asked.PrepareEdited(); }, [&] { return asked.Ask(); },
                    [&](const Outcome& outcome) { asked.Check(outcome); }, [&] { asked.Finish(); }),
      0U);
}

}  // namespace
}  // namespace klepur::test
