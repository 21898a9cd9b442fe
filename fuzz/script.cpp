#include "fuzz/script.h"

#include <algorithm>
#include <string>

#include "fuzz/text.h"

namespace klepur::fuzz {
namespace {

using test::MaybeText;
using test::ModelLine;
using test::Param;
using test::Record;

constexpr int kMostType = 100;

Param ReadParam(std::string_view text) {
  Param param;
  param.commented = !text.empty() && text.front() == '#';
  if (param.commented) text.remove_prefix(1);
  const std::size_t equals = text.find('=');
  param.type = equals == std::string_view::npos ? test::kNameParam : Number(text, kMostType);
  param.value = equals == std::string_view::npos ? text : text.substr(equals + 1);
  return param;
}

}  // namespace

Record ReadRecord(std::string_view text) {
  Record record;
  record.type = Number(text, kMostType);
  while (true) {
    const std::size_t bar = text.find('|');
    if (bar == std::string_view::npos) return record;
    text.remove_prefix(bar + 1);
    record.params.push_back(ReadParam(text.substr(0, text.find('|'))));
  }
}

ModelLine ReadLine(std::string_view text) {
  const bool commented = !text.empty() && text.front() == '#';
  return {std::string(text.substr(commented ? 1 : 0)), commented};
}

MaybeText ReadMaybeText(std::string_view text) {
  return text == "-" ? MaybeText() : MaybeText(text);
}

}  // namespace klepur::fuzz
