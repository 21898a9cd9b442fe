// What a command found, ready to be printed in any form.
#ifndef KLEPUR_TOOL_RECORD_H
#define KLEPUR_TOOL_RECORD_H

#include <cstddef>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace klepur::tool {

struct Record;
using Records = std::vector<Record>;

/// A value of JSON: a text, a number, true or false, an array of texts or of records.
using RecordValue = std::variant<std::string, std::size_t, bool, std::vector<std::string>, Records>;

/// Names and values in their order: an object of JSON.
struct Record {
  std::vector<std::pair<std::string, RecordValue>> fields;

  Record& With(std::string name, RecordValue value) {
    fields.emplace_back(std::move(name), std::move(value));
    return *this;
  }
};

}  // namespace klepur::tool

#endif
