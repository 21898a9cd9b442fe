// The functions that cut values out of lines, and the conversions between blocks and records, for
// both families.
//
// An input is lines of text, see the corpus:
//
//     4 32768x       the family; how often the last character stands in front of the header, so
//                    that short inputs make texts of the lengths that are counted with 16 bits
//     ;              a separator, characters to stop at, a character wanted, a text to look for
//     host pc-17     the header of a block
//     range 1 2;     lines of the block, "#" before one that is commented out; each of them, and
//     3|0=pc-17      the header, is also a text for the functions and a record to be made into
//                    lines
//
// What is checked: everything is as the plain models say; nothing else is written to, neither what
// stays as it is on failure nor the block nor what stands behind a copied value; what a record's
// plain values are made into is read as the same values.
#include <klepur/klepur.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <type_traits>
#include <vector>

#include "fuzz/plain_values.h"
#include "fuzz/require.h"
#include "fuzz/same_tree.h"
#include "fuzz/script.h"
#include "fuzz/target.h"
#include "fuzz/text.h"
#include "tests/random/model_conversion.h"

namespace klepur::fuzz {
namespace {

using test::ModelNode;
using test::Param;
using test::Record;

struct Input {
  bool isV6 = false;
  std::string inFront;
  std::string key;
  ModelNode block;
  std::vector<std::string> texts;
};

Input ReadInput(const std::string& text) {
  std::vector<std::string> lines = Lines(WithoutNulBytes(text));
  lines.resize(std::max<std::size_t>(lines.size(), 3));
  constexpr int kMostInFront = 70000;
  Input input;
  const std::string& first = lines[0];
  input.isV6 = !first.empty() && first[0] == '6';
  const int count = first.size() < 3 ? 0 : Number(first.substr(2), kMostInFront);
  if (count > 0) input.inFront.assign(static_cast<std::size_t>(count), first.back());
  input.key = lines[1];
  input.block.name = lines[2];
  for (std::size_t i = 3; i < lines.size(); ++i) input.block.lines.push_back(ReadLine(lines[i]));
  input.texts.assign(lines.begin() + 2, lines.end());
  return input;
}

CfSection ToSection(const ModelNode& block) {
  CfSection section;
  section.SetName(block.name.c_str());
  for (const test::ModelLine& line : block.lines) {
    section.AddEntry(line.text.c_str(), nullptr, line.commented ? "#" : nullptr);
  }
  return section;
}

template <class File>
class Helpers {
 public:
  using Section = typename File::Section;
  static constexpr bool kIsV6 = std::is_same_v<File, Dhcpv6ConfigFile>;

  explicit Helpers(const Input& input)
      : key_(input.key), family_(kIsV6 ? test::ModelV6() : test::ModelV4()) {}

  void CheckText(const std::string& text) {
    CheckFirst(text);
    CheckNameServers(text);
    CheckValueFromString(text);
    CheckValueFromBuffer(text);
    if constexpr (!kIsV6) {
      RequireSame("the netmask", PlainNetmask(text), file_.GetNetmaskBySubnet(text.c_str()));
    }
    RequireSame("the type of a line", std::to_string(test::TypeOfLine(family_, text)),
                std::to_string(Section::GetStringType(text)));
  }

  void CheckBlock(const ModelNode& block) {
    Tree<CfSection>::TreeNode node(nullptr, ToSection(block));
    for (const bool raw : {false, true}) {
      Section section = ToSection(Used());
      Require(file_.TreeToDhcp(node.section, section, raw), "every block has a record");
      RequireSame("the record of a block", ToText(Read(family_, block, raw)),
                  ToText(ToRecord(section)));
      CheckRecord(ToRecord(section));
    }
    CheckEntryFromList(node.section);
    RequireSameTree("the block that was read", node, block);
  }

  void CheckRecord(const Record& record) {
    Record expected = Used();
    Section lines = ToSection(expected);
    const Section in = ToSection(record);
    const bool hasLines = file_.DhcpToTree(in, lines);
    Require(hasLines == MakeLines(family_, record, expected), "what can be made into lines is");
    RequireSame("the lines of a record", ToText(expected), ToText(ToRecord(lines)));
    RequireSame("the record that was made into lines", ToText(record), ToText(ToRecord(in)));
    if (hasLines) CheckReadingBack(record, ToRecord(lines));
  }

 private:
  /// A record with something in it already.
  static Record Used() { return {test::kIf, {{true, 99, "was here"}}}; }

  static Section ToSection(const Record& record) {
    Section section;
    section.type = static_cast<typename Section::SectionType>(record.type);
    for (const Param& param : record.params) {
      section.params.push_back({param.commented, param.type, param.value});
    }
    return section;
  }

  static CfSection ToSection(const ModelNode& block) { return fuzz::ToSection(block); }

  static Record ToRecord(const Section& section) {
    Record record;
    record.type = section.type;
    for (const auto& param : section.params) {
      record.params.push_back({param.commented, param.type, param.value});
    }
    return record;
  }

  static void RequirePlace(const char* what, std::size_t expected, const char* found,
                           const std::string& text) {
    RequireSame(what, std::to_string(expected), std::to_string(found - text.c_str()));
  }

  void CheckFirst(const std::string& text) {
    const char* const s = text.c_str();
    RequirePlace("the first digit", PlainFirst(text, kDigits), file_.GetFirstDigit(s), text);
    if constexpr (kIsV6) {
      RequirePlace("the first letter", PlainFirst(text, kLetters), file_.GetFirstChar(s, nullptr),
                   text);
      RequirePlace("the first of a character", PlainFirst(text, key_.substr(0, 1)),
                   file_.GetFirstChar(s, key_.c_str()), text);
    } else {
      RequirePlace("the first letter", PlainFirst(text, kLetters), file_.GetFirstChar(s), text);
    }
  }

  void CheckNameServers(const std::string& text) {
    std::list<std::string> expected = {"was here"};
    std::list<std::string> servers = expected;
    const bool hasEnd = PlainNameServers(kIsV6, text, expected);
    Require(file_.GetNameServers(text.c_str(), &servers) == hasEnd, "a list ends at a \";\"");
    RequireSame("the list", Joined({expected.begin(), expected.end()}),
                Joined({servers.begin(), servers.end()}));
  }

  void CheckValueFromString(const std::string& text) {
    for (const std::string& separator : {std::string(" "), std::string(";"), key_}) {
      std::string expected = "was here";
      std::string value = expected;
      PlainValueFromString(text, separator, expected);
      file_.GetValueFromString(text, separator, value);
      RequireSame("the value in a line", expected, value);
    }
  }

  void CheckValueFromBuffer(const std::string& text) {
    const std::size_t length = std::min(text.find_first_of(key_), text.size());
    std::string expected(text.size() + 1, '?');
    std::string buffer = expected;
    expected.replace(0, length, text, 0, length);
    char* const result = file_.GetValueFromBuffer(text.c_str(), key_.c_str(), buffer.data());
    Require(result == buffer.data(), "the destination is returned");
    RequireSame("the value copied, and nothing behind it", expected, buffer);
  }

  void CheckEntryFromList(CfSection& section) {
    CfSectionEntry* expected = nullptr;
    for (CfSectionEntry* entry : section.entryList) {
      if (std::string(entry->GetKeyName()).find(key_) == std::string::npos) continue;
      expected = entry;
      break;
    }
    Require(file_.GetEntryFromList(&section.entryList, key_.c_str()) == expected,
            "the first entry that holds the text is found");
    for (CfSectionEntry* entry : section.entryList) {
      Require(file_.GetEntryType(entry) == test::TypeOfLine(family_, entry->GetKeyName()),
              "the type of an entry is that of its line");
    }
  }

  /// Digits and dots: no keyword, nothing that ends a value or stands between two.
  static bool IsPlainValue(const std::string& value) {
    return !value.empty() && value.find_first_not_of("0123456789.") == std::string::npos;
  }

  /// Whether a value is read back as it is. A list starts at a digit in DHCPv4 and has the second
  /// word of its keyword in front in DHCPv6; a value that is the whole line may be of any type.
  bool IsKept(const Param& param) const {
    return IsPlainValue(param.value) && param.type != family_.ipLine &&
           family_.written.count(param.type) != 0 && family_.written.at(param.type).hasValue &&
           (kIsV6 ? family_.readAsCommaList.count(param.type) == 0 : param.value[0] != '.');
  }

  void CheckReadingBack(const Record& record, const Record& lines) {
    for (const Param& param : record.params) {
      const Param* const line = FirstOf(lines, param.type);
      // Of several parameters of a type the last one's value counts.
      if (&param != LastOf(record, param.type) || !IsKept(param)) continue;
      Require(line != nullptr, "a value has a line");
      ModelNode block{"host a", {{line->value, line->commented}}, nullptr, {}};
      const CfSection section = ToSection(block);
      Section back;
      file_.TreeToDhcp(section, back, false);
      RequireSame("the value read back", param.value, ValueOf(ToRecord(back), param.type));
    }
  }

  static const Param* LastOf(const Record& record, int type) {
    const Param* last = nullptr;
    for (const Param& param : record.params) {
      if (param.type == type) last = &param;
    }
    return last;
  }

  std::string key_;
  const test::ModelFamily& family_;
  File file_;
};

template <class File>
void Check(const Input& input) {
  Helpers<File> helpers(input);
  helpers.CheckText(input.inFront + input.block.name);
  for (const std::string& text : input.texts) {
    helpers.CheckText(text);
    helpers.CheckRecord(ReadRecord(text));
  }
  helpers.CheckBlock(input.block);
}

void CheckEither(const std::string& text) {
  const Input input = ReadInput(text);
  input.isV6 ? Check<Dhcpv6ConfigFile>(input) : Check<DhcpConfigFile>(input);
}

}  // namespace
}  // namespace klepur::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return klepur::fuzz::RunTarget(data, size, klepur::fuzz::CheckEither);
}
