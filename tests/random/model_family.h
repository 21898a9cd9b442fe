// The words of an address family, as the model knows them.
#ifndef KLEPUR_TESTS_RANDOM_MODEL_FAMILY_H
#define KLEPUR_TESTS_RANDOM_MODEL_FAMILY_H

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace klepur::test {

struct ModelFamily {
  struct Written {
    std::string beforeValue;  ///< what stands before the value
    std::string behindValue;  ///< and behind it, with the ";"
    bool hasValue;
  };

  bool isV6;
  std::string subnetPrefix;

  /// Which type a line is: the first of these texts that it holds decides.
  std::vector<std::pair<std::string, int>> keywords;
  /// What a line with "IPLine" or "Special", and a ";", is when it holds none of the above.
  int ipLine;

  // How a value is read from its line; all others are the last word before the ";".
  std::set<int> readAsExist;
  std::set<int> readAsCommaList;
  std::set<int> readAsBlankList;
  std::set<int> readWithoutQuotes;

  /// How a value is written. A type that is not here has no line.
  std::map<int, Written> written;

  // What the lookups of hosts look for.
  int hostName;
  int fixedAddress;
  int hardwareEthernet;

  /// The numbers that a parameter may have, up to this one.
  int lastType;
};

const ModelFamily& ModelV4();
const ModelFamily& ModelV6();

}  // namespace klepur::test

#endif
