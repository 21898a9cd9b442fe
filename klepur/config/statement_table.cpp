#include <klepur/config/statement_table.h>
#include <klepur/config/value_scan.h>

#include <algorithm>
#include <list>

namespace klepur::internal {
namespace {

bool Holds(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

bool Matches(const Statement& statement, std::string_view line) {
  return Holds(line, statement.keyword) && (statement.form != Form::kWholeLine || Holds(line, ";"));
}

std::string ReadList(const char* start, std::string_view separator) {
  std::list<std::string> elements;
  SplitList(start, elements);
  return elements.empty() ? "wrong value" : Join(elements, separator);
}

}  // namespace

int Classify(StatementTable table, std::string_view line) {
  const auto row = std::find_if(table.begin(), table.end(),
                                [line](const Statement& it) { return Matches(it, line); });
  return row == table.end() ? -1 : row->type;
}

const Statement* FindStatement(StatementTable table, int type) {
  const auto row = std::find_if(table.begin(), table.end(),
                                [type](const Statement& it) { return it.type == type; });
  return row == table.end() ? nullptr : &*row;
}

void ReadValue(Form form, const std::string& line, ListStart listStart, std::string& value) {
  switch (form) {
    case Form::kFlag:
      value = "exist";
      break;
    case Form::kPlain:
      LastWordOfStatement(line, value);
      break;
    case Form::kQuoted:
      LastWordOfStatement(line, value);
      value = WithoutEnds(value);
      break;
    case Form::kCommaList:
      value = ReadList(listStart(line.c_str()), ", ");
      break;
    case Form::kBlankList:
      value = ReadList(listStart(line.c_str()), " ");
      break;
    case Form::kWholeLine:
      value = line.substr(0, line.size() - 1);
      break;
  }
}

std::string WriteLine(const Statement& statement, const std::string& value) {
  std::string line;
  if (statement.form != Form::kWholeLine) line = statement.keyword;
  switch (statement.form) {
    case Form::kFlag:
      break;
    case Form::kPlain:
    case Form::kCommaList:
    case Form::kBlankList:
      line.append(" ").append(value);
      break;
    case Form::kQuoted:
      line.append(" \"").append(value).append("\"");
      break;
    case Form::kWholeLine:
      line = value;
      break;
  }
  return line += ';';
}

int KindOf(const BlockTable& table, std::string_view header) {
  const auto row = std::find_if(table.begin(), table.end(),
                                [header](const BlockKind& it) { return Holds(header, it.prefix); });
  return row == table.end() ? kGlobalType : row->type;
}

std::string_view PrefixOf(const BlockTable& table, int type) {
  const auto row = std::find_if(table.begin(), table.end(),
                                [type](const BlockKind& it) { return it.type == type; });
  return row == table.end() ? std::string_view() : row->prefix;
}

}  // namespace klepur::internal
