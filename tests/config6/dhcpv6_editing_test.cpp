#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>

#include "tests/support/edit_fixture.h"

namespace klepur::test {
namespace {

class Dhcpv6Editing : public EditFixture<V6> {
 protected:
  using S = Section;

  /// Adds a subnet of this name with one line.
  int AddSubnet(std::string_view name) { return Conf().AddSection(Timed(SECTION_SUBNET, name)); }
};

// ---- an edit as a whole

constexpr std::string_view kOfficeFile =
    "authoritative;\n"
    "shared-network office {\n"
    "  subnet6 2001:db8:1::/64 {\n"
    "    range6 2001:db8:1::100 2001:db8:1::200;\n"
    "  }\n"
    "}\n";

constexpr std::string_view kOfficeFileWithASecondSubnet =
    "authoritative;\n"
    "\n"
    "shared-network office\n"
    "{\n"
    "\n"
    "\tsubnet6 2001:db8:1::/64\n"
    "\t{\n"
    "\t\trange6 2001:db8:1::100 2001:db8:1::200;\n"
    "\t}\n"
    "\n"
    "\tsubnet6 2001:db8:2::/64\n"
    "\t{\n"
    "\t\trange6 2001:db8:2::100 2001:db8:2::200;\n"
    "\n"
    "\t\thost h1\n"
    "\t\t{\n"
    "\t\t\tfixed-address6 2001:db8::5;\n"
    "\t\t\toption dhcp6.fqdn \"h1\";\n"
    "\t\t}\n"
    "\t}\n"
    "\n"
    "}\n";

TEST_F(Dhcpv6Editing, SubnetAndItsHostStandIndentedInTheSavedFile) {
  for (const std::string& text : {std::string(kOfficeFile), WithCarriageReturns(kOfficeFile)}) {
    Given(text);
    EXPECT_EQ(Conf().AddSection(
                  Record(SECTION_SUBNET, {{S::PARAM6_NAME, "2001:db8:2::/64"},
                                          {S::PARAM6_RANGE, "2001:db8:2::100 2001:db8:2::200"}})),
              1);
    EXPECT_EQ(Conf().AddSection(Record(SECTION_HOST, {{S::PARAM6_NAME, "h1"},
                                                      {S::PARAM6_FIXED_ADDRESS, "2001:db8::5"},
                                                      {S::PARAM6_FQDN, "h1"}})),
              1);
    const std::string tree = Tree();
    EXPECT_EQ(HostByIp("2001:db8::5"), "3 | 0=h1 | 11=2001:db8::5 | 13=h1");
    EXPECT_EQ(HostByName("h1"), "3 | 0=h1 | 11=2001:db8::5 | 13=h1");
    EXPECT_EQ(Saved(), kOfficeFileWithASecondSubnet);
    EXPECT_EQ(Saved(), kOfficeFileWithASecondSubnet) << "the second save";
    ASSERT_TRUE(Conf().Open());
    EXPECT_EQ(Tree(), tree);
  }
}

// ---- adding subnets

TEST_F(Dhcpv6Editing, NewSubnetIsCurrentAndASecondOfItIsRefused) {
  Given("host e {\n}\n");
  EXPECT_EQ(AddSubnet("2001:db8:1::/64"), 1);
  const std::string after = R"(null / subnet6 2001:db8:1::/64
[TREE_ROOT_SECTION]
  [host e]
  [subnet6 2001:db8:1::/64]
    max-lease-time 1;
)";
  EXPECT_EQ(State(), after);
  EXPECT_EQ(AddSubnet("2001:db8:1::/64"), 0);
  EXPECT_EQ(State(), after);
}

TEST_F(Dhcpv6Editing, NewSubnetOfANetworkIsCurrentAndASecondOfItIsRefused) {
  Given("subnet6 2001:db8:1::/64 {\n}\nshared-network office {\nhost e {\n}\n}\n");
  ASSERT_TRUE(Conf().GotoSection("office", SECTION_SHARED_NETWORK));
  EXPECT_EQ(AddSubnet("2001:db8:1::/64"), 1);
  const std::string after = R"(shared-network office / subnet6 2001:db8:1::/64
[TREE_ROOT_SECTION]
  [subnet6 2001:db8:1::/64]
  [shared-network office]
    [host e]
    [subnet6 2001:db8:1::/64]
      max-lease-time 1;
)";
  EXPECT_EQ(State(), after);
  EXPECT_EQ(Conf().currentSubnet->parent, Conf().currentNetwork);
  EXPECT_EQ(AddSubnet("2001:db8:1::/64"), 0);
  EXPECT_EQ(State(), after);
}

TEST_F(Dhcpv6Editing, WithoutANetworkAnOlderSubnetInsideOneBecomesCurrent) {
  Given("shared-network office {\nsubnet6 2001:db8:1::/64 {\n}\n}\nhost e {\n}\n");
  Place(nullptr, "host e");
  EXPECT_EQ(AddSubnet("2001:db8:1::/64"), 1);
  EXPECT_EQ(State(), R"(null / subnet6 2001:db8:1::/64
[TREE_ROOT_SECTION]
  [shared-network office]
    [subnet6 2001:db8:1::/64]
  [host e]
  [subnet6 2001:db8:1::/64]
    max-lease-time 1;
)");
  EXPECT_EQ(Conf().currentSubnet->parent, Node("shared-network office"));
}

TEST_F(Dhcpv6Editing, SubnetNameNeedsNoColon) {
  Given("host e {\n}\n");
  EXPECT_EQ(AddSubnet("lan"), 1);
  EXPECT_EQ(State(), R"(null / subnet6 lan
[TREE_ROOT_SECTION]
  [host e]
  [subnet6 lan]
    max-lease-time 1;
)");
}

TEST_F(Dhcpv6Editing, AddressEndsAtTheCommaOrTheBlankAndNeverAtAColon) {
  for (const char* name : {"2001:db8:1::/64, x", "2001:db8:1::/64 x"}) {
    Given("host e {\n}\nsubnet6 2001:db8:1::/64 {\n}\n");
    const std::string before = State();
    EXPECT_EQ(AddSubnet(name), 0) << name;
    EXPECT_EQ(State(), before) << "it is there already: " << name;

    Given("host e {\n}\nsubnet6 2001 {\n}\n");
    EXPECT_EQ(AddSubnet(name), 0) << name;
    EXPECT_EQ(State(), std::string("null / host e\n"
                                   "[TREE_ROOT_SECTION]\n"
                                   "  [host e]\n"
                                   "  [subnet6 2001]\n"
                                   "  [subnet6 ") +
                           name + "]\n    max-lease-time 1;\n")
        << "it is added, but not found by its address";
  }
}

TEST_F(Dhcpv6Editing, AddressOfARecordThatIsNoSubnetEndsAtTheColon) {
  Given("host e {\n}\nsubnet6 2001 {\n}\n");
  const std::string before = State();
  for (const auto type : {SECTION_GLOBAL, SECTION_SHARED_NETWORK, SECTION_HOST, SECTION_IF}) {
    EXPECT_EQ(Conf().AddSubnet(Timed(type, "2001:db8:1::/64")), 0) << type;
    EXPECT_EQ(State(), before) << type;
  }
}

TEST_F(Dhcpv6Editing, SubnetNameEndingInItsFirstCommaThrows) {
  Given("subnet6 2001:db8:1::/64 {\n}\n");
  const std::string before = State();
  const Section subnet = Timed(SECTION_SUBNET, "2001:db8:1::/64,");
  EXPECT_THROW(Conf().AddSubnet(subnet), std::out_of_range);
  EXPECT_THROW(Conf().AddSection(subnet), std::out_of_range);
  EXPECT_THROW(Conf().RemoveSection(subnet), std::out_of_range);
  EXPECT_EQ(State(), before);
}

TEST_F(Dhcpv6Editing, AddNetworkWithASubnetRecordAddsToTheRootAndLooksInTheNetwork) {
  Given("shared-network office {\nhost e {\n}\n}\n");
  EXPECT_EQ(Conf().AddNetwork(Timed(SECTION_SUBNET, "2001:db8:1::/64")), 0);
  EXPECT_EQ(State(), R"(shared-network office / host e
[TREE_ROOT_SECTION]
  [shared-network office]
    [host e]
  [subnet6 2001:db8:1::/64]
    max-lease-time 1;
)");
}

// ---- removing subnets

TEST_F(Dhcpv6Editing, SubnetIsRemovedByItsRecord) {
  for (const char* name : {"2001:db8:1::/64", "2001:db8:1::/64, x", "2001:db8:1::/64 x"}) {
    Given(
        "subnet6 2001:db8:1::/64 {\n}\nshared-network office {\nhost e {\n}\n"
        "subnet6 2001:db8:1::/64 {\nhost a {\n}\n}\n}\n");
    ASSERT_TRUE(Conf().GotoSection("office", SECTION_SHARED_NETWORK));
    EXPECT_EQ(Conf().RemoveSection(Bare(SECTION_SUBNET, name)), 1) << name;
    EXPECT_EQ(State(), R"(shared-network office / host e
[TREE_ROOT_SECTION]
  [subnet6 2001:db8:1::/64]
  [shared-network office]
    [host e]
)");
    EXPECT_EQ(Conf().RemoveSection(Bare(SECTION_SUBNET, name)), 0) << "the other is not in it";
  }
}

TEST_F(Dhcpv6Editing, SubnetThatWasReadCanBeRemoved) {
  Given("subnet6 2001:db8:1::/64 {\n}\nsubnet6 2001:db8:2::/64 {\n}\n");
  Section subnet = Record(SECTION_SUBNET, {});
  ASSERT_TRUE(Conf().GetFirstSection(subnet, false));
  EXPECT_EQ(Conf().RemoveSection(subnet), 1);
  EXPECT_EQ(State(), R"(null / subnet6 2001:db8:2::/64
[TREE_ROOT_SECTION]
  [subnet6 2001:db8:2::/64]
)");
}

TEST_F(Dhcpv6Editing, Dhcpv4SubnetIsNoSubnetToRemove) {
  Given("subnet 2001:db8:1::/64 {\n}\n");
  EXPECT_EQ(Conf().RemoveSection(Bare(SECTION_SUBNET, "2001:db8:1::/64")), 0);
  EXPECT_EQ(Conf().RemoveSubnetSection("2001:db8:1::/64"), 0);
  EXPECT_EQ(State(),
            "null / subnet 2001:db8:1::/64\n[TREE_ROOT_SECTION]\n  [subnet 2001:db8:1::/64]\n");
}

// ---- changing

TEST_F(Dhcpv6Editing, ServersCannotBeChangedBecauseTheyReadWithTheKeywordsWord) {
  const struct {
    int type;
    const char* line;
  } cases[] = {
      {S::PARAM6_NAME_SERVERS, "option dhcp6.name-servers 2001:db8::1, 2001:db8::2;"},
      {S::PARAM6_SNTP_SERVERS, "option dhcp6.sntp-servers 2001:db8::1;"},
  };
  for (const auto& [type, line] : cases) {
    for (const char* value : {"2001:db8::3", ""}) {
      Given(std::string("host a {\n") + line + "\n}\n");
      const std::string before = State();
      EXPECT_EQ(Conf().ChangeSection(Record(SECTION_HOST, {{S::PARAM6_NAME, "a"}, {type, value}}),
                                     nullptr),
                0)
          << line;
      EXPECT_EQ(State(), before) << line;
    }
  }
}

TEST_F(Dhcpv6Editing, ServersThatWereJustAddedAreNotFoundEither) {
  Given("host a {\n}\n");
  const Section servers =
      Record(SECTION_HOST, {{S::PARAM6_NAME, "a"}, {S::PARAM6_NAME_SERVERS, "2001:db8::1"}});
  EXPECT_EQ(Conf().ChangeSection(servers, nullptr), 1);
  EXPECT_EQ(Conf().ChangeSection(servers, nullptr), 0) << "what was added does not read as itself";
  EXPECT_EQ(State(), R"(null / host a
[TREE_ROOT_SECTION]
  [host a]
    option dhcp6.name-servers 2001:db8::1;
)");
}

TEST_F(Dhcpv6Editing, SubnetIsRenamedToAnyName) {
  Given("subnet6 2001:db8:1::/64 {\nlog x;\n}\n");
  EXPECT_EQ(Conf().ChangeSection(Bare(SECTION_SUBNET, "other"), "2001:db8:2::/64"), 1);
  EXPECT_EQ(Cursors(), "null / subnet6 2001:db8:2::/64");
  EXPECT_EQ(Conf().ChangeSection(Bare(SECTION_SUBNET, "other"), "lan"), 1);
  EXPECT_EQ(State(), "null / subnet6 lan\n[TREE_ROOT_SECTION]\n  [subnet6 lan]\n    log x;\n");
}

// ---- subnet queries

TEST_F(Dhcpv6Editing, SubnetAddedBeforeOpenBeginsATreeThatIsSaved) {
  Unopened("host e {\n}\n");
  EXPECT_EQ(Conf().AddSubnet(Timed(SECTION_SUBNET, "2001:db8:1::/64")), 1);
  EXPECT_EQ(State(), R"(null / subnet6 2001:db8:1::/64
[subnet6 2001:db8:1::/64]
  max-lease-time 1;
)");
  EXPECT_EQ(Saved(), "\nsubnet6 2001:db8:1::/64\n{\n\tmax-lease-time 1;\n\n}\n");
}

TEST_F(Dhcpv6Editing, SubnetFoundElsewhereFirstHidesTheOneAtTheLevel) {
  Given("shared-network office {\nsubnet6 2001:db8:1::/64 {\n}\n}\nsubnet6 2001:db8:1::/64 {\n}\n");
  ASSERT_TRUE(Conf().GotoSection(nullptr, SECTION_GLOBAL));
  EXPECT_EQ(AddSubnet("2001:db8:1::/64"), 1);
  EXPECT_EQ(Tree(), R"([TREE_ROOT_SECTION]
  [shared-network office]
    [subnet6 2001:db8:1::/64]
  [subnet6 2001:db8:1::/64]
  [subnet6 2001:db8:1::/64]
    max-lease-time 1;
)");
}

TEST_F(Dhcpv6Editing, SubnetIsThePrefix) {
  Given("subnet6 2001:db8:1::/64 {\n}\n");
  std::string subnet;
  EXPECT_EQ(Conf().GetSubnet(subnet), 1);
  EXPECT_EQ(subnet, "2001:db8:1::/64");
}

TEST_F(Dhcpv6Editing, NetmaskInAHeaderStillEndsTheSubnet) {
  Given("subnet 10.0.0.0 netmask 255.0.0.0 {\n}\n");
  std::string subnet;
  EXPECT_EQ(Conf().GetSubnet(subnet), 1);
  EXPECT_EQ(subnet, "10.0.0.0");
}

}  // namespace
}  // namespace klepur::test
