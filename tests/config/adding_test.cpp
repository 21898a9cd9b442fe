#include <gtest/gtest.h>

#include <initializer_list>
#include <list>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tests/support/edit_fixture.h"

namespace klepur::test {
namespace {

constexpr EitherKind kEveryKind[] = {SECTION_SHARED_NETWORK, SECTION_SUBNET, SECTION_HOST,
                                     SECTION_IF};

// ---- AddSection

template <class Family>
class Adding : public EditFixture<Family> {};
TYPED_TEST_SUITE(Adding, Families, FamilyNames);

TYPED_TEST(Adding, NewBlocksFollowAllExistingOnesInTheOrderOfTheCalls) {
  this->Given("@header1 {\nmax-lease-time 9;\ngroup g {\n}\nhost old {\n}\n}\nhost top {\n}\n");
  EXPECT_EQ(this->Conf().AddSection(this->Timed(SECTION_HOST, "b")), 1);
  EXPECT_EQ(this->Conf().AddSection(this->Timed(SECTION_IF, "x = y")), 1);
  EXPECT_EQ(this->Conf().AddSection(this->Timed(SECTION_HOST, "a")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    max-lease-time 9;
    [group g]
    [host old]
    [host b]
      max-lease-time 1;
    [if x = y]
      max-lease-time 1;
    [host a]
      max-lease-time 1;
  [host top]
)"));
}

TYPED_TEST(Adding, LinesStandInTheOrderOfTheRecordWithTheirCommentMarks) {
  this->Given("@header1 {\n}\n");
  EXPECT_EQ(this->Conf().AddSection(
                this->Marked(SECTION_HOST, {{TypeParam::kFixedAddress, "@ip1"},
                                            {TypeParam::kName, "pc1"},
                                            {TypeParam::kHostName, "#pc1"},
                                            {TypeParam::kMaxLeaseTime, ""},
                                            {TypeParam::kAuthoritative, "exist"},
                                            {-1, "log x;"},
                                            {TypeParam::kHardwareEthernet, "00:11:22:33:44:55"}})),
            1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [host pc1]
      @fixed @ip1;
      #@fqdn "pc1";
      authoritative;
      hardware ethernet 00:11:22:33:44:55;
)"));
}

TYPED_TEST(Adding, GlobalRecordIsRefused) {
  this->Given(kOffice);
  const std::string before = this->State();
  EXPECT_EQ(this->Conf().AddSection(this->Timed(SECTION_GLOBAL, "TREE_ROOT_SECTION")), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(Adding, RecordOfNoKindIsRefused) {
  this->Given(kOffice);
  const std::string before = this->State();
  for (const auto type : kNoKinds) {
    EXPECT_EQ(this->Conf().AddSection(this->Timed(type, "new")), 0) << type;
    EXPECT_EQ(this->State(), before) << type;
  }
}

TYPED_TEST(Adding, RecordWithoutANameIsRefused) {
  this->Given(kOffice);
  const std::string before = this->State();
  for (const auto type : kEveryKind) {
    EXPECT_EQ(this->Conf().AddSection(this->Record(type, {{TypeParam::kMaxLeaseTime, "1"}})), 0)
        << type;
    EXPECT_EQ(this->Conf().AddSection(this->Record(type, {})), 0) << type;
    EXPECT_EQ(this->State(), before) << type;
  }
}

TYPED_TEST(Adding, RecordWithAnEmptyNameIsRefused) {
  this->Given(kOffice);
  const std::string before = this->State();
  for (const auto type : kEveryKind) {
    EXPECT_EQ(this->Conf().AddSection(this->Timed(type, "")), 0) << type;
    EXPECT_EQ(this->State(), before) << type;
  }
}

TYPED_TEST(Adding, FirstNameOfARecordCounts) {
  this->Given("@header1 {\n}\n");
  const auto empty = this->Record(
      SECTION_HOST,
      {{TypeParam::kName, ""}, {TypeParam::kName, "a"}, {TypeParam::kMaxLeaseTime, "1"}});
  EXPECT_EQ(this->Conf().AddSection(empty), 0);
  const auto twice = this->Record(
      SECTION_HOST,
      {{TypeParam::kName, "b"}, {TypeParam::kName, "c"}, {TypeParam::kMaxLeaseTime, "1"}});
  EXPECT_EQ(this->Conf().AddSection(twice), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [host b]
      max-lease-time 1;
)"));
}

TYPED_TEST(Adding, NothingIsAddedToAFileThatWasNeverOpened) {
  this->Unopened(kOffice);
  for (const auto type : kEveryKind) {
    EXPECT_EQ(this->Conf().AddSection(this->Timed(type, "@name1")), 0) << type;
  }
  EXPECT_EQ(this->State(), "null / null\n");
  EXPECT_EQ(this->Conf().holder->topNode.children, nullptr);
}

TYPED_TEST(Adding, AddSectionWantsAParser) {
  this->Given(kOffice);
  const std::string before = this->State();
  this->WithoutParser();
  for (const auto type : kEveryKind) {
    EXPECT_EQ(this->Conf().AddSection(this->Timed(type, "@name1")), 0) << type;
  }
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(Adding, WithoutAHolderEveryAdditionFails) {
  this->Given(kOffice);
  this->WithoutHolder();
  for (const auto type : kEveryKind) {
    EXPECT_EQ(this->Conf().AddSection(this->Timed(type, "@name1")), 0) << type;
  }
  EXPECT_EQ(this->Conf().AddNetwork(this->Timed(SECTION_SHARED_NETWORK, "n")), 0);
  EXPECT_EQ(this->Conf().AddSubnet(this->Timed(SECTION_SUBNET, "@name1")), 0);
  EXPECT_EQ(this->Conf().AddHost(this->Timed(SECTION_HOST, "h")), 0);
  EXPECT_EQ(this->Conf().AddIFSection(this->Timed(SECTION_IF, "x")), 0);
  EXPECT_FALSE(this->Conf().AddTreeSection(this->Timed(SECTION_HOST, "h"), nullptr));
}

// ---- AddNetwork

template <class Family>
class AddingNetworks : public EditFixture<Family> {};
TYPED_TEST_SUITE(AddingNetworks, Families, FamilyNames);

constexpr std::string_view kNetworkAndHost = R"(shared-network office {
  @header1 {
  }
}
host e {
}
)";

TYPED_TEST(AddingNetworks, NewNetworkIsTheLastTopLevelBlockAndCurrent) {
  this->Given(kNetworkAndHost);
  EXPECT_EQ(this->Conf().AddSection(this->Timed(SECTION_SHARED_NETWORK, "lab")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network lab / null
[TREE_ROOT_SECTION]
  [shared-network office]
    [@header1]
  [host e]
  [shared-network lab]
    max-lease-time 1;
)"));
}

TYPED_TEST(AddingNetworks, SecondNetworkOfANameIsAddedAndTheOlderOneBecomesCurrent) {
  this->Given("host e {\n}\nshared-network net1 {\n@header1 {\n}\n}\n");
  auto* const older = this->Node("shared-network net1");
  EXPECT_EQ(this->Conf().AddNetwork(this->Timed(SECTION_SHARED_NETWORK, "net1")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network net1 / @header1
[TREE_ROOT_SECTION]
  [host e]
  [shared-network net1]
    [@header1]
  [shared-network net1]
    max-lease-time 1;
)"));
  EXPECT_EQ(this->Conf().currentNetwork, older);
}

TYPED_TEST(AddingNetworks, OlderNetworkMayBeNestedAndEmpty) {
  this->Given("group g {\nshared-network net1 {\n}\n}\n@header1 {\n}\n");
  this->Place(nullptr, "@header1");
  auto* const older = this->Node("shared-network net1");
  EXPECT_EQ(this->Conf().AddSection(this->Timed(SECTION_SHARED_NETWORK, "net1")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network net1 / null
[TREE_ROOT_SECTION]
  [group g]
    [shared-network net1]
  [@header1]
  [shared-network net1]
    max-lease-time 1;
)"));
  EXPECT_EQ(this->Conf().currentNetwork, older);
}

TYPED_TEST(AddingNetworks, RefusedWhenABlocksWholeHeaderIsTheBareName) {
  for (const char* name : {"group", "host a", "@header1", "TREE_ROOT_SECTION"}) {
    this->Given("shared-network office {\n@header1 {\nhost a {\n}\n}\n}\ngroup {\n}\n");
    const std::string before = this->State();
    EXPECT_EQ(this->Conf().AddSection(this->Timed(SECTION_SHARED_NETWORK, name)), 0) << name;
    EXPECT_EQ(this->State(), before) << name;
  }
}

TYPED_TEST(AddingNetworks, BareNameThatOnlyResemblesAHeaderIsNotRefused) {
  this->Given("host a {\n}\n");
  EXPECT_EQ(this->Conf().AddSection(this->Timed(SECTION_SHARED_NETWORK, "Host a")), 1);
  EXPECT_EQ(this->State(), R"(shared-network Host a / null
[TREE_ROOT_SECTION]
  [host a]
  [shared-network Host a]
    max-lease-time 1;
)");
}

TYPED_TEST(AddingNetworks, NetworkOfOnlyANameIsAddedAndReportedAsFailure) {
  this->Given(kNetworkAndHost);
  EXPECT_EQ(this->Conf().AddSection(this->Bare(SECTION_SHARED_NETWORK, "lab")), 0);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network office / @header1
[TREE_ROOT_SECTION]
  [shared-network office]
    [@header1]
  [host e]
  [shared-network lab]
)"));
}

TYPED_TEST(AddingNetworks, CalledDirectlyWithoutANameAddsNothing) {
  this->Given(kNetworkAndHost);
  const std::string before = this->State();
  EXPECT_EQ(this->Conf().AddNetwork(this->Record(SECTION_SHARED_NETWORK, {})), 0);
  EXPECT_EQ(this->Conf().AddNetwork(this->Timed(SECTION_SHARED_NETWORK, "")), 0);
  EXPECT_EQ(this->Conf().AddNetwork(
                this->Record(SECTION_SHARED_NETWORK, {{TypeParam::kMaxLeaseTime, "1"}})),
            0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(AddingNetworks, CalledDirectlyWithAHostRecordAddsAHostToTheRoot) {
  this->Given(kNetworkAndHost);
  this->Place("shared-network office", nullptr);
  EXPECT_EQ(this->Conf().AddNetwork(this->Timed(SECTION_HOST, "h")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network office / @header1
[TREE_ROOT_SECTION]
  [shared-network office]
    [@header1]
  [host e]
  [host h]
    max-lease-time 1;
)"));
}

TYPED_TEST(AddingNetworks, BlockThatGotoSectionMissesStays) {
  this->Given(kNetworkAndHost);
  EXPECT_EQ(this->Conf().AddNetwork(this->Timed(SECTION_IF, "x")), 0);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network office / @header1
[TREE_ROOT_SECTION]
  [shared-network office]
    [@header1]
  [host e]
  [if x]
    max-lease-time 1;
)"));
}

TYPED_TEST(AddingNetworks, CalledDirectlyWithAGlobalRecordAddsABlockNamedAsTheRoot) {
  this->Given(kNetworkAndHost);
  EXPECT_EQ(this->Conf().AddNetwork(this->Timed(SECTION_GLOBAL, "g")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / null
[TREE_ROOT_SECTION]
  [shared-network office]
    [@header1]
  [host e]
  [TREE_ROOT_SECTION]
    max-lease-time 1;
)"));
}

TYPED_TEST(AddingNetworks, CalledDirectlyWithARecordOfNoKindAddsNothing) {
  this->Given(kNetworkAndHost);
  const std::string before = this->State();
  for (const auto type : kNoKinds) {
    EXPECT_EQ(this->Conf().AddNetwork(this->Timed(type, "n")), 0) << type;
    EXPECT_EQ(this->State(), before) << type;
  }
}

TYPED_TEST(AddingNetworks, CalledDirectlyBeforeOpenAddsTheTopLevelItself) {
  this->Unopened("");
  EXPECT_EQ(this->Conf().AddNetwork(this->Timed(SECTION_SHARED_NETWORK, "n")), 1);
  EXPECT_EQ(this->State(), R"(shared-network n / null
[shared-network n]
  max-lease-time 1;
)");
  EXPECT_EQ(this->Conf().currentNetwork->parent, &this->Conf().holder->topNode);
}

TYPED_TEST(AddingNetworks, CalledDirectlyWithoutAParserAddsAndFails) {
  this->Given("host e {\n}\n");
  this->WithoutParser();
  EXPECT_EQ(this->Conf().AddNetwork(this->Timed(SECTION_SHARED_NETWORK, "n")), 0);
  EXPECT_EQ(this->State(), R"(null / host e
[TREE_ROOT_SECTION]
  [host e]
  [shared-network n]
    max-lease-time 1;
)");
}

// ---- AddSubnet

template <class Family>
class AddingSubnets : public EditFixture<Family> {};
TYPED_TEST_SUITE(AddingSubnets, Families, FamilyNames);

struct AddressCase {
  const char* name;
  const char* address;
};

// Both families cut the name of a record that is no subnet at a colon.
constexpr AddressCase kAddresses[] = {
    // the first comma, wherever it stands
    {"lan, x", "lan"},
    {"lan,x", "lan"},
    {"lan,x,", "lan"},
    {"a b:c, d", "a b:c"},
    // without one, the first colon
    {"lan:x", "lan"},
    {"lan:", "lan"},
    {"lan:x:y z", "lan"},
    {"a b:c", "a b"},
    // without one, the first blank
    {"lan x", "lan"},
    {"lan ", "lan"},
    {"lan  x y", "lan"},
    // without any, all of it
    {"lan", "lan"},
    {"lan\tx;", "lan\tx;"},
};

TYPED_TEST(AddingSubnets, AddressIsCutAtTheCommaElseTheColonElseTheBlank) {
  for (const auto& [name, address] : kAddresses) {
    this->Given("host e {\n}\n@subnet lan {\n}\n");
    this->Node("@subnet lan")->section.SetName((this->Text("@subnet ") + address).c_str());
    const std::string before = this->State();
    EXPECT_EQ(this->Conf().AddSubnet(this->Timed(SECTION_HOST, name)), 0) << name;
    EXPECT_EQ(this->State(), before) << name;
  }
}

TYPED_TEST(AddingSubnets, NoOtherAddressIsTakenForADuplicate) {
  for (const auto& [name, address] : kAddresses) {
    this->Given("@subnet l {\n}\n@subnet LAN {\n}\n@subnet lan! {\n}\n");
    EXPECT_EQ(this->Conf().AddSubnet(this->Timed(SECTION_HOST, name)), 0) << name;
    EXPECT_EQ(this->State(), this->Text("null / @subnet l\n"
                                        "[TREE_ROOT_SECTION]\n"
                                        "  [@subnet l]\n"
                                        "  [@subnet LAN]\n"
                                        "  [@subnet lan!]\n"
                                        "  [host ") +
                                 name + "]\n    max-lease-time 1;\n")
        << name << " has the address " << address;
  }
}

TYPED_TEST(AddingSubnets, NameEndingInItsFirstCommaThrowsAndAddsNothing) {
  for (const char* name : {"lan,", "10.0.0.0,", ","}) {
    this->Given(kOffice);
    const std::string before = this->State();
    for (const bool direct : {true, false}) {
      try {
        const auto subnet = this->Timed(SECTION_SUBNET, name);
        direct ? this->Conf().AddSubnet(subnet) : this->Conf().AddSection(subnet);
        ADD_FAILURE() << name;
      } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "basic_string::substr") << name;
      }
      EXPECT_EQ(this->State(), before) << name;
    }
  }
}

TYPED_TEST(AddingSubnets, SubnetOfTheAddressAtTheLevelIsRefused) {
  this->Given("shared-network office {\nhost e {\n}\n@subnet lan {\n}\n}\n");
  const std::string before = this->State();
  EXPECT_EQ(this->Conf().AddSection(this->Timed(SECTION_SUBNET, "lan, a:b")), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(AddingSubnets, WithoutANetworkTheLevelIsTheRoot) {
  this->Given("host e {\n}\n@subnet lan {\n}\n");
  const std::string before = this->State();
  EXPECT_EQ(this->Conf().AddSection(this->Timed(SECTION_SUBNET, "lan, a:b")), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(AddingSubnets, SubnetOfTheAddressElsewhereIsNotInTheWay) {
  this->Given("shared-network office {\nhost e {\n}\n}\n@subnet lan {\n}\n");
  EXPECT_EQ(this->Conf().AddSubnet(this->Timed(SECTION_HOST, "lan, x")), 0);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network office / host e
[TREE_ROOT_SECTION]
  [shared-network office]
    [host e]
    [host lan, x]
      max-lease-time 1;
  [@subnet lan]
)"));
}

TYPED_TEST(AddingSubnets, SubnetOfTheAddressDeeperDownIsNotInTheWayAndBecomesCurrent) {
  this->Given("host e {\n}\nshared-network office {\n@subnet lan {\n}\n}\n");
  this->Place(nullptr, "host e");
  EXPECT_EQ(this->Conf().AddSubnet(this->Timed(SECTION_HOST, "lan, x")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @subnet lan
[TREE_ROOT_SECTION]
  [host e]
  [shared-network office]
    [@subnet lan]
  [host lan, x]
    max-lease-time 1;
)"));
}

TYPED_TEST(AddingSubnets, DeeperSubnetFoundFirstHidesTheOneAtTheLevel) {
  this->Given("group g {\n@subnet lan {\nlog deep;\n}\n}\n@subnet lan {\n}\n");
  EXPECT_EQ(this->Conf().AddSubnet(this->Timed(SECTION_HOST, "lan")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @subnet lan
[TREE_ROOT_SECTION]
  [group g]
    [@subnet lan]
      log deep;
  [@subnet lan]
  [host lan]
    max-lease-time 1;
)"));
  EXPECT_STREQ(this->Conf().currentSubnet->parent->section.GetName(), "group g");
}

TYPED_TEST(AddingSubnets, NetworkCursorOnTheSubnetItselfIsNotInTheWay) {
  this->Given("@subnet lan {\n}\n");
  this->Place("@subnet lan", nullptr);
  EXPECT_EQ(this->Conf().AddSubnet(this->Timed(SECTION_HOST, "lan")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(@subnet lan / @subnet lan
[TREE_ROOT_SECTION]
  [@subnet lan]
    [host lan]
      max-lease-time 1;
)"));
}

TYPED_TEST(AddingSubnets, TopNodeIsItsOwnParent) {
  this->Given("host e {\n}\n");
  auto& top = this->Conf().holder->topNode;
  top.section.SetName(this->Text("@subnet lan").c_str());
  this->Conf().currentNetwork = &top;
  const std::string before = this->State();
  EXPECT_EQ(this->Conf().AddSubnet(this->Timed(SECTION_HOST, "lan")), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(AddingSubnets, BlockThatIsNotFoundByItsAddressStays) {
  this->Given("host e {\n}\n");
  EXPECT_EQ(this->Conf().AddSubnet(this->Timed(SECTION_IF, "lan, x")), 0);
  EXPECT_EQ(this->Conf().AddSubnet(this->Timed(SECTION_SHARED_NETWORK, ", x")), 0);
  EXPECT_EQ(this->State(), R"(null / host e
[TREE_ROOT_SECTION]
  [host e]
  [if lan, x]
    max-lease-time 1;
  [shared-network , x]
    max-lease-time 1;
)");
}

TYPED_TEST(AddingSubnets, SubnetOfOnlyANameIsAddedAndReportedAsFailure) {
  this->Given("shared-network office {\nhost e {\n}\n}\n");
  EXPECT_EQ(this->Conf().AddSection(this->Bare(SECTION_SUBNET, "@name1")), 0);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network office / host e
[TREE_ROOT_SECTION]
  [shared-network office]
    [host e]
    [@header1]
)"));
}

TYPED_TEST(AddingSubnets, CalledDirectlyWithoutANameAddsNothing) {
  this->Given(kOffice);
  const std::string before = this->State();
  EXPECT_EQ(this->Conf().AddSubnet(this->Record(SECTION_SUBNET, {})), 0);
  EXPECT_EQ(this->Conf().AddSubnet(this->Timed(SECTION_SUBNET, "")), 0);
  EXPECT_EQ(this->Conf().AddSubnet(this->Record(SECTION_SUBNET, {{TypeParam::kMaxLeaseTime, "1"}})),
            0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(AddingSubnets, CalledDirectlyWithARecordOfNoKindAddsNothing) {
  this->Given(kOffice);
  const std::string before = this->State();
  for (const auto type : kNoKinds) {
    EXPECT_EQ(this->Conf().AddSubnet(this->Timed(type, "n")), 0) << type;
    EXPECT_EQ(this->State(), before) << type;
  }
}

TYPED_TEST(AddingSubnets, CalledDirectlyBeforeOpenAddsTheTopLevelItself) {
  this->Unopened("");
  EXPECT_EQ(this->Conf().AddSubnet(this->Timed(SECTION_HOST, "lan")), 0);
  EXPECT_EQ(this->State(), R"(null / null
[host lan]
  max-lease-time 1;
)");
}

TYPED_TEST(AddingSubnets, CalledDirectlyWithoutAParserAddsAndFails) {
  this->Given("group g {\n@subnet lan {\n}\n}\n");
  this->WithoutParser();
  EXPECT_EQ(this->Conf().AddSubnet(this->Timed(SECTION_HOST, "lan")), 0);
  EXPECT_EQ(this->State(), this->Text(R"(null / group g
[TREE_ROOT_SECTION]
  [group g]
    [@subnet lan]
  [host lan]
    max-lease-time 1;
)"));
}

// ---- AddHost and AddIFSection, which differ in nothing but the keyword

template <class Family>
class AddingBelowSubnets : public EditFixture<Family> {
 public:
  using typename EditFixture<Family>::Section;

  int Add(const Section& section) {
    return Family::kIsHost ? this->Conf().AddHost(section) : this->Conf().AddIFSection(section);
  }
};
TYPED_TEST_SUITE(AddingBelowSubnets, FamiliesAndKinds, FamilyAndKindNames);

TYPED_TEST(AddingBelowSubnets, SecondOfANameIsRefusedInTheCurrentSubnet) {
  this->Given("@header1 {\n}\n");
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "a")), 1);
  const std::string expected = this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [@kind a]
      max-lease-time 1;
)");
  EXPECT_EQ(this->State(), expected);
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "a")), 0);
  EXPECT_EQ(this->State(), expected);
}

TYPED_TEST(AddingBelowSubnets, WithoutACurrentSubnetASecondOfANameIsAddedToTheRoot) {
  this->Given("@header1 {\n}\n");
  this->Place(nullptr, nullptr);
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "a")), 1);
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "a")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / null
[TREE_ROOT_SECTION]
  [@header1]
  [@kind a]
    max-lease-time 1;
  [@kind a]
    max-lease-time 1;
)"));
}

TYPED_TEST(AddingBelowSubnets, WithoutACurrentSubnetTheCurrentNetworkPlaysNoPart) {
  this->Given("shared-network office {\n}\n");
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "a")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network office / null
[TREE_ROOT_SECTION]
  [shared-network office]
  [@kind a]
    max-lease-time 1;
)"));
}

TYPED_TEST(AddingBelowSubnets, SameNameElsewhereIsNotInTheWay) {
  this->Given("@header1 {\n}\n@header2 {\n@kind a {\n}\n}\n@kind a {\n}\n");
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "a")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [@kind a]
      max-lease-time 1;
  [@header2]
    [@kind a]
  [@kind a]
)"));
}

TYPED_TEST(AddingBelowSubnets, SameNameDeeperDownHidesTheOneBehindIt) {
  this->Given("@header1 {\ngroup g {\n@kind a {\n}\n}\n@kind a {\n}\n}\n");
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "a")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [group g]
      [@kind a]
    [@kind a]
    [@kind a]
      max-lease-time 1;
)"));
}

TYPED_TEST(AddingBelowSubnets, CursorOnABlockOfTheNameHidesThoseBelowIt) {
  this->Given("@kind a {\n}\n");
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "a")), 1);
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "a")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @kind a
[TREE_ROOT_SECTION]
  [@kind a]
    [@kind a]
      max-lease-time 1;
    [@kind a]
      max-lease-time 1;
)"));
}

TYPED_TEST(AddingBelowSubnets, TopNodeIsItsOwnParent) {
  this->Given("@header1 {\n}\n");
  auto& top = this->Conf().holder->topNode;
  top.section.SetName(this->Text("@kind a").c_str());
  this->Conf().currentSubnet = &top;
  const std::string before = this->State();
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "a")), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(AddingBelowSubnets, NamesAreComparedWholeAndWithRegardToCase) {
  this->Given("@header1 {\n@kind a {\n}\n}\n");
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "A")), 1);
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "a ")), 1);
  EXPECT_EQ(this->State(), this->Text("null / @header1\n"
                                      "[TREE_ROOT_SECTION]\n"
                                      "  [@header1]\n"
                                      "    [@kind a]\n"
                                      "    [@kind A]\n"
                                      "      max-lease-time 1;\n"
                                      "    [@kind a ]\n"
                                      "      max-lease-time 1;\n"));
}

TYPED_TEST(AddingBelowSubnets, RecordOfOnlyANameIsAddedAndReportedAsFailure) {
  this->Given("@header1 {\n}\n");
  const std::string expected = this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [@kind name]
)");
  EXPECT_EQ(this->Add(this->Bare(TypeParam::kKind, "name")), 0);
  EXPECT_EQ(this->State(), expected);
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "name")), 0) << "it is there now";
  EXPECT_EQ(this->State(), expected);
}

TYPED_TEST(AddingBelowSubnets, RecordWithoutAnyWritableLineIsAddedAndReportedAsFailure) {
  this->Given("@header1 {\n}\n");
  EXPECT_EQ(this->Add(this->Record(TypeParam::kKind, {{TypeParam::kMaxLeaseTime, ""},
                                                      {TypeParam::kReserved, "1"},
                                                      {TypeParam::kLast + 1, "1"},
                                                      {-1, "log x;"},
                                                      {TypeParam::kName, "a"}})),
            0);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [@kind a]
)"));
}

TYPED_TEST(AddingBelowSubnets, CalledDirectlyWithoutANameAddsNothing) {
  this->Given("@header1 {\n}\n");
  const std::string before = this->State();
  EXPECT_EQ(this->Add(this->Record(TypeParam::kKind, {})), 0);
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "")), 0);
  EXPECT_EQ(this->Add(this->Record(TypeParam::kKind, {{TypeParam::kMaxLeaseTime, "1"}})), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(AddingBelowSubnets, CalledDirectlyTheRecordsTypeMakesTheHeader) {
  this->Given("@header1 {\n}\n");
  EXPECT_EQ(this->Add(this->Timed(SECTION_IF, "x")), 1);
  EXPECT_EQ(this->Add(this->Timed(SECTION_HOST, "y")), 1);
  EXPECT_EQ(this->Add(this->Timed(SECTION_SHARED_NETWORK, "z")), 1);
  EXPECT_EQ(this->Add(this->Timed(SECTION_SUBNET, "@name2")), 1);
  EXPECT_EQ(this->Add(this->Timed(SECTION_GLOBAL, "g")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [if x]
      max-lease-time 1;
    [host y]
      max-lease-time 1;
    [shared-network z]
      max-lease-time 1;
    [@header2]
      max-lease-time 1;
    [TREE_ROOT_SECTION]
      max-lease-time 1;
)"));
}

TYPED_TEST(AddingBelowSubnets, CalledDirectlyTheFunctionsKeywordMakesTheKey) {
  this->Given("@header1 {\n@kind a {\n}\n}\n");
  const std::string before = this->State();
  for (const auto type : kEveryKind) {
    EXPECT_EQ(this->Add(this->Timed(type, "a")), 0) << type;
    EXPECT_EQ(this->State(), before) << type;
  }
}

TYPED_TEST(AddingBelowSubnets, CalledDirectlyWithARecordOfNoKindAddsNothing) {
  this->Given("@header1 {\n}\n");
  const std::string before = this->State();
  for (const auto type : kNoKinds) {
    EXPECT_EQ(this->Add(this->Timed(type, "a")), 0) << type;
    EXPECT_EQ(this->State(), before) << type;
  }
}

TYPED_TEST(AddingBelowSubnets, CalledDirectlyBeforeOpenTheFirstBlockServesAsTheRoot) {
  this->Unopened("");
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "a")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / null
[@kind a]
  max-lease-time 1;
)"));
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "a")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / null
[@kind a]
  max-lease-time 1;
  [@kind a]
    max-lease-time 1;
)"));
}

TYPED_TEST(AddingBelowSubnets, CalledDirectlyNoParserIsNeeded) {
  this->Given("@header1 {\n}\n");
  this->WithoutParser();
  EXPECT_EQ(this->Add(this->Timed(TypeParam::kKind, "a")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [@kind a]
      max-lease-time 1;
)"));
}

// ---- AddTreeSection

template <class Family>
class AddingTreeSections : public EditFixture<Family> {
 public:
  using typename EditFixture<Family>::Params;
  using typename EditFixture<Family>::TreeNode;

  /// Adds a record in tree form, with "#" before the lines that are marked.
  bool Add(Params params, TreeNode* parent = nullptr) {
    return this->Conf().AddTreeSection(this->Marked(SECTION_HOST, params), parent);
  }
};
TYPED_TEST_SUITE(AddingTreeSections, Families, FamilyNames);

TYPED_TEST(AddingTreeSections, NullParentIsTheRootSection) {
  this->Given(kNetworkAndHost);
  EXPECT_TRUE(this->Add({{0, "host h"}, {7, "log h;"}}));
  EXPECT_EQ(this->State(), this->Text(R"(shared-network office / @header1
[TREE_ROOT_SECTION]
  [shared-network office]
    [@header1]
  [host e]
  [host h]
    log h;
)"));
}

TYPED_TEST(AddingTreeSections, NewBlockIsTheLastBelowItsParent) {
  this->Given(kNetworkAndHost);
  EXPECT_TRUE(this->Add({{0, "host h"}, {7, "log h;"}}, this->Node("shared-network office")));
  EXPECT_TRUE(this->Add({{0, "host i"}, {7, "log i;"}}, this->Node("host e")));
  EXPECT_EQ(this->State(), this->Text(R"(shared-network office / @header1
[TREE_ROOT_SECTION]
  [shared-network office]
    [@header1]
    [host h]
      log h;
  [host e]
    [host i]
      log i;
)"));
  EXPECT_EQ(this->Node("host i")->parent, this->Node("host e"));
  EXPECT_EQ(this->Node("host i")->children, nullptr);
}

TYPED_TEST(AddingTreeSections, LinesOfAnyTypeAreStoredAsTheyAre) {
  this->Given("host e {\n}\n");
  EXPECT_TRUE(this->Add({{-1, "raw"}, {0, "any header"}, {99, " x { y; }"}, {-2, "z"}}));
  EXPECT_EQ(this->State(), R"(null / host e
[TREE_ROOT_SECTION]
  [host e]
  [any header]
    raw
     x { y; }
    z
)");
}

TYPED_TEST(AddingTreeSections, EmptyFirstLineAddsNothing) {
  this->Given(kNetworkAndHost);
  const std::string before = this->State();
  EXPECT_FALSE(this->Add({{0, "host h"}, {7, ""}}));
  EXPECT_FALSE(this->Add({{0, "host h"}, {7, ""}, {8, "log h;"}}));
  EXPECT_FALSE(this->Add({{7, ""}, {0, "host h"}, {8, "log h;"}}));
  EXPECT_FALSE(this->Add({{0, "host h"}, {7, "#"}, {8, "log h;"}}, this->Node("host e")));
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(AddingTreeSections, EmptyLineBehindAnotherIsLeftOut) {
  this->Given("host e {\n}\n");
  EXPECT_TRUE(this->Add({{0, "host h"}, {7, "a;"}, {8, ""}, {9, ""}, {7, "b;"}, {9, ""}}));
  EXPECT_EQ(this->State(), R"(null / host e
[TREE_ROOT_SECTION]
  [host e]
  [host h]
    a;
    b;
)");
}

TYPED_TEST(AddingTreeSections, MarkOfTheFirstParameterOfALinesTypeDecides) {
  this->Given("host e {\n}\n");
  EXPECT_TRUE(this->Add({{0, "host h"},
                         {7, "#marked;"},
                         {7, "with it;"},
                         {8, "live;"},
                         {8, "#live too;"},
                         {9, "#marked as well;"}}));
  EXPECT_EQ(this->State(), R"(null / host e
[TREE_ROOT_SECTION]
  [host e]
  [host h]
    #marked;
    #with it;
    live;
    live too;
    #marked as well;
)");
}

TYPED_TEST(AddingTreeSections, MarkOfAParameterThatIsLeftOutCounts) {
  this->Given("host e {\n}\n");
  EXPECT_TRUE(this->Add({{0, "host h"}, {7, "a;"}, {8, "#"}, {8, "b;"}}));
  EXPECT_EQ(this->State(), R"(null / host e
[TREE_ROOT_SECTION]
  [host e]
  [host h]
    a;
    #b;
)");
}

TYPED_TEST(AddingTreeSections, CommentIsAlwaysANumberSign) {
  this->Given("host e {\n}\n");
  EXPECT_TRUE(this->Add({{0, "host h"}, {7, "#a;"}, {8, "b;"}}));
  EXPECT_STREQ(this->Entry("host h", 0).GetComment(), "#");
  EXPECT_EQ(this->Entry("host h", 1).GetComment(), nullptr);
}

TYPED_TEST(AddingTreeSections, FirstNameIsTheHeaderAndNoNameIsALine) {
  this->Given("host e {\n}\n");
  EXPECT_TRUE(this->Add({{7, "a;"}, {0, "host h"}, {0, "host i"}, {8, "b;"}, {0, ""}}));
  EXPECT_EQ(this->State(), R"(null / host e
[TREE_ROOT_SECTION]
  [host e]
  [host h]
    a;
    b;
)");
}

TYPED_TEST(AddingTreeSections, WithoutAHeaderNothingIsAdded) {
  this->Given(kNetworkAndHost);
  const std::string before = this->State();
  EXPECT_FALSE(this->Add({}));
  EXPECT_FALSE(this->Add({{7, "a;"}}));
  EXPECT_FALSE(this->Add({{0, ""}, {0, "host h"}, {7, "a;"}}));
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(AddingTreeSections, WithoutLinesAnEmptyBlockIsAddedAndReportedAsFailure) {
  this->Given("host e {\n}\n");
  EXPECT_FALSE(this->Add({{0, "host h"}}));
  EXPECT_FALSE(this->Add({{0, "host i"}, {0, "host j"}}, this->Node("host e")));
  EXPECT_EQ(this->State(), R"(null / host e
[TREE_ROOT_SECTION]
  [host e]
    [host i]
  [host h]
)");
}

TYPED_TEST(AddingTreeSections, WithoutATopLevelTheBlockBecomesIt) {
  this->Unopened("");
  EXPECT_TRUE(this->Add({{0, "host h"}, {7, "a;"}}));
  EXPECT_EQ(this->State(), "null / null\n[host h]\n  a;\n");

  this->Unopened("");
  this->Conf().holder->topNode.children = new std::list<Tree<CfSection>::TreeNode*>;
  EXPECT_TRUE(this->Add({{0, "host h"}, {7, "a;"}}));
  EXPECT_EQ(this->State(), "null / null\n[host h]\n  a;\n");
}

}  // namespace
}  // namespace klepur::test
