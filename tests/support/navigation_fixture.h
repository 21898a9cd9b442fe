// The language of the tests that walk through a configuration file and look blocks up.
#ifndef KLEPUR_TESTS_SUPPORT_NAVIGATION_FIXTURE_H
#define KLEPUR_TESTS_SUPPORT_NAVIGATION_FIXTURE_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/config_fixture.h"

namespace klepur::test {

/// Two networks, one of them empty, a subnet and a host beside them; Open places the cursors on
/// "office" and "@header1". Its lines are of no known type unless a lookup is to find them.
inline constexpr std::string_view kOffice = R"(log root;
max-lease-time 7200;
shared-network office {
  log office;
  @header1 {
    log one;
    host a {
      hardware ethernet 00:00:00:00:00:0a;
      @fixed @ip1;
      @fqdn "a";
    }
    group staff {
      host nested {
        @fixed @ip3;
      }
    }
    host b {
      log b;
    }
    if known {
      log known;
    }
    if unknown {
      log unknown;
    }
  }
  @header2 {
    log two;
    host c {
      @fixed @ip2;
    }
  }
}
@header3 {
  host d {
  }
}
shared-network empty {
}
host e {
}
)";

/// Each operation as a function that returns what it found: the record as RecordText has it, "hit"
/// when it fills none, "miss" when it failed. A failure that changed the record or moved a cursor
/// says so and is thus no plain "miss". Names and headers may hold the placeholders of
/// Family::Text; a null is handed on.
template <class Family, Kind kKind = Kind::kDerived>
class NavigationFixture : public ConfigFixture<Family, kKind> {
 public:
  using typename ConfigFixture<Family, kKind>::Base;
  using typename ConfigFixture<Family, kKind>::Section;
  using typename ConfigFixture<Family, kKind>::TreeNode;
  using typename ConfigFixture<Family, kKind>::File;
  using Type = typename Section::SectionType;

  static std::string Text(std::string_view text) { return Family::Text(text); }

  /// A file of this text that is not opened yet.
  void Unopened(std::string_view text) {
    const std::string path = this->scratch_.Write("dhcpd.conf", Text(text));
    this->file_ = std::make_unique<File>(path.c_str());
  }

  /// Puts the cursors on the blocks with these headers; null for none.
  void Place(const char* network, const char* subnet) {
    Reach<Base>::CurrentNetwork(this->Conf()) = network == nullptr ? nullptr : this->Node(network);
    Reach<Base>::CurrentSubnet(this->Conf()) = subnet == nullptr ? nullptr : this->Node(subnet);
  }

  std::string First(Type type, bool rawEntries = false) {
    return Fetched(
        type, [&](Section& record) { return this->Conf().GetFirstSection(record, rawEntries); });
  }

  /// The block behind the cursor, which alone decides for these types.
  std::string Next(Type type, bool rawEntries = false) {
    return NextAfter(this->Record(type, {}), rawEntries);
  }

  /// The block behind the one of this name.
  std::string NextAfter(Type type, std::string_view name, bool rawEntries = false) {
    return NextAfter(this->Record(type, {{Family::kName, name}}), rawEntries);
  }

  std::string NextAfter(const Section& current, bool rawEntries = false) {
    return Fetched(SECTION_GLOBAL, [&](Section& record) {
      return this->Conf().GetNextSection(current, record, rawEntries);
    });
  }

  std::string Goto(const char* name, Type type) {
    return Outcome([&] { return this->Conf().GotoSection(Expanded(name).Get(), type); }, "hit");
  }

  std::string ByName(Type type, const char* name) {
    return Fetched(type, [&](Section& record) {
      return this->Conf().GetSectionByName(record, Expanded(name).Get());
    });
  }

  std::string ByLine(const char* line, bool rawEntries = false) {
    return Fetched(SECTION_GLOBAL, [&](Section& record) {
      return this->Conf().GetSectionByKeyname(Expanded(line).Get(), record, rawEntries);
    });
  }

  std::string HostByName(const char* name, bool rawEntries = false) {
    return Fetched(SECTION_GLOBAL, [&](Section& record) {
      return this->Conf().GetHostByName(Expanded(name).Get(), record, rawEntries);
    });
  }

  std::string HostByIp(const char* ip, bool rawEntries = false) {
    return Fetched(SECTION_GLOBAL, [&](Section& record) {
      return this->Conf().GetHostByIp(Expanded(ip).Get(), record, rawEntries);
    });
  }

  std::string HostByMac(const char* mac, bool rawEntries = false) {
    return Fetched(SECTION_GLOBAL, [&](Section& record) {
      return this->Conf().GetHostByMACAddress(Expanded(mac).Get(), record, rawEntries);
    });
  }

  /// The two walking operations with every kind that they take; all hit in kOffice as opened.
  std::vector<std::string> Walks() {
    return {First(SECTION_GLOBAL),
            First(SECTION_SHARED_NETWORK),
            First(SECTION_SUBNET),
            First(SECTION_HOST),
            First(SECTION_IF),
            NextAfter(SECTION_HOST, "a"),
            NextAfter(SECTION_IF, "known"),
            Next(SECTION_SUBNET),
            Next(SECTION_SHARED_NETWORK)};
  }

  /// The other operations with every kind that they take; all hit in kOffice as opened.
  std::vector<std::string> Lookups() {
    return {ByLine("log b;"),
            HostByName("a"),
            HostByIp("@ip1"),
            HostByMac("00:00:00:00:00:0a"),
            ByName(SECTION_GLOBAL, nullptr),
            ByName(SECTION_SHARED_NETWORK, "office"),
            ByName(SECTION_SUBNET, "@bare1"),
            ByName(SECTION_HOST, "a"),
            ByName(SECTION_IF, "known"),
            Goto("office", SECTION_SHARED_NETWORK),
            Goto("@bare1", SECTION_SUBNET),
            Goto("a", SECTION_HOST),
            Goto("known", SECTION_IF),
            Goto(nullptr, SECTION_GLOBAL)};
  }

 private:
  /// A name with its placeholders filled in, or the null that it was.
  class Expanded {
   public:
    explicit Expanded(const char* text)
        : isNull_(text == nullptr), text_(isNull_ ? "" : Text(text)) {}
    const char* Get() const { return isNull_ ? nullptr : text_.c_str(); }

   private:
    bool isNull_;
    std::string text_;
  };

  /// Runs an operation that fills a record, on one that holds something already.
  template <class Operation>
  std::string Fetched(Type type, Operation operation) {
    Section record = this->Record(type, {{99, "was here"}});
    const std::string before = RecordText(record);
    std::string result = Outcome([&] { return operation(record); }, "");
    if (result.empty()) return RecordText(record);
    if (RecordText(record) != before) result += ", but the record became " + RecordText(record);
    return result;
  }

  template <class Operation>
  std::string Outcome(Operation operation, const std::string& success) {
    const TreeNode* const network = Reach<Base>::CurrentNetwork(this->Conf());
    const TreeNode* const subnet = Reach<Base>::CurrentSubnet(this->Conf());
    if (operation()) return success;
    const bool moved = network != Reach<Base>::CurrentNetwork(this->Conf()) ||
                       subnet != Reach<Base>::CurrentSubnet(this->Conf());
    return moved ? "miss, but the cursors became " + this->Cursors() : "miss";
  }
};

}  // namespace klepur::test

#endif
