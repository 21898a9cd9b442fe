// Internal: the copy of a file that stays when it is saved.
#ifndef KLEPUR_STORAGE_BACKUP_H
#define KLEPUR_STORAGE_BACKUP_H

#include <memory>
#include <optional>
#include <string>

#include <klepur/storage/new_file.h>

namespace klepur::internal {

/// A copy that gets its name once all else that can fail has been done, and loses it again when even then the
/// save fails, unless it replaced an older backup.
class Backup {
 public:
  /// None.
  Backup() noexcept = default;
  /// A copy of an open file that has no name yet. Throws Error(kFile).
  /// \param target  its path. \param path  how it is called in errors.
  /// \param name    the path of the copy; empty for one that is made.
  Backup(int file, const std::string& target, const std::string& path, const std::string& name,
         bool locked);
  Backup(const Backup&) = delete;
  Backup& operator=(const Backup&) = delete;
  ~Backup();

  /// Gives the copy its name, and makes that last.
  void Name();
  /// Keeps the copy. \return its path; empty when there is none.
  std::string Keep() noexcept;

 private:
  std::string path_;
  std::unique_ptr<NewFile> copy_;
  std::optional<Folder> folder_;
  bool fresh_ = false;
  bool named_ = false;
};

}  // namespace klepur::internal

#endif
