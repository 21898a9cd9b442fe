// A record of either family in words, so that one expected text serves both.
#ifndef KLEPUR_TESTS_SUPPORT_RECORD_WORDS_H
#define KLEPUR_TESTS_SUPPORT_RECORD_WORDS_H

#include <string>
#include <utility>

#include "tests/support/family.h"

namespace klepur::test {

/// The word for a kind of block; its number when there is none.
inline std::string KindWord(int kind) {
  static const char* const kWords[] = {"global", "shared-network", "subnet", "host", "if"};
  return kind >= 0 && kind <= 4 ? kWords[kind] : std::to_string(kind);
}

/// The word for a type of parameter that both families have; its number when there is none.
template <class Family>
std::string TypeWord(int type) {
  static const std::pair<int, const char*> kWords[] = {
      {-1, "raw"},
      {Family::kName, "name"},
      {Family::kRange, "range"},
      {Family::kMaxLeaseTime, "max"},
      {Family::kDefaultLeaseTime, "default"},
      {Family::kHardwareEthernet, "hardware"},
      {Family::kFixedAddress, "fixed"},
      {Family::kHostName, "host-name"},
      {Family::kFilename, "filename"},
      {Family::kServerName, "server-name"},
      {Family::kAuthoritative, "authoritative"},
      {Family::kDenyUnknownClients, "deny"},
      {Family::kIpLine, "ip-line"},
  };
  for (const auto& [number, word] : kWords) {
    if (number == type) return word;
  }
  return std::to_string(type);
}

/// The kind of block, then each parameter, "#" before one that is commented out:
///
///     host | name=pc-17 | hardware=00:11:22:33:44:55 | #max=7200
template <class Family>
std::string RecordWords(const typename Family::Section& record) {
  std::string text = KindWord(record.type);
  for (const auto& param : record.params) {
    text += std::string(" | ") + (param.commented ? "#" : "") + TypeWord<Family>(param.type) + "=" +
            param.value;
  }
  return text;
}

}  // namespace klepur::test

#endif
