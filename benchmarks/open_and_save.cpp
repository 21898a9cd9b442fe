// Opens a DHCPv4 configuration file, saves it elsewhere and lets go of it, and says what each took.
//
//     open_and_save FILE
#include <klepur/klepur.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "benchmarks/measure.h"
#include "benchmarks/scratch_file.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: open_and_save FILE\n", stderr);
    return EXIT_FAILURE;
  }
  const ScratchFile target;
  const double before = PeakMegabytes();
  const double start = Seconds();
  auto file = std::make_unique<DhcpConfigFile>(argv[1]);
  const bool opened = file->Open();
  const double open = Seconds();
  const double peak = PeakMegabytes() - before;
  const bool saved = file->Save(target.Path()) != 0;
  const double save = Seconds();
  file.reset();
  const double freed = Seconds();
  if (!opened || !saved) {
    std::fprintf(stderr, "open_and_save: cannot open and save %s\n", argv[1]);
    return EXIT_FAILURE;
  }
  std::printf("open %.3f s and %.1f MB at the peak, save %.3f s, destroy %.3f s\n", open - start,
              peak, save - open, freed - save);
  return EXIT_SUCCESS;
}
