// Memory runs out while blocks are walked and looked for.
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>

#include "tests/faults/memory_fixture.h"
#include "tests/support/record_words.h"

namespace klepur::test {
namespace {

constexpr std::string_view kCursors = "shared-network office / @header1";

template <class Family>
class LookupShortOfMemory : public MemoryFixture<Family> {
 public:
  using typename MemoryFixture<Family>::File;
  using typename MemoryFixture<Family>::Section;
  using typename MemoryFixture<Family>::Type;

  /// A search in kOffice, which hits.
  struct Lookup {
    std::function<bool(File&, Section&)> run;
    Type type = SECTION_HOST;              // of the record before
    std::string_view found = "untouched";  // the record afterwards, as RecordWords has it
    std::string_view cursors = kCursors;   // afterwards
  };

  /// Whenever memory runs out, the tree is as it was, the cursors are where they were or where the
  /// search moves them, the object remains usable, and the search hits once there is memory again.
  void ExpectSafe(const Lookup& lookup) {
    const std::string tree = TreeOf(kOffice);
    for (const Searches& searches : kSearches) {
      SCOPED_TRACE(::testing::Message() << searches.names << " names and " << searches.lines
                                        << " lines were looked for before");
      std::size_t runs = 0;
      failures_ += this->ForEveryFaultIn(
          kOffice, searches, [&] { return lookup.run(this->Conf(), PrepareRecord(lookup)); },
          [&](const Outcome& outcome) { Check(lookup, tree, outcome, ++runs); });
    }
  }

  /// ExpectSafe for a search that cannot do without memory.
  void ExpectSafeThroughFailures(const Lookup& lookup) {
    ExpectSafe(lookup);
    EXPECT_GT(failures_, 0U);
  }

 private:
  std::string TreeOf(std::string_view text) {
    this->Given(text);
    return this->Tree();
  }

  /// The record for the next search. Making it is no part of the search.
  Section& PrepareRecord(const Lookup& lookup) {
    record_.type = lookup.type;
    return record_;
  }

  void Check(const Lookup& lookup, const std::string& tree, const Outcome& outcome,
             std::size_t run) {
    EXPECT_EQ(SystemLog(), std::vector<std::string>());
    EXPECT_EQ(this->Tree(), tree);
    if (outcome.threw) {
      if (this->Cursors() != this->Text(kCursors)) {
        EXPECT_EQ(this->Cursors(), this->Text(lookup.cursors));
      }
    } else {
      ExpectHit(lookup, outcome.result);
    }
    this->ExpectUsable();
    if (outcome.threw) {
      this->Place("shared-network office", "@header1");
      ExpectHit(lookup, lookup.run(this->Conf(), PrepareRecord(lookup)));
      EXPECT_EQ(this->Tree(), tree);
    }
    if (run % 8 == 0) this->ExpectOpens(tree);
    record_ = Section();
  }

  void ExpectHit(const Lookup& lookup, bool result) {
    EXPECT_TRUE(result);
    EXPECT_EQ(this->Cursors(), this->Text(lookup.cursors));
    const bool untouched = record_.params.empty();
    EXPECT_EQ(untouched ? "untouched" : RecordWords<Family>(record_), this->Text(lookup.found));
  }

  Section record_;
  std::size_t failures_ = 0;
};
TYPED_TEST_SUITE(LookupShortOfMemory, Families, FamilyNames);

TYPED_TEST(LookupShortOfMemory, GetFirstSection) {
  const auto run = [](auto& file, auto& record) { return file.GetFirstSection(record, false); };
  for (const typename TestFixture::Lookup& lookup : {
           typename TestFixture::Lookup{run, SECTION_GLOBAL,
                                        "global | name=TREE_ROOT_SECTION | max=7200"},
           {run, SECTION_SHARED_NETWORK, "shared-network | name=office"},
           {run, SECTION_SUBNET, "subnet | name=@name1"},
           {run, SECTION_HOST,
            "host | name=a | hardware=00:00:00:00:00:0a | fixed=@ip1 | host-name=a"},
           {run, SECTION_IF, "if | name=known"},
       }) {
    SCOPED_TRACE(KindWord(lookup.type));
    this->ExpectSafeThroughFailures(lookup);
  }
}

TYPED_TEST(LookupShortOfMemory, GetNextSection) {
  const auto from = [this](auto type, std::string_view name) {
    return [current = this->Bare(type, name)](auto& file, auto& record) {
      return file.GetNextSection(current, record, true);
    };
  };
  this->ExpectSafeThroughFailures({.run = from(SECTION_SHARED_NETWORK, "office"),
                                   .found = "subnet | name=@name3",
                                   .cursors = "@header3 / @header1"});
  this->ExpectSafeThroughFailures({.run = from(SECTION_SUBNET, "@name1"),
                                   .found = "subnet | name=@name2 | raw=log two;",
                                   .cursors = "shared-network office / @header2"});
  this->ExpectSafeThroughFailures(
      {.run = from(SECTION_HOST, "a"), .found = "host | name=b | raw=log b;"});
  this->ExpectSafeThroughFailures(
      {.run = from(SECTION_IF, "known"), .found = "if | name=unknown | raw=log unknown;"});
}

TYPED_TEST(LookupShortOfMemory, GotoSection) {
  const auto to = [](auto type, const std::string& name) {
    return [type, name](auto& file, auto&) { return file.GotoSection(name.c_str(), type); };
  };
  this->ExpectSafe({.run = to(SECTION_GLOBAL, ""), .cursors = "null / null"});
  this->ExpectSafeThroughFailures(
      {.run = to(SECTION_SHARED_NETWORK, "empty"), .cursors = "shared-network empty / null"});
  this->ExpectSafeThroughFailures({.run = to(SECTION_SUBNET, this->Text("@bare2")),
                                   .cursors = "shared-network office / @header2"});
  this->ExpectSafeThroughFailures({.run = to(SECTION_HOST, "nested")});
  this->ExpectSafeThroughFailures({.run = to(SECTION_IF, "unknown")});
}

TYPED_TEST(LookupShortOfMemory, GetSectionByName) {
  const auto of = [](const std::string& name) {
    return [name](auto& file, auto& record) { return file.GetSectionByName(record, name.c_str()); };
  };
  this->ExpectSafeThroughFailures({.run = of("any"),
                                   .type = SECTION_GLOBAL,
                                   .found = "global | name=TREE_ROOT_SECTION | max=7200"});
  this->ExpectSafeThroughFailures({.run = of("empty"),
                                   .type = SECTION_SHARED_NETWORK,
                                   .found = "shared-network | name=empty",
                                   .cursors = "shared-network empty / @header1"});
  this->ExpectSafeThroughFailures({.run = of(this->Text("@bare2")),
                                   .type = SECTION_SUBNET,
                                   .found = "subnet | name=@name2",
                                   .cursors = "shared-network office / @header2"});
  this->ExpectSafeThroughFailures(
      {.run = of("nested"), .type = SECTION_HOST, .found = "host | name=nested | fixed=@ip3"});
  this->ExpectSafeThroughFailures(
      {.run = of("unknown"), .type = SECTION_IF, .found = "if | name=unknown"});
}

TYPED_TEST(LookupShortOfMemory, GetSectionByKeyname) {
  this->ExpectSafeThroughFailures(
      {.run = [](auto& file,
                 auto& record) { return file.GetSectionByKeyname("log b;", record, true); },
       .found = "host | name=b | raw=log b;"});
}

TYPED_TEST(LookupShortOfMemory, GetHost) {
  constexpr std::string_view kHost =
      "host | name=a | hardware=00:00:00:00:00:0a | fixed=@ip1 | host-name=a";
  const std::string ip = this->Text("@ip1");
  this->ExpectSafeThroughFailures(
      {.run = [](auto& file, auto& record) { return file.GetHostByName("a", record, false); },
       .found = kHost});
  this->ExpectSafeThroughFailures(
      {.run = [&](auto& file, auto& record) { return file.GetHostByIp(ip.c_str(), record, false); },
       .found = kHost});
  this->ExpectSafeThroughFailures({.run =
                                       [](auto& file, auto& record) {
                                         return file.GetHostByMACAddress("00:00:00:00:00:0a",
                                                                         record, false);
                                       },
                                   .found = kHost});
}

TYPED_TEST(LookupShortOfMemory, GetTreeItem) {
  const std::string header = this->Text("@header3");
  const auto isIt = [&](const auto* node) {
    return node != nullptr && header == node->section.GetName();
  };
  this->ExpectSafeThroughFailures({.run = [&](auto& file, auto&) {
    return isIt(file.GetTreeItemByNameAt(header.c_str(), nullptr));
  }});
  this->ExpectSafeThroughFailures({.run = [&](auto& file, auto&) {
    return isIt(file.GetTreeItemBySectionAt(header.c_str(), nullptr));
  }});
}

TYPED_TEST(LookupShortOfMemory, GetSubnet) {
  // The text that is filled has no memory of its own when the search begins.
  const std::string subnet = std::is_same_v<TypeParam, V4> ? "10.0.1.0" : "2001:db8:1::/64";
  this->ExpectSafe({.run = [&](auto& file, auto&) {
    std::string text;
    return file.GetSubnet(text) == 1 && text == subnet;
  }});
}

TYPED_TEST(LookupShortOfMemory, TreeToDhcpAndBack) {
  this->ExpectSafeThroughFailures(
      {.run =
           [](auto& file, auto& record) {
             auto* const node = file.GetTreeItemByNameAt("host a", nullptr);
             return file.TreeToDhcp(node->section, record, false);
           },
       .found = "host | name=a | hardware=00:00:00:00:00:0a | fixed=@ip1 | host-name=a"});
  const auto host =
      this->Record(SECTION_HOST, {{TypeParam::kName, "pc-17"}, {TypeParam::kFixedAddress, "@ip1"}});
  this->ExpectSafeThroughFailures(
      {.run = [&](auto& file, auto& record) { return file.DhcpToTree(host, record); },
       .found = "host | name=host pc-17 | fixed=@fixed @ip1;"});
}

}  // namespace
}  // namespace klepur::test
