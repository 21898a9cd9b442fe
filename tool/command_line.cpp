#include <tool/command_line.h>

#include <fmt/core.h>
#include <CLI/CLI.hpp>

#include <algorithm>
#include <deque>
#include <utility>

#include <tool/nearest.h>
#include <tool/problem.h>

namespace klepur::tool {
namespace {

[[noreturn]] void ThrowUsage(const std::string& message) {
  throw Problem(ExitStatus::kUsage, message);
}

}  // namespace

struct CommandLine::Parser {
  /// An option of the table and what the command line gave for it.
  struct Given {
    const Option* option;
    CLI::Option* parsed;
  };

  Parser(const Command& of_command, Of of) : command(of_command), arguments(of_command.arguments) {
    app.set_help_flag();
    app.allow_extras();
    if (of == Of::kScript) arguments.erase(arguments.begin());
    for (const Option& option : command.options) {
      if (of == Of::kScript && !option.in_scripts) continue;
      given.push_back({&option, Declare(option)});
    }
  }

  CLI::Option* Declare(const Option& option) {
    std::string names = fmt::format("--{}", option.name);
    if (option.letter != 0) names = fmt::format("-{},{}", option.letter, names);
    if (option.value.empty()) return app.add_flag(names);
    CLI::Option* declared = app.add_option(names);
    declared->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    return declared;
  }

  void Parse(std::vector<std::string> line) {
    // Behind "--" nothing is an option.
    const auto dashes = std::find(line.begin(), line.end(), "--");
    const std::vector<std::string> behind(dashes == line.end() ? dashes : dashes + 1, line.end());
    line.erase(dashes, line.end());
    std::reverse(line.begin(), line.end());
    try {
      app.parse(std::move(line));
    } catch (const CLI::ArgumentMismatch&) {
      ThrowUsage(fmt::format("{}: an option is without its value", command.name));
    } catch (const CLI::ParseError& error) {
      ThrowUsage(fmt::format("{}: {}", command.name, error.what()));
    }
    words = app.remaining();
    for (const std::string& word : words) {
      if (word.size() > 1 && word.front() == '-') RefuseOption(word);
    }
    words.insert(words.end(), behind.begin(), behind.end());
  }

  [[noreturn]] void RefuseOption(const std::string& typed) const {
    std::vector<std::string> known;
    for (const Given& each : given) known.push_back(fmt::format("--{}", each.option->name));
    const std::string nearest = Nearest(typed.substr(0, typed.find('=')), known);
    ThrowUsage(fmt::format("{}: there is no option {}{}", command.name, typed,
                           nearest.empty() ? "" : fmt::format("; did you mean {}?", nearest)));
  }

  Invocation::Values Options() const {
    Invocation::Values values;
    for (const auto& [option, parsed] : given) {
      if (parsed->count() == 0) continue;
      std::vector<std::string> results;
      if (!option->value.empty()) results = parsed->reduced_results();
      // As a shell makes of a variable that is not set: `--verify ''` must not save unverified.
      if (!results.empty() && results[0].empty()) {
        ThrowUsage(fmt::format("{}: the value of --{} is empty", command.name, option->name));
      }
      if (option->offer == Offer::kChoice)
        CheckChoice(fmt::format("--{}", option->name), option->choices, results[0]);
      values.emplace(option->name, std::move(results));
    }
    return values;
  }

  void CheckChoice(std::string_view of, std::string_view choices, const std::string& typed) const {
    std::vector<std::string> known;
    for (std::size_t begin = 0; begin < choices.size();) {
      const std::size_t end = std::min(choices.find(' ', begin), choices.size());
      known.emplace_back(choices.substr(begin, end - begin));
      begin = end + 1;
    }
    if (std::find(known.begin(), known.end(), typed) != known.end()) return;
    ThrowUsage(fmt::format("{}: {} takes one of: {}; not {}", command.name, of, choices, typed));
  }

  Invocation::Values Arguments() const {
    Invocation::Values values;
    std::size_t next = 0;
    for (const Argument& argument : arguments) {
      const std::size_t left = words.size() - next;
      if (left == 0 && !argument.optional) {
        ThrowUsage(fmt::format("{}: {} is missing", command.name, argument.name));
      }
      const std::size_t take = argument.repeated ? left : std::min<std::size_t>(left, 1);
      std::vector<std::string> taken(words.begin() + static_cast<std::ptrdiff_t>(next),
                                     words.begin() + static_cast<std::ptrdiff_t>(next + take));
      next += take;
      if (std::count(taken.begin(), taken.end(), std::string()) != 0) {
        ThrowUsage(fmt::format("{}: {} is empty", command.name, argument.name));
      }
      if (argument.offer == Offer::kChoice && !taken.empty()) {
        CheckChoice(argument.name, argument.choices, taken[0]);
      }
      if (!taken.empty()) values.emplace(argument.name, std::move(taken));
    }
    if (next < words.size()) {
      ThrowUsage(fmt::format("{}: {} is one argument too many", command.name, words[next]));
    }
    return values;
  }

  const Command& command;
  std::vector<tool::Argument> arguments;
  CLI::App app;
  std::vector<Given> given;
  std::vector<std::string> words;
};

CommandLine::CommandLine(const Command& command, Of of)
    : parser_(std::make_unique<Parser>(command, of)) {}
CommandLine::~CommandLine() = default;

Invocation CommandLine::Understand(const std::vector<std::string>& words) {
  parser_->Parse(words);
  return {parser_->command, parser_->Arguments(), parser_->Options()};
}

}  // namespace klepur::tool
