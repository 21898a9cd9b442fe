// A sequence of operations on any text as a configuration file of either family.
//
// An input is text, see the corpus:
//
//     4                         the family, "6" for the other one; with "-" behind it the first "o"
//                               opens the file, without it is open
//     host a {                  the file
//     }
//     %%                        ends the file
//     a 3|0=b|17=10.0.0.2       operations, one a line, see fuzz/operation_script.h; and besides:
//     S                         saves to another file
//     v                         saves to the same file
//     o                         opens the file, again
//
// What is checked, after each operation: it returned what the randomised test's model returns, and
// filled what it fills; all of the tree, and where the cursors stand, is as in the model, so that
// nothing outside what the operation says has changed. A text saved is the model's. What is opened
// again after saving is what the plain reader makes of the text, and the tree that was saved when
// the syntax can carry it (fuzz/carried.h).
#include <klepur/klepur.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "fuzz/carried.h"
#include "fuzz/memory_file.h"
#include "fuzz/operation_script.h"
#include "fuzz/plain_reader.h"
#include "fuzz/require.h"
#include "fuzz/same_tree.h"
#include "fuzz/script.h"
#include "fuzz/target.h"
#include "fuzz/text.h"
#include "tests/random/library_side.h"
#include "tests/random/model_file.h"
#include "tests/support/family.h"

namespace klepur::fuzz {
namespace {

using test::MaybePath;
using test::ModelNode;
using test::Operation;

struct Input {
  bool isV6 = false;
  bool isOpened = true;
  std::string file;
  std::vector<std::string> operations;
};

Input ReadInput(const std::string& text) {
  constexpr std::size_t kMostOperations = 100;
  const std::vector<std::string> lines = Lines(WithoutNulBytes(text));
  Input input;
  input.isV6 = !lines[0].empty() && lines[0][0] == '6';
  input.isOpened = lines[0].size() < 2 || lines[0][1] != '-';
  const auto end = std::find(lines.begin() + 1, lines.end(), "%%");
  input.file = Joined({lines.begin() + 1, end});
  if (end != lines.end()) input.operations.assign(end + 1, lines.end());
  while (!input.operations.empty() && input.operations.back().empty()) input.operations.pop_back();
  if (input.operations.size() > kMostOperations) input.operations.resize(kMostOperations);
  return input;
}

struct Files {
  MemoryFile own;
  MemoryFile other;
};

template <class Family>
class Run {
 public:
  Run(const Input& input, Files& files)
      : input_(input),
        files_(files),
        model_(std::is_same_v<Family, test::V4> ? test::ModelV4() : test::ModelV6()),
        library_(files.own.Path()),
        script_(model_) {
    files_.own.Write(input.file);
  }

  void All() {
    if (input_.isOpened) Open();
    for (const std::string& line : input_.operations) Do(line);
    Save("", files_.own);
    Open();
  }

 private:
  void Do(const std::string& line) {
    const char letter = line.empty() ? ' ' : line.front();
    if (letter == 'o') {
      Open();
    } else if (letter == 'S') {
      Save(files_.other.Path(), files_.other);
    } else if (letter == 'v') {
      Save("", files_.own);
    } else {
      RunOnBoth(script_.Make(line));
    }
  }

  void RunOnBoth(const Operation& operation) {
    log_.push_back(operation.text);
    const std::string expected = operation.run(model_);
    const std::string actual = operation.run(library_);
    log_.back() += " -> " + expected;
    if (actual != expected) Disagree("the library returns " + actual);
    RequireSameState();
  }

  void Open() {
    log_.push_back("Open()");
    if (!wasOpened_) {
      // What stood in the tree before the first reading stays, and cursors of it mean nothing.
      model_.PlaceCursors(std::nullopt, std::nullopt);
      library_.PlaceCursors(std::nullopt, std::nullopt);
      saved_ = nullptr;  // it is read behind what stays
    }
    wasOpened_ = true;
    const PlainTree tree = PlainRead(files_.own.Read());
    if (!library_.Open()) Disagree("the file cannot be opened");
    model_.Open(*tree.top);
    if (saved_ != nullptr && !IsSame(*model_.Root(), *saved_)) {
      Disagree("what was read back is not what was saved");
    }
    saved_ = nullptr;
    RequireSameState();
  }

  void Save(const std::string& path, MemoryFile& file) {
    if (!model_.CanBeWritten()) return;  // a second root section: its level of tabs is not defined
    log_.push_back("Save(" + path + ")");
    const std::string before = file.Read();
    const std::unique_ptr<std::string> text = model_.Save();
    if (library_.Save(path) != (text == nullptr ? 0 : 1)) Disagree("it is saved or not");
    const std::string written = file.Read();
    if (written != (text == nullptr ? before : *text)) Disagree("what is written is\n" + written);
    if (text != nullptr && &file == &files_.own) Remember();
    RequireSameState();
  }

  /// What the next Open is to read.
  void Remember() {
    const ModelNode& root = *model_.Root();
    saved_ = IsCarried(root) ? test::Copy(root) : nullptr;
  }

  void RequireSameState() {
    for (const std::string& difference :
         {library_.DifferenceTo(model_.Top()), library_.NetworkDifference(model_.CurrentNetwork()),
          library_.SubnetDifference(model_.CurrentSubnet())}) {
      if (!difference.empty()) Disagree("in the library, " + difference);
    }
  }

  [[noreturn]] void Disagree(const std::string& how) {
    Fail("The library and the model disagree about the last operation: " + how +
         "\n---- the file\n" + input_.file + "---- the operations\n" + Joined(log_) +
         "---- the model's tree now, the cursors on " + CursorText(model_.CurrentNetwork()) +
         " and " + CursorText(model_.CurrentSubnet()) + "\n" + ToText(model_.Top()));
  }

  static std::string CursorText(const ModelNode* node) {
    return node == nullptr ? "null" : test::ToText(MaybePath(PathOf(*node)));
  }

  const Input& input_;
  Files& files_;
  test::ModelFile model_;
  test::LibrarySide<Family> library_;
  OperationScript script_;
  bool wasOpened_ = false;
  std::unique_ptr<ModelNode> saved_;  ///< null when nothing was, or what cannot be carried
  std::vector<std::string> log_;
};

void Check(const std::string& text) {
  static Files files;
  const Input input = ReadInput(text);
  if (input.isV6) {
    Run<test::V6>(input, files).All();
  } else {
    Run<test::V4>(input, files).All();
  }
}

}  // namespace
}  // namespace klepur::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return klepur::fuzz::RunTarget(data, size, klepur::fuzz::Check);
}
