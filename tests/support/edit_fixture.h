// The language of the tests that add, remove and change blocks.
#ifndef KLEPUR_TESTS_SUPPORT_EDIT_FIXTURE_H
#define KLEPUR_TESTS_SUPPORT_EDIT_FIXTURE_H

#include <climits>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "tests/support/navigation_fixture.h"

namespace klepur::test {

/// Numbers that are no kind of block.
inline constexpr EitherKind kNoKinds[] = {{5}, {-1}, {INT_MAX}, {INT_MIN}};

/// A family and one of the two kinds of block that are edited below a subnet. "@kind" in a text is
/// the keyword of the kind.
template <class F, EitherKind kKindOfBlock>
struct WithKind : F {
  static constexpr EitherKind kKind = kKindOfBlock;
  static constexpr bool kIsHost = kKind == SECTION_HOST;

  static std::string Text(std::string_view text) {
    return Replace(F::Text(text), {{"@kind", kIsHost ? "host" : "if"}});
  }
};

using FamiliesAndKinds = ::testing::Types<WithKind<V4, SECTION_HOST>, WithKind<V4, SECTION_IF>,
                                          WithKind<V6, SECTION_HOST>, WithKind<V6, SECTION_IF>>;

struct FamilyAndKindNames {
  template <class Family>
  static std::string GetName(int /*index*/) {
    return std::string(std::is_base_of_v<V4, Family> ? "V4" : "V6") +
           (Family::kIsHost ? "Host" : "If");
  }
};

template <class Family, Kind kKind = Kind::kDerived>
class EditFixture : public NavigationFixture<Family, kKind> {
 public:
  using typename NavigationFixture<Family, kKind>::Section;
  using typename NavigationFixture<Family, kKind>::TreeNode;
  using typename NavigationFixture<Family, kKind>::Type;
  using Params = std::initializer_list<std::pair<int, std::string_view>>;

  /// As Record, with "#" before the value of a parameter that is commented out.
  static Section Marked(Type type, Params params) {
    Section record = NavigationFixture<Family, kKind>::Record(type, params);
    for (auto& param : record.params) {
      param.commented = param.value.starts_with('#');
      if (param.commented) param.value.erase(0, 1);
    }
    return record;
  }

  /// A record with this name and the statement "max-lease-time 1;".
  static Section Timed(Type type, std::string_view name) {
    return NavigationFixture<Family, kKind>::Record(
        type, {{Family::kName, name}, {Family::kMaxLeaseTime, "1"}});
  }

  /// A record with nothing but its name.
  static Section Bare(Type type, std::string_view name) {
    return NavigationFixture<Family, kKind>::Record(type, {{Family::kName, name}});
  }

  /// Both cursors on one line, then the whole tree.
  std::string State() { return this->Cursors() + "\n" + this->Tree(); }

  void WithoutParser() {
    delete this->Conf().parser;
    this->Conf().parser = nullptr;
  }

  void WithoutHolder() {
    this->Conf().currentNetwork = nullptr;
    this->Conf().currentSubnet = nullptr;
    delete this->Conf().holder;
    this->Conf().holder = nullptr;
  }

  /// The line, comment mark and all, of the block with this header.
  CfSectionEntry& Entry(std::string_view header, std::size_t index) {
    return *this->Node(header)->section.entryList.at(index);
  }
};

}  // namespace klepur::test

#endif
