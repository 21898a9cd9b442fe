// Internal: what a caller wishes of a save.
#ifndef KLEPUR_STORAGE_SAVE_WISHES_H
#define KLEPUR_STORAGE_SAVE_WISHES_H

#include <chrono>
#include <string>
#include <vector>

#include <klepur/storage/save_options.h>

namespace klepur::internal {

struct SaveWishes {
  static const SaveWishes& Of(const SaveOptions& options) { return *options.wishes_; }

  bool forced = false;
  bool in_place_if_needed = false;
  bool backup = false;
  std::string backup_path;  ///< Empty for a name that is made.
  std::vector<std::string> verifier;
  std::chrono::milliseconds verifier_limit{0};
  bool locked = true;
  std::chrono::milliseconds lock_limit = std::chrono::seconds(10);
};

}  // namespace klepur::internal

#endif
