// Memory runs out while text is parsed and leases are read.
#include <gmock/gmock.h>
#include <klepur/leases/leases_parser.h>
#include <klepur/parser/dhcp_parser.h>

#include <algorithm>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/faults/every_fault.h"
#include "tests/leases/lease_words.h"
#include "tests/support/descriptors.h"
#include "tests/support/files.h"
#include "tests/support/system_log.h"
#include "tests/support/tree_text.h"

namespace klepur::test {
namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;

// ---- ParseBuffer ----

constexpr const char* kText =
    "option domain-name \"a-domain-name-that-needs-memory-of-its-own\";\n"
    "# main office\n"
    "host a { fixed-address 10.0.0.5; }\n"
    "group {\n"
    "  host b {\n"
    "    filename \"x\";\n"
    "  }\n"
    "}\n";

/// The tree of it without the root section, in the pieces in which parsing builds it.
constexpr std::string_view kPieces[] = {
    "option domain-name \"a-domain-name-that-needs-memory-of-its-own\";\n",
    "#main office\n",
    "host a { fixed-address 10.0.0.5; }\n",
    "[group]\n",
    "  [host b]\n",
    "    filename \"x\";\n",
};

/// All of them, each line behind this indentation.
std::string Pieces(std::string_view indent) {
  std::string text;
  for (const std::string_view piece : kPieces) text.append(indent).append(piece);
  return text;
}

/// Every tree that parsing comes by, the empty one first.
std::vector<std::string> Trees() {
  std::vector<std::string> trees = {"", "[TREE_ROOT_SECTION]\n"};
  for (const std::string_view piece : kPieces) {
    trees.push_back(trees.back() + "  " + std::string(piece));
  }
  return trees;
}

template <class Parser>
class ParsingShortOfMemory : public ::testing::Test {
 public:
  /// The parser, with a way to its slots.
  class Opened : public Parser {
   public:
    bool HasEmptySlots() const { return this->lexer == nullptr && this->stream == nullptr; }
  };

  void Prepare() {
    tree_ = std::make_unique<CfSectionHolder>();
    parser_ = std::make_unique<Opened>();
    ClearSystemLog();
  }

  void Finish() {
    parser_.reset();
    tree_.reset();
  }

  /// The tree is what parsing had built when memory ran out, never less than in an earlier run.
  void ExpectPart(const Outcome& outcome) {
    static const std::vector<std::string> kTrees = Trees();
    if (!outcome.Failed()) {
      EXPECT_EQ(TreeText(*tree_), kTrees.back());
      reached_ = 0;
      return;
    }
    const auto at = std::find(kTrees.begin() + static_cast<std::ptrdiff_t>(reached_), kTrees.end(),
                              TreeText(*tree_));
    ASSERT_NE(at, kTrees.end()) << TreeText(*tree_);
    reached_ = static_cast<std::size_t>(at - kTrees.begin());
  }

  /// The parser reads the text again, without a root section when it has made one before. What was
  /// collected of a statement is the front of the next one: here that is a line of its own.
  void ExpectParsesAgain() {
    const bool madeRoot = !TreeText(*tree_).empty();
    CfSectionHolder again;
    EXPECT_TRUE(parser_->ParseBuffer((";\n" + std::string(kText)).c_str(), &again));
    EXPECT_THAT(TreeText(again), EndsWith(";\n" + Pieces(madeRoot ? "" : "  ")));
    EXPECT_EQ(TreeText(again).starts_with("[TREE_ROOT_SECTION]\n"), !madeRoot);
    EXPECT_TRUE(parser_->HasEmptySlots());
  }

  std::unique_ptr<CfSectionHolder> tree_;
  std::unique_ptr<Opened> parser_;

 private:
  std::size_t reached_ = 0;
};

using Parsers = ::testing::Types<DhcpParser, Dhcpv6LeasesParser>;

struct ParserNames {
  template <class Parser>
  static std::string GetName(int /*index*/) {
    return std::is_same_v<Parser, DhcpParser> ? "Config" : "Leases";
  }
};

TYPED_TEST_SUITE(ParsingShortOfMemory, Parsers, ParserNames);

TYPED_TEST(ParsingShortOfMemory, ParseBufferThrowsAndLogsNothing) {
  const std::size_t struck =
      ForEveryFault([this] { this->Prepare(); },
                    [this] { return this->parser_->ParseBuffer(kText, this->tree_.get()); },
                    [this](const Outcome& outcome) {
                      EXPECT_EQ(outcome.threw, outcome.struck);
                      EXPECT_NE(outcome.result, outcome.threw);
                      EXPECT_THAT(SystemLog(), IsEmpty());
                      EXPECT_TRUE(this->parser_->HasEmptySlots());
                      this->ExpectPart(outcome);
                      this->ExpectParsesAgain();
                    },
                    [this] { this->Finish(); });
  EXPECT_GE(struck, 20U);
}

TYPED_TEST(ParsingShortOfMemory, ParseFileFailsAndLogsTheReason) {
  const ScratchFolder scratch;
  const std::string path = scratch.Write("some.conf", kText);
  const auto descriptors = OpenDescriptors();
  const std::size_t struck = ForEveryFault(
      [this] { this->Prepare(); },
      [&] { return this->parser_->ParseFile(path.c_str(), this->tree_.get()); },
      [&](const Outcome& outcome) {
        EXPECT_FALSE(outcome.threw);
        EXPECT_NE(outcome.result, outcome.struck);
        EXPECT_EQ(OpenDescriptors(), descriptors);
        if (outcome.struck) {
          EXPECT_THAT(SystemLog(), ElementsAre("syslog LOG_INFO EXCEPTION! Cannot read " + path +
                                               ", std::bad_alloc!"));
        } else {
          EXPECT_THAT(SystemLog(), IsEmpty());
        }
        this->ExpectPart(outcome);
        this->ExpectParsesAgain();
      },
      [this] { this->Finish(); });
  EXPECT_GE(struck, 20U);
}

// ---- leases ----

constexpr const char* kLeases =
    "ia-na \"\\001\\000\\000\\000\\000\\003\\000\\001AB-and-more\" {\n"
    "  iaaddr 2001:db8:20:1::1004 {\n"
    "    binding state active;\n"
    "    preferred-life 375;\n"
    "    ends 4 2026/11/19 08:08:12;\n"
    "  }\n"
    "}\n"
    "ia-pd \"CD\" {\n"
    "  iaprefix 2001:db8:2000:100::/56 {\n"
    "    max-life 7200;\n"
    "  }\n"
    "}\n";

_Dhcpv6LeaseStore Lease(const char* address, const char* duid, const char* preferredLife,
                        const char* maxLife, const char* ends, const char* bindingState) {
  return {address, "", duid, preferredLife, maxLife, ends, bindingState};
}

const _Dhcpv6LeaseStore kOlder = Lease("2001:db8::1", "61", "", "", "never", "active");
const _Dhcpv6LeaseStore kFirst =
    Lease("2001:db8:20:1::1004", "010000000003000141422d616e642d6d6f7265", "375", "",
          "4 2026/11/19 08:08:12", "active");
const _Dhcpv6LeaseStore kSecond = Lease("2001:db8:2000:100::/56", "4344", "", "7200", "", "");

/// Whether each field is the one of `whole` or was not read yet.
bool IsPartOf(const _Dhcpv6LeaseStore& lease, const _Dhcpv6LeaseStore& whole) {
  const auto fits = [&](std::string _Dhcpv6LeaseStore::*field) {
    return (lease.*field).empty() || lease.*field == whole.*field;
  };
  return lease.duid == whole.duid && fits(&_Dhcpv6LeaseStore::address) && lease.cltt.empty() &&
         fits(&_Dhcpv6LeaseStore::preferredLife) && fits(&_Dhcpv6LeaseStore::maxLife) &&
         fits(&_Dhcpv6LeaseStore::ends) && fits(&_Dhcpv6LeaseStore::bindingState);
}

class LeasesShortOfMemory : public ::testing::Test {
 protected:
  /// The list begins as it was, and every lease behind that is whole, but for the last one when the
  /// file was read only in part.
  void ExpectFront(bool readWhole) const {
    const _Dhcpv6LeaseStore* const whole[] = {&kOlder, &kFirst, &kSecond};
    ASSERT_GE(leases_.size(), 1U);
    ASSERT_LE(leases_.size(), 3U);
    std::size_t number = 0;
    for (const _Dhcpv6LeaseStore& lease : leases_) {
      const bool isLast = number + 1 == leases_.size();
      if (isLast && number != 0 && !readWhole) {
        EXPECT_TRUE(IsPartOf(lease, *whole[number])) << LeaseWords(lease);
      } else {
        EXPECT_EQ(LeaseWords(lease), LeaseWords(*whole[number]));
      }
      ++number;
    }
  }

  std::list<_Dhcpv6LeaseStore> leases_;
};

TEST_F(LeasesShortOfMemory, GetLeasesLogsTheReasonAndKeepsWhatItAppended) {
  const ScratchFolder scratch;
  const std::string path = scratch.Write("dhcpd6.leases", kLeases);
  const std::string notRead =
      "syslog LOG_INFO EXCEPTION! Cannot read " + path + ", std::bad_alloc!";
  const std::string notWalked = "syslog LOG_INFO std::bad_alloc";
  const auto descriptors = OpenDescriptors();
  std::size_t walksStruck = 0;
  const std::size_t struck = ForEveryFault(
      [this] {
        leases_ = {kOlder};
        ClearSystemLog();
      },
      [&] {
        Dhcpv6LeasesParser().GetLeases(path.c_str(), leases_);
        return true;
      },
      [&](const Outcome& outcome) {
        EXPECT_FALSE(outcome.threw);
        EXPECT_EQ(OpenDescriptors(), descriptors);
        const std::vector<std::string> log = SystemLog();
        if (!outcome.struck) {
          EXPECT_THAT(log, IsEmpty());
          EXPECT_EQ(leases_.size(), 3U);
        } else {
          // Where memory is out for good, the walk over what was read fails too.
          EXPECT_THAT(log, AnyOf(ElementsAre(notRead), ElementsAre(notWalked),
                                 ElementsAre(notRead, notWalked)));
        }
        const bool readWhole = log.empty() || log.front() != notRead;
        if (readWhole && !log.empty()) ++walksStruck;
        ExpectFront(readWhole);
        std::list<_Dhcpv6LeaseStore> again;
        Dhcpv6LeasesParser().GetLeases(path.c_str(), again);
        ASSERT_EQ(again.size(), 2U);
        EXPECT_EQ(LeaseWords(again.front()), LeaseWords(kFirst));
        EXPECT_EQ(LeaseWords(again.back()), LeaseWords(kSecond));
      },
      [this] { leases_.clear(); });
  EXPECT_GE(struck, 30U);
  EXPECT_GE(walksStruck, 5U);
}

TEST_F(LeasesShortOfMemory, ParseDuidThrows) {
  Dhcpv6LeasesParser parser;
  const std::string text = "\\001\\000an identifier that needs memory\\9";
  const std::size_t struck =
      ForEveryFault([] {},
                    [&] {
                      return parser.ParseDuid(text) ==
                             "0100616e206964656e7469666965722074686174206e65656473206d656d6f727900";
                    },
                    [](const Outcome& outcome) {
                      EXPECT_EQ(outcome.threw, outcome.struck);
                      EXPECT_NE(outcome.result, outcome.struck);
                    },
                    [] {});
  EXPECT_GE(struck, 2U);
}

}  // namespace
}  // namespace klepur::test
