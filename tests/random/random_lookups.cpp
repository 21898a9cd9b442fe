// The operations that walk, look up and read.
#include "tests/random/random_operations.h"

namespace klepur::test {

Operation RandomOperations::TreeItem() {
  const MaybePath start = AnyPathOrNull();
  MaybeText name;
  if (!chance_.OneIn(30)) name = nodes_.empty() ? words_.Header(kHost) : AnyHeader();
  if (name) Remember(*name);
  const std::string arguments = "(" + ToText(name) + ", " + ToText(start) + ")";
  if (chance_.OneIn(2)) {
    return {"GetTreeItemByNameAt" + arguments,
            [=](Side& side) { return ToText(side.GetTreeItemByNameAt(name, start)); },
            start.has_value()};
  }
  return {"GetTreeItemBySectionAt" + arguments,
          [=](Side& side) { return ToText(side.GetTreeItemBySectionAt(name, start)); },
          start.has_value()};
}

Operation RandomOperations::ReadBlock() {
  const Path node = PathOf(AnyNode());
  const bool raw = chance_.OneIn(4);
  return {Call("TreeToDhcp", {Node(node), ToText(raw)}),
          [=](Side& side) { return ToText(side.TreeToDhcp(node, raw)); }, true};
}

Operation RandomOperations::MakeLinesOfRecord() {
  const int kind = AnyKind();
  const Record record = AnyRecord(kind);
  return Filling(Call("DhcpToTree", {ToText(record)}), UsedRecord(kHost),
                 [=](Side& side, Record& out) { return side.DhcpToTree(record, out); });
}

Operation RandomOperations::First() {
  const Record record = UsedRecord(AnyKind());
  const bool raw = chance_.OneIn(4);
  return Filling(Call("GetFirstSection", {ToText(record), ToText(raw)}), record,
                 [=](Side& side, Record& out) { return side.GetFirstSection(out, raw); });
}

Operation RandomOperations::Following() {
  const int kind = AnyKind();
  const bool raw = chance_.OneIn(4);
  Record current = AnyRecord(kind);
  current.type = kind;
  const MaybeText name = AnyName(kind);
  Param* param = FirstOf(current, kNameParam);
  if (name && param != nullptr && (kind == kHost || kind == kIf)) param->value = *name;
  if (chance_.OneIn(4)) {
    return Filling(Call("GetNextSection in place", {ToText(current), ToText(raw)}), current,
                   [=](Side& side, Record& out) { return side.GetNextSectionInPlace(out, raw); });
  }
  return Filling(Call("GetNextSection", {ToText(current), "record", ToText(raw)}),
                 UsedRecord(kGlobal),
                 [=](Side& side, Record& out) { return side.GetNextSection(current, out, raw); });
}

Operation RandomOperations::Goto() {
  const int kind = AnyKind();
  const MaybeText name = AnyName(kind);
  return Plain(Call("GotoSection", {ToText(name), std::to_string(kind)}),
               [=](Side& side) { return side.GotoSection(name, kind); });
}

Operation RandomOperations::ByName() {
  const Record record = UsedRecord(AnyKind());
  const MaybeText name = AnyName(record.type);
  return Filling(Call("GetSectionByName", {ToText(record), ToText(name)}), record,
                 [=](Side& side, Record& out) { return side.GetSectionByName(out, name); });
}

Operation RandomOperations::ByLine() {
  MaybeText line = AnyLine().text;
  if (chance_.OneIn(50)) line.reset();
  if (!nodes_.empty() && !chance_.OneIn(3)) {
    const ModelNode& node = AnyNodeToBeFound(0);
    if (!node.lines.empty()) line = chance_.Pick(node.lines).text;
    if (line) Remember(ModelLine{*line, false});
  }
  const bool raw = chance_.OneIn(4);
  return Filling(Call("GetSectionByKeyname", {ToText(line), "record", ToText(raw)}),
                 UsedRecord(kGlobal),
                 [=](Side& side, Record& out) { return side.GetSectionByKeyname(line, out, raw); });
}

Operation RandomOperations::HostBy() {
  const ModelFamily& family = model_.Family();
  const bool raw = chance_.OneIn(4);
  const std::size_t which = chance_.Below(3);
  const MaybeText value = AnyValue(which == 0   ? family.hostName
                                   : which == 1 ? family.fixedAddress
                                                : family.hardwareEthernet);
  const std::vector<std::string> arguments = {ToText(value), "record", ToText(raw)};
  if (which == 0) {
    return Filling(Call("GetHostByName", arguments), UsedRecord(kGlobal),
                   [=](Side& side, Record& out) { return side.GetHostByName(value, out, raw); });
  }
  if (which == 1) {
    return Filling(Call("GetHostByIp", arguments), UsedRecord(kGlobal),
                   [=](Side& side, Record& out) { return side.GetHostByIp(value, out, raw); });
  }
  return Filling(
      Call("GetHostByMACAddress", arguments), UsedRecord(kGlobal),
      [=](Side& side, Record& out) { return side.GetHostByMACAddress(value, out, raw); });
}

Operation RandomOperations::SubnetQuery() {
  return {"GetSubnet(text)", [](Side& side) {
            std::string subnet = "was here";
            const int result = side.GetSubnet(subnet);
            return std::to_string(result) + " " + Quoted(subnet);
          }};
}

Operation RandomOperations::NetmaskQuery() {
  std::string address;
  for (int octet = 0; octet < 4; ++octet) {
    if (octet > 0) address += '.';
    for (std::size_t digits = chance_.Between(0, 4); digits > 0; --digits) {
      address += static_cast<char>('0' + chance_.Below(3));
    }
  }
  return {Call("GetNetmaskBySubnet", {Quoted(address)}),
          [=](Side& side) { return Quoted(side.GetNetmaskBySubnet(address)); }};
}

Operation RandomOperations::PlaceCursors() {
  const MaybePath network = AnyPathOrNull();
  MaybePath subnet = AnyPathOrNull();
  const ModelNode& node = *chance_.Pick(nodes_);
  if (!chance_.OneIn(3)) subnet = PathOf(*node.parent);  // it has a block to be found
  Operation operation =
      Silent(Call("cursors", {"network " + ToText(network), "subnet " + ToText(subnet)}),
             [=](Side& side) { side.PlaceCursors(network, subnet); });
  operation.hasPaths = true;
  return operation;
}

}  // namespace klepur::test
