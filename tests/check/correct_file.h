// Files without a mistake, for tests that put one in.
#ifndef KLEPUR_TESTS_CHECK_CORRECT_FILE_H
#define KLEPUR_TESTS_CHECK_CORRECT_FILE_H

#include <klepur/document/family.h>

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace klepur::test {

using Random = std::mt19937_64;

/// A number from 0 up to but without `end`.
std::size_t Below(Random& random, std::size_t end);

/// A file as lines, each with what it is, so that a mistake finds the line to be made in: "subnet",
/// "range", "hardware", "max-lease-time", "comment", "}". The first word of most lines, and "option NAME"
/// of options; "range" and the like also in files of DHCPv6, where the words are others.
class LinesOfFile {
 public:
  struct Line {
    std::string what;
    std::string text;
  };

  void Add(std::string what, std::string text) {
    lines_.push_back({std::move(what), std::move(text)});
  }
  void Insert(std::size_t at, std::string what, std::string text);
  void Remove(std::size_t at);

  /// The number of a line that is this, counted from 0, at random; there must be one.
  std::size_t Any(std::string_view what, Random& random) const;
  /// All of them.
  std::vector<std::size_t> All(std::string_view what) const;
  std::string& Text(std::size_t line) { return lines_[line].text; }
  const std::string& Text(std::size_t line) const { return lines_[line].text; }

  /// The whole file, with its line ends.
  std::string Whole() const;
  void SetLineEnd(std::string line_end) { line_end_ = std::move(line_end); }

 private:
  std::vector<Line> lines_;
  std::string line_end_ = "\n";
};

/// A small file in which no rule finds anything, with a random layout: subnets with ranges and pools, hosts in
/// subnets, groups and outside of them, a class, a condition, a switch, option definitions, a zone and its key.
LinesOfFile CorrectFile(Family family, Random& random);

}  // namespace klepur::test

#endif
