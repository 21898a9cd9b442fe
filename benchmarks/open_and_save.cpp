// Opens a DHCPv4 configuration file, saves it elsewhere and lets go of it, and says what each took.
//
//     open_and_save FILE
#include <klepur/klepur.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "benchmarks/measure.h"

namespace {

/// A file of this process's own that is removed at the end.
class TemporaryFile {
 public:
  TemporaryFile() {
    char pattern[] = "/tmp/klepur-benchmark-XXXXXX";
    const int descriptor = mkstemp(pattern);
    if (descriptor == -1) std::abort();
    close(descriptor);
    path_ = pattern;
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() { std::filesystem::remove(path_); }

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: open_and_save FILE\n", stderr);
    return EXIT_FAILURE;
  }
  const TemporaryFile target;
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
