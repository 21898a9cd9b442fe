#include <klepur/config6/dhcpv6_vocabulary.h>

#include <gtest/gtest.h>

#include <set>

#include "tests/support/blocks.h"
#include "tests/support/config_fixture.h"

namespace klepur::test {
namespace {

using Dhcpv6Section = Dhcpv6ConfigFile::Dhcpv6Section;

class Dhcpv6VocabularyTest : public ConfigFixture<V6> {
 protected:
  /// The record of a block, see RecordText.
  std::string Read(const std::string& header, std::initializer_list<std::string> lines,
                   bool rawEntries = false) {
    Dhcpv6Section record;
    EXPECT_TRUE(conf_.TreeToDhcp(Block(header, lines), record, rawEntries));
    return RecordText(record);
  }

  /// The tree form of a record, see RecordText; "failed" when there is none.
  std::string Written(int kind, std::initializer_list<Dhcpv6Section::SectionParam> params) {
    Dhcpv6Section in;
    Dhcpv6Section out;
    in.type = EitherKind{kind};
    in.params = params;
    return conf_.DhcpToTree(in, out) ? RecordText(out) : "failed";
  }

  /// The elements in brackets, then the result: "[2001:db8::1][2001:db8::2] true".
  std::string NameServers(const std::string& line) {
    std::list<std::string> elements;
    const bool ended = conf_.GetNameServers(line.c_str(), &elements);
    std::string text;
    for (const std::string& element : elements) text += "[" + element + "]";
    return text + (ended ? " true" : " false");
  }

  std::string FromString(const std::string& line, const std::string& separator) {
    std::string out = "before";
    conf_.GetValueFromString(line, separator, out);
    return out;
  }

  File conf_;
};

// ---- Numbers ----

TEST_F(Dhcpv6VocabularyTest, NumbersAreFixed) {
  const struct {
    int enumerator;
    int number;
  } cases[] = {
      {Dhcpv6Section::SECTION_GLOBAL, 0},
      {Dhcpv6Section::SECTION_SHARED_NETWORK, 1},
      {Dhcpv6Section::SECTION_SUBNET, 2},
      {Dhcpv6Section::SECTION_HOST, 3},
      {Dhcpv6Section::SECTION_IF, 4},

      {Dhcpv6Section::PARAM6_RAW, -1},
      {Dhcpv6Section::PARAM6_NAME, 0},
      {Dhcpv6Section::PARAM6_NAME_SERVERS, 1},
      {Dhcpv6Section::PARAM6_SNTP_SERVERS, 2},
      {Dhcpv6Section::PARAM6_DENY_UNKNOWN_CLIENTS, 3},
      {Dhcpv6Section::PARAM6_ALLOW_UNKNOWN_CLIENTS, 4},
      {Dhcpv6Section::PARAM6_RANGE, 5},
      {Dhcpv6Section::PARAM6_DEFAULT_LEASE_TIME, 6},
      {Dhcpv6Section::PARAM6_MAX_LEASE_TIME, 7},
      {Dhcpv6Section::PARAM6_NEXT_SERVER, 8},
      {Dhcpv6Section::PARAM6_HARDWARE_ETHERNET, 10},
      {Dhcpv6Section::PARAM6_FIXED_ADDRESS, 11},
      {Dhcpv6Section::PARAM6_FILENAME, 12},
      {Dhcpv6Section::PARAM6_FQDN, 13},
      {Dhcpv6Section::PARAM6_SERVER_NAME, 14},
      {Dhcpv6Section::PARAM6_AUTHORITATIVE, 15},
      {Dhcpv6Section::PARAM6_IP_LINE, 16},
      {Dhcpv6Section::PARAM6_PING_CHECK, 17},
      {Dhcpv6Section::PARAM6_PING_TIMEOUT, 18},
  };
  for (const auto& row : cases) EXPECT_EQ(row.enumerator, row.number);
}

TEST_F(Dhcpv6VocabularyTest, NewRecordIsAHostWithoutParameters) {
  EXPECT_EQ(RecordText(Dhcpv6Section()), "3");
}

// ---- Every statement ----

const struct {
  const char* line;
  int type;
  const char* value;    // as the line is read
  const char* written;  // the value that writes the line
} kStatements[] = {
    // the keyword's second word is read as a server
    {"option dhcp6.name-servers 2001:db8::1, 2001:db8::2;", 1,
     "dhcp6.name-servers, 2001:db8::1, 2001:db8::2", "2001:db8::1, 2001:db8::2"},
    {"option dhcp6.sntp-servers 2001:db8::3;", 2, "dhcp6.sntp-servers, 2001:db8::3", "2001:db8::3"},
    {"deny unknown-clients;", 3, "exist", "exist"},
    {"allow unknown-clients;", 4, "exist", "exist"},
    {"range6 2001:db8::100 2001:db8::200;", 5, "2001:db8::100 2001:db8::200",
     "2001:db8::100 2001:db8::200"},
    {"default-lease-time 600;", 6, "600", "600"},
    {"max-lease-time 7200;", 7, "7200", "7200"},
    {"next-server 2001:db8::5;", 8, "2001:db8::5", "2001:db8::5"},
    {"hardware ethernet 00:11:22:33:44:55;", 10, "00:11:22:33:44:55", "00:11:22:33:44:55"},
    {"fixed-address6 2001:db8::17;", 11, "2001:db8::17", "2001:db8::17"},
    {"filename \"pxelinux.0\";", 12, "pxelinux.0", "pxelinux.0"},
    {"option dhcp6.fqdn \"pc1.office.lan\";", 13, "pc1.office.lan", "pc1.office.lan"},
    {"server-name \"boot\";", 14, "boot", "boot"},
    {"authoritative;", 15, "exist", "exist"},
    {"IPLine 2001:db8::1;", 16, "IPLine 2001:db8::1", "IPLine 2001:db8::1"},
    {"ping-check true;", 17, "true", "true"},
    {"ping-timeout 2;", 18, "2", "2"},
};

TEST_F(Dhcpv6VocabularyTest, EveryTypeButTheReservedOneHasItsStatement) {
  std::set<int> types;
  for (const auto& row : kStatements) types.insert(row.type);
  EXPECT_EQ(types, (std::set<int>{1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12, 13, 14, 15, 16, 17, 18}));
}

TEST_F(Dhcpv6VocabularyTest, EveryStatementIsRecognised) {
  for (const auto& row : kStatements) EXPECT_EQ(Dhcpv6Section::GetStringType(row.line), row.type);
}

TEST_F(Dhcpv6VocabularyTest, EveryStatementIsRead) {
  for (const auto& row : kStatements) {
    const std::string param = std::to_string(row.type) + "=" + row.value;
    EXPECT_EQ(Read("host pc", {row.line}), "3 | 0=pc | " + param);
    EXPECT_EQ(Read("host pc", {"#" + std::string(row.line)}), "3 | 0=pc | #" + param);
  }
}

TEST_F(Dhcpv6VocabularyTest, EveryStatementIsWritten) {
  for (const auto& row : kStatements) {
    const std::string param = std::to_string(row.type) + "=" + row.line;
    EXPECT_EQ(Written(3, {{false, row.type, row.written}}), "3 | " + param);
    EXPECT_EQ(Written(3, {{true, row.type, row.written}}), "3 | #" + param);
  }
}

TEST_F(Dhcpv6VocabularyTest, EveryStatementOfAFileReachesTheRecord) {
  std::string text = "host pc {\n";
  std::string expected = "3 | 0=pc";
  for (const auto& row : kStatements) {
    text += "\t" + std::string(row.line) + "\n";
    expected += " | " + std::to_string(row.type) + "=" + row.value;
  }
  text += "}\n";
  for (const std::string& file : {text, WithCarriageReturns(text)}) {
    Given(file);
    Dhcpv6Section record;
    EXPECT_TRUE(Conf().TreeToDhcp(Node("host pc")->section, record, false));
    EXPECT_EQ(RecordText(record), expected);
  }
}

// ---- Which statement a line is ----

TEST_F(Dhcpv6VocabularyTest, KeywordsAreTriedInTheirOrder) {
  const struct {
    const char* keyword;
    int type;
  } order[] = {
      {"hardware ethernet", 10},
      {"fixed-address6", 11},
      {"next-server", 8},
      {"filename", 12},
      {"option dhcp6.fqdn", 13},
      {"server-name", 14},
      {"deny unknown-clients", 3},
      {"allow unknown-clients", 4},
      {"option dhcp6.name-servers", 1},
      {"option dhcp6.sntp-servers", 2},
      {"range6", 5},
      {"authoritative", 15},
      {"default-lease-time", 6},
      {"max-lease-time", 7},
      {"ping-check", 17},
      {"ping-timeout", 18},
      {"IPLine", 16},
      {"Special", 16},
  };
  for (auto first = std::begin(order); first != std::end(order); ++first) {
    for (auto second = first; second != std::end(order); ++second) {
      for (const std::string& line : {std::string(first->keyword) + " " + second->keyword + ";",
                                      std::string(second->keyword) + " " + first->keyword + ";"}) {
        EXPECT_EQ(Dhcpv6Section::GetStringType(line), first->type) << line;
      }
    }
  }
}

const struct {
  const char* promise;
  const char* line;
  int type;
} kClassified[] = {
    {"a host name", "option dhcp6.fqdn \"pc1.office.lan\";", 13},
    {"a DHCPv4 address is unknown", "fixed-address 2001:db8::5;", -1},
    {"a DHCPv4 range is unknown", "range 10.0.0.10 10.0.0.20;", -1},
    {"an unknown statement", "ddns-updates on;", -1},
    {"an unknown statement without semicolon", "ddns-updates on", -1},
    {"a whole line", "IPLine 2001:db8::1;", 16},
    {"a whole line by the other word", "# Special;", 16},
    {"a whole line needs its semicolon", "IPLine", -1},
    {"a whole line by the other word needs it, too", "Special", -1},
    {"a remark that holds a keyword", "# range6 reserved for guests", 5},
    {"an empty line", "", -1},
    {"a keyword behind other words", "not authoritative;", 15},
    {"a keyword at the end of a longer word", "option tftp-server-name \"boot\";", 14},
    {"letter case counts", "Range6 2001:db8::1;", -1},
    {"spacing counts", "option  dhcp6.fqdn \"pc\";", -1},
    {"an option of another number", "option dhcp6.domain-search \"a\";", -1},
    // what only DHCPv4 has
    {"domain name", "option domain-name \"office.lan\";", -1},
    {"domain name servers", "option domain-name-servers 10.0.0.1;", -1},
    {"NetBIOS name servers", "option netbios-name-servers 10.0.0.1;", -1},
    {"NTP servers", "option ntp-servers 10.0.0.1;", -1},
    {"routers", "option routers 10.0.0.1;", -1},
    {"subnet mask", "option subnet-mask 255.0.0.0;", -1},
    {"broadcast address", "option broadcast-address 10.255.255.255;", -1},
    {"root path", "option root-path \"/srv\";", -1},
    {"host name", "option host-name \"pc\";", -1},
    {"boot file", "option bootfile-name \"pxelinux.0\";", -1},
    {"client identifier", "option dhcp-client-identifier \"pc\";", -1},
    {"bootp", "allow bootp;", -1},
};

TEST_F(Dhcpv6VocabularyTest, LineIsClassifiedByTheFirstKeywordFoundInIt) {
  for (const auto& row : kClassified) {
    EXPECT_EQ(Dhcpv6Section::GetStringType(row.line), row.type) << row.promise << ": " << row.line;
  }
}

TEST_F(Dhcpv6VocabularyTest, EntryIsClassifiedByItsLineWhetherCommentedOrNot) {
  for (const auto& row : kClassified) {
    CfSectionEntry entry;
    entry.SetKeyName(row.line);
    EXPECT_EQ(conf_.GetEntryType(&entry), row.type) << row.promise;
    entry.SetComment("#");
    EXPECT_EQ(conf_.GetEntryType(&entry), row.type) << row.promise;
  }
}

TEST_F(Dhcpv6VocabularyTest, EntryWithoutLineOrNoEntryIsOfNoType) {
  CfSectionEntry entry;
  EXPECT_EQ(conf_.GetEntryType(&entry), -1);
  EXPECT_EQ(conf_.GetEntryType(nullptr), -1);
}

// ---- Reading ----

TEST_F(Dhcpv6VocabularyTest, OddLinesGiveOddValues) {
  const struct {
    const char* promise;
    const char* line;
    const char* param;
  } cases[] = {
      {"commas without blanks", "option dhcp6.name-servers 2001:db8::1,2001:db8::2;",
       "1=dhcp6.name-servers, 2001:db8::1, 2001:db8::2"},
      {"a server by name", "option dhcp6.sntp-servers time.office.lan;",
       "2=dhcp6.sntp-servers, time.office.lan"},
      {"a list without servers", "option dhcp6.name-servers;", "1=dhcp6.name-servers"},
      {"separators that repeat", "range6  2001:db8::1 ,  2001:db8::2 ;",
       "5=2001:db8::1 2001:db8::2"},
      {"a range by prefix", "range6 2001:db8::/64;", "5=2001:db8::/64"},
      {"a range without blank", "range6;", "5=wrong value"},
      {"a range without addresses", "range6 ;", "5=wrong value"},
      {"a range of separators alone", "range6 , ,;", "5=wrong value"},
      {"a range whose blank is a tab", "range6\t2001:db8::1;", "5=wrong value"},
      {"a remark's words are addresses", "range6 reserved for guests", "5=reserved for guests"},
      {"a range in a one-line block", "pool6 { range6 2001:db8::1 2001:db8::2; }",
       "5={ range6 2001:db8::1 2001:db8::2"},
      {"of several addresses the last", "fixed-address6 2001:db8::5, 2001:db8::6;",
       "11=2001:db8::6"},
      {"a blank before the semicolon", "max-lease-time 7200 ;", "7="},
      {"a host name with blanks", "option dhcp6.fqdn \"my pc\";", "13=c"},
      {"a host name of nothing", "option dhcp6.fqdn \"\";", "13="},
      {"an option without argument", "option dhcp6.fqdn;", "13=hcp6.fqd"},
      {"an address without argument", "fixed-address6;", "11=pc"},
      {"the other word of a whole line", "the Special;", "16=the Special"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(Read("host pc", {row.line}), std::string("3 | 0=pc | ") + row.param) << row.promise;
  }
}

TEST_F(Dhcpv6VocabularyTest, HostWithAddressesIsRead) {
  EXPECT_EQ(Read("host pc1", {"option dhcp6.fqdn \"pc1.office.lan\";", "fixed-address 2001:db8::4;",
                              "#fixed-address6 2001:db8::5;"}),
            "3 | 0=pc1 | 13=pc1.office.lan | #11=2001:db8::5");
}

TEST_F(Dhcpv6VocabularyTest, SubnetNameIsThePrefixAsItStands) {
  const struct {
    const char* promise;
    const char* header;
    const char* record;
  } cases[] = {
      {"a prefix", "subnet6 2001:db8:0:1::/64", "2 | 0=2001:db8:0:1::/64"},
      {"all behind the first blank", "subnet6 2001:db8::/64 netmask x",
       "2 | 0=2001:db8::/64 netmask x"},
      {"netmask at the first blank", "subnet6 netmask x", "2 | 0=netmask x"},
      {"words before the keyword", "my subnet6 2001:db8::/64", "2 | 0=subnet6 2001:db8::/64"},
      {"nothing behind the keyword", "subnet6 ", "2 | 0="},
      {"a DHCPv4 subnet is none", "subnet 10.0.0.0 netmask 255.0.0.0",
       "0 | 0=subnet 10.0.0.0 netmask 255.0.0.0"},
  };
  for (const auto& row : cases) EXPECT_EQ(Read(row.header, {}), row.record) << row.promise;
}

TEST_F(Dhcpv6VocabularyTest, ListInALongLineFollowsItsLengthInSixteenBits) {
  const std::string addresses = "range6 2001::10 2001::20 2001::30";
  const auto Line = [&](std::size_t length) {
    return addresses + std::string(length - addresses.size() - 1, ' ') + ";";
  };
  const struct {
    std::size_t length;
    const char* value;
  } cases[] = {
      {32767, "2001::10 2001::20 2001::30"},
      {32768, "wrong value"},
      {65535, "wrong value"},
      {65536, "wrong value"},
      // the first blank is looked for in the first 10 characters; from it on, 4 are left
      {65546, "2001::10"},
      {70000, "2001::10 2001::20 2001::30"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(Read("host pc", {Line(row.length)}), std::string("3 | 0=pc | 5=") + row.value)
        << row.length;
  }
}

// ---- Writing ----

TEST_F(Dhcpv6VocabularyTest, SubnetWithRangeIsWritten) {
  EXPECT_EQ(
      Written(2, {{false, 0, "2001:db8:1::/64"}, {false, 5, "2001:db8:1::100 2001:db8:1::200"}}),
      "2 | 0=subnet6 2001:db8:1::/64 | 5=range6 2001:db8:1::100 2001:db8:1::200;");
}

TEST_F(Dhcpv6VocabularyTest, SubnetNameIsWrittenAsItStands) {
  EXPECT_EQ(Written(2, {{false, 0, "office"}}), "2 | 0=subnet6 office");
  EXPECT_EQ(Written(2, {{false, 0, "a:b:c"}}), "2 | 0=subnet6 a:b:c");
  EXPECT_EQ(Written(2, {{false, 0, "10.0.0.0 netmask 255.0.0.0"}}),
            "2 | 0=subnet6 10.0.0.0 netmask 255.0.0.0");
}

TEST_F(Dhcpv6VocabularyTest, HostWithAddressAndHostNameIsWritten) {
  EXPECT_EQ(Written(3, {{false, 0, "h1"}, {false, 11, "2001:db8::5"}, {false, 13, "h1"}}),
            "3 | 0=host h1 | 11=fixed-address6 2001:db8::5; | 13=option dhcp6.fqdn \"h1\";");
}

TEST_F(Dhcpv6VocabularyTest, ReservedRawAndHigherTypesAreNotWritten) {
  EXPECT_EQ(Written(3, {{false, 9, "x"},
                        {false, -1, "max-lease-time 60;"},
                        {false, 19, "x"},
                        {false, 20, "pc"},
                        {false, 28, "2"}}),
            "3");
}

TEST_F(Dhcpv6VocabularyTest, AuthoritativeIsWrittenForAnyValueButTheEmptyOne) {
  EXPECT_EQ(Written(3, {{false, 15, "1"}}), "3 | 15=authoritative;");
  EXPECT_EQ(Written(3, {{false, 15, ""}}), "3");
}

TEST_F(Dhcpv6VocabularyTest, ServersThatWereReadAreWrittenWithTheKeywordsWord) {
  EXPECT_EQ(Written(3, {{false, 1, "dhcp6.name-servers, 2001:db8::1"}}),
            "3 | 1=option dhcp6.name-servers dhcp6.name-servers, 2001:db8::1;");
}

TEST_F(Dhcpv6VocabularyTest, OnlyARecordWithoutParametersFails) {
  EXPECT_EQ(Written(2, {}), "failed");
  EXPECT_EQ(Written(2, {{false, 0, ""}}), "2");
  EXPECT_EQ(Written(2, {{false, 9, "x"}}), "2");
}

// ---- Cutting lines ----

TEST_F(Dhcpv6VocabularyTest, EntryFromListIsTheFirstThatHoldsTheText) {
  const CfSection block =
      Block("host pc", {"max-lease-time 60;", "#range6 2001:db8::/64;", "range6 2001:db8:1::/64;"});
  const std::vector<CfSectionEntry*>& list = block.entryList;
  const std::vector<CfSectionEntry*> none;
  EXPECT_EQ(conf_.GetEntryFromList(&list, "range6"), list[1]);
  EXPECT_EQ(conf_.GetEntryFromList(&list, "db8:1"), list[2]);
  EXPECT_EQ(conf_.GetEntryFromList(&list, "Range6"), nullptr);
  EXPECT_EQ(conf_.GetEntryFromList(&none, "range6"), nullptr);
}

TEST_F(Dhcpv6VocabularyTest, ValueFromBufferIsCopiedWithoutNul) {
  char buffer[] = "################";
  EXPECT_EQ(conf_.GetValueFromBuffer("2001:db8::/64 x", " ", buffer), buffer);
  EXPECT_STREQ(buffer, "2001:db8::/64###");
}

TEST_F(Dhcpv6VocabularyTest, ValueFromStringFollowsTheSeparator) {
  EXPECT_EQ(FromString("subnet6 2001:db8::/64", " "), "2001:db8::/64");
  EXPECT_EQ(FromString("fixed-address6 2001:db8::5;", ";"), "2001:db8::5");
  EXPECT_EQ(FromString("host a { fixed-address6 2001:db8::5; }", ";"), "}");
  EXPECT_EQ(FromString("authoritative;", ";"), "before");
  EXPECT_EQ(FromString("host", " "), "before");
  EXPECT_EQ(FromString("fixed-address6 2001:db8::5;", ":"), "before");
}

TEST_F(Dhcpv6VocabularyTest, FirstDigitPointsIntoTheText) {
  const char* const text = "range6 2001:db8::1;";
  EXPECT_EQ(conf_.GetFirstDigit(text), text + 5);
  EXPECT_EQ(conf_.GetFirstDigit(text + 6), text + 7);
}

TEST_F(Dhcpv6VocabularyTest, FirstCharIsTheGivenOneOrTheFirstLetter) {
  const struct {
    const char* text;
    const char* stopChar;
    std::ptrdiff_t found;
  } cases[] = {
      {"a,b", ",", 1},
      {"a,b", ",b", 1},
      {"a,b", "bc", 2},
      {"a,b", ";", 3},
      {",,", ",", 0},
      {"", ",", 0},
      // an empty text holds no character that could be found
      {"a,b", "", 3},
      {"12ab", nullptr, 2},
      {"  10 host", nullptr, 5},
      {"12", nullptr, 2},
      {"", nullptr, 0},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(conf_.GetFirstChar(row.text, row.stopChar) - row.text, row.found) << row.text;
  }
}

TEST_F(Dhcpv6VocabularyTest, FirstDigitAndFirstCharCountWithSixteenBits) {
  const struct {
    std::size_t length;
    std::ptrdiff_t found;  // of a match at 20
  } cases[] = {{32767, 20}, {32768, 0}, {65535, 0}, {65536, 0}, {65546, 10}, {70000, 20}};
  for (const auto& row : cases) {
    std::string text(row.length, '-');
    text[20] = '7';
    EXPECT_EQ(conf_.GetFirstDigit(text.c_str()) - text.c_str(), row.found) << row.length;
    text[20] = ',';
    EXPECT_EQ(conf_.GetFirstChar(text.c_str(), ",") - text.c_str(), row.found) << row.length;
    text[20] = 'x';
    EXPECT_EQ(conf_.GetFirstChar(text.c_str(), nullptr) - text.c_str(), row.found) << row.length;
  }
}

TEST_F(Dhcpv6VocabularyTest, NameServersStartAtTheFirstBlank) {
  const struct {
    const char* line;
    const char* elements;
  } cases[] = {
      {"option dhcp6.name-servers 2001:db8::1, 2001:db8::2;",
       "[dhcp6.name-servers][2001:db8::1][2001:db8::2] true"},
      {"range6 2001:db8::100 2001:db8::200;", "[2001:db8::100][2001:db8::200] true"},
      {"range6 2001:db8::1 2001:db8::2", "[2001:db8::1][2001:db8::2] false"},
      {"2001:db8::1, 2001:db8::2;", "[2001:db8::2] true"},
      {"range6;", " false"},
      {"range6 ;", " true"},
      {"range6 ", " false"},
      {"", " false"},
  };
  for (const auto& row : cases) EXPECT_EQ(NameServers(row.line), row.elements) << row.line;
}

TEST_F(Dhcpv6VocabularyTest, NullArgumentsOnlyFail) {
  const CfSection block = Block("host pc", {"max-lease-time 60;"});
  EXPECT_EQ(conf_.GetEntryFromList(nullptr, "range6"), nullptr);
  EXPECT_EQ(conf_.GetEntryFromList(&block.entryList, nullptr), nullptr);

  char buffer[] = "####";
  EXPECT_EQ(conf_.GetValueFromBuffer(nullptr, " ", buffer), buffer);
  EXPECT_EQ(conf_.GetValueFromBuffer("ab", nullptr, buffer), buffer);
  EXPECT_EQ(conf_.GetValueFromBuffer("ab", " ", nullptr), nullptr);
  EXPECT_STREQ(buffer, "####");

  EXPECT_EQ(conf_.GetFirstDigit(nullptr), nullptr);
  EXPECT_EQ(conf_.GetFirstChar(nullptr, ","), nullptr);
  EXPECT_EQ(conf_.GetFirstChar(nullptr, nullptr), nullptr);

  std::list<std::string> servers;
  EXPECT_FALSE(conf_.GetNameServers(nullptr, &servers));
  EXPECT_FALSE(conf_.GetNameServers("range6 2001:db8::1;", nullptr));
  EXPECT_TRUE(servers.empty());
}

}  // namespace
}  // namespace klepur::test
