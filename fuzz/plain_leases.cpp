#include "fuzz/plain_leases.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace klepur::fuzz {
namespace {

using test::ModelLine;
using test::ModelNode;

std::string Formatted(int value) {
  char text[16];
  std::snprintf(text, sizeof text, "%02x", static_cast<unsigned>(value));
  return text;
}

std::vector<std::string> Words(const std::string& text) {
  std::vector<std::string> words;
  std::istringstream in(text);
  for (std::string word; std::getline(in, word, ' ');) {
    if (!word.empty()) words.push_back(word);
  }
  return words;
}

/// What stands behind the keyword that the first words make together, and behind one character
/// more; empty when they make none.
std::string BehindKeyword(const std::string& name, const std::vector<std::string>& keywords) {
  std::string kind;
  for (const std::string& word : Words(name)) {
    kind += word;
    for (const std::string& keyword : keywords) {
      if (kind == keyword) return name.substr(kind.size() + 1);
    }
  }
  return "";
}

std::string* FieldOf(const std::string& name, _Dhcpv6LeaseStore& lease) {
  if (name == "cltt") return &lease.cltt;
  if (name == "binding state") return &lease.bindingState;
  if (name == "preferred-life") return &lease.preferredLife;
  if (name == "max-life") return &lease.maxLife;
  if (name == "ends") return &lease.ends;
  return nullptr;
}

void ReadLine(const ModelLine& line, _Dhcpv6LeaseStore& lease) {
  const std::size_t end = line.text.find(';');
  if (line.commented || end == std::string::npos || end == 0) return;
  std::string name;
  for (const std::string& word : Words(line.text)) {
    name += (name.empty() ? "" : " ") + word;
    const std::string value = line.text.substr(name.size() + 1, end - name.size() - 1);
    if (std::string* const field = FieldOf(name, lease)) {
      *field = value;
      return;
    }
  }
}

void ReadAssociation(const ModelNode& block, std::list<_Dhcpv6LeaseStore>& leases) {
  std::string identifier = BehindKeyword(block.name, {"ia-ta", "ia-na", "ia-pd"});
  std::erase(identifier, '"');
  _Dhcpv6LeaseStore lease;
  lease.duid = PlainDuid(identifier);
  if (lease.duid.empty()) return;
  for (const auto& inner : block.children) {
    const std::string address = BehindKeyword(inner->name, {"iaaddr", "iaprefix"});
    if (!address.empty()) lease.address = address;
    for (const ModelLine& line : inner->lines) ReadLine(line, lease);
  }
  leases.push_back(lease);
}

}  // namespace

std::string PlainDuid(const std::string& text) {
  const std::string all = text.c_str();
  std::string hex;
  std::size_t at = 0;
  while (at < all.size()) {
    const char next = at + 1 < all.size() ? all[at + 1] : '\0';
    if (all[at] != '\\') {
      hex += Formatted(static_cast<signed char>(all[at]));
      at += 1;
    } else if (next == '\\' || next == '"') {
      hex += Formatted(static_cast<signed char>(next));
      at += 2;
    } else {
      hex += Formatted(static_cast<int>(std::strtol(all.substr(at + 1, 3).c_str(), nullptr, 8)));
      at += 4;
    }
  }
  return hex;
}

bool PlainLeases(const ModelNode& top, std::list<_Dhcpv6LeaseStore>& leases) {
  try {
    for (const auto& node : top.children) {
      for (const auto& block : node->children) ReadAssociation(*block, leases);
    }
  } catch (const std::out_of_range&) {
    return false;
  }
  return true;
}

}  // namespace klepur::fuzz
