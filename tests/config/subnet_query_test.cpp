#include <gtest/gtest.h>

#include <string>

#include "tests/support/edit_fixture.h"

namespace klepur::test {
namespace {

template <class Family>
class SubnetQuery : public EditFixture<Family> {
 public:
  /// What GetSubnet gives for a current block of this header.
  std::string SubnetOf(const char* header) {
    this->Given("host a {\n}\n");
    this->Conf().currentSubnet->section.SetName(this->Text(header).c_str());
    const std::string before = this->State();
    std::string subnet = "was here";
    EXPECT_EQ(this->Conf().GetSubnet(subnet), 1);
    EXPECT_EQ(this->State(), before);
    return subnet;
  }

  void ExpectFailure() {
    std::string subnet = "was here";
    EXPECT_EQ(this->Conf().GetSubnet(subnet), 0);
    EXPECT_EQ(subnet, "was here");
  }
};
TYPED_TEST_SUITE(SubnetQuery, Families, FamilyNames);

struct HeaderCase {
  const char* header;
  const char* subnet;
};

constexpr HeaderCase kHeaders[] = {
    // up to " netmask "
    {"subnet 192.168.1.0 netmask 255.255.255.0", "192.168.1.0"},
    {"subnet 10.0.0.0 netmask 255.0.0.0", "10.0.0.0"},
    {"if x netmask y", "x"},
    {"a b  netmask  c netmask d", "b "},
    {"subnet  10.0.0.0 netmask x", " 10.0.0.0"},

    // to the end when there is none
    {"subnet6 2001:db8:1::/64", "2001:db8:1::/64"},
    {"subnet 10.0.0.0", "10.0.0.0"},
    {"subnet 10.0.0.0 netmask", "10.0.0.0 netmask"},
    {"subnet 10.0.0.0 Netmask 255.0.0.0", "10.0.0.0 Netmask 255.0.0.0"},
    {"subnet 10.0.0.0\tnetmask\t255.0.0.0", "10.0.0.0\tnetmask\t255.0.0.0"},
    {"host a", "a"},
    {"host a b", "a b"},
    {"host ", ""},

    // all of a header without blanks
    {"group", "group"},
    {"TREE_ROOT_SECTION", "TREE_ROOT_SECTION"},
    {"subnet\t10.0.0.0", "subnet\t10.0.0.0"},
    {"", ""},

    // " netmask " at the first blank does not end what begins behind that blank
    {"subnet netmask 255.0.0.0", "netmask 255.0.0.0"},
    {"subnet netmask 1 netmask 2", "netmask 1 netmask 2"},
};

TYPED_TEST(SubnetQuery, AddressIsTheHeaderBehindItsFirstBlankUpToTheNetmask) {
  for (const auto& [header, subnet] : kHeaders) {
    EXPECT_EQ(this->SubnetOf(header), subnet) << header;
  }
}

TYPED_TEST(SubnetQuery, AnyKindOfBlockIsRead) {
  EXPECT_EQ(this->SubnetOf("host a"), "a");
}

TYPED_TEST(SubnetQuery, BlockOnTheSubnetCursorIsRead) {
  this->Given("shared-network n {\n@subnet lan {\n}\n}\n@subnet other {\n}\n");
  std::string subnet;
  EXPECT_EQ(this->Conf().GetSubnet(subnet), 1);
  EXPECT_EQ(subnet, "lan");
  ASSERT_TRUE(this->Conf().GotoSection(nullptr, SECTION_GLOBAL));
  ASSERT_TRUE(this->Conf().GotoSection("other", SECTION_SUBNET));
  EXPECT_EQ(this->Conf().GetSubnet(subnet), 1);
  EXPECT_EQ(subnet, "other");
  EXPECT_EQ(this->State(), this->Text(R"(null / @subnet other
[TREE_ROOT_SECTION]
  [shared-network n]
    [@subnet lan]
  [@subnet other]
)"));
}

TYPED_TEST(SubnetQuery, FailsWithoutACurrentSubnet) {
  this->Given("shared-network n {\n}\n@header1 {\n}\n");
  this->ExpectFailure();
  EXPECT_EQ(this->Cursors(), "shared-network n / null");
}

TYPED_TEST(SubnetQuery, FailsBeforeTheFileIsOpened) {
  this->Unopened("@header1 {\n}\n");
  this->ExpectFailure();
}

TYPED_TEST(SubnetQuery, FailsWithoutAParser) {
  this->Given("@header1 {\n}\n");
  this->WithoutParser();
  this->ExpectFailure();
}

TYPED_TEST(SubnetQuery, FailsWithoutAHolder) {
  this->Given("@header1 {\n}\n");
  Tree<CfSection>::TreeNode subnet(nullptr, CfSection());
  this->WithoutHolder();
  this->Conf().currentSubnet = &subnet;
  this->ExpectFailure();
}

}  // namespace
}  // namespace klepur::test
