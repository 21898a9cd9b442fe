// completion: the scripts that complete command lines in a shell, made from the table of commands.
#include <fmt/core.h>

#include <string>
#include <vector>

#include <tool/command_table.h>
#include <tool/commands.h>
#include <tool/language.h>
#include <tool/output.h>

namespace klepur::tool {
namespace {

constexpr std::string_view kKinds =
    "host subnet subnet6 shared-network pool pool6 group class subclass zone key 'failover peer' "
    "if elsif else switch on";

/// What the scripts call the source of an argument's words.
std::string_view SourceOf(Offer offer) {
  switch (offer) {
    case Offer::kNothing:
      return "nothing";
    case Offer::kFile:
      return "file";
    case Offer::kBlock:
      return "block";
    case Offer::kKind:
      return "kind";
    case Offer::kKeyword:
      return "keyword";
    case Offer::kChoice:
      return "choice";
  }
  return "nothing";
}

std::string CommandNames() {
  std::string names;
  for (const Command& command : Commands())
    names += fmt::format("{}{}", names.empty() ? "" : " ", command.name);
  return names;
}

std::string OptionNames(const Command& command) {
  std::string names = "--help";
  for (const Option& option : command.options) {
    names += fmt::format(" --{}", option.name);
    if (option.letter != 0) names += fmt::format(" -{}", option.letter);
  }
  return names;
}

/// The sources of the arguments in their order, "file block keyword...".
std::string Sources(const Command& command) {
  std::string sources;
  for (const Argument& argument : command.arguments) {
    if (!sources.empty()) sources += ' ';
    sources += argument.name == "COMMAND" ? "command" : SourceOf(argument.offer);
    if (argument.repeated) sources += "...";
  }
  return sources;
}

/// A text between single quotes in any shell.
std::string Quote(std::string_view text) {
  std::string quoted = "'";
  for (const char byte : text) {
    quoted += byte == '\'' ? std::string("'\\''") : std::string(1, byte);
  }
  return quoted + "'";
}

/// A text between single quotes in fish.
std::string FishQuote(std::string_view text) {
  std::string quoted = "'";
  for (const char byte : text) {
    if (byte == '\'' || byte == '\\') quoted += '\\';
    quoted += byte;
  }
  return quoted + "'";
}

std::string ChoicesOf(const Command& command) {
  for (const Argument& argument : command.arguments) {
    if (!argument.choices.empty()) return std::string(argument.choices);
  }
  return {};
}

/// The arms of the `case` over the commands that set what bash and zsh complete from.
std::string CommandArms() {
  std::string text;
  for (const Command& command : Commands()) {
    text += fmt::format("    {}) options='{}' sources='{}' choices='{}' ;;\n", command.name,
                        OptionNames(command), Sources(command), ChoicesOf(command));
  }
  return text;
}

/// The arms of the `case` over "COMMAND --OPTION" for options with a value.
std::string ValueArms() {
  std::string text;
  for (const Command& command : Commands()) {
    for (const Option& option : command.options) {
      if (option.value.empty()) continue;
      std::string pattern = fmt::format("'{} --{}'", command.name, option.name);
      if (option.letter != 0) pattern += fmt::format("|'{} -{}'", command.name, option.letter);
      text += fmt::format("    {}) value='{}' choices='{}' ;;\n", pattern, SourceOf(option.offer),
                          option.choices);
    }
  }
  return text;
}

/// "COMMAND --OPTION" of all options with a value, as a pattern.
std::string ValuePattern() {
  std::string pattern;
  for (const Command& command : Commands()) {
    for (const Option& option : command.options) {
      if (option.value.empty()) continue;
      pattern += fmt::format("{}'{} --{}'", pattern.empty() ? "" : "|", command.name, option.name);
      if (option.letter != 0) pattern += fmt::format("|'{} -{}'", command.name, option.letter);
    }
  }
  return pattern;
}

/// The shell function that tells what can stand at the cursor.
std::string SourceFunction() {
  std::string text =
      R"sh(# Sets source, choices, klepur_options and klepur_file from the words before the cursor, klepur the first of them.
_klepur_source() {
  [ -z "$ZSH_VERSION" ] || emulate -L sh
  local command=$2 options= sources= value= word previous= taken=0 each rest
  source=nothing choices= klepur_file=
  if [ $# -lt 2 ]; then
)sh";
  text +=
      fmt::format("    source=choice choices={}\n", Quote("--help --version " + CommandNames()));
  text += "    return\n  fi\n  shift 2\n  case $command in\n" + CommandArms() + "  esac\n";
  text += "  for word; do\n    value=\n    case \"$command $word\" in\n";
  text += fmt::format("      {}) value=yes ;;\n    esac\n", ValuePattern());
  text += R"sh(    if [ -n "$previous" ]; then
      previous=
    elif [ -n "$value" ]; then
      previous=$word
    else
      case $word in
        -?*) ;;
        *) taken=$((taken + 1)); [ -n "$klepur_file" ] || klepur_file=$word ;;
      esac
    fi
  done
  if [ -n "$previous" ]; then
    case "$command $previous" in
)sh";
  text += ValueArms();
  text += R"sh(    esac
    source=$value
    return
  fi
  source=nothing
  klepur_options=$options
  rest=$sources
  while [ -n "$rest" ]; do
    each=${rest%% *}
    case $rest in *' '*) rest=${rest#* } ;; *) rest= ;; esac
    source=${each%...}
    [ "$taken" -gt 0 ] || return
    taken=$((taken - 1))
    case $each in *...) return ;; esac
    source=nothing
  done
}

)sh";
  return text;
}

/// The shell function that prints what a source offers.
std::string WordsFunction() {
  std::string text = R"sh(# The words of a source, a line each.
_klepur_words() {
  [ -z "$ZSH_VERSION" ] || emulate -L sh
  case $1 in
    choice) printf '%s\n' $choices ;;
)sh";
  text += fmt::format("    command) printf '%s\\n' {} ;;\n", CommandNames());
  text += fmt::format("    kind) printf '%s\\n' {} ;;\n", kKinds);
  text +=
      R"sh(    block) klepur list "$klepur_file" 2>/dev/null | awk -F '\t' '$2 != "" { print $1 " " $2 }' ;;
    keyword) klepur words 2>/dev/null | cut -f 1 ;;
  esac
}

)sh";
  return text;
}

/// What bash and zsh have in common: from the words before the cursor to those that can follow.
std::string SharedPart() {
  return SourceFunction() + WordsFunction();
}

std::string BashScript() {
  std::string text = "# Completion of klepur for bash.\n" + SharedPart();
  text += R"sh(_klepur() {
  local source choices klepur_file klepur_options= word typed=$2 quoted=
  local -a before=()
  # The words as they were typed: a quote or backslash in one of them is taken away.
  local i
  for ((i = 0; i < COMP_CWORD; i++)); do
    word=${COMP_WORDS[i]}
    word=${word#[\"\']}
    word=${word%[\"\']}
    before+=("${word//\\/}")
  done
  _klepur_source "${before[@]}"
  case ${COMP_WORDS[COMP_CWORD]} in [\"\']*) quoted=yes typed=${typed#[\"\']} ;; esac
  typed=${typed//\\/}
  COMPREPLY=()
  if [[ $typed == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$klepur_options" -- "$typed")
    return
  fi
  if [ "$source" = file ]; then
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$typed")
    return
  fi
  while IFS= read -r word; do
    [[ $word == "$typed"* ]] || continue
    if [ -n "$quoted" ]; then
      COMPREPLY+=("$word")
    else
      COMPREPLY+=("$(printf %q "$word")")
    fi
  done < <(_klepur_words "$source")
}
complete -F _klepur klepur
)sh";
  return text;
}

std::string ZshScript() {
  std::string text = "#compdef klepur\n# Completion of klepur for zsh.\n" + SharedPart();
  text += R"sh(_klepur() {
  local source choices klepur_file klepur_options
  local -a before found
  before=("${(@Q)words[1,CURRENT-1]}")
  _klepur_source "${before[@]}"
  if [[ ${words[CURRENT]} == -* ]]; then
    found=(${=klepur_options})
    compadd -a found
  elif [[ $source == file ]]; then
    _files
  else
    found=("${(@f)$(_klepur_words $source)}")
    compadd -a found
  fi
}
if [[ ${funcstack[1]} == _klepur ]]; then
  _klepur "$@"
else
  compdef _klepur klepur
fi
)sh";
  return text;
}

/// What fish calls to have the words of an offer; empty for what it has itself.
std::string FishWords(Offer offer) {
  if (offer != Offer::kBlock && offer != Offer::kKind && offer != Offer::kKeyword) return {};
  return fmt::format(" -a '(__klepur_words {})'", SourceOf(offer));
}

std::string FishOption(const Command& command, const Option& option) {
  std::string line = fmt::format("complete -c klepur -n '__fish_seen_subcommand_from {}' -l {}",
                                 command.name, option.name);
  if (option.letter != 0) line += fmt::format(" -s {}", option.letter);
  if (!option.value.empty()) line += option.offer == Offer::kFile ? " -r -F" : " -x";
  if (!option.choices.empty()) line += fmt::format(" -a {}", FishQuote(option.choices));
  return line + FishWords(option.offer) + fmt::format(" -d {}\n", FishQuote(option.help));
}

/// The options of a command that have a value, as words.
std::string ValuedOptions(const Command& command) {
  std::string names;
  for (const Option& option : command.options) {
    if (option.value.empty()) continue;
    names += fmt::format(" --{}", option.name);
    if (option.letter != 0) names += fmt::format(" -{}", option.letter);
  }
  return names;
}

/// The functions of fish that tell what can stand at the cursor, and print what an offer has.
std::string FishFunctions() {
  std::string text =
      R"sh(# The arguments before the cursor, options and their values left out, a line each.
function __klepur_arguments
  set -l words (commandline -opc)
  set -l valued
  switch "$words[2]"
)sh";
  for (const Command& command : Commands()) {
    const std::string valued = ValuedOptions(command);
    if (!valued.empty())
      text += fmt::format("    case {}\n      set valued{}\n", command.name, valued);
  }
  text += R"sh(  end
  set -e words[1..2]
  set -l is_value no
  for word in $words
    if test $is_value = yes
      set is_value no
    else if contains -- $word $valued
      set is_value yes
    else if not string match -q -- '-?*' $word
      printf '%s\n' $word
    end
  end
end

# Whether the argument at the cursor is of a source.
function __klepur_offers
  set -l words (commandline -opc)
  set -l sources
  switch "$words[2]"
)sh";
  for (const Command& command : Commands()) {
    const std::string sources = Sources(command);
    if (!sources.empty())
      text += fmt::format("    case {}\n      set sources {}\n", command.name, sources);
  }
  text += R"sh(  end
  set -l place (math (__klepur_arguments | count) + 1)
  if test (count $sources) -gt 0
    and string match -q -- '*...' $sources[-1]
    and test $place -gt (count $sources)
    set place (count $sources)
  end
  test "$argv[1]" = (string replace -- ... '' "$sources[$place]")
end

# The words of a source, a line each.
function __klepur_words
  switch $argv[1]
    case block
      set -l arguments (__klepur_arguments)
      klepur list "$arguments[1]" 2>/dev/null | awk -F '\t' '$2 != "" { print $1 " " $2 }'
    case kind
)sh";
  text += fmt::format("      printf '%s\\n' {}\n", kKinds);
  return text + R"sh(    case keyword
      klepur words 2>/dev/null | cut -f 1
  end
end

)sh";
}

std::string FishScript() {
  std::string text = "# Completion of klepur for fish.\n" + FishFunctions();
  const std::string none = "complete -c klepur -n __fish_use_subcommand";
  text += "complete -c klepur -f\n";
  text += "complete -c klepur -n '__klepur_offers file' -F\n";
  for (const Offer offer : {Offer::kBlock, Offer::kKind, Offer::kKeyword}) {
    text += fmt::format("complete -c klepur -n '__klepur_offers {}'{}\n", SourceOf(offer),
                        FishWords(offer));
  }
  text += none + " -l help -d 'how to use klepur'\n";
  text += none + " -l version -d 'the version of klepur'\n";
  for (const Command& command : Commands()) {
    text += fmt::format("{} -a {} -d {}\n", none, command.name, FishQuote(command.summary));
    for (const Option& option : command.options) text += FishOption(command, option);
    const std::string choices = command.name == "help" ? CommandNames() : ChoicesOf(command);
    if (!choices.empty()) {
      text += fmt::format("complete -c klepur -n '__fish_seen_subcommand_from {}' -a {}\n",
                          command.name, FishQuote(choices));
    }
  }
  return text;
}

}  // namespace

ExitStatus RunCompletion(const Invocation& invocation) {
  const std::string shell = invocation.Argument("SHELL");
  const Output output(invocation);
  output.Print(shell == "bash" ? BashScript() : shell == "zsh" ? ZshScript() : FishScript());
  return ExitStatus::kDone;
}

}  // namespace klepur::tool
