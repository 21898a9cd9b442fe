// Compares saving a DHCPv4 configuration file with writing the same bytes from memory.
//
//     compare_save FILE ROUNDS
#include <klepur/klepur.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "benchmarks/check.h"
#include "benchmarks/command_line.h"
#include "benchmarks/compare.h"
#include "benchmarks/file_text.h"
#include "benchmarks/measure.h"
#include "benchmarks/scratch_file.h"

namespace {

bool WriteFromMemory(const std::string& path, std::string_view text) {
  std::FILE* const file = std::fopen(path.c_str(), "w");
  if (file == nullptr) return false;
  const std::size_t written = std::fwrite(text.data(), 1, text.size(), file);
  return std::fclose(file) == 0 && written == text.size();
}

/// Times `write`, which makes the file at `path` anew.
template <class Write>
double TimeWriting(const std::string& path, std::size_t size, const Write& write) {
  std::filesystem::remove(path);
  bool written = false;
  const double seconds = SecondsFor([&] { written = write(); });
  Check(written && std::filesystem::file_size(path) == size, "the file is written");
  return seconds;
}

}  // namespace

int main(int argc, char** argv) {
  const CommandLine arguments(argc, argv);
  const ScratchFile saved;
  const ScratchFile copy;
  DhcpConfigFile file(arguments.file.c_str());
  Check(file.Open() && file.Save(saved.Path()) == 1, "the file is opened and saved");
  const FileText first(saved.Path());
  const std::string_view text = first.View();

  const auto save = [&] { return file.Save(saved.Path()) == 1; };
  const auto write = [&] { return WriteFromMemory(copy.Path(), text); };
  const std::vector<Samples> samples =
      InTurn(arguments.rounds, {[&] { return TimeWriting(saved.Path(), text.size(), save); },
                                [&] { return TimeWriting(copy.Path(), text.size(), write); }});
  Check(FileText(saved.Path()).View() == text && FileText(copy.Path()).View() == text,
        "the texts are the same");
  PrintRow("Save, " + Megabytes(arguments.FileSize()), samples[0],
           "open, write the same bytes, close", samples[1], 2.5);
  return EXIT_SUCCESS;
}
