// Changing, by the model.
#include "tests/random/model_file.h"

namespace klepur::test {
namespace {

std::size_t FirstLineHolding(const ModelNode& node, const std::string& text) {
  std::size_t at = 0;
  while (at < node.lines.size() && node.lines[at].text.find(text) == std::string::npos) ++at;
  return at;
}

}  // namespace

ModelNode* ModelFile::Choose(const Record& section) {
  if (!topHasList_) return nullptr;
  switch (section.type) {
    case kGlobal:
      return Root();
    case kNetwork:
      return currentNetwork_;
    case kSubnet:
      return currentSubnet_;
    case kHost:
    case kIf:
      break;
    default:
      return nullptr;
  }
  if (currentSubnet_ == nullptr) return nullptr;
  const std::string prefix = section.type == kHost ? "host " : "if ";
  return Find(prefix + ValueOf(section, kNameParam), currentSubnet_);
}

int ModelFile::ChangeSection(const Record& section, const MaybeText& newName) {
  ModelNode* const target = Choose(section);
  return target == nullptr ? 0 : Change(section, *target, newName);
}

int ModelFile::ChangeTreeSection(const Record& section, const MaybePath& target,
                                 const MaybeText& newName) {
  return target ? Change(section, At(*target), newName) : 0;
}

int ModelFile::Change(const Record& section, ModelNode& target, const MaybeText& newName) {
  if (newName && section.type != kGlobal) {
    const Record renamed = {section.type, {{false, kNameParam, *newName}}};
    Record header;
    if (!MakeLines(family_, renamed, header)) return 0;
    target.name = ValueOf(header, kNameParam);
  }
  Record lines;
  if (!MakeLines(family_, section, lines)) return 0;
  const Record current = Read(family_, target, false);
  for (const Param& param : section.params) {
    if (param.type == kNameParam) continue;
    if (!ChangeParam(param, lines, current, target)) return 0;
  }
  return 1;
}

bool ModelFile::ChangeParam(const Param& param, const Record& lines, const Record& current,
                            ModelNode& target) {
  const Param* const line = FirstOf(lines, param.type);
  if (ValueOf(current, param.type).empty()) {
    if (line != nullptr && !line->value.empty()) {
      target.lines.push_back({line->value, line->commented});
    }
    return true;
  }
  Record currentLines;
  if (!MakeLines(family_, current, currentLines)) return false;
  const std::size_t at = FirstLineHolding(target, ValueOf(currentLines, param.type));
  if (at == target.lines.size()) return false;
  if (param.value.empty()) {
    target.lines.erase(target.lines.begin() + static_cast<std::ptrdiff_t>(at));
  } else {
    target.lines[at].text = line == nullptr ? "" : line->value;
    target.lines[at].commented = line != nullptr && line->commented;
  }
  return true;
}

int ModelFile::SetSectionParams(const Record& section) {
  ModelNode* const target = Choose(section);
  if (target == nullptr || section.params.empty()) return 0;
  target->lines.clear();
  for (const Param& param : section.params) {
    if (param.type != kNameParam) target->lines.push_back({param.value, param.commented});
  }
  return target->lines.empty() ? 0 : 1;
}

}  // namespace klepur::test
