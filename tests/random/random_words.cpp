#include "tests/random/random_words.h"

#include <iterator>

namespace klepur::test {
namespace {

const std::vector<std::string> kNames = {
    "a",    "A",      "ab", "abc", "b",      "pc-1",   "pc-2",    "pc-10",     "Pc-1",
    "PC-1", "pc-100", "pc", "net", "office", "Office", "office2", "two words", "if x"};

const std::vector<std::string> kConditions = {"known", "not known", "option a = \"b\"",
                                              "known or x", "Known"};

const std::vector<std::string> kOddHeaders = {"group",
                                              "group staff",
                                              "Group",
                                              "class \"a\"",
                                              "pool",
                                              "host",
                                              "Host a",
                                              "hosts a",
                                              "ghost a",
                                              "Subnet x",
                                              "my host a",
                                              "shared-network",
                                              "zone a.b.c.",
                                              "if",
                                              "elsif known",
                                              "else",
                                              "failover peer \"x\""};

const std::vector<std::string> kOddLines = {"ddns-updates on;",
                                            "option routers  10.0.0.1;",
                                            "option routers 10.0.0.1, 10.0.0.2;",
                                            "range;",
                                            "authoritative ;",
                                            "not authoritative;",
                                            "max-lease-time;",
                                            "max-lease-time 60 ;",
                                            "max-lease-time\t60;",
                                            "IPLine 10.0.0.1;",
                                            "Special;",
                                            "filename \"a b\";",
                                            "filename \"\";",
                                            "server-name x;",
                                            "option domain-name-servers dns1.office.lan;",
                                            "option dhcp6.name-servers 2001:db8::1, 2001:db8::2;",
                                            "option ntp-servers 10.1.1.1,10.1.1.2;",
                                            "log (info, x);",
                                            "host z { fixed-address 10.0.0.5; }",
                                            ";"};

const std::vector<std::string> kComments = {"",
                                            "main office",
                                            "range reserved for guests",
                                            "not authoritative here",
                                            "host old { fixed-address 10.0.0.5; }",
                                            "}",
                                            "two; statements;",
                                            "Special;",
                                            "max-lease-time 7",
                                            "hardware ethernet 00:00:00:00:00:01"};

/// Only a caller can make these: read from a file they would become something else.
const std::vector<std::string> kCallersLines = {
    "",          "max-lease-time 5", " range 1 2;", "no end", "a; b;",        "range 10.0.0.1",
    "filename ", "two\nlines;",      "IPLine",      "{",      "# deny bootp;"};

}  // namespace

int RandomType(Chance& chance, const ModelFamily& family) {
  auto row = family.written.begin();
  std::advance(row, static_cast<std::ptrdiff_t>(chance.Below(family.written.size())));
  return row->first;
}

std::string RandomWords::Address() {
  return (family_.isV6 ? "2001:db8::" : "10.0.0.") + Number();
}

std::string RandomWords::HardwareAddress() {
  return "00:00:00:00:00:0" + std::to_string(chance_.Below(10));
}

std::string RandomWords::RecordName(int kind) {
  if (kind == kIf) return chance_.Pick(kConditions);
  if (kind != kSubnet) return chance_.Pick(kNames);
  const std::string number = std::to_string(chance_.Below(5));
  if (family_.isV6) return "2001:db8:" + number + "::/" + (chance_.OneIn(4) ? "48" : "64");
  return "10.0." + number + ".0:255.255.255." + (chance_.OneIn(4) ? "128" : "0");
}

std::string RandomWords::BareName(int kind) {
  std::string name = RecordName(kind);
  const std::size_t colon = name.find(':');
  if (kind == kSubnet && !family_.isV6) name.replace(colon, 1, " netmask ");
  return name;
}

std::string RandomWords::Header(int kind) {
  switch (kind) {
    case kNetwork:
      return "shared-network " + BareName(kind);
    case kSubnet:
      // One without a mask is what a search for the bare address finds.
      if (chance_.OneIn(8)) return family_.subnetPrefix + BareName(kind).substr(0, 8);
      return family_.subnetPrefix + BareName(kind);
    case kHost:
      return "host " + BareName(kind);
    case kIf:
      return "if " + BareName(kind);
    default:
      return OddHeader();
  }
}

std::string RandomWords::OddHeader() {
  if (chance_.OneIn(6)) return family_.isV6 ? "subnet 10.0.1.0 netmask 255.0.0.0" : "subnet6 ::/64";
  if (chance_.OneIn(6)) return RecordName(kHost);  // a header that is somebody's bare name
  return chance_.Pick(kOddHeaders);
}

std::string RandomWords::Value(int type) {
  if (chance_.OneIn(12)) return chance_.Pick(kNames);
  if (type == family_.hardwareEthernet) return HardwareAddress();
  if (type == family_.ipLine) return chance_.OneIn(2) ? "IPLine " + Address() : "Special";
  if (type == family_.hostName) return chance_.Pick(kNames);
  if (family_.readAsExist.count(type) != 0) return "exist";
  if (family_.readAsCommaList.count(type) != 0) return Address() + ", " + Address();
  if (family_.readAsBlankList.count(type) != 0) return Address() + " " + Address();
  if (family_.readWithoutQuotes.count(type) != 0) return chance_.Pick(kNames);
  return type == family_.fixedAddress ? Address() : Number();
}

ModelLine RandomWords::FileLine() {
  const bool commented = chance_.OneIn(5);
  if (commented && chance_.OneIn(3)) return {chance_.Pick(kComments), true};
  if (chance_.OneIn(5)) return {chance_.Pick(kOddLines), commented};
  const int type = RandomType(chance_, family_);
  const ModelFamily::Written& written = family_.written.at(type);
  return {written.beforeValue + (written.hasValue ? Value(type) : "") + written.behindValue,
          commented};
}

ModelLine RandomWords::AnyLine() {
  if (chance_.OneIn(6)) return {chance_.Pick(kCallersLines), chance_.OneIn(3)};
  return FileLine();
}

}  // namespace klepur::test
