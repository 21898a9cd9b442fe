// Records into tree form: what holds for both families.
#include <klepur/config/config_file.h>

#include <gtest/gtest.h>

#include <climits>

#include "tests/support/config_fixture.h"
#include "tests/support/record_words.h"

namespace klepur::test {
namespace {

template <class Family>
class Writing : public ConfigFixture<Family> {
 protected:
  using Section = typename Family::Section;

  /// The tree form of a record in words, "failed" when there is none.
  std::string Written(const Section& in) {
    Section out;
    return conf_.DhcpToTree(in, out) ? RecordWords<Family>(out) : "failed";
  }

  /// The same for a host "pc" with these parameters.
  std::string WrittenHost(std::initializer_list<typename Section::SectionParam> params) {
    Section in;
    in.params = {{false, Family::kName, "pc"}};
    in.params.insert(in.params.end(), params);
    return Written(in);
  }

  std::string Text(std::string_view text) { return Family::Text(text); }

  typename Family::File conf_;
};
TYPED_TEST_SUITE(Writing, Families, FamilyNames);

// ---- The header ----

TYPED_TEST(Writing, HeaderIsMadeOfKindAndName) {
  const struct {
    EitherKind kind;
    const char* name;
    const char* written;
  } cases[] = {
      {SECTION_GLOBAL, "TREE_ROOT_SECTION", "global | name=TREE_ROOT_SECTION"},
      {SECTION_GLOBAL, "anything", "global | name=TREE_ROOT_SECTION"},
      {SECTION_SHARED_NETWORK, "office", "shared-network | name=shared-network office"},
      {SECTION_SUBNET, "@name1", "subnet | name=@header1"},
      {SECTION_HOST, "pc1", "host | name=host pc1"},
      {SECTION_IF, "known = \"x\"", "if | name=if known = \"x\""},
      // the name is copied as it stands
      {SECTION_HOST, "host a:b, c", "host | name=host host a:b, c"},
      {SECTION_HOST, " ", "host | name=host  "},
      // no such kind: an empty header
      {5, "x", "5 | name="},
      {-1, "x", "-1 | name="},
      {2147483647, "x", "2147483647 | name="},
  };
  for (const auto& row : cases) {
    const EitherKind kind = row.kind;
    EXPECT_EQ(this->Written(this->Record(kind, {{TypeParam::kName, row.name}})),
              this->Text(row.written));
  }
}

TYPED_TEST(Writing, NameAloneGivesTheHeaderAlone) {
  EXPECT_EQ(this->WrittenHost({}), "host | name=host pc");
}

TYPED_TEST(Writing, HeaderComesFirstWhereverTheNameStands) {
  EXPECT_EQ(this->Written(this->Record(SECTION_HOST, {{TypeParam::kMaxLeaseTime, "60"},
                                                      {TypeParam::kName, "pc"},
                                                      {TypeParam::kFixedAddress, "@ip1"}})),
            this->Text("host | name=host pc | max=max-lease-time 60; | fixed=@fixed @ip1;"));
}

TYPED_TEST(Writing, FirstNameCountsAndTheOthersAreLeftOut) {
  EXPECT_EQ(this->Written(this->Record(SECTION_HOST, {{TypeParam::kName, "first"},
                                                      {TypeParam::kMaxLeaseTime, "60"},
                                                      {TypeParam::kName, "second"}})),
            "host | name=host first | max=max-lease-time 60;");
  EXPECT_EQ(this->Written(
                this->Record(SECTION_HOST, {{TypeParam::kName, ""}, {TypeParam::kName, "second"}})),
            "host");
}

TYPED_TEST(Writing, WithoutNameThereAreLinesWithoutHeader) {
  const auto Lines = [this](EitherKind kind) {
    return this->Written(this->Record(kind, {{TypeParam::kMaxLeaseTime, "60"}}));
  };
  EXPECT_EQ(Lines(SECTION_GLOBAL), "global | max=max-lease-time 60;");
  EXPECT_EQ(Lines(SECTION_SHARED_NETWORK), "shared-network | max=max-lease-time 60;");
  EXPECT_EQ(Lines(SECTION_SUBNET), "subnet | max=max-lease-time 60;");
  EXPECT_EQ(Lines(SECTION_HOST), "host | max=max-lease-time 60;");
  EXPECT_EQ(Lines({9}), "9 | max=max-lease-time 60;");
}

TYPED_TEST(Writing, EmptyNameGivesNoHeader) {
  EXPECT_EQ(this->Written(this->Record(SECTION_GLOBAL, {{TypeParam::kName, ""}})), "global");
  EXPECT_EQ(this->Written(this->Record(SECTION_SUBNET,
                                       {{TypeParam::kName, ""}, {TypeParam::kMaxLeaseTime, "6"}})),
            "subnet | max=max-lease-time 6;");
}

TYPED_TEST(Writing, MarkOfTheNameIsDropped) {
  typename TypeParam::Section in;
  in.params = {{true, TypeParam::kName, "pc"}};
  EXPECT_EQ(this->Written(in), "host | name=host pc");
}

// ---- The lines ----

TYPED_TEST(Writing, EachFormIsWrittenInItsWay) {
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kHardwareEthernet, "00:11:22:33:44:55"}}),
            "host | name=host pc | hardware=hardware ethernet 00:11:22:33:44:55;");
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kFilename, "pxelinux.0"}}),
            "host | name=host pc | filename=filename \"pxelinux.0\";");
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kRange, "A B"}}),
            this->Text("host | name=host pc | range=@range A B;"));
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kAuthoritative, "exist"}}),
            "host | name=host pc | authoritative=authoritative;");
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kIpLine, "IPLine x"}}),
            "host | name=host pc | ip-line=IPLine x;");
}

TYPED_TEST(Writing, FixedLineWantsAnyValueAndWritesNone) {
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kAuthoritative, "1"}}),
            "host | name=host pc | authoritative=authoritative;");
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kAuthoritative, " "}}),
            "host | name=host pc | authoritative=authoritative;");
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kAuthoritative, ""}}), "host | name=host pc");
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kDenyUnknownClients, "no"}}),
            "host | name=host pc | deny=deny unknown-clients;");
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kDenyUnknownClients, ""}}),
            "host | name=host pc");
}

TYPED_TEST(Writing, EmptyValuesAreLeftOut) {
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kMaxLeaseTime, ""},
                               {false, TypeParam::kFilename, ""},
                               {false, TypeParam::kRange, ""},
                               {false, TypeParam::kIpLine, ""},
                               {false, TypeParam::kDefaultLeaseTime, "600"}}),
            "host | name=host pc | default=default-lease-time 600;");
}

TYPED_TEST(Writing, TypesThatHaveNoLineAreLeftOut) {
  for (const int type :
       {-1, -2, INT_MIN, TypeParam::kReserved, TypeParam::kLast + 1, 1000, INT_MAX}) {
    EXPECT_EQ(this->WrittenHost({{true, type, "x"}, {false, TypeParam::kMaxLeaseTime, "60"}}),
              "host | name=host pc | max=max-lease-time 60;")
        << type;
  }
}

TYPED_TEST(Writing, EveryOtherTypeUpToTheLastHasALine) {
  for (int type = 1; type <= TypeParam::kLast; ++type) {
    if (type == TypeParam::kReserved) continue;
    typename TypeParam::Section in;
    typename TypeParam::Section out;
    in.params = {{false, type, "x"}};
    EXPECT_TRUE(this->conf_.DhcpToTree(in, out));
    ASSERT_EQ(out.params.size(), 1U) << type;
    EXPECT_EQ(out.params.front().type, type);
  }
}

TYPED_TEST(Writing, ValuesAreWrittenAsTheyStand) {
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kFilename, "a\"b\\c; d"}}),
            "host | name=host pc | filename=filename \"a\"b\\c; d\";");
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kMaxLeaseTime, " 7200; "}}),
            "host | name=host pc | max=max-lease-time  7200; ;");
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kRange, "A,B"}}),
            this->Text("host | name=host pc | range=@range A,B;"));
}

TYPED_TEST(Writing, WholeLineGetsASemicolonEvenBehindItsOwn) {
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kIpLine, "Special x;"}}),
            "host | name=host pc | ip-line=Special x;;");
}

TYPED_TEST(Writing, WholeLineKeepsItsOneSemicolonFromFileToFile) {
  CfSection block;
  block.SetName("host pc");
  block.AddEntry("IPLine 10.0.0.1;", nullptr, "#");
  typename TypeParam::Section record;
  this->conf_.TreeToDhcp(block, record, false);
  EXPECT_EQ(RecordWords<TypeParam>(record), "host | name=pc | #ip-line=IPLine 10.0.0.1");
  EXPECT_EQ(this->Written(record), "host | name=host pc | #ip-line=IPLine 10.0.0.1;");
}

TYPED_TEST(Writing, LinesReadRawAreNotWritten) {
  CfSection block;
  block.SetName("host pc");
  block.AddEntry("max-lease-time 60;", nullptr, nullptr);
  typename TypeParam::Section record;
  this->conf_.TreeToDhcp(block, record, true);
  EXPECT_EQ(this->Written(record), "host | name=host pc");
}

// ---- Several parameters of one type ----

TYPED_TEST(Writing, LastValueOfATypeStandsInTheFirstOnesPlace) {
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kRange, "A"},
                               {false, TypeParam::kMaxLeaseTime, "60"},
                               {false, TypeParam::kRange, "B"}}),
            this->Text("host | name=host pc | range=@range B; | max=max-lease-time 60;"));
}

TYPED_TEST(Writing, MarkOfTheFirstOfATypeGoesWithTheLastValue) {
  EXPECT_EQ(this->WrittenHost(
                {{true, TypeParam::kMaxLeaseTime, "1"}, {false, TypeParam::kMaxLeaseTime, "2"}}),
            "host | name=host pc | #max=max-lease-time 2;");
  EXPECT_EQ(this->WrittenHost({{false, TypeParam::kMaxLeaseTime, "1"},
                               {true, TypeParam::kMaxLeaseTime, "2"},
                               {true, TypeParam::kMaxLeaseTime, "3"}}),
            "host | name=host pc | max=max-lease-time 3;");
}

TYPED_TEST(Writing, FirstOfATypeGivesItsMarkEvenWithoutAValue) {
  EXPECT_EQ(this->WrittenHost({{true, TypeParam::kMaxLeaseTime, ""},
                               {false, TypeParam::kDefaultLeaseTime, "600"},
                               {false, TypeParam::kMaxLeaseTime, "2"}}),
            "host | name=host pc | default=default-lease-time 600; | #max=max-lease-time 2;");
  EXPECT_EQ(this->WrittenHost(
                {{false, TypeParam::kMaxLeaseTime, ""}, {true, TypeParam::kMaxLeaseTime, "2"}}),
            "host | name=host pc | max=max-lease-time 2;");
}

TYPED_TEST(Writing, EmptyLastValueLeavesTheOneBefore) {
  EXPECT_EQ(this->WrittenHost(
                {{false, TypeParam::kMaxLeaseTime, "1"}, {true, TypeParam::kMaxLeaseTime, ""}}),
            "host | name=host pc | max=max-lease-time 1;");
}

TYPED_TEST(Writing, MarkOfAStatementIsKept) {
  EXPECT_EQ(this->WrittenHost({{true, TypeParam::kMaxLeaseTime, "60"},
                               {false, TypeParam::kDefaultLeaseTime, "600"},
                               {true, TypeParam::kAuthoritative, "exist"}}),
            "host | name=host pc | #max=max-lease-time 60; | default=default-lease-time 600; | "
            "#authoritative=authoritative;");
}

// ---- The two records ----

TYPED_TEST(Writing, RecordWithoutParametersFailsAndLeavesTheOtherAlone) {
  typename TypeParam::Section in;
  in.type = SECTION_IF;
  auto out = this->Record(SECTION_SUBNET, {{TypeParam::kMaxLeaseTime, "old"}});
  EXPECT_FALSE(this->conf_.DhcpToTree(in, out));
  EXPECT_EQ(RecordWords<TypeParam>(out), "subnet | max=old");
}

TYPED_TEST(Writing, RecordThatIsFilledLosesWhatItHeld) {
  const auto in = this->Record(SECTION_IF, {{TypeParam::kName, "x"}});
  auto out =
      this->Record(SECTION_SUBNET, {{TypeParam::kName, "old"}, {TypeParam::kMaxLeaseTime, "old"}});
  EXPECT_TRUE(this->conf_.DhcpToTree(in, out));
  EXPECT_EQ(RecordWords<TypeParam>(out), "if | name=if x");
}

TYPED_TEST(Writing, RecordWithNothingToWriteGivesAnEmptyOne) {
  auto out = this->Record(SECTION_SUBNET, {{TypeParam::kMaxLeaseTime, "old"}});
  const auto in = this->Record(SECTION_HOST, {{-1, "max-lease-time 60;"}});
  EXPECT_TRUE(this->conf_.DhcpToTree(in, out));
  EXPECT_EQ(RecordWords<TypeParam>(out), "host");
}

TYPED_TEST(Writing, RecordThatIsWrittenStaysAsItIs) {
  auto in = this->Record(SECTION_HOST, {{TypeParam::kName, "pc"}, {TypeParam::kRange, "A"}});
  in.params.push_back({true, TypeParam::kRange, "B"});
  this->Written(in);
  EXPECT_EQ(RecordWords<TypeParam>(in), "host | name=pc | range=A | #range=B");
}

TYPED_TEST(Writing, RecordWrittenIntoItselfEndsUpEmpty) {
  auto record = this->Record(SECTION_SUBNET,
                             {{TypeParam::kName, "@name1"}, {TypeParam::kMaxLeaseTime, "60"}});
  EXPECT_TRUE(this->conf_.DhcpToTree(record, record));
  EXPECT_EQ(RecordWords<TypeParam>(record), "subnet");
}

TYPED_TEST(Writing, WrittenLinesReadBackAsTheRecord) {
  const auto record = this->Record(SECTION_HOST, {{TypeParam::kName, "pc"},
                                                  {TypeParam::kHardwareEthernet, "0:1:2:3:4:5"},
                                                  {TypeParam::kFixedAddress, "@ip1"},
                                                  {TypeParam::kHostName, "pc.office.lan"},
                                                  {TypeParam::kRange, "@ip2 @ip3"},
                                                  {TypeParam::kAuthoritative, "exist"}});
  typename TypeParam::Section treeForm;
  ASSERT_TRUE(this->conf_.DhcpToTree(record, treeForm));
  CfSection block;
  for (const auto& param : treeForm.params) {
    if (param.type == TypeParam::kName) {
      block.SetName(param.value.c_str());
    } else {
      block.AddEntry(param.value.c_str(), nullptr, nullptr);
    }
  }
  typename TypeParam::Section again;
  EXPECT_TRUE(this->conf_.TreeToDhcp(block, again, false));
  EXPECT_EQ(RecordWords<TypeParam>(again),
            this->Text("host | name=pc | hardware=0:1:2:3:4:5 | fixed=@ip1 | "
                       "host-name=pc.office.lan | range=@ip2 @ip3 | authoritative=exist"));
}

}  // namespace
}  // namespace klepur::test
