#include "fuzz/operation_script.h"

#include <cstdint>
#include <string>
#include <utility>

#include "fuzz/script.h"
#include "fuzz/text.h"

namespace klepur::fuzz {
namespace {

using test::Filling;
using test::MaybePath;
using test::MaybeText;
using test::ModelLine;
using test::Operation;
using test::Path;
using test::Plain;
using test::Record;
using test::Side;
using test::Silent;

constexpr std::string_view kLookups = "tTrdfnNgbkhimq";
constexpr std::string_view kEdits = "a1234x5678s";
constexpr std::string_view kChanges = "AcC";
constexpr std::string_view kNodeEdits = "pew";
constexpr std::string_view kRandom = "~";
const std::string kLetters =
    std::string(kLookups).append(kEdits).append(kChanges).append(kNodeEdits) + std::string(kRandom);

bool IsIn(char letter, std::string_view letters) {
  return letters.find(letter) != std::string_view::npos;
}

/// The text up to the next blank; takes it and the blank away.
std::string_view TakeWord(std::string_view& text) {
  const std::string_view word = text.substr(0, text.find(' '));
  text.remove_prefix(std::min(word.size() + 1, text.size()));
  return word;
}

int TakeKind(std::string_view& text) {
  return Number(TakeWord(text), 100);
}

/// What stands behind the last ">"; takes it away. Null when there is none.
MaybeText TakeNewName(std::string_view& text) {
  const std::size_t at = text.rfind('>');
  if (at == std::string_view::npos) return std::nullopt;
  const MaybeText name = ReadMaybeText(text.substr(at + 1));
  text = text.substr(0, at);
  return name;
}

/// A record to be filled, with something in it already.
template <class Body>
Operation FillingUsed(const std::string& text, int kind, Body body) {
  return Filling(text, test::UsedRecord(kind), std::move(body));
}

std::uint64_t Seed(std::string_view text) {
  std::uint64_t seed = 0;
  for (const char c : text) seed = seed * 257 + static_cast<unsigned char>(c) + 1;
  return seed;
}

}  // namespace

OperationScript::OperationScript(test::ModelFile& model)
    : model_(model), chance_(0), random_(chance_, model) {}

Operation OperationScript::Make(std::string_view line) {
  char letter = line.empty() ? 'q' : line.front();
  line.remove_prefix(std::min<std::size_t>(1, line.size()));
  if (!IsIn(letter, kLetters))
    letter = kLetters[static_cast<unsigned char>(letter) % kLetters.size()];
  const bool raw = !line.empty() && line.front() == '!';
  if (raw) line.remove_prefix(1);
  if (!line.empty() && line.front() == ' ') line.remove_prefix(1);
  if (IsIn(letter, kLookups)) return MakeLookup(letter, raw, line);
  if (IsIn(letter, kEdits)) return MakeEdit(letter, line);
  if (IsIn(letter, kChanges)) return MakeChange(letter, line);
  if (IsIn(letter, kNodeEdits)) return MakeNodeEdit(letter, line);
  return MakeRandom(line);
}

Operation OperationScript::MakeLookup(char letter, bool raw, std::string_view arguments) {
  const std::string text = std::string(1, letter) + (raw ? "! " : " ") + std::string(arguments);
  switch (letter) {
    case 't': {
      const MaybePath start = TakePath(arguments);
      const MaybeText name = ReadMaybeText(arguments);
      return {text,
              [=](Side& side) { return test::ToText(side.GetTreeItemByNameAt(name, start)); }};
    }
    case 'T': {
      const MaybePath start = TakePath(arguments);
      const MaybeText name = ReadMaybeText(arguments);
      return {text,
              [=](Side& side) { return test::ToText(side.GetTreeItemBySectionAt(name, start)); }};
    }
    case 'r': {
      const Path node = TakeNode(arguments);
      return {text, [=](Side& side) { return ToText(side.TreeToDhcp(node, raw)); }};
    }
    case 'd': {
      const Record record = ReadRecord(arguments);
      return FillingUsed(text, test::kHost,
                         [=](Side& side, Record& out) { return side.DhcpToTree(record, out); });
    }
    case 'f':
      return FillingUsed(text, TakeKind(arguments),
                         [=](Side& side, Record& out) { return side.GetFirstSection(out, raw); });
    case 'n': {
      const Record current = ReadRecord(arguments);
      return FillingUsed(text, test::kGlobal, [=](Side& side, Record& out) {
        return side.GetNextSection(current, out, raw);
      });
    }
    case 'N':
      return Filling(text, ReadRecord(arguments),
                     [=](Side& side, Record& out) { return side.GetNextSectionInPlace(out, raw); });
    case 'g': {
      const int kind = TakeKind(arguments);
      const MaybeText name = ReadMaybeText(arguments);
      return Plain(text, [=](Side& side) { return side.GotoSection(name, kind); });
    }
    case 'b': {
      const int kind = TakeKind(arguments);
      const MaybeText name = ReadMaybeText(arguments);
      return FillingUsed(text, kind,
                         [=](Side& side, Record& out) { return side.GetSectionByName(out, name); });
    }
    case 'q':
      return {text, [](Side& side) {
                std::string subnet = "was here";
                const int result = side.GetSubnet(subnet);
                return std::to_string(result) + " " + test::Quoted(subnet);
              }};
    default:
      break;
  }
  const MaybeText value = ReadMaybeText(arguments);
  return FillingUsed(text, test::kGlobal, [=](Side& side, Record& out) {
    switch (letter) {
      case 'k':
        return side.GetSectionByKeyname(value, out, raw);
      case 'h':
        return side.GetHostByName(value, out, raw);
      case 'i':
        return side.GetHostByIp(value, out, raw);
      default:
        return side.GetHostByMACAddress(value, out, raw);
    }
  });
}

Operation OperationScript::MakeEdit(char letter, std::string_view arguments) {
  const Record record = ReadRecord(arguments);
  const MaybeText name = ReadMaybeText(arguments);
  return Plain(std::string(1, letter) + " " + std::string(arguments), [=](Side& side) {
    switch (letter) {
      case 'a':
        return side.AddSection(record);
      case '1':
        return side.AddNetwork(record);
      case '2':
        return side.AddSubnet(record);
      case '3':
        return side.AddHost(record);
      case '4':
        return side.AddIFSection(record);
      case 'x':
        return side.RemoveSection(record);
      case '5':
        return side.RemoveNetwork(name);
      case '6':
        return side.RemoveSubnetSection(name);
      case '7':
        return side.RemoveHostSection(name);
      case '8':
        return side.RemoveIFSection(name);
      default:
        return side.SetSectionParams(record);
    }
  });
}

Operation OperationScript::MakeChange(char letter, std::string_view arguments) {
  const std::string text = std::string(1, letter) + " " + std::string(arguments);
  const MaybePath node = letter == 'c' ? MaybePath() : TakePath(arguments);
  const MaybeText newName = letter == 'A' ? MaybeText() : TakeNewName(arguments);
  const Record record = ReadRecord(arguments);
  switch (letter) {
    case 'A':
      return Plain(text, [=](Side& side) { return side.AddTreeSection(record, node); });
    case 'c':
      return Plain(text, [=](Side& side) { return side.ChangeSection(record, newName); });
    default:
      return Plain(text, [=](Side& side) { return side.ChangeTreeSection(record, node, newName); });
  }
}

Operation OperationScript::MakeNodeEdit(char letter, std::string_view arguments) {
  const std::string text = std::string(1, letter) + " " + std::string(arguments);
  if (letter == 'p') {
    const MaybePath network = TakePath(arguments);
    const MaybePath subnet = TakePath(arguments);
    return Silent(text, [=](Side& side) { side.PlaceCursors(network, subnet); });
  }
  const Path node = TakeNode(arguments);
  if (letter == 'e') {
    const ModelLine line = ReadLine(arguments);
    return Silent(text, [=](Side& side) { side.AddEntry(node, line); });
  }
  const std::string name(arguments);
  return Silent(text, [=](Side& side) { side.SetName(node, name); });
}

Operation OperationScript::MakeRandom(std::string_view text) {
  chance_ = test::Chance(Seed(text));
  return random_.Next();
}

MaybePath OperationScript::TakePath(std::string_view& arguments) {
  if (!arguments.empty() && arguments.front() == '-') {
    TakeWord(arguments);
    return std::nullopt;
  }
  return TakeNode(arguments);
}

Path OperationScript::TakeNode(std::string_view& arguments) {
  std::string_view numbers = TakeWord(arguments);
  Path path;
  const test::ModelNode* node = &model_.Top();
  for (std::size_t slash; (slash = numbers.find('/')) != std::string_view::npos;) {
    numbers.remove_prefix(slash + 1);
    if (node->children.empty()) break;
    const auto number = static_cast<std::size_t>(std::abs(Number(numbers, 10000)));
    path.push_back(number % node->children.size());
    node = node->children[path.back()].get();
  }
  return path;
}

}  // namespace klepur::fuzz
