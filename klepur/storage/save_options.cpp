#include <klepur/storage/save_options.h>

#include <utility>

#include <klepur/storage/save_wishes.h>

namespace klepur {

using internal::SaveWishes;

SaveOptions::SaveOptions() : wishes_(std::make_unique<SaveWishes>()) {}
SaveOptions::SaveOptions(const SaveOptions& other)
    : wishes_(std::make_unique<SaveWishes>(*other.wishes_)) {}
SaveOptions& SaveOptions::operator=(const SaveOptions& other) {
  wishes_ = std::make_unique<SaveWishes>(*other.wishes_);
  return *this;
}
SaveOptions::~SaveOptions() = default;

SaveOptions& SaveOptions::Forced(bool forced) {
  wishes_->forced = forced;
  return *this;
}

SaveOptions& SaveOptions::InPlaceIfNeeded(bool allowed) {
  wishes_->in_place_if_needed = allowed;
  return *this;
}

SaveOptions& SaveOptions::WithBackup() {
  wishes_->backup = true;
  wishes_->backup_path.clear();
  return *this;
}

SaveOptions& SaveOptions::WithBackup(const std::string& path) {
  wishes_->backup_path = path;
  wishes_->backup = !path.empty();
  return *this;
}

SaveOptions& SaveOptions::VerifiedBy(std::vector<std::string> command,
                                     std::chrono::milliseconds limit) {
  wishes_->verifier = std::move(command);
  wishes_->verifier_limit = limit;
  return *this;
}

SaveOptions& SaveOptions::LockedWithin(std::chrono::milliseconds limit) {
  wishes_->locked = true;
  wishes_->lock_limit = limit;
  return *this;
}

SaveOptions& SaveOptions::WithoutLock() {
  wishes_->locked = false;
  return *this;
}

}  // namespace klepur
