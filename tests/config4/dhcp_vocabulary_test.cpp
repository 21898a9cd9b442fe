#include <klepur/config4/dhcp_vocabulary.h>

#include <gtest/gtest.h>

#include <set>

#include "tests/support/blocks.h"
#include "tests/support/config_fixture.h"

namespace klepur::test {
namespace {

using DhcpSection = DhcpConfigFile::DhcpSection;

class DhcpVocabularyTest : public ConfigFixture<V4> {
 protected:
  /// The record of a block, see RecordText.
  std::string Read(const std::string& header, std::initializer_list<std::string> lines,
                   bool rawEntries = false) {
    DhcpSection record;
    EXPECT_TRUE(conf_.TreeToDhcp(Block(header, lines), record, rawEntries));
    return RecordText(record);
  }

  /// The tree form of a record, see RecordText; "failed" when there is none.
  std::string Written(int kind, std::initializer_list<DhcpSection::SectionParam> params) {
    DhcpSection in;
    DhcpSection out;
    in.type = EitherKind{kind};
    in.params = params;
    return conf_.DhcpToTree(in, out) ? RecordText(out) : "failed";
  }

  /// The elements in brackets, then the result: "[10.0.0.1][10.0.0.2] true".
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

TEST_F(DhcpVocabularyTest, NumbersAreFixed) {
  const struct {
    int enumerator;
    int number;
  } cases[] = {
      {DhcpSection::SECTION_GLOBAL, 0},
      {DhcpSection::SECTION_SHARED_NETWORK, 1},
      {DhcpSection::SECTION_SUBNET, 2},
      {DhcpSection::SECTION_HOST, 3},
      {DhcpSection::SECTION_IF, 4},

      {DhcpSection::PARAM_RAW, -1},
      {DhcpSection::PARAM_NAME, 0},
      {DhcpSection::PARAM_DOMAIN_NAME, 1},
      {DhcpSection::PARAM_DOMAIN_NAME_SERVERS, 2},
      {DhcpSection::PARAM_NETBIOS_NAME_SERVERS, 3},
      {DhcpSection::PARAM_NTP_SERVERS, 4},
      {DhcpSection::PARAM_ALLOW_BOOTP, 5},
      {DhcpSection::PARAM_DENY_UNKNOWN_CLIENTS, 6},
      {DhcpSection::PARAM_ALLOW_UNKNOWN_CLIENTS, 7},
      {DhcpSection::PARAM_RANGE, 8},
      {DhcpSection::PARAM_DEFAULT_LEASE_TIME, 9},
      {DhcpSection::PARAM_MAX_LEASE_TIME, 10},
      {DhcpSection::PARAM_NEXT_SERVER, 11},
      {DhcpSection::PARAM_ROUTERS, 12},
      {DhcpSection::PARAM_SUBNET_MASK, 14},
      {DhcpSection::PARAM_BROADCAST_ADDRESS, 15},
      {DhcpSection::PARAM_HARDWARE_ETHERNET, 16},
      {DhcpSection::PARAM_FIXED_ADDRESS, 17},
      {DhcpSection::PARAM_FILENAME, 18},
      {DhcpSection::PARAM_ROOT_PATH, 19},
      {DhcpSection::PARAM_HOST_NAME, 20},
      {DhcpSection::PARAM_BOOTFILE_NAME, 21},
      {DhcpSection::PARAM_SERVER_NAME, 22},
      {DhcpSection::PARAM_TFTP_SERVER_NAME, 23},
      {DhcpSection::PARAM_AUTHORITATIVE, 24},
      {DhcpSection::PARAM_CLIENT_IDENTIFIER, 25},
      {DhcpSection::PARAM_IP_LINE, 26},
      {DhcpSection::PARAM_PING_CHECK, 27},
      {DhcpSection::PARAM_PING_TIMEOUT, 28},
  };
  for (const auto& row : cases) EXPECT_EQ(row.enumerator, row.number);
}

TEST_F(DhcpVocabularyTest, NewRecordIsAHostWithoutParameters) {
  EXPECT_EQ(RecordText(DhcpSection()), "3");
}

// ---- Every statement ----

const struct {
  const char* line;
  int type;
  const char* value;
} kStatements[] = {
    {"option domain-name \"office.lan\";", 1, "office.lan"},
    {"option domain-name-servers 10.0.0.1, 10.0.0.2;", 2, "10.0.0.1, 10.0.0.2"},
    {"option netbios-name-servers 10.0.0.3, 10.0.0.4;", 3, "10.0.0.3, 10.0.0.4"},
    {"option ntp-servers 10.1.1.1, 10.1.1.2;", 4, "10.1.1.1, 10.1.1.2"},
    {"allow bootp;", 5, "exist"},
    {"deny unknown-clients;", 6, "exist"},
    {"allow unknown-clients;", 7, "exist"},
    {"range 10.0.0.10 10.0.0.20;", 8, "10.0.0.10 10.0.0.20"},
    {"default-lease-time 600;", 9, "600"},
    {"max-lease-time 7200;", 10, "7200"},
    {"next-server 10.0.0.5;", 11, "10.0.0.5"},
    {"option routers 10.0.0.1;", 12, "10.0.0.1"},
    {"option subnet-mask 255.255.255.0;", 14, "255.255.255.0"},
    {"option broadcast-address 10.0.0.255;", 15, "10.0.0.255"},
    {"hardware ethernet 00:11:22:33:44:55;", 16, "00:11:22:33:44:55"},
    {"fixed-address 10.0.0.17;", 17, "10.0.0.17"},
    {"filename \"pxelinux.0\";", 18, "pxelinux.0"},
    {"option root-path \"/srv/root\";", 19, "/srv/root"},
    {"option host-name \"pc-17\";", 20, "pc-17"},
    {"option bootfile-name \"pxelinux.0\";", 21, "pxelinux.0"},
    {"server-name \"boot\";", 22, "boot"},
    {"option tftp-server-name \"boot\";", 23, "boot"},
    {"authoritative;", 24, "exist"},
    {"option dhcp-client-identifier \"pc-17\";", 25, "pc-17"},
    {"IPLine 10.0.0.1;", 26, "IPLine 10.0.0.1"},
    {"ping-check true;", 27, "true"},
    {"ping-timeout 2;", 28, "2"},
};

TEST_F(DhcpVocabularyTest, EveryTypeButTheReservedOneHasItsStatement) {
  std::set<int> types;
  for (const auto& row : kStatements) types.insert(row.type);
  EXPECT_EQ(types, (std::set<int>{1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 14, 15,
                                  16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28}));
}

TEST_F(DhcpVocabularyTest, EveryStatementIsRecognised) {
  for (const auto& row : kStatements) EXPECT_EQ(DhcpSection::GetStringType(row.line), row.type);
}

TEST_F(DhcpVocabularyTest, EveryStatementIsRead) {
  for (const auto& row : kStatements) {
    const std::string param = std::to_string(row.type) + "=" + row.value;
    EXPECT_EQ(Read("host pc", {row.line}), "3 | 0=pc | " + param);
    EXPECT_EQ(Read("host pc", {"#" + std::string(row.line)}), "3 | 0=pc | #" + param);
  }
}

TEST_F(DhcpVocabularyTest, EveryStatementIsWritten) {
  for (const auto& row : kStatements) {
    const std::string param = std::to_string(row.type) + "=" + row.line;
    EXPECT_EQ(Written(3, {{false, row.type, row.value}}), "3 | " + param);
    EXPECT_EQ(Written(3, {{true, row.type, row.value}}), "3 | #" + param);
  }
}

TEST_F(DhcpVocabularyTest, EveryStatementOfAFileReachesTheRecord) {
  std::string text = "host pc {\n";
  std::string expected = "3 | 0=pc";
  for (const auto& row : kStatements) {
    text += "\t" + std::string(row.line) + "\n";
    expected += " | " + std::to_string(row.type) + "=" + row.value;
  }
  text += "}\n";
  for (const std::string& file : {text, WithCarriageReturns(text)}) {
    Given(file);
    DhcpSection record;
    EXPECT_TRUE(Conf().TreeToDhcp(Node("host pc")->section, record, false));
    EXPECT_EQ(RecordText(record), expected);
  }
}

// ---- Which statement a line is ----

TEST_F(DhcpVocabularyTest, KeywordsAreTriedInTheirOrder) {
  const struct {
    const char* keyword;
    int type;
  } order[] = {
      {"hardware ethernet", 16},
      {"fixed-address", 17},
      {"next-server", 11},
      {"filename", 18},
      {"option root-path", 19},
      {"option host-name", 20},
      {"option bootfile-name", 21},
      {"option tftp-server-name", 23},
      {"server-name", 22},
      {"allow bootp", 5},
      {"deny unknown-clients", 6},
      {"allow unknown-clients", 7},
      {"option domain-name-servers", 2},
      {"option domain-name", 1},
      {"option netbios-name-servers", 3},
      {"option ntp-servers", 4},
      {"range", 8},
      {"authoritative", 24},
      {"option subnet-mask", 14},
      {"option broadcast-address", 15},
      {"option routers", 12},
      {"default-lease-time", 9},
      {"max-lease-time", 10},
      {"option dhcp-client-identifier", 25},
      {"ping-check", 27},
      {"ping-timeout", 28},
      {"IPLine", 26},
      {"Special", 26},
  };
  for (auto first = std::begin(order); first != std::end(order); ++first) {
    for (auto second = first; second != std::end(order); ++second) {
      for (const std::string& line : {std::string(first->keyword) + " " + second->keyword + ";",
                                      std::string(second->keyword) + " " + first->keyword + ";"}) {
        EXPECT_EQ(DhcpSection::GetStringType(line), first->type) << line;
      }
    }
  }
}

const struct {
  const char* promise;
  const char* line;
  int type;
} kClassified[] = {
    {"a list of domain name servers is no domain name",
     "option domain-name-servers 10.0.0.1, 10.0.0.2;", 2},
    {"a tftp server's name is no server name", "option tftp-server-name \"boot\";", 23},
    {"a server name is one", "server-name \"boot\";", 22},
    {"a boot file's name is no filename", "option bootfile-name \"pxelinux.0\";", 21},
    {"an unknown statement", "ddns-updates on;", -1},
    {"an unknown statement without semicolon", "ddns-updates on", -1},
    {"a whole line", "IPLine 10.0.0.1;", 26},
    {"a whole line by the other word", "# Special;", 26},
    {"a whole line needs its semicolon", "IPLine", -1},
    {"a whole line by the other word needs it, too", "Special 10.0.0.1", -1},
    {"a remark that holds a keyword", "# range reserved for guests", 8},
    {"an empty line", "", -1},

    {"a keyword behind other words", "not authoritative;", 24},
    {"a keyword within a word", "option routers orange.lan;", 8},
    {"an earlier keyword comes before one within a word", "option host-name \"orange\";", 20},
    {"a keyword in a quoted text", "option domain-search \"authoritative\";", 24},
    {"a keyword without semicolon", "max-lease-time", 10},
    {"a one-line block is its first statement by order, not by place",
     "host a { fixed-address 10.0.0.5; hardware ethernet 0:1:2:3:4:5; }", 16},
    {"a DHCPv6 address holds the DHCPv4 keyword", "fixed-address6 2001:db8::5;", 17},
    {"a DHCPv6 range holds the DHCPv4 keyword", "range6 2001:db8::1 2001:db8::2;", 8},
    {"a DHCPv6 host name is unknown", "option dhcp6.fqdn \"pc\";", -1},
    {"letter case counts", "Hardware Ethernet 0:1:2:3:4:5;", -1},
    {"letter case counts in a whole line", "ipline special;", -1},
    {"spacing counts", "option  routers 10.0.0.1;", -1},
    {"a tab is no blank", "option\trouters 10.0.0.1;", -1},
    {"half a keyword", "option domain;", -1},
    {"another lease time", "min-lease-time 60;", -1},
    {"a semicolon alone", ";", -1},
};

TEST_F(DhcpVocabularyTest, LineIsClassifiedByTheFirstKeywordFoundInIt) {
  for (const auto& row : kClassified) {
    EXPECT_EQ(DhcpSection::GetStringType(row.line), row.type) << row.promise << ": " << row.line;
  }
}

TEST_F(DhcpVocabularyTest, EntryIsClassifiedByItsLineWhetherCommentedOrNot) {
  for (const auto& row : kClassified) {
    CfSectionEntry entry;
    entry.SetKeyName(row.line);
    EXPECT_EQ(conf_.GetEntryType(&entry), row.type) << row.promise;
    entry.SetComment("#");
    EXPECT_EQ(conf_.GetEntryType(&entry), row.type) << row.promise;
    EXPECT_STREQ(entry.GetKeyName(), row.line);
  }
}

TEST_F(DhcpVocabularyTest, EntryWithoutLineOrNoEntryIsOfNoType) {
  CfSectionEntry entry;
  EXPECT_EQ(conf_.GetEntryType(&entry), -1);
  EXPECT_EQ(conf_.GetEntryType(nullptr), -1);
}

// ---- Reading ----

TEST_F(DhcpVocabularyTest, OddLinesGiveOddValues) {
  const struct {
    const char* promise;
    const char* line;
    const char* param;
  } cases[] = {
      {"commas without blanks", "option ntp-servers 10.1.1.1,10.1.1.2;", "4=10.1.1.1, 10.1.1.2"},
      {"separators that repeat", "range 10.0.0.10 ,  10.0.0.20 ;", "8=10.0.0.10 10.0.0.20"},
      {"one address", "range 10.0.0.10;", "8=10.0.0.10"},
      {"words before the first digit are skipped", "range dynamic-bootp 10.0.0.10 10.0.0.20;",
       "8=10.0.0.10 10.0.0.20"},
      {"a server by name leaves a fragment", "option domain-name-servers dns1.office.lan;",
       "2=1.office.lan"},
      {"a list without digits", "option ntp-servers time.office.lan;", "4=wrong value"},
      {"a list without elements", "option netbios-name-servers;", "3=wrong value"},
      {"a range without addresses", "range reserved for guests", "8=wrong value"},
      {"a list without semicolon", "option domain-name-servers 10.0.0.1, 10.0.0.2",
       "2=10.0.0.1, 10.0.0.2"},
      {"a list in a one-line block", "pool { range 10.0.0.10 10.0.0.20; }",
       "8=10.0.0.10 10.0.0.20"},
      {"a DHCPv6 range", "range6 2001:db8::1 2001:db8::2;", "8=6 2001:db8::1 2001:db8::2"},
      {"of several routers the last", "option routers 10.0.0.1, 10.0.0.2;", "12=10.0.0.2"},
      {"of several addresses the last", "fixed-address 10.0.0.5, 10.0.0.6;", "17=10.0.0.6"},
      {"a blank before the semicolon", "max-lease-time 7200 ;", "10="},
      {"a quoted text with blanks", "option domain-name \"a b\";", "1="},
      {"a quoted path with blanks", "option root-path \"/srv/the root\";", "19=oot"},
      {"an identifier without quotes", "option dhcp-client-identifier 1:0:11:22;", "25=:0:11:2"},
      {"a negated flag", "not authoritative;", "24=exist"},
      {"the other word of a whole line", "the Special;", "26=the Special"},
      {"a whole line with more behind its semicolon", "IPLine 10.0.0.1; x", "26=IPLine 10.0.0.1; "},
      {"an option without argument", "option host-name;", "20=ost-nam"},
      {"an address without argument", "fixed-address;", "17=pc"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(Read("host pc", {row.line}), std::string("3 | 0=pc | ") + row.param) << row.promise;
  }
}

TEST_F(DhcpVocabularyTest, HostWithAddressesIsRead) {
  EXPECT_EQ(
      Read("host pc-17", {"hardware ethernet 00:11:22:33:44:55;", "fixed-address 10.0.0.17;"}),
      "3 | 0=pc-17 | 16=00:11:22:33:44:55 | 17=10.0.0.17");
}

TEST_F(DhcpVocabularyTest, HostIsReadRaw) {
  EXPECT_EQ(Read("host pc-17", {"hardware ethernet 00:11:22:33:44:55;", "fixed-address 10.0.0.17;"},
                 true),
            "3 | 0=pc-17 | -1=hardware ethernet 00:11:22:33:44:55; | -1=fixed-address 10.0.0.17;");
}

TEST_F(DhcpVocabularyTest, SecondRoutersStatementReplacesTheFirst) {
  EXPECT_EQ(Read("subnet 10.0.0.0 netmask 255.0.0.0",
                 {"option routers 10.0.0.1;", "max-lease-time 60;", "option routers 10.0.0.2;"}),
            "2 | 0=10.0.0.0:255.0.0.0 | 12=10.0.0.2 | 10=60");
}

TEST_F(DhcpVocabularyTest, CommentedOutRoutersAreMarked) {
  EXPECT_EQ(Read("subnet 10.0.0.0 netmask 255.0.0.0", {"#option routers 10.0.0.1;"}),
            "2 | 0=10.0.0.0:255.0.0.0 | #12=10.0.0.1");
}

TEST_F(DhcpVocabularyTest, AuthoritativeIsReadOfAStatementAndOfARemark) {
  EXPECT_EQ(Read("TREE_ROOT_SECTION", {"authoritative;"}), "0 | 0=TREE_ROOT_SECTION | 24=exist");
  EXPECT_EQ(Read("TREE_ROOT_SECTION", {"# not authoritative here"}),
            "0 | 0=TREE_ROOT_SECTION | #24=exist");
}

TEST_F(DhcpVocabularyTest, RootGivesTheGlobalStatements) {
  EXPECT_EQ(Read("TREE_ROOT_SECTION", {"ddns-update-style none;", "option ntp-servers 10.1.1.1;",
                                       "default-lease-time 600;"}),
            "0 | 0=TREE_ROOT_SECTION | 4=10.1.1.1 | 9=600");
}

TEST_F(DhcpVocabularyTest, SubnetNameIsAddressColonMask) {
  const struct {
    const char* promise;
    const char* header;
    const char* record;
  } cases[] = {
      {"address and mask", "subnet 10.0.0.0 netmask 255.0.0.0", "2 | 0=10.0.0.0:255.0.0.0"},
      {"no netmask: the address runs to the end", "subnet 10.0.0.0", "2 | 0=10.0.0.0:10.0.0.0"},
      {"no netmask, two words", "subnet 10.0.0.0 x", "2 | 0=10.0.0.0 x:x"},
      {"the word netmask alone", "subnet 10.0.0.0 netmask", "2 | 0=10.0.0.0 netmask:netmask"},
      {"netmask at the first blank", "subnet netmask 255.0.0.0",
       "2 | 0=netmask 255.0.0.0:255.0.0.0"},
      {"the mask is the last word", "subnet 10.0.0.0 netmask 255.0.0.0 x", "2 | 0=10.0.0.0:x"},
      {"the first netmask ends the address", "subnet 1 netmask 2 netmask 3", "2 | 0=1:3"},
      {"blanks stay with the address", "subnet  10.0.0.0  netmask  255.0.0.0",
       "2 | 0= 10.0.0.0 :255.0.0.0"},
      {"words before the keyword", "my subnet 10.0.0.0 netmask 255.0.0.0",
       "2 | 0=subnet 10.0.0.0:255.0.0.0"},
      {"nothing behind the keyword", "subnet ", "2 | 0=:"},
      {"a DHCPv6 subnet is none", "subnet6 2001:db8::/64", "0 | 0=subnet6 2001:db8::/64"},
  };
  for (const auto& row : cases) EXPECT_EQ(Read(row.header, {}), row.record) << row.promise;
}

TEST_F(DhcpVocabularyTest, ListInALongLineFollowsItsLengthInSixteenBits) {
  const std::string addresses = "range 10.0.0.10 10.0.0.20 10.0.0.30";
  const auto Line = [&](std::size_t length) {
    return addresses + std::string(length - addresses.size() - 1, ' ') + ";";
  };
  const struct {
    std::size_t length;
    const char* value;
  } cases[] = {
      {32767, "10.0.0.10 10.0.0.20 10.0.0.30"},
      {32768, "wrong value"},
      {65535, "wrong value"},
      {65536, "wrong value"},
      // the first digit is looked for in the first 10 characters; of what follows, 4 are left
      {65546, "10.0.0.10"},
      {70000, "10.0.0.10 10.0.0.20 10.0.0.30"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(Read("host pc", {Line(row.length)}), std::string("3 | 0=pc | 8=") + row.value)
        << row.length;
  }
}

TEST_F(DhcpVocabularyTest, OtherValuesOfLongLinesAreReadWhole) {
  for (const std::size_t length : {32767U, 32768U, 65535U, 65536U, 70000U}) {
    const std::string value(length - 11, 'x');  // but for: filename "";
    EXPECT_EQ(Read("host pc", {"filename \"" + value + "\";"}), "3 | 0=pc | 18=" + value);
  }
}

// ---- Writing ----

TEST_F(DhcpVocabularyTest, SubnetWithRangeAndRoutersIsWritten) {
  EXPECT_EQ(Written(2, {{false, 0, "192.168.1.0:255.255.255.0"},
                        {false, 8, "192.168.1.10 192.168.1.20"},
                        {false, 12, "192.168.1.1"}}),
            "2 | 0=subnet 192.168.1.0 netmask 255.255.255.0 | "
            "8=range 192.168.1.10 192.168.1.20; | 12=option routers 192.168.1.1;");
}

TEST_F(DhcpVocabularyTest, HostWithAddressesAndHostNameIsWritten) {
  EXPECT_EQ(Written(3, {{false, 0, "pc1"},
                        {false, 16, "00:11:22:33:44:55"},
                        {false, 17, "10.0.0.5"},
                        {false, 20, "pc1"}}),
            "3 | 0=host pc1 | 16=hardware ethernet 00:11:22:33:44:55; | "
            "17=fixed-address 10.0.0.5; | 20=option host-name \"pc1\";");
}

TEST_F(DhcpVocabularyTest, SecondRangeStandsWhereTheFirstWasPut) {
  EXPECT_EQ(Written(3, {{false, 8, "A"}, {false, 9, "600"}, {false, 8, "B"}}),
            "3 | 8=range B; | 9=default-lease-time 600;");
}

TEST_F(DhcpVocabularyTest, AuthoritativeIsWrittenForAnyValueButTheEmptyOne) {
  EXPECT_EQ(Written(3, {{false, 24, ""}}), "3");
  EXPECT_EQ(Written(3, {{false, 24, "1"}}), "3 | 24=authoritative;");
}

TEST_F(DhcpVocabularyTest, ReservedAndRawTypesAreNotWritten) {
  EXPECT_EQ(Written(3, {{false, 13, "x"}, {false, -1, "max-lease-time 60;"}, {false, 29, "x"}}),
            "3");
}

TEST_F(DhcpVocabularyTest, DomainNameIsWrittenInQuotes) {
  EXPECT_EQ(Written(3, {{false, 1, "office"}}), "3 | 1=option domain-name \"office\";");
}

TEST_F(DhcpVocabularyTest, ListsAreWrittenAsTheyStand) {
  EXPECT_EQ(Written(3, {{false, 2, "10.0.0.1 10.0.0.2"},
                        {false, 12, "10.0.0.1, 10.0.0.2"},
                        {false, 4, "time.office.lan"}}),
            "3 | 2=option domain-name-servers 10.0.0.1 10.0.0.2; | "
            "12=option routers 10.0.0.1, 10.0.0.2; | 4=option ntp-servers time.office.lan;");
}

TEST_F(DhcpVocabularyTest, FirstColonOfASubnetNameBecomesNetmask) {
  const struct {
    const char* name;
    const char* written;
  } cases[] = {
      {"10.0.0.0:255.0.0.0", "2 | 0=subnet 10.0.0.0 netmask 255.0.0.0"},
      {"a:b:c", "2 | 0=subnet a netmask b:c"},
      {"10.0.0.0:", "2 | 0=subnet 10.0.0.0 netmask "},
      {":", "2 | 0=subnet  netmask "},
      {":255.0.0.0", "2 | 0=subnet  netmask 255.0.0.0"},
      // no colon
      {"192.168.1.0", "failed"},
      {"10.0.0.0 netmask 255.0.0.0", "failed"},
      {" ", "failed"},
  };
  for (const auto& row : cases) EXPECT_EQ(Written(2, {{false, 0, row.name}}), row.written);
}

TEST_F(DhcpVocabularyTest, SubnetNameWithoutColonFailsAndLeavesOnlyTheType) {
  DhcpSection in;
  in.type = DhcpSection::SECTION_SUBNET;
  in.params = {{false, 0, "192.168.1.0"}, {false, 10, "60"}};
  DhcpSection out;
  out.params = {{false, 9, "old"}};
  EXPECT_FALSE(conf_.DhcpToTree(in, out));
  EXPECT_EQ(RecordText(out), "2");
}

TEST_F(DhcpVocabularyTest, OtherNamesKeepTheirColons) {
  EXPECT_EQ(Written(1, {{false, 0, "a:b"}}), "1 | 0=shared-network a:b");
  EXPECT_EQ(Written(3, {{false, 0, "a:b"}}), "3 | 0=host a:b");
  EXPECT_EQ(Written(4, {{false, 0, "a:b"}}), "4 | 0=if a:b");
}

// ---- Cutting lines ----

TEST_F(DhcpVocabularyTest, EntryFromListIsTheFirstThatHoldsTheText) {
  const CfSection block =
      Block("host pc", {"max-lease-time 60;", "#range 10.0.0.1 10.0.0.2;", "range 10.0.0.3;"});
  const std::vector<CfSectionEntry*>& list = block.entryList;
  EXPECT_EQ(conf_.GetEntryFromList(&list, "range"), list[1]);
  EXPECT_EQ(conf_.GetEntryFromList(&list, "10.0.0.3"), list[2]);
  EXPECT_EQ(conf_.GetEntryFromList(&list, "lease-time"), list[0]);
  EXPECT_EQ(conf_.GetEntryFromList(&list, "max-lease-time 60;"), list[0]);
  EXPECT_EQ(conf_.GetEntryFromList(&list, ""), list[0]);
}

TEST_F(DhcpVocabularyTest, EntryFromListIsNullOnAMiss) {
  const CfSection block = Block("host pc", {"max-lease-time 60;"});
  const std::vector<CfSectionEntry*> none;
  EXPECT_EQ(conf_.GetEntryFromList(&block.entryList, "range"), nullptr);
  EXPECT_EQ(conf_.GetEntryFromList(&block.entryList, "MAX-LEASE-TIME"), nullptr);
  EXPECT_EQ(conf_.GetEntryFromList(&block.entryList, "max-lease-time 60;;"), nullptr);
  EXPECT_EQ(conf_.GetEntryFromList(&none, "range"), nullptr);
  EXPECT_EQ(conf_.GetEntryFromList(&none, ""), nullptr);
}

TEST_F(DhcpVocabularyTest, ValueFromBufferIsCopiedWithoutNul) {
  const struct {
    const char* src;
    const char* stopChars;
    const char* buffer;
  } cases[] = {
      {"10.0.0.0 netmask", " ", "10.0.0.0######"},
      {"10.0.0.0", " ", "10.0.0.0######"},
      {"a;b c", " ;", "a#############"},
      {"a;b c", "; ", "a#############"},
      {"a;b c", "", "a;b c#########"},
      {" a", " ", "##############"},
      {"", " ", "##############"},
  };
  for (const auto& row : cases) {
    char buffer[] = "##############";
    EXPECT_EQ(conf_.GetValueFromBuffer(row.src, row.stopChars, buffer), buffer);
    EXPECT_STREQ(buffer, row.buffer) << row.src;
  }
}

TEST_F(DhcpVocabularyTest, ValueFromStringFollowsTheSeparator) {
  const struct {
    const char* line;
    const char* separator;
    const char* value;
  } cases[] = {
      {"host pc-17", " ", "pc-17"},
      {"shared-network office", " ", "office"},
      {"if option vendor-class-identifier = \"x\"", " ", "option vendor-class-identifier = \"x\""},
      {"host", " ", "before"},
      {"max-lease-time 7200;", ";", "7200"},
      {"option routers 10.0.0.1;", ";", "10.0.0.1"},
      {"option domain-name \"a b\";", ";", "b\""},
      {"max-lease-time 7200 ;", ";", ""},
      {"host a { fixed-address 10.0.0.5; }", ";", "}"},
      {"authoritative;", ";", "before"},
      {"max-lease-time 7200", ";", "before"},
      // any other separator
      {"a,b c;", ",", "before"},
      {"a b;", "  ", "before"},
      {"a b;", " ;", "before"},
      {"a b;", "", "before"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(FromString(row.line, row.separator), row.value) << row.line;
  }
}

TEST_F(DhcpVocabularyTest, FirstDigitAndFirstCharPointIntoTheText) {
  const struct {
    const char* text;
    std::ptrdiff_t digit;
    std::ptrdiff_t letter;
  } cases[] = {
      {"abc", 3, 0}, {"", 0, 0}, {"  10 host", 2, 5}, {"10", 0, 2}, {"range 7;", 6, 0},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(conf_.GetFirstDigit(row.text) - row.text, row.digit) << row.text;
    EXPECT_EQ(conf_.GetFirstChar(row.text) - row.text, row.letter) << row.text;
  }
}

TEST_F(DhcpVocabularyTest, FirstDigitAndFirstCharCountWithSixteenBits) {
  const struct {
    std::size_t length;
    std::ptrdiff_t found;  // of a match at 20
  } cases[] = {{32767, 20}, {32768, 0}, {65535, 0}, {65536, 0}, {65546, 10}, {70000, 20}};
  for (const auto& row : cases) {
    std::string text(row.length, '-');
    text[20] = '7';
    EXPECT_EQ(conf_.GetFirstDigit(text.c_str()) - text.c_str(), row.found) << row.length;
    text[20] = 'x';
    EXPECT_EQ(conf_.GetFirstChar(text.c_str()) - text.c_str(), row.found) << row.length;
  }
}

TEST_F(DhcpVocabularyTest, NameServersStartAtTheFirstDigit) {
  const struct {
    const char* line;
    const char* elements;
  } cases[] = {
      {"option ntp-servers 10.1.1.1, 10.1.1.2;", "[10.1.1.1][10.1.1.2] true"},
      {"option ntp-servers;", " false"},
      {"option domain-name-servers dns1.office.lan;", "[1.office.lan] true"},
      {"10.0.0.1,  10.0.0.2 ;", "[10.0.0.1][10.0.0.2] true"},
      {"range 10.0.0.1 10.0.0.2", "[10.0.0.1][10.0.0.2] false"},
      {"range 10.0.0.1; 10.0.0.2;", "[10.0.0.1] true"},
      {"; 10.0.0.1", "[10.0.0.1] false"},
      {"", " false"},
  };
  for (const auto& row : cases) EXPECT_EQ(NameServers(row.line), row.elements) << row.line;
}

TEST_F(DhcpVocabularyTest, NameServersAreAppended) {
  std::list<std::string> servers = {"before"};
  EXPECT_TRUE(conf_.GetNameServers("option ntp-servers 10.1.1.1;", &servers));
  EXPECT_FALSE(conf_.GetNameServers("option ntp-servers;", &servers));
  EXPECT_EQ(servers, (std::list<std::string>{"before", "10.1.1.1"}));
}

TEST_F(DhcpVocabularyTest, NullArgumentsOnlyFail) {
  const CfSection block = Block("host pc", {"max-lease-time 60;"});
  EXPECT_EQ(conf_.GetEntryFromList(nullptr, "range"), nullptr);
  EXPECT_EQ(conf_.GetEntryFromList(&block.entryList, nullptr), nullptr);

  char buffer[] = "####";
  EXPECT_EQ(conf_.GetValueFromBuffer(nullptr, " ", buffer), buffer);
  EXPECT_EQ(conf_.GetValueFromBuffer("ab", nullptr, buffer), buffer);
  EXPECT_EQ(conf_.GetValueFromBuffer("ab", " ", nullptr), nullptr);
  EXPECT_STREQ(buffer, "####");

  EXPECT_EQ(conf_.GetFirstDigit(nullptr), nullptr);
  EXPECT_EQ(conf_.GetFirstChar(nullptr), nullptr);

  std::list<std::string> servers;
  EXPECT_FALSE(conf_.GetNameServers(nullptr, &servers));
  EXPECT_FALSE(conf_.GetNameServers("range 10.0.0.1;", nullptr));
  EXPECT_TRUE(servers.empty());
}

}  // namespace
}  // namespace klepur::test
