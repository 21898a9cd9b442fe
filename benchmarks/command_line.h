// The arguments of a comparison: a file and how many rounds.
#ifndef KLEPUR_BENCHMARKS_COMMAND_LINE_H
#define KLEPUR_BENCHMARKS_COMMAND_LINE_H

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

struct CommandLine {
  /// Ends the program with a message unless the arguments are FILE ROUNDS.
  CommandLine(int argc, char** argv) {
    if (argc == 3) {
      file = argv[1];
      rounds = std::atoi(argv[2]);
    }
    if (rounds > 0 && std::filesystem::exists(file)) return;
    std::fprintf(stderr, "usage: %s FILE ROUNDS\n", argv[0]);
    std::exit(EXIT_FAILURE);
  }

  double FileSize() const { return static_cast<double>(std::filesystem::file_size(file)); }

  std::string file;
  int rounds = 0;
};

#endif
