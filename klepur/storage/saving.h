// Internal: the steps of a save, in their order.
#ifndef KLEPUR_STORAGE_SAVING_H
#define KLEPUR_STORAGE_SAVING_H

#include <memory>
#include <string>

#include <klepur/storage/file_lock.h>
#include <klepur/storage/pieces.h>
#include <klepur/storage/save_facts.h>
#include <klepur/storage/save_wishes.h>
#include <klepur/text/file_state.h>

namespace klepur::internal {

/// A file that somebody reads and saves.
struct KnownFile {
  std::string path;    ///< As the caller gave it.
  std::string target;  ///< What it led to when the file was opened or last saved.
  FileState state;     ///< What that was when it was read.
  FileLock lock;  ///< Not held while there is no file, or the caller wants none over several saves.
  bool stays_locked = false;  ///< Whether the caller wants one over several saves.
};

/// Saves a text as StoredFile::Save says. When it throws, the known file is as it was.
std::shared_ptr<const SaveFacts> Save(KnownFile& file, const Pieces& text,
                                      const SaveWishes& wishes);

}  // namespace klepur::internal

#endif
