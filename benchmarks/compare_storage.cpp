// Compares saving a DHCPv4 configuration file so that it cannot be lost with copying it.
//
//     compare_storage FILE ROUNDS
//
// The file is one of generate_config. Both the time that passes is measured, since much of it is spent waiting for
// the disk, and the processor time, that of cp included. What an earlier work left to be written is flushed before each
// one begins.
#include <fcntl.h>
#include <klepur/klepur.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

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

double ProcessorSecondsWithChildren() {
  rusage usage = {};
  getrusage(RUSAGE_CHILDREN, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
  };
  return ProcessorSeconds() + seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Both times of a work, of which InTurn gets the time that passed.
class Timed {
 public:
  template <class Work>
  double Run(const Work& work) {
    malloc_trim(0);
    sync();
    const double processor = ProcessorSecondsWithChildren();
    const double start = Seconds();
    work();
    const double passed = Seconds() - start;
    processor_.push_back(ProcessorSecondsWithChildren() - processor);
    return passed;
  }
  const Samples& Processor() const { return processor_; }

 private:
  Samples processor_;
};

void Copy(const std::string& from, const std::string& to) {
  Check(std::system(("cp '" + from + "' '" + to + "'").c_str()) == 0, "the file is copied");
}

void Flush(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  Check(file >= 0 && fsync(file) == 0 && close(file) == 0, "the copy is flushed");
}

/// A host that comes into the first subnet, another one each time.
class Edit {
 public:
  void In(const Document& document) {
    klepur::Node subnet = document.Root().FirstChild();
    while (!subnet.Is(klepur::NodeKind::kBlock)) subnet = subnet.Next();
    host_ = "host new" + std::to_string(++times_);
    subnet.Add(host_ + " { fixed-address 10.0.0.7; }");
  }
  void CheckIn(const std::string& path) const {
    Check(FileText(path).View().find("\t" + host_ + " {") != std::string::npos,
          "the edit is saved");
  }

 private:
  std::string host_;
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
  Timed saved;
  Timed copied;
  Timed edited;
  Timed opened;

  const auto save = [&] {
    StoredFile file = StoredFile::Open(path);
    Document document = file.Read();
    edit.In(document);
    const double seconds =
        saved.Run([&] { Check(file.Save(document).Written(), "it is written"); });
    edit.CheckIn(path);
    return seconds;
  };
  const auto copy_and_flush = [&] {
    return copied.Run([&] {
      Copy(arguments.file, first_copy.Path());
      Flush(first_copy.Path());
    });
  };
  const auto read_edit_save = [&] {
    const double seconds = edited.Run([&] {
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
    return opened.Run([&] {
      Check(file.Open(), "the file is opened");
      Copy(arguments.file, first_copy.Path());
      Copy(arguments.file, second_copy.Path());
    });
  };
  const std::vector<Samples> samples =
      InTurn(arguments.rounds, {save, copy_and_flush, read_edit_save, open_and_copy_twice});
  const std::string save_row = "StoredFile, save" + size;
  const std::string edit_row = "StoredFile, read, edit, save" + size;
  const std::string open_row = "Open of DhcpConfigFile, cp, cp";
  PrintRow(save_row + ", time passed", samples[0], "cp, fsync", samples[1], 1.5);
  PrintRow(save_row, saved.Processor(), "cp, fsync", copied.Processor(), 0);
  PrintRow(edit_row + ", time passed", samples[2], open_row, samples[3], 1.0);
  PrintRow(edit_row, edited.Processor(), open_row, opened.Processor(), 1.0);
  return EXIT_SUCCESS;
}
