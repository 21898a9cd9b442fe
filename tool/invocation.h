// A command with the arguments and options that it was given.
#ifndef KLEPUR_TOOL_INVOCATION_H
#define KLEPUR_TOOL_INVOCATION_H

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <tool/command.h>

namespace klepur::tool {

class Invocation {
 public:
  using Values = std::map<std::string, std::vector<std::string>, std::less<>>;

  Invocation(const Command& command, Values arguments, Values options)
      : command_(&command), arguments_(std::move(arguments)), options_(std::move(options)) {}

  const Command& Of() const { return *command_; }

  /// All that was given for an argument: Arguments("STATEMENT").
  const std::vector<std::string>& Arguments(std::string_view name) const {
    return ValuesIn(arguments_, name);
  }
  /// The one that was given; empty when it was left out.
  std::string Argument(std::string_view name) const { return FirstOf(Arguments(name)); }

  bool Has(std::string_view option) const { return options_.find(option) != options_.end(); }
  /// The last value that was given for an option; empty when there is none.
  std::string Value(std::string_view option) const {
    const std::vector<std::string>& all = ValuesIn(options_, option);
    return all.empty() ? std::string() : all.back();
  }

 private:
  static const std::vector<std::string>& ValuesIn(const Values& values, std::string_view name) {
    static const std::vector<std::string> kNone;
    const auto found = values.find(name);
    return found == values.end() ? kNone : found->second;
  }
  static std::string FirstOf(const std::vector<std::string>& all) {
    return all.empty() ? std::string() : all.front();
  }

  const Command* command_;
  Values arguments_;
  Values options_;
};

}  // namespace klepur::tool

#endif
