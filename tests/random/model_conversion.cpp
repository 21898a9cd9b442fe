#include "tests/random/model_conversion.h"

#include <cctype>

namespace klepur::test {
namespace {

bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

std::string BehindFirstBlank(const std::string& header) {
  return header.substr(header.find(' ') + 1);
}

std::string SubnetName(const ModelFamily& family, const std::string& header) {
  if (family.isV6) return BehindFirstBlank(header);
  return HeaderAddress(header) + ":" + header.substr(header.rfind(' ') + 1);
}

void ReadHeader(const ModelFamily& family, const std::string& header, Record& record,
                std::string& text) {
  text = BehindFirstBlank(header);
  if (Holds(header, "shared-network ")) {
    record.type = kNetwork;
  } else if (Holds(header, family.subnetPrefix)) {
    record.type = kSubnet;
    text = SubnetName(family, header);
  } else if (Holds(header, "host ")) {
    record.type = kHost;
  } else if (Holds(header, "if ")) {
    record.type = kIf;
  } else {
    record.type = kGlobal;
    text = header;
  }
}

/// What stands in a list, with `between` between the elements.
std::string ReadList(const ModelFamily& family, const std::string& line,
                     const std::string& between) {
  std::size_t at = 0;
  while (at < line.size() &&
         !(family.isV6 ? line[at] == ' ' : std::isdigit(static_cast<unsigned char>(line[at])) != 0))
    ++at;
  std::string list;
  std::string element;
  for (; at <= line.size(); ++at) {
    const char c = at < line.size() ? line[at] : ';';
    if (c != ',' && c != ' ' && c != ';') {
      element += c;
      continue;
    }
    if (!element.empty()) list += (list.empty() ? "" : between) + element;
    element.clear();
    if (c == ';') break;
  }
  return list.empty() ? "wrong value" : list;
}

/// Leaves `text` alone when the line has no such word.
void ReadLastWord(const std::string& line, std::string& text) {
  const std::size_t blank = line.rfind(' ');
  const std::size_t end = line.find(';');
  if (blank == std::string::npos || end == std::string::npos) return;
  text = end > blank ? line.substr(blank + 1, end - blank - 1) : line.substr(blank + 1);
}

void StripQuotes(std::string& text) {
  if (!text.empty()) text.erase(0, 1);
  if (!text.empty()) text.pop_back();
}

/// `text` is what was read last: a line without a value leaves it so.
void ReadValue(const ModelFamily& family, int type, const std::string& line, std::string& text) {
  if (family.readAsExist.count(type) != 0) {
    text = "exist";
  } else if (family.readAsCommaList.count(type) != 0) {
    text = ReadList(family, line, ", ");
  } else if (family.readAsBlankList.count(type) != 0) {
    text = ReadList(family, line, " ");
  } else if (type == family.ipLine) {
    text = line.substr(0, line.size() - 1);
  } else {
    ReadLastWord(line, text);
    if (family.readWithoutQuotes.count(type) != 0) StripQuotes(text);
  }
}

Param& FirstOrNew(Record& record, int type) {
  Param* param = FirstOf(record, type);
  if (param != nullptr) return *param;
  record.params.push_back({false, type, ""});
  return record.params.back();
}

/// False for a subnet whose name makes no header.
bool MakeHeader(const ModelFamily& family, int type, const std::string& name, std::string& header) {
  switch (type) {
    case kGlobal:
      header = "TREE_ROOT_SECTION";
      return true;
    case kNetwork:
      header = "shared-network " + name;
      return true;
    case kHost:
      header = "host " + name;
      return true;
    case kIf:
      header = "if " + name;
      return true;
    case kSubnet:
      break;
    default:
      header = "";
      return true;
  }
  header = family.subnetPrefix + name;
  if (family.isV6) return true;
  const std::size_t colon = header.find(':');
  if (colon == std::string::npos) return false;
  header = header.substr(0, colon) + " netmask " + header.substr(colon + 1);
  return true;
}

}  // namespace

std::string HeaderAddress(const std::string& header) {
  const std::size_t netmask = header.find(" netmask ");
  // A blank that is both the first one and that of " netmask " ends nothing.
  const bool ends = netmask != std::string::npos && netmask != header.find(' ');
  return BehindFirstBlank(ends ? header.substr(0, netmask) : header);
}

int TypeOfLine(const ModelFamily& family, const std::string& line) {
  for (const auto& [keyword, type] : family.keywords) {
    if (Holds(line, keyword)) return type;
  }
  const bool isIpLine = Holds(line, ";") && (Holds(line, "IPLine") || Holds(line, "Special"));
  return isIpLine ? family.ipLine : -1;
}

Record Read(const ModelFamily& family, const ModelNode& node, bool rawEntries) {
  Record record;
  std::string text;
  ReadHeader(family, node.name, record, text);
  record.params.push_back({false, kNameParam, text});
  for (const ModelLine& line : node.lines) {
    if (rawEntries) {
      record.params.push_back({line.commented, -1, line.text});
      continue;
    }
    const int type = TypeOfLine(family, line.text);
    if (type == -1) continue;
    ReadValue(family, type, line.text, text);
    Param& param = FirstOrNew(record, type);
    param.value = text;
    param.commented = line.commented;
  }
  return record;
}

bool MakeLines(const ModelFamily& family, const Record& in, Record& out) {
  if (in.params.empty()) return false;
  out.params.clear();
  out.type = in.type;
  const std::string name = ValueOf(in, kNameParam);
  if (!name.empty()) {
    std::string header;
    if (!MakeHeader(family, in.type, name, header)) return false;
    out.params.push_back({false, kNameParam, header});
  }
  for (const Param& param : in.params) {
    const auto written = family.written.find(param.type);
    if (param.value.empty() || written == family.written.end()) continue;
    Param& line = FirstOrNew(out, param.type);
    line.value = written->second.beforeValue + (written->second.hasValue ? param.value : "") +
                 written->second.behindValue;
    line.commented = FirstOf(in, param.type)->commented;
  }
  return true;
}

}  // namespace klepur::test
