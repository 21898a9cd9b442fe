#include "tests/random/record.h"

#include <cstdio>
#include <utility>

namespace klepur::test {

const Param* FirstOf(const Record& record, int type) {
  for (const Param& param : record.params) {
    if (param.type == type) return &param;
  }
  return nullptr;
}

Param* FirstOf(Record& record, int type) {
  return const_cast<Param*>(FirstOf(std::as_const(record), type));
}

std::string ValueOf(const Record& record, int type) {
  const Param* param = FirstOf(record, type);
  return param == nullptr ? "" : param->value;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      quoted += '\\';
      quoted += c;
    } else if (c < ' ') {
      char escaped[5];
      std::snprintf(escaped, sizeof escaped, "\\%03o", static_cast<unsigned>(c) & 0xffU);
      quoted += escaped;
    } else {
      quoted += c;
    }
  }
  return quoted + "\"";
}

std::string ToText(const Record& record) {
  std::string text = "{" + std::to_string(record.type) + ", {";
  for (const Param& param : record.params) {
    if (text.back() != '{') text += ", ";
    text += std::string(param.commented ? "#" : "") + "{" + std::to_string(param.type) + ", " +
            Quoted(param.value) + "}";
  }
  return text + "}}";
}

}  // namespace klepur::test
