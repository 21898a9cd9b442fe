// Compares the time for each host of a large file with that of a small one: of operations that cost
// the same however large the file is, the ratio is 1 and what the machine's caches add to it.
//
//     compare_scale SMALL LARGE ROUNDS SECONDS
//
// SMALL and LARGE are numbers of hosts: all in one subnet, and one in each of as many subnets. Each
// operation is done for every host on a file just opened, in file order and in random order. One
// that would take longer than SECONDS for all of the large file is done for a sample of hosts, as
// many and as evenly spread in either file; the row then says for how many. The yardstick is a hash
// table of as many nodes: an operation is to grow no more than looking something up there.
#include <klepur/klepur.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

#include "benchmarks/check.h"
#include "benchmarks/compare.h"
#include "benchmarks/inputs.h"
#include "benchmarks/measure.h"
#include "benchmarks/operations.h"
#include "benchmarks/scratch_file.h"

namespace {

/// The hosts for which an operation is done: those of the file, or as many new ones.
enum class Hosts { kOfFile, kNew };

template <class File>
struct Operation {
  const char* name;
  bool (*run)(File& file, std::size_t number);
  Hosts hosts;
};

constexpr Operation<DhcpConfigFile> kOnHalf[] = {
    {"look up by MAC address, add if missing", Provide, Hosts::kOfFile},
};
constexpr Operation<DhcpConfigFile> kOnHosts[] = {
    {"GetHostByMACAddress", FindByMacAddress, Hosts::kOfFile},
    {"GetHostByIp", FindByAddress, Hosts::kOfFile},
    {"GetHostByName", FindByHostName, Hosts::kOfFile},
    {"GotoSection, host", GoToHost, Hosts::kOfFile},
    {"GetSectionByName, host", FetchHost, Hosts::kOfFile},
    {"GetNextSection, host", WalkToHost, Hosts::kOfFile},
    {"AddSection, host", AddHost, Hosts::kNew},
    {"AddSection, host that is there", AddHostTwice, Hosts::kOfFile},
    {"RemoveSection, host", RemoveHost, Hosts::kOfFile},
    {"ChangeSection, host", ChangeHost, Hosts::kOfFile},
};
constexpr Operation<Dhcpv6ConfigFile> kOnSubnets[] = {
    {"GotoSection, subnet", GoToSubnet, Hosts::kOfFile},
    {"GetSectionByName, subnet", FetchSubnet, Hosts::kOfFile},
    {"AddSection, subnet", AddSubnet, Hosts::kNew},
    {"RemoveSection, subnet", RemoveSubnet, Hosts::kOfFile},
    {"go to a subnet and change it", ChangeSubnet, Hosts::kOfFile},
    {"go to a subnet, AddSection, host", AddHostToItsSubnet, Hosts::kOfFile},
    {"go to a subnet, RemoveSection, host", RemoveHostFromItsSubnet, Hosts::kOfFile},
    {"go to a subnet, ChangeSection, host", ChangeHostOfItsSubnet, Hosts::kOfFile},
};

enum class Order { kOfFile, kRandom };

std::string NameOf(Order order) {
  return order == Order::kOfFile ? "in order" : "at random";
}

/// `count` numbers from `first` on.
std::vector<std::size_t> Numbers(std::size_t first, std::size_t count, Order order) {
  std::vector<std::size_t> numbers(count);
  std::iota(numbers.begin(), numbers.end(), first);
  if (order == Order::kRandom) std::shuffle(numbers.begin(), numbers.end(), std::mt19937(1));
  return numbers;
}

/// `count` of the numbers, evenly spread, in their order.
std::vector<std::size_t> Spread(const std::vector<std::size_t>& numbers, std::size_t count) {
  std::vector<std::size_t> some;
  for (std::size_t i = 0; i < count; ++i) some.push_back(numbers[i * numbers.size() / count]);
  return some;
}

/// A generated file of `count` hosts.
struct Input {
  std::size_t count;
  ScratchFile file;
};

template <class File>
double SecondsEach(const Operation<File>& operation, File& file,
                   const std::vector<std::size_t>& numbers) {
  bool right = true;
  const double seconds = SecondsFor([&] {
    for (const std::size_t number : numbers) right = operation.run(file, number) && right;
  });
  Check(right, operation.name);
  return seconds / static_cast<double>(numbers.size());
}

/// The numbers of `input` that `operation` is for.
template <class File>
std::vector<std::size_t> NumbersFor(const Operation<File>& operation, const Input& input,
                                    Order order) {
  return Numbers(operation.hosts == Hosts::kNew ? input.count : 0, input.count, order);
}

/// For how many hosts the operation is done: all, or when that takes longer than `seconds`, a tenth
/// of those that this was enough for.
template <class File>
std::size_t SampleSize(const Operation<File>& operation, const Input& input, double seconds) {
  constexpr std::size_t kFewest = 20;
  File file(input.file.Name());
  Check(file.Open(), "the file is opened");
  const std::vector<std::size_t> numbers = NumbersFor(operation, input, Order::kOfFile);
  double spent = 0;
  for (std::size_t done = 0; done < numbers.size(); done += kFewest) {
    if (spent > seconds) return std::max(kFewest, done / 10);
    const auto begin = numbers.begin() + static_cast<std::ptrdiff_t>(done);
    const auto left = static_cast<std::ptrdiff_t>(std::min(kFewest, numbers.size() - done));
    spent += static_cast<double>(left) * SecondsEach(operation, file, {begin, begin + left});
  }
  return input.count;
}

/// An operation on one input, for all its hosts or a sample of them.
template <class File>
class Trial {
 public:
  Trial(const Operation<File>& operation, const Input& input, Order order, std::size_t size)
      : operation_(operation),
        input_(input),
        numbers_(Spread(NumbersFor(operation, input, order), std::min(size, input.count))) {}

  double Run() const {
    File file(input_.file.Name());
    Check(file.Open(), "the file is opened");
    return SecondsEach(operation_, file, numbers_);
  }

 private:
  const Operation<File>& operation_;
  const Input& input_;
  std::vector<std::size_t> numbers_;
};

struct Settings {
  std::size_t small;
  std::size_t large;
  int rounds;
  double seconds;
};

/// How the time for one lookup in a hash table grows.
struct Yardstick {
  double inOrder;
  double atRandom;

  double Of(Order order) const { return order == Order::kOfFile ? inOrder : atRandom; }
};

/// Runs `work` several times on the small input, which takes less time and so varies more.
template <class Repeated>
double OftenOf(const Repeated& work) {
  Samples samples(3);
  for (double& sample : samples) sample = work();
  return Median(samples);
}

void PrintScale(const std::string& work, const Settings& settings, const Samples& large,
                const Samples& small, double goal) {
  PrintRow(work, Duration(Median(large)) + " of " + std::to_string(settings.large),
           "each of " + std::to_string(settings.small), Duration(Median(small)),
           Ratio(large, small), goal);
}

/// Does the operation for `size` hosts of either input, which is all of them when that is the
/// number of those in the large one.
template <class File>
void Compare(const Operation<File>& operation, const Settings& settings, const Input& small,
             const Input& large, Order order, std::size_t size, double goal) {
  const Trial<File> few(operation, small, order, size);
  const Trial<File> many(operation, large, order, size);
  const std::vector<Samples> samples =
      InTurn(settings.rounds,
             {[&] { return many.Run(); }, [&] { return OftenOf([&] { return few.Run(); }); }});
  const std::string sampled =
      size < large.count ? " (only " + std::to_string(size) + " of them)" : "";
  PrintScale(std::string(operation.name) + ", " + NameOf(order) + sampled, settings, samples[0],
             samples[1], goal);
}

template <class Operations, class Write>
void CompareAll(const Operations& operations, const Settings& settings, const Yardstick& yardstick,
                const Write& write) {
  const Input small{settings.small, {}};
  const Input large{settings.large, {}};
  write(small.file.Path(), small.count);
  write(large.file.Path(), large.count);
  for (const auto& operation : operations) {
    const std::size_t size = SampleSize(operation, large, settings.seconds);
    for (const Order order : {Order::kOfFile, Order::kRandom}) {
      Compare(operation, settings, small, large, order, size, yardstick.Of(order));
    }
  }
}

/// What a program would keep its hosts in that never writes a file.
class HashTable {
 public:
  explicit HashTable(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      nodes_[MacAddress(i)] = std::make_unique<Node>(Node{HostName(i), Address(i)});
    }
  }

  double SecondsEach(const std::vector<std::size_t>& numbers) const {
    bool right = true;
    const double seconds = SecondsFor([&] {
      for (const std::size_t number : numbers) right = Find(number) && right;
    });
    Check(right, "a node is found");
    return seconds / static_cast<double>(numbers.size());
  }

 private:
  struct Node {
    std::string name;
    std::string address;
  };

  bool Find(std::size_t number) const {
    const auto found = nodes_.find(MacAddress(number));
    return found != nodes_.end() && found->second->name == HostName(number);
  }

  std::unordered_map<std::string, std::unique_ptr<Node>> nodes_;
};

double CompareHashTables(const Settings& settings, Order order) {
  const HashTable small(settings.small);
  const HashTable large(settings.large);
  const std::vector<std::size_t> few = Numbers(0, settings.small, order);
  const std::vector<std::size_t> many = Numbers(0, settings.large, order);
  const std::vector<Samples> samples =
      InTurn(settings.rounds, {[&] { return large.SecondsEach(many); },
                               [&] { return OftenOf([&] { return small.SecondsEach(few); }); }});
  PrintScale("yardstick: std::unordered_map, find, " + NameOf(order), settings, samples[0],
             samples[1], 0);
  return Ratio(samples[0], samples[1]);
}

Settings FromCommandLine(int argc, char** argv) {
  if (argc == 5) {
    const Settings settings{std::strtoul(argv[1], nullptr, 10), std::strtoul(argv[2], nullptr, 10),
                            std::atoi(argv[3]), std::atof(argv[4])};
    if (settings.small >= 100 && settings.large >= 100 && settings.rounds > 0) return settings;
  }
  std::fputs("usage: compare_scale SMALL LARGE ROUNDS SECONDS\n", stderr);
  std::exit(EXIT_FAILURE);
}

}  // namespace

int main(int argc, char** argv) {
  const Settings settings = FromCommandLine(argc, argv);
  const Yardstick yardstick{CompareHashTables(settings, Order::kOfFile),
                            CompareHashTables(settings, Order::kRandom)};
  CompareAll(kOnHalf, settings, yardstick, [](const std::string& path, std::size_t count) {
    WriteHosts(path, count, Present::kHalf);
  });
  CompareAll(kOnHosts, settings, yardstick, [](const std::string& path, std::size_t count) {
    WriteHosts(path, count, Present::kAll);
  });
  CompareAll(kOnSubnets, settings, yardstick, WriteSubnets);
  return EXIT_SUCCESS;
}
