// Compares commands of the tool on one host of a large file with a process that reads the file into a document.
//
//     compare_command PROGRAM FILE ROUNDS    PROGRAM is the built klepur
//
// What processes take is measured from outside: their processor time, user's and system's. Beside the commands stand two
// processes that do the least that an edit can: read the file and copy it, and read and save it with the library.
#include <fcntl.h>
#include <klepur/document/document.h>
#include <klepur/storage/stored_file.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "benchmarks/check.h"
#include "benchmarks/compare.h"
#include "benchmarks/scratch_file.h"

namespace {

double SecondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

/// The processor time of a child process that does this.
double InChild(const std::function<void()>& work) {
  const pid_t child = fork();
  Check(child != -1, "a process starts");
  if (child == 0) {
    work();
    _exit(EXIT_SUCCESS);
  }
  int status = 0;
  rusage usage = {};
  Check(wait4(child, &status, 0, &usage) == child && status == 0, "the process succeeds");
  return SecondsOf(usage.ru_utime) + SecondsOf(usage.ru_stime);
}

/// Runs a program without its output.
[[noreturn]] void Become(const std::vector<std::string>& words) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  const int nothing = open("/dev/null", O_WRONLY);
  dup2(nothing, STDOUT_FILENO);
  dup2(nothing, STDERR_FILENO);
  execv(arguments[0], arguments.data());
  _exit(EXIT_FAILURE);
}

/// The name and the hardware address of the host in the middle of the file.
struct Host {
  std::string name;
  std::string hardware;
};

Host MiddleHost(const std::string& path) {
  const klepur::Document document = klepur::Document::Read(path);
  const std::vector<klepur::Node> hosts = document.Walk("host");
  Check(!hosts.empty(), "the file has hosts");
  const klepur::Node host = hosts[hosts.size() / 2];
  const std::string hardware = host.Child("hardware").Value();
  return {host.Name(), hardware.substr(hardware.find(' ') + 1)};
}

}  // namespace

int main(int argc, char** argv) {
  Check(argc == 4, "the arguments are PROGRAM FILE ROUNDS");
  const std::string program = argv[1];
  const std::string path = argv[2];
  const int rounds = std::atoi(argv[3]);
  const Host host = MiddleHost(path);
  const ScratchFile copy;
  std::filesystem::copy_file(path, copy.Path(), std::filesystem::copy_options::overwrite_existing);
  int count = 0;
  const auto set = [&](const std::vector<std::string>& options) {
    std::vector<std::string> words = {program, "set", copy.Path(), "host " + host.name,
                                      "max-lease-time " + std::to_string(++count)};
    words.insert(words.end(), options.begin(), options.end());
    return InChild([&words] { Become(words); });
  };
  const auto copy_it = [&] {
    static_cast<void>(klepur::Document::Read(path));
    std::filesystem::copy_file(path, copy.Path(),
                               std::filesystem::copy_options::overwrite_existing);
    const int file = open(copy.Path().c_str(), O_WRONLY);
    Check(file != -1 && fsync(file) == 0, "the copy is on the disk");
  };
  const auto save_it = [&] {
    klepur::StoredFile file = klepur::StoredFile::OpenLocked(copy.Path());
    klepur::Document document = file.Read();
    document.Root().Set("max-lease-time", std::to_string(count));
    file.Save(document);
  };
  const std::vector<Samples> samples = InTurn(
      rounds,
      {
          [&] { return InChild([&path] { static_cast<void>(klepur::Document::Read(path)); }); },
          [&] { return InChild([&] {
                  Become({program, "find", path, host.hardware});
                }); },
          [&] {
            return set({"--dry-run", "--force"});
          },
          [&] { return set({"--force"}); },
          [&] { return set({}); },
          [&] { return InChild(copy_it); },
          [&] {
            ++count;
            return InChild(save_it);
          },
      });
  const std::string beside = "reading it into a document";
  const std::string size = Megabytes(static_cast<double>(std::filesystem::file_size(path)));
  PrintRow("klepur find, by hardware address, " + size, samples[1], beside, samples[0], 1.5);
  PrintRow("klepur set --dry-run --force, one host", samples[2], beside, samples[0], 1.5);
  PrintRow("klepur set --force, one host, saved", samples[3], beside, samples[0], 1.5);
  PrintRow("klepur set, one host, checked and saved", samples[4], beside, samples[0], 1.5);
  PrintRow("the least: reading, copying and fsync", samples[5], beside, samples[0], 0);
  PrintRow("the least: StoredFile, read and save", samples[6], beside, samples[0], 0);
  return EXIT_SUCCESS;
}
