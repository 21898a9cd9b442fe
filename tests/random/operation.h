// One operation on a configuration file, and how it is said and made.
#ifndef KLEPUR_TESTS_RANDOM_OPERATION_H
#define KLEPUR_TESTS_RANDOM_OPERATION_H

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "tests/random/side.h"

namespace klepur::test {

/// To be run on both sides.
struct Operation {
  std::string text;                       ///< as one writes it in a program
  std::function<std::string(Side&)> run;  ///< returns all that the operation returned
  bool hasPaths = false;                  ///< whether it is good only for the tree as it is now
};

inline std::string ToText(bool flag) {
  return flag ? "true" : "false";
}

inline std::string ToText(const MaybeText& text) {
  return text ? Quoted(*text) : "nullptr";
}

inline std::string ToText(const ModelLine& line) {
  return (line.commented ? "#" : "") + Quoted(line.text);
}

inline std::string ToText(const Side::Lines& lines) {
  std::string text = "{";
  for (const ModelLine& line : lines) text += (text == "{" ? "" : ", ") + ToText(line);
  return text + "}";
}

inline std::string Node(const Path& path) {
  return "node " + ToText(MaybePath(path));
}

inline std::string Call(const std::string& name, const std::vector<std::string>& arguments) {
  std::string text = name + "(";
  for (const std::string& argument : arguments) text += (text.back() == '(' ? "" : ", ") + argument;
  return text + ")";
}

/// An operation that returns a number or a truth value, or throws.
template <class Body>
Operation Plain(std::string text, Body body) {
  return {std::move(text), [body](Side& side) -> std::string {
            try {
              return std::to_string(body(side));
            } catch (const std::out_of_range& error) {
              const std::string what = error.what();
              return "out of range, " + what.substr(0, what.find(':'));
            }
          }};
}

/// An operation that fills a record.
template <class Body>
Operation Filling(std::string text, const Record& record, Body body) {
  return {std::move(text), [body, record](Side& side) {
            Record filled = record;
            const bool result = body(side, filled);
            return ToText(result) + " " + ToText(filled);
          }};
}

/// An operation that returns nothing.
template <class Body>
Operation Silent(std::string text, Body body) {
  return {std::move(text), [body](Side& side) {
            body(side);
            return std::string("done");
          }};
}

/// A record to be filled, with something in it already.
inline Record UsedRecord(int kind) {
  return {kind, {{true, 99, "was here"}}};
}

}  // namespace klepur::test

#endif
