#include <tool/server_check.h>

#include <fmt/core.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string_view>

#include <tool/output.h>
#include <tool/problem.h>
#include <tool/process.h>

namespace klepur::tool {
namespace {

constexpr std::string_view kRule = "server";

/// A file that holds a text until it is gone.
class ScratchFile {
 public:
  explicit ScratchFile(const Document& document) : path_(Folder() + "/klepur-XXXXXX") {
    const int descriptor = mkstemp(path_.data());
    if (descriptor < 0) Fail();
    std::FILE* const file = fdopen(descriptor, "w");
    for (const std::string_view piece : document.Pieces())
      std::fwrite(piece.data(), 1, piece.size(), file);
    const bool failed = std::ferror(file) != 0;
    if (std::fclose(file) != 0 || failed) Fail();
  }
  ~ScratchFile() { unlink(path_.c_str()); }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  const std::string& Path() const { return path_; }

 private:
  static std::string Folder() {
    const char* const folder = std::getenv("TMPDIR");
    return folder == nullptr || *folder == '\0' ? "/tmp" : folder;
  }
  [[noreturn]] void Fail() const {
    const int reason = errno;
    unlink(path_.c_str());
    throw Problem(ExitStatus::kFile,
                  fmt::format("{} cannot be written: {}", path_, std::strerror(reason)));
  }

  std::string path_;
};

/// The finding in a line of the server's, "PATH line 12: semicolon expected."
std::optional<CheckFinding> FindingIn(std::string_view line, const std::string& path) {
  constexpr std::string_view kLine = " line ";
  const std::size_t at = line.find(path + std::string(kLine));
  if (at == std::string_view::npos) return std::nullopt;
  line.remove_prefix(at + path.size() + kLine.size());
  CheckFinding finding;
  const auto [end, error] =
      std::from_chars(line.data(), line.data() + line.size(), finding.place.where.line);
  if (error != std::errc()) return std::nullopt;
  line.remove_prefix(static_cast<std::size_t>(end - line.data()));
  while (!line.empty() && (line.front() == ':' || line.front() == ' ')) line.remove_prefix(1);
  finding.rule = kRule;
  finding.place.where.column = 1;
  finding.message = OneLine(line);
  return finding;
}

}  // namespace

std::vector<CheckFinding> AskServer(const std::string& server, const Document& document,
                                    const std::string& name) {
  const ScratchFile file(document);
  const char* const family = document.GetFamily() == Family::kDhcp6 ? "-6" : "-4";
  const Ended ended = RunProgram({server, "-t", family, "-cf", file.Path()});
  std::vector<CheckFinding> findings;
  if (ended.status == 0) return findings;
  std::string last;
  for (std::size_t begin = 0; begin < ended.output.size();) {
    const std::size_t end = std::min(ended.output.find('\n', begin), ended.output.size());
    const std::string line = ended.output.substr(begin, end - begin);
    begin = end + 1;
    if (!OneLine(line).empty()) last = OneLine(line);
    if (auto finding = FindingIn(line, file.Path())) findings.push_back(std::move(*finding));
  }
  if (findings.empty()) {
    CheckFinding finding;
    finding.rule = kRule;
    finding.place.where = {1, 1};
    finding.message = fmt::format("the server does not accept the file, and ends with {}: {}",
                                  ended.status, last);
    findings.push_back(std::move(finding));
  }
  for (CheckFinding& finding : findings) finding.place.file = name;
  return findings;
}

}  // namespace klepur::tool
