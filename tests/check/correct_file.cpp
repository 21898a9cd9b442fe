#include "tests/check/correct_file.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <utility>

namespace klepur::test {

std::size_t Below(Random& random, std::size_t end) {
  return static_cast<std::size_t>(random() % end);
}

void LinesOfFile::Insert(std::size_t at, std::string what, std::string text) {
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at),
                {std::move(what), std::move(text)});
}

void LinesOfFile::Remove(std::size_t at) {
  lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(at));
}

std::vector<std::size_t> LinesOfFile::All(std::string_view what) const {
  std::vector<std::size_t> found;
  for (std::size_t line = 0; line != lines_.size(); ++line) {
    if (lines_[line].what == what) found.push_back(line);
  }
  return found;
}

std::size_t LinesOfFile::Any(std::string_view what, Random& random) const {
  const std::vector<std::size_t> found = All(what);
  EXPECT_FALSE(found.empty()) << "no line is " << what << " in\n" << Whole();
  return found.empty() ? 0 : found[Below(random, found.size())];
}

std::string LinesOfFile::Whole() const {
  std::string text;
  for (const Line& line : lines_) text += line.text + line_end_;
  return text;
}

namespace {

/// Writes a file of one family in the habits of one hand.
class Writer {
 public:
  Writer(Family family, Random& random) : six_(family == Family::kDhcp6), random_(random) {
    constexpr std::array<const char*, 4> kSteps = {"  ", "\t", "    ", ""};
    step_ = kSteps[Below(random_, kSteps.size())];
    brace_below_ = Below(random_, 4) == 0;
    if (Below(random_, 4) == 0) lines_.SetLineEnd("\r\n");
  }

  LinesOfFile Write() {
    Statement("authoritative", "authoritative");
    if (!six_) Statement("ping-check", "ping-check " + Flag());
    Statement("default-lease-time",
              "default-lease-time " + std::to_string(600 + Below(random_, 600)));
    Statement("max-lease-time", "max-lease-time " + std::to_string(7200 + Below(random_, 600)));
    Statement("ddns-update-style", "ddns-update-style none");
    Options();
    Rest();
    return std::move(lines_);
  }

 private:
  std::string Flag() { return Below(random_, 2) == 0 ? "on" : "false"; }

  std::string Number(std::size_t number, const char* format) {
    std::array<char, 32> text;
    std::snprintf(text.data(), text.size(), format, static_cast<unsigned>(number));
    return text.data();
  }

  void Line(std::string what, const std::string& text) {
    std::string indent;
    for (std::size_t i = 0; i != depth_; ++i) indent += step_;
    lines_.Add(std::move(what), indent + text);
  }

  void Trifle() {
    if (Below(random_, 8) == 0) lines_.Add("blank", "");
    if (Below(random_, 10) == 0) Line("comment", "# a comment; with } in it");
  }

  void Statement(const std::string& what, const std::string& text) {
    Trifle();
    Line(what, text + (Below(random_, 8) == 0 ? " ;" : ";"));
  }

  void StrictStatement(const std::string& what, const std::string& text) {
    Trifle();
    Line(what, text + ";");
  }

  template <class Body>
  void Block(const std::string& what, const std::string& header, const Body& body) {
    Trifle();
    if (brace_below_) {
      Line(what, header);
      Line("{", "{");
    } else {
      Line(what, header + " {");
    }
    ++depth_;
    body();
    --depth_;
    Line("}", "}");
  }

  void Options() {
    Statement("option definition", "option music code 150 = text");
    Statement("option music", "option music \"a tune\"");
    if (six_) {
      Statement("option servers", "option dhcp6.name-servers 2001:db8::53, 2001:db8::54");
      Statement("option domains", "option dhcp6.domain-search \"a.example\", \"b.example\"");
      Statement("option number", "option dhcp6.preference 200");
    } else {
      Statement("option servers", "option domain-name-servers 192.0.2.53, 192.0.2.54");
      Statement("option domain-name", "option domain-name \"office.example\"");
      Statement("option domains", "option domain-search \"a.example\", \"b.example\"");
      Statement("option number", "option interface-mtu 1500");
      Statement("option data", "option vendor-class-identifier 01:02:ff");
    }
  }

  void Rest() {
    Block("class", "class \"phones\"", [&] { Statement("match", "match hardware"); });
    Block("key", "key updater", [&] {
      Statement("algorithm", "algorithm hmac-sha256");
      Statement("secret", "secret \"c2VjcmV0\"");
    });
    Block("zone", "zone office.example.", [&] {
      Statement(six_ ? "primary6" : "primary",
                six_ ? "primary6 2001:db8::53" : "primary 192.0.2.53");
      Statement("key of zone", "key updater");
    });
    Block("if", "if known", [&] { Statement("min-lease-time", "min-lease-time 60"); });
    Block("else", "else", [&] { Statement("min-lease-time", "min-lease-time 120"); });
    Block("switch", "switch (option host-name)", [&] {
      Line("case", "case \"a\":");
      Statement("min-lease-time", "min-lease-time 60");
      Statement("break", "break");
    });
    Block("shared-network", "shared-network wire", [&] {
      Subnet();
      Subnet();
    });
    Subnet();
    Block("group", "group", [&] {
      Statement("max-lease-time", "max-lease-time 14400");
      Host(subnet_);
      Host(subnet_ - 1);
    });
    Host(subnet_);
  }

  std::string Address(std::size_t subnet, std::size_t host) {
    if (six_) return "2001:db8:" + Number(subnet, "%x") + "::" + Number(host, "%x");
    return "10.0." + std::to_string(subnet) + "." + std::to_string(host);
  }

  void Subnet() {
    const std::size_t subnet = ++subnet_;
    const std::string header =
        six_ ? "subnet6 " + Address(subnet, 0).substr(0, Address(subnet, 0).size() - 1) + "/64"
             : "subnet " + Address(subnet, 0) + " netmask 255.255.255.0";
    Block("subnet", header, [&] {
      if (!six_) Statement("option routers", "option routers " + Address(subnet, 1));
      Range(subnet, 100);
      Block("pool", six_ ? "pool6" : "pool", [&] {
        Range(subnet, 150);
        Statement("allow", "allow members of \"phones\"");
      });
      Host(subnet);
    });
  }

  void Range(std::size_t subnet, std::size_t first) {
    Statement("range", (six_ ? "range6 " : "range ") + Address(subnet, first) + " " +
                           Address(subnet, first + 20));
  }

  void Host(std::size_t subnet) {
    const std::size_t host = ++host_;
    Block("host", "host pc" + std::to_string(host), [&] {
      Statement("hardware", "hardware ethernet 00:16:3e:00:00:" + Number(host, "%02x"));
      if (six_) {
        Statement("fixed-address", "fixed-address6 " + Address(subnet, 10 + host));
        StrictStatement("fixed-prefix", "fixed-prefix6 2001:db8:f:" + Number(host, "%x") + "::/64");
      } else {
        Statement("fixed-address", "fixed-address " + Address(subnet, 10 + host));
      }
      Statement("option host-name", "option host-name \"pc" + std::to_string(host) + "\"");
    });
  }

  const bool six_;
  Random& random_;
  LinesOfFile lines_;
  std::string step_;
  bool brace_below_;
  std::size_t depth_ = 0;
  std::size_t subnet_ = 0;
  std::size_t host_ = 0;
};

}  // namespace

LinesOfFile CorrectFile(Family family, Random& random) {
  return Writer(family, random).Write();
}

}  // namespace klepur::test
