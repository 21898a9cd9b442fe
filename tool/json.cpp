#include <tool/json.h>

#include <fmt/core.h>
#include <nlohmann/json.hpp>

namespace klepur::tool {
namespace {

using nlohmann::ordered_json;

/// How many bytes the character at the beginning of a text has; 0 if it begins with no UTF-8.
std::size_t CharacterSize(std::string_view text) {
  const auto byte = [text](std::size_t at) -> unsigned {
    return static_cast<unsigned char>(text[at]);
  };
  const unsigned first = byte(0);
  if (first < 0x80) return 1;
  const std::size_t size = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
  if (first < 0xc2 || first > 0xf4 || text.size() < size) return 0;
  for (std::size_t i = 1; i < size; ++i) {
    if ((byte(i) & 0xc0U) != 0x80) return 0;
  }
  const unsigned second = byte(1);
  const bool too_long = (first == 0xe0 && second < 0xa0) || (first == 0xf0 && second < 0x90);
  const bool no_character = (first == 0xed && second > 0x9f) || (first == 0xf4 && second > 0x8f);
  return too_long || no_character ? 0 : size;
}

ordered_json ObjectOf(const Record& record);

struct ToJson {
  ordered_json operator()(const std::string& text) const { return AsUtf8(text); }
  ordered_json operator()(std::size_t number) const { return number; }
  ordered_json operator()(bool flag) const { return flag; }
  ordered_json operator()(const std::vector<std::string>& texts) const {
    ordered_json array = ordered_json::array();
    for (const std::string& text : texts) array.push_back(AsUtf8(text));
    return array;
  }
  ordered_json operator()(const Records& records) const {
    ordered_json array = ordered_json::array();
    for (const Record& record : records) array.push_back(ObjectOf(record));
    return array;
  }
};

ordered_json ObjectOf(const Record& record) {
  ordered_json object = ordered_json::object();
  for (const auto& [name, value] : record.fields) object[name] = std::visit(ToJson(), value);
  return object;
}

}  // namespace

std::string AsUtf8(std::string_view text) {
  std::string utf8;
  utf8.reserve(text.size());
  while (!text.empty()) {
    const std::size_t size = CharacterSize(text);
    if (size == 0) {
      utf8 += fmt::format("\\x{:02x}", static_cast<unsigned char>(text.front()));
    } else {
      utf8 += text.substr(0, size);
    }
    text.remove_prefix(size == 0 ? 1 : size);
  }
  return utf8;
}

std::string Json(const Record& record) {
  Record whole;
  whole.With("version", kJsonVersion);
  whole.fields.insert(whole.fields.end(), record.fields.begin(), record.fields.end());
  return ObjectOf(whole).dump(2) + "\n";
}

}  // namespace klepur::tool
