// Compares opening a DHCPv4 configuration file with two JSON libraries that make a tree of the same
// content, and with two ways of only reading the file.
//
//     compare_open FILE ROUNDS
//
// JSON is parsed from memory; klepur reads its file. Freeing what was made is not timed.
#include <klepur/klepur.h>
#include <rapidjson/document.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "benchmarks/check.h"
#include "benchmarks/command_line.h"
#include "benchmarks/compare.h"
#include "benchmarks/file_text.h"
#include "benchmarks/json_of_tree.h"
#include "benchmarks/measure.h"

namespace {

double Open(const std::string& path, std::size_t blocks) {
  DhcpConfigFile file(path.c_str());
  bool opened = false;
  const double seconds = SecondsFor([&] { opened = file.Open(); });
  Check(opened && file.GetTreeItemByNameAt(nullptr, nullptr)->children->size() == blocks,
        "the file is opened");
  return seconds;
}

double ParseWithRapidJson(const std::string& json, std::size_t blocks) {
  rapidjson::Document document;
  const double seconds = SecondsFor([&] { document.Parse(json.data(), json.size()); });
  Check(!document.HasParseError() && document["blocks"].Size() == blocks, "RapidJSON");
  return seconds;
}

double ParseWithNlohmann(const std::string& json, std::size_t blocks) {
  nlohmann::json document;
  const double seconds = SecondsFor([&] { document = nlohmann::json::parse(json); });
  Check(document["blocks"].size() == blocks, "nlohmann::json");
  return seconds;
}

/// Which bytes end a token of the file.
constexpr std::array<std::uint8_t, 256> EndsToken() {
  std::array<std::uint8_t, 256> ends = {};
  for (const char end : std::string_view(";{}#\n")) ends[static_cast<unsigned char>(end)] = 1;
  return ends;
}

double LookAtEachByte(const std::string& path) {
  static constexpr auto kEndsToken = EndsToken();
  std::size_t tokens = 0;
  const double seconds = SecondsFor([&] {
    const FileText text(path);
    for (const char byte : text.View()) tokens += kEndsToken[static_cast<unsigned char>(byte)];
  });
  Check(tokens > 0, "tokens are counted");
  return seconds;
}

struct Line {
  explicit Line(std::string_view from) : text(new char[from.size() + 1]) {
    std::memcpy(text.get(), from.data(), from.size());
    text[from.size()] = '\0';
  }
  std::unique_ptr<char[]> text;
};

std::vector<std::unique_ptr<Line>> Lines(std::string_view text) {
  std::vector<std::unique_ptr<Line>> lines;
  while (!text.empty()) {
    const void* const end = std::memchr(text.data(), '\n', text.size());
    if (end == nullptr) break;
    const auto size = static_cast<std::size_t>(static_cast<const char*>(end) - text.data());
    lines.push_back(std::make_unique<Line>(text.substr(0, size)));
    text.remove_prefix(size + 1);
  }
  return lines;
}

double KeepEachLine(const std::string& path) {
  std::vector<std::unique_ptr<Line>> lines;
  const double seconds = SecondsFor([&] { lines = Lines(FileText(path).View()); });
  Check(!lines.empty(), "lines are found");
  return seconds;
}

}  // namespace

int main(int argc, char** argv) {
  const CommandLine arguments(argc, argv);
  const std::string& path = arguments.file;
  const std::string json = JsonOfTree(path);
  rapidjson::Document document;
  const std::size_t blocks = document.Parse(json.data(), json.size())["blocks"].Size();
  document = rapidjson::Document();

  const std::vector<Samples> samples =
      InTurn(arguments.rounds,
             {[&] { return Open(path, blocks); }, [&] { return ParseWithRapidJson(json, blocks); },
              [&] { return ParseWithNlohmann(json, blocks); }, [&] { return KeepEachLine(path); },
              [&] { return LookAtEachByte(path); }});
  const std::string work = "Open, " + Megabytes(arguments.FileSize());
  PrintRow(work, samples[0], "RapidJSON, DOM of the same tree", samples[1], 0.8);
  PrintRow(work, samples[0], "nlohmann::json, the same", samples[2], 0);
  PrintRow(work, samples[0], "read, memchr, an object and a text a line", samples[3], 0);
  PrintRow(work, samples[0], "read, look at each byte", samples[4], 0);
  return EXIT_SUCCESS;
}
