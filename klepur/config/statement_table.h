// Internal: the tables of statements and blocks that reading and writing share.
#ifndef KLEPUR_CONFIG_STATEMENT_TABLE_H
#define KLEPUR_CONFIG_STATEMENT_TABLE_H

#include <klepur/config/section_record.h>

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace klepur::internal {

/// How a value stands on its line.
enum class Form {
  kFlag,       // authoritative;
  kPlain,      // max-lease-time 7200;
  kQuoted,     // filename "pxelinux.0";
  kCommaList,  // option ntp-servers 10.1.1.1, 10.1.1.2;
  kBlankList,  // range 10.0.0.10 10.0.0.20;
  kWholeLine,  // the value is the line but for its last character, a ";" that the line must hold
};

/// A row: one kind of statement. Rows stand in the order in which they are tried.
struct Statement {
  int type;
  std::string_view keyword;
  Form form;
};

using StatementTable = std::span<const Statement>;

/// Whether each row can be the first one that is found: no keyword holds an earlier one.
constexpr bool EveryRowReachable(StatementTable table) {
  for (std::size_t later = 1; later < table.size(); ++later) {
    for (std::size_t earlier = 0; earlier < later; ++earlier) {
      if (table[later].keyword.find(table[earlier].keyword) != std::string_view::npos) return false;
    }
  }
  return true;
}

/// The type of the first row whose keyword stands in the line; -1 when none does.
int Classify(StatementTable table, std::string_view line);

/// The first row of a type; null for every number that has no line.
const Statement* FindStatement(StatementTable table, int type);

/// Where the address list of a line begins.
using ListStart = const char* (*)(const char* line);

/// Reads the value of a line into `value`, which stays as it is when a kPlain line has no value; of
/// a kQuoted line without one, what `value` holds loses its ends all the same.
void ReadValue(Form form, const std::string& line, ListStart listStart, std::string& value);

/// The line that carries a value.
std::string WriteLine(const Statement& statement, const std::string& value);

/// The SectionType of a block of no other kind, in every vocabulary.
inline constexpr int kGlobalType = 0;

/// A row: one kind of block, a SectionType, and what its header holds.
struct BlockKind {
  int type;
  std::string_view prefix;
};

using BlockTable = std::array<BlockKind, 4>;

/// The blocks in the order in which they are tried; only the subnet's keyword differs by family.
template <class Vocabulary>
constexpr BlockTable MakeBlockTable(std::string_view subnetPrefix) {
  using Types = SectionTypes<Vocabulary>;
  static_assert(Types::SECTION_GLOBAL == kGlobalType);
  return {{{Types::SECTION_SHARED_NETWORK, "shared-network "},
           {Types::SECTION_SUBNET, subnetPrefix},
           {Types::SECTION_HOST, "host "},
           {Types::SECTION_IF, "if "}}};
}

/// The type of the first row that stands anywhere in the header; kGlobalType when none does.
int KindOf(const BlockTable& table, std::string_view header);

/// What a header of this kind begins with; empty for a kind without a row.
std::string_view PrefixOf(const BlockTable& table, int type);

}  // namespace klepur::internal

#endif
