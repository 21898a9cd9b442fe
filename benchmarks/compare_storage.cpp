// Compares saving a DHCPv4 configuration file so that it cannot be lost with copying it.
//
//     compare_storage FILE ROUNDS
//
// The file is one of generate_config. Time that passes is measured, since most of it is spent waiting for the disk;
// what an earlier work left to be written is flushed before each one begins.
#include <fcntl.h>
#include <klepur/klepur.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "benchmarks/check.h"
#include "benchmarks/command_line.h"
#include "benchmarks/compare.h"
#include "benchmarks/file_text.h"
#include "benchmarks/measure.h"
#include "benchmarks/scratch_file.h"

namespace {

using klepur::Document;
using klepur::SaveReport;
using klepur::StoredFile;

template <class Work>
double TimeOf(const Work& work) {
  malloc_trim(0);
  sync();
  const double start = Seconds();
  work();
  return Seconds() - start;
}

void Copy(const std::string& from, const std::string& to) {
  Check(std::system(("cp '" + from + "' '" + to + "'").c_str()) == 0, "the file is copied");
}

void Flush(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  Check(file >= 0 && fsync(file) == 0 && close(file) == 0, "the copy is flushed");
}

/// A statement that gets another value each time, in the middle of the file.
class Edit {
 public:
  void In(const Document& document) {
    const std::vector<klepur::Node> hosts = document.Walk("host");
    klepur::Node host = hosts[hosts.size() / 2];
    value_ = "192.0.2." + std::to_string(100 + ++times_ % 100);
    host.Set("fixed-address", value_);
  }
  void CheckIn(const std::string& path) const {
    Check(FileText(path).View().find("fixed-address " + value_ + ";") != std::string::npos,
          "the edit is saved");
  }

 private:
  std::string value_;
  std::size_t times_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  const CommandLine arguments(argc, argv);
  const ScratchFile scratch;
  const ScratchFile first_copy;
  const ScratchFile second_copy;
  const std::string& path = scratch.Path();
  Copy(arguments.file, path);
  const std::string size = ", " + Megabytes(arguments.FileSize());
  Edit edit;

  const auto save = [&] {
    StoredFile file = StoredFile::Open(path);
    Document document = file.Read();
    edit.In(document);
    const double seconds = TimeOf([&] { Check(file.Save(document).Written(), "it is written"); });
    edit.CheckIn(path);
    return seconds;
  };
  const auto copy_and_flush = [&] {
    return TimeOf([&] {
      Copy(arguments.file, first_copy.Path());
      Flush(first_copy.Path());
    });
  };
  const auto read_edit_save = [&] {
    const double seconds = TimeOf([&] {
      StoredFile file = StoredFile::OpenLocked(path);
      Document document = file.Read();
      edit.In(document);
      file.Save(document);
    });
    edit.CheckIn(path);
    return seconds;
  };
  const auto open_and_copy_twice = [&] {
    DhcpConfigFile file(arguments.file.c_str());
    return TimeOf([&] {
      Check(file.Open(), "the file is opened");
      Copy(arguments.file, first_copy.Path());
      Copy(arguments.file, second_copy.Path());
    });
  };
  const std::vector<Samples> samples =
      InTurn(arguments.rounds, {save, copy_and_flush, read_edit_save, open_and_copy_twice});
  PrintRow("StoredFile, save" + size + ", time passed", samples[0], "cp, fsync", samples[1], 1.5);
  PrintRow("StoredFile, read, edit, save" + size + ", time passed", samples[2],
           "Open of DhcpConfigFile, cp, cp", samples[3], 1.0);
  return EXIT_SUCCESS;
}
