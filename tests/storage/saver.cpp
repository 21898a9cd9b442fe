// Saves a file, for tests that watch and hinder a process that does so.
//
//     saver save PATH TEXT [WISH...]      reads the file and saves this text; it is between two calls of sched_yield
//     saver make PATH TEXT [WISH...]      the same for a file that need not exist
//     saver edit PATH NAME COUNT [WISH...]    adds hosts NAME1, NAME2, ... in so many saves, each of which
//                                         has the lock from reading on
//
// WISH is backup=NAME, in-place, forced, verify=PROGRAM or limit=BYTES, the size from which on a file cannot grow.
// It prints what became of it in a word, and why.
#include <klepur/storage/stored_file.h>

#include <sched.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "tests/support/error_word.h"

namespace {

using klepur::Document;
using klepur::IfMissing;
using klepur::SaveOptions;
using klepur::SaveReport;
using klepur::StoredFile;

/// Ends without the checks of sanitizers, which do not get along with strace.
[[noreturn]] void End(std::string_view word, const std::string& why, int status) {
  std::printf("%s\n%s\n", std::string(word).c_str(), why.c_str());
  std::fflush(stdout);
  _exit(status);
}

bool Begins(const std::string& text, std::string_view front) {
  return text.compare(0, front.size(), front) == 0;
}

void AddWish(SaveOptions& options, const std::string& wish) {
  if (Begins(wish, "backup=")) options.WithBackup(wish.substr(7));
  if (Begins(wish, "verify=")) options.VerifiedBy({wish.substr(7)});
  if (wish == "in-place") options.InPlaceIfNeeded();
  if (wish == "forced") options.Forced();
  if (Begins(wish, "limit=")) {
    const auto bytes = static_cast<rlim_t>(std::stoul(wish.substr(6)));
    const rlimit limit = {bytes, bytes};
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
  }
}

[[noreturn]] void EndWell(const SaveReport& report) {
  if (!report.Warning().empty()) End("warned", report.Warning(), 0);
  End(report.Written() ? report.InPlace() ? "in-place" : "written" : "nothing",
      report.VerifierOutput(), 0);
}

[[noreturn]] void Save(const std::string& path, const std::string& text, IfMissing missing,
                       const SaveOptions& options) {
  StoredFile file = StoredFile::Open(path, missing);
  sched_yield();
  const SaveReport report = file.Save(text, options);
  sched_yield();
  EndWell(report);
}

[[noreturn]] void Edit(const std::string& path, const std::string& name, int count,
                       const SaveOptions& options) {
  for (int i = 1; i <= count; ++i) {
    StoredFile file = StoredFile::OpenLocked(path, std::chrono::minutes(2));
    Document document = file.Read();
    document.Find("group").Add("host " + name + std::to_string(i) + " { }");
    file.Save(document, options);
  }
  End("written", "", 0);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) return EXIT_FAILURE;
  const std::string command = argv[1];
  SaveOptions options;
  for (int i = command == "edit" ? 5 : 4; i < argc; ++i) AddWish(options, argv[i]);
  try {
    if (command == "edit") Edit(argv[2], argv[3], std::atoi(argv[4]), options);
    Save(argv[2], argv[3], command == "make" ? IfMissing::kMake : IfMissing::kFail, options);
  } catch (const klepur::Error& error) {
    End(klepur::test::ToText(error.Code()), error.what(), EXIT_FAILURE);
  }
}
