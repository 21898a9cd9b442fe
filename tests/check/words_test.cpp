// Words that the server does not know, and known ones where it does not take them. Each line was tried on the
// server.
#include <gtest/gtest.h>

#include "tests/check/checking.h"

namespace klepur::test {
namespace {

TEST(UnknownWords, AreErrorsWhereTheServerRefusesThem) {
  const CheckCase cases[] = {
      {"gateway 10.0.0.1;\n", "1:1 unknown-statement\n"},
      {"gateway \"a\";\n", "1:1 unknown-statement\n"},
      {"gateway.here;\n", "1:1 unknown-statement\n"},
      {"gateway { }\n", "1:1 unknown-statement\n"},
      {"gateway.here = 5;\n", "1:1 unknown-statement\n"},
      {"x;\n", "1:1 unknown-statement\n"},
      {"known;\n", "1:1 unknown-statement\n"},
      {"'quoted';\n", "1:1 unknown-statement\n"},
      {"max-laese-time 5;\n", "1:1 misspelled-keyword\n"},
      {"hots a { }\n", "1:1 misspelled-keyword\n"},
      {"option\xC2\xA0routers 10.0.0.1;\n", "1:1 foreign-character\n"},
  };
  ExpectFound(cases);
}

TEST(UnknownWords, AreWarningsWhereTheServerPassesOverThem) {
  const CheckCase cases[] = {
      {"placeholder;\n", "1:1 lone-word\n"},
      {"placeholder = other;\n", "1:1 lone-word\n"},
      {"autoritative;\n", "1:1 lone-word\n"},
      {"one and other;\n", ""},
      {"called(other);\n", ""},
  };
  ExpectFound(cases);
}

TEST(UnknownWords, LackTheirSemicolonAndNothingElse) {
  EXPECT_EQ(Found("leftover\n\nauthoritative;\n"), "3:1 missing-semicolon\n");
  EXPECT_EQ(Found("// a comment\nauthoritative;\n"), "2:1 missing-semicolon\n");
}

TEST(Permissions, AreKnownByTheirNames) {
  const CheckCase cases[] = {
      {"allow unknown-clients;\ndeny bootp;\nignore booting;\n", ""},
      {"deny unknown-client;\n", "1:6 unknown-permission\n"},
      {"allow everything;\n", "1:7 unknown-permission\n"},
      {"allow unknown-clients on;\n", "1:23 surplus-value\n"},
      {"deny members of \"a\";\n", "1:1 misplaced-statement\n"},
  };
  ExpectFound(cases, ByItself());
}

TEST(Places, AreThoseOfTheTableOfWords) {
  const CheckCase cases[] = {
      {"hardware ethernet 0:1:2:3:4:5;\n", "1:1 misplaced-statement\n"},
      {"interface eth0;\n", "1:1 misplaced-statement\n"},
      {"if known { authoritative; }\n", "1:12 misplaced-statement\n"},
      {"if known { key k { algorithm hmac-md5; secret \"YWJj\"; }; }\n", ""},
      {"group { pool { } }\n", "1:9 misplaced-statement\n"},
      {"host a { hardware ethernet 0:1:2:3:4:5; host b { hardware ethernet 0:1:2:3:4:6; } }\n",
       "1:41 misplaced-statement\n"},
      {"key k { algorithm hmac-md5; secret \"YWJj\"; max-lease-time 5; }\n",
       "1:44 misplaced-statement\n"},
      {"use-eui-64 true;\n", "1:1 misplaced-statement\n"},
      {"define f(a) { max-lease-time 5; }\n", ""},
  };
  ExpectFound(cases, ByItself());
}

TEST(Places, DependOnTheFamily) {
  const char* const text = "subnet6 2001:db8::/64 { range6 2001:db8::1 2001:db8::9; }\n";
  EXPECT_EQ(Found(text), "");
  EXPECT_EQ(Found(text, {Family::kDhcp6, {}}), "");
  EXPECT_EQ(Found(text, {Family::kDhcp4, {}}),
            "1:1 misplaced-statement\n1:25 misplaced-statement\n");
}

TEST(Blocks, HaveTheFormOfTheirKeyword) {
  const CheckCase cases[] = {
      {"host \"a\" { hardware ethernet 0:1:2:3:4:5; }\n", "1:6 malformed-name\n"},
      {"host a b { hardware ethernet 0:1:2:3:4:5; }\n", "1:8 malformed-name\n"},
      {"host { hardware ethernet 0:1:2:3:4:5; }\n", "1:1 malformed-name\n"},
      {"class a { match hardware; }\n", "1:7 malformed-name\n"},
      {"zone \"a.\" { primary 10.0.0.1; }\n", "1:6 malformed-name\n"},
      {"group \"a b\" { }\ngroup { }\n", ""},
      {"max-lease-time { }\n", "1:1 surplus-block\n"},
      {"if known\n  max-lease-time 5;\n", "1:1 missing-block\n"},
      {"host a;\n", "1:1 missing-block\n"},
      {"group a;\n", "1:1 missing-block\n"},
      {"key k;\n", "1:1 missing-block\n"},
      {"failover peer \"f\";\n", "1:1 missing-block\n"},
      {"no failover peer\n", "1:1 unknown-statement\n"},
      {"switch (known) {\n  case 1\n  max-lease-time 5;\n}\n", "2:3 label-without-colon\n"},
      {"switch (known) {\n  case 1:\n  max-lease-time 5;\n}\n", ""},
  };
  ExpectFound(cases, ByItself());
}

TEST(Options, AreThoseOfTheServerAndOfTheFile) {
  const CheckCase cases[] = {
      {"option ROUTERS 10.0.0.1;\noption dhcp.routers 10.0.0.1;\noption unknown-222 \"x\";\n", ""},
      {"option music code 150 = text;\noption music \"a\";\n", ""},
      {"option space phone;\noption phone.server code 1 = text;\noption phone.server \"a\";\n", ""},
      {"log(info, config-option server.ddns-hostname);\n", ""},
      {"option music \"a\";\n", "1:8 unknown-option\n"},
      {"option phone.server \"a\";\n", "1:8 unknown-option-space\n"},
      {"option phone.server code 1 = text;\n", "1:8 unknown-option-space\n"},
      {"if option music = \"a\" { }\n", "1:11 unknown-option\n"},
      {"if exists music { }\n", "1:11 unknown-option\n"},
      {"class \"a\" { match if option music = \"a\"; }\n", "1:29 unknown-option\n"},
      {"log(info, option music);\n", "1:18 unknown-option\n"},
      {"append music \"a\";\n", "1:8 unknown-option\n"},
      {"include \"more.conf\";\noption music \"a\";\n", ""},
  };
  ExpectFound(cases);
}

TEST(Definitions, HaveANumberAndATypeThatThereIs) {
  const CheckCase cases[] = {
      {"option a code 200 = array of { ip-address, integer 8 };\n", ""},
      {"option a code 200 = domain-list compressed;\noption b code 201 = encapsulate dhcp;\n", ""},
      {"option a code 200 =\n  { unsigned integer 32, array of boolean };\n", ""},
      {"option a code 200 = { integer 8, text };\n", ""},
      {"option space s;\noption a code 200 = { integer 8, encapsulate s };\n", ""},
      {"option a code 0x10 = text;\n", "1:15 malformed-definition\n"},
      {"option a code 200 = ;\n", "1:15 malformed-definition\n"},
      {"option a code 200 = { text, integer 8 };\n", "1:29 malformed-definition\n"},
      {"option a code 200 = array of { integer 8, text };\n", "1:43 malformed-definition\n"},
      {"option a code 200 = array of encapsulate dhcp;\n", "1:30 malformed-definition\n"},
      {"option a code 200 = array of zerolen;\n", "1:30 malformed-definition\n"},
      {"group { option a code 200 = text; }\n", "1:9 misplaced-statement\n"},
      {"option a code x = text;\n", "1:15 malformed-definition\n"},
      {"option a code 200 text;\n", "1:15 malformed-definition\n"},
      {"option a code 200 = song;\n", "1:21 malformed-definition\n"},
      {"option a code 200 = array of text;\n", "1:30 malformed-definition\n"},
      {"option a code 200 = integer;\n", "1:21 malformed-definition\n"},
      {"option a code 200 = unsigned text;\n", "1:30 malformed-definition\n"},
      {"option a code 200 = array of array of text;\n", "1:30 malformed-definition\n"},
  };
  ExpectFound(cases, ByItself());
}

TEST(Definitions, AreOfSpacesAbove) {
  const CheckCase cases[] = {
      {"option space s;\noption s.a code 1 = text;\noption b code 200 = encapsulate s;\n", ""},
      {"option s.a code 1 = text;\noption space s;\n", "1:8 unknown-option-space <- 2\n"},
      {"option b code 200 = encapsulate s;\n", "1:33 unknown-option-space\n"},
      {"option b code 200 = encapsulate s;\noption space s;\n", "1:33 unknown-option-space <- 2\n"},
      {"option vendor.a code 1 = text;\noption fqdn.b code 9 = text;\n", ""},
  };
  ExpectFound(cases, ByItself());
}

TEST(Definitions, CanBeOfOptionsThatTheServerHas) {
  const CheckCase cases[] = {
      {"option domain-search code 119 = string;\noption domain-search 01:02;\n", ""},
      {"option routers code 3 = text;\noption routers \"x\";\n", ""},
      {"option domain-search code 119 = string;\noption routers \"x\";\n",
       "2:16 malformed-address\n"},
      {"option routers \"x\";\noption routers code 3 = text;\n", "1:16 malformed-address\n"},
      {"option domain-name code 15 = song;\n", "1:30 malformed-definition\n"},
  };
  ExpectFound(cases);
}

TEST(OptionSpaces, SayHowLongTheirNumbersAre) {
  const CheckCase cases[] = {
      {"option space s code width 2 length width 01 hash size 7;\n", ""},
      {"option space s length width 2 code width 4;\n", ""},
      {"option space s code width 3;\n", "1:16 malformed-definition\n"},
      {"option space s code width 1, length width 1;\n", "1:28 malformed-definition\n"},
      {"option space s length width 4;\n", "1:16 malformed-definition\n"},
      {"option space s hash;\n", "1:16 malformed-definition\n"},
      {"option space \"s\";\n", "1:14 malformed-text\n"},
      {"option space;\n", "1:1 missing-value\n"},
  };
  ExpectFound(cases);
}

TEST(HardwareAddresses, AreThoseOfOneHostOfANetwork) {
  const CheckCase cases[] = {
      {"host a { hardware ethernet 0:1:2:3:4:5; }\nhost b { hardware ethernet 00:01:02:03:04:05; "
       "}\n",
       "2:10 duplicate-hardware-address <- 1\n"},
      {"host a { hardware ethernet 0:1:2:3:4:5; }\nhost b { hardware fddi 0:1:2:3:4:5; }\n", ""},
      {"group { host a { hardware ethernet 0:1:2:3:4:5; } }\nhost b { hardware ethernet "
       "0:1:2:3:4:5; }\n"
       "host c { hardware ethernet 0:1:2:3:4:5; }\n",
       "2:10 duplicate-hardware-address <- 1\n3:10 duplicate-hardware-address <- 2\n"},
  };
  ExpectFound(cases);
}

}  // namespace
}  // namespace klepur::test
