// Compares the memory that opening a DHCPv4 configuration file, and reading it into a document, take at
// their peak with the size of the file.
//
//     compare_memory FILE ROUNDS
//
// Each round opens the file in a process of its own. Taken off is what one has that does the same with a file of one
// statement: the pages of the program and of the libraries, which all processes share.
#include <klepur/document/document.h>
#include <klepur/klepur.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "benchmarks/check.h"
#include "benchmarks/command_line.h"
#include "benchmarks/compare.h"
#include "benchmarks/scratch_file.h"

namespace {

/// The most memory, in bytes, of a child process that runs `work`.
template <class RunWork>
double PeakOf(const RunWork& work) {
  const pid_t child = fork();
  Check(child != -1, "a process starts");
  if (child == 0) _exit(work() ? EXIT_SUCCESS : EXIT_FAILURE);
  int status = 0;
  rusage usage = {};
  Check(wait4(child, &status, 0, &usage) == child && status == 0, "the file is opened");
  return static_cast<double>(usage.ru_maxrss) * 1024;
}

bool Open(const std::string& path) {
  return DhcpConfigFile(path.c_str()).Open();
}

bool Read(const std::string& path) {
  return !klepur::Document::Read(path).Root().FirstChild().IsGone();
}

template <class RunWork>
void Compare(const CommandLine& arguments, const std::string& work, double goal,
             const RunWork& run) {
  const ScratchFile small;
  std::ofstream(small.Path()) << "authoritative;\n";
  Samples peaks;
  for (int round = 0; round < arguments.rounds; ++round) {
    const double without = PeakOf([&] { return run(small.Path()); });
    peaks.push_back(PeakOf([&] { return run(arguments.file); }) - without);
  }
  const double size = arguments.FileSize();
  const double peak = Median(peaks);
  PrintRow("peak memory of " + work, Megabytes(peak), "the file's size", Megabytes(size),
           peak / size, goal);
}

}  // namespace

int main(int argc, char** argv) {
  const CommandLine arguments(argc, argv);
  Compare(arguments, "Open", 2.5, Open);
  Compare(arguments, "Document, read", 2.0, Read);
  return EXIT_SUCCESS;
}
