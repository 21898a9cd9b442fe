#include <tool/source.h>

#include <fmt/core.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include <tool/problem.h>
#include <tool/progress.h>

namespace klepur::tool {

Document ReadDocument(const std::string& path) {
  const Progress progress(fmt::format("reading {}", ShownName(path)));
  return path == kStandard ? Document(ReadStandardInput()) : Document::Read(path);
}

namespace {

[[noreturn]] void ThrowUnreadable(const std::string& name) {
  const int reason = errno;
  throw Problem(ExitStatus::kFile,
                fmt::format("{}: cannot read the file: {}", name, std::strerror(reason)));
}

std::string ReadAll(std::FILE* file, const std::string& name) {
  std::string text;
  char piece[65536];
  while (const std::size_t size = std::fread(piece, 1, sizeof piece, file))
    text.append(piece, size);
  if (std::ferror(file) != 0) ThrowUnreadable(name);
  return text;
}

}  // namespace

std::string ReadStandardInput() {
  return ReadAll(stdin, ShownName(std::string(kStandard)));
}

std::string ReadWhole(const std::string& path) {
  if (path == kStandard) return ReadStandardInput();
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rbe"),
                                                             std::fclose);
  if (!file) ThrowUnreadable(path);
  return ReadAll(file.get(), path);
}

std::string ShownName(const std::string& path) {
  return path == kStandard ? "standard input" : path;
}

}  // namespace klepur::tool
