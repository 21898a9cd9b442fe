#include "tests/random/random_picks.h"

#include <cctype>
#include <climits>

namespace klepur::test {
namespace {

template <class Value>
void Push(const Value& value, std::vector<Value>& recent) {
  constexpr std::size_t kMost = 8;
  if (recent.size() == kMost) recent.erase(recent.begin());
  recent.push_back(value);
}

std::string PrefixOf(const ModelFamily& family, int kind) {
  const std::string prefixes[] = {"", "shared-network ", family.subnetPrefix, "host ", "if "};
  return prefixes[kind];
}

/// "pc-1" becomes "Pc-1".
void SwapCase(std::string& name) {
  const bool startsWithLetter = !name.empty() && std::isalpha(static_cast<unsigned char>(name[0]));
  if (startsWithLetter) name[0] = static_cast<char>(name[0] ^ ' ');
}

bool IsKindOfBlock(int kind) {
  return kind >= kNetwork && kind <= kIf;
}

}  // namespace

int RandomPicks::AnyKind() {
  if (chance_.OneIn(40)) return chance_.Pick(std::vector<int>{5, -1, INT_MAX, INT_MIN, 99});
  if (chance_.OneIn(12)) return kGlobal;
  return chance_.Pick(std::vector<int>{kNetwork, kSubnet, kSubnet, kHost, kHost, kHost, kIf});
}

void RandomPicks::Remember(const std::string& header) {
  Push(header, recentHeaders_);
}

void RandomPicks::Remember(const ModelLine& line) {
  Push(line, recentLines_);
}

void RandomPicks::Remember(const ModelNode& node) {
  Remember(node.name);
  if (!node.lines.empty()) Remember(chance_.Pick(node.lines));
}

std::string RandomPicks::RecentHeader() {
  return chance_.OneIn(2) ? recentHeaders_.back() : chance_.Pick(recentHeaders_);
}

ModelLine RandomPicks::RecentLine() {
  return chance_.OneIn(2) ? recentLines_.back() : chance_.Pick(recentLines_);
}

ModelNode* RandomPicks::RecentNode() {
  if (recentHeaders_.empty() || model_.Root() == nullptr) return nullptr;
  return FirstNamed(*model_.Root(), RecentHeader());
}

ModelNode* RandomPicks::NodeWithRecentLine() {
  if (recentLines_.empty() || model_.CurrentSubnet() == nullptr) return nullptr;
  const std::string text = RecentLine().text;
  for (const auto& child : model_.CurrentSubnet()->children) {
    for (const ModelLine& line : child->lines) {
      if (line.text == text) return child.get();
    }
  }
  return nullptr;
}

ModelNode& RandomPicks::AnyNode() {
  const ModelNode* near = chance_.OneIn(4) ? model_.CurrentNetwork() : model_.CurrentSubnet();
  if (near == nullptr || near->children.empty() || chance_.OneIn(3)) return *chance_.Pick(nodes_);
  ModelNode& child = *chance_.Pick(near->children);
  return chance_.OneIn(2) ? child : *chance_.Pick(AllNodes(child));
}

ModelNode& RandomPicks::AnyNodeToBeFound(int attempt) {
  const ModelNode* subnet = model_.CurrentSubnet();
  if (attempt > 8 || subnet == nullptr || subnet->children.empty()) return AnyNode();
  return *chance_.Pick(subnet->children);
}

ModelNode& RandomPicks::AnyBlock() {
  ModelNode* node = chance_.OneIn(3) ? NodeWithRecentLine() : nullptr;
  if (node == nullptr && chance_.OneIn(3)) node = RecentNode();
  if (node == nullptr) node = &AnyNode();
  if (node->parent == &model_.Top() && !chance_.OneIn(20)) node = &AnyNode();
  Remember(*node);
  return *node;
}

std::string RandomPicks::ExistingName(int kind) {
  if (!IsKindOfBlock(kind) || nodes_.empty()) return words_.BareName(kHost);
  const std::string prefix = PrefixOf(model_.Family(), kind);
  const int first = kind == kHost || kind == kIf ? 0 : 8;
  for (int attempt = first; attempt < 20; ++attempt) {
    const bool isRecent = !recentHeaders_.empty() && chance_.OneIn(6);
    const std::string header = isRecent ? RecentHeader() : AnyNodeToBeFound(attempt).name;
    if (header.find(prefix) != std::string::npos) return header.substr(header.find(' ') + 1);
  }
  return words_.BareName(kind);
}

MaybeText RandomPicks::AnyName(int kind) {
  if (chance_.OneIn(50)) return std::nullopt;
  if (chance_.OneIn(50)) return "";
  std::string name = chance_.OneIn(4) ? words_.BareName(kind) : ExistingName(kind);
  if (chance_.OneIn(15)) name += "1";
  if (chance_.OneIn(15) && !name.empty()) name.pop_back();
  if (chance_.OneIn(20)) SwapCase(name);
  if (chance_.OneIn(30)) name = words_.RecordName(kind);
  if (IsKindOfBlock(kind)) Remember(PrefixOf(model_.Family(), kind) + name);
  return name;
}

MaybeText RandomPicks::AnyValue(int type) {
  if (chance_.OneIn(50)) return std::nullopt;
  if (chance_.OneIn(50)) return "";
  std::string value;
  for (int attempt = 0; value.empty() && attempt < 20 && !nodes_.empty(); ++attempt) {
    ModelNode node;
    if (!recentLines_.empty() && chance_.OneIn(6)) {
      node.lines = recentLines_;
    } else {
      node.lines = AnyNodeToBeFound(attempt).lines;
    }
    value = ValueOf(Read(model_.Family(), node, false), type);
  }
  if (value.empty() || chance_.OneIn(10)) value = words_.Value(type);
  Record lines;
  MakeLines(model_.Family(), {kHost, {{false, type, value}}}, lines);
  Remember(ModelLine{ValueOf(lines, type), false});
  return value;
}

std::string RandomPicks::AnyHeader() {
  if (chance_.OneIn(100)) return "";
  if (chance_.OneIn(4)) return AnyNode().name;
  if (chance_.OneIn(3) && !recentHeaders_.empty()) return RecentHeader();
  const std::string header = words_.Header(AnyKind());
  Remember(header);
  return header;
}

MaybePath RandomPicks::AnyPathOrNull() {
  if (!allowsNodes_ || nodes_.empty() || chance_.OneIn(3)) return std::nullopt;
  if (chance_.OneIn(40)) return Path();
  return PathOf(AnyNode());
}

Record RandomPicks::NewRecord(int kind) {
  Record record;
  record.type = kind;
  if (!chance_.OneIn(30)) {
    const bool isOld = chance_.OneIn(3);
    std::string name = words_.RecordName(kind);
    if (isOld && kind != kSubnet) name = ExistingName(kind);
    if (kind == kSubnet && chance_.OneIn(6)) name = name.substr(0, 8);
    if (chance_.OneIn(25)) name += chance_.OneIn(2) ? "," : ", x";
    if (chance_.OneIn(40)) name = chance_.OneIn(2) ? "" : name + " x";
    record.params.push_back({false, kNameParam, name});
  }
  for (std::size_t count = chance_.Between(0, 4); count > 0; --count) {
    const int type = RandomType(chance_, model_.Family());
    const std::string value = chance_.OneIn(15) ? "" : words_.Value(type);
    record.params.push_back({chance_.OneIn(6), type, value});
  }
  if (chance_.OneIn(15)) {
    const int type = chance_.Pick(std::vector<int>{-1, 0, 9, 13, 29, 99, INT_MIN});
    const std::size_t at = chance_.Between(0, record.params.size());
    record.params.insert(record.params.begin() + static_cast<std::ptrdiff_t>(at),
                         {false, type, words_.BareName(kHost)});
  }
  return record;
}

Record RandomPicks::ExistingRecord(int kind) {
  if (nodes_.empty()) return NewRecord(kind);
  Record record = Read(model_.Family(), AnyNode(), false);
  for (int attempt = 0; record.type != kind && attempt < 12; ++attempt) {
    record = Read(model_.Family(), AnyNode(), false);
  }
  if (record.params.size() > 1 && !chance_.OneIn(5)) {
    Param& param = record.params[chance_.Between(1, record.params.size() - 1)];
    param.value = chance_.OneIn(4) ? "" : words_.Value(param.type);
    if (chance_.OneIn(3)) param.commented = !param.commented;
  }
  if (chance_.OneIn(2)) {
    const int type = RandomType(chance_, model_.Family());
    record.params.push_back({chance_.OneIn(6), type, words_.Value(type)});
  }
  return record;
}

Record RandomPicks::AnyRecord(int kind) {
  if (chance_.OneIn(60)) return {kind, {}};
  return chance_.OneIn(3) ? ExistingRecord(kind) : NewRecord(kind);
}

Record RandomPicks::LinesOf(const Record& record) {
  if (chance_.OneIn(6)) return record;
  Record lines;
  MakeLines(model_.Family(), record, lines);
  if (chance_.OneIn(8) && !lines.params.empty()) {
    lines.params[chance_.Below(lines.params.size())].value = "";
  }
  return lines;
}

ModelLine RandomPicks::AnyLine() {
  return chance_.OneIn(2) && !recentLines_.empty() ? RecentLine() : words_.AnyLine();
}

Side::Lines RandomPicks::AnyLines() {
  Side::Lines lines;
  for (std::size_t count = chance_.Between(0, 4); count > 0; --count) {
    lines.push_back(AnyLine());
  }
  return lines;
}

bool RandomPicks::HasCursorIn(const ModelNode& node) {
  return IsIn(model_.CurrentNetwork(), node) || IsIn(model_.CurrentSubnet(), node);
}

}  // namespace klepur::test
