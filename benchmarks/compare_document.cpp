// Compares reading a DHCPv4 configuration file into a document, edits of it, a check of it, what saving it with the
// configuration class would lose, and the first question of each kind to its network, with what stands beside them.
//
//     compare_document FILE ROUNDS
//
// The file is one of generate_config. JSON is parsed from memory; the document reads its file. Freeing
// what was made is not timed.
#include <klepur/check/checker.h>
#include <klepur/document/document.h>
#include <klepur/network/network.h>
#include <klepur/rewrite/rewrite_losses.h>
#include <rapidjson/document.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "benchmarks/check.h"
#include "benchmarks/command_line.h"
#include "benchmarks/compare.h"
#include "benchmarks/file_text.h"
#include "benchmarks/json_of_tree.h"
#include "benchmarks/measure.h"

namespace {

using klepur::Document;
using klepur::Network;
using klepur::Node;

constexpr std::size_t kEdits = 10000;

double Read(const std::string& path) {
  std::optional<Document> document;
  const double seconds = SecondsFor([&] { document.emplace(Document::Read(path)); });
  Check(document->At(1).Text() == "authoritative;", "the document is read");
  return seconds;
}

double ParseWithRapidJson(const std::string& json) {
  rapidjson::Document document;
  const double seconds = SecondsFor([&] { document.Parse(json.data(), json.size()); });
  Check(!document.HasParseError() && document["blocks"].Size() != 0, "RapidJSON");
  return seconds;
}

/// The hosts that are edited: as many as are wanted or there are, evenly spread over the file.
std::vector<Node> SpreadHosts(const Document& document, std::size_t count) {
  const std::vector<Node> hosts = document.Walk("host");
  Check(!hosts.empty(), "the file has hosts");
  std::vector<Node> spread;
  for (std::size_t i = 0; i != count; ++i) spread.push_back(hosts[i * hosts.size() / count]);
  return spread;
}

/// Another value for a statement of a host, each time.
class Change {
 public:
  explicit Change(const std::string& path)
      : document_(Document::Read(path)), host_(SpreadHosts(document_, 1).front()) {}

  double Run() {
    const std::string address = "192.0.2." + std::to_string(100 + ++times_ % 100);
    std::string text;
    const double seconds = SecondsFor([&] {
      host_.Set("fixed-address", address);
      text = document_.Text();
    });
    Check(text.find("fixed-address " + address + ";") != std::string::npos, "a host is changed");
    return seconds;
  }

 private:
  Document document_;
  Node host_;
  std::size_t times_ = 0;
};

double Copy(std::string_view text) {
  std::unique_ptr<char[]> copy;
  const double seconds = SecondsFor([&] {
    copy.reset(new char[text.size()]);
    std::memcpy(copy.get(), text.data(), text.size());
  });
  Check(copy[0] == text[0] && copy[text.size() - 1] == text.back(), "the text is copied");
  return seconds;
}

/// Sets a statement that each of many hosts has.
double EditMany(const std::string& path) {
  Document document = Document::Read(path);
  const std::vector<Node> hosts = SpreadHosts(document, kEdits);
  const double seconds = SecondsFor([&] {
    for (Node host : hosts) host.Set("fixed-address", "192.0.2.1");
  });
  Check(hosts.back().InForce("fixed-address").Value() == "192.0.2.1", "many hosts are changed");
  return seconds;
}

/// A question that what the generated file begins with answers.
struct Question {
  const char* kind;
  bool (*ask)(const Network& network, const Node& host);
};

constexpr Question kQuestions[] = {
    {"hardware address",
     [](const Network& network, const Node& host) {
       return network.HostsByHardwareAddress("00:16:3e:00:00:01").front() == host;
     }},
    {"fixed address",
     [](const Network& network, const Node& host) {
       return network.HostsByAddress("10.0.0.1").front() == host;
     }},
    {"client identifier",
     [](const Network& network, const Node& /*host*/) {
       return network.HostsByClientIdentifier("\"pc\"").empty();
     }},
    {"host name option",
     [](const Network& network, const Node& host) {
       return network.HostsByHostName("pc-0000-001").front() == host;
     }},
    {"host by name",
     [](const Network& network, const Node& host) {
       return network.HostsByName("pc-0000-001").front() == host;
     }},
    {"subnet", [](const Network& network,
                  const Node& host) { return network.SubnetOf("10.0.0.1") == host.Parent(); }},
    {"range",
     [](const Network& network, const Node& host) {
       return network.RangeOf("10.0.0.200").Parent() == host.Parent();
     }},
    {"statement in force for a host",
     [](const Network& network, const Node& host) {
       return network.StatementInForce(host, "option routers").from == host.Parent();
     }},
};

/// The first question to a network. The host is not found by a question: that could answer part of it.
double Ask(const std::string& path, const Question& question) {
  const Document document = Document::Read(path);
  const Node host = document.At(6);
  const Network network(document);
  bool right = false;
  const double seconds = SecondsFor([&] { right = question.ask(network, host); });
  Check(right, question.kind);
  return seconds;
}

/// All rules over a file in which none finds anything.
double CheckAll(const std::string& path) {
  const Document document = Document::Read(path);
  std::vector<klepur::CheckFinding> findings;
  const double seconds = SecondsFor([&] { findings = klepur::Check(document); });
  Check(findings.empty(), "nothing is found in a generated file");
  return seconds;
}

/// What saving with the configuration class would lose of a text of which it loses nothing.
double FindLosses(std::string_view text) {
  std::vector<klepur::RewriteLoss> losses;
  const double seconds = SecondsFor([&] { losses = klepur::FindRewriteLosses(text); });
  Check(losses.empty(), "nothing of a generated file is lost");
  return seconds;
}

/// The same of a document that was read already.
double FindLossesOfDocument(const std::string& path) {
  const Document document = Document::Read(path);
  std::vector<klepur::RewriteLoss> losses;
  const double seconds = SecondsFor([&] { losses = klepur::FindRewriteLosses(document); });
  Check(losses.empty(), "nothing of a generated file is lost");
  return seconds;
}

}  // namespace

int main(int argc, char** argv) {
  const CommandLine arguments(argc, argv);
  const std::string& path = arguments.file;
  const std::string size = ", " + Megabytes(arguments.FileSize());
  const FileText text(path);
  // The statement comes to stand before all blocks.
  const std::string moving = std::string(text.View()) + "max-lease-time 7200;\n";
  std::vector<Samples> samples;
  {
    const std::string json = JsonOfTree(path);
    std::vector<Work> works = {[&] { return Read(path); },
                               [&] { return ParseWithRapidJson(json); },
                               [&] { return EditMany(path); },
                               [&] { return CheckAll(path); },
                               [&] { return FindLossesOfDocument(path); },
                               [&] { return FindLosses(text.View()); },
                               [&] { return FindLosses(moving); }};
    for (const Question& question : kQuestions) {
      works.emplace_back([&] { return Ask(path, question); });
    }
    samples = InTurn(arguments.rounds, works);
  }
  PrintRow("Document, read" + size, samples[0], "RapidJSON, DOM of the same tree", samples[1],
           0.35);
  PrintRow("Document, 10000 edits" + size, samples[2], "reading it", samples[0], 1.0);
  PrintRow("Document, checked by all rules" + size, samples[3], "reading it", samples[0], 3.0);
  PrintRow("FindRewriteLosses of a document" + size, samples[4], "reading it", samples[0], 5.0);
  PrintRow("FindRewriteLosses of a text" + size, samples[5], "reading it", samples[0], 5.0);
  PrintRow("FindRewriteLosses of a text, another order" + size, samples[6], "reading it",
           samples[0], 5.0);
  std::size_t work = 7;
  for (const Question& question : kQuestions) {
    PrintRow(std::string("Network, first question: ") + question.kind + size, samples[work++],
             "reading it", samples[0], 3.0);
  }

  Change change(path);
  samples =
      InTurn(arguments.rounds, {[&] { return change.Run(); }, [&] { return Copy(text.View()); }});
  PrintRow("Document, set one statement, text" + size, samples[0], "a copy of the file", samples[1],
           1.2);
  return EXIT_SUCCESS;
}
