// manual: the manual page, made from the table of commands.
#include <fmt/core.h>

#include <string>
#include <string_view>

#include <tool/command_table.h>
#include <tool/commands.h>
#include <tool/help.h>
#include <tool/output.h>

namespace klepur::tool {
namespace {

/// A text in which nothing is taken for markup.
std::string Literal(std::string_view text) {
  std::string literal;
  for (const char byte : text) {
    if (std::string_view("*_\\<").find(byte) != std::string_view::npos) literal += '\\';
    literal += byte;
  }
  return literal;
}

std::string Bold(std::string_view text) {
  return fmt::format("*{}*", Literal(text));
}

/// A word and, indented below it, what it means.
std::string Entry(const std::string& word, std::string_view meaning) {
  return fmt::format("{}\n\t{}\n\n", word, Literal(meaning));
}

std::string CodeBlock(std::string_view text) {
  return fmt::format("```\n{}\n```\n\n", text);
}

std::string OptionEntry(const Option& option) {
  std::string word = option.letter == 0 ? "" : Bold(fmt::format("-{}", option.letter)) + ", ";
  word += Bold(fmt::format("--{}", option.name));
  if (!option.value.empty()) word += fmt::format(" _{}_", option.value);
  return Entry(word, option.help);
}

std::string SectionOf(const Command& command) {
  std::string text = fmt::format("## {}\n\n{}\n\n", command.name, Bold(Synopsis(command)));
  std::string summary(command.summary);
  summary.front() = static_cast<char>(summary.front() - 'a' + 'A');
  text += Literal(summary) + ".\n\n";
  if (!command.details.empty()) text += Literal(command.details) + "\n\n";
  for (const Argument& argument : command.arguments)
    text += Entry(fmt::format("_{}_", argument.name), argument.help);
  for (const Option& option : command.options) text += OptionEntry(option);
  for (const Example& example : command.examples) {
    text += fmt::format("{}:\n\n", Literal(example.says)) + CodeBlock(example.line);
  }
  return text;
}

constexpr std::string_view kOutput = R"(# OUTPUT

What was asked for goes to standard output, what was done and what went wrong to standard error. On a terminal
tables are aligned below headings, and columns that are empty are left out. In a pipe rows are lines, their columns
divided by tabs, always all of them and without headings:

*list*
	kind, name, identity, addresses, in, line, state

*show --in-force*
	keyword, value, from, line

*find*
	what, found by, found, addresses, in, line

*diff*
	change, what, in, old, new, old line, new line

*leases*
	address, state, starts, ends, client, name

*words*
	word, kind, server, value, explanation

Findings of *check* are lines as compilers write them. With *--json* each command prints one object:

*version*
	1; it counts up when a field is renamed, removed or means something else

*file*
	the file, as it was named

*blocks* (list, show, find)
	each with *kind*, *name*, *header*, *line*, *disabled*, *in*, *identity*, *addresses* and *statements*, which have
	*keyword*, *value* and *line*; of find also *what* and *found\_by*, of show *text*

*statements* (show --in-force)
	each with *keyword*, *value*, *from* and *line*

*edits*, *saved*, *diff* (the commands that edit)
	each edit with *line*, *text* and *comments*, those that were removed with it; of a script also *script\_line*,
	and no *line* for what is gone. Whether the file was written; the diff that was asked for

*findings* (check)
	each with *file*, *line*, *column*, *severity*, *rule* and *message*; *other\_line* where two places are at odds,
	*mend* where the finding says how to put it right

*files* (format)
	each with *file*, *would\_change*, *saved* and *diff*

*changes* (diff)
	each with *change* (added, removed, changed or moved), *what*, *in*, *old*, *new*, *old\_line* and *new\_line*

*leases*
	each with *address*, *state*, *starts*, *ends*, *client* and *name*

*words*
	each with *word*, *kind*, *server*, *value*, *places4*, *places6* and *explanation*

Bytes that are no UTF-8 stand in JSON as \\xe9, with the two digits of the byte.

)";

constexpr std::string_view kSaving = R"(# SAVING

A file that is edited is locked from reading to saving, so that two commands wait for each other and no edit is lost. The new
text is written beside the file, flushed, read back and renamed over it: whenever the machine stops, the
path holds the whole old or the whole new text. Owner, mode, access lists and attributes are kept, and symbolic links
followed. When nothing changes, nothing is written.

An edit that would bring in a finding of severity error is refused. Findings that were there before are in
nobody's way.

)";

constexpr std::string_view kEnd = R"(# ENVIRONMENT

*NO\_COLOR*
	no colour, whatever its value, unless it is empty

*TMPDIR*
	where *check --server* puts the text that the server reads

# SEE ALSO

*dhcpd.conf*(5), *dhcpd.leases*(5), *dhcpd*(8)
)";

}  // namespace

ExitStatus RunManual(const Invocation& invocation) {
  std::string text =
      "klepur(1)\n\n# NAME\n\nklepur - shows, edits and checks DHCP server configuration files\n\n";
  text +=
      "# SYNOPSIS\n\n*klepur* _COMMAND_ [_OPTIONS_] _FILE_ [...]\n\n*klepur* *--help* | "
      "*--version*\n\n";
  text += fmt::format("# DESCRIPTION\n\n{}\n\n", Literal(Purpose()));
  text +=
      "# BLOCKS\n\nA _BLOCK_ is named in one argument, as it stands in the file or shorter:\n\n";
  for (const Example& form : BlockForms()) text += Entry(Bold(form.line), form.says);
  text +=
      "When there is no such block, or more than one, the candidates are told with their lines, "
      "and nothing is written. "
      "With *--all* names may be patterns with \\*, ? and [...].\n\n# COMMANDS\n\n"
      "Every command has *-h*, *--help*. Behind *--* no word is an option.\n\n";
  for (const Command& command : Commands()) text += SectionOf(command);
  text += std::string(kOutput) + std::string(kSaving) + "# EXIT STATUS\n\n";
  for (const Example& status : ExitStatuses()) text += Entry(Bold(status.line), status.says);
  Output(invocation).Print(text + std::string(kEnd));
  return ExitStatus::kDone;
}

}  // namespace klepur::tool
