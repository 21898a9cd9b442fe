// Compares what a lookup and an addition cost for each host of a large document with what they cost for
// each of a small one, and the growth with that of a hash table in the same run.
//
//     compare_document_scale SMALL LARGE ROUNDS
//
// SMALL and LARGE are numbers of hosts. Hosts are looked up by their headers in random order; the first
// lookup, which makes the table, is not timed. Hosts are added one by one to a document with one subnet.
#include <klepur/document/document.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

#include "benchmarks/check.h"
#include "benchmarks/compare.h"
#include "benchmarks/inputs.h"
#include "benchmarks/measure.h"

namespace {

using klepur::Document;
using klepur::Node;

std::string Header(std::size_t number) {
  return "host " + HostName(number);
}

std::string Host(std::size_t number) {
  return Header(number) + " {\n\thardware ethernet " + MacAddress(number) + ";\n\tfixed-address " +
         Address(number) + ";\n}\n";
}

std::string Hosts(std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i != count; ++i) text += Host(i);
  return text;
}

/// The headers of all hosts in random order.
std::vector<std::string> Headers(std::size_t count) {
  std::vector<std::string> headers;
  for (std::size_t i = 0; i != count; ++i) headers.push_back(Header(i));
  std::shuffle(headers.begin(), headers.end(), std::mt19937(1));
  return headers;
}

/// The time for each header that `find` takes.
template <class Find>
double SecondsEach(const std::vector<std::string>& headers, const Find& find) {
  bool right = true;
  const double seconds = SecondsFor([&] {
    for (const std::string& header : headers) right = find(header) && right;
  });
  Check(right, "each host is found");
  return seconds / static_cast<double>(headers.size());
}

/// So many hosts in a document, and in a hash table.
class Lookups {
 public:
  explicit Lookups(std::size_t count) : headers_(Headers(count)), document_(Hosts(count)) {
    for (const std::string& header : headers_) table_[header] = document_.Find(header);
  }

  double InDocument() const {
    return SecondsEach(
        headers_, [this](const std::string& header) { return !document_.Find(header).IsGone(); });
  }

  double InTable() const {
    return SecondsEach(headers_,
                       [this](const std::string& header) { return table_.count(header) == 1; });
  }

 private:
  std::vector<std::string> headers_;
  Document document_;
  std::unordered_map<std::string, Node> table_;
};

double AddEach(std::size_t count) {
  Document document("subnet 10.0.0.0 netmask 255.0.0.0 {\n}\n");
  Node subnet = document.Root().FirstChild();
  const double seconds = SecondsFor([&] {
    for (std::size_t i = 0; i != count; ++i) subnet.Add(Host(i));
  });
  Check(document.Walk("host").size() == count, "all hosts are added");
  return seconds / static_cast<double>(count);
}

struct Settings {
  std::size_t small;
  std::size_t large;
  int rounds;
};

void PrintGrowth(const std::string& work, const Settings& settings, const Samples& large,
                 const Samples& small, double goal) {
  PrintRow(work, Duration(Median(large)) + " of " + std::to_string(settings.large),
           "each of " + std::to_string(settings.small), Duration(Median(small)),
           Ratio(large, small), goal);
}

Settings FromCommandLine(int argc, char** argv) {
  if (argc == 4) {
    const Settings settings{std::strtoul(argv[1], nullptr, 10), std::strtoul(argv[2], nullptr, 10),
                            std::atoi(argv[3])};
    if (settings.small > 0 && settings.large > 0 && settings.rounds > 0) return settings;
  }
  std::fputs("usage: compare_document_scale SMALL LARGE ROUNDS\n", stderr);
  std::exit(EXIT_FAILURE);
}

}  // namespace

int main(int argc, char** argv) {
  const Settings settings = FromCommandLine(argc, argv);
  {
    const Lookups small(settings.small);
    const Lookups large(settings.large);
    const std::vector<Samples> samples = InTurn(
        settings.rounds, {[&] { return large.InDocument(); }, [&] { return small.InDocument(); },
                          [&] { return large.InTable(); }, [&] { return small.InTable(); }});
    PrintGrowth("Document, Find by header, at random", settings, samples[0], samples[1],
                Ratio(samples[2], samples[3]));
    PrintGrowth("yardstick: std::unordered_map, the same", settings, samples[2], samples[3], 0);
  }
  const std::vector<Samples> samples =
      InTurn(settings.rounds,
             {[&] { return AddEach(settings.large); }, [&] { return AddEach(settings.small); }});
  PrintGrowth("Document, add hosts one by one", settings, samples[0], samples[1], 1.5);
  return EXIT_SUCCESS;
}
