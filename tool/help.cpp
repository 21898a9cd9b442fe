#include <tool/help.h>

#include <fmt/core.h>

#include <algorithm>

#include <tool/command_table.h>
#include <tool/commands.h>
#include <tool/language.h>
#include <tool/nearest.h>
#include <tool/output.h>
#include <tool/problem.h>

namespace klepur::tool {
namespace {

constexpr std::size_t kWidth = 80;

/// The text in lines of at most kWidth columns; all but the first are indented.
std::string Wrapped(std::string_view text, std::size_t indent, std::size_t column) {
  std::string wrapped;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find(' ', begin), text.size());
    const std::string_view word = text.substr(begin, end - begin);
    begin = end + 1;
    if (!wrapped.empty() && column + 1 + word.size() > kWidth) {
      wrapped += "\n" + std::string(indent, ' ');
      column = indent;
    } else if (!wrapped.empty()) {
      wrapped += ' ';
      ++column;
    }
    wrapped += word;
    column += word.size();
  }
  return wrapped;
}

/// Rows of a word and what it means, which begins in the same column in all of them.
std::string Rows(const std::vector<Example>& rows) {
  constexpr std::size_t kWidest = 28;
  std::size_t width = 0;
  for (const Example& row : rows) {
    if (row.line.size() <= kWidest) width = std::max(width, row.line.size());
  }
  std::string text;
  for (const Example& row : rows) {
    const std::size_t indent = width + 4;
    text += fmt::format("  {}", row.line);
    text += row.line.size() > width ? "\n" + std::string(indent, ' ')
                                    : std::string(indent - 2 - row.line.size(), ' ');
    text += Wrapped(row.says, indent, indent) + "\n";
  }
  return text;
}

std::string OptionText(const Option& option) {
  const std::string letter = option.letter == 0 ? "    " : fmt::format("-{}, ", option.letter);
  const std::string value = option.value.empty() ? "" : fmt::format(" {}", option.value);
  return fmt::format("{}--{}{}", letter, option.name, value);
}

std::string OptionRows(const Command& command) {
  std::vector<std::string> texts;
  for (const Option& option : command.options) texts.push_back(OptionText(option));
  texts.emplace_back("-h, --help");
  std::vector<Example> rows;
  for (std::size_t i = 0; i < command.options.size(); ++i)
    rows.push_back({texts[i], command.options[i].help});
  rows.push_back({texts.back(), "print this"});
  return Rows(rows);
}

std::string ExampleRows(const std::vector<Example>& examples) {
  std::string text;
  for (const Example& example : examples)
    text += fmt::format("  {}\n      {}\n", example.line, example.says);
  return text;
}

}  // namespace

std::string Synopsis(const Command& command) {
  std::string text = fmt::format("klepur {}", command.name);
  if (!command.options.empty()) text += " [OPTIONS]";
  for (const Argument& argument : command.arguments) {
    const std::string name = fmt::format("{}{}", argument.name, argument.repeated ? "..." : "");
    text += argument.optional ? fmt::format(" [{}]", name) : " " + name;
  }
  return text;
}

std::string GeneralHelp() {
  std::vector<Example> rows;
  for (const Command& command : Commands()) rows.push_back({command.name, command.summary});
  std::string text = "Usage: klepur COMMAND [OPTIONS] FILE [...]\n\n";
  text += Wrapped(Purpose(), 0, 0) + "\n\nCommands:\n" + Rows(rows);
  text += "\nA BLOCK is named in one argument:\n" + Rows(BlockForms());
  text += "\nExamples:\n";
  for (const std::string_view name : {"list", "find", "add", "set"}) {
    if (const Command* const command = FindCommand(name))
      text += ExampleRows({command->examples.front()});
  }
  text += "\nExit status:\n" + Rows(ExitStatuses());
  return text + "\n`klepur COMMAND --help` says more, and `man klepur` everything.\n";
}

std::string HelpFor(const Command& command) {
  std::string text = fmt::format("Usage: {}\n\n", Synopsis(command));
  std::string summary(command.summary);
  summary.front() = static_cast<char>(summary.front() - 'a' + 'A');
  text += summary + ".\n";
  if (!command.details.empty()) text += Wrapped(command.details, 0, 0) + "\n";
  std::vector<Example> arguments;
  bool has_block = false;
  for (const Argument& argument : command.arguments) {
    arguments.push_back({argument.name, argument.help});
    has_block = has_block || argument.offer == Offer::kBlock;
  }
  if (!arguments.empty()) text += "\nArguments:\n" + Rows(arguments);
  text += "\nOptions:\n" + OptionRows(command);
  if (has_block) text += "\nA BLOCK is named in one argument:\n" + Rows(BlockForms());
  if (!command.examples.empty()) text += "\nExamples:\n" + ExampleRows(command.examples);
  return text;
}

ExitStatus RunHelp(const Invocation& invocation) {
  const Output output(invocation);
  const std::string name = invocation.Argument("COMMAND");
  if (name.empty()) {
    output.Print(GeneralHelp());
    return ExitStatus::kDone;
  }
  const Command* const command = FindCommand(name);
  if (command == nullptr)
    throw Problem(ExitStatus::kUsage, fmt::format("there is no command {}", name));
  output.Print(HelpFor(*command));
  return ExitStatus::kDone;
}

}  // namespace klepur::tool
