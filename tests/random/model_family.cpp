#include "tests/random/model_family.h"

namespace klepur::test {
namespace {

using Written = ModelFamily::Written;

Written Plain(const std::string& keyword) {
  return {keyword + " ", ";", true};
}
Written InQuotes(const std::string& keyword) {
  return {keyword + " \"", "\";", true};
}
Written Alone(const std::string& keyword) {
  return {keyword, ";", false};
}
Written WholeLine() {
  return {"", ";", true};
}

ModelFamily MakeV4() {
  ModelFamily v4;
  v4.isV6 = false;
  v4.subnetPrefix = "subnet ";
  v4.keywords = {{"hardware ethernet", 16},
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
                 {"ping-timeout", 28}};
  v4.ipLine = 26;
  v4.readAsExist = {5, 6, 7, 24};
  v4.readAsCommaList = {2, 3, 4};
  v4.readAsBlankList = {8};
  v4.readWithoutQuotes = {1, 18, 19, 20, 21, 22, 23, 25};
  v4.written = {{1, InQuotes("option domain-name")},
                {2, Plain("option domain-name-servers")},
                {3, Plain("option netbios-name-servers")},
                {4, Plain("option ntp-servers")},
                {5, Alone("allow bootp")},
                {6, Alone("deny unknown-clients")},
                {7, Alone("allow unknown-clients")},
                {8, Plain("range")},
                {9, Plain("default-lease-time")},
                {10, Plain("max-lease-time")},
                {11, Plain("next-server")},
                {12, Plain("option routers")},
                {14, Plain("option subnet-mask")},
                {15, Plain("option broadcast-address")},
                {16, Plain("hardware ethernet")},
                {17, Plain("fixed-address")},
                {18, InQuotes("filename")},
                {19, InQuotes("option root-path")},
                {20, InQuotes("option host-name")},
                {21, InQuotes("option bootfile-name")},
                {22, InQuotes("server-name")},
                {23, InQuotes("option tftp-server-name")},
                {24, Alone("authoritative")},
                {25, InQuotes("option dhcp-client-identifier")},
                {26, WholeLine()},
                {27, Plain("ping-check")},
                {28, Plain("ping-timeout")}};
  v4.hostName = 20;
  v4.fixedAddress = 17;
  v4.hardwareEthernet = 16;
  v4.lastType = 28;
  return v4;
}

ModelFamily MakeV6() {
  ModelFamily v6;
  v6.isV6 = true;
  v6.subnetPrefix = "subnet6 ";
  v6.keywords = {{"hardware ethernet", 10},
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
                 {"ping-timeout", 18}};
  v6.ipLine = 16;
  v6.readAsExist = {3, 4, 15};
  v6.readAsCommaList = {1, 2};
  v6.readAsBlankList = {5};
  v6.readWithoutQuotes = {12, 13, 14};
  v6.written = {{1, Plain("option dhcp6.name-servers")},
                {2, Plain("option dhcp6.sntp-servers")},
                {3, Alone("deny unknown-clients")},
                {4, Alone("allow unknown-clients")},
                {5, Plain("range6")},
                {6, Plain("default-lease-time")},
                {7, Plain("max-lease-time")},
                {8, Plain("next-server")},
                {10, Plain("hardware ethernet")},
                {11, Plain("fixed-address6")},
                {12, InQuotes("filename")},
                {13, InQuotes("option dhcp6.fqdn")},
                {14, InQuotes("server-name")},
                {15, Alone("authoritative")},
                {16, WholeLine()},
                {17, Plain("ping-check")},
                {18, Plain("ping-timeout")}};
  v6.hostName = 13;
  v6.fixedAddress = 11;
  v6.hardwareEthernet = 10;
  v6.lastType = 18;
  return v6;
}

}  // namespace

const ModelFamily& ModelV4() {
  static const ModelFamily v4 = MakeV4();
  return v4;
}

const ModelFamily& ModelV6() {
  static const ModelFamily v6 = MakeV6();
  return v6;
}

}  // namespace klepur::test
