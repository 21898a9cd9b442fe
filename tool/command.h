// One command of the tool, as its help, manual, completion and command line know it.
#ifndef KLEPUR_TOOL_COMMAND_H
#define KLEPUR_TOOL_COMMAND_H

#include <string_view>
#include <vector>

#include <tool/exit_status.h>

namespace klepur::tool {

class Invocation;

/// What a shell offers for an argument or an option's value.
enum class Offer { kNothing, kFile, kBlock, kKind, kKeyword, kChoice };

/// An argument by its place: "FILE", "[KIND...]".
struct Argument {
  std::string_view name;
  std::string_view help;
  Offer offer = Offer::kNothing;
  bool optional = false;
  bool repeated = false;          ///< Of the last one: any number of them.
  std::string_view choices = {};  ///< For kChoice: words with a blank between.
};

/// An option: "-n, --dry-run", "--in BLOCK".
struct Option {
  std::string_view name;   ///< "dry-run"
  char letter = 0;         ///< 'n', or none.
  std::string_view value;  ///< "BLOCK"; empty for an option that has none.
  std::string_view help;
  Offer offer = Offer::kNothing;
  std::string_view choices = {};  ///< For kChoice: words with a blank between.
  bool in_scripts = false;        ///< Whether it may stand in a line of an edit script.
};

/// A command line that works, and what it does.
struct Example {
  std::string_view line;
  std::string_view says;
};

struct Command {
  std::string_view name;
  std::string_view summary;  ///< One line, in small letters, without a full stop.
  std::string_view details;  ///< Paragraphs, an empty line between.
  std::vector<Argument> arguments;
  std::vector<Option> options;
  std::vector<Example> examples;
  ExitStatus (*run)(const Invocation&);
  bool is_edit = false;  ///< Whether it may be a line of an edit script.
};

}  // namespace klepur::tool

#endif
