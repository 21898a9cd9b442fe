// The operations that add, remove and change blocks.
#include "tests/random/random_operations.h"

namespace klepur::test {

Operation RandomOperations::Add() {
  const Record record = AnyRecord(AnyKind());
  return Plain(Call("AddSection", {ToText(record)}),
               [=](Side& side) { return side.AddSection(record); });
}

Operation RandomOperations::AddDirectly() {
  const int kind = chance_.Pick(std::vector<int>{kNetwork, kSubnet, kHost, kIf});
  const Record record = AnyRecord(chance_.OneIn(10) ? AnyKind() : kind);
  switch (kind) {
    case kNetwork:
      return Plain(Call("AddNetwork", {ToText(record)}),
                   [=](Side& side) { return side.AddNetwork(record); });
    case kSubnet:
      return Plain(Call("AddSubnet", {ToText(record)}),
                   [=](Side& side) { return side.AddSubnet(record); });
    case kHost:
      return Plain(Call("AddHost", {ToText(record)}),
                   [=](Side& side) { return side.AddHost(record); });
    default:
      return Plain(Call("AddIFSection", {ToText(record)}),
                   [=](Side& side) { return side.AddIFSection(record); });
  }
}

Operation RandomOperations::AddTreeSection() {
  const Record record = LinesOf(AnyRecord(AnyKind()));
  const MaybePath parent = AnyPathOrNull();
  return Plain(Call("AddTreeSection", {ToText(record), ToText(parent)}),
               [=](Side& side) { return side.AddTreeSection(record, parent); });
}

Operation RandomOperations::Remove() {
  const int kind = AnyKind();
  Record record = AnyRecord(kind);
  const MaybeText name = AnyName(kind);
  Param* param = FirstOf(record, kNameParam);
  if (name && param != nullptr && !chance_.OneIn(4)) param->value = *name;
  return Plain(Call("RemoveSection", {ToText(record)}),
               [=](Side& side) { return side.RemoveSection(record); });
}

Operation RandomOperations::RemoveDirectly() {
  const int kind = chance_.Pick(std::vector<int>{kNetwork, kSubnet, kHost, kHost, kHost, kIf});
  const MaybeText name = AnyName(kind);
  switch (kind) {
    case kNetwork:
      return Plain(Call("RemoveNetwork", {ToText(name)}),
                   [=](Side& side) { return side.RemoveNetwork(name); });
    case kSubnet:
      return Plain(Call("RemoveSubnetSection", {ToText(name)}),
                   [=](Side& side) { return side.RemoveSubnetSection(name); });
    case kHost:
      return Plain(Call("RemoveHostSection", {ToText(name)}),
                   [=](Side& side) { return side.RemoveHostSection(name); });
    default:
      return Plain(Call("RemoveIFSection", {ToText(name)}),
                   [=](Side& side) { return side.RemoveIFSection(name); });
  }
}

Operation RandomOperations::Change() {
  const int kind = AnyKind();
  Record record = AnyRecord(kind);
  Param* param = FirstOf(record, kNameParam);
  const MaybeText name = AnyName(kind);
  if (name && param != nullptr && chance_.OneIn(2)) param->value = *name;
  MaybeText newName;
  if (chance_.OneIn(4)) newName = chance_.OneIn(20) ? "" : words_.RecordName(kind);
  return Plain(Call("ChangeSection", {ToText(record), ToText(newName)}),
               [=](Side& side) { return side.ChangeSection(record, newName); });
}

Operation RandomOperations::ChangeTreeSection() {
  const ModelNode& node = AnyBlock();
  Record record = AnyRecord(AnyKind());
  if (chance_.OneIn(2)) {
    // What a caller does: reads the block, changes something, hands it back.
    record = Read(model_.Family(), node, false);
    Param& param = record.params[chance_.Below(record.params.size())];
    param.value = chance_.OneIn(3) ? "" : words_.Value(param.type);
  }
  MaybePath target = PathOf(node);
  if (chance_.OneIn(50)) target.reset();
  MaybeText newName;
  if (chance_.OneIn(4)) newName = words_.RecordName(record.type);
  return Plain(Call("ChangeTreeSection", {ToText(record), ToText(target), ToText(newName)}),
               [=](Side& side) { return side.ChangeTreeSection(record, target, newName); });
}

Operation RandomOperations::SetSectionParams() {
  const int kind = AnyKind();
  Record record = LinesOf(AnyRecord(kind));
  const MaybeText name = AnyName(kind);
  Param* param = FirstOf(record, kNameParam);
  if (name && param != nullptr) param->value = *name;
  return Plain(Call("SetSectionParams", {ToText(record)}),
               [=](Side& side) { return side.SetSectionParams(record); });
}

}  // namespace klepur::test
