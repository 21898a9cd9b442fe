// An included file that does not exist: the server does not start.
#include <klepur/check/rules/rules.h>

#include <klepur/document/document.h>
#include <klepur/document/node_text.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace klepur::internal {

void MissingInclude(const Facts& facts, Report& report) {
  for (const NamedFact& include : facts.includes) {
    const std::string path = WithoutQuotes(include.name);
    std::error_code failure;
    // A relative path depends on where the server is started.
    if (path.empty() || path.front() != '/' || std::filesystem::exists(path, failure) || failure)
      continue;
    report.Add({.node = include.node, .message = "there is no file " + path, .at = include.name});
  }
}

}  // namespace klepur::internal
