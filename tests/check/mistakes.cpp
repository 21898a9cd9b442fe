#include "tests/check/mistakes.h"

#include <string>
#include <string_view>

namespace klepur::test {
namespace {

using File = LinesOfFile;

/// Writes something else in the place of a piece of a line.
std::size_t Replace(File& file, std::size_t line, std::string_view old, std::string_view text) {
  std::string& content = file.Text(line);
  content.replace(content.find(old), old.size(), text);
  return line;
}

/// Gives a line another value: what stands behind its first word, or of an option behind the second.
std::size_t SetValue(File& file, std::size_t line, std::string_view value) {
  std::string& text = file.Text(line);
  const std::size_t word = text.find_first_not_of(" \t");
  std::size_t blank = text.find(' ', word);
  if (text.compare(word, 7, "option ") == 0) blank = text.find(' ', blank + 1);
  text = text.substr(0, blank + 1) + std::string(value) + ";";
  return line;
}

/// The value of a line, without the blanks around it.
std::string ValueOf(const File& file, std::size_t line) {
  const std::string& text = file.Text(line);
  std::size_t begin = text.find(' ', text.find_first_not_of(" \t"));
  if (text.find("option ") != std::string::npos) begin = text.find(' ', begin + 1);
  begin = text.find_first_not_of(' ', begin);
  const std::size_t end = text.find_last_not_of(' ', text.rfind(';') - 1);
  return text.substr(begin, end - begin + 1);
}

/// Gives the last line of a name the value of the one so many before it.
std::size_t CopyToLast(File& file, const char* name, std::size_t before) {
  const std::vector<std::size_t> all = file.All(name);
  return SetValue(file, all.back(), ValueOf(file, all[all.size() - 1 - before]));
}

/// Puts a line of its own before another one that is a statement or begins a block.
std::size_t PutBefore(File& file, std::size_t line, std::string text) {
  file.Insert(line, "mistake", std::move(text));
  return line;
}

std::size_t TakeOutLast(File& file, std::size_t line, char byte) {
  std::string& text = file.Text(line);
  text.erase(text.rfind(byte), 1);
  return line;
}

/// The next line that is no comment and not blank.
std::size_t NextWords(const File& file, std::size_t line) {
  do {
    ++line;
  } while (file.Text(line).find_first_not_of(" \t#") == std::string::npos ||
           file.Text(line).find('#') != std::string::npos);
  return line;
}

std::size_t AnyStatement(const File& file, Random& random) {
  constexpr const char* kAnywhere[] = {"default-lease-time", "max-lease-time", "option music",
                                       "hardware",           "range",          "min-lease-time"};
  return file.Any(kAnywhere[Below(random, std::size(kAnywhere))], random);
}

const std::vector<Mistake> kMistakes = {
    // Structure.
    {"unclosed-block", In::kAny,
     [](File& file, Random& /*random*/) {
       file.Remove(file.All("}").back());
       const std::size_t host = file.All("host").back();
       return file.Text(host).find('{') == std::string::npos ? host + 1 : host;
     }},
    {"missing-header", In::kAny,
     [](File& file, Random& random) { return PutBefore(file, file.Any("class", random), "{ }"); }},
    {"stray-brace", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any(Below(random, 2) == 0 ? "class" : "shared-network", random),
                        "}");
     }},
    {"missing-semicolon", In::kAny,
     [](File& file, Random& random) {
       return NextWords(file, TakeOutLast(file, AnyStatement(file, random), ';'));
     }},
    {"text-before-brace", In::kAny,
     [](File& file, Random& random) {
       const std::size_t brace = file.Any("}", random);
       return PutBefore(file, brace, "next-server") + 1;
     }},
    {"empty-statement", In::kAny,
     [](File& file, Random& random) {
       const std::size_t line = AnyStatement(file, random);
       file.Text(line) += Below(random, 2) == 0 ? ";" : " ;";
       return line;
     }},
    {"semicolon-behind-block", In::kAny,
     [](File& file, Random& random) {
       const std::size_t line = file.All("}")[Below(random, 2) * 2];  // of the class or the zone
       file.Text(line) += ";";
       return line;
     }},
    {"unclosed-quote", In::kAny,
     [](File& file, Random& random) {
       return TakeOutLast(file, file.Any("option host-name", random), '"');
     }},
    {"unclosed-value", In::kAny,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("option definition", random),
                       "code 150 = { text, integer 8 ");
     }},
    {"branch-without-if", In::kAny,
     [](File& file, Random& random) {
       const std::size_t line = file.Any("class", random);
       return PutBefore(file, line, "elsif known { min-lease-time 60; }");
     }},
    {"byte-order-mark", In::kAny,
     [](File& file, Random& /*random*/) {
       file.Text(0) = "\xEF\xBB\xBF" + file.Text(0);
       return std::size_t{0};
     }},
    {"nul-byte", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("subnet", random), std::string(2 + Below(random, 3), '\0'));
     }},
    {"missing-block", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("class", random), "host lost;");
     }},

    // Values.
    {"swallowed-statement", In::kAny,
     [](File& file, Random& random) {
       const std::size_t line = TakeOutLast(file, file.Any("hardware", random), ';');
       file.Text(line) += " option host-name \"a\";";
       return line;
     }},
    {"missing-value", In::kAny,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("max-lease-time", random), "");
     }},
    {"surplus-value", In::kAny,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("max-lease-time", random), "7200 7300");
     }},
    {"malformed-address", In::kDhcp4,
     [](File& file, Random& random) {
       constexpr const char* kWrong[] = {"10.0.1.256", "10.0.1", "10.0.1.1.1", "10.0.1.1/24",
                                         "\"10.0.1.1\""};
       return SetValue(file, file.Any("option servers", random),
                       kWrong[Below(random, std::size(kWrong))]);
     }},
    {"malformed-address", In::kDhcp6,
     [](File& file, Random& random) {
       constexpr const char* kWrong[] = {"2001:db8::1::2", "10.0.0.1", "ns.example", "2001:db8::g",
                                         "\"::1\""};
       return SetValue(file, file.Any("option servers", random),
                       kWrong[Below(random, std::size(kWrong))]);
     }},
    {"malformed-prefix", In::kDhcp6,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("fixed-prefix", random),
                       Below(random, 2) == 0 ? "2001:db8::/129" : "2001:db8::");
     }},
    {"blank-behind-prefix", In::kDhcp6,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("fixed-prefix", random), "2001:db8:f:ff::/64 ");
     }},
    {"malformed-range", In::kDhcp4,
     [](File& file, Random& random) {
       constexpr const char* kWrong[] = {"10.0.0.10-10.0.0.20", "10.0.0.0/24",
                                         "10.0.0.256 10.0.0.257"};
       return SetValue(file, file.Any("range", random), kWrong[Below(random, std::size(kWrong))]);
     }},
    {"malformed-range", In::kDhcp6,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("range", random), "2001:db8:1::100");
     }},
    {"malformed-hardware-address", In::kAny,
     [](File& file, Random& random) {
       constexpr const char* kWrong[] = {"ethernet 00-16-3e-00-00-01", "ethernet 0016.3e00.0001",
                                         "00:16:3e:00:00:01", "ethernet 00:16:3e:00:00:gg",
                                         "wifi 00:16:3e:00:00:01"};
       return SetValue(file, file.Any("hardware", random),
                       kWrong[Below(random, std::size(kWrong))]);
     }},
    {"hardware-address-length", In::kAny,
     [](File& file, Random& random) {
       return SetValue(
           file, file.Any("hardware", random),
           Below(random, 2) == 0 ? "ethernet 00:16:3e:00:01" : "ethernet 00:16:3e:00:00:00:01");
     }},
    {"malformed-time", In::kAny,
     [](File& file, Random& random) {
       constexpr const char* kWrong[] = {"2h", "1.5", "\"600\"", "long", "08"};
       return SetValue(file, file.Any("min-lease-time", random),
                       kWrong[Below(random, std::size(kWrong))]);
     }},
    {"malformed-number", In::kDhcp4,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("option number", random),
                       Below(random, 2) == 0 ? "65536" : "many");
     }},
    {"malformed-number", In::kDhcp6,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("option number", random), "256");
     }},
    {"malformed-flag", In::kDhcp4,
     [](File& file, Random& random) {
       constexpr const char* kWrong[] = {"yes", "1", "\"on\"", "enabled"};
       return SetValue(file, file.Any("ping-check", random),
                       kWrong[Below(random, std::size(kWrong))]);
     }},
    {"malformed-text", In::kDhcp4,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("option domain-name", random), "office.example");
     }},
    {"malformed-text", In::kAny,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("option domains", random), "a.example");
     }},
    {"malformed-data", In::kDhcp4,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("option data", random),
                       Below(random, 2) == 0 ? "maker" : "01:02:100");
     }},
    {"malformed-date", In::kAny,
     [](File& file, Random& random) {
       constexpr const char* kWrong[] = {"2030/01/31 00:00:00", "6 2030-01-31 00:00:00",
                                         "6 2030/01/31", "epoch", "tomorrow"};
       return PutBefore(file, file.Any("allow", random),
                        std::string("deny after ") + kWrong[Below(random, std::size(kWrong))] +
                            ";");
     }},
    {"malformed-duid", In::kDhcp6,
     [](File& file, Random& random) {
       constexpr const char* kWrong[] = {"00:01:00:01", "LL 00:16:3e:00:00:01", "EN 2495 01:02",
                                         "LLT ethernet 00:16:3e:00:00:01", "ethernet"};
       return PutBefore(file, file.Any("authoritative", random),
                        std::string("server-duid ") + kWrong[Below(random, std::size(kWrong))] +
                            ";");
     }},
    {"malformed-expression", In::kAny,
     [](File& file, Random& random) {
       constexpr const char* kWrong[] = {"substring(option host-name, 0) = \"a\"",
                                         "(option host-name = \"a\"",
                                         "option host-name == \"a\"",
                                         "option host-name = \"a\" and",
                                         "(known) and (static)",
                                         "option host-name",
                                         "not \"a\""};
       return PutBefore(file, file.Any("class", random),
                        std::string("if ") + kWrong[Below(random, std::size(kWrong))] +
                            " { min-lease-time 60; }");
     }},
    {"malformed-expression", In::kAny,
     [](File& file, Random& random) {
       constexpr const char* kWrong[] = {"600", "concat(\"a\")", "known", "\"a\" \"b\"", ""};
       return SetValue(file, file.Any("option music", random),
                       std::string("= ") + kWrong[Below(random, std::size(kWrong))]);
     }},
    {"unknown-choice", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("class", random),
                        "on commit or renewal { max-lease-time 7200; }");
     }},
    {"unknown-choice", In::kAny,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("ddns-update-style", random),
                       Below(random, 2) == 0 ? "ad-hoc" : "None");
     }},

    // Networks.
    {"malformed-subnet", In::kDhcp4,
     [](File& file, Random& random) {
       constexpr const char* kWrong[] = {" netmask 255.255.255.256", "/24", " netmask", ""};
       return PutBefore(file, file.Any("class", random),
                        std::string("subnet 10.200.0.0") +
                            kWrong[Below(random, std::size(kWrong))] +
                            " { range 10.200.0.5 10.200.0.9; }");
     }},
    {"malformed-subnet", In::kDhcp6,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("class", random),
                        "subnet6 2001:db8:ff::/129 { range6 2001:db8:ff::5 2001:db8:ff::9; }");
     }},
    {"netmask-with-holes", In::kDhcp4,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("class", random),
                        "subnet 10.0.200.0 netmask 255.0.255.0 { range 10.0.200.5 10.0.200.9; }");
     }},
    {"host-bits", In::kDhcp4,
     [](File& file, Random& random) {
       return Replace(file, file.Any("subnet", random), ".0 netmask", ".7 netmask");
     }},
    {"host-bits", In::kDhcp6,
     [](File& file, Random& random) {
       return Replace(file, file.Any("subnet", random), "::/64", "::7/64");
     }},

    // Words.
    {"misspelled-keyword", In::kAny,
     [](File& file, Random& random) {
       return Replace(file, file.Any("max-lease-time", random), "max-lease-time",
                      Below(random, 2) == 0 ? "max-laese-time" : "max-lease-tim");
     }},
    {"unknown-statement", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, AnyStatement(file, random), "gateway 10.0.0.1;");
     }},
    {"foreign-character", In::kAny,
     [](File& file, Random& random) {
       return Replace(file, file.Any("option music", random), "option ", "option\xC2\xA0");
     }},
    {"unknown-permission", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("authoritative", random), "deny unknown-client;");
     }},
    {"lone-word", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, AnyStatement(file, random), "placeholder;");
     }},
    {"misplaced-statement", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("authoritative", random),
                        "hardware ethernet 00:16:3e:00:00:99;");
     }},
    {"misplaced-statement", In::kDhcp4,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("hardware", random), "range 10.0.1.200 10.0.1.210;");
     }},
    {"malformed-name", In::kAny,
     [](File& file, Random& random) {
       return Replace(file, file.Any("class", random), "\"phones\"", "phones");
     }},
    {"malformed-name", In::kAny,
     [](File& file, Random& random) {
       return Replace(file, file.Any("host", random), "host pc", "host \"a\" ");
     }},
    {"surplus-block", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("authoritative", random), "min-lease-time { }");
     }},
    {"label-without-colon", In::kAny,
     [](File& file, Random& random) { return TakeOutLast(file, file.Any("case", random), ':'); }},
    {"unknown-option", In::kAny,
     [](File& file, Random& random) {
       return Replace(file, file.Any("option host-name", random), "host-name",
                      Below(random, 2) == 0 ? "host-nmae" : "gateway");
     }},
    {"unknown-option-space", In::kAny,
     [](File& file, Random& random) {
       return Replace(file, file.Any("option music", random), "music", "phone.music");
     }},
    {"malformed-definition", In::kAny,
     [](File& file, Random& random) {
       constexpr const char* kWrong[] = {"code 150 = song", "code x = text", "code 150 text",
                                         "code 150 = array text", "code 150 = integer"};
       return SetValue(file, file.Any("option definition", random),
                       kWrong[Below(random, std::size(kWrong))]);
     }},

    // Hosts. The last one and the last but two get addresses of one subnet.
    {"duplicate-host", In::kAny,
     [](File& file, Random& /*random*/) {
       return PutBefore(file, file.All("host").back(),
                        "host pc1 { hardware ethernet 00:16:3e:00:aa:01; }");
     }},
    {"duplicate-hardware-address", In::kAny,
     [](File& file, Random& /*random*/) { return CopyToLast(file, "hardware", 2); }},
    {"duplicate-identifier", In::kAny,
     [](File& file, Random& /*random*/) {
       const std::size_t line = file.All("host").back();
       PutBefore(file, line, "host twin1 { uid 1:2:3; }");
       return PutBefore(file, line + 1, "host twin2 { uid 01:02:03; }");
     }},
    {"duplicate-host-name", In::kAny,
     [](File& file, Random& /*random*/) { return CopyToLast(file, "option host-name", 2); }},
    {"duplicate-fixed-address", In::kAny,
     [](File& file, Random& /*random*/) { return CopyToLast(file, "fixed-address", 2); }},
    {"duplicate-fixed-prefix", In::kDhcp6,
     [](File& file, Random& random) {
       return CopyToLast(file, "fixed-prefix", 1 + Below(random, 4));
     }},
    {"host-without-identity", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("host", random), "host nobody { min-lease-time 60; }");
     }},
    {"fixed-address-outside-subnets", In::kDhcp4,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("fixed-address", random), "10.99.0.1");
     }},
    {"fixed-address-outside-subnets", In::kDhcp6,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("fixed-address", random), "2001:db8:99::1");
     }},
    {"fixed-address-in-range", In::kDhcp4,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("fixed-address", random),
                       Below(random, 2) == 0 ? "10.0.1.100" : "10.0.2.170");
     }},
    {"fixed-address-in-range", In::kDhcp6,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("fixed-address", random), "2001:db8:1::66");
     }},
    {"fixed-prefix-in-pool", In::kDhcp6,
     [](File& file, Random& random) {
       PutBefore(file, file.Any("range", random), "prefix6 2001:db8:e:: 2001:db8:e:: /48;");
       return SetValue(file, file.Any("fixed-prefix", random), "2001:db8:e:1::/64");
     }},

    // Networks and ranges.
    {"network-address-handed-out", In::kDhcp4,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("fixed-address", random),
                       Below(random, 2) == 0 ? "10.0.1.255" : "10.0.3.0");
     }},
    {"overlapping-subnets", In::kDhcp4,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("class", random),
                        "subnet 10.0.3.128 netmask 255.255.255.128 { range 10.0.3.200; }");
     }},
    {"subnet-without-addresses", In::kDhcp4,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("class", random),
                        "subnet 10.50.0.0 netmask 255.255.255.0 { }");
     }},
    {"subnet-without-addresses", In::kDhcp6,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("class", random), "subnet6 2001:db8:50::/64 { }");
     }},
    {"router-outside-subnet", In::kDhcp4,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("option routers", random), "10.200.0.1");
     }},
    {"range-outside-subnet", In::kDhcp4,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("range", random), "10.99.0.1 10.99.0.9");
     }},
    {"range-outside-subnet", In::kDhcp6,
     [](File& file, Random& random) {
       return SetValue(file, file.Any("range", random), "2001:db8:99::1 2001:db8:99::9");
     }},
    {"reversed-range", In::kAny,
     [](File& file, Random& random) {
       const std::size_t line = file.Any("range", random);
       const std::string value = ValueOf(file, line);
       const std::size_t blank = value.find(' ');
       return SetValue(file, line, value.substr(blank + 1) + " " + value.substr(0, blank));
     }},
    {"overlapping-ranges", In::kDhcp4,
     [](File& file, Random& /*random*/) { return CopyToLast(file, "range", 1); }},
    {"overlapping-ranges6", In::kDhcp6,
     [](File& file, Random& /*random*/) { return CopyToLast(file, "range", 1); }},
    {"overlapping-prefix-pools", In::kDhcp6,
     [](File& file, Random& random) {
       const std::size_t line = file.Any("range", random);
       PutBefore(file, line, "prefix6 2001:db8:e00:: 2001:db8:eff:: /48;");
       return PutBefore(file, line + 1, "prefix6 2001:db8:e80:: 2001:db8:fff:: /48;");
     }},
    {"prefix-pool-with-addresses", In::kDhcp6,
     [](File& file, Random& /*random*/) {
       return PutBefore(file, file.All("range")[0], "prefix6 2001:db8:1:: 2001:db8:1:: /121;") + 1;
     }},
    {"lease-times-at-odds", In::kAny,
     [](File& file, Random& /*random*/) {
       return SetValue(file, file.All("default-lease-time")[0], "10000");
     }},

    // Names.
    {"undeclared-class", In::kAny,
     [](File& file, Random& random) {
       return Replace(file, file.Any("allow", random), "phones", "faxes");
     }},
    {"undeclared-failover-peer", In::kDhcp4,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("allow", random), "failover peer \"two\";");
     }},
    {"undeclared-group", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("hardware", random), "group printers;");
     }},
    {"undeclared-key", In::kAny,
     [](File& file, Random& random) {
       return Replace(file, file.Any("key of zone", random), "updater", "other");
     }},
    {"option-before-definition", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("option definition", random), "option music \"early\";");
     }},
    {"unused-class", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("class", random), "class \"spare\" { match hardware; }");
     }},
    {"unused-failover-peer", In::kDhcp4,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("class", random),
                        "failover peer \"two\" { primary; address 192.0.2.1; "
                        "peer address 192.0.2.2; mclt 60; split 128; }");
     }},
    {"unused-group", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("class", random), "group spare { min-lease-time 60; }");
     }},
    {"unused-key", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("class", random),
                        "key spare { algorithm hmac-sha256; secret \"c2VjcmV0\"; }");
     }},
    {"unused-option", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("class", random), "option spare code 151 = text;");
     }},
    {"missing-include", In::kAny,
     [](File& file, Random& random) {
       return PutBefore(file, file.Any("class", random), "include \"/nonexistent/hosts.conf\";");
     }},
};

}  // namespace

const std::vector<Mistake>& Mistakes() {
  return kMistakes;
}

}  // namespace klepur::test
