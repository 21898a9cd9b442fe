// Finding, walking and looking up, by the model.
#include "tests/random/model_file.h"

namespace klepur::test {
namespace {

MaybePath PathOrNull(const ModelNode* node) {
  return node == nullptr ? MaybePath() : MaybePath(PathOf(*node));
}

bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

bool HasLine(const ModelNode& node, const std::string& text) {
  for (const ModelLine& line : node.lines) {
    if (line.text == text) return true;
  }
  return false;
}

const std::string kHostPrefix = "host ";
const std::string kIfPrefix = "if ";

}  // namespace

ModelNode* ModelFile::Find(const std::string& header, ModelNode* start) {
  if (!topHasList_) return nullptr;
  if (start == nullptr) start = Root();
  return start == nullptr ? nullptr : FirstNamed(*start, header);
}

MaybePath ModelFile::GetTreeItemByNameAt(const MaybeText& name, const MaybePath& start) {
  if (!topHasList_) return std::nullopt;
  if (!name) return PathOrNull(Root());
  return GetTreeItemBySectionAt(name, start);
}

MaybePath ModelFile::GetTreeItemBySectionAt(const MaybeText& name, const MaybePath& start) {
  if (!name) return std::nullopt;
  return PathOrNull(Find(*name, start ? &At(*start) : nullptr));
}

Record ModelFile::TreeToDhcp(const Path& node, bool rawEntries) {
  return Read(family_, At(node), rawEntries);
}

bool ModelFile::DhcpToTree(const Record& in, Record& out) {
  return MakeLines(family_, in, out);
}

bool ModelFile::Fetch(ModelNode* node, Record& section, bool rawEntries) {
  if (node == nullptr) return false;
  section = Read(family_, *node, rawEntries);
  return true;
}

bool ModelFile::FetchOnto(ModelNode* node, ModelNode*& cursor, Record& section, bool rawEntries) {
  if (node != nullptr) cursor = node;
  return Fetch(node, section, rawEntries);
}

ModelNode* ModelFile::FirstOfLevel(ModelNode* cursor) {
  if (cursor == nullptr) return nullptr;
  return FirstChild(cursor == &top_ ? *cursor : *cursor->parent);
}

bool ModelFile::GetFirstSection(Record& section, bool rawEntries) {
  if (!topHasList_) return false;
  switch (section.type) {
    case kGlobal:
      return Fetch(Root(), section, rawEntries);
    case kNetwork:
      return FetchOnto(FirstOfLevel(currentNetwork_), currentNetwork_, section, rawEntries);
    case kSubnet:
      return FetchOnto(FirstOfLevel(currentSubnet_), currentSubnet_, section, rawEntries);
    case kHost:
    case kIf:
      break;
    default:
      return false;
  }
  if (currentSubnet_ == nullptr) return false;
  for (const auto& child : currentSubnet_->children) {
    if (Holds(child->name, section.type == kHost ? kHostPrefix : kIfPrefix)) {
      return Fetch(child.get(), section, rawEntries);
    }
  }
  return false;
}

ModelNode* ModelFile::NextOfKind(const Record& current, const std::string& prefix) {
  if (currentSubnet_ == nullptr) return nullptr;
  Record lines;
  MakeLines(family_, current, lines);
  ModelNode* node = Find(ValueOf(lines, kNameParam), currentSubnet_);
  while (node != nullptr) {
    node = NextSibling(*node);
    if (node != nullptr && Holds(node->name, prefix)) return node;
  }
  return nullptr;
}

bool ModelFile::GetNextSection(const Record& current, Record& next, bool rawEntries) {
  if (!topHasList_) return false;
  switch (current.type) {
    case kNetwork:
      return FetchOnto(currentNetwork_ == nullptr ? nullptr : NextSibling(*currentNetwork_),
                       currentNetwork_, next, rawEntries);
    case kSubnet:
      return FetchOnto(currentSubnet_ == nullptr ? nullptr : NextSibling(*currentSubnet_),
                       currentSubnet_, next, rawEntries);
    case kHost:
      return Fetch(NextOfKind(current, kHostPrefix), next, rawEntries);
    case kIf:
      return Fetch(NextOfKind(current, kIfPrefix), next, rawEntries);
    default:
      return false;
  }
}

bool ModelFile::GetNextSectionInPlace(Record& section, bool rawEntries) {
  const Record current = section;
  return GetNextSection(current, section, rawEntries);
}

bool ModelFile::GotoSection(const MaybeText& name, int type) {
  if (!topHasList_) return false;
  if (type == kGlobal) {
    currentNetwork_ = nullptr;
    currentSubnet_ = nullptr;
    return true;
  }
  if (!name || name->empty()) return false;
  if (type == kNetwork) {
    ModelNode* const network = Find("shared-network " + *name, nullptr);
    if (network == nullptr) return false;
    currentNetwork_ = network;
    currentSubnet_ = FirstChild(*network);
    return true;
  }
  if (type == kSubnet) {
    ModelNode* const subnet = Find(family_.subnetPrefix + *name, currentNetwork_);
    if (subnet == nullptr) return false;
    currentSubnet_ = subnet;
    return true;
  }
  if (type == kHost) return Find(kHostPrefix + *name, currentSubnet_) != nullptr;
  if (type == kIf) return Find(kIfPrefix + *name, currentSubnet_) != nullptr;
  return false;
}

bool ModelFile::GetSectionByName(Record& section, const MaybeText& name) {
  if (!topHasList_) return false;
  if (section.type == kGlobal) return Fetch(Root(), section, false);
  if (section.type == kNetwork) {
    if (!name) return false;
    return FetchOnto(Find("shared-network " + *name, nullptr), currentNetwork_, section, false);
  }
  if (currentSubnet_ == nullptr || !name) return false;
  if (section.type == kSubnet) {
    return FetchOnto(Find(family_.subnetPrefix + *name, currentNetwork_), currentSubnet_, section,
                     false);
  }
  if (section.type == kHost)
    return Fetch(Find(kHostPrefix + *name, currentSubnet_), section, false);
  if (section.type == kIf) return Fetch(Find(kIfPrefix + *name, currentSubnet_), section, false);
  return false;
}

bool ModelFile::GetSectionByKeyname(const MaybeText& line, Record& section, bool rawEntries) {
  if (!topHasList_ || currentSubnet_ == nullptr || !line) return false;
  for (const auto& child : currentSubnet_->children) {
    if (HasLine(*child, *line)) return Fetch(child.get(), section, rawEntries);
  }
  return false;
}

bool ModelFile::FetchHost(int type, const MaybeText& value, Record& section, bool rawEntries) {
  if (!value) return false;
  const Record probe = {kHost, {{false, type, *value}}};
  Record lines;
  MakeLines(family_, probe, lines);
  return GetSectionByKeyname(ValueOf(lines, type), section, rawEntries);
}

bool ModelFile::GetHostByName(const MaybeText& name, Record& section, bool rawEntries) {
  return FetchHost(family_.hostName, name, section, rawEntries);
}

bool ModelFile::GetHostByIp(const MaybeText& ip, Record& section, bool rawEntries) {
  return FetchHost(family_.fixedAddress, ip, section, rawEntries);
}

bool ModelFile::GetHostByMACAddress(const MaybeText& mac, Record& section, bool rawEntries) {
  return FetchHost(family_.hardwareEthernet, mac, section, rawEntries);
}

}  // namespace klepur::test
