#include <tool/source.h>

#include <fmt/core.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <tool/problem.h>
#include <tool/progress.h>

namespace klepur::tool {

Document ReadDocument(const std::string& path) {
  const Progress progress(fmt::format("reading {}", ShownName(path)));
  return path == kStandard ? Document(ReadStandardInput()) : Document::Read(path);
}

std::string ReadStandardInput() {
  std::string text;
  char piece[65536];
  while (const std::size_t size = std::fread(piece, 1, sizeof piece, stdin))
    text.append(piece, size);
  if (std::ferror(stdin) != 0) {
    const int reason = errno;
    throw Problem(ExitStatus::kFile, fmt::format("standard input: {}", std::strerror(reason)));
  }
  return text;
}

std::string ShownName(const std::string& path) {
  return path == kStandard ? "standard input" : path;
}

}  // namespace klepur::tool
