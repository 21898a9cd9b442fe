// How a command prints what it found: for people, for scripts or as JSON.
#ifndef KLEPUR_TOOL_OUTPUT_H
#define KLEPUR_TOOL_OUTPUT_H

#include <string>
#include <string_view>
#include <vector>

#include <tool/invocation.h>
#include <tool/record.h>

namespace klepur::tool {

enum class Style { kPlain, kHeading, kStrong, kFaint, kGood, kBad, kWarning, kPlace };

/// Rows of cells below headings.
struct Table {
  struct Row {
    std::vector<std::string> cells;
    Style style = Style::kPlain;
  };
  std::vector<std::string> headings;
  std::vector<Row> rows;
};

/// Standard output of one command. Whether it is a terminal decides the form, NO_COLOR and --color whether
/// there is colour, and --json that all is one object.
class Output {
 public:
  explicit Output(const Invocation& invocation);

  bool IsJson() const { return is_json_; }
  bool IsTerminal() const { return is_terminal_; }

  /// The text in a colour, where there is colour.
  std::string Painted(Style style, std::string_view text) const;

  /// On a terminal aligned below headings, without the columns that are empty in all rows; else each row a
  /// line, a tab between the cells, without headings.
  void Print(const Table& table) const;
  void Print(const Record& record) const;
  void Print(std::string_view text) const;
  /// A unified diff, with colour where there is colour.
  void PrintDiff(std::string_view diff) const;

 private:
  void PrintAligned(const Table& table) const;

  bool is_json_;
  bool is_terminal_;
  bool has_colour_;
};

/// Says something to the user on standard error, with the command's name before it.
void Say(std::string_view message);

/// The same without a name before it.
void SayPlain(std::string_view message);

/// Hands all that was printed to the system. Throws Problem(kFile) when it did not take it.
void Flush();

/// The text on one line and safe for a terminal: blanks and line ends as one blank, other control
/// characters as `\x1b`.
std::string OneLine(std::string_view text);

}  // namespace klepur::tool

#endif
