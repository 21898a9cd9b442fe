// Adding, by the model.
#include "tests/random/model_file.h"

#include <stdexcept>
#include <utility>

namespace klepur::test {

int ModelFile::AddSection(const Record& section) {
  if (!topHasList_ || ValueOf(section, kNameParam).empty()) return 0;
  switch (section.type) {
    case kNetwork:
      return AddNetwork(section);
    case kSubnet:
      return AddSubnet(section);
    case kHost:
      return AddHost(section);
    case kIf:
      return AddIFSection(section);
    default:
      return 0;
  }
}

int ModelFile::AddNetwork(const Record& section) {
  const std::string name = ValueOf(section, kNameParam);
  if (Find(name, nullptr) != nullptr) return 0;
  if (!ConvertAndAdd(section, Root())) return 0;
  if (!GotoSection(name, section.type)) return 0;
  currentSubnet_ = currentNetwork_ == nullptr ? nullptr : FirstChild(*currentNetwork_);
  return 1;
}

/// The name of a subnet up to what ends its address.
std::string ModelFile::AddressIn(const Record& section) const {
  const std::string name = ValueOf(section, kNameParam);
  const std::size_t comma = name.find(',');
  if (comma != std::string::npos) {
    if (comma + 1 == name.size()) throw std::out_of_range("basic_string::substr");
    return name.substr(0, comma);
  }
  const bool colonCounts = !family_.isV6 || section.type != kSubnet;
  const std::size_t colon = colonCounts ? name.find(':') : std::string::npos;
  if (colon != std::string::npos) return name.substr(0, colon);
  return name.substr(0, name.find(' '));
}

int ModelFile::AddSubnet(const Record& section) {
  const std::string address = AddressIn(section);
  ModelNode* const scope = currentNetwork_ == nullptr ? Root() : currentNetwork_;
  ModelNode* const found = Find(family_.subnetPrefix + address, currentNetwork_);
  if (found != nullptr && (found == &top_ ? found : found->parent) == scope) return 0;
  if (!ConvertAndAdd(section, currentNetwork_)) return 0;
  return GotoSection(address, kSubnet) ? 1 : 0;
}

int ModelFile::AddHost(const Record& section) {
  return AddBelowSubnet(section, "host ");
}

int ModelFile::AddIFSection(const Record& section) {
  return AddBelowSubnet(section, "if ");
}

int ModelFile::AddBelowSubnet(const Record& section, const std::string& prefix) {
  ModelNode* const found = Find(prefix + ValueOf(section, kNameParam), currentSubnet_);
  if (found != nullptr && (found == &top_ ? found : found->parent) == currentSubnet_) return 0;
  return ConvertAndAdd(section, currentSubnet_) ? 1 : 0;
}

bool ModelFile::ConvertAndAdd(const Record& section, ModelNode* parent) {
  Record lines;
  return MakeLines(family_, section, lines) && AddLines(lines, parent);
}

bool ModelFile::AddTreeSection(const Record& section, const MaybePath& parent) {
  return AddLines(section, parent ? &At(*parent) : nullptr);
}

bool ModelFile::AddLines(const Record& lines, ModelNode* parent) {
  const std::string header = ValueOf(lines, kNameParam);
  if (header.empty()) return false;
  if (parent == nullptr) parent = Root();
  if (parent == nullptr) parent = &top_;
  auto node = std::make_unique<ModelNode>();
  node->name = header;
  for (const Param& param : lines.params) {
    if (param.type == kNameParam) continue;
    if (param.value.empty() && node->lines.empty()) return false;
    if (param.value.empty()) continue;
    node->lines.push_back({param.value, FirstOf(lines, param.type)->commented});
  }
  const bool hasLines = !node->lines.empty();
  AddNode(*parent, parent->children.size(), std::move(node));
  topHasList_ = true;
  return hasLines;
}

}  // namespace klepur::test
