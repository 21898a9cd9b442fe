#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>

#include "tests/support/edit_fixture.h"

namespace klepur::test {
namespace {

class DhcpEditing : public EditFixture<V4> {
 protected:
  using S = Section;

  /// Adds a subnet of this name with one line.
  int AddSubnet(std::string_view name) { return Conf().AddSubnet(Timed(SECTION_SUBNET, name)); }
};

// ---- an edit as a whole

constexpr std::string_view kOfficeFile =
    "authoritative;\n"
    "# main office\n"
    "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
    "  option routers 10.0.0.1;\n"
    "  host pc1 {\n"
    "    fixed-address 10.0.0.5;\n"
    "  }\n"
    "}\n";

constexpr std::string_view kOfficeFileWithPc2 =
    "authoritative;\n"
    "#main office\n"
    "\n"
    "subnet 10.0.0.0 netmask 255.255.255.0\n"
    "{\n"
    "\toption routers 10.0.0.1;\n"
    "\n"
    "\thost pc1\n"
    "\t{\n"
    "\t\tfixed-address 10.0.0.5;\n"
    "\t}\n"
    "\n"
    "\thost pc2\n"
    "\t{\n"
    "\t\thardware ethernet 00:11:22:33:44:55;\n"
    "\t\tfixed-address 10.0.0.6;\n"
    "\t}\n"
    "\n"
    "}\n";

TEST_F(DhcpEditing, HostAddedToASubnetStandsIndentedInTheSavedFile) {
  for (const std::string& text : {std::string(kOfficeFile), WithCarriageReturns(kOfficeFile)}) {
    Given(text);
    ASSERT_TRUE(Conf().GotoSection("10.0.0.0 netmask 255.255.255.0", SECTION_SUBNET));
    EXPECT_EQ(
        Conf().AddSection(Record(SECTION_HOST, {{S::PARAM_NAME, "pc2"},
                                                {S::PARAM_HARDWARE_ETHERNET, "00:11:22:33:44:55"},
                                                {S::PARAM_FIXED_ADDRESS, "10.0.0.6"}})),
        1);
    const std::string tree = Tree();
    EXPECT_EQ(Saved(), kOfficeFileWithPc2);
    EXPECT_EQ(Saved(), kOfficeFileWithPc2) << "the second save";
    ASSERT_TRUE(Conf().Open());
    EXPECT_EQ(Tree(), tree);
    EXPECT_EQ(HostByIp("10.0.0.6"), "3 | 0=pc2 | 16=00:11:22:33:44:55 | 17=10.0.0.6");
  }
}

// ---- adding subnets

TEST_F(DhcpEditing, SubnetWithAMaskIsAppendedAndReportedAsFailure) {
  Given("subnet 11.0.0.0 netmask 255.0.0.0 {\n}\nhost e {\n}\n");
  EXPECT_EQ(AddSubnet("10.0.0.0:255.0.0.0"), 0);
  EXPECT_EQ(State(), R"(null / subnet 11.0.0.0 netmask 255.0.0.0
[TREE_ROOT_SECTION]
  [subnet 11.0.0.0 netmask 255.0.0.0]
  [host e]
  [subnet 10.0.0.0 netmask 255.0.0.0]
    max-lease-time 1;
)");
  EXPECT_TRUE(Conf().GotoSection("10.0.0.0 netmask 255.0.0.0", SECTION_SUBNET));
  EXPECT_EQ(Cursors(), "null / subnet 10.0.0.0 netmask 255.0.0.0");
}

TEST_F(DhcpEditing, SubnetAddedBeforeOpenBeginsATreeThatIsSaved) {
  Unopened("host e {\n}\n");
  EXPECT_EQ(AddSubnet("10.0.0.0:255.0.0.0"), 0);
  EXPECT_EQ(State(), R"(null / null
[subnet 10.0.0.0 netmask 255.0.0.0]
  max-lease-time 1;
)");
  EXPECT_EQ(Saved(), "\nsubnet 10.0.0.0 netmask 255.0.0.0\n{\n\tmax-lease-time 1;\n\n}\n");
}

TEST_F(DhcpEditing, SubnetWithAMaskIsAppendedToTheCurrentNetwork) {
  Given("shared-network office {\nhost e {\n}\n}\nhost f {\n}\n");
  EXPECT_EQ(Conf().AddSection(Timed(SECTION_SUBNET, "10.0.0.0:255.0.0.0")), 0);
  EXPECT_EQ(State(), R"(shared-network office / host e
[TREE_ROOT_SECTION]
  [shared-network office]
    [host e]
    [subnet 10.0.0.0 netmask 255.0.0.0]
      max-lease-time 1;
  [host f]
)");
}

TEST_F(DhcpEditing, SecondSubnetOfAnAddressAndMaskIsNotNoticed) {
  Given("host e {\n}\nsubnet 10.0.0.0 netmask 255.0.0.0 {\n}\n");
  EXPECT_EQ(AddSubnet("10.0.0.0:255.0.0.0"), 0);
  EXPECT_EQ(State(), R"(null / host e
[TREE_ROOT_SECTION]
  [host e]
  [subnet 10.0.0.0 netmask 255.0.0.0]
  [subnet 10.0.0.0 netmask 255.0.0.0]
    max-lease-time 1;
)");
}

TEST_F(DhcpEditing, SubnetHeaderOfOnlyTheAddressIsNoticed) {
  Given("host e {\n}\nsubnet 10.0.0.0 {\n}\n");
  const std::string before = State();
  for (const char* name : {"10.0.0.0:255.0.0.0", "10.0.0.0, x:y"}) {
    EXPECT_EQ(AddSubnet(name), 0) << name;
    EXPECT_EQ(State(), before) << name;
  }
}

TEST_F(DhcpEditing, SubnetHeaderOfOnlyTheAddressDeeperDownBecomesCurrent) {
  for (const char* name : {"10.0.0.0:255.0.0.0", "10.0.0.0:x:y"}) {
    Given("host e {\n}\ngroup g {\nsubnet 10.0.0.0 {\n}\n}\n");
    EXPECT_EQ(AddSubnet(name), 1) << name;
    EXPECT_EQ(Cursors(), "null / subnet 10.0.0.0") << name;
  }
}

TEST_F(DhcpEditing, OnlyTheFirstColonOfASubnetNameBecomesNetmask) {
  Given("host e {\n}\n");
  EXPECT_EQ(AddSubnet("a:b:c"), 0);
  EXPECT_EQ(State(), R"(null / host e
[TREE_ROOT_SECTION]
  [host e]
  [subnet a netmask b:c]
    max-lease-time 1;
)");
}

TEST_F(DhcpEditing, AddressEndsAtTheCommaOrTheBlank) {
  for (const char* name : {"10.0.0.0, x", "10.0.0.0 x"}) {
    Given("host e {\n}\ngroup g {\nsubnet 10.0.0.0 {\n}\n}\n");
    EXPECT_EQ(Conf().AddSubnet(Timed(SECTION_HOST, name)), 1) << name;
    EXPECT_EQ(State(), std::string("null / subnet 10.0.0.0\n"
                                   "[TREE_ROOT_SECTION]\n"
                                   "  [host e]\n"
                                   "  [group g]\n"
                                   "    [subnet 10.0.0.0]\n"
                                   "  [host ") +
                           name + "]\n    max-lease-time 1;\n");
  }
}

TEST_F(DhcpEditing, SubnetWithoutAMaskIsNotAdded) {
  Given("shared-network office {\nhost e {\n}\n}\n");
  const std::string before = State();
  for (const char* name : {"10.0.0.0", "10.0.0.0, x", "10.0.0.0 x", "10.0.0.0 netmask 255.0.0.0"}) {
    EXPECT_EQ(AddSubnet(name), 0) << name;
    EXPECT_EQ(Conf().AddSection(Timed(SECTION_SUBNET, name)), 0) << name;
    EXPECT_EQ(Conf().AddNetwork(Timed(SECTION_SUBNET, name)), 0) << name;
    EXPECT_EQ(Conf().AddHost(Timed(SECTION_SUBNET, name)), 0) << name;
    EXPECT_EQ(State(), before) << name;
  }
}

TEST_F(DhcpEditing, SubnetNameEndingInItsFirstCommaThrows) {
  Given("host e {\n}\n");
  const std::string before = State();
  for (const char* name : {"10.0.0.0,", "10.0.0.0:255.0.0.0,"}) {
    const Section subnet = Timed(SECTION_SUBNET, name);
    EXPECT_THROW(Conf().AddSubnet(subnet), std::out_of_range) << name;
    EXPECT_THROW(Conf().AddSection(subnet), std::out_of_range) << name;
    EXPECT_THROW(Conf().RemoveSection(subnet), std::out_of_range) << name;
    EXPECT_EQ(State(), before) << name;
  }
}

// ---- removing subnets

TEST_F(DhcpEditing, SubnetIsRemovedByItsHeaderAndNotByItsRecord) {
  Given("shared-network office {\nhost e {\n}\nsubnet 10.0.0.0 netmask 255.0.0.0 {\n}\n}\n");
  const std::string before = State();
  EXPECT_EQ(Conf().RemoveSection(Timed(SECTION_SUBNET, "10.0.0.0:255.0.0.0")), 0);
  EXPECT_EQ(Conf().RemoveSection(Timed(SECTION_SUBNET, "10.0.0.0 netmask 255.0.0.0")), 0);
  EXPECT_EQ(Conf().RemoveSubnetSection("10.0.0.0:255.0.0.0"), 0);
  EXPECT_EQ(Conf().RemoveSubnetSection("10.0.0.0"), 0);
  EXPECT_EQ(State(), before);
  EXPECT_EQ(Conf().RemoveSubnetSection("10.0.0.0 netmask 255.0.0.0"), 1);
  EXPECT_EQ(State(), R"(shared-network office / host e
[TREE_ROOT_SECTION]
  [shared-network office]
    [host e]
)");
}

TEST_F(DhcpEditing, SubnetHeaderOfOnlyTheAddressIsRemovedByItsRecord) {
  for (const char* name : {"10.0.0.0:255.0.0.0", "10.0.0.0, x", "10.0.0.0 x", "10.0.0.0"}) {
    Given("host e {\n}\nsubnet 10.0.0.0 {\n}\n");
    EXPECT_EQ(Conf().RemoveSection(Bare(SECTION_SUBNET, name)), 1) << name;
    EXPECT_EQ(State(), "null / host e\n[TREE_ROOT_SECTION]\n  [host e]\n") << name;
  }
}

TEST_F(DhcpEditing, Subnet6IsNoSubnetToRemove) {
  Given("subnet6 10.0.0.0 {\n}\n");
  EXPECT_EQ(Conf().RemoveSubnetSection("10.0.0.0"), 0);
  EXPECT_EQ(State(), "null / subnet6 10.0.0.0\n[TREE_ROOT_SECTION]\n  [subnet6 10.0.0.0]\n");
}

// ---- changing

TEST_F(DhcpEditing, NewRoutersReplaceTheOldOnesAndNothingElse) {
  Given(
      "subnet 10.0.0.0 netmask 255.0.0.0 {\nlog before;\n# a comment\noption routers 10.0.0.1;\n"
      "log behind;\n# another\nrange 10.0.0.5 10.0.0.9;\n}\n");
  EXPECT_EQ(Conf().ChangeSection(Record(SECTION_SUBNET, {{S::PARAM_NAME, "10.0.0.0:255.0.0.0"},
                                                         {S::PARAM_ROUTERS, "10.0.0.2"}}),
                                 nullptr),
            1);
  EXPECT_EQ(State(), R"(null / subnet 10.0.0.0 netmask 255.0.0.0
[TREE_ROOT_SECTION]
  [subnet 10.0.0.0 netmask 255.0.0.0]
    log before;
    #a comment
    option routers 10.0.0.2;
    log behind;
    #another
    range 10.0.0.5 10.0.0.9;
)");
}

TEST_F(DhcpEditing, ServerListIsFoundOnlyInTheSpacingItIsWrittenIn) {
  const struct {
    const char* line;
    int result;
    const char* changed;
  } cases[] = {
      {"option ntp-servers 10.0.0.1, 10.0.0.2;", 1, "option ntp-servers 10.0.0.3;"},
      {"option ntp-servers 10.0.0.1;", 1, "option ntp-servers 10.0.0.3;"},
      {"option ntp-servers 10.0.0.1,10.0.0.2;", 0, "option ntp-servers 10.0.0.1,10.0.0.2;"},
      {"option ntp-servers time.lan;", 0, "option ntp-servers time.lan;"},
      {"option ntp-servers t1.lan;", 0, "option ntp-servers t1.lan;"},
  };
  for (const auto& row : cases) {
    Given(std::string("host a {\n") + row.line + "\n}\n");
    EXPECT_EQ(Conf().ChangeSection(
                  Record(SECTION_HOST, {{S::PARAM_NAME, "a"}, {S::PARAM_NTP_SERVERS, "10.0.0.3"}}),
                  nullptr),
              row.result)
        << row.line;
    EXPECT_EQ(State(), std::string("null / host a\n[TREE_ROOT_SECTION]\n  [host a]\n    ") +
                           row.changed + "\n");
  }
}

TEST_F(DhcpEditing, SubnetIsNotRenamedToANameWithoutAMask) {
  Given("subnet 10.0.0.0 netmask 255.0.0.0 {\nlog x;\n}\n");
  const std::string before = State();
  const Section subnet = Timed(SECTION_SUBNET, "10.0.0.0:255.0.0.0");
  EXPECT_EQ(Conf().ChangeSection(subnet, "11.0.0.0"), 0);
  EXPECT_EQ(Conf().ChangeSection(subnet, "11.0.0.0 netmask 255.0.0.0"), 0);
  EXPECT_EQ(State(), before);
  EXPECT_EQ(Conf().ChangeSection(subnet, "11.0.0.0:255.0.0.0"), 1);
  EXPECT_EQ(State(), R"(null / subnet 11.0.0.0 netmask 255.0.0.0
[TREE_ROOT_SECTION]
  [subnet 11.0.0.0 netmask 255.0.0.0]
    log x;
    max-lease-time 1;
)");
}

TEST_F(DhcpEditing, NewNameStaysWhenTheRecordsOwnHasNoMask) {
  Given("subnet 10.0.0.0 netmask 255.0.0.0 {\nlog x;\n}\n");
  EXPECT_EQ(Conf().ChangeSection(Timed(SECTION_SUBNET, "10.0.0.0"), "11.0.0.0:255.0.0.0"), 0);
  EXPECT_EQ(State(), R"(null / subnet 11.0.0.0 netmask 255.0.0.0
[TREE_ROOT_SECTION]
  [subnet 11.0.0.0 netmask 255.0.0.0]
    log x;
)");
}

TEST_F(DhcpEditing, SubnetRecordNeedsNoNameToBeMerged) {
  Given("subnet 10.0.0.0 {\nmax-lease-time 9;\n}\n");
  EXPECT_EQ(Conf().ChangeSection(Record(SECTION_SUBNET, {{S::PARAM_MAX_LEASE_TIME, "1"}}), nullptr),
            1);
  EXPECT_EQ(State(),
            "null / subnet 10.0.0.0\n[TREE_ROOT_SECTION]\n  [subnet 10.0.0.0]\n"
            "    max-lease-time 1;\n");
}

// ---- subnet queries

TEST_F(DhcpEditing, SubnetIsTheAddressWithoutTheMask) {
  Given("subnet 192.168.1.0 netmask 255.255.255.0 {\n}\n");
  std::string subnet;
  EXPECT_EQ(Conf().GetSubnet(subnet), 1);
  EXPECT_EQ(subnet, "192.168.1.0");
}

TEST_F(DhcpEditing, NetmaskIsMadeOfTheAddressAlone) {
  using namespace std::string_literals;
  Unopened("");
  EXPECT_EQ(Conf().GetNetmaskBySubnet("10.0.0.0"), "255.0.0.0\0"s);
  EXPECT_EQ(Conf().GetNetmaskBySubnet("10.1.0.0"), "255.255.0.0\0"s);
  EXPECT_EQ(Conf().GetNetmaskBySubnet("192.168.1.0"), "255.255.255.255\0"s);
  EXPECT_EQ(Conf().GetNetmaskBySubnet("172.16.0.0"), "255.255.255.255\0"s);
  EXPECT_EQ(Conf().GetNetmaskBySubnet("10.0.0.0"), "255.0.0.0\0"s) << "nothing is left over";
  EXPECT_EQ(Conf().GetNetmaskBySubnet(nullptr), "");
  EXPECT_EQ(State(), "null / null\n");
}

}  // namespace
}  // namespace klepur::test
