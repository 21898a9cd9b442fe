// Internal: what a save did.
#ifndef KLEPUR_STORAGE_SAVE_FACTS_H
#define KLEPUR_STORAGE_SAVE_FACTS_H

#include <string>
#include <vector>

namespace klepur::internal {

/// See SaveReport.
struct SaveFacts {
  bool written = false;
  bool in_place = false;
  std::string backup;
  std::string verifier_output;
  std::vector<std::string> strays_removed;
  std::string warning;
};

}  // namespace klepur::internal

#endif
