#include <tool/output.h>

#include <fmt/core.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <tool/json.h>
#include <tool/problem.h>

namespace klepur::tool {
namespace {

constexpr std::string_view kGap = "  ";

bool WantsColour(const std::string& when, bool is_terminal) {
  if (when == "always") return true;
  if (when == "never" || !is_terminal) return false;
  const char* const no_color = std::getenv("NO_COLOR");
  const char* const terminal = std::getenv("TERM");
  return (no_color == nullptr || *no_color == '\0') &&
         (terminal == nullptr || std::strcmp(terminal, "dumb") != 0);
}

std::string_view CodeOf(Style style) {
  switch (style) {
    case Style::kPlain:
      return "";
    case Style::kHeading:
      return "\x1b[4m";
    case Style::kStrong:
      return "\x1b[1m";
    case Style::kFaint:
      return "\x1b[2m";
    case Style::kGood:
      return "\x1b[32m";
    case Style::kBad:
      return "\x1b[31m";
    case Style::kWarning:
      return "\x1b[33m";
    case Style::kPlace:
      return "\x1b[36m";
  }
  return "";
}

/// Characters, not bytes.
std::size_t WidthOf(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xc0U) != 0x80;
  }));
}

std::string TabSeparated(const Table& table) {
  std::string text;
  for (const Table::Row& row : table.rows) {
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      if (i != 0) text += '\t';
      text += row.cells[i];
    }
    text += '\n';
  }
  return text;
}

/// How wide each column is; 0 for those that are empty in all rows.
std::vector<std::size_t> Widths(const Table& table) {
  std::vector<std::size_t> widths(table.headings.size(), 0);
  for (const Table::Row& row : table.rows) {
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      widths[i] = std::max(widths[i], WidthOf(row.cells[i]));
    }
  }
  for (std::size_t i = 0; i < widths.size(); ++i) {
    if (widths[i] != 0) widths[i] = std::max(widths[i], WidthOf(table.headings[i]));
  }
  return widths;
}

std::string Aligned(const std::vector<std::string>& cells, const std::vector<std::size_t>& widths) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (widths[i] == 0) continue;
    line += cells[i];
    line.append(widths[i] - WidthOf(cells[i]), ' ');
    line += kGap;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

Style StyleOfDiffLine(std::string_view line) {
  switch (line.front()) {
    case '+':
      return Style::kGood;
    case '-':
      return Style::kBad;
    case '@':
      return Style::kPlace;
    default:
      return Style::kPlain;
  }
}

}  // namespace

Output::Output(const Invocation& invocation)
    : is_json_(invocation.Has("json")),
      is_terminal_(isatty(STDOUT_FILENO) == 1),
      has_colour_(WantsColour(invocation.Value("color"), is_terminal_)) {}

std::string Output::Painted(Style style, std::string_view text) const {
  if (!has_colour_ || style == Style::kPlain) return std::string(text);
  return fmt::format("{}{}\x1b[0m", CodeOf(style), text);
}

void Output::Print(const Table& table) const {
  if (is_terminal_) {
    PrintAligned(table);
  } else {
    Print(TabSeparated(table));
  }
}

void Output::PrintAligned(const Table& table) const {
  if (table.rows.empty()) return;
  const std::vector<std::size_t> widths = Widths(table);
  std::string text = Painted(Style::kHeading, Aligned(table.headings, widths)) + "\n";
  for (const Table::Row& row : table.rows) {
    text += Painted(row.style, Aligned(row.cells, widths)) + "\n";
  }
  Print(text);
}

void Output::Print(const Record& record) const {
  Print(Json(record));
}

void Output::Print(std::string_view text) const {
  // What did not go out is noticed by Flush.
  std::fwrite(text.data(), 1, text.size(), stdout);
}

void Output::PrintDiff(std::string_view diff) const {
  if (!has_colour_) return Print(diff);
  while (!diff.empty()) {
    const std::size_t end = std::min(diff.find('\n'), diff.size() - 1);
    const std::string_view line = diff.substr(0, end);
    Print(line.empty() ? std::string(line) : Painted(StyleOfDiffLine(line), line));
    Print("\n");
    diff.remove_prefix(end + 1);
  }
}

void Say(std::string_view message) {
  SayPlain(fmt::format("klepur: {}", message));
}

void SayPlain(std::string_view message) {
  std::fflush(stdout);  // so that both streams stand in order on a terminal
  const std::string line = fmt::format("{}\n", message);
  std::fwrite(line.data(), 1, line.size(), stderr);
}

void Flush() {
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return;
  const int reason = errno;
  throw Problem(ExitStatus::kFile, fmt::format("standard output: {}", std::strerror(reason)));
}

std::string OneLine(std::string_view text) {
  std::string line;
  bool blank = false;
  for (const char byte : text) {
    if (byte == ' ' || (byte >= '\t' && byte <= '\r')) {
      blank = !line.empty();
      continue;
    }
    if (blank) line += ' ';
    blank = false;
    const auto value = static_cast<unsigned char>(byte);
    if (value < 0x20 || value == 0x7f) {
      line += fmt::format("\\x{:02x}", value);
    } else {
      line += byte;
    }
  }
  return line;
}

}  // namespace klepur::tool
